#include "controls/Port.h"
#include "entry/SestonAbfragen.h"
#include "entry/SestonSpalten.h"
#include "entry/Taxaliste.h"
#include "entry/frmArtAuswahl.h"
#include "entry/frmProbenstelleSeston.h"
#include "store/Allgemein.h"

/// What a person does in the list of taxa of the seston sheet: edits, keys, commands, and how a row is saved.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t ArtLoeschen = 5667;

}  // namespace

void frmProbenstelleSeston::Liste_Verdrahten() {
    using namespace SestonSpalten;
    vsfgAlgenArt.OnBeforeEdit = [this](int zeile, int spalte) {
        return Hat_Taxon(zeile) && spalte >= CF && spalte <= Zusatz;
    };
    vsfgAlgenArt.OnAfterEdit = [this](int zeile, int spalte) { Eingabe_Nachtragen(zeile, spalte); };
    vsfgAlgenArt.OnBeforeRowLeave = [this](int zeile) { return Zeile_Verlassen(zeile); };
    vsfgAlgenArt.EnterGoesOn = true;
    vsfgAlgenArt.KeyPassesEdit = [this](const controls::KeyPress& taste) {
        return GehtAnDieListe(vsfgAlgenArt, taste);
    };
    vsfgAlgenArt.OnKey = [this](const controls::KeyPress& taste) { return Taste(taste); };
}

bool frmProbenstelleSeston::Hat_Taxon(int zeile) const {
    return zeile >= SestonSpalten::Kopfzeilen && zeile < vsfgAlgenArt.Rows();
}

bool frmProbenstelleSeston::Ist_Geaendert(int zeile) const {
    using namespace SestonSpalten;
    return geaenderteZeile_ == zeile ||
           vsfgAlgenArt.Checked(zeile, CF) != vsfgAlgenArt.Checked(zeile, CF_gespeichert);
}

// ---- edits ---------------------------------------------------------------------------------------------

void frmProbenstelleSeston::Eingabe_Nachtragen(int zeile, int spalte) {
    geaenderteZeile_ = zeile;
    if (spalte == SestonSpalten::Abundanz) Zahl_Melden(*this, vsfgAlgenArt, zeile, spalte, true);
}

bool frmProbenstelleSeston::Zeile_Verlassen(int zeile) {
    if (!Hat_Taxon(zeile) || !Ist_Geaendert(zeile)) return true;
    try {
        AlgenArt_Datenspeichern(zeile);
        return true;
    } catch (const Error& fehler) {
        Failure(fehler);
        return false;
    }
}

void frmProbenstelleSeston::AlgenArt_Datenspeichern(int zeile) {
    using namespace SestonSpalten;
    const controls::Hourglass sanduhr;
    const bool cf = vsfgAlgenArt.Checked(zeile, CF);
    // What is no whole number of 32 bits fails here, before anything is written.
    const auto abundanz = store::Value(vsfgAlgenArt.Number(zeile, Abundanz).value_or(0)).I4();
    datenbank_->Execute(seston::TaxonSchreiben(ID_PS(), ID_ArtDerZeile(zeile),
                                               vsfgAlgenArt.Checked(zeile, CF_gespeichert),
                                               {cf, abundanz, vsfgAlgenArt.Text(zeile, Zusatz)}));
    if (datenbank_->RecordsAffected() == 0)
        throw Error(ErrorNumber::NoCurrentRecord, "The finding of " + vsfgAlgenArt.Text(zeile, Gattung) +
                                                      " " + vsfgAlgenArt.Text(zeile, Art) +
                                                      " is not stored any more.");
    vsfgAlgenArt.Checked(zeile, CF_gespeichert, cf);
    vsfgAlgenArt.Text(zeile, Abundanz, AbundanzText(store::Value(abundanz), Sprache()));
    geaenderteZeile_.reset();
}

// ---- keys ----------------------------------------------------------------------------------------------

bool frmProbenstelleSeston::Taste(const controls::KeyPress& taste) {
    if (taste.Ctrl || taste.Alt) return false;
    const int zeile = vsfgAlgenArt.Row();
    if (taste.Name == "Enter") {
        if (vsfgAlgenArt.LeaveRow() && !taste.Shift) Art_Waehlen(Auswahlmodus::Neu);
        return true;
    }
    if (taste.Name == "Delete") {
        Art_Loeschen();
        return true;
    }
    if ((taste.Name == "Space" || taste.Name == " ") && Hat_Taxon(zeile)) {
        const int spalte = vsfgAlgenArt.Col();
        const bool offen = vsfgAlgenArt.IsEditing();
        const bool gesetzt = vsfgAlgenArt.Toggle(zeile, SestonSpalten::CF);
        vsfgAlgenArt.Select(zeile, spalte);
        // Who went on with Tab goes on typing where the cell was open.
        if (offen && gesetzt) vsfgAlgenArt.StartEdit();
        return true;
    }
    return Weitergehen(vsfgAlgenArt, taste);
}

// ---- commands ------------------------------------------------------------------------------------------

void frmProbenstelleSeston::Art_Waehlen(Auswahlmodus modus) {
    if (!SaveRows()) return;
    if (modus == Auswahlmodus::Aendern && !Hat_Taxon(vsfgAlgenArt.Row())) return;
    ArtAuswahl_Show(*this, modus);
}

void frmProbenstelleSeston::Art_Loeschen() {
    using namespace SestonSpalten;
    if (!SaveRows()) return;
    const int zeile = vsfgAlgenArt.Row();
    if (!Hat_Taxon(zeile)) return;
    auto frage = Allgemein::Str_Ersetzen(Text(ArtLoeschen), "~", vsfgAlgenArt.Text(zeile, Art), true);
    frage = Allgemein::Str_Ersetzen(frage, "|", vsfgAlgenArt.Text(zeile, Gattung), true);
    if (Box(frage, store::Buttons::YesNo, store::Symbol::Question) != store::Answer::Yes) return;
    datenbank_->Execute(
        seston::TaxonLoeschen(ID_PS(), ID_ArtDerZeile(zeile), vsfgAlgenArt.Checked(zeile, CF)));
    GridAlgenArt_Init();
    // The next taxon takes its place.
    const int letzte = vsfgAlgenArt.Rows() - 1;
    if (letzte >= Kopfzeilen) vsfgAlgenArt.Select(zeile < letzte ? zeile : letzte, Abundanz);
}

void frmProbenstelleSeston::txtReturn_Geaendert() {
    if (txtReturn.Text() != "1") return;
    txtReturn.Text({});
    try {
        DataObject_Init();
    } catch (const Error& fehler) {
        Failure(fehler);
    }
}

}  // namespace FX_Algen::entry
