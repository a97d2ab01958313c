#include "fxalgen/Table.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace FX_Algen;
using namespace FX_Algen::cli;

namespace {

constexpr std::int16_t German = 10000;
constexpr std::int16_t English = 20000;

TEST(Table, AlignsByColumnsOfTheTerminal) {
    Table table;
    table.AddColumn("Gewässer", Table::Align::Left);
    table.AddColumn("SI", Table::Align::Right);
    table.AddRow({"Bächle", "1,85"});
    table.AddRow({"Ö", "10,00"});
    std::ostringstream out;
    table.Print(out, 2);
    // "Gewässer" takes 8 columns, "10,00" five; two blanks between.
    EXPECT_EQ(out.str(),
              "  Gewässer     SI\n"
              "  --------  -----\n"
              "  Bächle     1,85\n"
              "  Ö         10,00\n");
}

TEST(Table, LeavesNoBlanksAtLineEnds) {
    Table table;
    table.AddColumn("a", Table::Align::Left);
    table.AddColumn("Stand", Table::Align::Left);
    table.AddRow({"1", ""});
    std::ostringstream out;
    table.Print(out);
    EXPECT_EQ(out.str(), "a  Stand\n-  -----\n1\n");
}

TEST(Table, ShowsNumbersRoundedCommerciallyInTheLanguage) {
    struct Case {
        double Number;
        std::int16_t Places;
        std::int16_t Language;
        std::string Text;
    };
    const Case cases[] = {
        {1.845, 2, German, "1,85"},  // a half goes up though the nearest double lies below it
        {1.845, 2, English, "1.85"}, {2.0, 2, German, "2,00"},      {0.125, 2, English, "0.13"},
        {12.0, 0, German, "12"},     {0.0004, 3, English, "0.000"},
    };
    for (const Case& c : cases) EXPECT_EQ(DisplayNumber(c.Number, c.Places, c.Language), c.Text);
}

TEST(Table, ShowsDatesInTheLanguageAndNullAsNothing) {
    const store::Value day(store::Date{"2026-05-12"});
    EXPECT_EQ(DisplayText(day, German), "12.05.2026");
    EXPECT_EQ(DisplayText(day, English), "2026-05-12");
    EXPECT_EQ(DisplayText(store::Value(store::Date{"2026-05-12 09:30:00"}), German), "12.05.2026 09:30:00");
    EXPECT_EQ(DisplayText(store::Value(), German), "");
    EXPECT_EQ(DisplayText(store::Value("Mühlgang"), German), "Mühlgang");
}

}  // namespace
