#pragma once

#include <cstddef>
#include <vector>

#include "FX_Algen/Chart.h"

/// The two ways of laying out a chart that has sites.
namespace FX_Algen::charts {

/// The pages of a way of laying out. Only a chart of several pages gives room away for their numbers.
template <class Way>
std::vector<Page> PagesOf(const Chart& chart, const FontMetrics& metrics, const PageSize& size) {
    const Way single(chart, metrics, size, false);
    if (single.PageCount() == 1) return {single.MakePage(0)};
    const Way numbered(chart, metrics, size, true);
    std::vector<Page> pages;
    for (std::size_t i = 0; i < numbered.PageCount(); ++i) pages.push_back(numbered.MakePage(i));
    return pages;
}

/// Bars that stand, on top of each other or side by side.
std::vector<Page> LayOutColumns(const Chart& chart, const FontMetrics& metrics, const PageSize& size);

/// Bars that lie, one below the other.
std::vector<Page> LayOutRows(const Chart& chart, const FontMetrics& metrics, const PageSize& size);

}  // namespace FX_Algen::charts
