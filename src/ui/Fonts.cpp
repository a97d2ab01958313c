#include "ui/Fonts.h"

#include <QFontMetricsF>

namespace FX_Algen::ui {
namespace {

constexpr int PointsAnInch = 72;
constexpr double InchesAMetre = 1 / 0.0254;

}  // namespace

QFont PageFont(const charts::Font& font, int dpi) {
    QFont result(QStringLiteral("DejaVu Sans"));
    // Sizes in pixels are whole numbers there; sizes in points are not, and depend on the device.
    result.setPointSizeF(font.Points * PointsAnInch / dpi);
    result.setBold(font.Bold);
    result.setStyleHint(QFont::SansSerif);
    result.setHintingPreference(QFont::PreferNoHinting);
    // Spaced letters are never joined to one sign: a PDF whose "fi" is one sign is not found by "Profil". The
    // spacing itself is less than any device shows.
    result.setLetterSpacing(QFont::PercentageSpacing, 100.02);
    return result;
}

QString ToText(std::string_view utf8) {
    auto text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (auto& letter : text) {
        const auto code = letter.unicode();
        if (code < 0x20 || code == 0xfffe || code == 0xffff) letter = u' ';
    }
    return text;
}

PageFontMetrics::PageFontMetrics() : device_(1, 1, QImage::Format_RGB32) {
    const int dots = qRound(PointsAnInch * InchesAMetre);
    device_.setDotsPerMeterX(dots);
    device_.setDotsPerMeterY(dots);
}

double PageFontMetrics::Width(std::string_view text, const charts::Font& font) const {
    return QFontMetricsF(PageFont(font, PointsAnInch), &device_).horizontalAdvance(ToText(text));
}

double PageFontMetrics::Ascent(const charts::Font& font) const {
    return QFontMetricsF(PageFont(font, PointsAnInch), &device_).ascent();
}

double PageFontMetrics::Descent(const charts::Font& font) const {
    return QFontMetricsF(PageFont(font, PointsAnInch), &device_).descent();
}

}  // namespace FX_Algen::ui
