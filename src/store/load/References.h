#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/Engine.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// A column whose values are keys of another table.
struct Reference {
    std::string_view Table;
    std::string_view Column;
    std::string_view Parent;
    std::string_view Key;
    bool ZeroIsNone = false;  ///< 0 refers to nothing, like Null
    bool Needed = false;      ///< Null is refused as well: without it nothing leads to the row
};

/// A level of stored selections: the table whose keys its members are.
struct LevelTable {
    std::string_view Level;
    std::string_view Parent;
    std::string_view Key;
};

/// All references that loading checks, in the order of the referring tables.
std::span<const Reference> References();

/// The references of one table.
std::vector<Reference> ReferencesOf(std::string_view table);

/// Values of the column that no row of the parent has as its key, in ascending order; keys that were declared
/// as deleted (`DeletedKeys`) are none of them.
std::vector<std::int64_t> DanglingKeys(Engine& engine, const Reference& reference);

/// Whether no row of the parent has this key, and it was not declared as deleted.
bool Dangles(Engine& engine, const Reference& reference, std::int64_t key);

/// The levels of stored selections.
std::span<const LevelTable> LevelTables();
/// Members (selection, key) of the selections of a level that the level's table does not have, in order.
std::vector<std::pair<std::int64_t, std::int64_t>> DanglingMembers(Engine& engine, const LevelTable& level);

}  // namespace FX_Algen::store::load
