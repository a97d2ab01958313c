#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Explain.h"
#include "calc/Einheiten.h"

/// All findings of a sub-habitat with what decides whether an index counts them, for explanations. The
/// calculation itself never sees what its queries leave out.
namespace FX_Algen::calc {

struct Fund {
    ExplainedFinding Wer;
    std::optional<double> DG;  ///< `DG_MA`, or `DG_MI` of a taxon in a mixed stand
    std::optional<double> SD_MA;
    std::optional<double> Schalen_KA;
    bool HatWerte = false;
    bool HatAlgenart = false;
    std::optional<std::int32_t> Lebensform;
    std::optional<std::int32_t> ID_GRGR;

    bool ImBestand() const noexcept { return Wer.ID_TR_MI.has_value(); }
};

/// A mixed stand with its fields as entered.
struct Bestandszeile {
    std::int32_t ID_TR_MI = 0;
    std::string MI_Bez;
    std::optional<double> DG_MI;
    std::optional<double> DG_MI_WRRL;
    std::optional<double> SD_MI;
};

struct Probe {
    std::vector<Fund> Funde;
    std::vector<Bestandszeile> Bestaende;
};

/// Name of a taxon from the fields of `awaArt`; a Null adds nothing.
std::string Artname(const store::Value& gattung, const store::Value& art);

Probe LiesProbe(store::Database& database, std::int32_t ID_TR);

/// What an index asks of a finding in one of its blocks.
struct Bedingungen {
    SampleBlock Block = SampleBlock::Macroalgae;
    bool MitAlgenart = false;
    bool IstWRRL = false;
    std::optional<Gesamtdeckung> DG_Gesamt;  ///< absent where it was not entered
    bool KAOnly = false;                     ///< a run of the diatoms alone reads the valves only
};

/// The first rule that keeps a finding out of a block; none where it counts.
std::optional<LeftOutRule> Auslassregel(const Fund& fund, const Bedingungen& bedingungen);
/// The same for a macroalga in the quantity index.
std::optional<LeftOutRule> AuslassregelMenge(const Fund& fund);

}  // namespace FX_Algen::calc
