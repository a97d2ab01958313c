#include "store/LikePattern.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>

#include "FX_Algen/Error.h"
#include "store/TextOrder.h"

namespace FX_Algen::store {

namespace {

std::vector<UChar32> CharactersOf(std::string_view text) {
    std::vector<UChar32> out;
    out.reserve(text.size());
    const auto size = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < size;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(text.data(), i, size, character);
        out.push_back(character);
    }
    return out;
}

UChar32 Folded(UChar32 character) { return u_foldCase(character, U_FOLD_CASE_DEFAULT); }

std::string Utf8Of(UChar32 character) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::int32_t size = 0;
    U8_APPEND_UNSAFE(bytes.data(), size, character);
    return {bytes.data(), static_cast<std::size_t>(size)};
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
    std::size_t i = 0;
    while (i < pattern.size()) {
        const char c = pattern[i];
        if (c == '[') {
            // A bracket that closes at once would be an empty class, which matches nothing to match.
            const auto end = pattern.find(']', i + 1);
            if (end == std::string_view::npos)
                throw Error(ErrorNumber::SyntaxError,
                            "The pattern '" + std::string(pattern) + "' has a bracket that is not closed.");
            AddClass(pattern.substr(i + 1, end - i - 1));
            i = end + 1;
            continue;
        }
        Token token;
        const auto next = std::min(pattern.find_first_of("*?#[", i + 1), pattern.size());
        if (c == '*' || c == '?' || c == '#') {
            token.Is = c == '*'   ? Token::Type::AnyRun
                       : c == '?' ? Token::Type::AnyCharacter
                                  : Token::Type::Digit;
            tokens_.push_back(token);
            ++i;
            continue;
        }
        for (const UChar32 character : CharactersOf(pattern.substr(i, next - i))) {
            token.Character = Folded(character);
            tokens_.push_back(token);
        }
        i = next;
    }
}

void LikePattern::AddClass(std::string_view members) {
    if (members.empty()) return;
    Token token;
    token.Is = Token::Type::Class;
    auto characters = CharactersOf(members);
    if (characters.size() > 1 && characters.front() == '!') {
        token.Negated = true;
        characters.erase(characters.begin());
    }
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (i + 2 < characters.size() && characters[i + 1] == '-') {
            Range range{Utf8Of(characters[i]), Utf8Of(characters[i + 2])};
            if (CompareGerman(range.First, range.Last) > 0)
                throw Error(ErrorNumber::SyntaxError,
                            "The pattern range '" + std::string(members) + "' runs backwards.");
            token.Ranges.push_back(std::move(range));
            i += 2;
        } else {
            token.Characters.push_back(Folded(characters[i]));
        }
    }
    tokens_.push_back(std::move(token));
}

bool LikePattern::Fits(const Token& token, std::int32_t character) {
    switch (token.Is) {
        case Token::Type::Character:
            return Folded(character) == token.Character;
        case Token::Type::AnyCharacter:
            return true;
        case Token::Type::Digit:
            return character >= '0' && character <= '9';
        case Token::Type::Class: {
            const auto& singles = token.Characters;
            bool in = std::find(singles.begin(), singles.end(), Folded(character)) != singles.end();
            if (!in && !token.Ranges.empty()) {
                const auto text = Utf8Of(character);
                in = std::any_of(token.Ranges.begin(), token.Ranges.end(), [&text](const Range& range) {
                    return CompareGerman(range.First, text) <= 0 && CompareGerman(text, range.Last) <= 0;
                });
            }
            return in != token.Negated;
        }
        case Token::Type::AnyRun:
            break;
    }
    return false;
}

bool LikePattern::Matches(std::string_view text) const {
    const auto characters = CharactersOf(text);
    std::size_t at = 0;
    std::size_t token = 0;
    // Where the last run may be made longer by one character when what follows it does not fit.
    std::size_t run_token = tokens_.size();
    std::size_t run_at = 0;
    while (at < characters.size()) {
        if (token < tokens_.size() && tokens_[token].Is == Token::Type::AnyRun) {
            run_token = token++;
            run_at = at;
        } else if (token < tokens_.size() && Fits(tokens_[token], characters[at])) {
            ++token;
            ++at;
        } else if (run_token < tokens_.size()) {
            token = run_token + 1;
            at = ++run_at;
        } else {
            return false;
        }
    }
    while (token < tokens_.size() && tokens_[token].Is == Token::Type::AnyRun) ++token;
    return token == tokens_.size();
}

}  // namespace FX_Algen::store
