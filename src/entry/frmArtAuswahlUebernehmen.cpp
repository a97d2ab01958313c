#include "controls/Grid.h"
#include "controls/Port.h"
#include "entry/ArtAuswahlAbfragen.h"
#include "entry/frmArtAuswahl.h"
#include "store/Allgemein.h"
#include "store/Connection.h"

/// Taking a taxon over: what the picker writes, and what it tells the sheet.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t TitelArtauswahl = 2080;
constexpr std::int16_t SchonEingetragen = 2085;
constexpr std::int16_t UebernehmenUnmoeglich = 2086;
constexpr std::int16_t Systemfehler = 2048;
constexpr int SpalteID_Art = 1;
constexpr int SpalteCF = 4;

std::int32_t Zahl(const std::string& text) { return store::Value(text).I4(); }

}  // namespace

Probenstellenbogen* frmArtAuswahl::Bogen() const noexcept {
    return dynamic_cast<Probenstellenbogen*>(Parent());
}

void frmArtAuswahl::Uebernehmen() {
    if (cboID_Art.Text().empty()) {
        Bitte_Waehlen();
        SetFocus(cboArt.IsEnabled() ? cboArt : cboSynArt);
        return;
    }
    bool fertig = false;
    try {
        auto* bogen = Bogen();
        if (bogen == nullptr) throw Error(ErrorNumber::TypeMismatch, "The taxon picker has no sheet.");
        fertig = Art_Uebernehmen(*bogen);
    } catch (const Error&) {
        Box(Text(TitelArtauswahl), Text(UebernehmenUnmoeglich), store::Buttons::Ok,
            store::Symbol::Exclamation);
        return;
    }
    if (fertig) Close(controls::Ending::Discard);
}

bool frmArtAuswahl::Art_Uebernehmen(Probenstellenbogen& bogen) {
    // The list is built anew below: what is still being typed into it must be written first.
    if (!bogen.Bogen().SaveRows()) return false;

    const auto ID_PS = bogen.BogenID_PS();
    const auto ID_Art = Zahl(cboID_Art.Text());
    if (Ist_Eingetragen(ID_PS, cboID_Art.Text())) {
        Ist_Eingetragen_Melden();
        return false;
    }
    auto& liste = bogen.BogenTaxa();
    bool cf = false;
    bool ok = true;
    if (txtAuswahlstatus.Text() == "Aendern") {
        const int zeile = liste.Row();
        const auto ID_Art_alt = Zahl(liste.Text(zeile, SpalteID_Art));
        cf = liste.Checked(zeile, SpalteCF);
        const auto ID_TLR = bogen.BogenID_TLR();
        Update_ArtPrStelle(ID_TLR ? Zahl(*ID_TLR) : 0, Zahl(ID_PS), ID_Art_alt, ID_Art, cf, ok);
    } else {
        AddNew_ArtPrStelle(Zahl(ID_PS), ID_Art, ok);
    }
    // Whether it worked or not, the sheet shows what is stored now.
    bogen.GridAlgenArt_Init();
    bogen.Select_AktArt(ID_Art, cf);
    bogen.Bogen().SetFocus(liste);
    return true;
}

bool frmArtAuswahl::Ist_Eingetragen(const std::string& ID_PS, const std::string& ID_Art) const {
    return !datenbank_->OpenRecordset(SQL_Eingetragen(katalog_, ID_PS, ID_Art))->Eof();
}

void frmArtAuswahl::Ist_Eingetragen_Melden() const {
    // The species first: a "~" in a genus is no place for it.
    auto text = Allgemein::Str_Ersetzen(Text(SchonEingetragen), "~", cboArt.Text(), true);
    text = Allgemein::Str_Ersetzen(text, "|", cboGattung.Text(), true);
    Box(Text(TitelArtauswahl), text, store::Buttons::Ok, store::Symbol::Exclamation);
}

void frmArtAuswahl::AddNew_ArtPrStelle(std::int32_t ID_PS, std::int32_t ID_Art, bool& ok) {
    ok = true;
    try {
        datenbank_->Execute(SQL_Neu(katalog_, ID_PS, ID_Art));
    } catch (const Error&) {
        ok = false;
    }
    if (!ok) Box(Text(Systemfehler), store::Buttons::Ok, store::Symbol::Exclamation);
}

void frmArtAuswahl::Update_ArtPrStelle(std::int32_t ID_TR, std::int32_t ID_PS, std::int32_t ID_Art_alt,
                                       std::int32_t ID_Art_neu, bool CF, bool& ok) {
    try {
        // The row and its shares together: shares of a taxon that lost its row would bring it back as a
        // finding when the sheet is opened next.
        store::Savepoint zusammen(datenbank_->SharedConnection());
        datenbank_->Execute(SQL_Aendern(katalog_, ID_PS, ID_Art_alt, ID_Art_neu, CF));
        ok = datenbank_->RecordsAffected() > 0;
        if (ok && katalog_ == static_cast<std::int16_t>(entry::Katalog::Algen))
            datenbank_->Execute(SQL_AendernAnteile(ID_TR, ID_Art_alt, ID_Art_neu, CF));
        zusammen.Keep();
    } catch (const Error&) {
        ok = false;
    }
    if (!ok) Box(Text(Systemfehler), store::Buttons::Ok, store::Symbol::Exclamation);
}

}  // namespace FX_Algen::entry
