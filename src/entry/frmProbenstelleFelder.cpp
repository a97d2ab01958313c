#include <array>

#include "entry/frmProbenstelle.h"

/// The controls of the algae sheet: their texts, their order, the columns of the store behind them.
namespace FX_Algen::entry {

using controls::CommandButton;
using controls::DataSource;
using controls::Grid;
using controls::Label;
using controls::TextBox;

frmProbenstelle::frmProbenstelle()
    : Form("frmProbenstelle"),
      lblPSBez(Add<Label>("lblPSBez")),
      txtPSBez(Add<TextBox>("txtPSBez")),
      txtID_PS(Add<TextBox>("txtID_PS")),
      txtID_TLR(Add<TextBox>("txtID_TLR")),
      lblInklBakterien(Add<Label>("lblInklBakterien")),
      lblWRRL(Add<Label>("lblWRRL")),
      lblAlgenGesamt(Add<Label>("lblAlgenGesamt")),
      txtAlgenGesamt(Add<TextBox>("txtAlgenGesamt")),
      lblDG_Gesamt(Add<Label>("lblDG_Gesamt")),
      txtDG_Gesamt(Add<TextBox>("txtDG_Gesamt")),
      lblDG_Makro(Add<Label>("lblDG_Makro")),
      txtDG_Makro(Add<TextBox>("txtDG_Makro")),
      lblMitBewuchsdichte(Add<Label>("lblMitBewuchsdichte")),
      txtMitBewuchsdichte(Add<TextBox>("txtMitBewuchsdichte")),
      lblMitBewuchsdichte_mm(Add<Label>("lblMitBewuchsdichte_mm")),
      lblAlgenGesamt_WRRL(Add<Label>("lblAlgenGesamt_WRRL")),
      txtAlgenGesamt_WRRL(Add<TextBox>("txtAlgenGesamt_WRRL")),
      lblDG_Gesamt_WRRL(Add<Label>("lblDG_Gesamt_WRRL")),
      txtDG_Gesamt_WRRL(Add<TextBox>("txtDG_Gesamt_WRRL")),
      lblDG_Makro_WRRL(Add<Label>("lblDG_Makro_WRRL")),
      txtDG_Makro_WRRL(Add<TextBox>("txtDG_Makro_WRRL")),
      lblMitBewuchsdichte_WRRL(Add<Label>("lblMitBewuchsdichte_WRRL")),
      txtMitBewuchsdichte_WRRL(Add<TextBox>("txtMitBewuchsdichte_WRRL")),
      lblMitBewuchsdichte_WRRL_mm(Add<Label>("lblMitBewuchsdichte_WRRL_mm")),
      lblAlgenTL_MI(Add<Label>("lblAlgenTL_MI")),
      vsfgAlgenTL_MI(Add<Grid>("vsfgAlgenTL_MI")),
      cmdAlgenMI_Hinzufuegen(Add<CommandButton>("cmdAlgenMI_Hinzufuegen")),
      cmdAlgenMI_Loeschen(Add<CommandButton>("cmdAlgenMI_Loeschen")),
      lblAlgenArt(Add<Label>("lblAlgenArt")),
      vsfgAlgenArt(Add<Grid>("vsfgAlgenArt")),
      lblTaxazahl(Add<Label>("lblTaxazahl")),
      cmdArtNeu(Add<CommandButton>("cmdArtNeu")),
      cmdArtAendern(Add<CommandButton>("cmdArtAendern")),
      cmdArtLoeschen(Add<CommandButton>("cmdArtLoeschen")),
      cmdXLSImport(Add<CommandButton>("cmdXLSImport")),
      cmdPrStelle4(Add<CommandButton>("cmdPrStelle(4)")),
      txtReturn(Add<TextBox>("txtReturn")),
      datTeilraum(Add<DataSource>("datTeilraum")),
      datPrStelle(Add<DataSource>("datPrStelle")),
      datTeilraum_MI(Add<DataSource>("datTeilraum_MI")) {
    Tag("2020");
    Beschriftungen_Einrichten();
    Reihenfolge_Einrichten();
    Felder_Binden();
    Bestaende_Verdrahten();
    Pruefungen_Verdrahten();
    Eingabe_Verdrahten();
    Befehle_Verdrahten();
    DebugModus(false);
    AnzeigeVersion40(false);
    EditMode(false);
}

frmProbenstelle::Deckungssatz frmProbenstelle::Klassisch() {
    return {txtDG_Gesamt, txtDG_Makro, SpalteDG_MI};
}

frmProbenstelle::Deckungssatz frmProbenstelle::NachWRRL() {
    return {txtDG_Gesamt_WRRL, txtDG_Makro_WRRL, SpalteDG_MI_WRRL};
}

std::vector<TextBox*> frmProbenstelle::Textfelder() {
    return {&txtPSBez,          &txtAlgenGesamt,      &txtDG_Gesamt,
            &txtDG_Makro,       &txtMitBewuchsdichte, &txtAlgenGesamt_WRRL,
            &txtDG_Gesamt_WRRL, &txtDG_Makro_WRRL,    &txtMitBewuchsdichte_WRRL};
}

void frmProbenstelle::Beschriftungen_Einrichten() {
    lblPSBez.Tag("5660");
    lblInklBakterien.Tag("2051");
    lblWRRL.Tag("2052");
    for (auto* label : {&lblAlgenGesamt, &lblAlgenGesamt_WRRL}) label->Tag("2021");
    for (auto* label : {&lblDG_Gesamt, &lblDG_Gesamt_WRRL}) label->Tag("2022");
    for (auto* label : {&lblDG_Makro, &lblDG_Makro_WRRL}) label->Tag("2023");
    for (auto* label : {&lblMitBewuchsdichte, &lblMitBewuchsdichte_WRRL}) label->Tag("2029");
    for (auto* label : {&lblMitBewuchsdichte_mm, &lblMitBewuchsdichte_WRRL_mm}) label->Tag("2030");
    lblAlgenTL_MI.Tag("5661");
    lblAlgenArt.Tag("5662");
    cmdAlgenMI_Hinzufuegen.Tag("5663");
    cmdAlgenMI_Loeschen.Tag("5664");
    cmdArtNeu.Tag("2005");
    cmdArtAendern.Tag("2006");
    cmdArtLoeschen.Tag("5665");
    // The text has no English twin: there the caption stays as it stands here.
    cmdXLSImport.Tag("2013");
    cmdXLSImport.Caption("Excel-Import");
    cmdPrStelle4.Tag("5666");
}

void frmProbenstelle::Reihenfolge_Einrichten() {
    int stelle = 0;
    for (auto* feld : Textfelder()) feld->TabIndex(stelle++);
    for (controls::Control* control :
         {static_cast<controls::Control*>(&vsfgAlgenTL_MI),
          static_cast<controls::Control*>(&cmdAlgenMI_Hinzufuegen),
          static_cast<controls::Control*>(&cmdAlgenMI_Loeschen),
          static_cast<controls::Control*>(&vsfgAlgenArt), static_cast<controls::Control*>(&cmdArtNeu),
          static_cast<controls::Control*>(&cmdArtAendern), static_cast<controls::Control*>(&cmdArtLoeschen),
          static_cast<controls::Control*>(&cmdXLSImport), static_cast<controls::Control*>(&cmdPrStelle4)})
        control->TabIndex(stelle++);
    for (auto* feld : Textfelder()) feld->Numeric = feld != &txtPSBez;
    // Keys: shown for looking, never for changing.
    txtID_PS.Locked(true);
    txtID_TLR.Locked(true);
    txtReturn.Visible(false);
    txtReturn.HostsWrite = true;
    txtReturn.OnChange = [this] { Rueckgabe_Geaendert(); };
    cmdXLSImport.Visible(false);
    cmdPrStelle4.CausesValidation = false;
}

void frmProbenstelle::Felder_Binden() {
    datTeilraum.Bind(txtID_TLR, "ID_TR");
    datTeilraum.Bind(txtAlgenGesamt, "DG_Algengesamt");
    datTeilraum.Bind(txtDG_Gesamt, "DG_Gesamt");
    datTeilraum.Bind(txtDG_Makro, "DG_MA");
    datTeilraum.Bind(txtMitBewuchsdichte, "MitBewuchsdichte");
    datTeilraum.Bind(txtAlgenGesamt_WRRL, "DG_Algengesamt_WRRL");
    datTeilraum.Bind(txtDG_Gesamt_WRRL, "DG_Gesamt_WRRL");
    datTeilraum.Bind(txtDG_Makro_WRRL, "DG_MA_WRRL");
    datTeilraum.Bind(txtMitBewuchsdichte_WRRL, "MitBewuchsdichte_WRRL");
    datPrStelle.Bind(txtID_PS, "ID_PS");
    datPrStelle.Bind(txtPSBez, "PSBez");
    vsfgAlgenTL_MI.Fixed(1, 1);
    vsfgAlgenTL_MI.Rows(1);
    vsfgAlgenTL_MI.Cols(SpalteRF_MI + 1);
    datTeilraum_MI.Bind(vsfgAlgenTL_MI, {{"ID_TR_MI", SpalteID_TR_MI, true},
                                         {"ID_TR", SpalteID_TR, true},
                                         {"MI_Bez", SpalteMI_Bez},
                                         {"DG_MI_WRRL", SpalteDG_MI_WRRL},
                                         {"DG_MI", SpalteDG_MI},
                                         {"SD_MI", SpalteSD_MI},
                                         {"RF_MI", SpalteRF_MI}});
}

void frmProbenstelle::Satz_Anzeigen() {
    const std::array<controls::Control*, 10> klassisch{
        &lblInklBakterien,    &lblAlgenGesamt,        &txtAlgenGesamt, &lblDG_Gesamt,
        &txtDG_Gesamt,        &lblDG_Makro,           &txtDG_Makro,    &lblMitBewuchsdichte,
        &txtMitBewuchsdichte, &lblMitBewuchsdichte_mm};
    for (auto* control : klassisch) control->Visible(AnzeigeVersion40_);
}

}  // namespace FX_Algen::entry
