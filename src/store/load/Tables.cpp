#include "store/load/Tables.h"

#include <algorithm>
#include <array>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/Layout.h"
#include "store/load/Ranges.h"
#include "store/load/References.h"

namespace FX_Algen::store::load {
namespace {

struct TypeName {
    std::string_view Name;
    Kind Type;
    bool HasTime = false;
};
constexpr std::array TypeNames{TypeName{"SMALLINT", Kind::I2},  TypeName{"INTEGER", Kind::I4},
                               TypeName{"FLOAT", Kind::R4},     TypeName{"DOUBLE", Kind::R8},
                               TypeName{"BOOLEAN", Kind::Bool}, TypeName{"TEXT", Kind::Text},
                               TypeName{"DATE", Kind::Date},    TypeName{"TIME", Kind::Date, true}};

std::vector<std::string> Texts(Engine& engine, std::string_view sql) {
    std::vector<std::string> out;
    const auto statement = engine.Prepare(sql);
    while (statement->Step()) out.emplace_back(statement->Text(0));
    return out;
}

std::vector<std::size_t> Positions(const TargetTable& table, const std::vector<std::string>& names) {
    std::vector<std::size_t> out;
    for (const auto& name : names) out.push_back(table.Find(name));
    return out;
}

TargetColumn ReadColumn(const EngineStatement& row, bool autoincrement) {
    TargetColumn column;
    column.Name = row.Text(0);
    const auto type = std::find_if(TypeNames.begin(), TypeNames.end(),
                                   [&](const TypeName& t) { return t.Name == row.Text(1); });
    if (type != TypeNames.end()) {
        column.Type = type->Type;
        column.HasTime = type->HasTime;
    }
    column.IsKey = row.Integer(2) > 0;
    column.IsCounter = column.IsKey && autoincrement;
    column.HasDefault = !row.IsNull(3);
    column.NotNull = (column.IsKey && !column.IsCounter) || row.Integer(4) != 0;
    column.Required = column.NotNull;
    return column;
}

TargetTable ReadTable(Engine& engine, const std::string& name, bool autoincrement) {
    TargetTable table;
    table.Name = name;
    const auto columns = engine.Prepare(
        "SELECT name, type, pk, dflt_value, \"notnull\" FROM pragma_table_info(" + Literal(name) + ")");
    while (columns->Step()) table.Columns.push_back(ReadColumn(*columns, autoincrement));

    const auto key =
        Texts(engine, "SELECT name FROM pragma_table_info(" + Literal(name) + ") WHERE pk > 0 ORDER BY pk");
    table.HasKey = !key.empty();
    if (table.HasKey) table.Unique.push_back(Positions(table, key));
    for (const auto& index : Texts(engine, "SELECT name FROM pragma_index_list(" + Literal(name) +
                                               ") WHERE \"unique\" = 1 AND origin <> 'pk' ORDER BY name"))
        table.Unique.push_back(Positions(table, Texts(engine, "SELECT name FROM pragma_index_info(" +
                                                                  Literal(index) + ") ORDER BY seqno")));
    Restrict(table);
    for (const Reference& reference : ReferencesOf(name))
        if (reference.Needed) table.Columns.at(table.Find(reference.Column)).Required = true;
    return table;
}

std::string Enclosed(std::string_view text, char mark) {
    std::string out(1, mark);
    for (const char c : text) {
        out += c;
        if (c == mark) out += c;
    }
    return out + mark;
}

}  // namespace

std::size_t TargetTable::Find(std::string_view name) const {
    const auto at = std::find_if(
        Columns.begin(), Columns.end(),
        [wanted = dialect::Fold(name)](const auto& c) { return dialect::Fold(c.Name) == wanted; });
    return static_cast<std::size_t>(at - Columns.begin());
}

std::size_t TargetTable::CounterPosition() const {
    const auto at = std::find_if(Columns.begin(), Columns.end(), [](const auto& c) { return c.IsCounter; });
    return static_cast<std::size_t>(at - Columns.begin());
}

std::string TargetTable::Counter() const {
    const std::size_t at = CounterPosition();
    return at == Columns.size() ? std::string() : Columns[at].Name;
}

std::vector<TargetTable> ReadTables(Engine& engine) {
    std::vector<std::pair<std::string, bool>> names;
    const auto statement = engine.Prepare(
        "SELECT name, sql LIKE '%PRIMARY KEY AUTOINCREMENT%' FROM sqlite_master "
        "WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
    while (statement->Step()) names.emplace_back(statement->Text(0), statement->Integer(1) != 0);
    std::vector<TargetTable> tables;
    tables.reserve(names.size());
    for (const auto& [name, autoincrement] : names) tables.push_back(ReadTable(engine, name, autoincrement));
    return tables;
}

const TargetTable* FindTable(const std::vector<TargetTable>& tables, std::string_view name) {
    const auto at = std::find_if(tables.begin(), tables.end(), [wanted = dialect::Fold(name)](const auto& t) {
        return dialect::Fold(t.Name) == wanted;
    });
    return at == tables.end() ? nullptr : &*at;
}

std::string Name(std::string_view name) { return Enclosed(name, '"'); }
std::string Literal(std::string_view text) { return Enclosed(text, '\''); }

std::unique_ptr<Engine> OpenDatabaseFile(const std::string& path) {
    auto engine = OpenEngine(path, false);
    const std::int64_t version = IntegerOf(*engine, "PRAGMA user_version");
    if (version != LayoutVersion)
        throw Error(ErrorNumber::NotADatabase, "'" + path + "': the database has layout version " +
                                                   std::to_string(version) + ", needed is " +
                                                   std::to_string(LayoutVersion) + ".");
    return engine;
}

std::int64_t IntegerOf(Engine& engine, std::string_view sql) {
    const auto statement = engine.Prepare(sql);
    return statement->Step() ? statement->Integer(0) : 0;
}

}  // namespace FX_Algen::store::load
