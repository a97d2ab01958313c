#include "entry/frmProbenstelleSeston.h"

#include <initializer_list>

#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/SestonSpalten.h"
#include "manager/Datenbank.h"
#include "store/Allgemein.h"

namespace FX_Algen::entry {

namespace {

constexpr std::int16_t ProblemBehoben = 2047;
constexpr std::int16_t ProbenstelleAnlegen = 2302;
constexpr std::int16_t TitelProbenstelle = 2303;
constexpr std::int16_t TaxonZeile = 3320;
constexpr std::int16_t TaxaZeilen = 3321;
constexpr std::int16_t FundeOhneTaxon = 5715;

std::string TextOderLeer(const store::Value& wert) { return wert.IsNull() ? std::string() : wert.Text(); }

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
    if (!Probenstelle_Vorhanden()) {
        if (Box(Text(TitelProbenstelle), Text(ProbenstelleAnlegen), store::Buttons::YesNo,
                store::Symbol::Question) != store::Answer::Yes)
            return false;
        Probenstelle_Anlegen();
    }
    const auto id = std::to_string(teilraumID_);
    datTeilraum.Open(quelle, "SELECT * FROM Teilraum WHERE Teilraum.ID_TR=" + id);
    datPrStelle.Open(quelle, "SELECT ID_PS, PSBez FROM sesPrStelle WHERE ID_TR=" + id);
    // Not before: rows of the former site must not be written into another database.
    datenbank_ = currentDB_;
    gemeldeteFunde_ = 0;
    GridAlgenArt_Init();
    return true;
}

bool frmProbenstelleSeston::Probenstelle_Vorhanden() const {
    return !currentDB_
                ->OpenRecordset(
                    "SELECT DISTINCTROW Teilraum.*, sesPrStelle.ID_PS, sesPrStelle.PSBez "
                    "FROM Teilraum INNER JOIN sesPrStelle ON Teilraum.ID_TR=sesPrStelle.ID_TR "
                    "WHERE Teilraum.ID_TR=" +
                    std::to_string(teilraumID_))
                ->Eof();
}

void frmProbenstelleSeston::Probenstelle_Anlegen() {
    const auto id = std::to_string(teilraumID_);
    // A site of no sub-habitat would be asked for again at each opening.
    if (currentDB_->OpenRecordset("SELECT ID_TR FROM Teilraum WHERE ID_TR=" + id)->Eof())
        throw Error(ErrorNumber::NoCurrentRecord,
                    "There is no sub-habitat " + id + ": no seston sampling site can be made for it.");
    currentDB_->Execute("INSERT INTO sesPrStelle (ID_TR, PSBez) VALUES (" + id + ",'<NEU>');");
}

// ---- list of taxa --------------------------------------------------------------------------------------

void frmProbenstelleSeston::GridAlgenArt_Init() {
    try {
        bool ok = true;
        {
            const controls::Hourglass sanduhr;
            const controls::Grid::Filling fuellung(vsfgAlgenArt);
            Spalten_Einrichten();
            GridAlgenArt_Daten(ok);
        }
        if (ok) return;
        Box(Text(ProblemBehoben), store::Buttons::Ok, store::Symbol::Exclamation);
        {
            const controls::Hourglass sanduhr;
            const controls::Grid::Filling fuellung(vsfgAlgenArt);
            GridAlgenArt_Daten(ok);
        }
        Fehlende_Melden();
    } catch (const Error& fehler) {
        Failure(fehler);
    }
}

void frmProbenstelleSeston::Spalten_Einrichten() {
    using namespace SestonSpalten;
    vsfgAlgenArt.CancelEdit();
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

void frmProbenstelleSeston::GridAlgenArt_Daten(bool& ok) {
    using namespace SestonSpalten;
    vsfgAlgenArt.Rows(Kopfzeilen);
    geaenderteZeile_.reset();
    lblTaxazahl.Caption({});
    const auto satz = datenbank_->OpenRecordset(
        "SELECT sesArtPrStelle.CF, sesArtPrStelle.Abundanz, sesArtPrStelle.Zusatz, sesArt.ID_Art, "
        "sesArt.Gattung, sesArt.Art FROM sesArt INNER JOIN sesArtPrStelle ON sesArt.ID_ART = "
        "sesArtPrStelle.ID_ART WHERE ID_PS=" +
        txtID_PS.Text() + " ORDER BY sesArt.Gattung, sesArt.Art, sesArtPrStelle.CF");
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
    ok = Funde_Ohne_Zeile() <= gemeldeteFunde_;
}

std::int32_t frmProbenstelleSeston::Funde_Ohne_Zeile() const {
    const auto satz =
        datenbank_->OpenRecordset("SELECT Count(*) AS N FROM sesArtPrStelle WHERE ID_PS=" + txtID_PS.Text());
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
    for (int zeile = Kopfzeilen; zeile < vsfgAlgenArt.Rows(); ++zeile) {
        if (vsfgAlgenArt.Text(zeile, SestonSpalten::ID_Art) != gesucht ||
            vsfgAlgenArt.Checked(zeile, CF) != cf)
            continue;
        vsfgAlgenArt.Select(zeile, Abundanz);
        return;
    }
}

}  // namespace FX_Algen::entry
