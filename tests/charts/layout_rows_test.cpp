#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "layout_checks.h"

namespace FX_Algen::charts {
namespace {

constexpr PageSize kAcross{};
constexpr PageSize kUpright{595, 842, 36};
constexpr PageSize kWidget{640, 400, 12};

const Label* Find(const std::vector<Label>& labels, const std::string& text) {
    for (const Label& label : labels)
        if (label.Text == text) return &label;
    return nullptr;
}

TEST(ChartRows, LengthsAreInScaleAndTheFirstSiteIsOnTop) {
    Chart chart = test::DominanceChart(0);
    chart.Sites = {{"Nitzschia palea", {40.0}}, {"Gomphonema cf. parvulum", {10.0}}, {"Größte Alge", {5.0}}};
    const std::vector<Page> pages = test::LayOut(chart);
    ASSERT_EQ(pages.size(), 1U);
    ASSERT_EQ(pages[0].Bars.size(), 3U);
    const std::vector<DrawnBar>& bars = pages[0].Bars;
    // 40 : 10 : 5
    EXPECT_NEAR(bars[0].Place.Width, 4 * bars[1].Place.Width, 1e-6);
    EXPECT_NEAR(bars[1].Place.Width, 2 * bars[2].Place.Width, 1e-6);
    EXPECT_LT(bars[0].Place.Y, bars[1].Place.Y);
    EXPECT_LT(bars[1].Place.Y, bars[2].Place.Y);
    EXPECT_EQ(bars[0].Place.X, bars[2].Place.X);
}

TEST(ChartRows, ValuesStandBehindTheirBars) {
    Chart chart = test::DominanceChart(0);
    chart.WholeNumbers = false;
    chart.Sites = {{"a", {12.34}}, {"b", {0.0}}, {"c", {std::nullopt}}, {"d", {0.04}}};
    std::vector<Page> pages = test::LayOut(chart);
    const std::vector<Label> labels = test::All<Label>(pages[0]);
    const Label* value = Find(labels, "12,3");
    ASSERT_NE(value, nullptr);
    EXPECT_GE(value->X, pages[0].Bars[0].Place.X + pages[0].Bars[0].Place.Width);
    EXPECT_NE(Find(labels, "–"), nullptr);
    EXPECT_NE(Find(labels, "0,04"), nullptr);
    // 0 stands at the axis twice: as its first tick and as the value of b.
    EXPECT_EQ(
        std::count_if(labels.begin(), labels.end(), [](const Label& label) { return label.Text == "0"; }), 2);
    ASSERT_EQ(pages[0].Bars.size(), 2U);
    EXPECT_EQ(pages[0].Bars[1].Site, 3U);
    chart.SprachID = 20000;
    pages = test::LayOut(chart);
    EXPECT_NE(Find(test::All<Label>(pages[0]), "12.3"), nullptr);
}

TEST(ChartRows, AnyNumberOfTaxaIsSpreadAndClean) {
    for (const PageSize& size : {kAcross, kUpright, kWidget})
        for (std::size_t taxa = 1; taxa <= 200; taxa += taxa < 30 ? 1 : 9) {
            const std::string what = std::to_string(taxa) + " taxa, " + std::to_string(size.Width) + " wide";
            const Chart chart = test::DominanceChart(taxa);
            const std::vector<Page> pages = test::LayOut(chart, size);
            test::ExpectPagesAreClean(pages, size, what);
            test::ExpectSitesAreSpread(pages, taxa, what);
            test::ExpectNoLabelIsLost(chart, pages, what);
            for (const Page& page : pages)
                for (const DrawnBar& bar : page.Bars) {
                    ASSERT_GE(bar.Place.Height, 12 - 1e-9) << what;
                    ASSERT_LE(bar.Place.Height, 30) << what;
                }
        }
}

TEST(ChartRows, LongNamesAreWrappedNotCut) {
    const std::string name =
        "Achnanthidium minutissimum (Kützing) Czarnecki cf. var. affine sensu Krammer & Lange-Bertalot, "
        "Formenkreis "
        "mit ähnlichen Sippen";
    ASSERT_GE(test::Letters(name), 120U);
    for (const PageSize& size : {kAcross, kUpright, kWidget})
        for (const std::size_t taxa : {1U, 7U, 40U}) {
            Chart chart = test::DominanceChart(taxa);
            for (Site& site : chart.Sites) site.Label = name + " " + site.Label;
            chart.Sites[0].Label =
                "Donaudampfschifffahrtsgesellschaftskapitänskajütentürschlossschlüsselanhängerverkäufer";
            const std::vector<Page> pages = test::LayOut(chart, size);
            test::ExpectPagesAreClean(pages, size, "long names");
            test::ExpectSitesAreSpread(pages, taxa, "long names");
            test::ExpectNoLabelIsLost(chart, pages, "long names");
            const double content = size.Width - 2 * size.Margin;
            for (const Page& page : pages)
                for (const DrawnBar& bar : page.Bars) {
                    EXPECT_LE(bar.Place.X, size.Margin + 0.45 * content + 10);
                    EXPECT_GE(bar.Place.X, size.Margin + 0.4 * content) << "names use their room";
                }
        }
}

TEST(ChartRows, ShortNamesLeaveTheRoomToTheBars) {
    Chart chart = test::DominanceChart(0);
    chart.Sites = {{"ab", {1.0}}};
    // Two letters of 9 points are 10.8 wide.
    EXPECT_LT(test::LayOut(chart)[0].Bars[0].Place.X, 36 + 10.8 + 10);
}

TEST(ChartRows, AllPagesHaveTheSameAxis) {
    const Chart chart = test::DominanceChart(70);
    const std::vector<Page> pages = test::LayOut(chart);
    ASSERT_GT(pages.size(), 1U);
    // The largest value is 40 on the first page, and the axis goes to 40 on all of them.
    for (const Page& page : pages) {
        const std::vector<Label> labels = test::All<Label>(page);
        EXPECT_NE(Find(labels, "40"), nullptr);
        const double scale = pages[0].Bars[0].Place.Width / pages[0].Bars[0].Value;
        for (const DrawnBar& bar : page.Bars) EXPECT_NEAR(bar.Place.Width, bar.Value * scale, 1e-6);
    }
}

TEST(ChartRows, HasNoLegendWithoutItsText) {
    Chart chart = test::DominanceChart(3);
    chart.AllSeries[0].ColourNumber = 12;
    const auto outlines = [&] { return test::All<Outline>(test::LayOut(chart)[0]).size(); };
    EXPECT_EQ(outlines(), 3U) << "the bars alone";
    chart.AllSeries[0].Legend = "Kieselalgen";
    EXPECT_EQ(outlines(), 4U) << "and a swatch";
}

TEST(ChartRows, SeveralSeriesAreJoinedAndTheirSumIsTold) {
    Chart chart = test::DominanceChart(0);
    chart.AllSeries = {{9, false, 0, "a"}, {12, false, 0, "b"}};
    chart.Sites = {{"s", {3.0, 4.5}}};
    const Page page = test::LayOut(chart)[0];
    ASSERT_EQ(page.Bars.size(), 2U);
    EXPECT_NEAR(page.Bars[1].Place.X, page.Bars[0].Place.X + page.Bars[0].Place.Width, 1e-9);
    EXPECT_NE(Find(test::All<Label>(page), "7,5"), nullptr);
}

TEST(ChartRows, WhatIsNoValueHasNoBar) {
    const double inf = std::numeric_limits<double>::infinity();
    Chart chart = test::DominanceChart(0);
    chart.Sites = {{"a", {-3.0}}, {"b", {std::nan("")}}, {"c", {inf}}, {"d", {}}};
    const Page page = test::LayOut(chart)[0];
    EXPECT_TRUE(page.Bars.empty());
    const std::vector<Label> labels = test::All<Label>(page);
    EXPECT_EQ(
        std::count_if(labels.begin(), labels.end(), [](const Label& label) { return label.Text == "–"; }), 4);
}

}  // namespace
}  // namespace FX_Algen::charts
