#include "charts/Numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "FX_Algen/Runden.h"
#include "FX_Algen/Texts.h"

namespace FX_Algen::charts {

namespace {

constexpr int kMostDecimals = 6;
constexpr double kPowersFrom = 1e15;

std::string WithMark(std::string number, std::int16_t SprachID) {
    if (SprachID < Language::English) std::replace(number.begin(), number.end(), '.', ',');
    return number;
}

}  // namespace

std::string NumberText(double value, int decimals, std::int16_t SprachID) {
    if (std::abs(value) >= kPowersFrom) return WithMark(fmt::format("{:.6g}", value), SprachID);
    const double rounded = Allgemein::Runden(value, static_cast<std::int16_t>(decimals));
    return WithMark(fmt::format("{:.{}f}", rounded, decimals), SprachID);
}

std::string ValueText(double value, bool wholeNumbers, std::int16_t SprachID) {
    if (wholeNumbers || value == 0) return NumberText(value, 0, SprachID);
    for (int decimals = 1; decimals <= kMostDecimals; ++decimals)
        if (Allgemein::Runden(value, static_cast<std::int16_t>(decimals)) != 0)
            return NumberText(value, decimals, SprachID);
    return WithMark(fmt::format("{:.1g}", value), SprachID);
}

}  // namespace FX_Algen::charts
