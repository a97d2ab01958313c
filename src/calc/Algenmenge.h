#pragma once

#include <cstdint>
#include <span>

#include "calc/Spur.h"

/// Arithmetic of the algae quantity index over plain rows. See `Berechnung_AMI`.
namespace FX_Algen::calc {

struct MakroalgeMenge {
    std::int32_t ID_Art = 0;
    Schichtdicke SD_MA;
    Deckung DG_MA;
};

struct BestandMenge {
    std::int32_t ID_TR_MI = 0;
    Schichtdicke SD_MI;
    Deckung DG_MI;
};

/// `AMI` grows by SD * DG / 100 for each macroalga: mm of layer averaged over the sub-habitat.
void Makroalgen(std::span<const MakroalgeMenge> zeilen, double& AMI, AMISpur* spur);

/// The same for each mixed stand as a whole.
void Mischbestaende(std::span<const BestandMenge> zeilen, double& AMI, AMISpur* spur);

}  // namespace FX_Algen::calc
