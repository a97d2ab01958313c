#include "calc/Trophie.h"

#include <gtest/gtest.h>

#include <vector>

namespace FX_Algen::calc {
namespace {

struct Fall {
    const char* Beschreibung;
    float Gesamt;                           ///< total cover in percent
    std::vector<MakroalgeTroph> Makro;      ///< ID_Art, DG_MA, {g, t, g_N, t_N}
    std::vector<BestandsartTroph> Bestand;  ///< of one stand of 20 percent cover
    std::vector<KieselalgeTroph> Kiesel;    ///< ID_Art, Schalen_KA, {g, t, g_N, t_N}
    float TI;
    float TI_N;
    float TI_KA;
};

class Trophieindex : public testing::TestWithParam<Fall> {};

TEST_P(Trophieindex, IsTheWeightedMeanOfItsPair) {
    const auto& fall = GetParam();
    TrophieSummen summen;
    const Gesamtdeckung gesamt{fall.Gesamt};
    Makroalgen(fall.Makro, gesamt, summen, nullptr);
    if (!fall.Bestand.empty()) {
        Mischbestand(fall.Bestand, {1, Deckung{20}, Anteil(Deckung{20}, gesamt)}, summen, nullptr);
    }
    float schalen = 0;
    for (const auto& zeile : fall.Kiesel) schalen += static_cast<float>(zeile.Schalen_KA.Anzahl);
    if (schalen > 0) Kieselalgen(fall.Kiesel, {schalen}, summen, nullptr);

    EXPECT_EQ(Quotient(summen.TI_S, summen.TI), fall.TI) << fall.Beschreibung;
    EXPECT_EQ(Quotient(summen.TI_N_S, summen.TI_N), fall.TI_N) << fall.Beschreibung;
    EXPECT_EQ(Quotient(summen.TI_KA_S, summen.TI_KA), fall.TI_KA) << fall.Beschreibung;
}

const Fall faelle[] = {
    // first pair: 30*2/60*100 = 100, *1.5 = 150; 30*1/60*100 = 50, *3 = 150: 300 / 150 = 2
    // second pair: 30*1/60*100 = 50, *2 = 100; 50, *4 = 200: 300 / 100 = 3
    {"macroalgae", 60, {{1, {30}, {2, 1.5, 1, 2}}, {2, {30}, {1, 3, 1, 4}}}, {}, {}, 2.0F, 3.0F, 0},
    // the second taxon has no second pair: TI as above, TI_N = 100 / 50 = 2
    {"a taxon with the first pair alone",
     60,
     {{1, {30}, {2, 1.5, 1, 2}}, {2, {30}, {1, 3, 0, 0}}},
     {},
     {},
     2,
     2,
     0},
    // stand share 20/40*100 = 50: 80*1*50/100 = 40, *2 = 80; second pair 80*2*50/100 = 80, *1 = 80
    {"a mixed stand", 40, {}, {{1, {80}, {1, 2, 2, 1}}}, {}, 2, 1, 0},
    // sum 4: 1*2/4*100 = 50, *1 = 50; 3*2/4*100 = 150, *2 = 300: 350 / 200 = 1.75;
    // second pair 1*1/4*100 = 25, *3 = 75; 3*1/4*100 = 75, *1 = 75: 150 / 100 = 1.5
    {"diatoms alone", 0, {}, {}, {{1, {1}, {2, 1, 1, 3}}, {2, {3}, {2, 2, 1, 1}}}, 1.75F, 1.5F, 1.75F},
    // macroalga 40*1/40*100 = 100, *3 = 300; diatom 5*1/5*100 = 100, *1 = 100: 400 / 200 = 2; diatom alone 1
    {"macroalga and diatom", 40, {{1, {40}, {1, 3, 0, 0}}}, {}, {{2, {5}, {1, 1, 0, 0}}}, 2, 0, 1},
    {"nothing found", 40, {}, {}, {}, 0, 0, 0},
};
INSTANTIATE_TEST_SUITE_P(Cases, Trophieindex, testing::ValuesIn(faelle));

TEST(TrophieSummen, RoundTo32BitsAtEachRow) {
    // As for the saprobic sums: 16777300, then twice 1, a tie that goes down each time.
    const Trophiewerte eins{1, 1, 1, 1};
    const Trophiewerte hundertstel{0.01, 1, 0.01, 1};
    TrophieSummen summen;
    Kieselalgen(
        std::vector<KieselalgeTroph>{{1, {167773}, eins}, {2, {1}, hundertstel}, {3, {1}, hundertstel}}, {1},
        summen, nullptr);
    for (const auto& summe :
         {summen.TI, summen.TI_S, summen.TI_N, summen.TI_N_S, summen.TI_KA, summen.TI_KA_S}) {
        EXPECT_EQ(summe.Wert(), 16777300.0F);
    }
}

// As for the saprobic sums, where the arithmetic is followed: the exact term lies half way between two 32-bit
// floats, and weight * value, formed after the division, misses it by one step of a 64-bit float. Each pair
// is tried on its own, beside a pair that has no weight.
TEST(TrophieReihenfolge, MultipliesTheValueBeforeItDivides) {
    for (const bool zweites : {false, true}) {
        const auto paar = [&](double g, double t) {
            return zweites ? Trophiewerte{0, 0, g, t} : Trophiewerte{g, t, 0, 0};
        };
        const auto summe = [&](const TrophieSummen& summen) {
            return zweites ? summen.TI_N_S.Wert() : summen.TI_S.Wert();
        };
        // 852580 * 5 * 1.5 / 3 * 100 = 213145000, down to 213144992; the other order up to 213145008
        TrophieSummen makro;
        Makroalgen(std::vector<MakroalgeTroph>{{1, {852580}, paar(5, 1.5)}}, {3}, makro, nullptr);
        EXPECT_EQ(summe(makro), 213144992.0F) << zweites;
        // 6697880 * 5 * 1.1 * 65 / 100 = 23944921, down to 23944920; the other order up to 23944922
        TrophieSummen bestand;
        Mischbestand(std::vector<BestandsartTroph>{{1, {6697880}, paar(5, 1.1)}},
                     {1, Deckung{65}, AnteilMI{65}}, bestand, nullptr);
        EXPECT_EQ(summe(bestand), 23944920.0F) << zweites;
        // 958469 * 4 * 3.5 / 7 * 100 = 191693800, down to 191693792; the other order up to 191693808
        TrophieSummen kiesel;
        Kieselalgen(std::vector<KieselalgeTroph>{{1, {958469}, paar(4, 3.5)}}, {7}, kiesel, nullptr);
        EXPECT_EQ(summe(kiesel), 191693792.0F) << zweites;
        if (!zweites) {
            EXPECT_EQ(kiesel.TI_KA_S.Wert(), 191693792.0F);
        }
    }
}

TEST(TrophieSpur, KeepsBothPairsOfAFinding) {
    TrophieSummen summen;
    TrophieSpur spur;
    // 25 percent of the cover: w = 25*2 = 50, w*t = 50*1.5 = 75; second pair w = 25*4 = 100, w*t = 100*3 =
    // 300
    Makroalgen(std::vector<MakroalgeTroph>{{9, {10}, {2, 1.5, 4, 3}}}, {40}, summen, &spur);
    ASSERT_EQ(spur.TI.size(), 1U);
    ASSERT_EQ(spur.TI_N.size(), 1U);
    EXPECT_EQ(spur.TI[0].ID_Art, 9);
    EXPECT_EQ(spur.TI[0].Anteil, 25);
    EXPECT_EQ(spur.TI[0].Gewicht, 2);
    EXPECT_EQ(spur.TI[0].Wert, 1.5);
    EXPECT_EQ(spur.TI[0].w, 50);
    EXPECT_EQ(spur.TI[0].wWert, 75);
    EXPECT_EQ(spur.TI_N[0].Gewicht, 4);
    EXPECT_EQ(spur.TI_N[0].Wert, 3);
    EXPECT_EQ(spur.TI_N[0].w, 100);
    EXPECT_EQ(spur.TI_N[0].wWert, 300);
}

}  // namespace
}  // namespace FX_Algen::calc
