#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <filesystem>
#include <limits>

#include "Samples.h"

namespace FX_Algen::ui {
namespace {

using namespace samples;

/// Taxa per class at `sites` sites: at site i (from 1) i taxa of class I and 2 of class II.
charts::Chart ClassChart(int sites, std::int16_t SprachID = 10000) {
    charts::Chart chart;
    chart.Title = "Taxazahl je Güteklasse";
    chart.AxisTitle = "Taxa [Anzahl]";
    chart.WholeNumbers = true;
    chart.SprachID = SprachID;
    chart.Empty = "Keine Probenstelle";
    chart.AllSeries = {{9, false, 0, "Güteklasse I"}, {10, true, 9, "Güteklasse II"}};
    for (int site = 1; site <= sites; ++site)
        chart.Sites.push_back({"Mühlbach " + std::to_string(site), {site * 1.0, 2.0}});
    return chart;
}

/// One taxon of 12.5 percent.
charts::Chart DominanceChart(std::int16_t SprachID) {
    charts::Chart chart;
    chart.Kind = charts::ChartKind::Horizontal;
    chart.Title = "Artendominanz";
    chart.AxisTitle = "Abundanz [%]";
    chart.SprachID = SprachID;
    chart.AllSeries = {{9, false, 0, ""}};
    chart.Sites = {{"Navicula cf. gregaria", {12.5}}};
    return chart;
}

void Keep(QWidget& widget, const char* name) {
    const std::filesystem::path folder(FX_PICTURES_DIR);
    std::filesystem::create_directories(folder);
    EXPECT_TRUE(widget.grab().save(QString::fromStdString((folder / name).string())));
}

/// All texts of bars that a grid of places meets, each once.
QStringList BarTexts(const ChartWidget& widget) {
    QStringList texts;
    for (int y = 0; y < widget.height(); y += 2) {
        for (int x = 0; x < widget.width(); x += 2) {
            const auto text = widget.BarTextAt({x, y});
            if (!text.isEmpty() && !texts.contains(text)) texts << text;
        }
    }
    return texts;
}

/// Number of the first site on the page that is shown.
int FirstSite(const ChartWidget& widget) {
    int first = std::numeric_limits<int>::max();
    for (const auto& text : BarTexts(widget))
        first = std::min(first, text.section(u'\n', 0, 0).section(u' ', 1).toInt());
    return first;
}

QPoint PlaceOf(const ChartWidget& widget, const QString& text) {
    for (int y = 0; y < widget.height(); y += 2) {
        for (int x = 0; x < widget.width(); x += 2) {
            if (widget.BarTextAt({x, y}) == text) return {x, y};
        }
    }
    return {-1, -1};
}

class ShownChart : public testing::Test {
protected:
    void Show(charts::Chart chart, QSize size) {
        widget.SetChart(std::move(chart));
        widget.resize(size);
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }
    ChartWidget widget;
};

TEST_F(ShownChart, paints_itself_on_white_to_its_own_size) {
    Show(ClassChart(3), {900, 600});
    const auto image = widget.grab().toImage();
    const auto ink = InkedRect(image);
    EXPECT_EQ(image.pixelColor(image.width() - 6, 6), QColor(Qt::white));
    EXPECT_GT(ink.width(), image.width() * 3 / 4);
    EXPECT_GT(ink.height(), image.height() * 3 / 4);
    Keep(widget, "chart_widget.png");
}

TEST_F(ShownChart, tells_site_class_and_value_of_a_bar) {
    Show(ClassChart(3), {900, 600});
    const auto texts = BarTexts(widget);
    EXPECT_EQ(texts.size(), 6);
    for (const char* text :
         {"Mühlbach 1\nGüteklasse I: 1", "Mühlbach 3\nGüteklasse I: 3", "Mühlbach 3\nGüteklasse II: 2"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(widget.BarTextAt({1, 1}), QString());
    EXPECT_EQ(widget.BarTextAt({-5, 5000}), QString());
}

TEST_F(ShownChart, writes_values_in_the_charts_language) {
    Show(DominanceChart(10000), {900, 300});
    EXPECT_EQ(BarTexts(widget), QStringList(QStringLiteral("Navicula cf. gregaria\nAbundanz [%]: 12,5")));
    widget.SetChart(DominanceChart(20000));
    EXPECT_EQ(BarTexts(widget), QStringList(QStringLiteral("Navicula cf. gregaria\nAbundanz [%]: 12.5")));
}

TEST_F(ShownChart, shows_the_text_of_the_bar_under_the_pointer) {
    auto chart = ClassChart(1);
    chart.Sites[0].Label = "A <b> & B";
    Show(chart, {900, 600});
    const auto place = PlaceOf(widget, QStringLiteral("A <b> & B\nGüteklasse II: 2"));
    ASSERT_GE(place.x(), 0);
    QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("A &lt;b&gt; &amp; B<br>Güteklasse II: 2"));
}

TEST_F(ShownChart, turns_pages_by_keys) {
    Show(ClassChart(120), {700, 500});
    const int last = widget.PageCount() - 1;
    ASSERT_GE(last, 2);
    QSignalSpy turned(&widget, &ChartWidget::PageChanged);
    struct Step {
        Qt::Key Key;
        int Page;
    };
    int signalled = 0;
    for (const auto& step : {Step{Qt::Key_PageDown, 1}, Step{Qt::Key_PageDown, 2}, Step{Qt::Key_PageUp, 1},
                             Step{Qt::Key_End, last}, Step{Qt::Key_PageDown, last}, Step{Qt::Key_Home, 0},
                             Step{Qt::Key_PageUp, 0}}) {
        const bool stays = widget.CurrentPage() == step.Page;
        QTest::keyClick(&widget, step.Key);
        EXPECT_EQ(widget.CurrentPage(), step.Page);
        if (!stays) ++signalled;
        EXPECT_EQ(turned.count(), signalled);
    }
    EXPECT_EQ(turned.last().value(0).toInt(), 0);
}

TEST_F(ShownChart, shows_no_page_that_is_not_there) {
    Show(ClassChart(120), {700, 500});
    widget.ShowPage(-3);
    EXPECT_EQ(widget.CurrentPage(), 0);
    widget.ShowPage(10000);
    EXPECT_EQ(widget.CurrentPage(), widget.PageCount() - 1);
}

TEST_F(ShownChart, has_more_pages_in_a_smaller_window_and_stays_at_its_sites) {
    Show(ClassChart(120), {1600, 700});
    const int large = widget.PageCount();
    widget.ShowPage(1);
    const int site = FirstSite(widget);
    ASSERT_GT(site, 1);
    widget.resize(640, 500);
    EXPECT_GT(widget.PageCount(), large);
    EXPECT_GT(widget.CurrentPage(), 1);
    EXPECT_LE(FirstSite(widget), site);
    widget.ShowPage(widget.CurrentPage() + 1);
    EXPECT_GT(FirstSite(widget), site);
}

TEST_F(ShownChart, tells_when_its_size_changes_the_number_of_pages) {
    Show(ClassChart(120), {1600, 700});
    QSignalSpy turned(&widget, &ChartWidget::PageChanged);
    widget.resize(640, 500);
    EXPECT_EQ(turned.count(), 1);
    EXPECT_EQ(widget.CurrentPage(), 0);
}

TEST_F(ShownChart, begins_again_with_another_chart) {
    Show(ClassChart(120), {700, 500});
    widget.ShowPage(2);
    QSignalSpy turned(&widget, &ChartWidget::PageChanged);
    widget.SetChart(ClassChart(2));
    EXPECT_EQ(widget.CurrentPage(), 0);
    EXPECT_EQ(widget.PageCount(), 1);
    EXPECT_EQ(turned.count(), 1);
    EXPECT_EQ(widget.GetChart().Sites.size(), 2u);
}

TEST_F(ShownChart, without_sites_says_so) {
    Show(ClassChart(0), {700, 500});
    EXPECT_EQ(widget.PageCount(), 1);
    EXPECT_EQ(BarTexts(widget), QStringList());
    // Below the title there is the text alone.
    EXPECT_GT(Inked(widget.grab().toImage(), {100, 150, 500, 200}), 50);
    Keep(widget, "chart_widget_empty.png");
}

TEST_F(ShownChart, smaller_than_the_smallest_page_shows_that_page_smaller) {
    widget.setMinimumSize(1, 1);
    Show(ClassChart(2), {240, 180});
    const auto image = widget.grab().toImage();
    EXPECT_GT(Inked(image), 500);
    EXPECT_EQ(BarTexts(widget).size(), 4);
}

TEST_F(ShownChart, fills_a_window_that_is_too_low_or_too_narrow) {
    widget.setMinimumSize(1, 1);
    for (const QSize& size : {QSize(720, 180), QSize(240, 600), QSize(320, 200)}) {
        Show(ClassChart(2), size);
        widget.clearFocus();
        // The base line ends at the right margin, labels stand at the foot: 12 of at least 270 points stay
        // free.
        const QRect ink = InkedRect(widget.grab().toImage());
        EXPECT_GT(ink.right(), size.width() * 0.93) << size.width();
        EXPECT_LT(ink.right(), size.width() - 2) << size.width();
        EXPECT_GT(ink.bottom(), size.height() * 0.9) << size.width();
        EXPECT_LT(ink.bottom(), size.height() - 2) << size.width();
    }
}

TEST_F(ShownChart, draws_a_frame_while_it_has_the_focus) {
    Show(ClassChart(2), {700, 500});
    widget.clearFocus();
    EXPECT_EQ(widget.grab().toImage().pixelColor(1, 250), QColor(Qt::white));
    QApplication::setActiveWindow(&widget);
    widget.setFocus();
    ASSERT_TRUE(widget.hasFocus());
    EXPECT_EQ(widget.grab().toImage().pixelColor(1, 250), widget.palette().color(QPalette::Highlight));
    EXPECT_EQ(widget.focusPolicy(), Qt::StrongFocus);
}

TEST_F(ShownChart, tells_title_page_and_bars_to_readers_of_the_screen) {
    Show(ClassChart(2), {700, 500});
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("Taxazahl je Güteklasse"));
    for (const char* text : {"Mühlbach 1, Güteklasse I: 1", "Mühlbach 2, Güteklasse II: 2"})
        EXPECT_TRUE(widget.accessibleDescription().contains(QString::fromUtf8(text))) << text;
    widget.SetChart(ClassChart(120));
    const auto pages = QString::number(widget.PageCount());
    EXPECT_TRUE(widget.accessibleDescription().startsWith(QStringLiteral("1/") + pages));
    widget.ShowPage(1);
    EXPECT_TRUE(widget.accessibleDescription().startsWith(QStringLiteral("2/") + pages));
}

TEST_F(ShownChart, leaves_other_keys_to_the_window) {
    Show(ClassChart(120), {700, 500});
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QApplication::sendEvent(&widget, &key);
    EXPECT_FALSE(key.isAccepted());
    EXPECT_EQ(widget.CurrentPage(), 0);
}

}  // namespace
}  // namespace FX_Algen::ui
