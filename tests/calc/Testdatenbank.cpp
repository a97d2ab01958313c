#include "calc/Testdatenbank.h"

#include "calc/Gueteklasse.h"
#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

std::string Z(double zahl) { return store::NumberText(zahl); }
std::string Z(std::int32_t zahl) { return store::NumberText(zahl); }
std::string Z(bool wert) { return wert ? "-1" : "0"; }

}  // namespace

void Testdatenbank::Teilraum(std::int32_t id, const Deckungen& d) {
    Ausfuehren("INSERT INTO Teilraum (ID_TR, TRBez) VALUES(" + Z(id) + ", 'Blöcke " + Z(id) + "');");
    Ausfuehren("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) VALUES(" +
               Z(id) + ", " + Z(d.DG_Gesamt) + ", " + Z(d.DG_MA) + ", " + Z(d.DG_Gesamt_WRRL) + ", " +
               Z(d.DG_MA_WRRL) + ");");
}

void Testdatenbank::ArtOhneWerte(std::int32_t id, std::int32_t gruppe) {
    const auto vorhanden =
        Handle()->OpenRecordset("SELECT ID_FAM FROM awaFamilie WHERE ID_FAM=" + Z(gruppe) + ";");
    if (vorhanden->Eof()) {
        Ausfuehren("INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES(" + Z(gruppe) + ", 'Familie', " +
                   Z(gruppe) + ");");
        Ausfuehren("INSERT INTO awaUnterFam (ID_UFAM, ID_FAM, Unterfamilie) VALUES(" + Z(gruppe) + ", " +
                   Z(gruppe) + ", 'Unterfamilie');");
    }
    vorhanden->Close();
    Ausfuehren("INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES(" + Z(id) + ", " + Z(gruppe) +
               ", 'Gattung" + Z(id) + "', 'grün" + Z(id) + "');");
}

void Testdatenbank::Art(std::int32_t id, const Werte& w, std::int32_t gruppe) {
    ArtOhneWerte(id, gruppe);
    Ausfuehren(
        "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Trophiewert_N, "
        "Trophiegewicht_N, Algenart, Lebensform) VALUES(" +
        Z(id) + ", " + Z(w.SI) + ", " + Z(w.Sap_GBer) + ", " + Z(w.Trophiewert) + ", " + Z(w.Trophiegewicht) +
        ", " + Z(w.Trophiewert_N) + ", " + Z(w.Trophiegewicht_N) + ", '" + w.Algenart + "', " +
        Z(w.Lebensform) + ");");
}

void Testdatenbank::Stelle(std::int32_t ps, std::int32_t tr) {
    Ausfuehren("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES(" + Z(ps) + ", " + Z(tr) + ", 'Stelle " +
               Z(ps) + "');");
}

void Testdatenbank::Fund(std::int32_t ps, std::int32_t art, const Fundwerte& w) {
    Ausfuehren("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF, DG_MA, Schalen_KA, SD_MA) VALUES(" + Z(ps) +
               ", " + Z(art) + ", " + Z(w.CF) + ", " + Z(w.DG_MA) + ", " + Z(w.Schalen_KA) + ", " +
               Z(w.SD_MA) + ");");
}

void Testdatenbank::Bestand(std::int32_t mi, std::int32_t tr, double deckung, double schicht,
                            double deckung_WRRL) {
    Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL, SD_MI) VALUES(" +
               Z(mi) + ", " + Z(tr) + ", 'Belag " + Z(mi) + "', " + Z(deckung) + ", " + Z(deckung_WRRL) +
               ", " + Z(schicht) + ");");
}

void Testdatenbank::Bestandsart(std::int32_t mi, std::int32_t art, double anteil, bool cf) {
    Ausfuehren("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_Art, CF, DG_MI) VALUES(" + Z(mi) + ", " + Z(art) +
               ", " + Z(cf) + ", " + Z(anteil) + ");");
}

void Testdatenbank::SetzeNull(const std::string& tabelle, const std::string& feld,
                              const std::string& bedingung) {
    const auto zeile = Handle()->OpenRecordset("SELECT * FROM " + tabelle + " WHERE " + bedingung + ";");
    ASSERT_FALSE(zeile->Eof()) << tabelle << " has no row with " << bedingung;
    zeile->Edit();
    zeile->Collect(feld, store::Value());
    zeile->Update();
    zeile->Close();
}

store::Value Testdatenbank::Ergebnis(std::int32_t tr, const std::string& spalte, bool KAOnly) const {
    const auto zeile = Handle()->OpenRecordset("SELECT * FROM awaErgProjekt WHERE ID=" + Z(tr) +
                                               " AND KAOnly=" + Z(KAOnly) + ";");
    if (zeile->Eof()) {
        ADD_FAILURE() << "no result row for sub-habitat " << tr;
        return {};
    }
    return (*zeile)[spalte];
}

bool Testdatenbank::HatErgebnis(std::int32_t tr) const {
    return !Handle()->OpenRecordset("SELECT ID FROM awaErgProjekt WHERE ID=" + Z(tr) + ";")->Eof();
}

std::vector<std::int32_t> Testdatenbank::Klassen(std::int32_t tr) const {
    std::vector<std::int32_t> anzahl;
    for (const auto spalte : calc::KlassenSpalten) {
        const auto wert = Ergebnis(tr, std::string(spalte));
        anzahl.push_back(wert.IsNull() ? -1 : wert.I4());
    }
    return anzahl;
}

std::vector<std::string> Testdatenbank::Abzug(const std::string& tabelle) const {
    const auto zeilen = Handle()->OpenRecordset("SELECT * FROM " + tabelle + ";");
    std::vector<std::string> abzug;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        std::string text;
        for (std::size_t feld = 0; feld < zeilen->Fields().size(); ++feld) {
            const auto& wert = (*zeilen)[feld];
            text += zeilen->Fields()[feld].Name + "=" + (wert.IsNull() ? "Null" : wert.Text()) + ";";
        }
        abzug.push_back(std::move(text));
    }
    return abzug;
}

Meldungsfang::Meldungsfang()
    : fang_(std::make_shared<store::RecordingMessages>()), vorher_(store::Thread().Port) {
    store::Thread().Port = fang_;
}

Meldungsfang::~Meldungsfang() { store::Thread().Port = vorher_; }

std::vector<std::string> Meldungsfang::Texte() {
    std::vector<std::string> texte;
    for (const auto& box : Boxen()) {
        EXPECT_EQ(box.Title, "FX_Algen");
        EXPECT_EQ(box.ButtonsShown, store::Buttons::Ok);
        texte.push_back(box.Text);
    }
    return texte;
}

}  // namespace FX_Algen
