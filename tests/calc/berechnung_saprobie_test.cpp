#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;

constexpr std::int32_t TR = 17;

Werte Sap(double SI, double gewicht, std::int32_t lebensform = 1) {
    Werte werte;
    werte.SI = SI;
    werte.Sap_GBer = gewicht;
    werte.Lebensform = lebensform;
    return werte;
}

void Rechne(Testdatenbank& db, bool IstWRRL = false) {
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), TR, IstWRRL, false, false);
}

TEST(BerechnungSaprobie, OfMacroalgaeAloneIsTheirWeightedMean) {
    Testdatenbank db;
    db.Teilraum(TR, {50, 50, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(1.5, 2));
    db.Art(2, Sap(2.5, 4));
    db.Fund(1, 1, {30, 0, 0, false});
    db.Fund(1, 2, {20, 0, 0, false});
    Rechne(db);
    // (30*2*1.5 + 20*4*2.5) / (30*2 + 20*4) = 290 / 140; in the scale of the index 580 / 280
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(580.0F / 280.0F));
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex_KA"), store::Value(0.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Gesamt"), store::Value(50.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Makroalgen"), store::Value(50.0F));
    EXPECT_THAT(db.Klassen(TR), ElementsAre(0, 1, 0, 1, 0, 0, 0));
}

TEST(BerechnungSaprobie, OfDiatomsAloneEqualsTheirOwnIndex) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(1, 3), 128);
    db.Art(2, Sap(2, 1), 128);
    db.Fund(1, 1, {0, 100, 0, false});
    db.Fund(1, 2, {0, 300, 0, false});
    Rechne(db);
    // w = 100*3/400*100 = 75 and 300*1/400*100 = 75: (75*1 + 75*2) / 150
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(1.5F));
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex_KA"), store::Value(1.5F));
}

TEST(BerechnungSaprobie, WithoutTotalCoverSkipsMacroalgaeAndStandsButNotTheClassesOfStands) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(1, 1));
    db.Art(2, Sap(2, 1));
    db.Fund(1, 1, {30, 0, 0, false});
    db.Bestand(5, TR, 20);
    db.Bestandsart(5, 2, 100);
    Rechne(db);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(0.0F));
    // the macroalga (class I) is not read, the taxon of the stand (class II) is counted
    EXPECT_THAT(db.Klassen(TR), ElementsAre(0, 0, 1, 0, 0, 0, 0));
}

TEST(BerechnungSaprobie, WithANegativeTotalCoverSkipsMacroalgaeAndStandsToo) {
    Testdatenbank db;
    db.Teilraum(TR, {-40, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(3, 1));
    db.Art(2, Sap(2, 1));
    db.Art(3, Sap(1, 1), 128);
    db.Fund(1, 1, {10, 0, 0, false});
    db.Fund(1, 3, {0, 4, 0, false});
    db.Bestand(5, TR, 10);
    db.Bestandsart(5, 2, 100);
    Rechne(db);
    // diatom alone: 100 * 1 / 100. Read all the same, the macroalga would add 10/-40*100 = -25 and -25 * 3 =
    // -75, the stand 10/-40*100 = -25, 100 percent of it -25 and -25 * 2 = -50: (100 - 75 - 50) / 50 = -0.5
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Gesamt"), store::Value(-40.0F));
    // the macroalga (III) is not counted, the taxon of the stand (II) and the diatom (I) are
    EXPECT_THAT(db.Klassen(TR), ElementsAre(1, 0, 1, 0, 0, 0, 0));
}

TEST(BerechnungSaprobie, WeighsStandsByTheirShareOfTheTotalCover) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 0, 0, 0});
    db.Art(1, Sap(2, 1));
    db.Art(2, Sap(3, 2));
    db.Bestand(5, TR, 20);
    db.Bestand(6, TR, 10);
    db.Bestand(7, TR, 10);  // without taxa: adds nothing
    db.Bestandsart(5, 1, 60);
    db.Bestandsart(5, 2, 40);
    db.Bestandsart(6, 1, 100);
    Rechne(db);
    // stand 5: share 50; w = 60*1*50/100 = 30 and 40*2*50/100 = 40. stand 6: share 25; w = 100*1*25/100 = 25.
    // (30*2 + 40*3 + 25*2) / (30 + 40 + 25) = 230 / 95
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(230.0F / 95.0F));
    // classes: taxon 1 in both stands, taxon 2 in one; every row counts
    EXPECT_THAT(db.Klassen(TR), ElementsAre(0, 0, 2, 0, 1, 0, 0));
}

TEST(BerechnungSaprobie, CountsATaxonOfMacroalgaeAndValvesInBothBlocks) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1));
    db.Art(2, Sap(1, 1));
    db.Fund(1, 1, {20, 3, 0, false});
    db.Fund(1, 2, {0, 1, 0, false});  // cover 0: in the valve block alone
    Rechne(db);
    // macroalga 20/40*100 = 50, *2 = 100; valves of 4: 75, *2 = 150 and 25, *1 = 25: 275 / 150; valves 175 /
    // 100
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(275.0F / 150.0F));
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex_KA"), store::Value(1.75F));
    EXPECT_THAT(db.Klassen(TR), ElementsAre(1, 0, 2, 0, 0, 0, 0));
}

TEST(BerechnungSaprobie, TakesATaxonWithAndWithoutCfAsTwoContributions) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(1, 1));
    db.Art(2, Sap(2, 1));
    db.Fund(1, 1, {10, 0, 0, false});
    db.Fund(1, 1, {10, 0, 0, true});
    db.Fund(1, 2, {20, 0, 0, false});
    Rechne(db);
    // 25*1 + 25*1 + 50*2 = 150 of 100
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(1.5F));
    // both rows of taxon 1 come one after the other: one class count
    EXPECT_THAT(db.Klassen(TR), ElementsAre(1, 0, 1, 0, 0, 0, 0));
}

TEST(BerechnungSaprobie, CountsATaxonOfTwoSitesTwiceUnlessItsRowsAreNeighbours) {
    for (const bool getrennt : {false, true}) {
        Testdatenbank db;
        db.Teilraum(TR, {40, 40, 0, 0});
        db.Art(1, Sap(1, 1));
        db.Art(2, Sap(2, 1));
        db.Stelle(1, TR);
        db.Stelle(2, TR);
        db.Fund(1, 1, {10, 0, 0, false});
        db.Fund(2, 1, {10, 0, 0, false});
        // the rows come site by site: behind taxon 1 of the first site, or behind that of the second
        db.Fund(getrennt ? 1 : 2, 2, {20, 0, 0, false});
        Rechne(db);
        EXPECT_THAT(db.Klassen(TR), ElementsAre(getrennt ? 2 : 1, 0, 1, 0, 0, 0, 0));
        EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(1.5F));
    }
}

TEST(BerechnungSaprobie, GivesTheSameClassCountsEachTime) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Stelle(2, TR);
    for (std::int32_t art = 1; art <= 8; ++art) {
        db.Art(art, Sap(0.5 * art, 1));
        db.Fund(1, art, {1, art, 0, false});
        if (art % 3 == 0) db.Fund(2, art, {1, 1, 0, false});
    }
    Rechne(db);
    const auto einmal = db.Klassen(TR);
    for (int i = 0; i < 3; ++i) {
        Rechne(db);
        EXPECT_EQ(db.Klassen(TR), einmal);
    }
}

TEST(BerechnungSaprobie, WithAllWeightsZeroIsZeroAndStillFillsTheClasses) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(3.5, 0));
    db.Art(2, Sap(3.4999995, 0));
    db.Fund(1, 1, {10, 0, 0, false});
    db.Fund(1, 2, {10, 0, 0, false});
    Rechne(db);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(0.0F));
    // 3.5 is of class IV, 3.4999995 lies in the gap
    EXPECT_THAT(db.Klassen(TR), ElementsAre(0, 0, 0, 0, 0, 0, 1));
}

TEST(BerechnungSaprobie, WithKAOnlyCalculatesTheValvesAndWritesTheOtherRow) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 30, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(3, 1));
    db.Art(2, Sap(1, 1), 128);
    db.Fund(1, 1, {20, 0, 0, false});
    db.Fund(1, 2, {0, 5, 0, false});
    db.Bestand(5, TR, 20);
    db.Bestandsart(5, 1, 100);
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, 0);");
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, -1);");
    Berechnung_Saprobie(db.Datenbank(), TR, false, false, false, true);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex", true), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex_KA", true), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Gesamt", true), store::Value(40.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Makroalgen", true), store::Value(30.0F));
    EXPECT_EQ(db.Ergebnis(TR, "ANZ_Gueteklasse_I", true).I4(), 1);
    EXPECT_EQ(db.Ergebnis(TR, "ANZ_Gueteklasse_III", true).I4(), 0);
    EXPECT_TRUE(db.Ergebnis(TR, "SapIndex", false).IsNull());
}

TEST(BerechnungSaprobie, WithoutResultRowStoresNothingAndDoesNotFail) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1));
    db.Fund(1, 1, {20, 0, 0, false});
    Berechnung_Saprobie(db.Datenbank(), TR, false, false, false, false);
    EXPECT_FALSE(db.HatErgebnis(TR));
}

TEST(BerechnungSaprobie, WithoutAlgaeSampleCountsTheValvesAlone) {
    Testdatenbank db;
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1));
    db.Fund(1, 1, {20, 4, 0, false});
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES(17, 0);");
    Berechnung_Saprobie(db.Datenbank(), TR, false, false, false, false);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Gesamt"), store::Value(0.0F));
    EXPECT_THAT(db.Klassen(TR), ElementsAre(0, 0, 1, 0, 0, 0, 0));
}

TEST(BerechnungSaprobie, CountsValvesOfUnratedTaxaInTheSumOnly) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1), 128);
    db.ArtOhneWerte(2, 128);
    db.Fund(1, 1, {0, 100, 0, false});
    db.Fund(1, 2, {0, 300, 0, false});
    Rechne(db);
    // the unrated taxon makes the sum 400, so w = 25; it drops out of the quotient again
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
    EXPECT_EQ(db.Ergebnis(TR, "Taxa"), store::Value(2.0));
    EXPECT_EQ(db.Ergebnis(TR, "Taxa_KA"), store::Value(2.0));
    EXPECT_EQ(db.Ergebnis(TR, "Taxa_SI_KA"), store::Value(1.0));
}

TEST(BerechnungSaprobie, InTheAssessmentVariantTakesItsOwnCoversAndTaxa) {
    Testdatenbank db;
    db.Teilraum(TR, {10, 5, 40, 30});
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1));         // counts
    db.Art(2, Sap(1, 1, 2));      // other life form
    db.Art(3, Sap(1, 1), 128);    // diatom by group
    db.Art(4, Sap(1, 1), 132);    // group 132
    db.Art(5, Sap(3.6, 1), 131);  // last group that counts
    for (std::int32_t art = 1; art <= 5; ++art) db.Fund(1, art, {10, 0, 0, false});
    db.Bestand(6, TR, 1, 0, 20);
    for (std::int32_t art = 1; art <= 5; ++art) db.Bestandsart(6, art, 20);
    Rechne(db, true);
    // macroalgae: taxa 1 and 5 with 10/40*100 = 25 each; stand: share 20/40*100 = 50, 20 percent of it = 10
    // each: (25*2 + 25*3.6 + 10*2 + 10*3.6) / 70 = 196 / 70 = 2.8
    EXPECT_FLOAT_EQ(db.Ergebnis(TR, "SapIndex").R4(), 2.8F);
    EXPECT_EQ(db.Ergebnis(TR, "DG_Gesamt"), store::Value(40.0F));
    EXPECT_EQ(db.Ergebnis(TR, "DG_Makroalgen"), store::Value(30.0F));
    // classes: macroalgae as they count (2: II, 3.6: IV), of the stand all five rows (1: I three times)
    EXPECT_THAT(db.Klassen(TR), ElementsAre(3, 0, 2, 0, 0, 0, 2));
}

TEST(BerechnungSaprobie, InTheAssessmentVariantFiltersValvesByLifeFormAlone) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Sap(2, 1), 128);
    db.Art(2, Sap(1, 1, 2), 128);
    db.ArtOhneWerte(3, 128);
    db.Fund(1, 1, {0, 25, 0, false});
    db.Fund(1, 2, {0, 75, 0, false});
    db.Fund(1, 3, {0, 900, 0, false});
    Rechne(db, true);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
    // the sum joins the ratings here: Taxazahl mode 11
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 11, true), 25);
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 11, false), 1000);
}

TEST(BerechnungSaprobie, RoundsItsSumsTo32BitsAtEachRow) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    // 4 valves in all. Weights: 2 * 2^24 / 4 * 100 = 838860800 = 50 * 2^24 for the first; 1 * 1 / 4 * 100 =
    // 25 for the others. Above 2^29 neighbours are 64 apart: 838860800 + 25 goes back to 838860800, both
    // times. Values: SI 1 for the first, 2^24 for the others: 25 * 2^24 each, exact: 50*2^24 + 25*2^24 +
    // 25*2^24. Index = 100 * 2^24 / (50 * 2^24) = 2 exactly; with weights summed in 64 bits it would be below
    // 2 by 2 * 50 / 838860850 = 1.2e-7, which is one step of a 32-bit float below 2.
    db.Art(1, Sap(1, 16777216), 128);
    db.Art(2, Sap(16777216, 1), 128);
    db.Art(3, Sap(16777216, 1), 128);
    db.Fund(1, 1, {0, 2, 0, false});
    db.Fund(1, 2, {0, 1, 0, false});
    db.Fund(1, 3, {0, 1, 0, false});
    Rechne(db);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
    EXPECT_NE(static_cast<float>(100.0 * 16777216.0 / (50.0 * 16777216.0 + 50.0)), 2.0F);
}

}  // namespace
}  // namespace FX_Algen
