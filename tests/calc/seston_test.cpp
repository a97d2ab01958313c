#include "calc/Seston.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "FX_Algen/Error.h"

namespace FX_Algen::calc {
namespace {

constexpr std::int32_t I4Max = std::numeric_limits<std::int32_t>::max();
constexpr std::int16_t I2Max = std::numeric_limits<std::int16_t>::max();

SestonSummen Summen(const std::vector<SestonFund>& funde) {
    SestonSummen summen;
    for (const auto& fund : funde) Zaehle(fund, summen);
    return summen;
}

template <class Aufruf>
std::int32_t Fehlernummer(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

// 3 of 1.5 and 2 of 2.5: 4.5 + 5 = 9.5 over 5. Valences 3*2 + 2*0 = 6, 3*5 + 2*4 = 23, 3*3 + 2*6 = 21,
// 3*0 + 2*0 = 0.
TEST(SestonSummen, AddAbundanceTimesValue) {
    const auto summen = Summen({{3, 1.5, {2, 5, 3, 0}}, {2, 2.5, {0, 4, 6, 0}}});
    EXPECT_EQ(summen.Abundanz.Wert(), 5.0F);
    EXPECT_EQ(summen.lngAbundanz, 5);
    EXPECT_EQ(summen.SI.Wert(), 9.5F);
    EXPECT_EQ(summen.Valenz[0].Wert(), 6.0F);
    EXPECT_EQ(summen.Valenz[1].Wert(), 23.0F);
    EXPECT_EQ(summen.Valenz[2].Wert(), 21.0F);
    EXPECT_EQ(summen.Valenz[3].Wert(), 0.0F);
}

// From 2^24 on 32-bit floats step by 2: 2^24 + 1 is a tie and goes to the even 2^24, three times over. The
// integer sum counts on.
TEST(SestonSummen, AreRoundedTo32BitsAfterEveryAddition) {
    const auto summen = Summen(
        {{16777216, 1, {1, 0, 0, 0}}, {1, 1, {1, 0, 0, 0}}, {1, 1, {1, 0, 0, 0}}, {1, 1, {1, 0, 0, 0}}});
    EXPECT_EQ(summen.Abundanz.Wert(), 16777216.0F);
    EXPECT_EQ(summen.SI.Wert(), 16777216.0F);
    EXPECT_EQ(summen.Valenz[0].Wert(), 16777216.0F);
    EXPECT_EQ(summen.lngAbundanz, 16777219);
}

// 2^24 from the first finding. The second one's term is 1.00000001, just above the tie between 2^24 and
// 2^24 + 2, so the sum goes up. Rounded to 32 bits first the term would be 1, and the tie go down to 2^24.
TEST(SestonSummen, ComputeEachTermIn64Bits) {
    const auto summen = Summen({{16777216, 1, {0, 0, 0, 1}}, {1, 1.00000001, {0, 0, 0, 1.00000001}}});
    EXPECT_EQ(summen.SI.Wert(), 16777218.0F);
    EXPECT_EQ(summen.Valenz[3].Wert(), 16777218.0F);
}

TEST(SestonSummen, TakeTheLargestAbundanceAndFailWith6BeyondIt) {
    EXPECT_EQ(Summen({{I4Max - 1, 0, {}}, {1, 0, {}}}).lngAbundanz, I4Max);
    EXPECT_EQ(Fehlernummer([] { Summen({{I4Max, 0, {}}, {1, 0, {}}}); }), ErrorNumber::Overflow);
}

TEST(SestonSummen, FailWith6BeyondTheRangeOf32BitFloats) {
    EXPECT_EQ(Fehlernummer([] { Summen({{10, 1e38, {}}}); }), ErrorNumber::Overflow);
    EXPECT_EQ(Fehlernummer([] { Summen({{10, 1, {0, 0, 0, 1e38}}}); }), ErrorNumber::Overflow);
}

// 6 + 23 + 21 + 0 = 50: parts of 10 are 1.2, 4.6, 4.2 and 0.
TEST(Verteilung, RelatesTheValencesToTheirTotalOnAScaleOf10) {
    const auto verteilung = Verteilung(Summen({{3, 1.5, {2, 5, 3, 0}}, {2, 2.5, {0, 4, 6, 0}}}));
    ASSERT_TRUE(verteilung);
    EXPECT_DOUBLE_EQ((*verteilung)[0], 1.2);
    EXPECT_DOUBLE_EQ((*verteilung)[1], 4.6);
    EXPECT_DOUBLE_EQ((*verteilung)[2], 4.2);
    EXPECT_DOUBLE_EQ((*verteilung)[3], 0);
}

TEST(Verteilung, IsNoneWhereNoValenceAddsUp) {
    EXPECT_FALSE(Verteilung({}));
    EXPECT_FALSE(Verteilung(Summen({{5, 2, {}}})));
    // Valences that cancel each other out, and a negative total.
    EXPECT_FALSE(Verteilung(Summen({{5, 2, {1, -1, 0, 0}}})));
    EXPECT_FALSE(Verteilung(Summen({{5, 2, {-1, 0, 0, 0}}})));
}

// The total is a 32-bit value: 2^24 + 1 stays 2^24, so the first part is exactly 10; with a 64-bit total it
// would be 9.9999994.
TEST(Verteilung, RoundsTheTotalTo32Bits) {
    const auto verteilung = Verteilung(Summen({{16777216, 0, {1, 0, 0, 0}}, {1, 0, {0, 1, 0, 0}}}));
    ASSERT_TRUE(verteilung);
    EXPECT_EQ((*verteilung)[0], 10.0);
    EXPECT_EQ((*verteilung)[1], 10.0 / 16777216);
}

TEST(Entropieterm, IsTheShareTimesItsNaturalLogarithm) {
    EXPECT_EQ(Entropieterm(5, 5), 0);
    // 0.5 * ln 0.5 = -0.34657359027997264; 0.25 * ln 0.25 = the same, since ln 0.25 = 2 ln 0.5.
    EXPECT_DOUBLE_EQ(Entropieterm(1, 2), -0.34657359027997264);
    EXPECT_DOUBLE_EQ(Entropieterm(1, 4), -0.34657359027997264);
    EXPECT_EQ(Entropieterm(0, 4), 0);
    EXPECT_EQ(Entropieterm(3, 0), 0);
}

struct Streuungsfall {
    const char* Beschreibung;
    std::vector<Streuungszeile> Zeilen;
    double S;
    double Erwartet;
};

const Streuungsfall Streuungsfaelle[] = {
    {"no rows", {}, 0, 0},
    {"one rated row", {{2, 5, 1}}, 1.5, 0},
    // Q = 3*1 + 3*1 = 6, A = 6, n = 2: sqrt(6 / (1*6)) = 1
    {"two rated rows", {{1, 3, 1}, {3, 3, 1}}, 2, 1},
    // Q = 1*(1-2)^2 + 4*(2-2)^2 + 1*(3-2)^2 = 2, A = 6, n = 3: sqrt(2 / (2*6)) = 0.408248290463863
    {"three rated rows, weighted", {{1, 1, 1}, {2, 4, 1}, {3, 1, 1}}, 2, 0.408248290463863},
    // The unrated row adds 1*(0-2)^2 = 4 to Q and 1 to A: Q = 0 + 4 + 4 = 8, A = 4, n = 2: sqrt(8/4)
    {"an unrated row adds to Q and A", {{2, 2, 1}, {4, 1, 1}, {0, 1, 0}}, 2, 1.4142135623730951},
    {"one rated row among unrated ones", {{2, 2, 1}, {0, 1, 0}, {0, 4, 0}}, 1, 0},
};

TEST(Streuung, FollowsTheFormulaWithSquaredDeviations) {
    for (const auto& fall : Streuungsfaelle) {
        EXPECT_DOUBLE_EQ(Streuung(Quadratsummen(fall.Zeilen, fall.S)), fall.Erwartet) << fall.Beschreibung;
    }
}

TEST(Streuung, FailsWhereTheRatedRowsLeave16BitsOrNoAbundanceAddsUp) {
    EXPECT_EQ(Quadratsummen(std::vector<Streuungszeile>{{1, 1, I2Max - 1}, {1, 1, 1}}, 1).n, I2Max);
    EXPECT_EQ(Fehlernummer([] {
                  Quadratsummen(std::vector<Streuungszeile>{{1, 1, I2Max}, {1, 1, 1}}, 1);
              }),
              ErrorNumber::Overflow);
    EXPECT_EQ(Fehlernummer([] {
                  Streuung(Quadratsummen(std::vector<Streuungszeile>{{1, 0, 1}, {2, 0, 1}}, 1));
              }),
              ErrorNumber::DivisionByZero);
}

struct Vielfaltsfall {
    const char* Beschreibung;
    double Summe_H;
    std::int32_t N;
    std::int16_t S;
    Vielfalt Erwartet;
};

const Vielfaltsfall Vielfaltsfaelle[] = {
    {"nothing found", 0, 0, 0, {0, 0, 0}},
    {"one taxon, abundance 5: S - 1 = 0", 0, 5, 1, {0, 0, 0}},
    {"one individual of one taxon", 0, 1, 1, {0, 0, 0}},
    // 1 / ln 6 = 1 / 1.791759469228055; ln 2 / ln 2 = 1
    {"two taxa alike", -0.6931471805599453, 6, 2, {0.6931471805599453, 0.5581106265512472, 1}},
    // Three taxa, one of abundance 1 and two of 0: ln 1 = 0 would divide by 0.
    {"sum of abundances 1", 0, 1, 3, {0, 0, 0}},
    {"taxa without abundance alone", 0, 0, 2, {0, 0, 0}},
    // N = 2 is the first above 1: (2 - 1) / ln 2 = 1.4426950408889634
    {"sum of abundances 2", -0.6931471805599453, 2, 2, {0.6931471805599453, 1.4426950408889634, 1}},
    // CF twins: two terms, one taxon.
    {"one taxon in two findings", -0.6931471805599453, 2, 1, {0.6931471805599453, 0, 0}},
    // Taxa without a row that counts: S = 0 and N above 1 gives (0 - 1) / ln 3 = -0.9102392266268373
    {"no taxon left", 0, 3, 0, {0, -0.9102392266268373, 0}},
};

TEST(Vielfalt, FollowsShannonMargalefAndPielou) {
    for (const auto& fall : Vielfaltsfaelle) {
        const auto vielfalt = BerechneVielfalt(fall.Summe_H, fall.N, fall.S);
        EXPECT_DOUBLE_EQ(vielfalt.ShannonundWeaver, fall.Erwartet.ShannonundWeaver) << fall.Beschreibung;
        EXPECT_DOUBLE_EQ(vielfalt.MArgalef, fall.Erwartet.MArgalef) << fall.Beschreibung;
        EXPECT_DOUBLE_EQ(vielfalt.Eveness, fall.Erwartet.Eveness) << fall.Beschreibung;
        EXPECT_FALSE(std::signbit(vielfalt.ShannonundWeaver)) << fall.Beschreibung;
        EXPECT_FALSE(std::signbit(vielfalt.Eveness)) << fall.Beschreibung;
    }
}

}  // namespace
}  // namespace FX_Algen::calc
