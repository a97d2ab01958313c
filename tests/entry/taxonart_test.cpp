#include "entry/Taxonart.h"

#include <gtest/gtest.h>

namespace FX_Algen::entry {
namespace {

struct Fall {
    store::Value ID_GRGR;
    store::Value Algenart;
    std::string_view art;
};

class KindOfATaxon : public testing::TestWithParam<Fall> {};

TEST_P(KindOfATaxon, FollowsFromMajorGroupThenKindOfAlga) {
    EXPECT_EQ(Taxonart_Text(Taxonart_Von(GetParam().ID_GRGR, GetParam().Algenart)), GetParam().art);
}

INSTANTIATE_TEST_SUITE_P(Cases, KindOfATaxon,
                         testing::Values(
                             // The major group decides, whatever the kind of alga.
                             Fall{128, "Makroalge", "KA"}, Fall{128, {}, "KA"}, Fall{133, "Makroalge", "BA"},
                             Fall{133, {}, "BA"}, Fall{134, "benthisch", "PI"}, Fall{135, "Makroalge", "HP"},
                             Fall{136, {}, "HP"}, Fall{137, "benthisch", "HP"}, Fall{132, "Makroalge", "HP"},
                             // Any other group, also its neighbours 127, 129, 131 and 138.
                             Fall{130, "Makroalge", "MA"}, Fall{130, {}, "MA"}, Fall{127, {}, "MA"},
                             Fall{129, "benthisch", "MI"}, Fall{131, "planktisch", "MI"},
                             Fall{138, "Makroalge", "MA"},
                             // An empty text is another text, and upper case is told apart.
                             Fall{130, "", "MI"}, Fall{130, "makroalge", "MI"}, Fall{130, "Grünalge", "MI"},
                             // Without a place in the taxonomy.
                             Fall{{}, "Makroalge", "MA"}, Fall{{}, {}, "MA"}, Fall{{}, "benthisch", "MI"}));

TEST(KindOfATaxonText, IsReadBackAndNothingElseIs) {
    for (const auto art :
         {Taxonart::KA, Taxonart::MA, Taxonart::MI, Taxonart::HP, Taxonart::BA, Taxonart::PI})
        EXPECT_EQ(Taxonart_Aus(Taxonart_Text(art)), art);
    for (const auto* text : {"", "ma", "XX", "MA "}) EXPECT_EQ(Taxonart_Aus(text), std::nullopt) << text;
}

}  // namespace
}  // namespace FX_Algen::entry
