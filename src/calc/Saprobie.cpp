// Saprobic index of algae: weighted mean of saprobic values, after Zelinka & Marvan (1961), with macroalgae,
// mixed stands and diatoms brought onto relative scales. All terms are computed from left to right in
// 64 bits; the order decides the last digits.
#include "calc/Saprobie.h"

namespace FX_Algen::calc {
namespace {

/// Counts a class once for each run of rows with equal taxa.
class Laufzaehler {
public:
    Laufzaehler(Block block, Klassenzahlen& klassen, SaprobieSpur* spur)
        : block_(block), klassen_(klassen), spur_(spur) {}

    void Zeile(std::int32_t ID_Art, double SI) {
        if (ID_Art == letzte_) {
            if (spur_ != nullptr) {
                spur_->Klassen.push_back({block_, ID_Art, SI, Gueteklasse(SI), Zaehlregel::SelbeArt});
            }
            return;
        }
        letzte_ = ID_Art;
        const auto klasse = Gueteklasse_Zaehlen(SI, klassen_);
        if (spur_ != nullptr) {
            spur_->Klassen.push_back(
                {block_, ID_Art, SI, klasse, klasse ? Zaehlregel::Gezaehlt : Zaehlregel::KeineKlasse});
        }
    }

private:
    Block block_;
    Klassenzahlen& klassen_;
    SaprobieSpur* spur_;
    std::int32_t letzte_ = 0;
};

}  // namespace

void Makroalgen(std::span<const MakroalgeSap> zeilen, Gesamtdeckung gesamt, SaprobieSummen& summen,
                Klassenzahlen& klassen, SaprobieSpur* spur) {
    const double basis = gesamt.Prozent;
    Laufzaehler zaehler(Block::Makroalgen, klassen, spur);
    for (const auto& zeile : zeilen) {
        const double dg = zeile.DG_MA.Prozent;
        const double w = dg * zeile.Sap_GBer / basis * 100;
        const double wSI = dg * zeile.Sap_GBer * zeile.SI / basis * 100;
        summen.Gewicht.Add(w);
        summen.GewichtSI.Add(wSI);
        if (spur != nullptr) {
            spur->Beitraege.push_back({Block::Makroalgen, zeile.ID_Art, std::nullopt, dg, dg / basis * 100,
                                       zeile.Sap_GBer, zeile.SI, w, wSI});
        }
        zaehler.Zeile(zeile.ID_Art, zeile.SI);
    }
}

void Mischbestand(std::span<const BestandsartSap> zeilen, const Bestand& bestand, SaprobieSummen& summen,
                  SaprobieSpur* spur) {
    const double anteil = bestand.Anteil.Prozent;
    for (const auto& zeile : zeilen) {
        const double dg = zeile.DG_MI.Prozent;
        const double w = dg * zeile.Sap_GBer * anteil / 100;
        const double wSI = dg * zeile.Sap_GBer * zeile.SI * anteil / 100;
        summen.Gewicht.Add(w);
        summen.GewichtSI.Add(wSI);
        if (spur != nullptr) {
            spur->Beitraege.push_back({Block::Mischbestaende, zeile.ID_Art, bestand.ID_TR_MI, dg,
                                       dg * anteil / 100, zeile.Sap_GBer, zeile.SI, w, wSI});
        }
    }
}

void MischbestandKlassen(std::span<const KlassenartSap> zeilen, Klassenzahlen& klassen, SaprobieSpur* spur) {
    for (const auto& zeile : zeilen) {
        const auto klasse = Gueteklasse_Zaehlen(zeile.SI, klassen);
        if (spur != nullptr) {
            spur->Klassen.push_back({Block::Mischbestaende, zeile.ID_Art, zeile.SI, klasse,
                                     klasse ? Zaehlregel::Gezaehlt : Zaehlregel::KeineKlasse});
        }
    }
}

void Kieselalgen(std::span<const KieselalgeSap> zeilen, Schalensumme schalen, SaprobieSummen& summen,
                 Klassenzahlen& klassen, SaprobieSpur* spur) {
    const double basis = schalen.Anzahl;
    Laufzaehler zaehler(Block::Schalen, klassen, spur);
    for (const auto& zeile : zeilen) {
        const double anzahl = zeile.Schalen_KA.Anzahl;
        const double w = anzahl * zeile.Sap_GBer / basis * 100;
        const double wSI = anzahl * zeile.Sap_GBer * zeile.SI / basis * 100;
        summen.Gewicht.Add(w);
        summen.GewichtSI.Add(wSI);
        zaehler.Zeile(zeile.ID_Art, zeile.SI);
        summen.Gewicht_KA.Add(w);
        summen.GewichtSI_KA.Add(wSI);
        if (spur != nullptr) {
            spur->Beitraege.push_back({Block::Schalen, zeile.ID_Art, std::nullopt, anzahl,
                                       anzahl / basis * 100, zeile.Sap_GBer, zeile.SI, w, wSI});
        }
    }
}

}  // namespace FX_Algen::calc
