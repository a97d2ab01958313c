#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Charts without a toolkit: what a chart shows, and the drawing of its pages as plain lines, areas and texts
/// that any painter can put on a window or a page.
///
/// Lengths are points (1/72 inch) from the upper left corner of a page, x to the right and y downwards.
namespace FX_Algen::charts {

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

/// The colour of a number of `Grafik_Balkenfarbe` and `Grafik_Balkenmusterfarbe`, 0 to 15. The bright colours
/// of the classes are graded in lightness, so that they can be told apart in grey and without telling red
/// from green. Fails with 381 outside.
Colour PaletteColour(std::int16_t number);

enum class ChartKind : std::uint8_t {
    Stacked,     ///< one bar a site, its values on top of each other
    Grouped,     ///< as many bars a site as there are series, side by side
    Horizontal,  ///< one bar a site from left to right, the first site on top
};

/// One series: the values of one class at all sites.
struct Series {
    std::int16_t ColourNumber = 0;       ///< of the palette
    bool Hatched = false;                ///< drawn with a hatch over the colour
    std::int16_t HatchColourNumber = 0;  ///< of the palette; of no meaning without a hatch
    std::string Legend;                  ///< text of the legend
};

/// One bar or group of bars: a sampling site, in a dominance chart a taxon.
struct Site {
    std::string Label;
    /// One value a series, in their order; absent where there is none (Null).
    std::vector<std::optional<double>> Values;
};

/// What a chart shows. All texts are in one language already.
struct Chart {
    ChartKind Kind = ChartKind::Stacked;
    std::string Title;
    std::string Subtitle;   ///< such as the site of a dominance chart; empty: none
    std::string AxisTitle;  ///< what the values are, with their unit
    /// End of the value axis (10 for valences); absent: by the values. A bar that is longer by no more than
    /// rounding (0.5 %) ends there, a longer one makes the axis longer.
    std::optional<double> AxisEnd;
    bool WholeNumbers = false;      ///< values are counts: no decimals at axis and bars
    std::vector<Series> AllSeries;  ///< one of them and no legend text: no legend is drawn
    std::int16_t LegendLines = 2;
    std::vector<Site> Sites;
    std::vector<std::string> Footnotes;  ///< such as that results are out of date
    std::string Empty;                   ///< what a chart without sites says
    std::int16_t SprachID = 10000;       ///< for the decimal mark and the page number
};

struct Font {
    double Points = 9;
    bool Bold = false;
    friend bool operator==(const Font&, const Font&) = default;
};

/// What the layout must know of the painter's fonts. All lengths are points.
class FontMetrics {
public:
    virtual ~FontMetrics() = default;
    /// Width of a line of text (UTF-8).
    virtual double Width(std::string_view text, const Font& font) const = 0;
    /// From the base line to the top of the highest letter.
    virtual double Ascent(const Font& font) const = 0;
    /// From the base line to the bottom of the lowest letter.
    virtual double Descent(const Font& font) const = 0;
};

struct Rect {
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

struct FilledArea {
    Rect Place;
    Colour Fill;
};

struct Outline {
    Rect Place;
    Colour Pen;
    double PenWidth = 0.5;
};

/// A line with flat ends. Hatches are such lines, cut at the edges of their bar already, since not every
/// picture format knows clipping.
struct Stroke {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    Colour Pen;
    double PenWidth = 0.5;
};

enum class Align : std::uint8_t { Left, Centre, Right };

/// One line of text. (X, Y) is the point of the base line at which it begins, has its middle or ends;
/// turned about that point by `Degrees` against the clock.
struct Label {
    double X = 0;
    double Y = 0;
    std::string Text;
    Font Type;
    Colour Pen;
    Align Side = Align::Left;
    double Degrees = 0;
};

using Element = std::variant<FilledArea, Outline, Stroke, Label>;

/// Where a value is drawn, for tooltips and for a person who points at a bar.
struct DrawnBar {
    Rect Place;
    std::size_t Site = 0;    ///< position in `Chart::Sites`
    std::size_t Series = 0;  ///< position in `Chart::AllSeries`
    double Value = 0;
};

/// One page: its elements in the order in which they are painted, later ones on top.
struct Page {
    double Width = 0;
    double Height = 0;
    std::vector<Element> Elements;
    std::vector<DrawnBar> Bars;
};

/// Size of a page in points and the margin that stays free.
struct PageSize {
    double Width = 842;  ///< A4 across
    double Height = 595;
    double Margin = 36;
};

/// The pages of a chart: title, legend, axes, bars and labels, so many sites on each that labels and bars
/// can be read; every page has title, legend and the same value axis. No text is cut: long labels are
/// wrapped, and the bars make room. A chart without sites has one page that says so.
std::vector<Page> Layout(const Chart& chart, const FontMetrics& metrics, const PageSize& size = {});

}  // namespace FX_Algen::charts
