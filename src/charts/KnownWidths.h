#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "FX_Algen/Chart.h"

namespace FX_Algen::charts {

/// The metrics of a painter that measure each text once. A layout tries out sizes, numbers of sites and
/// lengths of lines and so asks for the same texts again and again, while a toolkit takes its time to shape
/// one.
class KnownWidths : public FontMetrics {
public:
    explicit KnownWidths(const FontMetrics& metrics) : metrics_(metrics) {}

    double Width(std::string_view text, const Font& font) const override {
        Widths& known = known_[{font.Points, font.Bold}];
        const auto at = known.find(text);
        if (at != known.end()) return at->second;
        return known.emplace(text, metrics_.Width(text, font)).first->second;
    }
    double Ascent(const Font& font) const override { return Lines(font).first; }
    double Descent(const Font& font) const override { return Lines(font).second; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    using Widths = std::unordered_map<std::string, double, Hash, std::equal_to<>>;
    using FontKey = std::pair<double, bool>;

    const std::pair<double, double>& Lines(const Font& font) const {
        const FontKey key{font.Points, font.Bold};
        const auto at = lines_.find(key);
        if (at != lines_.end()) return at->second;
        return lines_.emplace(key, std::pair{metrics_.Ascent(font), metrics_.Descent(font)}).first->second;
    }

    const FontMetrics& metrics_;
    mutable std::map<FontKey, Widths> known_;
    mutable std::map<FontKey, std::pair<double, double>> lines_;
};

}  // namespace FX_Algen::charts
