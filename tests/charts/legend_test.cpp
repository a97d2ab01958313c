#include "charts/Legend.h"

#include <gtest/gtest.h>

#include <set>

#include "metrics.h"

namespace FX_Algen::charts {
namespace {

const test::PlainMetrics kMetrics;

Chart WithSeries(std::vector<Series> series, std::int16_t lines = 2) {
    Chart chart;
    chart.AllSeries = std::move(series);
    chart.LegendLines = lines;
    return chart;
}

Page PageOf(const Legend& legend) { return {0, 0, legend.Elements, {}}; }

/// Base lines and texts.
std::vector<std::pair<double, std::string>> Texts(const Legend& legend) {
    std::vector<std::pair<double, std::string>> texts;
    for (const Label& label : test::All<Label>(PageOf(legend))) texts.emplace_back(label.Y, label.Text);
    return texts;
}

std::size_t LinesOf(const Legend& legend) {
    std::set<double> lines;
    for (const auto& [y, text] : Texts(legend)) lines.insert(y);
    return lines.size();
}

TEST(ChartLegend, EightClassesStandInTwoLinesOfFour) {
    const Legend legend = MakeLegend(WithSeries(test::Valences()), 36, 100, 770, kMetrics);
    EXPECT_EQ(LinesOf(legend), 2U);
    const auto texts = Texts(legend);
    ASSERT_EQ(texts.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(texts[i].second, test::Valences()[i].Legend);
        EXPECT_EQ(texts[i].first, texts[i < 4 ? 0 : 4].first);
    }
    const std::vector<Label> labels = test::All<Label>(PageOf(legend));
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(labels[i].X, labels[i + 4].X) << "columns are aligned";
}

TEST(ChartLegend, SevenClassesStandInTwoLines) {
    const Legend legend = MakeLegend(WithSeries(test::QualityClasses()), 36, 100, 770, kMetrics);
    EXPECT_EQ(LinesOf(legend), 2U);
    const auto texts = Texts(legend);
    EXPECT_EQ(texts[3].first, texts[0].first);
    EXPECT_GT(texts[4].first, texts[0].first);
}

TEST(ChartLegend, HasSwatchesWithTheHatchOfTheirSeries) {
    const Page page = PageOf(MakeLegend(WithSeries(test::QualityClasses()), 0, 0, 770, kMetrics));
    const std::vector<FilledArea> swatches = test::All<FilledArea>(page);
    ASSERT_EQ(swatches.size(), 7U);
    for (std::size_t i = 0; i < 7; ++i) {
        const Series series = test::QualityClasses()[i];
        EXPECT_EQ(swatches[i].Fill, PaletteColour(series.ColourNumber));
        std::size_t lines = 0;
        for (const Stroke& line : test::All<Stroke>(page))
            if (test::Inside(test::BoxOf(line), swatches[i].Place, 1e-9)) {
                ++lines;
                EXPECT_EQ(line.Pen, PaletteColour(series.HatchColourNumber));
            }
        EXPECT_EQ(lines > 0, series.Hatched) << i;
    }
    EXPECT_EQ(test::All<Outline>(page).size(), 7U);
}

TEST(ChartLegend, TakesMoreLinesRatherThanCutTexts) {
    for (double width = 80; width < 800; width += 13) {
        const Legend legend = MakeLegend(WithSeries(test::Valences()), 10, 20, width, kMetrics);
        std::string all;
        for (const auto& [y, text] : Texts(legend)) all += text;
        std::string expected;
        for (const Series& series : test::Valences()) expected += series.Legend;
        EXPECT_EQ(all, expected) << width;
        const Page page = PageOf(legend);
        const std::vector<Label> labels = test::All<Label>(page);
        for (std::size_t i = 0; i < labels.size(); ++i) {
            EXPECT_TRUE(test::Inside(test::BoxOf(labels[i], kMetrics), {10, 20, width, legend.Height}, 0.1))
                << width;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(
                    test::Overlap(test::BoxOf(labels[i], kMetrics), test::BoxOf(labels[j], kMetrics), 0.1))
                    << width;
            for (const FilledArea& swatch : test::All<FilledArea>(page))
                EXPECT_FALSE(test::Overlap(test::BoxOf(labels[i], kMetrics), swatch.Place, 0.1)) << width;
        }
    }
}

TEST(ChartLegend, IsLeftOutWhereNoSeriesHasAText) {
    const Legend legend = MakeLegend(WithSeries({{9, false, 0, ""}}), 0, 0, 500, kMetrics);
    EXPECT_TRUE(legend.Elements.empty());
    EXPECT_EQ(legend.Height, 0);
    EXPECT_EQ(MakeLegend(WithSeries({}), 0, 0, 500, kMetrics).Height, 0);
}

TEST(ChartLegend, StandsInOneLineOrInMore) {
    EXPECT_EQ(LinesOf(MakeLegend(WithSeries(test::QualityClasses(), 1), 0, 0, 770, kMetrics)), 1U);
    EXPECT_EQ(LinesOf(MakeLegend(WithSeries(test::QualityClasses(), 7), 0, 0, 770, kMetrics)), 7U);
    EXPECT_EQ(LinesOf(MakeLegend(WithSeries(test::QualityClasses(), 0), 0, 0, 770, kMetrics)), 1U);
}

}  // namespace
}  // namespace FX_Algen::charts
