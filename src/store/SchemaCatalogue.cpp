#include "store/SchemaCatalogue.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace FX_Algen::store {

namespace {

std::string Upper(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return out;
}

/// The type name alone: "TEXT" of "TEXT(50)".
std::string TypeName(std::string_view declared) {
    return Upper(declared.substr(0, declared.find_first_of(" (")));
}

/// Tables and views of a schema, to be narrowed further.
std::string SelectNames(const std::string& schema) {
    return "SELECT name, type='view', coalesce(sql,''), rowid FROM " + Quoted(schema) +
           ".sqlite_schema WHERE type IN ('table','view')";
}

}  // namespace

Kind KindOfType(std::string_view declared) {
    static constexpr std::pair<std::string_view, Kind> types[] = {
        {"SMALLINT", Kind::I2},  {"INTEGER", Kind::I4}, {"FLOAT", Kind::R4},  {"DOUBLE", Kind::R8},
        {"BOOLEAN", Kind::Bool}, {"TEXT", Kind::Text},  {"DATE", Kind::Date}, {"TIME", Kind::Date},
    };
    const auto name = TypeName(declared);
    for (const auto& [type, kind] : types)
        if (name == type) return kind;
    return Kind::Null;
}

std::string Quoted(std::string_view name) {
    std::string out = "\"";
    for (const char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out += '"';
}

std::int64_t SchemaCatalogue::Version() const {
    if (!version_statement_)
        version_statement_ = engine_.Prepare("PRAGMA " + Quoted(schema_) + ".schema_version");
    version_statement_->Step();
    const auto version = version_statement_->Integer(0);
    version_statement_->Reset();
    return version;
}

void SchemaCatalogue::Forget() {
    entries_.clear();
    version_.reset();
}

bool SchemaCatalogue::IsStale() const { return version_ && *version_ != Version(); }

bool SchemaCatalogue::Refresh() {
    const bool stale = IsStale();
    if (stale) Forget();
    return stale;
}

void SchemaCatalogue::AddEntries(EngineStatement& rows) const {
    while (rows.Step()) {
        Entry entry;
        entry.Name = rows.Text(0);
        entry.IsView = rows.Integer(1) != 0;
        entry.HasCounter = Upper(rows.Text(2)).find("AUTOINCREMENT") != std::string::npos;
        entry.Position = rows.Integer(3);
        if (entry.IsView) entry.FoldedSql = dialect::Fold(rows.Text(2));
        auto key = dialect::Fold(entry.Name);
        entries_.insert_or_assign(std::move(key), std::move(entry));
    }
}

void SchemaCatalogue::ReadNames() const {
    if (version_) return;
    const auto version = Version();
    const auto rows = engine_.Prepare(SelectNames(schema_) + " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
    AddEntries(*rows);
    version_ = version;
}

bool SchemaCatalogue::TableChanged(std::string_view table) {
    // Each change raises the version by one; more than that was another hand's.
    if (!version_ || Version() != *version_ + 1) return false;
    const auto folded = dialect::Fold(table);
    // Another hand may have made it under a name in other letters, which is the one that statements write.
    const auto known = entries_.find(folded);
    if (known != entries_.end() && known->second.Name != table) return false;
    const bool viewed = std::any_of(entries_.begin(), entries_.end(), [&folded](const auto& one) {
        return one.second.IsView && one.second.FoldedSql.find(folded) != std::string::npos;
    });
    if (viewed) return false;
    entries_.erase(folded);
    const auto rows = engine_.Prepare(SelectNames(schema_) + " AND name=?1");
    rows->Bind(0, Value(table));
    AddEntries(*rows);
    ++*version_;
    return true;
}

const dialect::TableInfo* SchemaCatalogue::FindTable(std::string_view name) const {
    ReadNames();
    const auto at = entries_.find(dialect::Fold(name));
    if (at == entries_.end()) return nullptr;
    Entry& entry = at->second;
    if (!entry.Info) entry.Info = entry.IsView ? ReadView(entry) : ReadTable(entry);
    return &*entry.Info;
}

dialect::TableInfo SchemaCatalogue::ReadTable(const Entry& entry) const {
    dialect::TableInfo table{entry.Name, false, {}};
    const auto rows = engine_.Prepare("SELECT name, type, pk FROM pragma_table_info(?1, ?2)");
    rows->Bind(0, Value(entry.Name));
    rows->Bind(1, Value(schema_));
    while (rows->Step()) {
        dialect::ColumnInfo column;
        column.Name = rows->Text(0);
        const auto type = rows->Text(1);
        column.Type = KindOfType(type);
        column.HasTime = TypeName(type) == "TIME";
        column.IsKey = rows->Integer(2) != 0;
        table.Columns.push_back(std::move(column));
    }
    // The engine has counters on a lone integer key only.
    if (entry.HasCounter)
        for (auto& column : table.Columns) column.IsCounter = column.IsKey;
    return table;
}

dialect::TableInfo SchemaCatalogue::ReadView(const Entry& entry) const {
    dialect::TableInfo view{entry.Name, true, {}};
    const auto rows = engine_.Prepare("SELECT * FROM " + Quoted(schema_) + "." + Quoted(entry.Name));
    for (std::size_t i = 0; i < rows->ColumnCount(); ++i) {
        dialect::ColumnInfo column;
        column.Name = rows->ColumnName(i);
        const auto type = rows->DeclaredType(i);
        column.Type = KindOfType(type);
        column.HasTime = TypeName(type) == "TIME";
        view.Columns.push_back(std::move(column));
    }
    return view;
}

std::vector<std::string> SchemaCatalogue::TableNames() const {
    ReadNames();
    std::vector<std::pair<std::int64_t, std::string>> tables;
    for (const auto& [key, entry] : entries_)
        if (!entry.IsView) tables.emplace_back(entry.Position, entry.Name);
    std::sort(tables.begin(), tables.end());
    std::vector<std::string> names;
    names.reserve(tables.size());
    for (auto& [position, name] : tables) names.push_back(std::move(name));
    return names;
}

}  // namespace FX_Algen::store
