#include <QPaintDevice>
#include <QPainter>
#include <variant>

#include "FX_Algen/ui/ChartWidget.h"
#include "ui/Fonts.h"

namespace FX_Algen::ui {
namespace {

QColor ToColour(const charts::Colour& colour) { return {colour.Red, colour.Green, colour.Blue}; }

QRectF ToRect(const charts::Rect& rect) { return {rect.X, rect.Y, rect.Width, rect.Height}; }

/// Gives the painter back as it was.
class KeptPainter {
public:
    explicit KeptPainter(QPainter& painter) : painter_(painter) { painter_.save(); }
    ~KeptPainter() { painter_.restore(); }
    KeptPainter(const KeptPainter&) = delete;
    KeptPainter& operator=(const KeptPainter&) = delete;

private:
    QPainter& painter_;
};

QPen PenOf(const charts::Colour& colour, double width) {
    return {ToColour(colour), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

/// Paints the kinds of elements.
class ElementPainter {
public:
    explicit ElementPainter(QPainter& painter) : painter_(painter) {}

    void operator()(const charts::FilledArea& area) {
        // Smooth edges of areas that touch would let the paper shine through between them.
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ToColour(area.Fill));
        painter_.drawRect(ToRect(area.Place));
    }

    void operator()(const charts::Outline& outline) {
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setPen(PenOf(outline.Pen, outline.PenWidth));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(ToRect(outline.Place));
    }

    void operator()(const charts::Stroke& stroke) {
        const bool slanted = stroke.X1 != stroke.X2 && stroke.Y1 != stroke.Y2;
        painter_.setRenderHint(QPainter::Antialiasing, slanted);
        painter_.setPen(PenOf(stroke.Pen, stroke.PenWidth));
        painter_.drawLine(QPointF(stroke.X1, stroke.Y1), QPointF(stroke.X2, stroke.Y2));
    }

    void operator()(const charts::Label& label) {
        painter_.setFont(PageFont(label.Type, painter_.device()->logicalDpiY()));
        painter_.setPen(ToColour(label.Pen));
        const QPointF begin(-Before(label), 0);
        if (label.Degrees == 0) {
            painter_.drawText(QPointF(label.X, label.Y) + begin, ToText(label.Text));
            return;
        }
        const KeptPainter kept(painter_);
        painter_.translate(label.X, label.Y);
        painter_.rotate(-label.Degrees);
        painter_.drawText(begin, ToText(label.Text));
    }

private:
    /// Length of the part of the text that stands before its point.
    double Before(const charts::Label& label) const {
        if (label.Side == charts::Align::Left) return 0;
        const double width = metrics_.Width(label.Text, label.Type);
        return label.Side == charts::Align::Right ? width : width / 2;
    }

    QPainter& painter_;
    PageFontMetrics metrics_;
};

}  // namespace

void PaintPage(QPainter& painter, const charts::Page& page) {
    const KeptPainter kept(painter);
    painter.setRenderHint(QPainter::TextAntialiasing);
    ElementPainter paint(painter);
    for (const auto& element : page.Elements) std::visit(paint, element);
}

}  // namespace FX_Algen::ui
