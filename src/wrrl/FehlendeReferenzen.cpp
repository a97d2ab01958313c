// Which rows the reference tables lacked in the stored assessments of a sub-habitat.
#include <string_view>

#include "FX_Algen/Runden.h"
#include "calc/Lesen.h"
#include "wrrl/Referenzsuche.h"

namespace FX_Algen {

namespace {

using wrrl::Referenzsuche;

constexpr std::string_view KeinName = "n.v.";

/// The columns of a module in `awaErgWRRL`.
struct Modulspalten {
    const wrrl::Bezugstabellen& Tabellen;
    std::string_view Referenzklasse;
    std::string_view Kuerzel;  ///< of the other columns
};

constexpr Modulspalten Module[] = {{wrrl::TrophieTabellen, "TGZK", "TI"},
                                   {wrrl::SaprobieTabellen, "SGZK", "SI"},
                                   {wrrl::ReferenzTabellen, "Bioregionstyp", "RI"}};

bool IstKeineKlasse(const store::Value& klasse) {
    return !klasse.IsNull() && klasse.I2() == wrrl::KeineKlasse;
}

/// The lookups of a module whose marker stands in a stored row, in their order.
void Modulsuche(Referenzsuche& suche, const Modulspalten& modul, const AssessmentSite& site,
                const store::Recordset& zeile) {
    const auto spalte = [&](std::string_view rest) -> const store::Value& {
        return zeile[std::string(modul.Kuerzel) + std::string(rest)];
    };
    const auto& tabellen = modul.Tabellen;
    const store::Value& klasse = zeile[modul.Referenzklasse];
    if (zeile["Taxagruppe"].IsNull() || klasse.IsNull()) return;
    const std::string gruppe = zeile["Taxagruppe"].Text();

    const auto keineReferenzklasse = wrrl::KeineReferenzklasse(tabellen);
    if (klasse == keineReferenzklasse) {
        suche.Wert(wrrl::NachReferenzklasse(tabellen, site.BioregionID, site.Hoehenstufe),
                   keineReferenzklasse);
    }
    const store::Value& erwartet = spalte("_EW");
    if (!erwartet.IsNull() && erwartet.R4() == wrrl::KeinErwarteterWert) {
        suche.Wert(wrrl::NachErwartetemWert(tabellen, gruppe, klasse), wrrl::KeinErwarteterWert);
    }
    if (spalte("_EQR").IsNull()) return;
    const float eqr = spalte("_EQR").R4();
    if (IstKeineKlasse(spalte("_OEZK"))) {
        suche.Wert(wrrl::NachKlasse(tabellen, gruppe, klasse, eqr), wrrl::KeineKlasse);
    }
    // A table that ends at 1 has no row above it, and lacks none.
    const auto erhoeht = static_cast<float>(Allgemein::Runden(static_cast<double>(eqr) + 0.03, 2));
    if (erhoeht <= 1 && IstKeineKlasse(spalte("_OEZK3"))) {
        suche.Wert(wrrl::NachKlasse(tabellen, gruppe, klasse, erhoeht), wrrl::KeineKlasse);
    }
}

void Klassennamen(Referenzsuche& suche, const store::Recordset& zeile) {
    for (const std::string_view spalte : {"TI_OEZK", "SI_OEZK", "RI_OEZK", "OEZK"}) {
        const store::Value& klasse = zeile[spalte];
        const store::Value& name = zeile[std::string(spalte) + "_Klasse"];
        if (klasse.IsNull() || klasse.I2() <= wrrl::KeineKlasse || name != store::Value(KeinName)) continue;
        wrrl::Nachschlag frage;
        frage.Tabelle = "awaWRRL_Klasse";
        frage.Schluessel = {{"Klassenzahl", klasse.Text()}};
        frage.Anweisung = "SELECT Bezeichnung FROM awaWRRL_Klasse WHERE Klassenzahl=" + klasse.Text() + ";";
        suche.Wert(frage, KeinName);
    }
}

}  // namespace

std::vector<ReferenceLookup> MissingReferences(const store::DatabasePtr& database,
                                               const AssessmentSite& site) {
    auto& db = calc::Vorhanden(database, "MissingReferences");
    Referenzsuche suche(db);
    const auto zeilen = db.OpenRecordset(
        "SELECT * FROM awaErgWRRL WHERE ID=" + store::NumberText(site.ID_TR) + " ORDER BY KAOnly;");
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        for (const Modulspalten& modul : Module) Modulsuche(suche, modul, site, *zeilen);
        Klassennamen(suche, *zeilen);
    }
    zeilen->Close();
    return std::move(suche).Fehlende();
}

}  // namespace FX_Algen
