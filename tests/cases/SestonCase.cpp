#include "cases/SestonCase.h"

#include <algorithm>

#include "FX_Algen/AL_PS.h"
#include "cases/CaseExpectation.h"
#include "cases/CaseRun.h"
#include "cases/CaseSections.h"
#include "store/Connection.h"

namespace FX_Algen::cases {
namespace {

void ReadTaxa(Sections& sections, SestonCase& sample) {
    if (!sections.Has("taxa")) return;
    const Table table = sections.TableOf("taxa", {"taxon", "W_SI", "W_O", "W_B", "W_A", "W_P"});
    for (const auto& row : table.Rows()) {
        SestonTaxon taxon{row.Text("taxon"),
                          row.Number("W_SI"),
                          {row.Number("W_O"), row.Number("W_B"), row.Number("W_A"), row.Number("W_P")}};
        if (taxon.Name.find(' ') == std::string::npos) row.Fail("a taxon needs genus and species");
        for (const auto& other : sample.Taxa)
            if (other.Name == taxon.Name) row.Fail("taxon \"" + taxon.Name + "\" stands twice");
        sample.Taxa.push_back(std::move(taxon));
    }
}

void ReadFindings(Sections& sections, SestonCase& sample) {
    if (!sections.Has("findings")) return;
    const Table table = sections.TableOf("findings", {"sampling site", "taxon", "cf.", "Abundanz"});
    for (const auto& row : table.Rows()) {
        const auto name = row.Text("taxon");
        const auto taxon = std::find_if(sample.Taxa.begin(), sample.Taxa.end(),
                                        [&](const SestonTaxon& other) { return other.Name == name; });
        if (taxon == sample.Taxa.end()) row.Fail("taxon \"" + name + "\" does not stand among the taxa");
        auto site = std::find(sample.Sites.begin(), sample.Sites.end(), row.Text("sampling site"));
        if (site == sample.Sites.end()) site = sample.Sites.insert(site, row.Text("sampling site"));
        sample.Findings.push_back({static_cast<std::size_t>(site - sample.Sites.begin()),
                                   static_cast<std::size_t>(taxon - sample.Taxa.begin()), row.Cf(),
                                   row.Number("Abundanz")});
    }
}

/// A taxon that nobody found is most likely a slip of the pen in one of the two tables.
void RequireEveryTaxonUsed(const Sections& sections, const SestonCase& sample) {
    for (std::size_t i = 0; i < sample.Taxa.size(); ++i) {
        const bool found = std::any_of(sample.Findings.begin(), sample.Findings.end(),
                                       [&](const SestonFinding& finding) { return finding.Taxon == i; });
        if (!found) sections.Fail("taxa", "\"" + sample.Taxa[i].Name + "\" is not found");
    }
}

std::string Key(std::size_t position) { return std::to_string(position + 1); }

}  // namespace

SestonCase ReadSestonCase(const std::string& file, std::string_view text) {
    Sections sections(file, text);
    SestonCase sample;
    sample.File = file;
    sample.Title = sections.Title();
    for (const auto& line : sections.Required("reasoning").Lines) sample.Reasoning += line.Text + "\n";
    if (sample.Reasoning.empty()) sections.Fail("reasoning", "the case gives no reasons");
    ReadTaxa(sections, sample);
    ReadFindings(sections, sample);
    RequireEveryTaxonUsed(sections, sample);
    sample.Expected = ReadExpectation(file, sections.Required("expected"), sample.Reasoning);
    sections.RequireAllRead();
    return sample;
}

void Fill(const store::DatabasePtr& database, const SestonCase& sample) {
    store::Savepoint together(database->SharedConnection());
    const auto teilraum = std::to_string(Subhabitat);
    database->Execute("INSERT INTO sesTeilraum (ID_TR) VALUES (" + teilraum + ");");
    for (std::size_t i = 0; i < sample.Taxa.size(); ++i) {
        const auto& taxon = sample.Taxa[i];
        const auto blank = taxon.Name.find(' ');
        database->Execute("INSERT INTO sesArt (ID_ART, Gattung, Art, W_SI, W_O, W_B, W_A, W_P) VALUES (" +
                          Key(i) + ", '" + taxon.Name.substr(0, blank) + "', '" +
                          taxon.Name.substr(blank + 1) + "', " + taxon.W_SI + ", " + taxon.W[0] + ", " +
                          taxon.W[1] + ", " + taxon.W[2] + ", " + taxon.W[3] + ");");
    }
    for (std::size_t i = 0; i < sample.Sites.size(); ++i)
        database->Execute("INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (" + Key(i) + ", " +
                          teilraum + ", '" + sample.Sites[i] + "');");
    for (const auto& finding : sample.Findings)
        database->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (" +
                          Key(finding.Site) + ", " + Key(finding.Taxon) + ", " + (finding.CF ? "-1" : "0") +
                          ", " + finding.Abundanz + ");");
    together.Keep();
}

std::optional<Error> Calculate(const store::DatabasePtr& database) {
    AL_PS host;
    host.CurrentDB(database);
    host.SprachID(10000);
    host.Berechnung_InitSeston();
    host.TeilraumID(Subhabitat);
    try {
        host.Berechnung_ExecuteSeston();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace FX_Algen::cases
