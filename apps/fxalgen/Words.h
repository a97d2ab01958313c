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

// Assessment.
inline constexpr std::int16_t Assessed = 5260;
inline constexpr std::int16_t FromDiatomsAlone = 5261;
inline constexpr std::int16_t NotAssessed = 5262;
inline constexpr std::int16_t WithMissingReferences = 5263;
inline constexpr std::int16_t PreCheck = 5264;
inline constexpr std::int16_t PreCheckColumn = 5265;
inline constexpr std::int16_t CheckOk = 5266;
inline constexpr std::int16_t CheckMissing = 5267;
inline constexpr std::int16_t CheckFailed = 5268;
inline constexpr std::int16_t CheckNoSample = 5269;
inline constexpr std::int16_t ChecksPassed = 5270;
inline constexpr std::int16_t ChecksNotPassed = 5271;
inline constexpr std::int16_t AllAlgae = 5272;
inline constexpr std::int16_t Diatoms = 5273;
inline constexpr std::int16_t NotAvailable = 5274;
inline constexpr std::int16_t Yes = 5275;
inline constexpr std::int16_t Zustand = 5276;
inline constexpr std::int16_t Bedingt = 5277;
inline constexpr std::int16_t Trophiemodul = 5278;
inline constexpr std::int16_t Saprobiemodul = 5279;
inline constexpr std::int16_t Referenzartenmodul = 5280;
inline constexpr std::int16_t Referenzklasse = 5281;
inline constexpr std::int16_t ModulIndex = 5282;
inline constexpr std::int16_t ModulErwartet = 5283;
inline constexpr std::int16_t ModulEQR = 5284;
inline constexpr std::int16_t Klassenname = 5285;
inline constexpr std::int16_t ErhoehteKlasse = 5286;
inline constexpr std::int16_t AnteilAnzahl = 5287;
inline constexpr std::int16_t AnteilAbundanz = 5288;
inline constexpr std::int16_t BedingtLegend = 5289;
inline constexpr std::int16_t NotAvailableLegend = 5290;
inline constexpr std::int16_t WrrlOutOfDate = 5291;
inline constexpr std::int16_t WrrlIncomplete = 5292;
inline constexpr std::int16_t WrrlUnknown = 5293;
inline constexpr std::int16_t Algengruppe = 5294;
inline constexpr std::int16_t ModulOEZK = 5295;
inline constexpr std::int16_t WrrlNoIndex = 5296;
inline constexpr std::int16_t WrrlLacking = 5297;

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

// Explanations of assessments.
inline constexpr std::int16_t Assessment = 5401;
inline constexpr std::int16_t AssessmentOfDiatoms = 5402;
inline constexpr std::int16_t Status = 5403;
inline constexpr std::int16_t StatusWithoutClass = 5404;
inline constexpr std::int16_t StatusNotReached = 5405;
inline constexpr std::int16_t AssessmentCurrent = 5406;
inline constexpr std::int16_t AssessmentOutOfDate = 5407;
inline constexpr std::int16_t AssessmentIncomplete = 5408;
inline constexpr std::int16_t NoClassStored = 5409;
inline constexpr std::int16_t AssessmentFailed = 5410;
inline constexpr std::int16_t SampleGone = 5411;
inline constexpr std::int16_t DiatomsAlready = 5412;
inline constexpr std::int16_t GroupAll = 5413;
inline constexpr std::int16_t GroupAbundance = 5414;
inline constexpr std::int16_t GroupTaxa = 5415;
inline constexpr std::int16_t GroupAsked = 5416;
inline constexpr std::int16_t Restricted = 5417;
inline constexpr std::int16_t NotRestricted = 5418;
inline constexpr std::int16_t OverallClass = 5419;
inline constexpr std::int16_t Modul = 5420;
inline constexpr std::int16_t Index = 5421;
inline constexpr std::int16_t Erwartet = 5422;
inline constexpr std::int16_t EQR = 5423;
inline constexpr std::int16_t OEZK = 5424;
inline constexpr std::int16_t Bezeichnung = 5425;
inline constexpr std::int16_t RaisedClass = 5426;
inline constexpr std::int16_t ToBetter = 5427;
inline constexpr std::int16_t ToWorse = 5428;
inline constexpr std::int16_t Trophie = 5429;
inline constexpr std::int16_t Saprobie = 5430;
inline constexpr std::int16_t Referenzarten = 5431;
inline constexpr std::int16_t NoModuleHasClass = 5432;
inline constexpr std::int16_t WorstCaseOfOne = 5433;
inline constexpr std::int16_t WorstCaseOfSeveral = 5434;
inline constexpr std::int16_t Softened = 5435;
inline constexpr std::int16_t NotSoftenedSame = 5436;
inline constexpr std::int16_t NotSoftenedOther = 5437;
inline constexpr std::int16_t NotSoftenedNoClass = 5438;
inline constexpr std::int16_t NotSoftenedSeveral = 5439;
inline constexpr std::int16_t DistanceToBetter = 5440;
inline constexpr std::int16_t NothingBetter = 5441;
inline constexpr std::int16_t DistanceToWorse = 5442;
inline constexpr std::int16_t NothingWorse = 5443;
inline constexpr std::int16_t OnBoundToWorse = 5444;
inline constexpr std::int16_t TitleOfModule = 5445;
inline constexpr std::int16_t ClassOfModule = 5446;
inline constexpr std::int16_t NoClassFound = 5447;
inline constexpr std::int16_t ReferenceClass = 5448;
inline constexpr std::int16_t ExpectedValue = 5449;
inline constexpr std::int16_t Bioregionstyp = 5450;
inline constexpr std::int16_t LookedUp = 5451;
inline constexpr std::int16_t RowMissing = 5452;
inline constexpr std::int16_t ExpectedRounded = 5453;
inline constexpr std::int16_t RoundedTo = 5454;
inline constexpr std::int16_t Capped = 5455;
inline constexpr std::int16_t NoRatio = 5456;
inline constexpr std::int16_t RowOfBounds = 5457;
inline constexpr std::int16_t NoRowOfBounds = 5458;
inline constexpr std::int16_t AlsoFitting = 5459;
inline constexpr std::int16_t RaisedRow = 5460;
inline constexpr std::int16_t NoRaisedRow = 5461;
inline constexpr std::int16_t IndexOfOtherRow = 5462;
inline constexpr std::int16_t NoSpeciesLevel = 5463;
inline constexpr std::int16_t ReferenceIndex = 5464;
inline constexpr std::int16_t CountedTaxa = 5465;
inline constexpr std::int16_t Haeufigkeit = 5466;
inline constexpr std::int16_t Grossgruppe = 5467;
inline constexpr std::int16_t Kieselalge = 5468;
inline constexpr std::int16_t Artniveau = 5469;
inline constexpr std::int16_t Referenzart = 5470;
inline constexpr std::int16_t Ja = 5471;
inline constexpr std::int16_t Nein = 5472;
inline constexpr std::int16_t CountsTimes = 5473;
inline constexpr std::int16_t TypBCondition = 5474;
inline constexpr std::int16_t TypBWithoutCondition = 5475;
inline constexpr std::int16_t Counted = 5476;
inline constexpr std::int16_t Gesamt = 5477;
inline constexpr std::int16_t TaxaOfAll = 5478;
inline constexpr std::int16_t TaxaOfDiatoms = 5479;
inline constexpr std::int16_t TaxaOfOthers = 5480;
inline constexpr std::int16_t AbundanceOfAll = 5481;
inline constexpr std::int16_t AbundanceOfDiatoms = 5482;
inline constexpr std::int16_t AbundanceOfOthers = 5483;
inline constexpr std::int16_t FrequencyList = 5484;
inline constexpr std::int16_t ValveSum = 5485;
inline constexpr std::int16_t ValveSumCarried = 5486;
inline constexpr std::int16_t OtherAlgae = 5487;
inline constexpr std::int16_t Dazu = 5488;
inline constexpr std::int16_t SameList = 5489;
inline constexpr std::int16_t NoMajorGroup = 5490;
inline constexpr std::int16_t OutOfScope = 5491;
inline constexpr std::int16_t TermsBelow = 5492;
inline constexpr std::int16_t AssessmentDifferences = 5493;
inline constexpr std::int16_t NoAssessment = 5494;
inline constexpr std::int16_t SiteNotReadable = 5495;
inline constexpr std::int16_t ListNotBuilt = 5496;
inline constexpr std::int16_t ClassWithoutIndex = 5497;
inline constexpr std::int16_t ListIncomplete = 5498;
inline constexpr std::int16_t ClassWithoutExpectedValue = 5499;
inline constexpr std::int16_t ModuleWithoutClass = 5500;
inline constexpr std::int16_t LastRunFailed = 5501;
inline constexpr std::int16_t WithAndWithoutCF = 5502;

// Charts.
inline constexpr std::int16_t ChartOutOfDate = 5630;
inline constexpr std::int16_t ChartIncomplete = 5631;
inline constexpr std::int16_t ChartUnknown = 5632;
inline constexpr std::int16_t AndFurther = 5633;
inline constexpr std::int16_t AllShown = 5634;
inline constexpr std::int16_t ChartProgress = 5635;
inline constexpr std::int16_t SeveralSites = 5636;
}  // namespace words

/// The text with its place holder "|" replaced.
std::string With(std::int16_t offset, std::int16_t SprachID, std::string_view value);
std::string WithNumber(std::int16_t offset, std::int16_t SprachID, std::int32_t number);

}  // namespace FX_Algen::cli
