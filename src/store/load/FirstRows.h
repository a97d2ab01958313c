#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"
#include "store/load/TableFile.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// The rows that a project database came with. One that nobody changed gives way to a row of a file with the
/// same key, so that a whole database can be loaded into a new one, and a file may bring a first row in other
/// words.
class FirstRows {
public:
    /// Tables that have such rows.
    static std::span<const std::string_view> Tables();

    /// Finds the first rows that stand unchanged in the database.
    FirstRows(Engine& engine, const std::vector<TargetTable>& tables);

    bool Concern(std::string_view table) const { return keys_.contains(std::string(table)); }
    /// Removes the unchanged first row that has the key of this row of a file, if there is one.
    void GiveWay(Engine& engine, const TableFile& file, const Cell* row);

private:
    std::map<std::string, std::set<std::string>> keys_;
};

}  // namespace FX_Algen::store::load
