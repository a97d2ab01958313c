#include "entry/frmProbenstelle.h"

#include "FX_Algen/Error.h"
#include "controls/Port.h"
#include "entry/AbfragenProbenstelle.h"
#include "entry/Import.h"
#include "manager/Datenbank.h"
#include "store/Strings.h"

namespace FX_Algen::entry {

namespace {

constexpr std::int16_t NochNichtVorhanden = 2039;
constexpr std::int16_t Titel = 2020;
constexpr std::string_view ImportFertig = "1";

bool HatZeile(const store::DatabasePtr& datenbank, const std::string& abfrage) {
    return !datenbank->OpenRecordset(abfrage)->Eof();
}

}  // namespace

frmProbenstelle::~frmProbenstelle() = default;

// ---- settings ------------------------------------------------------------------------------------------

void frmProbenstelle::DebugModus(bool an) {
    DebugModus_ = an;
    txtID_PS.Visible(an);
    txtID_TLR.Visible(an);
}

void frmProbenstelle::AnzeigeVersion40(bool an) {
    AnzeigeVersion40_ = an;
    Satz_Anzeigen();
}

void frmProbenstelle::EditMode(bool CanEdit) {
    CanEdit_ = CanEdit;
    for (auto* feld : Textfelder()) feld->Locked(!CanEdit);
    for (auto* knopf : {&cmdArtNeu, &cmdArtAendern, &cmdArtLoeschen, &cmdAlgenMI_Hinzufuegen,
                        &cmdAlgenMI_Loeschen, &cmdXLSImport})
        knopf->Enabled(CanEdit);
    const auto eingabe = CanEdit ? controls::Editing::KeyboardAndMouse : controls::Editing::None;
    vsfgAlgenTL_MI.Editable(eingabe);
    vsfgAlgenArt.Editable(eingabe);
}

// ---- opening -------------------------------------------------------------------------------------------

bool frmProbenstelle::DataObject_Init() {
    if (datenbank_ && !SaveRows()) return true;
    manager::Vorhanden(CurrentDB_, "DataObject_Init");
    // A sheet without a path reads where it writes.
    const auto quelle =
        DBName_.empty() ? CurrentDB_ : (CurrentWS_ ? *CurrentWS_ : store::Workspace()).OpenDatabase(DBName_);
    if (!HatZeile(CurrentDB_, probenstelle::TeilraumMitStelle(TeilraumID_))) {
        if (Box(Text(Titel), Text(NochNichtVorhanden), store::Buttons::YesNo, store::Symbol::Question) !=
            store::Answer::Yes)
            return false;
        if (!HatZeile(CurrentDB_, probenstelle::Teilraum(TeilraumID_)))
            CurrentDB_->Execute(probenstelle::TeilraumAnlegen(TeilraumID_));
        if (!HatZeile(CurrentDB_, probenstelle::Stellen(TeilraumID_)))
            CurrentDB_->Execute(probenstelle::StelleAnlegen(TeilraumID_, PSBez_));
    }
    datTeilraum.Open(quelle, probenstelle::Teilraum(TeilraumID_));
    datPrStelle.Open(quelle, probenstelle::Stellen(TeilraumID_));
    datTeilraum_MI.Open(quelle, probenstelle::Bestaende(TeilraumID_));
    // Not before: rows of the former site must not be written into another database.
    datenbank_ = CurrentDB_;
    GridAlgenTL_MI_Init();
    GridAlgenArt_Init();
    Import_Anlegen();
    Fehlende_Melden();
    return true;
}

// ---- import --------------------------------------------------------------------------------------------

namespace {

/// Hands what the import component writes to the hidden field.
class Rueckgabefeld : public ReturnField {
public:
    explicit Rueckgabefeld(controls::TextBox& feld) : feld_(feld) {}
    void Text(const std::string& text) override { feld_.Text(text); }

private:
    controls::TextBox& feld_;
};

std::string Versionstext() {
    return std::to_string(FX_ALGEN_VERSION_MAJOR) + "." + std::to_string(FX_ALGEN_VERSION_MINOR) + "." +
           std::to_string(FX_ALGEN_VERSION_PATCH);
}

}  // namespace

void frmProbenstelle::Import_Anlegen() {
    // One for the life of the sheet: it may be running, and have the sheet read its data anew.
    if (!import_) import_ = MakeImport();
    cmdXLSImport.Visible(import_ != nullptr);
}

void frmProbenstelle::cmdXLSImport_Click() {
    if (!import_ || !SaveRows()) return;
    if (!rueckgabe_) rueckgabe_ = std::make_unique<Rueckgabefeld>(txtReturn);
    // So that a second "1" is heard, too.
    txtReturn.Text("");
    import_->DBName(DBName_.empty() ? datenbank_->Name() : DBName_);
    import_->KatalogTitel("Taxaliste Österreich");
    import_->Versionswort(Versionstext());
    import_->MitKatalog(true);
    import_->Eigner("FX_Algen");
    import_->Sprache(Sprache());
    import_->ID_PS(ID_PS());
    import_->Benutzer(AktBenutzer_);
    import_->CurrentDB(datenbank_);
    import_->Bereich("Algen");
    import_->Spalten(Importspalten());
    import_->Rueckgabe(*rueckgabe_);
    import_->Start();
}

void frmProbenstelle::Rueckgabe_Geaendert() {
    if (txtReturn.Text() != ImportFertig) return;
    try {
        DataObject_Init();
    } catch (const Error& error) {
        // The component that wrote the field knows nothing of the store's failures.
        Failure(error);
    }
}

// ---- what the lists hold -------------------------------------------------------------------------------

bool frmProbenstelle::IstTaxazeile(int row) const noexcept {
    return row >= ErsteTaxazeile && row < ersteSummenzeile_;
}

std::optional<Taxonart> frmProbenstelle::ArtDerZeile(int row) const {
    return Taxonart_Aus(vsfgAlgenArt.Text(row, SpalteTaxonart));
}

std::int32_t frmProbenstelle::ID_ArtDerZeile(int row) const {
    return store::Value(vsfgAlgenArt.Text(row, SpalteID_Art)).I4();
}

std::int32_t frmProbenstelle::ID_TR_MIDerSpalte(int col) const {
    return store::Value(vsfgAlgenArt.Text(VerdeckteZeile, col)).I4();
}

std::int32_t frmProbenstelle::ID_PS() const { return store::Value(txtID_PS.Text()).I4(); }
std::int32_t frmProbenstelle::ID_TR() const { return store::Value(txtID_TLR.Text()).I4(); }

}  // namespace FX_Algen::entry
