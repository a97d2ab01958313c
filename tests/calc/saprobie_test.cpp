#include "calc/Saprobie.h"

#include <gtest/gtest.h>

#include <vector>

namespace FX_Algen::calc {
namespace {

const Bestand bestand20{1, Deckung{20},
                        Anteil(Deckung{20}, Gesamtdeckung{40})};  // 20 / 40 * 100 = 50 percent

struct Fall {
    const char* Beschreibung;
    float Gesamt;                         ///< total cover in percent
    std::vector<MakroalgeSap> Makro;      ///< ID_Art, DG_MA, Sap_GBer, SI
    std::vector<BestandsartSap> Bestand;  ///< of one stand of 20 percent cover
    std::vector<KieselalgeSap> Kiesel;    ///< ID_Art, Schalen_KA, Sap_GBer, SI
    float SapIndex;
    float SapIndex_KA;
};

class Saprobienindex : public testing::TestWithParam<Fall> {};

TEST_P(Saprobienindex, IsTheWeightedMeanOverItsBlocks) {
    const auto& fall = GetParam();
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    const Gesamtdeckung gesamt{fall.Gesamt};
    Makroalgen(fall.Makro, gesamt, summen, klassen, nullptr);
    if (!fall.Bestand.empty()) {
        Mischbestand(fall.Bestand, {1, Deckung{20}, Anteil(Deckung{20}, gesamt)}, summen, nullptr);
    }
    float schalen = 0;
    for (const auto& zeile : fall.Kiesel) schalen += static_cast<float>(zeile.Schalen_KA.Anzahl);
    if (schalen > 0) Kieselalgen(fall.Kiesel, {schalen}, summen, klassen, nullptr);

    EXPECT_EQ(Quotient(summen.GewichtSI, summen.Gewicht), fall.SapIndex) << fall.Beschreibung;
    EXPECT_EQ(Quotient(summen.GewichtSI_KA, summen.Gewicht_KA), fall.SapIndex_KA) << fall.Beschreibung;
}

// The numbers are chosen so that every term is exact in binary; so are then the sums.
const Fall faelle[] = {
    // w = 30*2/50*100 = 120 and 20*4/50*100 = 160, w*SI = 120*1.5 = 180 and 160*2.5 = 400: 580 / 280.
    // The same as the mean of SI weighted with DG_MA * Sap_GBer: (60*1.5 + 80*2.5) / 140 = 290 / 140.
    {"macroalgae only", 50, {{1, {30}, 2, 1.5}, {2, {20}, 4, 2.5}}, {}, {}, 580.0F / 280.0F, 0},
    // stand share 50: w = 60*1*50/100 = 30 and 40*2*50/100 = 40, w*SI = 30*2 = 60 and 40*3 = 120: 180 / 70
    {"a mixed stand", 40, {}, {{1, {60}, 1, 2}, {2, {40}, 2, 3}}, {}, 180.0F / 70.0F, 0},
    // sum 400: w = 100*3/400*100 = 75 and 300*1/400*100 = 75, w*SI = 75*1 = 75 and 75*2 = 150: 225 / 150
    // = 1.5
    {"diatoms only", 0, {}, {}, {{1, {100}, 3, 1}, {2, {300}, 1, 2}}, 1.5F, 1.5F},
    // macroalga 20*1/40*100 = 50, *2 = 100; stand 100*1*50/100 = 50, *3 = 150; diatom 8*1/8*100 = 100, *1 =
    // 100:
    // (100 + 150 + 100) / (50 + 50 + 100) = 350 / 200 = 1.75; diatoms alone 100 / 100 = 1
    {"all three blocks", 40, {{1, {20}, 1, 2}}, {{2, {100}, 1, 3}}, {{3, {8}, 1, 1}}, 1.75F, 1.0F},
    // weight 0 adds nothing: 30*2/50*100 = 120 alone, *1.5 = 180; 180 / 120
    {"a taxon with weight 0", 50, {{1, {30}, 2, 1.5}, {2, {20}, 0, 2.5}}, {}, {}, 1.5F, 0},
    // all weights 0: the divisor is 0
    {"all weights 0", 50, {{1, {30}, 0, 1.5}}, {}, {{2, {10}, 0, 2}}, 0, 0},
    // value 0 with weight 1 pulls towards 0: w = 100 and 100, w*SI = 0 and 200: 200 / 200
    {"a taxon with value 0 and a weight", 10, {{1, {10}, 1, 0}, {2, {10}, 1, 2}}, {}, {}, 1.0F, 0},
    // same taxon twice (with and without cf.): 50 and 50, *2 = 200 of 100
    {"two rows of one taxon", 20, {{1, {10}, 1, 2}, {1, {10}, 1, 2}}, {}, {}, 2.0F, 0},
};
INSTANTIATE_TEST_SUITE_P(Cases, Saprobienindex, testing::ValuesIn(faelle));

TEST(SaprobieSummen, RoundTo32BitsAtEachRow) {
    // Basis 1 valve makes w = Schalen_KA * g * 100: 167773 -> 16777300, then twice 1 * 0.01 / 1 * 100 = 1.
    // 16777301 is a tie between 16777300 and 16777302 and goes to 16777300 (its half, 8388650, is even), both
    // times. Summed in 64 bits the weights would be 16777302.
    const std::vector<KieselalgeSap> zeilen{{1, {167773}, 1, 1}, {2, {1}, 0.01, 1}, {3, {1}, 0.01, 1}};
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    Kieselalgen(zeilen, {1}, summen, klassen, nullptr);
    EXPECT_EQ(summen.Gewicht.Wert(), 16777300.0F);
    EXPECT_EQ(summen.Gewicht_KA.Wert(), 16777300.0F);
    EXPECT_EQ(summen.GewichtSI.Wert(), 16777300.0F);
}

// The order of the factors decides the last digit of a 32-bit sum where the exact term lies half way between
// two 32-bit floats. The terms are large, so that such ones can be followed by hand; the right order meets
// the half way exactly and goes to the even neighbour, w * SI misses it by one step of a 64-bit float.
TEST(SaprobieReihenfolge, OfMacroalgaeMultipliesTheValueBeforeItDivides) {
    // 852580 * 5 = 4262900, * 1.5 = 6394350, / 3 = 2131450, * 100 = 213145000: exact throughout. 32-bit
    // floats lie 16 apart there; 213145000 / 16 = 13321562.5 goes to the even 13321562, 13321562 * 16 =
    // 213144992. w = 4262900 / 3 * 100 = 142096666.6666667, * 1.5 = 213145000.00000003 would go up to
    // 213145008.
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    Makroalgen(std::vector<MakroalgeSap>{{1, {852580}, 5, 1.5}}, {3}, summen, klassen, nullptr);
    EXPECT_EQ(summen.GewichtSI.Wert(), 213144992.0F);
}

TEST(SaprobieReihenfolge, OfMixedStandsMultipliesTheValueBeforeTheShare) {
    // 6697880 * 5 = 33489400, * 1.1 = 36838340, * 65 = 2394492100, / 100 = 23944921 (33489400 * 1.1 rounds to
    // 36838340 in 64 bits). 32-bit floats lie 2 apart; 23944921 / 2 = 11972460.5 goes to the even 11972460.
    // w = 33489400 * 65 / 100 = 21768110, * 1.1 = 23944921.000000004 would go up to 23944922.
    SaprobieSummen summen;
    Mischbestand(std::vector<BestandsartSap>{{1, {6697880}, 5, 1.1}}, {1, Deckung{65}, AnteilMI{65}}, summen,
                 nullptr);
    EXPECT_EQ(summen.GewichtSI.Wert(), 23944920.0F);
}

TEST(SaprobieReihenfolge, OfDiatomsMultipliesTheValueBeforeItDivides) {
    // 958469 * 4 = 3833876, * 3.5 = 13418566, / 7 = 1916938, * 100 = 191693800: exact throughout. 32-bit
    // floats lie 16 apart; 191693800 / 16 = 11980862.5 goes to the even 11980862, * 16 = 191693792.
    // w = 3833876 / 7 * 100 = 54769657.14285715, * 3.5 = 191693800.00000003 would go up to 191693808.
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    Kieselalgen(std::vector<KieselalgeSap>{{1, {958469}, 4, 3.5}}, {7}, summen, klassen, nullptr);
    EXPECT_EQ(summen.GewichtSI.Wert(), 191693792.0F);
    EXPECT_EQ(summen.GewichtSI_KA.Wert(), 191693792.0F);
}

TEST(SaprobieReihenfolge, OfTheShareOfAStandDividesBeforeItMultiplies) {
    // 18690561 / 30 = 623018.7, which 64 bits hold a little too low: * 100 = 62301869.99999999. 32-bit floats
    // lie 4 apart, half way between 62301868 and 62301872 is 62301870: it goes down. 1869056100 / 30 =
    // 62301870 would meet the half way exactly and go to 62301872, the even one (15575468 * 4).
    EXPECT_EQ(Anteil(Deckung{18690561}, Gesamtdeckung{30}).Prozent, 62301868.0F);
}

TEST(SaprobieKlassen, CountATaxonOnceForEachRunOfEqualNeighbours) {
    struct Zaehlfall {
        const char* Beschreibung;
        std::vector<MakroalgeSap> Zeilen;
        Klassenzahlen Erwartet;
    };
    const MakroalgeSap a{1, {5}, 1, 1.0};   // class I
    const MakroalgeSap b{2, {5}, 1, 2.0};   // class II
    const MakroalgeSap c{3, {5}, 0, 3.6};   // class IV, weight 0
    const MakroalgeSap ohne{4, {5}, 1, 0};  // no class
    const Zaehlfall zaehlfaelle[] = {
        {"neighbours: once", {a, a, b}, {1, 0, 1, 0, 0, 0, 0}},
        {"apart: twice", {a, b, a}, {2, 0, 1, 0, 0, 0, 0}},
        {"a taxon of no class still parts its neighbours", {a, ohne, a}, {2, 0, 0, 0, 0, 0, 0}},
        {"weight 0 counts all the same", {c}, {0, 0, 0, 0, 0, 0, 1}},
        {"no rows", {}, {0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& fall : zaehlfaelle) {
        SaprobieSummen summen;
        Klassenzahlen klassen{};
        Makroalgen(fall.Zeilen, {100}, summen, klassen, nullptr);
        EXPECT_EQ(klassen, fall.Erwartet) << fall.Beschreibung;
    }
}

TEST(SaprobieKlassen, StartAnewInTheValveBlock) {
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    Makroalgen(std::vector<MakroalgeSap>{{7, {5}, 1, 2.0}}, {100}, summen, klassen, nullptr);
    Kieselalgen(std::vector<KieselalgeSap>{{7, {5}, 1, 2.0}}, {5}, summen, klassen, nullptr);
    EXPECT_EQ(klassen, (Klassenzahlen{0, 0, 2, 0, 0, 0, 0}));
}

TEST(SaprobieKlassen, OfMixedStandsCountEveryRow) {
    Klassenzahlen klassen{};
    const std::vector<KlassenartSap> zeilen{{1, 2.0}, {1, 2.0}, {2, 0}, {3, 3.5}};
    MischbestandKlassen(zeilen, klassen, nullptr);
    EXPECT_EQ(klassen, (Klassenzahlen{0, 0, 2, 0, 0, 0, 1}));
}

TEST(SaprobieSpur, TellsEachContributionAndEachClass) {
    SaprobieSummen summen;
    Klassenzahlen klassen{};
    SaprobieSpur spur;
    // 10/40 = 25 percent of the cover; w = 25 * 2 = 50, w*SI = 50 * 1.5 = 75
    Makroalgen(std::vector<MakroalgeSap>{{1, {10}, 2, 1.5}, {1, {10}, 2, 1.5}}, {40}, summen, klassen, &spur);
    // 60 percent of a stand of 50 percent = 30 percent; w = 30 * 1, w*SI = 30 * 2
    Mischbestand(std::vector<BestandsartSap>{{2, {60}, 1, 2}}, bestand20, summen, &spur);
    MischbestandKlassen(std::vector<KlassenartSap>{{2, 0}}, klassen, &spur);
    // 1 of 4 valves = 25 percent; w = 25 * 4 = 100, w*SI = 100 * 3 = 300
    Kieselalgen(std::vector<KieselalgeSap>{{3, {1}, 4, 3}}, {4}, summen, klassen, &spur);

    ASSERT_EQ(spur.Beitraege.size(), 4U);
    const auto& ma = spur.Beitraege[0];
    EXPECT_EQ(ma.Woher, Block::Makroalgen);
    EXPECT_EQ(ma.ID_Art, 1);
    EXPECT_EQ(ma.Abundanz, 10);
    EXPECT_EQ(ma.Anteil, 25);
    EXPECT_EQ(ma.w, 50);
    EXPECT_EQ(ma.wWert, 75);
    const auto& mi = spur.Beitraege[2];
    EXPECT_EQ(mi.Woher, Block::Mischbestaende);
    EXPECT_EQ(mi.ID_TR_MI, 1);
    EXPECT_EQ(mi.Anteil, 30);
    EXPECT_EQ(mi.w, 30);
    EXPECT_EQ(mi.wWert, 60);
    const auto& ka = spur.Beitraege[3];
    EXPECT_EQ(ka.Woher, Block::Schalen);
    EXPECT_EQ(ka.Anteil, 25);
    EXPECT_EQ(ka.w, 100);
    EXPECT_EQ(ka.wWert, 300);

    ASSERT_EQ(spur.Klassen.size(), 4U);
    EXPECT_EQ(spur.Klassen[0].Regel, Zaehlregel::Gezaehlt);
    EXPECT_EQ(spur.Klassen[0].Klasse, 1U);  // 1.5: I-II
    EXPECT_EQ(spur.Klassen[1].Regel, Zaehlregel::SelbeArt);
    EXPECT_EQ(spur.Klassen[2].Regel, Zaehlregel::KeineKlasse);
    EXPECT_EQ(spur.Klassen[3].Klasse, 4U);  // 3: III
}

}  // namespace
}  // namespace FX_Algen::calc
