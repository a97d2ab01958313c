#include <gtest/gtest.h>
#include <unistd.h>

#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <cstdlib>
#include <fstream>

#include "FX_Algen/Error.h"
#include "Samples.h"
#include "ui/Fonts.h"
#include "ui/PageFiles.h"

namespace FX_Algen::ui {
namespace {

using namespace samples;
using charts::Align;
using charts::FilledArea;
using charts::Label;
using charts::Stroke;

using Texts = std::vector<std::string>;

charts::Page BarPage(const std::string& name) {
    auto page = PageOf({FilledArea{{20, 10, 30, 40}, Red}, Stroke{20, 50, 50, 10, Blue, 1},
                        Label{100, 60, name, {9, false}, Black, Align::Centre, 0},
                        Label{180, 90, "Größe", {9, true}, Black, Align::Left, 90}});
    page.Width = 300;
    return page;
}

TitledPage Titled(const std::string& name) { return {"Übersicht " + name, BarPage(name)}; }

/// What the tests ask of an SVG file.
struct Svg {
    QString Title;
    QString Width;
    QString Height;
    QRectF ViewBox;
    QStringList Texts;
    QStringList Fonts;
    std::vector<QRectF> Rects;
    QString Failure;
};

QRectF NumbersRect(const QString& text) {
    const auto parts = text.split(u' ');
    return parts.size() == 4
               ? QRectF(parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble(), parts[3].toDouble())
               : QRectF();
}

Svg ReadSvg(const std::string& path) {
    Svg svg;
    QXmlStreamReader reader(Bytes(path));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        const auto attributes = reader.attributes();
        const auto value = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
        if (reader.name() == u"svg") {
            svg.Width = value("width");
            svg.Height = value("height");
            svg.ViewBox = NumbersRect(value("viewBox"));
        } else if (reader.name() == u"title") {
            svg.Title = reader.readElementText();
        } else if (reader.name() == u"text") {
            svg.Fonts << value("font-family") + u' ' + value("font-size");
            svg.Texts << reader.readElementText();
        } else if (reader.name() == u"rect") {
            svg.Rects.emplace_back(value("x").toDouble(), value("y").toDouble(), value("width").toDouble(),
                                   value("height").toDouble());
        }
    }
    svg.Failure = reader.errorString();
    return svg;
}

TEST(SvgFile, has_size_title_and_texts_as_text) {
    const Folder folder;
    const auto path = folder / "güte.svg";
    EXPECT_EQ(WritePages({Titled("Wöchnerin")}, PictureFormat::Svg, path), Texts{path});
    const auto svg = ReadSvg(path);
    EXPECT_EQ(svg.Failure, QString());
    EXPECT_EQ(svg.Title, QStringLiteral("Übersicht Wöchnerin"));
    EXPECT_EQ(svg.ViewBox, QRectF(0, 0, 300, 100));
    // 300 pt = 300/72*25.4 mm = 105.833 mm, 100 pt = 35.278 mm
    EXPECT_TRUE(svg.Width.endsWith(u"mm")) << svg.Width.toStdString();
    EXPECT_NEAR(svg.Width.chopped(2).toDouble(), 105.833, 0.01);
    EXPECT_NEAR(svg.Height.chopped(2).toDouble(), 35.278, 0.01);
    EXPECT_EQ(svg.Texts, (QStringList{QStringLiteral("Wöchnerin"), QStringLiteral("Größe")}));
    EXPECT_EQ(svg.Fonts, QStringList(2, QStringLiteral("DejaVu Sans, Verdana, sans-serif 9")));
}

TEST(SvgFile, has_areas_in_points_within_its_view) {
    const Folder folder;
    const auto path = folder / "a.svg";
    WritePages({Titled("a")}, PictureFormat::Svg, path);
    const auto svg = ReadSvg(path);
    ASSERT_GE(svg.Rects.size(), 2U);
    EXPECT_EQ(svg.Rects[0], svg.ViewBox) << "the paper";
    EXPECT_EQ(svg.Rects[1], QRectF(20, 10, 30, 40));
    for (const auto& rect : svg.Rects) EXPECT_TRUE(svg.ViewBox.contains(rect));
}

TEST(SvgFile, has_white_ground_on_whatever_it_is_shown) {
    const Folder folder;
    const auto path = folder / "a.svg";
    WritePages({Titled("a")}, PictureFormat::Svg, path);
    QSvgRenderer renderer(QString::fromStdString(path));
    QImage dark(300, 100, QImage::Format_RGB32);
    dark.fill(Qt::black);
    QPainter painter(&dark);
    renderer.render(&painter);
    painter.end();
    for (const auto& [x, y] : {std::pair{0, 0}, {299, 0}, {0, 99}, {299, 99}, {250, 60}})
        EXPECT_EQ(dark.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
}

TEST(SvgFile, keeps_signs_that_mean_something_in_markup) {
    const Folder folder;
    const auto path = folder / "a.svg";
    WritePages({Titled("A < B & \"C\"")}, PictureFormat::Svg, path);
    const auto svg = ReadSvg(path);
    EXPECT_EQ(svg.Failure, QString());
    EXPECT_EQ(svg.Title, QStringLiteral("Übersicht A < B & \"C\""));
    EXPECT_EQ(svg.Texts.value(0), QStringLiteral("A < B & \"C\""));
}

TEST(SvgFile, can_be_read_whatever_signs_a_name_holds) {
    const Folder folder;
    const auto path = folder / "a.svg";
    // A control sign, a tab, a line break, a sign that is none (U+FFFF) and a byte that is no UTF-8.
    WritePages({Titled("A\x01"
                       "B\tC\nD\xef\xbf\xbf"
                       "E\xff")},
               PictureFormat::Svg, path);
    const auto svg = ReadSvg(path);
    EXPECT_EQ(svg.Failure, QString());
    EXPECT_EQ(svg.Texts.value(0), QStringLiteral("A B C D E\uFFFD"));
    EXPECT_EQ(svg.Title, QStringLiteral("Übersicht A B C D E\uFFFD"));
}

TEST(SvgFile, looks_like_the_picture_of_dots) {
    const Folder folder;
    WritePages({Titled("Wöchnerin")}, PictureFormat::Svg, folder / "a.svg");
    WritePages({Titled("Wöchnerin")}, PictureFormat::Png, folder / "a.png");
    QSvgRenderer renderer(QString::fromStdString(folder / "a.svg"));
    ASSERT_TRUE(renderer.isValid());
    QImage image(600, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    QImage other;
    ASSERT_TRUE(other.loadFromData(Bytes(folder / "a.png"), "PNG"));
    ASSERT_GT(Inked(other), 5000);
    int differing = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 600; ++x)
            differing += std::abs(qGray(image.pixel(x, y)) - qGray(other.pixel(x, y))) > 100;
    }
    // Edges of letters are smoothed another way: a hundredth of all dots.
    EXPECT_LT(differing, 1200);
    EXPECT_EQ(image.pixelColor(50, 30), ToColour(Red));
}

TEST(PngFile, has_two_dots_a_point_on_white) {
    const Folder folder;
    const auto path = folder / "a.png";
    EXPECT_EQ(WritePages({Titled("Äußere Bank")}, PictureFormat::Png, path), Texts{path});
    QImage image;
    ASSERT_TRUE(image.loadFromData(Bytes(path), "PNG"));
    EXPECT_EQ(image.size(), QSize(600, 200));
    EXPECT_EQ(qRound(image.dotsPerMeterX() * 0.0254), 144);
    EXPECT_FALSE(image.hasAlphaChannel());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 30), ToColour(Red));
    // The text ends at 9 points' size about x = 100, y = 60.
    EXPECT_GT(Inked(image, {160, 100, 80, 24}), 100);
    EXPECT_EQ(image.text(QStringLiteral("Title")), QStringLiteral("Übersicht Äußere Bank"));
}

TEST(PngFile, of_a_page_that_no_picture_can_hold_fails_and_leaves_nothing) {
    const Folder folder;
    auto page = Titled("a");
    page.Page.Width = 20000;  // 40000 dots
    try {
        WritePages({page}, PictureFormat::Png, folder / "a.png");
        ADD_FAILURE() << "written";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow) << error.Description();
    }
    EXPECT_EQ(folder.Files(), Texts{});
}

qsizetype PdfPages(const QByteArray& pdf) {
    qsizetype pages = 0;
    auto match =
        QRegularExpression(QStringLiteral("/Type /Page\\b(?!s)")).globalMatch(QString::fromLatin1(pdf));
    for (; match.hasNext(); match.next()) ++pages;
    return pages;
}

/// UTF-16 as the PDF writes it, big end first.
QByteArray Utf16(const QString& text) {
    QByteArray bytes;
    for (const auto letter : text) {
        bytes += static_cast<char>(letter.unicode() >> 8);
        bytes += static_cast<char>(letter.unicode() & 0xff);
    }
    return bytes;
}

TEST(PdfFile, has_all_pages_in_one_file) {
    const Folder folder;
    const auto path = folder / "a.pdf";
    EXPECT_EQ(WritePages({Titled("a"), Titled("b"), Titled("c")}, PictureFormat::Pdf, path), Texts{path});
    EXPECT_EQ(folder.Files(), Texts{"a.pdf"});
    const auto pdf = Bytes(path);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_EQ(PdfPages(pdf), 3);
}

TEST(PdfFile, keeps_letters_apart_so_that_words_are_found) {
    const Folder folder;
    const auto path = folder / "a.pdf";
    WritePages({Titled("Profil, Wasserfläche")}, PictureFormat::Pdf, path);
    const auto pdf = Bytes(path).toLower();
    EXPECT_FALSE(pdf.contains("<fb01>")) << "fi as one sign";
    EXPECT_FALSE(pdf.contains("<fb02>")) << "fl as one sign";
    EXPECT_TRUE(pdf.contains("<0066>")) << "f";
}

TEST(PdfFile, has_pages_of_the_charts_size_with_title_creator_and_fonts) {
    const Folder folder;
    const auto path = folder / "a.pdf";
    WritePages({Titled("Bänke")}, PictureFormat::Pdf, path);
    const auto pdf = Bytes(path);
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 300.000000 100.000000]")) << pdf.left(2000).toStdString();
    EXPECT_TRUE(pdf.contains(Utf16(QStringLiteral("Übersicht Bänke"))));
    EXPECT_TRUE(pdf.contains(Utf16(QStringLiteral("FX_Algen "))));
    EXPECT_TRUE(pdf.contains("/FontFile2")) << "letters are embedded";
    // Which letters the text is made of, so that it can be searched and copied: ä, and ß of "Größe".
    EXPECT_TRUE(pdf.contains("<00e4>") || pdf.contains("<00E4>"));
    EXPECT_TRUE(pdf.contains("<00df>") || pdf.contains("<00DF>"));
}

TEST(PdfFile, has_each_page_in_its_own_size) {
    const Folder folder;
    const auto path = folder / "a.pdf";
    auto larger = Titled("b");
    larger.Page.Width = 500;
    larger.Page.Height = 400;
    WritePages({Titled("a"), larger, Titled("c")}, PictureFormat::Pdf, path);
    const auto pdf = Bytes(path);
    EXPECT_EQ(pdf.count("/MediaBox [0 0 300.000000 100.000000]"), 2);
    EXPECT_EQ(pdf.count("/MediaBox [0 0 500.000000 400.000000]"), 1);
}

struct NamesCase {
    const char* Name;
    const char* Path;
    PictureFormat Format;
    std::size_t Pages;
    Texts Expected;
};

class NamesOfFurtherPages : public testing::TestWithParam<NamesCase> {};

TEST_P(NamesOfFurtherPages, stand_beside_the_first) {
    EXPECT_EQ(PagePaths(GetParam().Path, GetParam().Format, GetParam().Pages), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    PagePaths, NamesOfFurtherPages,
    testing::Values(
        NamesCase{"none", "a.svg", PictureFormat::Svg, 0, {}},
        NamesCase{"one", "/x/a.svg", PictureFormat::Svg, 1, {"/x/a.svg"}},
        NamesCase{"three", "/x/a.svg", PictureFormat::Svg, 3, {"/x/a.svg", "/x/a-2.svg", "/x/a-3.svg"}},
        NamesCase{"capitals", "Güte.PNG", PictureFormat::Png, 2, {"Güte.PNG", "Güte-2.PNG"}},
        NamesCase{
            "dots", "/x.y/2024.05.png", PictureFormat::Png, 2, {"/x.y/2024.05.png", "/x.y/2024.05-2.png"}},
        NamesCase{"pdf", "a.pdf", PictureFormat::Pdf, 3, {"a.pdf"}}),
    [](const auto& one) { return one.param.Name; });

TEST(WritePages, puts_further_pages_beside_the_first) {
    const Folder folder;
    const Texts expected{folder / "a.svg", folder / "a-2.svg"};
    EXPECT_EQ(WritePages({Titled("Erste"), Titled("Zweite")}, PictureFormat::Svg, folder / "a.svg"),
              expected);
    EXPECT_EQ(folder.Files(), (Texts{"a-2.svg", "a.svg"}));
    EXPECT_EQ(ReadSvg(folder / "a-2.svg").Texts.value(0), QStringLiteral("Zweite"));
}

TEST(WritePages, takes_the_place_of_an_older_file) {
    const Folder folder;
    std::ofstream(folder / "a.svg") << "older";
    WritePages({Titled("Neu")}, PictureFormat::Svg, folder / "a.svg");
    EXPECT_EQ(ReadSvg(folder / "a.svg").Texts.value(0), QStringLiteral("Neu"));
    EXPECT_EQ(folder.Files(), Texts{"a.svg"});
}

struct PlaceCase {
    const char* Name;
    std::string Path;    ///< behind the test's folder, or from the root
    std::string Reason;  ///< part of the description
};

class PlaceWhereNoFileCanBe : public testing::TestWithParam<PlaceCase> {};

TEST_P(PlaceWhereNoFileCanBe, is_failure_53_that_names_it_and_leaves_nothing) {
    const Folder folder;
    std::ofstream(folder / "file") << "text";
    std::filesystem::create_directory(folder / "folder.svg");
    const auto path = GetParam().Path.front() == '/' ? GetParam().Path : folder / GetParam().Path;
    for (const auto format : {PictureFormat::Svg, PictureFormat::Png, PictureFormat::Pdf}) {
        try {
            WritePages({Titled("a")}, format, path);
            ADD_FAILURE() << "written";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
            EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
            EXPECT_NE(error.Description().find(GetParam().Reason), std::string::npos) << error.Description();
        }
    }
    EXPECT_EQ(folder.Files(), (Texts{"file", "folder.svg"}));
}

INSTANTIATE_TEST_SUITE_P(WritePages, PlaceWhereNoFileCanBe,
                         testing::Values(PlaceCase{"missing_folder", "Flüsse/a.svg", "there is no folder"},
                                         PlaceCase{"below_a_file", "file/a.svg", "is no folder"},
                                         PlaceCase{"a_folders_name", "folder.svg", "a folder has this name"},
                                         // A folder in which not even root makes files.
                                         PlaceCase{"no_new_files", "/proc/a.svg", "/proc"}),
                         [](const auto& one) { return one.param.Name; });

TEST(WritePages, fails_in_a_folder_without_rights) {
    if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    const Folder folder;
    std::filesystem::permissions(folder / "",
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_THROW(WritePages({Titled("a")}, PictureFormat::Svg, folder / "a.svg"), Error);
    std::filesystem::permissions(folder / "", std::filesystem::perms::owner_all);
    EXPECT_EQ(folder.Files(), Texts{});
}

TEST(WritePages, of_no_pages_writes_nothing) {
    const Folder folder;
    for (const auto format : {PictureFormat::Svg, PictureFormat::Png, PictureFormat::Pdf})
        EXPECT_EQ(WritePages({}, format, folder / "a.pdf"), Texts{});
    EXPECT_EQ(folder.Files(), Texts{});
}

}  // namespace
}  // namespace FX_Algen::ui
