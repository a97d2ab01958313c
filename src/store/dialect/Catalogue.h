#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Value.h"

namespace FX_Algen::store::dialect {

/// A column as the schema declares it.
struct ColumnInfo {
    std::string Name;
    Kind Type = Kind::Text;
    bool HasTime = false;  ///< of a Date column: declared TIME
    bool IsKey = false;    ///< part of the primary key
    bool IsCounter = false;
};

/// A table or view as the schema declares it.
struct TableInfo {
    std::string Name;
    bool IsView = false;
    std::vector<ColumnInfo> Columns;

    /// The column of that name without regard to case (umlauts included), nullptr if there is none.
    const ColumnInfo* Find(std::string_view name) const;
};

/// The key of a table whose key is one whole number and no counter; nullptr for other tables. Such a key has
/// to be given: the engine would number it by itself.
const ColumnInfo* LoneKey(const TableInfo& table);

/// What the translator needs to know of a database: its tables by name, without regard to case.
class Catalogue {
public:
    virtual ~Catalogue() = default;
    virtual const TableInfo* FindTable(std::string_view name) const = 0;
};

/// Case fold of a name or text for comparison: full Unicode, so that "HÄUFIGKEIT" equals "Häufigkeit".
std::string Fold(std::string_view text);

}  // namespace FX_Algen::store::dialect
