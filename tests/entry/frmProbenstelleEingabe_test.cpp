#include "entry/Algenbogen.h"
#include "entry/frmArtAuswahl.h"

namespace FX_Algen::entry {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetEntry : public Algenbogen {
protected:
    /// One taxon of each kind: 1 MA, 2 MI, 3 KA, 4 BA, 5 PI, 6 HP; two stands.
    void Sechs() {
        Teilraum();
        Bestaende();
        VierArten();
        Art(4, {"Sphaerotilus", "natans", 133});
        Art(5, {"Leptomitus", "lacteus", 134});
        Fund(4);
        Fund(5);
    }
    std::shared_ptr<frmArtAuswahl> Auswahl() { return controls::OpenForms().Find<frmArtAuswahl>(); }
};

// ---- edit rules ----------------------------------------------------------------------------------------

struct Regel {
    int art;
    int col;
    std::int16_t meldung;  ///< 0: accepted
};

class EditRule : public AlgaeSheetEntry, public testing::WithParamInterface<Regel> {};

TEST_P(EditRule, HoldsForTheKindOfTheTaxon) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const auto& regel = GetParam();
    const int row = Zeile(regel.art);
    const bool angenommen = static_cast<bool>(Person().EditCell(Taxa(), row, regel.col, "7"));
    EXPECT_EQ(angenommen, regel.meldung == 0);
    EXPECT_EQ(Taxa().Text(row, regel.col), regel.meldung == 0 ? "7" : "");
    EXPECT_EQ(Taxa().Row(), row);
    EXPECT_EQ(Taxa().Col(), regel.col);
    if (regel.meldung == 0)
        EXPECT_THAT(Boxen(), IsEmpty());
    else
        EXPECT_THAT(Boxen(), ElementsAre(Meldung(regel.meldung)));
}

// Columns: 8 cover, 9 thickness, 10 and 11 the stands, 12 valves, 13 macrophytes.
INSTANTIATE_TEST_SUITE_P(Cases, EditRule,
                         testing::Values(Regel{1, 8, 0}, Regel{1, 9, 0}, Regel{1, 10, 0}, Regel{1, 11, 0},
                                         Regel{1, 12, 12093}, Regel{1, 13, 12097},  // MA
                                         Regel{2, 8, 0}, Regel{2, 9, 0}, Regel{2, 10, 0}, Regel{2, 11, 0},
                                         Regel{2, 12, 12094}, Regel{2, 13, 12098},  // MI
                                         Regel{3, 8, 12095}, Regel{3, 9, 12095}, Regel{3, 10, 12095},
                                         Regel{3, 11, 12095}, Regel{3, 12, 0}, Regel{3, 13, 12095},  // KA
                                         Regel{4, 8, 0}, Regel{4, 9, 0}, Regel{4, 10, 0}, Regel{4, 12, 12096},
                                         Regel{4, 13, 0},  // BA
                                         Regel{5, 8, 0}, Regel{5, 11, 0}, Regel{5, 12, 12096},
                                         Regel{5, 13, 0},  // PI
                                         Regel{6, 8, 0}, Regel{6, 9, 0}, Regel{6, 10, 0}, Regel{6, 12, 12096},
                                         Regel{6, 13, 0}));  // HP

TEST_F(AlgaeSheetEntry, KeepsTheOldValueOfARefusedEdit) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET Schalen_KA=40 WHERE ID_Art=1;");
    ASSERT_TRUE(Oeffnen());
    EXPECT_FALSE(Person().EditCell(Taxa(), Zeile(1), Schalen, "41"));
    EXPECT_EQ(Taxa().Text(Zeile(1), Schalen), "40");
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_THAT(Zeilen("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("40"));
}

TEST_F(AlgaeSheetEntry, LetsAPersonPassThroughCellsThatTakeNothing) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), DG_MA));
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(Person().Key({"Tab"}));
    EXPECT_EQ(Taxa().Col(), Schalen);
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetEntry, OpensCellsOfTaxaInTheirColumnsAlone) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    for (int col = 2; col <= Makrophyten; ++col) {
        EXPECT_TRUE(Person().SelectCell(Taxa(), row, col == 7 ? 8 : col));
        const bool oeffnet = Taxa().StartEdit();
        EXPECT_EQ(oeffnet, col >= 7) << col;  // 4 to 6 are check marks
        Taxa().CancelEdit();
    }
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, true));
    EXPECT_FALSE(Person().CheckCell(Taxa(), row, MAalsMI, true));
    EXPECT_FALSE(Person().CheckCell(Taxa(), row, LF, true));
    for (int summe = Taxa().Rows() - 2; summe < Taxa().Rows(); ++summe) {
        EXPECT_FALSE(Person().EditCell(Taxa(), summe, DG_MA, "1"));
        EXPECT_FALSE(Person().CheckCell(Taxa(), summe, CF, true));
    }
}

// ---- MA->MI --------------------------------------------------------------------------------------------

TEST_F(AlgaeSheetEntry, MarksAMacroalgaAsMicroalgaByTheLastEdit) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    const auto merker = [&] { return Taxa().Checked(row, MAalsMI); };
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI2, "5"));
    EXPECT_TRUE(merker());
    EXPECT_TRUE(Person().EditCell(Taxa(), row, SD_MA, "2"));
    EXPECT_FALSE(merker());
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI1, "5"));
    EXPECT_TRUE(merker());
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "2"));
    EXPECT_FALSE(merker());
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI1, "6"));
    // Neither cf. nor a click touches it, though it was not saved yet.
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, true));
    EXPECT_TRUE(Person().ClickCell(Taxa(), row, MAalsMI));
    EXPECT_TRUE(merker());
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Zeilen("SELECT CF, MAalsMI FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("-1|-1"));
}

TEST_F(AlgaeSheetEntry, LeavesTheMarkOfOtherKindsAlone) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET MAalsMI=-1 WHERE ID_Art=2;");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), DG_MA, "5"));
    EXPECT_TRUE(Taxa().Checked(Zeile(2), MAalsMI));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(4), MI1, "5"));
    EXPECT_FALSE(Taxa().Checked(Zeile(4), MAalsMI));
}

TEST_F(AlgaeSheetEntry, PutsAFlagBackThatWasClicked) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    for (const int col : {MAalsMI, LF}) {
        Taxa().Checked(row, col, true);
        EXPECT_TRUE(Person().ClickCell(Taxa(), row, col));
        EXPECT_FALSE(Taxa().Checked(row, col)) << col;
    }
}

// ---- numbers -------------------------------------------------------------------------------------------

struct Eingabe {
    int art;
    int col;
    std::string text;
    std::string box;      ///< the notice, without the title; empty: none
    std::string gezeigt;  ///< in the cell before it is saved
    std::string gespeichert;
};

class TypedNumber : public AlgaeSheetEntry, public testing::WithParamInterface<Eingabe> {};

TEST_P(TypedNumber, IsStoredAsItMeansAndAnnouncedWhereItDoesNot) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const auto& fall = GetParam();
    ASSERT_TRUE(Person().EditCell(Taxa(), Zeile(fall.art), fall.col, fall.text));
    if (fall.box.empty())
        EXPECT_THAT(Boxen(), IsEmpty());
    else
        EXPECT_THAT(Boxen(), ElementsAre("Algen - Probenstelle|" + fall.box));
    EXPECT_EQ(Taxa().Text(Zeile(fall.art), fall.col), fall.gezeigt);
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Boxen(), IsEmpty());
    const std::string feld = fall.col == DG_MA ? "DG_MA" : fall.col == SD_MA ? "SD_MA" : "Schalen_KA";
    EXPECT_THAT(Zeilen("SELECT " + feld + " FROM awaArtPrStelle WHERE ID_Art=" + std::to_string(fall.art)),
                ElementsAre(fall.gespeichert));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TypedNumber,
    testing::Values(Eingabe{1, 8, "2,5", "", "2,5", "2.5"}, Eingabe{1, 8, "2.5", "", "2.5", "2.5"},
                    Eingabe{1, 9, " 0,25 ", "", " 0,25 ", "0.25"},
                    Eingabe{1, 8, "dünn", "„dünn“ ist keine Zahl. Gespeichert wird 0.", "dünn", "0"},
                    Eingabe{1, 8, "1.234,5", "„1.234,5“ ist keine Zahl. Gespeichert wird 0.", "1.234,5", "0"},
                    Eingabe{1, 8, "a|b~", "„a|b~“ ist keine Zahl. Gespeichert wird 0.", "a|b~", "0"},
                    // Half to even, as the store rounds.
                    Eingabe{3, 12, "12,5", "„12,5“ ist keine ganze Zahl. Gespeichert wird 12.", "12", "12"},
                    Eingabe{3, 12, "13,5", "„13,5“ ist keine ganze Zahl. Gespeichert wird 14.", "14", "14"},
                    Eingabe{3, 12, "400", "", "400", "400"},
                    Eingabe{1, 8, "-3",
                            "„-3“ ist kleiner als 0. Der Wert wird so gespeichert, in der Liste aber nicht "
                            "angezeigt.",
                            "-3", "-3"}));

TEST_F(AlgaeSheetEntry, ShowsWhatIsStoredOnceTheRowIsSaved) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "2.50"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, SD_MA, "dick"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI1, "-12,5"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_EQ(Text(row, DG_MA, MI1), "2,5||12,5");
}

TEST_F(AlgaeSheetEntry, TakesAnEmptiedCellForZeroWithoutANotice) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET DG_MA=4 WHERE ID_Art=1;");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, ""));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaArtPrStelle WHERE ID_Art=1"), ElementsAre("0"));
}

// ---- keys ----------------------------------------------------------------------------------------------

TEST_F(AlgaeSheetEntry, MovesWithTabAndArrowsAndOpensTheCell) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    ASSERT_EQ(row, 3);
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, DG_MA));
    EXPECT_TRUE(Person().Key({"Tab"}));
    EXPECT_EQ(Taxa().Col(), SD_MA);
    EXPECT_TRUE(Taxa().IsEditing());
    EXPECT_TRUE(Person().Type(Taxa(), "1,5"));
    EXPECT_TRUE(Person().Key({"Right"}));
    EXPECT_EQ(Taxa().Text(row, SD_MA), "1,5");
    EXPECT_EQ(Taxa().Col(), MI1);
    EXPECT_TRUE(Taxa().IsEditing());
    EXPECT_TRUE(Person().Key({"Tab", true}));
    EXPECT_EQ(Taxa().Col(), SD_MA);
    EXPECT_TRUE(Person().Key({"Left"}));
    EXPECT_EQ(Taxa().Col(), DG_MA);
    EXPECT_TRUE(Person().Key({"Down"}));
    EXPECT_EQ(Taxa().Row(), row + 1);
    EXPECT_TRUE(Taxa().IsEditing());
    // The row that was left is saved.
    EXPECT_THAT(Zeilen("SELECT SD_MA FROM awaArtPrStelle WHERE ID_Art=2"), ElementsAre("1.5"));
    EXPECT_TRUE(Person().Key({"Up"}));
    EXPECT_EQ(Taxa().Row(), row);
    // The kind and the key beside the species are hidden, above the first row are heads.
    EXPECT_TRUE(Person().Key({"Up"}));
    EXPECT_EQ(Taxa().Row(), row);
    EXPECT_TRUE(Person().Key({"Left"}));
    EXPECT_EQ(Taxa().Col(), LF);
    EXPECT_FALSE(Taxa().IsEditing());
}

TEST_F(AlgaeSheetEntry, GoesOnBehindTheLastCellWithTab) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Taxa().Rows() - 1, Makrophyten));
    EXPECT_TRUE(Person().Key({"Tab"}));
    EXPECT_EQ(bogen->Focus(), &bogen->cmdArtNeu);
}

TEST_F(AlgaeSheetEntry, StaysWithTheArrowsWhereTheEditIsRefused) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "3"));
    Person().Key({"Down"});
    EXPECT_EQ(Taxa().Row(), Zeile(1));
    EXPECT_THAT(Boxen(), ElementsAre(Meldung(12093)));
}

TEST_F(AlgaeSheetEntry, SetsCfWithSpaceAnywhereInTheRow) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, CF));
    EXPECT_TRUE(Person().Key({"Space"}));
    EXPECT_TRUE(Taxa().Checked(row, CF));
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, MI1));
    EXPECT_TRUE(Person().Key({"Space"}));
    EXPECT_FALSE(Taxa().Checked(row, CF));
    EXPECT_EQ(Taxa().Col(), MI1);
    // In the sums there is nothing to set.
    EXPECT_TRUE(Person().SelectCell(Taxa(), Taxa().Rows() - 1, CF));
    EXPECT_TRUE(Person().Key({"Space"}));
    EXPECT_FALSE(Taxa().Checked(Taxa().Rows() - 1, CF));
}

TEST_F(AlgaeSheetEntry, SetsCfWithSpaceFromACellThatTabOpened) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, SD_MA));
    EXPECT_TRUE(Person().Key({"Tab"}));
    ASSERT_TRUE(Taxa().IsEditing());
    EXPECT_TRUE(Person().Key({"Space"}));
    EXPECT_TRUE(Taxa().Checked(row, CF));
    EXPECT_TRUE(Taxa().IsEditing());
    EXPECT_EQ(Taxa().Text(row, MI1), "");
    // The share is typed on, before and behind the mark.
    for (const auto* taste : {"3", "7", "Space", "Tab", "5", " ", "Tab"}) EXPECT_TRUE(Person().Key({taste}));
    EXPECT_TRUE(Taxa().Checked(row, CF));
    EXPECT_EQ(Text(row, MI1, MI2), "37|5");
    EXPECT_EQ(Taxa().Col(), Schalen);
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Anteile(), ElementsAre("31|2|-1|37", "32|2|-1|5"));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetEntry, SetsNothingWithSpaceWhereTheOpenCellRefusesItsText) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "3"));
    EXPECT_TRUE(Person().Key({"Space"}));
    EXPECT_THAT(Boxen(), ElementsAre(Meldung(12093)));
    EXPECT_FALSE(Taxa().Checked(row, CF));
    EXPECT_EQ(Taxa().Col(), Schalen);
}

TEST_F(AlgaeSheetEntry, FlipsNoCheckMarkWhereTheArrowsComeToOne) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET MAalsMI=-1 WHERE ID_Art=1;");
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, DG_MA));
    for (const int col : {LF, MAalsMI, CF}) {
        EXPECT_TRUE(Person().Key({"Left"}));
        EXPECT_EQ(Taxa().Col(), col);
    }
    EXPECT_TRUE(Person().Key({"Right"}));
    EXPECT_TRUE(Person().Key({"Tab", true}));
    EXPECT_EQ(Taxa().Col(), CF);
    EXPECT_FALSE(Taxa().Checked(row, CF));
    EXPECT_TRUE(Taxa().Checked(row, MAalsMI));
    EXPECT_FALSE(Taxa().Checked(row, LF));
}

TEST_F(AlgaeSheetEntry, ChangesNothingWhereTabGoesThroughARow) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET MAalsMI=-1, DG_MA=4.5, SD_MA=2 WHERE ID_Art=1;");
    Anteil(31, 1, "12.25");
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(1);
    // Another hand changes the stored row: it would be lost if the row were written.
    datei.Datenbank()->Execute("UPDATE awaArtPrStelle SET DG_MP=9 WHERE ID_Art=1;");
    EXPECT_TRUE(Person().SelectCell(Taxa(), row, GattungCol));
    for (int i = 0; i < 11; ++i) EXPECT_TRUE(Person().Key({"Tab"}));
    EXPECT_EQ(Taxa().Row(), row + 1);
    EXPECT_EQ(Text(row, DG_MA, MI1), "4,5|2|12,25");
    EXPECT_TRUE(Taxa().Checked(row, MAalsMI));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Funde()[0], "1|0|4.5|2|0|9|-1");
    EXPECT_THAT(Anteile(), ElementsAre("31|1|0|12.25"));
}

TEST_F(AlgaeSheetEntry, SavesAndStartsANewTaxonWithEnter) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "37"));
    EXPECT_TRUE(Person().Key({"Enter"}));
    EXPECT_THAT(Zeilen("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_Art=3"), ElementsAre("37"));
    ASSERT_TRUE(Auswahl());
    EXPECT_EQ(Auswahl()->txtAuswahlstatus.Text(), "Neu");
    EXPECT_EQ(Auswahl()->Caption(), "Artauswahl - Neu");
    EXPECT_EQ(Auswahl()->Parent(), bogen.get());
}

TEST_F(AlgaeSheetEntry, OnlySavesWithShiftEnter) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "37"));
    EXPECT_TRUE(Person().Key({"Enter", true}));
    EXPECT_THAT(Zeilen("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_Art=3"), ElementsAre("37"));
    EXPECT_FALSE(Auswahl());
}

TEST_F(AlgaeSheetEntry, StartsNothingWithEnterWhereTheRowCannotBeSavedOrChanged) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "37"));
    Person().Key({"Enter"});
    EXPECT_THAT(Boxen(), ElementsAre(Meldung(12093)));
    EXPECT_FALSE(Auswahl());
    bogen->EditMode(false);
    Person().Key({"Enter"});
    EXPECT_FALSE(Auswahl());
}

TEST_F(AlgaeSheetEntry, DeletesTheTaxonWithDelete) {
    Sechs();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    Antworten({store::Answer::Yes});
    EXPECT_TRUE(Person().Key({"Delete"}));
    EXPECT_THAT(Boxen(), ElementsAre("Algen - Probenstelle|Art Navicula gregaria wirklich löschen?"));
    EXPECT_EQ(Zeile(3), -1);
    bogen->EditMode(false);
    Person().Key({"Delete"});
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetEntry, DeletesTheTaxonFromACellThatTabOpenedUntilSomethingIsTyped) {
    Sechs();
    Fuellen("UPDATE awaArtPrStelle SET Schalen_KA=40 WHERE ID_Art=3;");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), MI2));
    EXPECT_TRUE(Person().Key({"Tab"}));
    ASSERT_TRUE(Taxa().IsEditing());
    for (const auto* taste : {"3", "7", "Delete"}) EXPECT_TRUE(Person().Key({taste}));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Taxa().EditText(), "37");
    EXPECT_TRUE(Person().Key({"Tab", true}));
    EXPECT_TRUE(Person().Key({"Tab"}));
    ASSERT_TRUE(Taxa().IsEditing());
    Antworten({store::Answer::No, store::Answer::Yes});
    EXPECT_TRUE(Person().Key({"Delete"}));
    EXPECT_THAT(Boxen(), ElementsAre("Algen - Probenstelle|Art Navicula gregaria wirklich löschen?"));
    EXPECT_EQ(Taxa().Text(Zeile(3), Schalen), "37");
    EXPECT_TRUE(Person().Key({"Delete"}));
    EXPECT_EQ(Zeile(3), -1);
}

}  // namespace
}  // namespace FX_Algen::entry
