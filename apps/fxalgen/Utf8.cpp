#include "fxalgen/Utf8.h"

#include <cstdint>

namespace FX_Algen::cli {

namespace {

struct Decoded {
    char32_t CodePoint = 0;
    std::size_t Length = 0;  ///< 0 = not well-formed
};

/// Length and first bits of a sequence by its first byte; length 0 for a byte that starts none.
Decoded Lead(unsigned char byte) {
    if (byte < 0x80) return {byte, 1};
    if (byte >= 0xC2 && byte <= 0xDF) return {static_cast<char32_t>(byte & 0x1F), 2};
    if (byte >= 0xE0 && byte <= 0xEF) return {static_cast<char32_t>(byte & 0x0F), 3};
    if (byte >= 0xF0 && byte <= 0xF4) return {static_cast<char32_t>(byte & 0x07), 4};
    return {};
}

/// True for code points written longer than need be, halves of surrogate pairs and those past the end.
bool IsForbidden(const Decoded& decoded) {
    const char32_t c = decoded.CodePoint;
    return (decoded.Length == 3 && c < 0x800) || (decoded.Length == 4 && c < 0x10000) ||
           (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF;
}

Decoded DecodeAt(std::string_view text, std::size_t at) {
    Decoded decoded = Lead(static_cast<unsigned char>(text[at]));
    if (decoded.Length == 0 || at + decoded.Length > text.size()) return {};
    for (std::size_t i = 1; i < decoded.Length; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0) != 0x80) return {};
        decoded.CodePoint = (decoded.CodePoint << 6) | (byte & 0x3F);
    }
    return IsForbidden(decoded) ? Decoded{} : decoded;
}

bool IsCombining(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x20D0 && c <= 0x20FF) ||
           (c >= 0x200B && c <= 0x200F) || (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xFE20 && c <= 0xFE2F) ||
           c == 0x00AD;
}

bool IsWide(char32_t c) {
    return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
           (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) || (c >= 0xFF00 && c <= 0xFF60) ||
           (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x1F300 && c <= 0x1FAFF) || (c >= 0x20000 && c <= 0x3FFFD);
}

}  // namespace

std::optional<std::size_t> FirstBadByte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Decoded decoded = DecodeAt(text, at);
        if (decoded.Length == 0) return at;
        at += decoded.Length;
    }
    return std::nullopt;
}

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const Decoded decoded = DecodeAt(text, at);
        if (decoded.Length == 0) {
            ++at;
            ++width;  // a terminal shows a replacement mark
            continue;
        }
        at += decoded.Length;
        if (!IsCombining(decoded.CodePoint)) width += IsWide(decoded.CodePoint) ? 2 : 1;
    }
    return width;
}

}  // namespace FX_Algen::cli
