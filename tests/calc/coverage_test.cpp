#include "FX_Algen/Coverage.h"

#include <gtest/gtest.h>

#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

constexpr std::int32_t TR = 17;

TEST(Coverage, IsThePartThatCarriesWeightAndValue) {
    Testdatenbank db;
    db.Teilraum(TR, {50, 20, 20, 20});
    db.Stelle(1, TR);
    db.Art(1, {2, 1, 3, 1, 2, 1, "benthisch", 1});
    db.Art(2, {2, 0, 3, 1, 0, 1, "benthisch", 1});  // saprobic weight 0, second value 0
    db.Art(3, {2, 1, 3, 1, 2, 1, "", 1});           // no Algenart: no trophic value of its cover
    db.ArtOhneWerte(4);
    db.Art(5, {0, 1, 3, 1, 2, 1, "", 2}, 128);  // saprobic value 0, other life form
    db.Fund(1, 1, {10, 0, 0, false});
    db.Fund(1, 2, {5, 0, 0, false});
    db.Fund(1, 3, {2, 30, 0, false});
    db.Fund(1, 4, {3, 50, 0, false});
    db.Fund(1, 5, {0, 20, 0, false});
    db.Bestand(6, TR, 20, 0, 10);
    db.Bestandsart(6, 1, 50);
    db.Bestandsart(6, 4, 50);

    const auto coverage = CoverageOf(db.Datenbank(), TR);
    // valves 100: saprobic 3 = 30; trophic 3 and 5 = 50, both pairs (Algenart does not matter there)
    EXPECT_DOUBLE_EQ(coverage.Saprobic.ValvesPercent.value(), 30);
    EXPECT_DOUBLE_EQ(coverage.Trophic.ValvesPercent.value(), 50);
    EXPECT_DOUBLE_EQ(coverage.Trophic_N.ValvesPercent.value(), 50);
    // cover 50: the stand gives taxon 1 half of 20 = 10. saprobic 10 + 2 + 10 = 22 -> 44 percent;
    // trophic 10 + 5 + 10 = 25 -> 50 percent; second pair 10 + 10 = 20 -> 40 percent
    EXPECT_DOUBLE_EQ(coverage.Saprobic.CoverPercent.value(), 44);
    EXPECT_DOUBLE_EQ(coverage.Trophic.CoverPercent.value(), 50);
    EXPECT_DOUBLE_EQ(coverage.Trophic_N.CoverPercent.value(), 40);

    // assessment: of all 100 valves only the 30 of 3 have ratings and life form 1; covers of 20 percent,
    // stand 10: saprobic 10 + 2 + 5 = 17 -> 85 percent
    const auto bewertung = CoverageOf(db.Datenbank(), TR, true);
    EXPECT_DOUBLE_EQ(bewertung.Saprobic.ValvesPercent.value(), 30);
    EXPECT_DOUBLE_EQ(bewertung.Trophic.ValvesPercent.value(), 30);
    EXPECT_DOUBLE_EQ(bewertung.Saprobic.CoverPercent.value(), 85);
}

TEST(Coverage, RelatesToEveryValveAndCoverThatWasNotedInBothVariants) {
    // 10 rated valves of 1000: 1 percent. The rest belongs to an unrated taxon and to one of another life
    // form. Cover likewise: 1 of 100.
    Testdatenbank db;
    db.Teilraum(TR, {100, 100, 100, 100});
    db.Stelle(1, TR);
    db.Art(1, {2, 1, 3, 1, 2, 1, "benthisch", 1}, 128);
    db.ArtOhneWerte(2, 128);
    db.Art(3, {0, 0, 0, 0, 0, 0, "benthisch", 2}, 128);
    db.Fund(1, 1, {0, 10, 0, false});
    db.Fund(1, 2, {0, 600, 0, false});
    db.Fund(1, 3, {0, 390, 0, false});
    db.Art(4, {2, 1, 3, 1, 2, 1, "benthisch", 1});
    db.ArtOhneWerte(5);
    db.Art(6, {0, 0, 0, 0, 0, 0, "benthisch", 2});
    db.Fund(1, 4, {1, 0, 0, false});
    db.Fund(1, 5, {60, 0, 0, false});
    db.Fund(1, 6, {39, 0, 0, false});
    for (const bool IstWRRL : {false, true}) {
        const auto coverage = CoverageOf(db.Datenbank(), TR, IstWRRL);
        for (const auto& teil : {coverage.Saprobic, coverage.Trophic, coverage.Trophic_N}) {
            EXPECT_DOUBLE_EQ(teil.ValvesPercent.value(), 1) << IstWRRL;
            EXPECT_DOUBLE_EQ(teil.CoverPercent.value(), 1) << IstWRRL;
        }
    }
}

TEST(Coverage, IsAbsentWhereThereIsNothingToRelateItTo) {
    Testdatenbank db;
    db.Teilraum(TR, {0, 0, 0, 0});
    for (const auto tr : {TR, 99}) {
        const auto coverage = CoverageOf(db.Datenbank(), tr);
        EXPECT_FALSE(coverage.Saprobic.ValvesPercent.has_value());
        EXPECT_FALSE(coverage.Saprobic.CoverPercent.has_value());
        EXPECT_FALSE(coverage.Trophic_N.CoverPercent.has_value());
    }
}

TEST(Coverage, TakesANullForNothing) {
    Testdatenbank db;
    db.Teilraum(TR, {10, 10, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, {2, 1, 3, 1, 2, 1, "benthisch", 1});
    db.Fund(1, 1, {5, 4, 0, false});
    db.Bestand(6, TR, 5);
    db.Bestandsart(6, 1, 100);
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=1");
    db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=6");
    const auto coverage = CoverageOf(db.Datenbank(), TR);
    EXPECT_DOUBLE_EQ(coverage.Saprobic.ValvesPercent.value(), 0);
    EXPECT_DOUBLE_EQ(coverage.Saprobic.CoverPercent.value(), 0);
    EXPECT_DOUBLE_EQ(coverage.Trophic.ValvesPercent.value(), 100);
    EXPECT_DOUBLE_EQ(coverage.Trophic.CoverPercent.value(), 50);
}

}  // namespace
}  // namespace FX_Algen
