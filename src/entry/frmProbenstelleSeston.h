#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "FX_Algen/Store.h"
#include "controls/DataSource.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"
#include "entry/Bogenauftrag.h"
#include "entry/Probenstellenbogen.h"

namespace FX_Algen::entry {

/// The sheet of a seston sampling site: its name and its taxa, each with an abundance class and a remark.
class frmProbenstelleSeston : public controls::Form, public Probenstellenbogen {
public:
    frmProbenstelleSeston();

    // -- settings, in this order; `DataObject_Init` takes them
    void CurrentWS(store::WorkspacePtr workspace) { workspace_ = std::move(workspace); }
    void CurrentDB(store::DatabasePtr datenbank) { currentDB_ = std::move(datenbank); }
    using Form::Sprache;
    void TeilraumID(std::int32_t id) noexcept { teilraumID_ = id; }
    void DBName(std::string pfad) { dbName_ = std::move(pfad); }
    /// Shows the hidden field `txtID_PS`.
    void DebugModus(bool an);
    void FX_MainWnd(std::int32_t fenster) noexcept { hauptfenster_ = fenster; }
    std::int32_t FX_MainWnd() const noexcept { return hauptfenster_; }
    void AktBenutzer(std::string name) { benutzer_ = std::move(name); }
    void QOVAKatalogID(std::int16_t id) noexcept { qovaKatalogID_ = id; }

    /// The settings under which it was shown last.
    std::optional<Bogenauftrag> Gezeigt;

    // -- operations
    /// Reads the sampling site of the sub-habitat, offers to make it where there is none, binds its row and
    /// fills the list. What an open sheet holds is saved first. False where there is no site and the person
    /// wants none. A failure of the store before the site is bound leaves the call.
    bool DataObject_Init();
    /// Saves the row that is being edited, builds the columns of the list and fills it, and says once how
    /// many findings have no row. Nothing is built where that row cannot be saved. Failures end in the common
    /// handler; what was read until then stays.
    void GridAlgenArt_Init() override;
    /// Fills the rows and the count. Findings whose taxon the catalogue lacks get no row.
    void GridAlgenArt_Daten();
    /// Writes a row of the list. The row stays changed where the store refuses.
    void AlgenArt_Datenspeichern(int zeile);
    /// The row of the taxon; of its two rows the one that `cf` says.
    void Select_AktArt(std::int32_t ID_Art, bool cf) override;

    // -- what the taxon picker sees
    controls::Form& Bogen() noexcept override { return *this; }
    Katalog BogenKatalog() const noexcept override { return Katalog::Seston; }
    store::WorkspacePtr BogenWS() const override { return workspace_; }
    store::DatabasePtr BogenDB() const override { return WorksOn(); }
    bool BogenDebugModus() const noexcept override { return debugModus_; }
    std::string BogenID_PS() const override { return txtID_PS.Text(); }
    std::optional<std::string> BogenID_TLR() const override { return std::nullopt; }
    controls::Grid& BogenTaxa() noexcept override { return vsfgAlgenArt; }

    std::shared_ptr<store::Database> WorksOn() const override { return datenbank_ ? datenbank_ : currentDB_; }

    // -- controls
    controls::Label& lblTRBez;
    controls::TextBox& txtTRBez;
    controls::Label& lblPSBez;
    controls::TextBox& txtPSBez;
    controls::TextBox& txtID_PS;
    controls::Grid& vsfgAlgenArt;
    controls::Label& lblTaxazahl;
    controls::CommandButton& cmdArtNeu;
    controls::CommandButton& cmdArtAendern;
    controls::CommandButton& cmdArtLoeschen;
    controls::CommandButton& cmdXLSImport;
    controls::CommandButton& cmdPrStelle4;  ///< "cmdPrStelle(4)", save and close
    controls::TextBox& txtReturn;
    controls::DataSource& datTeilraum;
    controls::DataSource& datPrStelle;

private:
    void Felder_Einrichten();
    void Liste_Verdrahten();
    bool Taste(const controls::KeyPress& taste);
    bool Zeile_Verlassen(int zeile);
    void Eingabe_Nachtragen(int zeile, int spalte);

    void Spalten_Einrichten();
    void Fehlende_Melden();
    std::int32_t Funde_Ohne_Zeile() const;
    std::int32_t ID_PS() const;
    std::int32_t ID_ArtDerZeile(int zeile) const;
    bool Hat_Taxon(int zeile) const;
    bool Ist_Geaendert(int zeile) const;

    void Art_Waehlen(Auswahlmodus modus);
    void Art_Loeschen();
    void txtReturn_Geaendert();

    store::WorkspacePtr workspace_;
    store::DatabasePtr currentDB_;
    std::int32_t teilraumID_ = 0;
    std::string dbName_;
    bool debugModus_ = false;
    std::int32_t hauptfenster_ = 0;
    std::string benutzer_;
    std::int16_t qovaKatalogID_ = 0;

    store::DatabasePtr datenbank_;        ///< `CurrentDB` as it was when the site was bound
    std::optional<int> geaenderteZeile_;  ///< the row that was changed and not saved yet
    std::int32_t gemeldeteFunde_ = 0;     ///< findings without a row that the person knows of
};

}  // namespace FX_Algen::entry
