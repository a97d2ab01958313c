#pragma once

#include <cstdint>
#include <string>

/// Creation of databases.
namespace FX_Algen::store {

/// Kinds of databases; `docs/data-model.md` tells the tables of each.
enum class DatabaseKind : std::uint8_t {
    Project,  ///< project tree, findings, results, catalogue, taxonomy, reference data
    Main,     ///< menu groups
    Report,   ///< tables that report templates read
};

/// Creates the file `path` (UTF-8) as an empty database of `kind`: all its tables, and the rows without which
/// nothing works.
///
/// Fails with 3343 where the file exists already and with 53 where its folder does not exist. The file
/// appears under its name only when it is complete: a failure, or the end of the process halfway, leaves no
/// database behind.
void CreateDatabase(const std::string& path, DatabaseKind kind);

}  // namespace FX_Algen::store
