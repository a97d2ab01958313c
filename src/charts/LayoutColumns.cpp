#include <algorithm>
#include <string>

#include "charts/Axis.h"
#include "charts/Draw.h"
#include "charts/Frame.h"
#include "charts/Layouts.h"
#include "charts/Numbers.h"
#include "charts/SiteLabels.h"
#include "charts/Style.h"
#include "charts/Values.h"
#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

constexpr double kLeastBar = 12;
constexpr double kMostBar = 60;
constexpr double kLeastGap = 5;
constexpr double kBarShare = 0.68;
constexpr double kLeastGroupedBar = 5;
constexpr double kMostGroupedBar = 36;
constexpr double kLeastGroupGap = 7;
constexpr double kGroupGapShare = 0.2;
constexpr double kTickGap = 4;
constexpr double kTitleGap = 6;
constexpr double kLabelGap = 6;
/// Values stand above the bars of groups, also above one that reaches the end of the axis.
constexpr double kRoomAboveGroups = 8;
constexpr double kTickDistance = 28;
/// The least that ticks can stand apart, for an axis that would otherwise leave much of its height empty.
constexpr double kLeastTickDistance = 14;
/// The end of such an axis as a multiple of the largest value: a quarter stays empty.
constexpr double kWastefulAxis = 4.0 / 3;
constexpr int kFewestSteps = 2;
constexpr int kMostSteps = 10;
/// What is left of the height for the bars, however long the labels are.
constexpr double kLabelShareOfArea = 0.6;

/// Lays out a chart whose bars stand.
class Columns {
public:
    Columns(const Chart& chart, const FontMetrics& metrics, const PageSize& size, bool numbered)
        : chart_(chart), metrics_(metrics), frame_(MakeFrame(chart, metrics, size, numbered)) {
        PlaceValueAxis();
        PlanLabels();
        firsts_ = SpreadOverPages(chart.Sites.size(), labels_.MostOnPage);
        slot_ = plot_.Width / static_cast<double>(firsts_[1]);
        PlanBars();
    }

    std::size_t PageCount() const { return firsts_.size() - 1; }

    Page MakePage(std::size_t number) const {
        Page page = frame_.Empty;
        AddValueAxis(page);
        for (std::size_t site = firsts_[number]; site < firsts_[number + 1]; ++site) {
            const double left = plot_.X + static_cast<double>(site - firsts_[number]) * slot_;
            if (chart_.Kind == ChartKind::Grouped)
                AddGroup(page, site, left);
            else
                AddStack(page, site, left);
            if (TooLowToSee(site)) AddSum(page, site, left);
            AddLabel(page, site, left);
        }
        AddBaseLine(page);
        if (PageCount() > 1) AddPageNumber(page, frame_, number, PageCount(), chart_.SprachID);
        return page;
    }

private:
    bool Grouped() const { return chart_.Kind == ChartKind::Grouped; }
    std::size_t SeriesCount() const { return std::max<std::size_t>(1, chart_.AllSeries.size()); }

    /// Room for the texts at the left; the ticks themselves follow from the height of the bars, later.
    void PlaceValueAxis() {
        double widest = 0;
        const AxisRange range = RangeOf(chart_);
        for (int steps = 1; steps <= kMostSteps; ++steps) {
            const Axis axis = MakeAxis(range, steps);
            for (const double tick : axis.Ticks)
                widest = std::max(widest, metrics_.Width(TickText(axis, tick, chart_.SprachID), kAxisFont));
        }
        axisTitle_ = WrapText(chart_.AxisTitle, frame_.Area.Height, kAxisFont, metrics_);
        const double title = TextHeight(axisTitle_.size(), kAxisFont, metrics_);
        const double left = widest + kTickGap + kTickLength + (axisTitle_.empty() ? 0 : title + kTitleGap);
        plot_ = frame_.Area;
        plot_.X += std::min(left, plot_.Width / 2);
        plot_.Width -= std::min(left, plot_.Width / 2);
        if (Grouped()) {
            plot_.Y += std::min(kRoomAboveGroups, plot_.Height / 2);
            plot_.Height -= std::min(kRoomAboveGroups, plot_.Height / 2);
        }
    }

    double LeastSlot() const {
        return Grouped() ? static_cast<double>(SeriesCount()) * kLeastGroupedBar + kLeastGroupGap
                         : kLeastBar + kLeastGap;
    }

    void PlanLabels() {
        LabelRoom room{.Width = plot_.Width, .Most = 0, .LeastSlot = std::min(LeastSlot(), plot_.Width)};
        room.Most = std::max(
            1.0, std::min(kLabelShare * frame_.Content.Height, kLabelShareOfArea * plot_.Height) - kLabelGap);
        labels_ = PlanLabelsBelow(chart_.Sites, room, metrics_);
        const double height = plot_.Height;
        plot_.Height = std::max(1.0, height - labels_.Extent - (labels_.Extent > 0 ? kLabelGap : 0));
        axis_ = AxisForHeight();
    }

    /// Ticks stand comfortably apart, unless closer ones save the bars of a low chart much height.
    Axis AxisForHeight() const {
        const AxisRange range = RangeOf(chart_);
        const auto axisWith = [&](double distance) {
            return MakeAxis(range,
                            std::clamp(static_cast<int>(plot_.Height / distance), kFewestSteps, kMostSteps));
        };
        Axis axis = axisWith(kTickDistance);
        if (axis.End <= kWastefulAxis * range.Largest) return axis;
        Axis closer = axisWith(kLeastTickDistance);
        return closer.End < axis.End ? closer : axis;
    }

    void PlanBars() {
        if (Grouped()) {
            const double group = std::max(LeastSlot() - kLeastGroupGap, (1 - kGroupGapShare) * slot_);
            const auto count = static_cast<double>(SeriesCount());
            barWidth_ = std::min({group, slot_, kMostGroupedBar * count}) / count;
        } else {
            barWidth_ = std::min(std::clamp(kBarShare * slot_, kLeastBar, kMostBar), slot_);
        }
        // All values or none: numbers at the narrow ones alone would mislead.
        withValues_ = WidestValue() <= barWidth_;
    }

    /// Width that the widest value of all pages needs.
    double WidestValue() const {
        double widest = 0;
        for (const Site& site : chart_.Sites)
            for (std::size_t i = 0; i < chart_.AllSeries.size(); ++i) {
                const std::optional<double> value = ValueAt(site, i);
                if (!HasBar(value)) continue;
                const std::string text = TextOf(*value);
                widest = std::max(
                    widest, Grouped() ? metrics_.Width(text, kValueFont) : WidthForValue(text, metrics_));
            }
        return widest;
    }

    std::string TextOf(double value) const { return ValueText(value, chart_.WholeNumbers, chart_.SprachID); }

    /// Height of a value, no higher than the axis.
    double HeightOf(double value) const { return std::min(1.0, value / axis_.End) * plot_.Height; }

    void AddValueAxis(Page& page) const {
        for (const double tick : axis_.Ticks) {
            const double y = Bottom(plot_) - HeightOf(tick);
            page.Elements.emplace_back(Stroke{plot_.X, y, Right(plot_), y, kGridColour, kGridWidth});
            page.Elements.emplace_back(
                Stroke{plot_.X - kTickLength, y, plot_.X, y, kOutlineColour, kGridWidth});
            AddNumber(page.Elements, TickText(axis_, tick, chart_.SprachID), plot_.X - kTickLength - kTickGap,
                      y, Align::Right, kAxisFont, kTextColour);
        }
        page.Elements.emplace_back(
            Stroke{plot_.X, plot_.Y, plot_.X, Bottom(plot_), kOutlineColour, kAxisWidth});
        AddAxisTitle(page);
    }

    /// Beside the bars, and further down only where it is longer than they are high.
    void AddAxisTitle(Page& page) const {
        const double half = WidestLine(axisTitle_, kAxisFont, metrics_) / 2;
        const double lowest = Bottom(frame_.Area) - half;
        const double middle = std::min(std::max(plot_.Y + plot_.Height / 2, frame_.Area.Y + half), lowest);
        AddTurnedLines(page.Elements, axisTitle_, frame_.Area.X, middle, Align::Centre, kAxisFont,
                       kTextColour, metrics_);
    }

    void AddBaseLine(Page& page) const {
        const double y = Bottom(plot_);
        page.Elements.emplace_back(Stroke{plot_.X, y, Right(plot_), y, kOutlineColour, kAxisWidth});
    }

    void AddBar(Page& page, const Rect& place, std::size_t site, std::size_t series, double value) const {
        AddSegment(page.Elements, place, chart_.AllSeries, series,
                   Grouped() ? Standing::Alone : Standing::InStack);
        page.Bars.push_back({place, site, series, value});
    }

    void AddStack(Page& page, std::size_t site, double left) const {
        double below = 0;
        for (std::size_t i = 0; i < chart_.AllSeries.size(); ++i) {
            const std::optional<double> value = ValueAt(chart_.Sites[site], i);
            if (!HasBar(value)) continue;
            const double bottom = HeightOf(below);
            below += *value;
            const double height = HeightOf(below) - bottom;
            const Rect place{left + (slot_ - barWidth_) / 2, Bottom(plot_) - bottom - height, barWidth_,
                             height};
            AddBar(page, place, site, i, *value);
            if (withValues_)
                AddValueInside(page.Elements, place, TextOf(*value), chart_.AllSeries[i], metrics_);
        }
    }

    void AddGroup(Page& page, std::size_t site, double left) const {
        const double first = left + (slot_ - barWidth_ * static_cast<double>(SeriesCount())) / 2;
        for (std::size_t i = 0; i < chart_.AllSeries.size(); ++i) {
            const std::optional<double> value = ValueAt(chart_.Sites[site], i);
            if (!HasBar(value)) continue;
            const double height = HeightOf(*value);
            const Rect place{first + static_cast<double>(i) * barWidth_, Bottom(plot_) - height, barWidth_,
                             height};
            AddBar(page, place, site, i, *value);
            if (withValues_)
                AddNumberOnGrid(page.Elements, TextOf(*value), place.X + place.Width / 2,
                                place.Y - kTickGap - 1, Align::Centre, kValueFont, metrics_);
        }
    }

    bool TooLowToSee(std::size_t site) const {
        const double sum = SumOf(chart_, chart_.Sites[site]).value_or(0);
        return sum == 0 || (!Grouped() && HeightOf(sum) < kLeastOutlined);
    }

    /// Tells apart a site without values, one whose values are 0 and one whose bar cannot be seen.
    void AddSum(Page& page, std::size_t site, double left) const {
        AddNumberOnGrid(page.Elements, SumText(chart_, chart_.Sites[site]), left + slot_ / 2,
                        Bottom(plot_) - kTickGap - 2, Align::Centre, kValueFont, metrics_);
    }

    void AddLabel(Page& page, std::size_t site, double left) const {
        const std::vector<std::string>& lines = labels_.Lines[site];
        const double middle = left + slot_ / 2;
        const double top = Bottom(plot_) + kLabelGap;
        if (labels_.Turned)
            AddTurnedLines(page.Elements, lines,
                           middle - TextHeight(lines.size(), labels_.Type, metrics_) / 2, top, Align::Right,
                           labels_.Type, kTextColour, metrics_);
        else
            AddLines(page.Elements, lines, middle, top, Align::Centre, labels_.Type, kTextColour, metrics_);
    }

    const Chart& chart_;
    const FontMetrics& metrics_;
    Frame frame_;
    Rect plot_;
    Axis axis_;
    std::vector<std::string> axisTitle_;
    LabelPlan labels_;
    std::vector<std::size_t> firsts_;
    double slot_ = 0;
    double barWidth_ = 0;
    bool withValues_ = false;
};

}  // namespace

std::vector<Page> LayOutColumns(const Chart& chart, const FontMetrics& metrics, const PageSize& size) {
    return PagesOf<Columns>(chart, metrics, size);
}

}  // namespace FX_Algen::charts
