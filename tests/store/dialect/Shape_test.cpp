#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SampleCatalogue.h"
#include "store/dialect/Translate.h"

namespace FX_Algen::store::dialect::testing {
namespace {

std::string KeyOf(std::string_view statement) {
    Shape shape;
    ScanShape(statement, shape);
    return shape.Key;
}

std::vector<std::string> LiteralsOf(std::string_view statement) {
    Shape shape;
    ScanShape(statement, shape);
    std::vector<std::string> raws;
    for (const Literal& literal : shape.Literals) raws.emplace_back(literal.Raw);
    return raws;
}

Value ValueOf(std::string_view raw) {
    Shape shape;
    ScanShape(raw, shape);
    return LiteralValue(shape.Literals.at(0));
}

TEST(Shape, IsTheSameForStatementsThatDifferInTheirConstants) {
    EXPECT_EQ(KeyOf("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=17;"),
              KeyOf("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=4;"));
    EXPECT_EQ(KeyOf("SELECT 'a' FROM t"), KeyOf("SELECT 'it''s longer' FROM t"));
    EXPECT_EQ(KeyOf("SELECT #1/2/2026# FROM t"), KeyOf("SELECT #12/31/1999# FROM t"));
}

TEST(Shape, DiffersWhereTheKindOfAConstantDiffers) {
    EXPECT_NE(KeyOf("SELECT 1 FROM t"), KeyOf("SELECT '1' FROM t"));
    EXPECT_NE(KeyOf("SELECT 1 FROM t"), KeyOf("SELECT 1.5 FROM t"));
    EXPECT_NE(KeyOf("SELECT '1' FROM t"), KeyOf("SELECT #1/1/2026# FROM t"));
    // 2147483647 is the largest whole number of 32 bits; one more is a float.
    EXPECT_NE(KeyOf("SELECT 2147483647 FROM t"), KeyOf("SELECT 2147483648 FROM t"));
}

TEST(Shape, FoldsBlanksOutsideQuotesOnly) {
    EXPECT_EQ(KeyOf("  SELECT\r\n\ta  FROM   t  "), KeyOf(" SELECT a FROM t"));
    EXPECT_EQ(LiteralsOf("SELECT 'a  b' FROM t"), (std::vector<std::string>{"'a  b'"}));
    EXPECT_NE(KeyOf("SELECT [a  b] FROM t"), KeyOf("SELECT [a b] FROM t"));
}

TEST(Shape, TakesNoDigitsOfNamesForConstants) {
    EXPECT_TRUE(LiteralsOf("SELECT A17, [18], awaobWGEV07_Grid.ID_TR FROM Ä5").empty());
}

TEST(Shape, FindsConstantsInGluedText) {
    EXPECT_EQ(LiteralsOf("VALUES(17, -1,'x',#5/12/2026#,1.5E-3,.5)"),
              (std::vector<std::string>{"17", "1", "'x'", "#5/12/2026#", "1.5E-3", ".5"}));
    EXPECT_EQ(LiteralsOf("WHERE ID=17ORDER BY a"), (std::vector<std::string>{"17"}));
}

TEST(Shape, ReusesItsBuffers) {
    Shape shape;
    ScanShape("SELECT 1, 2 FROM t", shape);
    ScanShape("SELECT 'x' FROM t", shape);
    ASSERT_EQ(shape.Literals.size(), 1U);
    EXPECT_EQ(shape.Literals[0].Raw, "'x'");
    EXPECT_EQ(shape.Key, KeyOf("SELECT 'y' FROM t"));
}

TEST(Shape, RefusesWhatDoesNotEndAndForeignCharacters) {
    for (const char* statement : {"SELECT 'a FROM t", "SELECT \"a FROM t", "SELECT #1/1/2026 FROM t",
                                  "SELECT [a FROM t", "SELECT a FROM t WHERE a='it''", "SELECT \x01 FROM t",
                                  "SELECT a FROM t {", "SELECT ? FROM t", "SELECT a FROM t WHERE a=:p"}) {
        EXPECT_EQ(FailureOf([&] { KeyOf(statement); }), ErrorNumber::SyntaxError) << statement;
    }
}

TEST(LiteralValue, ReadsEachForm) {
    struct Case {
        const char* Raw;
        Value Expected;
    };
    const std::vector<Case> cases{
        {"17", std::int32_t{17}},
        {"2147483647", std::int32_t{2147483647}},
        {"2147483648", 2147483648.0},
        {"1.5", 1.5},
        {"1.0", 1.0},
        {".25", 0.25},
        {"1E3", 1000.0},
        {"2.5e-1", 0.25},
        // Too small for a float is 0: in the exponent, in the places, and where the two are against each
        // other.
        {"1E-400", 0.0},
        {"0.00001E-320", 0.0},
        {"12345E-99999999999999999999", 0.0},
        {"'a''b'", "a'b"},
        {"\"a\"\"b\"", "a\"b"},
        {"\" cf. \"", " cf. "},
        {"''", ""},
        {"'Überklasse'", "Überklasse"},
        {"#5/12/2026#", Date{"2026-05-12"}},
        {"#05/12/2026 9:30#", Date{"2026-05-12 09:30:00"}},
        {"#02/29/2024 23:59:58#", Date{"2024-02-29 23:59:58"}},
        {"#9:05:07#", Date{"09:05:07"}},
        // Midnight is the day itself; the day zero is that of a time alone.
        {"#5/12/2026 0:00#", Date{"2026-05-12"}},
        {"#12/30/1899 9:30#", Date{"09:30:00"}},
    };
    for (const Case& c : cases) EXPECT_EQ(ValueOf(c.Raw), c.Expected) << c.Raw;
}

TEST(LiteralValue, RefusesMalformedDates) {
    // 2025 has no 29 February; the order is month/day/year; the year has four digits.
    for (const char* raw : {"#2/29/2025#", "#31/12/2026#", "#12/31/26#", "#1/1#", "##", "#today#",
                            "#1/1/2026 25:00#", "#1/1/2026 10#", "#1/1/2026/4#", "#+1/1/2026#"}) {
        EXPECT_EQ(FailureOf([&] { ValueOf(raw); }), ErrorNumber::SyntaxError) << raw;
    }
}

TEST(LiteralValue, RefusesNumbersBeyondAFloat) {
    for (const char* raw : {"1E999", "1E+999", "0.001E999", "1E99999999999999999999"})
        EXPECT_EQ(FailureOf([&] { ValueOf(raw); }), ErrorNumber::Overflow) << raw;
}

TEST(Fold, MakesNamesEqualWithoutRegardToCase) {
    EXPECT_EQ(Fold("ID_ART"), Fold("ID_Art"));
    EXPECT_EQ(Fold("Häufigkeit"), Fold("HÄUFIGKEIT"));
    EXPECT_EQ(Fold("Großgruppe"), Fold("GROSSGRUPPE"));
    EXPECT_NE(Fold("Häufigkeit"), Fold("Haufigkeit"));
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
