#include "calc/Gueteklasse.h"

#include <limits>
#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::calc {
namespace {

struct Grenzen {
    double Von;
    double Bis;
};

// The bounds are 64-bit constants: 1.4 lies above 1.399999, also where it was stored in 32 bits. The gap
// below 3.5 is part of the rule.
constexpr std::array<Grenzen, 7> Klassengrenzen{{{0.000001, 1.399999},
                                                 {1.399999, 1.799999},
                                                 {1.799999, 2.199999},
                                                 {2.199999, 2.599999},
                                                 {2.599999, 3.099999},
                                                 {3.099999, 3.499999},
                                                 {3.5, std::numeric_limits<double>::infinity()}}};

}  // namespace

std::optional<std::size_t> Gueteklasse(double SI) {
    for (std::size_t i = 0; i < Klassengrenzen.size(); ++i) {
        if (SI >= Klassengrenzen[i].Von && SI <= Klassengrenzen[i].Bis) return i;
    }
    return std::nullopt;
}

std::optional<std::size_t> Gueteklasse_Zaehlen(double SI, Klassenzahlen& anzahl) {
    const auto klasse = Gueteklasse(SI);
    if (!klasse) return klasse;
    auto& zaehler = anzahl[*klasse];
    if (zaehler == std::numeric_limits<std::int16_t>::max()) {
        throw Error(ErrorNumber::Overflow,
                    "Overflow: more than 32767 taxa for " + std::string(KlassenSpalten[*klasse]));
    }
    ++zaehler;
    return klasse;
}

}  // namespace FX_Algen::calc
