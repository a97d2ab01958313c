#pragma once

#include <cstdint>
#include <string>

#include "FX_Algen/Store.h"

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

}  // namespace FX_Algen::entry
