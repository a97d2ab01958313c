#include "store/load/FirstRows.h"

#include <algorithm>
#include <array>

#include "store/resources/Resources.h"

namespace FX_Algen::store::load {
namespace {

constexpr std::array<std::string_view, 7> TableNames{"awaKatalog",
                                                     "awaGrossGr",
                                                     "awaAL_Algenart",
                                                     "awaAL_Lebensform",
                                                     "awaseUebersicht",
                                                     "awaKatalogfeldDefinition",
                                                     "sesKatalogfeldDefinition"};
constexpr std::string_view Resource = "project/090_erste_zeilen.sql";

/// Positions of the columns that tell rows of the table apart: its key, or all columns.
std::vector<std::size_t> Identity(const TargetTable& table) {
    if (table.HasKey) return table.Unique.front();
    std::vector<std::size_t> all(table.Columns.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
    return all;
}

std::string Joined(const TargetTable& table, std::string_view between) {
    std::string out;
    for (const std::size_t column : Identity(table))
        out += (out.empty() ? "" : std::string(between)) + Name(table.Columns[column].Name);
    return out;
}

/// Fills tables of the same names in the temporary schema, which hide the real ones while they last.
void FillTemporaryTables(Engine& engine) {
    for (const auto table : TableNames)
        engine.Run("CREATE TEMP TABLE " + Name(table) + " AS SELECT * FROM main." + Name(table) + " WHERE 0");
    for (const auto& resource : resources::schema())
        if (resource.name == Resource) engine.Run(std::string(resource.text));
}

}  // namespace

std::span<const std::string_view> FirstRows::Tables() { return TableNames; }

FirstRows::FirstRows(Engine& engine, const std::vector<TargetTable>& tables) {
    const bool project = std::all_of(TableNames.begin(), TableNames.end(), [&](std::string_view name) {
        return FindTable(tables, name) != nullptr;
    });
    if (!project) return;
    FillTemporaryTables(engine);
    for (const auto name : TableNames) {
        auto& keys = keys_[std::string(name)];
        const auto statement =
            engine.Prepare("SELECT " + Joined(*FindTable(tables, name), ", ") + " FROM (SELECT * FROM main." +
                           Name(name) + " INTERSECT SELECT * FROM temp." + Name(name) + ")");
        while (statement->Step()) {
            std::string key;
            for (std::size_t i = 0; i < statement->ColumnCount(); ++i)
                key += (statement->IsNull(i) ? "Null" : "=" + std::string(statement->Text(i))) + '\n';
            keys.insert(key);
        }
    }
    for (const auto table : TableNames) engine.Run("DROP TABLE temp." + Name(table));
}

void FirstRows::GiveWay(Engine& engine, const TableFile& file, const Cell* row) {
    const auto known = keys_.find(file.Table().Name);
    if (known == keys_.end() || known->second.empty()) return;
    std::string key;
    std::string condition;
    std::vector<const Cell*> cells;
    for (const std::size_t column : Identity(file.Table())) {
        const auto position = file.PositionOf(column);
        if (!position) return;
        const Cell& cell = row[*position];
        const bool text = cell.Is == Cell::Tag::Text;
        key += (cell.Is == Cell::Tag::Null ? "Null" : "=" + (text ? std::string(cell.Text) : cell.AsText())) +
               '\n';
        condition += (cells.empty() ? "" : " AND ") + Name(file.Table().Columns[column].Name) + " IS ?";
        cells.push_back(&cell);
    }
    if (known->second.erase(key) == 0) return;
    const auto statement =
        engine.Prepare("DELETE FROM main." + Name(file.Table().Name) + " WHERE " + condition);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i]->BindTo(*statement, i);
    statement->Step();
}

}  // namespace FX_Algen::store::load
