#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace FX_Algen::calc {

/// Taxa per water-quality class, in the order of `KlassenSpalten`.
using Klassenzahlen = std::array<std::int16_t, 7>;

/// Columns of `awaErgProjekt` that take the seven counters.
inline constexpr std::array<std::string_view, 7> KlassenSpalten{
    "ANZ_Gueteklasse_I",   "ANZ_Gueteklasse_I_II",   "ANZ_Gueteklasse_II", "ANZ_Gueteklasse_II_III",
    "ANZ_Gueteklasse_III", "ANZ_Gueteklasse_III_IV", "ANZ_Gueteklasse_IV"};

/// Class 0 to 6 of a saprobic value. Both bounds of a class belong to it and the lower class is tested first,
/// so a value equal to a bound is of the lower class. None: below 0.000001, and between 3.499999 and 3.5.
std::optional<std::size_t> Gueteklasse(double SI);

/// Adds one taxon to the counter of its class; returns the class. Fails with 6 above 32767.
std::optional<std::size_t> Gueteklasse_Zaehlen(double SI, Klassenzahlen& anzahl);

}  // namespace FX_Algen::calc
