#include "FX_Algen/AL_PS_Grafik.h"

#include "FX_Algen/Error.h"
#include "host/NotBuilt.h"

namespace FX_Algen {

using host::NotBuilt;

namespace {
constexpr std::string_view Klasse = "AL_PS_Grafik";
}

store::Value AL_PS_Grafik::Eintrag(const char* member, const Liste& liste, std::int16_t tmpwert) {
    if (tmpwert < 1 || static_cast<std::size_t>(tmpwert) > liste.size())
        throw Error(ErrorNumber::IndexOutOfRange, std::string(Klasse) + "." + member + ": index " +
                                                      std::to_string(tmpwert) + " is outside 1 to " +
                                                      std::to_string(liste.size()) + ".");
    return liste[static_cast<std::size_t>(tmpwert) - 1];
}

void AL_PS_Grafik::Grafik_Verteilung_Init() { NotBuilt(Klasse, "Grafik_Verteilung_Init"); }
void AL_PS_Grafik::Grafik_ArtenDom_Init() { NotBuilt(Klasse, "Grafik_ArtenDom_Init"); }

}  // namespace FX_Algen
