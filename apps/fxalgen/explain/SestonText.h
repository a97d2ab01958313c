#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>

#include "FX_Algen/ExplainSeston.h"
#include "fxalgen/Json.h"

namespace FX_Algen::cli {

/// The explanation of a sub-habitat's seston; none where it was not sampled for seston and its stored row, if
/// there is one, says so too.
std::optional<SestonExplanation> ReadSeston(const store::DatabasePtr& database, std::int32_t ID_TR);

/// The explanation as text for a biologist: findings by their share, what was left out, the sums, each
/// formula with its numbers, the taxa counts, and whether the stored result still is the same.
void PrintSeston(std::ostream& out, const SestonExplanation& seston, std::int16_t SprachID);

/// The explanation with the names of the public structure; enumerators as their names, Null as null.
Json SestonAsJson(const std::optional<SestonExplanation>& seston);

}  // namespace FX_Algen::cli
