#include <algorithm>

#include "entry/frmProbenstelle.h"

/// The columns of the sheet as the import component is told of them.
namespace FX_Algen::entry {

namespace {

/// A name within the description: a ";" would end its part.
std::string AlsTeil(std::string name) {
    std::replace(name.begin(), name.end(), ';', ',');
    return name;
}

}  // namespace

std::string frmProbenstelle::Importspalten() const {
    constexpr std::int16_t Makroalgen = 2033, DG = 2034, SD = 2035, Kieselalgen = 2024, Schalenanzahl = 2037,
                           Makrophyten = 2090;
    // Heading; whether a second column stands beside it; its heading; the kind; the key of the stand.
    std::string spalten = Text(Makroalgen) + " " + Text(DG) + ";1;" + Text(SD) + ";MA;0;";
    for (int col = intStartColMi; col < SpalteSchalen(); ++col)
        spalten +=
            AlsTeil(vsfgAlgenArt.Text(0, col)) + ";0;-;MI;" + vsfgAlgenArt.Text(VerdeckteZeile, col) + ";";
    spalten += Text(Kieselalgen) + " " + Text(Schalenanzahl) + ";0;-;KA;0";
    if (AnzeigeVersion40_) spalten += ";" + Text(Makrophyten) + " " + Text(DG) + ";-;0;-;MP;0";
    return spalten;
}

}  // namespace FX_Algen::entry
