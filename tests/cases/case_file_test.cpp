// What a case file may hold, and that whatever is not understood is refused with file and line.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "cases/CaseFile.h"

namespace FX_Algen::cases {
namespace {

constexpr std::string_view Good = R"(# A comment.
Case: Kieselalgen unter der Brücke

[reasoning]
Only diatoms were found, 200 of 210 valves (95.2381 percent) certain.
Their index is 2.1, class 5.

[site]
station | Gewässer   | BioregionID | Hoehenstufe | RefBioregion
Brücke  | Große Mühl | 5           | 2           | awaRefArt_TypB.ID_AL_Bioregion=5

[covers]
DG_Gesamt_WRRL | DG_MA_WRRL | DG_Gesamt | DG_MA
12.5           | 0          | Null      | -

[taxa]
taxon              | group          | Algenart  | species level | Lebensform | SI  | Sap_GBer | Trophiewert | Trophiegewicht | reference species
Diatoma vulgaris   | diatom         | -         | yes           | 1          | 2.1 | 3        | 2.4         | 2              | A, B 5/2
Oedogonium sp.     | green alga     | Makroalge | no            | 1          | 0   | 0        | 0           | 0              | no
Lyngbya martensiana| blue-green alga| -         | yes           | -          | -   | -        | -           | -              | B 6/1

[findings]
sampling site | taxon            | cf. | DG_MA | Schalen_KA
Ufer          | -                | -   | -     | -
Strömung      | Diatoma vulgaris | -   | -     | 200
Strömung      | Diatoma vulgaris | cf. | -     | 10
Strömung      | Oedogonium sp.   | -   | 2.5   | -

[mixed stands]
stand  | DG_MI_WRRL | DG_MI
Krusten | 10        | 5

[shares of the mixed stands]
stand  | taxon               | cf. | DG_MI
Krusten | Lyngbya martensiana | -   | 100

[reference tables]
Beispiel

[awaWRRL_Klasse]
Klassenzahl | Bezeichnung
5           | d'accord

[expected: frequency list]
taxon            | cf. | percent
Diatoma vulgaris | -   | 95.2381

[expected: first run]
OEZK | OEZK_Klasse
5    | schlecht
SI   | BedingtBewertbar
2.1  | no

[expected: second run]
failure 94
no row
)";

constexpr std::string_view SharedSet = R"(Reference: Beispieltabellen
[awaWRRL_Klasse]
Klassenzahl | Bezeichnung
1           | sehr gut

[awaWRRL_ETI]
Taxagruppe | TGZK | ErwarteterWert
KA         | mt   | 1.5
)";

std::optional<std::string> Shared(const std::string& name) {
    if (name == "Beispiel") return std::string(SharedSet);
    if (name == "Wrong") return "Reference: wrong\n[awaWRRL_Class]\nOEZK\n1\n";
    return std::nullopt;
}

/// The good case with `before`, which must stand in it once, replaced by `after`.
std::string Changed(std::string_view before, std::string_view after) {
    std::string text(Good);
    const auto place = text.find(before);
    EXPECT_NE(place, std::string::npos) << before;
    text.replace(place, before.size(), after);
    EXPECT_EQ(text.find(before, place + after.size()), std::string::npos) << before << " stands twice";
    return text;
}

/// What `ReadCase` says of a text; empty where it takes it.
std::string Refusal(const std::string& text) {
    try {
        ReadCase("Fall.txt", text, Shared);
    } catch (const CaseError& error) {
        return error.what();
    }
    return {};
}

TEST(CaseFile, HandsOverEverySection) {
    const auto sample = ReadCase("Fall.txt", Good, Shared);
    EXPECT_EQ(sample.Title, "Kieselalgen unter der Brücke");
    EXPECT_EQ(sample.Reasoning,
              "Only diatoms were found, 200 of 210 valves (95.2381 percent) certain.\nTheir index is 2.1, "
              "class 5.\n");
    EXPECT_EQ(sample.Site.Station, "Brücke");
    EXPECT_EQ(sample.Site.Gewaesser, "Große Mühl");
    EXPECT_EQ(sample.Site.BioregionID, 5);
    EXPECT_EQ(sample.Site.Hoehenstufe, 2);
    EXPECT_EQ(sample.Site.RefBioregion, "awaRefArt_TypB.ID_AL_Bioregion=5");
    ASSERT_TRUE(sample.Covers.has_value());
    EXPECT_EQ(sample.Covers->DG_Gesamt_WRRL, "12.5");
    EXPECT_EQ(sample.Covers->DG_MA_WRRL, "0");
    EXPECT_EQ(sample.Covers->DG_Gesamt, "Null");
    EXPECT_EQ(sample.Covers->DG_MA, "0");
}

TEST(CaseFile, HandsOverTaxaAndFindings) {
    const auto sample = ReadCase("Fall.txt", Good, Shared);
    ASSERT_EQ(sample.Taxa.size(), 3U);
    const auto& diatom = sample.Taxa[0];
    EXPECT_EQ(diatom.Name, "Diatoma vulgaris");
    EXPECT_EQ(diatom.ID_GRGR, 128);
    EXPECT_TRUE(diatom.IstArtniveau);
    EXPECT_TRUE(diatom.TypA);
    ASSERT_EQ(diatom.TypB.size(), 1U);
    EXPECT_EQ(diatom.TypB[0].Bioregion, 5);
    EXPECT_EQ(diatom.TypB[0].Hoehenstufe, 2);
    ASSERT_TRUE(diatom.Values.has_value());
    EXPECT_EQ(diatom.Values->SI, "2.1");
    EXPECT_EQ(diatom.Values->Sap_GBer, "3");
    EXPECT_EQ(diatom.Values->Trophiewert, "2.4");
    EXPECT_EQ(diatom.Values->Trophiegewicht, "2");
    EXPECT_FALSE(diatom.Values->Algenart.has_value());
    EXPECT_EQ(sample.Taxa[1].ID_GRGR, 129);
    EXPECT_EQ(sample.Taxa[1].Values->Algenart, "Makroalge");
    EXPECT_FALSE(sample.Taxa[1].IstArtniveau);
    EXPECT_FALSE(sample.Taxa[2].Values.has_value());
    EXPECT_FALSE(sample.Taxa[2].TypA);

    EXPECT_EQ(sample.Sites, (std::vector<std::string>{"Ufer", "Strömung"}));
    ASSERT_EQ(sample.Findings.size(), 3U);
    EXPECT_EQ(sample.Findings[1].Site, 1U);
    EXPECT_EQ(sample.Findings[1].Taxon, 0U);
    EXPECT_TRUE(sample.Findings[1].CF);
    EXPECT_EQ(sample.Findings[1].Schalen_KA, "10");
    EXPECT_EQ(sample.Findings[1].DG_MA, "0");
    ASSERT_EQ(sample.Stands.size(), 1U);
    EXPECT_EQ(sample.Stands[0].DG_MI_WRRL, "10");
    EXPECT_EQ(sample.Stands[0].DG_MI, "5");
    ASSERT_EQ(sample.Stands[0].Shares.size(), 1U);
    EXPECT_EQ(sample.Stands[0].Shares[0].DG_MI, "100");
}

TEST(CaseFile, TablesOfTheCaseTakeThePlaceOfSharedOnes) {
    const auto sample = ReadCase("Fall.txt", Good, Shared);
    ASSERT_EQ(sample.Reference.size(), 2U);
    const auto& names = sample.Reference.at("awaWRRL_Klasse");
    ASSERT_EQ(names.Rows.size(), 1U);
    EXPECT_EQ(names.Rows[0], (std::vector<std::string>{"5", "'d''accord'"}));
    const auto& values = sample.Reference.at("awaWRRL_ETI");
    EXPECT_EQ(values.Columns, (std::vector<std::string>{"Taxagruppe", "TGZK", "ErwarteterWert"}));
    ASSERT_EQ(values.Rows.size(), 1U);
    EXPECT_EQ(values.Rows[0], (std::vector<std::string>{"'KA'", "'mt'", "1.5"}));
}

TEST(CaseFile, HandsOverWhatIsExpected) {
    const auto sample = ReadCase("Fall.txt", Good, Shared);
    ASSERT_EQ(sample.FirstRun.Values.size(), 4U);
    EXPECT_EQ(sample.FirstRun.Values[1].Column, "OEZK_Klasse");
    EXPECT_EQ(sample.FirstRun.Values[1].Text, "schlecht");
    EXPECT_EQ(sample.FirstRun.Values[2].Text, "2.1");
    EXPECT_FALSE(sample.FirstRun.NoRow);
    EXPECT_FALSE(sample.FirstRun.Failure.has_value());
    EXPECT_TRUE(sample.SecondRun.NoRow);
    EXPECT_EQ(sample.SecondRun.Failure, 94);
    ASSERT_TRUE(sample.List.has_value());
    EXPECT_EQ(sample.List->at(0).Percent, "95.2381");
}

TEST(CaseFile, TakesASubhabitatWithoutCovers) {
    const auto text = Changed(
        "DG_Gesamt_WRRL | DG_MA_WRRL | DG_Gesamt | DG_MA\n12.5           | 0          | Null      | -",
        "no row");
    EXPECT_FALSE(ReadCase("Fall.txt", text, Shared).Covers.has_value());
}

TEST(CaseFile, TakesLinesThatEndAsOnWindows) {
    std::string text;
    for (const char c : Good) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
    EXPECT_EQ(Refusal(text), "");
}

struct Slip {
    std::string_view Name;
    std::string_view Before;
    std::string_view After;
    std::string_view Refusal;
};

class SlipInACaseFile : public testing::TestWithParam<Slip> {};

TEST_P(SlipInACaseFile, IsRefusedWithFileAndLine) {
    EXPECT_EQ(Refusal(Changed(GetParam().Before, GetParam().After)), GetParam().Refusal);
}

// The lines are those of the good case: [reasoning] is line 4, [site] 8, [covers] 12, [taxa] 16, [findings]
// 22, [mixed stands] 29, the shares 33, the reference tables 37, [awaWRRL_Klasse] 40, the list 44, the first
// run 48, the second 54.
INSTANTIATE_TEST_SUITE_P(
    Slips, SlipInACaseFile,
    testing::Values(
        Slip{"NoTitle", "Case: Kieselalgen unter der Brücke", "",
             "Fall.txt:4: the first line is no title (\"Case: ...\")"},
        Slip{"EmptyTitle", "Case: Kieselalgen unter der Brücke", "Case:", "Fall.txt:2: the title is empty"},
        Slip{"LineOutsideSections", "[reasoning]", "Gründe", "Fall.txt:4: this line stands in no section"},
        Slip{"NoReasons",
             "Only diatoms were found, 200 of 210 valves (95.2381 percent) certain.\nTheir index is 2.1, "
             "class 5.\n",
             "# none\n", "Fall.txt:4: the case gives no reasons"},
        Slip{"UnknownSection", "[mixed stands]", "[stands]", "Fall.txt:33: there are no mixed stands"},
        Slip{"UnknownWord", "[expected: first run]", "[weather]\nmild\n[expected: first run]",
             "Fall.txt:48: unknown section [weather]"},
        Slip{"SectionTwice", "[covers]", "[site]", "Fall.txt:12: section [site] stands twice"},
        Slip{"SectionNotClosed", "[covers]", "[covers",
             "Fall.txt:12: a section's name is not closed or empty"},
        Slip{"SectionMissing",
             "[covers]\nDG_Gesamt_WRRL | DG_MA_WRRL | DG_Gesamt | DG_MA\n12.5           | 0      "
             "    | Null      | -\n",
             "", "Fall.txt:1: section [covers] is missing"},
        Slip{"EmptySection",
             "DG_Gesamt_WRRL | DG_MA_WRRL | DG_Gesamt | DG_MA\n12.5           | 0          | Null      | -\n",
             "", "Fall.txt:12: the section has no line of headings"},
        Slip{"UnknownColumn", "DG_Gesamt_WRRL |", "DG_Gesammt_WRRL |",
             "Fall.txt:13: unknown column \"DG_Gesammt_WRRL\""},
        Slip{"ColumnTwice", "DG_MA_WRRL |", "DG_Gesamt_WRRL |",
             "Fall.txt:13: column \"DG_Gesamt_WRRL\" stands twice"},
        Slip{"ColumnMissing", "| DG_Gesamt | DG_MA\n12.5           | 0          | Null      | -\n",
             "| DG_Gesamt\n12.5 | 0 | 0\n", "Fall.txt:13: column \"DG_MA\" is missing"},
        Slip{"CellMissing", "Null      | -\n", "Null\n", "Fall.txt:14: 3 cells below 4 headings"},
        Slip{"NoNumber", "12.5 ", "12,5 ", "Fall.txt:14: \"12,5\" under \"DG_Gesamt_WRRL\" is no number"},
        Slip{"EmptyNumber", "12.5 ", "     ", "Fall.txt:14: \"\" under \"DG_Gesamt_WRRL\" is no number"},
        Slip{"TwoRowsOfCovers", "12.5           | 0          | Null      | -\n", "12.5|0|0|0\n12|0|0|0\n",
             "Fall.txt:12: the section needs one line of values"},
        Slip{"UnknownGroup", "| diatom         |", "| Kieselalge |",
             "Fall.txt:18: unknown group \"Kieselalge\""},
        Slip{"UnknownAlgenart", "| Makroalge |", "| Mikroalgen |",
             "Fall.txt:19: \"Mikroalgen\" is no Algenart"},
        Slip{"NeitherYesNorNo", "| Makroalge | no ", "| Makroalge | nein ",
             "Fall.txt:19: \"nein\" under \"species level\" is neither yes nor no"},
        Slip{"RatingsInPart", "| Makroalge | no            | 1          | 0 ",
             "| Makroalge | no            | 1          | - ",
             "Fall.txt:19: a taxon has all ratings or none: \"-\" under \"SI\""},
        Slip{"UnknownReferenceType", "A, B 5/2", "C",
             "Fall.txt:18: \"C\" is neither no, A nor B <bioregion>/<altitude step>"},
        Slip{"RegionWithoutStep", "A, B 5/2", "A, B 5/", "Fall.txt:18: \"\" is no whole number"},
        Slip{"GenusAlone", "Lyngbya martensiana|", "Lyngbya|",
             "Fall.txt:20: a taxon needs genus and species"},
        Slip{"TaxonTwice", "Oedogonium sp.     |", "Diatoma vulgaris   |",
             "Fall.txt:19: taxon \"Diatoma vulgaris\" stands twice"},
        Slip{"UnknownTaxon", "| Oedogonium sp.   |", "| Oedogonium spec. |",
             "Fall.txt:27: taxon \"Oedogonium spec.\" does not stand among the taxa"},
        Slip{"UnusedTaxon", "Strömung      | Oedogonium sp.   | -   | 2.5   | -\n", "",
             "Fall.txt:16: \"Oedogonium sp.\" is neither found nor in a mixed stand"},
        Slip{"WrongCf", "| cf. | -     | 10", "| ?   | -     | 10",
             "Fall.txt:26: \"?\" under \"cf.\" is neither cf. nor -"},
        Slip{"FindingTwice", "| cf. | -     | 10", "| -   | -     | 10",
             "Fall.txt:26: this finding stands twice"},
        Slip{"UnknownStand", "Krusten | Lyngbya", "Polster | Lyngbya",
             "Fall.txt:35: no mixed stand \"Polster\""},
        Slip{"UnknownSharedSet", "\nBeispiel\n", "\nÖsterreich\n",
             "Fall.txt:38: no shared set \"Österreich\""},
        Slip{"UnknownTableInSharedSet", "\nBeispiel\n", "\nWrong\n",
             "reference/Wrong.txt:2: unknown section [awaWRRL_Class]"},
        Slip{"NoNumberInReferenceTable", "5           | d'accord", "V           | d'accord",
             "Fall.txt:42: \"V\" under \"Klassenzahl\" is no number"},
        Slip{"PercentMissing", "| -   | 95.2381", "| -   |", "Fall.txt:46: nothing stands under \"percent\""},
        Slip{"NothingExpected", "OEZK | OEZK_Klasse\n5    | schlecht\nSI   | BedingtBewertbar\n2.1  | no\n",
             "", "Fall.txt:48: nothing is expected of the run"},
        Slip{"HeadingsWithoutValues", "2.1  | no\n", "", "Fall.txt:51: headings without values below"},
        Slip{"ValueMissing", "2.1  | no\n", "2.1\n", "Fall.txt:52: 1 values below 2 headings"},
        Slip{"EmptyValue", "2.1  | no\n", "2.1  |\n",
             "Fall.txt:52: no value is expected of \"BedingtBewertbar\""},
        Slip{"NumberWithoutReason", "2.1  | no\n", "2.11 | no\n",
             "Fall.txt:52: the reasoning does not come to 2.11, which is expected"},
        Slip{"PercentWithoutReason", "| -   | 95.2381", "| -   | 95.238",
             "Fall.txt:46: the reasoning does not come to 95.238, which is expected"},
        Slip{"ExpectedTwice", "SI   | BedingtBewertbar", "SI   | OEZK", "Fall.txt:51: \"OEZK\" stands twice"},
        Slip{"FailureWithoutNumber", "failure 94", "failure Null",
             "Fall.txt:55: \"Null\" is no number of a failure"},
        Slip{"ValuesWithoutRow", "no row\n", "no row\nOEZK\n1\n",
             "Fall.txt:57: values are expected where no row is"},
        Slip{"FailureAlone", "no row\n", "", "Fall.txt:54: nothing is expected of the run"}),
    [](const auto& slip) { return std::string(slip.param.Name); });

TEST(CaseFile, RefusesAnEmptyFile) { EXPECT_EQ(Refusal(""), "Fall.txt:1: the file says nothing"); }

TEST(CaseFile, RefusesASampleOfWhichOneRunExpectsNothing) {
    std::string text(Good);
    text.erase(text.find("[expected: second run]"));
    EXPECT_EQ(Refusal(text), "Fall.txt:1: section [expected: second run] is missing");
}

}  // namespace
}  // namespace FX_Algen::cases
