#pragma once

#include "FX_Algen/Value.h"

namespace FX_Algen::store {

/// `value` as a column of `kind` takes it; Null stays Null. `isTime` tells a column of type TIME from one of
/// type DATE.
///
/// As `Value::As`, and: a column of type DATE takes the day alone of a day with a time, and no time alone
/// (13); a column of type TIME takes the time alone, a day being its midnight. A text column takes a date as
/// it reads in a statement, "12.05.2026". What is no date fails with 13, what is no finite number with 6.
Value ForColumn(const Value& value, Kind kind, bool isTime);

}  // namespace FX_Algen::store
