#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "calc/Einheiten.h"
#include "calc/Gueteklasse.h"
#include "calc/Summe32.h"

/// The trace (Spur) of a calculation: how its sums came about, row by row. It is kept only where a caller
/// asks for it, and is filled in step order, so that it tells how far a failed calculation came.
namespace FX_Algen::calc {

/// The three forms in which an algae sample reaches an index.
enum class Block : std::uint8_t { Makroalgen, Mischbestaende, Schalen };

/// A finding that an index counted.
struct Beitrag {
    Block Woher = Block::Makroalgen;
    std::int32_t ID_Art = 0;
    std::optional<std::int32_t> ID_TR_MI;  ///< stand, of a taxon in a mixed stand
    double Abundanz = 0;                   ///< cover in percent, share of the stand in percent, or valves
    double Anteil = 0;   ///< relative abundance: percent of the total cover or of all valves
    double Gewicht = 0;  ///< indicator weight of the taxon
    double Wert = 0;     ///< indicator value of the taxon
    double w = 0;        ///< what it adds to the sum of weights
    double wWert = 0;    ///< what it adds to the sum of values
};

/// A mixed stand as it was read.
struct Bestand {
    std::int32_t ID_TR_MI = 0;
    Deckung DG_MI;
    AnteilMI Anteil;
};

/// What the blocks of an index rest on.
struct Grundlagen {
    bool TeilraumGefunden = false;
    Gesamtdeckung DG_Gesamt;
    float DG_Makroalgen = 0;
    std::vector<Bestand> Bestaende;
    Schalensumme Summe_KA;
};

/// What the class counting did with a row.
enum class Zaehlregel : std::uint8_t {
    Gezaehlt,     ///< counted in a class
    KeineKlasse,  ///< its value belongs to no class
    SelbeArt,     ///< same taxon as the row before: not counted again
};

struct Klassenzaehlung {
    Block Woher = Block::Makroalgen;
    std::int32_t ID_Art = 0;
    double SI = 0;
    std::optional<std::size_t> Klasse;
    Zaehlregel Regel = Zaehlregel::Gezaehlt;
};

/// Working sums of the saprobic index.
struct SaprobieSummen {
    Summe32 Gewicht;       ///< sngSumme_Gewicht
    Summe32 GewichtSI;     ///< sngSumme_GewichtSI
    Summe32 Gewicht_KA;    ///< sngSumme_Gewicht_KA
    Summe32 GewichtSI_KA;  ///< sngSumme_GewichtSI_KA
};

struct SaprobieSpur {
    Grundlagen Basis;
    std::vector<Beitrag> Beitraege;
    std::vector<Klassenzaehlung> Klassen;
    SaprobieSummen Summen;
    bool Fertig = false;  ///< the sums are complete
};

/// Working sums of the trophic indices.
struct TrophieSummen {
    Summe32 TI;       ///< sngTI
    Summe32 TI_S;     ///< sngTI_S
    Summe32 TI_N;     ///< sngTI_N
    Summe32 TI_N_S;   ///< sngTI_N_S
    Summe32 TI_KA;    ///< sngTI_KA
    Summe32 TI_KA_S;  ///< sngTI_KA_S
};

struct TrophieSpur {
    Grundlagen Basis;
    std::vector<Beitrag> TI;    ///< with the first pair of values
    std::vector<Beitrag> TI_N;  ///< the same findings with the second pair
    TrophieSummen Summen;
    bool Fertig = false;  ///< the sums are complete
};

/// A macroalga or a whole mixed stand in the quantity index.
struct Mengenbeitrag {
    Block Woher = Block::Makroalgen;
    Deckung DG;
    Schichtdicke SD;
    double Beitrag = 0;
};

struct AMISpur {
    std::vector<Mengenbeitrag> Beitraege;
    double AMI = 0;
    bool Fertig = false;  ///< the sum is complete
};

/// A taxa count, with the taxon of each row that it counted.
struct Taxazaehlung {
    std::string Spalte;
    double Anzahl = 0;
    std::vector<std::int32_t> ID_Arten;
};

struct Spur {
    std::optional<SaprobieSpur> Saprobie;
    std::optional<TrophieSpur> Trophie;
    std::optional<AMISpur> AMI;
    std::vector<Taxazaehlung> Taxazahlen;
};

}  // namespace FX_Algen::calc
