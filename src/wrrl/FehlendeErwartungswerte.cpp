// Which rows the reference tables will lack for the first run of a sub-habitat.
#include "calc/Berechnung.h"
#include "calc/Lesen.h"
#include "calc/Summe32.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Referenzarten.h"
#include "wrrl/Referenzsuche.h"

namespace FX_Algen {

namespace {

/// A row without reference class is none that lacks: the assessment fails at it, and so does the question.
[[noreturn]] void KlasseIstNull(const calc::Ort& ort, const wrrl::Nachschlag& frage) {
    calc::NullStelle stelle;
    stelle.Tabelle = frage.Tabelle;
    stelle.Feld = frage.Spalte;
    stelle.Anweisung = frage.Anweisung;
    stelle.Schluessel = frage.Bedingung;
    calc::NullFehler(ort, stelle);
}

}  // namespace

std::vector<ReferenceLookup> MissingExpectedValues(const store::DatabasePtr& database,
                                                   const AssessmentSite& site) {
    wrrl::Referenzsuche suche(calc::Vorhanden(database, "MissingExpectedValues"));
    const auto taxa = store::Value(Taxazahl(database, site.ID_TR, 8, true)).I4();
    const auto abundanz = calc::Gerundet32(Abundanz_Summe(database, site.ID_TR, 4));
    const auto gruppe = wrrl::Gruppentext(wrrl::Gruppengrund(false, abundanz, taxa));
    for (const auto& tabellen : {wrrl::TrophieTabellen, wrrl::SaprobieTabellen, wrrl::ReferenzTabellen}) {
        const auto frage = wrrl::NachReferenzklasse(tabellen, site.BioregionID, site.Hoehenstufe);
        const auto klasse = suche.Wert(frage, wrrl::KeineReferenzklasse(tabellen));
        if (klasse.IsNull()) KlasseIstNull({*database, "MissingExpectedValues", site.ID_TR}, frage);
        suche.Wert(wrrl::NachErwartetemWert(tabellen, gruppe, klasse), wrrl::KeinErwarteterWert);
    }
    return std::move(suche).Fehlende();
}

}  // namespace FX_Algen
