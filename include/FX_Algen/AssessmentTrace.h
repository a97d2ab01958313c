#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Value.h"

/// The trace of an assessment: what each step read, decided and wrote. The routines of the assessment fill it
/// in step order while they work, so it cannot disagree with what they store, and it tells how far a failed
/// run came. It is kept only where a caller asks for it.
namespace FX_Algen {

// ---- frequency list -----------------------------------------------------------------------------------

/// Why a finding has no row in the frequency list of an assessment.
enum class NotListed : std::uint8_t {
    NoTaxonomy,       ///< the taxon does not reach a major group
    NoRatings,        ///< the taxon has no row of ratings
    OtherLebensform,  ///< its life form is not 1
    OtherMajorGroup,  ///< its major group is 132 or above
    OutOfScope,       ///< it is not among the taxa of the scope for another reason
};

/// What a mixed stand adds to the cell of a taxon.
struct StandShare {
    std::int32_t ID_TR_MI = 0;
    double SharePercent = 0;  ///< stand in the total cover
    double TaxonPercent = 0;  ///< taxon in the stand (`awaArtPrStelle_MI.DG_MI`)
    double Added = 0;         ///< product of both / 100
    friend bool operator==(const StandShare&, const StandShare&) = default;
};

/// A finding on its way into the list.
struct ListedFinding {
    std::int32_t ID_PS = 0;
    std::int32_t ID_ART = 0;
    bool CF = false;
    std::optional<NotListed> LeftOut;    ///< then nothing of the finding counts
    bool IsDiatom = false;               ///< `IstKA` of the list row
    std::optional<double> Abundance;     ///< valves of a diatom, cover in percent of another alga, as entered
    std::optional<double> Assigned;      ///< relative abundance that replaced the cell, percent
    std::vector<StandShare> FromStands;  ///< of another alga
    double Cell = 0;                     ///< the cell after this finding, percent
    friend bool operator==(const ListedFinding&, const ListedFinding&) = default;
};

/// How the column of one sub-habitat came about.
struct FrequencyColumn {
    double ValveSum = 0;           ///< valves that the diatoms are related to
    bool ValveSumCarried = false;  ///< none counted here: the sum of the sub-habitat before it stays
    float DG_Gesamt = 0;           ///< total cover used, percent
    float DG_MA = 0;               ///< macroalgae cover, percent
    std::vector<ListedFinding> Findings;
    friend bool operator==(const FrequencyColumn&, const FrequencyColumn&) = default;
};

// ---- lookups ------------------------------------------------------------------------------------------

/// One column of a key by which a reference table was asked, with the value as it stood in the statement.
struct LookupKey {
    std::string Column;
    std::string Value;
};

/// A lookup in a reference table.
struct ReferenceLookup {
    std::string Table;
    std::vector<LookupKey> Keys;
    bool Found = false;
    store::Value Result;  ///< the value taken, the marker value where no row was found
};

/// A row of class bounds; both bounds belong to the class.
struct ClassBounds {
    double EQRMin = 0;
    double EQRMax = 0;
    std::int16_t OEZK = 0;
};

/// From a quality ratio to its class.
struct ClassLookup {
    ReferenceLookup Lookup;                ///< keys: group, reference class, ratio
    float EQR = 0;                         ///< the ratio looked up
    std::int16_t OEZK = -1;                ///< -1 where none was found
    std::optional<ClassBounds> Hit;        ///< the row taken
    std::vector<ClassBounds> AlsoFitting;  ///< further rows that the ratio fits: it lies on a shared bound
};

// ---- modules ------------------------------------------------------------------------------------------

/// What the three modules share from the ratio on.
struct RatioTrace {
    float Index = 0;                  ///< measured index
    float ExpectedValue = -1;         ///< as used; -1 where none was found
    std::optional<double> Unrounded;  ///< ratio before rounding; none where it was not computed
    double BeforeCap = 0;             ///< rounded to two decimals
    float EQR = 0;                    ///< at most 1
    ClassLookup Class;
    ClassLookup Raised;                  ///< at EQR + 0.03
    std::vector<ClassBounds> AllBounds;  ///< all rows of group and reference class, by class
};

/// Trophic or saprobic module.
struct IndexModuleTrace {
    std::string Taxagruppe;
    ReferenceLookup ReferenceClass;  ///< `awaWRRL_TGZK` or `awaWRRL_SGZK`
    ReferenceLookup ExpectedValue;   ///< `awaWRRL_ETI` or `awaWRRL_ESI`
    std::string IndexColumn;         ///< of `awaErgProjekt`; empty for a group without one
    RatioTrace Ratio;
    bool Done = false;  ///< the module stored its columns
};

/// Why the group is what it is.
enum class GroupReason : std::uint8_t {
    AllGroups,         ///< "Alle": enough species-level abundance and taxa besides the diatoms
    DiatomsAsked,      ///< "KA": the run is one of the diatoms alone
    AbundanceBelow50,  ///< "KA": less than 50 percent besides the diatoms
    TaxaNotAbove3,     ///< "KA": at most 3 such taxa
};

/// A row of the frequency list with a share in the sub-habitat, and where it counts.
struct CountedTaxon {
    std::int32_t ID_ART = 0;
    bool CF = false;
    bool IsDiatom = false;                ///< `IstKA`
    double Abundance = 0;                 ///< relative abundance, percent
    std::optional<std::int32_t> ID_GRGR;  ///< major group
    bool IsSpecies = false;               ///< `awaArt.IstArtniveau`
    std::int32_t TypA = 0;                ///< times it counts as reference species of type A
    /// And of type B, under the condition; 0 for a further row of the taxon with the same abundance.
    std::int32_t TypB = 0;
    friend bool operator==(const CountedTaxon&, const CountedTaxon&) = default;
};

/// A column of `awaErgWRRL` that the reference species module wrote.
struct CountTrace {
    std::string Column;
    double Result = 0;
};

struct ReferenceSpeciesTrace {
    std::vector<CountedTaxon> Taxa;  ///< list order
    std::vector<CountTrace> Counts;  ///< counts and sums in the order in which they were computed
    GroupReason Reason = GroupReason::DiatomsAsked;
    std::string Taxagruppe;
    bool BedingtBewertbar = false;
    double RestrictionAbundance = 0;  ///< `AbundanzArtniveau`, which decides
    double RestrictionBound = 0;      ///< 167 or 85
    float RI_Abundanz = 0;
    float RI_Anzahl = 0;
    ReferenceLookup Type;           ///< `awaWRRL_RBioregionstyp`
    ReferenceLookup ExpectedValue;  ///< `awaWRRL_ERI`
    RatioTrace Ratio;               ///< `Index` is the reference index
    bool Done = false;
};

// ---- overall class ------------------------------------------------------------------------------------

enum class AssessmentModule : std::uint8_t { Trophic, Saprobic, ReferenceSpecies };

struct OverallTrace {
    std::array<std::int16_t, 3> Classes{-1, -1, -1};  ///< trophic, saprobic, reference species
    std::array<std::string, 3> ClassNames;
    std::int16_t WorstCase = -1;
    std::int16_t Count = 0;                                 ///< modules with the worst class
    AssessmentModule Deciding = AssessmentModule::Trophic;  ///< last module with the worst class
    std::optional<std::int16_t> Raised;                     ///< raised class of a single worst module
    bool Softened = false;
    std::int16_t OEZK = -1;
    std::string OEZK_Klasse;
    bool Done = false;
};

// ---- run ----------------------------------------------------------------------------------------------

/// Why a call assessed nothing.
enum class NotAssessed : std::uint8_t {
    NoSample,        ///< no row in `awaTeilraum`
    DiatomsAlready,  ///< a row of the sub-habitat holds the group "KA" already
};

struct AssessmentTrace {
    bool KAOnly = false;
    std::optional<NotAssessed> Skipped;
    bool ListBuilt = false;
    std::optional<FrequencyColumn> Column;
    std::optional<ReferenceSpeciesTrace> ReferenceSpecies;
    std::optional<IndexModuleTrace> Trophic;
    std::optional<IndexModuleTrace> Saprobic;
    std::optional<OverallTrace> Overall;
};

}  // namespace FX_Algen
