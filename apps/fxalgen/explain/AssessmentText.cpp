#include "fxalgen/explain/AssessmentText.h"

#include <algorithm>
#include <ostream>

#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/explain/AssessmentParts.h"
#include "fxalgen/explain/ExplanationText.h"

namespace FX_Algen::cli {

namespace {

const ExplainedColumn* Column(const ExplainedAssessment& assessment, std::string_view name) {
    const auto found = std::find_if(assessment.Columns.begin(), assessment.Columns.end(),
                                    [&](const ExplainedColumn& one) { return one.Column == name; });
    return found == assessment.Columns.end() ? nullptr : &*found;
}

/// Without the whole list findings are missing from the counts, and what they lead to is no class.
bool ListMissing(const AssessmentTrace& trace) { return trace.ReferenceSpecies && !trace.ListBuilt; }

void PrintClass(const Prose& prose, const AssessmentTrace& trace) {
    const std::optional<OverallTrace>& overall = trace.Overall;
    if (!overall || !overall->Done || ListMissing(trace)) {
        prose.Line(2, prose.Word(words::StatusNotReached));
    } else if (overall->OEZK < 0) {
        prose.Line(2, prose.Word(words::StatusWithoutClass, {overall->OEZK_Klasse}));
    } else {
        prose.Line(2, prose.Word(words::Status, {ClassText(prose, overall->OEZK, overall->OEZK_Klasse)}));
    }
}

std::string FailureText(const Explanation::Failure& failure) {
    return failure.Description + " (" + store::NumberText(failure.Number) + ")";
}

void PrintStored(const Prose& prose, const ExplainedAssessment& assessment) {
    if (assessment.State == StoredResult::Current) {
        // The row of an assessment that fails is the same each time, and never whole.
        prose.Line(2, prose.Word(assessment.Failed ? words::AssessmentIncomplete : words::AssessmentCurrent));
        return;
    }
    const ExplainedColumn* number = Column(assessment, "OEZK");
    const ExplainedColumn* name = Column(assessment, "OEZK_Klasse");
    std::string stored = prose.Word(words::NoClassStored);
    if (number != nullptr && !number->Stored.IsNull() && number->Stored.I2() >= 0) {
        stored = ClassText(prose, number->Stored.I2(),
                           name == nullptr || name->Stored.IsNull() ? std::string() : name->Stored.Text());
    }
    prose.Line(2, prose.Word(words::AssessmentOutOfDate, {stored}));
}

void PrintEnd(const Prose& prose, const ExplainedAssessment& assessment) {
    if (ListMissing(assessment.Trace)) {
        prose.Line(2, prose.Word(assessment.Trace.Column ? words::ListIncomplete : words::ListNotBuilt));
    }
    if (assessment.Trace.Skipped == NotAssessed::NoSample) prose.Line(2, prose.Word(words::SampleGone));
    if (assessment.Trace.Skipped == NotAssessed::DiatomsAlready) {
        prose.Line(2, prose.Word(words::DiatomsAlready));
    }
    if (assessment.Failed) {
        prose.Line(2, prose.Word(words::AssessmentFailed, {FailureText(*assessment.Failed)}));
    }
}

/// Whether an explanation holds the same index with the same sums.
bool Shows(const Explanation& calculation, const ExplainedIndex& index) {
    return std::any_of(calculation.Indices.begin(), calculation.Indices.end(), [&](const auto& other) {
        return other.Column == index.Column && other.Result == index.Result &&
               other.WeightSum == index.WeightSum && other.ValueSum == index.ValueSum &&
               other.Terms.size() == index.Terms.size() && other.LeftOut.size() == index.LeftOut.size();
    });
}

void PrintIndices(const Prose& prose, const ExplainedAssessment& assessment, const Explanation& calculation) {
    for (const auto* module : {&assessment.Trace.Trophic, &assessment.Trace.Saprobic}) {
        if (!*module) continue;
        for (const ExplainedIndex& index : assessment.Indices) {
            if (index.Column != (*module)->IndexColumn) continue;
            if (Shows(calculation, index)) {
                prose.Line(2, prose.Word(words::TermsBelow, {index.Column}));
                prose.Blank();
            } else {
                PrintIndex(prose.Out(), index, prose.SprachID());
            }
        }
    }
}

void PrintDifferences(const Prose& prose, const ExplainedAssessment& assessment) {
    if (assessment.State != StoredResult::OutOfDate) return;
    prose.Title(prose.Word(words::AssessmentDifferences));
    Table table;
    table.AddColumn(prose.Word(words::Feld), Table::Align::Left);
    table.AddColumn(prose.Word(words::Jetzt), Table::Align::Right);
    table.AddColumn(prose.Word(words::Gespeichert), Table::Align::Right);
    for (const ExplainedColumn& column : assessment.Columns) {
        if (!column.Differs) continue;
        table.AddRow({column.Column, prose.Exact(column.Result), prose.Exact(column.Stored)});
    }
    table.Print(prose.Out(), 2);
    prose.Blank();
}

bool SameFindings(const AssessmentTrace& one, const AssessmentTrace& other) {
    return one.Column && one.ReferenceSpecies && other.ReferenceSpecies && one.Column == other.Column &&
           one.ReferenceSpecies->Taxa == other.ReferenceSpecies->Taxa;
}

/// Findings, from the frequency list to the counts; those that `above` holds too are not told twice.
void PrintFindings(const Prose& prose, const AssessmentTrace& trace, const AssessmentTrace* above,
                   const AssessedSite& site) {
    if (above != nullptr && SameFindings(trace, *above)) {
        prose.Line(2, prose.Word(words::SameList));
        prose.Blank();
        return;
    }
    if (trace.ReferenceSpecies) PrintCountedTaxa(prose, *trace.ReferenceSpecies, site);
    if (trace.Column) PrintFrequencyList(prose, *trace.Column, site);
}

void PrintAssessment(const Prose& prose, const ExplainedAssessment& assessment, const AssessmentTrace* above,
                     const AssessedSite& site, const Explanation& calculation) {
    const AssessmentTrace& trace = assessment.Trace;
    prose.Title(prose.Word(assessment.KAOnly ? words::AssessmentOfDiatoms : words::Assessment));
    PrintClass(prose, trace);
    PrintStored(prose, assessment);
    PrintEnd(prose, assessment);
    if (trace.ReferenceSpecies) PrintGroup(prose, *trace.ReferenceSpecies);
    prose.Blank();
    if (trace.Overall && trace.Overall->Count > 0 && !ListMissing(trace)) PrintOverall(prose, trace);
    if (trace.Trophic) PrintIndexModule(prose, AssessmentModule::Trophic, *trace.Trophic, assessment);
    if (trace.Saprobic) PrintIndexModule(prose, AssessmentModule::Saprobic, *trace.Saprobic, assessment);
    if (trace.ReferenceSpecies) PrintReferenceSpecies(prose, *trace.ReferenceSpecies, trace);
    PrintFindings(prose, trace, above, site);
    PrintIndices(prose, assessment, calculation);
    PrintDifferences(prose, assessment);
}

}  // namespace

std::string ClassText(const Prose& prose, std::int16_t OEZK, const std::string& name) {
    const std::string number = prose.Exact(OEZK);
    if (name.empty()) return number;
    // Names with brackets of their own, like those of the example tables, would stand in two pairs.
    return name.find('(') == std::string::npos ? number + " (" + name + ")" : number + ", " + name;
}

std::string NameOfTaxon(const AssessedSite& site, std::int32_t ID_ART, bool CF) {
    const auto found = site.Taxa.find(ID_ART);
    const bool known = found != site.Taxa.end() && !found->second.empty();
    return (known ? found->second : "ID_ART " + store::NumberText(ID_ART)) + (CF ? " cf." : "");
}

double CountOf(const ReferenceSpeciesTrace& species, std::string_view column) {
    for (const CountTrace& count : species.Counts) {
        if (count.Column == column) return count.Result;
    }
    return 0;
}

void PrintAssessments(std::ostream& out, const AssessedSite& site, const Explanation& calculation,
                      std::int16_t SprachID) {
    const Prose prose(out, SprachID);
    if (site.Failed) {
        prose.Line(0, prose.Word(words::SiteNotReadable, {FailureText(*site.Failed)}));
        prose.Blank();
    } else if (site.Assessments.empty()) {
        prose.Line(0, prose.Word(words::NoAssessment));
        if (site.LastRun) prose.Line(2, prose.Word(words::LastRunFailed, {FailureText(*site.LastRun)}));
        prose.Blank();
    }
    const AssessmentTrace* above = nullptr;
    for (const ExplainedAssessment& assessment : site.Assessments) {
        PrintAssessment(prose, assessment, above, site, calculation);
        above = &assessment.Trace;
    }
}

}  // namespace FX_Algen::cli
