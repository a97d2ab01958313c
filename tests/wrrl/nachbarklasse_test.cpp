#include <gtest/gtest.h>

#include <ostream>

#include "FX_Algen/Assessment.h"

// The next better and the next worse class of a quality ratio, from rows of class bounds.

namespace FX_Algen {
namespace {

/// Five classes that share their bounds: 1 from 0.8, 2 from 0.6, 3 from 0.4, 4 from 0.2, 5 from 0.
const std::vector<ClassBounds> Fuenf{{0.8, 1, 1}, {0.6, 0.8, 2}, {0.4, 0.6, 3}, {0.2, 0.4, 4}, {0, 0.2, 5}};
/// Bounds with gaps between them, and no class 3.
const std::vector<ClassBounds> Luecken{{0.76, 1, 1}, {0.51, 0.75, 2}, {0.26, 0.5, 4}};
/// Class 1 at both ends: 0 to 0.1 and 0.9 to 1, class 2 between.
const std::vector<ClassBounds> Enden{{0, 0.1, 1}, {0.9, 1, 1}, {0.1, 0.9, 2}};

struct Nachbar {
    std::int16_t OEZK;
    double Bound;
    double Distance;
};

struct Fall {
    const char* Beschreibung;
    const std::vector<ClassBounds>& Grenzen;
    float EQR;
    std::int16_t OEZK;
    std::optional<Nachbar> Besser;
    std::optional<Nachbar> Schlechter;
};

void PrintTo(const Fall& fall, std::ostream* out) { *out << fall.Beschreibung; }

const Fall faelle[] = {
    // 0.6 - 0.55 = 0.05; 0.55 - 0.4 = 0.15
    {"within a class", Fuenf, 0.55F, 3, Nachbar{2, 0.6, 0.05}, Nachbar{4, 0.4, 0.15}},
    {"the best class", Fuenf, 0.93F, 1, std::nullopt, Nachbar{2, 0.8, 0.13}},
    {"the worst class", Fuenf, 0.13F, 5, Nachbar{4, 0.2, 0.07}, std::nullopt},
    // on the bound with class 3, which the better class takes
    {"a shared bound", Fuenf, 0.6F, 2, Nachbar{1, 0.8, 0.2}, Nachbar{3, 0.6, 0}},
    // 0.51 - 0.48 = 0.03: the gap between the rows counts, and the missing class 3 does not
    {"a gap and a missing class", Luecken, 0.48F, 4, Nachbar{2, 0.51, 0.03}, std::nullopt},
    {"the class behind the missing one", Luecken, 0.6F, 2, Nachbar{1, 0.76, 0.16}, Nachbar{4, 0.5, 0.1}},
    // class 1 lies 0.2 above 0.7 and 0.6 below it
    {"a class with two rows", Enden, 0.7F, 2, Nachbar{1, 0.9, 0.2}, std::nullopt},
    {"the other end of it", Enden, 0.15F, 2, Nachbar{1, 0.1, 0.05}, std::nullopt},
};

void Vergleiche(const std::optional<NeighbourClass>& klasse, const std::optional<Nachbar>& erwartet) {
    ASSERT_EQ(klasse.has_value(), erwartet.has_value());
    if (!klasse) return;
    EXPECT_EQ(klasse->OEZK, erwartet->OEZK);
    EXPECT_DOUBLE_EQ(klasse->Bound, erwartet->Bound);
    EXPECT_DOUBLE_EQ(klasse->Distance, erwartet->Distance);
}

class Nachbarklassen : public testing::TestWithParam<Fall> {};

TEST_P(Nachbarklassen, AreFoundWithTheirBoundAndDistance) {
    const auto& fall = GetParam();
    RatioTrace ratio;
    ratio.EQR = fall.EQR;
    ratio.Class.OEZK = fall.OEZK;
    ratio.Class.Hit = ClassBounds{0, 1, fall.OEZK};
    ratio.AllBounds = fall.Grenzen;
    Vergleiche(NextBetterClass(ratio), fall.Besser);
    Vergleiche(NextWorseClass(ratio), fall.Schlechter);
}
INSTANTIATE_TEST_SUITE_P(Bounds, Nachbarklassen, testing::ValuesIn(faelle));

TEST(Nachbarklassen, OfARatioWithoutClassAreNone) {
    RatioTrace ratio;
    ratio.EQR = -0.05F;
    ratio.AllBounds = Fuenf;
    EXPECT_FALSE(NextBetterClass(ratio).has_value());
    EXPECT_FALSE(NextWorseClass(ratio).has_value());
}

}  // namespace
}  // namespace FX_Algen
