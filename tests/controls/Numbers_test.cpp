#include "controls/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace FX_Algen::controls {
namespace {

constexpr std::int16_t german = 10000;
constexpr std::int16_t english = 20000;

TEST(ReadNumber, TakesCommaOrPointInEveryLanguage) {
    struct Case {
        std::string Typed;
        double Number;
    };
    const std::vector<Case> cases{
        {"0", 0},
        {"7", 7},
        {" 7 ", 7},
        {"\t7\r\n", 7},
        {"007", 7},
        {"1,5", 1.5},
        {"1.5", 1.5},
        {"+3", 3},
        {"-2,25", -2.25},
        {",5", 0.5},
        {".25", 0.25},
        {"4,", 4},
        {"-,5", -0.5},
        {"0,1", 0.1},
        {"33.333332", 33.333332},
        {"1000000", 1e6},
        {"0,0000001", 1e-7},
        {"10000000000", 1e10},
    };
    for (const auto& [typed, number] : cases) {
        const auto read = ReadNumber(typed);
        ASSERT_TRUE(read) << typed;
        EXPECT_EQ(*read, number) << typed;
    }
}

TEST(ReadNumber, TakesNothingElse) {
    for (const std::string typed : {"",
                                    " ",
                                    ",",
                                    ".",
                                    "-",
                                    "+",
                                    "abc",
                                    "1a",
                                    "a1",
                                    "1.234,5",
                                    "1,234.5",
                                    "1,2,3",
                                    "1.2.3",
                                    "1e3",
                                    "1E3",
                                    "0x10",
                                    "--1",
                                    "+-1",
                                    "- 1",
                                    "1 000",
                                    "5 mm",
                                    "inf",
                                    "nan",
                                    "-inf",
                                    "ä",
                                    "１",
                                    "\u0663",
                                    "\u2212"
                                    "1"})
        EXPECT_EQ(ReadNumber(typed), std::nullopt) << "'" << typed << "'";
}

TEST(ReadNumber, TakesDigitsAsLongAsTheyMakeANumber) {
    // The largest 64-bit float has 309 digits.
    EXPECT_TRUE(ReadNumber(std::string(300, '9')));
    EXPECT_EQ(ReadNumber(std::string(400, '9')), std::nullopt);
    EXPECT_EQ(ReadNumber("-" + std::string(400, '9')), std::nullopt);
    EXPECT_EQ(ReadNumber(std::string(400, '0') + "5"), 5);
    // Far below the smallest one above 0.
    EXPECT_EQ(ReadNumber("0," + std::string(400, '0') + "1"), 0);
}

TEST(ReadNumber, KnowsNoNegativeZero) {
    for (const std::string typed : {"-0", "-0,0", "-,0"}) {
        const auto read = ReadNumber(typed);
        ASSERT_TRUE(read) << typed;
        EXPECT_FALSE(std::signbit(*read)) << typed;
    }
}

TEST(ShownNumber, HasTheMarkOfTheLanguageAndTheFewestDigits) {
    struct Case {
        store::Value Number;
        std::string German, English;
    };
    const std::vector<Case> cases{
        {std::int16_t{-32768}, "-32768", "-32768"},
        {std::int32_t{2147483647}, "2147483647", "2147483647"},
        {0.0, "0", "0"},
        {-0.0, "0", "0"},
        {-0.0F, "0", "0"},
        {12.5, "12,5", "12.5"},
        {-2.25, "-2,25", "-2.25"},
        {0.1F, "0,1", "0.1"},
        {0.1, "0,1", "0.1"},
        {33.333332F, "33,333332", "33.333332"},  // 33.33333 would read back as the float below
        {100.0, "100", "100"},
        {1e-7, "0,0000001", "0.0000001"},
        {-1.25e-7, "-0,000000125", "-0.000000125"},
        {1e10, "10000000000", "10000000000"},
        {1e15, "1000000000000000", "1000000000000000"},
        {-1.5e20, "-150000000000000000000", "-150000000000000000000"},
        {true, "-1", "-1"},
        {store::Value(), "", ""},
        {"größer 1.5", "größer 1.5", "größer 1.5"},
    };
    for (const auto& [number, inGerman, inEnglish] : cases) {
        EXPECT_EQ(ShownNumber(number, german), inGerman);
        EXPECT_EQ(ShownNumber(number, english), inEnglish);
    }
}

TEST(ShownNumber, CountsABaseThatIsTooLowAsGerman) {
    EXPECT_EQ(ShownNumber(0.5, 0), "0,5");
    EXPECT_EQ(ShownNumber(0.5, -1), "0,5");
    EXPECT_EQ(ShownNumber(0.5, 19999), "0,5");
}

TEST(ShownNumber, ReadsBackTheSame) {
    for (const double number : {0.1, 1.0 / 3, 2.0 / 3, 1e-300, 1.7976931348623157e308, 123456789.123456789,
                                std::numeric_limits<double>::denorm_min()})
        for (const auto language : {german, english})
            EXPECT_EQ(ReadNumber(ShownNumber(number, language)), number) << ShownNumber(number, language);
}

TEST(ShownAboveZero, LeavesTheRestEmpty) {
    EXPECT_EQ(ShownAboveZero(12.5F, german), "12,5");
    EXPECT_EQ(ShownAboveZero(std::int16_t{1}, english), "1");
    EXPECT_EQ(ShownAboveZero(0.0, german), "");
    EXPECT_EQ(ShownAboveZero(-3.0, german), "");
    EXPECT_EQ(ShownAboveZero(true, german), "");  // -1
    EXPECT_EQ(ShownAboveZero(store::Value(), german), "");
    EXPECT_EQ(ShownAboveZero(std::nan(""), german), "");
    EXPECT_EQ(ShownAboveZero("häufig", german), "");
    EXPECT_EQ(ShownAboveZero("4,5", german), "4,5");
}

}  // namespace
}  // namespace FX_Algen::controls
