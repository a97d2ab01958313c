// The trace of an assessment as JSON.
#include "fxalgen/explain/AssessmentText.h"
#include "fxalgen/explain/ExplanationText.h"
#include "fxalgen/explain/JsonParts.h"

namespace FX_Algen::cli {

namespace {

std::string_view NameOf(NotListed rule) {
    switch (rule) {
        case NotListed::NoTaxonomy:
            return "NoTaxonomy";
        case NotListed::NoRatings:
            return "NoRatings";
        case NotListed::OtherLebensform:
            return "OtherLebensform";
        case NotListed::OtherMajorGroup:
            return "OtherMajorGroup";
        case NotListed::OutOfScope:
            break;
    }
    return "OutOfScope";
}

std::string_view NameOf(GroupReason reason) {
    switch (reason) {
        case GroupReason::AllGroups:
            return "AllGroups";
        case GroupReason::DiatomsAsked:
            return "DiatomsAsked";
        case GroupReason::AbundanceBelow50:
            return "AbundanceBelow50";
        case GroupReason::TaxaNotAbove3:
            break;
    }
    return "TaxaNotAbove3";
}

std::string_view NameOf(AssessmentModule module) {
    switch (module) {
        case AssessmentModule::Trophic:
            return "Trophic";
        case AssessmentModule::Saprobic:
            return "Saprobic";
        case AssessmentModule::ReferenceSpecies:
            break;
    }
    return "ReferenceSpecies";
}

std::string_view NameOf(NotAssessed reason) {
    return reason == NotAssessed::NoSample ? "NoSample" : "DiatomsAlready";
}

template <typename T>
Json NameOrNull(const std::optional<T>& value) {
    return value ? Json(NameOf(*value)) : Json(nullptr);
}

template <typename T, typename Convert>
Json Part(const std::optional<T>& part, Convert convert) {
    return part ? convert(*part) : Json(nullptr);
}

std::string NameIn(const std::map<std::int32_t, std::string>& names, std::int32_t id) {
    const auto found = names.find(id);
    return found == names.end() ? std::string() : found->second;
}

Json LookupAsJson(const ReferenceLookup& lookup) {
    return {{"Table", lookup.Table},
            {"Keys", ListOf(lookup.Keys,
                            [](const LookupKey& key) {
                                return Json{{"Column", key.Column}, {"Value", TextOf(key.Value, "a key")}};
                            })},
            {"Found", lookup.Found},
            {"Result", ToJson(lookup.Result, lookup.Table)}};
}

Json BoundsAsJson(const ClassBounds& bounds) {
    return {{"EQRMin", bounds.EQRMin}, {"EQRMax", bounds.EQRMax}, {"OEZK", bounds.OEZK}};
}

Json NeighbourAsJson(const NeighbourClass& next) {
    return {{"OEZK", next.OEZK}, {"Bound", next.Bound}, {"Distance", next.Distance}};
}

Json ClassAsJson(const ClassLookup& lookup) {
    return {{"Lookup", LookupAsJson(lookup.Lookup)},
            {"EQR", Widened(lookup.EQR)},
            {"OEZK", lookup.OEZK},
            {"Hit", Part(lookup.Hit, BoundsAsJson)},
            {"AlsoFitting", ListOf(lookup.AlsoFitting, BoundsAsJson)}};
}

Json RatioAsJson(const RatioTrace& ratio) {
    return {{"Index", Widened(ratio.Index)},
            {"ExpectedValue", Widened(ratio.ExpectedValue)},
            {"Unrounded", Optional(ratio.Unrounded)},
            {"BeforeCap", ratio.BeforeCap},
            {"EQR", Widened(ratio.EQR)},
            {"Class", ClassAsJson(ratio.Class)},
            {"Raised", ClassAsJson(ratio.Raised)},
            {"AllBounds", ListOf(ratio.AllBounds, BoundsAsJson)},
            {"NextBetter", Part(NextBetterClass(ratio), NeighbourAsJson)},
            {"NextWorse", Part(NextWorseClass(ratio), NeighbourAsJson)}};
}

Json ModuleAsJson(const IndexModuleTrace& module) {
    return {{"Taxagruppe", module.Taxagruppe},
            {"ReferenceClass", LookupAsJson(module.ReferenceClass)},
            {"ExpectedValue", LookupAsJson(module.ExpectedValue)},
            {"IndexColumn", module.IndexColumn},
            {"Ratio", RatioAsJson(module.Ratio)},
            {"Done", module.Done}};
}

Json OverallAsJson(const OverallTrace& overall) {
    return {{"Classes", overall.Classes},
            {"ClassNames", ListOf(overall.ClassNames,
                                  [](const std::string& name) { return TextOf(name, "awaWRRL_Klasse"); })},
            {"WorstCase", overall.WorstCase},
            {"Count", overall.Count},
            {"Deciding", NameOf(overall.Deciding)},
            {"Raised", Optional(overall.Raised)},
            {"Softened", overall.Softened},
            {"OEZK", overall.OEZK},
            {"OEZK_Klasse", TextOf(overall.OEZK_Klasse, "awaWRRL_Klasse")},
            {"Done", overall.Done}};
}

/// Holds the names so that the parts need not pass them on.
class Writer {
public:
    explicit Writer(const AssessedSite& site) : site_(site) {}

    Json Assessment(const ExplainedAssessment& assessment) const;

private:
    Json Taxon(std::int32_t ID_ART) const { return TextOf(NameIn(site_.Taxa, ID_ART), "awaArt"); }
    Json Finding(const ListedFinding& finding) const;
    Json Column(const FrequencyColumn& column) const;
    Json Species(const ReferenceSpeciesTrace& species) const;
    Json Trace(const AssessmentTrace& trace) const;

    const AssessedSite& site_;
};

Json Writer::Finding(const ListedFinding& finding) const {
    return {{"ID_PS", finding.ID_PS},
            {"PSBez", TextOf(NameIn(site_.Places, finding.ID_PS), "PSBez")},
            {"ID_ART", finding.ID_ART},
            {"Taxon", Taxon(finding.ID_ART)},
            {"CF", finding.CF},
            {"LeftOut", NameOrNull(finding.LeftOut)},
            {"IsDiatom", finding.IsDiatom},
            {"Abundance", Optional(finding.Abundance)},
            {"Assigned", Optional(finding.Assigned)},
            {"FromStands", ListOf(finding.FromStands,
                                  [&](const StandShare& share) {
                                      return Json{
                                          {"ID_TR_MI", share.ID_TR_MI},
                                          {"MI_Bez", TextOf(NameIn(site_.Stands, share.ID_TR_MI), "MI_Bez")},
                                          {"SharePercent", share.SharePercent},
                                          {"TaxonPercent", share.TaxonPercent},
                                          {"Added", share.Added}};
                                  })},
            {"Cell", finding.Cell}};
}

Json Writer::Column(const FrequencyColumn& column) const {
    return {{"ValveSum", column.ValveSum},
            {"ValveSumCarried", column.ValveSumCarried},
            {"DG_Gesamt", Widened(column.DG_Gesamt)},
            {"DG_MA", Widened(column.DG_MA)},
            {"Findings",
             ListOf(column.Findings, [&](const ListedFinding& finding) { return Finding(finding); })}};
}

Json Writer::Species(const ReferenceSpeciesTrace& species) const {
    const auto taxon = [&](const CountedTaxon& one) {
        return Json{
            {"ID_ART", one.ID_ART},       {"Taxon", Taxon(one.ID_ART)}, {"CF", one.CF},
            {"IsDiatom", one.IsDiatom},   {"Abundance", one.Abundance}, {"ID_GRGR", Optional(one.ID_GRGR)},
            {"IsSpecies", one.IsSpecies}, {"TypA", one.TypA},           {"TypB", one.TypB}};
    };
    const auto count = [](const CountTrace& one) {
        return Json{{"Column", one.Column}, {"Result", one.Result}};
    };
    return {{"Taxa", ListOf(species.Taxa, taxon)},
            {"Counts", ListOf(species.Counts, count)},
            {"Reason", NameOf(species.Reason)},
            {"Taxagruppe", species.Taxagruppe},
            {"BedingtBewertbar", species.BedingtBewertbar},
            {"RestrictionAbundance", species.RestrictionAbundance},
            {"RestrictionBound", species.RestrictionBound},
            {"RI_Abundanz", Widened(species.RI_Abundanz)},
            {"RI_Anzahl", Widened(species.RI_Anzahl)},
            {"Type", LookupAsJson(species.Type)},
            {"ExpectedValue", LookupAsJson(species.ExpectedValue)},
            {"Ratio", RatioAsJson(species.Ratio)},
            {"Done", species.Done}};
}

Json Writer::Trace(const AssessmentTrace& trace) const {
    return {{"KAOnly", trace.KAOnly},
            {"Skipped", NameOrNull(trace.Skipped)},
            {"ListBuilt", trace.ListBuilt},
            {"Column", Part(trace.Column, [&](const FrequencyColumn& column) { return Column(column); })},
            {"ReferenceSpecies",
             Part(trace.ReferenceSpecies, [&](const ReferenceSpeciesTrace& one) { return Species(one); })},
            {"Trophic", Part(trace.Trophic, ModuleAsJson)},
            {"Saprobic", Part(trace.Saprobic, ModuleAsJson)},
            {"Overall", Part(trace.Overall, OverallAsJson)}};
}

Json Writer::Assessment(const ExplainedAssessment& assessment) const {
    return {{"KAOnly", assessment.KAOnly},
            {"Trace", Trace(assessment.Trace)},
            {"Indices", ListOf(assessment.Indices, IndexAsJson)},
            {"State", cli::NameOf(assessment.State)},
            {"Columns", ListOf(assessment.Columns, ColumnAsJson)},
            {"Failed", FailureAsJson(assessment.Failed)}};
}

}  // namespace

Json AssessmentsAsJson(const AssessedSite& site) {
    const Writer writer(site);
    return ListOf(site.Assessments,
                  [&](const ExplainedAssessment& assessment) { return writer.Assessment(assessment); });
}

}  // namespace FX_Algen::cli
