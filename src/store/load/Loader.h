#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "FX_Algen/Load.h"
#include "store/Engine.h"
#include "store/load/DumpMark.h"
#include "store/load/EqualRows.h"
#include "store/load/FirstRows.h"
#include "store/load/Problems.h"
#include "store/load/References.h"
#include "store/load/TableFile.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// One load: everything happens in one transaction, which is kept only where no problem was found.
class Loader {
public:
    Loader(const std::string& database, const LoadOptions& options);
    ~Loader();
    Loader(const Loader&) = delete;
    Loader& operator=(const Loader&) = delete;

    /// `unreadable` names files that are there and cannot be read.
    LoadResult Run(std::span<const LoadText> files, std::span<const std::string> unreadable = {});

private:
    /// What is remembered of a file besides its rows.
    struct Progress {
        std::int64_t Rows = 0;
        std::vector<std::int64_t> Refused;    ///< lines whose key the table refused
        std::vector<std::int64_t> Unwritten;  ///< all lines that are not in the table, sorted
        bool Unnumbered = false;              ///< some rows wait for a number of the counter
    };
    /// What the rows of one file are written with.
    struct Writing {
        std::size_t File = 0;
        std::unique_ptr<EngineStatement> Insert;
        std::unique_ptr<EqualRows> Equal;
        std::optional<std::size_t> Counter;  ///< position of the counter among the file's columns
    };
    /// Keys that children outside the files referred to in vain before their parent was replaced.
    struct Orphans {
        Reference Of;
        std::vector<std::int64_t> Before;
    };

    void MatchFiles(std::span<const LoadText> files);
    void MatchFile(const LoadText& file);
    void MatchFrequencyList(const LoadText& file);
    void RebuildFrequencyList(const std::vector<CsvField>& header);
    void AddFrequencyColumns(const std::vector<CsvField>& header);
    void CheckMark(std::span<const std::string> unreadable);
    void PutAside();
    void EmptyTable(const TargetTable& table);
    void Write();
    Writing Begin(std::size_t file);
    void WriteRow(Writing& writing, const Cell* row, std::int64_t line);
    bool Insert(Writing& writing, const Cell* row, std::int64_t line);
    void UpdateFirstRow(std::size_t file, std::int64_t id, const Cell* row);
    void WriteUnnumbered(std::size_t file);
    void PutBack();
    void CheckReferences();
    void CheckReference(const TableFile& file, const Reference& reference);
    void CheckMembers();
    void CheckKindsOfAlgae();
    void CheckOrphans();
    bool IsKnown(std::string_view table) const;
    const Progress& ProgressOf(const TableFile& file) const;
    void Add(std::vector<LoadProblem> problems);
    const TableFile* FileOf(std::string_view table) const;

    LoadOptions options_;
    std::unique_ptr<Engine> engine_;
    std::vector<TargetTable> tables_;
    std::vector<TableFile> files_;
    std::vector<Progress> progress_;
    std::vector<std::string> putAside_;  ///< statements that make triggers and indexes anew
    std::vector<Orphans> orphans_;
    std::unique_ptr<FirstRows> firstRows_;
    DumpMark mark_;
    std::vector<std::string> unreadable_;  ///< tables, folded, whose files cannot be read
    Problems problems_;
};

}  // namespace FX_Algen::store::load
