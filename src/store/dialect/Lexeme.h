#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// The smallest pieces of a statement. The scan that runs at each call and the lexer of the parser both
/// stand on this one function, so that they count the same literals.
namespace FX_Algen::store::dialect {

struct Lexeme {
    enum class Type : std::uint8_t {
        End,
        Blank,
        Name,        ///< letters, digits and underscores, not starting with a digit
        Bracketed,   ///< [any name], with its brackets
        Number,      ///< digits, with point and exponent where they stand
        Text,        ///< 'text' or "text", with its quotes
        Date,        ///< #date#, with its marks
        Symbol,      ///< one of the characters of the language, or two for <> <= >=
        Unfinished,  ///< a quote, bracket or date mark without its partner
        Unknown,     ///< a character the language does not have
    };
    Type Is = Type::End;
    std::size_t Length = 0;
};

namespace detail {

enum class ByteClass : std::uint8_t {
    Unknown,
    Blank,
    Letter,
    Digit,
    Point,
    Quote,
    Bracket,
    DateMark,
    Symbol
};

constexpr std::array<ByteClass, 256> MakeByteClasses() {
    std::array<ByteClass, 256> classes{};
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = ByteClass::Letter;
    for (std::size_t c = 'A'; c <= 'Z'; ++c) classes[c] = ByteClass::Letter;
    for (std::size_t c = 0x80; c < 256; ++c) classes[c] = ByteClass::Letter;
    classes['_'] = ByteClass::Letter;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = ByteClass::Digit;
    for (const char c : {' ', '\t', '\r', '\n'}) classes[static_cast<unsigned char>(c)] = ByteClass::Blank;
    for (const char c : {'(', ')', ',', ';', '*', '+', '-', '/', '&', '=', '<', '>', '\\', '^', '!'}) {
        classes[static_cast<unsigned char>(c)] = ByteClass::Symbol;
    }
    classes['.'] = ByteClass::Point;
    classes['\''] = ByteClass::Quote;
    classes['"'] = ByteClass::Quote;
    classes['['] = ByteClass::Bracket;
    classes['#'] = ByteClass::DateMark;
    return classes;
}

inline constexpr std::array<ByteClass, 256> ByteClasses = MakeByteClasses();

inline ByteClass ClassOf(char byte) { return ByteClasses[static_cast<unsigned char>(byte)]; }
inline bool IsDigit(char byte) { return ClassOf(byte) == ByteClass::Digit; }

constexpr std::array<bool, 256> MakeNameBytes() {
    std::array<bool, 256> bytes{};
    for (std::size_t c = 0; c < bytes.size(); ++c) {
        bytes[c] = ByteClasses[c] == ByteClass::Letter || ByteClasses[c] == ByteClass::Digit;
    }
    return bytes;
}

inline constexpr std::array<bool, 256> NameBytes = MakeNameBytes();

inline bool ContinuesName(char byte) { return NameBytes[static_cast<unsigned char>(byte)]; }

inline std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

inline std::size_t NumberEnd(std::string_view text, std::size_t at) {
    at = SkipDigits(text, at);
    if (at < text.size() && text[at] == '.') at = SkipDigits(text, at + 1);
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t digits = at + 1;
        if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
        if (digits < text.size() && IsDigit(text[digits])) at = SkipDigits(text, digits);
    }
    return at;
}

/// End of what starts with a mark at `at` and ends with `mark`; npos if it does not end.
inline std::size_t MarkedEnd(std::string_view text, std::size_t at, char mark) {
    const void* found = std::memchr(text.data() + at + 1, mark, text.size() - at - 1);
    if (found == nullptr) return std::string_view::npos;
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) + 1;
}

/// As `MarkedEnd`, where a doubled mark stands for itself.
inline std::size_t QuotedEnd(std::string_view text, std::size_t at) {
    const char quote = text[at];
    std::size_t end = MarkedEnd(text, at, quote);
    while (end != std::string_view::npos && end < text.size() && text[end] == quote) {
        end = MarkedEnd(text, end, quote);
    }
    return end;
}

inline Lexeme Marked(std::string_view text, std::size_t at, std::size_t end, Lexeme::Type type) {
    if (end == std::string_view::npos) return {Lexeme::Type::Unfinished, text.size() - at};
    return {type, end - at};
}

inline std::size_t SymbolLength(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return 1;
    const char first = text[at];
    const char second = text[at + 1];
    const bool two = (first == '<' && (second == '>' || second == '=')) || (first == '>' && second == '=');
    return two ? 2 : 1;
}

/// A point starts a number only where no name or bracket stands before it: "t.5" is no number.
inline bool PointStartsNumber(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size() || !IsDigit(text[at + 1])) return false;
    return at == 0 || (!ContinuesName(text[at - 1]) && text[at - 1] != ']');
}

}  // namespace detail

/// The next place from `at` on where something other than names, symbols and single blanks stands: a
/// literal, a bracketed name, a run of blanks, or what does not belong. The scan at each call spends its
/// time here.
inline std::size_t SkipPlain(std::string_view text, std::size_t at) {
    using detail::ByteClass;
    const std::size_t size = text.size();
    while (at < size) {
        switch (detail::ClassOf(text[at])) {
            case ByteClass::Letter:
                do ++at;
                while (at < size && detail::ContinuesName(text[at]));
                break;
            case ByteClass::Symbol:
                ++at;
                break;
            case ByteClass::Point:
                if (detail::PointStartsNumber(text, at)) return at;
                ++at;
                break;
            case ByteClass::Blank:
                if (text[at] != ' ' || at + 1 == size || detail::ClassOf(text[at + 1]) == ByteClass::Blank)
                    return at;
                ++at;
                break;
            default:
                return at;
        }
    }
    return at;
}

/// The piece that starts at `at`.
inline Lexeme NextLexeme(std::string_view text, std::size_t at) {
    using detail::ByteClass;
    if (at >= text.size()) return {};
    std::size_t end = at + 1;
    switch (detail::ClassOf(text[at])) {
        case ByteClass::Letter:
            while (end < text.size() && detail::ContinuesName(text[end])) ++end;
            return {Lexeme::Type::Name, end - at};
        case ByteClass::Blank:
            while (end < text.size() && detail::ClassOf(text[end]) == ByteClass::Blank) ++end;
            return {Lexeme::Type::Blank, end - at};
        case ByteClass::Digit:
            return {Lexeme::Type::Number, detail::NumberEnd(text, at) - at};
        case ByteClass::Point:
            if (detail::PointStartsNumber(text, at)) {
                return {Lexeme::Type::Number, detail::NumberEnd(text, at) - at};
            }
            return {Lexeme::Type::Symbol, 1};
        case ByteClass::Quote:
            return detail::Marked(text, at, detail::QuotedEnd(text, at), Lexeme::Type::Text);
        case ByteClass::DateMark:
            return detail::Marked(text, at, detail::MarkedEnd(text, at, '#'), Lexeme::Type::Date);
        case ByteClass::Bracket:
            return detail::Marked(text, at, detail::MarkedEnd(text, at, ']'), Lexeme::Type::Bracketed);
        case ByteClass::Symbol:
            return {Lexeme::Type::Symbol, detail::SymbolLength(text, at)};
        case ByteClass::Unknown:
            break;
    }
    return {Lexeme::Type::Unknown, 1};
}

}  // namespace FX_Algen::store::dialect
