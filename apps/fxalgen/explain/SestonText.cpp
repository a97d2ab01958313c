#include "fxalgen/explain/SestonText.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/explain/Prose.h"
#include "fxalgen/record/Seston.h"

namespace FX_Algen::cli {

namespace {

/// A valence with the columns that its sum leads to.
struct Level {
    std::string_view Column;
    std::string_view Cumulated;
    std::string_view Letter;
};

constexpr std::array<Level, 4> Levels{{{"Oligo", "KumOligo", "o"},
                                       {"Beta", "KumBeta", "b"},
                                       {"Alpha", "KumAlpha", "a"},
                                       {"Poly", "KumPoly", "p"}}};

std::int16_t WordOf(SestonRule rule) {
    switch (rule) {
        case SestonRule::NoAbundance:
            return words::SestonNoAbundance;
        case SestonRule::NotInCatalogue:
            return words::NotInCatalogue;
        case SestonRule::FailedHere:
            return words::FailedHere;
        case SestonRule::NotCalculated:
            break;
    }
    return words::NotCalculated;
}

std::string NameOf(const std::string& taxon, std::int32_t ID_ART, bool CF) {
    return (taxon.empty() ? "ID_ART " + store::NumberText(ID_ART) : taxon) + (CF ? " cf." : "");
}

std::string PlaceOf(const std::string& PSBez, std::int32_t ID_PS) {
    return PSBez.empty() ? "ID_PS " + store::NumberText(ID_PS) : PSBez;
}

double SumOf(const double (&valences)[4]) { return valences[0] + valences[1] + valences[2] + valences[3]; }

/// Writes one explanation; holds it with the language so that the parts need not pass them on.
class Writer {
public:
    Writer(std::ostream& out, const SestonExplanation& seston, std::int16_t SprachID)
        : prose_(out, SprachID), seston_(seston) {}

    void Findings() const;
    void LeftOut() const;
    void Index() const;
    void Dispersion() const;
    void Distribution() const;
    void Diversity() const;
    void Counts() const;
    void State() const;

    const Prose& Text() const { return prose_; }

private:
    std::string Remark(const SestonTerm& term) const;
    /// The calculated value of a column; Null where the calculation did not come so far.
    store::Value Result(std::string_view column) const;
    store::Value Stored(std::string_view column) const;
    bool IsZero(std::string_view column) const;
    std::string Calculated(std::string_view column) const;
    /// "Column = formula = result; stored: …". Without a result there is no formula either.
    void Formula(std::string_view column, const std::string& formula) const;
    /// "Column = 0 (why); stored: …", where the formula has nothing to divide by.
    void Without(std::string_view column, std::int16_t why) const;
    std::string StoredPart(std::string_view column) const;
    std::string Number(const std::optional<double>& value) const;
    void Unrated() const;

    Prose prose_;
    const SestonExplanation& seston_;
};

store::Value Writer::Result(std::string_view column) const {
    for (const ExplainedColumn& one : seston_.Columns) {
        if (one.Column == column) return one.Result;
    }
    return {};
}

store::Value Writer::Stored(std::string_view column) const {
    for (const ExplainedColumn& one : seston_.Columns) {
        if (one.Column == column) return one.Stored;
    }
    return {};
}

bool Writer::IsZero(std::string_view column) const {
    const store::Value value = Result(column);
    return !value.IsNull() && value.R8() == 0;
}

std::string Writer::Calculated(std::string_view column) const {
    const store::Value value = Result(column);
    return value.IsNull() ? prose_.Word(words::NotReached) : prose_.Exact(value);
}

std::string Writer::StoredPart(std::string_view column) const {
    const store::Value value = Stored(column);
    return "; " + (value.IsNull() ? prose_.Word(words::NotStored)
                                  : prose_.Word(words::Stored, {prose_.Exact(value)}));
}

std::string Writer::Number(const std::optional<double>& value) const {
    return value ? prose_.Short(*value) : prose_.Word(words::NotReached);
}

void Writer::Formula(std::string_view column, const std::string& formula) const {
    const bool reached = !Result(column).IsNull();
    prose_.Line(2, std::string(column) + (reached ? " = " + formula + " = " : ": ") + Calculated(column) +
                       StoredPart(column));
}

void Writer::Without(std::string_view column, std::int16_t why) const {
    prose_.Line(2, std::string(column) + (Result(column).IsNull() ? ": " : " = ") + Calculated(column) + " " +
                       prose_.Word(why) + StoredPart(column));
}

std::string Writer::Remark(const SestonTerm& term) const {
    std::string text;
    const auto add = [&](std::int16_t word) { text += (text.empty() ? "" : "; ") + prose_.Word(word); };
    const double valences = SumOf(term.Valenzen);
    if (!(term.W_SI > 0)) add(words::WithoutSI);
    // A taxon without any value says it once.
    if (valences == 0 && term.W_SI > 0) add(words::WithoutValences);
    if (valences != 0 && valences != 10) add(words::ValencesNotTen);
    return text;
}

void Writer::Findings() const {
    if (seston_.Terms.empty()) {
        prose_.Line(2, prose_.Word(words::NoSeston));
        prose_.Blank();
        return;
    }
    std::vector<const SestonTerm*> terms;
    for (const SestonTerm& term : seston_.Terms) terms.push_back(&term);
    std::stable_sort(terms.begin(), terms.end(), [](const SestonTerm* left, const SestonTerm* right) {
        return left->Abundanz > right->Abundanz;
    });
    prose_.Line(2, prose_.Word(words::SestonFunde));
    prose_.Blank();
    Table table;
    table.AddColumn(prose_.Word(words::Taxon), Table::Align::Left);
    table.AddColumn(prose_.Word(words::Fundort), Table::Align::Left);
    for (const std::int16_t word : {words::SestonAbundanz, words::Anteil}) {
        table.AddColumn(prose_.Word(word), Table::Align::Right);
    }
    table.AddColumn("SI", Table::Align::Right);
    for (const std::int16_t word : {words::AbundanzSI, words::ValenzenOBAP, words::PLnP}) {
        table.AddColumn(prose_.Word(word), Table::Align::Right);
    }
    table.AddColumn(prose_.Word(words::Bemerkung), Table::Align::Left);
    const double all = seston_.AbundanceSum.value_or(0);
    for (const SestonTerm* term : terms) {
        std::string valences;
        for (const double valence : term->Valenzen) {
            valences += (valences.empty() ? "" : "/") + prose_.Exact(valence);
        }
        table.AddRow({NameOf(term->Taxon, term->ID_ART, term->CF), PlaceOf(term->PSBez, term->ID_PS),
                      prose_.Exact(term->Abundanz),
                      all > 0 ? prose_.Number(term->Abundanz / all * 100, 2) : "-", prose_.Exact(term->W_SI),
                      prose_.Number(term->ValueTerm, 2), valences,
                      term->EntropyTerm ? prose_.Number(*term->EntropyTerm) : "-", Remark(*term)});
    }
    table.Print(prose_.Out(), 4);
    prose_.Blank();
}

void Writer::LeftOut() const {
    if (seston_.LeftOut.empty()) return;
    prose_.Line(2, prose_.Word(words::NichtGezaehlt));
    prose_.Blank();
    Table table;
    table.AddColumn(prose_.Word(words::Taxon), Table::Align::Left);
    table.AddColumn(prose_.Word(words::Fundort), Table::Align::Left);
    table.AddColumn(prose_.Word(words::SestonAbundanz), Table::Align::Right);
    table.AddColumn(prose_.Word(words::Grund), Table::Align::Left);
    for (const SestonOmission& one : seston_.LeftOut) {
        table.AddRow({NameOf(one.Taxon, one.ID_ART, one.CF), PlaceOf(one.PSBez, one.ID_PS),
                      one.Abundanz ? prose_.Exact(*one.Abundanz) : prose_.Word(words::NotEntered),
                      prose_.Word(WordOf(one.Rule))});
    }
    table.Print(prose_.Out(), 4);
    prose_.Blank();
}

/// What of the abundance has no value, since that moves the index without saying anything of the water.
void Writer::Unrated() const {
    double unrated = 0;
    for (const SestonTerm& term : seston_.Terms) {
        if (!(term.W_SI > 0)) unrated += term.Abundanz;
    }
    if (unrated == 0 || !seston_.ValueSum || !seston_.AbundanceSum) return;
    const double rated = *seston_.AbundanceSum - unrated;
    if (!(rated > 0)) return;
    prose_.Line(2,
                prose_.Word(words::UnratedShare, {prose_.Short(unrated), prose_.Short(*seston_.AbundanceSum),
                                                  prose_.Number(*seston_.ValueSum / rated, 2)}));
}

void Writer::Index() const {
    prose_.Title(prose_.Word(words::SapIndex));
    if (seston_.AbundanceSum)
        prose_.Line(2, prose_.Word(words::SumAbundance, {Number(seston_.AbundanceSum)}));
    if (seston_.ValueSum) prose_.Line(2, prose_.Word(words::SumValue, {Number(seston_.ValueSum)}));
    if (seston_.AbundanceSum && !(*seston_.AbundanceSum > 0)) {
        Without("SapIndex", words::NoAbundanceNoIndex);
    } else if (IsZero("SapIndex")) {
        Without("SapIndex", words::NoRatedTaxon);
    } else {
        Formula("SapIndex", Number(seston_.ValueSum) + " / " + Number(seston_.AbundanceSum));
        Unrated();
    }
    prose_.Blank();
}

void Writer::Dispersion() const {
    prose_.Title(prose_.Word(words::SestonStreuung));
    if (seston_.RatedRows && *seston_.RatedRows < 2) {
        Without("SI_Streuung", words::FewRated);
    } else if (seston_.SquareSum && seston_.RatedRows && seston_.AbundanceSum) {
        const std::string rated = std::to_string(*seston_.RatedRows);
        prose_.Line(2, prose_.Word(words::DispersionBasis, {Number(seston_.SquareSum), rated}));
        Formula("SI_Streuung", "√(" + Number(seston_.SquareSum) + " / ((" + rated + " - 1) × " +
                                   Number(seston_.AbundanceSum) + "))");
    } else if (IsZero("SI_Streuung")) {
        Without("SI_Streuung", words::NoDispersion);
    } else {
        Formula("SI_Streuung", {});
    }
    prose_.Blank();
}

void Writer::Distribution() const {
    prose_.Title(prose_.Word(words::SestonValenzen));
    std::optional<double> sum = 0;
    for (const std::optional<double>& one : seston_.ValenceSums) {
        sum = one && sum ? std::optional(*sum + *one) : std::nullopt;
    }
    const auto& sums = seston_.ValenceSums;
    if (sum) {
        prose_.Line(2, prose_.Word(words::SumValences, {Number(sums[0]), Number(sums[1]), Number(sums[2]),
                                                        Number(sums[3]), Number(sum)}));
    }
    if (sum && !(*sum > 0)) {
        prose_.Line(2, prose_.Word(words::NoDistribution));
        prose_.Blank();
        return;
    }
    for (std::size_t i = 0; i < Levels.size(); ++i) {
        Formula(Levels[i].Column, Number(sums[i]) + " / " + Number(sum) + " × 10");
    }
    for (std::size_t i = 0; i < Levels.size(); ++i) {
        Formula(Levels[i].Cumulated,
                i == 0 ? std::string(Levels[i].Column)
                       : Calculated(Levels[i - 1].Cumulated) + " + " + Calculated(Levels[i].Column));
    }
    prose_.Blank();
}

void Writer::Diversity() const {
    prose_.Title(prose_.Word(words::SestonDiversitaet));
    Formula("Abundanzsumme", "N");
    if (seston_.EntropySum) prose_.Line(2, prose_.Word(words::SumEntropy, {Number(seston_.EntropySum)}));
    Formula("ShannonundWeaver", "H");
    const store::Value taxa = Result("Taxa");
    const std::string S = Calculated("Taxa");
    const std::string N = Number(seston_.AbundanceSum);
    if (seston_.AbundanceSum && !(*seston_.AbundanceSum > 1)) {
        Without("MArgalef", words::FewAbundance);
    } else {
        Formula("MArgalef", "(S - 1) / ln(N) = (" + S + " - 1) / ln(" + N + ")");
    }
    if (!taxa.IsNull() && !(taxa.R8() > 1)) {
        Without("Eveness", words::FewTaxa);
    } else {
        Formula("Eveness", "H / ln(S) = " + Calculated("ShannonundWeaver") + " / ln(" + S + ")");
    }
    prose_.Blank();
}

void Writer::Counts() const {
    prose_.Title(prose_.Word(words::Taxazahlen));
    if (seston_.Counts.empty()) prose_.Line(2, prose_.Word(words::NotReached));
    for (const ExplainedCount& count : seston_.Counts) {
        prose_.Line(2, count.Column + (count.Result.IsNull() ? ": " : " = ") + Calculated(count.Column) +
                           StoredPart(count.Column));
        std::string names;
        for (const ExplainedCount::Taxon& taxon : count.Taxa) {
            names += (names.empty() ? "" : ", ") + NameOf(taxon.Name, taxon.ID_ART, false);
        }
        if (!names.empty()) prose_.Line(4, names);
    }
    prose_.Blank();
}

void Writer::State() const {
    if (seston_.Failed) {
        prose_.Line(0,
                    prose_.Word(words::CalculationFailed, {seston_.Failed->Description + " (" +
                                                           store::NumberText(seston_.Failed->Number) + ")"}));
    }
    switch (seston_.Stored) {
        case StoredResult::Missing:
            prose_.Line(0, prose_.Word(words::StateMissing));
            return;
        case StoredResult::Current:
            // The row of a calculation that fails is the same each time, and never whole.
            prose_.Line(0, prose_.Word(seston_.Failed ? words::StateIncomplete : words::StateCurrent));
            return;
        case StoredResult::OutOfDate:
            break;
    }
    prose_.Title(prose_.Word(words::StateOutOfDate));
    Table table;
    table.AddColumn(prose_.Word(words::Feld), Table::Align::Left);
    table.AddColumn(prose_.Word(words::Jetzt), Table::Align::Right);
    table.AddColumn(prose_.Word(words::Gespeichert), Table::Align::Right);
    for (const ExplainedColumn& column : seston_.Columns) {
        if (!column.Differs) continue;
        table.AddRow({column.Column, prose_.Exact(column.Result), prose_.Exact(column.Stored)});
    }
    table.Print(prose_.Out(), 2);
}

}  // namespace

std::optional<SestonExplanation> ReadSeston(const store::DatabasePtr& database, std::int32_t ID_TR) {
    SestonExplanation seston = ExplainSeston(database, ID_TR);
    const bool any = !seston.Terms.empty() || !seston.LeftOut.empty();
    if (any || seston.Stored == StoredResult::OutOfDate || IstSestonBeprobt(*database, ID_TR)) return seston;
    return std::nullopt;
}

void PrintSeston(std::ostream& out, const SestonExplanation& seston, std::int16_t SprachID) {
    const Writer writer(out, seston, SprachID);
    writer.Text().Title(writer.Text().Word(words::Seston));
    writer.Findings();
    writer.LeftOut();
    writer.Index();
    writer.Dispersion();
    writer.Distribution();
    writer.Diversity();
    writer.Counts();
    writer.State();
}

}  // namespace FX_Algen::cli
