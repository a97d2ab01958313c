#include <cmath>
#include <limits>

#include "controls/Numbers.h"
#include "entry/frmProbenstelle.h"
#include "store/Allgemein.h"

/// Checks on leaving the cover fields.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t KeinZahlenwert = 2054;
constexpr std::int16_t SummeZuGross = 2055;
constexpr std::int16_t DeckungZuGross = 5671;

/// A cover as the comparison reads it: a 16-bit integer, halves to even; none where it does not fit.
std::optional<std::int16_t> Ganzzahl(double wert) {
    const double gerundet = std::nearbyint(wert);
    if (gerundet < std::numeric_limits<std::int16_t>::min() ||
        gerundet > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return static_cast<std::int16_t>(gerundet);
}

}  // namespace

void frmProbenstelle::Pruefungen_Verdrahten() {
    txtDG_Gesamt.OnLeave = [this] { return Deckung_Pruefen(Klassisch(), txtDG_Gesamt); };
    txtDG_Makro.OnLeave = [this] { return Deckung_Pruefen(Klassisch(), txtDG_Makro); };
    txtDG_Gesamt_WRRL.OnLeave = [this] { return Deckung_Pruefen(NachWRRL(), txtDG_Gesamt_WRRL); };
    txtDG_Makro_WRRL.OnLeave = [this] { return Deckung_Pruefen(NachWRRL(), txtDG_Makro_WRRL); };
}

/// The sum of the stands' covers in single precision.
float frmProbenstelle::Bestandssumme(const Deckungssatz& satz) const {
    float summe = 0;
    for (int row = vsfgAlgenTL_MI.FixedRows(); row < vsfgAlgenTL_MI.Rows(); ++row)
        summe += static_cast<float>(vsfgAlgenTL_MI.Number(row, satz.SpalteDG_MI).value_or(0));
    return summe;
}

controls::Leaving frmProbenstelle::Deckung_Pruefen(const Deckungssatz& satz, const controls::TextBox& feld) {
    using controls::Leaving;
    // Who can only read must not be held by what others entered.
    if (feld.Locked()) return Leaving::Go;
    const auto warnen = [this](const std::string& text) {
        Box(text, store::Buttons::Ok, store::Symbol::Exclamation);
        return Leaving::Stay;
    };
    if (!controls::ReadNumber(feld.Text())) return warnen(Text(KeinZahlenwert));
    for (const auto* eines : {&satz.DG_Gesamt, &satz.DG_Makro})
        if (!Ganzzahl(controls::ReadNumber(eines->Text()).value_or(0)))
            return warnen(Allgemein::Str_Ersetzen(Text(DeckungZuGross), "|", eines->Text()));
    const auto gesamt = *Ganzzahl(controls::ReadNumber(satz.DG_Gesamt.Text()).value_or(0));
    const auto makro = *Ganzzahl(controls::ReadNumber(satz.DG_Makro.Text()).value_or(0));
    if (static_cast<float>(makro) + Bestandssumme(satz) > static_cast<float>(gesamt))
        return warnen(Text(SummeZuGross));
    if (&feld == &satz.DG_Makro) Summen_Neu();
    return Leaving::Go;
}

}  // namespace FX_Algen::entry
