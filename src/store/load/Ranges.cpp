#include "store/load/Ranges.h"

#include <algorithm>
#include <array>
#include <limits>

#include "store/load/Problems.h"

namespace FX_Algen::store::load {
namespace {

constexpr double Any = std::numeric_limits<double>::infinity();

// Covers of a sub-habitat and of a stand have no upper end: growth lies in layers, so sums pass 100 percent.
// One taxon covers no more than the whole.
constexpr Range AllRanges[] = {
    {"awaTeilraum", "DG_Gesamt", 0, Any},
    {"awaTeilraum", "DG_MA", 0, Any},
    {"awaTeilraum", "DG_Algengesamt", 0, Any},
    {"awaTeilraum", "MitBewuchsdichte", 0, Any},
    {"awaTeilraum", "DG_Gesamt_WRRL", 0, Any},
    {"awaTeilraum", "DG_MA_WRRL", 0, Any},
    {"awaTeilraum", "DG_Algengesamt_WRRL", 0, Any},
    {"awaTeilraum", "MitBewuchsdichte_WRRL", 0, Any},
    {"awaTeilraum_MI", "DG_MI", 0, Any},
    {"awaTeilraum_MI", "DG_MI_WRRL", 0, Any},
    {"awaTeilraum_MI", "SD_MI", 0, Any},
    {"awaArtPrStelle", "DG_MA", 0, 100},
    {"awaArtPrStelle", "SD_MA", 0, Any},
    {"awaArtPrStelle", "Schalen_KA", 0, Any},
    {"awaArtPrStelle", "DG_MP", 0, 100},
    {"awaArtPrStelle_MI", "DG_MI", 0, 100},
    {"awaobWGEV07_Grid", "Deckung", 0, Any},
    {"awaobWGEV07_Grid", "Dicke", 0, Any},

    {"awaModulStandard", "X", 0, 10},
    {"awaModulStandard", "O", 0, 10},
    {"awaModulStandard", "OB", 0, 10},
    {"awaModulStandard", "B", 0, 10},
    {"awaModulStandard", "BA", 0, 10},
    {"awaModulStandard", "A", 0, 10},
    {"awaModulStandard", "AP", 0, 10},
    {"awaModulStandard", "P", 0, 10},
    {"awaModulStandard", "Sap_GBer", 0, Any},
    {"awaModulStandard", "Sap_GMan1", 0, Any},
    {"awaModulStandard", "Sap_GMan2", 0, Any},
    {"awaModulStandard", "Trophiegewicht", 0, Any},
    {"awaModulStandard", "Trophiegewicht_N", 0, Any},

    {"sesArt", "W_O", 0, 10},
    {"sesArt", "W_B", 0, 10},
    {"sesArt", "W_A", 0, 10},
    {"sesArt", "W_P", 0, 10},
    {"sesArtPrStelle", "Abundanz", 0, Any},
};

constexpr std::array<std::string_view, 2> Taxagruppen{"Alle", "KA"};
constexpr std::array<std::string_view, 5> Ebenen{"Projekt", "Abschnitt", "UnvU-Stelle", "VerU-Stelle",
                                                 "Teilraum"};

constexpr TextChoice AllChoices[] = {
    {"awaWRRL_ETI", "Taxagruppe", Taxagruppen, true},    {"awaWRRL_ESI", "Taxagruppe", Taxagruppen, true},
    {"awaWRRL_ERI", "Taxagruppe", Taxagruppen, true},    {"awaWRRL_TIOEZK", "Taxagruppe", Taxagruppen, true},
    {"awaWRRL_SIOEZK", "Taxagruppe", Taxagruppen, true}, {"awaWRRL_RIOEZK", "Taxagruppe", Taxagruppen, true},
    {"RechenProjekt", "RechManEbene", Ebenen},
};

std::string Choices(const TargetColumn& column) {
    std::string out;
    for (std::size_t i = 0; i < column.Texts.size(); ++i) {
        if (i > 0) out += i + 1 == column.Texts.size() ? " or " : ", ";
        out += column.Texts[i];
    }
    return out;
}

bool Offers(const TargetColumn& column, std::string_view text) {
    return std::any_of(column.Texts.begin(), column.Texts.end(), [&](std::string_view choice) {
        return choice == text || (column.IgnoreCase && dialect::Fold(choice) == dialect::Fold(text));
    });
}

}  // namespace

std::span<const Range> Ranges() { return AllRanges; }
std::span<const TextChoice> TextChoices() { return AllChoices; }

void Restrict(TargetTable& table) {
    for (TargetColumn& column : table.Columns) {
        column.Least = -Any;
        column.Most = Any;
    }
    for (const Range& range : AllRanges) {
        if (range.Table != table.Name) continue;
        TargetColumn& column = table.Columns.at(table.Find(range.Column));
        column.Least = range.Least;
        column.Most = range.Most;
    }
    for (const TextChoice& choice : AllChoices) {
        if (choice.Table != table.Name) continue;
        TargetColumn& column = table.Columns.at(table.Find(choice.Column));
        column.Texts = choice.Texts;
        column.IgnoreCase = choice.IgnoreCase;
    }
}

namespace {

std::string Shown(const Cell& cell, const TargetColumn& column) {
    return column.Type == Kind::R4 ? NumberText(static_cast<float>(cell.Real)) : cell.AsText();
}

}  // namespace

std::string RangeFault(const Cell& cell, const TargetColumn& column) {
    if (cell.Is == Cell::Tag::Null) return {};
    if (cell.Is == Cell::Tag::Text) {
        if (column.Texts.empty() || Offers(column, cell.Text)) return {};
        return Quoted(cell.Text) + " is none of " + Choices(column);
    }
    const double number = cell.Is == Cell::Tag::Integer ? static_cast<double>(cell.Integer) : cell.Real;
    if (number < column.Least)
        return Shown(cell, column) + " is below " + NumberText(column.Least) + ", the least that is possible";
    if (number > column.Most)
        return Shown(cell, column) + " is above " + NumberText(column.Most) + ", the most that is possible";
    return {};
}

}  // namespace FX_Algen::store::load
