#pragma once

#include <cstdint>

#include "FX_Algen/Store.h"

namespace FX_Algen {

/// Which assessments the overview shows.
enum class Ergebnisauswahl : std::int16_t {
    StellenMitAnzeige = 0,     ///< of sampling sites that are marked for display
    Alle = 1,                  ///< all
    Aktuelle = 2,              ///< of one sub-habitat, or of one visit
    TeilraeumeMitAnzeige = 3,  ///< of sub-habitats that are marked for display
};

/// Opens the assessment results with the names of their places: columns of section, station, its bioregion,
/// river section and altitude step (Null where the station has none), visit and sub-habitat,
/// `obProjekt1a.UBA_M632`, then all of `awaErgWRRL`. A row for each result and each sampling site of its
/// sub-habitat, by section, station, date and sub-habitat; a sub-habitat without sampling site has none.
///
/// `WRRLErgAuswahlAnzeige` is an `Ergebnisauswahl`; with `Aktuelle`, `TeilraumID` is the sub-habitat where
/// `IstWRRLBerechnung` is set, else the visit (`ID_VUS`). With any other value there is no statement, and
/// opening it fails with 3075; 3343 without a database.
store::RecordsetPtr Get_WRRLErgRecordset(const store::DatabasePtr& database,
                                         std::int16_t WRRLErgAuswahlAnzeige, bool IstWRRLBerechnung,
                                         std::int32_t TeilraumID);

}  // namespace FX_Algen
