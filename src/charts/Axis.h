#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Chart.h"

/// The value axis: where it ends and where its ticks stand.
namespace FX_Algen::charts {

/// A value axis from 0. Ticks are multiples of 1, 2 or 5 times a power of ten.
struct Axis {
    double End = 1;
    double Step = 1;
    std::vector<double> Ticks;  ///< from 0 upwards, none beyond `End`
};

/// What an axis must hold.
struct AxisRange {
    double Largest = 0;         ///< the largest value that is drawn, 0 or more
    std::optional<double> End;  ///< where it should end; it goes further where a value does
    bool WholeNumbers = false;  ///< no tick between two whole numbers
};

/// The axis for a range with at most so many steps, at least one; a fixed end may leave a last part of a step
/// without tick. It stays where a value lies beyond it by no more than rounding (0.5 %), so that valences of
/// two decimals that add up to 10.01 do not make an axis to 12; without a fixed end the noise of 32-bit sums
/// (10 parts in a million) does not lengthen the axis.
Axis MakeAxis(const AxisRange& range, int mostSteps);

/// The text of a tick, with as many decimal places as the step needs.
std::string TickText(const Axis& axis, double tick, std::int16_t SprachID);

/// The range of the values of a chart: sums of a site where its bars stand on each other, single values where
/// they stand side by side. What draws no bar does not count.
AxisRange RangeOf(const Chart& chart);

}  // namespace FX_Algen::charts
