#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Store.h"
#include "wrrl/Artenliste.h"

/// The assessment of a sub-habitat's ecological status under the Water Framework Directive.
///
/// Three modules each relate an index to the value expected of the site's reference class and look up the
/// class of that ratio (EQR); the worst of the three classes decides. Metrics after Rott, E. et al. (1997,
/// 1999): Indikationslisten für Aufwuchsalgen in österreichischen Fließgewässern, Teil 1 and 2.
///
/// Except where told, no routine catches a failure: what was written stays. Without a database the routines
/// fail with 3343. Each takes an optional trace that it fills in step order.
namespace FX_Algen {

namespace calc {
struct Spur;
}

/// What a run takes from the host's context.
struct Bewertungsauftrag {
    Listenauftrag Liste;  ///< scope of the frequency list; its `TeilraumID` is the sub-habitat assessed
    bool KAOnly = false;
    bool ValenzGewicht = false;
    std::int32_t BioregionID = 0;
    std::int16_t Hoehenstufe = 0;
    std::string RefBioregion;  ///< condition over the columns of `awaRefArt_TypB`; empty = none
};

/// Empties `awaErgProjekt` and `awaErgWRRL`.
void Berechnung_WRRLInit(const store::DatabasePtr& database);

/// Assesses one sub-habitat into its rows (`ID`, `KAOnly`) of `awaErgProjekt` and `awaErgWRRL`. Nothing
/// happens without a row in `awaTeilraum`, nor with `KAOnly` where a row of the sub-habitat holds the group
/// "KA" already. Fails with 3022 where the run was made since `Berechnung_WRRLInit`. `spur` and `indexSpur`
/// receive how the classes and the indices came about. `gruppe` receives the group text of the run.
void Berechnung_WRRL(const Bewertungsauftrag& auftrag, std::string& gruppe, AssessmentTrace* spur = nullptr,
                     calc::Spur* indexSpur = nullptr);

/// Reference species module: taxa counts and abundance sums from the frequency list, the group that the
/// assessment rests on, its restriction, and the class of the reference index. Returns the group, "Alle" or
/// "KA". Fails with 11 where a divisor is 0, with 3021 without the row in `awaErgWRRL`.
std::string AuswertungWRRL_Referenzarten(const store::DatabasePtr& database, std::int32_t ID,
                                         std::int32_t BioregionID, std::int16_t Hoehenstufe,
                                         std::string_view RefBioregion, bool DebugModus, bool KAOnly,
                                         ReferenceSpeciesTrace* spur = nullptr);

/// Trophic module: EQR = (4 - index) / (4 - expected value), two decimals, at most 1; 0 for an index of 0.
/// Fails with 11 where 4 is expected of an index above 0, with 94 on a Null among what it uses, with 3021
/// without the row in `awaErgWRRL`.
void AuswertungWRRL_TI(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                       std::int16_t Hoehenstufe, std::string_view Algengruppe, bool DebugModus, bool KAOnly,
                       IndexModuleTrace* spur = nullptr);

/// Saprobic module, in the same way; the expected value is rounded to two decimals before use.
void AuswertungWRRL_SI(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                       std::int16_t Hoehenstufe, std::string_view Algengruppe, bool DebugModus, bool KAOnly,
                       IndexModuleTrace* spur = nullptr);

/// Overall class: the worst of the three. A module that alone is worst counts one class better where 0.03
/// more EQR would make it so. Fails with 94 on a Null among the classes used and their names, with 3021
/// without the row in `awaErgWRRL`.
void AuswertungWRRL_Gesamtbewertung(const store::DatabasePtr& database, std::int32_t ID, bool DebugModus,
                                    bool KAOnly, OverallTrace* spur = nullptr);

/// Name of a class, "n.v." for a class without row in `awaWRRL_Klasse`.
std::string WRRL_Klassenname(const store::DatabasePtr& database, std::int16_t Klassenzahl);

/// Sum of relative abundances from the frequency list's column of the sub-habitat, in percent, by `Modus`:
/// 1 species level, 2 reference species, 3 all algae, 4 species level without diatoms, 5 diatoms at species
/// level, 6 reference species among the diatoms, 7 diatoms. `Kriterium` narrows the reference species of
/// type B. Any failure, a sum over no rows and any other `Modus` give 0.
double Abundanz_Summe(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus,
                      std::string_view Kriterium = {});

/// Whether the reference tables hold the three expected values that the first run of a sub-habitat needs. The
/// frequency list must hold its column; without it the answer is that for the group "KA". Any failure gives
/// false.
bool Pruefung_Referenzwerte(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                            std::int16_t Hoehenstufe, bool DebugModus);

}  // namespace FX_Algen
