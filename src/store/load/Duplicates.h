#pragma once

#include <cstdint>
#include <vector>

#include "store/load/TableFile.h"

namespace FX_Algen::store::load {

/// Tells for lines whose key was refused where the key stood before: in a line further up, or in the table.
std::vector<LoadProblem> ExplainDuplicates(const TableFile& file, const std::vector<std::int64_t>& lines);

}  // namespace FX_Algen::store::load
