#pragma once

#include <cstdint>
#include <span>

#include "calc/Spur.h"

/// Arithmetic of the saprobic index, block by block, over plain rows. See `Berechnung_Saprobie`.
namespace FX_Algen::calc {

struct MakroalgeSap {
    std::int32_t ID_Art = 0;
    Deckung DG_MA;
    double Sap_GBer = 0;
    double SI = 0;
};

struct BestandsartSap {
    std::int32_t ID_Art = 0;
    Bestandsanteil DG_MI;
    double Sap_GBer = 0;
    double SI = 0;
};

struct KieselalgeSap {
    std::int32_t ID_Art = 0;
    Schalen Schalen_KA;
    double Sap_GBer = 0;
    double SI = 0;
};

/// A row of the class counts of the mixed stands.
struct KlassenartSap {
    std::int32_t ID_Art = 0;
    double SI = 0;
};

/// Macroalgae: w = DG_MA * Sap_GBer / total * 100. Counts a class at each row whose taxon differs from the
/// row before. The total cover must be above 0.
void Makroalgen(std::span<const MakroalgeSap> zeilen, Gesamtdeckung gesamt, SaprobieSummen& summen,
                Klassenzahlen& klassen, SaprobieSpur* spur);

/// Taxa of one mixed stand: w = DG_MI * Sap_GBer * share of the stand / 100. Counts no classes.
void Mischbestand(std::span<const BestandsartSap> zeilen, const Bestand& bestand, SaprobieSummen& summen,
                  SaprobieSpur* spur);

/// Class counts over all mixed stands: every row counts.
void MischbestandKlassen(std::span<const KlassenartSap> zeilen, Klassenzahlen& klassen, SaprobieSpur* spur);

/// Diatoms: w = Schalen_KA * Sap_GBer / sum of valves * 100, into the sums of all blocks and those of the
/// diatoms. Counts classes as `Makroalgen`. The sum of valves must be above 0.
void Kieselalgen(std::span<const KieselalgeSap> zeilen, Schalensumme schalen, SaprobieSummen& summen,
                 Klassenzahlen& klassen, SaprobieSpur* spur);

}  // namespace FX_Algen::calc
