#include "cases/CaseFile.h"

#include <algorithm>
#include <set>
#include <utility>

#include "cases/CaseExpectation.h"
#include "cases/CaseSections.h"

namespace FX_Algen::cases {
namespace {

class Reader {
public:
    Reader(const std::string& file, std::string_view text, const SharedTables& shared)
        : sections_(file, text), shared_(shared) {
        case_.File = file;
    }

    Case Read() {
        case_.Title = sections_.Title();
        for (const auto& line : sections_.Required("reasoning").Lines) case_.Reasoning += line.Text + "\n";
        if (case_.Reasoning.empty()) sections_.Fail("reasoning", "the case gives no reasons");
        ReadSite();
        ReadCovers();
        ReadTaxa();
        ReadFindings();
        ReadStands();
        ReadReference();
        ReadList();
        case_.FirstRun =
            ReadExpectation(case_.File, sections_.Required("expected: first run"), case_.Reasoning);
        case_.SecondRun =
            ReadExpectation(case_.File, sections_.Required("expected: second run"), case_.Reasoning);
        RequireEveryTaxonUsed();
        sections_.RequireAllRead();
        return std::move(case_);
    }

private:
    void ReadSite() {
        const Table table = sections_.TableOf("site", {"station", "Gewässer", "BioregionID", "Hoehenstufe"},
                                              {"RefBioregion"});
        const auto row = TheOneRow(table, "site");
        case_.Site = {row.Text("station"), row.Text("Gewässer"), row.Whole("BioregionID"),
                      row.Whole("Hoehenstufe"), row.Cell("RefBioregion")};
    }

    void ReadCovers() {
        const auto& section = sections_.Required("covers");
        if (section.Lines.size() == 1 && section.Lines.front().Text == "no row") return;
        const Table table =
            sections_.TableOf("covers", {"DG_Gesamt_WRRL", "DG_MA_WRRL", "DG_Gesamt", "DG_MA"});
        const auto row = TheOneRow(table, "covers");
        case_.Covers = Covers{row.Number("DG_Gesamt_WRRL"), row.Number("DG_MA_WRRL"), row.Number("DG_Gesamt"),
                              row.Number("DG_MA")};
    }

    void ReadTaxa() {
        if (!sections_.Has("taxa")) return;
        const Table table =
            sections_.TableOf("taxa", {"taxon", "group", "Algenart", "species level", "Lebensform", "SI",
                                       "Sap_GBer", "Trophiewert", "Trophiegewicht", "reference species"});
        for (const auto& row : table.Rows()) {
            Taxon taxon;
            taxon.Name = row.Text("taxon");
            if (FindTaxon(taxon.Name)) row.Fail("taxon \"" + taxon.Name + "\" stands twice");
            if (taxon.Name.find(' ') == std::string::npos) row.Fail("a taxon needs genus and species");
            taxon.ID_GRGR = GroupOf(row);
            taxon.IstArtniveau = row.Flag("species level");
            taxon.Values = RatingsOf(row);
            ReadReferenceSpecies(row, taxon);
            case_.Taxa.push_back(std::move(taxon));
        }
    }

    void ReadFindings() {
        if (!sections_.Has("findings")) return;
        const Table table =
            sections_.TableOf("findings", {"sampling site", "taxon", "cf.", "DG_MA", "Schalen_KA"});
        std::set<std::tuple<std::size_t, std::size_t, bool>> seen;
        for (const auto& row : table.Rows()) {
            const auto site = row.Text("sampling site");
            auto found = std::find(case_.Sites.begin(), case_.Sites.end(), site);
            const bool isNew = found == case_.Sites.end();
            if (isNew) found = case_.Sites.insert(found, site);
            if (row.Text("taxon") == "-") {
                if (!isNew) row.Fail("sampling site \"" + site + "\" stands above already");
                continue;
            }
            Finding finding;
            finding.Site = static_cast<std::size_t>(found - case_.Sites.begin());
            finding.Taxon = TaxonOf(row);
            finding.CF = row.Cf();
            finding.DG_MA = row.Number("DG_MA");
            finding.Schalen_KA = row.Number("Schalen_KA");
            if (!seen.insert({finding.Site, finding.Taxon, finding.CF}).second)
                row.Fail("this finding stands twice");
            case_.Findings.push_back(std::move(finding));
        }
    }

    void ReadStands() {
        if (!sections_.Has("mixed stands")) {
            if (sections_.Has("shares of the mixed stands"))
                sections_.Fail("shares of the mixed stands", "there are no mixed stands");
            return;
        }
        const Table stands = sections_.TableOf("mixed stands", {"stand", "DG_MI_WRRL", "DG_MI"});
        for (const auto& row : stands.Rows()) {
            if (FindStand(row.Text("stand")) != nullptr) row.Fail("this mixed stand stands twice");
            case_.Stands.push_back({row.Text("stand"), row.Number("DG_MI_WRRL"), row.Number("DG_MI"), {}});
        }
        const Table shares =
            sections_.TableOf("shares of the mixed stands", {"stand", "taxon", "cf.", "DG_MI"});
        for (const auto& row : shares.Rows()) {
            Stand* const stand = FindStand(row.Text("stand"));
            if (stand == nullptr) row.Fail("no mixed stand \"" + row.Text("stand") + "\"");
            const Share share{TaxonOf(row), row.Cf(), row.Number("DG_MI")};
            for (const auto& other : stand->Shares) {
                if (other.Taxon == share.Taxon && other.CF == share.CF) row.Fail("this share stands twice");
            }
            stand->Shares.push_back(share);
        }
    }

    /// The shared tables first; a table that the case brings itself takes the place of the shared one.
    void ReadReference() {
        if (sections_.Has("reference tables")) {
            const auto& section = sections_.Required("reference tables");
            if (section.Lines.size() != 1)
                sections_.Fail("reference tables", "the section needs the name of one shared set");
            const auto& name = section.Lines.front();
            const auto text = shared_(name.Text);
            if (!text) throw CaseError(case_.File, name.Number, "no shared set \"" + name.Text + "\"");
            Sections shared("reference/" + name.Text + ".txt", *text);
            shared.Title();
            case_.Reference = ReferenceTablesOf(shared);
            shared.RequireAllRead();
        }
        for (auto& [table, rows] : ReferenceTablesOf(sections_))
            case_.Reference.insert_or_assign(table, std::move(rows));
    }

    void ReadList() {
        if (!sections_.Has("expected: frequency list")) return;
        const Table table = sections_.TableOf("expected: frequency list", {"taxon", "cf.", "percent"});
        std::vector<ExpectedAbundance> list;
        for (const auto& row : table.Rows()) {
            ExpectedAbundance abundance{row.Line(), TaxonOf(row), row.Cf(), row.Text("percent")};
            if (!IsNumber(abundance.Percent)) row.Fail("\"" + abundance.Percent + "\" is no number");
            RequireReason({case_.File, case_.Reasoning}, row.Line(), abundance.Percent);
            list.push_back(std::move(abundance));
        }
        case_.List = std::move(list);
    }

    Row TheOneRow(const Table& table, const std::string& section) const {
        const auto rows = table.Rows();
        if (rows.size() != 1) sections_.Fail(section, "the section needs one line of values");
        return rows.front();
    }

    std::optional<std::size_t> FindTaxon(std::string_view name) const {
        for (std::size_t i = 0; i < case_.Taxa.size(); ++i) {
            if (case_.Taxa[i].Name == name) return i;
        }
        return std::nullopt;
    }

    std::size_t TaxonOf(const Row& row) const {
        const auto taxon = FindTaxon(row.Text("taxon"));
        if (!taxon) row.Fail("taxon \"" + row.Text("taxon") + "\" does not stand among the taxa");
        return *taxon;
    }

    Stand* FindStand(std::string_view name) {
        const auto found = std::find_if(case_.Stands.begin(), case_.Stands.end(),
                                        [&](const Stand& stand) { return stand.Name == name; });
        return found == case_.Stands.end() ? nullptr : &*found;
    }

    /// A taxon that nobody found is most likely a slip of the pen in one of the two tables.
    void RequireEveryTaxonUsed() const {
        std::set<std::size_t> used;
        for (const auto& finding : case_.Findings) used.insert(finding.Taxon);
        for (const auto& stand : case_.Stands) {
            for (const auto& share : stand.Shares) used.insert(share.Taxon);
        }
        for (std::size_t i = 0; i < case_.Taxa.size(); ++i) {
            if (!used.contains(i))
                sections_.Fail("taxa",
                               "\"" + case_.Taxa[i].Name + "\" is neither found nor in a mixed stand");
        }
    }

    Sections sections_;
    const SharedTables& shared_;
    Case case_;
};

}  // namespace

Case ReadCase(const std::string& file, std::string_view text, const SharedTables& shared) {
    return Reader(file, text, shared).Read();
}

}  // namespace FX_Algen::cases
