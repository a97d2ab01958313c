#include "store/Strings.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "store/resources/Resources.h"

namespace FX_Algen {
namespace {

constexpr int FirstEnglish = 20000;
constexpr int Shift = 10000;
const std::set<int> WithoutEnglish{12013, 12191, 14065};

/// Offsets of texts that the module adds to the table; no group of the table stands there.
bool IsOwn(int offset) { return (offset >= 5000 && offset <= 5999) || (offset >= 9200 && offset <= 9999); }

/// Offsets of the groups of the table.
bool IsInGroup(int offset) {
    struct Group {
        int from, to;
    };
    for (const auto g : {Group{1000, 1000},
                         {1100, 1899},
                         {2000, 2399},
                         {3000, 3499},
                         {4000, 4399},
                         {6000, 6000},
                         {7100, 7399},
                         {8000, 8699},
                         {9100, 9199}})
        if (offset >= g.from && offset <= g.to) return true;
    return false;
}

std::int32_t NumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(StringTable, EveryGermanTextHasAnEnglishOneButThree) {
    std::set<int> missing;
    for (const auto& [number, text] : store::Strings().Texts())
        if (number < FirstEnglish && !store::Strings().Find(number + Shift)) missing.insert(number);
    EXPECT_EQ(missing, WithoutEnglish);
}

TEST(StringTable, EveryEnglishTextHasAGermanOne) {
    for (const auto& [number, text] : store::Strings().Texts()) {
        if (number < FirstEnglish) continue;
        EXPECT_TRUE(store::Strings().Find(number - Shift)) << number << " " << text;
    }
}

TEST(StringTable, NumbersStandInTheirGroups) {
    for (const auto& [number, text] : store::Strings().Texts()) {
        const int offset = number % Shift;
        EXPECT_TRUE(IsInGroup(offset) || IsOwn(offset)) << number << " " << text;
        EXPECT_TRUE(number / Shift == 1 || number / Shift == 2) << number << " " << text;
    }
}

TEST(StringTable, EachFileHoldsOneLanguage) {
    for (const auto& file : resources::strings()) {
        store::StringTable table;
        table.Read(file.name, file.text);
        ASSERT_FALSE(table.Texts().empty()) << file.name;
        const int language = file.name == "de.tsv" ? 1 : 2;
        for (const auto& [number, text] : table.Texts())
            EXPECT_EQ(number / Shift, language) << file.name << " " << number;
    }
}

TEST(StringTable, TextsThatAreOnlyNamesOrLabelsStayTheSame) {
    for (const std::int16_t offset : {4028, 4029, 4036, 4038, 4041, 4059, 4062, 7311, 7317, 4140, 2044})
        EXPECT_EQ(store::Text(offset, Language::German), store::Text(offset, Language::English)) << offset;
}

TEST(StringTable, PlaceHoldersAreTheSameInBothLanguages) {
    for (const auto& [number, text] : store::Strings().Texts()) {
        const auto english = store::Strings().Find(number + Shift);
        if (number >= FirstEnglish || !english) continue;
        for (const char holder : {'|', '~'})
            EXPECT_EQ(text.find(holder) == std::string::npos, english->find(holder) == std::string_view::npos)
                << number << ": " << text << " / " << *english;
    }
}

struct Lookup {
    std::int16_t offset;
    std::int16_t base;
    std::string text;
};

class KnownTexts : public testing::TestWithParam<Lookup> {};

TEST_P(KnownTexts, AreFoundByOffsetAndBase) {
    EXPECT_EQ(store::Text(GetParam().offset, GetParam().base), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, KnownTexts,
    testing::Values(Lookup{1000, 10000, "Algen"}, Lookup{1000, 20000, "Algae"},
                    Lookup{3100, 10000, "Algen-Berechnung der Indizes"},
                    Lookup{3200, 10000, "Seston-Berechnung der Indizes und Verteilungen"},
                    Lookup{2006, 10000, "Ändern"}, Lookup{4026, 10000, "Saprobität"},
                    Lookup{2013, 10000, "Excel-Import"}, Lookup{4051, 10000, "Bilddatei|"},
                    // Blanks at the ends belong to the text.
                    Lookup{4202, 10000, " Taxa in "}, Lookup{8423, 10000, " "}, Lookup{8423, 20000, " "},
                    Lookup{8201, 10000, "Relative Häufigkeiten Kieselalgen (%) "},
                    Lookup{7119, 10000, "Algen - Artenliste wird erstellt: "},
                    // "\n" of the file is a line break.
                    Lookup{2039, 10000,
                           "Algen-Probenstelle ist noch nicht vorhanden. \nWollen Sie jetzt die Probenstelle "
                           "anlegen?"}));

TEST(TextLookup, FailsWith326AndTheNumberInAGap) {
    try {
        store::Text(2013, Language::English);
        FAIL() << "22013 has no text";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::StringNotFound);
        EXPECT_THAT(error.Description(), testing::HasSubstr("22013"));
    }
}

TEST(TextLookup, DoesNotFillAGapFromTheOtherLanguage) {
    for (const std::int16_t offset : {2013, 2191, 4065}) {
        EXPECT_NE(store::Text(offset, Language::German), "");
        EXPECT_EQ(NumberOf([&] { store::Text(offset, Language::English); }), ErrorNumber::StringNotFound)
            << offset;
    }
}

TEST(TextLookup, FailsWith326ForTheBaseItself) {
    EXPECT_EQ(NumberOf([] { store::Text(0, Language::German); }), ErrorNumber::StringNotFound);
}

TEST(TextLookup, OverflowsWhereTheSumExceeds16Bits) {
    // 12767 + 20000 = 32767 still fits and is a gap; one more does not fit.
    EXPECT_EQ(NumberOf([] { store::Text(12767, Language::English); }), ErrorNumber::StringNotFound);
    EXPECT_EQ(NumberOf([] { store::Text(12768, Language::English); }), ErrorNumber::Overflow);
    EXPECT_EQ(NumberOf([] { store::Text(-32768, -1); }), ErrorNumber::Overflow);
}

TEST(TextLookup, UsesTheBaseAsItStands) {
    EXPECT_EQ(store::Text(11000, 0), "Algen");
    EXPECT_EQ(NumberOf([] { store::Text(1000, 0); }), ErrorNumber::StringNotFound);
}

TEST(PublicText, RaisesABaseBelow10000ToGerman) {
    for (const std::int16_t base : {0, -5, 9999, 10000}) EXPECT_EQ(Text(1000, base), "Algen") << base;
    EXPECT_EQ(Text(1000, Language::English), "Algae");
}

struct BadLine {
    std::string lines;
    std::string words;
};

class BadTables : public testing::TestWithParam<BadLine> {};

TEST_P(BadTables, AreRefusedWithFileAndLine) {
    store::StringTable table;
    try {
        table.Read("xx.tsv", GetParam().lines);
        FAIL() << GetParam().lines;
    } catch (const Error& error) {
        EXPECT_THAT(error.Description(),
                    testing::AllOf(testing::HasSubstr("xx.tsv"), testing::HasSubstr(GetParam().words)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadTables,
    testing::Values(BadLine{"11000\tAlgen\n11001 ohne\n", "line 2: no tab"},
                    BadLine{"abc\tAlgen\n", "line 1: 'abc' is not a string number"},
                    BadLine{"40000\tzu groß\n", "line 1: '40000' is not"},
                    BadLine{"-1\tx\n", "line 1: '-1' is not"}, BadLine{"\tx\n", "line 1: '' is not"},
                    BadLine{"11000\ta\n\n11000\tb\n", "line 3: number 11000 stands twice"}));

TEST(StringTable, ReadsLinesWithAndWithoutAnEnd) {
    store::StringTable table;
    table.Read("xx.tsv", "1\teins\r\n\n2\tzwei\\ndrei\n3\t");
    EXPECT_EQ(table.Find(1), "eins");
    EXPECT_EQ(table.Find(2), "zwei\ndrei");
    EXPECT_EQ(table.Find(3), "");
    EXPECT_EQ(table.Find(4), std::nullopt);
    EXPECT_EQ(table.Find(70000), std::nullopt);
}

}  // namespace
}  // namespace FX_Algen
