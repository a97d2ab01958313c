// Seston indices: abundance-weighted saprobic index after Pantle & Buck (1955), valences after Zelinka &
// Marvan (1961), diversity after Shannon & Weaver (1949), Margalef (1958) and Pielou (1966). Terms are
// computed in 64 bits; the order of the findings decides the last digits of the 32-bit sums.
#include "calc/Seston.h"

#include <cmath>
#include <limits>

#include "FX_Algen/Error.h"

namespace FX_Algen::calc {
namespace {

/// The sum of two integers; fails with 6 where it leaves their type.
template <class Ganzzahl>
Ganzzahl Summe(Ganzzahl summe, Ganzzahl zahl, const char* was) {
    const auto neu = static_cast<std::int64_t>(summe) + zahl;
    if (neu > std::numeric_limits<Ganzzahl>::max() || neu < std::numeric_limits<Ganzzahl>::min()) {
        throw Error(ErrorNumber::Overflow, std::string("Overflow: ") + was);
    }
    return static_cast<Ganzzahl>(neu);
}

}  // namespace

void Zaehle(const SestonFund& fund, SestonSummen& summen) {
    const double abundanz = fund.Abundanz;
    summen.Abundanz.Add(abundanz);
    summen.lngAbundanz =
        Summe(summen.lngAbundanz, fund.Abundanz, "the sum of abundances leaves the range of 32-bit integers");
    summen.SI.Add(abundanz * fund.W_SI);
    for (std::size_t i = 0; i < fund.W.size(); ++i) summen.Valenz[i].Add(abundanz * fund.W[i]);
}

std::optional<Valenzen> Verteilung(const SestonSummen& summen) {
    Summe32 gesamt;
    for (const auto& valenz : summen.Valenz) gesamt.Add(valenz.Wert());
    const double V = gesamt.Wert();
    if (!(V > 0)) return std::nullopt;
    Valenzen verteilung{};
    for (std::size_t i = 0; i < verteilung.size(); ++i) {
        verteilung[i] = static_cast<double>(summen.Valenz[i].Wert()) / V * 10;
    }
    return verteilung;
}

double Entropieterm(std::int32_t a, std::int32_t N) {
    if (a == 0 || N == 0) return 0;
    const double p = static_cast<double>(a) / N;
    return p * std::log(p);
}

Streuungssummen Quadratsummen(std::span<const Streuungszeile> zeilen, double S) {
    Streuungssummen summen;
    for (const auto& zeile : zeilen) {
        const double abweichung = zeile.Si - S;
        summen.Q += zeile.a * (abweichung * abweichung);
        summen.A += zeile.a;
        summen.n = Summe(summen.n, zeile.n, "the rated findings leave the range of 16-bit integers");
    }
    return summen;
}

double Streuung(const Streuungssummen& summen) {
    if (summen.n < 2) return 0;
    const double nenner = (summen.n - 1) * summen.A;
    if (nenner == 0) {
        throw Error(ErrorNumber::DivisionByZero,
                    "Division by zero: the abundances of the dispersion add up to 0");
    }
    return std::sqrt(summen.Q / nenner);
}

Vielfalt BerechneVielfalt(double summe_H, std::int32_t N, std::int16_t S) {
    Vielfalt vielfalt;
    // A subtraction, since the negative of a sum without terms would be a zero with a sign.
    vielfalt.ShannonundWeaver = 0.0 - summe_H;
    if (N > 1) vielfalt.MArgalef = (S - 1) / std::log(static_cast<double>(N));
    if (S > 1) vielfalt.Eveness = vielfalt.ShannonundWeaver / std::log(static_cast<double>(S));
    return vielfalt;
}

}  // namespace FX_Algen::calc
