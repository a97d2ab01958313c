#include "charts/Axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "charts/Numbers.h"

namespace FX_Algen::charts {
namespace {

struct AxisCase {
    const char* Name;
    double Largest;
    std::optional<double> Wanted;
    bool WholeNumbers;
    int MostSteps;
    double End;
    double Step;
    std::size_t Ticks;
    const char* Last;  ///< text of the last tick in German
};

// Step = the least of 1, 2, 5 times a power of ten with (end or largest value) / steps <= step; the end is
// the next multiple of it; ticks = end / step + 1.
const AxisCase kAxisCases[] = {
    {"valences", 10, 10, false, 10, 10, 1, 11, "10"},
    {"valences, low", 10, 10, false, 5, 10, 2, 6, "10"},
    {"smaller than the fixed end", 3.5, 10, false, 5, 10, 2, 6, "10"},
    {"noise of sums", 10.000001, 10, false, 5, 10, 2, 6, "10"},
    {"noise without fixed end", 10.000001, std::nullopt, false, 5, 10, 2, 6, "10"},
    // Eight values, each rounded to two decimals, are off by 8 * 0.005 = 0.04 at most.
    {"rounded parts", 10.04, 10, false, 10, 10, 1, 11, "10"},
    {"as much as rounding may do", 10.05, 10, false, 5, 10, 2, 6, "10"},
    // 10.06 / 5 = 2.012, so steps of 5, up to 15.
    {"more than rounding", 10.06, 10, false, 5, 15, 5, 4, "15"},
    {"rounded parts without fixed end", 10.04, std::nullopt, false, 5, 15, 5, 4, "15"},
    // 10.2 / 5 = 2.04, so steps of 5, up to 15.
    {"beyond the fixed end", 10.2, 10, false, 5, 15, 5, 4, "15"},
    {"beyond the fixed end, high", 10.2, 10, false, 11, 11, 1, 12, "11"},
    {"end between two ticks", 6, 7, false, 4, 7, 2, 4, "6"},
    // 37 / 8 = 4.625, so steps of 5, up to 40.
    {"percent", 37, std::nullopt, false, 8, 40, 5, 9, "40"},
    {"fractions", 0.9, std::nullopt, false, 5, 1, 0.2, 6, "1,0"},
    {"hundredths", 0.04, std::nullopt, false, 4, 0.04, 0.01, 5, "0,04"},
    {"counts", 3, std::nullopt, true, 10, 3, 1, 4, "3"},
    {"counts without decimals", 1, std::nullopt, true, 10, 1, 1, 2, "1"},
    {"many counts", 137, std::nullopt, true, 10, 140, 20, 8, "140"},
    {"nothing", 0, std::nullopt, false, 5, 1, 0.2, 6, "1,0"},
    {"no counts", 0, std::nullopt, true, 5, 1, 1, 2, "1"},
    {"nothing of 10", 0, 10, false, 5, 10, 2, 6, "10"},
    {"useless end", 5, 0, false, 5, 5, 1, 6, "5"},
    {"no steps at all", 5, std::nullopt, false, 0, 5, 5, 2, "5"},
    {"thousands", 12345, std::nullopt, false, 5, 15000, 5000, 4, "15000"},
};

TEST(Axis, EndsAndStepsAreRound) {
    for (const AxisCase& c : kAxisCases) {
        const Axis axis = MakeAxis({c.Largest, c.Wanted, c.WholeNumbers}, c.MostSteps);
        EXPECT_NEAR(axis.End, c.End, 1e-9 * c.End) << c.Name;
        EXPECT_NEAR(axis.Step, c.Step, 1e-9 * c.Step) << c.Name;
        ASSERT_EQ(axis.Ticks.size(), c.Ticks) << c.Name;
        EXPECT_EQ(axis.Ticks.front(), 0) << c.Name;
        EXPECT_EQ(TickText(axis, axis.Ticks.back(), 10000), c.Last) << c.Name;
    }
}

TEST(Axis, HoldsEveryValueWithFewSteps) {
    for (double value = 1e-9; value < 1e18; value *= 1.37)
        for (const int steps : {1, 2, 3, 7, 10}) {
            const Axis axis = MakeAxis({value, std::nullopt, false}, steps);
            EXPECT_GE(axis.End, value * (1 - 1.1e-5)) << value;
            EXPECT_LE(axis.Ticks.size(), static_cast<std::size_t>(steps) + 1) << value << " in " << steps;
            EXPECT_LE(axis.Ticks.back(), axis.End * (1 + 1e-5)) << value;
        }
}

TEST(Axis, ExtremesStayFinite) {
    for (const double value :
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min(), 1e300}) {
        const Axis axis = MakeAxis({value, std::nullopt, false}, 5);
        EXPECT_TRUE(std::isfinite(axis.End)) << value;
        EXPECT_GT(axis.End, 0) << value;
        EXPECT_LE(axis.Ticks.size(), 6U) << value;
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(MakeAxis({4, nan, false}, 4).End, 4);
    EXPECT_EQ(MakeAxis({4, std::numeric_limits<double>::infinity(), false}, 4).End, 4);
}

TEST(Axis, RangeIsThatOfSumsOrOfSingleBars) {
    const double inf = std::numeric_limits<double>::infinity();
    Chart chart;
    chart.AllSeries.resize(3);
    chart.Sites = {
        {"a", {1.0, 2.0, std::nullopt}}, {"b", {2.5, -7.0, 0.0}}, {"c", {inf, std::nan(""), 0.25, 99.0}}};
    EXPECT_EQ(RangeOf(chart).Largest, 3);
    chart.Kind = ChartKind::Grouped;
    EXPECT_EQ(RangeOf(chart).Largest, 2.5);
}

struct NumberCase {
    double Value;
    bool Whole;
    const char* German;
    const char* English;
};

TEST(ChartNumbers, ValuesOfBarsAreWrittenInTheLanguage) {
    const NumberCase cases[] = {
        {12.34, false, "12,3", "12.3"},
        {12.25, false, "12,3", "12.3"},
        {3, false, "3,0", "3.0"},
        {0, false, "0", "0"},
        {0.04, false, "0,04", "0.04"},
        {0.00049, false, "0,0005", "0.0005"},
        {7, true, "7", "7"},
        {100, false, "100,0", "100.0"},
        {1e-8, false, "1e-08", "1e-08"},
        {1.5e20, false, "1,5e+20", "1.5e+20"},
    };
    for (const NumberCase& c : cases) {
        EXPECT_EQ(ValueText(c.Value, c.Whole, 10000), c.German);
        EXPECT_EQ(ValueText(c.Value, c.Whole, 20000), c.English);
        EXPECT_EQ(ValueText(c.Value, c.Whole, 0), c.German) << "a language base below 10000 is German";
    }
}

}  // namespace
}  // namespace FX_Algen::charts
