#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "FX_Algen/Load.h"
#include "store/Engine.h"
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

    LoadResult Run(std::span<const LoadText> files);

private:
    /// What is remembered of a file besides its rows.
    struct Progress {
        std::int64_t Rows = 0;
        std::vector<std::int64_t> Refused;  ///< lines whose key the table refused
    };
    /// Keys that children outside the files referred to in vain before their parent was replaced.
    struct Orphans {
        Reference Of;
        std::vector<std::int64_t> Before;
    };

    void MatchFiles(std::span<const LoadText> files);
    void MatchFile(const LoadText& file);
    void AddFrequencyColumns(const LoadText& file);
    void PutAside();
    void EmptyTable(const TargetTable& table);
    void Write();
    void WriteRow(EngineStatement& insert, std::size_t file, const Cell* row, std::int64_t line);
    void PutBack();
    void CheckReferences();
    void CheckReference(const TableFile& file, const Reference& reference);
    void CheckOrphans();
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
    Problems problems_;
};

}  // namespace FX_Algen::store::load
