#include "store/dialect/Dates.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>

namespace FX_Algen::store::dialect {

namespace {

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::optional<int> Digits(std::string_view text, std::size_t most) {
    if (text.empty() || text.size() > most) return std::nullopt;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
    }
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Up to three pieces between separators; nothing where there are more.
struct Pieces {
    std::array<std::string_view, 3> Text;
    std::size_t Count = 0;
};

std::optional<Pieces> Split(std::string_view text, char separator) {
    Pieces pieces;
    while (true) {
        if (pieces.Count == pieces.Text.size()) return std::nullopt;
        const std::size_t at = text.find(separator);
        pieces.Text[pieces.Count++] = text.substr(0, at);
        if (at == std::string_view::npos) return pieces;
        text.remove_prefix(at + 1);
    }
}

std::string Padded(int number, std::size_t width) {
    std::string text = std::to_string(number);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

std::optional<std::string> IsoDay(std::string_view text) {
    const auto pieces = Split(text, '/');
    if (!pieces || pieces->Count != 3 || pieces->Text[2].size() != 4) return std::nullopt;
    const auto month = Digits(pieces->Text[0], 2);
    const auto day = Digits(pieces->Text[1], 2);
    const auto year = Digits(pieces->Text[2], 4);
    if (!month || !day || !year) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(*year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok()) return std::nullopt;
    return Padded(*year, 4) + "-" + Padded(*month, 2) + "-" + Padded(*day, 2);
}

std::optional<std::string> IsoTime(std::string_view text) {
    const auto pieces = Split(text, ':');
    if (!pieces || pieces->Count < 2) return std::nullopt;
    const auto hour = Digits(pieces->Text[0], 2);
    const auto minute = Digits(pieces->Text[1], 2);
    const auto second = pieces->Count == 3 ? Digits(pieces->Text[2], 2) : std::optional<int>(0);
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    return Padded(*hour, 2) + ":" + Padded(*minute, 2) + ":" + Padded(*second, 2);
}

}  // namespace

std::optional<std::string> IsoDate(std::string_view text) {
    text = Trimmed(text);
    if (text.find('/') == std::string_view::npos) return IsoTime(text);
    const std::size_t blank = text.find(' ');
    const auto day = IsoDay(text.substr(0, blank));
    if (!day || blank == std::string_view::npos) return day;
    const auto time = IsoTime(Trimmed(text.substr(blank)));
    if (!time) return std::nullopt;
    // Midnight is the day itself, and a time of the day zero is the time alone.
    if (*time == "00:00:00") return day;
    if (*day == "1899-12-30") return time;
    return *day + " " + *time;
}

}  // namespace FX_Algen::store::dialect
