// That a case which differs from the database is told so: the comparison of the cases cannot pass by mistake.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "cases/CaseRun.h"
#include "host/TestDatabase.h"

namespace FX_Algen::cases {
namespace {

struct Pair {
    std::string_view Expected;
    store::Value Got;
    bool Same;
};

class ComparedValue : public testing::TestWithParam<Pair> {};

TEST_P(ComparedValue, IsTheSameWithinItsDigits) {
    EXPECT_EQ(ValueDifference(std::string(GetParam().Expected), GetParam().Got).empty(), GetParam().Same)
        << GetParam().Expected << " and " << GetParam().Got.Text();
}

INSTANTIATE_TEST_SUITE_P(
    Values, ComparedValue,
    testing::Values(Pair{"3", store::Value(std::int16_t{3}), true},
                    Pair{"3", store::Value(std::int16_t{4}), false},
                    Pair{"3.0", store::Value(std::int16_t{3}), false},
                    Pair{"-1", store::Value(std::int32_t{-1}), true}, Pair{"yes", store::Value(true), true},
                    Pair{"yes", store::Value(false), false}, Pair{"no", store::Value(false), true},
                    Pair{"0", store::Value(false), false}, Pair{"mäßig", store::Value("mäßig"), true},
                    Pair{"mäßig", store::Value("Mäßig"), false}, Pair{"\"\"", store::Value(""), true},
                    Pair{"\"\"", store::Value(), false}, Pair{"Null", store::Value(), true},
                    Pair{"Null", store::Value(0.0), false}, Pair{"0", store::Value(), false},
                    Pair{"0", store::Value(0.0), true}, Pair{"0", store::Value(1e-9), false},
                    Pair{"no", store::Value(0.0), false},
                    // A 32-bit float of 0.8 is 0.800000012.
                    Pair{"0.8", store::Value(0.8F), true}, Pair{"0.8", store::Value(0.79F), false},
                    // 2.3333 leaves 0.000023 at most (a hundred-thousandth of the value); 1/3 of a unit of
                    // its last digit is 0.000033.
                    Pair{"2.3333", store::Value(2.0 + 1.0 / 3.0), false},
                    Pair{"2.33333", store::Value(2.0 + 1.0 / 3.0), true},
                    // Half a unit of the last digit is 0.000005.
                    Pair{"2.33333", store::Value(2.33334), false},
                    // Of 175 a hundred-thousandth is 0.00175.
                    Pair{"175", store::Value(175.001), true}, Pair{"175", store::Value(175.002), false}));

constexpr std::string_view Sample = R"(Case: Nothing but the row
[reasoning]
The row is written by the test: class 3.
[site]
station | Gewässer | BioregionID | Hoehenstufe
Brücke  | Mürz     | 5           | 2
[covers]
no row
[expected: first run]
OEZK | OEZK_Klasse
3    | mäßig
[expected: second run]
no row
)";

Case ReadSample() {
    return ReadCase("Fall.txt", Sample, [](const std::string&) { return std::nullopt; });
}

class ComparedRow : public testing::Test {
protected:
    void Row(const std::string& keyOnly, const std::string& name) {
        database_.Handle->Execute("INSERT INTO awaErgWRRL (ID, KAOnly, OEZK, OEZK_Klasse) VALUES(1, " +
                                  keyOnly + ", 3, '" + name + "');");
    }
    std::vector<Difference> First(const std::optional<Error>& failure = std::nullopt) {
        return Differences(database_.Handle, sample_.FirstRun, failure, false);
    }
    std::vector<Difference> Second() {
        return Differences(database_.Handle, sample_.SecondRun, std::nullopt, true);
    }

    test::TestDatabase database_;
    Case sample_ = ReadSample();
};

TEST_F(ComparedRow, AgreesWithWhatIsExpected) {
    Row("0", "mäßig");
    EXPECT_TRUE(First().empty());
    EXPECT_TRUE(Second().empty());
}

TEST_F(ComparedRow, DiffersInOneValue) {
    Row("0", "gut");
    const auto differences = First();
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].Text, "first run: OEZK_Klasse: expected mäßig, got \"gut\"");
    EXPECT_EQ(differences[0].Line, 11U);
}

TEST_F(ComparedRow, IsMissing) {
    ASSERT_EQ(First().size(), 1U);
    EXPECT_EQ(First()[0].Text, "first run: left no row in awaErgWRRL");
}

TEST_F(ComparedRow, IsThereThoughNoneIsExpected) {
    Row("-1", "gut");
    ASSERT_EQ(Second().size(), 1U);
    EXPECT_EQ(Second()[0].Text, "second run: left a row in awaErgWRRL");
}

TEST_F(ComparedRow, HasNoSuchColumn) {
    Row("0", "mäßig");
    sample_.FirstRun.Values[0].Column = "OEKZ";
    ASSERT_EQ(First().size(), 1U);
    EXPECT_EQ(First()[0].Text, "first run: awaErgWRRL has no column \"OEKZ\"");
}

TEST_F(ComparedRow, FailureThatNobodyExpects) {
    Row("0", "mäßig");
    ASSERT_EQ(First(Error(94, "Invalid use of Null")).size(), 1U);
    EXPECT_EQ(First(Error(94, "Invalid use of Null"))[0].Text,
              "first run: failed with 94, Invalid use of Null");
}

TEST_F(ComparedRow, FailureOfAnotherNumberOrNone) {
    Row("0", "mäßig");
    sample_.FirstRun.Failure = 11;
    EXPECT_TRUE(First(Error(11, "Division by zero")).empty());
    EXPECT_EQ(First(Error(94, "Invalid use of Null")).size(), 1U);
    ASSERT_EQ(First().size(), 1U);
    EXPECT_EQ(First()[0].Text, "first run: did not fail with 11");
}

}  // namespace
}  // namespace FX_Algen::cases
