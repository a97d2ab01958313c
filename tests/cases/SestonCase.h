#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "cases/CaseFile.h"

/// Cases of the seston: like those of the assessment, with taxa, findings and one expected row.
namespace FX_Algen::cases {

struct SestonTaxon {
    std::string Name;
    std::string W_SI;
    std::array<std::string, 4> W;  ///< `W_O`, `W_B`, `W_A`, `W_P`
};

struct SestonFinding {
    std::size_t Site = 0;   ///< position in `SestonCase::Sites`
    std::size_t Taxon = 0;  ///< position in `SestonCase::Taxa`
    bool CF = false;
    std::string Abundanz;
};

struct SestonCase {
    std::string File;
    std::string Title;
    std::string Reasoning;
    std::vector<SestonTaxon> Taxa;
    std::vector<std::string> Sites;
    std::vector<SestonFinding> Findings;
    Expectation Expected;
};

/// Reads a case. Everything that is not understood, and whatever is missing, fails with `CaseError`.
SestonCase ReadSestonCase(const std::string& file, std::string_view text);

/// Puts the sample into a new project database.
void Fill(const store::DatabasePtr& database, const SestonCase& sample);

/// Calculates the sub-habitat as a host does; the failure of the call, if it fails.
std::optional<Error> Calculate(const store::DatabasePtr& database);

}  // namespace FX_Algen::cases
