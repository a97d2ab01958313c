#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "FX_Algen/Value.h"

/// Numbers as people type and read them.
namespace FX_Algen::controls {

/// The number in a text: digits with a sign, one comma or one point as decimal mark, blanks around it. None
/// where the text is anything else, so also for an empty text and for one with both marks, and where the
/// number is too large for a 64-bit float.
std::optional<double> ReadNumber(std::string_view text);

/// A number as it is shown: the fewest digits that read back the same (of a 32-bit float at most 9), comma as
/// decimal mark in German, point in other languages, never in exponent form. Null is an empty text; texts and
/// dates show as they are.
std::string ShownNumber(const store::Value& value, std::int16_t Sprache);
std::string ShownNumber(double value, std::int16_t Sprache);

/// As `ShownNumber` where it is greater than 0, else empty.
std::string ShownAboveZero(const store::Value& value, std::int16_t Sprache);

}  // namespace FX_Algen::controls
