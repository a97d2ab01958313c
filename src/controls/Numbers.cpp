#include "controls/Numbers.h"

#include <algorithm>
#include <charconv>

#include "store/Allgemein.h"

namespace FX_Algen::controls {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// "1.5e-07" as plain digits.
std::string WithoutExponent(const std::string& text) {
    const auto mark = text.find('e');
    if (mark == std::string::npos) return text;
    int exponent = 0;
    auto from = mark + 1;
    if (from < text.size() && text[from] == '+') ++from;
    std::from_chars(text.data() + from, text.data() + text.size(), exponent);

    std::string sign, digits;
    int whole = 0;  // digits before the mark
    bool behind = false;
    for (const char c : std::string_view(text).substr(0, mark)) {
        if (c == '-') sign = "-";
        if (c == '.') behind = true;
        if (!IsDigit(c)) continue;
        digits += c;
        if (!behind) ++whole;
    }
    const int place = whole + exponent;
    if (place <= 0) return sign + "0." + std::string(static_cast<std::size_t>(-place), '0') + digits;
    const auto before = static_cast<std::size_t>(place);
    if (before >= digits.size()) return sign + digits + std::string(before - digits.size(), '0');
    return sign + digits.substr(0, before) + "." + digits.substr(before);
}

/// The store's digits with the mark of the language.
std::string InLanguage(const std::string& digits, std::int16_t Sprache) {
    constexpr std::int16_t english = 20000;
    auto text = WithoutExponent(digits);
    if (Allgemein::SprachID_Anheben(Sprache) < english) std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);

    const auto mark = std::min(text.find_first_of(",."), text.size());
    const auto whole = text.substr(0, mark);
    const auto fraction = text.substr(std::min(mark + 1, text.size()));
    if (whole.empty() && fraction.empty()) return std::nullopt;
    if (!std::all_of(whole.begin(), whole.end(), IsDigit)) return std::nullopt;
    if (!std::all_of(fraction.begin(), fraction.end(), IsDigit)) return std::nullopt;

    const std::string plain = std::string(whole) + "." + std::string(fraction);
    double number = 0;
    const auto [end, failure] =
        std::from_chars(plain.data(), plain.data() + plain.size(), number, std::chars_format::fixed);
    if (failure != std::errc{}) {
        // Too large for a number; one too small for it is 0.
        if (std::any_of(whole.begin(), whole.end(), [](char c) { return c != '0'; })) return std::nullopt;
        number = 0;
    }
    // No negative zero: it would be written as one.
    return negative && number != 0 ? -number : number;
}

std::string ShownNumber(double value, std::int16_t Sprache) {
    return InLanguage(store::NumberText(value), Sprache);
}

std::string ShownNumber(const store::Value& value, std::int16_t Sprache) {
    if (value.IsNull()) return {};
    // Texts and dates are no numbers: they show as they are.
    if (value.kind() == store::Kind::Text || value.kind() == store::Kind::Date) return value.Text();
    // All digits of a float: what a row shows is written back with the row, cells that nobody touched
    // included.
    if (value.kind() == store::Kind::R4) return InLanguage(store::ExactText(value.R4()), Sprache);
    return InLanguage(value.Text(), Sprache);
}

std::string ShownAboveZero(const store::Value& value, std::int16_t Sprache) {
    if (value.IsNull() || value.kind() == store::Kind::Date) return {};
    if (const auto* text = value.TextOrNull())
        return ReadNumber(*text).value_or(0) > 0 ? *text : std::string();
    return value.R8() > 0 ? ShownNumber(value, Sprache) : std::string();
}

}  // namespace FX_Algen::controls
