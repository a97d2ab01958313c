#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

class AlgaeSheetSums : public Algenbogen {
protected:
    int Erste() { return Taxa().Rows() - 2; }
    int Zweite() { return Taxa().Rows() - 1; }
    std::uint32_t Farbe(int row, int col) {
        const auto farbe = Taxa().CellColor(row, col);
        return farbe ? farbe->Rgb : 0;
    }
};

TEST_F(AlgaeSheetSums, AddUpWhatTheirMethodCounts) {
    Teilraum();
    Bestaende();
    Art(1, {"Cladophora", "glomerata", 130, "Makroalge"});
    Art(2, {"Ulothrix", "zonata", 130, "Makroalge", 2});
    Art(3, {"Navicula", "gregaria", 128});
    Art(4, {"Sphaerotilus", "natans", 133});
    Art(5, {"Leptomitus", "lacteus", 134});
    Art(6, {"Fontinalis", "öd", 132});
    Fund(1, "DG_MA=15, SD_MA=3, DG_MP=1");
    Fund(2, "DG_MA=2.5, DG_MP=2");
    Fund(3, "Schalen_KA=400");
    Fund(4, "DG_MA=1.5");
    Fund(5, "DG_MA=1");
    Fund(6, "DG_MP=8");
    Anteil(31, 1, "60");
    Anteil(31, 2, "10");
    Anteil(31, 4, "25");
    Anteil(31, 5, "5");
    Anteil(32, 1, "100");
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Text(Erste(), 2, 3), "Summe nach detailierter|Phytobenthos-Methode");
    EXPECT_EQ(Text(Zweite(), 2, 3), "Summe|");
    // Detailed: taxa 1 and 3 alone, since 2 has another life form, 4, 5 and 6 are no algae.
    // 15 | no thickness | 60 | 100 | 400 valves | 1 macrophytes
    EXPECT_EQ(Text(Erste(), DG_MA, Makrophyten), "15||60|100|400|1");
    // All: 15+2.5+1.5+1 = 20 | | 60+10+25+5 = 100 | 100 | 400 | 1+2+8 = 11
    EXPECT_EQ(Text(Zweite(), DG_MA, Makrophyten), "20||100|100|400|11");
    // 15 is the macroalgal stand by the Directive, 20 the classic one.
    EXPECT_EQ(Farbe(Erste(), DG_MA), Gruen);
    EXPECT_EQ(Farbe(Zweite(), DG_MA), Gruen);
    EXPECT_EQ(Farbe(Erste(), MI1), Rot);
    EXPECT_EQ(Farbe(Erste(), MI2), Gruen);
    EXPECT_EQ(Farbe(Zweite(), MI1), Gruen);
    for (const int col : {SD_MA, Schalen, Makrophyten}) {
        EXPECT_EQ(Farbe(Erste(), col), 0U) << col;
        EXPECT_EQ(Farbe(Zweite(), col), 0U) << col;
    }
}

struct Bestandssumme {
    std::string a, b;
    std::string summe;
    std::uint32_t farbe;
};

class SumOfAStand : public AlgaeSheetSums, public testing::WithParamInterface<Bestandssumme> {};

TEST_P(SumOfAStand, IsGreenAtExactlyHundredAfterRounding) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, GetParam().a);
    Anteil(31, 1, GetParam().b);
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Taxa().Text(Erste(), MI1), GetParam().summe);
    EXPECT_EQ(Farbe(Erste(), MI1), GetParam().farbe);
    EXPECT_EQ(Farbe(Zweite(), MI1), GetParam().farbe);
}

INSTANTIATE_TEST_SUITE_P(Cases, SumOfAStand,
                         testing::Values(Bestandssumme{"60", "40", "100", Gruen},
                                         Bestandssumme{"60", "39.99", "99,99", Rot},
                                         Bestandssumme{"60", "40.01", "100,01", Rot},
                                         Bestandssumme{"0", "0", "0", Rot},
                                         // 33.3 + 66.7 is 100 to the digit, whatever 32 bits make of it.
                                         Bestandssumme{"33.3", "66.7", "100", Gruen},
                                         // 49.996 + 50 = 99.996, rounded to 2 decimals 100.
                                         Bestandssumme{"49.996", "50", "100", Gruen},
                                         // 49.995 + 50 = 99.995: halves go up.
                                         Bestandssumme{"49.995", "50", "100", Gruen},
                                         // 50.005 + 50 = 100.005: halves go up here, too.
                                         Bestandssumme{"50.005", "50", "100,01", Rot},
                                         Bestandssumme{"49.994", "50", "99,99", Rot}));

TEST_F(AlgaeSheetSums, FollowASavedRow) {
    Teilraum();
    Bestaende();
    VierArten();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Farbe(Erste(), DG_MA), Rot);
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(1), DG_MA, "15"));
    // Not before the row is saved.
    EXPECT_EQ(Taxa().Text(Erste(), DG_MA), "0");
    EXPECT_TRUE(Person().SelectCell(Taxa(), Zeile(3), DG_MA));
    EXPECT_EQ(Taxa().Text(Erste(), DG_MA), "15");
    EXPECT_EQ(Farbe(Erste(), DG_MA), Gruen);
    EXPECT_EQ(Taxa().Text(Zweite(), DG_MA), "15");
    EXPECT_EQ(Farbe(Zweite(), DG_MA), Rot);
}

TEST_F(AlgaeSheetSums, FollowTheMacroalgalStandWhenItsFieldIsLeft) {
    Teilraum();
    VierArten();
    Fuellen("UPDATE awaArtPrStelle SET DG_MA=12.5 WHERE ID_Art=1;");
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Farbe(Erste(), DG_MA), Rot);
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Makro_WRRL, "12,5"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(Farbe(Erste(), DG_MA), Gruen);
    EXPECT_EQ(Farbe(Zweite(), DG_MA), Rot);
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Makro, "12.50"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(Farbe(Zweite(), DG_MA), Gruen);
}

TEST_F(AlgaeSheetSums, AreOneRowInTheOtherMode) {
    Teilraum();
    Bestaende();
    VierArten();
    Anteil(31, 2, "100");
    ASSERT_TRUE(Oeffnen(false));
    const int summe = Taxa().Rows() - 1;
    EXPECT_EQ(Text(summe, 2, 3), "Summe nach detailierter|Phytobenthos-Methode");
    EXPECT_EQ(Farbe(summe, MI1), Gruen);
    EXPECT_TRUE(Person().EditCell(Taxa(), Zeile(2), MI1, "99"));
    EXPECT_TRUE(Person().Leave());
    EXPECT_EQ(Farbe(summe, MI1), Rot);
    EXPECT_EQ(Taxa().Rows(), 8);
}

TEST_F(AlgaeSheetSums, AreTheOnlyRowsOfASiteWithoutTaxa) {
    Teilraum();
    Bestaende();
    ASSERT_TRUE(Oeffnen());
    EXPECT_EQ(Taxa().Rows(), 5);
    EXPECT_EQ(Text(3, DG_MA, Makrophyten), "0||0|0|0|0");
    EXPECT_EQ(Farbe(3, DG_MA), Rot);
    EXPECT_FALSE(Person().EditCell(Taxa(), 3, DG_MA, "1"));
}

}  // namespace
}  // namespace FX_Algen::entry
