#pragma once

#include <string>
#include <string_view>

#include "FX_Algen/Value.h"

namespace FX_Algen::store {

/// `value` by a pattern, as the function Format of statements gives it; Null gives "".
///
/// Dates: d dd m mm yy yyyy h hh n nn s ss, m behind h is minutes. Numbers: 0 (a digit) and # (a digit where
/// there is one) with a point, rounded half away from zero. Text in double quotes and a character behind a
/// backslash stand for themselves, as does all that is no letter. A text that is no date or number comes
/// back as it is. 3075 for letters that the pattern language does not have, 13 for a date by places.
std::string FormatValue(const Value& value, std::string_view pattern);

/// A date as it reads in a text: "12.05.2026", "12.05.2026 09:30:00" or "09:30:00".
std::string GermanDate(const Date& date);

}  // namespace FX_Algen::store
