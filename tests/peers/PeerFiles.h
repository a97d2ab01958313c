#pragma once

#include <map>
#include <string>
#include <vector>

/// Files with the results of other programs.
namespace FX_Algen::peers {

/// A row by the names of its columns.
using Row = std::map<std::string, std::string>;

/// All rows of a CSV file below the folder of the peers. Throws where there is none, or a row that does not
/// fit its head.
std::vector<Row> ReadCsv(const std::string& name);

/// A text as a literal of a statement.
std::string SqlText(const std::string& text);

}  // namespace FX_Algen::peers
