#include "entry/Taxaliste.h"

#include <cmath>
#include <string>

#include "controls/Numbers.h"
#include "store/Allgemein.h"

namespace FX_Algen::entry {

namespace {

constexpr std::int16_t KeineZahl = 5668;
constexpr std::int16_t KeineGanzeZahl = 5669;

void Zeigen(const controls::Form& bogen, const std::string& meldung) {
    bogen.Box(meldung, store::Buttons::Ok, store::Symbol::Exclamation);
}

/// How far a key goes, in one direction and its opposite.
int Schritt(const controls::KeyPress& taste, std::string_view vor, std::string_view zurueck) {
    return taste.Name == vor ? 1 : taste.Name == zurueck ? -1 : 0;
}

}  // namespace

bool Weitergehen(controls::Grid& liste, const controls::KeyPress& taste) {
    if (taste.Name == "Tab") {
        const auto ziel = liste.Neighbour(taste.Shift ? -1 : 1);
        if (!ziel) return false;
        if (liste.GoTo(ziel->first, ziel->second)) liste.StartEdit();
        return true;
    }
    const int zeilen = Schritt(taste, "Down", "Up");
    const int spalten = Schritt(taste, "Right", "Left");
    if (zeilen == 0 && spalten == 0) return false;
    const int zeile = liste.Row() + zeilen;
    int spalte = liste.Col() + spalten;
    while (spalte >= liste.FixedCols() && spalte < liste.Cols() && liste.ColHidden(spalte)) spalte += spalten;
    const bool da = zeile >= liste.FixedRows() && zeile < liste.Rows() && spalte >= liste.FixedCols() &&
                    spalte < liste.Cols();
    if (da && liste.GoTo(zeile, spalte)) liste.StartEdit();
    return true;
}

bool GehtAnDieListe(const controls::Grid& liste, const controls::KeyPress& taste) {
    if (taste.Ctrl || taste.Alt || !liste.IsEditing()) return false;
    if (taste.Name == "Delete") return liste.EditSelected();
    return (taste.Name == "Space" || taste.Name == " ") &&
           liste.ColKind(liste.Col()) == controls::CellKind::Number;
}

void Zahl_Melden(const controls::Form& bogen, controls::Grid& liste, int zeile, int spalte, bool ganze) {
    const auto text = liste.Text(zeile, spalte);
    if (text.empty()) return;
    const auto meldung = [&](std::int16_t nummer) {
        return Allgemein::Str_Ersetzen(bogen.Text(nummer), "|", text, true);
    };
    const auto zahl = controls::ReadNumber(text);
    if (!zahl) {
        Zeigen(bogen, meldung(KeineZahl));
        return;
    }
    if (!ganze || std::nearbyint(*zahl) == *zahl) return;
    const auto gerundet = controls::ShownNumber(std::nearbyint(*zahl), bogen.Sprache());
    Zeigen(bogen, Allgemein::Str_Ersetzen(meldung(KeineGanzeZahl), "~", gerundet, true));
    liste.Text(zeile, spalte, gerundet);
}

}  // namespace FX_Algen::entry
