#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Explain.h"
#include "FX_Algen/Store.h"

/// For hosts that assess: what to set for a sub-habitat, what its reference tables lack, and where its
/// classes come from.
namespace FX_Algen {

class AL_PS;

/// What the assessment of a sub-habitat asks of its site.
struct AssessmentSite {
    std::int32_t ID_TR = 0;
    std::int32_t ID_PRJ = 0;       ///< its project; 0 where the tree above it is broken
    std::string USBez;             ///< its station
    std::int32_t BioregionID = 0;  ///< `UnvUStelle.ID_AL_Bioregion`; 0 for Null
    std::int16_t Hoehenstufe = 0;  ///< `AL_Hoehenstufe.Hoehenstufe`; 0 for Null
    std::string RefBioregionen;    ///< short signs as the station lists them
    /// Condition over the columns of `awaRefArt_TypB`, made of `RefBioregionen`. Empty where that is empty:
    /// all reference species of type B count then, which deserves a warning.
    std::string RefBioregion;
    /// Elements of `RefBioregionen` whose altitude step has no row in `AL_Hoehenstufe`: they hardly find a
    /// reference species, which deserves a warning.
    std::vector<std::string> UnknownSteps;
};

/// Reads the site of a sub-habitat. Each element of `RefBioregionen` is a `Kurzzeichen` with an optional last
/// digit, the altitude step (`AL_Hoehenstufe.ID_AL_Hoehenstufe`). Fails with 3265 where the sub-habitat or a
/// `Kurzzeichen` does not exist; the description names station and sign.
AssessmentSite ReadAssessmentSite(const store::DatabasePtr& database, std::int32_t ID_TR);

/// Sets sub-habitat, scope (its own project, `USTAuswahl` false) and site into an instance.
void SetAssessmentSite(AL_PS& ps, const AssessmentSite& site);

/// Whether the frequency list has a column for the sub-habitat. It has none for one without sampling site or
/// with a broken project tree above it: all its counts are 0 then, and the class that follows from them is no
/// assessment. A host looks after each run.
bool HasFrequencyColumn(const store::DatabasePtr& database, std::int32_t ID_TR);

/// Name of a diatom of the sub-habitat whose valves were not entered (Null) while others were counted; none
/// where there is none. The frequency list of an assessment ends at such a finding, and what is assessed then
/// rests on a part of the findings, without a failure. A host looks before each run.
std::optional<std::string> UncountedDiatom(const store::DatabasePtr& database, std::int32_t ID_TR);

/// The reference rows that the stored assessments of a sub-habitat lacked, each once, the cause before what
/// follows from it: lookups whose marker value was stored and that find no row. The class at the raised ratio
/// is told only where that ratio is at most 1. Columns that are still Null after a failed run are passed
/// over.
std::vector<ReferenceLookup> MissingReferences(const store::DatabasePtr& database,
                                               const AssessmentSite& site);

/// The reference rows that the first run of a sub-habitat will lack among the reference classes and expected
/// values, each once: what `Pruefung_WRRL` looks for, with table and key. The frequency list must hold the
/// column of the sub-habitat; without it the answer is that for the group "KA".
std::vector<ReferenceLookup> MissingExpectedValues(const store::DatabasePtr& database,
                                                   const AssessmentSite& site);

/// The class beside that of a quality ratio.
struct NeighbourClass {
    std::int16_t OEZK = 0;
    double Bound = 0;     ///< its bound that is nearest to the ratio
    double Distance = 0;  ///< from ratio to bound, at least 0; 0 on a bound that both classes share
};

/// The next better and the next worse class by the bounds of the ratio's group and reference class, whatever
/// the steps between the class numbers. None where the ratio has no class, or no bounds stand on that side.
std::optional<NeighbourClass> NextBetterClass(const RatioTrace& ratio);
std::optional<NeighbourClass> NextWorseClass(const RatioTrace& ratio);

/// One assessment of a sub-habitat, explained.
struct ExplainedAssessment {
    bool KAOnly = false;
    AssessmentTrace Trace;
    /// SapIndex, SapIndex_KA, TI, TI_N, TI_KA in the run's variant; empty where the rerun assessed nothing.
    std::vector<ExplainedIndex> Indices;
    StoredResult State = StoredResult::Missing;
    std::vector<ExplainedColumn> Columns;  ///< every column of `awaErgWRRL`, in its order
    std::optional<Explanation::Failure> Failed;
};

/// Explains the stored assessments of a sub-habitat, first that over all groups, then that of the diatoms
/// alone: assesses it anew with the routines themselves, takes down how the classes come about, compares with
/// the stored rows, and undoes every change. Empty where none is stored. That of the diatoms alone is
/// assessed after the one over all groups, where that is stored too. Fails with 3343 without a database, and
/// as the store does where findings cannot be read; a failing assessment is part of the answer.
std::vector<ExplainedAssessment> ExplainAssessments(const store::DatabasePtr& database,
                                                    const AssessmentSite& site);

/// Name of a taxon, genus and species, for those that an explanation names by their keys; empty where the
/// catalogue lacks it.
std::string TaxonName(const store::DatabasePtr& database, std::int32_t ID_ART);

}  // namespace FX_Algen
