// Which rows the reference tables lacked in the stored assessments of a sub-habitat.
#include <string_view>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/Runden.h"
#include "calc/Lesen.h"
#include "wrrl/Referenzsuche.h"

namespace FX_Algen {

using wrrl::Modul;
using wrrl::Referenzsuche;

namespace {

bool IstMarke(const store::Value& wert) {
    if (wert.IsNull()) return false;
    const std::string* text = wert.TextOrNull();
    return text != nullptr ? *text == wrrl::TextMarke : wert.R8() == wrrl::ZahlMarke;
}

/// The lookups of a module whose marker stands in a stored row, in their order.
void Modulsuche(Referenzsuche& suche, const Modul& modul, const AssessmentSite& site,
                const store::Recordset& zeile) {
    const auto spalte = [&](std::string_view rest) -> const store::Value& {
        return zeile[std::string(modul.Kuerzel) + std::string(rest)];
    };
    const store::Value& gruppe = zeile["Taxagruppe"];
    const store::Value& klasse = zeile[modul.Ergebnisspalte];
    if (gruppe.IsNull() || klasse.IsNull()) return;
    if (IstMarke(klasse)) Referenzklasse(suche, modul, site);
    if (IstMarke(spalte("_EW"))) ErwarteterWert(suche, modul, gruppe, klasse);
    if (spalte("_EQR").IsNull()) return;
    const float eqr = spalte("_EQR").R4();
    const wrrl::Schluesselliste grenzen = {{"Taxagruppe", gruppe}, {modul.Klassenspalte, klasse}};
    if (IstMarke(spalte("_OEZK"))) suche.Klasse(modul.Grenzentabelle, grenzen, eqr);
    // A table that ends at 1 has no row above it, and lacks none.
    const auto erhoeht = static_cast<float>(Allgemein::Runden(static_cast<double>(eqr) + 0.03, 2));
    if (erhoeht <= 1 && IstMarke(spalte("_OEZK3"))) suche.Klasse(modul.Grenzentabelle, grenzen, erhoeht);
}

void Klassennamen(Referenzsuche& suche, const store::Recordset& zeile) {
    for (const std::string_view spalte : {"TI_OEZK", "SI_OEZK", "RI_OEZK", "OEZK"}) {
        const store::Value& klasse = zeile[spalte];
        const store::Value& name = zeile[std::string(spalte) + "_Klasse"];
        if (klasse.IsNull() || klasse.I2() <= wrrl::ZahlMarke) continue;
        if (name != store::Value(wrrl::KlassenMarke)) continue;
        suche.Wert("awaWRRL_Klasse", "Bezeichnung", {{"Klassenzahl", klasse}}, wrrl::KlassenMarke);
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
        for (const Modul& modul : wrrl::Module) Modulsuche(suche, modul, site, *zeilen);
        Klassennamen(suche, *zeilen);
    }
    zeilen->Close();
    return std::move(suche).Fehlende();
}

}  // namespace FX_Algen
