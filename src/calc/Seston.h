#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "calc/Summe32.h"

/// Arithmetic of the seston indices over plain rows. See `Berechnung_Seston`.
namespace FX_Algen::calc {

/// Valences of a taxon, or what is derived from them: `W_O`, `W_B`, `W_A`, `W_P`.
using Valenzen = std::array<double, 4>;

/// A counted finding with the values of its taxon.
struct SestonFund {
    std::int32_t Abundanz = 0;  ///< above 0
    double W_SI = 0;            ///< saprobic value; 0 for a taxon without rating
    Valenzen W{};
};

/// Working sums of the findings.
struct SestonSummen {
    Summe32 Abundanz;               ///< sngAbundanz
    Summe32 SI;                     ///< sngSumme_SI
    std::array<Summe32, 4> Valenz;  ///< sngValenz
    std::int32_t lngAbundanz = 0;   ///< the abundances once more, as a 32-bit integer
};

/// Adds a finding to the sums. A taxon with `W_SI` 0 adds to the abundances all the same: it pulls the index
/// down. Fails with 6 where a sum leaves its range.
void Zaehle(const SestonFund& fund, SestonSummen& summen);

/// Distribution over the four valences, as parts of 10; none where no valence adds up to more than 0. The
/// total is a 32-bit working value like the sums that it adds.
std::optional<Valenzen> Verteilung(const SestonSummen& summen);

/// p * ln(p) with p = a / N, natural logarithm; 0 where a or N is 0.
double Entropieterm(std::int32_t a, std::int32_t N);

/// A row of the working table.
struct Streuungszeile {
    double Si = 0;       ///< saprobic value
    std::int32_t a = 0;  ///< abundance
    std::int16_t n = 0;  ///< 1 for a rated row, else 0
};

/// Sums of the dispersion.
struct Streuungssummen {
    double Q = 0;        ///< sum of a * (Si - S)^2 over all rows, rated or not
    double A = 0;        ///< sum of a over all rows
    std::int16_t n = 0;  ///< rated rows
};

/// Fails with 6 where `n` leaves 16 bits.
Streuungssummen Quadratsummen(std::span<const Streuungszeile> zeilen, double S);

/// sqrt(Q / ((n - 1) * A)); 0 for fewer than two rated rows. Fails with 11 where the abundances add up to 0.
double Streuung(const Streuungssummen& summen);

/// Diversity figures, natural logarithm.
struct Vielfalt {
    double ShannonundWeaver = 0;  ///< H = -sum of p * ln(p)
    double MArgalef = 0;          ///< (S - 1) / ln(N); 0 where N is not above 1
    double Eveness = 0;           ///< H / ln(S); 0 where S is not above 1
};

/// `summe_H` is the sum of the entropy terms, N the sum of abundances, S the number of taxa.
Vielfalt BerechneVielfalt(double summe_H, std::int32_t N, std::int16_t S);

}  // namespace FX_Algen::calc
