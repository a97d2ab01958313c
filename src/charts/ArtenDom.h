#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "wrrl/Artenliste.h"

/// The dominance chart: the taxa of one group of algae whose relative abundance in a sub-habitat lies above a
/// threshold.
namespace FX_Algen {

/// What the chart is made for.
struct Dominanzauftrag {
    /// Scope of the frequency list and what else it takes; without a sub-habitat, so that it holds all of the
    /// scope. `Balken.Text` is set here.
    Listenauftrag Liste;
    std::int32_t TeilraumID = 0;  ///< the sub-habitat charted
    std::int16_t Algenart = 0;    ///< 1 all but diatoms, 2 diatoms
    float MaxDomWert = 0;         ///< only taxa above this relative abundance, in percent
    bool Berechnen = false;       ///< whether the frequency list is rebuilt first
};

/// What a host needs to draw the chart.
struct Dominanzgrafik {
    std::string SQL;  ///< `Taxa`, `Wert` in rising order
    std::string Standardtitel;
    std::optional<std::int16_t> Artenanzahl;  ///< none where no taxon lies above the threshold
    std::string Res_Stellenbez;
};

/// Works out the chart and counts its taxa. None where the frequency list could not be built, and for any
/// other `Algenart`. `SprachID` of the list must be a language base already. The progress form is shown where
/// the host gave a window, and taken away however the call ends.
///
/// Fails with 326 or 6 where a text is missing, with 3061 where the list of an earlier call has no column for
/// the sub-habitat, with 3078 where there is none, with 6 beyond 32767 taxa.
std::optional<Dominanzgrafik> Grafik_ArtenDom_Init(const Dominanzauftrag& auftrag);

}  // namespace FX_Algen
