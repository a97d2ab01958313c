#pragma once

#include <string_view>

/// Comparison of texts as the store sees them. Both answer below, at or above 0.
namespace FX_Algen::store {

/// Order for comparisons, grouping and DISTINCT: equal are texts that differ in case alone, umlauts
/// included ("HÄUFIG" and "häufig"; but not "Maß" and "Mass"); the others stand in German order.
int CompareCaseBlind(std::string_view a, std::string_view b) noexcept;

/// German dictionary order (ä with a, ß with ss), case blind: "Masse" and "Maße" stand side by side.
int CompareGerman(std::string_view a, std::string_view b) noexcept;

}  // namespace FX_Algen::store
