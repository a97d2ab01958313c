#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "FX_Algen/Load.h"
#include "fxalgen/Command.h"

namespace FX_Algen::cli {

/// Runs a load with a progress bar where messages go to a terminal.
store::LoadResult LoadWithProgress(Streams& streams,
                                   const std::function<store::LoadResult(const store::LoadProgress&)>& load);

/// Tells the problems of a load, one a line: "awaArt.csv:12:ID_UFAM: …", and at the end how many there are.
/// True where there is none.
bool TellProblems(const store::LoadResult& result, std::string_view command, Streams& streams);

/// Tables with the number of their rows, and the sum.
void TellRows(std::span<const store::TableRows> tables, Streams& streams);

}  // namespace FX_Algen::cli
