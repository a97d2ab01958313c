// Conditions, order and groups of a stored selection.
#include "manager/RechenProjekt.h"

#include "manager/Datenbank.h"
#include "manager/Ebenen.h"

namespace FX_Algen::RechenProjekt {
namespace {

using manager::Ebene;
using manager::Vorhanden;

/// `RechManSQL` of a selection; Null where it has no row.
store::Value Bedingung(store::Database& database, std::int32_t ID_RechMan) {
    const auto zeile = database.OpenRecordset(
        "SELECT * FROM RechenProjekt WHERE ID_RechMan=" + store::NumberText(ID_RechMan) + ";");
    auto bedingung = zeile->Eof() ? store::Value() : (*zeile)["RechManSQL"];
    zeile->Close();
    return bedingung;
}

/// What follows the place in the selection: the part of the tree below its members.
std::string_view RestDerReihenfolge(Ebene ebene) {
    switch (ebene) {
        case Ebene::Projekt:
            return ", Projekt.PRJBez, Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, "
                   "VerUStelle.USDatumVon, Teilraum.RF, Teilraum.TRBez ";
        case Ebene::Abschnitt:
            return ", Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, Teilraum.RF, "
                   "Teilraum.TRBez";
        case Ebene::UnvUStelle:
            return ", UnvUStelle.USBez, VerUStelle.USDatumVon, Teilraum.RF, Teilraum.TRBez";
        case Ebene::VerUStelle:
            return ", Teilraum.RF, Teilraum.TRBez";
        case Ebene::Teilraum:
            break;
    }
    return {};
}

}  // namespace

std::string RechMan_Where(const store::DatabasePtr& database, std::int32_t ID_RechMan) {
    const auto bedingung = Bedingung(Vorhanden(database, "RechMan_Where"), ID_RechMan);
    if (bedingung.IsNull()) return {};
    return "(" + bedingung.Text() + " AND RechenProjektListe.ID_RechMan=" + store::NumberText(ID_RechMan) +
           ")";
}

std::string RechMan_Having(const store::DatabasePtr& database, std::int32_t ID_RechMan) {
    const auto bedingung = Bedingung(Vorhanden(database, "RechMan_Having"), ID_RechMan);
    if (bedingung.IsNull()) return {};
    return "Having ((" + bedingung.Text() + ") And (awaTeilraum.DG_Gesamt > 0)) ";
}

std::string RechMan_OrderBy(const store::DatabasePtr& database, std::int32_t ID_RechMan) {
    const auto ebene = manager::EbeneDer(Vorhanden(database, "RechMan_OrderBy"), ID_RechMan);
    if (!ebene) return {};
    return "ORDER BY RechenProjektListe.EbenenRF " + std::string(RestDerReihenfolge(*ebene));
}

std::string RechMan_GroupByMI(const store::DatabasePtr& database, std::int32_t ID_RechMan) {
    const auto ebene = manager::EbeneDer(Vorhanden(database, "RechMan_GroupByMI"), ID_RechMan);
    if (!ebene) return {};
    // A selection of sub-habitats is summed up over all of them.
    const auto teilraum = *ebene == Ebene::Teilraum
                              ? std::string()
                              : std::string(manager::Schluessel(*ebene)) + ", Teilraum.ID_TR, ";
    return "GROUP BY " + teilraum + "awaArtPrStelle_MI.ID_ART, awaArtPrStelle_MI.CF, awaTeilraum.DG_Gesamt ";
}

}  // namespace FX_Algen::RechenProjekt
