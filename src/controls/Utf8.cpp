#include "controls/Utf8.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace FX_Algen::controls {

namespace {

/// Every byte but those that go on with a character begins one: broken text counts too and is never split
/// further.
bool Begins(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

bool IsUtf8(std::string_view text) noexcept {
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t at = 0; at < length;) {
        UChar32 character = 0;
        U8_NEXT(text.data(), at, length, character);
        if (character < 0) return false;
    }
    return true;
}

int CountCharacters(std::string_view text) noexcept {
    return static_cast<int>(std::count_if(text.begin(), text.end(), Begins));
}

std::size_t ByteOf(std::string_view text, int character) noexcept {
    int seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (Begins(text[i]) && seen++ == character) return i;
    return text.size();
}

std::vector<std::string_view> Characters(std::string_view text) {
    std::vector<std::string_view> out;
    for (std::size_t i = 0; i < text.size();) {
        auto end = i + 1;
        while (end < text.size() && !Begins(text[end])) ++end;
        out.push_back(text.substr(i, end - i));
        i = end;
    }
    return out;
}

}  // namespace FX_Algen::controls
