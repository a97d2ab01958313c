#include "wrrl/Verhaeltnis.h"

#include <gmock/gmock.h>

#include <cmath>

namespace FX_Algen::wrrl {
namespace {

struct Fall {
    const char* Warum;
    float Index;
    float Erwartet;
    double Gerundet;
    float EQR;
};

class Abstand : public testing::TestWithParam<Fall> {};

TEST_P(Abstand, IsRoundedCommerciallyAndAtMostOne) {
    const auto& fall = GetParam();
    const auto verhaeltnis = AbstandVomEnde(fall.Index, fall.Erwartet);
    ASSERT_TRUE(verhaeltnis.has_value()) << fall.Warum;
    EXPECT_EQ(verhaeltnis->Gerundet, fall.Gerundet) << fall.Warum;
    EXPECT_EQ(verhaeltnis->EQR, fall.EQR) << fall.Warum;
    EXPECT_TRUE(verhaeltnis->Ungerundet.has_value()) << fall.Warum;
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Abstand,
    testing::Values(Fall{"1.9 / 2.4 = 0.79167", 2.1F, 1.6F, 0.79, 0.79F},
                    Fall{"1.5 / 4 = 0.375: halves go up", 2.5F, 0, 0.38, 0.38F},
                    Fall{"1.34 / 4 = 0.335; as 32-bit floats 0.33499998, noise that counts as a half", 2.66F,
                         0, 0.34, 0.34F},
                    Fall{"-0.5 / 4 = -0.125: halves go up towards plus infinity", 4.5F, 0, -0.12, -0.12F},
                    Fall{"-0.5 / 2.4 = -0.20833: no lower bound", 4.5F, 1.6F, -0.21, -0.21F},
                    Fall{"3 / 2.4 = 1.25: capped", 1, 1.6F, 1.25, 1}, Fall{"2.4 / 2.4 = 1", 1.6F, 1.6F, 1, 1},
                    Fall{"0 / 2.4 = 0", 4, 1.6F, 0, 0},
                    Fall{"2 / 5 = 0.4: the marker -1 as expected value", 2, -1, 0.4, 0.4F},
                    Fall{"2 / -1 = -2: more than 4 expected", 2, 5, -2, -2}));

TEST(Abstand, OfAnIndexThatIsNotAboveZeroIsZeroAndDividesNothing) {
    for (const float index : {0.0F, -0.0F, -1.0F}) {
        for (const float erwartet : {1.6F, 4.0F, -1.0F}) {
            const auto verhaeltnis = AbstandVomEnde(index, erwartet);
            ASSERT_TRUE(verhaeltnis.has_value());
            EXPECT_EQ(verhaeltnis->EQR, 0);
            EXPECT_FALSE(verhaeltnis->Ungerundet.has_value());
        }
    }
}

TEST(Abstand, IsNoneWhereFourIsExpected) {
    EXPECT_FALSE(AbstandVomEnde(2, 4).has_value());
    // The next 32-bit float to 3.99999999 is 4.
    EXPECT_FALSE(AbstandVomEnde(2, 3.99999999F).has_value());
}

class Anteil : public testing::TestWithParam<Fall> {};

TEST_P(Anteil, IsRoundedCommerciallyAndAtMostOne) {
    const auto& fall = GetParam();
    const auto verhaeltnis = AnteilAmErwarteten(fall.Index, fall.Erwartet);
    ASSERT_TRUE(verhaeltnis.has_value()) << fall.Warum;
    EXPECT_EQ(verhaeltnis->Gerundet, fall.Gerundet) << fall.Warum;
    EXPECT_EQ(verhaeltnis->EQR, fall.EQR) << fall.Warum;
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Anteil,
    testing::Values(Fall{"0.3 / 0.6", 0.3F, 0.6F, 0.5, 0.5F},
                    Fall{"0.9 / 0.6 = 1.5: capped", 0.9F, 0.6F, 1.5, 1},
                    Fall{"0 / 0.6: an index of 0 is divided like any other", 0, 0.6F, 0, 0},
                    Fall{"0.345 / -1: nothing expected, halves go up", 0.345F, -1, -0.34, -0.34F}));

TEST(Anteil, OfAnIndexOfZeroHasNoSign) {
    const auto verhaeltnis = AnteilAmErwarteten(0, -1);
    ASSERT_TRUE(verhaeltnis.has_value());
    EXPECT_EQ(verhaeltnis->EQR, 0);
    EXPECT_FALSE(std::signbit(verhaeltnis->EQR));
}

TEST(Anteil, IsNoneWhereZeroIsExpected) {
    EXPECT_FALSE(AnteilAmErwarteten(0.5F, 0).has_value());
    EXPECT_FALSE(AnteilAmErwarteten(0, 0).has_value());
}

// The raised ratio is that of the 32-bit value: 0.57 as such is 0.56999999, and 0.59999999 must give 0.6.
TEST(RaisedRatio, IsThreeHundredthsMoreForEveryRatioOfTwoDecimals) {
    for (int hundertstel = -300; hundertstel <= 100; ++hundertstel) {
        const auto EQR = static_cast<float>(hundertstel / 100.0);
        EXPECT_EQ(Angehoben(EQR), static_cast<float>((hundertstel + 3) / 100.0)) << hundertstel;
    }
}

TEST(RaisedRatio, IsNotCapped) { EXPECT_EQ(Angehoben(1), 1.03F); }

}  // namespace
}  // namespace FX_Algen::wrrl
