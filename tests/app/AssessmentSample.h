#pragma once

#include "fxalgen/explain/AssessmentText.h"

namespace FX_Algen::cli {

inline ReferenceLookup Found(const char* table, std::vector<LookupKey> keys, const store::Value& result) {
    return {table, std::move(keys), true, result};
}

inline ClassLookup Class(const char* table, float eqr, ClassBounds hit) {
    ClassLookup lookup;
    lookup.Lookup = Found(table, {{"Taxagruppe", "Alle"}, {"TGZK", "mäßig"}}, hit.OEZK);
    lookup.EQR = eqr;
    lookup.OEZK = hit.OEZK;
    lookup.Hit = hit;
    return lookup;
}

inline ClassLookup NoClass(const char* table, float eqr) {
    ClassLookup lookup;
    lookup.Lookup = {
        table, {{"Taxagruppe", "Alle"}, {"TGZK", "mäßig"}, {"EQR", "1.03"}}, false, std::int16_t{-1}};
    lookup.EQR = eqr;
    return lookup;
}

inline RatioTrace Ratio(float index, float expected, double unrounded, double rounded, float eqr) {
    RatioTrace ratio;
    ratio.Index = index;
    ratio.ExpectedValue = expected;
    ratio.Unrounded = unrounded;
    ratio.BeforeCap = rounded;
    ratio.EQR = eqr;
    return ratio;
}

/// Index 2.2 against 1.6 expected: (4 - 2.2) / (4 - 1.6) = 0.75, class 2; raised 0.78, class 2.
inline IndexModuleTrace TrophicModule() {
    IndexModuleTrace module;
    module.Taxagruppe = "Alle";
    module.ReferenceClass = Found("awaWRRL_TGZK", {{"ID_AL_Bioregion", "3"}, {"Hoehenstufe", "2"}}, "mäßig");
    module.ExpectedValue = Found("awaWRRL_ETI", {{"Taxagruppe", "Alle"}, {"TGZK", "mäßig"}}, 1.6);
    module.IndexColumn = "TI";
    module.Ratio = Ratio(2.2F, 1.6F, 0.75, 0.75, 0.75F);
    module.Ratio.AllBounds = {{0.8, 1, 1}, {0.6, 0.8, 2}, {0, 0.6, 3}};
    module.Ratio.Class = Class("awaWRRL_TIOEZK", 0.75F, {0.6, 0.8, 2});
    module.Ratio.Raised = Class("awaWRRL_TIOEZK", 0.78F, {0.6, 0.8, 2});
    module.Done = true;
    return module;
}

/// Index 1.5 against 1.745 expected, which is rounded to 1.75: 2.5 / 2.25 = 1.111111, capped at 1, class 1;
/// no row at 1.03.
inline IndexModuleTrace SaprobicModule() {
    IndexModuleTrace module;
    module.Taxagruppe = "Alle";
    module.ReferenceClass =
        Found("awaWRRL_SGZK", {{"ID_AL_Bioregion", "3"}, {"Hoehenstufe", "2"}}, std::int16_t{2});
    module.ExpectedValue = Found("awaWRRL_ESI", {{"Taxagruppe", "Alle"}, {"Gueteklasse", "2"}}, 1.745);
    module.IndexColumn = "SapIndex";
    module.Ratio = Ratio(1.5F, 1.75F, 2.5 / 2.25, 1.11, 1.0F);
    module.Ratio.AllBounds = {{0.8, 1, 1}, {0.6, 0.8, 2}};
    module.Ratio.Class = Class("awaWRRL_SIOEZK", 1.0F, {0.8, 1, 1});
    module.Ratio.Raised = NoClass("awaWRRL_SIOEZK", 1.03F);
    module.Done = true;
    return module;
}

/// 120 / (200 - (170 - 160)) = 0.6315789, 3 / 6 = 0.5, mean 0.5657895; against 0.8 expected 0.707237, so
/// 0.71, class 3; raised 0.74, class 2.
inline ReferenceSpeciesTrace SpeciesModule() {
    ReferenceSpeciesTrace species;
    // taxon, CF, diatom, share, major group, species level, type A, type B
    species.Taxa = {{1, true, false, 60, 130, true, 1, 1},
                    {2, false, true, 75, 128, true, 1, 0},
                    {9, false, true, 25, std::nullopt, false, 0, 0}};
    species.Counts = {{"TaxazahlGesamt", 8},       {"TaxazahlArtniveau", 6},     {"TaxazahlRefart", 3},
                      {"TaxazahlGesamt_KA", 3},    {"TaxazahlArtniveau_KA", 2},  {"TaxazahlRefart_KA", 1},
                      {"AbundanzGesamt", 170},     {"AbundanzArtniveau", 160},   {"AbundanzRefart", 120},
                      {"AbundanzGesamt_KA", 100},  {"AbundanzArtniveau_KA", 90}, {"AbundanzRefart_KA", 75},
                      {"TaxazahlArtniveauNKA", 4}, {"AbundanzArtniveauNKA", 70}, {"KASchalenzahl", 400}};
    species.Reason = GroupReason::AllGroups;
    species.Taxagruppe = "Alle";
    species.BedingtBewertbar = true;
    species.RestrictionAbundance = 160;
    species.RestrictionBound = 167;
    species.RI_Abundanz = 120.0F / 190.0F;
    species.RI_Anzahl = 0.5F;
    species.Type = Found("awaWRRL_RBioregionstyp", {{"ID_AL_Bioregion", "3"}, {"Hoehenstufe", "2"}}, "Kalk");
    species.ExpectedValue = Found("awaWRRL_ERI", {{"Taxagruppe", "Alle"}, {"Bioregionstyp", "Kalk"}}, 0.8);
    species.Ratio = Ratio((120.0F / 190.0F + 0.5F) / 2, 0.8F, 0.565789 / 0.8, 0.71, 0.71F);
    species.Ratio.AllBounds = {{0.91, 1, 1}, {0.74, 0.9, 2}, {0.5, 0.73, 3}, {0.3, 0.49, 4}};
    species.Ratio.Class = Class("awaWRRL_RIOEZK", 0.71F, {0.5, 0.73, 3});
    species.Ratio.Raised = Class("awaWRRL_RIOEZK", 0.74F, {0.74, 0.9, 2});
    species.Done = true;
    return species;
}

/// 300 of 400 valves; cover 40 of 80 percent is 50, a stand of 25 percent adds 40 percent of it: 60; a moss
/// is left out.
inline FrequencyColumn Column() {
    FrequencyColumn column;
    column.ValveSum = 400;
    column.DG_Gesamt = 80;
    column.DG_MA = 40;
    ListedFinding diatom;
    diatom.ID_PS = 4;
    diatom.ID_ART = 2;
    diatom.IsDiatom = true;
    diatom.Abundance = 300;
    diatom.Assigned = 75;
    diatom.Cell = 75;
    ListedFinding macroalga;
    macroalga.ID_PS = 4;
    macroalga.ID_ART = 1;
    macroalga.CF = true;
    macroalga.Abundance = 40;
    macroalga.Assigned = 50;
    macroalga.FromStands = {{7, 25, 40, 10}};
    macroalga.Cell = 60;
    ListedFinding moss;
    moss.ID_PS = 5;
    moss.ID_ART = 8;
    moss.LeftOut = NotListed::OtherMajorGroup;
    column.Findings = {diatom, macroalga, moss};
    return column;
}

/// Classes 2, 1, 3: the reference species alone are worst, and 0.03 more makes class 2.
inline OverallTrace Overall() {
    OverallTrace overall;
    overall.Classes = {2, 1, 3};
    overall.ClassNames = {"gut", "sehr gut", "mäßig"};
    overall.WorstCase = 3;
    overall.Count = 1;
    overall.Deciding = AssessmentModule::ReferenceSpecies;
    overall.Raised = std::int16_t{2};
    overall.Softened = true;
    overall.OEZK = 2;
    overall.OEZK_Klasse = "gut";
    overall.Done = true;
    return overall;
}

inline AssessedSite OneAssessment() {
    AssessedSite site;
    site.Site = AssessmentSite{};
    site.Site->RefBioregionen = "KÖ2";
    site.Site->RefBioregion = "(awaRefArt_TypB.ID_AL_Bioregion=3 AND awaRefArt_TypB.ID_AL_Hoehenstufe=2)";
    site.Taxa = {{1, "Cladophora glomerata"}, {2, "Achnanthidium minutissimum"}, {8, "Fontinalis größer"}};
    site.Places = {{4, "Brücke"}};
    site.Stands = {{7, "Belag grün"}};
    ExplainedAssessment assessment;
    assessment.Trace.ListBuilt = true;
    assessment.Trace.Column = Column();
    assessment.Trace.ReferenceSpecies = SpeciesModule();
    assessment.Trace.Trophic = TrophicModule();
    assessment.Trace.Saprobic = SaprobicModule();
    assessment.Trace.Overall = Overall();
    ExplainedIndex index;
    index.Column = "TI";
    ExplainedFinding finding;
    finding.ID_ART = 1;
    finding.Taxon = "Cladophora glomerata";
    index.Terms.push_back({SampleBlock::Macroalgae, finding, 40, 50, 2, 2.2, 100, 220, TermRemark::None});
    index.WeightSum = 100;
    index.ValueSum = 220;
    index.Result = index.Stored = 2.2F;
    assessment.Indices = {index};
    assessment.State = StoredResult::Current;
    assessment.Columns = {{"OEZK", std::int16_t{2}, std::int16_t{2}, false},
                          {"OEZK_Klasse", "gut", "gut", false}};
    site.Assessments = {assessment};
    return site;
}

}  // namespace FX_Algen::cli
