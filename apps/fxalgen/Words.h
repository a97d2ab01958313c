#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Texts of results, by their offsets in the string table.
namespace FX_Algen::cli {

namespace words {
inline constexpr std::int16_t Projekt = 5200;
inline constexpr std::int16_t Abschnitt = 5201;
inline constexpr std::int16_t Stelle = 5202;
inline constexpr std::int16_t Datum = 5203;
inline constexpr std::int16_t Teilraum = 5204;
inline constexpr std::int16_t Stand = 5205;

inline constexpr std::int16_t Indices = 5210;
inline constexpr std::int16_t Taxazahlen = 5220;
inline constexpr std::int16_t Klassen = 7310;
inline constexpr std::int16_t Bewertung = 5217;
inline constexpr std::int16_t Abdeckung = 5230;

inline constexpr std::int16_t OutOfDate = 5240;
inline constexpr std::int16_t Incomplete = 5241;
inline constexpr std::int16_t Unknown = 5242;
inline constexpr std::int16_t NoIndex = 5243;
inline constexpr std::int16_t WithoutResult = 5244;
inline constexpr std::int16_t NoResults = 5245;
inline constexpr std::int16_t Variant = 5246;

inline constexpr std::int16_t Calculated = 5250;
inline constexpr std::int16_t WithoutAlgae = 5251;
inline constexpr std::int16_t Failed = 5252;

// Explanations.
inline constexpr std::int16_t NoSample = 5301;
inline constexpr std::int16_t Grundlagen = 5303;
inline constexpr std::int16_t TotalCover = 5304;
inline constexpr std::int16_t MacroalgaeCover = 5305;
inline constexpr std::int16_t CountedValves = 5306;
inline constexpr std::int16_t Bestand = 5307;
inline constexpr std::int16_t Anteil = 5308;
inline constexpr std::int16_t Deckung = 5309;
inline constexpr std::int16_t SapIndex = 5310;
inline constexpr std::int16_t SapIndex_KA = 5311;
inline constexpr std::int16_t TI = 5312;
inline constexpr std::int16_t TI_N = 5313;
inline constexpr std::int16_t TI_KA = 5314;
inline constexpr std::int16_t AMI = 5315;
inline constexpr std::int16_t Makroalgen = 5316;
inline constexpr std::int16_t Mischbestaende = 5317;
inline constexpr std::int16_t Schalenblock = 5318;
inline constexpr std::int16_t RelatedValves = 5319;
inline constexpr std::int16_t Taxon = 5320;
inline constexpr std::int16_t Fundort = 5321;
inline constexpr std::int16_t ImBestand = 5323;
inline constexpr std::int16_t Schalen = 5324;
inline constexpr std::int16_t Gewicht = 5326;
inline constexpr std::int16_t Wert = 5327;
inline constexpr std::int16_t Gewichtung = 5328;
inline constexpr std::int16_t GewichtungWert = 5329;
inline constexpr std::int16_t Bemerkung = 5330;
inline constexpr std::int16_t Schichtdicke = 5331;
inline constexpr std::int16_t Beitrag = 5332;
inline constexpr std::int16_t NichtGezaehlt = 5334;
inline constexpr std::int16_t Grund = 5335;
inline constexpr std::int16_t Stored = 5336;
inline constexpr std::int16_t NotStored = 5337;
inline constexpr std::int16_t NoWeight = 5338;
inline constexpr std::int16_t NotReached = 5339;
inline constexpr std::int16_t WeightZero = 5340;
inline constexpr std::int16_t ValueZero = 5341;
inline constexpr std::int16_t StandWithoutCover = 5342;
inline constexpr std::int16_t NoAbundance = 5345;
inline constexpr std::int16_t NoRatings = 5346;
inline constexpr std::int16_t NoAlgenart = 5347;
inline constexpr std::int16_t NoTotalCover = 5348;
inline constexpr std::int16_t NoLayer = 5349;
inline constexpr std::int16_t OtherLebensform = 5350;
inline constexpr std::int16_t OtherMajorGroup = 5351;
inline constexpr std::int16_t NoTaxonomy = 5352;
inline constexpr std::int16_t NotCalculated = 5353;
inline constexpr std::int16_t FailedHere = 5354;
inline constexpr std::int16_t NoClass = 5355;
inline constexpr std::int16_t SameTaxon = 5356;
inline constexpr std::int16_t Gruppe = 5357;
inline constexpr std::int16_t Klasse = 5358;
inline constexpr std::int16_t Anzahl = 5359;
inline constexpr std::int16_t StateCurrent = 5360;
inline constexpr std::int16_t StateMissing = 5361;
inline constexpr std::int16_t StateOutOfDate = 5362;
inline constexpr std::int16_t Feld = 5363;
inline constexpr std::int16_t Jetzt = 5364;
inline constexpr std::int16_t Gespeichert = 5365;
inline constexpr std::int16_t CalculationFailed = 5366;
inline constexpr std::int16_t NoFindings = 5367;
inline constexpr std::int16_t NotEntered = 5368;
inline constexpr std::int16_t StateIncomplete = 5369;
inline constexpr std::int16_t DiatomsOnly = 5400;
}  // namespace words

/// The text with its place holder "|" replaced.
std::string With(std::int16_t offset, std::int16_t SprachID, std::string_view value);
std::string WithNumber(std::int16_t offset, std::int16_t SprachID, std::int32_t number);

}  // namespace FX_Algen::cli
