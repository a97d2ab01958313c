#pragma once

#include <vector>

#include "FX_Algen/Chart.h"

/// The two ways of laying out a chart that has sites.
namespace FX_Algen::charts {

/// Bars that stand, on top of each other or side by side.
std::vector<Page> LayOutColumns(const Chart& chart, const FontMetrics& metrics, const PageSize& size);

/// Bars that lie, one below the other.
std::vector<Page> LayOutRows(const Chart& chart, const FontMetrics& metrics, const PageSize& size);

}  // namespace FX_Algen::charts
