// Group, restriction and overall class in words.
#include <array>
#include <optional>
#include <ostream>

#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/explain/AssessmentParts.h"

namespace FX_Algen::cli {

namespace {

std::int16_t WordOf(AssessmentModule module) {
    switch (module) {
        case AssessmentModule::Saprobic:
            return words::Saprobie;
        case AssessmentModule::ReferenceSpecies:
            return words::Referenzarten;
        case AssessmentModule::Trophic:
            break;
    }
    return words::Trophie;
}

/// A module as the overall class sees it.
struct Module {
    AssessmentModule Which;
    const RatioTrace* Ratio;               ///< null where the module was not reached
    const ReferenceLookup* ExpectedValue;  ///< as `Ratio`
};

template <typename Trace>
Module ModuleOf(AssessmentModule which, const std::optional<Trace>& trace) {
    if (!trace) return {which, nullptr, nullptr};
    return {which, &trace->Ratio, &trace->ExpectedValue};
}

std::array<Module, 3> Modules(const AssessmentTrace& trace) {
    return {{ModuleOf(AssessmentModule::Trophic, trace.Trophic),
             ModuleOf(AssessmentModule::Saprobic, trace.Saprobic),
             ModuleOf(AssessmentModule::ReferenceSpecies, trace.ReferenceSpecies)}};
}

/// The tables have no expected value, and the ratio rests on the -1 in its place.
bool WithoutExpectedValue(const Module& module) {
    return module.ExpectedValue != nullptr && !module.ExpectedValue->Table.empty() &&
           !module.ExpectedValue->Found;
}

/// An index of 0 is none, mostly for want of findings with a weight, and its ratio is set, not measured.
bool WithoutIndex(const Module& module) {
    return module.Which != AssessmentModule::ReferenceSpecies && module.Ratio != nullptr &&
           module.Ratio->Index == 0 && module.Ratio->Class.Hit;
}

/// Why the overall class says less than it seems to: what it counts of this module is none, or nothing.
std::optional<std::int16_t> Doubt(const OverallTrace& overall, const Module& module) {
    if (overall.Classes[static_cast<std::size_t>(module.Which)] < 0) return words::ModuleWithoutClass;
    if (WithoutExpectedValue(module)) return words::ClassWithoutExpectedValue;
    if (WithoutIndex(module)) return words::ClassWithoutIndex;
    return std::nullopt;
}

std::string ClassNumber(const Prose& prose, std::int16_t OEZK) { return OEZK < 0 ? "-" : prose.Exact(OEZK); }

std::string Distance(const Prose& prose, const std::optional<NeighbourClass>& next) {
    return next ? prose.Short(next->Distance) : "-";
}

void PrintModuleTable(const Prose& prose, const AssessmentTrace& trace) {
    const OverallTrace& overall = *trace.Overall;
    Table table;
    table.AddColumn(prose.Word(words::Modul), Table::Align::Left);
    for (const std::int16_t word : {words::Index, words::Erwartet, words::EQR, words::OEZK}) {
        table.AddColumn(prose.Word(word), Table::Align::Right);
    }
    table.AddColumn(prose.Word(words::Bezeichnung), Table::Align::Left);
    for (const std::int16_t word : {words::RaisedClass, words::ToBetter, words::ToWorse}) {
        table.AddColumn(prose.Word(word), Table::Align::Right);
    }
    const auto modules = Modules(trace);
    for (std::size_t i = 0; i < modules.size(); ++i) {
        const std::string name = prose.Word(WordOf(modules[i].Which));
        const std::string OEZK = ClassNumber(prose, overall.Classes[i]);
        if (modules[i].Ratio == nullptr) {
            table.AddRow({name, "", "", "", OEZK, overall.ClassNames[i], "", "", ""});
            continue;
        }
        const RatioTrace& ratio = *modules[i].Ratio;
        const std::string expected = WithoutExpectedValue(modules[i]) ? prose.Word(words::NotAvailable)
                                                                      : prose.Exact(ratio.ExpectedValue);
        table.AddRow({name, prose.Exact(ratio.Index), expected, prose.Exact(ratio.EQR), OEZK,
                      overall.ClassNames[i], ClassNumber(prose, ratio.Raised.OEZK),
                      Distance(prose, NextBetterClass(ratio)), Distance(prose, NextWorseClass(ratio))});
    }
    table.Print(prose.Out(), 2);
    prose.Blank();
}

std::string NamesOfWorst(const Prose& prose, const AssessmentTrace& trace) {
    std::string names;
    for (const Module& module : Modules(trace)) {
        if (trace.Overall->Classes[static_cast<std::size_t>(module.Which)] != trace.Overall->WorstCase) {
            continue;
        }
        names += (names.empty() ? "" : ", ") + prose.Word(WordOf(module.Which));
    }
    return names;
}

/// Why 0.03 more would do, or would not.
std::string Softening(const Prose& prose, const OverallTrace& overall) {
    if (overall.Count != 1) {
        return prose.Word(words::NotSoftenedSeveral, {prose.Exact(overall.Count)});
    }
    const std::int16_t raised = overall.Raised.value_or(-1);
    if (overall.Softened) {
        return prose.Word(words::Softened,
                          {prose.Exact(raised), ClassText(prose, overall.OEZK, overall.OEZK_Klasse)});
    }
    if (raised < 0) return prose.Word(words::NotSoftenedNoClass);
    if (raised == overall.WorstCase) return prose.Word(words::NotSoftenedSame, {prose.Exact(raised)});
    return prose.Word(words::NotSoftenedOther, {prose.Exact(raised)});
}

void PrintDistances(const Prose& prose, const AssessmentTrace& trace) {
    for (const Module& module : Modules(trace)) {
        const bool worst =
            trace.Overall->Classes[static_cast<std::size_t>(module.Which)] == trace.Overall->WorstCase;
        if (!worst || module.Ratio == nullptr) continue;
        const std::string name = prose.Word(WordOf(module.Which));
        const std::string eqr = prose.Exact(module.Ratio->EQR);
        if (const auto better = NextBetterClass(*module.Ratio)) {
            prose.Line(2, prose.Word(words::DistanceToBetter,
                                     {name, eqr, prose.Exact(better->OEZK), prose.Short(better->Distance),
                                      prose.Exact(better->Bound)}));
        } else {
            prose.Line(2, prose.Word(words::NothingBetter, {name, eqr}));
        }
        const auto worse = NextWorseClass(*module.Ratio);
        if (!worse) {
            prose.Line(2, prose.Word(words::NothingWorse, {name, eqr}));
        } else if (worse->Distance > 0) {
            prose.Line(2, prose.Word(words::DistanceToWorse,
                                     {name, eqr, prose.Exact(worse->OEZK), prose.Short(worse->Distance),
                                      prose.Exact(worse->Bound)}));
        } else {
            prose.Line(2, prose.Word(words::OnBoundToWorse, {name, eqr, prose.Exact(worse->OEZK)}));
        }
    }
}

}  // namespace

void PrintGroup(const Prose& prose, const ReferenceSpeciesTrace& species) {
    // Empty until the group was decided.
    if (species.Taxagruppe.empty()) return;
    const std::string abundance = prose.Short(CountOf(species, "AbundanzArtniveauNKA"));
    const std::string taxa = prose.Short(CountOf(species, "TaxazahlArtniveauNKA"));
    switch (species.Reason) {
        case GroupReason::AllGroups:
            prose.Line(2, prose.Word(words::GroupAll, {abundance, taxa}));
            break;
        case GroupReason::DiatomsAsked:
            prose.Line(2, prose.Word(words::GroupAsked));
            break;
        case GroupReason::AbundanceBelow50:
            prose.Line(2, prose.Word(words::GroupAbundance, {abundance, taxa}));
            break;
        case GroupReason::TaxaNotAbove3:
            prose.Line(2, prose.Word(words::GroupTaxa, {taxa, abundance}));
            break;
    }
    prose.Line(
        2, prose.Word(species.BedingtBewertbar ? words::Restricted : words::NotRestricted,
                      {prose.Short(species.RestrictionAbundance), prose.Short(species.RestrictionBound)}));
}

void PrintOverall(const Prose& prose, const AssessmentTrace& trace) {
    const OverallTrace& overall = *trace.Overall;
    prose.Title(prose.Word(words::OverallClass));
    PrintModuleTable(prose, trace);
    if (overall.WorstCase < 0) {
        prose.Line(2, prose.Word(words::NoModuleHasClass));
        prose.Blank();
        return;
    }
    const std::string worst =
        ClassText(prose, overall.WorstCase, overall.ClassNames[static_cast<std::size_t>(overall.Deciding)]);
    if (overall.Count == 1) {
        prose.Line(2, prose.Word(words::WorstCaseOfOne, {worst, NamesOfWorst(prose, trace)}));
    } else {
        prose.Line(2, prose.Word(words::WorstCaseOfSeveral,
                                 {worst, prose.Exact(overall.Count), NamesOfWorst(prose, trace)}));
    }
    prose.Line(2, Softening(prose, overall));
    for (const Module& module : Modules(trace)) {
        if (const auto doubt = Doubt(overall, module)) {
            prose.Line(2, prose.Word(*doubt, {prose.Word(WordOf(module.Which))}));
        }
    }
    PrintDistances(prose, trace);
    prose.Blank();
}

}  // namespace FX_Algen::cli
