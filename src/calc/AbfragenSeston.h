#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Statement texts of the seston calculation, composed from fixed pieces and decimal identifiers. Debug boxes
/// show some of them, so their texts carry no more than what the calculation reads.
namespace FX_Algen::calc::abfragen {

/// FROM over sites and findings of the seston; and over these and their taxa.
std::string_view VonSeston();
std::string_view VonSestonMitArt();

/// Counted findings: `Abundanz`, `W_SI`, and the four valences. The order of delivery decides the last digits
/// of the sums.
std::string Sestonfunde(std::int32_t ID_TR);
/// Taxon, site and `CF` of the first of these findings whose taxon lacks the value `feld`.
std::string SestonfundOhneWert(std::int32_t ID_TR, std::string_view feld);

/// The working table: as a whole by its name, or the rows of a sub-habitat.
std::string_view Sestonzeilen();
std::string Sestonzeilen(std::int32_t ID_TR);

/// The result row of a sub-habitat.
std::string Sestonergebnis(std::int32_t ID_TR);

}  // namespace FX_Algen::calc::abfragen
