#include "entry/frmProbenstelleSeston.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "controls/Fenster.h"
#include "controls/Input.h"
#include "controls/OpenForms.h"
#include "entry/frmArtAuswahl.h"
#include "support/Testdatei.h"

namespace FX_Algen::entry {
namespace {

using controls::Input;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr int ID_Art = 1;
constexpr int Gattung = 2;
constexpr int Art = 3;
constexpr int CF = 4;
constexpr int Abundanz = 5;
constexpr int Zusatz = 6;

/// Sub-habitat 9 and a small catalogue of seston; taxon 13 is deleted.
class Sestonbogen : public testing::Test {
protected:
    Sestonbogen() : datei("seston") {
        datei.Ausfuehren("INSERT INTO Teilraum (ID_TR, TRBez) VALUES (9, 'Gießbach');");
        for (const auto* zeile : {"11, 'Brachionus', 'calyciflorus', 0", "12, 'Keratella', 'cochlearis', 0",
                                  "13, 'Asplanchna', 'priodonta', -1", "14, 'Keratella', 'quadrata', 0"})
            datei.Ausfuehren(std::string("INSERT INTO sesArt (ID_ART, Gattung, Art, Loeschstatus) VALUES (") +
                             zeile + ");");
    }
    ~Sestonbogen() override {
        while (!controls::OpenForms().All().empty())
            controls::OpenForms().All().back()->Close(controls::Ending::Discard);
        SetDisplay(vorher);
    }

    void Stelle() {
        datei.Ausfuehren("INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 9, 'Überlauf');");
    }
    /// `werte` are ID_ART, CF, Abundanz, Zusatz.
    void Fund(const std::string& werte) {
        datei.Ausfuehren("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz, Zusatz) VALUES (5, " +
                         werte + ");");
    }
    /// The sheet with its settings, before its data.
    frmProbenstelleSeston& Geladen(std::int16_t Sprache = 10000) {
        bogen = controls::OpenForms().Load<frmProbenstelleSeston>();
        bogen->CurrentDB(datei.Datenbank());
        bogen->Sprache(Sprache);
        bogen->TeilraumID(9);
        Allgemein::SetControlCaptions(*bogen, Sprache);
        return *bogen;
    }
    frmProbenstelleSeston& Offen(std::int16_t Sprache = 10000) {
        auto& neu = Geladen(Sprache);
        EXPECT_TRUE(neu.DataObject_Init());
        neu.Show();
        return neu;
    }
    /// The findings of the site as stored.
    std::vector<std::string> Funde() {
        std::vector<std::string> funde;
        const auto satz = datei.Datenbank()->OpenRecordset(
            "SELECT ID_ART, CF, Abundanz, Zusatz FROM sesArtPrStelle WHERE ID_PS=5 ORDER BY ID_ART, CF;");
        const auto text = [&](const char* feld) {
            return (*satz)[feld].IsNull() ? std::string("Null") : (*satz)[feld].Text();
        };
        for (; !satz->Eof(); satz->MoveNext())
            funde.push_back(text("ID_ART") + ((*satz)["CF"].Bool() ? "cf " : " ") + text("Abundanz") + " " +
                            text("Zusatz"));
        return funde;
    }
    std::vector<std::string> Boxen() {
        std::vector<std::string> boxen;
        for (const auto& box : display->Messages().TakeShown()) boxen.push_back(box.Title + ": " + box.Text);
        return boxen;
    }
    void Antworten(std::vector<store::Answer> antworten) { display->Messages().SetAnswers(antworten); }
    static std::shared_ptr<frmArtAuswahl> Picker() { return controls::OpenForms().Find<frmArtAuswahl>(); }

    Testdatei datei;
    std::shared_ptr<controls::RecordingDisplay> display = std::make_shared<controls::RecordingDisplay>();
    std::shared_ptr<store::Messages> vorher = SetDisplay(display);
    std::shared_ptr<frmProbenstelleSeston> bogen;
};

const std::string Titel = "Seston - Probenstelle: ";

// ---- opening -------------------------------------------------------------------------------------------

TEST_F(Sestonbogen, WithoutASiteAsksAndOnNoWritesNothing) {
    auto& neu = Geladen();
    Antworten({store::Answer::No});
    EXPECT_FALSE(neu.DataObject_Init());
    EXPECT_THAT(Boxen(),
                ElementsAre(Titel + "Seston-Probenstelle ist noch nicht vorhanden. \nWollen Sie jetzt "
                                    "die Probenstelle anlegen?"));
    EXPECT_TRUE(datei.Datenbank()->OpenRecordset("SELECT * FROM sesPrStelle;")->Eof());
}

TEST_F(Sestonbogen, OnYesMakesASiteWithTheNameOfANewOne) {
    auto& neu = Geladen();
    Antworten({store::Answer::Yes});
    EXPECT_TRUE(neu.DataObject_Init());
    EXPECT_EQ(neu.txtPSBez.Text(), "<NEU>");
    EXPECT_EQ(neu.vsfgAlgenArt.Rows(), 1);
    EXPECT_EQ(neu.lblTaxazahl.Caption(), "0 Taxa (Zeilen)");
    EXPECT_EQ((*datei.Datenbank()->OpenRecordset("SELECT ID_TR FROM sesPrStelle;"))["ID_TR"].I4(), 9);
    // It is there now.
    Boxen();
    EXPECT_TRUE(neu.DataObject_Init());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Sestonbogen, AsksAgainForASubHabitatThatIsNotStoredAndKeepsItsOneSite) {
    auto& neu = Geladen();
    neu.TeilraumID(77);
    for (int i = 0; i < 2; ++i) {
        Antworten({store::Answer::Yes});
        EXPECT_TRUE(neu.DataObject_Init());
        EXPECT_EQ(Boxen().size(), 1U);
        EXPECT_EQ(neu.txtPSBez.Text(), "<NEU>");
        EXPECT_EQ(neu.txtTRBez.Text(), "");
    }
    EXPECT_EQ(
        (*datei.Datenbank()->OpenRecordset("SELECT Count(*) AS N FROM sesPrStelle WHERE ID_TR=77;"))["N"]
            .I4(),
        1);
}

TEST_F(Sestonbogen, WithoutADatabaseFailsAsAllOperationsDo) {
    auto& neu = Geladen();
    neu.CurrentDB(nullptr);
    try {
        neu.DataObject_Init();
        FAIL();
    } catch (const Error& fehler) {
        EXPECT_EQ(fehler.Number(), ErrorNumber::NotADatabase);
    }
}

TEST_F(Sestonbogen, ShowsSiteAndSubHabitatAndTheKeyInDebugModeOnly) {
    Stelle();
    auto& offen = Offen();
    EXPECT_EQ(offen.txtPSBez.Text(), "Überlauf");
    EXPECT_EQ(offen.txtTRBez.Text(), "Gießbach");
    EXPECT_EQ(offen.txtID_PS.Text(), "5");
    EXPECT_FALSE(offen.txtID_PS.IsShown());
    EXPECT_EQ(offen.Caption(), "Seston - Probenstelle");
    offen.DebugModus(true);
    EXPECT_TRUE(offen.txtID_PS.IsShown());
}

// ---- list ----------------------------------------------------------------------------------------------

TEST_F(Sestonbogen, ListsTaxaByNameThePlainRowBeforeItsTwinAndDeletedTaxaToo) {
    Stelle();
    Fund("12, -1, 2, 'jung'");
    Fund("12, 0, 5, Null");
    Fund("13, 0, 0, ''");
    Fund("11, 0, Null, 'Größe < 5 µm'");
    const auto& liste = Offen().vsfgAlgenArt;
    std::vector<std::string> zeilen;
    for (int zeile = 1; zeile < liste.Rows(); ++zeile)
        zeilen.push_back(liste.Text(zeile, ID_Art) + "|" + liste.Text(zeile, Gattung) + "|" +
                         liste.Text(zeile, Art) + "|" + (liste.Checked(zeile, CF) ? "cf" : "") + "|" +
                         liste.Text(zeile, Abundanz) + "|" + liste.Text(zeile, Zusatz));
    EXPECT_THAT(zeilen, ElementsAre("13|Asplanchna|priodonta|||", "11|Brachionus|calyciflorus|||Größe < 5 µm",
                                    "12|Keratella|cochlearis||5|", "12|Keratella|cochlearis|cf|2|jung"));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "4 Taxa (Zeilen)");
    EXPECT_EQ(liste.Row(), 1);
    EXPECT_EQ(liste.Col(), Abundanz);
}

TEST_F(Sestonbogen, CountsOneTaxonAsOne) {
    Stelle();
    Fund("12, 0, 1, Null");
    EXPECT_EQ(Offen().lblTaxazahl.Caption(), "1 Taxon (Zeile)");
}

TEST_F(Sestonbogen, HeadsItsColumnsInTheLanguageAndHidesKeys) {
    Stelle();
    const auto& liste = Offen(20000).vsfgAlgenArt;
    EXPECT_EQ(liste.Text(0, Abundanz), "Abundance");
    EXPECT_EQ(liste.Text(0, Zusatz), "Addition");
    EXPECT_TRUE(liste.ColHidden(ID_Art));
    EXPECT_TRUE(liste.ColHidden(7));
    EXPECT_EQ(liste.Cols(), 8);
}

TEST_F(Sestonbogen, ANegativeAbundanceOfOldDataDoesNotHideAndStaysWhenTheRowIsSaved) {
    Stelle();
    Fund("12, 0, -3, Null");
    auto& offen = Offen();
    EXPECT_EQ(offen.vsfgAlgenArt.Text(1, Abundanz), "-3");
    Input person(offen);
    ASSERT_TRUE(person.EditCell(offen.vsfgAlgenArt, 1, Zusatz, "prüfen"));
    ASSERT_TRUE(offen.SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12 -3 prüfen"));
}

TEST_F(Sestonbogen, AFindingWhoseTaxonTheCatalogueLacksIsToldOnceAndStays) {
    Stelle();
    Fund("12, 0, 1, Null");
    Fund("99, 0, 3, 'fremd'");
    auto& offen = Offen();
    EXPECT_THAT(
        Boxen(),
        ElementsAre(Titel +
                    "1 Funde dieser Probenstelle stehen nicht in der Liste, weil ihr Taxon im Katalog "
                    "fehlt. Sie bleiben gespeichert."));
    EXPECT_EQ(offen.lblTaxazahl.Caption(), "1 Taxon (Zeile)");
    EXPECT_EQ(offen.vsfgAlgenArt.Rows(), 2);
    offen.GridAlgenArt_Init();
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Funde(), ElementsAre("12 1 Null", "99 3 fremd"));
    // The site is opened anew: told again.
    EXPECT_TRUE(offen.DataObject_Init());
    EXPECT_EQ(Boxen().size(), 1U);
}

TEST_F(Sestonbogen, AFailureWhileTheListFillsIsShownAndTheSheetStays) {
    Stelle();
    auto& offen = Offen();
    datei.Datenbank()->TableDefs().Delete("sesArt");
    offen.GridAlgenArt_Init();
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith(Titel + "3078 - "));
    EXPECT_TRUE(offen.IsOpen());
}

// ---- edits ---------------------------------------------------------------------------------------------

class Sestoneingabe : public Sestonbogen {
protected:
    Sestoneingabe() {
        Stelle();
        Fund("12, 0, 5, 'alt'");
        Fund("14, 0, 1, Null");
        Offen();
    }
    controls::Grid& Liste() { return bogen->vsfgAlgenArt; }
};

TEST_F(Sestoneingabe, OpensTheCellsOfCfAbundanceAndRemarkOnly) {
    Input person(*bogen);
    for (const int spalte : {Gattung, Art}) {
        EXPECT_FALSE(person.EditCell(Liste(), 1, spalte, "x")) << spalte;
    }
    EXPECT_FALSE(person.EditCell(Liste(), 0, Abundanz, "1"));
    EXPECT_TRUE(person.EditCell(Liste(), 1, Abundanz, "3"));
    EXPECT_TRUE(person.EditCell(Liste(), 1, Zusatz, "x"));
    EXPECT_TRUE(person.CheckCell(Liste(), 1, CF, true));
}

TEST_F(Sestoneingabe, SavesARowWhenItIsLeft) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "7"));
    ASSERT_TRUE(person.EditCell(Liste(), 1, Zusatz, "häufig"));
    EXPECT_THAT(Funde(), ElementsAre("12 5 alt", "14 1 Null"));
    ASSERT_TRUE(person.SelectCell(Liste(), 2, Abundanz));
    EXPECT_THAT(Funde(), ElementsAre("12 7 häufig", "14 1 Null"));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Sestoneingabe, ARowThatWasNotChangedIsNotWritten) {
    datei.Datenbank()->Execute("UPDATE sesArtPrStelle SET Abundanz=6 WHERE ID_ART=12;");
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 2, Abundanz));
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    EXPECT_THAT(Funde(), ElementsAre("12 6 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, KeepsApostrophesOfARemark) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Zusatz, "Müller's 'Probe'; DROP"));
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12 5 Müller's 'Probe'; DROP", "14 1 Null"));
}

TEST_F(Sestoneingabe, ARowBeingTypedIsSavedBeforeTheListIsBuiltAnewAndStaysWhereItCannotBe) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    ASSERT_TRUE(person.Type(Liste(), "9"));
    bogen->GridAlgenArt_Init();
    EXPECT_THAT(Funde(), ElementsAre("12 9 alt", "14 1 Null"));
    EXPECT_FALSE(Liste().IsEditing());
    ASSERT_TRUE(person.Type(Liste(), "99999999999"));
    bogen->GridAlgenArt_Init();
    EXPECT_EQ(Liste().Text(1, Abundanz), "99999999999");
    EXPECT_EQ(Boxen().size(), 1U);
}

struct Eingabe {
    std::string Getippt, Gespeichert, Gezeigt;
    std::vector<std::string> Boxen;
};

class Abundanzen : public Sestoneingabe, public testing::WithParamInterface<Eingabe> {};

TEST_P(Abundanzen, AreStoredAsTyped) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, GetParam().Getippt));
    EXPECT_EQ(Boxen(), GetParam().Boxen);
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_EQ(Funde().front(), "12 " + GetParam().Gespeichert + " alt");
    EXPECT_EQ(Liste().Text(1, Abundanz), GetParam().Gezeigt);
}

// 2,5 lies between two whole numbers and goes to the even one, as conversions of the store do.
INSTANTIATE_TEST_SUITE_P(
    Worked, Abundanzen,
    testing::Values(Eingabe{"7", "7", "7", {}}, Eingabe{" 3 ", "3", "3", {}}, Eingabe{"4,0", "4", "4", {}},
                    Eingabe{"4.0", "4", "4", {}}, Eingabe{"", "0", "", {}}, Eingabe{"0", "0", "", {}},
                    Eingabe{"2147483647", "2147483647", "2147483647", {}},
                    Eingabe{"viele", "0", "", {Titel + "„viele“ ist keine Zahl. Gespeichert wird 0."}},
                    Eingabe{"2,5", "2", "2", {Titel + "„2,5“ ist keine ganze Zahl. Gespeichert wird 2."}},
                    Eingabe{"3.5", "4", "4", {Titel + "„3.5“ ist keine ganze Zahl. Gespeichert wird 4."}}));

TEST_F(Sestoneingabe, AnAbundanceThatTheColumnCannotHoldKeepsTheRowAndTheText) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "2147483648"));
    EXPECT_FALSE(person.SelectCell(Liste(), 2, Abundanz));
    auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith(Titel + "6 - "));
    EXPECT_EQ(Liste().Row(), 1);
    EXPECT_EQ(Liste().Text(1, Abundanz), "2147483648");
    EXPECT_THAT(Funde(), ElementsAre("12 5 alt", "14 1 Null"));
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "21"));
    ASSERT_TRUE(person.SelectCell(Liste(), 2, Abundanz));
    EXPECT_THAT(Funde(), ElementsAre("12 21 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, ACheckedCfMovesTheRow) {
    Input person(*bogen);
    ASSERT_TRUE(person.CheckCell(Liste(), 1, CF, true));
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12cf 5 alt", "14 1 Null"));
    // And back: the stored flag went along.
    ASSERT_TRUE(person.CheckCell(Liste(), 1, CF, false));
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12 5 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, ACfThatMeetsItsTwinIsRefusedAndStaysInTheRow) {
    datei.Datenbank()->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 12, -1);");
    bogen->GridAlgenArt_Init();
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Zusatz, "später"));
    ASSERT_TRUE(person.CheckCell(Liste(), 1, CF, true));
    EXPECT_FALSE(person.SelectCell(Liste(), 3, Abundanz));
    auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith(Titel + "3022 - "));
    EXPECT_EQ(Liste().Row(), 1);
    EXPECT_EQ(Liste().Text(1, Zusatz), "später");
    EXPECT_THAT(Funde(), ElementsAre("12 5 alt", "12cf 0 Null", "14 1 Null"));
    ASSERT_TRUE(person.CheckCell(Liste(), 1, CF, false));
    ASSERT_TRUE(person.SelectCell(Liste(), 3, Abundanz));
    EXPECT_THAT(Funde(), ElementsAre("12 5 später", "12cf 0 Null", "14 1 Null"));
}

TEST_F(Sestoneingabe, ARowThatIsGoneMeanwhileIsToldAndStaysInView) {
    datei.Datenbank()->Execute("DELETE * FROM sesArtPrStelle WHERE ID_ART=12;");
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "9"));
    EXPECT_FALSE(bogen->SaveRows());
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith(Titel + "3021 - "));
    EXPECT_EQ(Liste().Text(1, Abundanz), "9");
}

TEST_F(Sestoneingabe, TheNameOfTheSiteIsWrittenWhenItsFieldIsLeft) {
    Input person(*bogen);
    ASSERT_TRUE(person.SetText(bogen->txtPSBez, "Straße 'Süd'"));
    ASSERT_TRUE(person.Enter(Liste()));
    EXPECT_EQ((*datei.Datenbank()->OpenRecordset("SELECT PSBez FROM sesPrStelle;"))["PSBez"].Text(),
              "Straße 'Süd'");
}

// ---- keys ----------------------------------------------------------------------------------------------

TEST_F(Sestoneingabe, SpaceFlipsCfAndLeavesTheCursorWhereItIs) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    ASSERT_TRUE(person.Key({"Space"}));
    EXPECT_TRUE(Liste().Checked(1, CF));
    EXPECT_EQ(Liste().Col(), Abundanz);
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12cf 5 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, SpaceFlipsCfFromANumberThatTheArrowsOpened) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Zusatz));
    for (const auto* taste : {"Left", "7", "Space"}) ASSERT_TRUE(person.Key({taste}));
    EXPECT_TRUE(Liste().Checked(1, CF));
    EXPECT_EQ(Liste().Text(1, Abundanz), "7");
    EXPECT_EQ(Liste().Col(), Abundanz);
    EXPECT_TRUE(Liste().IsEditing());
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12cf 7 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, DeleteAsksForTheTaxonFromAnOpenCellUntilSomethingIsTyped) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    for (const auto* taste : {"Tab", "ö", "Delete"}) ASSERT_TRUE(person.Key({taste}));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Liste().EditText(), "ö");
    for (const auto* taste : {"Left", "Delete"}) ASSERT_TRUE(person.Key({taste}));
    EXPECT_THAT(Boxen(), ElementsAre(Titel + "Art Keratella cochlearis wirklich löschen?"));
    EXPECT_THAT(Funde(), ElementsAre("12 5 ö", "14 1 Null"));
}

TEST_F(Sestoneingabe, SpaceInAnOpenRemarkIsABlank) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Zusatz));
    ASSERT_TRUE(person.Type(Liste(), "an"));
    ASSERT_TRUE(person.Key({"Space"}));
    ASSERT_TRUE(person.Type(Liste(), "Holz"));
    ASSERT_TRUE(bogen->SaveRows());
    EXPECT_THAT(Funde(), ElementsAre("12 5 an Holz", "14 1 Null"));
}

TEST_F(Sestoneingabe, TabAndArrowsOpenTheCellTheyComeTo) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    ASSERT_TRUE(person.Key({"Tab"}));
    EXPECT_EQ(Liste().Col(), Zusatz);
    EXPECT_TRUE(Liste().IsEditing());
    ASSERT_TRUE(person.Key({"Down"}));
    EXPECT_EQ(Liste().Row(), 2);
    EXPECT_TRUE(Liste().IsEditing());
    ASSERT_TRUE(person.Key({"Left"}));
    EXPECT_EQ(Liste().Col(), Abundanz);
    EXPECT_TRUE(Liste().IsEditing());
    ASSERT_TRUE(person.Type(Liste(), "8"));
    ASSERT_TRUE(person.Key({"Up"}));
    EXPECT_EQ(Liste().Row(), 1);
    EXPECT_THAT(Funde(), ElementsAre("12 5 alt", "14 8 "));
}

TEST_F(Sestoneingabe, EnterSavesTheRowAndStartsANewTaxon) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    ASSERT_TRUE(person.Type(Liste(), "9"));
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_THAT(Funde(), ElementsAre("12 9 alt", "14 1 Null"));
    ASSERT_NE(Picker(), nullptr);
    EXPECT_EQ(Picker()->txtAuswahlstatus.Text(), "Neu");
}

TEST_F(Sestoneingabe, ShiftEnterSavesTheRowOnly) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "9"));
    ASSERT_TRUE(person.Key({"Enter", true}));
    EXPECT_THAT(Funde(), ElementsAre("12 9 alt", "14 1 Null"));
    EXPECT_EQ(Picker(), nullptr);
}

TEST_F(Sestoneingabe, KeysWithCtrlOrAltAreNoneOfItsOwn) {
    Input person(*bogen);
    ASSERT_TRUE(person.ClickCell(Liste(), 1, Gattung));
    for (const auto* taste : {"Delete", "Enter", "Space"})
        for (const bool strg : {true, false}) {
            person.Key({taste, false, strg, !strg});
            EXPECT_EQ(Picker(), nullptr) << taste;
            EXPECT_FALSE(Liste().Checked(1, CF)) << taste;
        }
    EXPECT_THAT(Boxen(), IsEmpty());
}

// ---- commands ------------------------------------------------------------------------------------------

TEST_F(Sestoneingabe, DeletesTheRowWithItsCfAndAsksBefore) {
    datei.Datenbank()->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 12, -1);");
    bogen->GridAlgenArt_Init();
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 1, Abundanz));
    Antworten({store::Answer::No, store::Answer::Yes});
    ASSERT_TRUE(person.Key({"Delete"}));
    EXPECT_THAT(Boxen(), ElementsAre(Titel + "Art Keratella cochlearis wirklich löschen?"));
    EXPECT_EQ(Funde().size(), 3U);
    ASSERT_TRUE(person.Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Funde(), ElementsAre("12cf 0 Null", "14 1 Null"));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "2 Taxa (Zeilen)");
    EXPECT_EQ(Liste().Row(), 1);
}

TEST_F(Sestoneingabe, AsksBeforeADeletionInTheSameWordsInEveryLanguage) {
    bogen->Sprache(20000);
    ASSERT_TRUE(Input(*bogen).Click(bogen->cmdArtLoeschen));
    const auto boxen = display->Messages().TakeShown();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_EQ(boxen.front().Text, "Art Keratella cochlearis wirklich löschen?");
    EXPECT_EQ(boxen.front().ButtonsShown, store::Buttons::YesNo);
}

TEST_F(Sestoneingabe, ADeletedLastRowLeavesTheCursorInTheOneBefore) {
    Input person(*bogen);
    ASSERT_TRUE(person.SelectCell(Liste(), 2, Abundanz));
    Antworten({store::Answer::Yes, store::Answer::Yes});
    ASSERT_TRUE(person.Click(bogen->cmdArtLoeschen));
    EXPECT_EQ(Liste().Row(), 1);
    ASSERT_TRUE(person.Click(bogen->cmdArtLoeschen));
    EXPECT_THAT(Funde(), IsEmpty());
    Boxen();
    // Nothing is left to delete or to change, and nothing is asked.
    ASSERT_TRUE(person.Click(bogen->cmdArtLoeschen));
    ASSERT_TRUE(person.Click(bogen->cmdArtAendern));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Picker(), nullptr);
}

TEST_F(Sestoneingabe, ANewTaxonStandsUnderTheCursorAfterThePick) {
    Input person(*bogen);
    ASSERT_TRUE(person.Click(bogen->cmdArtNeu));
    ASSERT_NE(Picker(), nullptr);
    EXPECT_EQ(Picker()->Caption(), "Artauswahl - Neu");
    EXPECT_EQ(Picker()->cboKatalog.Text(), "Seston");
    Input auswahl(*Picker());
    ASSERT_TRUE(auswahl.SetText(Picker()->cboGattung, "Brachionus"));
    ASSERT_TRUE(auswahl.Enter(Picker()->cboArt));
    ASSERT_TRUE(auswahl.Key({"Enter"}));
    EXPECT_THAT(Funde(), ElementsAre("11 0 Null", "12 5 alt", "14 1 Null"));
    EXPECT_EQ(Liste().Text(Liste().Row(), ID_Art), "11");
    EXPECT_EQ(Liste().Col(), Abundanz);
    EXPECT_EQ(bogen->Focus(), &Liste());
    EXPECT_EQ(Picker(), nullptr);
}

TEST_F(Sestoneingabe, AnotherTaxonForARowKeepsItsCfAndItsFigures) {
    Input person(*bogen);
    ASSERT_TRUE(person.CheckCell(Liste(), 1, CF, true));
    ASSERT_TRUE(person.Click(bogen->cmdArtAendern));
    ASSERT_NE(Picker(), nullptr);
    EXPECT_EQ(Picker()->Caption(), "Artauswahl - Ändern");
    Input auswahl(*Picker());
    ASSERT_TRUE(auswahl.SetText(Picker()->cboGattung, "Brachionus"));
    ASSERT_TRUE(auswahl.Enter(Picker()->cboArt));
    ASSERT_TRUE(auswahl.Click(Picker()->cmdArtAuswahl0));
    EXPECT_THAT(Funde(), ElementsAre("11cf 5 alt", "14 1 Null"));
    EXPECT_EQ(Liste().Text(Liste().Row(), ID_Art), "11");
}

TEST_F(Sestoneingabe, ATwinIsFoundByItsCf) {
    datei.Datenbank()->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 12, -1);");
    bogen->GridAlgenArt_Init();
    bogen->Select_AktArt(12, true);
    EXPECT_EQ(Liste().Row(), 2);
    bogen->Select_AktArt(12, false);
    EXPECT_EQ(Liste().Row(), 1);
    bogen->Select_AktArt(77, false);
    EXPECT_EQ(Liste().Row(), 1);
    // Without a row of that cf. the cursor goes to the one that the taxon has.
    bogen->Select_AktArt(14, true);
    EXPECT_EQ(Liste().Row(), 3);
    EXPECT_EQ(Liste().Col(), Abundanz);
}

TEST_F(Sestoneingabe, ARowThatCannotBeSavedHoldsCommandsBack) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "99999999999"));
    EXPECT_FALSE(person.Click(bogen->cmdArtNeu));
    EXPECT_EQ(Picker(), nullptr);
    EXPECT_EQ(Boxen().size(), 1U);
    EXPECT_EQ(Liste().Text(1, Abundanz), "99999999999");
}

TEST_F(Sestoneingabe, CloseSavesTheRowAndTakesThePickerAlong) {
    Input person(*bogen);
    ASSERT_TRUE(person.Click(bogen->cmdArtNeu));
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "9"));
    ASSERT_TRUE(person.Click(bogen->cmdPrStelle4));
    EXPECT_FALSE(bogen->IsOpen());
    EXPECT_EQ(Picker(), nullptr);
    EXPECT_THAT(Funde(), ElementsAre("12 9 alt", "14 1 Null"));
}

TEST_F(Sestoneingabe, CloseAsksWhereTheRowCannotBeSaved) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "99999999999"));
    Antworten({store::Answer::No});
    ASSERT_TRUE(person.Click(bogen->cmdPrStelle4));
    EXPECT_TRUE(bogen->IsOpen());
    EXPECT_EQ(Boxen().size(), 2U);
    EXPECT_EQ(Liste().Text(1, Abundanz), "99999999999");
}

TEST_F(Sestoneingabe, TheReturnFieldHasTheDataReadAnew) {
    Input person(*bogen);
    ASSERT_TRUE(person.EditCell(Liste(), 1, Abundanz, "9"));
    datei.Datenbank()->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 11, 0);");
    bogen->txtReturn.Text("0");
    EXPECT_EQ(Liste().Rows(), 3);
    bogen->txtReturn.Text("1");
    EXPECT_EQ(Liste().Rows(), 4);
    EXPECT_THAT(Funde(), ElementsAre("11 0 Null", "12 9 alt", "14 1 Null"));
    datei.Datenbank()->Execute("DELETE * FROM sesArtPrStelle WHERE ID_ART=11;");
    bogen->txtReturn.Text("1");
    EXPECT_EQ(Liste().Rows(), 3);
    EXPECT_FALSE(bogen->txtReturn.IsShown());
    EXPECT_FALSE(person.Click(bogen->cmdXLSImport));
}

}  // namespace
}  // namespace FX_Algen::entry
