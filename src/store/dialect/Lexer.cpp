#include "store/dialect/Lexer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Failure.h"
#include "store/dialect/Lexeme.h"
#include "store/dialect/Names.h"

namespace FX_Algen::store::dialect {

namespace {

using NamedWord = std::pair<std::string_view, Word>;
constexpr std::array<NamedWord, 36> Words{{
    {"ALL", Word::All},
    {"AND", Word::And},
    {"AS", Word::As},
    {"ASC", Word::Asc},
    {"BETWEEN", Word::Between},
    {"BY", Word::By},
    {"DELETE", Word::Delete},
    {"DESC", Word::Desc},
    {"DISTINCT", Word::Distinct},
    {"DISTINCTROW", Word::DistinctRow},
    {"FALSE", Word::False},
    {"FROM", Word::From},
    {"GROUP", Word::Group},
    {"HAVING", Word::Having},
    {"IN", Word::In},
    {"INNER", Word::Inner},
    {"INSERT", Word::Insert},
    {"INTO", Word::Into},
    {"IS", Word::Is},
    {"JOIN", Word::Join},
    {"LEFT", Word::Left},
    {"LIKE", Word::Like},
    {"NOT", Word::Not},
    {"NULL", Word::Null},
    {"ON", Word::On},
    {"OR", Word::Or},
    {"ORDER", Word::Order},
    {"OUTER", Word::Outer},
    {"RIGHT", Word::Right},
    {"SELECT", Word::Select},
    {"SET", Word::Set},
    {"TRUE", Word::True},
    {"UNION", Word::Union},
    {"UPDATE", Word::Update},
    {"VALUES", Word::Values},
    {"WHERE", Word::Where},
}};

Word WordOf(std::string_view text) {
    const auto found = std::find_if(Words.begin(), Words.end(),
                                    [&](const NamedWord& word) { return SameName(word.first, text); });
    return found == Words.end() ? Word::None : found->second;
}

Token NameToken(std::size_t offset, std::string_view text) {
    Token token{Token::Type::Name, offset, text};
    token.Keyword = WordOf(text);
    if (token.Keyword != Word::None) token.Is = Token::Type::Word;
    return token;
}

Token BracketedToken(std::string_view statement, std::size_t offset, std::string_view text) {
    text = text.substr(1, text.size() - 2);
    if (text.empty())
        FailAt(ErrorNumber::SyntaxError, statement, offset, "A name is missing between brackets");
    Token token{Token::Type::Name, offset, text};
    token.Bracketed = true;
    return token;
}

}  // namespace

std::vector<Token> Tokens(std::string_view statement) {
    std::vector<Token> tokens;
    std::size_t literals = 0;
    for (std::size_t at = 0; at < statement.size();) {
        const Lexeme lexeme = NextLexeme(statement, at);
        const std::string_view text = statement.substr(at, lexeme.Length);
        switch (lexeme.Is) {
            case Lexeme::Type::Name:
                tokens.push_back(NameToken(at, text));
                break;
            case Lexeme::Type::Bracketed:
                tokens.push_back(BracketedToken(statement, at, text));
                break;
            case Lexeme::Type::Number:
            case Lexeme::Type::Text:
            case Lexeme::Type::Date:
                tokens.push_back({Token::Type::Literal, at, text, Word::None, literals++});
                break;
            case Lexeme::Type::Symbol:
                tokens.push_back({Token::Type::Symbol, at, text});
                break;
            case Lexeme::Type::Unfinished:
                FailAt(ErrorNumber::SyntaxError, statement, at, "A text, date or name does not end");
            case Lexeme::Type::Unknown:
                FailAt(ErrorNumber::SyntaxError, statement, at, "This character is not part of the language");
            case Lexeme::Type::Blank:
            case Lexeme::Type::End:
                break;
        }
        at += lexeme.Length;
    }
    tokens.push_back({Token::Type::End, statement.size(), {}});
    return tokens;
}

}  // namespace FX_Algen::store::dialect
