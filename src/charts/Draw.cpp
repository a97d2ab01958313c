#include "charts/Draw.h"

#include <algorithm>
#include <cmath>

#include "charts/Hatch.h"
#include "charts/Style.h"
#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

/// Height of digits as a part of the font's size; they have nothing below the base line.
constexpr double kDigitHeight = 0.73;
/// What stays free around a value in its segment.
constexpr double kValuePadding = 1.5;
/// The same to the left and right, so that a digit on a plate does not drown in the hatch.
constexpr double kValueSidePadding = 2.5;
/// What stays free of grid lines around a value.
constexpr double kGridPadding = 0.8;

/// Luminance relative to white, 0 to 1, as IEC 61966-2-1 defines it for a screen.
double Luminance(Colour colour) {
    const auto linear = [](std::uint8_t part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.Red) + 0.7152 * linear(colour.Green) + 0.0722 * linear(colour.Blue);
}

}  // namespace

Colour ContrastOn(Colour ground) {
    // Contrast is (lighter + 0.05) / (darker + 0.05); both sides are equal at the square root of 1.05 * 0.05.
    return Luminance(ground) + 0.05 > std::sqrt(1.05 * 0.05) ? Colour{0, 0, 0} : Colour{255, 255, 255};
}

void AddLines(std::vector<Element>& elements, const std::vector<std::string>& lines, double x, double y,
              Align side, const Font& font, Colour pen, const FontMetrics& metrics) {
    double baseLine = y + metrics.Ascent(font);
    for (const std::string& line : lines) {
        elements.emplace_back(
            Label{.X = x, .Y = baseLine, .Text = line, .Type = font, .Pen = pen, .Side = side});
        baseLine += LineHeight(font, metrics);
    }
}

void AddTurnedLines(std::vector<Element>& elements, const std::vector<std::string>& lines, double x, double y,
                    Align side, const Font& font, Colour pen, const FontMetrics& metrics) {
    double baseLine = x + metrics.Ascent(font);
    for (const std::string& line : lines) {
        elements.emplace_back(Label{
            .X = baseLine, .Y = y, .Text = line, .Type = font, .Pen = pen, .Side = side, .Degrees = 90});
        baseLine += LineHeight(font, metrics);
    }
}

void AddNumber(std::vector<Element>& elements, const std::string& text, double x, double y, Align side,
               const Font& font, Colour pen) {
    elements.emplace_back(Label{.X = x,
                                .Y = y + kDigitHeight / 2 * font.Points,
                                .Text = text,
                                .Type = font,
                                .Pen = pen,
                                .Side = side});
}

void AddNumberOnGrid(std::vector<Element>& elements, const std::string& text, double x, double y, Align side,
                     const Font& font, const FontMetrics& metrics) {
    const double width = metrics.Width(text, font);
    const double height = kDigitHeight * font.Points;
    const double before = side == Align::Left ? 0 : side == Align::Right ? width : width / 2;
    elements.emplace_back(FilledArea{{x - before - kGridPadding, y - height / 2 - kGridPadding,
                                      width + 2 * kGridPadding, height + 2 * kGridPadding},
                                     Colour{255, 255, 255}});
    AddNumber(elements, text, x, y, side, font, kTextColour);
}

void AddSegment(std::vector<Element>& elements, const Rect& place, const std::vector<Series>& allSeries,
                std::size_t series, Standing standing) {
    const Series& drawn = allSeries[series];
    elements.emplace_back(FilledArea{place, PaletteColour(drawn.ColourNumber)});
    if (drawn.Hatched) {
        const Colour pen = PaletteColour(drawn.HatchColourNumber);
        for (const Stroke& line : HatchLines(place, HatchOf(allSeries, series), pen))
            elements.emplace_back(line);
    }
    if (standing == Standing::Alone || std::min(place.Width, place.Height) >= kLeastOutlined)
        elements.emplace_back(Outline{place, kOutlineColour, kOutlineWidth});
}

double WidthForValue(const std::string& text, const FontMetrics& metrics) {
    return metrics.Width(text, kValueFont) + 2 * kValueSidePadding + 2 * kOutlineWidth;
}

void AddValueInside(std::vector<Element>& elements, const Rect& place, const std::string& text,
                    const Series& series, const FontMetrics& metrics) {
    const double width = metrics.Width(text, kValueFont) + 2 * kValueSidePadding;
    const double height = kDigitHeight * kValueFont.Points + 2 * kValuePadding;
    if (WidthForValue(text, metrics) > place.Width || height > place.Height - 2 * kOutlineWidth) return;
    const Colour ground = PaletteColour(series.ColourNumber);
    const double x = place.X + place.Width / 2;
    const double y = place.Y + place.Height / 2;
    if (series.Hatched)
        elements.emplace_back(FilledArea{{x - width / 2, y - height / 2, width, height}, ground});
    AddNumber(elements, text, x, y, Align::Centre, kValueFont, ContrastOn(ground));
}

}  // namespace FX_Algen::charts
