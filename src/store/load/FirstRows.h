#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"
#include "store/load/TableFile.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// The rows that a project database came with. One that nobody changed takes on what the row of a file with
/// the same key says, so that a file may bring a first row in other words; before a whole database is loaded
/// they go altogether.
class FirstRows {
public:
    /// Tables that have such rows.
    static std::span<const std::string_view> Tables();

    /// Finds the first rows that stand unchanged in the database.
    FirstRows(Engine& engine, const std::vector<TargetTable>& tables);

    bool Concern(std::string_view table) const { return rows_.contains(std::string(table)); }
    /// Identity of the unchanged first row that has the key of this row of a file; each is handed out once.
    std::optional<std::int64_t> Take(const TableFile& file, const Cell* row);
    /// Deletes all unchanged first rows of a table.
    void Remove(Engine& engine, std::string_view table);

private:
    /// By table and key the identity of the row.
    std::map<std::string, std::map<std::string, std::int64_t>> rows_;
};

}  // namespace FX_Algen::store::load
