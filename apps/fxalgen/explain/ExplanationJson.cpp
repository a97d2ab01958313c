#include "fxalgen/explain/ExplanationText.h"
#include "fxalgen/explain/JsonParts.h"

namespace FX_Algen::cli {

namespace {

std::string_view NameOf(SampleBlock block) {
    switch (block) {
        case SampleBlock::Macroalgae:
            return "Macroalgae";
        case SampleBlock::MixedStands:
            return "MixedStands";
        case SampleBlock::Valves:
            break;
    }
    return "Valves";
}

std::string_view NameOf(TermRemark remark) {
    switch (remark) {
        case TermRemark::WeightZero:
            return "WeightZero";
        case TermRemark::ValueZero:
            return "ValueZero";
        case TermRemark::StandWithoutCover:
            return "StandWithoutCover";
        case TermRemark::None:
            break;
    }
    return "None";
}

std::string_view NameOf(LeftOutRule rule) {
    switch (rule) {
        case LeftOutRule::NoAbundance:
            return "NoAbundance";
        case LeftOutRule::NoRatings:
            return "NoRatings";
        case LeftOutRule::NoAlgenart:
            return "NoAlgenart";
        case LeftOutRule::NoTotalCover:
            return "NoTotalCover";
        case LeftOutRule::NoLayer:
            return "NoLayer";
        case LeftOutRule::OtherLebensform:
            return "OtherLebensform";
        case LeftOutRule::OtherMajorGroup:
            return "OtherMajorGroup";
        case LeftOutRule::NoTaxonomy:
            return "NoTaxonomy";
        case LeftOutRule::DiatomsOnly:
            return "DiatomsOnly";
        case LeftOutRule::FailedHere:
            return "FailedHere";
        case LeftOutRule::NotCalculated:
            break;
    }
    return "NotCalculated";
}

std::string_view NameOf(ClassRule rule) {
    switch (rule) {
        case ClassRule::NoClass:
            return "NoClass";
        case ClassRule::SameTaxon:
            return "SameTaxon";
        case ClassRule::Counted:
            break;
    }
    return "Counted";
}

/// With the digits that 32 bits hold.
Json Optional32(const std::optional<float>& value, const char* where) {
    return value ? ToJson(store::Value(*value), where) : Json(nullptr);
}

Json FindingAsJson(const ExplainedFinding& finding) {
    return {{"ID_ART", finding.ID_ART},
            {"Taxon", TextOf(finding.Taxon, "awaArt")},
            {"CF", finding.CF},
            {"ID_PS", Optional(finding.ID_PS)},
            {"PSBez", TextOf(finding.PSBez, "PSBez")},
            {"ID_TR_MI", Optional(finding.ID_TR_MI)},
            {"MI_Bez", TextOf(finding.MI_Bez, "MI_Bez")}};
}

Json TermAsJson(const ExplainedTerm& term) {
    return {{"Block", NameOf(term.Block)},   {"Finding", FindingAsJson(term.Finding)},
            {"Abundance", term.Abundance},   {"SharePercent", term.SharePercent},
            {"Weight", term.Weight},         {"Value", term.Value},
            {"WeightTerm", term.WeightTerm}, {"ValueTerm", term.ValueTerm},
            {"Remark", NameOf(term.Remark)}};
}

Json OmissionAsJson(const ExplainedOmission& omission) {
    return {{"Block", NameOf(omission.Block)},
            {"Finding", FindingAsJson(omission.Finding)},
            {"Abundance", Optional(omission.Abundance)},
            {"Rule", NameOf(omission.Rule)}};
}

Json ClassAsJson(const ExplainedClass& one) {
    return {{"Column", one.Column},
            {"Name", one.Name},
            {"Result", ToJson(one.Result, one.Column)},
            {"Stored", ToJson(one.Stored, one.Column)}};
}

Json ClassRowAsJson(const ExplainedClassRow& row) {
    return {{"Block", NameOf(row.Block)},           {"ID_ART", row.ID_ART},
            {"Taxon", TextOf(row.Taxon, "awaArt")}, {"SI", row.SI},
            {"Class", Optional(row.Class)},         {"Rule", NameOf(row.Rule)}};
}

Json StandAsJson(const ExplainedStand& stand) {
    return {{"ID_TR_MI", stand.ID_TR_MI},
            {"MI_Bez", TextOf(stand.MI_Bez, "MI_Bez")},
            {"CoverPercent", Optional(stand.CoverPercent)},
            {"SharePercent", Optional(stand.SharePercent)}};
}

}  // namespace

std::string_view NameOf(StoredResult state) {
    switch (state) {
        case StoredResult::Current:
            return "Current";
        case StoredResult::OutOfDate:
            return "OutOfDate";
        case StoredResult::Missing:
            break;
    }
    return "Missing";
}

Json IndexAsJson(const ExplainedIndex& index) {
    return {{"Column", index.Column},
            {"Terms", ListOf(index.Terms, TermAsJson)},
            {"LeftOut", ListOf(index.LeftOut, OmissionAsJson)},
            {"WeightSum", Optional(index.WeightSum)},
            {"ValueSum", Optional(index.ValueSum)},
            {"Result", ToJson(index.Result, index.Column)},
            {"Stored", ToJson(index.Stored, index.Column)}};
}

Json CountAsJson(const ExplainedCount& count) {
    return {
        {"Column", count.Column},
        {"Taxa", ListOf(count.Taxa,
                        [](const ExplainedCount::Taxon& taxon) {
                            return Json{{"ID_ART", taxon.ID_ART}, {"Taxon", TextOf(taxon.Name, "awaArt")}};
                        })},
        {"Result", ToJson(count.Result, count.Column)},
        {"Stored", ToJson(count.Stored, count.Column)}};
}

Json ColumnAsJson(const ExplainedColumn& column) {
    return {{"Column", column.Column},
            {"Result", ToJson(column.Result, column.Column)},
            {"Stored", ToJson(column.Stored, column.Column)},
            {"Differs", column.Differs}};
}

Json FailureAsJson(const std::optional<Explanation::Failure>& failure) {
    if (!failure) return nullptr;
    return {{"Number", failure->Number}, {"Description", TextOf(failure->Description, "the failure")}};
}

Json ExplanationAsJson(const Explanation& explanation) {
    return {{"ID_TR", explanation.ID_TR},
            {"TRBez", TextOf(explanation.TRBez, "TRBez")},
            {"Sampled", explanation.Sampled},
            {"IstWRRL", explanation.IstWRRL},
            {"DG_Gesamt", Optional32(explanation.DG_Gesamt, "DG_Gesamt")},
            {"DG_Makroalgen", Optional32(explanation.DG_Makroalgen, "DG_Makroalgen")},
            {"Schalen", explanation.Schalen},
            {"Summe_KA", ToJson(explanation.Summe_KA, "Summe_KA")},
            {"Stands", ListOf(explanation.Stands, StandAsJson)},
            {"Indices", ListOf(explanation.Indices, IndexAsJson)},
            {"Classes", ListOf(explanation.Classes, ClassAsJson)},
            {"ClassRows", ListOf(explanation.ClassRows, ClassRowAsJson)},
            {"Counts", ListOf(explanation.Counts, CountAsJson)},
            {"State", NameOf(explanation.State)},
            {"Columns", ListOf(explanation.Columns, ColumnAsJson)},
            {"Failed", FailureAsJson(explanation.Failed)}};
}

}  // namespace FX_Algen::cli
