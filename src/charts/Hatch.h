#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "FX_Algen/Chart.h"

/// Hatches of the classes between two others.
namespace FX_Algen::charts {

enum class HatchDirection : std::uint8_t {
    Rising,   ///< from lower left to upper right
    Falling,  ///< from upper left to lower right
};

/// The direction of a series' hatch. A class between two others has the colour of one of them and the hatch
/// of the other: lines rise where the hatch has the colour of the series before it and fall where it has that
/// of the series behind it, so that two classes of one colour differ without any colour. Rising where it has
/// neither.
HatchDirection HatchDirectionOf(const std::vector<Series>& allSeries, std::size_t series);

/// The lines of a hatch in an area, cut so that also their corners stay inside it. One line begins in the
/// left corner, so that the smallest area shows a piece of it.
std::vector<Stroke> HatchLines(const Rect& area, HatchDirection direction, Colour pen);

}  // namespace FX_Algen::charts
