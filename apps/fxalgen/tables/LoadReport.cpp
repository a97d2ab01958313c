#include "fxalgen/tables/LoadReport.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <string>

#include "fxalgen/Progress.h"

namespace FX_Algen::cli {

namespace {

/// "awaArt.csv:12:ID_UFAM: reason"; what is not known is left out.
std::string Line(const store::LoadProblem& problem) {
    std::string out = problem.File;
    if (problem.Line > 0) out += ':' + std::to_string(problem.Line);
    if (!problem.Column.empty()) out += (problem.Line > 0 ? ":" : ": ") + problem.Column;
    return out + ": " + problem.Reason;
}

}  // namespace

store::LoadResult LoadWithProgress(Streams& streams,
                                   const std::function<store::LoadResult(const store::LoadProgress&)>& load) {
    // How many bytes there are is known with the first step.
    std::optional<Progress> bar;
    return load([&](std::uint64_t done, std::uint64_t all) {
        if (!bar) bar.emplace(streams, "Loading", static_cast<std::size_t>(all));
        bar->Show(static_cast<std::size_t>(done));
    });
}

bool TellProblems(const store::LoadResult& result, std::string_view command, Streams& streams) {
    if (result.Problems.empty()) return true;
    for (const auto& problem : result.Problems) streams.Err << Line(problem) << '\n';
    const std::size_t count = result.Problems.size() + result.MoreProblems;
    streams.Err << "fxalgen " << command << ": " << count << (count == 1 ? " problem" : " problems");
    if (result.MoreProblems > 0) streams.Err << " (the first " << result.Problems.size() << " are shown)";
    streams.Err << ", nothing was written\n";
    return false;
}

void TellRows(std::span<const store::TableRows> tables, Streams& streams) {
    std::size_t width = 0;
    std::int64_t sum = 0;
    for (const auto& table : tables) {
        width = std::max(width, table.Table.size());
        sum += table.Rows;
    }
    for (const auto& table : tables)
        streams.Out << table.Table << std::string(width + 2 - table.Table.size(), ' ') << table.Rows << '\n';
    streams.Out << tables.size() << (tables.size() == 1 ? " table, " : " tables, ") << sum
                << (sum == 1 ? " row" : " rows") << '\n';
}

}  // namespace FX_Algen::cli
