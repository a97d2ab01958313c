#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "FX_Algen/Create.h"

/// The layout of databases: which tables a new one gets, and which version the library reads.
namespace FX_Algen::store {

class Engine;

/// Version of the layout; kept as the engine's user version in each file.
inline constexpr std::int32_t LayoutVersion = 1;

/// Puts tables, triggers and first rows of `kind` into an open, empty database, in one transaction.
void CreateTables(Engine& engine, DatabaseKind kind);

/// As the public `CreateDatabase`, and `fill` puts rows into the file before it takes its name. Where `fill`
/// answers false or fails, no database is left behind.
void CreateDatabase(const std::string& path, DatabaseKind kind,
                    const std::function<bool(const std::string&)>& fill);

}  // namespace FX_Algen::store
