#include "entry/frmArtAuswahl.h"

#include <array>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include "controls/Fenster.h"
#include "controls/OpenForms.h"
#include "controls/Port.h"
#include "entry/ArtAuswahlAbfragen.h"
#include "store/Allgemein.h"

namespace FX_Algen::entry {

namespace {

constexpr std::int16_t TitelArtauswahl = 2080;
constexpr std::int16_t TextNeu = 2005;
constexpr std::int16_t TextAendern = 2006;
constexpr std::int16_t EintragWaehlen = 2084;
constexpr std::int16_t KeineTaxa = 5704;
constexpr std::array<std::int16_t, 2> Katalognamen{1000, 4306};  // by the number of the catalogue

constexpr std::string_view WortNeu = "Neu";
constexpr std::string_view WortAendern = "Aendern";

std::string TextOderLeer(const store::Value& wert) { return wert.IsNull() ? std::string() : wert.Text(); }

/// The first column of a statement; Null names nothing to choose.
std::vector<std::string> Namen(const store::DatabasePtr& datenbank, const std::string& anweisung) {
    std::vector<std::string> namen;
    if (anweisung.empty()) return namen;
    const auto satz = datenbank->OpenRecordset(anweisung);
    for (; !satz->Eof(); satz->MoveNext())
        if (!(*satz)[std::size_t{0}].IsNull()) namen.push_back((*satz)[std::size_t{0}].Text());
    return namen;
}

/// Names and identifiers of a statement, at the same places.
struct Paare {
    std::vector<std::string> Namen, IDs;
};

Paare NamenMitID(const store::DatabasePtr& datenbank, const std::string& anweisung, std::string_view name,
                 std::string_view id) {
    Paare paare;
    if (anweisung.empty()) return paare;
    const auto satz = datenbank->OpenRecordset(anweisung);
    for (; !satz->Eof(); satz->MoveNext()) {
        paare.Namen.push_back(TextOderLeer((*satz)[name]));
        paare.IDs.push_back((*satz)[id].Text());
    }
    return paare;
}

/// The place of the identifier that was chosen before, else the first one.
int PlatzVon(const std::vector<std::string>& IDs, const std::string& vorher) {
    for (std::size_t i = 0; i < IDs.size(); ++i)
        if (IDs[i] == vorher) return static_cast<int>(i);
    return 0;
}

/// A flag that is up while code changes lists, however that ends.
class Folgt {
public:
    explicit Folgt(bool& flagge) : flagge_(flagge), vorher_(std::exchange(flagge, true)) {}
    ~Folgt() { flagge_ = vorher_; }
    Folgt(const Folgt&) = delete;
    Folgt& operator=(const Folgt&) = delete;

private:
    bool& flagge_;
    bool vorher_;
};

}  // namespace

frmArtAuswahl::frmArtAuswahl()
    : Form("frmArtAuswahl"),
      lblKatalog(Add<controls::Label>("lblKatalog")),
      cboKatalog(Add<controls::ComboBox>("cboKatalog")),
      cboID_Kat(Add<controls::ComboBox>("cboID_Kat")),
      lblGattung(Add<controls::Label>("lblGattung")),
      cboGattung(Add<controls::ComboBox>("cboGattung")),
      lblArt(Add<controls::Label>("lblArt")),
      cboArt(Add<controls::ComboBox>("cboArt")),
      cboID_Art(Add<controls::ComboBox>("cboID_Art")),
      chkSynonym(Add<controls::CheckBox>("chkSynonym")),
      fraSynonym(Add<controls::Frame>("fraSynonym")),
      lblSynGattung(Add<controls::Label>("lblSynGattung")),
      cboSynGattung(Add<controls::ComboBox>("cboSynGattung")),
      lblSynArt(Add<controls::Label>("lblSynArt")),
      cboSynArt(Add<controls::ComboBox>("cboSynArt")),
      cboID_Synart(Add<controls::ComboBox>("cboID_Synart")),
      cmdArtAuswahl0(Add<controls::CommandButton>("cmdArtAuswahl(0)")),
      cmdArtAuswahl1(Add<controls::CommandButton>("cmdArtAuswahl(1)")),
      txtAuswahlstatus(Add<controls::TextBox>("txtAuswahlstatus")) {
    Felder_Einrichten();
    Gattung_Verdrahten();
    Synonym_Verdrahten();
    cmdArtAuswahl0.OnClick = [this] { Uebernehmen(); };
    cmdArtAuswahl1.OnClick = [this] { Close(controls::Ending::Discard); };
}

void frmArtAuswahl::Felder_Einrichten() {
    Tag(std::to_string(TitelArtauswahl));
    lblKatalog.Tag("5700");
    lblGattung.Tag("2031");
    lblArt.Tag("2032");
    chkSynonym.Tag("5701");
    fraSynonym.Tag("5705");
    lblSynGattung.Tag("2031");
    lblSynArt.Tag("2032");
    cmdArtAuswahl0.Tag("5702");
    cmdArtAuswahl1.Tag("5703");
    // The catalogue is the sheet's: the field tells it and has no effect, so nobody is to choose in it.
    cboKatalog.Locked(true);
    for (controls::Control* verborgen :
         std::initializer_list<controls::Control*>{&cboID_Kat, &cboID_Art, &cboID_Synart, &txtAuswahlstatus})
        verborgen->Visible(false);
    for (controls::Control* innen : std::initializer_list<controls::Control*>{
             &lblSynGattung, &cboSynGattung, &lblSynArt, &cboSynArt, &cboID_Synart})
        innen->Inside(fraSynonym);
    fraSynonym.Visible(false);
    int platz = 0;
    for (controls::Control* feld : std::initializer_list<controls::Control*>{
             &cboKatalog, &cboGattung, &cboArt, &chkSynonym, &cboSynGattung, &cboSynArt, &cmdArtAuswahl0,
             &cmdArtAuswahl1})
        feld->TabIndex(platz++);
    cmdArtAuswahl0.Default(true);
    cmdArtAuswahl1.Cancel(true);
    cmdArtAuswahl1.CausesValidation = false;
}

void frmArtAuswahl::Vervollstaendigen(controls::ComboBox& combo, bool gross, std::function<void()> geaendert,
                                      std::function<void()> gewaehlt) {
    combo.OnGotFocus = [&combo] { Allgemein::Text_Markieren(combo); };
    combo.OnChange = [this, &combo, gross, geaendert = std::move(geaendert),
                      zuletzt = std::make_shared<std::string>()] {
        if (folgt_) return;
        {
            const Folgt folgt(folgt_);
            Allgemein::Combo_Vervollstaendigen(combo, combo.SelStart(), *zuletzt, gross);
        }
        geaendert();
    };
    combo.OnClick = [this, gewaehlt = std::move(gewaehlt)] {
        if (!folgt_) gewaehlt();
    };
}

void frmArtAuswahl::Gattung_Verdrahten() {
    Vervollstaendigen(
        cboGattung, true, [this] { Arten_Leeren(); },
        [this] {
            if (cboGattung.Text() != gattungDerArten_) Arten_Leeren();
        });
    cboGattung.OnLeave = [this] {
        if (Verlassen(cboGattung) == controls::Leaving::Stay) return controls::Leaving::Stay;
        Init_cboArt();
        return controls::Leaving::Go;
    };
    // Enter would take over a species that nobody has seen yet: it goes on to the species instead.
    cboGattung.OnKey = [this](const controls::KeyPress& taste) {
        if (taste.Name != "Enter" || cboArt.List().Count() > 0) return false;
        if (cboGattung.OnLeave() == controls::Leaving::Go) SetFocus(cboArt);
        return true;
    };
    const auto folgen = [this] { ID_Folgen(); };
    Vervollstaendigen(cboArt, false, folgen, folgen);
    cboArt.OnLeave = [this] { return Verlassen(cboArt); };
}

void frmArtAuswahl::Synonym_Verdrahten() {
    chkSynonym.OnChange = [this] {
        if (!folgt_) chkSynonym_Geaendert();
    };
    const auto leeren = [this] { SynArten_Leeren(); };
    Vervollstaendigen(cboSynGattung, true, leeren, leeren);
    cboSynGattung.OnLeave = [this] {
        if (Synonym_Verlassen(cboSynGattung) == controls::Leaving::Stay) return controls::Leaving::Stay;
        Init_cboSynArt();
        return controls::Leaving::Go;
    };
    cboSynGattung.OnKey = [this](const controls::KeyPress& taste) {
        if (taste.Name != "Enter" || cboSynArt.List().Count() > 0) return false;
        if (cboSynGattung.OnLeave() == controls::Leaving::Go) SetFocus(cboSynArt);
        return true;
    };
    const auto nachschlagen = [this] { GetArtFromSynonym(); };
    Vervollstaendigen(cboSynArt, false, nachschlagen, nachschlagen);
    // A name that is in no list is held back here as in the other lists.
    cboSynArt.OnLeave = [this] { return Synonym_Verlassen(cboSynArt); };
}

// ---- lists ---------------------------------------------------------------------------------------------

void frmArtAuswahl::AL_Init() {
    {
        const Folgt folgt(folgt_);
        chkSynonym.Value(false);
        fraSynonym.Visible(false);
        cboGattung.Enabled(true);
        cboArt.Enabled(true);
        cboSynGattung.Clear();
        SynArten_Leeren();
        Arten_Leeren();
        cboGattung.Clear();
    }
    try {
        Init_cboKatalog();
        Init_cboGattung();
    } catch (const Error& fehler) {
        Failure(fehler);
        return;
    }
    if (cboGattung.ListIndex() >= 0) Init_cboArt();
}

void frmArtAuswahl::Init_cboKatalog() {
    cboKatalog.Clear();
    cboID_Kat.Clear();
    if (katalog_ < 0 || static_cast<std::size_t>(katalog_) >= Katalognamen.size()) return;
    for (std::size_t i = 0; i < Katalognamen.size(); ++i) {
        cboKatalog.AddItem(Text(Katalognamen.at(i)));
        cboID_Kat.AddItem(std::to_string(i));
    }
    cboKatalog.ListIndex(katalog_);
    cboID_Kat.ListIndex(katalog_);
}

void frmArtAuswahl::Init_cboGattung() {
    const controls::Hourglass sanduhr;
    auto gattungen = Namen(datenbank_, SQL_Gattungen(katalog_));
    const Folgt folgt(folgt_);
    cboGattung.Items(std::move(gattungen));
    if (cboGattung.List().Count() > 0) cboGattung.ListIndex(0);
}

void frmArtAuswahl::Init_cboArt() {
    try {
        const controls::Hourglass sanduhr;
        const auto vorher = cboID_Art.Text();
        auto paare = NamenMitID(datenbank_, SQL_Arten(katalog_, cboGattung.Text()), "Art", "ID_ART");
        const Folgt folgt(folgt_);
        const int platz = PlatzVon(paare.IDs, vorher);
        cboArt.Items(std::move(paare.Namen));
        cboID_Art.Items(std::move(paare.IDs));
        if (cboArt.List().Count() > 0) cboArt.ListIndex(platz);
        gattungDerArten_ = cboGattung.Text();
    } catch (const Error& fehler) {
        Arten_Leeren();
        Failure(fehler);
    }
    ID_Folgen();
}

void frmArtAuswahl::Arten_Leeren() {
    const Folgt folgt(folgt_);
    cboArt.Clear();
    cboID_Art.Clear();
    gattungDerArten_.reset();
}

void frmArtAuswahl::SynArten_Leeren() {
    const Folgt folgt(folgt_);
    cboSynArt.Clear();
    cboID_Synart.Clear();
}

void frmArtAuswahl::ID_Folgen() {
    if (cboArt.ListIndex() < cboID_Art.List().Count()) cboID_Art.ListIndex(cboArt.ListIndex());
}

controls::Leaving frmArtAuswahl::Verlassen(const controls::ComboBox& combo) {
    if (combo.ListIndex() >= 0) return controls::Leaving::Go;
    Bitte_Waehlen();
    return controls::Leaving::Stay;
}

controls::Leaving frmArtAuswahl::Synonym_Verlassen(const controls::ComboBox& combo) {
    return combo.List().Count() > 0 ? Verlassen(combo) : controls::Leaving::Go;
}

void frmArtAuswahl::Bitte_Waehlen() const {
    Box(Text(TitelArtauswahl), Text(EintragWaehlen), store::Buttons::Ok, store::Symbol::Exclamation);
}

// ---- synonyms ------------------------------------------------------------------------------------------

void frmArtAuswahl::chkSynonym_Geaendert() {
    const bool suchen = chkSynonym.Value();
    cboGattung.Enabled(!suchen);
    cboArt.Enabled(!suchen);
    fraSynonym.Visible(suchen);
    if (suchen) Init_cboSynGattung();
}

void frmArtAuswahl::MitLeererListe(const std::function<void()>& fuellen) {
    try {
        fuellen();
    } catch (const Error& fehler) {
        if (fehler.Number() == ErrorNumber::IndexOutOfRange)
            Box(Text(KeineTaxa), store::Buttons::Ok, store::Symbol::Information);
        else
            Failure(fehler);
    }
}

void frmArtAuswahl::Init_cboSynGattung() {
    MitLeererListe([this] {
        const controls::Hourglass sanduhr;
        auto gattungen = Namen(datenbank_, SQL_SynGattungen());
        const Folgt folgt(folgt_);
        SynArten_Leeren();
        cboSynGattung.Items(std::move(gattungen));
        cboSynGattung.ListIndex(0);
    });
}

void frmArtAuswahl::Init_cboSynArt() {
    bool gefuellt = false;
    MitLeererListe([&] {
        const controls::Hourglass sanduhr;
        const auto vorher = cboID_Synart.Text();
        auto paare = NamenMitID(datenbank_, SQL_SynArten(cboSynGattung.Text()), "SynArt", "ID_Synart");
        const Folgt folgt(folgt_);
        const int platz = PlatzVon(paare.IDs, vorher);
        cboSynArt.Items(std::move(paare.Namen));
        cboID_Synart.Items(std::move(paare.IDs));
        cboSynArt.ListIndex(platz);
        gefuellt = true;
    });
    if (gefuellt) GetArtFromSynonym();
}

void frmArtAuswahl::GetArtFromSynonym() {
    MitLeererListe([this] {
        const int platz = cboSynArt.ListIndex();
        if (platz < cboID_Synart.List().Count()) cboID_Synart.ListIndex(platz);
        if (cboID_Synart.ListIndex() < 0) {
            Nichts_Waehlen();  // what is being typed names no synonym (yet)
            return;
        }
        const auto satz = [this] {
            const controls::Hourglass sanduhr;
            return datenbank_->OpenRecordset(SQL_Synonym(cboID_Synart.Text()));
        }();
        // Without the accepted taxon in the lists, what they showed before must not be taken for it.
        if (satz->Eof() || !Gattung_Waehlen(TextOderLeer((*satz)["Gattung"]))) {
            Nichts_Waehlen();
            throw Error(ErrorNumber::IndexOutOfRange, "The list has no accepted taxon of the synonym.");
        }
        Arten_Leeren();
        Init_cboArt();
        Art_Waehlen(TextOderLeer((*satz)["Art"]), TextOderLeer((*satz)["ID_SYN"]));
    });
}

bool frmArtAuswahl::Gattung_Waehlen(const std::string& Gattung) {
    const auto platz = cboGattung.List().Find(Gattung);
    if (!platz) return false;
    const Folgt folgt(folgt_);
    cboGattung.ListIndex(*platz);
    return true;
}

void frmArtAuswahl::Art_Waehlen(const std::string& Art, const std::string& ID_Art) {
    const auto& arten = cboArt.List();
    auto platz = arten.Find(Art);
    // Taxa of one name: that of the synonym.
    for (int i = 0; i < arten.Count(); ++i)
        if (arten.At(i) == Art && cboID_Art.List().At(i) == ID_Art) platz = i;
    if (!platz) return;
    const Folgt folgt(folgt_);
    cboArt.ListIndex(*platz);
    ID_Folgen();
}

void frmArtAuswahl::Nichts_Waehlen() {
    const Folgt folgt(folgt_);
    cboGattung.ListIndex(-1);
    Arten_Leeren();
}

// ---- opening -------------------------------------------------------------------------------------------

void ArtAuswahl_Show(Probenstellenbogen& bogen, Auswahlmodus modus) {
    const bool neu = modus == Auswahlmodus::Neu;
    const auto picker = controls::OpenForms().Load<frmArtAuswahl>();
    picker->Parent(bogen.Bogen().shared_from_this());
    picker->CurrentWS(bogen.BogenWS());
    picker->CurrentDB(bogen.BogenDB());
    picker->Sprache(bogen.Bogen().Sprache());
    picker->DebugModus(bogen.BogenDebugModus());
    picker->Katalog(static_cast<std::int16_t>(bogen.BogenKatalog()));
    Allgemein::SetControlCaptions(*picker, picker->Sprache());
    picker->AL_Init();
    picker->txtAuswahlstatus.Text(std::string(neu ? WortNeu : WortAendern));
    picker->Caption(picker->Text(TitelArtauswahl) + " - " + picker->Text(neu ? TextNeu : TextAendern));
    picker->Show();
    picker->SetFocus(picker->cboGattung);
}

}  // namespace FX_Algen::entry
