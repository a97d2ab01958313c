#include <cmath>
#include <limits>
#include <utility>

#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/SestonSpalten.h"
#include "entry/frmArtAuswahl.h"
#include "entry/frmProbenstelleSeston.h"
#include "store/Allgemein.h"

/// What a person does in the list of taxa of the seston sheet: edits, keys, commands, and how a row is saved.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t KeineZahl = 5716;
constexpr std::int16_t KeineAbundanz = 5717;
constexpr std::int16_t ArtLoeschen = 5718;

/// Whether the column of the abundance can take the number as it is.
bool Ist_Abundanz(double zahl) {
    return zahl >= 0 && zahl <= std::numeric_limits<std::int32_t>::max() && std::floor(zahl) == zahl;
}

/// The abundance that is stored for a cell.
std::int32_t AbundanzVon(std::optional<double> zahl) { return zahl ? store::Value(*zahl).I4() : 0; }

std::string Verdoppelt(const std::string& text) { return Allgemein::Str_Ersetzen(text, "'", "''"); }

}  // namespace

void frmProbenstelleSeston::Liste_Verdrahten() {
    using namespace SestonSpalten;
    vsfgAlgenArt.OnBeforeEdit = [this](int zeile, int spalte) {
        return Hat_Taxon(zeile) && spalte >= CF && spalte <= Zusatz;
    };
    vsfgAlgenArt.OnValidateEdit = [this](int, int spalte, const std::string& text) {
        return Eingabe_Pruefen(spalte, text);
    };
    vsfgAlgenArt.OnAfterEdit = [this](int zeile, int spalte) { Eingabe_Nachtragen(zeile, spalte); };
    vsfgAlgenArt.OnBeforeRowLeave = [this](int zeile) {
        if (Hat_Taxon(zeile) && Ist_Geaendert(zeile)) AlgenArt_Datenspeichern(zeile);
        return true;
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

// A number that the column would round or could not hold is refused: nothing else than what was typed is
// ever stored for a number.
bool frmProbenstelleSeston::Eingabe_Pruefen(int spalte, const std::string& text) {
    if (spalte != SestonSpalten::Abundanz) return true;
    const auto zahl = controls::ReadNumber(text);
    if (!zahl || Ist_Abundanz(*zahl)) return true;
    Box(Allgemein::Str_Ersetzen(Text(KeineAbundanz), "|", text, true), store::Buttons::Ok,
        store::Symbol::Exclamation);
    return false;
}

void frmProbenstelleSeston::Eingabe_Nachtragen(int zeile, int spalte) {
    geaenderteZeile_ = zeile;
    if (spalte != SestonSpalten::Abundanz) return;
    const auto& text = vsfgAlgenArt.Text(zeile, spalte);
    if (text.empty() || controls::ReadNumber(text)) return;
    Box(Allgemein::Str_Ersetzen(Text(KeineZahl), "|", text, true), store::Buttons::Ok,
        store::Symbol::Exclamation);
}

void frmProbenstelleSeston::AlgenArt_Datenspeichern(int zeile) {
    using namespace SestonSpalten;
    const controls::Hourglass sanduhr;
    const bool cf = vsfgAlgenArt.Checked(zeile, CF);
    const auto abundanz = AbundanzVon(vsfgAlgenArt.Number(zeile, Abundanz));
    datenbank_->Execute("UPDATE sesArtPrStelle SET CF=" + std::string(Allgemein::Bool_Text(cf)) +
                        ", Abundanz= " + std::to_string(abundanz) + ", Zusatz='" +
                        Verdoppelt(vsfgAlgenArt.Text(zeile, Zusatz)) + "' WHERE ID_PS=" + txtID_PS.Text() +
                        " AND ID_Art=" + vsfgAlgenArt.Text(zeile, ID_Art) + " AND CF=" +
                        std::string(Allgemein::Bool_Text(vsfgAlgenArt.Checked(zeile, CF_gespeichert))) + ";");
    if (datenbank_->RecordsAffected() == 0)
        throw Error(ErrorNumber::NoCurrentRecord, "The finding of " + vsfgAlgenArt.Text(zeile, Gattung) +
                                                      " " + vsfgAlgenArt.Text(zeile, Art) +
                                                      " is not stored any more.");
    vsfgAlgenArt.Checked(zeile, CF_gespeichert, cf);
    vsfgAlgenArt.Text(zeile, Abundanz, AbundanzText(store::Value(abundanz), Sprache()));
    geaenderteZeile_.reset();
}

// ---- keys ----------------------------------------------------------------------------------------------

// The cell that the key leads to opens at once. False where the key leads nowhere.
bool frmProbenstelleSeston::Weitergehen(const controls::KeyPress& taste) {
    auto& liste = vsfgAlgenArt;
    const auto naechste = [&]() -> std::optional<std::pair<int, int>> {
        if (taste.Name == "Tab") return liste.Neighbour(taste.Shift ? -1 : 1);
        const int zeile = liste.Row() + (taste.Name == "Down") - (taste.Name == "Up");
        int spalte = liste.Col();
        const int schritt = (taste.Name == "Right") - (taste.Name == "Left");
        if (schritt != 0)
            for (spalte += schritt; spalte > 0 && spalte < liste.Cols() && liste.ColHidden(spalte);)
                spalte += schritt;
        if (!Hat_Taxon(zeile) || spalte <= SestonSpalten::Marke || spalte >= liste.Cols())
            return std::nullopt;
        return std::pair(zeile, spalte);
    }();
    if (!naechste) return false;
    if (liste.GoTo(naechste->first, naechste->second)) liste.StartEdit();
    return true;
}

bool frmProbenstelleSeston::Taste(const controls::KeyPress& taste) {
    if (taste.Ctrl || taste.Alt) return false;
    const int zeile = vsfgAlgenArt.Row();
    if (taste.Name == "Enter") {
        if (vsfgAlgenArt.LeaveRow() && !taste.Shift) Art_Waehlen(Auswahlmodus::Neu);
        return true;
    }
    if (taste.Name == "Delete" && !vsfgAlgenArt.IsEditing()) {
        Art_Loeschen();
        return true;
    }
    if (taste.Name == "Space" && !vsfgAlgenArt.IsEditing() && Hat_Taxon(zeile)) {
        vsfgAlgenArt.Toggle(zeile, SestonSpalten::CF);
        return true;
    }
    for (const auto* pfeil : {"Tab", "Up", "Down", "Left", "Right"})
        if (taste.Name == pfeil) return Weitergehen(taste);
    return false;
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
    datenbank_->Execute("DELETE * FROM sesArtPrStelle WHERE ID_Art = " + vsfgAlgenArt.Text(zeile, ID_Art) +
                        " AND  ID_PS = " + txtID_PS.Text() + " AND " +
                        (vsfgAlgenArt.Checked(zeile, CF) ? "CF=True;" : "CF=False;"));
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
