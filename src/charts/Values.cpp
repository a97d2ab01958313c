#include "charts/Values.h"

#include <cmath>

#include "charts/Numbers.h"

namespace FX_Algen::charts {

std::optional<double> ValueAt(const Site& site, std::size_t series) {
    return series < site.Values.size() ? site.Values[series] : std::nullopt;
}

bool HasBar(const std::optional<double>& value) { return value && std::isfinite(*value) && *value > 0; }

std::optional<double> SumOf(const Chart& chart, const Site& site) {
    std::optional<double> sum;
    for (std::size_t i = 0; i < chart.AllSeries.size(); ++i) {
        const std::optional<double> value = ValueAt(site, i);
        if (HasBar(value) || value == 0.0) sum = sum.value_or(0) + *value;
    }
    return sum;
}

std::string SumText(const Chart& chart, const Site& site) {
    const std::optional<double> sum = SumOf(chart, site);
    return sum ? ValueText(*sum, chart.WholeNumbers, chart.SprachID) : "–";
}

}  // namespace FX_Algen::charts
