#include "store/ColumnValue.h"

#include <cmath>
#include <cstddef>

#include "FX_Algen/Error.h"
#include "store/Format.h"

namespace FX_Algen::store {

namespace {

// Of the ISO text.
constexpr std::size_t DaySize = 10;
constexpr std::size_t TimeSize = 8;
constexpr const char* Midnight = "00:00:00";

/// The date that a value tells, checked: hosts compose dates themselves.
Date Checked(const Value& value) {
    if (value.kind() == Kind::Date) return Value(value.Text()).AsDate();
    return value.AsDate();
}

Date DayOf(Date date) {
    if (date.Iso.size() == TimeSize)
        throw Error(ErrorNumber::TypeMismatch, "Type mismatch: '" + date.Iso + "' is a time, not a day.");
    date.Iso.resize(DaySize);
    return date;
}

Date TimeOf(const Date& date) {
    if (date.Iso.size() == TimeSize) return date;
    if (date.Iso.size() == DaySize) return Date{Midnight};
    return Date{date.Iso.substr(DaySize + 1)};
}

void CheckFinite(const Value& value) {
    if (value.kind() != Kind::R4 && value.kind() != Kind::R8) return;
    if (!std::isfinite(value.R8()))
        throw Error(ErrorNumber::Overflow, "Overflow: a calculation went beyond what 64 bits hold.");
}

}  // namespace

Value ForColumn(const Value& value, Kind kind, bool isTime) {
    if (value.IsNull()) return value;
    CheckFinite(value);
    if (kind == Kind::Date) return isTime ? TimeOf(Checked(value)) : DayOf(Checked(value));
    if (kind == Kind::Text && value.kind() == Kind::Date) return GermanDate(Checked(value));
    return value.As(kind);
}

}  // namespace FX_Algen::store
