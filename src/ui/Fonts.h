#pragma once

#include <QFont>
#include <QImage>
#include <string_view>

#include "FX_Algen/Chart.h"

namespace FX_Algen::ui {

/// The font of pages, so that it is `font.Points` units high on a painter or device of `dpi`. Named, since
/// pages would break differently from machine to machine, and without hinting, since letters would have other
/// widths on each kind of device.
QFont PageFont(const charts::Font& font, int dpi);

/// A text as it is drawn: signs that have no picture, and that no SVG may hold, are blanks.
QString ToText(std::string_view utf8);

/// Measures texts as `PaintPage` draws them, on whatever device. Needs the toolkit's application.
class PageFontMetrics final : public charts::FontMetrics {
public:
    PageFontMetrics();

    double Width(std::string_view text, const charts::Font& font) const override;
    double Ascent(const charts::Font& font) const override;
    double Descent(const charts::Font& font) const override;

private:
    QImage device_;  ///< one unit a point, whatever the screen
};

}  // namespace FX_Algen::ui
