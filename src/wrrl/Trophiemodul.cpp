// Trophic module: the trophic index against the value expected of the site's trophic reference class.
#include "calc/Summe32.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Indexmodul.h"

namespace FX_Algen {
namespace {

/// As read.
float Erwartung(double ausTabelle) { return calc::Gerundet32(ausTabelle); }

constexpr wrrl::Indexmodul Trophie{
    wrrl::TrophieTabellen, "TI", "TGZK", "TI", "TI_KA", "EQR TI-Wert: ", "EQR TI-Wert: ", Erwartung};

}  // namespace

void AuswertungWRRL_TI(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                       std::int16_t Hoehenstufe, std::string_view Algengruppe, bool DebugModus, bool KAOnly,
                       IndexModuleTrace* spur) {
    constexpr std::string_view routine = "AuswertungWRRL_TI";
    const wrrl::Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, DebugModus, KAOnly};
    wrrl::Bewerten(Trophie, aufruf, BioregionID, Hoehenstufe, Algengruppe, spur);
}

}  // namespace FX_Algen
