#pragma once

#include <cstdint>
#include <iosfwd>
#include <string_view>

#include "FX_Algen/Explain.h"
#include "fxalgen/Json.h"
#include "fxalgen/Scope.h"

namespace FX_Algen::cli {

/// The explanation as text for a biologist: basis, each index block by block, class and taxa counts, and
/// whether the stored result still is the same. `assessments` is text that stands between the names of the
/// sub-habitat and the basis.
void PrintExplanation(std::ostream& out, const Explanation& explanation, const Teilraum& teilraum,
                      std::int16_t SprachID, std::string_view assessments = {});

/// The names that lead to the sub-habitat, as a title.
void PrintHead(std::ostream& out, const Teilraum& teilraum, std::int16_t SprachID);

/// One index, block by block, with what was left out and the sums.
void PrintIndex(std::ostream& out, const ExplainedIndex& index, std::int16_t SprachID);

/// The explanation with the names of the public structure; enumerators as their names, Null as null.
Json ExplanationAsJson(const Explanation& explanation);
Json IndexAsJson(const ExplainedIndex& index);
Json CountAsJson(const ExplainedCount& count);
Json ColumnAsJson(const ExplainedColumn& column);
Json FailureAsJson(const std::optional<Explanation::Failure>& failure);
std::string_view NameOf(StoredResult state);

}  // namespace FX_Algen::cli
