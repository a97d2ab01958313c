#include "calc/Funde.h"

#include <gtest/gtest.h>

namespace FX_Algen::calc {
namespace {

/// A finding that every index counts in every block.
Fund Vollstaendig() {
    Fund fund;
    fund.DG = 10;
    fund.SD_MA = 1;
    fund.Schalen_KA = 5;
    fund.HatWerte = true;
    fund.HatAlgenart = true;
    fund.Lebensform = 1;
    fund.ID_GRGR = 130;
    return fund;
}

struct Fall {
    const char* Beschreibung;
    void (*Aendern)(Fund&);
    SampleBlock Block;
    bool MitAlgenart;
    bool IstWRRL;
    float DG_Gesamt;
    std::optional<LeftOutRule> Regel;
};

constexpr auto MA = SampleBlock::Macroalgae;
constexpr auto KA = SampleBlock::Valves;

const Fall faelle[] = {
    {"counts", [](Fund&) {}, MA, true, true, 40, std::nullopt},
    {"no cover", [](Fund& f) { f.DG = 0; }, MA, false, false, 40, LeftOutRule::NoAbundance},
    {"cover not entered", [](Fund& f) { f.DG.reset(); }, MA, false, false, 40, LeftOutRule::NoAbundance},
    {"negative cover", [](Fund& f) { f.DG = -1; }, MA, false, false, 40, LeftOutRule::NoAbundance},
    {"no valves", [](Fund& f) { f.Schalen_KA = 0; }, KA, false, false, 40, LeftOutRule::NoAbundance},
    {"no total cover", [](Fund&) {}, MA, false, false, 0, LeftOutRule::NoTotalCover},
    {"valves need no total cover", [](Fund&) {}, KA, false, false, 0, std::nullopt},
    {"no ratings", [](Fund& f) { f.HatWerte = false; }, MA, false, false, 40, LeftOutRule::NoRatings},
    {"no Algenart, not asked for", [](Fund& f) { f.HatAlgenart = false; }, MA, false, false, 40,
     std::nullopt},
    {"no Algenart", [](Fund& f) { f.HatAlgenart = false; }, MA, true, false, 40, LeftOutRule::NoAlgenart},
    {"no Algenart, valves", [](Fund& f) { f.HatAlgenart = false; }, KA, true, false, 40, std::nullopt},
    {"other life form, classic", [](Fund& f) { f.Lebensform = 2; }, MA, false, false, 40, std::nullopt},
    {"other life form", [](Fund& f) { f.Lebensform = 2; }, MA, false, true, 40, LeftOutRule::OtherLebensform},
    {"no life form", [](Fund& f) { f.Lebensform.reset(); }, KA, false, true, 40,
     LeftOutRule::OtherLebensform},
    {"group of the diatoms", [](Fund& f) { f.ID_GRGR = 128; }, MA, false, true, 40,
     LeftOutRule::OtherMajorGroup},
    {"group of the diatoms, valves", [](Fund& f) { f.ID_GRGR = 128; }, KA, false, true, 40, std::nullopt},
    {"group 132", [](Fund& f) { f.ID_GRGR = 132; }, MA, false, true, 40, LeftOutRule::OtherMajorGroup},
    {"group 131", [](Fund& f) { f.ID_GRGR = 131; }, MA, false, true, 40, std::nullopt},
    {"no family", [](Fund& f) { f.ID_GRGR.reset(); }, MA, false, true, 40, LeftOutRule::NoTaxonomy},
};

class Auslassen : public testing::TestWithParam<Fall> {};

TEST_P(Auslassen, NamesTheFirstRuleThatKeepsAFindingOut) {
    const auto& fall = GetParam();
    Fund fund = Vollstaendig();
    fall.Aendern(fund);
    EXPECT_EQ(Auslassregel(fund, {fall.Block, fall.MitAlgenart, fall.IstWRRL, Gesamtdeckung{fall.DG_Gesamt}}),
              fall.Regel)
        << fall.Beschreibung;
}
INSTANTIATE_TEST_SUITE_P(Rules, Auslassen, testing::ValuesIn(faelle));

TEST(Auslassen, OfARunOfTheDiatomsAloneIsAllButTheValves) {
    const Gesamtdeckung gesamt{40};
    Fund fund = Vollstaendig();
    EXPECT_EQ(Auslassregel(fund, {MA, false, true, gesamt, true}), LeftOutRule::DiatomsOnly);
    EXPECT_EQ(Auslassregel(fund, {KA, false, true, gesamt, true}), std::nullopt);
    // what was not found at all is no matter of the run
    fund.DG = 0;
    EXPECT_EQ(Auslassregel(fund, {MA, false, true, gesamt, true}), LeftOutRule::NoAbundance);
}

TEST(AuslassenAusDerMenge, AsksForLayerRatingsAndAlgenart) {
    Fund fund = Vollstaendig();
    EXPECT_EQ(AuslassregelMenge(fund), std::nullopt);
    fund.HatAlgenart = false;
    EXPECT_EQ(AuslassregelMenge(fund), LeftOutRule::NoAlgenart);
    fund.HatWerte = false;
    EXPECT_EQ(AuslassregelMenge(fund), LeftOutRule::NoRatings);
    fund.SD_MA = 0;
    EXPECT_EQ(AuslassregelMenge(fund), LeftOutRule::NoLayer);
    fund = Vollstaendig();
    fund.DG = 0;  // counts, with nothing
    EXPECT_EQ(AuslassregelMenge(fund), std::nullopt);
}

}  // namespace
}  // namespace FX_Algen::calc
