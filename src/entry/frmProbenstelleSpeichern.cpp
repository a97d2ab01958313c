#include <cmath>

#include "FX_Algen/Error.h"
#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/AbfragenProbenstelle.h"
#include "entry/frmProbenstelle.h"
#include "store/Connection.h"

/// Writing the rows of taxa.
namespace FX_Algen::entry {

bool frmProbenstelle::Zeile_Geaendert(int row) const {
    return IstTaxazeile(row) && (zeileGeaendert_ || vsfgAlgenArt.Checked(row, SpalteCF) !=
                                                        vsfgAlgenArt.Checked(row, SpalteAltesCF()));
}

/// Before the cursor leaves a row: saves it where it was changed. Where the store refuses, the row keeps the
/// cursor and what was typed.
bool frmProbenstelle::Zeile_Verlassen(int row) {
    if (!Zeile_Geaendert(row)) return true;
    try {
        Zeile_Speichern(row);
        return true;
    } catch (const Error& error) {
        Failure(error);
        return false;
    }
}

void frmProbenstelle::Zeile_Speichern(int row) {
    const controls::Hourglass sanduhr;
    // The row and its shares together or none of them: shares that were taken out and not put back, or that
    // stayed with another CF than their row, would be findings lost.
    store::Savepoint zusammen(datenbank_->SharedConnection());
    AlgenArt_Datenspeichern(row);
    AlgenArt_MIDatenSpeichern(row);
    zusammen.Keep();
    zeileGeaendert_ = false;
    Zeile_Anzeigen(row);
    Summen_Neu();
}

probenstelle::Fundzeile frmProbenstelle::Fundzeile_Aus(int row) const {
    const auto zahl = [&](int col) { return vsfgAlgenArt.Number(row, col).value_or(0); };
    return {vsfgAlgenArt.Checked(row, SpalteCF),
            zahl(SpalteDG_MA),
            zahl(SpalteSD_MA),
            zahl(SpalteSchalen()),
            zahl(SpalteMakrophyten()),
            vsfgAlgenArt.Checked(row, SpalteMAalsMI)};
}

void frmProbenstelle::AlgenArt_Datenspeichern(int row) {
    const auto zeile = Fundzeile_Aus(row);
    const bool altes = vsfgAlgenArt.Checked(row, SpalteAltesCF());
    const auto anweisung = probenstelle::TaxonSchreiben(ID_PS(), ID_ArtDerZeile(row), altes, zeile);
    datenbank_->Execute(anweisung);
    if (datenbank_->RecordsAffected() == 0)
        throw Error(
            ErrorNumber::NoCurrentRecord,
            "AlgenArt_Datenspeichern: the taxon is not stored at this site any more, nothing was written. "
            "In: " +
                anweisung,
            anweisung);
}

void frmProbenstelle::AlgenArt_MIDatenSpeichern(int row) {
    const auto art = ID_ArtDerZeile(row);
    const bool altes = vsfgAlgenArt.Checked(row, SpalteAltesCF());
    const bool neues = vsfgAlgenArt.Checked(row, SpalteCF);
    for (int col = intStartColMi; col < SpalteSchalen(); ++col) {
        const auto bestand = ID_TR_MIDerSpalte(col);
        const double anteil = vsfgAlgenArt.Number(row, col).value_or(0);
        datenbank_->Execute(probenstelle::AnteilLoeschen(bestand, art, altes));
        if (anteil == 0) continue;
        datenbank_->Execute(probenstelle::AnteilLoeschen(bestand, art, neues));
        datenbank_->Execute(probenstelle::AnteilSchreiben(bestand, art, neues, std::fabs(anteil)));
    }
}

/// The row as it is stored now: the copies of its check boxes, and in its cells what was written.
void frmProbenstelle::Zeile_Anzeigen(int row) {
    auto& liste = vsfgAlgenArt;
    const auto art = ID_ArtDerZeile(row);
    const bool cf = liste.Checked(row, SpalteCF);
    zeilen_.erase({art, liste.Checked(row, SpalteAltesCF())});
    zeilen_[{art, cf}] = row;
    liste.Checked(row, SpalteAltesCF(), cf);
    liste.Checked(row, SpalteAltesMAalsMI(), liste.Checked(row, SpalteMAalsMI));
    for (int col = SpalteDG_MA; col <= SpalteMakrophyten(); ++col) {
        const double zahl = liste.Number(row, col).value_or(0);
        const double stand = IstBestandsspalte(col) ? std::fabs(zahl) : zahl;
        // Covers and shares are kept in 32 bits, valves as whole numbers.
        const auto gespeichert =
            col == SpalteSchalen() ? store::Value(stand) : store::Value(static_cast<float>(stand));
        liste.Text(row, col, controls::ShownAboveZero(gespeichert, Sprache()));
    }
}

bool frmProbenstelle::SaveRows() {
    const bool gespeichert = Form::SaveRows();
    Bestaende_NeuReihen();
    return gespeichert;
}

}  // namespace FX_Algen::entry
