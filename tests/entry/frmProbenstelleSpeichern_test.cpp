#include <functional>

#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetSaving : public Algenbogen {
protected:
    void Offen() {
        Teilraum();
        Bestaende();
        VierArten();
        ASSERT_TRUE(Oeffnen());
    }
    std::vector<std::string> Fund(int art) {
        return Zeilen(
            "SELECT CF, DG_MA, SD_MA, Schalen_KA, DG_MP, MAalsMI FROM awaArtPrStelle WHERE ID_Art=" +
            std::to_string(art) + " ORDER BY CF");
    }
    using Algenbogen::Fund;
};

TEST_F(AlgaeSheetSaving, WritesTheRowWhenTheCursorLeavesItAndNotBefore) {
    Offen();
    const int row = Zeile(1);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "2,5"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, SD_MA, "0,75"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI1, "33,3"));
    EXPECT_THAT(Fund(1), ElementsAre("0|0|0|0|0|0"));
    EXPECT_THAT(Anteile(), IsEmpty());
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_THAT(Fund(1), ElementsAre("0|2.5|0.75|0|0|-1"));
    EXPECT_THAT(Anteile(), ElementsAre("31|1|0|33.3"));
}

TEST_F(AlgaeSheetSaving, WritesMacrophytesOfAHigherPlant) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(6), Makrophyten, "8.5"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Fund(6), ElementsAre("0|0|0|0|8.5|0"));
}

TEST_F(AlgaeSheetSaving, WritesTheRowWhenListWindowOrSheetIsLeft) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "1"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Fund(3), ElementsAre("0|0|0|1|0|0"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "2"));
    EXPECT_TRUE(Person().Deactivate());
    EXPECT_THAT(Fund(3), ElementsAre("0|0|0|2|0|0"));
    // Of the open cell, too.
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_TRUE(Person().Type(Taxa(), "3"));
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_THAT(Fund(3), ElementsAre("0|0|0|3|0|0"));
}

TEST_F(AlgaeSheetSaving, WritesNothingForARowThatWasNotChanged) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "5"));
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    // Another hand changes both rows. Going through them must not put the old values back.
    datei.Datenbank()->Execute("UPDATE awaArtPrStelle SET Schalen_KA=9, DG_MA=7;");
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), Schalen));
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Fund(1), ElementsAre("0|7|0|9|0|0"));
    EXPECT_THAT(Fund(3), ElementsAre("0|7|0|9|0|0"));
}

TEST_F(AlgaeSheetSaving, StoresANegativeShareAsPositiveAndRemovesAnEmptiedOne) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(32, 2, "40");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI1, "-60"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI2, ""));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|60"));
    EXPECT_EQ(Taxa().Text(Zeile(2), MI1), "60");
}

TEST_F(AlgaeSheetSaving, ShowsAndAddsUpWhatTheColumnsHold) {
    Offen();
    const int row = Zeile(2);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "33,3333333333"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI1, "-49,99499999999"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), MI1, "50"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "123456789"));
    EXPECT_TRUE(Person().Leave());
    const auto gezeigt = [this] {
        return Text(Zeile(2), DG_MA, MI1) + " " + Taxa().Text(Zeile(3), Schalen) + " " +
               Taxa().Text(Taxa().Rows() - 1, MI1);
    };
    // Covers and shares have 32 bits: the nearest to 33.3333333333 is 33.3333321, and 33.333332 reads back as
    // that; the nearest to 49.99499999999 is that of 49.995. That and 50 make 100 in 2 decimals. Valves are
    // whole numbers and keep theirs.
    EXPECT_EQ(gezeigt(), "33,333332||49,995 123456789 100");
    bogen->GridAlgenArt_Init();
    EXPECT_EQ(gezeigt(), "33,333332||49,995 123456789 100");
}

TEST_F(AlgaeSheetSaving, LeavesTheDigitsOfCellsThatNobodyTouched) {
    Teilraum();
    Bestaende();
    VierArten();
    // 33.333332 is the float above 33.33333, so a row that is written back must know all its digits.
    Fuellen("UPDATE awaArtPrStelle SET SD_MA=33.333332 WHERE ID_Art=2;");
    const std::string verschoben = "SELECT ID_Art FROM awaArtPrStelle WHERE ID_Art=2 AND SD_MA>33.333331;";
    ASSERT_FALSE(datei.Datenbank()->OpenRecordset(verschoben)->Eof());
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), DG_MA, "5"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_FALSE(datei.Datenbank()->OpenRecordset(verschoben)->Eof());
}

TEST_F(AlgaeSheetSaving, WritesTheRowBeforeItsShares) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "400"));
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_Art=3;");
    auto tabellen = datei.Datenbank()->TableDefs();
    tabellen.Delete("awaArtPrStelle_MI");
    EXPECT_FALSE(Person().Leave());
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    // The first statement is the one that fails.
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3021 - ")) << boxen[0];
}

TEST_F(AlgaeSheetSaving, MovesRowAndSharesToTheNewCf) {
    Teilraum();
    Bestaende();
    VierArten();
    Fuellen("UPDATE awaArtPrStelle SET DG_MA=2.5 WHERE ID_Art=2;");
    Anteil(31, 2, "60");
    Anteil(32, 2, "25.5");
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, true));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Fund(2), ElementsAre("-1|2.5|0|0|0|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|-1|60", "32|2|-1|25.5"));
    // And back, though the list was not read anew.
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, false));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Fund(2), ElementsAre("0|2.5|0|0|0|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|60", "32|2|0|25.5"));
}

TEST_F(AlgaeSheetSaving, TouchesOnlyTheRowWithItsCf) {
    Teilraum();
    Bestaende();
    VierArten();
    Algenbogen::Fund(2, "DG_MA=9", true);
    Anteil(31, 2, "10", true);
    Anteil(31, 2, "20");
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI1, "30"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|30", "31|2|-1|10"));
    EXPECT_THAT(Fund(2), ElementsAre("0|0|0|0|0|0", "-1|9|0|0|0|0"));
}

TEST_F(AlgaeSheetSaving, TakesAShareOfTheNewCfOverThatStoodThereWithoutARow) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "10", true);
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI1, "30"));
    EXPECT_TRUE(Person().CheckCell(Taxa(), Zeile(2), CF, true));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Anteile(), ElementsAre("31|2|-1|30"));
}

// ---- a store that refuses ------------------------------------------------------------------------------

TEST_F(AlgaeSheetSaving, KeepsRowCursorAndTextWhereTheStoreRefuses) {
    Teilraum();
    Bestaende();
    VierArten();
    Algenbogen::Fund(2, "", true);
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "4,5"));
    // The taxon stands there with cf. already.
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, true));
    EXPECT_FALSE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3022 - ")) << boxen[0];
    EXPECT_EQ(Taxa().Row(), row);
    EXPECT_EQ(Taxa().Text(row, DG_MA), "4,5");
    EXPECT_TRUE(Taxa().Checked(row, CF));
    EXPECT_THAT(Fund(2), ElementsAre("0|0|0|0|0|0", "-1|0|0|0|0|0"));
    // Commands wait for the row, too.
    EXPECT_FALSE(Person().Click(bogen->cmdArtNeu));
    EXPECT_EQ(controls::OpenForms().All().size(), 1U);
    Boxen();
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, false));
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Fund(2), ElementsAre("0|4.5|0|0|0|0", "-1|0|0|0|0|0"));
}

TEST_F(AlgaeSheetSaving, WritesRowAndSharesTogetherOrNotAtAll) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "60");
    ASSERT_TRUE(Oeffnen());
    const int row = Zeile(2);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, DG_MA, "3"));
    EXPECT_TRUE(Person().EditCell(Taxa(), row, MI2, "40"));
    EXPECT_TRUE(Person().CheckCell(Taxa(), row, CF, true));
    // Another hand takes the second stand away: row and first share can be written, the second share can't.
    datei.Datenbank()->Execute("DELETE * FROM awaTeilraum_MI WHERE ID_TR_MI=32;");
    EXPECT_FALSE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3200 - ")) << boxen[0];
    EXPECT_THAT(Fund(2), ElementsAre("0|0|0|0|0|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|60"));
    EXPECT_EQ(Taxa().Row(), row);
    EXPECT_EQ(Text(row, DG_MA, MI2), "3||60|40");
    // Once the store takes it, the same row is written whole.
    datei.Datenbank()->Execute(
        "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (32, 17, 'Häutchen');");
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    EXPECT_THAT(Fund(2), ElementsAre("-1|3|0|0|0|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|-1|60", "32|2|-1|40"));
}

TEST_F(AlgaeSheetSaving, ComesBeforeTheListIsBuiltAnewAndBeforeEveryCommand) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "400"));
    bogen->GridAlgenArt_Init();
    EXPECT_THAT(Fund(3), ElementsAre("0|0|0|400|0|0"));
    EXPECT_EQ(Taxa().Text(Zeile(3), Schalen), "400");
    // A command that is called from elsewhere than its button.
    const std::vector<std::function<void()>> befehle{
        [this] { bogen->cmdArtNeu_Click(); }, [this] { bogen->cmdArtAendern_Click(); },
        [this] { bogen->cmdArtLoeschen_Click(); }, [this] { bogen->cmdAlgenMI_Hinzufuegen_Click(); },
        [this] { bogen->cmdAlgenMI_Loeschen_Click(); }};
    int schalen = 400;
    for (const auto& befehl : befehle) {
        bogen->Select_AktArt(3, false);
        EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), MI1 + bogen->intAnzahlMI, std::to_string(++schalen)));
        befehl();
        EXPECT_THAT(Fund(3), ElementsAre("0|0|0|" + std::to_string(schalen) + "|0|0"));
    }
}

TEST_F(AlgaeSheetSaving, SaysWhereTheRowIsNotStoredAnyMore) {
    Offen();
    const int row = Zeile(3);
    EXPECT_TRUE(Person().EditCell(Taxa(), row, Schalen, "400"));
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_Art=3;");
    EXPECT_FALSE(Person().SelectCell(Taxa(), Zeile(1), DG_MA));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3021 - ")) << boxen[0];
    EXPECT_EQ(Taxa().Text(row, Schalen), "400");
    // Nothing is done, and the list keeps what was typed.
    for (const auto& befehl : std::vector<std::function<void()>>{
             [this] { bogen->GridAlgenArt_Init(); }, [this] { bogen->cmdArtNeu_Click(); },
             [this] { bogen->cmdArtLoeschen_Click(); }, [this] { bogen->cmdAlgenMI_Hinzufuegen_Click(); },
             [this] { bogen->cmdXLSImport_Click(); }}) {
        befehl();
        EXPECT_EQ(Taxa().Text(row, Schalen), "400");
    }
    EXPECT_EQ(controls::OpenForms().All().size(), 1U);
    EXPECT_EQ(Zeilen("SELECT ID_TR_MI FROM awaTeilraum_MI").size(), 2U);
}

TEST_F(AlgaeSheetSaving, AsksBeforeItClosesWithoutARowThatCannotBeSaved) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "400"));
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_Art=3;");
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_EQ(Boxen().size(), 2U);
    EXPECT_TRUE(bogen->IsOpen());
    Antworten({store::Answer::Yes});
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_FALSE(bogen->IsOpen());
}

TEST_F(AlgaeSheetSaving, RefusesAValueBeyondTheColumn) {
    Offen();
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "3000000000"));
    EXPECT_FALSE(Person().Leave());
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|6 - ")) << boxen[0];
    EXPECT_EQ(Taxa().Text(Zeile(3), Schalen), "3000000000");
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), Schalen, "300"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Fund(3), ElementsAre("0|0|0|300|0|0"));
}

}  // namespace
}  // namespace FX_Algen::entry
