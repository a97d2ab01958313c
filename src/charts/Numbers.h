#pragma once

#include <cstdint>
#include <string>

/// Numbers as charts write them.
namespace FX_Algen::charts {

/// A number with so many decimal places, commercially rounded, with a comma in German (`SprachID` below
/// 20000) and a point else. From 1e15 on in powers of ten.
std::string NumberText(double value, int decimals, std::int16_t SprachID);

/// The value of a bar: a whole number, else one decimal place, or so many that a small value does not read
/// as 0.
std::string ValueText(double value, bool wholeNumbers, std::int16_t SprachID);

}  // namespace FX_Algen::charts
