#include "cases/CaseSections.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace FX_Algen::cases {
namespace {

struct Group {
    std::string_view Word;
    std::int32_t ID_GRGR;
};

constexpr std::array<Group, 15> Groups = {{{"blue-green alga", 120},
                                           {"red alga", 121},
                                           {"golden alga", 122},
                                           {"yellow-green alga", 123},
                                           {"brown alga", 124},
                                           {"dinoflagellate", 125},
                                           {"cryptomonad", 126},
                                           {"euglenoid", 127},
                                           {"diatom", 128},
                                           {"green alga", 129},
                                           {"conjugating alga", 130},
                                           {"stonewort", 131},
                                           {"moss", 132},
                                           {"bacterium", 133},
                                           {"fungus", 134}}};

struct ReferenceColumn {
    std::string_view Name;
    bool IsText;
};

struct ReferenceShape {
    std::string_view Table;
    std::vector<ReferenceColumn> Columns;
};

const std::vector<ReferenceShape>& ReferenceShapes() {
    constexpr ReferenceColumn Bioregion{"ID_AL_Bioregion", false};
    constexpr ReferenceColumn Hoehenstufe{"Hoehenstufe", false};
    constexpr ReferenceColumn Taxagruppe{"Taxagruppe", true};
    constexpr ReferenceColumn TGZK{"TGZK", true};
    constexpr ReferenceColumn Gueteklasse{"Gueteklasse", false};
    constexpr ReferenceColumn Bioregionstyp{"Bioregionstyp", true};
    constexpr ReferenceColumn ErwarteterWert{"ErwarteterWert", false};
    constexpr ReferenceColumn EQRMin{"EQRMin", false};
    constexpr ReferenceColumn EQRMax{"EQRMax", false};
    constexpr ReferenceColumn OEZK{"OEZK", false};
    static const std::vector<ReferenceShape> shapes = {
        {"awaWRRL_TGZK", {Bioregion, Hoehenstufe, TGZK}},
        {"awaWRRL_SGZK", {Bioregion, Hoehenstufe, Gueteklasse}},
        {"awaWRRL_RBioregionstyp", {Bioregion, Hoehenstufe, Bioregionstyp}},
        {"awaWRRL_ETI", {Taxagruppe, TGZK, ErwarteterWert}},
        {"awaWRRL_ESI", {Taxagruppe, Gueteklasse, ErwarteterWert}},
        {"awaWRRL_ERI", {Taxagruppe, Bioregionstyp, ErwarteterWert}},
        {"awaWRRL_TIOEZK", {Taxagruppe, TGZK, EQRMin, EQRMax, OEZK}},
        {"awaWRRL_SIOEZK", {Taxagruppe, Gueteklasse, EQRMin, EQRMax, OEZK}},
        {"awaWRRL_RIOEZK", {Taxagruppe, Bioregionstyp, EQRMin, EQRMax, OEZK}},
        {"awaWRRL_Klasse", {{"Klassenzahl", false}, {"Bezeichnung", true}}},
    };
    return shapes;
}

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

/// A line in brackets opens a section.
std::optional<std::string> SectionName(const std::string& line) {
    if (line.front() != '[') return std::nullopt;
    return line.back() == ']' ? line.substr(1, line.size() - 2) : std::string();
}

std::int32_t WholeNumber(const Row& row, std::string_view text) {
    std::int32_t number = 0;
    const auto* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || last != end) row.Fail("\"" + std::string(text) + "\" is no whole number");
    return number;
}

std::vector<std::string> SplitAtCommas(std::string_view text) {
    std::vector<std::string> parts;
    for (;;) {
        const auto comma = text.find(',');
        parts.push_back(Trimmed(text.substr(0, comma)));
        if (comma == std::string_view::npos) return parts;
        text.remove_prefix(comma + 1);
    }
}

}  // namespace

Sections::Sections(std::string file, std::string_view text) : file_(std::move(file)) {
    const auto lines = LinesOf(text);
    if (lines.empty()) throw CaseError(file_, 1, "the file says nothing");
    const auto& first = lines.front();
    const auto colon = first.Text.find(':');
    const auto word = first.Text.substr(0, colon);
    if (colon == std::string::npos || (word != "Case" && word != "Reference"))
        throw CaseError(file_, first.Number, "the first line is no title (\"Case: ...\")");
    title_ = Trimmed(first.Text.substr(colon + 1));
    if (title_.empty()) throw CaseError(file_, first.Number, "the title is empty");
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto& line = lines[i];
        if (const auto name = SectionName(line.Text)) {
            if (name->empty()) throw CaseError(file_, line.Number, "a section's name is not closed or empty");
            if (Has(*name)) throw CaseError(file_, line.Number, "section [" + *name + "] stands twice");
            sections_.push_back({*name, line.Number, {}});
        } else if (sections_.empty()) {
            throw CaseError(file_, line.Number, "this line stands in no section");
        } else {
            sections_.back().Lines.push_back(line);
        }
    }
}

const Section* Sections::Find(std::string_view name) const {
    const auto found = std::find_if(sections_.begin(), sections_.end(),
                                    [&](const Section& section) { return section.Name == name; });
    return found == sections_.end() ? nullptr : &*found;
}

bool Sections::Has(std::string_view name) const { return Find(name) != nullptr; }

const Section& Sections::Required(std::string_view name) {
    for (auto& section : sections_) {
        if (section.Name != name) continue;
        section.Read = true;
        return section;
    }
    throw CaseError(file_, 1, "section [" + std::string(name) + "] is missing");
}

Table Sections::TableOf(std::string_view name, const std::vector<std::string_view>& required,
                        const std::vector<std::string_view>& optional) {
    const auto& section = Required(name);
    return Table(file_, section.Line, section.Lines, required, optional);
}

void Sections::RequireAllRead() const {
    for (const auto& section : sections_) {
        if (!section.Read) throw CaseError(file_, section.Line, "unknown section [" + section.Name + "]");
    }
}

void Sections::Fail(std::string_view name, const std::string& reason) const {
    const auto* const section = Find(name);
    throw CaseError(file_, section == nullptr ? 1 : section->Line, reason);
}

std::int32_t GroupOf(const Row& row) {
    const auto word = row.Text("group");
    for (const auto& group : Groups) {
        if (group.Word == word) return group.ID_GRGR;
    }
    row.Fail("unknown group \"" + word + "\"");
}

std::optional<Ratings> RatingsOf(const Row& row) {
    constexpr std::array<std::string_view, 6> Columns = {"Lebensform", "SI",          "Sap_GBer",
                                                         "Algenart",   "Trophiewert", "Trophiegewicht"};
    if (std::all_of(Columns.begin(), Columns.end(), [&](auto column) { return row.Text(column) == "-"; }))
        return std::nullopt;
    for (const auto column : Columns) {
        if (column != "Algenart" && row.Text(column) == "-")
            row.Fail("a taxon has all ratings or none: \"-\" under \"" + std::string(column) + "\"");
    }
    const auto kind = row.Text("Algenart");
    if (kind != "Makroalge" && kind != "Mikroalge" && kind != "-")
        row.Fail("\"" + kind + "\" is no Algenart");
    return Ratings{row.Whole("Lebensform"),      row.Number("SI"),
                   row.Number("Sap_GBer"),       row.Number("Trophiewert"),
                   row.Number("Trophiegewicht"), kind == "-" ? std::nullopt : std::optional(kind)};
}

void ReadReferenceSpecies(const Row& row, Taxon& taxon) {
    const auto text = row.Text("reference species");
    if (text == "no") return;
    for (const auto& part : SplitAtCommas(text)) {
        const auto slash = part.find('/');
        if (part == "A" && !taxon.TypA) {
            taxon.TypA = true;
        } else if (part.starts_with("B ") && slash != std::string::npos) {
            const std::string_view numbers(part);
            taxon.TypB.push_back({WholeNumber(row, numbers.substr(2, slash - 2)),
                                  WholeNumber(row, numbers.substr(slash + 1))});
        } else {
            row.Fail("\"" + text + "\" is neither no, A nor B <bioregion>/<altitude step>");
        }
    }
}

ReferenceTables ReferenceTablesOf(Sections& sections) {
    ReferenceTables tables;
    for (const auto& shape : ReferenceShapes()) {
        if (!sections.Has(shape.Table)) continue;
        std::vector<std::string_view> columns;
        ReferenceTable rows;
        for (const auto& column : shape.Columns) {
            columns.push_back(column.Name);
            rows.Columns.emplace_back(column.Name);
        }
        const Table table = sections.TableOf(shape.Table, columns);
        for (const auto& row : table.Rows()) {
            std::vector<std::string> values;
            for (const auto& column : shape.Columns) {
                const auto text = row.Text(column.Name);
                if (!column.IsText && text != "Null" && !IsNumber(text))
                    row.Fail("\"" + text + "\" under \"" + std::string(column.Name) + "\" is no number");
                values.push_back(column.IsText ? Quoted(text) : text);
            }
            rows.Rows.push_back(std::move(values));
        }
        tables.emplace(shape.Table, std::move(rows));
    }
    return tables;
}

}  // namespace FX_Algen::cases
