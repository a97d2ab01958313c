#include "FX_Algen/Error.h"
#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetTaxa : public Algenbogen {
protected:
    /// Keys of the taxa as the list shows them, a cf. row with "cf".
    std::vector<std::string> Liste() {
        std::vector<std::string> out;
        for (int row = 3; row < Taxa().Rows() && !Taxa().Text(row, 1).empty(); ++row)
            out.push_back(Taxa().Text(row, 1) + (Taxa().Checked(row, CF) ? "cf" : ""));
        return out;
    }
    const std::string Behoben = Meldung(12047);
};

TEST_F(AlgaeSheetTaxa, HaveTheColumnsOfTheSheet) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Taxa().Cols(), 17);  // n + 15 with n = 2
    EXPECT_EQ(bogen->intAnzahlMI, 2);
    EXPECT_EQ(bogen->intStartColMi, 10);
    EXPECT_EQ(
        Text(0, 0, 13),
        "||Gattung|Art|cf.|MA->MI|LF n.b.||Makroalgen|Schichtdicke|Überzug|Häutchen|Kieselalgen|Makrophyten");
    EXPECT_EQ(Text(1, 8, 13), "DG [%]|SD [mm]|DG [%]|DG [%]|Schalenanzahl|");
    EXPECT_EQ(Text(2, 8, 13), "||31|32||");
    EXPECT_EQ(Taxa().FixedRows(), 3);
    EXPECT_FALSE(Taxa().RowHidden(1));
    EXPECT_TRUE(Taxa().RowHidden(2));
    for (const int col : {1, 7, 14, 15, 16}) EXPECT_TRUE(Taxa().ColHidden(col)) << col;
    for (const int col : {0, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13}) EXPECT_FALSE(Taxa().ColHidden(col)) << col;
}

TEST_F(AlgaeSheetTaxa, HaveTheValvesInColumnTenWithoutStands) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Taxa().Cols(), 15);
    EXPECT_EQ(Taxa().Text(1, 10), "Schalenanzahl");
    EXPECT_EQ(Taxa().Text(0, 11), "Makrophyten");
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(3), 10, "12"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Zeilen("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_Art=3"), ElementsAre("12"));
}

TEST_F(AlgaeSheetTaxa, ComeByGroupKindGenusSpeciesAndCf) {
    Teilraum();
    Art(1, {"Öd", "a", 130, "Makroalge"});
    Art(2, {"Achnanthes", "b", 128});
    Art(3, {"Zygnema", "a"});
    Art(4, {"Öd", "a"});
    Art(5, {"Oed", "b", 130, std::nullopt});
    Art(6, {"Achnanthes", "a", 128});
    Art(7, {"Zygnema", "A"});
    for (const int art : {1, 2, 3, 4, 5, 6, 7}) Fund(art);
    Fund(2, "", true);
    ASSERT_TRUE(Oeffnen());
    // RF_Kieselalge 0 of group 130 comes before 1 of the diatoms (128). Within 0 by Algenart: Null, then
    // "benthisch", then "Makroalge". Genera in German order, "Öd" before "Zygnema"; "a" and "A" are equal.
    const auto liste = Liste();
    ASSERT_EQ(liste.size(), 8U);
    EXPECT_EQ(liste[0], "5");
    EXPECT_EQ(liste[1], "4");
    EXPECT_THAT(std::vector(liste.begin() + 2, liste.begin() + 4), testing::UnorderedElementsAre("3", "7"));
    EXPECT_THAT(std::vector(liste.begin() + 4, liste.end()), ElementsAre("1", "6", "2cf", "2"));
}

TEST_F(AlgaeSheetTaxa, ShowNumbersAboveZeroOnly) {
    Teilraum();
    Bestaende();
    VierArten();
    Fuellen("UPDATE awaArtPrStelle SET DG_MA=2.5, SD_MA=0, DG_MP=-3 WHERE ID_Art=1;");
    Fuellen("UPDATE awaArtPrStelle SET Schalen_KA=400, DG_MA=Null WHERE ID_Art=3;");
    Anteil(31, 2, "33.3");
    Anteil(32, 2, "0");
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Text(Zeile(1), 8, 13), "2,5|||||");
    EXPECT_EQ(Text(Zeile(3), 8, 13), "||||400|");
    EXPECT_EQ(Text(Zeile(2), 8, 13), "||33,3|||");
}

TEST_F(AlgaeSheetTaxa, CarryFlagsKindsAndColours) {
    Teilraum();
    Bestaende();
    Art(1, {"Cladophora", "glomerata", 130, "Makroalge", 1});
    Art(2, {"Ulothrix", "zonata", 130, "Makroalge", 2});
    ArtOhneWerte(3, {"Vaucheria", "grün"});
    Fund(1, "MAalsMI=-1");
    Fund(2);
    Fund(3);
    ASSERT_TRUE(Oeffnen());
    const int eins = Zeile(1), zwei = Zeile(2), drei = Zeile(3);
    ASSERT_GT(drei, 0) << "a finding without ratings is lost";
    EXPECT_TRUE(Taxa().Checked(eins, MAalsMI));
    EXPECT_FALSE(Taxa().Checked(zwei, MAalsMI));
    EXPECT_FALSE(Taxa().Checked(eins, LF));
    EXPECT_TRUE(Taxa().Checked(zwei, LF));
    EXPECT_TRUE(Taxa().Checked(drei, LF));
    for (const int row : {eins, zwei, drei}) EXPECT_EQ(Taxa().Text(row, 7), "MA");
    for (const int col : {GattungCol, CF, DG_MA, Makrophyten}) {
        EXPECT_NE(Taxa().CellColor(eins, col), controls::Colour{0xE0E0E0}) << col;
        EXPECT_EQ(Taxa().CellColor(zwei, col), controls::Colour{0xE0E0E0}) << col;
        EXPECT_EQ(Taxa().CellColor(drei, col), controls::Colour{0xE0E0E0}) << col;
    }
}

TEST_F(AlgaeSheetTaxa, AreRuledBetweenTwoKinds) {
    Teilraum();
    VierArten();
    Art(7, {"Navicula", "öd", 128});
    Fund(7);
    ASSERT_TRUE(Oeffnen());
    ASSERT_THAT(Liste(), ElementsAre("2", "1", "3", "7", "6"));
    EXPECT_EQ(Taxa().RowRule(3), std::nullopt);
    EXPECT_EQ(Taxa().RowRule(4), controls::Colour{0x007D7D});  // MI to MA
    EXPECT_EQ(Taxa().RowRule(5), controls::Colour{0x007D7D});  // MA to KA
    EXPECT_EQ(Taxa().RowRule(6), std::nullopt);
    EXPECT_EQ(Taxa().RowRule(7), controls::Colour{0x007D7D});  // KA to HP
    EXPECT_EQ(Taxa().RowRule(8), std::nullopt);
}

TEST_F(AlgaeSheetTaxa, HaveTheCursorInTheFirstRow) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Taxa().Row(), 3);
    EXPECT_EQ(Taxa().Text(3, 1), "2");
}

TEST_F(AlgaeSheetTaxa, AreCountedOneShortWithoutTheSecondSum) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen(true));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "4 Taxa (Zeilen)");
    ASSERT_TRUE(Oeffnen(false));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "3 Taxa (Zeilen)");
    ASSERT_TRUE(Oeffnen(true, true, 20000));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "4 taxa (rows)");
}

TEST_F(AlgaeSheetTaxa, AreCountedInTheSameWordsWhereThereIsOneOrNone) {
    Teilraum();
    ASSERT_TRUE(Oeffnen(true));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "0 Taxa (Zeilen)");
    ASSERT_TRUE(Oeffnen(false));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "-1 Taxa (Zeilen)");
    Art(1, {"Cladophora", "glomerata"});
    Fund(1);
    ASSERT_TRUE(Oeffnen(true));
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "1 Taxa (Zeilen)");
}

// ---- shares and repair ---------------------------------------------------------------------------------

TEST_F(AlgaeSheetTaxa, ShowEachShareInItsStandAndRow) {
    Teilraum();
    Bestaende();
    VierArten();
    Fund(2, "", true);
    Anteil(31, 2, "60");
    Anteil(31, 2, "40", true);
    Anteil(32, 2, "7.25", true);
    Anteil(32, 1, "5");
    ASSERT_TRUE(Oeffnen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Text(Zeile(2, true), MI1, MI2), "40|7,25");
    EXPECT_EQ(Text(Zeile(2), MI1, MI2), "60|");
    EXPECT_EQ(Text(Zeile(1), MI1, MI2), "|5");
    EXPECT_EQ(Zeile(2) - Zeile(2, true), 1);
}

TEST_F(AlgaeSheetTaxa, ShowSharesOfTwoTaxaOfOneNameEachInItsRow) {
    Teilraum();
    Bestaende();
    Art(1, {"Navicula", "sp."});
    Art(2, {"Navicula", "sp."});
    for (const int art : {1, 2})
        for (const bool cf : {true, false}) {
            Fund(art, "", cf);
            Anteil(31, art, std::to_string(art * 10 + (cf ? 5 : 0)), cf);
        }
    ASSERT_TRUE(Oeffnen());
    // Equal names: the cf. rows of both stand before the plain ones.
    for (const int art : {1, 2})
        for (const bool cf : {true, false})
            EXPECT_EQ(Taxa().Text(Zeile(art, cf), MI1), std::to_string(art * 10 + (cf ? 5 : 0)));
}

TEST_F(AlgaeSheetTaxa, AreRepairedWhereAShareHasNoRow) {
    Teilraum();
    Bestaende();
    VierArten();
    Art(8, {"Lemanea", "fluviatilis", 130, "Makroalge"});
    Art(9, {"Phormidium", "öd", 130, std::nullopt});
    Anteil(31, 8, "12.5");
    Anteil(31, 9, "20", true);
    ASSERT_TRUE(Oeffnen());
    EXPECT_THAT(Boxen(), ElementsAre(Behoben));
    // MA->MI exactly where the kind of alga is "Makroalge": Null is none.
    EXPECT_THAT(Zeilen("SELECT ID_Art, CF, MAalsMI FROM awaArtPrStelle WHERE ID_Art>=8 ORDER BY ID_Art"),
                ElementsAre("8|0|-1", "9|-1|0"));
    EXPECT_EQ(Taxa().Text(Zeile(8), MI1), "12,5");
    EXPECT_EQ(Taxa().Text(Zeile(9, true), MI1), "20");
    EXPECT_EQ(Taxa().Rows(), 3 + 6 + 2);
    EXPECT_EQ(bogen->lblTaxazahl.Caption(), "6 Taxa (Zeilen)");
}

TEST_F(AlgaeSheetTaxa, AreRepairedOnceWhereTheShareStandsInTwoStandsAndTwice) {
    Teilraum();
    Bestaende();
    Art(8, {"Phormidium", "öd"});
    Anteil(31, 8, "12.5");
    Anteil(32, 8, "20");
    Anteil(31, 8, "30", true);
    ASSERT_TRUE(Oeffnen(false));
    EXPECT_THAT(Boxen(), ElementsAre(Behoben));
    EXPECT_THAT(Liste(), ElementsAre("8cf", "8"));
    EXPECT_EQ(Text(3, MI1, MI2), "30|");
    EXPECT_EQ(Text(4, MI1, MI2), "12,5|20");
    EXPECT_EQ(Taxa().Rows(), 3 + 2 + 1);
}

TEST_F(AlgaeSheetTaxa, AreNotRepairedWhereTheRowHasTheOtherCf) {
    Teilraum();
    Bestaende();
    Art(8, {"Phormidium", "öd"});
    Fund(8);
    Anteil(31, 8, "30", true);
    ASSERT_TRUE(Oeffnen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_EQ(Text(3, MI1, MI2), "|");
    EXPECT_THAT(Funde(), ElementsAre("8|0|0|0|0|0|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|8|-1|30"));
}

TEST_F(AlgaeSheetTaxa, KeepNothingOfTheRowsBeforeWhenTheyAreFilledAgain) {
    Teilraum();
    Bestaende();
    VierArten();
    Art(7, {"Amphora", "öd", 130, "benthisch", 2});
    Fund(7);
    Anteil(31, 7, "60");
    ASSERT_TRUE(Oeffnen());
    ASSERT_EQ(Zeile(7), 3);
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle_MI;");
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_Art=7;");
    bool ok = false;
    bogen->GridAlgenArt_Daten(ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(Taxa().Rows(), 3 + 4 + 2);
    EXPECT_EQ(Text(3, MI1, MI2), "|");
    EXPECT_EQ(Taxa().CellColor(3, GattungCol), std::nullopt);
    // The last taxon stands where the first sum was.
    EXPECT_EQ(Text(Zeile(6), DG_MA, Makrophyten), "|||||");
    EXPECT_EQ(Taxa().CellColor(Zeile(6), DG_MA), std::nullopt);
}

TEST_F(AlgaeSheetTaxa, AreToldOfWhereTheCatalogueLacksThem) {
    Teilraum();
    Bestaende();
    VierArten();
    const std::string zwei =
        "Algen - Probenstelle|2 Funde dieser Probenstelle stehen nicht in der Liste, weil ihr Taxon im "
        "Katalog "
        "fehlt. Sie bleiben gespeichert.";
    // Taxon 77 was found, 78 has a share alone; the catalogue has neither.
    Fund(77, "Schalen_KA=5");
    Anteil(31, 77, "60");
    Anteil(31, 78, "40", true);
    ASSERT_TRUE(Oeffnen());
    // 78 is entered as any taxon with a share; that is done once.
    EXPECT_THAT(Boxen(), ElementsAre(Behoben, zwei));
    EXPECT_THAT(Liste(), ElementsAre("2", "1", "3", "6"));
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI1, "7"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_THAT(Boxen(), IsEmpty());
    ASSERT_TRUE(Oeffnen());
    EXPECT_THAT(Boxen(), ElementsAre(zwei));
    EXPECT_THAT(Zeilen("SELECT ID_Art, CF, Schalen_KA FROM awaArtPrStelle WHERE ID_Art>70 ORDER BY ID_Art"),
                ElementsAre("77|0|5", "78|-1|0"));
    EXPECT_THAT(Anteile(), ElementsAre("31|2|0|7", "31|77|0|60", "31|78|-1|40"));
}

TEST_F(AlgaeSheetTaxa, StayClosedWhereTheSharesCannotBeRead) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "30");
    auto tabellen = datei.Datenbank()->TableDefs();
    tabellen.Delete("awaArtPrStelle_MI");
    ASSERT_TRUE(Oeffnen());
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_TRUE(boxen[0].starts_with("Algen - Probenstelle|3078 - ")) << boxen[0];
    // Saving a row whose shares are not shown would delete them.
    EXPECT_FALSE(Person().EditCell(Taxa(), 3, DG_MA, "3"));
    EXPECT_TRUE(Person().Close());
}

// ---- cursor --------------------------------------------------------------------------------------------

struct Ziel {
    std::string art;
    std::int32_t gruppe;
    std::string algenart;
    int ohneBestand;
    int mitBestaenden;
};

TEST_F(AlgaeSheetTaxa, TakeTheCursorWhereTheirKindIsEntered) {
    const std::vector<Ziel> ziele{
        {"MI", 130, "benthisch", 8, 10},  {"MA", 130, "Makroalge", 8, 8}, {"KA", 128, "benthisch", 10, 12},
        {"HP", 132, "Makroalge", 11, 13}, {"BA", 133, "benthisch", 8, 8}, {"PI", 134, "benthisch", 8, 8},
    };
    Teilraum();
    int id = 0;
    for (const auto& ziel : ziele) {
        Art(++id, {"Gattung" + std::to_string(id), "grün", ziel.gruppe, ziel.algenart});
        Fund(id);
    }
    ASSERT_TRUE(Oeffnen());
    for (int i = 1; i <= id; ++i) {
        const auto& ziel = ziele[static_cast<std::size_t>(i - 1)];
        bogen->Select_AktArt(i, false);
        EXPECT_EQ(Taxa().Row(), Zeile(i)) << ziel.art;
        EXPECT_EQ(Taxa().Text(Taxa().Row(), 7), ziel.art);
        EXPECT_EQ(Taxa().Col(), ziel.ohneBestand) << ziel.art;
    }
    Bestaende();
    ASSERT_TRUE(Oeffnen());
    for (int i = 1; i <= id; ++i) {
        bogen->Select_AktArt(i, false);
        EXPECT_EQ(Taxa().Col(), ziele[static_cast<std::size_t>(i - 1)].mitBestaenden) << i;
    }
}

TEST_F(AlgaeSheetTaxa, TakeTheCursorInTheSecondRowWhereTheFirstIsTheOtherCf) {
    Teilraum();
    Bestaende();
    Art(1, {"Sphaerotilus", "natans", 133});
    Art(2, {"Leptomitus", "lacteus", 134});
    Art(3, {"Navicula", "gregaria", 128});
    for (const int art : {1, 2, 3})
        for (const bool cf : {true, false}) Fund(art, "", cf);
    ASSERT_TRUE(Oeffnen());
    // Bacteria and fungi: column 8 in the first row, the first stand in the second.
    for (const int art : {1, 2}) {
        bogen->Select_AktArt(art, true);
        EXPECT_EQ(Taxa().Row(), Zeile(art, true));
        EXPECT_EQ(Taxa().Col(), DG_MA);
        bogen->Select_AktArt(art, false);
        EXPECT_EQ(Taxa().Row(), Zeile(art, false));
        EXPECT_EQ(Taxa().Col(), MI1);
    }
    bogen->Select_AktArt(3, false);
    EXPECT_EQ(Taxa().Row(), Zeile(3, false));
    EXPECT_EQ(Taxa().Col(), Schalen);
}

TEST_F(AlgaeSheetTaxa, TakeTheCursorInTheOnlyRowAndLeaveItWhereTheyAreNotListed) {
    Teilraum();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    bogen->Select_AktArt(3, true);
    EXPECT_EQ(Taxa().Row(), Zeile(3));
    bogen->Select_AktArt(99, false);
    EXPECT_EQ(Taxa().Row(), Zeile(3));
}

}  // namespace
}  // namespace FX_Algen::entry
