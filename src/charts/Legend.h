#pragma once

#include <vector>

#include "FX_Algen/Chart.h"

/// The legend: a swatch and a text for each series.
namespace FX_Algen::charts {

struct Legend {
    std::vector<Element> Elements;
    double Height = 0;  ///< 0 without legend
};

/// The legend of a chart in `LegendLines` lines, its entries in columns and read line by line, with its upper
/// left corner at a place. Where it is wider than `width` it takes as many further lines as it needs, and at
/// last wraps the texts. There is none where no series has a text.
Legend MakeLegend(const Chart& chart, double x, double y, double width, const FontMetrics& metrics);

}  // namespace FX_Algen::charts
