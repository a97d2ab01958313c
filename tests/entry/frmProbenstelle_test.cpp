#include "entry/frmProbenstelle.h"

#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

using store::Answer;
using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetOpening : public Algenbogen {
protected:
    std::vector<std::string> Stellen() {
        return Zeilen("SELECT ID_TR, PSBez FROM awaPrStelle ORDER BY ID_PS");
    }
    std::vector<std::string> Teilraeume() { return Zeilen("SELECT ID_TR, DG_Gesamt FROM awaTeilraum"); }
};

const std::string Frage =
    "Algen - Probenstelle|Algen-Probenstelle ist noch nicht vorhanden. \n"
    "Wollen Sie jetzt die Probenstelle anlegen?";

TEST_F(AlgaeSheetOpening, AsksBeforeItCreatesASiteAndWritesNothingOnNo) {
    Antworten({Answer::No});
    EXPECT_FALSE(Oeffnen());
    EXPECT_THAT(Boxen(), ElementsAre(Frage));
    EXPECT_THAT(Teilraeume(), IsEmpty());
    EXPECT_THAT(Stellen(), IsEmpty());
}

TEST_F(AlgaeSheetOpening, CreatesSubHabitatAndSiteOnYes) {
    Antworten({Answer::Yes});
    EXPECT_TRUE(Oeffnen());
    EXPECT_THAT(Teilraeume(), ElementsAre("17|0"));
    EXPECT_THAT(Stellen(), ElementsAre("17|<NEU>"));
    EXPECT_EQ(bogen->txtPSBez.Text(), "<NEU>");
    // A second opening finds it.
    EXPECT_TRUE(Oeffnen());
    EXPECT_THAT(Boxen(), ElementsAre(Frage));
}

TEST_F(AlgaeSheetOpening, NamesTheNewSiteAsTheHostDoesApostrophesIncluded) {
    PSBez = "Ü'berfuhr 'Süd'";
    Antworten({Answer::Yes});
    EXPECT_TRUE(Oeffnen());
    EXPECT_THAT(Stellen(), ElementsAre("17|Ü'berfuhr 'Süd'"));
}

TEST_F(AlgaeSheetOpening, InsertsOnlyWhatIsMissing) {
    Fuellen("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (17, 33);");
    Antworten({Answer::Yes});
    EXPECT_TRUE(Oeffnen());
    EXPECT_THAT(Teilraeume(), ElementsAre("17|33"));
    EXPECT_THAT(Stellen(), ElementsAre("17|<NEU>"));
}

TEST_F(AlgaeSheetOpening, MakesNoSecondSiteBesideOneWithoutSubHabitat) {
    Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 17, 'Böschung');");
    Antworten({Answer::Yes});
    EXPECT_TRUE(Oeffnen());
    EXPECT_THAT(Stellen(), ElementsAre("17|Böschung"));
}

TEST_F(AlgaeSheetOpening, ShowsTheEightFiguresEachSetByItself) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(bogen->txtPSBez.Text(), "Böschung");
    EXPECT_EQ(bogen->txtAlgenGesamt.Text(), "70");
    EXPECT_EQ(bogen->txtDG_Gesamt.Text(), "60");
    EXPECT_EQ(bogen->txtDG_Makro.Text(), "20");
    EXPECT_EQ(bogen->txtMitBewuchsdichte.Text(), "1,5");
    EXPECT_EQ(bogen->txtAlgenGesamt_WRRL.Text(), "65");
    EXPECT_EQ(bogen->txtDG_Gesamt_WRRL.Text(), "50");
    EXPECT_EQ(bogen->txtDG_Makro_WRRL.Text(), "15");
    EXPECT_EQ(bogen->txtMitBewuchsdichte_WRRL.Text(), "1,25");
    EXPECT_EQ(bogen->txtID_PS.Text(), "5");
    EXPECT_EQ(bogen->txtID_TLR.Text(), "17");
}

TEST_F(AlgaeSheetOpening, ShowsOnlyTheFirstSiteOfASubHabitat) {
    Teilraum();
    VierArten();
    Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (9, 17, 'Zweite');");
    Fuellen("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES (9, 1, -1);");
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(bogen->txtPSBez.Text(), "Böschung");
    EXPECT_EQ(bogen->txtID_PS.Text(), "5");
    EXPECT_EQ(Zeile(1, true), -1);
}

TEST_F(AlgaeSheetOpening, ShowsASiteWithoutNameAndTakesOne) {
    Fuellen("INSERT INTO awaTeilraum (ID_TR) VALUES (17);");
    Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (5, 17);");
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(bogen->txtPSBez.Text(), "");
    EXPECT_TRUE(Person().SetText(bogen->txtPSBez, "Zunge"));
    EXPECT_TRUE(Person().Enter(bogen->vsfgAlgenArt));
    EXPECT_THAT(Stellen(), ElementsAre("17|Zunge"));
}

TEST_F(AlgaeSheetOpening, WritesAFigureWhenItsRowIsLeftAndLeavesTheOtherSetAlone) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtMitBewuchsdichte, "2,75"));
    EXPECT_TRUE(Person().SetText(bogen->txtAlgenGesamt, "80.5"));
    const auto abfrage =
        "SELECT DG_Algengesamt, MitBewuchsdichte, DG_Algengesamt_WRRL, MitBewuchsdichte_WRRL FROM "
        "awaTeilraum";
    // Both fields are of the same row, which is not left yet.
    EXPECT_THAT(Zeilen(abfrage), ElementsAre("70|1.5|65|1.25"));
    EXPECT_TRUE(Person().Enter(bogen->vsfgAlgenArt));
    EXPECT_THAT(Zeilen(abfrage), ElementsAre("80.5|2.75|65|1.25"));
}

TEST_F(AlgaeSheetOpening, WritesTheFiguresWhenTheSheetCloses) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtAlgenGesamt_WRRL, "66"));
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_FALSE(bogen->IsOpen());
    EXPECT_THAT(Zeilen("SELECT DG_Algengesamt_WRRL FROM awaTeilraum"), ElementsAre("66"));
}

TEST_F(AlgaeSheetOpening, SavesWhatItHeldBeforeItShowsAnotherSubHabitat) {
    Teilraum();
    VierArten();
    Fuellen("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (18, 11);");
    Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (6, 18, 'Fähre');");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtPSBez, "Steg"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "4,5"));
    bogen->TeilraumID(18);
    EXPECT_TRUE(bogen->DataObject_Init());
    EXPECT_THAT(Stellen(), ElementsAre("17|Steg", "18|Fähre"));
    EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("4.5"));
    EXPECT_EQ(bogen->txtPSBez.Text(), "Fähre");
    EXPECT_EQ(bogen->txtDG_Gesamt.Text(), "11");
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "0 Taxa (Zeilen)");
}

TEST_F(AlgaeSheetOpening, KeepsWhatItHoldsWhereThatCannotBeSaved) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtAlgenGesamt, "dünn"));
    bogen->TeilraumID(18);
    EXPECT_TRUE(bogen->DataObject_Init());
    EXPECT_EQ(bogen->txtID_TLR.Text(), "17");
    EXPECT_EQ(bogen->txtAlgenGesamt.Text(), "dünn");
    EXPECT_EQ(Boxen().size(), 1U);
}

TEST_F(AlgaeSheetOpening, HidesTheClassicSetInTheOtherMode) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen(false));
    const std::vector<controls::Control*> klassisch{
        &bogen->lblInklBakterien,      &bogen->lblAlgenGesamt,      &bogen->txtAlgenGesamt,
        &bogen->lblDG_Gesamt,          &bogen->txtDG_Gesamt,        &bogen->lblDG_Makro,
        &bogen->txtDG_Makro,           &bogen->lblMitBewuchsdichte, &bogen->txtMitBewuchsdichte,
        &bogen->lblMitBewuchsdichte_mm};
    for (auto* control : klassisch) EXPECT_FALSE(control->Visible()) << control->Name();
    for (auto* control : std::vector<controls::Control*>{&bogen->txtAlgenGesamt_WRRL,
                                                         &bogen->txtDG_Gesamt_WRRL, &bogen->txtDG_Makro_WRRL,
                                                         &bogen->lblWRRL, &bogen->txtMitBewuchsdichte_WRRL})
        EXPECT_TRUE(control->Visible()) << control->Name();
    for (const int col : {MAalsMI, LF, Makrophyten}) EXPECT_TRUE(Taxa().ColHidden(col)) << col;
    EXPECT_FALSE(Taxa().ColHidden(Schalen));
    // 3 head rows, 4 taxa, one sum.
    EXPECT_EQ(Taxa().Rows(), 8);

    ASSERT_TRUE(Oeffnen(true));
    for (auto* control : klassisch) EXPECT_TRUE(control->Visible()) << control->Name();
    for (const int col : {MAalsMI, LF, Makrophyten}) EXPECT_FALSE(Taxa().ColHidden(col)) << col;
    EXPECT_EQ(Taxa().Rows(), 9);
}

TEST_F(AlgaeSheetOpening, ShowsTheKeysInDebugModeAloneAndNeverTakesThem) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_FALSE(bogen->txtID_PS.Visible());
    EXPECT_FALSE(bogen->txtID_TLR.Visible());
    bogen->DebugModus(true);
    EXPECT_TRUE(bogen->txtID_PS.Visible());
    EXPECT_TRUE(bogen->txtID_TLR.Visible());
    EXPECT_FALSE(bogen->txtReturn.Visible());
    EXPECT_FALSE(Person().SetText(bogen->txtID_PS, "6"));
}

TEST_F(AlgaeSheetOpening, LocksEverythingButCloseForReading) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen(true, false));
    for (auto* feld : {&bogen->txtPSBez, &bogen->txtAlgenGesamt, &bogen->txtDG_Gesamt, &bogen->txtDG_Makro,
                       &bogen->txtMitBewuchsdichte, &bogen->txtAlgenGesamt_WRRL, &bogen->txtDG_Gesamt_WRRL,
                       &bogen->txtDG_Makro_WRRL, &bogen->txtMitBewuchsdichte_WRRL})
        EXPECT_TRUE(feld->Locked()) << feld->Name();
    for (auto* knopf : {&bogen->cmdArtNeu, &bogen->cmdArtAendern, &bogen->cmdArtLoeschen,
                        &bogen->cmdAlgenMI_Hinzufuegen, &bogen->cmdAlgenMI_Loeschen, &bogen->cmdXLSImport})
        EXPECT_FALSE(knopf->Enabled()) << knopf->Name();
    EXPECT_TRUE(bogen->cmdPrStelle4.Enabled());
    EXPECT_FALSE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "3"));
    EXPECT_FALSE(Person().EditCell(Stand(), 1, BezCol, "Neu"));
    EXPECT_FALSE(Person().CheckCell(Taxa(), Zeile(1), CF, true));
    bogen->EditMode(true);
    EXPECT_FALSE(bogen->txtDG_Gesamt.Locked());
    EXPECT_TRUE(bogen->cmdArtNeu.Enabled());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "3"));
}

TEST_F(AlgaeSheetOpening, SpeaksBothLanguages) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen(true, true, 10000));
    EXPECT_EQ(bogen->Caption(), "Algen - Probenstelle");
    EXPECT_EQ(bogen->lblDG_Gesamt.Caption(), "Algendeckung exkl. Kieselalgen [%]");
    EXPECT_EQ(bogen->lblInklBakterien.Caption(), "inkl. Bakterien && Pilze");
    EXPECT_EQ(bogen->cmdArtAendern.Caption(), "Ändern");
    EXPECT_EQ(bogen->cmdPrStelle4.Caption(), "Schließen");
    EXPECT_EQ(Stand().Text(0, BezCol), "Bezeichnung");
    ASSERT_TRUE(Oeffnen(true, true, 20000));
    EXPECT_EQ(bogen->Caption(), "Algae - sampling site");
    EXPECT_EQ(bogen->lblDG_Gesamt.Caption(), "Cover of algae without diatoms [%]");
    EXPECT_EQ(bogen->cmdPrStelle4.Caption(), "Close");
    EXPECT_EQ(bogen->cmdXLSImport.Caption(), "Excel-Import");
    EXPECT_EQ(bogen->txtMitBewuchsdichte.Text(), "1.5");
    EXPECT_EQ(Stand().Text(0, BezCol), "Name");
    EXPECT_EQ(Taxa().Text(0, 2), "Genus");
}

TEST_F(AlgaeSheetOpening, HasACaptionOnEveryLabelAndButtonInBothLanguages) {
    Teilraum();
    for (const std::int16_t sprache : {10000, 20000}) {
        ASSERT_TRUE(Oeffnen(true, true, sprache));
        for (const auto& control : bogen->Controls()) {
            const bool beschriftet =
                control->Kind() == controls::Kind::Label || control->Kind() == controls::Kind::CommandButton;
            EXPECT_FALSE(beschriftet && control->Caption().empty()) << control->Name();
        }
    }
}

TEST_F(AlgaeSheetOpening, ShowsTheBusyPointerWhileItFillsSavesAndAddsUp) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    const auto gezeigt = [this](const auto& arbeit) {
        anzeige->Sanduhren = 0;
        arbeit();
        EXPECT_FALSE(anzeige->Messages().IsBusy());
        return anzeige->Sanduhren;
    };
    EXPECT_EQ(gezeigt([this] { bogen->GridAlgenArt_Init(); }), 1);
    bool ok = true;
    EXPECT_EQ(gezeigt([&] { bogen->GridAlgenArt_Daten(ok); }), 1);
    EXPECT_EQ(gezeigt([this] { bogen->GridAlgenArt_Summe(Taxa().Rows() - 1, false); }), 1);
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "3"));
    EXPECT_EQ(gezeigt([this] { EXPECT_TRUE(Person().Leave()); }), 1);
}

TEST_F(AlgaeSheetOpening, FailsWithoutADatabase) {
    bogen = controls::OpenForms().Load<frmProbenstelle>();
    try {
        bogen->DataObject_Init();
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 3343);
    }
}

}  // namespace
}  // namespace FX_Algen::entry
