#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "layout_checks.h"

namespace FX_Algen::charts {
namespace {

constexpr PageSize kAcross{};
constexpr PageSize kUpright{595, 842, 36};
constexpr PageSize kWidget{640, 400, 12};

/// Upper and lower end of the axis: the light lines of the first and the last tick.
std::pair<double, double> AxisEnds(const Page& page) {
    double top = page.Height;
    double bottom = 0;
    for (const Stroke& line : test::All<Stroke>(page)) {
        if (line.Y1 != line.Y2 || line.X2 - line.X1 < 30) continue;
        top = std::min(top, line.Y1);
        bottom = std::max(bottom, line.Y1);
    }
    return {top, bottom};
}

std::set<std::string> TextsOf(const Page& page) {
    std::set<std::string> texts;
    for (const Label& label : test::All<Label>(page)) texts.insert(label.Text);
    return texts;
}

TEST(ChartColumns, HeightsAreInScaleAndStacksEndAtTen) {
    const Chart chart = test::ValenceChart(5);
    const std::vector<Page> pages = test::LayOut(chart);
    ASSERT_EQ(pages.size(), 1U);
    const auto [top, bottom] = AxisEnds(pages[0]);
    std::vector<double> low(5, bottom);
    ASSERT_EQ(pages[0].Bars.size(), 40U);
    for (const DrawnBar& bar : pages[0].Bars) {
        EXPECT_EQ(bar.Value, *chart.Sites[bar.Site].Values[bar.Series]);
        // The axis ends at 10, so a value has a tenth of its height for each whole.
        EXPECT_NEAR(bar.Place.Height, bar.Value / 10 * (bottom - top), 1e-6);
        EXPECT_NEAR(bar.Place.Y + bar.Place.Height, low[bar.Site], 1e-6) << "stands on the one before";
        low[bar.Site] = bar.Place.Y;
    }
    for (const double end : low) EXPECT_NEAR(end, top, 1e-6);
}

TEST(ChartColumns, GroupedBarsStandSideBySideOnTheAxis) {
    const Chart chart = test::ClassChart(3, ChartKind::Grouped);
    const std::vector<Page> pages = test::LayOut(chart);
    ASSERT_EQ(pages.size(), 1U);
    const auto [top, bottom] = AxisEnds(pages[0]);
    // Null and 0 have no bar: 5 of 7 remain.
    ASSERT_EQ(pages[0].Bars.size(), 15U);
    const double width = pages[0].Bars[0].Place.Width;
    for (const DrawnBar& bar : pages[0].Bars) {
        EXPECT_NEAR(bar.Place.Y + bar.Place.Height, bottom, 1e-6);
        // The largest value is 12, and the axis of whole numbers goes to 12 in steps of 2.
        EXPECT_NEAR(bar.Place.Height, bar.Value / 12 * (bottom - top), 1e-6);
        EXPECT_NEAR(bar.Place.Width, width, 1e-9);
        const DrawnBar& first = pages[0].Bars[bar.Site * 5];
        EXPECT_NEAR(bar.Place.X, first.Place.X + static_cast<double>(bar.Series) * width, 1e-6);
    }
}

TEST(ChartColumns, AnyNumberOfSitesIsSpreadAndClean) {
    for (const PageSize& size : {kAcross, kUpright, kWidget})
        for (std::size_t sites = 1; sites <= 200; sites += sites < 20 ? 1 : 9) {
            const std::string what =
                std::to_string(sites) + " sites, " + std::to_string(size.Width) + " wide";
            const Chart stacked = test::ValenceChart(sites);
            const std::vector<Page> pages = test::LayOut(stacked, size);
            test::ExpectPagesAreClean(pages, size, what);
            test::ExpectSitesAreSpread(pages, sites, what);
            test::ExpectNoLabelIsLost(stacked, pages, what);
            for (const Page& page : pages)
                for (const DrawnBar& bar : page.Bars) ASSERT_GE(bar.Place.Width, 12) << what;

            const Chart grouped = test::ClassChart(sites, ChartKind::Grouped);
            const std::vector<Page> groups = test::LayOut(grouped, size);
            test::ExpectPagesAreClean(groups, size, what + ", grouped");
            test::ExpectSitesAreSpread(groups, sites, what + ", grouped");
            test::ExpectNoLabelIsLost(grouped, groups, what + ", grouped");
            for (const Page& page : groups)
                for (const DrawnBar& bar : page.Bars) ASSERT_GE(bar.Place.Width, 5 - 1e-9) << what;
        }
}

TEST(ChartColumns, SitesFillFewPages) {
    // 842 - 2 * 36 = 770 wide, some 40 of it for the axis; a bar of 12 and a gap of 5 make 17: 42 or 43 sites
    // a page, and so 5 pages for 200.
    EXPECT_EQ(test::LayOut(test::ValenceChart(200)).size(), 5U);
    EXPECT_EQ(test::LayOut(test::ValenceChart(40)).size(), 1U);
    EXPECT_EQ(test::LayOut(test::ValenceChart(45)).size(), 2U);
}

TEST(ChartColumns, BarsHaveTheSameWidthAndAxisOnAllPages) {
    Chart chart = test::ClassChart(45, ChartKind::Stacked);
    chart.Sites[44].Values[2] = 60;
    const std::vector<Page> pages = test::LayOut(chart);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(AxisEnds(pages[0]), AxisEnds(pages[1]));
    EXPECT_EQ(pages[0].Bars[0].Place.Width, pages[1].Bars[0].Place.Width);
    // 1 + 4 + 60 + 9 + 3 = 77 on the second page make the axis of both go to 80.
    for (const Page& page : pages) EXPECT_TRUE(TextsOf(page).contains("80"));
}

TEST(ChartColumns, OneSiteHasABarOfMeasureInTheMiddle) {
    const std::vector<Page> pages = test::LayOut(test::ValenceChart(1));
    const Rect bar = pages[0].Bars[0].Place;
    EXPECT_LE(bar.Width, 60);
    double left = 842;
    double right = 0;
    for (const Stroke& line : test::All<Stroke>(pages[0])) {
        if (line.Y1 != line.Y2 || line.X2 - line.X1 < 100) continue;
        left = std::min(left, line.X1);
        right = std::max(right, line.X2);
    }
    EXPECT_NEAR(bar.X + bar.Width / 2, (left + right) / 2, 1e-6);
}

TEST(ChartColumns, FewSitesHaveWrappedLabelsAndManyTurnedOnes) {
    const auto turned = [](const Page& page, const std::string& beginning) {
        for (const Label& label : test::All<Label>(page))
            if (label.Text.starts_with(beginning)) return label.Degrees == 90;
        ADD_FAILURE() << "no label";
        return false;
    };
    EXPECT_FALSE(turned(test::LayOut(test::ValenceChart(6, "Schwarzach bei Sankt Johann"))[0], "Schwarzach"));
    EXPECT_TRUE(turned(test::LayOut(test::ValenceChart(40, "Schwarzach bei Sankt Johann"))[0], "Schwarzach"));
}

TEST(ChartColumns, TurnedLabelsTakeMoreLinesWhereBarsAreFarApart) {
    // 12 sites are some 60 points apart and a word of 24 letters is 130 long, so labels are turned. In one
    // line their 78 letters would be 420 points long, in two some 230; with 25 letters a line they take four
    // lines of 135 points, which are 36 wide.
    const std::string name = "Donaudampfschiffahrtsweg linkes Ufer oberhalb der Einmündung des Mühlbaches";
    const std::vector<Page> pages = test::LayOut(test::ValenceChart(12, name));
    ASSERT_EQ(pages.size(), 1U);
    const test::PlainMetrics metrics;
    double longest = 0;
    for (const Label& label : test::All<Label>(pages[0]))
        if (label.Degrees == 90 && label.Text != "Valenzen (Summe 10)")
            longest = std::max(longest, metrics.Width(label.Text, label.Type));
    EXPECT_GE(longest, 129.6) << "no word is broken";
    EXPECT_LE(longest, 141);
}

TEST(ChartColumns, LongNamesAreNotCut) {
    const std::string words =
        "Großglockner Hochalpenstraße oberhalb der Einmündung des Käfertalbaches, linkes Ufer bei der "
        "Brücke, "
        "Schöpfstelle 2 (Süd)";
    ASSERT_GE(test::Letters(words), 120U);
    const std::string word = "Donaudampfschifffahrtsgesellschaftskapitänskajütentür";
    for (const PageSize& size : {kAcross, kUpright, kWidget})
        for (const std::string& name : {words, word, word + word + word})
            for (const std::size_t sites : {1U, 2U, 5U, 13U, 60U}) {
                const std::string what = name.substr(0, 12) + ", " + std::to_string(sites) + " sites, " +
                                         std::to_string(size.Width) + " wide";
                const Chart chart = test::ValenceChart(sites, name);
                const std::vector<Page> pages = test::LayOut(chart, size);
                test::ExpectPagesAreClean(pages, size, what);
                test::ExpectSitesAreSpread(pages, sites, what);
                test::ExpectNoLabelIsLost(chart, pages, what);
                for (const Page& page : pages)
                    for (const Label& label : test::All<Label>(page)) ASSERT_GE(label.Type.Points, 8) << what;
            }
}

TEST(ChartColumns, LabelsTakeNoMoreThanTheirShare) {
    const std::string name(400, 'a');
    for (const PageSize& size : {kAcross, kWidget}) {
        const std::vector<Page> pages = test::LayOut(test::ValenceChart(20, name), size);
        for (const Page& page : pages) {
            const auto [top, bottom] = AxisEnds(page);
            EXPECT_GE(size.Height - size.Margin - bottom, 8);
            EXPECT_LE(size.Height - size.Margin - bottom, 0.45 * (size.Height - 2 * size.Margin) + 30);
            EXPECT_GE(bottom - top, 0.25 * size.Height) << "bars can be read";
        }
    }
}

TEST(ChartColumns, PagesAreNumberedInTheLanguageOnlyWhereThereAreSeveral) {
    Chart chart = test::ValenceChart(100);
    std::vector<Page> pages = test::LayOut(chart);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_TRUE(TextsOf(pages[1]).contains("Seite 2 von 3"));
    chart.SprachID = 20000;
    pages = test::LayOut(chart);
    EXPECT_TRUE(TextsOf(pages[2]).contains("Page 3 of 3"));
    for (const std::string& text : TextsOf(test::LayOut(test::ValenceChart(3))[0]))
        EXPECT_FALSE(text.starts_with("Seite")) << text;
}

TEST(ChartColumns, EveryPageHasTitleLegendAxisAndFootnotes) {
    Chart chart = test::ValenceChart(100);
    chart.Footnotes = {"? nicht aktuell: " + std::string("Ergebnis älter als die Befunde ") +
                       std::string(150, 'x')};
    for (const Page& page : test::LayOut(chart)) {
        const std::string all = test::Joined({page});
        for (const std::string& text : {chart.Title, chart.AxisTitle, chart.Footnotes[0],
                                        std::string("xenosaprob"), std::string("polysaprob")})
            EXPECT_NE(all.find(test::WithoutBlanks(text)), std::string::npos) << text;
    }
    test::ExpectPagesAreClean(test::LayOut(chart), kAcross, "with footnotes");
}

TEST(ChartColumns, SegmentsCarryTheirValueWhereItFits) {
    Chart chart = test::NewChart(ChartKind::Stacked, "", "", {{9, false, 0, "a"}, {10, true, 9, "b"}});
    chart.AxisEnd = 10;
    chart.Sites = {{"s", {6.25, 0.05}}};
    const std::vector<Page> pages = test::LayOut(chart);
    // 6.25 is a half at one decimal and goes up.
    EXPECT_TRUE(TextsOf(pages[0]).contains("6,3"));
    for (const std::string& text : TextsOf(pages[0])) EXPECT_NE(text, "0,1");
    const test::PlainMetrics metrics;
    for (const Label& label : test::All<Label>(pages[0]))
        if (label.Text == "6,3") {
            EXPECT_TRUE(test::Inside(test::BoxOf(label, metrics), pages[0].Bars[0].Place, 0));
            EXPECT_EQ(label.Pen, (Colour{255, 255, 255})) << "white on dark blue";
        }
    chart.SprachID = 20000;
    EXPECT_TRUE(TextsOf(test::LayOut(chart)[0]).contains("6.3"));
}

TEST(ChartColumns, BarsTooNarrowForTheWidestValueCarryNone) {
    // 40 sites have bars of 12 or 13 points, and "12" in letters of 8 points is 9.6 wide, with what
    // stays free around it 15.6.
    Chart chart = test::ClassChart(40, ChartKind::Stacked);
    for (Site& site : chart.Sites) site.Label.clear();
    const auto inBars = [](const Page& page) {
        const test::PlainMetrics metrics;
        std::size_t count = 0;
        for (const Label& label : test::All<Label>(page))
            for (const DrawnBar& bar : page.Bars)
                count += test::Overlap(test::BoxOf(label, metrics), bar.Place, 0);
        return count;
    };
    EXPECT_EQ(inBars(test::LayOut(chart)[0]), 0U);
    for (Site& site : chart.Sites) site.Values[2] = 9;
    EXPECT_GT(inBars(test::LayOut(chart)[0]), 0U) << "one digit has room";
}

TEST(ChartColumns, ValuesOverAHatchHaveAPlate) {
    Chart chart = test::NewChart(ChartKind::Stacked, "", "", {{10, true, 9, "b"}});
    chart.AxisEnd = 10;
    chart.Sites = {{"s", {7.0}}};
    const Page page = test::LayOut(chart)[0];
    const test::PlainMetrics metrics;
    std::size_t place = page.Elements.size();
    for (std::size_t i = 0; i < page.Elements.size(); ++i)
        if (const auto* label = std::get_if<Label>(&page.Elements[i]); label && label->Text == "7,0")
            place = i;
    ASSERT_LT(place, page.Elements.size());
    const auto* plate = std::get_if<FilledArea>(&page.Elements[place - 1]);
    ASSERT_NE(plate, nullptr);
    EXPECT_EQ(plate->Fill, PaletteColour(10));
    EXPECT_EQ(std::get<Label>(page.Elements[place]).Pen, (Colour{0, 0, 0}));
    EXPECT_TRUE(test::Inside(plate->Place, page.Bars[0].Place, 0));
}

TEST(ChartColumns, HatchesStayInTheirBars) {
    for (const ChartKind kind : {ChartKind::Stacked, ChartKind::Grouped}) {
        const std::vector<Page> pages = test::LayOut(test::ClassChart(30, kind));
        std::size_t lines = 0;
        for (const Page& page : pages)
            for (const Stroke& line : test::All<Stroke>(page)) {
                if (line.X1 == line.X2 || line.Y1 == line.Y2) continue;
                ++lines;
                const Rect box = test::BoxOf(line);
                bool inside = false;
                for (const FilledArea& area : test::All<FilledArea>(page))
                    inside = inside || test::Inside(box, area.Place, 1e-9);
                ASSERT_TRUE(inside);
            }
        EXPECT_GT(lines, 100U);
    }
}

TEST(ChartColumns, WhatIsNoValueHasNoBar) {
    const double inf = std::numeric_limits<double>::infinity();
    for (const ChartKind kind : {ChartKind::Stacked, ChartKind::Grouped}) {
        Chart chart = test::NewChart(kind, "", "", test::QualityClasses());
        chart.Sites = {{"a", {-3.0, std::nan(""), inf, -inf, 0.0, std::nullopt, 2.0}},
                       {"b", {}},
                       {"c", {1, 1, 1, 1, 1, 1, 1, 1, 1}}};
        const std::vector<Page> pages = test::LayOut(chart);
        ASSERT_EQ(pages.size(), 1U);
        ASSERT_EQ(pages[0].Bars.size(), 8U);
        EXPECT_EQ(pages[0].Bars[0].Site, 0U);
        EXPECT_EQ(pages[0].Bars[0].Series, 6U);
        EXPECT_EQ(pages[0].Bars[1].Site, 2U);
        test::ExpectPagesAreClean(pages, kAcross, "values that are none");
    }
}

TEST(ChartColumns, ASiteWithoutBarsTellsWhetherItHasNoValuesOrNone) {
    for (const ChartKind kind : {ChartKind::Stacked, ChartKind::Grouped}) {
        Chart chart = test::NewChart(kind, "", "", test::QualityClasses());
        chart.Sites = {{"a", {std::nullopt, std::nullopt}}, {"b", {std::nullopt, 0.0}}, {"c", {0.0, 3.0}}};
        std::vector<Label> marks;
        for (const Label& label : test::All<Label>(test::LayOut(chart)[0]))
            if (label.Side == Align::Centre && (label.Text == "–" || label.Text == "0"))
                marks.push_back(label);
        ASSERT_EQ(marks.size(), 2U);
        EXPECT_EQ(marks[0].Text, "–");
        EXPECT_EQ(marks[1].Text, "0");
        EXPECT_LT(marks[0].X, marks[1].X);
    }
}

TEST(ChartColumns, AThinPartOfAStackShowsItsColourAndNoOutline) {
    // The bars of a page across are some 450 points high: 0.02 of 10 are 0.9 of them, 5 are half.
    Chart chart = test::NewChart(ChartKind::Stacked, "", "", test::Valences());
    chart.AxisEnd = 10;
    chart.Sites = {{"a", {5.0, 0.02, 0.02}}};
    const auto outlined = [](const Page& page, std::size_t bar) {
        std::size_t count = 0;
        for (const Outline& outline : test::All<Outline>(page))
            count += outline.Place == page.Bars[bar].Place;
        return count;
    };
    const auto coloured = [](const Page& page, std::size_t bar) {
        std::size_t count = 0;
        for (const FilledArea& area : test::All<FilledArea>(page))
            count += area.Place == page.Bars[bar].Place;
        return count;
    };
    Page page = test::LayOut(chart)[0];
    ASSERT_EQ(page.Bars.size(), 3U);
    EXPECT_EQ(outlined(page, 0), 1U);
    for (const std::size_t thin : {1U, 2U}) {
        EXPECT_EQ(outlined(page, thin), 0U);
        EXPECT_EQ(coloured(page, thin), 1U);
    }
    // A bar of a group stands alone, and a white one would not be seen without its outline.
    chart.Kind = ChartKind::Grouped;
    page = test::LayOut(chart)[0];
    for (const std::size_t bar : {0U, 1U, 2U}) EXPECT_EQ(outlined(page, bar), 1U);
}

TEST(ChartColumns, ABarTooLowToSeeTellsItsSum) {
    Chart chart = test::NewChart(ChartKind::Stacked, "", "", test::Valences());
    chart.AxisEnd = 10;
    // 0.01 and 0.02 of some 450 points for 10 are 0.45 and 0.9, the sum 1.35 points; 1 is 45.
    chart.Sites = {{"a", {0.01, 0.02}}, {"b", {0.5, 0.5}}};
    const Page page = test::LayOut(chart)[0];
    const std::set<std::string> texts = TextsOf(page);
    EXPECT_TRUE(texts.contains("0,03"));
    EXPECT_FALSE(texts.contains("1,0"));
    test::ExpectPagesAreClean({page}, kAcross, "a low bar");
}

TEST(ChartColumns, ALowChartHasCloserTicksRatherThanHalfAnEmptyAxis) {
    // Two steps would be 50 and the axis would go to 100, with four it goes to 80.
    Chart chart = test::NewChart(ChartKind::Stacked, "", "", {{9, false, 0, ""}});
    chart.WholeNumbers = true;
    chart.Sites = {{"a", {64.0}}};
    const PageSize low{400, 110, 12};
    const std::vector<Page> pages = test::LayOut(chart, low);
    EXPECT_TRUE(TextsOf(pages[0]).contains("80"));
    EXPECT_FALSE(TextsOf(pages[0]).contains("100"));
    test::ExpectPagesAreClean(pages, low, "low");
    // 97 fills an axis of two steps to 100.
    chart.Sites[0].Values[0] = 97;
    const std::set<std::string> texts = TextsOf(test::LayOut(chart, low)[0]);
    EXPECT_TRUE(texts.contains("50"));
    EXPECT_FALSE(texts.contains("80"));
    // Where the end is given, closer ticks save nothing: 0, 50, 100.
    chart.AxisEnd = 100;
    chart.Sites[0].Values[0] = 10;
    EXPECT_FALSE(TextsOf(test::LayOut(chart, low)[0]).contains("20"));
}

TEST(ChartColumns, ValuesBeyondTheEndMakeTheAxisLonger) {
    Chart chart = test::ValenceChart(2);
    chart.Sites[1].Values[3] = 9;
    const std::vector<Page> pages = test::LayOut(chart);
    const auto [top, bottom] = AxisEnds(pages[0]);
    for (const DrawnBar& bar : pages[0].Bars) EXPECT_GE(bar.Place.Y, top - 1e-9);
    test::ExpectPagesAreClean(pages, kAcross, "beyond");
    // Noise of 32 bits: still ten, and nothing sticks out.
    chart.Sites[1].Values = {5.0, 5.000001};
    const std::vector<Page> noise = test::LayOut(chart);
    EXPECT_TRUE(TextsOf(noise[0]).contains("10"));
    EXPECT_FALSE(TextsOf(noise[0]).contains("12"));
    for (const DrawnBar& bar : noise[0].Bars) EXPECT_GE(bar.Place.Y, AxisEnds(noise[0]).first - 1e-9);
}

TEST(ChartColumns, RoundedValencesEndAtTen) {
    // 1.26 + 3.39 + 0.45 + 2.16 + 0.78 + 1.02 + 0.53 + 0.42 = 10.01
    Chart chart = test::ValenceChart(2);
    chart.Sites[1].Values = {1.26, 3.39, 0.45, 2.16, 0.78, 1.02, 0.53, 0.42};
    const Page page = test::LayOut(chart)[0];
    EXPECT_TRUE(TextsOf(page).contains("10"));
    EXPECT_FALSE(TextsOf(page).contains("12"));
    ASSERT_EQ(page.Bars.size(), 16U);
    EXPECT_NEAR(page.Bars[15].Place.Y, AxisEnds(page).first, 1e-9);
    // The value is told as it is, though its part is a little lower.
    EXPECT_EQ(page.Bars[15].Value, 0.42);
}

TEST(ChartColumns, OddChartsAndPagesDoNotFail) {
    for (const double width : {0.0, 1.0, 40.0, 120.0, std::nan("")})
        for (const double height : {0.0, 30.0, 200.0})
            for (const ChartKind kind : {ChartKind::Stacked, ChartKind::Grouped, ChartKind::Horizontal}) {
                Chart chart = test::ClassChart(3, kind);
                chart.Footnotes = {"eine lange Fußnote über vieles"};
                EXPECT_GE(test::LayOut(chart, {width, height, 36}).size(), 1U);
                chart.AllSeries.clear();
                EXPECT_GE(test::LayOut(chart, {width, height, 0}).size(), 1U);
            }
}

}  // namespace
}  // namespace FX_Algen::charts
