#include "charts/Hatch.h"

#include <algorithm>
#include <cmath>

namespace FX_Algen::charts {

namespace {

/// How a hatch is drawn.
struct Pattern {
    double PenWidth;
    double Spacing;  ///< distance of two lines along an edge
};

// Both cover the same part of an area, so that its colour seems the same.
constexpr Pattern kFine{1.6, 6};
constexpr Pattern kCoarse{2.6, 9.75};
/// Shorter pieces would be specks in a corner.
constexpr double kShortest = 0.3;

HatchDirection DirectionOf(const std::vector<Series>& allSeries, std::size_t series) {
    const std::int16_t hatch = allSeries[series].HatchColourNumber;
    const auto has = [&](std::size_t other) {
        return other < allSeries.size() && allSeries[other].ColourNumber == hatch;
    };
    if (series > 0 && has(series - 1)) return HatchDirection::Rising;
    return has(series + 1) ? HatchDirection::Falling : HatchDirection::Rising;
}

}  // namespace

Hatch HatchOf(const std::vector<Series>& allSeries, std::size_t series) {
    Hatch hatch{DirectionOf(allSeries, series), false};
    for (std::size_t i = 0; i < series; ++i)
        if (allSeries[i].Hatched && DirectionOf(allSeries, i) == hatch.Direction)
            hatch.Coarse = !hatch.Coarse;
    return hatch;
}

std::vector<Stroke> HatchLines(const Rect& area, const Hatch& hatch, Colour pen) {
    const Pattern& pattern = hatch.Coarse ? kCoarse : kFine;
    // The corner of a line with flat ends at 45 degrees lies so far beside its end point.
    const double corner = pattern.PenWidth / 2 / std::sqrt(2.0);
    std::vector<Stroke> lines;
    const double left = area.X + corner;
    const double right = area.X + area.Width - corner;
    const double top = area.Y + corner;
    const double bottom = area.Y + area.Height - corner;
    if (right - left < kShortest || bottom - top < kShortest) return lines;

    // A rising line has a constant x + y; a falling one is its mirror image.
    const double first = left + bottom;
    const int before = static_cast<int>(std::floor((bottom - top) / pattern.Spacing));
    const int behind = static_cast<int>(std::floor((right - left) / pattern.Spacing));
    for (int i = -before; i <= behind; ++i) {
        const double sum = first + i * pattern.Spacing;
        const double x1 = std::max(left, sum - bottom);
        const double x2 = std::min(right, sum - top);
        if (x2 - x1 < kShortest) continue;
        Stroke line{
            .X1 = x1, .Y1 = sum - x1, .X2 = x2, .Y2 = sum - x2, .Pen = pen, .PenWidth = pattern.PenWidth};
        if (hatch.Direction == HatchDirection::Falling) {
            line.Y1 = top + bottom - line.Y1;
            line.Y2 = top + bottom - line.Y2;
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace FX_Algen::charts
