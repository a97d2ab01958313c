#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Import.h"
#include "FX_Algen/Store.h"
#include "controls/DataSource.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"
#include "entry/Bogenauftrag.h"
#include "entry/Probenstellenbogen.h"
#include "entry/Taxonart.h"

namespace FX_Algen::entry {

namespace probenstelle {
struct Fundzeile;
}

/// The algae sheet: where the findings of one sub-habitat are entered. It holds the name of the sampling
/// site, its eight covers and thicknesses, the mixed stands of microalgae, and the taxa found with their
/// covers, their shares in the stands and their valves. It calculates no index; it shows control sums.
///
/// A row of taxa is written when the cursor leaves it, before a command and before the sheet ends. Failures
/// of the store while it fills or saves are shown; the sheet stays open with what it holds.
class frmProbenstelle : public controls::Form, public Probenstellenbogen {
public:
    frmProbenstelle();
    ~frmProbenstelle() override;

    // -- settings, in this order; `DataObject_Init` takes them
    void CurrentWS(store::WorkspacePtr workspace) { CurrentWS_ = std::move(workspace); }
    void CurrentDB(store::DatabasePtr datenbank) { CurrentDB_ = std::move(datenbank); }
    using Form::Sprache;
    void TeilraumID(std::int32_t ID_TR) noexcept { TeilraumID_ = ID_TR; }
    /// Path of the database that the bound fields read; empty: that of `CurrentDB`.
    void DBName(std::string pfad) { DBName_ = std::move(pfad); }
    /// Shows the fields `txtID_PS` and `txtID_TLR`.
    void DebugModus(bool an);
    /// Number of the host's window; the sheet is shown as its child.
    void FX_MainWnd(std::int32_t fenster) noexcept { FX_MainWnd_ = fenster; }
    std::int32_t FX_MainWnd() const noexcept { return FX_MainWnd_; }
    void AktBenutzer(std::string name) { AktBenutzer_ = std::move(name); }
    void QOVAKatalogID(std::int16_t id) noexcept { QOVAKatalogID_ = id; }
    std::int16_t QOVAKatalogID() const noexcept { return QOVAKatalogID_; }
    /// Name of a site that the sheet creates; empty: "<NEU>".
    void PSBez(std::string name) { PSBez_ = std::move(name); }
    void CanEdit(bool darf) noexcept { CanEdit_ = darf; }
    bool CanEdit() const noexcept { return CanEdit_; }
    /// Shows both sets of covers, the macrophytes and the second sum row; else the set of the Directive
    /// alone.
    void AnzeigeVersion40(bool an);

    /// The settings under which it was shown last.
    std::optional<Bogenauftrag> Gezeigt;

    // -- operations
    /// Reads the site of `TeilraumID`, offers to create it where it is missing, binds its rows and fills both
    /// lists. False where a person does not want it created; nothing is written then. What the sheet held is
    /// saved first; where that fails, the sheet keeps it and answers true. Failures of the store while the
    /// site is read leave it.
    bool DataObject_Init();
    /// Builds the list of mixed stands.
    void GridAlgenTL_MI_Init();
    /// Builds the columns of the list of taxa and fills it. A changed row is saved first; where that fails,
    /// the list stays. The cursor goes to the first row.
    void GridAlgenArt_Init() override;
    /// Fills the rows of taxa, the sums and the count. `ok` becomes false where taxa had to be repaired.
    void GridAlgenArt_Daten(bool& ok);
    /// Fills the columns of the mixed stands. A taxon that has shares but is not listed is entered at the
    /// site and `ok` becomes false.
    void GrdAlgenArt_MIDaten(bool& ok);
    /// Computes a sum row over the rows of taxa above it: with `detailed` without bacteria, fungi, higher
    /// plants and taxa of another life form than 1. Sums are rounded to 2 decimals. Green where the
    /// macroalgae add up to the macroalgal stand (with `detailed` that of the Directive) and a mixed stand to
    /// exactly 100, red where not.
    void GridAlgenArt_Summe(int row, bool detailed);
    /// Writes a row of taxa: covers, thickness, valves. Fails with 3021 where the store has no such row any
    /// more.
    void AlgenArt_Datenspeichern(int row);
    /// Writes the shares of a row in the mixed stands. A negative share is stored as positive.
    void AlgenArt_MIDatenSpeichern(int row);
    /// Places the cursor on a taxon, in the column where its kind is entered. A taxon that is not listed
    /// moves nothing.
    void Select_AktArt(std::int32_t ID_Art, bool cf) override;
    /// Lets a person change the sheet, or only read it.
    void EditMode(bool CanEdit);

    // -- commands, as the buttons of these names do them
    void cmdArtNeu_Click();
    void cmdArtAendern_Click();
    void cmdArtLoeschen_Click();
    void cmdAlgenMI_Hinzufuegen_Click();
    void cmdAlgenMI_Loeschen_Click();
    void cmdXLSImport_Click();

    // -- what the picker sees
    controls::Form& Bogen() noexcept override { return *this; }
    Katalog BogenKatalog() const noexcept override { return Katalog::Algen; }
    store::WorkspacePtr BogenWS() const override { return CurrentWS_; }
    store::DatabasePtr BogenDB() const override { return WorksOn(); }
    bool BogenDebugModus() const noexcept override { return DebugModus_; }
    std::string BogenID_PS() const override { return txtID_PS.Text(); }
    std::optional<std::string> BogenID_TLR() const override { return txtID_TLR.Text(); }
    controls::Grid& BogenTaxa() noexcept override { return vsfgAlgenArt; }

    bool SaveRows() override;
    std::shared_ptr<store::Database> WorksOn() const override { return datenbank_ ? datenbank_ : CurrentDB_; }

    /// First column of the mixed stands in the list of taxa.
    static constexpr int intStartColMi = 10;
    /// Number of mixed stands in the list of taxa.
    int intAnzahlMI = 0;

    // -- controls
    controls::Label& lblPSBez;
    controls::TextBox& txtPSBez;
    controls::TextBox& txtID_PS;
    controls::TextBox& txtID_TLR;
    controls::Label& lblInklBakterien;
    controls::Label& lblWRRL;
    controls::Label& lblAlgenGesamt;
    controls::TextBox& txtAlgenGesamt;
    controls::Label& lblDG_Gesamt;
    controls::TextBox& txtDG_Gesamt;
    controls::Label& lblDG_Makro;
    controls::TextBox& txtDG_Makro;
    controls::Label& lblMitBewuchsdichte;
    controls::TextBox& txtMitBewuchsdichte;
    controls::Label& lblMitBewuchsdichte_mm;
    controls::Label& lblAlgenGesamt_WRRL;
    controls::TextBox& txtAlgenGesamt_WRRL;
    controls::Label& lblDG_Gesamt_WRRL;
    controls::TextBox& txtDG_Gesamt_WRRL;
    controls::Label& lblDG_Makro_WRRL;
    controls::TextBox& txtDG_Makro_WRRL;
    controls::Label& lblMitBewuchsdichte_WRRL;
    controls::TextBox& txtMitBewuchsdichte_WRRL;
    controls::Label& lblMitBewuchsdichte_WRRL_mm;
    controls::Label& lblAlgenTL_MI;
    controls::Grid& vsfgAlgenTL_MI;
    controls::CommandButton& cmdAlgenMI_Hinzufuegen;
    controls::CommandButton& cmdAlgenMI_Loeschen;
    controls::Label& lblAlgenArt;
    controls::Grid& vsfgAlgenArt;
    controls::Label& lblTaxazahl;
    controls::CommandButton& cmdArtNeu;
    controls::CommandButton& cmdArtAendern;
    controls::CommandButton& cmdArtLoeschen;
    controls::CommandButton& cmdXLSImport;
    controls::CommandButton& cmdPrStelle4;  ///< "cmdPrStelle(4)", close
    controls::TextBox& txtReturn;           ///< the import writes "1" to it: the sheet reads its data anew
    controls::DataSource& datTeilraum;
    controls::DataSource& datPrStelle;
    controls::DataSource& datTeilraum_MI;

    /// Columns of the list of taxa up to the first mixed stand, and its rows.
    static constexpr int SpalteID_Art = 1, SpalteGattung = 2, SpalteArt = 3, SpalteCF = 4, SpalteMAalsMI = 5,
                         SpalteLF = 6, SpalteTaxonart = 7, SpalteDG_MA = 8, SpalteSD_MA = 9;
    static constexpr int VerdeckteZeile = 2, ErsteTaxazeile = 3;
    /// Columns of the list of mixed stands.
    static constexpr int SpalteID_TR_MI = 1, SpalteID_TR = 2, SpalteMI_Bez = 3, SpalteDG_MI_WRRL = 4,
                         SpalteDG_MI = 5, SpalteSD_MI = 6, SpalteRF_MI = 7;

private:
    /// One of the two independent sets of covers.
    struct Deckungssatz {
        controls::TextBox& DG_Gesamt;
        controls::TextBox& DG_Makro;
        int SpalteDG_MI;  ///< the stands' cover of this set in `vsfgAlgenTL_MI`
    };
    Deckungssatz Klassisch();
    Deckungssatz NachWRRL();

    // -- frmProbenstelleFelder.cpp
    void Beschriftungen_Einrichten();
    void Reihenfolge_Einrichten();
    void Felder_Binden();
    void Satz_Anzeigen();
    std::vector<controls::TextBox*> Textfelder();
    // -- frmProbenstelle.cpp
    void Import_Anlegen();
    void Rueckgabe_Geaendert();
    // -- Importspalten.cpp
    std::string Importspalten() const;
    // -- frmProbenstelleBestaende.cpp
    void Bestaende_Verdrahten();
    std::string Bestandsreihung() const;
    void Bestaende_NeuReihen();
    double Rest(const Deckungssatz& satz) const;
    void Rest_Pruefen();
    // -- frmProbenstellePruefungen.cpp
    void Pruefungen_Verdrahten();
    controls::Leaving Deckung_Pruefen(const Deckungssatz& satz, const controls::TextBox& feld);
    float Bestandssumme(const Deckungssatz& satz) const;
    // -- frmProbenstelleAlgenArt.cpp
    bool Liste_Fuellen();
    void Spalten_Anlegen();
    void Taxazeile_Fuellen(int row, const store::Recordset& fund);
    void Summenzeilen_Anlegen();
    void Taxazahl_Zeigen();
    void Fehlende_Melden();
    void Taxon_Nachtragen(std::int32_t ID_Art, bool cf);
    void GridAlgenArt_NeuMitCursor();
    // -- frmProbenstelleEingabe.cpp
    void Eingabe_Verdrahten();
    bool Zelle_Oeffnet(int row, int col) const;
    bool Eingabe_Annehmen(int row, int col);
    void Eingabe_Uebernehmen(int row, int col);
    void Eingabe_Melden(int row, int col);
    bool Taste(const controls::KeyPress& key);
    // -- frmProbenstelleSpeichern.cpp
    bool Zeile_Geaendert(int row) const;
    bool Zeile_Verlassen(int row);
    void Zeile_Speichern(int row);
    void Zeile_Anzeigen(int row);
    probenstelle::Fundzeile Fundzeile_Aus(int row) const;
    // -- frmProbenstelleSumme.cpp
    void Summen_Neu();
    double Spaltensumme(int row, int col, bool detailed) const;
    // -- frmProbenstelleBefehle.cpp
    void Befehle_Verdrahten();

    /// The columns behind the mixed stands.
    int SpalteSchalen() const noexcept { return intStartColMi + intAnzahlMI; }
    int SpalteMakrophyten() const noexcept { return SpalteSchalen() + 1; }
    int SpalteAltesCF() const noexcept { return SpalteSchalen() + 2; }
    int SpalteAltesMAalsMI() const noexcept { return SpalteSchalen() + 3; }
    int SpalteAltesLF() const noexcept { return SpalteSchalen() + 4; }
    bool IstBestandsspalte(int col) const noexcept { return col >= intStartColMi && col < SpalteSchalen(); }
    /// Whether a taxon stands in the row: no head, no sum.
    bool IstTaxazeile(int row) const noexcept;
    std::optional<Taxonart> ArtDerZeile(int row) const;
    std::int32_t ID_ArtDerZeile(int row) const;
    std::int32_t ID_TR_MIDerSpalte(int col) const;
    std::int32_t ID_PS() const;
    std::int32_t ID_TR() const;

    store::WorkspacePtr CurrentWS_;
    store::DatabasePtr CurrentDB_;
    std::int32_t TeilraumID_ = 0;
    std::string DBName_;
    bool DebugModus_ = false;
    std::int32_t FX_MainWnd_ = 0;
    std::string AktBenutzer_;
    std::int16_t QOVAKatalogID_ = 0;
    std::string PSBez_;
    bool CanEdit_ = false;
    bool AnzeigeVersion40_ = false;

    store::DatabasePtr datenbank_;  ///< `CurrentDB` as it was when the sheet was opened
    std::map<std::pair<std::int32_t, bool>, int> zeilen_;  ///< row of a taxon, with and without cf.
    int ersteSummenzeile_ = -1;    ///< -1: the list is not filled, and no cell of it opens
    bool ohneSummen_ = false;      ///< while the list is being filled
    bool zeileGeaendert_ = false;  ///< what stands in the current row was not saved yet
    std::string bestandsreihung_;  ///< names and order of the stands as the list of taxa shows them
    bool bestaendeUmgereiht_ = false;
    std::unique_ptr<ReturnField> rueckgabe_;
    std::unique_ptr<ImportComponent> import_;  ///< goes before the field that it writes to
};

}  // namespace FX_Algen::entry
