#pragma once

#include <cstdint>
#include <string>

namespace FX_Algen {

/// Language bases: the first number of a language in the string table.
namespace Language {
inline constexpr std::int16_t German = 10000;
inline constexpr std::int16_t English = 20000;
}  // namespace Language

/// A text of the string table, for hosts that want the module's own wording.
///
/// `offset` is the string number without the language (1000 to 9999), `SprachID` the language base:
/// 10000 German, 20000 English; a base below 10000 counts as German. Line breaks are "\n".
/// Fails with 6 where base and offset exceed a 16-bit number and with 326 where the table has no such
/// text; gaps are not filled from the other language.
std::string Text(std::int16_t offset, std::int16_t SprachID);

}  // namespace FX_Algen
