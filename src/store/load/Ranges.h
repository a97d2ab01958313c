#pragma once

#include <span>
#include <string>
#include <string_view>

#include "store/load/Cell.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// Numbers that a column may hold; both ends belong to it.
struct Range {
    std::string_view Table;
    std::string_view Column;
    double Least = 0;
    double Most = 0;  ///< infinite: no upper end
};

/// Texts that a column may hold.
struct TextChoice {
    std::string_view Table;
    std::string_view Column;
    std::span<const std::string_view> Texts;
    bool IgnoreCase = false;  ///< as statements compare texts
};

/// All ranges that loading checks. Every other number has to be finite, but in tables of results.
std::span<const Range> Ranges();
/// All columns whose texts are a closed list.
std::span<const TextChoice> TextChoices();

/// Gives the columns of a table their ranges and texts.
void Restrict(TargetTable& table);
/// Why the column may not hold the value; empty where it may. Null is never a matter of ranges.
std::string RangeFault(const Cell& cell, const TargetColumn& column);

}  // namespace FX_Algen::store::load
