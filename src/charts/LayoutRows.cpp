#include <algorithm>
#include <string>

#include "charts/Axis.h"
#include "charts/Draw.h"
#include "charts/Frame.h"
#include "charts/Layouts.h"
#include "charts/SiteLabels.h"
#include "charts/Style.h"
#include "charts/Values.h"
#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

constexpr double kLeastBar = 12;
constexpr double kMostBar = 30;
constexpr double kBarShare = 0.68;
constexpr double kLeastRow = 17;
constexpr double kMostRow = 44;
constexpr double kLabelGap = 6;
constexpr double kValueGap = 4;
constexpr double kTickGap = 3;
constexpr double kTitleGap = 4;
constexpr double kTickDistance = 24;
constexpr int kMostSteps = 10;

/// Lays out a chart whose bars lie.
class Rows {
public:
    Rows(const Chart& chart, const FontMetrics& metrics, const PageSize& size, bool numbered)
        : chart_(chart),
          metrics_(metrics),
          frame_(MakeFrame(chart, metrics, size, numbered)),
          plot_(frame_.Area) {
        ReserveBelow();
        labels_ = PlanLabelsBeside(chart.Sites, std::max(1.0, kLabelShare * frame_.Content.Width),
                                   plot_.Height, std::min(kLeastRow, plot_.Height), metrics);
        firsts_ = SpreadOverPages(chart.Sites.size(), labels_.MostOnPage);
        row_ = std::min(RowLimit(), plot_.Height / static_cast<double>(firsts_[1]));
        bar_ = std::min(std::clamp(kBarShare * row_, kLeastBar, kMostBar), row_);
        plot_.Height = row_ * static_cast<double>(firsts_[1]);
        ReserveBeside();
    }

    std::size_t PageCount() const { return firsts_.size() - 1; }

    Page MakePage(std::size_t number) const {
        Page page = frame_.Empty;
        AddValueAxis(page);
        for (std::size_t site = firsts_[number]; site < firsts_[number + 1]; ++site) {
            const double top = plot_.Y + static_cast<double>(site - firsts_[number]) * row_;
            AddLabel(page, site, top);
            AddRow(page, site, top);
        }
        page.Elements.emplace_back(
            Stroke{plot_.X, plot_.Y, plot_.X, Bottom(plot_), kOutlineColour, kAxisWidth});
        if (PageCount() > 1) AddPageNumber(page, frame_, number, PageCount(), chart_.SprachID);
        return page;
    }

private:
    double TextBelowBars() const {
        return kTickLength + kTickGap + TextHeight(1, kAxisFont, metrics_) +
               (axisTitle_.empty() ? 0 : kTitleGap + TextHeight(axisTitle_.size(), kAxisFont, metrics_));
    }

    void ReserveBelow() {
        axisTitle_ = WrapText(chart_.AxisTitle, plot_.Width, kAxisFont, metrics_);
        plot_.Height = std::max(1.0, plot_.Height - TextBelowBars());
    }

    /// A row needs no more than this, unless its label does.
    double RowLimit() const {
        std::size_t lines = 0;
        for (const auto& label : labels_.Lines) lines = std::max(lines, label.size());
        return std::max(kMostRow, TextHeight(lines, labels_.Type, metrics_) + kLabelGap);
    }

    /// The column of the labels at the left, and room at the right for the value of the longest bar.
    void ReserveBeside() {
        const double left = labels_.Extent + (labels_.Extent > 0 ? kLabelGap : 0);
        plot_.X += left;
        double right = 0;
        for (const Site& site : chart_.Sites)
            right = std::max(right, metrics_.Width(SumText(chart_, site), kValueFont) + kValueGap + 1);
        const AxisRange range = RangeOf(chart_);
        double widest = 0;
        for (int steps = 1; steps <= kMostSteps; ++steps) {
            const Axis axis = MakeAxis(range, steps);
            for (const double tick : axis.Ticks)
                widest = std::max(widest, metrics_.Width(TickText(axis, tick, chart_.SprachID), kAxisFont));
        }
        plot_.Width = std::max(1.0, plot_.Width - left - std::max(right, widest / 2));
        axis_ = MakeAxis(range,
                         std::clamp(static_cast<int>(plot_.Width / (widest + kTickDistance)), 1, kMostSteps));
    }

    double WidthOf(double value) const { return std::min(1.0, value / axis_.End) * plot_.Width; }

    void AddValueAxis(Page& page) const {
        const double bottom = Bottom(plot_);
        for (const double tick : axis_.Ticks) {
            const double x = plot_.X + WidthOf(tick);
            page.Elements.emplace_back(Stroke{x, plot_.Y, x, bottom, kGridColour, kGridWidth});
            page.Elements.emplace_back(
                Stroke{x, bottom, x, bottom + kTickLength, kOutlineColour, kGridWidth});
            AddLines(page.Elements, {TickText(axis_, tick, chart_.SprachID)}, x,
                     bottom + kTickLength + kTickGap, Align::Centre, kAxisFont, kTextColour, metrics_);
        }
        page.Elements.emplace_back(Stroke{plot_.X, bottom, Right(plot_), bottom, kOutlineColour, kAxisWidth});
        // Below the bars, and further to the left only where it is wider than they are.
        const double half = WidestLine(axisTitle_, kAxisFont, metrics_) / 2;
        const double middle =
            std::max(std::min(plot_.X + plot_.Width / 2, Right(frame_.Area) - half), frame_.Area.X + half);
        AddLines(page.Elements, axisTitle_, middle,
                 bottom + TextBelowBars() - TextHeight(axisTitle_.size(), kAxisFont, metrics_), Align::Centre,
                 kAxisFont, kTextColour, metrics_);
    }

    void AddLabel(Page& page, std::size_t site, double top) const {
        const std::vector<std::string>& lines = labels_.Lines[site];
        AddLines(page.Elements, lines, plot_.X - kLabelGap,
                 top + (row_ - TextHeight(lines.size(), labels_.Type, metrics_)) / 2, Align::Right,
                 labels_.Type, kTextColour, metrics_);
    }

    void AddRow(Page& page, std::size_t site, double top) const {
        // Behind a bar of several series stands their sum.
        double before = 0;
        for (std::size_t i = 0; i < chart_.AllSeries.size(); ++i) {
            const std::optional<double> value = ValueAt(chart_.Sites[site], i);
            if (!HasBar(value)) continue;
            const double left = WidthOf(before);
            before += *value;
            const Rect place{plot_.X + left, top + (row_ - bar_) / 2, WidthOf(before) - left, bar_};
            AddSegment(page.Elements, place, chart_.AllSeries, i,
                       chart_.AllSeries.size() > 1 ? Standing::InStack : Standing::Alone);
            page.Bars.push_back({place, site, i, *value});
        }
        AddNumberOnGrid(page.Elements, SumText(chart_, chart_.Sites[site]),
                        plot_.X + WidthOf(before) + kValueGap, top + row_ / 2, Align::Left, kValueFont,
                        metrics_);
    }

    const Chart& chart_;
    const FontMetrics& metrics_;
    Frame frame_;
    Rect plot_;
    Axis axis_;
    std::vector<std::string> axisTitle_;
    LabelPlan labels_;
    std::vector<std::size_t> firsts_;
    double row_ = 0;
    double bar_ = 0;
};

}  // namespace

std::vector<Page> LayOutRows(const Chart& chart, const FontMetrics& metrics, const PageSize& size) {
    return PagesOf<Rows>(chart, metrics, size);
}

}  // namespace FX_Algen::charts
