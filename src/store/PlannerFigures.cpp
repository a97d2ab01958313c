#include "store/PlannerFigures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <set>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/Engine.h"
#include "store/dialect/Catalogue.h"

namespace FX_Algen::store {
namespace {

struct Row {
    std::string_view Table;
    std::string_view Index;
    std::string_view Figures;
};

// An index on a flag or on a class narrows little, and a taxon has many more findings than a sampling site
// has taxa. Without these figures a query about one sub-habitat may start at a flag.
constexpr std::array Rows{
    Row{"Teilraum", "Teilraum_Anzeige", "1048576 524288"},
    Row{"awaPrStelle", "awaPrStelle_Anzeige", "1048576 524288"},
    Row{"awaArt", "awaArt_Loeschstatus", "1048576 1000000"},
    Row{"awaArt", "awaArt_IstArtniveau", "1048576 524288"},
    Row{"awaModulStandard", "awaModulStandard_Lebensform", "1048576 524288"},
    Row{"awaModulStandard", "awaModulStandard_Algenart", "1048576 349525"},
    Row{"awaArtKatalog", "awaArtKatalog_ID_KAT", "1048576 1000000"},
    Row{"awaArtAuswahl", "awaArtAuswahl_Auswahl", "1048576 524288"},
    Row{"awaGrossGr", "awaGrossGr_RF_Kieselalge", "1048576 524288"},
    Row{"awaKatalogfeldDefinition", "awaKatalogfeldDefinition_IstEditable", "1048576 524288"},
    Row{"awaFamilie", "awaFamilie_ID_GRGR", "1048576 65536"},
    Row{"awaErgWRRL", "awaErgWRRL_Taxagruppe", "1048576 524288"},
    Row{"awaobWGEV07_Grid", "awaobWGEV07_Grid_Zeilencode", "1048576 20000"},
    Row{"awaArtPrStelle", "sqlite_autoindex_awaArtPrStelle_1", "1048576 50 2 1"},
    Row{"awaArtPrStelle", "awaArtPrStelle_ID_ART", "1048576 2000"},
    Row{"awaArtPrStelle_MI", "sqlite_autoindex_awaArtPrStelle_MI_1", "1048576 20 2 1"},
    Row{"awaArtPrStelle_MI", "awaArtPrStelle_MI_ID_ART", "1048576 2000"},
    Row{"sesArt", "sesArt_Loeschstatus", "1048576 1000000"},
    Row{"sesArtAuswahl", "sesArtAuswahl_Auswahl", "1048576 524288"},
    Row{"sesArtPrStelle", "sqlite_autoindex_sesArtPrStelle_1", "1048576 50 2 1"},
    Row{"sesArtPrStelle", "sesArtPrStelle_ID_ART", "1048576 2000"},
    Row{"sesKatalogfeldDefinition", "sesKatalogfeldDefinition_IstEditable", "1048576 524288"},
};

using Names = std::set<std::string, std::less<>>;

Names TableNames(Engine& engine) {
    Names names;
    const auto row = engine.Prepare("SELECT name FROM sqlite_schema WHERE type = 'table'");
    while (row->Step()) names.emplace(row->Text(0));
    return names;
}

std::optional<std::string> TextOf(const EngineStatement& row, std::size_t column) {
    if (row.IsNull(column)) return std::nullopt;
    return std::string(row.Text(column));
}

std::vector<PlannerFigure> FiguresInFile(Engine& engine) {
    std::vector<PlannerFigure> figures;
    const auto row = engine.Prepare("SELECT tbl, idx, stat FROM sqlite_stat1");
    while (row->Step()) figures.push_back({std::string(row->Text(0)), TextOf(*row, 1), TextOf(*row, 2)});
    std::sort(figures.begin(), figures.end());
    return figures;
}

/// Samples of values, which some builds of the engine take besides, would outweigh the figures.
bool HasSamples(Engine& engine) {
    const auto row = engine.Prepare("SELECT EXISTS (SELECT 1 FROM sqlite_stat4)");
    return row->Step() && row->Integer(0) != 0;
}

bool AreRight(Engine& engine, const std::vector<PlannerFigure>& wanted, const Names& tables) {
    if (tables.contains("sqlite_stat4") && HasSamples(engine)) return false;
    if (!tables.contains("sqlite_stat1")) return wanted.empty();
    return FiguresInFile(engine) == wanted;
}

std::vector<PlannerFigure> Wanted(const Names& tables) {
    std::vector<PlannerFigure> figures;
    for (const auto& [table, index, text] : Rows)
        if (tables.contains(table))
            figures.push_back({std::string(table), std::string(index), std::string(text)});
    std::sort(figures.begin(), figures.end());
    return figures;
}

std::int64_t SchemaVersion(Engine& engine) {
    const auto row = engine.Prepare("PRAGMA schema_version");
    return row->Step() ? row->Integer(0) : 0;
}

void Write(Engine& engine, const std::vector<PlannerFigure>& figures, const Names& tables) {
    // Makes the table and adds no rows: the engine keeps no figures of its own tables.
    if (!tables.contains("sqlite_stat1")) engine.Run("ANALYZE sqlite_schema");
    engine.Run("DELETE FROM sqlite_stat1");
    if (tables.contains("sqlite_stat4")) engine.Run("DELETE FROM sqlite_stat4");
    const auto insert = engine.Prepare("INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES (?, ?, ?)");
    for (const auto& figure : figures) {
        insert->BindText(0, figure.Table);
        insert->BindText(1, *figure.Index);
        insert->BindText(2, *figure.Figures);
        insert->Step();
        insert->Reset();
    }
    // A new version of the schema makes all connections read schema and figures anew. Reading the figures
    // alone would not do: tables without figures would keep the sizes that were found before.
    const auto version = SchemaVersion(engine);
    const auto next = version < std::numeric_limits<std::int32_t>::max() ? version + 1 : 1;
    engine.Run("PRAGMA schema_version = " + std::to_string(next));
}

/// A unit of changes, within a transaction or as one of its own.
class Unit {
public:
    explicit Unit(Engine& engine) : engine_(engine), inside_(engine.InTransaction()) {
        engine_.Run(inside_ ? "SAVEPOINT fx_planner" : "BEGIN IMMEDIATE");
    }
    ~Unit() {
        if (done_ || !engine_.InTransaction()) return;
        try {
            engine_.Run(inside_ ? "ROLLBACK TO fx_planner; RELEASE fx_planner" : "ROLLBACK");
        } catch (const Error&) {
            // Only a failing disk leads here; the engine has undone the changes itself then.
        }
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;
    void Keep() {
        engine_.Run(inside_ ? "RELEASE fx_planner" : "COMMIT");
        done_ = true;
    }

private:
    Engine& engine_;
    bool inside_;
    bool done_ = false;
};

}  // namespace

bool HasPlannerFigures(std::string_view table) {
    const auto name = dialect::Fold(table);
    return std::any_of(Rows.begin(), Rows.end(),
                       [&name](const Row& row) { return dialect::Fold(row.Table) == name; });
}

std::vector<PlannerFigure> PlannerFiguresFor(Engine& engine) { return Wanted(TableNames(engine)); }

bool RestorePlannerFigures(Engine& engine) {
    const auto tables = TableNames(engine);
    const auto wanted = Wanted(tables);
    if (AreRight(engine, wanted, tables) || !engine.CanWrite()) return false;
    Unit unit(engine);
    Write(engine, wanted, tables);
    unit.Keep();
    return true;
}

}  // namespace FX_Algen::store
