#pragma once

#include <cstdint>
#include <optional>

#include "FX_Algen/Store.h"

/// The seston calculation of a sub-habitat: driver, indices and their helpers.
///
/// Rows come from `sesArtPrStelle` with the values of `sesArt`; the results stand in `sesErgProjekt`, one row
/// for each sub-habitat. None but `SI_Streuung_Seston` catches a failure: what was written stays. Without a
/// database the routines fail with 3343.
namespace FX_Algen {

namespace calc {
struct SestonSpur;
struct Streuungssummen;
struct Taxazaehlung;
}  // namespace calc

/// Empties `sesErgProjekt`.
void Berechnung_InitSeston(const store::DatabasePtr& database);

/// Calculates the seston of one sub-habitat: inserts its row into `sesErgProjekt` and runs
/// `Berechnung_Seston`. Whether the sub-habitat was sampled for seston is not asked: without findings the row
/// holds zeros and Null valences. Fails with 3022 where the sub-habitat has its row already; a calculation
/// that fails leaves the row with its key only.
///
/// `ValenzGewicht` changes no result; `DebugModus` shows statements and steps in blocking boxes. `spur`,
/// where given, receives how the results came about.
void Berechnung_ExecuteSeston(const store::DatabasePtr& database, std::int32_t ID_TR, bool ValenzGewicht,
                              bool DebugModus, calc::SestonSpur* spur = nullptr);

/// Saprobic index, valences, dispersion and diversity of the seston of a sub-habitat, over its findings with
/// a = `Abundanz` above 0. Each finding is a row of its own: a taxon with and without `CF`, or at two
/// sampling sites, counts twice.
///
///   SapIndex = sum(a * W_SI) / sum(a)                    0 without findings; not rounded
///   Oligo, Beta, Alpha, Poly = sum(a * W) / V * 10       W = W_O, W_B, W_A, W_P; V = sum over all four
///   KumOligo … KumPoly: the same, cumulated              Null like the former where V is not above 0
///   Abundanzsumme N = sum(a), Taxa S, Taxa_SI            counts of taxa, abundance 0 included
///   ShannonundWeaver H = -sum(p * ln p), p = a / N       in nats
///   MArgalef = (S - 1) / ln N                            0 where N is not above 1
///   Eveness = H / ln S                                   0 where S is not above 1
///
/// and `SI_Streuung` as in `SI_Streuung_Seston`. Findings of unrated taxa (`W_SI` 0) count with the value 0.
/// The sums of the index and of the valences are 32-bit floats after every addition, and so is V; N is a
/// 32-bit integer (6 beyond its range), the rest is computed in 64 bits.
///
/// Fails with 94 where `W_SI` or a valence of a counted finding is Null; the description names table, field,
/// taxon and sub-habitat. Nothing is stored where the sub-habitat has no row in `sesErgProjekt`. The findings
/// that counted stay in `sesErgProjektTmp` until the next call.
///
/// After Pantle, R. & Buck, H. (1955): Die biologische Überwachung der Gewässer und die Darstellung der
/// Ergebnisse. Gas- und Wasserfach 96, 604 (index). Zelinka, M. & Marvan, P. (1961): Zur Präzisierung der
/// biologischen Klassifikation der Reinheit fließender Gewässer. Archiv für Hydrobiologie 57, 389-407
/// (valences). Shannon, C. E. & Weaver, W. (1949): The Mathematical Theory of Communication. University of
/// Illinois Press, Urbana (H). Margalef, R. (1958): Information theory in ecology. General Systems 3, 36-71.
/// Pielou, E. C. (1966): The measurement of diversity in different types of biological collections. Journal
/// of Theoretical Biology 13, 131-144 (evenness).
void Berechnung_Seston(const store::DatabasePtr& database, std::int32_t ID, bool ValenzGewicht,
                       bool DebugModus, calc::SestonSpur* spur = nullptr);

/// Seston taxa of a sub-habitat: distinct taxa of all findings, those with abundance 0 and those that the
/// catalogue lacks included.
double Taxazahl_Seston(const store::DatabasePtr& database, std::int32_t ID,
                       calc::Taxazaehlung* spur = nullptr);

/// Those of them whose four valences add up to exactly 10. A Null valence leaves a taxon out.
double Taxazahl_SestonSap(const store::DatabasePtr& database, std::int32_t ID,
                          calc::Taxazaehlung* spur = nullptr);

/// Dispersion of the saprobic index S = `SapIndex` over the rows of the sub-habitat in `sesErgProjektTmp`:
///
///   sqrt(sum(a * (Si - S)^2) / ((n - 1) * sum(a)))
///
/// where n counts the rated rows while both sums run over all. 0 for fewer than two rated rows, and 0 on any
/// failure, which leaves `summen` empty.
double SI_Streuung_Seston(const store::DatabasePtr& database, std::int32_t ID, double SapIndex,
                          std::optional<calc::Streuungssummen>* summen = nullptr) noexcept;

}  // namespace FX_Algen
