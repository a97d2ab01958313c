#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::store::dialect {

enum class Word : std::uint8_t {
    None,
    All,
    And,
    As,
    Asc,
    Between,
    By,
    Delete,
    Desc,
    Distinct,
    DistinctRow,
    False,
    From,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Left,
    Like,
    Not,
    Null,
    On,
    Or,
    Order,
    Outer,
    Right,
    Select,
    Set,
    True,
    Union,
    Update,
    Values,
    Where,
};

struct Token {
    enum class Type : std::uint8_t { End, Word, Name, Literal, Symbol };
    Type Is = Type::End;
    std::size_t Offset = 0;
    std::string_view Text;         ///< as written; of a bracketed name without its brackets
    Word Keyword = Word::None;     ///< of a Word
    std::size_t LiteralIndex = 0;  ///< of a Literal: its position in the shape
    bool Bracketed = false;
};

/// The tokens of a statement without its blanks, closed by an End. Literals count as in `ScanShape`.
std::vector<Token> Tokens(std::string_view statement);

}  // namespace FX_Algen::store::dialect
