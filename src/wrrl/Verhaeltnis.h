#pragma once

#include <optional>

/// Quality ratios (EQR): how near an index comes to the value expected of the site's reference class.
///
/// Indices, expected values and ratios are 32-bit floats; a ratio is computed from them in 64 bits, rounded
/// commercially to two decimals, and is a 32-bit float again.
namespace FX_Algen::wrrl {

/// A ratio on its way into the row.
struct Verhaeltnis {
    std::optional<double> Ungerundet;  ///< none where there was nothing to divide
    double Gerundet = 0;               ///< two decimals
    float EQR = 0;                     ///< at most 1
};

/// Trophic and saprobic module: (4 - index) / (4 - expected value), where 4 is the worst end of both scales.
/// 0 for an index of 0 or below, which says that no index could be computed. There is no lower bound: an
/// index above 4 gives a negative ratio. None where the divisor is 0.
std::optional<Verhaeltnis> AbstandVomEnde(float index, float erwartet);

/// Reference species module: index / expected value; here high values are good. None where the divisor is 0.
std::optional<Verhaeltnis> AnteilAmErwarteten(float index, float erwartet);

/// The ratio at which the raised class is looked up: EQR + 0.03, two decimals, not capped.
float Angehoben(float EQR);

}  // namespace FX_Algen::wrrl
