#include "store/load/Cell.h"

#include <gtest/gtest.h>

namespace FX_Algen::store::load {
namespace {

struct Converted {
    std::string Text;
    std::string Reason;
};

Converted Convert(std::string_view text, Kind kind, bool time = false, bool comma = false,
                  bool quoted = false) {
    TargetColumn column;
    column.Type = kind;
    column.HasTime = time;
    Cell cell;
    std::deque<std::string> buffers;
    const std::string reason =
        Conversion{comma}.Convert(CsvField{text, quoted, 1, nullptr}, column, cell, buffers);
    return {cell.AsText(), reason};
}

struct Good {
    std::string_view Text;
    Kind Type;
    std::string_view Expected;
    bool Time = false;
    bool Comma = false;
};

TEST(Conversion, TakesWhatFitsTheKind) {
    for (const Good& c : std::vector<Good>{
             {"32767", Kind::I2, "32767"},
             {"-32768", Kind::I2, "-32768"},
             {" 17 ", Kind::I4, "17"},
             {"+17", Kind::I4, "17"},
             {"-2147483648", Kind::I4, "-2147483648"},
             {"0.1", Kind::R8, "0.1"},
             {".5", Kind::R8, "0.5"},
             {"-1.5e-3", Kind::R8, "-0.0015"},
             {"2,5", Kind::R8, "2.5", false, true},
             {"2.5", Kind::R8, "2.5", false, true},
             // 0.1 is not a 32-bit number; the nearest one is 13421773 / 2^27 = 0.100000001490116...
             {"0.1", Kind::R4, "0.10000000149011612"},
             {"-1", Kind::Bool, "-1"},
             {"1", Kind::Bool, "-1"},
             {"TRUE", Kind::Bool, "-1"},
             {"0", Kind::Bool, "0"},
             {"False", Kind::Bool, "0"},
             {"2026-05-12", Kind::Date, "'2026-05-12'"},
             {"12.05.2026", Kind::Date, "'2026-05-12'"},
             {"29.02.2024", Kind::Date, "'2024-02-29'"},
             {"9:30", Kind::Date, "'09:30:00'", true},
             {"09:30:15", Kind::Date, "'09:30:15'", true},
             {" Bäche ", Kind::Text, "' Bäche '"},
             {"", Kind::Text, "Null"},
             {"", Kind::I4, "Null"}}) {
        const auto got = Convert(c.Text, c.Type, c.Time, c.Comma);
        EXPECT_EQ(got.Text, c.Expected) << c.Text;
        EXPECT_EQ(got.Reason, "") << c.Text;
    }
}

struct Bad {
    std::string_view Text;
    Kind Type;
    std::string_view Reason;
    bool Time = false;
    bool Comma = false;
};

TEST(Conversion, RefusesWhatDoesNot) {
    for (const Bad& c : std::vector<Bad>{
             {"32768", Kind::I2, "'32768' does not fit a 16-bit integer (-32768 to 32767)"},
             {"2147483648", Kind::I4,
              "'2147483648' does not fit a 32-bit integer (-2147483648 to 2147483647)"},
             {"99999999999999999999", Kind::I4,
              "'99999999999999999999' does not fit a 32-bit integer (-2147483648 to 2147483647)"},
             {"1.0", Kind::I4, "'1.0' is not a whole number"},
             // With ";" a point in a whole number might part thousands: never guess.
             {"1.000", Kind::I4, "'1.000' is not a whole number", false, true},
             {"zwölf", Kind::I4, "'zwölf' is not a whole number"},
             {" ", Kind::I4, "' ' is not a whole number"},
             {"2,5", Kind::R8, "'2,5' is not a number"},
             {"1.234,5", Kind::R8, "'1.234,5' is not a number", false, true},
             {"1,2,3", Kind::R8, "'1,2,3' is not a number", false, true},
             {"nan", Kind::R8, "'nan' is not a number"},
             {"inf", Kind::R8, "'inf' is not a number"},
             {"-inf", Kind::R4, "'-inf' is not a number"},
             {"infinity", Kind::R8, "'infinity' is not a number"},
             {"0x10", Kind::R8, "'0x10' is not a number"},
             {"1e999", Kind::R8, "'1e999' does not fit a number"},
             {"1e39", Kind::R4, "'1e39' does not fit a 32-bit float"},
             {"2", Kind::Bool, "'2' is not a boolean (-1, 0, 1, true or false)"},
             {"ja", Kind::Bool, "'ja' is not a boolean (-1, 0, 1, true or false)"},
             {"31.04.2026", Kind::Date, "'31.04.2026' is not a day (2026-05-12 or 12.05.2026)"},
             {"05/12/2026", Kind::Date, "'05/12/2026' is not a day (2026-05-12 or 12.05.2026)"},
             {"09:30", Kind::Date, "'09:30' is not a day (2026-05-12 or 12.05.2026)"},
             {"25:00", Kind::Date, "'25:00' is not a time of day (09:30 or 09:30:00)", true}}) {
        const auto got = Convert(c.Text, c.Type, c.Time, c.Comma);
        EXPECT_EQ(got.Reason, c.Reason) << c.Text;
        EXPECT_EQ(got.Text, "Null") << c.Text;
    }
}

TEST(Conversion, QuotesWithoutContentAreTheEmptyTextAndNoNumber) {
    EXPECT_EQ(Convert("", Kind::Text, false, false, true).Text, "''");
    EXPECT_EQ(Convert("", Kind::I4, false, false, true).Reason, "'' is not a whole number");
}

}  // namespace
}  // namespace FX_Algen::store::load
