// Algae quantity index: layer thickness times the covered fraction. The accumulator is a 64-bit float.
#include "calc/Algenmenge.h"

namespace FX_Algen::calc {

void Makroalgen(std::span<const MakroalgeMenge> zeilen, double& AMI, AMISpur* spur) {
    for (const auto& zeile : zeilen) {
        const double beitrag = zeile.SD_MA.Millimeter * zeile.DG_MA.Prozent / 100;
        AMI += beitrag;
        if (spur != nullptr) {
            spur->Beitraege.push_back(
                {Block::Makroalgen, zeile.ID_Art, std::nullopt, zeile.DG_MA, zeile.SD_MA, beitrag});
        }
    }
}

void Mischbestaende(std::span<const BestandMenge> zeilen, double& AMI, AMISpur* spur) {
    for (const auto& zeile : zeilen) {
        const double beitrag = zeile.SD_MI.Millimeter * zeile.DG_MI.Prozent / 100;
        AMI += beitrag;
        if (spur != nullptr) {
            spur->Beitraege.push_back(
                {Block::Mischbestaende, std::nullopt, zeile.ID_TR_MI, zeile.DG_MI, zeile.SD_MI, beitrag});
        }
    }
}

}  // namespace FX_Algen::calc
