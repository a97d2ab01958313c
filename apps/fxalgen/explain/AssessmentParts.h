#pragma once

#include <string>
#include <string_view>

#include "fxalgen/explain/AssessmentText.h"
#include "fxalgen/explain/Prose.h"

/// Parts of an assessment's section; each writes what the trace holds of it.
namespace FX_Algen::cli {

/// "3 (mäßig)", or "3, mäßig (neu)" where the name holds a bracket; without a name the number alone.
std::string ClassText(const Prose& prose, std::int16_t OEZK, const std::string& name);

std::string NameOfTaxon(const AssessedSite& site, std::int32_t ID_ART, bool CF);

/// A count or sum of the module; 0 where it was not reached.
double CountOf(const ReferenceSpeciesTrace& species, std::string_view column);

/// Group and restriction, with the numbers that decide.
void PrintGroup(const Prose& prose, const ReferenceSpeciesTrace& species);

/// The three modules side by side, the worst case, the softening, the distance to the classes beside it.
void PrintOverall(const Prose& prose, const AssessmentTrace& trace);

/// A trophic or saprobic module.
void PrintIndexModule(const Prose& prose, AssessmentModule which, const IndexModuleTrace& module,
                      const ExplainedAssessment& assessment);

/// The reference species module: fractions, ratio, class.
void PrintReferenceSpecies(const Prose& prose, const ReferenceSpeciesTrace& species,
                           const AssessmentTrace& trace);

/// Which taxa count, as what, and the counts and sums made of them.
void PrintCountedTaxa(const Prose& prose, const ReferenceSpeciesTrace& species, const AssessedSite& site);

/// Each finding on its way into the frequency list, and those left out.
void PrintFrequencyList(const Prose& prose, const FrequencyColumn& column, const AssessedSite& site);

}  // namespace FX_Algen::cli
