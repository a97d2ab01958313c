#pragma once

#include <cstdint>
#include <string_view>

#include "FX_Algen/Store.h"

/// The classic index calculation of a sub-habitat: the driver and the routines that it runs in their order.
///
/// Each routine reads the findings of one sub-habitat, and writes its columns of that sub-habitat's row in
/// `awaErgProjekt`. None catches a failure: what was written stays. A Null in a field that takes part in the
/// arithmetic fails with 94, and the description names table, field, taxon or stand, and sub-habitat. Without
/// a database the routines fail with 3343.
namespace FX_Algen {

namespace calc {
struct Spur;
struct Taxazaehlung;
}  // namespace calc

/// Empties `awaErgProjekt`.
void Berechnung_Init(const store::DatabasePtr& database);

/// Calculates one sub-habitat: inserts its row into `awaErgProjekt` (`KAOnly` false) and runs
/// `Berechnung_Lauf`. A sub-habitat without a row in `awaTeilraum` is not calculated and leaves no row.
/// Fails with 3022 where the sub-habitat has its row already.
///
/// `IstWRRL` selects the assessment variant; `ValenzGewicht` changes no result; `DebugModus` shows
/// intermediate values in blocking boxes. `spur`, where given, receives how the results came about.
void Berechnung_Execute(const store::DatabasePtr& database, std::int32_t ID_TR, bool IstWRRL,
                        bool ValenzGewicht, bool DebugModus, calc::Spur* spur = nullptr);

/// The routines of the classic path in their fixed order: saprobic, trophic, quantity index.
void Berechnung_Lauf(const store::DatabasePtr& database, std::int32_t ID, bool ValenzGewicht, bool IstWRRL,
                     bool DebugModus, calc::Spur* spur = nullptr);

/// Whether `awaErgWRRL` holds a diatom-only result for the sub-habitat.
bool CheckIstKA(const store::DatabasePtr& database, std::int32_t TeilraumID);

/// Saprobic index over macroalgae, mixed stands and valves, that of the diatoms alone, class counts and taxa
/// counts of a sub-habitat. With g = `Sap_GBer` and s = `SI` of a finding:
///
///   SapIndex = sum(w * s) / sum(w),   w = relative abundance in percent * g,
///
/// where the abundance is relative to the total cover (macroalgae, taxa of mixed stands) or to all counted
/// valves (diatoms). Both indices are without unit, not rounded, and 0 where no weight adds up. `KAOnly`
/// restricts the calculation to the valves and chooses the row that is written; no such row: nothing is
/// stored.
///
/// After the weighted mean of Zelinka, M. & Marvan, P. (1961): Zur Präzisierung der biologischen
/// Klassifikation der Reinheit fließender Gewässer. Archiv für Hydrobiologie 57, 389-407.
void Berechnung_Saprobie(const store::DatabasePtr& database, std::int32_t ID, bool ValenzGewicht,
                         bool IstWRRL, bool DebugModus, bool KAOnly, calc::Spur* spur = nullptr);

/// Trophic indices of a sub-habitat: `TI` (`Trophiewert`, `Trophiegewicht`), `TI_N` (the second pair) and
/// `TI_KA` (the first pair, diatoms alone), each a weighted mean as in `Berechnung_Saprobie`. Findings of
/// taxa without `Algenart` count in the valve block only.
///
/// After Rott, E. et al. (1999): Indikationslisten für Aufwuchsalgen in österreichischen Fließgewässern,
/// Teil 2: Trophieindikation. Bundesministerium für Land- und Forstwirtschaft, Wien.
void Berechnung_Trophie(const store::DatabasePtr& database, std::int32_t ID, bool IstWRRL, bool DebugModus,
                        bool KAOnly, calc::Spur* spur = nullptr);

/// Algae quantity index (Algenmengenindex) of a sub-habitat: sum of layer thickness * cover / 100 over
/// macroalgae and mixed stands, in mm of layer averaged over the sub-habitat. Always from the classic covers.
void Berechnung_AMI(const store::DatabasePtr& database, std::int32_t ID, calc::Spur* spur = nullptr);

/// Taxa of a sub-habitat, by `Modus`:
///
///   1 all taxa, 2 taxa with counted valves, 3 taxa with a saprobic value, 4 taxa with valves and a weight,
///   5 taxa on species level, 6 reference species, 7 all taxa, 8 species but no diatoms, 9 diatom species,
///   10 reference species among the diatoms, 11 the sum of counted valves.
///
/// 1 to 4 and 11 read the findings, and `IstWRRL` chooses their variant; taxa of mixed stands are in none of
/// them. 5 to 10 read the frequency list: its rows with a share above 0 in the sub-habitat's own column, so
/// that a taxon with and without `CF` counts twice. 5, 7, 8 and 9 count major groups up to 132, 6 and 10 any;
/// these two are taxa of `awaRefArt_TypA` plus taxa of `awaRefArt_TypB`, each of the latter once, narrowed by
/// `Kriterium`, a condition over `awaRefArt_TypB` (empty: none). Other modes do not read `Kriterium`.
///
/// Any failure gives 0 and an empty trace, any other `Modus` 0. The counts 5, 7, 8, 9 and 11 leave no taxa in
/// the trace.
double Taxazahl(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus, bool IstWRRL,
                std::string_view Kriterium = {}, calc::Taxazaehlung* spur = nullptr);

/// Taxa of a sub-habitat whose eight saprobic valences add up to exactly 10. A Null valence leaves a taxon
/// out.
double Taxazahl_Sap(const store::DatabasePtr& database, std::int32_t ID, bool IstWRRL,
                    calc::Taxazaehlung* spur = nullptr);

/// Taxa of a sub-habitat with a trophic value, by `Modus`: 1 `Trophiewert`, each taxon once; 2
/// `Trophiewert_N` and 3 `Trophiewert` of diatoms, each finding once. Any other `Modus` gives 0.
double Taxazahl_TI(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus, bool IstWRRL,
                   calc::Taxazaehlung* spur = nullptr);

/// Adds one taxon with saprobic value `SI` to the seven counters of the calling thread. Fails with 6 where a
/// counter would leave 16 bits.
void Gueteklasse_Zaehlen(double SI);

}  // namespace FX_Algen
