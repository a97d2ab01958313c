#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::wrrl {

/// The rows of the frequency list with a share in the sub-habitat, in list order, and where they count. Fails
/// where the list has no column for it. A condition that the store rejects leaves type B uncounted, as in the
/// counts themselves.
std::vector<CountedTaxon> GezaehlteTaxa(store::Database& database, std::int32_t ID_TR,
                                        std::string_view RefBioregion);

}  // namespace FX_Algen::wrrl
