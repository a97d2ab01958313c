#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "FX_Algen/Store.h"
#include "controls/Form.h"
#include "controls/Kinds.h"
#include "controls/Lists.h"
#include "entry/Probenstellenbogen.h"

namespace FX_Algen::entry {

/// The taxon picker: a child of the sheet that opened it, in which a person chooses a taxon by genus and
/// species or by way of a synonym. It writes the taxon into the site's taxa and has the sheet build its list
/// anew.
///
/// The mode stands as a word in the hidden field `txtAuswahlstatus`, "Neu" or "Aendern"; who opens the picker
/// sets it after `AL_Init`. Failures of the store end in boxes, none leaves an operation.
class frmArtAuswahl : public controls::Form {
public:
    frmArtAuswahl();

    // -- settings, in this order
    void CurrentWS(store::WorkspacePtr workspace) { workspace_ = std::move(workspace); }
    void CurrentDB(store::DatabasePtr datenbank) { datenbank_ = std::move(datenbank); }
    using Form::Sprache;
    void DebugModus(bool an) noexcept { debugModus_ = an; }
    /// 0 the algae catalogue, 1 that of seston; any other value fills no list of taxa.
    void Katalog(std::int16_t katalog) noexcept { katalog_ = katalog; }

    // -- operations
    /// Fills the genera, then the species of the first genus, and chooses the first entry of each. The search
    /// by synonym is off then.
    void AL_Init();
    /// Fills the species of the chosen genus. The species that was chosen stays chosen where the list still
    /// has it, else the first one is.
    void Init_cboArt();
    /// Fills the genera of the synonyms and chooses the first one.
    void Init_cboSynGattung();
    /// Fills the synonyms of the chosen genus and chooses as `Init_cboArt` does, which looks the taxon up.
    void Init_cboSynArt();
    /// Chooses the accepted taxon of the chosen synonym in the lists of genera and species. A species that is
    /// not in its list leaves the first one chosen; a genus that is not in its list leaves nothing chosen.
    void GetArtFromSynonym();
    /// Enters a taxon at a site, not as cf. `ok` becomes false where the store refused, which is shown.
    void AddNew_ArtPrStelle(std::int32_t ID_PS, std::int32_t ID_Art, bool& ok);
    /// Puts another taxon into a row of the site; of algae the shares in the mixed stands of `ID_TR` go
    /// along. `ok` becomes false where the store refused or the row is not there any more, which is shown.
    void Update_ArtPrStelle(std::int32_t ID_TR, std::int32_t ID_PS, std::int32_t ID_Art_alt,
                            std::int32_t ID_Art_neu, bool CF, bool& ok);

    std::shared_ptr<store::Database> WorksOn() const override { return datenbank_; }

    // -- controls
    controls::Label& lblKatalog;
    controls::ComboBox& cboKatalog;
    controls::ComboBox& cboID_Kat;
    controls::Label& lblGattung;
    controls::ComboBox& cboGattung;
    controls::Label& lblArt;
    controls::ComboBox& cboArt;
    controls::ComboBox& cboID_Art;
    controls::CheckBox& chkSynonym;
    controls::Frame& fraSynonym;
    controls::Label& lblSynGattung;
    controls::ComboBox& cboSynGattung;
    controls::Label& lblSynArt;
    controls::ComboBox& cboSynArt;
    controls::ComboBox& cboID_Synart;
    controls::CommandButton& cmdArtAuswahl0;  ///< "cmdArtAuswahl(0)", take over
    controls::CommandButton& cmdArtAuswahl1;  ///< "cmdArtAuswahl(1)", cancel
    controls::TextBox& txtAuswahlstatus;

private:
    void Felder_Einrichten();
    void Gattung_Verdrahten();
    void Synonym_Verdrahten();
    /// Has a combo complete what is typed into it and call `geaendert` after each change of its text, and
    /// `gewaehlt` after an entry was chosen.
    void Vervollstaendigen(controls::ComboBox& combo, bool gross, std::function<void()> geaendert,
                           std::function<void()> gewaehlt);

    void Init_cboKatalog();
    void Init_cboGattung();
    void Arten_Leeren();
    void SynArten_Leeren();
    void ID_Folgen();
    void chkSynonym_Geaendert();
    bool Gattung_Waehlen(const std::string& Gattung);
    void Art_Waehlen(const std::string& Art, const std::string& ID_Art);
    void Nichts_Waehlen();
    /// Asks for an entry where none is chosen, and keeps the focus then; of the synonyms only where the list
    /// has entries.
    controls::Leaving Verlassen(const controls::ComboBox& combo);
    controls::Leaving Synonym_Verlassen(const controls::ComboBox& combo);
    void Bitte_Waehlen() const;

    void Uebernehmen();
    /// Writes and tells the sheet; answers whether the dialog is done.
    bool Art_Uebernehmen(Probenstellenbogen& bogen);
    bool Ist_Eingetragen(const std::string& ID_PS, const std::string& ID_Art) const;
    void Ist_Eingetragen_Melden() const;
    Probenstellenbogen* Bogen() const noexcept;

    /// Runs the filling of a list; an index past a list's end says that there are no taxa.
    void MitLeererListe(const std::function<void()>& fuellen);

    store::WorkspacePtr workspace_;
    store::DatabasePtr datenbank_;
    bool debugModus_ = false;
    std::int16_t katalog_ = 0;
    std::optional<std::string> gattungDerArten_;  ///< the genus whose species stand in their list
    bool folgt_ = false;  ///< lists are being changed by code: their events are not a person's
};

/// Opens the picker for a sheet, or takes the open one over for it: as its child, with its settings, filled,
/// with the mode and its caption.
void ArtAuswahl_Show(Probenstellenbogen& bogen, Auswahlmodus modus);

}  // namespace FX_Algen::entry
