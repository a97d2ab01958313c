#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "FX_Algen/Chart.h"

/// Fonts that are easily computed with: every letter is 0.6 of the size wide, 0.8 above and 0.2 below the
/// base line. An umlaut is one letter; bold is a tenth wider.
namespace FX_Algen::charts::test {

inline std::size_t Letters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

class PlainMetrics : public FontMetrics {
public:
    double Width(std::string_view text, const Font& font) const override {
        return 0.6 * font.Points * (font.Bold ? 1.1 : 1.0) * static_cast<double>(Letters(text));
    }
    double Ascent(const Font& font) const override { return 0.8 * font.Points; }
    double Descent(const Font& font) const override { return 0.2 * font.Points; }
};

/// All elements of one kind, in their order.
template <typename Kind>
std::vector<Kind> All(const Page& page) {
    std::vector<Kind> found;
    for (const Element& element : page.Elements)
        if (const auto* kind = std::get_if<Kind>(&element)) found.push_back(*kind);
    return found;
}

/// What a text covers.
inline Rect BoxOf(const Label& label, const FontMetrics& metrics) {
    const double width = metrics.Width(label.Text, label.Type);
    const double before = label.Side == Align::Left ? 0 : label.Side == Align::Centre ? width / 2 : width;
    const double ascent = metrics.Ascent(label.Type);
    const double height = ascent + metrics.Descent(label.Type);
    // Turned by 90 degrees against the clock, a text runs upwards and its letters stand to the left.
    if (label.Degrees == 90) return {label.X - ascent, label.Y + before - width, height, width};
    return {label.X - before, label.Y - ascent, width, height};
}

/// What a line covers, with the corners of its flat ends.
inline Rect BoxOf(const Stroke& line) {
    const double length = std::hypot(line.X2 - line.X1, line.Y2 - line.Y1);
    const double dx = length == 0 ? 0 : std::abs(line.Y2 - line.Y1) / length * line.PenWidth / 2;
    const double dy = length == 0 ? 0 : std::abs(line.X2 - line.X1) / length * line.PenWidth / 2;
    const double left = std::min(line.X1, line.X2) - dx;
    const double top = std::min(line.Y1, line.Y2) - dy;
    return {left, top, std::abs(line.X2 - line.X1) + 2 * dx, std::abs(line.Y2 - line.Y1) + 2 * dy};
}

inline Rect BoxOf(const Element& element, const FontMetrics& metrics) {
    if (const auto* label = std::get_if<Label>(&element)) return BoxOf(*label, metrics);
    if (const auto* line = std::get_if<Stroke>(&element)) return BoxOf(*line);
    if (const auto* outline = std::get_if<Outline>(&element)) return outline->Place;
    return std::get<FilledArea>(element).Place;
}

inline bool Inside(const Rect& inner, const Rect& outer, double tolerance) {
    return inner.X >= outer.X - tolerance && inner.Y >= outer.Y - tolerance &&
           inner.X + inner.Width <= outer.X + outer.Width + tolerance &&
           inner.Y + inner.Height <= outer.Y + outer.Height + tolerance;
}

inline bool Overlap(const Rect& a, const Rect& b, double tolerance) {
    return a.X + a.Width > b.X + tolerance && b.X + b.Width > a.X + tolerance &&
           a.Y + a.Height > b.Y + tolerance && b.Y + b.Height > a.Y + tolerance;
}

/// All texts of a page in their order, without blanks: wrapping may take blanks away, but nothing else.
inline std::string Joined(const std::vector<Page>& pages) {
    std::string all;
    for (const Page& page : pages)
        for (const Label& label : All<Label>(page)) all += label.Text;
    std::erase(all, ' ');
    return all;
}

inline std::string WithoutBlanks(std::string text) {
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    return text;
}

/// The eight classes of the saprobic valences.
inline std::vector<Series> Valences() {
    return {{15, false, 0, "xenosaprob"}, {9, false, 0, "oligosaprob"},
            {10, true, 9, "oligo-beta"},  {10, false, 0, "beta-mesosaprob"},
            {10, true, 14, "beta-alpha"}, {14, false, 0, "alpha-mesosaprob"},
            {12, true, 14, "alpha-poly"}, {12, false, 0, "polysaprob"}};
}

/// The seven quality classes.
inline std::vector<Series> QualityClasses() {
    return {{9, false, 0, "I"},    {10, true, 9, "I-II"},    {10, false, 0, "II"}, {10, true, 14, "II-III"},
            {14, false, 0, "III"}, {12, true, 14, "III-IV"}, {12, false, 0, "IV"}};
}

}  // namespace FX_Algen::charts::test
