// The dominance chart: its taxa are counted here, its statement is opened by the host.
#include "charts/ArtenDom.h"

#include <string_view>

#include "calc/Lesen.h"
#include "store/Allgemein.h"
#include "store/Strings.h"
#include "wrrl/Fortschrittsanzeige.h"

namespace FX_Algen {
namespace {

constexpr std::int16_t TextFortschritt = 7119;
constexpr std::int16_t TextStellenbez = 8112;
constexpr double ErstesProzent = 2;

/// A group of algae: its condition, which both statements begin with, and its title.
struct Gruppe {
    std::string_view Bedingung;
    std::int16_t Titel;
};

std::optional<Gruppe> GruppeVon(std::int16_t Algenart) {
    if (Algenart == 1) return Gruppe{"(awaArtenlisteHaeufigkeit.IstKA = 0) ", 8200};
    if (Algenart == 2) return Gruppe{"(awaArtenlisteHaeufigkeit.IstKA = -1) ", 8201};
    return std::nullopt;
}

/// The column of the sub-habitat.
std::string Spalte(const Dominanzauftrag& auftrag) {
    return "[A" + store::NumberText(auftrag.TeilraumID) + "]";
}

std::string Schwelle(const Dominanzauftrag& auftrag) { return Allgemein::Punkt_Setzen(auftrag.MaxDomWert); }

std::string Zaehlung(const Dominanzauftrag& auftrag, const Gruppe& gruppe) {
    std::string text = "SELECT DISTINCTROW ID_Art FROM awaArtenlisteHaeufigkeit WHERE ";
    text.append(gruppe.Bedingung).append("AND (").append(Spalte(auftrag)).append(") >");
    return text.append(Schwelle(auftrag)).append(";");
}

std::string Anweisung(const Dominanzauftrag& auftrag, const Gruppe& gruppe) {
    const auto spalte = Spalte(auftrag);
    std::string text =
        "SELECT DISTINCTROW IIf([cf]=True,[Gattung]+\" cf. \"+[Art],[Gattung]+\" \"+[Art]) As Taxa, ";
    text.append(spalte).append(" As Wert ");
    text.append(
        "FROM awaArtenlisteHaeufigkeit INNER JOIN awaArt ON awaArtenlisteHaeufigkeit.ID_Art = "
        "awaArt.ID_ART ");
    text.append("Where ").append(gruppe.Bedingung);
    text.append("AND (awaArtenlisteHaeufigkeit.")
        .append(spalte)
        .append(" >")
        .append(Schwelle(auftrag))
        .append(") ");
    return text.append("ORDER BY awaArtenlisteHaeufigkeit.").append(spalte).append(";");
}

/// Number of rows; none where there is no row.
std::optional<std::int16_t> Anzahl(const store::DatabasePtr& datenbank, const std::string& abfrage) {
    const auto zeilen = calc::Vorhanden(datenbank, "Grafik_ArtenDom_Init").OpenRecordset(abfrage);
    if (zeilen->Eof() && zeilen->Bof()) return std::nullopt;
    zeilen->MoveLast();
    const auto anzahl = store::Value(zeilen->RecordCount()).I2();
    zeilen->Close();
    return anzahl;
}

}  // namespace

std::optional<Dominanzgrafik> Grafik_ArtenDom_Init(const Dominanzauftrag& auftrag) {
    auto liste = auftrag.Liste;
    liste.Balken.Text = store::Text(TextFortschritt, liste.SprachID);
    Fortschrittsanzeige anzeige;
    anzeige.Zeigen(liste.Balken);
    anzeige.Prozent(ErstesProzent);
    if (auftrag.Berechnen && !Artenliste_Haeufigkeit(liste)) return std::nullopt;

    const auto gruppe = GruppeVon(auftrag.Algenart);
    if (!gruppe) return std::nullopt;
    Dominanzgrafik grafik;
    grafik.Standardtitel = store::Text(gruppe->Titel, liste.SprachID);
    grafik.Artenanzahl = Anzahl(liste.Datenbank, Zaehlung(auftrag, *gruppe));
    grafik.SQL = Anweisung(auftrag, *gruppe);
    grafik.Res_Stellenbez = store::Text(TextStellenbez, liste.SprachID);
    return grafik;
}

}  // namespace FX_Algen
