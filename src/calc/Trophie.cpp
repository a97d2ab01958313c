// Trophic indices of algae: weighted means of trophic values, after Rott et al. (1999), on the relative
// scales of the saprobic index. All terms are computed from left to right in 64 bits; the order decides the
// last digits.
#include "calc/Trophie.h"

namespace FX_Algen::calc {
namespace {

/// What one finding adds for one pair of values.
struct Paarbeitrag {
    double w = 0;
    double wWert = 0;
};

Paarbeitrag Relativ(double abundanz, double gewicht, double wert, double basis) {
    return {abundanz * gewicht / basis * 100, abundanz * gewicht * wert / basis * 100};
}

Paarbeitrag ImBestand(double dg, double gewicht, double wert, double anteil) {
    return {dg * gewicht * anteil / 100, dg * gewicht * wert * anteil / 100};
}

void Addieren(const Paarbeitrag& erstes, const Paarbeitrag& zweites, TrophieSummen& summen) {
    summen.TI.Add(erstes.w);
    summen.TI_S.Add(erstes.wWert);
    summen.TI_N.Add(zweites.w);
    summen.TI_N_S.Add(zweites.wWert);
}

/// Notes a finding for both pairs; `vorlage` carries what they have in common.
void Notieren(Beitrag vorlage, const Trophiewerte& werte, const Paarbeitrag& erstes,
              const Paarbeitrag& zweites, TrophieSpur& spur) {
    vorlage.Gewicht = werte.Trophiegewicht;
    vorlage.Wert = werte.Trophiewert;
    vorlage.w = erstes.w;
    vorlage.wWert = erstes.wWert;
    spur.TI.push_back(vorlage);
    vorlage.Gewicht = werte.Trophiegewicht_N;
    vorlage.Wert = werte.Trophiewert_N;
    vorlage.w = zweites.w;
    vorlage.wWert = zweites.wWert;
    spur.TI_N.push_back(vorlage);
}

}  // namespace

void Makroalgen(std::span<const MakroalgeTroph> zeilen, Gesamtdeckung gesamt, TrophieSummen& summen,
                TrophieSpur* spur) {
    const double basis = gesamt.Prozent;
    for (const auto& zeile : zeilen) {
        const double dg = zeile.DG_MA.Prozent;
        const auto& werte = zeile.Werte;
        const auto erstes = Relativ(dg, werte.Trophiegewicht, werte.Trophiewert, basis);
        const auto zweites = Relativ(dg, werte.Trophiegewicht_N, werte.Trophiewert_N, basis);
        Addieren(erstes, zweites, summen);
        if (spur != nullptr) {
            Notieren({Block::Makroalgen, zeile.ID_Art, std::nullopt, dg, dg / basis * 100, 0, 0, 0, 0}, werte,
                     erstes, zweites, *spur);
        }
    }
}

void Mischbestand(std::span<const BestandsartTroph> zeilen, const Bestand& bestand, TrophieSummen& summen,
                  TrophieSpur* spur) {
    const double anteil = bestand.Anteil.Prozent;
    for (const auto& zeile : zeilen) {
        const double dg = zeile.DG_MI.Prozent;
        const auto& werte = zeile.Werte;
        const auto erstes = ImBestand(dg, werte.Trophiegewicht, werte.Trophiewert, anteil);
        const auto zweites = ImBestand(dg, werte.Trophiegewicht_N, werte.Trophiewert_N, anteil);
        Addieren(erstes, zweites, summen);
        if (spur != nullptr) {
            Notieren(
                {Block::Mischbestaende, zeile.ID_Art, bestand.ID_TR_MI, dg, dg * anteil / 100, 0, 0, 0, 0},
                werte, erstes, zweites, *spur);
        }
    }
}

void Kieselalgen(std::span<const KieselalgeTroph> zeilen, Schalensumme schalen, TrophieSummen& summen,
                 TrophieSpur* spur) {
    const double basis = schalen.Anzahl;
    for (const auto& zeile : zeilen) {
        const double anzahl = zeile.Schalen_KA.Anzahl;
        const auto& werte = zeile.Werte;
        const auto erstes = Relativ(anzahl, werte.Trophiegewicht, werte.Trophiewert, basis);
        const auto zweites = Relativ(anzahl, werte.Trophiegewicht_N, werte.Trophiewert_N, basis);
        Addieren(erstes, zweites, summen);
        summen.TI_KA.Add(erstes.w);
        summen.TI_KA_S.Add(erstes.wWert);
        if (spur != nullptr) {
            Notieren({Block::Schalen, zeile.ID_Art, std::nullopt, anzahl, anzahl / basis * 100, 0, 0, 0, 0},
                     werte, erstes, zweites, *spur);
        }
    }
}

}  // namespace FX_Algen::calc
