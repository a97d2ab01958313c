#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/ExplainSeston.h"
#include "calc/Lesen.h"
#include "calc/SestonSpur.h"

/// Turns the trace of a seston calculation into its explanation: gives each counted row its finding back, and
/// each finding that was not counted its rule.
namespace FX_Algen::calc {

/// A finding as it stands in the tables, counted or not.
struct Sestonzeile {
    std::int32_t ID_ART = 0;
    std::string Taxon;
    bool CF = false;
    std::int32_t ID_PS = 0;
    std::string PSBez;
    std::optional<std::int32_t> Abundanz;
    bool ImKatalog = false;
};

/// All findings of a sub-habitat in the order of their keys (an uncertain one before its certain twin), which
/// is that of the calculation.
std::vector<Sestonzeile> LiesSestonprobe(store::Database& database, std::int32_t ID_TR);

/// Enters findings, sums and counts into `explanation`. `abbruch`: where the calculation failed, if a Null
/// ended it.
void ErklaereSeston(const SestonSpur& spur, const std::vector<Sestonzeile>& probe, const NullImWert* abbruch,
                    SestonExplanation& explanation);

}  // namespace FX_Algen::calc
