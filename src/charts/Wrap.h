#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Chart.h"

/// Texts in lines of a given width.
namespace FX_Algen::charts {

/// The lines of a text, none wider than `width`. Breaks stand at blanks, behind a hyphen or slash in front of
/// a letter and at "\n"; a word that is wider than a line is broken between letters, never inside one (an
/// umlaut is one letter, also where it is written with a combining mark). Nothing is added, only the blanks
/// at breaks go. A line holds at least one letter, however narrow it is. An empty text has no lines.
std::vector<std::string> WrapText(std::string_view text, double width, const Font& font,
                                  const FontMetrics& metrics);

/// Width of the widest piece that `WrapText` keeps together: a narrower line breaks a word.
double WidestWord(std::string_view text, const Font& font, const FontMetrics& metrics);

/// Width of the widest line.
double WidestLine(const std::vector<std::string>& lines, const Font& font, const FontMetrics& metrics);

/// Distance of the base lines of two lines of text.
double LineHeight(const Font& font, const FontMetrics& metrics);

/// Height of that many lines of text, from the highest letter of the first to the lowest of the last one.
double TextHeight(std::size_t lines, const Font& font, const FontMetrics& metrics);

}  // namespace FX_Algen::charts
