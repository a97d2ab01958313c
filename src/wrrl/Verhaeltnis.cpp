#include "wrrl/Verhaeltnis.h"

#include "FX_Algen/Runden.h"
#include "calc/Summe32.h"

namespace FX_Algen::wrrl {
namespace {

constexpr double SchlechtesEnde = 4;
constexpr double Anhebung = 0.03;
constexpr std::int16_t Stellen = 2;

Verhaeltnis AusUngerundetem(double ungerundet) {
    Verhaeltnis ergebnis;
    ergebnis.Ungerundet = ungerundet;
    // + 0: a ratio of -0 is 0 in the row and in statements alike.
    ergebnis.Gerundet = Allgemein::Runden(ungerundet, Stellen) + 0.0;
    ergebnis.EQR = calc::Gerundet32(ergebnis.Gerundet);
    if (ergebnis.EQR > 1) ergebnis.EQR = 1;
    return ergebnis;
}

}  // namespace

std::optional<Verhaeltnis> AbstandVomEnde(float index, float erwartet) {
    if (!(index > 0)) return Verhaeltnis{};
    const double teiler = SchlechtesEnde - static_cast<double>(erwartet);
    if (teiler == 0) return std::nullopt;
    return AusUngerundetem((SchlechtesEnde - static_cast<double>(index)) / teiler);
}

std::optional<Verhaeltnis> AnteilAmErwarteten(float index, float erwartet) {
    if (erwartet == 0) return std::nullopt;
    return AusUngerundetem(static_cast<double>(index) / static_cast<double>(erwartet));
}

float Angehoben(float EQR) {
    return calc::Gerundet32(Allgemein::Runden(static_cast<double>(EQR) + Anhebung, Stellen));
}

}  // namespace FX_Algen::wrrl
