#include "calc/Gueteklasse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "store/ThreadValues.h"

namespace FX_Algen::calc {
namespace {

struct Fall {
    const char* Beschreibung;
    double SI;
    std::optional<std::size_t> Klasse;
};

class GueteklasseGrenzen : public testing::TestWithParam<Fall> {};

TEST_P(GueteklasseGrenzen, GiveTheClassOfTheFirstMatch) {
    EXPECT_EQ(Gueteklasse(GetParam().SI), GetParam().Klasse)
        << GetParam().Beschreibung << ", SI = " << GetParam().SI;
}

// The bounds of the classes are 0.000001, 1.399999, 1.799999, 2.199999, 2.599999, 3.099999, 3.499999 and 3.5;
// a bound belongs to the class below it, since that one is tested first.
const Fall faelle[] = {
    {"no value", 0.0, std::nullopt},
    {"negative", -1.0, std::nullopt},
    {"below the first bound", 0.0000009, std::nullopt},
    {"the first bound itself", 0.000001, 0},
    {"inside I", 1.0, 0},
    {"bound of I and I-II", 1.399999, 0},
    {"just above that bound", std::nextafter(1.399999, 2.0), 1},
    {"1.4 lies above 1.399999", 1.4, 1},
    // 1.4 in 32 bits is 1.39999997..., still above 1.399999
    {"1.4 stored in 32 bits", 1.4F, 1},
    {"bound of I-II and II", 1.799999, 1},
    {"1.8", 1.8, 2},
    {"bound of II and II-III", 2.199999, 2},
    {"2.2", 2.2, 3},
    {"bound of II-III and III", 2.599999, 3},
    {"2.6", 2.6, 4},
    {"bound of III and III-IV", 3.099999, 4},
    {"3.1", 3.1, 5},
    {"upper bound of III-IV", 3.499999, 5},
    {"inside the gap", 3.4999995, std::nullopt},
    {"inside the gap, stored in 32 bits", 3.4999995F, std::nullopt},
    {"just below 3.5", std::nextafter(3.5, 3.0), std::nullopt},
    {"3.5", 3.5, 6},
    {"worst value of the scale", 4.0, 6},
    {"no upper bound", 1000.0, 6},
};
INSTANTIATE_TEST_SUITE_P(Values, GueteklasseGrenzen, testing::ValuesIn(faelle));

TEST(GueteklasseZaehlen, AddsToTheCounterOfItsClassAlone) {
    Klassenzahlen anzahl{};
    Gueteklasse_Zaehlen(2.0, anzahl);
    Gueteklasse_Zaehlen(2.1, anzahl);
    Gueteklasse_Zaehlen(3.6, anzahl);
    Gueteklasse_Zaehlen(0.0, anzahl);
    EXPECT_EQ(anzahl, (Klassenzahlen{0, 0, 2, 0, 0, 0, 1}));
}

TEST(GueteklasseZaehlen, FailsWith6WhenACounterWouldLeave16Bits) {
    Klassenzahlen anzahl{};
    anzahl[2] = std::numeric_limits<std::int16_t>::max() - 1;
    Gueteklasse_Zaehlen(2.0, anzahl);
    EXPECT_EQ(anzahl[2], 32767);
    try {
        Gueteklasse_Zaehlen(2.0, anzahl);
        FAIL() << "no overflow";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
    EXPECT_EQ(anzahl[2], 32767);
}

TEST(GueteklasseZaehlen, WithoutCountersUsesThoseOfTheThread) {
    auto& anzahl = store::Thread().GueteklasseAnzahl;
    anzahl = {};
    FX_Algen::Gueteklasse_Zaehlen(1.0);
    FX_Algen::Gueteklasse_Zaehlen(3.5);
    EXPECT_EQ(anzahl, (Klassenzahlen{1, 0, 0, 0, 0, 0, 1}));
    anzahl = {};
}

}  // namespace
}  // namespace FX_Algen::calc
