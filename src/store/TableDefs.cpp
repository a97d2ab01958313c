#include <algorithm>
#include <charconv>
#include <set>

#include "FX_Algen/Store.h"
#include "store/OpenConnection.h"
#include "store/TableText.h"

namespace FX_Algen::store {

namespace {

struct TypeOfField {
    FieldType Type;
    std::string_view Declared;
    Kind Values;
};

constexpr TypeOfField types[] = {
    {FieldType::Boolean, "BOOLEAN", Kind::Bool}, {FieldType::Integer, "SMALLINT", Kind::I2},
    {FieldType::Long, "INTEGER", Kind::I4},      {FieldType::Single, "FLOAT", Kind::R4},
    {FieldType::Double, "DOUBLE", Kind::R8},     {FieldType::Date, "DATE", Kind::Date},
    {FieldType::Text, "TEXT", Kind::Text},       {FieldType::Memo, "TEXT MEMO", Kind::Text},
};

const TypeOfField& TypeOf(const FieldDef& field) {
    const auto at = std::find_if(std::begin(types), std::end(types),
                                 [&field](const TypeOfField& one) { return one.Type == field.Type; });
    if (at == std::end(types))
        throw Error(ErrorNumber::TypeMismatch, "The field '" + field.Name + "' has no type of the store.");
    return *at;
}

FieldType TypeOf(Kind kind) {
    const auto at = std::find_if(std::begin(types), std::end(types),
                                 [kind](const TypeOfField& one) { return one.Values == kind; });
    return at == std::end(types) ? FieldType::Text : at->Type;
}

std::string TextLiteral(std::string_view text) {
    std::string out = "'";
    for (const char c : text) {
        if (c == '\'') out += '\'';
        out += c;
    }
    return out += '\'';
}

/// A default as the column will hold it: 13 or 6 where it does not fit the type.
std::string DefaultLiteral(const FieldDef& field, Kind kind) {
    const Value value = Value(*field.DefaultValue).As(kind);
    const bool is_text = kind == Kind::Text || kind == Kind::Date;
    return is_text ? TextLiteral(value.Text()) : value.Text();
}

void CheckName(std::string_view what, std::string_view name) {
    const bool reserved = dialect::Fold(name).starts_with("sqlite_");
    if (name.empty() || reserved || name.find('\0') != std::string_view::npos)
        throw Error(ErrorNumber::SyntaxError,
                    std::string(what) + " cannot have the name '" + std::string(name) + "'.");
}

/// The column as CREATE TABLE and ALTER TABLE declare it.
std::string Declaration(const FieldDef& field) {
    CheckName("A field", field.Name);
    const TypeOfField& type = TypeOf(field);
    const auto name = Quoted(field.Name);
    std::string out = name;
    out.append(" ").append(type.Declared);
    const bool sized = field.Type == FieldType::Text && field.Size > 0;
    if (sized) out.append("(").append(std::to_string(field.Size)).append(")");
    if (field.DefaultValue) out.append(" DEFAULT ").append(DefaultLiteral(field, type.Values));
    if (field.Type == FieldType::Boolean) out.append(" CHECK(").append(name).append(" IN (-1,0))");
    if (sized)
        out.append(" CHECK(length(")
            .append(name)
            .append(")<=")
            .append(std::to_string(field.Size))
            .append(")");
    return out;
}

/// Runs a change of the schema; what was known of the table is forgotten then.
void Change(Connection& connection, std::string_view operation, std::string_view table,
            const std::string& sql) {
    try {
        connection.TheEngine().Durable(!IsScratchTable(table));
        connection.TheEngine().Run(sql);
    } catch (const Error& error) {
        throw FailureIn(operation, error, {}, sql);
    }
    connection.TableChanged(table);
}

FieldType TypeOf(std::string_view declared) {
    const bool isMemo = dialect::Fold(declared) == "text memo";
    return isMemo ? FieldType::Memo : TypeOf(KindOfType(declared));
}

/// 50 of "TEXT(50)"; 0 where no size is declared.
std::int32_t SizeOf(std::string_view declared) {
    std::int32_t size = 0;
    const auto at = std::min(declared.find('(') + 1, declared.size());
    if (declared.find('(') != std::string_view::npos)
        std::from_chars(declared.data() + at, declared.data() + declared.size(), size);
    return size;
}

/// A default as text, from the literal that the schema declares; none for Null.
std::optional<std::string> DefaultOf(std::string_view literal) {
    if (dialect::Fold(literal) == "null") return std::nullopt;
    if (literal.size() < 2 || literal.front() != '\'' || literal.back() != '\'') return std::string(literal);
    std::string text;
    for (std::size_t i = 1; i + 1 < literal.size(); ++i) {
        text += literal[i];
        if (literal[i] == '\'') ++i;
    }
    return text;
}

std::vector<FieldDef> FieldsOf(Connection& connection, const std::string& table) {
    std::vector<FieldDef> fields;
    const auto rows =
        connection.TheEngine().Prepare("SELECT name, type, dflt_value FROM pragma_table_info(?1)");
    rows->Bind(0, Value(table));
    while (rows->Step()) {
        const auto declared = rows->Text(1);
        FieldDef field{std::string(rows->Text(0)), TypeOf(declared), SizeOf(declared), std::nullopt};
        if (!rows->IsNull(2)) field.DefaultValue = DefaultOf(rows->Text(2));
        fields.push_back(std::move(field));
    }
    return fields;
}

bool SameName(std::string_view a, std::string_view b) { return dialect::Fold(a) == dialect::Fold(b); }

}  // namespace

std::string CreateTableText(const std::string& table, const std::vector<FieldDef>& fields) {
    std::string sql = "CREATE TABLE " + Quoted(table) + " (";
    for (const auto& field : fields) {
        if (&field != &fields.front()) sql += ", ";
        sql += Declaration(field);
    }
    return sql + ")";
}

bool IsMadeOf(Connection& connection, const std::string& table, const std::vector<FieldDef>& fields) {
    const auto parts = connection.TheEngine().Prepare(
        "SELECT sql, type FROM sqlite_schema WHERE tbl_name=?1 COLLATE NOCASE");
    parts->Bind(0, Value(table));
    if (!parts->Step() || parts->Text(1) != "table" || parts->Text(0) != CreateTableText(table, fields))
        return false;
    return !parts->Step();
}

void EmptyTable(Connection& connection, const std::string& table) {
    const RowChange change(connection, table);
    connection.TheEngine().Run("DELETE FROM " + Quoted(table));
}

void TableDef::Append(const FieldDef& field) {
    const auto folded = dialect::Fold(field.Name);
    const auto is_field = [&folded](const FieldDef& one) { return dialect::Fold(one.Name) == folded; };
    if (std::any_of(fields_.begin(), fields_.end(), is_field))
        throw Error(ErrorNumber::DuplicateKey,
                    "Append: the table '" + name_ + "' has a field '" + field.Name + "' already.");
    const auto declaration = Declaration(field);  // checks it in either case
    if (connection_)
        Change(*connection_, "Append", name_, "ALTER TABLE " + Quoted(name_) + " ADD COLUMN " + declaration);
    fields_.push_back(field);
}

TableDefs::TableDefs(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {
    Refresh();
}

void TableDefs::Refresh() {
    connection_->RefreshSchema();
    tables_.clear();
    for (auto& name : connection_->Tables().TableNames()) {
        TableDef table(std::move(name));
        table.connection_ = connection_;
        tables_.push_back(std::move(table));
    }
}

/// The fields of a table are read when it is first asked for: lists are long, and one is wanted.
TableDef& TableDefs::WithFields(TableDef& table) {
    if (table.fields_.empty()) table.fields_ = FieldsOf(*connection_, table.Name());
    return table;
}

TableDef& TableDefs::At(std::size_t index) {
    if (index >= tables_.size())
        throw Error(ErrorNumber::IndexOutOfRange, "TableDefs: there is no table " + std::to_string(index) +
                                                      " of " + std::to_string(tables_.size()) + ".");
    return tables_[index];
}

TableDef& TableDefs::operator[](std::size_t index) { return WithFields(At(index)); }

const std::string& TableDefs::Name(std::size_t index) { return At(index).Name(); }

TableDef& TableDefs::operator[](std::string_view name) {
    const auto at = std::find_if(tables_.begin(), tables_.end(),
                                 [name](const TableDef& table) { return SameName(table.Name(), name); });
    if (at == tables_.end())
        throw Error(ErrorNumber::UnknownField, "TableDefs: there is no table '" + std::string(name) + "'.");
    return WithFields(*at);
}

void TableDefs::Append(TableDef& table) {
    CheckName("A table", table.Name());
    if (table.Fields().empty())
        throw Error(ErrorNumber::TypeMismatch, "Append: the table '" + table.Name() + "' has no field.");
    connection_->RefreshSchema();
    if (connection_->Tables().FindTable(table.Name()) != nullptr)
        throw Error(ErrorNumber::DuplicateKey, "Append: there is a table '" + table.Name() + "' already.");
    Change(*connection_, "Append", table.Name(), CreateTableText(table.Name(), table.Fields()));
    table.connection_ = connection_;
    tables_.push_back(table);
}

void TableDefs::Delete(std::string_view name) {
    const TableDef& table = (*this)[name];
    const auto real_name = table.Name();
    Change(*connection_, "Delete", real_name, "DROP TABLE " + Quoted(real_name));
    std::erase_if(tables_, [&real_name](const TableDef& one) { return one.Name() == real_name; });
}

}  // namespace FX_Algen::store
