#include "store/load/Cell.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "FX_Algen/Error.h"
#include "store/load/Problems.h"

namespace FX_Algen::store::load {
namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Without a plus sign, which the number parser does not know.
std::string_view WithoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+') text.remove_prefix(1);
    return text;
}

std::string Integer(std::string_view text, Kind kind, Cell& cell) {
    const std::string_view digits = WithoutPlus(Trimmed(text));
    std::int64_t number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (end != digits.data() + digits.size() || failure == std::errc::invalid_argument)
        return Quoted(text) + " is not a whole number";
    const bool small = kind == Kind::I2;
    const std::int64_t least =
        small ? std::numeric_limits<std::int16_t>::min() : std::numeric_limits<std::int32_t>::min();
    const std::int64_t most =
        small ? std::numeric_limits<std::int16_t>::max() : std::numeric_limits<std::int32_t>::max();
    if (failure != std::errc{} || number < least || number > most)
        return Quoted(text) + " does not fit " + std::string(KindName(kind)) + " (" + std::to_string(least) +
               " to " + std::to_string(most) + ")";
    cell.Is = Cell::Tag::Integer;
    cell.Integer = number;
    return {};
}

/// Whether a number begins here: words such as "nan" are none.
bool BeginsNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.');
}

template <class Float>
std::string Real(std::string_view text, bool decimalComma, Kind kind, Cell& cell) {
    std::string_view digits = WithoutPlus(Trimmed(text));
    std::string withPoint;
    if (decimalComma && std::count(digits.begin(), digits.end(), ',') == 1 &&
        digits.find('.') == digits.npos) {
        withPoint = digits;
        std::replace(withPoint.begin(), withPoint.end(), ',', '.');
        digits = withPoint;
    }
    Float number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (end != digits.data() + digits.size() || failure == std::errc::invalid_argument ||
        !BeginsNumber(digits))
        return Quoted(text) + " is not a number";
    if (failure != std::errc{}) return Quoted(text) + " does not fit " + std::string(KindName(kind));
    cell.Is = Cell::Tag::Real;
    cell.Real = static_cast<double>(number);
    return {};
}

std::string Boolean(std::string_view text, Cell& cell) {
    std::string word(Trimmed(text));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    const bool yes = word == "-1" || word == "1" || word == "true";
    if (!yes && word != "0" && word != "false")
        return Quoted(text) + " is not a boolean (-1, 0, 1, true or false)";
    cell.Is = Cell::Tag::Integer;
    cell.Integer = yes ? -1 : 0;
    return {};
}

std::optional<std::string> IsoText(std::string_view text) {
    try {
        return Value(text).AsDate().Iso;
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::string DayOrTime(std::string_view text, bool time, Cell& cell, std::deque<std::string>& buffers) {
    auto iso = IsoText(text);
    // A column of days needs a day, one of times none; a time of day has its colon at the third place.
    const bool startsWithTime = iso && iso->size() > 2 && (*iso)[2] == ':';
    if (!iso || startsWithTime != time)
        return Quoted(text) + (time ? " is not a time of day (09:30 or 09:30:00)"
                                    : " is not a day (2026-05-12 or 12.05.2026)");
    cell.Is = Cell::Tag::Text;
    cell.Text = *iso == text ? text : std::string_view(buffers.emplace_back(std::move(*iso)));
    return {};
}

std::string Text(std::string_view text, Cell& cell) {
    cell.Is = Cell::Tag::Text;
    cell.Text = text;
    return {};
}

}  // namespace

void Cell::BindTo(EngineStatement& statement, std::size_t index) const {
    switch (Is) {
        case Tag::Null:
            return statement.BindNull(index);
        case Tag::Integer:
            return statement.BindInteger(index, Integer);
        case Tag::Real:
            return statement.BindReal(index, Real);
        case Tag::Text:
            return statement.BindText(index, Text);
    }
}

std::string Cell::AsText() const {
    switch (Is) {
        case Tag::Integer:
            return std::to_string(Integer);
        case Tag::Real:
            return NumberText(Real);
        case Tag::Text:
            return Quoted(Text);
        case Tag::Null:
            break;
    }
    return "Null";
}

std::string Conversion::Convert(const CsvField& field, const TargetColumn& column, Cell& cell,
                                std::deque<std::string>& buffers) const {
    cell = Cell{};
    if (field.Fault != nullptr) return field.Fault;
    if (field.Text.empty() && !field.Quoted) return {};
    switch (column.Type) {
        case Kind::I2:
        case Kind::I4:
            return Integer(field.Text, column.Type, cell);
        case Kind::R4:
            return Real<float>(field.Text, DecimalComma, Kind::R4, cell);
        case Kind::R8:
            return Real<double>(field.Text, DecimalComma, Kind::R8, cell);
        case Kind::Bool:
            return Boolean(field.Text, cell);
        case Kind::Date:
            return DayOrTime(field.Text, column.HasTime, cell, buffers);
        case Kind::Text:
        case Kind::Null:
            break;
    }
    return Text(field.Text, cell);
}

}  // namespace FX_Algen::store::load
