#include "store/load/DeletedKeys.h"

#include <algorithm>
#include <set>

#include "store/load/Problems.h"
#include "store/load/References.h"
#include "store/load/TableFile.h"

namespace FX_Algen::store::load {
namespace {

TargetTable MakeTable() {
    TargetTable table;
    table.Name = "GeloeschteSchluessel";
    TargetColumn name;
    name.Name = "Tabelle";
    name.Type = Kind::Text;
    name.IsKey = name.NotNull = name.Required = true;
    TargetColumn key;
    key.Name = "Schluessel";
    key.Type = Kind::I4;
    key.IsKey = key.NotNull = key.Required = true;
    TargetColumn counter;
    counter.Name = "Zaehler";
    counter.Type = Kind::Bool;
    counter.IsKey = counter.NotNull = counter.Required = true;
    table.Columns = {name, key, counter};
    return table;
}

/// The counter's last number, 0 where it gave none out yet.
std::int64_t LastNumber(Engine& engine, const TargetTable& table) {
    return IntegerOf(engine, "SELECT seq FROM sqlite_sequence WHERE name = " + Literal(table.Name));
}

}  // namespace

const TargetTable& DeletedKeys::Table() {
    static const TargetTable table = MakeTable();
    return table;
}

bool DeletedKeys::IsFile(std::string_view name) { return dialect::Fold(name) == dialect::Fold(FileName); }

void DeletedKeys::Prepare(Engine& engine) {
    engine.Run(
        "CREATE TEMP TABLE fx_deleted (Tabelle TEXT, Schluessel INTEGER, Zaehler INTEGER, "
        "PRIMARY KEY (Tabelle, Schluessel, Zaehler))");
}

std::vector<DeletedKeys::Line> DeletedKeys::Lines(const LoadText& file, std::vector<LoadProblem>& problems) {
    std::vector<Line> lines;
    const TableFile keys(file, Table(), problems);
    if (!keys.Keyed()) return lines;
    const auto nameAt = *keys.PositionOf(0);
    const auto keyAt = *keys.PositionOf(1);
    const auto counterAt = *keys.PositionOf(2);
    TableFile::Rows rows(keys);
    for (Batch batch; rows.Next(batch, 1000);) {
        std::move(batch.Problems.begin(), batch.Problems.end(), std::back_inserter(problems));
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            if (!batch.Writable[i]) continue;
            const Cell* row = batch.Row(i, keys.Columns().size());
            lines.push_back({std::string(row[nameAt].Text), row[keyAt].Integer, row[counterAt].Integer != 0,
                             batch.Lines[i]});
        }
    }
    return lines;
}

void DeletedKeys::Read(Engine& engine, const LoadText& file, const std::vector<TargetTable>& tables,
                       std::vector<LoadProblem>& problems) {
    const auto insert = engine.Prepare("INSERT OR IGNORE INTO temp.fx_deleted VALUES (?, ?, ?)");
    for (const Line& line : Lines(file, problems)) {
        const TargetTable* table = FindTable(tables, line.Table);
        if (table == nullptr) {
            problems.push_back({Printable(file.Name), line.Number, "Tabelle",
                                "the database has no table " + Quoted(line.Table)});
            continue;
        }
        insert->BindText(0, table->Name);
        insert->BindInteger(1, line.Key);
        insert->BindInteger(2, line.Counter ? -1 : 0);
        insert->Step();
        insert->Reset();
    }
}

std::string DeletedKeys::ButNot(std::string_view table) {
    return " AND NOT EXISTS (SELECT 1 FROM temp.fx_deleted WHERE Tabelle = " + Literal(table) +
           " AND Schluessel = v)";
}

void DeletedKeys::RaiseCounters(Engine& engine, const std::vector<TargetTable>& tables) {
    for (const auto& table : tables) {
        if (table.Counter().empty()) continue;
        const std::int64_t highest =
            IntegerOf(engine, "SELECT max(Schluessel) FROM temp.fx_deleted WHERE Zaehler AND Tabelle = " +
                                  Literal(table.Name));
        const std::int64_t last = LastNumber(engine, table);
        if (highest <= last) continue;
        const std::string name = Literal(table.Name);
        engine.Run("DELETE FROM sqlite_sequence WHERE name = " + name);
        engine.Run("INSERT INTO sqlite_sequence (name, seq) VALUES (" + name + ", " +
                   std::to_string(highest) + ")");
    }
}

std::vector<DeletedKeys::Line> DeletedKeys::Find(Engine& engine,
                                                 const std::vector<const TargetTable*>& dumped) {
    std::set<Line> lines;
    for (const TargetTable* table : dumped) {
        for (const Reference& reference : ReferencesOf(table->Name))
            for (const std::int64_t key : DanglingKeys(engine, reference))
                lines.insert({std::string(reference.Parent), key, false});
        if (table->Name == "RechenProjektListe")
            for (const LevelTable& level : LevelTables())
                for (const auto& member : DanglingMembers(engine, level))
                    lines.insert({std::string(level.Parent), member.second, false});
        const std::string counter = table->Counter();
        if (counter.empty()) continue;
        const std::int64_t last = LastNumber(engine, *table);
        if (last > IntegerOf(engine, "SELECT max(" + Name(counter) + ") FROM " + Name(table->Name)))
            lines.insert({table->Name, last, true});
    }
    return {lines.begin(), lines.end()};
}

}  // namespace FX_Algen::store::load
