#include "wrrl/Referenzsuche.h"

#include <algorithm>

#include "store/Allgemein.h"

namespace FX_Algen::wrrl {

namespace {

/// As it stands in a statement; the text may hold an apostrophe.
std::string Konstante(const store::Value& wert) {
    if (wert.TextOrNull() == nullptr) return wert.Text();
    return "'" + Allgemein::Str_Ersetzen(*wert.TextOrNull(), "'", "''") + "'";
}

bool Gleich(const ReferenceLookup& a, const ReferenceLookup& b) {
    return a.Table == b.Table && std::equal(a.Keys.begin(), a.Keys.end(), b.Keys.begin(), b.Keys.end(),
                                            [](const LookupKey& x, const LookupKey& y) {
                                                return x.Column == y.Column && x.Value == y.Value;
                                            });
}

ReferenceLookup Frage(std::string_view tabelle, Schluesselliste schluessel, store::Value marke) {
    ReferenceLookup frage{std::string(tabelle), {}, false, std::move(marke)};
    for (const auto& [spalte, wert] : schluessel) frage.Keys.push_back({std::string(spalte), wert.Text()});
    return frage;
}

std::string Bedingung(Schluesselliste schluessel) {
    std::string bedingung;
    for (const auto& [spalte, wert] : schluessel) {
        bedingung.append(bedingung.empty() ? "" : " AND ").append(spalte).append("=").append(Konstante(wert));
    }
    return bedingung;
}

}  // namespace

std::optional<store::Value> Referenzsuche::Wert(std::string_view tabelle, std::string_view spalte,
                                                Schluesselliste schluessel, const store::Value& marke) {
    return Fragen(Frage(tabelle, schluessel, marke), spalte, Bedingung(schluessel));
}

void Referenzsuche::Klasse(std::string_view tabelle, Schluesselliste schluessel, float eqr) {
    const std::string zahl = store::NumberText(eqr);
    ReferenceLookup frage = Frage(tabelle, schluessel, ZahlMarke);
    frage.Keys.push_back({"EQR", zahl});
    Fragen(std::move(frage), "OEZK", Bedingung(schluessel) + " AND EQRMin<=" + zahl + " AND EQRMax>=" + zahl);
}

std::optional<store::Value> Referenzsuche::Fragen(ReferenceLookup frage, std::string_view spalte,
                                                  const std::string& bedingung) {
    const auto zeilen = database_.OpenRecordset("SELECT " + std::string(spalte) + " FROM " + frage.Table +
                                                " WHERE " + bedingung + ";");
    if (!zeilen->Eof()) return (*zeilen)[std::size_t{0}];
    const bool bekannt = std::any_of(fehlende_.begin(), fehlende_.end(),
                                     [&](const ReferenceLookup& andere) { return Gleich(andere, frage); });
    if (!bekannt) fehlende_.push_back(std::move(frage));
    return std::nullopt;
}

std::optional<store::Value> Referenzklasse(Referenzsuche& suche, const Modul& modul,
                                           const AssessmentSite& site) {
    return suche.Wert(modul.Klassentabelle, modul.Klassenspalte,
                      {{"ID_AL_Bioregion", site.BioregionID}, {"Hoehenstufe", site.Hoehenstufe}},
                      modul.Klassenmarke());
}

void ErwarteterWert(Referenzsuche& suche, const Modul& modul, const store::Value& gruppe,
                    const store::Value& klasse) {
    suche.Wert(modul.Wertetabelle, "ErwarteterWert", {{"Taxagruppe", gruppe}, {modul.Klassenspalte, klasse}},
               ZahlMarke);
}

}  // namespace FX_Algen::wrrl
