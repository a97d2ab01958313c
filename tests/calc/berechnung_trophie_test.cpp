#include <gtest/gtest.h>

#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

constexpr std::int32_t TR = 17;

Werte Troph(double t, double g, double tN, double gN, const std::string& algenart = "benthisch",
            std::int32_t lebensform = 1) {
    return {0, 0, t, g, tN, gN, algenart, lebensform};
}

void Rechne(Testdatenbank& db, bool IstWRRL = false) {
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), TR, IstWRRL, false, false);
}

TEST(BerechnungTrophie, TakesEachPairOnItsOwn) {
    Testdatenbank db;
    db.Teilraum(TR, {60, 60, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(1.5, 2, 2, 1));
    db.Art(2, Troph(3, 1, 0, 0));  // no second pair
    db.Fund(1, 1, {30, 0, 0, false});
    db.Fund(1, 2, {30, 0, 0, false});
    Rechne(db);
    // first pair w = 100 and 50: (150 + 150) / 150 = 2; second pair taxon 1 alone: 2
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(2.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_N"), store::Value(2.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_KA"), store::Value(0.0F));
}

TEST(BerechnungTrophie, OfDiatomsAloneEqualsTheirOwnIndex) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(1, 2, 3, 1), 128);
    db.Art(2, Troph(2, 2, 1, 1), 128);
    db.Fund(1, 1, {0, 1, 0, false});
    db.Fund(1, 2, {0, 3, 0, false});
    Rechne(db);
    // first pair w = 50 and 150: (50*1 + 150*2) / 200 = 1.75; second w = 25 and 75: (75 + 75) / 100 = 1.5
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(1.75F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_KA"), store::Value(1.75F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_N"), store::Value(1.5F));
}

TEST(BerechnungTrophie, LeavesTaxaWithoutAlgenartOutOfAllButTheValves) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(1, 1, 1, 1));
    db.Art(2, Troph(3, 1, 3, 1, ""));
    db.Art(3, Troph(3, 1, 3, 1));
    db.SetzeNull("awaModulStandard", "Algenart", "ID_ART=3");
    db.Fund(1, 1, {20, 0, 0, false});
    db.Fund(1, 2, {20, 0, 0, false});
    db.Fund(1, 3, {20, 0, 0, false});
    db.Bestand(5, TR, 20);
    db.Bestandsart(5, 1, 50);
    db.Bestandsart(5, 2, 25);
    db.Bestandsart(5, 3, 25);
    Rechne(db);
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(1.0F));
    db.Fund(1, 2, {0, 7, 0, true});
    Rechne(db);
    // macroalga 50 and stand 50*50/100 = 25 of taxon 1, valves 100 of taxon 2: (75*1 + 100*3) / 175
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(375.0F / 175.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_KA"), store::Value(3.0F));
}

TEST(BerechnungTrophie, WithANegativeTotalCoverStillCountsTheValvesAlone) {
    Testdatenbank db;
    db.Teilraum(TR, {-40, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(3, 1, 3, 1));
    db.Art(2, Troph(2, 1, 2, 1));
    db.Art(3, Troph(1, 1, 1, 1), 128);
    db.Fund(1, 1, {10, 0, 0, false});
    db.Fund(1, 3, {0, 4, 0, false});
    db.Bestand(5, TR, 10);
    db.Bestandsart(5, 2, 100);
    Rechne(db);
    // diatom alone: 100 * 1 / 100; with the others at shares of -25 each (100 - 75 - 50) / 50 = -0.5
    for (const char* spalte : {"TI", "TI_N", "TI_KA"}) {
        EXPECT_EQ(db.Ergebnis(TR, spalte), store::Value(1.0F)) << spalte;
    }
}

TEST(BerechnungTrophie, WithoutTotalCoverStillCountsTheValves) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(3, 1, 3, 1));
    db.Art(2, Troph(1, 1, 1, 1), 128);
    db.Fund(1, 1, {20, 0, 0, false});
    db.Fund(1, 2, {0, 4, 0, false});
    db.Bestand(5, TR, 20);
    db.Bestandsart(5, 1, 100);
    Rechne(db);
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_KA"), store::Value(1.0F));
}

TEST(BerechnungTrophie, WithKAOnlyAndNoValvesIsZeroThroughout) {
    Testdatenbank db;
    db.Teilraum(TR, {40, 40, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, Troph(3, 1, 3, 1));
    db.Fund(1, 1, {20, 0, 0, false});
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, 0);");
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, -1);");
    Berechnung_Trophie(db.Datenbank(), TR, false, false, true);
    for (const char* spalte : {"TI", "TI_N", "TI_KA"}) {
        EXPECT_EQ(db.Ergebnis(TR, spalte, true), store::Value(0.0F)) << spalte;
        EXPECT_TRUE(db.Ergebnis(TR, spalte, false).IsNull()) << spalte;
    }
}

TEST(BerechnungTrophie, InTheAssessmentVariantTakesItsOwnCoversAndTaxa) {
    Testdatenbank db;
    db.Teilraum(TR, {10, 5, 40, 30});
    db.Stelle(1, TR);
    db.Art(1, Troph(2, 1, 1, 1));
    db.Art(2, Troph(9, 1, 9, 1, "benthisch", 2));
    db.Art(3, Troph(9, 1, 9, 1), 128);
    db.Art(4, Troph(9, 1, 9, 1), 132);
    db.Art(5, Troph(9, 1, 9, 1, ""));
    for (std::int32_t art = 1; art <= 5; ++art) db.Fund(1, art, {10, 0, 0, false});
    db.Bestand(6, TR, 1, 0, 20);
    for (std::int32_t art = 1; art <= 5; ++art) db.Bestandsart(6, art, 20);
    // valves: by life form alone
    db.Art(7, Troph(1, 1, 0, 0, "", 1), 128);
    db.Art(8, Troph(9, 1, 9, 1, "", 2), 128);
    db.Fund(1, 7, {0, 5, 0, false});
    db.Fund(1, 8, {0, 5, 0, false});
    Rechne(db, true);
    // macroalga 25, stand 20 percent of 50 = 10, both with value 2; valves 5 of 5 = 100 with value 1:
    // (50 + 20 + 100) / 135
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(170.0F / 135.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_N"), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(TR, "TI_KA"), store::Value(1.0F));
}

}  // namespace
}  // namespace FX_Algen
