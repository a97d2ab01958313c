#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "FX_Algen/Error.h"
#include "store/dialect/Dates.h"
#include "store/dialect/Failure.h"
#include "store/dialect/Lexeme.h"
#include "store/dialect/Translate.h"

namespace FX_Algen::store::dialect {

namespace {

// Marks that stand for literals in a key. A statement cannot hold these bytes outside its quotes. Whole
// numbers and others differ, since the kind of an expression may depend on it.
constexpr char WholeMark = '\x01';
constexpr char TextMark = '\x02';
constexpr char DateMark = '\x03';
constexpr char RealMark = '\x04';

constexpr std::size_t SurelyWholeDigits = 9;

std::optional<std::int32_t> WholeNumber(std::string_view raw) {
    std::int32_t number = 0;
    const auto result = std::from_chars(raw.data(), raw.data() + raw.size(), number);
    if (result.ec != std::errc() || result.ptr != raw.data() + raw.size()) return std::nullopt;
    return number;
}

char NumberMark(std::string_view raw) {
    bool digitsOnly = true;
    for (const char byte : raw) digitsOnly = digitsOnly && detail::IsDigit(byte);
    if (!digitsOnly) return RealMark;
    return raw.size() <= SurelyWholeDigits || WholeNumber(raw) ? WholeMark : RealMark;
}

/// Whether a number out of range lies next to 0: its first digit but 0 stands behind the point.
bool IsTiny(std::string_view raw) {
    const std::size_t end = std::min(raw.find_first_of("eE"), raw.size());
    const std::string_view digits = raw.substr(0, end);
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos) return true;
    std::string_view exponent = raw.substr(std::min(end + 1, raw.size()));
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::int64_t shift = 0;
    const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
    if (read.ec == std::errc::result_out_of_range) return exponent.starts_with('-');
    const std::size_t point = std::min(digits.find('.'), digits.size());
    return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + shift < 0;
}

Value NumberValue(std::string_view raw) {
    if (const auto whole = WholeNumber(raw)) return *whole;
    double number = 0;
    const auto result = std::from_chars(raw.data(), raw.data() + raw.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        if (IsTiny(raw)) return 0.0;
        throw Error(ErrorNumber::Overflow, "The number " + std::string(raw) + " is out of range.");
    }
    if (result.ec != std::errc() || result.ptr != raw.data() + raw.size()) {
        throw Error(ErrorNumber::SyntaxError, "\"" + std::string(raw) + "\" is not a number.");
    }
    return number;
}

std::string UnquotedText(std::string_view raw) {
    const char quote = raw.front();
    const std::string_view inner = raw.substr(1, raw.size() - 2);
    std::string text;
    text.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        text.push_back(inner[i]);
        if (inner[i] == quote) ++i;
    }
    return text;
}

/// Copies the statement to the key run by run; a run ends where the key departs from the text.
class KeyBuilder {
public:
    KeyBuilder(std::string_view statement, std::string& key) : statement_(statement), key_(key) {
        key_.clear();
    }

    void Replace(std::size_t at, std::size_t length, char mark) {
        CopyTo(at);
        key_.push_back(mark);
        runStart_ = at + length;
    }
    void FoldBlanks(std::size_t at, std::size_t length) {
        if (length == 1 && statement_[at] == ' ') return;
        Replace(at, length, ' ');
    }
    void Finish() {
        CopyTo(statement_.size());
        while (!key_.empty() && key_.back() == ' ') key_.pop_back();
    }

private:
    void CopyTo(std::size_t end) { key_.append(statement_.substr(runStart_, end - runStart_)); }

    std::string_view statement_;
    std::string& key_;
    std::size_t runStart_ = 0;
};

Literal::Type LiteralType(Lexeme::Type type) {
    if (type == Lexeme::Type::Number) return Literal::Type::Number;
    return type == Lexeme::Type::Text ? Literal::Type::Text : Literal::Type::Date;
}

char MarkOf(Lexeme::Type type, std::string_view raw) {
    if (type == Lexeme::Type::Number) return NumberMark(raw);
    return type == Lexeme::Type::Text ? TextMark : DateMark;
}

}  // namespace

void ScanShape(std::string_view statement, Shape& shape) {
    KeyBuilder key(statement, shape.Key);
    shape.Literals.clear();
    for (std::size_t at = SkipPlain(statement, 0); at < statement.size(); at = SkipPlain(statement, at)) {
        const Lexeme lexeme = NextLexeme(statement, at);
        switch (lexeme.Is) {
            case Lexeme::Type::Number:
            case Lexeme::Type::Text:
            case Lexeme::Type::Date: {
                const std::string_view raw = statement.substr(at, lexeme.Length);
                shape.Literals.push_back({LiteralType(lexeme.Is), raw});
                key.Replace(at, lexeme.Length, MarkOf(lexeme.Is, raw));
                break;
            }
            case Lexeme::Type::Blank:
                key.FoldBlanks(at, lexeme.Length);
                break;
            case Lexeme::Type::Unfinished:
                FailAt(ErrorNumber::SyntaxError, statement, at, "A text, date or name does not end");
            case Lexeme::Type::Unknown:
                FailAt(ErrorNumber::SyntaxError, statement, at, "This character is not part of the language");
            default:
                break;
        }
        at += lexeme.Length;
    }
    key.Finish();
}

Value LiteralValue(const Literal& literal) {
    switch (literal.Is) {
        case Literal::Type::Number:
            return NumberValue(literal.Raw);
        case Literal::Type::Text:
            return UnquotedText(literal.Raw);
        case Literal::Type::Date:
            break;
    }
    if (const auto iso = IsoDate(literal.Raw.substr(1, literal.Raw.size() - 2))) return Date{*iso};
    throw Error(ErrorNumber::SyntaxError,
                "\"" + std::string(literal.Raw) + "\" is not a date of the form #month/day/year#.");
}

}  // namespace FX_Algen::store::dialect
