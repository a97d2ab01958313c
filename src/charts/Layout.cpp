#include <algorithm>
#include <string>

#include "FX_Algen/Chart.h"
#include "charts/Draw.h"
#include "charts/Frame.h"
#include "charts/KnownWidths.h"
#include "charts/Layouts.h"
#include "charts/Style.h"
#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

Page EmptyPage(const Chart& chart, const FontMetrics& metrics, const PageSize& size) {
    Frame frame = MakeFrame(chart, metrics, size, false);
    const std::vector<std::string> lines = WrapText(chart.Empty, frame.Area.Width, kSubtitleFont, metrics);
    const double height = TextHeight(lines.size(), kSubtitleFont, metrics);
    AddLines(frame.Empty.Elements, lines, frame.Area.X + frame.Area.Width / 2,
             frame.Area.Y + std::max(0.0, (frame.Area.Height - height) / 2), Align::Centre, kSubtitleFont,
             kQuietTextColour, metrics);
    return std::move(frame.Empty);
}

}  // namespace

std::vector<Page> Layout(const Chart& chart, const FontMetrics& metrics, const PageSize& size) {
    const KnownWidths known(metrics);
    if (chart.Sites.empty()) return {EmptyPage(chart, known, size)};
    if (chart.Kind == ChartKind::Horizontal) return LayOutRows(chart, known, size);
    return LayOutColumns(chart, known, size);
}

}  // namespace FX_Algen::charts
