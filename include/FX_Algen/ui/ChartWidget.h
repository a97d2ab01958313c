#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "FX_Algen/Chart.h"

class QPainter;

namespace FX_Algen::ui {

/// Paints one page, whose points become units of the painter. The one painter for windows, pictures and
/// pages.
void PaintPage(QPainter& painter, const charts::Page& page);

/// Shows a chart in a window, one page at a time. The pages are as large as the widget, so that texts keep
/// their size: a small window has more pages, not smaller letters. PgDn and PgUp turn pages, Home and End go
/// to the first and last one; a bar that the pointer rests on tells site, class and value. The accessible
/// name is the chart's title, the accessible description the page and its bars.
class ChartWidget : public QWidget {
    Q_OBJECT

public:
    explicit ChartWidget(QWidget* parent = nullptr);

    void SetChart(charts::Chart chart);
    const charts::Chart& GetChart() const { return chart_; }
    int PageCount() const { return static_cast<int>(pages_.size()); }
    int CurrentPage() const { return page_; }  ///< from 0
    /// Shows a page; below 0 the first, past the end the last.
    void ShowPage(int page);
    /// Text of the bar at a place of the widget, with numbers in the chart's language; empty beside the bars.
    QString BarTextAt(const QPoint& place) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// After another page or chart is shown, and where the widget's size changed the number of pages.
    void PageChanged(int page);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void LayOut();
    void Describe();
    double UnitsAPoint() const;
    const charts::DrawnBar* BarAt(const QPoint& place) const;
    QString BarText(const charts::DrawnBar& bar) const;

    charts::Chart chart_;
    std::vector<charts::Page> pages_;
    int page_ = 0;
};

}  // namespace FX_Algen::ui
