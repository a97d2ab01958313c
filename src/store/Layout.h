#pragma once

#include <cstdint>

#include "FX_Algen/Create.h"

/// The layout of databases: which tables a new one gets, and which version the library reads.
namespace FX_Algen::store {

class Engine;

/// Version of the layout; kept as the engine's user version in each file.
inline constexpr std::int32_t LayoutVersion = 1;

/// Puts tables, triggers and first rows of `kind` into an open, empty database, in one transaction.
void CreateTables(Engine& engine, DatabaseKind kind);

}  // namespace FX_Algen::store
