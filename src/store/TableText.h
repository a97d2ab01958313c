#pragma once

#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "store/Connection.h"

namespace FX_Algen::store {

/// The engine's statement that makes a table of these fields; 13 where a field has no type or a default does
/// not fit it.
std::string CreateTableText(const std::string& table, const std::vector<FieldDef>& fields);

/// Whether the table is there exactly as that statement makes it, without index or trigger.
bool IsMadeOf(Connection& connection, const std::string& table, const std::vector<FieldDef>& fields);

/// Takes all rows out of a table.
void EmptyTable(Connection& connection, const std::string& table);

}  // namespace FX_Algen::store
