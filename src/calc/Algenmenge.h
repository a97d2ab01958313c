#pragma once

#include <span>

#include "calc/Spur.h"

/// Arithmetic of the algae quantity index over plain rows. See `Berechnung_AMI`.
namespace FX_Algen::calc {

/// A macroalga or a whole mixed stand: its cover and its mean layer thickness.
struct Menge {
    Deckung DG;
    Schichtdicke SD;
};

/// `AMI` grows by SD * DG / 100 for each row: mm of layer averaged over the sub-habitat. The accumulator is a
/// 64-bit float.
void Mengenindex(Block block, std::span<const Menge> zeilen, double& AMI, AMISpur* spur);

}  // namespace FX_Algen::calc
