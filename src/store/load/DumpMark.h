#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Load.h"

namespace FX_Algen::store::load {

/// The file by which a dump of all tables says that it is whole: one line a table. What it names replaces
/// what a new database came with; without it files only add to the first rows.
class DumpMark {
public:
    /// Name of the file.
    static constexpr std::string_view FileName = "Auszug.csv";
    /// Whether a file is this one, without regard to case.
    static bool IsFile(std::string_view name);
    /// Its text for these tables.
    static std::string TextFor(const std::vector<std::string>& tables);

    /// No mark: nothing is named.
    DumpMark() = default;
    DumpMark(const LoadText& file, std::vector<LoadProblem>& problems);

    /// A table that the mark names.
    struct Line {
        std::string Table;
        std::string File;
        std::int64_t Number = 0;
    };
    const std::vector<Line>& Lines() const noexcept { return lines_; }
    /// Whether the mark names the table, without regard to case.
    bool Names(std::string_view table) const;

private:
    std::vector<Line> lines_;
};

}  // namespace FX_Algen::store::load
