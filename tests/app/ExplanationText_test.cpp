#include "fxalgen/explain/ExplanationText.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr std::int16_t German = 10000;
constexpr std::int16_t English = 20000;

Teilraum Strom() {
    Teilraum teilraum;
    teilraum.ID_TR = 11;
    teilraum.PRJBez = "Flüsse";
    teilraum.USDatumVon = store::Date{"2026-05-12"};
    teilraum.TRBez = "Strom";
    return teilraum;
}

ExplainedFinding Macroalga() {
    ExplainedFinding finding;
    finding.ID_ART = 1;
    finding.Taxon = "Cladophora glomerata";
    finding.CF = true;
    finding.ID_PS = 4;
    return finding;
}

/// One macroalga, cover 40 of 50 percent: share 80, weight 2, value 2.1: 160 and 336; the index is 2.1.
Explanation OneMacroalga() {
    Explanation explanation;
    explanation.ID_TR = 11;
    explanation.TRBez = "Strom";
    explanation.Sampled = true;
    explanation.DG_Gesamt = 50;
    explanation.DG_Makroalgen = 40;
    explanation.Schalen = 1000;
    explanation.Summe_KA = 1000.0F;
    explanation.Stands.push_back({1, "Belag", 10, 20});
    ExplainedIndex index;
    index.Column = "SapIndex";
    index.Terms.push_back({SampleBlock::Macroalgae, Macroalga(), 40, 80, 2, 2.1, 160, 336, TermRemark::None});
    index.WeightSum = 160;
    index.ValueSum = 336;
    index.Result = 2.1F;
    index.Stored = 2.1F;
    explanation.Indices.push_back(index);
    explanation.State = StoredResult::Current;
    return explanation;
}

std::string Printed(const Explanation& explanation, std::int16_t SprachID = German) {
    std::ostringstream out;
    PrintExplanation(out, explanation, Strom(), SprachID);
    return out.str();
}

TEST(ExplanationText, TellsBasisAndEachFindingOfAnIndex) {
    const std::string text = Printed(OneMacroalga());
    EXPECT_THAT(text, HasSubstr("Teilraum 11: Flüsse / 12.05.2026 / Strom\n"));
    EXPECT_THAT(text, HasSubstr("  Gesamtdeckung ohne Kieselalgen: 50 %\n"));
    EXPECT_THAT(text, HasSubstr("  Deckung der Makroalgen: 40 %\n"));
    EXPECT_THAT(text, HasSubstr("  gezählte Schalen: 1000\n"));
    EXPECT_THAT(text, Not(HasSubstr("davon in der Bewertung")));
    EXPECT_THAT(text, HasSubstr("  Mischbestand  Deckung [%]  Anteil [%]\n"));
    EXPECT_THAT(text, HasSubstr("  Belag             10,0000     20,0000\n"));
    EXPECT_THAT(text, HasSubstr("Saprobienindex (SapIndex)\n"));
    EXPECT_THAT(text,
                HasSubstr("    Cladophora glomerata cf.  ID_PS 4           40     80,0000        2   2,1  "
                          "160,0000  336,0000\n"));
    EXPECT_THAT(text, HasSubstr("  SapIndex = 336,0000 / 160,0000 = 2,1; gespeichert: 2,1\n"));
    EXPECT_THAT(text, HasSubstr("Gespeichertes Ergebnis: aktuell\n"));
}

TEST(ExplanationText, SpeaksEnglishWithDecimalPoints) {
    const std::string text = Printed(OneMacroalga(), English);
    EXPECT_THAT(text, HasSubstr("Sub-habitat 11: Flüsse / 2026-05-12 / Strom\n"));
    EXPECT_THAT(text, HasSubstr("  SapIndex = 336.0000 / 160.0000 = 2.1; stored: 2.1\n"));
}

TEST(ExplanationText, SaysWhyAFindingDidNotCount) {
    struct Case {
        LeftOutRule Rule;
        std::string Reason;
    };
    const Case cases[] = {
        {LeftOutRule::NoAbundance, "keine Menge, oder 0"},
        {LeftOutRule::NoRatings, "Taxon ohne Einstufung"},
        {LeftOutRule::NoAlgenart, "Taxon ohne Algenart"},
        {LeftOutRule::NoTotalCover, "Gesamtdeckung nicht über 0"},
        {LeftOutRule::NoLayer, "keine Schichtdicke"},
        {LeftOutRule::OtherLebensform, "Lebensform zählt nach WRRL nicht"},
        {LeftOutRule::OtherMajorGroup, "Großgruppe zählt nach WRRL nicht"},
        {LeftOutRule::NoTaxonomy, "Systematik führt zu keiner Familie"},
        {LeftOutRule::DiatomsOnly, "der Lauf zählt die Kieselalgen allein"},
        {LeftOutRule::FailedHere, "hier abgebrochen: ein Wert fehlt (Null)"},
        {LeftOutRule::NotCalculated, "Berechnung vorher abgebrochen"},
    };
    for (const Case& c : cases) {
        Explanation explanation = OneMacroalga();
        explanation.Indices[0].LeftOut.push_back({SampleBlock::Valves, Macroalga(), 3.0, c.Rule});
        const std::string text = Printed(explanation);
        EXPECT_THAT(text, HasSubstr("  Nicht gezählt\n"));
        EXPECT_THAT(text, HasSubstr("Kieselalgen (Schalen)  " + c.Reason + "\n"));
    }
}

TEST(ExplanationText, RemarksOnFindingsThatMoveNothing) {
    struct Case {
        TermRemark Remark;
        std::string Text;
    };
    const Case cases[] = {
        {TermRemark::WeightZero, "  Gewicht 0: trägt nichts bei\n"},
        {TermRemark::ValueZero, "  Wert 0 mit Gewicht: zieht den Index gegen 0\n"},
        {TermRemark::StandWithoutCover, "  Bestand ohne Deckung: trägt nichts bei\n"},
    };
    for (const Case& c : cases) {
        Explanation explanation = OneMacroalga();
        explanation.Indices[0].Terms[0].Remark = c.Remark;
        EXPECT_THAT(Printed(explanation), HasSubstr(c.Text));
    }
}

TEST(ExplanationText, SaysThatThereIsNoIndexWithoutWeight) {
    Explanation explanation = OneMacroalga();
    explanation.Indices[0].WeightSum = 0;
    explanation.Indices[0].ValueSum = 0;
    explanation.Indices[0].Result = 0.0F;
    explanation.Indices[0].Stored = store::Value();
    EXPECT_THAT(Printed(explanation),
                HasSubstr("SapIndex = 0 (kein Gewicht: kein Index); nicht gespeichert\n"));
}

TEST(ExplanationText, ShowsTheQuantityIndexWithItsLayers) {
    Explanation explanation = OneMacroalga();
    ExplainedIndex quantity;
    quantity.Column = "AMI";
    // Layer 3 mm on 40 percent: 1.2 mm; a whole stand, 1 mm on 10 percent: 0.1 mm.
    quantity.Terms.push_back({SampleBlock::Macroalgae, Macroalga(), 40, 0, 3, 0, 0, 1.2, TermRemark::None});
    ExplainedFinding stand;
    stand.ID_TR_MI = 1;
    stand.MI_Bez = "Belag";
    quantity.Terms.push_back({SampleBlock::MixedStands, stand, 10, 0, 1, 0, 0, 0.1, TermRemark::None});
    quantity.ValueSum = 1.3;
    quantity.Result = 1.3;
    explanation.Indices = {quantity};
    const std::string text = Printed(explanation);
    EXPECT_THAT(text, HasSubstr("Algenmengenindex [mm] (AMI)\n"));
    EXPECT_THAT(
        text,
        HasSubstr("    Cladophora glomerata cf.  ID_PS 4           40                  3        1,2000\n"));
    EXPECT_THAT(text, HasSubstr("    Mischbestand  Belag             10                  1        0,1000\n"));
    EXPECT_THAT(text, HasSubstr("  AMI = 1,3; nicht gespeichert\n"));
}

TEST(ExplanationText, ShowsClassesAndCountsWithTheirTaxa) {
    Explanation explanation = OneMacroalga();
    explanation.Classes = {{"ANZ_Gueteklasse_I", "I", std::int16_t{0}, std::int16_t{0}},
                           {"ANZ_Gueteklasse_I_II", "I-II", std::int16_t{1}, store::Value()}};
    explanation.ClassRows = {
        {SampleBlock::Macroalgae, 1, "Cladophora glomerata", 1.5, 1, ClassRule::Counted},
        {SampleBlock::Macroalgae, 1, "Cladophora glomerata", 1.5, std::nullopt, ClassRule::SameTaxon},
        {SampleBlock::Valves, 9, "", 0, std::nullopt, ClassRule::NoClass}};
    explanation.Counts = {{"Taxa", {{1, "Cladophora glomerata"}, {9, ""}}, 2.0, 2.0}};
    const std::string text = Printed(explanation);
    EXPECT_THAT(text, HasSubstr("Cladophora glomerata  Makroalgen             1,5  I-II\n"));
    EXPECT_THAT(text, HasSubstr("dasselbe Taxon wie davor: nicht noch einmal gezählt\n"));
    EXPECT_THAT(text, HasSubstr("ID_ART 9"));
    EXPECT_THAT(text, HasSubstr("SI in keiner Gütestufe\n"));
    EXPECT_THAT(text, HasSubstr("  Taxa = 2; gespeichert: 2\n      Cladophora glomerata, ID_ART 9\n"));
}

TEST(ExplanationText, FoldsLongListsOfTaxa) {
    Explanation explanation = OneMacroalga();
    ExplainedCount count{"Taxa", {}, 30.0, 30.0};
    for (std::int32_t id = 1; id <= 30; ++id) count.Taxa.push_back({id, "Größere Beispielalge"});
    explanation.Counts = {count};
    std::istringstream lines(Printed(explanation));
    std::size_t found = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("Größere") == std::string::npos) continue;
        ++found;
        // 4 names of 20 columns, commas and blanks make 5 + 4 * 22 - 1 = 93 bytes and more for umlauts.
        EXPECT_LE(line.size(), 110u);
    }
    EXPECT_GE(found, 7u);
}

TEST(ExplanationText, TellsWhichStoredFieldsDiffer) {
    Explanation explanation = OneMacroalga();
    explanation.State = StoredResult::OutOfDate;
    explanation.Columns = {{"SapIndex", 2.1F, 1.9F, true}, {"TI", 1.0F, 1.0F, false}};
    const std::string text = Printed(explanation);
    EXPECT_THAT(text, HasSubstr("Gespeichertes Ergebnis: veraltet\n"));
    EXPECT_THAT(text, HasSubstr("  SapIndex    2,1          1,9\n"));
    EXPECT_THAT(text, Not(HasSubstr("  TI ")));
}

TEST(ExplanationText, TellsAFailureAndAMissingSample) {
    Explanation failed = OneMacroalga();
    failed.State = StoredResult::Missing;
    failed.Failed = Explanation::Failure{94, "awaModulStandard.SI is Null"};
    failed.Indices[0].Result = store::Value();
    const std::string text = Printed(failed);
    EXPECT_THAT(text, HasSubstr("Die Berechnung schlägt fehl: awaModulStandard.SI is Null (94)\n"));
    EXPECT_THAT(text, HasSubstr("SapIndex: nicht berechnet"));
    EXPECT_THAT(text, HasSubstr("Gespeichertes Ergebnis: keines\n"));

    // The row of the failed calculation is there, but it is not to be called current.
    failed.State = StoredResult::Current;
    EXPECT_THAT(Printed(failed), HasSubstr("Gespeichertes Ergebnis: unvollständig\n"));
    EXPECT_THAT(Printed(failed), Not(HasSubstr("aktuell")));
    EXPECT_THAT(Printed(failed, English), HasSubstr("Stored result: incomplete\n"));

    Explanation empty = OneMacroalga();
    empty.Sampled = false;
    EXPECT_THAT(Printed(empty), HasSubstr("Keine Algenaufnahme: der Teilraum wird nicht berechnet.\n"));
    EXPECT_THAT(Printed(empty), Not(HasSubstr("SapIndex")));
}

TEST(ExplanationText, TellsACoverThatWasNotEnteredFrom0) {
    Explanation explanation = OneMacroalga();
    EXPECT_THAT(Printed(explanation), HasSubstr("Gesamtdeckung ohne Kieselalgen: 50 %\n"));
    explanation.DG_Gesamt = 0;
    explanation.DG_Makroalgen = std::nullopt;
    EXPECT_THAT(Printed(explanation), HasSubstr("Gesamtdeckung ohne Kieselalgen: 0 %\n"));
    EXPECT_THAT(Printed(explanation), HasSubstr("Deckung der Makroalgen: nicht eingetragen\n"));
    EXPECT_THAT(Printed(explanation, English), HasSubstr("Cover of the macroalgae: not entered\n"));
    EXPECT_EQ(ExplanationAsJson(explanation)["DG_Gesamt"], 0.0);
    EXPECT_TRUE(ExplanationAsJson(explanation)["DG_Makroalgen"].is_null());
}

TEST(ExplanationText, SaysNullAndNotCalculatedInsteadOfZero) {
    Explanation failed = OneMacroalga();
    failed.IstWRRL = true;
    failed.DG_Gesamt.reset();
    failed.Stands = {{1, "Belag", std::nullopt, std::nullopt}};
    failed.Classes = {{"ANZ_Gueteklasse_I", "I", store::Value(), store::Value()}};
    failed.Counts = {{"Taxa", {}, store::Value(), store::Value()}};
    const std::string text = Printed(failed);
    EXPECT_THAT(text, HasSubstr("  Gesamtdeckung ohne Kieselalgen: nicht eingetragen\n"));
    EXPECT_THAT(text, HasSubstr("  Deckung der Makroalgen: 40 %\n"));
    EXPECT_THAT(text, HasSubstr("  gezählte Schalen: 1000\n"));
    EXPECT_THAT(text, testing::ContainsRegex("  Belag  +nicht eingetragen  nicht berechnet\n"));
    EXPECT_THAT(text, testing::ContainsRegex("  I  +nicht berechnet"));
    EXPECT_THAT(text, HasSubstr("  Taxa: nicht berechnet"));
}

TEST(ExplanationText, OfTheAssessmentTellsAllValvesAndThoseThatCount) {
    Explanation assessed = OneMacroalga();
    assessed.IstWRRL = true;
    assessed.Summe_KA = 10.0F;
    const std::string text = Printed(assessed);
    EXPECT_THAT(text, HasSubstr("  gezählte Schalen: 1000\n  davon in der Bewertung: 10\n"));
    EXPECT_THAT(Printed(assessed, English),
                HasSubstr("  counted valves: 1000\n  of these in the assessment: 10\n"));
}

TEST(ExplanationJson, HoldsNullForWhatWasNotCalculated) {
    Explanation failed = OneMacroalga();
    EXPECT_EQ(ExplanationAsJson(failed)["Schalen"], 1000);
    EXPECT_EQ(ExplanationAsJson(failed)["Summe_KA"], 1000);
    EXPECT_EQ(ExplanationAsJson(failed)["Stands"][0]["SharePercent"], 20);
    failed.DG_Gesamt.reset();
    failed.DG_Makroalgen.reset();
    failed.Stands[0].SharePercent.reset();
    failed.Indices[0].WeightSum.reset();
    failed.Indices[0].ValueSum.reset();
    failed.Indices[0].LeftOut.push_back({SampleBlock::Valves, Macroalga(), 3.0, LeftOutRule::FailedHere});
    const Json json = ExplanationAsJson(failed);
    for (const char* name : {"DG_Gesamt", "DG_Makroalgen"}) EXPECT_TRUE(json[name].is_null()) << name;
    EXPECT_TRUE(json["Stands"][0]["SharePercent"].is_null());
    EXPECT_TRUE(json["Indices"][0]["WeightSum"].is_null());
    EXPECT_TRUE(json["Indices"][0]["ValueSum"].is_null());
    EXPECT_EQ(json["Indices"][0]["LeftOut"][0]["Rule"], "FailedHere");
}

TEST(ExplanationJson, HoldsTheSameStructure) {
    Explanation explanation = OneMacroalga();
    explanation.Indices[0].LeftOut.push_back(
        {SampleBlock::Valves, Macroalga(), std::nullopt, LeftOutRule::NoAbundance});
    explanation.Failed = Explanation::Failure{94, "Größe fehlt"};
    const Json json = ExplanationAsJson(explanation);
    EXPECT_EQ(json["ID_TR"], 11);
    EXPECT_EQ(json["Sampled"], true);
    EXPECT_EQ(json["Stands"][0]["MI_Bez"], "Belag");
    const Json& index = json["Indices"][0];
    EXPECT_EQ(index["Column"], "SapIndex");
    // The 32-bit 2.1 with its own digits, not 2.0999999046325684.
    EXPECT_EQ(index["Result"], 2.1);
    EXPECT_EQ(index["Terms"][0]["Block"], "Macroalgae");
    EXPECT_EQ(index["Terms"][0]["Finding"]["Taxon"], "Cladophora glomerata");
    EXPECT_EQ(index["Terms"][0]["Finding"]["CF"], true);
    EXPECT_TRUE(index["Terms"][0]["Finding"]["ID_TR_MI"].is_null());
    EXPECT_EQ(index["Terms"][0]["ValueTerm"], 336.0);
    EXPECT_EQ(index["LeftOut"][0]["Rule"], "NoAbundance");
    EXPECT_TRUE(index["LeftOut"][0]["Abundance"].is_null());
    EXPECT_EQ(json["State"], "Current");
    EXPECT_EQ(json["Failed"]["Number"], 94);
    EXPECT_TRUE(ExplanationAsJson(OneMacroalga())["Failed"].is_null());
    EXPECT_TRUE(ExplanationAsJson(OneMacroalga())["Counts"].is_array());
}

}  // namespace
