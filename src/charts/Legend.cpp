#include "charts/Legend.h"

#include <algorithm>
#include <string>

#include "charts/Draw.h"
#include "charts/Style.h"
#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

constexpr double kSwatchWidth = 20;
constexpr double kSwatchHeight = 10;
constexpr double kTextGap = 5;
constexpr double kColumnGap = 18;
constexpr double kLineGap = 4;
/// Columns narrower than this are no use.
constexpr double kLeastText = 20;

bool HasTexts(const Chart& chart) {
    return std::any_of(chart.AllSeries.begin(), chart.AllSeries.end(),
                       [](const Series& series) { return !series.Legend.empty(); });
}

/// Width of the text in each of so many columns.
std::vector<double> TextWidths(const Chart& chart, std::size_t columns, const FontMetrics& metrics) {
    std::vector<double> widths(columns, 0);
    for (std::size_t i = 0; i < chart.AllSeries.size(); ++i) {
        double& width = widths[i % columns];
        width = std::max(width, metrics.Width(chart.AllSeries[i].Legend, kLegendFont));
    }
    return widths;
}

double TotalWidth(const std::vector<double>& textWidths) {
    double total = -kColumnGap;
    for (const double width : textWidths) total += kSwatchWidth + kTextGap + width + kColumnGap;
    return total;
}

/// The widths of the columns' texts, in as many columns as there may be.
std::vector<double> Columns(const Chart& chart, double width, const FontMetrics& metrics) {
    const std::size_t count = chart.AllSeries.size();
    const auto lines = static_cast<std::size_t>(std::max<int>(1, chart.LegendLines));
    for (std::size_t columns = (count + lines - 1) / lines; columns > 1; --columns) {
        std::vector<double> widths = TextWidths(chart, columns, metrics);
        if (TotalWidth(widths) <= width) return widths;
    }
    std::vector<double> widths = TextWidths(chart, 1, metrics);
    widths[0] = std::min(widths[0], std::max(kLeastText, width - kSwatchWidth - kTextGap));
    return widths;
}

}  // namespace

Legend MakeLegend(const Chart& chart, double x, double y, double width, const FontMetrics& metrics) {
    Legend legend;
    if (!HasTexts(chart)) return legend;
    const std::vector<double> textWidths = Columns(chart, width, metrics);
    double top = y;
    for (std::size_t first = 0; first < chart.AllSeries.size(); first += textWidths.size()) {
        const std::size_t end = std::min(chart.AllSeries.size(), first + textWidths.size());
        double left = x;
        double height = kSwatchHeight;
        for (std::size_t i = first; i < end; ++i) {
            const double textWidth = textWidths[i - first];
            // A breath wider than measured, so that rounding does not break a text that fits.
            const std::vector<std::string> lines =
                WrapText(chart.AllSeries[i].Legend, textWidth + 0.01, kLegendFont, metrics);
            const double oneLine = TextHeight(1, kLegendFont, metrics);
            AddSegment(legend.Elements,
                       {left, top + (std::max(oneLine, kSwatchHeight) - kSwatchHeight) / 2, kSwatchWidth,
                        kSwatchHeight},
                       chart.AllSeries, i, Standing::Alone);
            AddLines(legend.Elements, lines, left + kSwatchWidth + kTextGap, top, Align::Left, kLegendFont,
                     kTextColour, metrics);
            height =
                std::max(height, TextHeight(std::max<std::size_t>(1, lines.size()), kLegendFont, metrics));
            left += kSwatchWidth + kTextGap + textWidth + kColumnGap;
        }
        top += height + kLineGap;
    }
    legend.Height = top - kLineGap - y;
    return legend;
}

}  // namespace FX_Algen::charts
