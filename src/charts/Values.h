#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "FX_Algen/Chart.h"

/// What the values of a chart say.
namespace FX_Algen::charts {

/// The value of a series at a site; absent also where the site has none for it.
std::optional<double> ValueAt(const Site& site, std::size_t series);

/// Whether a value has a bar: it is there, a number and above 0.
bool HasBar(const std::optional<double>& value);

/// The sum of the values of a site that are amounts or 0; absent where it has neither.
std::optional<double> SumOf(const Chart& chart, const Site& site);

/// The sum as charts write it, "–" where it is absent.
std::string SumText(const Chart& chart, const Site& site);

}  // namespace FX_Algen::charts
