#include <gtest/gtest.h>

#include <cmath>

#include "Samples.h"
#include "ui/Fonts.h"

namespace FX_Algen::ui {
namespace {

using namespace samples;
using charts::Align;
using charts::Element;
using charts::FilledArea;
using charts::Font;
using charts::Label;
using charts::Outline;
using charts::Stroke;

TEST(PaintPage, fills_an_area_to_its_edges_and_no_further) {
    const auto image = Painted(PageOf({FilledArea{{20, 10, 30, 40}, Red}}));
    for (const auto& [x, y] : {std::pair{20, 10}, {49, 10}, {20, 49}, {49, 49}, {35, 30}})
        EXPECT_EQ(image.pixelColor(x, y), ToColour(Red)) << x << ' ' << y;
    for (const auto& [x, y] : {std::pair{19, 10}, {50, 49}, {20, 9}, {20, 50}})
        EXPECT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
}

TEST(PaintPage, leaves_no_gap_between_areas_that_touch_at_a_fraction_of_a_point) {
    const auto image =
        Painted(PageOf({FilledArea{{20, 10, 30, 12.37}, Red}, FilledArea{{20, 22.37, 30, 20}, Blue}}), 2);
    for (int y = 20; y < 84; ++y) {
        const auto colour = image.pixelColor(60, y);
        EXPECT_TRUE(colour == ToColour(Red) || colour == ToColour(Blue))
            << y << ' ' << colour.name().toStdString();
    }
}

TEST(PaintPage, paints_later_elements_on_top) {
    const auto image = Painted(PageOf({FilledArea{{0, 0, 50, 50}, Red}, FilledArea{{10, 10, 10, 10}, Blue}}));
    EXPECT_EQ(image.pixelColor(15, 15), ToColour(Blue));
    EXPECT_EQ(image.pixelColor(5, 5), ToColour(Red));
}

TEST(PaintPage, draws_an_outline_without_filling_it) {
    const auto image = Painted(PageOf({Outline{{20, 10, 100, 50}, Black, 2}}), 2);
    EXPECT_EQ(image.pixelColor(40, 60), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(240, 60), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(140, 20), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(140, 120), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(140, 70), QColor(Qt::white));
}

TEST(PaintPage, draws_hatch_lines_over_the_colour_of_a_bar) {
    const auto image = Painted(PageOf({FilledArea{{0, 0, 40, 40}, Red}, Stroke{0, 40, 40, 0, Blue, 3}}));
    EXPECT_EQ(image.pixelColor(20, 20), ToColour(Blue));  // on x + y = 40
    EXPECT_EQ(image.pixelColor(10, 10), ToColour(Red));
    EXPECT_EQ(image.pixelColor(30, 30), ToColour(Red));
    EXPECT_EQ(Inked(image, {41, 0, 159, 100}), 0) << "lines end where they end";
}

TEST(PaintPage, draws_lines_along_the_axes_sharply) {
    const auto image =
        Painted(PageOf({Stroke{10, 50, 190, 50, Black, 1}, Stroke{100, 10, 100, 90, Black, 1}}));
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 200; ++x) {
            const auto colour = image.pixelColor(x, y);
            ASSERT_TRUE(colour == QColor(Qt::black) || colour == QColor(Qt::white)) << x << ' ' << y;
        }
    }
    EXPECT_EQ(Inked(image, {10, 48, 80, 4}), 80);
}

struct SideCase {
    const char* Name;
    Align Side;
    double Left;  ///< part of the width that stands before the point
};

class SideOfAText : public testing::TestWithParam<SideCase> {};

TEST_P(SideOfAText, is_where_the_point_is) {
    const Font font{12, false};
    const std::string text =
        "HÜH";  // begins and ends with an upright stroke: ink fills the width but for bearings
    const double width = PageFontMetrics().Width(text, font);
    const auto image = Painted(PageOf({Label{100, 50, text, font, Black, GetParam().Side, 0}}), 4);
    const auto ink = InkedRect(image);
    const double left = 100 - GetParam().Left * width;
    EXPECT_NEAR(ink.left() / 4.0, left, 2);
    EXPECT_NEAR((ink.right() + 1) / 4.0, left + width, 2);
    // Letters stand on the base line, the dots of the Ü above the height of the H.
    EXPECT_NEAR((ink.bottom() + 1) / 4.0, 50, 0.5);
    EXPECT_GT(ink.top() / 4.0, 50 - PageFontMetrics().Ascent(font));
}

INSTANTIATE_TEST_SUITE_P(PaintPage, SideOfAText,
                         testing::Values(SideCase{"begin", Align::Left, 0},
                                         SideCase{"middle", Align::Centre, 0.5},
                                         SideCase{"end", Align::Right, 1}),
                         [](const auto& one) { return one.param.Name; });

TEST(PaintPage, turns_a_text_against_the_clock_about_its_point) {
    const Font font{10, false};
    const std::string text = "Leitha";
    const double width = PageFontMetrics().Width(text, font);
    // From the point upwards: left of x = 100 the letters' height, above y = 90 their width.
    const auto ink = InkedRect(Painted(PageOf({Label{100, 90, text, font, Black, Align::Left, 90}}), 2));
    EXPECT_NEAR(ink.bottom() / 2.0, 90, 2);
    EXPECT_NEAR(ink.top() / 2.0, 90 - width, 2);
    EXPECT_NEAR(ink.right() / 2.0, 100, 1);
    EXPECT_GE(ink.left() / 2.0, 100 - PageFontMetrics().Ascent(font));
}

TEST(PaintPage, writes_bold_texts_bold) {
    const auto plain = Painted(PageOf({Label{10, 50, "Verteilung", {14, false}, Black}}), 2);
    const auto bold = Painted(PageOf({Label{10, 50, "Verteilung", {14, true}, Black}}), 2);
    EXPECT_GT(Inked(bold), Inked(plain) * 11 / 10);
}

TEST(PaintPage, gives_the_painter_back_as_it_was) {
    QImage image(200, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    const auto transform = painter.transform();
    const auto font = painter.font();
    PaintPage(painter,
              PageOf({Label{10, 50, "A", {20, true}, Black, Align::Left, 45}, Stroke{0, 0, 9, 9, Red}}));
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
    EXPECT_EQ(painter.transform(), transform);
    EXPECT_EQ(painter.font(), font);
}

struct DeviceCase {
    const char* Name;
    int Dpi;
    int Scale;
};

class DeviceOfAnyResolution : public testing::TestWithParam<DeviceCase> {};

TEST_P(DeviceOfAnyResolution, shows_texts_as_wide_as_they_were_measured) {
    const Font font{9, false};
    const std::string text = "Höhenstufe 3, Größe der Bestände: Ufer";
    QImage image(300 * GetParam().Scale, 40 * GetParam().Scale, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(GetParam().Dpi / 0.0254));
    image.setDotsPerMeterY(qRound(GetParam().Dpi / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(GetParam().Scale, GetParam().Scale);
    PaintPage(painter, PageOf({Label{10, 30, text, font, Black}}));
    painter.end();
    const auto ink = InkedRect(image);
    const double drawn = static_cast<double>(ink.width()) / GetParam().Scale;
    // Bearings of the first and last letter are less than a tenth of the font's size each.
    EXPECT_NEAR(drawn, PageFontMetrics().Width(text, font), 1.8);
}

INSTANTIATE_TEST_SUITE_P(PaintPage, DeviceOfAnyResolution,
                         testing::Values(DeviceCase{"points", 72, 1}, DeviceCase{"screen", 96, 1},
                                         DeviceCase{"picture", 144, 2}, DeviceCase{"fine", 1200, 4}),
                         [](const auto& one) { return one.param.Name; });

TEST(PageFontMetrics, grow_with_the_font_and_know_bold) {
    const PageFontMetrics metrics;
    const std::string text = "Übersicht der Güteklassen";
    const double nine = metrics.Width(text, {9, false});
    // Unhinted letters grow evenly; a letter's width is kept in 64ths of a unit, so 25 letters differ by
    // at most 25/64 at either size.
    EXPECT_NEAR(metrics.Width(text, {18, false}), 2 * nine, 1.2);
    EXPECT_GT(metrics.Width(text, {9, true}), nine);
    EXPECT_EQ(metrics.Width("", {9, false}), 0);
    EXPECT_GT(metrics.Ascent({9, false}), metrics.Descent({9, false}));
    EXPECT_GT(metrics.Descent({9, false}), 0);
    EXPECT_NEAR(metrics.Ascent({18, false}), 2 * metrics.Ascent({9, false}), 0.1);
}

TEST(PageFontMetrics, measure_umlauts_as_one_letter) {
    const PageFontMetrics metrics;
    // In the named font an umlaut is as wide as its letter.
    EXPECT_NEAR(metrics.Width("ä", {9, false}), metrics.Width("a", {9, false}), 0.02);
}

}  // namespace
}  // namespace FX_Algen::ui
