// Algae quantity index: layer thickness times the covered fraction.
#include "calc/Algenmenge.h"

namespace FX_Algen::calc {

void Mengenindex(Block block, std::span<const Menge> zeilen, double& AMI, AMISpur* spur) {
    for (const auto& zeile : zeilen) {
        const double beitrag = zeile.SD.Millimeter * zeile.DG.Prozent / 100;
        AMI += beitrag;
        if (spur != nullptr) spur->Beitraege.push_back({block, zeile.DG, zeile.SD, beitrag});
    }
}

}  // namespace FX_Algen::calc
