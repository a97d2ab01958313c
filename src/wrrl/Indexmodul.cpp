#include "wrrl/Indexmodul.h"

#include <string>

#include "wrrl/Verhaeltnis.h"

namespace FX_Algen::wrrl {
namespace {

std::string Spalte(const Indexmodul& modul, std::string_view endung) {
    return std::string(modul.Kuerzel).append(endung);
}

std::string_view Indexspalte(const Indexmodul& modul, std::string_view gruppe) {
    if (gruppe == "Alle") return modul.Indexspalte;
    if (gruppe == "KA") return modul.Indexspalte_KA;
    return {};
}

[[noreturn]] void IndexIstNull(const Aufruf& aufruf, std::string_view spalte, const std::string& bedingung,
                               const std::string& abfrage) {
    calc::NullStelle stelle;
    stelle.Tabelle = "awaErgProjekt";
    stelle.Feld = spalte;
    stelle.Anweisung = abfrage;
    stelle.Schluessel = bedingung;
    calc::NullFehler(aufruf, stelle);
}

/// The index of the group. The statement asks for the sub-habitat alone, so it finds the rows of both runs
/// where there are two; then that over all groups serves, which is the first by the key.
float LiesIndex(const Indexmodul& modul, const Aufruf& aufruf, std::string_view gruppe) {
    const auto spalte = Indexspalte(modul, gruppe);
    std::string bedingung = "ID=" + store::NumberText(aufruf.ID_TR);
    const auto abfrage = "SELECT " + std::string(modul.Indexspalte) + ", " +
                         std::string(modul.Indexspalte_KA) + " FROM awaErgProjekt WHERE ";
    Kasten(aufruf, modul.LabelIndexabfrage, abfrage + bedingung + ";");
    auto zeilen = aufruf.Datenbank.OpenRecordset(abfrage + bedingung + ";");
    if (!zeilen->Eof()) {
        zeilen->MoveLast();
        if (zeilen->RecordCount() > 1) {
            bedingung += " AND KAOnly=0";
            zeilen = aufruf.Datenbank.OpenRecordset(abfrage + bedingung + ";");
        }
    }
    float index = 0;
    if (!zeilen->Eof() && !spalte.empty()) {
        const auto& wert = (*zeilen)[spalte];
        if (wert.IsNull()) IndexIstNull(aufruf, spalte, bedingung, abfrage + bedingung + ";");
        index = wert.R4();
    }
    zeilen->Close();
    return index;
}

/// What goes into the row.
struct Werte {
    store::Value Referenzklasse;
    float Erwartet = KeinErwarteterWert;
    float Index = 0;
    float EQR = 0;
    std::int16_t OEZK = KeineKlasse;
    std::int16_t OEZK3 = KeineKlasse;
};

void Speichern(const Indexmodul& modul, const Aufruf& aufruf, const Werte& werte) {
    const auto zeile = Ergebniszeile(aufruf, "Speichern" + Spalte(modul, ": "));
    zeile->Edit();
    zeile->Collect(Spalte(modul, ""), werte.Index);
    zeile->Collect(modul.Referenzspalte, werte.Referenzklasse);
    zeile->Collect(Spalte(modul, "_EW"), werte.Erwartet);
    zeile->Collect(Spalte(modul, "_EQR"), werte.EQR);
    zeile->Collect(Spalte(modul, "_OEZK"), werte.OEZK);
    zeile->Collect(Spalte(modul, "_OEZK3"), werte.OEZK3);
    zeile->Update();
    zeile->Close();
}

}  // namespace

void Bewerten(const Indexmodul& modul, const Aufruf& aufruf, std::int32_t BioregionID,
              std::int16_t Hoehenstufe, std::string_view gruppe, IndexModuleTrace* spur) {
    const auto& tabellen = modul.Tabellen;
    Werte werte;
    if (spur != nullptr) {
        *spur = {};
        spur->Taxagruppe = gruppe;
        spur->IndexColumn = Indexspalte(modul, gruppe);
    }

    const auto nachKlasse = NachReferenzklasse(tabellen, BioregionID, Hoehenstufe);
    Kasten(aufruf, std::string(modul.Referenzspalte) + ": ", nachKlasse.Anweisung);
    werte.Referenzklasse = Nachschlagen(aufruf, nachKlasse, KeineReferenzklasse(tabellen),
                                        spur != nullptr ? &spur->ReferenceClass : nullptr);

    const auto nachWert = NachErwartetemWert(tabellen, gruppe, werte.Referenzklasse);
    Kasten(aufruf, Spalte(modul, "_EW: "), nachWert.Anweisung);
    werte.Erwartet = modul.Erwartung(
        Nachschlagen(aufruf, nachWert, KeinErwarteterWert, spur != nullptr ? &spur->ExpectedValue : nullptr)
            .R8());
    if (spur != nullptr) spur->Ratio.ExpectedValue = werte.Erwartet;

    werte.Index = LiesIndex(modul, aufruf, gruppe);
    Kasten(aufruf, modul.LabelIndexwert, store::NumberText(werte.Index));
    if (spur != nullptr) spur->Ratio.Index = werte.Index;

    const auto verhaeltnis = AbstandVomEnde(werte.Index, werte.Erwartet);
    if (!verhaeltnis) {
        DivisionDurchNull(aufruf, "4 - expected value is 0, " + nachWert.Tabelle + "." + nachWert.Spalte +
                                      " is 4 for " + nachWert.Bedingung);
    }
    werte.EQR = verhaeltnis->EQR;
    Kasten(aufruf, "EQR: ", store::NumberText(werte.EQR));
    if (spur != nullptr) {
        spur->Ratio.Unrounded = verhaeltnis->Ungerundet;
        spur->Ratio.BeforeCap = verhaeltnis->Gerundet;
        spur->Ratio.EQR = werte.EQR;
        NurFuerSpur([&] {
            spur->Ratio.AllBounds = AlleGrenzen(aufruf.Datenbank, tabellen, gruppe, werte.Referenzklasse);
        });
    }

    const auto nachOEZK = NachKlasse(tabellen, gruppe, werte.Referenzklasse, werte.EQR);
    Kasten(aufruf, "OEZK: ", nachOEZK.Anweisung);
    werte.OEZK =
        KlasseNachschlagen(aufruf, nachOEZK, werte.EQR, spur != nullptr ? &spur->Ratio.Class : nullptr);
    Kasten(aufruf, "OEZK: ", store::NumberText(static_cast<std::int32_t>(werte.OEZK)));

    const auto angehoben = Angehoben(werte.EQR);
    const auto nachOEZK3 = NachKlasse(tabellen, gruppe, werte.Referenzklasse, angehoben);
    Kasten(aufruf, "OEZK: ", nachOEZK3.Anweisung);
    werte.OEZK3 =
        KlasseNachschlagen(aufruf, nachOEZK3, angehoben, spur != nullptr ? &spur->Ratio.Raised : nullptr);
    Kasten(aufruf, "OEZK3: ", store::NumberText(static_cast<std::int32_t>(werte.OEZK3)));

    Speichern(modul, aufruf, werte);
    if (spur != nullptr) spur->Done = true;
}

}  // namespace FX_Algen::wrrl
