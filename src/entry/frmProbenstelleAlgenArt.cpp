#include <algorithm>
#include <set>

#include "FX_Algen/Error.h"
#include "controls/Numbers.h"
#include "controls/Port.h"
#include "entry/AbfragenProbenstelle.h"
#include "entry/frmProbenstelle.h"
#include "store/Allgemein.h"

/// The list of taxa: columns, rows, shares, and the repair of taxa that have shares but are not listed.
namespace FX_Algen::entry {

namespace {

constexpr controls::Colour OhneLebensform{0xE0E0E0};
constexpr controls::Colour Artgrenze{0x007D7D};
constexpr std::int16_t AutomatischBehoben = 2047;
constexpr std::int16_t TaxaZeilen = 3321;
constexpr std::int16_t ProzentDG = 2034;
constexpr std::int16_t FundeOhneTaxon = 5715;
/// The only life form that takes part in an assessment.
constexpr std::int32_t Bewertbar = 1;
constexpr int Versteckt = 0;

std::string TextOderLeer(const store::Value& wert) { return wert.IsNull() ? std::string() : wert.Text(); }
bool Wahr(const store::Value& wert) { return !wert.IsNull() && wert.Bool(); }

}  // namespace

void frmProbenstelle::GridAlgenArt_Init() {
    if (!vsfgAlgenArt.LeaveRow()) return;
    try {
        if (Liste_Fuellen()) return;
        Box(Text(AutomatischBehoben), store::Buttons::Ok, store::Symbol::Information);
        // A taxon entered in the first pass is a row of the second, and may be followed by its cf. twin.
        Liste_Fuellen();
    } catch (const Error& error) {
        // Without a first sum row no cell opens: saving a row without its shares would delete them.
        ohneSummen_ = false;
        Failure(error);
    }
}

/// Builds the list from nothing. False where taxa were repaired, and the list is to be built once more.
bool frmProbenstelle::Liste_Fuellen() {
    const controls::Hourglass sanduhr;
    const controls::Grid::Filling fuellung(vsfgAlgenArt);
    bool ok = true;
    Spalten_Anlegen();
    GridAlgenArt_Daten(ok);
    return ok;
}

// ---- columns -------------------------------------------------------------------------------------------

void frmProbenstelle::Spalten_Anlegen() {
    using controls::CellKind;
    auto& liste = vsfgAlgenArt;
    ersteSummenzeile_ = -1;
    zeileGeaendert_ = false;
    const auto bestaende = datenbank_->OpenRecordset(probenstelle::BestaendeDerTaxaliste(ID_TR()));
    intAnzahlMI = bestaende->RecordCount();
    bestandsreihung_ = Bestandsreihung();

    liste.Rows(0);
    liste.Cols(0);
    liste.Cols(SpalteAltesLF() + 1);
    liste.Fixed(ErsteTaxazeile, 1);
    liste.Rows(ErsteTaxazeile);
    liste.RowHidden(VerdeckteZeile, true);
    const auto spalte = [&](int col, int breite, const std::string& kopf, const std::string& zweiter,
                            CellKind art) {
        liste.ColWidth(col, breite);
        liste.ColKind(col, art);
        liste.Text(0, col, kopf);
        liste.Text(1, col, zweiter);
    };
    const int nurV40 = AnzeigeVersion40_ ? 800 : Versteckt;
    spalte(0, 200, "", "", CellKind::Text);
    spalte(SpalteID_Art, Versteckt, "", "", CellKind::Text);
    spalte(SpalteGattung, 1800, Text(2031), "", CellKind::Text);
    spalte(SpalteArt, 2400, Text(2032), "", CellKind::Text);
    spalte(SpalteCF, 500, Text(2044), "", CellKind::Check);
    spalte(SpalteMAalsMI, nurV40, Text(2045), "", CellKind::Check);
    spalte(SpalteLF, nurV40, Text(2050), "", CellKind::Check);
    spalte(SpalteTaxonart, Versteckt, "", "", CellKind::Text);
    spalte(SpalteDG_MA, 1000, Text(2033), Text(ProzentDG), CellKind::Number);
    spalte(SpalteSD_MA, 1000, Text(2038), Text(2035), CellKind::Number);
    for (int col = intStartColMi; !bestaende->Eof(); bestaende->MoveNext(), ++col) {
        spalte(col, 1100, TextOderLeer((*bestaende)["MI_Bez"]), Text(ProzentDG), CellKind::Number);
        liste.Text(VerdeckteZeile, col, (*bestaende)["ID_TR_MI"].Text());
    }
    spalte(SpalteSchalen(), 1200, Text(2024), Text(2037), CellKind::Number);
    spalte(SpalteMakrophyten(), AnzeigeVersion40_ ? 1200 : Versteckt, Text(2090), "", CellKind::Number);
    for (const int col : {SpalteAltesCF(), SpalteAltesMAalsMI(), SpalteAltesLF()})
        spalte(col, Versteckt, "", "", CellKind::Check);
}

// ---- rows ----------------------------------------------------------------------------------------------

void frmProbenstelle::GridAlgenArt_Daten(bool& ok) {
    const controls::Hourglass sanduhr;
    ohneSummen_ = true;
    zeilen_.clear();
    const auto funde = datenbank_->OpenRecordset(probenstelle::Taxa(ID_PS()));
    // From the heads on: what stood in a row before belongs to another taxon.
    ersteSummenzeile_ = -1;
    vsfgAlgenArt.Rows(ErsteTaxazeile);
    vsfgAlgenArt.Rows(ErsteTaxazeile + funde->RecordCount());
    for (int row = ErsteTaxazeile; !funde->Eof(); funde->MoveNext(), ++row) Taxazeile_Fuellen(row, *funde);
    GrdAlgenArt_MIDaten(ok);
    ohneSummen_ = false;
    Summenzeilen_Anlegen();
    if (vsfgAlgenArt.Rows() > ErsteTaxazeile) vsfgAlgenArt.Select(ErsteTaxazeile, SpalteGattung);
    Taxazahl_Zeigen();
}

void frmProbenstelle::Taxazeile_Fuellen(int row, const store::Recordset& fund) {
    auto& liste = vsfgAlgenArt;
    const auto haken = [&](int col, int alte, bool an) {
        liste.Checked(row, col, an);
        liste.Checked(row, alte, an);
    };
    const auto zahl = [&](int col, std::string_view feld) {
        liste.Text(row, col, controls::ShownAboveZero(fund[feld], Sprache()));
    };
    const auto& lebensform = fund["Lebensform"];
    const bool bewertbar = !lebensform.IsNull() && lebensform.I4() == Bewertbar;
    const bool cf = Wahr(fund["CF"]);
    liste.Text(row, SpalteID_Art, fund["ID_ART"].Text());
    liste.Text(row, SpalteGattung, TextOderLeer(fund["Gattung"]));
    liste.Text(row, SpalteArt, TextOderLeer(fund["Art"]));
    haken(SpalteCF, SpalteAltesCF(), cf);
    haken(SpalteMAalsMI, SpalteAltesMAalsMI(), Wahr(fund["MAalsMI"]));
    haken(SpalteLF, SpalteAltesLF(), !bewertbar);
    liste.Text(row, SpalteTaxonart,
               std::string(Taxonart_Text(Taxonart_Von(fund["ID_Grgr"], fund["Algenart"]))));
    zahl(SpalteDG_MA, "DG_MA");
    zahl(SpalteSD_MA, "SD_MA");
    zahl(SpalteSchalen(), "Schalen_KA");
    zahl(SpalteMakrophyten(), "DG_MP");
    if (!bewertbar)
        for (int col = SpalteGattung; col < liste.Cols(); ++col) liste.CellColor(row, col, OhneLebensform);
    if (row > ErsteTaxazeile && liste.Text(row, SpalteTaxonart) != liste.Text(row - 1, SpalteTaxonart))
        liste.RowRule(row, Artgrenze);
    zeilen_[{fund["ID_ART"].I4(), cf}] = row;
}

void frmProbenstelle::Summenzeilen_Anlegen() {
    auto& liste = vsfgAlgenArt;
    ersteSummenzeile_ = liste.AddRow();
    liste.Text(ersteSummenzeile_, SpalteGattung, Text(2046) + " " + Text(2056));
    liste.Text(ersteSummenzeile_, SpalteArt, Text(2057));
    if (AnzeigeVersion40_) liste.Text(liste.AddRow(), SpalteGattung, Text(2046));
    Summen_Neu();
}

void frmProbenstelle::Taxazahl_Zeigen() {
    // Takes no account of the mode: with one sum row alone the label reads one less than the taxa.
    constexpr int KopfUndSummen = ErsteTaxazeile + 2;
    lblTaxazahl.Caption(std::to_string(vsfgAlgenArt.Rows() - KopfUndSummen) + " " + Text(TaxaZeilen));
}

// ---- shares --------------------------------------------------------------------------------------------

void frmProbenstelle::GrdAlgenArt_MIDaten(bool& ok) {
    ok = true;
    std::map<std::int32_t, int> spalten;
    for (int col = intStartColMi; col < SpalteSchalen(); ++col) spalten[ID_TR_MIDerSpalte(col)] = col;
    // Whether the site has a taxon without a row for the share: with the other CF alone, or not in the
    // catalogue; and what was entered here, since a taxon may have a share in several stands.
    std::map<std::int32_t, bool> anderswie;
    std::set<std::pair<std::int32_t, bool>> nachgetragen;
    const auto anteile = datenbank_->OpenRecordset(probenstelle::Anteile(ID_TR()));
    for (; !anteile->Eof(); anteile->MoveNext()) {
        const auto art = (*anteile)["ID_ART"].I4();
        const bool cf = Wahr((*anteile)["CF"]);
        if (const auto zeile = zeilen_.find({art, cf}); zeile != zeilen_.end()) {
            const auto spalte = spalten.find((*anteile)["ID_TR_MI"].I4());
            if (spalte != spalten.end())
                vsfgAlgenArt.Text(zeile->second, spalte->second,
                                  controls::ShownAboveZero((*anteile)["DG_MI"], Sprache()));
            continue;
        }
        if (!anderswie.contains(art))
            anderswie[art] = !datenbank_->OpenRecordset(probenstelle::FundeDesTaxons(ID_PS(), art))->Eof();
        if (anderswie[art]) continue;
        ok = false;
        if (nachgetragen.insert({art, cf}).second) Taxon_Nachtragen(art, cf);
    }
}

void frmProbenstelle::Taxon_Nachtragen(std::int32_t ID_Art, bool cf) {
    const auto werte = datenbank_->OpenRecordset(probenstelle::Algenart(ID_Art));
    const bool makroalge = !werte->Eof() && IstMakroalge((*werte)["Algenart"]);
    datenbank_->Execute(probenstelle::TaxonNachtragen(ID_PS(), ID_Art, cf, makroalge));
}

/// Says how many findings the list does not show: without a row in the catalogue a taxon has no name.
void frmProbenstelle::Fehlende_Melden() {
    if (ersteSummenzeile_ < 0) return;
    const int funde = datenbank_->OpenRecordset(probenstelle::FundeDerStelle(ID_PS()))->RecordCount();
    const int fehlende = funde - (ersteSummenzeile_ - ErsteTaxazeile);
    if (fehlende <= 0) return;
    Box(Allgemein::Str_Ersetzen(Text(FundeOhneTaxon), "|", std::to_string(fehlende)), store::Buttons::Ok,
        store::Symbol::Exclamation);
}

// ---- cursor --------------------------------------------------------------------------------------------

void frmProbenstelle::Select_AktArt(std::int32_t ID_Art, bool cf) {
    const auto gesucht = zeilen_.find({ID_Art, cf});
    const auto gefunden = gesucht != zeilen_.end() ? gesucht : zeilen_.find({ID_Art, !cf});
    if (gefunden == zeilen_.end()) return;
    const int row = gefunden->second;
    // The cf. row stands first; who asks for the plain one where both are there finds it in the second.
    const bool zweite = row > ErsteTaxazeile &&
                        vsfgAlgenArt.Text(row - 1, SpalteID_Art) == vsfgAlgenArt.Text(row, SpalteID_Art);
    const auto spalte = [&] {
        switch (ArtDerZeile(row).value_or(Taxonart::MA)) {
            case Taxonart::MI:
                return intAnzahlMI > 0 ? intStartColMi : SpalteDG_MA;
            case Taxonart::KA:
                return SpalteSchalen();
            case Taxonart::HP:
                return SpalteMakrophyten();
            case Taxonart::BA:
            case Taxonart::PI:
                return zweite ? intStartColMi : SpalteDG_MA;
            case Taxonart::MA:
                break;
        }
        return SpalteDG_MA;
    };
    vsfgAlgenArt.Select(row, spalte());
}

/// Builds the list anew and leaves the cursor on its taxon, in its column.
void frmProbenstelle::GridAlgenArt_NeuMitCursor() {
    auto& liste = vsfgAlgenArt;
    const int col = liste.Col();
    const int oben = liste.TopRow();
    const bool taxon = IstTaxazeile(liste.Row());
    const auto art = taxon ? ID_ArtDerZeile(liste.Row()) : 0;
    const bool cf = taxon && liste.Checked(liste.Row(), SpalteCF);
    GridAlgenArt_Init();
    if (oben < liste.Rows()) liste.TopRow(oben);
    const auto row = zeilen_.find({art, cf});
    if (taxon && row != zeilen_.end() && col < liste.Cols()) liste.Select(row->second, col);
}

}  // namespace FX_Algen::entry
