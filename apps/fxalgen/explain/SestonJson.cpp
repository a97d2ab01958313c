#include "fxalgen/explain/ExplanationText.h"
#include "fxalgen/explain/JsonParts.h"
#include "fxalgen/explain/SestonText.h"

namespace FX_Algen::cli {

namespace {

std::string_view NameOf(SestonRule rule) {
    switch (rule) {
        case SestonRule::NoAbundance:
            return "NoAbundance";
        case SestonRule::NotInCatalogue:
            return "NotInCatalogue";
        case SestonRule::FailedHere:
            return "FailedHere";
        case SestonRule::NotCalculated:
            break;
    }
    return "NotCalculated";
}

Json TermAsJson(const SestonTerm& term) {
    return {{"ID_ART", term.ID_ART},
            {"Taxon", TextOf(term.Taxon, "sesArt")},
            {"CF", term.CF},
            {"ID_PS", term.ID_PS},
            {"PSBez", TextOf(term.PSBez, "PSBez")},
            {"Abundanz", term.Abundanz},
            {"W_SI", term.W_SI},
            {"Valenzen", ListOf(term.Valenzen, [](double valence) { return Json(valence); })},
            {"ValueTerm", term.ValueTerm},
            {"EntropyTerm", Optional(term.EntropyTerm)}};
}

Json OmissionAsJson(const SestonOmission& omission) {
    return {{"ID_ART", omission.ID_ART},
            {"Taxon", TextOf(omission.Taxon, "sesArt")},
            {"CF", omission.CF},
            {"ID_PS", omission.ID_PS},
            {"PSBez", TextOf(omission.PSBez, "PSBez")},
            {"Abundanz", Optional(omission.Abundanz)},
            {"Rule", NameOf(omission.Rule)}};
}

}  // namespace

Json SestonAsJson(const std::optional<SestonExplanation>& seston) {
    if (!seston) return nullptr;
    return {{"State", NameOf(seston->Stored)},
            {"Terms", ListOf(seston->Terms, TermAsJson)},
            {"LeftOut", ListOf(seston->LeftOut, OmissionAsJson)},
            {"AbundanceSum", Optional(seston->AbundanceSum)},
            {"ValueSum", Optional(seston->ValueSum)},
            {"ValenceSums", ListOf(seston->ValenceSums, Optional<double>)},
            {"EntropySum", Optional(seston->EntropySum)},
            {"SquareSum", Optional(seston->SquareSum)},
            {"RatedRows", Optional(seston->RatedRows)},
            {"Counts", ListOf(seston->Counts, CountAsJson)},
            {"Columns", ListOf(seston->Columns, ColumnAsJson)},
            {"Failed", FailureAsJson(seston->Failed)}};
}

}  // namespace FX_Algen::cli
