#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace FX_Algen::store::dialect {

/// ISO text of a date constant without its marks: "5/12/2026" gives "2026-05-12", "5/12/2026 9:30" gives
/// "2026-05-12 09:30:00", "9:30:15" gives "09:30:15". The order is month/day/year, the year has four
/// digits. Nothing where it is no such date or no day of the calendar.
std::optional<std::string> IsoDate(std::string_view text);

}  // namespace FX_Algen::store::dialect
