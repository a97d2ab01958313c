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
        out += (out.empty() ? "" : std::string(between)) + "m." + Name(table.Columns[column].Name);
    return out;
}

/// Condition that the rows m and t agree in all columns.
std::string SameRow(const TargetTable& table) {
    std::string out;
    for (const TargetColumn& column : table.Columns)
        out += (out.empty() ? "m." : " AND m.") + Name(column.Name) + " IS t." + Name(column.Name);
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
        const TargetTable& table = *FindTable(tables, name);
        auto& rows = rows_[std::string(name)];
        const auto statement = engine.Prepare("SELECT m.rowid, " + Joined(table, ", ") + " FROM main." +
                                              Name(name) + " AS m WHERE EXISTS (SELECT 1 FROM temp." +
                                              Name(name) + " AS t WHERE " + SameRow(table) + ")");
        while (statement->Step()) {
            std::string key;
            for (std::size_t i = 1; i < statement->ColumnCount(); ++i)
                key += (statement->IsNull(i) ? "Null" : "=" + std::string(statement->Text(i))) + '\n';
            rows.emplace(key, statement->Integer(0));
        }
    }
    for (const auto table : TableNames) engine.Run("DROP TABLE temp." + Name(table));
}

std::optional<std::int64_t> FirstRows::Take(const TableFile& file, const Cell* row) {
    const auto known = rows_.find(file.Table().Name);
    if (known == rows_.end() || known->second.empty()) return std::nullopt;
    std::string key;
    for (const std::size_t column : Identity(file.Table())) {
        const auto position = file.PositionOf(column);
        if (!position) return std::nullopt;
        const Cell& cell = row[*position];
        const bool text = cell.Is == Cell::Tag::Text;
        key += (cell.Is == Cell::Tag::Null ? "Null" : "=" + (text ? std::string(cell.Text) : cell.AsText())) +
               '\n';
    }
    const auto found = known->second.find(key);
    if (found == known->second.end()) return std::nullopt;
    const std::int64_t id = found->second;
    known->second.erase(found);
    return id;
}

void FirstRows::Remove(Engine& engine, std::string_view table) {
    const auto known = rows_.find(std::string(table));
    if (known == rows_.end()) return;
    for (const auto& [key, id] : known->second)
        engine.Run("DELETE FROM main." + Name(table) + " WHERE rowid = " + std::to_string(id));
    known->second.clear();
}

}  // namespace FX_Algen::store::load
