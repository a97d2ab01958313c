#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::store {

/// A pattern of LIKE, taken apart: * any run, ? one character, # one digit, [abc] one of these, [a-z] one
/// of a range in German order, [!abc] none of these; all else stands for itself. Case blind.
class LikePattern {
public:
    /// 3075 where a bracket is left open or a range runs backwards.
    explicit LikePattern(std::string_view pattern);

    bool Matches(std::string_view text) const;

private:
    struct Range {
        std::string First;
        std::string Last;
    };
    struct Token {
        enum class Type : std::uint8_t { Character, AnyCharacter, AnyRun, Digit, Class };
        Type Is = Type::Character;
        std::int32_t Character = 0;  ///< folded
        bool Negated = false;
        std::vector<std::int32_t> Characters;  ///< folded
        std::vector<Range> Ranges;
    };

    void AddClass(std::string_view members);
    static bool Fits(const Token& token, std::int32_t character);

    std::vector<Token> tokens_;
};

}  // namespace FX_Algen::store
