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

struct Hatch {
    HatchDirection Direction = HatchDirection::Rising;
    bool Coarse = false;  ///< broader lines at a greater distance
    friend bool operator==(const Hatch&, const Hatch&) = default;
};

/// The hatch of a series. A class between two others has the colour of one of them and the hatch of the
/// other: lines rise where the hatch has the colour of the series before it and fall where it has that of the
/// series behind it, so that two classes of one colour differ without any colour. They rise where it has
/// neither. Of the hatches of one direction every second one is coarse.
Hatch HatchOf(const std::vector<Series>& allSeries, std::size_t series);

/// The lines of a hatch in an area, cut so that also their corners stay inside it. One line begins in the
/// left corner, so that the smallest area shows a piece of it.
std::vector<Stroke> HatchLines(const Rect& area, const Hatch& hatch, Colour pen);

}  // namespace FX_Algen::charts
