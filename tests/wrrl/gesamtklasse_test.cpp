#include "wrrl/Gesamtklasse.h"

#include <gmock/gmock.h>

namespace FX_Algen::wrrl {
namespace {

struct Fall {
    Klassen Gegeben;
    std::int16_t Klasse;
    std::int16_t Anzahl;
    std::size_t Modul;
};

TEST(WorstClass, IsTheLargestNumberWithTheLastModuleThatHasIt) {
    const Fall faelle[] = {
        {{2, 3, 3}, 3, 2, 2},     {{2, 2, 4}, 4, 1, 2},   {{4, 2, 2}, 4, 1, 0},
        {{2, 4, 2}, 4, 1, 1},     {{5, 5, 2}, 5, 2, 1},   {{3, 3, 3}, 3, 3, 2},
        {{-1, 2, 3}, 3, 1, 2},    {{2, -1, -1}, 2, 1, 0},  // one class alone is the worst
        {{-1, -1, -1}, -1, 3, 2},
    };
    for (const auto& fall : faelle) {
        const auto schlechteste = SchlechtesteKlasse(fall.Gegeben);
        EXPECT_EQ(schlechteste.Klasse, fall.Klasse) << testing::PrintToString(fall.Gegeben);
        EXPECT_EQ(schlechteste.Anzahl, fall.Anzahl) << testing::PrintToString(fall.Gegeben);
        EXPECT_EQ(schlechteste.Modul, fall.Modul) << testing::PrintToString(fall.Gegeben);
    }
}

TEST(Softening, TakesExactlyOneClass) {
    EXPECT_EQ(Abgemildert(4, 3), 3);
    EXPECT_EQ(Abgemildert(4, 4), 4);   // the raised ratio has the same class
    EXPECT_EQ(Abgemildert(4, 2), 4);   // two away
    EXPECT_EQ(Abgemildert(4, 5), 4);   // a worse one
    EXPECT_EQ(Abgemildert(4, -1), 4);  // none found
    EXPECT_EQ(Abgemildert(0, -1), 0);  // none found, though -1 is one below 0
    EXPECT_EQ(Abgemildert(1, 0), 0);   // whatever numbers the classes have
}

}  // namespace
}  // namespace FX_Algen::wrrl
