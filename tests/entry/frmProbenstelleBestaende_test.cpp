#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetStands : public Algenbogen {
protected:
    const std::string StimmtNicht = Meldung(12089);
    std::vector<std::string> Liste() {
        std::vector<std::string> out;
        for (int row = 1; row < Stand().Rows(); ++row) {
            std::string text = Stand().Text(row, 1);
            for (int col = 3; col <= 7; ++col) text += "|" + Stand().Text(row, col);
            out.push_back(text);
        }
        return out;
    }
    std::vector<std::string> Gespeichert() {
        return Zeilen(
            "SELECT ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL FROM awaTeilraum_MI ORDER BY ID_TR_MI");
    }
};

TEST_F(AlgaeSheetStands, AreListedInTheirOrderWithTheirFigures) {
    Teilraum();
    Bestaende();
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, RF_MI) VALUES (33, 17, 'Ärmchen', 2);");
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, RF_MI) VALUES (34, 18, 'Fremder', 1);");
    ASSERT_TRUE(Oeffnen());
    EXPECT_THAT(Liste(),
                ElementsAre("31|Überzug|25|30|0,5|1", "33|Ärmchen|0|0|0|2", "32|Häutchen|10|10|0,25|2"));
    std::string kopf;
    for (int col = 3; col <= 7; ++col) kopf += Stand().Text(0, col) + "|";
    EXPECT_EQ(kopf, "Bezeichnung|DG-WRRL [%]|DG [%]|SD [mm]|RF|");
    EXPECT_TRUE(Stand().ColHidden(1));
    EXPECT_TRUE(Stand().ColHidden(2));
    // The list of taxa has them in the same order.
    EXPECT_EQ(Text(2, 10, 12), "31|33|32");
    EXPECT_EQ(Text(0, 10, 12), "Überzug|Ärmchen|Häutchen");
}

TEST_F(AlgaeSheetStands, WarnOnceForEachSetThatDoesNotAddUpAndStandAllTheSame) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen());
    // Classic 60 - 20 - (30+10) = 0, Directive 50 - 15 - (25+10) = 0.
    EXPECT_TRUE(Person().EditCell(Stand(), 1, 6, "0,75"));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_TRUE(Person().EditCell(Stand(), 1, DGCol, "31"));
    EXPECT_THAT(Boxen(), ElementsAre(StimmtNicht));
    EXPECT_TRUE(Person().EditCell(Stand(), 1, WRRLCol, "24,5"));
    EXPECT_THAT(Boxen(), ElementsAre(StimmtNicht, StimmtNicht));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Gespeichert(), ElementsAre("31|17|Überzug|31|24.5", "32|17|Häutchen|10|10"));
}

TEST_F(AlgaeSheetStands, WarnInTheOtherModeForBothSets) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen(false));
    EXPECT_TRUE(Person().EditCell(Stand(), 1, DGCol, "31"));
    EXPECT_THAT(Boxen(), ElementsAre(StimmtNicht));
}

TEST_F(AlgaeSheetStands, ReadTheFieldsWithTheirDecimals) {
    Teilraum();
    Fuellen("UPDATE awaTeilraum SET DG_Gesamt=33.4, DG_MA=20.1, DG_Gesamt_WRRL=0, DG_MA_WRRL=0;");
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI) VALUES (31, 17, 'Öl', 13.2);");
    ASSERT_TRUE(Oeffnen());
    // 33.4 - 20.1 - 13.3 = 0 to the digit, though not in binary.
    EXPECT_TRUE(Person().EditCell(Stand(), 1, DGCol, "13,3"));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_TRUE(Person().EditCell(Stand(), 1, DGCol, "13,4"));
    EXPECT_THAT(Boxen(), ElementsAre(StimmtNicht));
}

TEST_F(AlgaeSheetStands, TakeUpWhatIsMissingWhenTheyAreAdded) {
    Teilraum();
    Fuellen("UPDATE awaTeilraum SET DG_Gesamt=60.5, DG_MA=20.2, DG_Gesamt_WRRL=10;");
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Hinzufuegen));
    // Classic 60.5 - 20.2 = 40.3; by the Directive 10 - 15 is below 0.
    EXPECT_THAT(Liste(), ElementsAre("1|<NEU>|0|40,3|0|0"));
    EXPECT_THAT(Gespeichert(), ElementsAre("1|17|<NEU>|40.3|0"));
    EXPECT_EQ(bogen->intAnzahlMI, 1);
    EXPECT_EQ(Taxa().Text(0, 10), "<NEU>");
    EXPECT_EQ(Taxa().Text(2, 10), "1");
    // Its name comes next.
    EXPECT_EQ(bogen->Focus(), &Stand());
    EXPECT_EQ(Stand().Row(), 1);
    EXPECT_EQ(Stand().Col(), BezCol);
    // The next one finds nothing missing.
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Hinzufuegen));
    EXPECT_THAT(Gespeichert(), ElementsAre("1|17|<NEU>|40.3|0", "2|17|<NEU>|0|0"));
    EXPECT_EQ(Stand().Text(Stand().Row(), 1), "2");
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetStands, AreAddedAfterAChangedRowWasSaved) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI2, "12"));
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Hinzufuegen));
    EXPECT_THAT(Anteile(), ElementsAre("32|2|0|12"));
    // RF_MI 0 sorts the new one first; share and cursor moved with their rows.
    EXPECT_EQ(Text(2, 10, 12), "33|31|32");
    EXPECT_EQ(Text(Zeile(2), 10, 12), "||12");
    EXPECT_EQ(Taxa().Row(), Zeile(2));
}

TEST_F(AlgaeSheetStands, GoWithTheirSharesWhenThePersonSaysYes) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "60");
    Anteil(32, 2, "40");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Stand(), 1, BezCol));
    const std::string frage =
        "Algen - Probenstelle|Wollen Sie den Mikroalgenmischbestand Überzug und deren Detaildaten wirklich "
        "löschen?";
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Loeschen));
    EXPECT_THAT(Boxen(), ElementsAre(frage));
    EXPECT_EQ(Liste().size(), 2U);
    Antworten({store::Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Loeschen));
    EXPECT_THAT(Boxen(), ElementsAre(frage));
    EXPECT_THAT(Gespeichert(), ElementsAre("32|17|Häutchen|10|10"));
    EXPECT_THAT(Anteile(), ElementsAre("32|2|0|40"));
    EXPECT_EQ(Taxa().Cols(), 16);
    EXPECT_EQ(Taxa().Text(Zeile(2), 10), "40");
}

TEST_F(AlgaeSheetStands, AreNotDeletedWhereNoneIsSelected) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Loeschen));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetStands, AreNamedInTheQuestionWhateverTheirName) {
    Teilraum();
    Fuellen("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (31, 17, 'd''Or|~');");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().Click(bogen->cmdAlgenMI_Loeschen));
    EXPECT_THAT(Boxen(),
                ElementsAre("Algen - Probenstelle|Wollen Sie den Mikroalgenmischbestand d'Or|~ und deren "
                            "Detaildaten wirklich löschen?"));
}

TEST_F(AlgaeSheetStands, ShowANewNameInTheHeadOnceTheRowIsWritten) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(32, 2, "40");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    Taxa().TopRow(4);
    EXPECT_TRUE(Person().EditCell(Stand(), 2, BezCol, "Häutchen d'Or"));
    EXPECT_EQ(Taxa().Text(0, MI2), "Häutchen");
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(Taxa().Text(0, MI2), "Häutchen d'Or");
    EXPECT_EQ(Gespeichert()[1], "32|17|Häutchen d'Or|10|10");
    EXPECT_EQ(Taxa().Row(), Zeile(3));
    EXPECT_EQ(Taxa().Col(), Schalen);
    EXPECT_EQ(Taxa().TopRow(), 4);
}

TEST_F(AlgaeSheetStands, ReorderBothListsWhenAPositionChanges) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "60");
    Anteil(32, 2, "40");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Stand(), 1, RFCol, "3"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(Liste()[0].substr(0, 2), "32");
    EXPECT_EQ(Text(2, MI1, MI2), "32|31");
    EXPECT_EQ(Text(Zeile(2), MI1, MI2), "40|60");
    EXPECT_EQ(Text(0, MI1, MI2), "Häutchen|Überzug");
}

TEST_F(AlgaeSheetStands, KeepThePersonInTheStandThatWasGoneTo) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Stand(), 1, RFCol, "3"));
    // "Häutchen" stands in row 2 when the person goes there, and moves to row 1.
    EXPECT_TRUE(Person().SelectCell(Stand(), 2, 6));
    EXPECT_EQ(Stand().Row(), 1);
    EXPECT_EQ(Stand().Text(1, BezCol), "Häutchen");
    EXPECT_EQ(Text(2, MI1, MI2), "32|31");
    EXPECT_TRUE(Person().Type(Stand(), "0,9"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Zeilen("SELECT ID_TR_MI, SD_MI, RF_MI FROM awaTeilraum_MI ORDER BY ID_TR_MI"),
                ElementsAre("31|0.5|3", "32|0.9|2"));
}

TEST_F(AlgaeSheetStands, KeepAChangedRowWhereANumberCannotBeRead) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Stand(), 1, 6, "dünn"));
    EXPECT_FALSE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(Stand().Text(1, 6), "dünn");
    EXPECT_EQ(Boxen().size(), 1U);
    EXPECT_FALSE(Person().Click(bogen->cmdAlgenMI_Hinzufuegen));
    EXPECT_EQ(Gespeichert().size(), 2U);
}

}  // namespace
}  // namespace FX_Algen::entry
