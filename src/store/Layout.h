#pragma once

#include <cstdint>
#include <string>

/// The layout of databases: which tables a new one gets, and which version the library reads.
namespace FX_Algen::store {

/// Version of the layout; kept as the engine's user version in each file.
inline constexpr std::int32_t LayoutVersion = 1;

/// Kinds of databases, each with its folder below data/schema.
enum class DatabaseKind { Project, Main, Report };

/// Creates the file with all tables, triggers and first rows of its kind. Fails with 3343 where
/// the file exists already, and leaves nothing behind on failure.
void CreateDatabase(const std::string& path, DatabaseKind kind);

}  // namespace FX_Algen::store
