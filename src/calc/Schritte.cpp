#include "calc/Schritte.h"

#include "calc/Abfragen.h"
#include "store/ThreadValues.h"

namespace FX_Algen::calc {

void LiesTeilraum(const Aufruf& aufruf, Grundlagen& basis) {
    const auto abfrage = abfragen::Teilraum(aufruf.ID_TR);
    const auto zeilen = aufruf.Datenbank.OpenRecordset(abfrage);
    if (!zeilen->Eof()) {
        Feldleser felder(*zeilen);
        basis.TeilraumGefunden = true;
        basis.DG_Gesamt = {
            felder.Zahl32(zeilen->FieldIndex(aufruf.IstWRRL ? "DG_Gesamt_WRRL" : "DG_Gesamt"))};
        basis.DG_Makroalgen = felder.Zahl32(zeilen->FieldIndex(aufruf.IstWRRL ? "DG_MA_WRRL" : "DG_MA"));
        if (!felder.Vollstaendig()) {
            auto luecke = felder.Luecke();
            luecke.Anweisung = abfrage;
            NullFehler(aufruf, luecke);
        }
    }
    zeilen->Close();
}

void LiesSchalensumme(const Aufruf& aufruf, Grundlagen& basis) {
    const auto zeilen = aufruf.Datenbank.OpenRecordset(abfragen::Schalensumme(aufruf.ID_TR, aufruf.IstWRRL));
    if (!zeilen->Eof() && !(*zeilen)[0].IsNull()) basis.Summe_KA = {(*zeilen)[0].R4()};
    zeilen->Close();
}

void Meldung(const std::string& text) { store::Port().Box("FX_Algen", text); }

Bestandsleser::Bestandsleser(const Aufruf& aufruf)
    : aufruf_(aufruf),
      abfrage_(abfragen::Bestaende(aufruf.ID_TR)),
      zeilen_(aufruf.Datenbank.OpenRecordset(abfrage_)) {}

Bestandsleser::~Bestandsleser() { zeilen_->Close(); }

std::optional<Bestand> Bestandsleser::Naechster(Gesamtdeckung gesamt) {
    enum Felder : std::size_t { ID_TR_MI, DG_MI, DG_MI_WRRL };
    if (zeilen_->Eof()) return std::nullopt;
    Feldleser felder(*zeilen_);
    Bestand bestand;
    bestand.ID_TR_MI = felder.Schluessel(ID_TR_MI);
    bestand.DG_MI = {felder.Zahl(aufruf_.IstWRRL ? DG_MI_WRRL : DG_MI)};
    if (!felder.Vollstaendig()) {
        auto luecke = felder.Luecke();
        luecke.Anweisung = abfrage_;
        luecke.Woher = Block::Mischbestaende;
        luecke.ID_TR_MI = bestand.ID_TR_MI;
        NullFehler(aufruf_, luecke);
    }
    bestand.Anteil = Anteil(bestand.DG_MI, gesamt);
    zeilen_->MoveNext();
    return bestand;
}

}  // namespace FX_Algen::calc
