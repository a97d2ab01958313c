#include "entry/frmProbenstelleSeston.h"

#include <initializer_list>

#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/SestonAbfragen.h"
#include "entry/SestonSpalten.h"
#include "manager/Datenbank.h"
#include "store/Allgemein.h"

namespace FX_Algen::entry {

namespace {

constexpr std::int16_t ProbenstelleAnlegen = 2302;
constexpr std::int16_t TitelProbenstelle = 2303;
constexpr std::int16_t TaxonZeile = 3320;
constexpr std::int16_t TaxaZeilen = 3321;
constexpr std::int16_t FundeOhneTaxon = 5715;

std::string TextOderLeer(const store::Value& wert) { return wert.IsNull() ? std::string() : wert.Text(); }

bool HatZeile(const store::DatabasePtr& datenbank, const std::string& abfrage) {
    return !datenbank->OpenRecordset(abfrage)->Eof();
}

}  // namespace

frmProbenstelleSeston::frmProbenstelleSeston()
    : Form("frmProbenstelleSeston"),
      lblTRBez(Add<controls::Label>("lblTRBez")),
      txtTRBez(Add<controls::TextBox>("txtTRBez")),
      lblPSBez(Add<controls::Label>("lblPSBez")),
      txtPSBez(Add<controls::TextBox>("txtPSBez")),
      txtID_PS(Add<controls::TextBox>("txtID_PS")),
      vsfgAlgenArt(Add<controls::Grid>("vsfgAlgenArt")),
      lblTaxazahl(Add<controls::Label>("lblTaxazahl")),
      cmdArtNeu(Add<controls::CommandButton>("cmdArtNeu")),
      cmdArtAendern(Add<controls::CommandButton>("cmdArtAendern")),
      cmdArtLoeschen(Add<controls::CommandButton>("cmdArtLoeschen")),
      cmdXLSImport(Add<controls::CommandButton>("cmdXLSImport")),
      cmdPrStelle4(Add<controls::CommandButton>("cmdPrStelle(4)")),
      txtReturn(Add<controls::TextBox>("txtReturn")),
      datTeilraum(Add<controls::DataSource>("datTeilraum")),
      datPrStelle(Add<controls::DataSource>("datPrStelle")) {
    Felder_Einrichten();
    Liste_Verdrahten();
    cmdArtNeu.OnClick = [this] { Art_Waehlen(Auswahlmodus::Neu); };
    cmdArtAendern.OnClick = [this] { Art_Waehlen(Auswahlmodus::Aendern); };
    cmdArtLoeschen.OnClick = [this] { Art_Loeschen(); };
    cmdPrStelle4.OnClick = [this] { Close(); };
    txtReturn.OnChange = [this] { txtReturn_Geaendert(); };
}

void frmProbenstelleSeston::Felder_Einrichten() {
    Tag(std::to_string(TitelProbenstelle));
    lblTRBez.Tag("5711");
    lblPSBez.Tag("5660");
    cmdArtNeu.Tag("2005");
    cmdArtAendern.Tag("2006");
    cmdArtLoeschen.Tag("5665");
    cmdPrStelle4.Tag("5666");
    txtTRBez.Locked(true);
    txtID_PS.Locked(true);
    txtID_PS.Visible(false);
    txtReturn.Visible(false);
    txtReturn.HostsWrite = true;
    // No import brings seston; the place of the button stays.
    cmdXLSImport.Visible(false);
    int platz = 0;
    for (controls::Control* feld : std::initializer_list<controls::Control*>{
             &txtTRBez, &txtPSBez, &vsfgAlgenArt, &cmdArtNeu, &cmdArtAendern, &cmdArtLoeschen, &cmdPrStelle4})
        feld->TabIndex(platz++);
    cmdPrStelle4.CausesValidation = false;
    datTeilraum.Bind(txtTRBez, "TRBez");
    datPrStelle.Bind(txtID_PS, "ID_PS");
    datPrStelle.Bind(txtPSBez, "PSBez");
}

void frmProbenstelleSeston::DebugModus(bool an) {
    debugModus_ = an;
    txtID_PS.Visible(an);
}

// ---- opening -------------------------------------------------------------------------------------------

bool frmProbenstelleSeston::DataObject_Init() {
    // What could not be saved stays in view rather than make room for other rows.
    if (datPrStelle.IsOpen() && !SaveRows()) return true;
    manager::Vorhanden(currentDB_, "DataObject_Init");
    // A sheet without a path reads where it writes.
    const auto quelle =
        dbName_.empty() ? currentDB_ : (workspace_ ? *workspace_ : store::Workspace()).OpenDatabase(dbName_);
    if (!HatZeile(currentDB_, seston::TeilraumMitStelle(teilraumID_))) {
        if (Box(Text(TitelProbenstelle), Text(ProbenstelleAnlegen), store::Buttons::YesNo,
                store::Symbol::Question) != store::Answer::Yes)
            return false;
        // The site of a sub-habitat that is not stored is found here alone: it must not become several.
        if (!HatZeile(currentDB_, seston::Stellen(teilraumID_)))
            currentDB_->Execute(seston::StelleAnlegen(teilraumID_));
    }
    datTeilraum.Open(quelle, seston::Teilraum(teilraumID_));
    datPrStelle.Open(quelle, seston::Stellen(teilraumID_));
    // Not before: rows of the former site must not be written into another database.
    datenbank_ = currentDB_;
    gemeldeteFunde_ = 0;
    GridAlgenArt_Init();
    return true;
}

// ---- list of taxa --------------------------------------------------------------------------------------

void frmProbenstelleSeston::GridAlgenArt_Init() {
    // What is being typed would go with its row.
    if (!vsfgAlgenArt.LeaveRow()) return;
    try {
        {
            const controls::Hourglass sanduhr;
            const controls::Grid::Filling fuellung(vsfgAlgenArt);
            Spalten_Einrichten();
            GridAlgenArt_Daten();
        }
        Fehlende_Melden();
    } catch (const Error& fehler) {
        Failure(fehler);
    }
}

void frmProbenstelleSeston::Spalten_Einrichten() {
    using namespace SestonSpalten;
    vsfgAlgenArt.Rows(Kopfzeilen);
    vsfgAlgenArt.Cols(Anzahl);
    vsfgAlgenArt.Fixed(Kopfzeilen, Marke + 1);
    vsfgAlgenArt.Editable(controls::Editing::KeyboardAndMouse);
    for (const auto& spalte : Alle) {
        vsfgAlgenArt.ColWidth(spalte.Platz, spalte.Breite);
        vsfgAlgenArt.ColKind(spalte.Platz, spalte.Art);
        vsfgAlgenArt.Text(0, spalte.Platz, spalte.Kopf ? Text(spalte.Kopf) : std::string());
    }
}

void frmProbenstelleSeston::GridAlgenArt_Daten() {
    using namespace SestonSpalten;
    vsfgAlgenArt.Rows(Kopfzeilen);
    geaenderteZeile_.reset();
    lblTaxazahl.Caption({});
    const auto satz = datenbank_->OpenRecordset(seston::Taxa(ID_PS()));
    for (; !satz->Eof(); satz->MoveNext()) {
        const int zeile = vsfgAlgenArt.AddRow();
        const bool cf = (*satz)["CF"].Bool();
        vsfgAlgenArt.Text(zeile, ID_Art, (*satz)["ID_Art"].Text());
        vsfgAlgenArt.Text(zeile, Gattung, TextOderLeer((*satz)["Gattung"]));
        vsfgAlgenArt.Text(zeile, Art, TextOderLeer((*satz)["Art"]));
        vsfgAlgenArt.Checked(zeile, CF, cf);
        vsfgAlgenArt.Text(zeile, Abundanz, AbundanzText((*satz)["Abundanz"], Sprache()));
        vsfgAlgenArt.Text(zeile, Zusatz, TextOderLeer((*satz)["Zusatz"]));
        vsfgAlgenArt.Checked(zeile, CF_gespeichert, cf);
    }
    const int taxa = vsfgAlgenArt.Rows() - Kopfzeilen;
    if (taxa > 0) vsfgAlgenArt.Select(Kopfzeilen, Abundanz);
    lblTaxazahl.Caption(std::to_string(taxa) + " " + Text(taxa == 1 ? TaxonZeile : TaxaZeilen));
}

std::int32_t frmProbenstelleSeston::Funde_Ohne_Zeile() const {
    const auto satz = datenbank_->OpenRecordset(seston::Fundezahl(ID_PS()));
    return (*satz)["N"].I4() - (vsfgAlgenArt.Rows() - SestonSpalten::Kopfzeilen);
}

// Nothing can mend a finding whose taxon the catalogue lacks, so it stays as it is, and the person is told.
void frmProbenstelleSeston::Fehlende_Melden() {
    const auto funde = Funde_Ohne_Zeile();
    if (funde > gemeldeteFunde_)
        Box(Allgemein::Str_Ersetzen(Text(FundeOhneTaxon), "|", std::to_string(funde), true),
            store::Buttons::Ok, store::Symbol::Exclamation);
    gemeldeteFunde_ = funde;
}

void frmProbenstelleSeston::Select_AktArt(std::int32_t ID_Art, bool cf) {
    using namespace SestonSpalten;
    const auto gesucht = std::to_string(ID_Art);
    const auto steht = [&](int zeile) {
        return Hat_Taxon(zeile) && vsfgAlgenArt.Text(zeile, SestonSpalten::ID_Art) == gesucht;
    };
    int zeile = Kopfzeilen;
    while (Hat_Taxon(zeile) && !steht(zeile)) ++zeile;
    if (!Hat_Taxon(zeile)) return;
    if (vsfgAlgenArt.Checked(zeile, CF) != cf && steht(zeile + 1)) ++zeile;
    vsfgAlgenArt.Select(zeile, Abundanz);
}

std::int32_t frmProbenstelleSeston::ID_PS() const { return store::Value(txtID_PS.Text()).I4(); }

std::int32_t frmProbenstelleSeston::ID_ArtDerZeile(int zeile) const {
    return store::Value(vsfgAlgenArt.Text(zeile, SestonSpalten::ID_Art)).I4();
}

}  // namespace FX_Algen::entry
