#include "calc/Summe32.h"

#include <gtest/gtest.h>

#include "FX_Algen/Error.h"
#include "calc/Einheiten.h"

namespace FX_Algen::calc {
namespace {

TEST(Summe32, RoundsAfterEveryAddition) {
    // Above 2^24 = 16777216 neighbouring 32-bit floats are 2 apart. 16777216 + 1 is a tie and goes to the
    // even neighbour 16777216, each time; a 64-bit sum would be 16777218 after two additions.
    Summe32 summe;
    summe.Add(16777216.0);
    summe.Add(1.0);
    summe.Add(1.0);
    EXPECT_EQ(summe.Wert(), 16777216.0F);
}

TEST(Summe32, TakesEachTermIn64BitsBeforeRounding) {
    // 16777216 + 1.00000001 lies just above the middle between 16777216 and 16777218 and goes up. Rounded to
    // 32 bits beforehand the term would be 1, and the tie would go down.
    Summe32 oben;
    oben.Add(16777216.0);
    oben.Add(1.00000001);
    EXPECT_EQ(oben.Wert(), 16777218.0F);
    // 16777218 + 0.99999999 stays below the middle of 16777218 and 16777220; with the term rounded to 1
    // beforehand the tie would go up to 16777220, the even one.
    Summe32 unten;
    unten.Add(16777218.0);
    unten.Add(0.99999999);
    EXPECT_EQ(unten.Wert(), 16777218.0F);
}

TEST(Summe32, FailsWith6BeyondItsRange) {
    Summe32 summe;
    summe.Add(3e38);
    try {
        summe.Add(3e38);
        FAIL() << "no overflow";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
    EXPECT_EQ(summe.Wert(), 3e38F);
}

TEST(Quotient, IsZeroWhereNoWeightAddsUp) {
    Summe32 werte;
    Summe32 gewichte;
    werte.Add(5);
    EXPECT_EQ(Quotient(werte, gewichte), 0.0F);
    gewichte.Add(-1);
    EXPECT_EQ(Quotient(werte, gewichte), 0.0F);
    gewichte.Add(3);  // 5 / 2 = 2.5
    EXPECT_EQ(Quotient(werte, gewichte), 2.5F);
}

TEST(AnteilMI, IsRoundedTo32Bits) {
    // 10 / 30 * 100 = 33.33333333...; 32-bit floats are 2^-18 = 0.0000038 apart here, the nearest one is
    // 33.33333206 (the next 33.33333588).
    const auto anteil = Anteil(Deckung{10}, Gesamtdeckung{30});
    EXPECT_EQ(anteil.Prozent, 33.33333206F);
    EXPECT_NE(static_cast<double>(anteil.Prozent), 10.0 / 30.0 * 100.0);
}

}  // namespace
}  // namespace FX_Algen::calc
