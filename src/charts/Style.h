#pragma once

#include "FX_Algen/Chart.h"

/// Fonts, colours and distances that all charts share. Lengths are points.
namespace FX_Algen::charts {

inline constexpr Font kTitleFont{13, true};
inline constexpr Font kSubtitleFont{10, false};
inline constexpr Font kLegendFont{9, false};
inline constexpr Font kAxisFont{9, false};
inline constexpr Font kValueFont{8, false};
inline constexpr Font kFootFont{8, false};

inline constexpr Colour kTextColour{20, 20, 20};
inline constexpr Colour kQuietTextColour{80, 80, 80};
inline constexpr Colour kOutlineColour{40, 40, 40};
inline constexpr Colour kGridColour{218, 218, 218};

inline constexpr double kOutlineWidth = 0.5;
/// A lower part of a stack would be nothing but its outline.
inline constexpr double kLeastOutlined = 2;
inline constexpr double kAxisWidth = 0.8;
inline constexpr double kGridWidth = 0.5;
inline constexpr double kTickLength = 3;

/// The largest part of a page that labels of sites may take.
inline constexpr double kLabelShare = 0.45;

}  // namespace FX_Algen::charts
