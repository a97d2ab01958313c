#pragma once

#include <cstdint>
#include <iosfwd>

#include "FX_Algen/Explain.h"
#include "fxalgen/Json.h"
#include "fxalgen/Scope.h"

namespace FX_Algen::cli {

/// The explanation as text for a biologist: basis, each index block by block, class and taxa counts, and
/// whether the stored result still is the same.
void PrintExplanation(std::ostream& out, const Explanation& explanation, const Teilraum& teilraum,
                      std::int16_t SprachID);

/// The explanation with the names of the public structure; enumerators as their names, Null as null.
Json ExplanationAsJson(const Explanation& explanation);

}  // namespace FX_Algen::cli
