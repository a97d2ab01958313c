#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Value.h"
#include "store/dialect/Catalogue.h"

namespace FX_Algen::store::dialect {

/// A literal of a statement text: where it stands and what it holds.
struct Literal {
    enum class Type : std::uint8_t { Number, Text, Date };
    Type Is = Type::Number;
    std::string_view Raw;  ///< as written, with quotes or # signs; points into the statement text
};

/// The key of a statement: its text with each literal replaced by a mark of its type, blanks folded
/// outside quotes, and the literals in order. One pass, no allocation beyond the two buffers, which are
/// reused. Fails with 3075 on a text or date constant that does not end.
struct Shape {
    std::string Key;
    std::vector<Literal> Literals;
};
void ScanShape(std::string_view statement, Shape& shape);

/// Value of a literal: a number as I4 where it is whole and fits, else R8; a text with its doubled
/// quotes resolved; a date (month/day/year, also with a time) as ISO text. 3075 where it is malformed.
Value LiteralValue(const Literal& literal);

/// One parameter of the translated statement, bound from a literal at each run.
struct Binding {
    std::size_t LiteralIndex = 0;
    bool Negate = false;          ///< the literal stood behind a minus sign
    Kind ConvertTo = Kind::Null;  ///< convert as at a write into a column of this kind; Null = as it is
    bool IsPattern = false;       ///< a LIKE pattern: check that its brackets close (3075)
    bool DayOnly = false;         ///< (dates) the column is of type DATE, not TIME
};

/// A literal that is part of the translated text, so the translation holds for this value alone.
struct Pinned {
    std::size_t LiteralIndex = 0;
    std::string Raw;
};

/// A column of the result.
struct ResultColumn {
    std::string Name;        ///< "Field", or "Table.Field" where the select names it twice
    Kind Type = Kind::Null;  ///< Null where it cannot be told before a row is read
    std::optional<std::string>
        Alias;  ///< alias of the source the column comes from, where it is a base column
    std::optional<std::string> Table;   ///< its base table
    std::optional<std::string> Column;  ///< its column there
};

/// A hidden column behind the visible ones that carries the row identity of a base table of an updatable
/// SELECT; Null in the row where an outer join found no row. Of a join, the tables that have columns in the
/// result have one.
struct RowIdColumn {
    std::string Alias;
    std::string Table;
};

struct Translation {
    enum class Verb : std::uint8_t { Select, Insert, Update, Delete };
    Verb Is = Verb::Select;
    std::string Sql;  ///< for the engine, parameters ?1 … ?n in the order of `Bindings`
    std::vector<Binding> Bindings;
    std::vector<Pinned> Pins;
    std::vector<ResultColumn> Columns;        ///< of a SELECT
    std::vector<RowIdColumn> RowIds;          ///< of an updatable SELECT, in the order of the hidden columns
    bool IsJoin = false;                      ///< of a SELECT: several tables stand in FROM
    std::string Target;                       ///< table that an action statement changes
    std::optional<std::string> ExternalPath;  ///< INSERT … IN 'path': database file that holds the target
};

/// Where the target of INSERT … IN 'path' lies: its catalogue and the schema name it has on the connection.
struct External {
    const Catalogue* Tables = nullptr;
    std::string SchemaName;
};
class ExternalSource {
public:
    virtual ~ExternalSource() = default;
    /// Makes the file at `path` reachable from this connection; 53 or 3343 if it cannot be.
    virtual External Attach(const std::string& path) = 0;
};

/// Translates one statement. `shape` must come from the same text.
///
/// Errors: 3075 with line, column and token for what the dialect does not have; 3061 unknown name (or one
/// that several tables have); 3078 unknown table; 13 a comparison or sum of kinds that do not fit.
Translation Translate(std::string_view statement, const Shape& shape, const Catalogue& catalogue,
                      ExternalSource* external = nullptr);

/// `source` of OpenRecordset may be a bare table name: its SELECT, else nothing.
std::optional<std::string> TableSource(std::string_view source, const Catalogue& catalogue);

/// Whether a text starts with a word of the language, such as SELECT; no table is meant then.
bool StartsWithWord(std::string_view text);

/// A criterion of FindFirst over the columns of an open result: an engine statement "SELECT 1 WHERE …"
/// whose parameters are first the values of `ColumnsUsed` of the row, then nothing else.
struct Criterion {
    std::string Sql;
    std::vector<std::size_t> ColumnsUsed;
    std::vector<Value> Literals;        ///< bound behind the columns
    std::vector<std::size_t> Patterns;  ///< positions of LIKE patterns among them
};
Criterion TranslateCriterion(std::string_view criterion, const std::vector<ResultColumn>& columns);

}  // namespace FX_Algen::store::dialect
