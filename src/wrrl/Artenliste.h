#pragma once

#include <cstdint>
#include <string>

#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Store.h"

/// The frequency list: the relative abundances of all taxa of a scope, the one measure in which counted
/// diatoms and estimated covers of other algae stand side by side.
namespace FX_Algen {

/// Where the host wants the progress form; `hWnd` 0 or less: none.
struct Fortschritt {
    std::int32_t hWnd = 0;
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    std::string Text = {};  ///< shown behind the percentage
};

/// What the list is built from and for.
struct Listenauftrag {
    store::DatabasePtr Datenbank;
    store::WorkspacePtr Workspace;
    /// Path of the same database, by which the table is dropped and made; empty: that of `Datenbank`.
    std::string DBName;
    std::string AktUebersicht;       ///< "Projekt", "UStelle" or "Rechenmanager"
    std::int32_t ProjektID = 0;      ///< `ID_PRJ`, `ID_UUS` or `ID_RechMan`
    std::int32_t TeilraumID = 0;     ///< above 0: this sub-habitat alone has a column ("Projekt" only)
    bool IstWRRLBerechnung = false;  ///< covers of the assessment, and only taxa that it counts
    bool USTAuswahl = false;         ///< sub-habitats marked for display alone ("Projekt" only)
    bool DebugModus = false;
    std::int16_t SprachID = 0;
    Fortschritt Balken;
};

/// Rebuilds `awaArtenlisteHaeufigkeit` from nothing: a row for each taxon (with and without `CF`) of the
/// scope, a column `A<ID_TR>` for each of its sub-habitats that has a sampling site, and in the cells the
/// taxon's relative abundance in percent: counted valves / all valves * 100 of a diatom; of another alga
/// cover / total cover * 100 plus its shares of the mixed stands. 0 where the taxon is absent.
///
/// False where the scope has no such sub-habitat (the table then has its four columns and no rows), and on
/// any failure of the store (the table stays as far as it got). `spur` receives how the column of the last
/// sub-habitat came about.
bool Artenliste_Haeufigkeit(const Listenauftrag& auftrag, FrequencyColumn* spur = nullptr);

}  // namespace FX_Algen
