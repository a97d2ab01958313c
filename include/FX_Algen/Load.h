#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Loading of tables from CSV files, and the reverse.
///
/// One file a table, named after it (`awaArt.csv`), in UTF-8 (a byte order mark is accepted), after RFC 4180:
/// fields are separated by "," or, where the header line says so, by ";"; a field in double quotes may hold
/// separators, line breaks and doubled quotes. The header names columns in any order and without regard to
/// case; columns that it does not name take their defaults. An empty field is Null, `""` the empty text.
/// Numbers have a decimal point; in files with ";" a decimal comma is accepted as well. Booleans are -1, 0,
/// 1, true or false; dates 2026-05-12 or 12.05.2026; times 09:30 or 09:30:00.
namespace FX_Algen::store {

/// One thing that is wrong with a file. Problems come sorted by file, line and column.
struct LoadProblem {
    std::string File;
    std::int64_t Line = 0;  ///< counted from 1, the header line included; 0 = the file as a whole
    std::string Column;     ///< name of the column; empty = the line as a whole
    std::string Reason;     ///< in English, one sentence without a stop
};

/// A file in memory.
struct LoadText {
    std::string_view Name;  ///< "awaArt.csv"; a folder before it is not looked at
    std::string_view Text;
};

/// Called with the bytes done and the bytes in all; never with the same pair twice in a row.
using LoadProgress = std::function<void(std::uint64_t, std::uint64_t)>;

struct LoadOptions {
    bool Replace = false;            ///< the tables that files are given for are emptied first
    std::size_t MaxProblems = 1000;  ///< how many problems are told; the rest is counted
    LoadProgress Progress = nullptr;
};

/// Rows of a table that were loaded or dumped.
struct TableRows {
    std::string Table;
    std::int64_t Rows = 0;
};

struct LoadResult {
    std::vector<LoadProblem> Problems;  ///< not empty: nothing was written
    std::size_t MoreProblems = 0;       ///< those beyond `MaxProblems`
    std::vector<TableRows> Tables;      ///< in the order of the table names; empty where problems stand
};

/// Loads every `*.csv` of the folder into the database, all or nothing: all problems of all files are found
/// in one go, and the database changes only where there is none.
///
/// Checked are names of files and columns, the number of fields, kinds and ranges of values, encoding, keys
/// (missing, twice in a file, or in the table already), equal rows of reference tables, and references to
/// rows that do not exist. A row that the new database came with and that nobody changed takes on what a row
/// of the file with the same key says; where `Auszug.csv` names the table, such rows go altogether. Files
/// whose names begin with "." are not looked at. Fails with 53 where folder, files or database do not exist
/// and with 3343 where the database is none of this layout version.
LoadResult LoadFolder(const std::string& folder, const std::string& database,
                      const LoadOptions& options = {});

/// The same from texts in memory. A text whose name does not end in ".csv" is not looked at.
LoadResult LoadTexts(std::span<const LoadText> files, const std::string& database,
                     const LoadOptions& options = {});

/// Loads the demo project into a new project database.
LoadResult LoadDemo(const std::string& database, const LoadProgress& progress = nullptr);

/// Creates the project database `path` with the demo project in it. The file appears under its name only when
/// the demo is in it; otherwise as `CreateDatabase`.
LoadResult CreateDemoDatabase(const std::string& path, const LoadProgress& progress = nullptr);

/// Writes one `<Table>.csv` a table into `folder`, which is made where it does not exist; files of the same
/// name are replaced. Rows come in the order of their keys, tables without a key in the order in which they
/// hold their rows; the same database gives the same bytes. Loading the files into a new database, or with
/// `Replace` into any other, gives the same content.
///
/// Where rows refer to a row that was deleted, or a counter stands above its highest key, the file
/// `GeloeschteSchluessel.csv` names those keys, so that loading accepts the references and does not give the
/// numbers out again. A dump of all tables also writes `Auszug.csv`, which names them: loading it replaces
/// what a new database came with.
///
/// The files take their names together at the end, so that a dump that fails leaves an older one as it was.
///
/// `tables` names the tables without regard to case; none = all. Chosen tables leave the other files of the
/// folder alone, and `GeloeschteSchluessel.csv` keeps its other lines. Fails with 13 where a cell does not
/// hold what its column is declared for (all such cells are told), with 53 where the database does not exist
/// or a file cannot be written, with 3078 where a table does not exist, with 3343 as above.
std::vector<TableRows> Dump(const std::string& database, const std::string& folder,
                            std::span<const std::string> tables = {});

}  // namespace FX_Algen::store
