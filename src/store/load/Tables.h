#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"
#include "store/dialect/Catalogue.h"

namespace FX_Algen::store::load {

/// A column as a file has to fill it.
struct TargetColumn : dialect::ColumnInfo {
    bool NotNull = false;  ///< the table refuses Null: a part of a key that is no counter
    bool Required =
        false;  ///< a file may not leave it empty: `NotNull`, or a reference that leads to the row
    bool HasDefault = false;
    double Least = -std::numeric_limits<double>::infinity();  ///< smallest number that is possible
    double Most = std::numeric_limits<double>::infinity();    ///< greatest number that is possible
    std::span<const std::string_view> Texts;                  ///< texts to choose from; empty = any
    bool IgnoreCase = false;                                  ///< of `Texts`
};

/// A table as the loader and the dump see it.
struct TargetTable {
    std::string Name;
    std::vector<TargetColumn> Columns;
    /// Positions of the columns of the primary key and of each unique index, the primary key first.
    std::vector<std::vector<std::size_t>> Unique;
    bool HasKey = false;  ///< whether the first of them is the primary key

    /// Position of a column by name without regard to case; `Columns.size()` if there is none.
    std::size_t Find(std::string_view name) const;
    /// The name of the one counter; empty if there is none.
    std::string Counter() const;
    /// Position of the one counter; `Columns.size()` if there is none.
    std::size_t CounterPosition() const;
};

/// The tables of an open database, sorted by name; those of the engine itself are left out.
std::vector<TargetTable> ReadTables(Engine& engine);
/// The table of that name without regard to case; nullptr if there is none.
const TargetTable* FindTable(const std::vector<TargetTable>& tables, std::string_view name);

/// A name as the engine's statements take it.
std::string Name(std::string_view name);
/// A text as the engine's statements take it.
std::string Literal(std::string_view text);

/// Opens a database of this layout version; 53 and 3343 as `OpenEngine`.
std::unique_ptr<Engine> OpenDatabaseFile(const std::string& path);

/// The one row and column of a statement as an integer.
std::int64_t IntegerOf(Engine& engine, std::string_view sql);

}  // namespace FX_Algen::store::load
