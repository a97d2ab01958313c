#include "charts/Axis.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "charts/Numbers.h"
#include "charts/Values.h"

namespace FX_Algen::charts {

namespace {

/// Relative noise of sums of a few 32-bit values.
constexpr double kNoise = 1e-5;
/// What parts that were rounded to two decimals may make of their sum, relative to it.
constexpr double kRounding = 0.005;
/// Below it no axis could be labelled.
constexpr double kSmallest = 1e-9;
/// So that sums and multiples stay finite.
constexpr double kLargest = std::numeric_limits<double>::max() / 1e6;

double NiceStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1 - kNoise)) return factor * power;
    return 10 * power;
}

int Decimals(double step) {
    if (step >= 1) return 0;
    return static_cast<int>(std::ceil(-std::log10(step) - kNoise));
}

bool EndServes(const AxisRange& range) {
    return range.End && std::isfinite(*range.End) && *range.End >= kSmallest && *range.End <= kLargest &&
           range.Largest <= *range.End * (1 + kRounding + kNoise);
}

}  // namespace

Axis MakeAxis(const AxisRange& range, int mostSteps) {
    const bool fixed = EndServes(range);
    double wanted = fixed ? *range.End : std::min(range.Largest, kLargest);
    if (wanted < kSmallest) wanted = 1;
    Axis axis;
    axis.Step = NiceStep(wanted / std::max(1, mostSteps));
    if (range.WholeNumbers) axis.Step = std::max(1.0, axis.Step);
    const double steps = wanted * (1 - kNoise) / axis.Step;
    axis.End = fixed ? wanted : axis.Step * std::max(1.0, std::ceil(steps));
    const int last = static_cast<int>(std::floor(axis.End / axis.Step * (1 + kNoise)));
    for (int i = 0; i <= last; ++i) axis.Ticks.push_back(i * axis.Step);
    return axis;
}

std::string TickText(const Axis& axis, double tick, std::int16_t SprachID) {
    return NumberText(tick, Decimals(axis.Step), SprachID);
}

AxisRange RangeOf(const Chart& chart) {
    AxisRange range{.Largest = 0, .End = chart.AxisEnd, .WholeNumbers = chart.WholeNumbers};
    for (const Site& site : chart.Sites) {
        double sum = 0;
        for (std::size_t i = 0; i < chart.AllSeries.size(); ++i) {
            const std::optional<double> value = ValueAt(site, i);
            if (!HasBar(value)) continue;
            sum = chart.Kind == ChartKind::Grouped ? std::max(sum, *value) : sum + *value;
        }
        range.Largest = std::max(range.Largest, std::min(sum, kLargest));
    }
    return range;
}

}  // namespace FX_Algen::charts
