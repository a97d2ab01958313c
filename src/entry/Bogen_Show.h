#pragma once

#include <cstdint>
#include <string>

#include "FX_Algen/Store.h"

/// What a host starts with the sheets of the sampling sites. Each sheet is open once at most on a thread. All
/// open forms leave their rows first.
namespace FX_Algen::entry {

/// What a sheet takes from the host's context.
struct Bogenauftrag {
    store::WorkspacePtr CurrentWS;
    store::DatabasePtr CurrentDB;
    std::int16_t SprachID = 10000;
    std::int32_t TeilraumID = 0;
    std::string DBName;
    bool DebugModus = false;
    std::int32_t FX_MainWnd = 0;
    std::string AktBenutzer;
    std::int16_t QOVAKatalogID = 0;
    std::string PSBez;              ///< algae sheet only
    bool CanEdit = false;           ///< algae sheet only
    bool AnzeigeVersion40 = false;  ///< algae sheet only
};

/// Shows the algae sheet of a sub-habitat as a child of the host's window, without blocking. Where there is
/// no sampling site and the person wants none, the sheet ends unseen.
///
/// An open sheet is saved first, its picker goes away, and it takes the new settings; where it cannot be
/// saved it stays as it is and comes to the front. What fails before the site is bound leaves the call, and
/// a sheet that was not shown yet is gone then.
void Probenstelle_Show(const Bogenauftrag& auftrag);
/// The same with the seston sheet.
void ProbenstelleSeston_Show(const Bogenauftrag& auftrag);
/// Closes the algae sheet as a person does, saving it first; nothing where it is not open.
void Probenstelle_Unload();

}  // namespace FX_Algen::entry
