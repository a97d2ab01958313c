#include "FX_Algen/Value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "FX_Algen/Error.h"

namespace FX_Algen::store {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool EqualAscii(std::string_view a, std::string_view lower) {
    return std::equal(a.begin(), a.end(), lower.begin(), lower.end(), [](char x, char y) {
        return (x >= 'A' && x <= 'Z' ? static_cast<char>(x - 'A' + 'a') : x) == y;
    });
}

[[noreturn]] void FailMismatch(const Value& value, Kind wanted) {
    throw Error(ErrorNumber::TypeMismatch,
                "Type mismatch: '" + value.Text() + "' is not " + std::string(KindName(wanted)) + ".");
}

[[noreturn]] void FailNull(Kind wanted) {
    throw Error(ErrorNumber::InvalidUseOfNull,
                "Invalid use of Null: " + std::string(KindName(wanted)) + " is needed.");
}

[[noreturn]] void FailOverflow(const std::string& number, Kind wanted) {
    throw Error(ErrorNumber::Overflow,
                "Overflow: " + number + " does not fit " + std::string(KindName(wanted)) + ".");
}

std::optional<double> ParseNumber(std::string_view text) {
    text = Trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double result = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), result);
    if (failure != std::errc{} || end != text.data() + text.size() || !std::isfinite(result))
        return std::nullopt;
    return result;
}

/// The integer next to `v`, halves to the even one.
template <class Integer>
Integer ToInteger(double v, Kind wanted) {
    // nearbyint rounds half to even in the default rounding mode, which nothing here changes.
    const double whole = std::nearbyint(v);
    if (!(whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<Integer>::max())))
        FailOverflow(NumberText(v), wanted);
    return static_cast<Integer>(whole);
}

float ToFloat(double v) {
    const auto result = static_cast<float>(v);
    if (!std::isfinite(result)) FailOverflow(NumberText(v), Kind::R4);
    return result;
}

// ---- dates -------------------------------------------------------------------------------------

bool ReadDigits(std::string_view& text, std::size_t least, std::size_t most, int& out) {
    std::size_t n = 0;
    out = 0;
    while (n < most && n < text.size() && text[n] >= '0' && text[n] <= '9')
        out = out * 10 + (text[n++] - '0');
    if (n < least) return false;
    text.remove_prefix(n);
    return true;
}

bool ReadChar(std::string_view& text, char c) {
    if (text.empty() || text.front() != c) return false;
    text.remove_prefix(1);
    return true;
}

void AppendPadded(std::string& out, int number, std::size_t width) {
    const auto digits = std::to_string(number);
    out.append(width > digits.size() ? width - digits.size() : 0, '0');
    out += digits;
}

bool IsDay(int year, int month, int day) {
    constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return day <= lengths[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
}

/// "2026-05-12" or "12.05.2026" at the front of `text`, as ISO text.
std::optional<std::string> ReadDay(std::string_view& text) {
    int first = 0, month = 0, last = 0;
    auto rest = text;
    bool iso = true;
    if (!ReadDigits(rest, 1, 4, first)) return std::nullopt;
    if (ReadChar(rest, '-')) {
        if (!ReadDigits(rest, 1, 2, month) || !ReadChar(rest, '-') || !ReadDigits(rest, 1, 2, last))
            return std::nullopt;
    } else if (ReadChar(rest, '.')) {
        iso = false;
        if (!ReadDigits(rest, 1, 2, month) || !ReadChar(rest, '.') || !ReadDigits(rest, 4, 4, last))
            return std::nullopt;
    } else {
        return std::nullopt;
    }
    const int year = iso ? first : last;
    const int day = iso ? last : first;
    if (!IsDay(year, month, day)) return std::nullopt;
    std::string out;
    AppendPadded(out, year, 4);
    out += '-';
    AppendPadded(out, month, 2);
    out += '-';
    AppendPadded(out, day, 2);
    text = rest;
    return out;
}

/// "9:30" or "09:30:15" at the front of `text`, as ISO text.
std::optional<std::string> ReadTime(std::string_view& text) {
    int hour = 0, minute = 0, second = 0;
    auto rest = text;
    if (!ReadDigits(rest, 1, 2, hour) || !ReadChar(rest, ':') || !ReadDigits(rest, 2, 2, minute))
        return std::nullopt;
    if (ReadChar(rest, ':') && !ReadDigits(rest, 2, 2, second)) return std::nullopt;
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    std::string out;
    AppendPadded(out, hour, 2);
    out += ':';
    AppendPadded(out, minute, 2);
    out += ':';
    AppendPadded(out, second, 2);
    text = rest;
    return out;
}

std::optional<Date> ParseDate(std::string_view text) {
    text = Trimmed(text);
    Date out;
    auto day = ReadDay(text);
    if (day) {
        out.Iso = *day;
        if (text.empty()) return out;
        if (!ReadChar(text, ' ') && !ReadChar(text, 'T')) return std::nullopt;
        out.Iso += ' ';
    }
    const auto time = ReadTime(text);
    if (!time || !text.empty()) return std::nullopt;
    // Midnight is the day itself, and a time of the day zero is the time alone.
    if (day && *time == "00:00:00") return Date{*day};
    if (day && *day == "1899-12-30") return Date{*time};
    out.Iso += *time;
    return out;
}

}  // namespace

std::string_view KindName(Kind kind) {
    switch (kind) {
        case Kind::Null:
            return "Null";
        case Kind::I2:
            return "a 16-bit integer";
        case Kind::I4:
            return "a 32-bit integer";
        case Kind::R4:
            return "a 32-bit float";
        case Kind::R8:
            return "a number";
        case Kind::Bool:
            return "true or false";
        case Kind::Text:
            return "a text";
        case Kind::Date:
            return "a date or time";
    }
    return "";
}

std::string NumberText(std::int32_t v) { return std::to_string(v); }

std::string NumberText(double v) {
    if (v == 0) return "0";  // also for the negative zero
    std::array<char, 400> buffer{};
    const double size = std::fabs(v);
    // Plain digits as long as they stay readable, an exponent beyond.
    const auto format =
        size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), v, format);
    return {buffer.data(), result.ptr};
}

namespace {

/// The shortest text of `v` with an exponent; where it has more than `most` digits, rounded to them.
std::string ShortText(float v, int most) {
    if (!std::isfinite(v)) return NumberText(static_cast<double>(v));
    std::array<char, 64> buffer{};
    auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), v, std::chars_format::scientific);
    const std::string_view shortest(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    const auto mantissa = shortest.substr(0, shortest.find('e'));
    if (std::count_if(mantissa.begin(), mantissa.end(), [](char c) { return c >= '0' && c <= '9'; }) > most)
        result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), v, std::chars_format::scientific,
                               most - 1);
    double digits = 0;
    std::from_chars(buffer.data(), result.ptr, digits);
    return NumberText(digits);
}

}  // namespace

std::string NumberText(float v) { return ShortText(v, 7); }

std::string ExactText(float v) { return ShortText(v, 9); }

double Value::R8() const {
    switch (kind()) {
        case Kind::Null:
            FailNull(Kind::R8);
        case Kind::I2:
            return std::get<std::int16_t>(data_);
        case Kind::I4:
            return std::get<std::int32_t>(data_);
        case Kind::R4:
            return std::get<float>(data_);
        case Kind::R8:
            return std::get<double>(data_);
        case Kind::Bool:
            return std::get<bool>(data_) ? -1 : 0;
        case Kind::Text:
            if (const auto number = ParseNumber(std::get<std::string>(data_))) return *number;
            [[fallthrough]];
        case Kind::Date:
            break;
    }
    FailMismatch(*this, Kind::R8);
}

std::int16_t Value::I2() const {
    if (const auto* v = std::get_if<std::int16_t>(&data_)) return *v;
    if (IsNull()) FailNull(Kind::I2);
    return ToInteger<std::int16_t>(R8(), Kind::I2);
}

std::int32_t Value::I4() const {
    if (const auto* v = std::get_if<std::int32_t>(&data_)) return *v;
    if (IsNull()) FailNull(Kind::I4);
    return ToInteger<std::int32_t>(R8(), Kind::I4);
}

float Value::R4() const {
    if (const auto* v = std::get_if<float>(&data_)) return *v;
    if (IsNull()) FailNull(Kind::R4);
    return ToFloat(R8());
}

bool Value::Bool() const {
    if (const auto* v = std::get_if<bool>(&data_)) return *v;
    if (IsNull()) FailNull(Kind::Bool);
    if (const auto* text = TextOrNull()) {
        if (EqualAscii(Trimmed(*text), "true")) return true;
        if (EqualAscii(Trimmed(*text), "false")) return false;
        if (!ParseNumber(*text)) FailMismatch(*this, Kind::Bool);
    }
    return R8() != 0;
}

std::string Value::Text() const {
    switch (kind()) {
        case Kind::Null:
            FailNull(Kind::Text);
        case Kind::I2:
            return NumberText(std::int32_t{std::get<std::int16_t>(data_)});
        case Kind::I4:
            return NumberText(std::get<std::int32_t>(data_));
        case Kind::R4:
            return NumberText(std::get<float>(data_));
        case Kind::R8:
            return NumberText(std::get<double>(data_));
        case Kind::Bool:
            return std::get<bool>(data_) ? "-1" : "0";
        case Kind::Text:
            return std::get<std::string>(data_);
        case Kind::Date:
            return std::get<Date>(data_).Iso;
    }
    return {};
}

Date Value::AsDate() const {
    if (IsNull()) FailNull(Kind::Date);
    if (const auto* date = std::get_if<Date>(&data_)) return *date;
    if (const auto* text = TextOrNull())
        if (auto date = ParseDate(*text)) return *std::move(date);
    FailMismatch(*this, Kind::Date);
}

Value Value::As(Kind kind) const {
    if (IsNull() || kind == Kind::Null || kind == this->kind()) return *this;
    switch (kind) {
        case Kind::I2:
            return I2();
        case Kind::I4:
            return I4();
        case Kind::R4:
            return R4();
        case Kind::R8:
            return R8();
        case Kind::Bool:
            return Bool();
        case Kind::Text:
            return Text();
        case Kind::Date:
            return AsDate();
        case Kind::Null:
            break;
    }
    return *this;
}

}  // namespace FX_Algen::store
