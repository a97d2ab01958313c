#include "FX_Algen/Value.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "FX_Algen/Error.h"

namespace FX_Algen::store {
namespace {

std::int32_t FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Value, ConvertsToIntegersHalfToEven) {
    struct Case {
        double from;
        std::int16_t to;
    };
    // Halves go to the even neighbour: 0.5 to 0, 1.5 to 2, 2.5 to 2; -0.5 to 0, -1.5 to -2.
    for (const auto& c : {Case{0.5, 0}, Case{1.5, 2}, Case{2.5, 2}, Case{2.51, 3}, Case{-0.5, 0},
                          Case{-1.5, -2}, Case{32767.5 - 0.01, 32767}, Case{-32768.5, -32768}})
        EXPECT_EQ(Value(c.from).I2(), c.to) << c.from;
}

TEST(Value, OverflowsWithSix) {
    // 32767.5 rounds to the even 32768, which 16 bits do not hold.
    EXPECT_EQ(FailureOf([] { (void)Value(32767.5).I2(); }), 6);
    EXPECT_EQ(FailureOf([] { (void)Value(std::int32_t{32768}).I2(); }), 6);
    EXPECT_EQ(FailureOf([] { (void)Value(2147483648.0).I4(); }), 6);
    EXPECT_EQ(FailureOf([] { (void)Value(1e39).R4(); }), 6);
    for (const double value :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(FailureOf([&] { (void)Value(value).R4(); }), 6) << value;
        EXPECT_EQ(FailureOf([&] { (void)Value(value).I4(); }), 6) << value;
    }
    EXPECT_EQ(FailureOf([] { (void)Value(std::numeric_limits<double>::quiet_NaN()).I4(); }), 6);
}

TEST(Value, NullHasNoNumberTextOrTruth) {
    const Value null;
    for (const auto& call : std::vector<std::function<void()>>{
             [&] { (void)null.I2(); }, [&] { (void)null.I4(); }, [&] { (void)null.R4(); },
             [&] { (void)null.R8(); }, [&] { (void)null.Bool(); }, [&] { (void)null.Text(); },
             [&] { (void)null.AsDate(); }})
        EXPECT_EQ(FailureOf(call), 94);
    EXPECT_TRUE(null.As(Kind::I4).IsNull());
}

TEST(Value, TextThatIsNoNumberIsAMismatch) {
    EXPECT_EQ(FailureOf([] { (void)Value("Gräben").R8(); }), 13);
    EXPECT_EQ(FailureOf([] { (void)Value("").I4(); }), 13);
    EXPECT_EQ(FailureOf([] { (void)Value("1,5").R8(); }), 13);
    EXPECT_EQ(FailureOf([] { (void)Value("nan").R8(); }), 13);
    EXPECT_EQ(Value(" 12.5 ").R8(), 12.5);
    EXPECT_EQ(Value("1e3").I4(), 1000);
}

TEST(Value, TruthIsMinusOneAndAnyOtherNumberIsTrue) {
    EXPECT_EQ(Value(true).I2(), -1);
    EXPECT_EQ(Value(false).R8(), 0);
    EXPECT_TRUE(Value(std::int16_t{5}).Bool());
    EXPECT_TRUE(Value(0.25).Bool());
    EXPECT_FALSE(Value(0.0F).Bool());
    EXPECT_TRUE(Value("TRUE").Bool());
    EXPECT_FALSE(Value("False").Bool());
    EXPECT_EQ(Value(true).Text(), "-1");
}

TEST(Value, ReadsDaysAndTimes) {
    EXPECT_EQ(Value("12.05.2026").AsDate().Iso, "2026-05-12");
    EXPECT_EQ(Value("2026-5-2").AsDate().Iso, "2026-05-02");
    EXPECT_EQ(Value("29.02.2024 9:30").AsDate().Iso, "2024-02-29 09:30:00");
    EXPECT_EQ(Value("23:59:59").AsDate().Iso, "23:59:59");
    for (const char* wrong :
         {"29.02.2026", "31.04.2026", "2026-13-01", "24:00", "12.05.26", "Mai", "2026-05-12x", ""})
        EXPECT_EQ(FailureOf([&] { (void)Value(wrong).AsDate(); }), 13) << wrong;
}

TEST(NumberText, IsTheShortestTextWithAPoint) {
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(100000.0), "100000");
    EXPECT_EQ(NumberText(-2.5), "-2.5");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(1e20), "1e+20");
    EXPECT_EQ(NumberText(std::int32_t{-7}), "-7");
}

TEST(NumberText, ThirtyTwoBitFloatsHaveAtMostSevenDigits) {
    EXPECT_EQ(NumberText(1.4F), "1.4");
    EXPECT_EQ(NumberText(100.0F), "100");
    // 2/3 in 32 bits is 0.66666668653…: the shortest text that reads back the same has 7 digits.
    EXPECT_EQ(NumberText(2.0F / 3.0F), "0.6666667");
    // 16777216 = 2^24 has 8 digits: rounded to 7 it reads 16777220.
    EXPECT_EQ(NumberText(16777216.0F), "16777220");
}

TEST(ExactText, ReadsBackTheSameThirtyTwoBitFloat) {
    EXPECT_EQ(ExactText(1.4F), "1.4");
    // 2/3 in 32 bits is 0.66666668653…; its neighbours are 6.0e-8 away, so 0.6666667 tells it.
    EXPECT_EQ(ExactText(2.0F / 3.0F), "0.6666667");
    // 2^24 has 8 digits and 16777218 is its neighbour.
    EXPECT_EQ(ExactText(16777216.0F), "16777216");
    for (const float number : {1.2227794F, 0.1F, 3.4028235e38F, 1e-45F, 117.55894F, -8388609.0F})
        EXPECT_EQ(static_cast<float>(std::stod(ExactText(number))), number) << number;
}

}  // namespace
}  // namespace FX_Algen::store
