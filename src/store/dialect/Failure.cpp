#include "store/dialect/Failure.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "store/dialect/Lexeme.h"

namespace FX_Algen::store::dialect {

namespace {

constexpr std::size_t LongestToken = 60;

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

std::string TokenAt(std::string_view statement, std::size_t offset) {
    if (offset >= statement.size()) return "the end of the statement";
    const Lexeme lexeme = NextLexeme(statement, offset);
    std::size_t length = std::min(std::max<std::size_t>(lexeme.Length, 1), LongestToken);
    // A cut inside a character would make the message invalid text.
    while (offset + length < statement.size() && !StartsCharacter(statement[offset + length])) ++length;
    return "\"" + std::string(statement.substr(offset, length)) + "\"";
}

std::string Place(std::string_view statement, std::size_t offset) {
    std::size_t line = 1;
    std::size_t column = 1;
    for (std::size_t i = 0; i < offset && i < statement.size(); ++i) {
        if (statement[i] == '\n') {
            ++line;
            column = 1;
        } else if (StartsCharacter(statement[i])) {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

}  // namespace

void FailAt(std::int32_t number, std::string_view statement, std::size_t offset, std::string_view why) {
    std::string text(why);
    text += " (" + Place(statement, offset) + ", at " + TokenAt(statement, offset) + ")";
    throw Error(number, text, std::string(statement));
}

}  // namespace FX_Algen::store::dialect
