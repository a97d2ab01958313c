#pragma once

#include <cstdint>

#include "calc/Summe32.h"

/// Units of the calculation's inputs. Covers, shares, layers and valves are all plain numbers in the tables
/// and nothing but their names tells them apart there; here a mix-up does not compile.
namespace FX_Algen::calc {

/// Cover of a finding or of a mixed stand, in percent of the sub-habitat.
struct Deckung {
    double Prozent = 0;
};

/// Total cover of a sub-habitat without diatoms, in percent: the base of the relative abundances.
/// 32-bit, as the working value it is.
struct Gesamtdeckung {
    float Prozent = 0;
};

/// Share of a taxon within its mixed stand, in percent of the stand.
struct Bestandsanteil {
    double Prozent = 0;
};

/// Share of a mixed stand in the total cover, in percent (`sngAnteil_MI`). 32-bit, as the working value it
/// is.
struct AnteilMI {
    float Prozent = 0;
};

/// Mean layer thickness in mm.
struct Schichtdicke {
    double Millimeter = 0;
};

/// Counted diatom valves of a finding.
struct Schalen {
    std::int32_t Anzahl = 0;
};

/// All counted valves of a sub-habitat (`sngSumme_KA`). 32-bit float, as the working value it is.
struct Schalensumme {
    float Anzahl = 0;
};

/// Share of a mixed stand in the total cover: cover / total * 100, rounded to 32 bits. The total must be
/// above 0; 6 where the share leaves the range of 32-bit floats.
inline AnteilMI Anteil(Deckung bestand, Gesamtdeckung gesamt) {
    return {Gerundet32(bestand.Prozent / static_cast<double>(gesamt.Prozent) * 100)};
}

}  // namespace FX_Algen::calc
