#include "store/Format.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"

namespace FX_Algen::store {
namespace {

struct Case {
    Value In;
    const char* Pattern;
    const char* Out;
};

TEST(Format, DatesAndTimesByPattern) {
    const Case cases[] = {
        {Date{"2026-05-09"}, "dd.mm.yyyy", "09.05.2026"},
        {"2026-05-09", "dd.mm.yyyy", "09.05.2026"},
        {Date{"2026-05-09"}, "d.m.yy", "9.5.26"},
        {Date{"2026-05-09 14:03:07"}, "hh:mm", "14:03"},  // m behind h is minutes
        {Date{"2026-05-09 14:03:07"}, "h:n:s", "14:3:7"},
        {Date{"09:30:00"}, "hh:mm", "09:30"},
        {Date{"09:30:00"}, "dd.mm.yyyy", "30.12.1899"},  // a bare time is of the day 0
        {Date{"2026-05-09"}, "hh:nn", "00:00"},
        {Date{"2026-05-09 14:03:07"}, "yyyy-mm-dd hh:mm:ss", "2026-05-09 14:03:07"},
        {Date{"2026-05-09"}, "\"am\" d\\d", "am 9d"},
        {"kein Datum", "dd.mm.yyyy", "kein Datum"},
        {Value(), "dd.mm.yyyy", ""},
        {Date{"2026-05-09"}, "", "09.05.2026"},
    };
    for (const Case& c : cases) EXPECT_EQ(FormatValue(c.In, c.Pattern), c.Out) << c.Pattern;
}

TEST(Format, NumbersByPlaces) {
    const Case cases[] = {
        {2.675, "0.00", "2.68"},  // by its digits, halves away from zero
        {-2.5, "0", "-3"},
        {0.4, "0", "0"},
        {-0.4, "0", "0"},
        {0.5, "#.##", ".5"},
        {12.0, "#.##", "12."},
        {2.675F, "0.00", "2.68"},  // by the digits of 32 bits, not those of 2.6749999523
        {0.1F, "0.#########", "0.1"},
        {7, "000", "007"},
        {9.996, "0.00", "10.00"},
        {1234.5, "0.0#", "1234.5"},
        {1234.56, "0.0#", "1234.56"},
        {3, "\"Nr\" 0", "Nr 3"},
        {45.2, "0 %", "45 %"},
        {Value(), "0.00", ""},
        {"Text", "0.00", "Text"},
    };
    for (const Case& c : cases) EXPECT_EQ(FormatValue(c.In, c.Pattern), c.Out) << c.Pattern;
}

TEST(Format, LettersThatMeanNothingAreSyntaxErrors) {
    for (const char* pattern : {"dddd", "mmm", "q", "hhh", "yyy", "Nr. 0"})
        EXPECT_EQ(test::FailureNumber([&] { FormatValue(Date{"2026-05-09"}, pattern); }),
                  ErrorNumber::SyntaxError)
            << pattern;
}

TEST(Format, ADateHasNoPlaces) {
    for (const char* pattern : {"0", "#.##", "0.00"})
        EXPECT_EQ(test::FailureNumber([&] { FormatValue(Date{"2026-05-09"}, pattern); }),
                  ErrorNumber::TypeMismatch)
            << pattern;
}

TEST(Format, GermanDateKeepsTheTime) {
    EXPECT_EQ(GermanDate(Date{"2026-05-09"}), "09.05.2026");
    EXPECT_EQ(GermanDate(Date{"2026-05-09 14:03:07"}), "09.05.2026 14:03:07");
    EXPECT_EQ(GermanDate(Date{"14:03:07"}), "14:03:07");
}

}  // namespace
}  // namespace FX_Algen::store
