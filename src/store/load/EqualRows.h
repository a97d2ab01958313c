#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/Engine.h"
#include "store/load/TableFile.h"

namespace FX_Algen::store::load {

/// Finds rows that say the same twice where the engine does not: in reference and look-up tables without a
/// key, and where a key differs in case only, which statements do not see. Null equals Null here.
class EqualRows {
public:
    /// Remembers the rows that stand in the table already.
    EqualRows(Engine& engine, const TableFile& file);

    /// Whether the table is one of these.
    bool Apply() const noexcept { return !columns_.empty(); }
    /// Remembers a row; the problem where it was there before, `again` where it takes the place of that row.
    std::optional<LoadProblem> Add(const Cell* row, std::int64_t line, bool again);

private:
    std::string KeyOf(const Cell* row) const;
    std::string InWords(const Cell* row) const;

    const TableFile* file_;
    std::vector<std::size_t> columns_;                     ///< positions in the table
    bool whole_ = false;                                   ///< the rows as a whole, not their keys
    std::unordered_map<std::string, std::int64_t> lines_;  ///< 0: not of this file
};

}  // namespace FX_Algen::store::load
