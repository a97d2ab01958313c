#include "store/load/Misfits.h"

#include "store/load/Csv.h"
#include "store/load/Problems.h"

namespace FX_Algen::store::load {
namespace {

constexpr std::size_t MostLines = 100;

/// Condition that a cell of the column is a misfit; texts are looked at apart, for their encoding.
std::string Condition(const TargetColumn& column) {
    const std::string name = Name(column.Name);
    const std::string type = "typeof(" + name + ")";
    const auto outside = [&](const char* least, const char* most) {
        return "(" + name + " IS NOT NULL AND (" + type + " <> 'integer' OR " + name + " NOT BETWEEN " +
               least + " AND " + most + "))";
    };
    switch (column.Type) {
        case Kind::I2:
            return outside("-32768", "32767");
        case Kind::I4:
            return outside("-2147483648", "2147483647");
        case Kind::Bool:
            return outside("-1", "0");
        case Kind::R4:
        case Kind::R8:
            // 9e999 is how the engine writes what is infinite; no file could bring it back.
            return "(" + type + " NOT IN ('null', 'real', 'integer') OR " + name + " IN (9e999, -9e999))";
        case Kind::Text:
        case Kind::Date:
        case Kind::Null:
            break;
    }
    return type + " NOT IN ('null', 'text')";
}

/// The key of a row in words; without a key its place.
std::string KeyColumns(const TargetTable& table) {
    if (!table.HasKey) return "'row ' || rowid";
    std::string out;
    for (const std::size_t column : table.Unique.front()) {
        const std::string& name = table.Columns[column].Name;
        out += (out.empty() ? "" : " || ', ' || ") + Literal(name + " ") + " || " + Name(name);
    }
    return out;
}

bool HoldsText(const TargetColumn& column) {
    return column.Type == Kind::Text || column.Type == Kind::Date || column.Type == Kind::Null;
}

}  // namespace

void Misfits::Find(Engine& engine, const TargetTable& table) {
    std::string any;
    for (const TargetColumn& column : table.Columns) any += (any.empty() ? "" : " OR ") + Condition(column);
    const auto tell = [&](std::string_view key, const TargetColumn& column, const std::string& what) {
        if (++count_ <= MostLines)
            lines_.push_back(table.Name + ", " + Printable(key) + ", " + column.Name + ": " + what);
    };
    if (IntegerOf(engine, "SELECT EXISTS (SELECT 1 FROM " + Name(table.Name) + " WHERE " + any + ")") != 0) {
        for (const TargetColumn& column : table.Columns) {
            const std::string name = Name(column.Name);
            const auto cells = engine.Prepare("SELECT " + KeyColumns(table) + ", typeof(" + name +
                                              "), quote(" + name + ") FROM " + Name(table.Name) + " WHERE " +
                                              Condition(column) + " ORDER BY rowid");
            while (cells->Step())
                tell(cells->Text(0), column,
                     std::string(cells->Text(1)) + " " + Quoted(cells->Text(2)) +
                         " in a column of the kind " + std::string(KindName(column.Type)));
        }
    }
    for (const TargetColumn& column : table.Columns) {
        if (!HoldsText(column)) continue;
        const std::string name = Name(column.Name);
        const auto cells = engine.Prepare("SELECT " + KeyColumns(table) + ", " + name + " FROM " +
                                          Name(table.Name) + " WHERE typeof(" + name + ") = 'text'");
        while (cells->Step())
            if (FirstBadByte(cells->Text(1))) tell(cells->Text(0), column, "the text is not UTF-8");
    }
}

std::string Misfits::Text() const {
    std::string out;
    for (const auto& line : lines_) out += (out.empty() ? "" : "\n") + line;
    if (count_ > lines_.size()) out += "\nand " + std::to_string(count_ - lines_.size()) + " more";
    return out;
}

}  // namespace FX_Algen::store::load
