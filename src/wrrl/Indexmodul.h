#pragma once

#include <cstdint>
#include <string_view>

#include "wrrl/Nachschlag.h"
#include "wrrl/Schritte.h"

/// What the trophic and the saprobic module share: from a measured index to a class. Lookups of reference
/// class and expected value, the index of the group, the ratio, its class and the class of the raised ratio;
/// then the columns of `awaErgWRRL`.
namespace FX_Algen::wrrl {

/// What tells the two modules apart.
struct Indexmodul {
    Bezugstabellen Tabellen;
    std::string_view Kuerzel;         ///< "TI" or "SI": column of the index, start of the others' names
    std::string_view Referenzspalte;  ///< column of the reference class, and its label
    std::string_view Indexspalte;     ///< index of `awaErgProjekt` for the group "Alle"
    std::string_view Indexspalte_KA;  ///< and for the group "KA"
    std::string_view LabelIndexabfrage;
    std::string_view LabelIndexwert;
    /// The expected value as the module uses it.
    float (*Erwartung)(double ausTabelle);
};

void Bewerten(const Indexmodul& modul, const Aufruf& aufruf, std::int32_t BioregionID,
              std::int16_t Hoehenstufe, std::string_view gruppe, IndexModuleTrace* spur);

}  // namespace FX_Algen::wrrl
