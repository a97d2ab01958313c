#include "wrrl/Ergebnisliste.h"

#include <optional>
#include <string>

#include "calc/Lesen.h"

namespace FX_Algen {
namespace {

constexpr std::string_view Spalten =
    "SELECT Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, UnvUStelle.Gewaessername, "
    "UnvUStelle.RefBioregionen, UnvUStelle.ID_AL_Bioregion, UnvUStelle.WGEV_ID, AL_Bioregion.Nummer, "
    "AL_Bioregion.Bezeichnung, AL_Bioregion.Kurzzeichen, AL_Flussabschnitt.ID_AL_Flussabschnitt, "
    "AL_Flussabschnitt.Bezeichnung AS FABez, AL_Hoehenstufe.Hoehenstufe, AL_Hoehenstufe.Bezeichnung AS "
    "HSBez, "
    "VerUStelle.USDatumVon, Teilraum.ID_TR, Teilraum.RF, Teilraum.TRBez, obProjekt1a.UBA_M632, awaErgWRRL.* ";

constexpr std::string_view From =
    "FROM (((((Abschnitt INNER JOIN (((UnvUStelle "
    "LEFT JOIN AL_Bioregion ON UnvUStelle.ID_AL_Bioregion = AL_Bioregion.ID_AL_Bioregion) "
    "LEFT JOIN AL_Hoehenstufe ON UnvUStelle.ID_AL_Hoehenstufe = AL_Hoehenstufe.ID_AL_Hoehenstufe) "
    "LEFT JOIN AL_Flussabschnitt ON UnvUStelle.ID_AL_Flussabschnitt = "
    "AL_Flussabschnitt.ID_AL_Flussabschnitt) "
    "ON Abschnitt.ID_AB = UnvUStelle.ID_AB) "
    "INNER JOIN VerUStelle ON UnvUStelle.ID_UUS = VerUStelle.ID_UUS) "
    "INNER JOIN Teilraum ON VerUStelle.ID_VUS = Teilraum.ID_VUS) "
    "INNER JOIN awaErgWRRL ON Teilraum.ID_TR = awaErgWRRL.ID) "
    "INNER JOIN awaPrStelle ON Teilraum.ID_TR = awaPrStelle.ID_TR) "
    "LEFT JOIN obProjekt1a ON UnvUStelle.ID_UUS = obProjekt1a.ID_UUS ";

constexpr std::string_view Reihenfolge =
    "ORDER BY Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, "
    "Teilraum.RF, Teilraum.TRBez;";

/// The condition of a mode, with a blank at its end unless it is empty; none where there is no such mode.
std::optional<std::string> Bedingung(std::int16_t anzeige, bool istWRRL, std::int32_t id) {
    switch (static_cast<Ergebnisauswahl>(anzeige)) {
        case Ergebnisauswahl::StellenMitAnzeige:
            return "WHERE (((awaPrStelle.Anzeige)=-1)) ";
        case Ergebnisauswahl::Alle:
            return "";
        case Ergebnisauswahl::Aktuelle:
            return (istWRRL ? "WHERE Teilraum.ID_TR = " : "WHERE VerUStelle.ID_VUS = ") +
                   store::NumberText(id) + " ";
        case Ergebnisauswahl::TeilraeumeMitAnzeige:
            return "WHERE Teilraum.Anzeige = -1 ";
    }
    return std::nullopt;
}

}  // namespace

store::RecordsetPtr Get_WRRLErgRecordset(const store::DatabasePtr& database,
                                         std::int16_t WRRLErgAuswahlAnzeige, bool IstWRRLBerechnung,
                                         std::int32_t TeilraumID) {
    auto& db = calc::Vorhanden(database, "Get_WRRLErgRecordset");
    std::string anweisung;
    if (const auto bedingung = Bedingung(WRRLErgAuswahlAnzeige, IstWRRLBerechnung, TeilraumID))
        anweisung.append(Spalten).append(From).append(*bedingung).append(Reihenfolge);
    return db.OpenRecordset(anweisung);
}

}  // namespace FX_Algen
