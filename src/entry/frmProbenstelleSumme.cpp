#include "FX_Algen/Runden.h"
#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/frmProbenstelle.h"

/// The sum rows of the list of taxa.
namespace FX_Algen::entry {

namespace {

constexpr controls::Colour Gruen{0xC0FFC0};
constexpr controls::Colour Rot{0xFFC0C0};
constexpr std::int16_t Nachkommastellen = 2;
constexpr double GanzerBestand = 100;

}  // namespace

double frmProbenstelle::Spaltensumme(int row, int col, bool detailed) const {
    double summe = 0;
    for (int zeile = ErsteTaxazeile; zeile < row; ++zeile) {
        const auto& text = vsfgAlgenArt.Text(zeile, col);
        if (text.empty()) continue;
        const auto art = ArtDerZeile(zeile);
        if (!art) continue;
        if (detailed && (OhneDetail(*art) || vsfgAlgenArt.Checked(zeile, SpalteLF))) continue;
        summe += controls::ReadNumber(text).value_or(0);
    }
    return Allgemein::Runden(summe, Nachkommastellen);
}

void frmProbenstelle::GridAlgenArt_Summe(int row, bool detailed) {
    if (ohneSummen_) return;
    const controls::Hourglass sanduhr;
    const auto& makro = detailed ? txtDG_Makro_WRRL : txtDG_Makro;
    for (int col = SpalteDG_MA; col <= SpalteMakrophyten(); ++col) {
        if (col == SpalteSD_MA) continue;
        const double summe = Spaltensumme(row, col, detailed);
        vsfgAlgenArt.Text(row, col, controls::ShownNumber(summe, Sprache()));
        if (col == SpalteDG_MA)
            vsfgAlgenArt.CellColor(row, col,
                                   summe == controls::ReadNumber(makro.Text()).value_or(0) ? Gruen : Rot);
        else if (IstBestandsspalte(col))
            vsfgAlgenArt.CellColor(row, col, summe == GanzerBestand ? Gruen : Rot);
    }
}

void frmProbenstelle::Summen_Neu() {
    if (ersteSummenzeile_ < 0) return;
    GridAlgenArt_Summe(ersteSummenzeile_, true);
    if (ersteSummenzeile_ + 1 < vsfgAlgenArt.Rows()) GridAlgenArt_Summe(ersteSummenzeile_ + 1, false);
}

}  // namespace FX_Algen::entry
