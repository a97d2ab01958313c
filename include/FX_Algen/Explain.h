#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Store.h"

/// Explanation of a calculated sub-habitat: where each of its numbers comes from.
namespace FX_Algen {

/// The forms in which an algae sample reaches an index.
enum class SampleBlock : std::uint8_t {
    Macroalgae,   ///< cover in percent (`DG_MA`)
    MixedStands,  ///< share of the stand in percent (`awaArtPrStelle_MI.DG_MI`)
    Valves,       ///< counted diatom valves (`Schalen_KA`)
};

/// A finding as a person knows it.
struct ExplainedFinding {
    std::int32_t ID_ART = 0;
    std::string Taxon;                  ///< genus and species; empty where the catalogue lacks the taxon
    bool CF = false;                    ///< the determination is uncertain
    std::optional<std::int32_t> ID_PS;  ///< sampling site, of macroalgae and valves
    std::string PSBez;                  ///< its label
    std::optional<std::int32_t>
        ID_TR_MI;        ///< mixed stand, of its taxa; of a whole stand in the quantity index
    std::string MI_Bez;  ///< its name
};

/// Why a finding that counted moves the index in an unexpected way, or not at all.
enum class TermRemark : std::uint8_t {
    None,
    WeightZero,         ///< weight 0: adds nothing
    ValueZero,          ///< value 0 with a weight: pulls the index towards 0
    StandWithoutCover,  ///< its stand covers 0 percent: adds nothing
};

/// A finding that an index counted.
struct ExplainedTerm {
    SampleBlock Block = SampleBlock::Macroalgae;
    ExplainedFinding Finding;
    double Abundance = 0;     ///< percent of cover, percent of the stand, or valves
    double SharePercent = 0;  ///< relative abundance: percent of the total cover, or of all valves; in the
                              ///< quantity index the cover itself
    double Weight = 0;        ///< indicator weight; in the quantity index the layer thickness in mm
    double Value = 0;         ///< indicator value; not used in the quantity index
    double WeightTerm = 0;    ///< what it adds to the sum of weights; not used in the quantity index
    double ValueTerm = 0;     ///< what it adds to the sum of values, in the quantity index to the index
    TermRemark Remark = TermRemark::None;
};

/// Why a finding did not count.
enum class LeftOutRule : std::uint8_t {
    NoAbundance,      ///< cover, share or valves are 0 or were not entered
    NoRatings,        ///< the taxon has no row of ratings
    NoAlgenart,       ///< the taxon has no kind of alga (`Algenart`)
    NoTotalCover,     ///< the total cover of the sub-habitat is not above 0
    NoLayer,          ///< no layer thickness (quantity index)
    OtherLebensform,  ///< assessment variant: the life form of the taxon is not 1
    OtherMajorGroup,  ///< assessment variant: its major group is that of the diatoms, or 132 and above
    NoTaxonomy,       ///< assessment variant: the taxon does not reach a family
    DiatomsOnly,      ///< the run is one of the diatoms alone: other findings are not read
    FailedHere,       ///< the calculation failed at this finding: a value that it needs is Null
    NotCalculated,    ///< the calculation failed before it came to this finding
};

struct ExplainedOmission {
    SampleBlock Block = SampleBlock::Macroalgae;
    ExplainedFinding Finding;
    std::optional<double> Abundance;  ///< in the unit of the block; absent where it was not entered
    LeftOutRule Rule = LeftOutRule::NoAbundance;
};

/// One index: result = `ValueSum` / `WeightSum`, or 0 where `WeightSum` is not above 0. The quantity index is
/// `ValueSum` itself.
struct ExplainedIndex {
    std::string Column;  ///< SapIndex, SapIndex_KA, TI, TI_N, TI_KA, AMI
    std::vector<ExplainedTerm> Terms;
    std::vector<ExplainedOmission> LeftOut;
    /// Absent where the calculation failed before the sums were complete: `Terms` tells how far it came. The
    /// quantity index has no `WeightSum`.
    std::optional<double> WeightSum;
    std::optional<double> ValueSum;
    store::Value Result;  ///< as calculated now; Null where the calculation failed before it
    store::Value Stored;  ///< as it stands in the result row; Null without one
};

/// What the class counting did with a row.
enum class ClassRule : std::uint8_t {
    Counted,
    NoClass,    ///< its saprobic value belongs to no class
    SameTaxon,  ///< same taxon as the row before: not counted again
};

struct ExplainedClassRow {
    SampleBlock Block = SampleBlock::Macroalgae;
    std::int32_t ID_ART = 0;
    std::string Taxon;
    double SI = 0;
    std::optional<std::size_t> Class;  ///< 0 (I) to 6 (IV): position in `Explanation::Classes`
    ClassRule Rule = ClassRule::Counted;
};

struct ExplainedClass {
    std::string Column;  ///< ANZ_Gueteklasse_I …
    std::string Name;    ///< "I", "I-II", …
    store::Value Result;
    store::Value Stored;
};

/// A taxa count with the taxon of each row that it counted.
struct ExplainedCount {
    std::string Column;  ///< Taxa, Taxa_KA, …
    struct Taxon {
        std::int32_t ID_ART = 0;
        std::string Name;
    };
    std::vector<Taxon> Taxa;
    store::Value Result;
    store::Value Stored;
};

/// A mixed stand as the indices read it.
struct ExplainedStand {
    std::int32_t ID_TR_MI = 0;
    std::string MI_Bez;
    std::optional<double> CoverPercent;  ///< of the sub-habitat; absent where it was not entered
    /// Of the total cover; absent where that is not above 0, since stands are not read then, and where the
    /// calculation failed before it read the stand.
    std::optional<double> SharePercent;
};

/// A column of the result row, calculated now and as stored.
struct ExplainedColumn {
    std::string Column;
    store::Value Result;
    store::Value Stored;
    bool Differs = false;
};

enum class StoredResult : std::uint8_t {
    Missing,    ///< no row for the sub-habitat
    Current,    ///< the row holds what a calculation gives now
    OutOfDate,  ///< findings, covers or ratings changed since: `Columns` tells which results differ
};

struct Explanation {
    std::int32_t ID_TR = 0;
    std::string TRBez;
    /// Whether the sub-habitat has an algae sample; without one nothing is calculated.
    bool Sampled = false;
    /// Assessment variant: that of the stored row, else the classic one.
    bool IstWRRL = false;

    std::optional<float> DG_Gesamt;      ///< total cover used, percent; absent where it is Null
    std::optional<float> DG_Makroalgen;  ///< macroalgae cover used, percent; absent where it is Null
    double Schalen = 0;                  ///< all counted valves, those of taxa without ratings included
    /// The counted valves that the diatoms are related to: in the assessment variant those of taxa with life
    /// form 1, else all.
    float Summe_KA = 0;
    std::vector<ExplainedStand> Stands;

    /// The quantity index is missing where an assessment left the row: it calculates none.
    std::vector<ExplainedIndex> Indices;
    std::vector<ExplainedClass> Classes;
    std::vector<ExplainedClassRow> ClassRows;
    std::vector<ExplainedCount> Counts;

    StoredResult State = StoredResult::Missing;
    /// Every column that a calculation writes, in its order.
    std::vector<ExplainedColumn> Columns;

    /// The failure that ended the calculation, if one did; what came before it is explained all the same.
    struct Failure {
        std::int32_t Number = 0;
        std::string Description;
    };
    std::optional<Failure> Failed;
};

/// Explains one sub-habitat: calculates it anew with the routines themselves, takes down how the numbers come
/// about, compares them with the stored row, and undoes every change. Fails with 3343 without a database, and
/// as the store does where findings cannot be read; a failing calculation is part of the answer.
Explanation Explain(const store::DatabasePtr& database, std::int32_t ID_TR);

}  // namespace FX_Algen
