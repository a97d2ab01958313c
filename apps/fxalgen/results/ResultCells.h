#pragma once

#include <cstdint>
#include <string>

#include "fxalgen/results/Results.h"

namespace FX_Algen::cli {

/// Text of a column for people.
std::string ResultCell(const Record& record, const ResultColumn& column, std::int16_t SprachID);

}  // namespace FX_Algen::cli
