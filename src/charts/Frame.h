#pragma once

#include <cstddef>
#include <vector>

#include "FX_Algen/Chart.h"

/// What stands around the bars on every page: title, subtitle, legend, footnotes and the number of the page.
namespace FX_Algen::charts {

struct Frame {
    Page Empty;          ///< a page with all that is the same on each one
    Rect Content;        ///< the page without its margin
    Rect Area;           ///< what is left for axes, bars and labels
    double NumberY = 0;  ///< base line of the page number
};

/// Draws the frame. With `numbered` the foot keeps room for the page number.
Frame MakeFrame(const Chart& chart, const FontMetrics& metrics, const PageSize& size, bool numbered);

/// Writes the number of a page (from 0) into its foot.
void AddPageNumber(Page& page, const Frame& frame, std::size_t number, std::size_t count,
                   std::int16_t SprachID);

/// Positions of the first bar of each page and the number of bars behind them: `sites` spread over as few
/// pages as `most` on one allows, so evenly that two pages differ by one at most.
std::vector<std::size_t> SpreadOverPages(std::size_t sites, std::size_t most);

}  // namespace FX_Algen::charts
