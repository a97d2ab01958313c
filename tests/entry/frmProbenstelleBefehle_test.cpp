#include "FX_Algen/Error.h"
#include "FX_Algen/Import.h"
#include "entry/Algenbogen.h"
#include "entry/frmArtAuswahl.h"

namespace FX_Algen::entry {
namespace {

using store::Answer;
using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetCommands : public Algenbogen {
protected:
    std::shared_ptr<frmArtAuswahl> Auswahl() { return controls::OpenForms().Find<frmArtAuswahl>(); }
};

TEST_F(AlgaeSheetCommands, OpenThePickerForANewTaxonAfterTheRowWasSaved) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "4"));
    EXPECT_TRUE(Person().Click(bogen->cmdArtNeu));
    EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("4"));
    ASSERT_TRUE(Auswahl());
    EXPECT_EQ(Auswahl()->Caption(), "Artauswahl - Neu");
    EXPECT_EQ(Auswahl()->txtAuswahlstatus.Text(), "Neu");
    EXPECT_EQ(Auswahl()->Parent(), bogen.get());
}

TEST_F(AlgaeSheetCommands, OpenThePickerToChangeATaxonButNotASum) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Taxa().Rows() - 2, DG_MA));
    EXPECT_TRUE(Person().Click(bogen->cmdArtAendern));
    EXPECT_FALSE(Auswahl());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    EXPECT_TRUE(Person().Click(bogen->cmdArtAendern));
    ASSERT_TRUE(Auswahl());
    EXPECT_EQ(Auswahl()->Caption(), "Artauswahl - Ändern");
    EXPECT_EQ(Auswahl()->txtAuswahlstatus.Text(), "Aendern");
}

TEST_F(AlgaeSheetCommands, ShowANewTaxonWithTheCursorInIt) {
    Teilraum();
    Bestaende();
    VierArten();
    Art(7, {"Cymbella", "öd", 128});
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdArtNeu));
    const auto auswahl = Auswahl();
    ASSERT_TRUE(auswahl);
    auswahl->cboGattung.Text("Cymbella");
    auswahl->Init_cboArt();
    EXPECT_TRUE(controls::Input(*auswahl).Enter(auswahl->cboArt));
    EXPECT_TRUE(controls::Input(*auswahl).Click(auswahl->cmdArtAuswahl0));
    EXPECT_FALSE(Auswahl());
    ASSERT_GT(Zeile(7), 0);
    EXPECT_EQ(Taxa().Row(), Zeile(7));
    EXPECT_EQ(Taxa().Col(), Schalen);
    EXPECT_EQ(bogen->Focus(), &Taxa());
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "5 Taxa (Zeilen)");
    // The number can be typed at once.
    EXPECT_TRUE(Person().Type(Taxa(), "37"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Zeilen("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_Art=7"), ElementsAre("37"));
}

// ---- delete --------------------------------------------------------------------------------------------

TEST_F(AlgaeSheetCommands, DeleteATaxonWithItsSharesOfItsCfAlone) {
    Teilraum();
    Bestaende();
    VierArten();
    Fund(2, "", true);
    Anteil(31, 2, "60");
    Anteil(32, 2, "40");
    Anteil(31, 2, "5", true);
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (41, 18, 'Fremder');");
    Anteil(41, 2, "99");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(2), MI1));
    Antworten({Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Boxen(), ElementsAre("Algen - Probenstelle|Art Chamaesiphon polönicus wirklich löschen?"));
    EXPECT_THAT(Zeilen("SELECT ID_Art, CF FROM awaArtPrStelle WHERE ID_Art=2"), ElementsAre("2|-1"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|-1|5", "41|2|0|99"));
    EXPECT_EQ(Zeile(2), -1);
    EXPECT_GT(Zeile(2, true), 0);
    Antworten({Answer::Yes});
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(2, true), MI1));
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Zeilen("SELECT ID_Art FROM awaArtPrStelle WHERE ID_Art=2"), IsEmpty());
    EXPECT_THAT(Anteile(), ElementsAre("41|2|0|99"));
}

TEST_F(AlgaeSheetCommands, DeleteNothingOnNoNorWithoutATaxon) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen(true, true, 20000));
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), MI1));
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Boxen(), ElementsAre("Algae - sampling site|Art Cladophora glomerata wirklich löschen?"));
    EXPECT_EQ(Funde().size(), 4U);
    for (int summe = Taxa().Rows() - 2; summe < Taxa().Rows(); ++summe) {
        EXPECT_TRUE(Person().SelectCell(Taxa(), summe, DG_MA));
        EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    }
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Funde().size(), 4U);
}

TEST_F(AlgaeSheetCommands, DeleteByTheCfThatWasSavedJustNow) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "60");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().CheckCell(Taxa(), Zeile(2), CF, true));
    Antworten({Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Zeilen("SELECT ID_Art FROM awaArtPrStelle WHERE ID_Art=2"), IsEmpty());
    EXPECT_THAT(Anteile(), IsEmpty());
}

TEST_F(AlgaeSheetCommands, DeleteTheTaxonOfTheCursorWhereSavingMovesTheRows) {
    Teilraum();
    Bestaende();
    Art(1, {"Nostoc", "sp."});
    Art(2, {"Nostoc", "sp."});
    Fund(1);
    Fund(2);
    ASSERT_TRUE(Oeffnen());
    // A stand that was renamed has both lists read anew once it is saved. Of two taxa of one name the cf. row
    // comes first: the lower one moves up.
    EXPECT_TRUE(Person().EditCell(Stand(), 2, BezCol, "Häutchen"));
    EXPECT_TRUE(Person().EditCell(Stand(), 2, BezCol, "Äußeres Häutchen"));
    bogen->SetFocus(Taxa());
    const std::string untere = Taxa().Text(4, 1);
    Taxa().Select(4, CF);
    ASSERT_TRUE(Taxa().Toggle(4, CF));
    Antworten({Answer::Yes});
    bogen->cmdArtLoeschen_Click();
    EXPECT_EQ(Taxa().Text(0, MI2), "Äußeres Häutchen");
    EXPECT_THAT(Zeilen("SELECT ID_Art FROM awaArtPrStelle"), ElementsAre(untere == "1" ? "2" : "1"));
}

TEST_F(AlgaeSheetCommands, NameTheTaxonInTheQuestionWhateverItsName) {
    Teilraum();
    Art(1, {"Nost~c|", "a|b~ö"});
    Fund(1);
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Boxen(), ElementsAre("Algen - Probenstelle|Art Nost~c| a|b~ö wirklich löschen?"));
}

TEST_F(AlgaeSheetCommands, DeleteNoSharesWhereTheTaxonCannotBeDeleted) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "60");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(2), MI1));
    auto tabellen = datei.Datenbank()->TableDefs();
    tabellen.Delete("awaArtPrStelle");
    Antworten({Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 2U);
    EXPECT_TRUE(boxen[1].starts_with("Algen - Probenstelle|3078 - ")) << boxen[1];
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|60"));
    EXPECT_EQ(Text(Zeile(2), MI1, MI1), "60");
    EXPECT_TRUE(bogen->IsOpen());
}

TEST_F(AlgaeSheetCommands, DeleteTheSharesBeforeTheTaxon) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    auto tabellen = datei.Datenbank()->TableDefs();
    tabellen.Delete("awaArtPrStelle");
    tabellen.Delete("awaArtPrStelle_MI");
    Antworten({Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdArtLoeschen));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 2U);
    // The first statement is the one that fails.
    EXPECT_THAT(boxen[1], testing::HasSubstr("DELETE DISTINCTROW awaArtPrStelle_MI.* "));
}

TEST_F(AlgaeSheetCommands, CloseThePickerWithTheSheet) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdArtNeu));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "4"));
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_THAT(controls::OpenForms().All(), IsEmpty());
    EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("4"));
}

// ---- import --------------------------------------------------------------------------------------------

/// Records what the sheet sets, in order, and does on the start what a test gives.
class Bauteil : public ImportComponent {
public:
    struct Protokoll {
        std::vector<std::string> Rufe;
        store::DatabasePtr Datenbank;
        ReturnField* Feld = nullptr;
        std::function<void(ReturnField&)> BeimStart;
    };
    explicit Bauteil(Protokoll& protokoll) : protokoll_(protokoll) {}
    void DBName(const std::string& path) override { Merken("DBName " + path); }
    void KatalogTitel(const std::string& titel) override { Merken("KatalogTitel " + titel); }
    void Versionswort(const std::string& wort) override {
        Merken("Versionswort" + std::string(wort.empty() ? " leer" : ""));
    }
    void MitKatalog(bool ja) override { Merken(ja ? "MitKatalog ja" : "MitKatalog nein"); }
    void Eigner(const std::string& text) override { Merken("Eigner " + text); }
    void Sprache(std::int16_t base) override { Merken("Sprache " + std::to_string(base)); }
    void ID_PS(std::int32_t id) override { Merken("ID_PS " + std::to_string(id)); }
    void Benutzer(const std::string& name) override { Merken("Benutzer " + name); }
    void CurrentDB(const store::DatabasePtr& db) override {
        Merken("CurrentDB");
        protokoll_.Datenbank = db;
    }
    void Bereich(const std::string& wort) override { Merken("Bereich " + wort); }
    void Spalten(const std::string& beschreibung) override { Merken("Spalten " + beschreibung); }
    void Rueckgabe(ReturnField& txtReturn) override {
        Merken("Rueckgabe");
        protokoll_.Feld = &txtReturn;
    }
    void Start() override {
        Merken("Start");
        if (protokoll_.BeimStart) protokoll_.BeimStart(*protokoll_.Feld);
    }

private:
    void Merken(std::string ruf) { protokoll_.Rufe.push_back(std::move(ruf)); }
    Protokoll& protokoll_;
};

class AlgaeSheetImport : public AlgaeSheetCommands {
protected:
    AlgaeSheetImport() {
        SetImport(
            [this]() -> std::unique_ptr<ImportComponent> { return std::make_unique<Bauteil>(protokoll); });
    }
    ~AlgaeSheetImport() override { SetImport(nullptr); }
    Bauteil::Protokoll protokoll;
};

TEST_F(AlgaeSheetImport, IsOfferedOnlyWhereTheComponentCouldBeMade) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(bogen->cmdXLSImport.Visible());
    EXPECT_TRUE(bogen->Close());
    SetImport([]() -> std::unique_ptr<ImportComponent> { throw std::runtime_error("ungültig"); });
    ASSERT_TRUE(Oeffnen());
    EXPECT_FALSE(bogen->cmdXLSImport.Visible());
    EXPECT_TRUE(bogen->Close());
    SetImport(nullptr);
    ASSERT_TRUE(Oeffnen());
    EXPECT_FALSE(bogen->cmdXLSImport.Visible());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetImport, IsSetUpInOrderAndStarted) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "4"));
    protokoll.BeimStart = [this](ReturnField&) {
        // What was typed is in the store before the component looks.
        EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("4"));
    };
    EXPECT_TRUE(Person().Click(bogen->cmdXLSImport));
    EXPECT_THAT(
        protokoll.Rufe,
        ElementsAre(
            "DBName " + datei.Pfad(), "KatalogTitel Taxaliste Österreich", "Versionswort", "MitKatalog ja",
            "Eigner FX_Algen", "Sprache 10000", "ID_PS 5", "Benutzer Jürgen", "CurrentDB", "Bereich Algen",
            "Spalten Makroalgen DG [%];1;SD [mm];MA;0;Überzug;0;-;MI;31;Häutchen;0;-;MI;32;Kieselalgen "
            "Schalenanzahl;0;-;KA;0;Makrophyten DG [%];-;0;-;MP;0",
            "Rueckgabe", "Start"));
    EXPECT_EQ(protokoll.Datenbank, datei.Datenbank());
}

TEST_F(AlgaeSheetImport, DescribesNoMacrophytesInTheOtherModeAndKeepsNamesInOnePart) {
    Teilraum();
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (31, 17, 'Ö;l');");
    ASSERT_TRUE(Oeffnen(false, true, 20000));
    EXPECT_TRUE(Person().Click(bogen->cmdXLSImport));
    ASSERT_EQ(protokoll.Rufe.size(), 13U);
    EXPECT_EQ(protokoll.Rufe[10],
              "Spalten Macroalgae DG [%];1;SD [mm];MA;0;Ö,l;0;-;MI;31;Diatoms Number of valves;0;-;KA;0");
}

TEST_F(AlgaeSheetImport, HasTheSheetReadItsDataAnewWithAOne) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    const auto schreiben = [this](const std::string& wert, const std::string& text) {
        protokoll.BeimStart = [this, wert, text](ReturnField& feld) {
            datei.Datenbank()->Execute("UPDATE awaArtPrStelle SET Schalen_KA=" + wert + " WHERE ID_Art=3;");
            feld.Text(text);
        };
        EXPECT_TRUE(Person().Click(bogen->cmdXLSImport));
        return Taxa().Text(Zeile(3), 10);
    };
    EXPECT_EQ(schreiben("12", "0"), "");
    EXPECT_EQ(schreiben("13", "1"), "13");
    // And once more, though the field holds "1" already.
    EXPECT_EQ(schreiben("14", "1"), "14");
}

TEST_F(AlgaeSheetImport, ShowsWhatFailsWhileItReadsAnew) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    protokoll.BeimStart = [this](ReturnField& feld) {
        auto tabellen = datei.Datenbank()->TableDefs();
        tabellen.Delete("awaPrStelle");
        feld.Text("1");
    };
    EXPECT_TRUE(Person().Click(bogen->cmdXLSImport));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3078 - ")) << boxen[0];
    EXPECT_TRUE(bogen->IsOpen());
}

}  // namespace
}  // namespace FX_Algen::entry
