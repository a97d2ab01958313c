#include "wrrl/Gesamtklasse.h"

#include <algorithm>

#include "wrrl/Nachschlag.h"

namespace FX_Algen::wrrl {

Schlechteste SchlechtesteKlasse(const Klassen& klassen) {
    Schlechteste ergebnis;
    ergebnis.Klasse = *std::max_element(klassen.begin(), klassen.end());
    for (std::size_t modul = 0; modul < klassen.size(); ++modul) {
        if (klassen[modul] != ergebnis.Klasse) continue;
        ++ergebnis.Anzahl;
        ergebnis.Modul = modul;
    }
    return ergebnis;
}

std::int16_t Abgemildert(std::int16_t klasse, std::int16_t angehoben) {
    // No class was found at the raised ratio. Beside a class 0 its marker would pass for the next better one.
    if (angehoben == KeineKlasse) return klasse;
    return angehoben + 1 == klasse ? angehoben : klasse;
}

}  // namespace FX_Algen::wrrl
