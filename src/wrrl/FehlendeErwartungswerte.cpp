// Which rows the reference tables will lack for the first run of a sub-habitat.
#include <cmath>

#include "FX_Algen/Assessment.h"
#include "calc/Berechnung.h"
#include "calc/Lesen.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Referenzsuche.h"

namespace FX_Algen {

namespace {

/// The group of the first run, as the pre-check finds it.
std::string Gruppe(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const double taxa = std::nearbyint(Taxazahl(database, ID_TR, 8, true));
    const auto abundanz = static_cast<float>(Abundanz_Summe(database, ID_TR, 4));
    return abundanz >= 50 && taxa >= 4 ? "Alle" : "KA";
}

}  // namespace

std::vector<ReferenceLookup> MissingExpectedValues(const store::DatabasePtr& database,
                                                   const AssessmentSite& site) {
    wrrl::Referenzsuche suche(calc::Vorhanden(database, "MissingExpectedValues"));
    const store::Value gruppe = Gruppe(database, site.ID_TR);
    for (const wrrl::Modul& modul : wrrl::Module) {
        const auto klasse = Referenzklasse(suche, modul, site);
        ErwarteterWert(suche, modul, gruppe, klasse.value_or(modul.Klassenmarke()));
    }
    return std::move(suche).Fehlende();
}

}  // namespace FX_Algen
