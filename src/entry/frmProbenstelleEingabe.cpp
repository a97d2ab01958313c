#include "controls/Numbers.h"
#include "entry/Taxaliste.h"
#include "entry/frmProbenstelle.h"
#include "store/Allgemein.h"

/// What a person types into the list of taxa: which cells open, what they accept, the keys.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t KleinerAls0 = 5670;

/// What refuses an entry, by the kind of the taxon; 0 where nothing does.
struct Verbote {
    std::int16_t Schalen = 0;
    std::int16_t Makrophyten = 0;
    std::int16_t DeckungUndBestaende = 0;
};

Verbote VerboteFuer(Taxonart art) {
    switch (art) {
        case Taxonart::MA:
            return {2093, 2097, 0};
        case Taxonart::MI:
            return {2094, 2098, 0};
        case Taxonart::KA:
            return {0, 2095, 2095};
        case Taxonart::HP:
        case Taxonart::BA:
        case Taxonart::PI:
            return {2096, 0, 0};
    }
    return {};
}

}  // namespace

void frmProbenstelle::Eingabe_Verdrahten() {
    vsfgAlgenArt.OnBeforeEdit = [this](int row, int col) { return Zelle_Oeffnet(row, col); };
    vsfgAlgenArt.OnValidateEdit = [this](int row, int col, const std::string&) {
        return Eingabe_Annehmen(row, col);
    };
    vsfgAlgenArt.OnAfterEdit = [this](int row, int col) { Eingabe_Uebernehmen(row, col); };
    vsfgAlgenArt.OnBeforeRowLeave = [this](int row) { return Zeile_Verlassen(row); };
    vsfgAlgenArt.EnterGoesOn = true;
    vsfgAlgenArt.KeyPassesEdit = [this](const controls::KeyPress& key) {
        return GehtAnDieListe(vsfgAlgenArt, key);
    };
    vsfgAlgenArt.OnKey = [this](const controls::KeyPress& key) { return Taste(key); };
    vsfgAlgenArt.OnCellClick = [this](int row, int col) {
        if (!IstTaxazeile(row)) return;
        if (col == SpalteMAalsMI)
            vsfgAlgenArt.Checked(row, col, vsfgAlgenArt.Checked(row, SpalteAltesMAalsMI()));
        if (col == SpalteLF) vsfgAlgenArt.Checked(row, col, vsfgAlgenArt.Checked(row, SpalteAltesLF()));
    };
}

// ---- cells ---------------------------------------------------------------------------------------------

bool frmProbenstelle::Zelle_Oeffnet(int row, int col) const {
    return CanEdit_ && IstTaxazeile(row) &&
           (col == SpalteCF || (col >= SpalteDG_MA && col <= SpalteMakrophyten()));
}

bool frmProbenstelle::Eingabe_Annehmen(int row, int col) {
    const auto art = ArtDerZeile(row);
    if (!art || col < SpalteTaxonart) return true;
    const auto verbote = VerboteFuer(*art);
    const auto grund = col == SpalteSchalen()       ? verbote.Schalen
                       : col == SpalteMakrophyten() ? verbote.Makrophyten
                                                    : verbote.DeckungUndBestaende;
    if (grund == 0) return true;
    Box(Text(grund), store::Buttons::Ok, store::Symbol::Exclamation);
    return false;
}

void frmProbenstelle::Eingabe_Uebernehmen(int row, int col) {
    zeileGeaendert_ = true;
    if (ArtDerZeile(row) == Taxonart::MA && col >= SpalteDG_MA && col < SpalteSchalen()) {
        const bool imBestand = IstBestandsspalte(col);
        vsfgAlgenArt.Checked(row, SpalteMAalsMI, imBestand);
        // A click puts the hidden copy back, and must not undo what the edit set.
        vsfgAlgenArt.Checked(row, SpalteAltesMAalsMI(), imBestand);
    }
    if (col >= SpalteDG_MA) Eingabe_Melden(row, col);
}

/// Says beforehand where something else is stored or shown than what was typed.
void frmProbenstelle::Eingabe_Melden(int row, int col) {
    const auto text = vsfgAlgenArt.Text(row, col);
    Zahl_Melden(*this, vsfgAlgenArt, row, col, col == SpalteSchalen());
    if (controls::ReadNumber(text).value_or(0) < 0 && !IstBestandsspalte(col))
        Box(Allgemein::Str_Ersetzen(Text(KleinerAls0), "|", text, true), store::Buttons::Ok,
            store::Symbol::Exclamation);
}

// ---- keys ----------------------------------------------------------------------------------------------

bool frmProbenstelle::Taste(const controls::KeyPress& key) {
    if (key.Ctrl || key.Alt) return false;
    auto& liste = vsfgAlgenArt;
    if (key.Name == "Enter") {
        if (!liste.LeaveRow() || key.Shift || !cmdArtNeu.IsEnabled()) return true;
        cmdArtNeu_Click();
        return true;
    }
    if (Weitergehen(liste, key)) return true;
    if (key.Name == "Space" || key.Name == " ") {
        if (!IstTaxazeile(liste.Row())) return true;
        const int col = liste.Col();
        const bool offen = liste.IsEditing();
        const bool gesetzt = liste.Toggle(liste.Row(), SpalteCF);
        if (col >= 0) liste.Select(liste.Row(), col);
        // Who went on with Tab goes on typing where the cell was open.
        if (offen && gesetzt) liste.StartEdit();
        return true;
    }
    if (key.Name == "Delete") {
        if (cmdArtLoeschen.IsEnabled()) cmdArtLoeschen_Click();
        return true;
    }
    return false;
}

}  // namespace FX_Algen::entry
