#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Texts in characters, as positions in fields count them.
namespace FX_Algen::controls {

/// Whether the text is well-formed UTF-8.
bool IsUtf8(std::string_view text) noexcept;
/// How many characters the text has.
int CountCharacters(std::string_view text) noexcept;
/// Where the character with the number begins in bytes; the length of the text past the last one.
std::size_t ByteOf(std::string_view text, int character) noexcept;
/// The characters one by one.
std::vector<std::string_view> Characters(std::string_view text);

}  // namespace FX_Algen::controls
