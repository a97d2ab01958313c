#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "layout_checks.h"

namespace FX_Algen::charts {
namespace {

TEST(ChartLayout, AChartWithoutSitesSaysSoOnOnePage) {
    for (const ChartKind kind : {ChartKind::Stacked, ChartKind::Grouped, ChartKind::Horizontal}) {
        Chart chart = test::ClassChart(0, kind);
        chart.Empty = "Keine Probenstelle hat ein Ergebnis, das ausgewählt ist und für die Grafik zählt.";
        for (const PageSize& size : {PageSize{}, PageSize{240, 200, 12}}) {
            const std::vector<Page> pages = test::LayOut(chart, size);
            ASSERT_EQ(pages.size(), 1U);
            const std::string all = test::Joined(pages);
            EXPECT_NE(all.find(test::WithoutBlanks(chart.Empty)), std::string::npos);
            EXPECT_NE(all.find(test::WithoutBlanks(chart.Title)), std::string::npos);
            EXPECT_TRUE(pages[0].Bars.empty());
            test::ExpectPagesAreClean(pages, size, "empty");
        }
    }
}

TEST(ChartLayout, HeadingsStandAboveEachOtherInTheirSizes) {
    const std::vector<Page> pages = test::LayOut(test::DominanceChart(3));
    const std::vector<Label> labels = test::All<Label>(pages[0]);
    ASSERT_GE(labels.size(), 2U);
    EXPECT_EQ(labels[0].Text, "Relative Häufigkeiten Kieselalgen (%)");
    EXPECT_EQ(labels[0].Type, (Font{13, true}));
    EXPECT_EQ(labels[1].Text, "Algen-Probenstelle: Zell am See");
    EXPECT_GT(labels[1].Y, labels[0].Y);
}

TEST(ChartLayout, LongTitlesAreWrapped) {
    Chart chart = test::ValenceChart(4);
    chart.Title =
        "Verteilung der saprobiellen Valenzen aller Aufwuchsproben des Flussgebietes Salzach und seiner "
        "Zubringer in den Jahren 1998 bis 2003 einschließlich der Nachuntersuchungen";
    chart.Subtitle = chart.Title;
    chart.AxisTitle = chart.Title;
    for (const PageSize& size : {PageSize{}, PageSize{595, 842, 36}, PageSize{640, 400, 12}}) {
        const std::vector<Page> pages = test::LayOut(chart, size);
        test::ExpectPagesAreClean(pages, size, "long title");
        const std::string all = test::Joined(pages);
        const std::string title = test::WithoutBlanks(chart.Title);
        EXPECT_NE(all.find(title + title), std::string::npos) << "title and subtitle";
        EXPECT_NE(all.rfind(title), all.find(title)) << "title of the axis";
    }
}

TEST(ChartLayout, PagesOfManySizesAreClean) {
    for (double width = 320; width < 1300; width += 97)
        for (double height = 260; height < 1300; height += 131) {
            const PageSize size{width, height, 12};
            const std::string what = std::to_string(width) + " x " + std::to_string(height);
            for (const std::size_t sites : {1U, 4U, 11U, 33U}) {
                for (const Chart& chart :
                     {test::ValenceChart(sites), test::ClassChart(sites, ChartKind::Grouped),
                      test::DominanceChart(sites)}) {
                    const std::vector<Page> pages = test::LayOut(chart, size);
                    test::ExpectPagesAreClean(pages, size, what);
                    test::ExpectSitesAreSpread(pages, sites, what);
                    test::ExpectNoLabelIsLost(chart, pages, what);
                }
            }
        }
}

/// Counts how often a text is measured.
class CountingMetrics : public test::PlainMetrics {
public:
    double Width(std::string_view text, const Font& font) const override {
        ++Counts[{std::string(text), font.Points, font.Bold}];
        return PlainMetrics::Width(text, font);
    }
    mutable std::map<std::tuple<std::string, double, bool>, int> Counts;
};

TEST(ChartLayout, MeasuresEachTextOnce) {
    for (const Chart& chart : {test::ValenceChart(60), test::DominanceChart(60)}) {
        const CountingMetrics metrics;
        Layout(chart, metrics);
        EXPECT_GT(metrics.Counts.size(), 60U);
        for (const auto& [text, count] : metrics.Counts) EXPECT_EQ(count, 1) << std::get<0>(text);
    }
}

TEST(ChartLayout, TheSameChartGivesTheSamePages) {
    const Chart chart = test::ValenceChart(50);
    const std::vector<Page> one = test::LayOut(chart);
    const std::vector<Page> two = test::LayOut(chart);
    ASSERT_EQ(one.size(), two.size());
    for (std::size_t i = 0; i < one.size(); ++i) {
        ASSERT_EQ(one[i].Elements.size(), two[i].Elements.size());
        EXPECT_EQ(test::Joined({one[i]}), test::Joined({two[i]}));
    }
}

}  // namespace
}  // namespace FX_Algen::charts
