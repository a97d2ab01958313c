#include "FX_Algen/ui/ChartWidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStringList>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "charts/Numbers.h"
#include "ui/Fonts.h"

namespace FX_Algen::ui {
namespace {

constexpr double PointsAnInch = 72;
constexpr double Margin = 12;  ///< points; a window needs no room for punching
/// The smallest page in points on which an axis, its labels and a few bars have room. A smaller widget shows
/// this page scaled down.
constexpr double LeastWidth = 360;
constexpr double LeastHeight = 270;
/// The part of a printed page that a window usually shows.
constexpr double UsualPart = 0.8;
constexpr int FocusWidth = 2;

bool Holds(const charts::Rect& rect, double x, double y) {
    return x >= rect.X && x <= rect.X + rect.Width && y >= rect.Y && y <= rect.Y + rect.Height;
}

std::optional<std::size_t> FirstSite(const charts::Page& page) {
    if (page.Bars.empty()) return std::nullopt;
    return std::ranges::min_element(page.Bars, {}, &charts::DrawnBar::Site)->Site;
}

bool Shows(const charts::Page& page, std::size_t site) {
    return std::ranges::any_of(page.Bars, [site](const charts::DrawnBar& bar) { return bar.Site == site; });
}

}  // namespace

ChartWidget::ChartWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    // The whole area is painted, so that nothing shines through and nothing flickers.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ChartWidget::SetChart(charts::Chart chart) {
    chart_ = std::move(chart);
    pages_.clear();
    LayOut();
}

void ChartWidget::ShowPage(int page) {
    page = std::clamp(page, 0, std::max(0, PageCount() - 1));
    if (page == page_) return;
    page_ = page;
    Describe();
    update();
    Q_EMIT PageChanged(page_);
}

QString ChartWidget::BarTextAt(const QPoint& place) const {
    const auto* bar = BarAt(place);
    return bar ? BarText(*bar) : QString();
}

QSize ChartWidget::sizeHint() const {
    const charts::PageSize page;
    return {qRound(UsualPart * page.Width * logicalDpiX() / PointsAnInch),
            qRound(UsualPart * page.Height * logicalDpiY() / PointsAnInch)};
}

QSize ChartWidget::minimumSizeHint() const {
    return {qRound(LeastWidth * logicalDpiX() / PointsAnInch),
            qRound(LeastHeight * logicalDpiY() / PointsAnInch)};
}

void ChartWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (page_ < PageCount()) {
        painter.save();
        painter.scale(UnitsAPoint(), UnitsAPoint());
        PaintPage(painter, pages_[static_cast<std::size_t>(page_)]);
        painter.restore();
    }
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), FocusWidth));
    const double half = FocusWidth / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayOut();
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageDown:
            return ShowPage(page_ + 1);
        case Qt::Key_PageUp:
            return ShowPage(page_ - 1);
        case Qt::Key_Home:
            return ShowPage(0);
        case Qt::Key_End:
            return ShowPage(PageCount() - 1);
        default:
            QWidget::keyPressEvent(event);
    }
}

bool ChartWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const auto* bar = BarAt(help->pos())) {
        const double scale = UnitsAPoint();
        const QRectF place(bar->Place.X * scale, bar->Place.Y * scale, bar->Place.Width * scale,
                           bar->Place.Height * scale);
        // As text, not as markup: names of sites may hold any sign.
        QToolTip::showText(help->globalPos(),
                           BarText(*bar).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")), this,
                           place.toAlignedRect());
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

/// Makes the pages for the widget's size and stays at the sites that were shown.
void ChartWidget::LayOut() {
    std::optional<std::size_t> site;
    if (page_ < PageCount()) site = FirstSite(pages_[static_cast<std::size_t>(page_)]);
    charts::PageSize size;
    // Where the page is scaled down for one side, it has more points along the other.
    if (const double scale = UnitsAPoint(); scale > 0) {
        size.Width = width() / scale;
        size.Height = height() / scale;
    }
    size.Margin = Margin;
    const int pages = PageCount();
    pages_ = charts::Layout(chart_, PageFontMetrics(), size);

    const int before = page_;
    page_ = 0;
    if (site) {
        const auto found = std::ranges::find_if(pages_, [&](const auto& page) { return Shows(page, *site); });
        if (found != pages_.end()) page_ = static_cast<int>(found - pages_.begin());
    }
    Describe();
    update();
    if (page_ != before || PageCount() != pages) Q_EMIT PageChanged(page_);
}

void ChartWidget::Describe() {
    setAccessibleName(ToText(chart_.Title));
    QStringList lines;
    if (PageCount() > 1) lines << QStringLiteral("%1/%2").arg(page_ + 1).arg(PageCount());
    if (page_ < PageCount()) {
        for (const auto& bar : pages_[static_cast<std::size_t>(page_)].Bars)
            lines << BarText(bar).replace(u'\n', QStringLiteral(", "));
    }
    setAccessibleDescription(lines.join(u'\n'));
}

/// Units of the widget that one point of the page takes.
double ChartWidget::UnitsAPoint() const {
    const double screen = logicalDpiX() / PointsAnInch;
    return std::min({screen, width() / LeastWidth, height() / LeastHeight});
}

const charts::DrawnBar* ChartWidget::BarAt(const QPoint& place) const {
    if (page_ >= PageCount()) return nullptr;
    const double x = place.x() / UnitsAPoint();
    const double y = place.y() / UnitsAPoint();
    const auto& bars = pages_[static_cast<std::size_t>(page_)].Bars;
    const auto found = std::find_if(bars.rbegin(), bars.rend(),
                                    [&](const charts::DrawnBar& bar) { return Holds(bar.Place, x, y); });
    return found == bars.rend() ? nullptr : &*found;
}

QString ChartWidget::BarText(const charts::DrawnBar& bar) const {
    const auto& legend = chart_.AllSeries.at(bar.Series).Legend;
    const auto what = ToText(legend.empty() ? chart_.AxisTitle : legend);
    const auto value = ToText(charts::ValueText(bar.Value, chart_.WholeNumbers, chart_.SprachID));
    return ToText(chart_.Sites.at(bar.Site).Label) + u'\n' +
           (what.isEmpty() ? value : what + QStringLiteral(": ") + value);
}

}  // namespace FX_Algen::ui
