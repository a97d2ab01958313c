#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "FX_Algen/Load.h"
#include "store/Engine.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// Keys whose rows were deleted: those that are still referred to, and the last number of a counter where it
/// stands above its highest key. A dump tells them in a file of its own, since no table holds them.
class DeletedKeys {
public:
    /// Name of the file.
    static constexpr std::string_view FileName = "GeloeschteSchluessel.csv";
    /// Its columns, as a table of the loader.
    static const TargetTable& Table();
    /// Whether a file is this one, without regard to case.
    static bool IsFile(std::string_view name);

    /// One line of the file.
    struct Line {
        std::string Table;
        std::int64_t Key = 0;
        bool Counter = false;     ///< the last number that the table's counter gave out
        std::int64_t Number = 0;  ///< line of the file that it was read from
        friend bool operator==(const Line& a, const Line& b) { return (a <=> b) == 0; }
        friend std::strong_ordering operator<=>(const Line& a, const Line& b) {
            return std::tie(a.Table, a.Key, a.Counter) <=> std::tie(b.Table, b.Key, b.Counter);
        }
    };
    /// The lines of a file that can be read.
    static std::vector<Line> Lines(const LoadText& file, std::vector<LoadProblem>& problems);

    /// Readies the connection: `ButNot` may be used from here on.
    static void Prepare(Engine& engine);
    /// Reads the file and remembers its keys for this connection.
    static void Read(Engine& engine, const LoadText& file, const std::vector<TargetTable>& tables,
                     std::vector<LoadProblem>& problems);
    /// Condition that a value `v` is none of the keys of `table` that were read.
    static std::string ButNot(std::string_view table);
    /// Lets the counters go on behind the last numbers that were read.
    static void RaiseCounters(Engine& engine, const std::vector<TargetTable>& tables);

    /// The lines for a dump of these tables, sorted.
    static std::vector<Line> Find(Engine& engine, const std::vector<const TargetTable*>& dumped);
};

}  // namespace FX_Algen::store::load
