#pragma once

#include <cstdint>
#include <optional>

#include "FX_Algen/Store.h"

namespace FX_Algen {

/// How much of a sample an index rests on: the part, in percent, that carries a weight above 0 and a value
/// above 0. A part is absent where there is nothing to relate it to (no valves, no total cover).
struct IndexCoverage {
    /// Of all counted valves of the sub-habitat, those of taxa without ratings included.
    std::optional<double> ValvesPercent;
    /// Of the total cover of the sub-habitat. Cover that no taxon was noted for carries no value; noted
    /// covers that overlap can add up to more than 100.
    std::optional<double> CoverPercent;
};

struct Coverage {
    IndexCoverage Saprobic;   ///< `Sap_GBer` and `SI`
    IndexCoverage Trophic;    ///< `Trophiegewicht` and `Trophiewert`
    IndexCoverage Trophic_N;  ///< `Trophiegewicht_N` and `Trophiewert_N`
};

/// Coverage of one sub-habitat, from findings and ratings as they stand now. `IstWRRL` reads the covers, and
/// leaves out the taxa, of the assessment variant. A Null counts as nothing here and fails nothing, so that
/// sub-habitats whose calculation failed can be shown too.
Coverage CoverageOf(const store::DatabasePtr& database, std::int32_t ID_TR, bool IstWRRL = false);

}  // namespace FX_Algen
