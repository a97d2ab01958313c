#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "FX_Algen/Value.h"
#include "controls/Grid.h"
#include "controls/Numbers.h"

/// The columns of the list of taxa of the seston sheet.
namespace FX_Algen::entry::SestonSpalten {

inline constexpr int Kopfzeilen = 1;

inline constexpr int Marke = 0;  ///< narrow, empty
inline constexpr int ID_Art = 1;
inline constexpr int Gattung = 2;
inline constexpr int Art = 3;
inline constexpr int CF = 4;
inline constexpr int Abundanz = 5;
inline constexpr int Zusatz = 6;
inline constexpr int CF_gespeichert = 7;  ///< as it stands in the table
inline constexpr int Anzahl = 8;

struct Spalte {
    int Platz;
    int Breite;         ///< twentieths of a point; 1 hides the column
    std::int16_t Kopf;  ///< string number of its head; 0 = none
    controls::CellKind Art;
};

inline constexpr std::array<Spalte, Anzahl> Alle{{
    {Marke, 240, 0, controls::CellKind::Text},
    {ID_Art, 1, 0, controls::CellKind::Text},
    {Gattung, 2400, 2031, controls::CellKind::Text},
    {Art, 2800, 2032, controls::CellKind::Text},
    {CF, 500, 2044, controls::CellKind::Check},
    {Abundanz, 1000, 2300, controls::CellKind::Number},
    {Zusatz, 3000, 2301, controls::CellKind::Text},
    {CF_gespeichert, 1, 0, controls::CellKind::Check},
}};

/// What the cell of an abundance shows: nothing for 0 and Null. A negative one, which no edit makes, is
/// shown: it must not hide.
inline std::string AbundanzText(const store::Value& wert, std::int16_t Sprache) {
    return wert.IsNull() || wert.R8() == 0 ? std::string() : controls::ShownNumber(wert, Sprache);
}

}  // namespace FX_Algen::entry::SestonSpalten
