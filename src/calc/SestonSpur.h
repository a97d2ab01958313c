#pragma once

#include <optional>
#include <vector>

#include "calc/Seston.h"
#include "calc/Spur.h"

/// The trace of a seston calculation: how its sums came about, finding by finding, as far as it came.
namespace FX_Algen::calc {

/// A finding that counted.
struct SestonBeitrag {
    SestonFund Fund;
    std::optional<double> Entropie;  ///< p * ln(p)
};

struct SestonSpur {
    std::vector<SestonBeitrag> Beitraege;  ///< kept only where a trace is asked for
    SestonSummen Summen;
    bool Fertig = false;                      ///< the sums are complete
    std::optional<double> Summe_H;            ///< dblSumme_H
    std::optional<Streuungssummen> Streuung;  ///< absent where the dispersion failed, and so became 0
    std::vector<Taxazaehlung> Taxazahlen;
};

}  // namespace FX_Algen::calc
