#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "FX_Algen/Chart.h"

/// Labels of sites: how they are wrapped or turned, and how many sites a page can hold so that they can be
/// read.
namespace FX_Algen::charts {

struct LabelPlan {
    Font Type;
    bool Turned = false;                          ///< reads upwards
    std::vector<std::vector<std::string>> Lines;  ///< of each site
    double Extent = 0;           ///< height of the labels below bars, width of those beside them
    std::size_t MostOnPage = 1;  ///< sites
};

/// Room for labels below bars.
struct LabelRoom {
    double Width = 0;      ///< of all bars together
    double Most = 0;       ///< height that labels may take
    double LeastSlot = 0;  ///< width that the bars of a site need
};

/// Labels below bars. As many sites stand on a page as bars and turned labels allow; where wrapped labels do
/// with no more pages, they are wrapped; turned ones take more lines where the distance of the bars allows
/// it, so that more height is left for the bars. The letters have 9 or 8 points; only a label that fills a
/// page alone is written smaller.
LabelPlan PlanLabelsBelow(const std::vector<Site>& sites, const LabelRoom& room, const FontMetrics& metrics);

/// Labels beside bars: a column as wide as they need, `most` at most, with longer ones wrapped.
/// `MostOnPage` follows from `height` and the height of the tallest label or `leastRow`.
LabelPlan PlanLabelsBeside(const std::vector<Site>& sites, double most, double height, double leastRow,
                           const FontMetrics& metrics);

}  // namespace FX_Algen::charts
