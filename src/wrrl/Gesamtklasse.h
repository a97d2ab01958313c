#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The overall class of an assessment: the worst of three classes, higher numbers being worse.
namespace FX_Algen::wrrl {

/// Classes in the order trophic, saprobic, reference species; -1 for a module without class.
using Klassen = std::array<std::int16_t, 3>;

inline constexpr std::array<std::string_view, 3> Klassenspalten{"TI_OEZK", "SI_OEZK", "RI_OEZK"};

struct Schlechteste {
    std::int16_t Klasse = -1;  ///< the largest number; a -1 never wins against a class
    std::int16_t Anzahl = 0;   ///< modules that have it
    std::size_t Modul = 0;     ///< the last of them
};

Schlechteste SchlechtesteKlasse(const Klassen& klassen);

/// The class that a single worst module leaves: one better where its raised class is exactly that. A raised
/// class that was not found, -1, changes nothing.
std::int16_t Abgemildert(std::int16_t klasse, std::int16_t angehoben);

}  // namespace FX_Algen::wrrl
