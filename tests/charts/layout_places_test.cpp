#include <gtest/gtest.h>

#include <set>

#include "layout_checks.h"

namespace FX_Algen::charts {
namespace {

/// Digits are 0.73 of a font's size high and stand on the base line.
constexpr double kDigitHeight = 0.73;

double MiddleOfDigits(const Label& label) { return label.Y - kDigitHeight / 2 * label.Type.Points; }

double MiddleY(const Rect& box) { return box.Y + box.Height / 2; }

/// Whether a text consists of digits alone.
bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

TEST(ChartPlaces, NameBarAndValueOfATaxonStandOnOneLine) {
    const test::PlainMetrics metrics;
    const Chart chart = test::DominanceChart(9);
    const Page page = test::LayOut(chart)[0];
    ASSERT_EQ(page.Bars.size(), 9U);
    for (const DrawnBar& bar : page.Bars) {
        std::size_t names = 0;
        std::size_t values = 0;
        for (const Label& label : test::All<Label>(page)) {
            if (label.Text == chart.Sites[bar.Site].Label) {
                ++names;
                EXPECT_NEAR(MiddleY(test::BoxOf(label, metrics)), MiddleY(bar.Place), 1e-6);
                EXPECT_LT(label.X, bar.Place.X) << "ends before its bar";
            }
            // Values alone begin where they stand: behind the bar, 4 points from its end.
            const double gap = label.X - bar.Place.X - bar.Place.Width;
            if (label.Side != Align::Left || std::abs(gap - 4) > 1e-6) continue;
            if (std::abs(MiddleOfDigits(label) - MiddleY(bar.Place)) < 1e-6) ++values;
        }
        EXPECT_EQ(names, 1U) << chart.Sites[bar.Site].Label;
        EXPECT_EQ(values, 1U) << chart.Sites[bar.Site].Label;
    }
}

TEST(ChartPlaces, TicksOfALyingAxisStandBelowTheirValue) {
    Chart chart = test::DominanceChart(3);
    chart.Sites[0].Values[0] = 40;
    const Page page = test::LayOut(chart)[0];
    const Rect longest = page.Bars[0].Place;
    std::set<int> ticks;
    for (const Label& label : test::All<Label>(page)) {
        if (!IsNumber(label.Text) || label.Side != Align::Centre) continue;
        const int tick = std::stoi(label.Text);
        ticks.insert(tick);
        // The bar of 40 is 40 units long.
        const double x = longest.X + tick * longest.Width / 40;
        EXPECT_NEAR(label.X, x, 1e-6) << tick;
        std::size_t lines = 0;
        for (const Stroke& line : test::All<Stroke>(page))
            lines += line.X1 == line.X2 && std::abs(line.X1 - x) < 1e-6 && line.Y2 - line.Y1 > 100;
        EXPECT_GE(lines, 1U) << "the line of the tick " << tick;
    }
    EXPECT_EQ(ticks, (std::set<int>{0, 5, 10, 15, 20, 25, 30, 35, 40}));
}

TEST(ChartPlaces, TicksOfAStandingAxisStandBesideTheirValue) {
    const Page page = test::LayOut(test::ValenceChart(3))[0];
    // Bar 3 is beta-mesosaprob of the first site, 4.0.
    const double unit = page.Bars[3].Place.Height / 4;
    const double bottom = page.Bars[0].Place.Y + page.Bars[0].Place.Height;
    std::set<int> ticks;
    for (const Label& label : test::All<Label>(page)) {
        if (!IsNumber(label.Text) || label.Side != Align::Right) continue;
        const int tick = std::stoi(label.Text);
        ticks.insert(tick);
        const double y = bottom - tick * unit;
        EXPECT_NEAR(MiddleOfDigits(label), y, 1e-6) << tick;
        std::size_t lines = 0;
        for (const Stroke& line : test::All<Stroke>(page))
            lines += line.Y1 == line.Y2 && std::abs(line.Y1 - y) < 1e-6 && line.X2 - line.X1 > 100;
        EXPECT_GE(lines, 1U) << "the line of the tick " << tick;
    }
    EXPECT_EQ(ticks, (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(ChartPlaces, LabelsOfSitesStandBelowTheMiddleOfTheirBars) {
    const test::PlainMetrics metrics;
    // Few sites have wrapped labels, many have turned ones.
    for (const std::size_t sites : {3U, 30U}) {
        const Page page = test::LayOut(test::ValenceChart(sites, "Oberwaldschlägl, Granitblöcke"))[0];
        const auto begins = [&](const Element& element, std::size_t site) {
            const auto* area = std::get_if<FilledArea>(&element);
            return site < sites && area && area->Place == page.Bars[site * 8].Place;
        };
        std::size_t at = 0;
        while (!begins(page.Elements[at], 0)) ++at;
        for (std::size_t site = 0; site < sites; ++site) {
            const Rect bar = page.Bars[site * 8].Place;
            double left = page.Width;
            double right = 0;
            // All lines of a label come after the bar of its site and before that of the next.
            for (; at < page.Elements.size() && !begins(page.Elements[at], site + 1); ++at) {
                const auto* label = std::get_if<Label>(&page.Elements[at]);
                if (!label || label->Y < bar.Y + bar.Height) continue;
                const Rect box = test::BoxOf(*label, metrics);
                left = std::min(left, box.X);
                right = std::max(right, box.X + box.Width);
            }
            EXPECT_NEAR((left + right) / 2, bar.X + bar.Width / 2, 1e-6) << site << " of " << sites;
        }
    }
}

TEST(ChartPlaces, TitleOfTheAxisStandsBesideTheMiddleOfTheBars) {
    const test::PlainMetrics metrics;
    const auto titleOf = [&](const Chart& chart, const Page& page) {
        for (const Label& label : test::All<Label>(page))
            if (label.Text == chart.AxisTitle) return test::BoxOf(label, metrics);
        return Rect{};
    };
    // The bars of this chart reach from the beginning of the axis to its end.
    const Chart valences = test::ValenceChart(3);
    const Page standing = test::LayOut(valences)[0];
    const Rect lowest = standing.Bars[0].Place;
    const double top = standing.Bars[7].Place.Y;
    const Rect turned = titleOf(valences, standing);
    EXPECT_NEAR(MiddleY(turned), (top + lowest.Y + lowest.Height) / 2, 1e-6);
    EXPECT_LT(turned.X + turned.Width, lowest.X);

    Chart dominance = test::DominanceChart(3);
    dominance.Sites[0].Values[0] = 40;
    const Page lying = test::LayOut(dominance)[0];
    const Rect longest = lying.Bars[0].Place;
    const Rect flat = titleOf(dominance, lying);
    EXPECT_NEAR(flat.X + flat.Width / 2, longest.X + longest.Width / 2, 1e-6);
    EXPECT_GT(flat.Y, lying.Bars[2].Place.Y + lying.Bars[2].Place.Height);
}

TEST(ChartPlaces, GroupsStandApart) {
    for (const std::size_t sites : {2U, 9U, 30U}) {
        Chart chart = test::ClassChart(sites, ChartKind::Grouped);
        for (Site& site : chart.Sites) site.Values = {1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0};
        for (const Page& page : test::LayOut(chart))
            for (std::size_t bar = 1; bar < page.Bars.size(); ++bar) {
                const Rect& before = page.Bars[bar - 1].Place;
                const double gap = page.Bars[bar].Place.X - before.X - before.Width;
                if (page.Bars[bar].Site == page.Bars[bar - 1].Site)
                    ASSERT_NEAR(gap, 0, 1e-6) << sites;
                else
                    // More than the narrowest bar of 5 points, which a gap within a group may be.
                    ASSERT_GE(gap, 7 - 1e-6) << sites;
            }
    }
}

TEST(ChartPlaces, ValuesBesideBarsHaveAPlateOverTheLinesOfTheGrid) {
    const test::PlainMetrics metrics;
    for (const Chart& chart : {test::DominanceChart(9), test::ClassChart(3, ChartKind::Grouped)}) {
        const Page page = test::LayOut(chart)[0];
        std::size_t values = 0;
        for (std::size_t i = 1; i < page.Elements.size(); ++i) {
            const auto* label = std::get_if<Label>(&page.Elements[i]);
            if (!label || label->Type != Font{8, false} || !IsNumber(label->Text.substr(0, 1))) continue;
            ++values;
            const auto* plate = std::get_if<FilledArea>(&page.Elements[i - 1]);
            ASSERT_NE(plate, nullptr) << label->Text;
            EXPECT_EQ(plate->Fill, (Colour{255, 255, 255}));
            Rect digits = test::BoxOf(*label, metrics);
            digits.Height = kDigitHeight * 8;
            digits.Y = label->Y - digits.Height;
            EXPECT_TRUE(test::Inside(digits, plate->Place, 0)) << label->Text;
        }
        EXPECT_GE(values, 9U);
    }
}

}  // namespace
}  // namespace FX_Algen::charts
