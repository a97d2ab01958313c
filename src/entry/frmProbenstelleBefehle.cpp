#include <algorithm>

#include "entry/AbfragenProbenstelle.h"
#include "entry/frmArtAuswahl.h"
#include "entry/frmProbenstelle.h"
#include "store/Allgemein.h"
#include "store/Connection.h"

/// The commands of the algae sheet.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t Titel = 2020;
constexpr std::int16_t BestandLoeschenFrage = 2043;
constexpr std::int16_t ArtLoeschenFrage = 5667;

}  // namespace

void frmProbenstelle::Befehle_Verdrahten() {
    cmdArtNeu.OnClick = [this] { cmdArtNeu_Click(); };
    cmdArtAendern.OnClick = [this] { cmdArtAendern_Click(); };
    cmdArtLoeschen.OnClick = [this] { cmdArtLoeschen_Click(); };
    cmdAlgenMI_Hinzufuegen.OnClick = [this] { cmdAlgenMI_Hinzufuegen_Click(); };
    cmdAlgenMI_Loeschen.OnClick = [this] { cmdAlgenMI_Loeschen_Click(); };
    cmdXLSImport.OnClick = [this] { cmdXLSImport_Click(); };
    cmdPrStelle4.OnClick = [this] { Close(); };
}

// ---- taxa ----------------------------------------------------------------------------------------------

void frmProbenstelle::cmdArtNeu_Click() {
    if (SaveRows()) ArtAuswahl_Show(*this, Auswahlmodus::Neu);
}

void frmProbenstelle::cmdArtAendern_Click() {
    if (SaveRows() && IstTaxazeile(vsfgAlgenArt.Row())) ArtAuswahl_Show(*this, Auswahlmodus::Aendern);
}

void frmProbenstelle::cmdArtLoeschen_Click() {
    if (!SaveRows()) return;
    // Not before: saving may have moved the rows, and the cursor with its taxon.
    const int row = vsfgAlgenArt.Row();
    if (!IstTaxazeile(row)) return;
    const auto art = ID_ArtDerZeile(row);
    const bool cf = vsfgAlgenArt.Checked(row, SpalteCF);
    // From behind: what a name holds must not be taken for the next place holder.
    const auto frage = Allgemein::Str_Ersetzen(
        Allgemein::Str_Ersetzen(Text(ArtLoeschenFrage), "~", vsfgAlgenArt.Text(row, SpalteArt), true), "|",
        vsfgAlgenArt.Text(row, SpalteGattung), true);
    if (Box(frage, store::Buttons::YesNo, store::Symbol::Question) != store::Answer::Yes) return;
    // Shares that went without their taxon would be findings lost where the second statement fails.
    store::Savepoint zusammen(datenbank_->SharedConnection());
    datenbank_->Execute(probenstelle::AnteileDesTaxonsLoeschen(ID_TR(), art, cf));
    datenbank_->Execute(probenstelle::TaxonLoeschen(ID_PS(), art, cf));
    zusammen.Keep();
    GridAlgenArt_Init();
}

// ---- mixed stands --------------------------------------------------------------------------------------

void frmProbenstelle::cmdAlgenMI_Hinzufuegen_Click() {
    if (!SaveRows()) return;
    const double rest = std::max(0.0, Rest(Klassisch()));
    const double restWRRL = std::max(0.0, Rest(NachWRRL()));
    datenbank_->Execute(probenstelle::BestandAnlegen(ID_TR(), rest, restWRRL));
    datTeilraum_MI.Refresh();
    // The newest has the highest key; its name comes next.
    int neuer = -1;
    std::int32_t schluessel = 0;
    for (int row = vsfgAlgenTL_MI.FixedRows(); row < vsfgAlgenTL_MI.Rows(); ++row) {
        const auto dieser = store::Value(vsfgAlgenTL_MI.Text(row, SpalteID_TR_MI)).I4();
        if (dieser <= schluessel) continue;
        schluessel = dieser;
        neuer = row;
    }
    if (neuer >= 0) vsfgAlgenTL_MI.Select(neuer, SpalteMI_Bez);
    GridAlgenArt_NeuMitCursor();
    SetFocus(vsfgAlgenTL_MI);
}

void frmProbenstelle::cmdAlgenMI_Loeschen_Click() {
    if (!SaveRows() || vsfgAlgenTL_MI.Row() < vsfgAlgenTL_MI.FixedRows()) return;
    const int row = vsfgAlgenTL_MI.Row();
    const auto bestand = store::Value(vsfgAlgenTL_MI.Text(row, SpalteID_TR_MI)).I4();
    const auto frage = Allgemein::Str_Ersetzen(Text(BestandLoeschenFrage), "|",
                                               vsfgAlgenTL_MI.Text(row, SpalteMI_Bez), true);
    if (Box(Text(Titel), frage, store::Buttons::YesNo, store::Symbol::Question) != store::Answer::Yes) return;
    datenbank_->Execute(probenstelle::BestandLoeschen(bestand));
    datTeilraum_MI.Refresh();
    GridAlgenArt_NeuMitCursor();
}

}  // namespace FX_Algen::entry
