#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Assessment.h"
#include "FX_Algen/Store.h"
#include "fxalgen/Scope.h"

/// The program in its role as host of an assessment.
namespace FX_Algen::cli {

/// Sets sub-habitat, site and every other member that an assessment may read: an instance never forgets.
void SetAssessmentContext(AL_PS& ps, const AssessmentSite& site, bool KAOnly);

/// Fails with 94 where the frequency list would end at a finding of the sub-habitat: the class would rest on
/// a part of the findings.
void RequireCountedDiatoms(const store::DatabasePtr& database, std::int32_t ID_TR);

/// Why the frequency list has no column for the sub-habitat, in words; none where it has one. Without it all
/// counts and sums are 0, and the class that would follow from them is none.
std::optional<std::string> WhyNotListed(const store::DatabasePtr& database, const AssessmentSite& site);

/// Names of the benthic taxa found in the sub-habitat whose taxonomy leads to no major group, each once, by
/// name, "ID_ART 5" for one without: they count in no module, which deserves a warning.
std::vector<std::string> TaxaWithoutMajorGroup(store::Database& database, std::int32_t ID_TR);

/// The same of all taxa found, whatever their ratings: the frequency list outside an assessment has no row of
/// them.
std::vector<std::string> AllTaxaWithoutMajorGroup(store::Database& database, std::int32_t ID_TR);

/// "awaWRRL_TGZK (ID_AL_Bioregion=5, Hoehenstufe=9)"
std::string ReferenceText(const ReferenceLookup& lookup);

/// What a station deserves a warning for, each once for a station.
class StationWarnings {
public:
    /// Warnings about the station of a sub-habitat; empty where they were given already.
    std::vector<std::string> Of(const Teilraum& teilraum, const AssessmentSite& site);

private:
    std::vector<std::int32_t> seen_;
};

}  // namespace FX_Algen::cli
