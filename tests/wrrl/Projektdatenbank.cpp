#include "wrrl/Projektdatenbank.h"

#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

using store::Value;

std::string Z(std::int32_t zahl) { return store::NumberText(zahl); }

std::string Konstante(const Value& wert) {
    if (wert.IsNull()) return "Null";
    const auto* text = wert.TextOrNull();
    if (text == nullptr) return wert.Text();
    std::string konstante = "'";
    for (const char zeichen : *text) {
        if (zeichen == '\'') konstante += '\'';
        konstante += zeichen;
    }
    return konstante + "'";
}

Value OderNull(const std::optional<std::int32_t>& wert) { return wert ? Value(*wert) : Value(); }

}  // namespace

// ---- any table -----------------------------------------------------------------------------------------

void Projektdatenbank::Zeile(std::string_view tabelle, Felder felder) {
    std::string namen;
    std::string werte;
    for (const auto& [name, wert] : felder) {
        namen.append(namen.empty() ? "" : ", ").append(name);
        werte.append(werte.empty() ? "" : ", ").append(Konstante(wert));
    }
    Ausfuehren("INSERT INTO " + std::string(tabelle) + " (" + namen + ") VALUES(" + werte + ");");
}

void Projektdatenbank::Setze(const std::string& tabelle, const std::string& feld,
                             const std::string& bedingung, const Value& wert) {
    const auto zeile = Handle()->OpenRecordset("SELECT * FROM " + tabelle + " WHERE " + bedingung + ";");
    ASSERT_FALSE(zeile->Eof()) << tabelle << " has no row with " << bedingung;
    zeile->Edit();
    zeile->Collect(feld, wert);
    zeile->Update();
    zeile->Close();
}

Value Projektdatenbank::Eins(const std::string& abfrage) {
    const auto zeilen = Datenbank()->OpenRecordset(abfrage);
    if (zeilen->Eof()) {
        ADD_FAILURE() << "no row: " << abfrage;
        return {};
    }
    return (*zeilen)[std::size_t{0}];
}

std::vector<std::string> Projektdatenbank::Abzug(const std::string& quelle) {
    const auto zeilen = Datenbank()->OpenRecordset(quelle);
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

// ---- project tree --------------------------------------------------------------------------------------

void Projektdatenbank::Projekt(std::int32_t prj) {
    Zeile("Projekt", {{"ID_PRJ", prj}, {"PRJBez", "Mürz " + Z(prj)}});
}

void Projektdatenbank::Abschnitt(std::int32_t ab, std::int32_t prj) {
    Zeile("Abschnitt", {{"ID_AB", ab}, {"ID_PRJ", prj}, {"ABBez", "Abschnitt " + Z(ab)}});
}

void Projektdatenbank::Station(std::int32_t uus, std::int32_t ab, const Standort& ort) {
    Zeile("UnvUStelle", {{"ID_UUS", uus},
                         {"ID_AB", ab},
                         {"USBez", "Mürzsteg " + Z(uus)},
                         {"ID_AL_Bioregion", OderNull(ort.ID_AL_Bioregion)},
                         {"ID_AL_Hoehenstufe", OderNull(ort.ID_AL_Hoehenstufe)},
                         {"RefBioregionen", ort.RefBioregionen}});
}

void Projektdatenbank::Besuch(std::int32_t vus, std::int32_t uus) {
    Zeile("VerUStelle", {{"ID_VUS", vus}, {"ID_UUS", uus}});
}

void Projektdatenbank::Zweig(std::int32_t nummer, const Standort& ort) {
    Projekt(nummer);
    Abschnitt(nummer, nummer);
    Station(nummer, nummer, ort);
    Besuch(nummer, nummer);
}

void Projektdatenbank::TeilraumOhneDeckung(std::int32_t tr, std::int32_t vus) {
    Zeile("Teilraum", {{"ID_TR", tr}, {"ID_VUS", vus}, {"TRBez", "Blöcke " + Z(tr)}, {"Anzeige", true}});
}

void Projektdatenbank::Teilraum(std::int32_t tr, std::int32_t vus, const Deckungen& deckungen) {
    TeilraumOhneDeckung(tr, vus);
    Zeile("awaTeilraum", {{"ID_TR", tr},
                          {"DG_Gesamt", deckungen.DG_Gesamt},
                          {"DG_MA", deckungen.DG_MA},
                          {"DG_Gesamt_WRRL", deckungen.DG_Gesamt_WRRL},
                          {"DG_MA_WRRL", deckungen.DG_MA_WRRL}});
}

void Projektdatenbank::Anzeige(std::int32_t tr, bool anzeige) {
    Ausfuehren("UPDATE Teilraum SET Anzeige=" + std::string(anzeige ? "True" : "False") +
               " WHERE ID_TR=" + Z(tr) + ";");
}

// ---- catalogue -----------------------------------------------------------------------------------------

void Projektdatenbank::Grossgruppe(std::int32_t id, const Value& RF_Kieselalge) {
    Ausfuehren("DELETE * FROM awaGrossGr WHERE ID_GRGR=" + Z(id) + ";");
    Zeile("awaGrossGr",
          {{"ID_GRGR", id}, {"Grossgruppe", "GRÜNE " + Z(id)}, {"RF_Kieselalge", RF_Kieselalge}});
}

void Projektdatenbank::Familie(std::int32_t gruppe) {
    const auto vorhanden =
        Handle()->OpenRecordset("SELECT ID_FAM FROM awaFamilie WHERE ID_FAM=" + Z(gruppe) + ";");
    if (!vorhanden->Eof()) return;
    Zeile("awaFamilie", {{"ID_FAM", gruppe}, {"Familie", "Familie " + Z(gruppe)}, {"ID_GRGR", gruppe}});
    Zeile("awaUnterFam",
          {{"ID_UFAM", gruppe}, {"ID_FAM", gruppe}, {"Unterfamilie", "Unterfamilie " + Z(gruppe)}});
}

void Projektdatenbank::ArtOhneWerte(std::int32_t id, const Taxon& taxon) {
    Familie(taxon.ID_GRGR);
    Zeile("awaArt", {{"ID_ART", id},
                     {"ID_UFAM", taxon.ID_GRGR},
                     {"Gattung", "Gattung" + Z(id)},
                     {"Art", "grün" + Z(id)},
                     {"IstArtniveau", taxon.IstArtniveau}});
}

void Projektdatenbank::Art(std::int32_t id, const Taxon& taxon) {
    ArtOhneWerte(id, taxon);
    Zeile("awaModulStandard", {{"ID_ART", id},
                               {"SI", taxon.SI},
                               {"Sap_GBer", taxon.Sap_GBer},
                               {"Trophiewert", taxon.Trophiewert},
                               {"Trophiegewicht", taxon.Trophiegewicht},
                               {"Trophiewert_N", taxon.Trophiewert_N},
                               {"Trophiegewicht_N", taxon.Trophiegewicht_N},
                               {"Algenart", taxon.Algenart},
                               {"Lebensform", taxon.Lebensform}});
}

// ---- samples -------------------------------------------------------------------------------------------

void Projektdatenbank::Stelle(std::int32_t ps, std::int32_t tr) {
    Zeile("awaPrStelle", {{"ID_PS", ps}, {"ID_TR", tr}, {"PSBez", "Böschung " + Z(ps)}});
}

void Projektdatenbank::Fund(std::int32_t ps, std::int32_t art, const Fundwerte& werte) {
    Zeile("awaArtPrStelle", {{"ID_PS", ps},
                             {"ID_Art", art},
                             {"CF", werte.CF},
                             {"MAalsMI", werte.MAalsMI},
                             {"DG_MA", werte.DG_MA},
                             {"SD_MA", werte.SD_MA},
                             {"Schalen_KA", werte.Schalen_KA}});
}

void Projektdatenbank::Bestand(std::int32_t mi, std::int32_t tr, double deckung, double deckung_WRRL) {
    Zeile("awaTeilraum_MI", {{"ID_TR_MI", mi},
                             {"ID_TR", tr},
                             {"MI_Bez", "Überzug " + Z(mi)},
                             {"DG_MI", deckung},
                             {"DG_MI_WRRL", deckung_WRRL}});
}

void Projektdatenbank::Bestandsart(std::int32_t mi, std::int32_t art, double anteil, bool cf) {
    Zeile("awaArtPrStelle_MI", {{"ID_TR_MI", mi}, {"ID_Art", art}, {"CF", cf}, {"DG_MI", anteil}});
}

// ---- stored selections ---------------------------------------------------------------------------------

void Projektdatenbank::Auswahl(std::int32_t id, const std::string& ebene, const Value& RechManSQL,
                               const std::vector<std::int32_t>& mitglieder) {
    Zeile("RechenProjekt", {{"ID_RechMan", id}, {"RechManEbene", ebene}, {"RechManSQL", RechManSQL}});
    std::int32_t folge = 0;
    for (const auto mitglied : mitglieder)
        Zeile("RechenProjektListe", {{"ID_RechMan", id}, {"ID_Ebene", mitglied}, {"EbenenRF", ++folge}});
}

// ---- reference tables ----------------------------------------------------------------------------------

void Projektdatenbank::Bioregion(std::int32_t id, const std::string& kurzzeichen) {
    Zeile("AL_Bioregion", {{"ID_AL_Bioregion", id}, {"Kurzzeichen", kurzzeichen}});
}

void Projektdatenbank::Hoehenstufe(std::int32_t id, std::int16_t stufe) {
    Zeile("AL_Hoehenstufe", {{"ID_AL_Hoehenstufe", id}, {"Hoehenstufe", stufe}});
}

void Projektdatenbank::TGZK(std::int32_t bioregion, std::int16_t stufe, const std::string& klasse) {
    Zeile("awaWRRL_TGZK", {{"ID_AL_Bioregion", bioregion}, {"Hoehenstufe", stufe}, {"TGZK", klasse}});
}

void Projektdatenbank::SGZK(std::int32_t bioregion, std::int16_t stufe, std::int16_t klasse) {
    Zeile("awaWRRL_SGZK", {{"ID_AL_Bioregion", bioregion}, {"Hoehenstufe", stufe}, {"Gueteklasse", klasse}});
}

void Projektdatenbank::Bioregionstyp(std::int32_t bioregion, std::int16_t stufe, const std::string& typ) {
    Zeile("awaWRRL_RBioregionstyp",
          {{"ID_AL_Bioregion", bioregion}, {"Hoehenstufe", stufe}, {"Bioregionstyp", typ}});
}

void Projektdatenbank::ETI(const std::string& gruppe, const std::string& tgzk, double wert) {
    Zeile("awaWRRL_ETI", {{"Taxagruppe", gruppe}, {"TGZK", tgzk}, {"ErwarteterWert", wert}});
}

void Projektdatenbank::ESI(const std::string& gruppe, std::int16_t klasse, double wert) {
    Zeile("awaWRRL_ESI", {{"Taxagruppe", gruppe}, {"Gueteklasse", klasse}, {"ErwarteterWert", wert}});
}

void Projektdatenbank::ERI(const std::string& gruppe, const std::string& typ, double wert) {
    Zeile("awaWRRL_ERI", {{"Taxagruppe", gruppe}, {"Bioregionstyp", typ}, {"ErwarteterWert", wert}});
}

void Projektdatenbank::TIOEZK(const std::string& gruppe, const std::string& tgzk, double von, double bis,
                              std::int16_t oezk) {
    Zeile("awaWRRL_TIOEZK",
          {{"Taxagruppe", gruppe}, {"TGZK", tgzk}, {"EQRMin", von}, {"EQRMax", bis}, {"OEZK", oezk}});
}

void Projektdatenbank::SIOEZK(const std::string& gruppe, std::int16_t klasse, double von, double bis,
                              std::int16_t oezk) {
    Zeile(
        "awaWRRL_SIOEZK",
        {{"Taxagruppe", gruppe}, {"Gueteklasse", klasse}, {"EQRMin", von}, {"EQRMax", bis}, {"OEZK", oezk}});
}

void Projektdatenbank::RIOEZK(const std::string& gruppe, const std::string& typ, double von, double bis,
                              std::int16_t oezk) {
    Zeile("awaWRRL_RIOEZK",
          {{"Taxagruppe", gruppe}, {"Bioregionstyp", typ}, {"EQRMin", von}, {"EQRMax", bis}, {"OEZK", oezk}});
}

void Projektdatenbank::Klasse(std::int16_t zahl, const std::string& name) {
    Ausfuehren("DELETE * FROM awaWRRL_Klasse WHERE Klassenzahl=" + Z(zahl) + ";");
    Zeile("awaWRRL_Klasse", {{"Klassenzahl", zahl}, {"Bezeichnung", name}});
}

void Projektdatenbank::RefArtTypA(std::int32_t art) { Zeile("awaRefArt_TypA", {{"ID_Art", art}}); }

void Projektdatenbank::RefArtTypB(std::int32_t art, std::int32_t bioregion,
                                  std::optional<std::int32_t> hoehenstufe) {
    Zeile("awaRefArt_TypB",
          {{"ID_Art", art}, {"ID_AL_Bioregion", bioregion}, {"ID_AL_Hoehenstufe", OderNull(hoehenstufe)}});
}

// ---- a person ------------------------------------------------------------------------------------------

class Gegenueber::Port : public store::RecordingMessages {
public:
    void ProgressShow(std::int32_t fenster, float left, float top, float width, float height) override {
        std::string text = "show " + Z(fenster);
        for (const float wert : {left, top, width, height}) text += " " + store::NumberText(wert);
        Balken.push_back(std::move(text));
    }
    void ProgressDraw(std::int16_t prozent, std::string_view text) override {
        Balken.push_back("draw " + std::to_string(prozent) + std::string(text.empty() ? "" : " ") +
                         std::string(text));
    }
    void ProgressHide(std::int32_t fenster) override { Balken.push_back("hide " + Z(fenster)); }

    std::vector<std::string> Balken;
};

Gegenueber::Gegenueber() : port_(std::make_shared<Port>()), vorher_(store::Thread().Port) {
    store::Thread().Port = port_;
}

Gegenueber::~Gegenueber() { store::Thread().Port = vorher_; }

std::vector<std::string> Gegenueber::Texte() {
    std::vector<std::string> texte;
    for (const auto& box : port_->TakeShown()) {
        EXPECT_EQ(box.Title, "FX_Algen");
        EXPECT_EQ(box.ButtonsShown, store::Buttons::Ok);
        texte.push_back(box.Text);
    }
    return texte;
}

std::vector<std::string> Gegenueber::Balken() { return std::exchange(port_->Balken, {}); }

}  // namespace FX_Algen
