#include "fxalgen/explain/ExplanationText.h"

#include <algorithm>
#include <ostream>

#include "FX_Algen/Texts.h"
#include "fxalgen/Table.h"
#include "fxalgen/Utf8.h"
#include "fxalgen/Words.h"

namespace FX_Algen::cli {

namespace {

constexpr SampleBlock Blocks[] = {SampleBlock::Macroalgae, SampleBlock::MixedStands, SampleBlock::Valves};
constexpr std::string_view QuantityIndex = "AMI";
constexpr std::size_t LineWidth = 100;

std::int16_t WordOf(SampleBlock block) {
    switch (block) {
        case SampleBlock::Macroalgae:
            return words::Makroalgen;
        case SampleBlock::MixedStands:
            return words::Mischbestaende;
        case SampleBlock::Valves:
            break;
    }
    return words::Schalenblock;
}

/// Caption of what a finding's abundance is, by its block.
std::int16_t AbundanceWord(SampleBlock block) {
    switch (block) {
        case SampleBlock::Macroalgae:
            return words::Deckung;
        case SampleBlock::MixedStands:
            return words::ImBestand;
        case SampleBlock::Valves:
            break;
    }
    return words::Schalen;
}

std::optional<std::int16_t> WordOf(TermRemark remark) {
    switch (remark) {
        case TermRemark::WeightZero:
            return words::WeightZero;
        case TermRemark::ValueZero:
            return words::ValueZero;
        case TermRemark::StandWithoutCover:
            return words::StandWithoutCover;
        case TermRemark::None:
            break;
    }
    return std::nullopt;
}

std::int16_t WordOf(LeftOutRule rule) {
    switch (rule) {
        case LeftOutRule::NoAbundance:
            return words::NoAbundance;
        case LeftOutRule::NoRatings:
            return words::NoRatings;
        case LeftOutRule::NoAlgenart:
            return words::NoAlgenart;
        case LeftOutRule::NoTotalCover:
            return words::NoTotalCover;
        case LeftOutRule::NoLayer:
            return words::NoLayer;
        case LeftOutRule::OtherLebensform:
            return words::OtherLebensform;
        case LeftOutRule::OtherMajorGroup:
            return words::OtherMajorGroup;
        case LeftOutRule::NoTaxonomy:
            return words::NoTaxonomy;
        case LeftOutRule::DiatomsOnly:
            return words::DiatomsOnly;
        case LeftOutRule::FailedHere:
            return words::FailedHere;
        case LeftOutRule::NotCalculated:
            break;
    }
    return words::NotCalculated;
}

std::optional<std::int16_t> TitleOf(std::string_view column) {
    constexpr std::pair<std::string_view, std::int16_t> Titles[] = {
        {"SapIndex", words::SapIndex},
        {"SapIndex_KA", words::SapIndex_KA},
        {"TI", words::TI},
        {"TI_N", words::TI_N},
        {"TI_KA", words::TI_KA},
        {QuantityIndex, words::AMI},
    };
    for (const auto& [name, word] : Titles) {
        if (name == column) return word;
    }
    return std::nullopt;
}

std::string TaxonName(const std::string& name, std::int32_t ID_ART) {
    return name.empty() ? "ID_ART " + store::NumberText(ID_ART) : name;
}

/// Writes one explanation; holds the language so that the parts need not pass it on.
class Writer {
public:
    Writer(std::ostream& out, std::int16_t SprachID) : out_(out), SprachID_(SprachID) {}

    void Head(const Teilraum& teilraum) const;
    void Variant(const Explanation& explanation) const;
    void Basis(const Explanation& explanation) const;
    void Index(const ExplainedIndex& index) const;
    void Classes(const Explanation& explanation) const;
    void Counts(const Explanation& explanation) const;
    void State(const Explanation& explanation) const;

private:
    std::string Word(std::int16_t offset) const { return Text(offset, SprachID_); }
    std::string Number(double value, std::int16_t places = 4) const {
        return DisplayNumber(value, places, SprachID_);
    }
    std::string NumberOr(std::optional<double> value, std::int16_t word) const {
        return value ? Number(*value) : Word(word);
    }
    void BasisLine(std::int16_t caption, const std::optional<store::Value>& value) const;
    /// All digits that the value holds.
    std::string Exact(const store::Value& value) const;
    std::string Taxon(const ExplainedFinding& finding) const;
    static std::string Place(const ExplainedFinding& finding);

    void Title(const std::string& text) const { out_ << text << "\n\n"; }
    void Terms(const ExplainedIndex& index, SampleBlock block) const;
    void QuantityTerms(const ExplainedIndex& index, SampleBlock block) const;
    void Omissions(const ExplainedIndex& index) const;
    void Sum(const ExplainedIndex& index) const;
    void TaxaLines(const ExplainedCount& count) const;

    std::ostream& out_;
    std::int16_t SprachID_;
};

std::string Writer::Exact(const store::Value& value) const {
    std::string text = DisplayText(value, SprachID_);
    if (SprachID_ < Language::English) std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::string Writer::Taxon(const ExplainedFinding& finding) const {
    // A whole stand in the quantity index has no taxon.
    if (finding.ID_ART == 0) return Word(words::Bestand);
    return TaxonName(finding.Taxon, finding.ID_ART) + (finding.CF ? " cf." : "");
}

std::string Writer::Place(const ExplainedFinding& finding) {
    if (finding.ID_TR_MI) {
        return finding.MI_Bez.empty() ? "ID_TR_MI " + store::NumberText(*finding.ID_TR_MI) : finding.MI_Bez;
    }
    if (finding.ID_PS) {
        return finding.PSBez.empty() ? "ID_PS " + store::NumberText(*finding.ID_PS) : finding.PSBez;
    }
    return {};
}

void Writer::Head(const Teilraum& teilraum) const {
    std::string names;
    for (const store::Value* name :
         {&teilraum.PRJBez, &teilraum.ABBez, &teilraum.USBez, &teilraum.USDatumVon, &teilraum.TRBez}) {
        if (!name->IsNull()) names += (names.empty() ? "" : " / ") + DisplayText(*name, SprachID_);
    }
    Title(Word(words::Teilraum) + " " + store::NumberText(teilraum.ID_TR) +
          (names.empty() ? "" : ": " + names));
}

void Writer::Variant(const Explanation& explanation) const {
    if (explanation.IstWRRL) out_ << Word(words::Variant) << "\n\n";
}

/// A line of the basis. A cover that was not entered has no unit behind it.
void Writer::BasisLine(std::int16_t caption, const std::optional<store::Value>& value) const {
    const std::string line = Word(caption);
    out_ << "  "
         << (value ? With(caption, SprachID_, Exact(*value))
                   : line.substr(0, line.find('|')) + Word(words::NotEntered))
         << '\n';
}

void Writer::Basis(const Explanation& explanation) const {
    Title(Word(words::Grundlagen));
    BasisLine(words::TotalCover, explanation.DG_Gesamt);
    BasisLine(words::MacroalgaeCover, explanation.DG_Makroalgen);
    BasisLine(words::CountedValves, explanation.Schalen);
    // The classic variant relates the diatoms to all counted valves.
    if (explanation.IstWRRL) BasisLine(words::RelatedValves, explanation.Summe_KA);
    out_ << '\n';
    if (explanation.Stands.empty()) return;
    Table table;
    table.AddColumn(Word(words::Bestand), Table::Align::Left);
    table.AddColumn(Word(words::Deckung), Table::Align::Right);
    table.AddColumn(Word(words::Anteil), Table::Align::Right);
    for (const ExplainedStand& stand : explanation.Stands) {
        table.AddRow({stand.MI_Bez.empty() ? "ID_TR_MI " + store::NumberText(stand.ID_TR_MI) : stand.MI_Bez,
                      NumberOr(stand.CoverPercent, words::NotEntered),
                      NumberOr(stand.SharePercent, words::NotReached)});
    }
    table.Print(out_, 2);
    out_ << '\n';
}

void Writer::Index(const ExplainedIndex& index) const {
    const auto title = TitleOf(index.Column);
    Title((title ? Word(*title) + " " : std::string()) + "(" + index.Column + ")");
    if (index.Terms.empty() && index.LeftOut.empty()) out_ << "  " << Word(words::NoFindings) << "\n\n";
    for (const SampleBlock block : Blocks) {
        const bool any = std::any_of(index.Terms.begin(), index.Terms.end(),
                                     [&](const ExplainedTerm& term) { return term.Block == block; });
        if (!any) continue;
        out_ << "  " << Word(WordOf(block)) << "\n\n";
        index.Column == QuantityIndex ? QuantityTerms(index, block) : Terms(index, block);
    }
    Omissions(index);
    Sum(index);
}

void Writer::Terms(const ExplainedIndex& index, SampleBlock block) const {
    Table table;
    table.AddColumn(Word(words::Taxon), Table::Align::Left);
    table.AddColumn(Word(words::Fundort), Table::Align::Left);
    for (const std::int16_t word : {AbundanceWord(block), words::Anteil, words::Gewicht, words::Wert,
                                    words::Gewichtung, words::GewichtungWert}) {
        table.AddColumn(Word(word), Table::Align::Right);
    }
    table.AddColumn(Word(words::Bemerkung), Table::Align::Left);
    for (const ExplainedTerm& term : index.Terms) {
        if (term.Block != block) continue;
        const auto remark = WordOf(term.Remark);
        table.AddRow({Taxon(term.Finding), Place(term.Finding), Exact(term.Abundance),
                      Number(term.SharePercent), Exact(term.Weight), Exact(term.Value),
                      Number(term.WeightTerm), Number(term.ValueTerm),
                      remark ? Word(*remark) : std::string()});
    }
    table.Print(out_, 4);
    out_ << '\n';
}

void Writer::QuantityTerms(const ExplainedIndex& index, SampleBlock block) const {
    Table table;
    table.AddColumn(Word(words::Taxon), Table::Align::Left);
    table.AddColumn(Word(words::Fundort), Table::Align::Left);
    for (const std::int16_t word : {words::Deckung, words::Schichtdicke, words::Beitrag}) {
        table.AddColumn(Word(word), Table::Align::Right);
    }
    for (const ExplainedTerm& term : index.Terms) {
        if (term.Block != block) continue;
        table.AddRow({Taxon(term.Finding), Place(term.Finding), Exact(term.Abundance), Exact(term.Weight),
                      Number(term.ValueTerm)});
    }
    table.Print(out_, 4);
    out_ << '\n';
}

void Writer::Omissions(const ExplainedIndex& index) const {
    if (index.LeftOut.empty()) return;
    out_ << "  " << Word(words::NichtGezaehlt) << "\n\n";
    Table table;
    for (const std::int16_t word : {words::Taxon, words::Fundort, words::Gruppe, words::Grund}) {
        table.AddColumn(Word(word), Table::Align::Left);
    }
    for (const ExplainedOmission& omission : index.LeftOut) {
        table.AddRow({Taxon(omission.Finding), Place(omission.Finding), Word(WordOf(omission.Block)),
                      Word(WordOf(omission.Rule))});
    }
    table.Print(out_, 4);
    out_ << '\n';
}

void Writer::Sum(const ExplainedIndex& index) const {
    out_ << "  " << index.Column;
    if (index.Result.IsNull()) {
        out_ << ": " << Word(words::NotReached);
    } else if (index.Column == QuantityIndex) {
        out_ << " = " << Exact(index.Result);
    } else if (index.WeightSum.value_or(0) > 0) {
        out_ << " = " << NumberOr(index.ValueSum, words::NotReached) << " / " << Number(*index.WeightSum)
             << " = " << Exact(index.Result);
    } else {
        out_ << " = " << Exact(index.Result) << ' ' << Word(words::NoWeight);
    }
    out_ << "; "
         << (index.Stored.IsNull() ? Word(words::NotStored)
                                   : With(words::Stored, SprachID_, Exact(index.Stored)))
         << "\n\n";
}

void Writer::Classes(const Explanation& explanation) const {
    Title(Word(words::Klassen));
    Table rows;
    rows.AddColumn(Word(words::Taxon), Table::Align::Left);
    rows.AddColumn(Word(words::Gruppe), Table::Align::Left);
    rows.AddColumn("SI", Table::Align::Right);
    rows.AddColumn(Word(words::Klasse), Table::Align::Left);
    rows.AddColumn(Word(words::Bemerkung), Table::Align::Left);
    for (const ExplainedClassRow& row : explanation.ClassRows) {
        const bool inClass = row.Class && *row.Class < explanation.Classes.size();
        std::string remark;
        if (row.Rule == ClassRule::NoClass) remark = Word(words::NoClass);
        if (row.Rule == ClassRule::SameTaxon) remark = Word(words::SameTaxon);
        rows.AddRow({TaxonName(row.Taxon, row.ID_ART), Word(WordOf(row.Block)), Exact(row.SI),
                     inClass ? explanation.Classes[*row.Class].Name : "-", remark});
    }
    if (!explanation.ClassRows.empty()) {
        rows.Print(out_, 2);
        out_ << '\n';
    }
    Table classes;
    classes.AddColumn(Word(words::Klasse), Table::Align::Left);
    classes.AddColumn(Word(words::Anzahl), Table::Align::Right);
    classes.AddColumn(Word(words::Gespeichert), Table::Align::Right);
    for (const ExplainedClass& one : explanation.Classes) {
        classes.AddRow(
            {one.Name, one.Result.IsNull() ? Word(words::NotReached) : Exact(one.Result), Exact(one.Stored)});
    }
    classes.Print(out_, 2);
    out_ << '\n';
}

/// The taxa of a count as lines of bounded width.
void Writer::TaxaLines(const ExplainedCount& count) const {
    std::string line = "     ";
    for (std::size_t i = 0; i < count.Taxa.size(); ++i) {
        const std::string name =
            TaxonName(count.Taxa[i].Name, count.Taxa[i].ID_ART) + (i + 1 < count.Taxa.size() ? "," : "");
        if (DisplayWidth(line) + DisplayWidth(name) + 1 > LineWidth && DisplayWidth(line) > 5) {
            out_ << line << '\n';
            line = "     ";
        }
        line += " " + name;
    }
    if (!count.Taxa.empty()) out_ << line << '\n';
}

void Writer::Counts(const Explanation& explanation) const {
    Title(Word(words::Taxazahlen));
    if (explanation.Counts.empty()) out_ << "  " << Word(words::NotReached) << '\n';
    for (const ExplainedCount& count : explanation.Counts) {
        out_ << "  " << count.Column;
        if (count.Result.IsNull()) {
            out_ << ": " << Word(words::NotReached);
        } else {
            out_ << " = " << Exact(count.Result);
        }
        out_ << "; "
             << (count.Stored.IsNull() ? Word(words::NotStored)
                                       : With(words::Stored, SprachID_, Exact(count.Stored)))
             << '\n';
        TaxaLines(count);
    }
    out_ << '\n';
}

void Writer::State(const Explanation& explanation) const {
    if (explanation.Failed) {
        out_ << With(words::CalculationFailed, SprachID_,
                     explanation.Failed->Description + " (" + store::NumberText(explanation.Failed->Number) +
                         ")")
             << '\n';
    }
    switch (explanation.State) {
        case StoredResult::Missing:
            out_ << Word(words::StateMissing) << '\n';
            return;
        case StoredResult::Current:
            // The row of a calculation that fails is the same each time, and never whole.
            out_ << Word(explanation.Failed ? words::StateIncomplete : words::StateCurrent) << '\n';
            return;
        case StoredResult::OutOfDate:
            break;
    }
    Title(Word(words::StateOutOfDate));
    Table table;
    table.AddColumn(Word(words::Feld), Table::Align::Left);
    table.AddColumn(Word(words::Jetzt), Table::Align::Right);
    table.AddColumn(Word(words::Gespeichert), Table::Align::Right);
    for (const ExplainedColumn& column : explanation.Columns) {
        if (column.Differs) table.AddRow({column.Column, Exact(column.Result), Exact(column.Stored)});
    }
    table.Print(out_, 2);
}

}  // namespace

void PrintExplanation(std::ostream& out, const Explanation& explanation, const Teilraum& teilraum,
                      std::int16_t SprachID, std::string_view assessments) {
    const Writer writer(out, SprachID);
    writer.Head(teilraum);
    out << assessments;
    writer.Variant(explanation);
    if (!explanation.Sampled) {
        out << Text(words::NoSample, SprachID) << '\n';
        return;
    }
    writer.Basis(explanation);
    for (const ExplainedIndex& index : explanation.Indices) writer.Index(index);
    writer.Classes(explanation);
    writer.Counts(explanation);
    writer.State(explanation);
}

void PrintHead(std::ostream& out, const Teilraum& teilraum, std::int16_t SprachID) {
    Writer(out, SprachID).Head(teilraum);
}

void PrintIndex(std::ostream& out, const ExplainedIndex& index, std::int16_t SprachID) {
    Writer(out, SprachID).Index(index);
}

}  // namespace FX_Algen::cli
