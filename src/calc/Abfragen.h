#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Statement texts of the classic calculation, composed from fixed pieces and decimal identifiers.
///
/// The queries of findings are neither sorted nor grouped: the class counts rest on the order of delivery.
/// Those with ratings name the taxon besides what the arithmetic reads, so that a failure can say whose value
/// is missing.
namespace FX_Algen::calc::abfragen {

/// Values of `awaModulStandard` that an index reads, as they follow in its select lists.
inline constexpr std::string_view SapWerte = "awaModulStandard.Sap_GBer, awaModulStandard.SI";
inline constexpr std::string_view TrophWerte =
    "awaModulStandard.Trophiegewicht, awaModulStandard.Trophiewert, awaModulStandard.Trophiegewicht_N, "
    "awaModulStandard.Trophiewert_N";

/// FROM over sites and findings; over sites, findings and ratings; and over the taxonomy down to these.
std::string_view VonFunde();
std::string_view VonFundeMitWerten();
std::string_view VonFundeMitFamilie();

std::string Teilraum(std::int32_t ID_TR);
std::string Bestaende(std::int32_t ID_TR);
std::string Schalensumme(std::int32_t ID_TR, bool IstWRRL);

/// Findings with a cover as macroalga: `ID_ART`, `DG_MA`, then `werte`. `mitAlgenart` leaves out taxa without
/// `Algenart`.
std::string Makroalgen(std::int32_t ID_TR, bool IstWRRL, std::string_view werte, bool mitAlgenart);
/// Taxa of a mixed stand: `ID_ART`, `DG_MI`, then `werte`.
std::string Bestandsarten(std::int32_t ID_TR_MI, bool IstWRRL, std::string_view werte, bool mitAlgenart);
/// Findings with counted valves: `ID_ART`, `Schalen_KA`, then `werte`.
std::string Kieselalgen(std::int32_t ID_TR, bool IstWRRL, std::string_view werte);
/// `ID_ART`, `SI` of all taxa of all mixed stands.
std::string Bestandsklassen(std::int32_t ID_TR);

/// `DG_MA`, `SD_MA` of the macroalgae with a layer thickness.
std::string MengeMakroalgen(std::int32_t ID_TR);
/// `DG_MI`, `SD_MI` of the mixed stands with a layer thickness.
std::string MengeBestaende(std::int32_t ID_TR);

/// Key of the taxon, and of the stand, whose cover is Null where `MengeMakroalgen` and `MengeBestaende` fail.
std::string MengeMakroalgeOhneDeckung(std::int32_t ID_TR);
std::string MengeBestandOhneDeckung(std::int32_t ID_TR);

/// FROM over the frequency list and the taxonomy of its taxa.
std::string_view VonHaeufigkeit();
/// Rows of the frequency list with a share in the sub-habitat that belong to the reference species, valid
/// everywhere (type A) or by bioregion (type B; `kriterium` is a condition over `awaRefArt_TypB`, empty for
/// none). `auswahl` is the select list; `nurSchalen` leaves the diatoms alone.
std::string ReferenzartenTypA(std::int32_t ID_TR, std::string_view auswahl, bool nurSchalen);
std::string ReferenzartenTypB(std::int32_t ID_TR, std::string_view auswahl, std::string_view kriterium,
                              bool nurSchalen);

/// The result row of a sub-habitat.
std::string Ergebniszeile(std::int32_t ID_TR, bool KAOnly);

/// A boolean in a statement: -1 and 0.
std::string_view Flagge(bool wert);

}  // namespace FX_Algen::calc::abfragen
