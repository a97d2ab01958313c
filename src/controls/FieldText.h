#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/Value.h"

/// Values of fields as people read and type them.
namespace FX_Algen::controls {

/// A value as a bound field shows it: numbers as `ShownNumber`, dates as "12.05.2026", booleans as "-1" and
/// "0", texts as they are; Null is an empty text.
std::string FieldText(const store::Value& value, std::int16_t Sprache);

/// The value that a text means in a field of the kind; of a number, date or boolean field an empty text is
/// Null. Fails with 13 where it is none of the kind, with 6 where it is beyond its range; the description
/// names the field and the text. A field of kind Null takes the text itself.
store::Value FieldValue(const std::string& text, store::Kind kind, std::string_view field);

/// Whether a text means what the field shows, however it is written: "12.50" and "12,5".
bool MeansShown(const std::string& text, const std::string& shown, store::Kind kind, std::int16_t Sprache);

}  // namespace FX_Algen::controls
