#include "charts/SiteLabels.h"

#include <algorithm>
#include <array>
#include <optional>

#include "charts/Wrap.h"

namespace FX_Algen::charts {

namespace {

constexpr std::array<double, 2> kSizes{9, 8};
/// Better small than lost, for a label that fills a page.
constexpr std::array<double, 4> kEmergencySizes{7, 6, 5, 4};
/// Between the labels of two sites.
constexpr double kGapWrapped = 5;
constexpr double kGapTurned = 3;
/// Turned labels of several lines must not be taken for those of their neighbours.
constexpr double kGapTurnedLines = 5;
constexpr double kGapRows = 4;
/// More lines of few words each are harder to read than a turned label.
constexpr std::size_t kMostWrappedLines = 10;
/// A turned label is kept in fewer and longer lines until it takes this part of its room; what goes beyond
/// serves the bars better.
constexpr double kModestShare = 0.5;
constexpr double kShorten = 0.95;

std::vector<std::vector<std::string>> WrapAll(const std::vector<Site>& sites, double width, const Font& font,
                                              const FontMetrics& metrics) {
    std::vector<std::vector<std::string>> all;
    all.reserve(sites.size());
    for (const Site& site : sites) all.push_back(WrapText(site.Label, width, font, metrics));
    return all;
}

std::size_t MostLines(const std::vector<std::vector<std::string>>& all) {
    std::size_t most = 0;
    for (const auto& lines : all) most = std::max(most, lines.size());
    return most;
}

std::size_t PagesFor(std::size_t sites, std::size_t most) { return (sites + most - 1) / most; }

std::size_t HowMany(double length, double each) {
    return each <= 0 || length < each ? 0 : static_cast<std::size_t>(length / each + 1e-9);
}

double WidestWordOfAll(const std::vector<Site>& sites, const Font& font, const FontMetrics& metrics) {
    double widest = 0;
    for (const Site& site : sites) widest = std::max(widest, WidestWord(site.Label, font, metrics));
    return widest;
}

void SetLines(LabelPlan& plan, std::vector<std::vector<std::string>> lines, const FontMetrics& metrics) {
    plan.Lines = std::move(lines);
    plan.Extent = 0;
    for (const auto& label : plan.Lines)
        plan.Extent = std::max(plan.Extent, WidestLine(label, plan.Type, metrics));
}

/// Width that turned labels of so many lines need.
double TurnedWidth(std::size_t lines, const Font& font, const FontMetrics& metrics) {
    return TextHeight(lines, font, metrics) + (lines > 1 ? kGapTurnedLines : kGapTurned);
}

/// Shortens turned labels as far as the distance of the bars has room for more lines.
void Shorten(LabelPlan& plan, const std::vector<Site>& sites, const LabelRoom& room,
             const FontMetrics& metrics) {
    const std::size_t onPage =
        PagesFor(sites.size(), PagesFor(sites.size(), std::max<std::size_t>(1, plan.MostOnPage)));
    const double slot = room.Width / static_cast<double>(onPage);
    const double least = std::max(kModestShare * room.Most, WidestWordOfAll(sites, plan.Type, metrics));
    for (double length = plan.Extent * kShorten; length >= least; length *= kShorten) {
        std::vector<std::vector<std::string>> lines = WrapAll(sites, length, plan.Type, metrics);
        if (TurnedWidth(MostLines(lines), plan.Type, metrics) > slot) return;
        SetLines(plan, std::move(lines), metrics);
    }
}

/// Turned labels in a size; none where not even one site fits.
std::optional<LabelPlan> Turned(const std::vector<Site>& sites, const LabelRoom& room, double points,
                                const FontMetrics& metrics) {
    LabelPlan plan{.Type = {points, false}, .Turned = true, .Lines = {}, .Extent = 0, .MostOnPage = 0};
    SetLines(plan, WrapAll(sites, room.Most, plan.Type, metrics), metrics);
    const double label = TurnedWidth(MostLines(plan.Lines), plan.Type, metrics);
    plan.MostOnPage = HowMany(room.Width, std::max(label, room.LeastSlot));
    if (plan.MostOnPage == 0 || plan.Extent > room.Most) return std::nullopt;
    return plan;
}

/// Wrapped labels of so many sites on a page; none where a word would be broken or the lines get too many.
std::optional<LabelPlan> Wrapped(const std::vector<Site>& sites, const LabelRoom& room, std::size_t onPage,
                                 double points, double widestWord, const FontMetrics& metrics) {
    const double slot = room.Width / static_cast<double>(onPage);
    const double width = slot - kGapWrapped;
    if (slot < room.LeastSlot || widestWord > width) return std::nullopt;
    LabelPlan plan{.Type = {points, false}, .Turned = false, .Lines = {}, .Extent = 0, .MostOnPage = onPage};
    plan.Lines = WrapAll(sites, width, plan.Type, metrics);
    const std::size_t lines = MostLines(plan.Lines);
    plan.Extent = TextHeight(lines, plan.Type, metrics);
    if (lines > kMostWrappedLines || plan.Extent > room.Most) return std::nullopt;
    return plan;
}

/// One site a page, its label across the page and as small as it must be.
LabelPlan Alone(const std::vector<Site>& sites, const LabelRoom& room, const FontMetrics& metrics) {
    LabelPlan plan;
    const auto tryOut = [&](double points) {
        plan = {.Type = {points, false}, .Turned = false, .Lines = {}, .Extent = 0, .MostOnPage = 1};
        plan.Lines = WrapAll(sites, room.Width - kGapWrapped, plan.Type, metrics);
        plan.Extent = TextHeight(MostLines(plan.Lines), plan.Type, metrics);
        return plan.Extent <= room.Most;
    };
    if (std::any_of(kSizes.begin(), kSizes.end(), tryOut)) return plan;
    std::any_of(kEmergencySizes.begin(), kEmergencySizes.end(), tryOut);
    return plan;
}

std::optional<LabelPlan> BestTurned(const std::vector<Site>& sites, const LabelRoom& room,
                                    const FontMetrics& metrics) {
    std::optional<LabelPlan> best;
    for (const double points : kSizes) {
        std::optional<LabelPlan> plan = Turned(sites, room, points, metrics);
        if (!plan) continue;
        if (!best || PagesFor(sites.size(), plan->MostOnPage) < PagesFor(sites.size(), best->MostOnPage))
            best = std::move(plan);
    }
    return best;
}

/// Wrapped labels that need no more than so many pages.
std::optional<LabelPlan> BestWrapped(const std::vector<Site>& sites, const LabelRoom& room,
                                     std::size_t mostPages, const FontMetrics& metrics) {
    std::array<double, kSizes.size()> widestWords{};
    for (std::size_t i = 0; i < kSizes.size(); ++i)
        widestWords[i] = WidestWordOfAll(sites, {kSizes[i], false}, metrics);
    for (std::size_t pages = 1; pages <= mostPages; ++pages)
        for (std::size_t i = 0; i < kSizes.size(); ++i)
            if (auto plan =
                    Wrapped(sites, room, PagesFor(sites.size(), pages), kSizes[i], widestWords[i], metrics))
                return plan;
    return std::nullopt;
}

}  // namespace

LabelPlan PlanLabelsBelow(const std::vector<Site>& sites, const LabelRoom& room, const FontMetrics& metrics) {
    std::optional<LabelPlan> turned = BestTurned(sites, room, metrics);
    const std::size_t pages = turned ? PagesFor(sites.size(), turned->MostOnPage) : sites.size();
    if (std::optional<LabelPlan> wrapped = BestWrapped(sites, room, pages, metrics))
        return *std::move(wrapped);
    if (!turned) return Alone(sites, room, metrics);
    Shorten(*turned, sites, room, metrics);
    return *std::move(turned);
}

LabelPlan PlanLabelsBeside(const std::vector<Site>& sites, double most, double height, double leastRow,
                           const FontMetrics& metrics) {
    LabelPlan plan;
    const auto tryOut = [&](double points) {
        plan = {.Type = {points, false}, .Turned = false, .Lines = {}, .Extent = 0, .MostOnPage = 1};
        SetLines(plan, WrapAll(sites, most, plan.Type, metrics), metrics);
        const double label = TextHeight(MostLines(plan.Lines), plan.Type, metrics) + kGapRows;
        plan.MostOnPage = HowMany(height, std::max(label, leastRow));
        return plan.MostOnPage > 0;
    };
    if (std::any_of(kSizes.begin(), kSizes.end(), tryOut)) return plan;
    std::any_of(kEmergencySizes.begin(), kEmergencySizes.end(), tryOut);
    plan.MostOnPage = std::max<std::size_t>(1, plan.MostOnPage);
    return plan;
}

}  // namespace FX_Algen::charts
