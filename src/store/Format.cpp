#include "store/Format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "FX_Algen/Error.h"

namespace FX_Algen::store {

namespace {

[[noreturn]] void FailPattern(std::string_view pattern, std::string_view part) {
    throw Error(ErrorNumber::SyntaxError, "Format does not know '" + std::string(part) +
                                              "' in the pattern '" + std::string(pattern) + "'.");
}

/// A run of one placeholder letter, or (Letter 0) text that stands for itself.
struct Part {
    char Letter = 0;
    std::size_t Length = 0;
    std::string Text;
};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsLetter(char c) { return Lower(c) >= 'a' && Lower(c) <= 'z'; }

std::vector<Part> PartsOf(std::string_view pattern) {
    std::vector<Part> parts;
    const auto add_text = [&parts](std::string_view text) {
        if (parts.empty() || parts.back().Letter != 0) parts.push_back({});
        parts.back().Text += text;
    };
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = Lower(pattern[i]);
        if (c == '"') {
            const auto end = std::min(pattern.find('"', i + 1), pattern.size());
            add_text(pattern.substr(i + 1, end - i - 1));
            i = end;
        } else if (c == '\\' && i + 1 < pattern.size()) {
            add_text(pattern.substr(++i, 1));
        } else if (IsLetter(c)) {
            if (parts.empty() || parts.back().Letter != c) parts.push_back({c, 0, {}});
            ++parts.back().Length;
        } else {
            add_text(pattern.substr(i, 1));
        }
    }
    return parts;
}

// ---- dates -------------------------------------------------------------------------------------

struct Moment {
    // The day of a bare time of day.
    int Year = 1899;
    int Month = 12;
    int Day = 30;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

int Digits(std::string_view text, std::size_t at, std::size_t count) {
    int out = 0;
    const auto part = text.substr(std::min(at, text.size()), count);
    std::from_chars(part.data(), part.data() + part.size(), out);
    return out;
}

bool HasDay(std::string_view iso) { return iso.size() >= 10 && iso[4] == '-'; }

/// `iso` is "yyyy-mm-dd", "yyyy-mm-dd hh:nn:ss" or "hh:nn:ss".
Moment MomentOf(std::string_view iso) {
    Moment out;
    if (HasDay(iso)) {
        out.Year = Digits(iso, 0, 4);
        out.Month = Digits(iso, 5, 2);
        out.Day = Digits(iso, 8, 2);
        iso.remove_prefix(std::min<std::size_t>(iso.size(), 11));
    }
    out.Hour = Digits(iso, 0, 2);
    out.Minute = Digits(iso, 3, 2);
    out.Second = Digits(iso, 6, 2);
    return out;
}

std::string Padded(int number, std::size_t width) {
    auto digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string DatePart(const Part& part, const Moment& moment, bool behind_hour, std::string_view pattern) {
    const auto number = [&part, pattern](int value) {
        if (part.Length > 2) FailPattern(pattern, std::string(part.Length, part.Letter));
        return Padded(value, part.Length);
    };
    switch (part.Letter) {
        case 'd':
            return number(moment.Day);
        case 'm':
            return number(behind_hour ? moment.Minute : moment.Month);
        case 'y':
            if (part.Length == 2) return Padded(moment.Year % 100, 2);
            if (part.Length == 4) return Padded(moment.Year, 4);
            break;
        case 'h':
            return number(moment.Hour);
        case 'n':
            return number(moment.Minute);
        case 's':
            return number(moment.Second);
        default:
            break;
    }
    FailPattern(pattern, std::string(part.Length, part.Letter));
}

std::string FormatMoment(const Moment& moment, const std::vector<Part>& parts, std::string_view pattern) {
    std::string out;
    char last = 0;
    for (const Part& part : parts) {
        if (part.Letter == 0) {
            out += part.Text;
            continue;
        }
        out += DatePart(part, moment, last == 'h', pattern);
        last = part.Letter;
    }
    return out;
}

std::optional<Date> DateOf(const Value& value) {
    try {
        return value.AsDate();
    } catch (const Error&) {
        return std::nullopt;
    }
}

// ---- numbers -----------------------------------------------------------------------------------

/// Decimal digits of a number from 0 upward, rounded half up to `places` behind the point: the digits of the
/// shortest text that reads back the same decide, so 2.675 at two places is 2.68.
struct Decimal {
    std::string Whole;
    std::string Fraction;
};

Decimal Rounded(double number, std::size_t places) {
    char buffer[400];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed).ptr;
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    const auto point = text.find('.');
    Decimal out{std::string(text.substr(0, point)),
                point == std::string_view::npos ? "" : std::string(text.substr(point + 1))};
    const bool up = out.Fraction.size() > places && out.Fraction[places] >= '5';
    out.Fraction.resize(places, '0');
    if (!up) return out;
    auto digits = out.Whole + out.Fraction;
    auto at = digits.size();
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at > 0)
        ++digits[at - 1];
    else
        digits.insert(digits.begin(), '1');
    out.Whole = digits.substr(0, digits.size() - places);
    out.Fraction = digits.substr(digits.size() - places);
    return out;
}

std::string FormatNumber(double number, std::string_view places) {
    const auto point = places.find('.');
    const auto whole = places.substr(0, point);
    const auto fraction = point == std::string_view::npos ? std::string_view{} : places.substr(point + 1);
    auto decimal = Rounded(std::fabs(number), fraction.size());

    const auto least = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
    if (decimal.Whole == "0") decimal.Whole.clear();
    if (decimal.Whole.size() < least) decimal.Whole.insert(0, least - decimal.Whole.size(), '0');

    const auto last_fixed = fraction.rfind('0');
    const auto keep = last_fixed == std::string_view::npos ? 0 : last_fixed + 1;
    while (decimal.Fraction.size() > keep && decimal.Fraction.back() == '0') decimal.Fraction.pop_back();

    std::string out = decimal.Whole;
    if (point != std::string_view::npos) out += '.' + decimal.Fraction;
    const bool is_zero = out.find_first_of("123456789") == std::string::npos;
    return number < 0 && !is_zero ? '-' + out : out;
}

std::optional<double> NumberOf(const Value& value) {
    // A 32-bit float by its own digits: as a 64-bit one it would show others behind them.
    if (value.kind() == Kind::R4) return Value(value.Text()).R8();
    try {
        return value.R8();
    } catch (const Error&) {
        return std::nullopt;
    }
}

/// The pattern of a number: its places stand in one piece, what is before and behind is text.
std::string FormatByPlaces(double number, const std::string& text, std::string_view pattern) {
    const auto first = text.find_first_of("0#");
    if (first == std::string::npos) return text;
    const auto last = text.find_last_of("0#.");
    const auto begin = first > 0 && text[first - 1] == '.' ? first - 1 : first;
    const auto places = std::string_view(text).substr(begin, last - begin + 1);
    if (places.find_first_not_of("0#.") != std::string_view::npos ||
        std::count(places.begin(), places.end(), '.') > 1)
        FailPattern(pattern, places);
    return text.substr(0, begin) + FormatNumber(number, places) + text.substr(last + 1);
}

}  // namespace

std::string FormatValue(const Value& value, std::string_view pattern) {
    if (value.IsNull()) return {};
    if (pattern.empty()) return value.kind() == Kind::Date ? GermanDate(value.AsDate()) : value.Text();
    const auto parts = PartsOf(pattern);
    const bool is_date =
        std::any_of(parts.begin(), parts.end(), [](const Part& part) { return part.Letter != 0; });
    if (is_date) {
        const auto date = DateOf(value);
        // The letters are checked also where the value is no date.
        auto out = FormatMoment(date ? MomentOf(date->Iso) : Moment{}, parts, pattern);
        return date ? out : value.Text();
    }
    if (value.kind() == Kind::Date && pattern.find_first_of("0#") != std::string_view::npos)
        throw Error(ErrorNumber::TypeMismatch, "Format: the date '" + value.Text() +
                                                   "' has no places for the pattern '" +
                                                   std::string(pattern) + "'.");
    const auto number = NumberOf(value);
    if (!number) return value.Text();
    return FormatByPlaces(*number, parts.front().Text, pattern);
}

std::string GermanDate(const Date& date) {
    const std::string_view iso = date.Iso;
    if (!HasDay(iso)) return date.Iso;
    std::string out;
    out.append(iso.substr(8, 2)).append(".").append(iso.substr(5, 2)).append(".").append(iso.substr(0, 4));
    out.append(iso.substr(10));
    return out;
}

}  // namespace FX_Algen::store
