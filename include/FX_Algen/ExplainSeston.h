#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Explain.h"
#include "FX_Algen/Store.h"

/// Explanation of the seston calculation of a sub-habitat: where each of its numbers comes from.
namespace FX_Algen {

/// A finding that the seston indices counted.
struct SestonTerm {
    std::int32_t ID_ART = 0;
    std::string Taxon;       ///< genus and species; empty where the catalogue lacks the taxon
    bool CF = false;         ///< the determination is uncertain
    std::int32_t ID_PS = 0;  ///< sampling site
    std::string PSBez;       ///< its label
    double Abundanz = 0;
    double W_SI = 0;          ///< saprobic value of the taxon; 0 (no rating) pulls the index towards 0
    double Valenzen[4] = {};  ///< `W_O`, `W_B`, `W_A`, `W_P`
    double ValueTerm = 0;     ///< `Abundanz` * `W_SI`
    std::optional<double> EntropyTerm;  ///< p * ln(p); absent where the calculation did not come so far
};

/// Why a seston finding did not count.
enum class SestonRule : std::uint8_t {
    NoAbundance,     ///< abundance 0 or none: it counts among the taxa only
    NotInCatalogue,  ///< no row in `sesArt`: it counts among the taxa only
    FailedHere,      ///< the calculation failed at this finding: a value that it needs is Null
    NotCalculated,   ///< the calculation failed before it came to this finding
};

struct SestonOmission {
    std::int32_t ID_ART = 0;
    std::string Taxon;
    bool CF = false;
    std::int32_t ID_PS = 0;
    std::string PSBez;
    std::optional<double> Abundanz;
    SestonRule Rule = SestonRule::NoAbundance;
};

struct SestonExplanation {
    std::int32_t ID_TR = 0;
    StoredResult Stored = StoredResult::Missing;
    std::vector<SestonTerm> Terms;
    std::vector<SestonOmission> LeftOut;
    std::optional<double> AbundanceSum;     ///< N
    std::optional<double> ValueSum;         ///< sum of abundance * `W_SI`
    std::optional<double> ValenceSums[4];   ///< sums of abundance * valence
    std::optional<double> EntropySum;       ///< sum of p * ln(p) = -H
    std::optional<double> SquareSum;        ///< Q of the dispersion: sum of abundance * (`W_SI` - index)^2
    std::optional<std::int16_t> RatedRows;  ///< n of the dispersion: rows with a saprobic value
    std::vector<ExplainedCount> Counts;     ///< `Taxa`, `Taxa_SI`
    std::vector<ExplainedColumn> Columns;   ///< every result column, now and as stored
    std::optional<Explanation::Failure> Failed;  ///< the failure that ended the calculation
};

/// Explains the seston indices of a sub-habitat by calculating it again and undoing that: the trace is that
/// of the very calculation. Nothing in the database changes. A sub-habitat without seston explains as empty.
SestonExplanation ExplainSeston(const store::DatabasePtr& database, std::int32_t ID_TR);

}  // namespace FX_Algen
