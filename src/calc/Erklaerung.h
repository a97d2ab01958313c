#pragma once

#include <map>
#include <string>
#include <vector>

#include "FX_Algen/Explain.h"
#include "calc/Funde.h"
#include "calc/Lesen.h"
#include "calc/Spur.h"

/// Turns the trace of a calculation into explanations of its indices: gives each counted row its finding
/// back, and each finding that was not counted its rule.
namespace FX_Algen::calc {

/// What the explanations of all indices need.
struct Erklaerungsbasis {
    const Probe& Funde;
    bool IstWRRL = false;
    std::optional<Gesamtdeckung> DG_Gesamt;  ///< absent where it was not entered
    /// Where the calculation failed, if a Null ended it.
    const NullImWert* Abbruch = nullptr;
    bool KAOnly = false;  ///< the run is one of the diatoms alone
};

/// An index over the blocks, from its contributions. `nurSchalen`: of the diatoms alone.
ExplainedIndex ErklaereIndex(std::string spalte, const std::vector<Beitrag>& beitraege, bool mitAlgenart,
                             bool nurSchalen, const Erklaerungsbasis& basis);

/// The five indices of saprobic and trophic calculation, `SapIndex` to `TI_KA`, from the trace of a run.
std::vector<ExplainedIndex> ErklaereIndizes(const Spur& spur, const Erklaerungsbasis& basis);

/// The quantity index.
ExplainedIndex ErklaereMenge(const AMISpur& spur, const Erklaerungsbasis& basis);

/// Names of the taxa of a sample by their keys.
std::map<std::int32_t, std::string> Artnamen(const Probe& probe);

std::vector<ExplainedClassRow> ErklaereKlassen(const std::vector<Klassenzaehlung>& klassen,
                                               const std::map<std::int32_t, std::string>& namen);

}  // namespace FX_Algen::calc
