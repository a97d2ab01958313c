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
/// Fails with 3343 where the file exists already, or where a database of this name left its `-wal`,
/// `-journal` or `-shm` behind, and with 53 where the name is empty, the folder does not exist or cannot be
/// written. The file appears under its name only when it is complete: a failure, or the end of the process
/// halfway, leaves no database behind; a process that was killed leaves a file `<name>.new-<number>`, which
/// is in nobody's way.
void CreateDatabase(const std::string& path, DatabaseKind kind);

}  // namespace FX_Algen::store
