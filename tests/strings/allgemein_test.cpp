#include "store/Allgemein.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <locale>
#include <sstream>

#include "FX_Algen/Error.h"

namespace FX_Algen::Allgemein {
namespace {

using store::Date;
using store::Value;

std::int32_t NumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

// ---- Runden ------------------------------------------------------------------------------------

struct Rounding {
    double wert;
    std::int16_t stellen;
    double expected;
};

class Runden_Cases : public testing::TestWithParam<Rounding> {};

TEST_P(Runden_Cases, RoundCommerciallyTowardsPlusInfinity) {
    const auto& c = GetParam();
    EXPECT_DOUBLE_EQ(Runden(c.wert, c.stellen), c.expected)
        << "Runden(" << c.wert << ", " << c.stellen << ")";
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Runden_Cases,
    testing::Values(
        // Whole numbers stay: x = i.
        Rounding{0, 0, 0}, Rounding{7, 0, 7}, Rounding{-3, 0, -3}, Rounding{1200, 2, 1200},
        // x = 2.49999; to 4 places 2.5; 2.5 - 2 = 0.5, so one more.
        Rounding{2.49999, 0, 3},
        // x = 2.4999 stays 2.4999 at 4 places; 0.4999 is below the half.
        Rounding{2.4999, 0, 2},
        // x = 2.49994 is 2.4999 at 4 places, x = 2.49996 is 2.5.
        Rounding{2.49994, 0, 2}, Rounding{2.49996, 0, 3},
        // x = 12.5; 12.5 - 12 = 0.5: 13 / 100. x = -12.5: i = -13, -12.5 + 13 = 0.5: -12 / 100.
        Rounding{0.125, 2, 0.13}, Rounding{-0.125, 2, -0.12},
        // x = 100.49999999999999 in binary; to 4 places 100.5: 101 / 100.
        Rounding{1.005, 2, 1.01},
        // x = -0.5: i = -1, r - i = 0.5: 0. x = -1.5: i = -2: -1. x = -0.51: r - i = 0.49: -1.
        Rounding{-0.5, 0, 0}, Rounding{-1.5, 0, -1}, Rounding{-0.51, 0, -1}, Rounding{-2.6, 0, -3},
        // x = -0.50005 lies between the 4th places -0.5001 and -0.5000; the even one is -0.5000, so
        // r - i = -0.5 + 1 = 0.5 and i becomes 0. Away from zero it would be -0.5001 and stay at -1.
        Rounding{-0.50005, 0, 0},
        // x = -0.50015: between -0.5002 and -0.5001, the even one is -0.5002: r - i = 0.4998, i = -1.
        Rounding{-0.50015, 0, -1},
        // x = 0.49995: between 0.4999 and 0.5000, the even one is 0.5000: one more.
        Rounding{0.49995, 0, 1},
        // Ordinary values.
        Rounding{1.2345, 3, 1.235}, Rounding{1.2344, 3, 1.234}, Rounding{2.675, 2, 2.68}, Rounding{0.5, 0, 1},
        Rounding{1.5, 0, 2}, Rounding{2.5, 0, 3}, Rounding{0.04, 1, 0}, Rounding{0.05, 1, 0.1},
        // Places before the point: x = 1.5 and 1.4.
        Rounding{150, -2, 200}, Rounding{140, -2, 100},
        // Beyond 2^53 every value is whole.
        Rounding{1e17, 2, 1e17}));

TEST(Runden, KeepsWhatIsNoNumber) {
    EXPECT_TRUE(std::isnan(Runden(std::numeric_limits<double>::quiet_NaN(), 2)));
    EXPECT_EQ(Runden(std::numeric_limits<double>::infinity(), 0), std::numeric_limits<double>::infinity());
}

// ---- Str_Ersetzen ------------------------------------------------------------------------------

struct Replacement {
    std::string text, alt, neu;
    bool nurErstes;
    std::string expected;
};

class Str_Ersetzen_Cases : public testing::TestWithParam<Replacement> {};

TEST_P(Str_Ersetzen_Cases, ReplaceAndGoOnBehindTheInsertedText) {
    const auto& c = GetParam();
    EXPECT_EQ(Str_Ersetzen(c.text, c.alt, c.neu, c.nurErstes), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Str_Ersetzen_Cases,
    testing::Values(
        Replacement{"a|b|c", "|", "~", false, "a~b~c"}, Replacement{"a|b|c", "|", "~", true, "a~b|c"},
        Replacement{"Taxon | löschen?", "|", "Ulothrix |", false, "Taxon Ulothrix | löschen?"},
        Replacement{"aaa", "aa", "a", false, "aa"}, Replacement{"aaa", "a", "aa", false, "aaaaaa"},
        Replacement{"über", "ü", "Ue", false, "Ueber"}, Replacement{"Über", "über", "x", false, "Über"},
        Replacement{"abc", "", "x", false, "abc"}, Replacement{"", "a", "x", false, ""},
        Replacement{"abc", "c", "", false, "ab"}, Replacement{"abc", "x", "y", true, "abc"}));

// ---- dates, numbers, booleans --------------------------------------------------------------------

TEST(Datum_US, IsMonthDayYearWithSlashes) {
    EXPECT_EQ(Datum_US(Date{"2026-05-12"}), "05/12/2026");
    EXPECT_EQ(Datum_US(Date{"2026-12-01 09:30:00"}), "12/01/2026");
    EXPECT_EQ(Datum_US("12.05.2026"), "05/12/2026");
    EXPECT_EQ(Datum_Konstante(Date{"2026-05-12"}), "#05/12/2026#");
}

/// Numbers as 2.026,5 whatever locales the system has.
class KommaZahlen : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Datum_US, DoesNotFollowTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new KommaZahlen));
    std::ostringstream proof;
    proof << 2026;
    const auto day = Datum_US(Date{"2026-05-12"});
    std::locale::global(before);
    EXPECT_EQ(proof.str(), "2.026");  // the locale is in force
    EXPECT_EQ(day, "05/12/2026");
}

TEST(Datum_US, OfATimeAloneIsTheDayZero) { EXPECT_EQ(Datum_US(Date{"09:30:00"}), "12/30/1899"); }

TEST(Datum_US, FailsOnNullAndOnWhatIsNoDate) {
    EXPECT_EQ(NumberOf([] { Datum_US(Value()); }), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(NumberOf([] { Datum_US("Ährenfeld"); }), ErrorNumber::TypeMismatch);
}

TEST(Punkt_Setzen, PutsAPointAtTheFirstSemicolonAndLeavesCommas) {
    EXPECT_EQ(Punkt_Setzen("1;5;7"), "1.5;7");
    EXPECT_EQ(Punkt_Setzen("1,5"), "1,5");
    EXPECT_EQ(Punkt_Setzen(1.5), "1.5");
    EXPECT_EQ(Punkt_Setzen(0.1F), "0.1");
    EXPECT_EQ(Punkt_Setzen(std::int16_t{3}), "3");
    EXPECT_EQ(Punkt_Setzen("größer; kleiner"), "größer. kleiner");
    EXPECT_EQ(NumberOf([] { Punkt_Setzen(Value()); }), ErrorNumber::InvalidUseOfNull);
}

TEST(Bool_Text, IsMinusOneOrZero) {
    EXPECT_EQ(Bool_Text(true), "-1");
    EXPECT_EQ(Bool_Text(false), "0");
}

TEST(SprachID_Anheben, RaisesWhatLiesBelow10000) {
    EXPECT_EQ(SprachID_Anheben(0), 10000);
    EXPECT_EQ(SprachID_Anheben(-32768), 10000);
    EXPECT_EQ(SprachID_Anheben(9999), 10000);
    EXPECT_EQ(SprachID_Anheben(10000), 10000);
    EXPECT_EQ(SprachID_Anheben(10001), 10001);
    EXPECT_EQ(SprachID_Anheben(20000), 20000);
}

// ---- Liste_Teilen ------------------------------------------------------------------------------

struct Splitting {
    std::string text, trenner;
    Vergleich vergleich;
    std::vector<std::string> pieces;
};

class Liste_Teilen_Cases : public testing::TestWithParam<Splitting> {};

TEST_P(Liste_Teilen_Cases, GiveThePiecesAndTheirNumber) {
    const auto& c = GetParam();
    std::vector<std::string> liste{"left from before"};
    EXPECT_EQ(Liste_Teilen(c.text, c.trenner, c.vergleich, liste),
              static_cast<std::int16_t>(c.pieces.size()));
    EXPECT_EQ(liste, c.pieces);
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Liste_Teilen_Cases,
    testing::Values(Splitting{"M,K1,Ö", ",", Vergleich::Binaer, {"M", "K1", "Ö"}},
                    Splitting{"ohne Trenner", ",", Vergleich::Binaer, {"ohne Trenner"}},
                    Splitting{"", ",", Vergleich::Binaer, {""}},
                    Splitting{",", ",", Vergleich::Binaer, {"", ""}},
                    Splitting{"a,,b,", ",", Vergleich::Binaer, {"a", "", "b", ""}},
                    Splitting{"a, b", ", ", Vergleich::Binaer, {"a", "b"}},
                    Splitting{"abc", "", Vergleich::Binaer, {"abc"}},
                    Splitting{"aXbxc", "x", Vergleich::Binaer, {"aXb", "c"}},
                    Splitting{"aXbxc", "x", Vergleich::Text, {"a", "b", "c"}},
                    Splitting{"1 ÜBER 2 über 3", " über ", Vergleich::Text, {"1", "2", "3"}},
                    Splitting{"1 ÜBER 2 über 3", " über ", Vergleich::Binaer, {"1 ÜBER 2", "3"}},
                    Splitting{"aaa", "aa", Vergleich::Text, {"", "a"}}));

TEST(Liste_Teilen, OverflowsBeyond32767Pieces) {
    std::vector<std::string> liste;
    EXPECT_EQ(Liste_Teilen(std::string(32766, ','), ",", Vergleich::Binaer, liste), 32767);
    EXPECT_EQ(NumberOf([&] { Liste_Teilen(std::string(32767, ','), ",", Vergleich::Binaer, liste); }),
              ErrorNumber::Overflow);
}

TEST(Liste_Teilen, SurvivesBytesThatAreNoText) {
    std::vector<std::string> liste;
    EXPECT_EQ(Liste_Teilen("a\xff;b\xc3", ";", Vergleich::Text, liste), 2);
    EXPECT_EQ(liste, (std::vector<std::string>{"a\xff", "b\xc3"}));
}

}  // namespace
}  // namespace FX_Algen::Allgemein
