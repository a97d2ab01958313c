// The findings in words: from the sample to the frequency list, and from there to the counts.
#include <algorithm>
#include <ostream>
#include <set>

#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/explain/AssessmentParts.h"

namespace FX_Algen::cli {

namespace {

std::string Label(const std::map<std::int32_t, std::string>& names, std::int32_t id, const char* key) {
    const auto found = names.find(id);
    if (found != names.end() && !found->second.empty()) return found->second;
    return key + (" " + store::NumberText(id));
}

std::int16_t WordOf(NotListed rule) {
    switch (rule) {
        case NotListed::NoTaxonomy:
            return words::NoMajorGroup;
        case NotListed::NoRatings:
            return words::NoRatings;
        case NotListed::OtherLebensform:
            return words::OtherLebensform;
        case NotListed::OtherMajorGroup:
            return words::OtherMajorGroup;
        case NotListed::OutOfScope:
            break;
    }
    return words::OutOfScope;
}

std::string NumberOr(const Prose& prose, const std::optional<double>& value) {
    return value ? prose.Number(*value) : "-";
}

std::string EnteredOr(const Prose& prose, const std::optional<double>& value) {
    return value ? prose.Exact(*value) : prose.Word(words::NotEntered);
}

void AddColumns(const Prose& prose, Table& table, std::initializer_list<std::int16_t> left,
                std::initializer_list<std::int16_t> right) {
    for (const std::int16_t word : left) table.AddColumn(prose.Word(word), Table::Align::Left);
    for (const std::int16_t word : right) table.AddColumn(prose.Word(word), Table::Align::Right);
}

bool Listed(const ListedFinding& finding, bool diatoms) {
    return !finding.LeftOut && finding.IsDiatom == diatoms;
}

bool Any(const FrequencyColumn& column, bool diatoms) {
    return std::any_of(column.Findings.begin(), column.Findings.end(),
                       [&](const ListedFinding& finding) { return Listed(finding, diatoms); });
}

void PrintDiatoms(const Prose& prose, const FrequencyColumn& column, const AssessedSite& site) {
    if (!Any(column, true)) return;
    prose.Line(2, prose.Word(words::Schalenblock));
    prose.Blank();
    Table table;
    AddColumns(prose, table, {words::Taxon, words::Fundort},
               {words::Schalen, words::Anteil, words::Haeufigkeit});
    for (const ListedFinding& finding : column.Findings) {
        if (!Listed(finding, true)) continue;
        table.AddRow({NameOfTaxon(site, finding.ID_ART, finding.CF),
                      Label(site.Places, finding.ID_PS, "ID_PS"), EnteredOr(prose, finding.Abundance),
                      NumberOr(prose, finding.Assigned), prose.Number(finding.Cell)});
    }
    table.Print(prose.Out(), 4);
    prose.Blank();
}

void PrintOthers(const Prose& prose, const FrequencyColumn& column, const AssessedSite& site) {
    if (!Any(column, false)) return;
    prose.Line(2, prose.Word(words::OtherAlgae));
    prose.Blank();
    Table table;
    AddColumns(prose, table, {words::Taxon, words::Fundort},
               {words::Deckung, words::Anteil, words::ImBestand, words::Dazu, words::Haeufigkeit});
    for (const ListedFinding& finding : column.Findings) {
        if (!Listed(finding, false)) continue;
        table.AddRow({NameOfTaxon(site, finding.ID_ART, finding.CF),
                      Label(site.Places, finding.ID_PS, "ID_PS"), EnteredOr(prose, finding.Abundance),
                      NumberOr(prose, finding.Assigned), "", "", prose.Number(finding.Cell)});
        for (const StandShare& stand : finding.FromStands) {
            table.AddRow({"", Label(site.Stands, stand.ID_TR_MI, "ID_TR_MI"), "",
                          prose.Number(stand.SharePercent), prose.Exact(stand.TaxonPercent),
                          prose.Number(stand.Added), ""});
        }
    }
    table.Print(prose.Out(), 4);
    prose.Blank();
}

void PrintLeftOut(const Prose& prose, const FrequencyColumn& column, const AssessedSite& site) {
    const bool any = std::any_of(column.Findings.begin(), column.Findings.end(),
                                 [](const ListedFinding& finding) { return finding.LeftOut.has_value(); });
    if (!any) return;
    prose.Line(2, prose.Word(words::NichtGezaehlt));
    prose.Blank();
    Table table;
    AddColumns(prose, table, {words::Taxon, words::Fundort, words::Grund}, {});
    for (const ListedFinding& finding : column.Findings) {
        if (!finding.LeftOut) continue;
        table.AddRow({NameOfTaxon(site, finding.ID_ART, finding.CF),
                      Label(site.Places, finding.ID_PS, "ID_PS"), prose.Word(WordOf(*finding.LeftOut))});
    }
    table.Print(prose.Out(), 4);
    prose.Blank();
}

/// "A", "A, B", "2 × A": how often a taxon counts as reference species.
std::string ReferenceType(const Prose& prose, const CountedTaxon& taxon) {
    std::string text;
    for (const auto& [times, name] : {std::pair(taxon.TypA, "A"), std::pair(taxon.TypB, "B")}) {
        if (times <= 0) continue;
        text += text.empty() ? "" : ", ";
        if (times > 1) text += prose.Exact(times) + " × ";
        text += name;
    }
    const std::int32_t all = taxon.TypA + taxon.TypB;
    return all > 1 ? text + prose.Word(words::CountsTimes, {prose.Exact(all)}) : text;
}

/// Whether a taxon stands there with and without cf., so that the counts are not those of the rows.
bool HasTaxonTwice(const std::vector<CountedTaxon>& taxa) {
    std::set<std::int32_t> seen;
    return std::any_of(taxa.begin(), taxa.end(),
                       [&](const CountedTaxon& taxon) { return !seen.insert(taxon.ID_ART).second; });
}

void PrintCounts(const Prose& prose, const ReferenceSpeciesTrace& species) {
    const auto count = [&](const std::string& column) -> std::string {
        for (const CountTrace& one : species.Counts) {
            if (one.Column == column) return prose.Short(one.Result);
        }
        return "-";
    };
    Table table;
    AddColumns(prose, table, {words::Counted}, {words::Gesamt, words::Artniveau, words::Referenzarten});
    const auto row = [&](std::int16_t caption, const std::string& what, const std::string& suffix) {
        table.AddRow({prose.Word(caption), count(what + "Gesamt" + suffix),
                      count(what + "Artniveau" + suffix), count(what + "Refart" + suffix)});
    };
    row(words::TaxaOfAll, "Taxazahl", "");
    row(words::TaxaOfDiatoms, "Taxazahl", "_KA");
    row(words::TaxaOfOthers, "Taxazahl", "NKA");
    row(words::AbundanceOfAll, "Abundanz", "");
    row(words::AbundanceOfDiatoms, "Abundanz", "_KA");
    row(words::AbundanceOfOthers, "Abundanz", "NKA");
    table.Print(prose.Out(), 4);
    prose.Blank();
}

}  // namespace

void PrintCountedTaxa(const Prose& prose, const ReferenceSpeciesTrace& species, const AssessedSite& site) {
    if (!species.Taxa.empty()) {
        prose.Line(2, prose.Word(words::CountedTaxa));
        prose.Blank();
        Table table;
        AddColumns(prose, table, {words::Taxon}, {words::Haeufigkeit, words::Grossgruppe});
        table.AddColumn(prose.Word(words::Kieselalge), Table::Align::Left);
        table.AddColumn(prose.Word(words::Artniveau), Table::Align::Left);
        table.AddColumn(prose.Word(words::Referenzart), Table::Align::Left);
        const auto yes = [&](bool is) { return prose.Word(is ? words::Ja : words::Nein); };
        for (const CountedTaxon& taxon : species.Taxa) {
            table.AddRow({NameOfTaxon(site, taxon.ID_ART, taxon.CF), prose.Number(taxon.Abundance),
                          taxon.ID_GRGR ? prose.Exact(*taxon.ID_GRGR) : "-", yes(taxon.IsDiatom),
                          yes(taxon.IsSpecies), ReferenceType(prose, taxon)});
        }
        table.Print(prose.Out(), 4);
        prose.Blank();
    }
    if (site.Site && !species.Counts.empty()) {
        prose.Line(
            4, site.Site->RefBioregion.empty()
                   ? prose.Word(words::TypBWithoutCondition)
                   : prose.Word(words::TypBCondition, {site.Site->RefBioregionen, site.Site->RefBioregion}));
        prose.Blank();
    }
    if (species.Counts.empty()) return;
    PrintCounts(prose, species);
    if (HasTaxonTwice(species.Taxa)) {
        prose.Line(4, prose.Word(words::WithAndWithoutCF));
        prose.Blank();
    }
}

void PrintFrequencyList(const Prose& prose, const FrequencyColumn& column, const AssessedSite& site) {
    prose.Title(prose.Word(words::FrequencyList));
    prose.Line(2, prose.Word(column.ValveSumCarried ? words::ValveSumCarried : words::ValveSum,
                             {prose.Exact(column.ValveSum)}));
    prose.Line(2, prose.Word(words::TotalCover, {prose.Exact(column.DG_Gesamt)}));
    prose.Line(2, prose.Word(words::MacroalgaeCover, {prose.Exact(column.DG_MA)}));
    prose.Blank();
    PrintDiatoms(prose, column, site);
    PrintOthers(prose, column, site);
    PrintLeftOut(prose, column, site);
}

}  // namespace FX_Algen::cli
