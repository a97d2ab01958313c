// Saprobic module: the saprobic index against the value expected of the site's saprobic reference class.
#include "FX_Algen/Runden.h"
#include "calc/Summe32.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Indexmodul.h"

namespace FX_Algen {
namespace {

/// Rounded to two places, unlike the trophic one, before use and before it is stored.
float Erwartung(double ausTabelle) { return calc::Gerundet32(Allgemein::Runden(ausTabelle, 2)); }

constexpr wrrl::Indexmodul Saprobie{
    wrrl::SaprobieTabellen, "SI",     "SGZK", "SapIndex", "SapIndex_KA", "EQR SI-Wert: ",
    "EQR sI-Wert: ",        Erwartung};

}  // namespace

void AuswertungWRRL_SI(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                       std::int16_t Hoehenstufe, std::string_view Algengruppe, bool DebugModus, bool KAOnly,
                       IndexModuleTrace* spur) {
    constexpr std::string_view routine = "AuswertungWRRL_SI";
    const wrrl::Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, DebugModus, KAOnly};
    wrrl::Bewerten(Saprobie, aufruf, BioregionID, Hoehenstufe, Algengruppe, spur);
}

}  // namespace FX_Algen
