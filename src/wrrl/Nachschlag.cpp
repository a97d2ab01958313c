#include "wrrl/Nachschlag.h"

#include <algorithm>
#include <optional>

#include "store/Allgemein.h"
#include "wrrl/Schritte.h"

namespace FX_Algen::wrrl {
namespace {

template <class... Teile>
std::string Text(const Teile&... teile) {
    std::string text;
    (text.append(teile), ...);
    return text;
}

std::string GruppeUndKlasse(const Bezugstabellen& tabellen, std::string_view gruppe,
                            const store::Value& klasse) {
    const std::string_view klammer = tabellen.KlasseIstText ? "'" : "";
    return Text("Taxagruppe='", gruppe, "' AND ", tabellen.Klassenspalte, "=", klammer, klasse.Text(),
                klammer);
}

std::vector<LookupKey> Schluessel(const Bezugstabellen& tabellen, std::string_view gruppe,
                                  const store::Value& klasse) {
    return {{"Taxagruppe", std::string(gruppe)}, {std::string(tabellen.Klassenspalte), klasse.Text()}};
}

[[noreturn]] void NullFehler(const calc::Ort& ort, const Nachschlag& frage) {
    calc::NullStelle stelle;
    stelle.Tabelle = frage.Tabelle;
    stelle.Feld = frage.Spalte;
    stelle.Anweisung = frage.Anweisung;
    stelle.Schluessel = frage.Bedingung;
    calc::NullFehler(ort, stelle);
}

/// Rows of bounds that meet a condition, by class.
std::vector<ClassBounds> Grenzen(store::Database& database, std::string_view tabelle,
                                 std::string_view bedingung) {
    std::vector<ClassBounds> grenzen;
    const auto zeilen = database.OpenRecordset(Text("SELECT EQRMin, EQRMax, OEZK FROM ", tabelle, " WHERE ",
                                                    bedingung, " ORDER BY OEZK, EQRMin, EQRMax;"));
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        calc::Feldleser felder(*zeilen);
        const ClassBounds grenze{felder.Zahl(0), felder.Zahl(1),
                                 (*zeilen)[2].IsNull() ? KeineKlasse : (*zeilen)[2].I2()};
        if (felder.Vollstaendig() && !(*zeilen)[2].IsNull()) grenzen.push_back(grenze);
    }
    zeilen->Close();
    return grenzen;
}

}  // namespace

store::Value KeineReferenzklasse(const Bezugstabellen& tabellen) {
    return tabellen.KlasseIstText ? store::Value("-") : store::Value(KeineKlasse);
}

Nachschlag NachReferenzklasse(const Bezugstabellen& tabellen, std::int32_t BioregionID,
                              std::int16_t Hoehenstufe) {
    Nachschlag frage;
    frage.Tabelle = tabellen.Klassentabelle;
    frage.Spalte = tabellen.Klassenspalte;
    const auto region = store::NumberText(BioregionID);
    const auto stufe = store::NumberText(static_cast<std::int32_t>(Hoehenstufe));
    frage.Schluessel = {{"ID_AL_Bioregion", region}, {"Hoehenstufe", stufe}};
    frage.Bedingung = Text("ID_AL_Bioregion=", region, " AND Hoehenstufe=", stufe);
    frage.Anweisung = Text("SELECT ", frage.Spalte, " From ", frage.Tabelle, " WHERE ", frage.Bedingung, ";");
    return frage;
}

Nachschlag NachErwartetemWert(const Bezugstabellen& tabellen, std::string_view gruppe,
                              const store::Value& klasse) {
    Nachschlag frage;
    frage.Tabelle = tabellen.Erwartungstabelle;
    frage.Spalte = "ErwarteterWert";
    frage.Schluessel = Schluessel(tabellen, gruppe, klasse);
    frage.Bedingung = GruppeUndKlasse(tabellen, gruppe, klasse);
    frage.Anweisung = Text("SELECT ErwarteterWert FROM ", frage.Tabelle, " WHERE ", frage.Bedingung, ";");
    return frage;
}

Nachschlag NachKlasse(const Bezugstabellen& tabellen, std::string_view gruppe, const store::Value& klasse,
                      float EQR) {
    Nachschlag frage;
    frage.Tabelle = tabellen.Grenzentabelle;
    frage.Spalte = "OEZK";
    const auto eqr = Allgemein::Punkt_Setzen(EQR);
    frage.Schluessel = Schluessel(tabellen, gruppe, klasse);
    frage.Schluessel.push_back({"EQR", eqr});
    frage.Bedingung =
        Text(GruppeUndKlasse(tabellen, gruppe, klasse), " AND EQRMin <= ", eqr, " and EQRMax >= ", eqr);
    frage.Anweisung = Text("SELECT OEZK FROM ", frage.Tabelle, " WHERE ", frage.Bedingung, ";");
    return frage;
}

bool Vorhanden(store::Database& database, const Nachschlag& frage) {
    const auto zeilen = database.OpenRecordset(frage.Anweisung);
    const bool gefunden = !zeilen->Eof();
    zeilen->Close();
    return gefunden;
}

store::Value Nachschlagen(const calc::Ort& ort, const Nachschlag& frage, const store::Value& marke,
                          ReferenceLookup* spur) {
    if (spur != nullptr) *spur = {frage.Tabelle, frage.Schluessel, false, {}};
    const auto zeilen = ort.Datenbank.OpenRecordset(frage.Anweisung);
    const bool gefunden = !zeilen->Eof();
    auto wert = gefunden ? (*zeilen)[std::size_t{0}] : marke;
    zeilen->Close();
    if (spur != nullptr) {
        spur->Found = gefunden;
        spur->Result = wert;
    }
    if (wert.IsNull()) NullFehler(ort, frage);
    return wert;
}

// Where a ratio lies on a bound that two rows share, both fit. The statement does not say which of them comes
// first, and an unordered result must not decide a class: the key of the bounds does, and so the lowest
// class. A Null would stand before every number in that order.
std::int16_t KlasseNachschlagen(const calc::Ort& ort, const Nachschlag& frage, float EQR, ClassLookup* spur) {
    if (spur != nullptr) {
        *spur = {};
        spur->Lookup = {frage.Tabelle, frage.Schluessel, false, {}};
        spur->EQR = EQR;
    }
    std::optional<std::int16_t> klasse;
    const auto zeilen = ort.Datenbank.OpenRecordset(frage.Anweisung);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& wert = (*zeilen)[std::size_t{0}];
        if (wert.IsNull()) {
            if (spur != nullptr) spur->Lookup.Found = true;
            NullFehler(ort, frage);
        }
        klasse = klasse ? std::min(*klasse, wert.I2()) : wert.I2();
    }
    zeilen->Close();
    const auto ergebnis = klasse.value_or(KeineKlasse);
    if (spur != nullptr) {
        spur->Lookup.Found = klasse.has_value();
        spur->Lookup.Result = ergebnis;
        spur->OEZK = ergebnis;
        NurFuerSpur([&] {
            auto grenzen = Grenzen(ort.Datenbank, frage.Tabelle, frage.Bedingung);
            if (grenzen.empty()) return;
            spur->Hit = grenzen.front();
            spur->AlsoFitting.assign(grenzen.begin() + 1, grenzen.end());
        });
    }
    return ergebnis;
}

std::vector<ClassBounds> AlleGrenzen(store::Database& database, const Bezugstabellen& tabellen,
                                     std::string_view gruppe, const store::Value& klasse) {
    return Grenzen(database, tabellen.Grenzentabelle, GruppeUndKlasse(tabellen, gruppe, klasse));
}

}  // namespace FX_Algen::wrrl
