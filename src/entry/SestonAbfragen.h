#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Statement texts of the seston sheet, composed from fixed pieces and decimal identifiers.
namespace FX_Algen::entry::seston {

// ---- opening
/// The sub-habitat with its sampling sites; no row where either is missing.
std::string TeilraumMitStelle(std::int32_t ID_TR);
/// The row of the sub-habitat, and its sampling sites, each by itself.
std::string Teilraum(std::int32_t ID_TR);
std::string Stellen(std::int32_t ID_TR);
/// A sampling site "<NEU>".
std::string StelleAnlegen(std::int32_t ID_TR);

// ---- taxa
/// What the list shows of each finding of a sampling site. Findings of taxa that the catalogue lacks are not
/// among them.
std::string Taxa(std::int32_t ID_PS);
/// How many findings a sampling site has, as `N`.
std::string Fundezahl(std::int32_t ID_PS);

/// What a row of the list holds.
struct Fundzeile {
    bool CF = false;
    std::int32_t Abundanz = 0;
    std::string_view Zusatz;  ///< its apostrophes are doubled in the statement
};
/// Writes a row of the list; `altesCF` is that of the stored row.
std::string TaxonSchreiben(std::int32_t ID_PS, std::int32_t ID_Art, bool altesCF, const Fundzeile& zeile);
std::string TaxonLoeschen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF);

}  // namespace FX_Algen::entry::seston
