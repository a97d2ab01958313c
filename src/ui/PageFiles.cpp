#include "ui/PageFiles.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <cmath>
#include <filesystem>
#include <limits>
#include <span>

#include "FX_Algen/Error.h"
#include "FX_Algen/ui/ChartWidget.h"
#include "ui/Application.h"
#include "ui/Fonts.h"

namespace FX_Algen::ui {
namespace {

constexpr double PointsAnInch = 72;
constexpr double PngDpi = 144;  ///< two dots a point: sharp in a report, and small enough to be sent
constexpr double PdfDpi = 1200;
constexpr double InchesAMetre = 1 / 0.0254;

QSize WholePoints(const charts::Page& page) {
    return {static_cast<int>(std::ceil(page.Width)), static_cast<int>(std::ceil(page.Height))};
}

QByteArray SvgOf(const TitledPage& titled) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    // One unit a point; the size in millimetres follows from both.
    generator.setResolution(static_cast<int>(PointsAnInch));
    const QSize size = WholePoints(titled.Page);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    // It goes into the markup as it stands.
    generator.setTitle(ToText(titled.Title).toHtmlEscaped());
    generator.setDescription(QStringLiteral("FX_Algen " FX_ALGEN_VERSION));
    QPainter painter(&generator);
    // As of paper: viewers may show it on a dark ground, on which dark letters cannot be read.
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    PaintPage(painter, titled.Page);
    painter.end();
    // Where the font is missing, one as wide takes its place; quotes within texts are escaped, so that no
    // text looks like this.
    return bytes.replace(R"(font-family="DejaVu Sans")", R"(font-family="DejaVu Sans, Verdana, sans-serif")");
}

QByteArray PngOf(const TitledPage& titled) {
    const double dotsAPoint = PngDpi / PointsAnInch;
    const double width = std::ceil(titled.Page.Width * dotsAPoint);
    const double height = std::ceil(titled.Page.Height * dotsAPoint);
    constexpr double most = std::numeric_limits<std::int16_t>::max();
    QImage image;
    if (width <= most && height <= most)
        image = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull())
        throw Error(ErrorNumber::Overflow,
                    "Pictures: a page of " + std::to_string(titled.Page.Width) + " by " +
                        std::to_string(titled.Page.Height) +
                        " points is too large for PNG. Choose a smaller page, SVG or PDF.");
    image.setDotsPerMeterX(qRound(PngDpi * InchesAMetre));
    image.setDotsPerMeterY(qRound(PngDpi * InchesAMetre));
    image.setText(QStringLiteral("Title"), ToText(titled.Title));
    image.setText(QStringLiteral("Software"), QStringLiteral("FX_Algen " FX_ALGEN_VERSION));
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(dotsAPoint, dotsAPoint);
    PaintPage(painter, titled.Page);
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QPageLayout PdfLayout(const charts::Page& page) {
    const QPageSize size(QSizeF(page.Width, page.Height), QPageSize::Point, QString(), QPageSize::ExactMatch);
    QPageLayout layout(size, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

QByteArray PdfOf(std::span<const TitledPage> pages) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(static_cast<int>(PdfDpi));
    writer.setTitle(ToText(pages.front().Title));
    writer.setCreator(QStringLiteral("FX_Algen " FX_ALGEN_VERSION));
    writer.setPageLayout(PdfLayout(pages.front().Page));
    QPainter painter(&writer);
    bool first = true;
    for (const auto& titled : pages) {
        if (!first) {
            writer.setPageLayout(PdfLayout(titled.Page));
            writer.newPage();
        }
        first = false;
        painter.resetTransform();
        painter.scale(PdfDpi / PointsAnInch, PdfDpi / PointsAnInch);
        PaintPage(painter, titled.Page);
    }
    painter.end();
    return bytes;
}

[[noreturn]] void FailAt(const std::string& path, const std::string& reason, const std::string& advice) {
    throw Error(ErrorNumber::FileNotFound,
                "Pictures: '" + path + "' cannot be written: " + reason + ". " + advice + ".");
}

/// Puts the bytes in place of the file in one step.
void Save(const std::string& path, const QByteArray& bytes) {
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        FailAt(path, file.errorString().toStdString(),
               "Name a place where files can be made and that has room, or change the rights of the folder");
}

}  // namespace

std::vector<std::string> PagePaths(const std::string& path, PictureFormat format, std::size_t pages) {
    if (pages == 0) return {};
    std::vector<std::string> paths{path};
    if (format == PictureFormat::Pdf) return paths;
    const auto ending = std::filesystem::path(path).extension().string();
    const auto name = path.substr(0, path.size() - ending.size());
    for (std::size_t page = 2; page <= pages; ++page)
        paths.push_back(name + "-" + std::to_string(page) + ending);
    return paths;
}

void CheckPlace(const std::string& path) {
    const QFileInfo place(QString::fromStdString(path));
    const auto folder = place.absolutePath().toStdString();
    const QFileInfo above(place.absolutePath());
    if (!above.exists())
        FailAt(path, "there is no folder '" + folder + "'", "Make the folder or name another one");
    if (!above.isDir()) FailAt(path, "'" + folder + "' is no folder", "Name another place");
    if (place.isDir()) FailAt(path, "a folder has this name", "Name another file");
    if (!above.isWritable())
        FailAt(path, "no file can be made in '" + folder + "'",
               "Change the rights of the folder or name another one");
}

std::vector<std::string> WritePages(const std::vector<TitledPage>& pages, PictureFormat format,
                                    const std::string& path) {
    NeedApplication();
    CheckPlace(path);
    const auto paths = PagePaths(path, format, pages.size());
    if (format == PictureFormat::Pdf) {
        if (!pages.empty()) Save(path, PdfOf(pages));
        return paths;
    }
    for (std::size_t page = 0; page < pages.size(); ++page)
        Save(paths[page], format == PictureFormat::Svg ? SvgOf(pages[page]) : PngOf(pages[page]));
    return paths;
}

}  // namespace FX_Algen::ui
