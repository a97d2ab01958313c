#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/Store.h"
#include "calc/Lesen.h"
#include "calc/Spur.h"

/// Steps that the saprobic and the trophic calculation share.
namespace FX_Algen::calc {

/// What one call of a routine works on.
struct Aufruf : Ort {
    bool IstWRRL = false;
    bool DebugModus = false;
    bool KAOnly = false;
};

/// Reads the covers of the sub-habitat; without a row both stay 0. Fails with 94 on a Null in one of them.
void LiesTeilraum(const Aufruf& aufruf, Grundlagen& basis);

/// Reads the sum of counted valves; 0 where there are none.
void LiesSchalensumme(const Aufruf& aufruf, Grundlagen& basis);

/// Fails with 94 where the reading of a block met a Null; to be called once the rows before it have counted.
template <class Zeile>
void Pruefen(const Ort& aufruf, Lesung<Zeile>& lesung, Block block,
             std::optional<std::int32_t> ID_TR_MI = std::nullopt) {
    if (!lesung.Luecke) return;
    lesung.Luecke->Woher = block;
    lesung.Luecke->ID_TR_MI = ID_TR_MI;
    NullFehler(aufruf, *lesung.Luecke);
}

/// Shows a debug box.
void Meldung(const std::string& text);

/// The mixed stands of the sub-habitat as the store delivers them, one at a time.
class Bestandsleser {
public:
    explicit Bestandsleser(const Aufruf& aufruf);
    ~Bestandsleser();
    Bestandsleser(const Bestandsleser&) = delete;
    Bestandsleser& operator=(const Bestandsleser&) = delete;
    std::optional<Bestand> Naechster(Gesamtdeckung gesamt);

private:
    const Aufruf& aufruf_;
    std::string abfrage_;
    store::RecordsetPtr zeilen_;
};

/// Calls `bestand` with each mixed stand, in the order of their keys. The share of a stand is computed before
/// its taxa are read, so a Null cover fails with 94 even where the stand has none.
template <class Fuer>
void FuerBestaende(const Aufruf& aufruf, Grundlagen& basis, Fuer bestand) {
    Bestandsleser leser(aufruf);
    while (const auto gelesen = leser.Naechster(basis.DG_Gesamt)) {
        basis.Bestaende.push_back(*gelesen);
        bestand(*gelesen);
    }
}

}  // namespace FX_Algen::calc
