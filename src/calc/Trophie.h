#pragma once

#include <cstdint>
#include <span>

#include "calc/Spur.h"

/// Arithmetic of the trophic indices, block by block, over plain rows. See `Berechnung_Trophie`.
namespace FX_Algen::calc {

/// The two independent pairs of trophic weight and value of a taxon.
struct Trophiewerte {
    double Trophiegewicht = 0;
    double Trophiewert = 0;
    double Trophiegewicht_N = 0;
    double Trophiewert_N = 0;
};

struct MakroalgeTroph {
    std::int32_t ID_Art = 0;
    Deckung DG_MA;
    Trophiewerte Werte;
};

struct BestandsartTroph {
    std::int32_t ID_Art = 0;
    Bestandsanteil DG_MI;
    Trophiewerte Werte;
};

struct KieselalgeTroph {
    std::int32_t ID_Art = 0;
    Schalen Schalen_KA;
    Trophiewerte Werte;
};

/// Macroalgae: weight sums grow by DG_MA * g / total * 100. The total cover must be above 0.
void Makroalgen(std::span<const MakroalgeTroph> zeilen, Gesamtdeckung gesamt, TrophieSummen& summen,
                TrophieSpur* spur);

/// Taxa of one mixed stand: weight sums grow by DG_MI * g * share of the stand / 100.
void Mischbestand(std::span<const BestandsartTroph> zeilen, const Bestand& bestand, TrophieSummen& summen,
                  TrophieSpur* spur);

/// Diatoms: weight sums grow by Schalen_KA * g / sum of valves * 100, the first pair also in the sums of the
/// diatoms. The sum of valves must be above 0.
void Kieselalgen(std::span<const KieselalgeTroph> zeilen, Schalensumme schalen, TrophieSummen& summen,
                 TrophieSpur* spur);

}  // namespace FX_Algen::calc
