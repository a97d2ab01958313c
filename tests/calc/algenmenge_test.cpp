#include "calc/Algenmenge.h"

#include <gtest/gtest.h>

#include <vector>

namespace FX_Algen::calc {
namespace {

TEST(Algenmengenindex, IsLayerTimesCoveredFraction) {
    struct Fall {
        const char* Beschreibung;
        std::vector<Menge> Makro;      ///< DG_MA in percent, SD_MA in mm
        std::vector<Menge> Bestaende;  ///< DG_MI in percent, SD_MI in mm
        double AMI;
    };
    const Fall faelle[] = {
        {"nothing", {}, {}, 0},
        {"cover 50, layer 3: 3 * 50 / 100", {{{50}, {3}}}, {}, 1.5},
        {"a stand: 0.5 * 40 / 100", {}, {{{40}, {0.5}}}, 0.2},
        {"both: 3*50/100 + 2*25/100 + 1*75/100", {{{50}, {3}}, {{25}, {2}}}, {{{75}, {1}}}, 2.75},
    };
    for (const auto& fall : faelle) {
        double AMI = 0;
        AMISpur spur;
        Mengenindex(Block::Makroalgen, fall.Makro, AMI, &spur);
        Mengenindex(Block::Mischbestaende, fall.Bestaende, AMI, &spur);
        EXPECT_DOUBLE_EQ(AMI, fall.AMI) << fall.Beschreibung;
        EXPECT_EQ(spur.Beitraege.size(), fall.Makro.size() + fall.Bestaende.size()) << fall.Beschreibung;
    }
}

TEST(Algenmengenindex, AddsUpIn64Bits) {
    // 2^24 mm over 100 percent, then 1 mm: 16777217 has no 32-bit float
    double AMI = 0;
    Mengenindex(Block::Makroalgen, std::vector<Menge>{{{100}, {16777216}}, {{100}, {1}}}, AMI, nullptr);
    EXPECT_EQ(AMI, 16777217.0);
}

}  // namespace
}  // namespace FX_Algen::calc
