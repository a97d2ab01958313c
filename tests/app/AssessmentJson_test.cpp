#include <gmock/gmock.h>

#include "app/AssessmentSample.h"
#include "fxalgen/explain/AssessmentText.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;

namespace {

TEST(AssessmentJson, HoldsTheTraceWithTheNamesOfItsFields) {
    const Json assessments = AssessmentsAsJson(OneAssessment());
    ASSERT_EQ(assessments.size(), 1u);
    const Json& assessment = assessments[0];
    EXPECT_EQ(assessment["KAOnly"], false);
    EXPECT_EQ(assessment["State"], "Current");
    EXPECT_TRUE(assessment["Failed"].is_null());
    EXPECT_EQ(assessment["Columns"][0]["Column"], "OEZK");
    EXPECT_EQ(assessment["Indices"][0]["ValueSum"], 220);
    const Json& trace = assessment["Trace"];
    EXPECT_TRUE(trace["Skipped"].is_null());
    EXPECT_EQ(trace["ListBuilt"], true);
}

TEST(AssessmentJson, HoldsTheFrequencyListWithNames) {
    const Json column = AssessmentsAsJson(OneAssessment())[0]["Trace"]["Column"];
    EXPECT_EQ(column["ValveSum"], 400);
    EXPECT_EQ(column["ValveSumCarried"], false);
    EXPECT_EQ(column["DG_Gesamt"], 80);
    EXPECT_EQ(column["DG_MA"], 40);
    const Json& finding = column["Findings"][1];
    EXPECT_EQ(finding["ID_PS"], 4);
    EXPECT_EQ(finding["PSBez"], "Brücke");
    EXPECT_EQ(finding["Taxon"], "Cladophora glomerata");
    EXPECT_EQ(finding["CF"], true);
    EXPECT_TRUE(finding["LeftOut"].is_null());
    EXPECT_EQ(finding["Abundance"], 40);
    EXPECT_EQ(finding["Assigned"], 50);
    EXPECT_EQ(finding["Cell"], 60);
    EXPECT_EQ(finding["FromStands"][0]["MI_Bez"], "Belag grün");
    EXPECT_EQ(finding["FromStands"][0]["SharePercent"], 25);
    EXPECT_EQ(finding["FromStands"][0]["TaxonPercent"], 40);
    EXPECT_EQ(finding["FromStands"][0]["Added"], 10);
    EXPECT_EQ(column["Findings"][2]["LeftOut"], "OtherMajorGroup");
    EXPECT_TRUE(column["Findings"][2]["Abundance"].is_null());
}

TEST(AssessmentJson, HoldsTheReferenceSpecies) {
    const Json species = AssessmentsAsJson(OneAssessment())[0]["Trace"]["ReferenceSpecies"];
    EXPECT_EQ(species["Reason"], "AllGroups");
    EXPECT_EQ(species["Taxagruppe"], "Alle");
    EXPECT_EQ(species["BedingtBewertbar"], true);
    EXPECT_EQ(species["RestrictionAbundance"], 160);
    EXPECT_EQ(species["RestrictionBound"], 167);
    EXPECT_EQ(species["Taxa"][0]["TypA"], 1);
    EXPECT_EQ(species["Taxa"][0]["TypB"], 1);
    EXPECT_EQ(species["Taxa"][1]["IsDiatom"], true);
    EXPECT_TRUE(species["Taxa"][2]["ID_GRGR"].is_null());
    EXPECT_EQ(species["Counts"][0]["Column"], "TaxazahlGesamt");
    EXPECT_EQ(species["Counts"][0]["Result"], 8);
    EXPECT_EQ(species["RI_Anzahl"], 0.5);
    EXPECT_EQ(species["Type"]["Result"], "Kalk");
    EXPECT_EQ(species["ExpectedValue"]["Keys"][1]["Value"], "Kalk");
}

TEST(AssessmentJson, HoldsRatioLookupsAndNeighbours) {
    const Json trophic = AssessmentsAsJson(OneAssessment())[0]["Trace"]["Trophic"];
    EXPECT_EQ(trophic["IndexColumn"], "TI");
    EXPECT_EQ(trophic["ReferenceClass"]["Table"], "awaWRRL_TGZK");
    EXPECT_EQ(trophic["ReferenceClass"]["Found"], true);
    const Json& ratio = trophic["Ratio"];
    // The 32-bit 2.2 with its own digits.
    EXPECT_EQ(ratio["Index"], 2.2);
    EXPECT_EQ(ratio["ExpectedValue"], 1.6);
    EXPECT_EQ(ratio["Unrounded"], 0.75);
    EXPECT_EQ(ratio["EQR"], 0.75);
    EXPECT_EQ(ratio["Class"]["OEZK"], 2);
    EXPECT_EQ(ratio["Class"]["Hit"]["EQRMin"], 0.6);
    EXPECT_TRUE(ratio["Class"]["AlsoFitting"].is_array());
    EXPECT_EQ(ratio["Raised"]["EQR"], 0.78);
    EXPECT_EQ(ratio["AllBounds"].size(), 3u);
    EXPECT_EQ(ratio["NextBetter"]["OEZK"], 1);
    EXPECT_EQ(ratio["NextBetter"]["Bound"], 0.8);
    EXPECT_EQ(ratio["NextBetter"]["Distance"], 0.05);
    EXPECT_EQ(ratio["NextWorse"]["OEZK"], 3);
    const Json saprobic = AssessmentsAsJson(OneAssessment())[0]["Trace"]["Saprobic"]["Ratio"];
    EXPECT_EQ(saprobic["BeforeCap"], 1.11);
    EXPECT_TRUE(saprobic["Raised"]["Hit"].is_null());
    EXPECT_TRUE(saprobic["NextBetter"].is_null());
}

TEST(AssessmentJson, HoldsTheOverallClass) {
    const Json overall = AssessmentsAsJson(OneAssessment())[0]["Trace"]["Overall"];
    EXPECT_EQ(overall["Classes"], Json({2, 1, 3}));
    EXPECT_EQ(overall["ClassNames"][2], "mäßig");
    EXPECT_EQ(overall["WorstCase"], 3);
    EXPECT_EQ(overall["Count"], 1);
    EXPECT_EQ(overall["Deciding"], "ReferenceSpecies");
    EXPECT_EQ(overall["Raised"], 2);
    EXPECT_EQ(overall["Softened"], true);
    EXPECT_EQ(overall["OEZK"], 2);
    EXPECT_EQ(overall["OEZK_Klasse"], "gut");
}

TEST(AssessmentJson, HoldsNullForWhatWasNotReached) {
    AssessedSite site = OneAssessment();
    ExplainedAssessment& assessment = site.Assessments.front();
    assessment.Trace = {};
    assessment.Trace.Skipped = NotAssessed::NoSample;
    assessment.Failed = Explanation::Failure{11, "Größe 0"};
    const Json json = AssessmentsAsJson(site)[0];
    for (const char* part : {"Column", "ReferenceSpecies", "Trophic", "Saprobic", "Overall"}) {
        EXPECT_TRUE(json["Trace"][part].is_null()) << part;
    }
    EXPECT_EQ(json["Trace"]["Skipped"], "NoSample");
    EXPECT_EQ(json["Failed"]["Number"], 11);
}

}  // namespace
