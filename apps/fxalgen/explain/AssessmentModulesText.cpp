// The modules in words: from index to class.
#include <algorithm>
#include <ostream>

#include "fxalgen/Words.h"
#include "fxalgen/explain/AssessmentParts.h"

namespace FX_Algen::cli {

namespace {

constexpr std::int16_t RatioPlaces = 6;

/// "awaWRRL_ETI (Taxagruppe = Alle, TGZK = mt)". The ratio of a lookup of class bounds is told elsewhere.
std::string Source(const ReferenceLookup& lookup) {
    std::string keys;
    for (const LookupKey& key : lookup.Keys) {
        if (key.Column == "EQR") continue;
        keys += (keys.empty() ? "" : ", ") + key.Column + " = " + key.Value;
    }
    return lookup.Table + " (" + keys + ")";
}

/// A number inside a formula; a negative one in brackets.
std::string Operand(const Prose& prose, float value) {
    const std::string text = prose.Exact(value);
    return value < 0 ? "(" + text + ")" : text;
}

void PrintLookup(const Prose& prose, std::int16_t caption, const ReferenceLookup& lookup) {
    if (lookup.Result.IsNull()) {
        // Either the row is there and empty, or its statement failed; nothing was put in its place.
        prose.Line(4, prose.Word(caption) + ": " +
                          (lookup.Found
                               ? prose.Word(words::LookedUp, {prose.Word(words::NotEntered), Source(lookup)})
                               : prose.Word(words::NotReached)));
        return;
    }
    const std::int16_t word = lookup.Found ? words::LookedUp : words::RowMissing;
    prose.Line(4, prose.Word(caption) + ": " +
                      (lookup.Found ? prose.Word(word, {prose.Exact(lookup.Result), Source(lookup)})
                                    : prose.Word(word, {Source(lookup), prose.Exact(lookup.Result)})));
}

void PrintExpectedValue(const Prose& prose, const ReferenceLookup& lookup, float used) {
    PrintLookup(prose, words::ExpectedValue, lookup);
    if (!lookup.Found || lookup.Result.IsNull() || lookup.Result.R4() == used) return;
    prose.Line(6, prose.Word(words::ExpectedRounded, {prose.Exact(used)}));
}

/// The end of a line with the ratio: what became of the unrounded number.
std::string Rounded(const Prose& prose, const RatioTrace& ratio) {
    std::string text = prose.Number(*ratio.Unrounded, RatioPlaces) +
                       prose.Word(words::RoundedTo, {prose.Short(ratio.BeforeCap, 2)});
    if (ratio.BeforeCap > 1) text += prose.Word(words::Capped);
    return text;
}

void PrintHit(const Prose& prose, const ClassLookup& lookup) {
    if (lookup.Lookup.Found && lookup.Lookup.Result.IsNull()) {
        PrintLookup(prose, words::OEZK, lookup.Lookup);
        return;
    }
    if (!lookup.Hit) {
        prose.Line(4, prose.Word(words::NoRowOfBounds, {prose.Exact(lookup.EQR), Source(lookup.Lookup)}));
        return;
    }
    prose.Line(4, prose.Word(words::RowOfBounds, {prose.Exact(lookup.OEZK), prose.Exact(lookup.EQR),
                                                  prose.Exact(lookup.Hit->EQRMin),
                                                  prose.Exact(lookup.Hit->EQRMax), Source(lookup.Lookup)}));
    for (const ClassBounds& other : lookup.AlsoFitting) {
        prose.Line(6, prose.Word(words::AlsoFitting, {prose.Exact(other.OEZK), prose.Exact(other.EQRMin),
                                                      prose.Exact(other.EQRMax)}));
    }
}

void PrintClasses(const Prose& prose, const RatioTrace& ratio, bool raised) {
    if (ratio.Class.Lookup.Table.empty()) return;
    PrintHit(prose, ratio.Class);
    if (!raised) return;
    if (ratio.Raised.Hit) {
        prose.Line(
            4, prose.Word(words::RaisedRow,
                          {prose.Exact(ratio.Raised.OEZK), prose.Exact(ratio.Raised.EQR),
                           prose.Exact(ratio.Raised.Hit->EQRMin), prose.Exact(ratio.Raised.Hit->EQRMax)}));
    } else {
        prose.Line(4, prose.Word(words::NoRaisedRow, {prose.Exact(ratio.Raised.EQR)}));
    }
}

void PrintModuleTitle(const Prose& prose, std::int16_t module, const RatioTrace& ratio, bool done,
                      const std::string& name) {
    std::string result = prose.Word(words::NotReached);
    if (done && ratio.Class.OEZK < 0) result = prose.Word(words::NoClassFound);
    if (done && ratio.Class.OEZK >= 0) {
        result = prose.Word(words::ClassOfModule, {ClassText(prose, ratio.Class.OEZK, name)});
    }
    prose.Title(prose.Word(words::TitleOfModule, {prose.Word(module), result}));
}

std::string NameOfClass(const AssessmentTrace& trace, AssessmentModule which) {
    return trace.Overall ? trace.Overall->ClassNames[static_cast<std::size_t>(which)] : std::string();
}

/// Whether the module came as far as to its index: one that fails at the expected value holds 0 there.
bool UsesIndex(const RatioTrace& ratio) { return ratio.Index != 0 || !ratio.Class.Lookup.Table.empty(); }

/// The measured index with its sums, as the run calculated it.
void PrintIndexLine(const Prose& prose, const IndexModuleTrace& module,
                    const ExplainedAssessment& assessment) {
    const auto index =
        std::find_if(assessment.Indices.begin(), assessment.Indices.end(),
                     [&](const ExplainedIndex& one) { return one.Column == module.IndexColumn; });
    if (index == assessment.Indices.end()) {
        prose.Line(4, prose.Word(words::Index) + ": " + prose.Exact(module.Ratio.Index));
        return;
    }
    std::string line = index->Column + " = ";
    if (index->WeightSum.value_or(0) > 0) {
        line += prose.Number(index->ValueSum.value_or(0)) + " / " + prose.Number(*index->WeightSum) + " = " +
                prose.Exact(index->Result);
    } else {
        line += prose.Exact(index->Result) + " " + prose.Word(words::NoWeight);
    }
    prose.Line(4, line);
    // The module takes the first row of the sub-habitat, whichever run left it.
    if (UsesIndex(module.Ratio) && !index->Result.IsNull() && index->Result.R4() != module.Ratio.Index) {
        prose.Line(6, prose.Word(words::IndexOfOtherRow, {prose.Exact(module.Ratio.Index)}));
    }
}

void PrintFractions(const Prose& prose, const ReferenceSpeciesTrace& species) {
    const bool all = species.Taxagruppe == "Alle";
    const std::string suffix = all ? "" : "_KA";
    const std::string whole = all ? "200" : "100";
    const auto value = [&](const std::string& column) {
        return prose.Short(CountOf(species, column + suffix));
    };
    prose.Line(4, "RI_Abundanz = AbundanzRefart" + suffix + " / (" + whole + " - (AbundanzGesamt" + suffix +
                      " - AbundanzArtniveau" + suffix + "))");
    prose.Line(16, "= " + value("AbundanzRefart") + " / (" + whole + " - (" + value("AbundanzGesamt") +
                       " - " + value("AbundanzArtniveau") + ")) = " + prose.Exact(species.RI_Abundanz));
    if (CountOf(species, "TaxazahlArtniveau" + suffix) > 0) {
        prose.Line(4, "RI_Anzahl = TaxazahlRefart" + suffix + " / TaxazahlArtniveau" + suffix + " = " +
                          value("TaxazahlRefart") + " / " + value("TaxazahlArtniveau") + " = " +
                          prose.Exact(species.RI_Anzahl));
    } else {
        prose.Line(4, prose.Word(words::NoSpeciesLevel, {"TaxazahlArtniveau" + suffix}));
    }
}

}  // namespace

void PrintIndexModule(const Prose& prose, AssessmentModule which, const IndexModuleTrace& module,
                      const ExplainedAssessment& assessment) {
    const RatioTrace& ratio = module.Ratio;
    PrintModuleTitle(prose, which == AssessmentModule::Trophic ? words::Trophie : words::Saprobie, ratio,
                     module.Done, NameOfClass(assessment.Trace, which));
    PrintLookup(prose, words::ReferenceClass, module.ReferenceClass);
    if (!module.ExpectedValue.Table.empty()) {
        PrintExpectedValue(prose, module.ExpectedValue, ratio.ExpectedValue);
        PrintIndexLine(prose, module, assessment);
    }
    if (ratio.Unrounded) {
        prose.Line(4, "EQR = (4 - " + Operand(prose, ratio.Index) + ") / (4 - " +
                          Operand(prose, ratio.ExpectedValue) + ") = " + Rounded(prose, ratio));
    } else if (!ratio.Class.Lookup.Table.empty()) {
        prose.Line(4, prose.Word(words::NoRatio));
    }
    PrintClasses(prose, ratio, !ratio.Raised.Lookup.Table.empty());
    prose.Blank();
}

void PrintReferenceSpecies(const Prose& prose, const ReferenceSpeciesTrace& species,
                           const AssessmentTrace& trace) {
    const RatioTrace& ratio = species.Ratio;
    PrintModuleTitle(prose, words::Referenzarten, ratio, species.Done,
                     NameOfClass(trace, AssessmentModule::ReferenceSpecies));
    // Without a lookup the run ended before or at the fractions.
    if (!species.Type.Table.empty()) {
        PrintFractions(prose, species);
        prose.Line(4, prose.Word(words::ReferenceIndex) + " = (" + prose.Exact(species.RI_Abundanz) + " + " +
                          prose.Exact(species.RI_Anzahl) + ") / 2 = " + prose.Exact(ratio.Index));
        PrintLookup(prose, words::Bioregionstyp, species.Type);
    }
    if (!species.ExpectedValue.Table.empty()) {
        PrintExpectedValue(prose, species.ExpectedValue, ratio.ExpectedValue);
    }
    if (ratio.Unrounded) {
        prose.Line(4, "EQR = " + Operand(prose, ratio.Index) + " / " + Operand(prose, ratio.ExpectedValue) +
                          " = " + Rounded(prose, ratio));
    }
    PrintClasses(prose, ratio, !ratio.Raised.Lookup.Table.empty());
    prose.Blank();
}

}  // namespace FX_Algen::cli
