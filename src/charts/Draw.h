#pragma once

#include <string>
#include <vector>

#include "FX_Algen/Chart.h"

/// The pieces that charts are put together from.
namespace FX_Algen::charts {

inline double Right(const Rect& rect) { return rect.X + rect.Width; }
inline double Bottom(const Rect& rect) { return rect.Y + rect.Height; }

/// Black or white, whichever can be read better on a colour.
Colour ContrastOn(Colour ground);

/// Lines of text below each other; `y` is the top of the first one, `x` the side that `side` names.
void AddLines(std::vector<Element>& elements, const std::vector<std::string>& lines, double x, double y,
              Align side, const Font& font, Colour pen, const FontMetrics& metrics);

/// Lines of text that read upwards, side by side; `x` is the left edge of the first one, `y` the end that
/// `side` names: the lower one with Left, the upper one with Right.
void AddTurnedLines(std::vector<Element>& elements, const std::vector<std::string>& lines, double x, double y,
                    Align side, const Font& font, Colour pen, const FontMetrics& metrics);

/// A number whose digits have their middle at `y`.
void AddNumber(std::vector<Element>& elements, const std::string& text, double x, double y, Align side,
               const Font& font, Colour pen);

/// The same beside a bar, on white, so that no grid line crosses it.
void AddNumberOnGrid(std::vector<Element>& elements, const std::string& text, double x, double y, Align side,
                     const Font& font, const FontMetrics& metrics);

/// How a segment stands beside others.
enum class Standing : std::uint8_t {
    Alone,    ///< a bar
    InStack,  ///< a part of a bar
};

/// An area in the colour of a series, with its hatch and a thin dark outline, which a very thin part of a bar
/// lacks.
void AddSegment(std::vector<Element>& elements, const Rect& place, const std::vector<Series>& allSeries,
                std::size_t series, Standing standing);

/// Width of a segment that has room for a value inside.
double WidthForValue(const std::string& text, const FontMetrics& metrics);

/// Writes a value into a segment where it fits, over a hatch on a plate in the segment's own colour.
void AddValueInside(std::vector<Element>& elements, const Rect& place, const std::string& text,
                    const Series& series, const FontMetrics& metrics);

}  // namespace FX_Algen::charts
