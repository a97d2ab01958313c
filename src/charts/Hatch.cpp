#include "charts/Hatch.h"

#include <algorithm>
#include <cmath>

namespace FX_Algen::charts {

namespace {

constexpr double kPenWidth = 1.6;
/// Distance of two lines along an edge.
constexpr double kSpacing = 6;
/// Shorter pieces would be specks in a corner.
constexpr double kShortest = 0.3;

/// The corner of a line of this width with flat ends at 45 degrees lies so far beside its end point.
const double kCorner = kPenWidth / 2 / std::sqrt(2.0);

}  // namespace

HatchDirection HatchDirectionOf(const std::vector<Series>& allSeries, std::size_t series) {
    const std::int16_t hatch = allSeries[series].HatchColourNumber;
    const auto has = [&](std::size_t other) {
        return other < allSeries.size() && allSeries[other].ColourNumber == hatch;
    };
    if (series > 0 && has(series - 1)) return HatchDirection::Rising;
    return has(series + 1) ? HatchDirection::Falling : HatchDirection::Rising;
}

std::vector<Stroke> HatchLines(const Rect& area, HatchDirection direction, Colour pen) {
    std::vector<Stroke> lines;
    const double left = area.X + kCorner;
    const double right = area.X + area.Width - kCorner;
    const double top = area.Y + kCorner;
    const double bottom = area.Y + area.Height - kCorner;
    if (right - left < kShortest || bottom - top < kShortest) return lines;

    // A rising line has a constant x + y; a falling one is its mirror image.
    const double first = left + bottom;
    const int before = static_cast<int>(std::floor((bottom - top) / kSpacing));
    const int behind = static_cast<int>(std::floor((right - left) / kSpacing));
    for (int i = -before; i <= behind; ++i) {
        const double sum = first + i * kSpacing;
        const double x1 = std::max(left, sum - bottom);
        const double x2 = std::min(right, sum - top);
        if (x2 - x1 < kShortest) continue;
        Stroke line{.X1 = x1, .Y1 = sum - x1, .X2 = x2, .Y2 = sum - x2, .Pen = pen, .PenWidth = kPenWidth};
        if (direction == HatchDirection::Falling) {
            line.Y1 = top + bottom - line.Y1;
            line.Y2 = top + bottom - line.Y2;
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace FX_Algen::charts
