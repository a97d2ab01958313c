#include "wrrl/Referenzarten.h"

#include <gmock/gmock.h>

#include <limits>

namespace FX_Algen::wrrl {
namespace {

TEST(Group, IsAlleFrom50PercentAndMoreThan3Taxa) {
    struct Fall {
        bool KAOnly;
        float Abundanz;
        std::int32_t Taxa;
        GroupReason Grund;
        const char* Gruppe;
    };
    const Fall faelle[] = {
        {false, 50, 4, GroupReason::AllGroups, "Alle"},
        {false, 100, 30, GroupReason::AllGroups, "Alle"},
        {false, 50, 3, GroupReason::TaxaNotAbove3, "KA"},
        {false, 100, 0, GroupReason::TaxaNotAbove3, "KA"},
        {false, 49.9F, 4, GroupReason::AbundanceBelow50, "KA"},
        // The 32-bit float next to 50 is 49.999996.
        {false, 49.999996F, 4, GroupReason::AbundanceBelow50, "KA"},
        {false, 0, 0, GroupReason::AbundanceBelow50, "KA"},
        {true, 100, 30, GroupReason::DiatomsAsked, "KA"},
        {true, 0, 0, GroupReason::DiatomsAsked, "KA"},
    };
    for (const auto& fall : faelle) {
        const auto grund = Gruppengrund(fall.KAOnly, fall.Abundanz, fall.Taxa);
        EXPECT_EQ(grund, fall.Grund) << fall.Abundanz << " percent, " << fall.Taxa << " taxa";
        EXPECT_EQ(Gruppentext(grund), fall.Gruppe);
    }
}

TEST(Restriction, HasABoundForEachGroup) {
    EXPECT_EQ(Einschraenkungsgrenze(GroupReason::AllGroups), 167);
    for (const auto grund :
         {GroupReason::DiatomsAsked, GroupReason::AbundanceBelow50, GroupReason::TaxaNotAbove3})
        EXPECT_EQ(Einschraenkungsgrenze(grund), 85);
}

TEST(AbundanceShare, TakesWhatIsNoSpeciesOutOfTheWhole) {
    // 90 / (200 - (190 - 170)) = 90 / 180
    EXPECT_EQ(AbundanzTeil(GroupReason::AllGroups, {90, 190, 170, 0, 0}), 0.5F);
    // 45 / (100 - (100 - 90)) = 45 / 90
    EXPECT_EQ(AbundanzTeil(GroupReason::DiatomsAsked, {45, 100, 90, 0, 0}), 0.5F);
    // 40 / (100 - (80 - 80)): less than the whole was found
    EXPECT_EQ(AbundanzTeil(GroupReason::AbundanceBelow50, {40, 80, 80, 0, 0}), 0.4F);
    // 60 / (200 - (200 - 200)) = 0.3 as a 32-bit float
    EXPECT_EQ(AbundanzTeil(GroupReason::AllGroups, {60, 200, 200, 0, 0}), 0.3F);
}

TEST(AbundanceShare, IsNoneWhereNothingOfTheWholeIsLeft) {
    EXPECT_FALSE(AbundanzTeil(GroupReason::AllGroups, {0, 200, 0, 0, 0}).has_value());
    EXPECT_FALSE(AbundanzTeil(GroupReason::TaxaNotAbove3, {0, 100, 0, 0, 0}).has_value());
}

TEST(CountShare, IsThatOfTheSpeciesAndZeroWithoutAny) {
    EXPECT_EQ(AnzahlTeil({0, 0, 0, 3, 12}), 0.25F);
    // 2 / 3 = 0.666..., the next 32-bit float
    EXPECT_EQ(AnzahlTeil({0, 0, 0, 2, 3}), 0.6666667F);
    EXPECT_EQ(AnzahlTeil({0, 0, 0, 2, 0}), 0);
}

TEST(ReferenceIndex, IsTheMeanOfBothShares) {
    EXPECT_EQ(Referenzindex(0.5F, 0.25F), 0.375F);
    EXPECT_EQ(Referenzindex(0, 0.5F), 0.25F);
}

}  // namespace
}  // namespace FX_Algen::wrrl
