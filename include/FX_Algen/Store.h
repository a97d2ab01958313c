#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Value.h"

/// The record store: databases, open results with a current row, table maintenance.
///
/// Statements are texts in the store's own dialect (`docs/dialect.md`). All failures are thrown as
/// `FX_Algen::Error`. Handles are shared pointers; databases on one path share one connection, and a
/// handle must stay on the thread that opened it.
namespace FX_Algen::store {

class Connection;
class Database;
class Recordset;
namespace detail {
struct RecordsetState;
}

using DatabasePtr = std::shared_ptr<Database>;
using RecordsetPtr = std::shared_ptr<Recordset>;

/// Types of fields for table maintenance, with the numbers that hosts know.
enum class FieldType : std::int16_t {
    Boolean = 1,
    Integer = 3,  ///< 16-bit
    Long = 4,     ///< 32-bit
    Single = 6,   ///< 32-bit float
    Double = 7,   ///< 64-bit float
    Date = 8,
    Text = 10,
    Memo = 12,
};

/// A field of a table in the making, or of an existing one.
struct FieldDef {
    std::string Name;
    FieldType Type = FieldType::Long;
    std::int32_t Size = 0;                    ///< characters of a Text field; 0 = no limit
    std::optional<std::string> DefaultValue;  ///< as text, "0"; none = Null
    // A field read from `TableDefs` carries both as far as the table declares them.
};

/// A table: made by `Database::CreateTableDef`, filled with `Append`, put into the database by
/// `TableDefs::Append`; or read from `TableDefs`, where `Append` adds a column to the existing table.
class TableDef {
public:
    const std::string& Name() const noexcept { return name_; }
    const std::vector<FieldDef>& Fields() const noexcept { return fields_; }

    static FieldDef CreateField(std::string name, FieldType type, std::int32_t size = 0) {
        return FieldDef{std::move(name), type, size, std::nullopt};
    }
    /// Adds a field; on a table that exists already the column is added at once.
    void Append(const FieldDef& field);

private:
    friend class Database;
    friend class TableDefs;
    explicit TableDef(std::string name) : name_(std::move(name)) {}
    std::string name_;
    std::vector<FieldDef> fields_;
    std::shared_ptr<Connection> connection_;  ///< set once the table exists
};

/// The tables of a database, by position or by name (without regard to case).
class TableDefs {
public:
    void Refresh();  ///< reads the list anew
    std::size_t Count() const noexcept { return tables_.size(); }
    TableDef& operator[](std::size_t index);      ///< 381 past the end
    const std::string& Name(std::size_t index);   ///< of a table, whose fields are not read; 381 past the end
    TableDef& operator[](std::string_view name);  ///< 3265 if there is none
    void Append(TableDef& table);                 ///< creates the table; 13 without a field
    void Delete(std::string_view name);           ///< 3265 if there is none

private:
    friend class Database;
    explicit TableDefs(std::shared_ptr<Connection> connection);
    TableDef& At(std::size_t index);
    TableDef& WithFields(TableDef& table);
    std::shared_ptr<Connection> connection_;
    std::vector<TableDef> tables_;
};

/// One database file.
class Database : public std::enable_shared_from_this<Database> {
public:
    explicit Database(std::shared_ptr<Connection> connection, std::string name = {})
        : connection_(std::move(connection)), name_(std::move(name)) {}

    /// Path as it was given at opening.
    const std::string& Name() const;

    /// Opens a SELECT statement, or a table or view by its name. The rows are read when it is opened, so
    /// that later changes do not disturb a loop over them; `Requery` reads them anew.
    RecordsetPtr OpenRecordset(std::string_view source);

    /// Runs one INSERT, UPDATE or DELETE. The change is final when the call returns.
    void Execute(std::string_view statement);

    /// Rows changed by the last `Execute`.
    std::int32_t RecordsAffected() const noexcept { return affected_; }

    class TableDefs TableDefs();
    TableDef CreateTableDef(std::string name) const;

    /// Lets go of the connection; further calls fail with 3343. Open recordsets keep it alive.
    void Close() noexcept { connection_.reset(); }

    /// For the library's own use.
    const std::shared_ptr<Connection>& SharedConnection() const;

private:
    std::shared_ptr<Connection> connection_;
    std::string name_;
    std::int32_t affected_ = 0;
};

/// Opens databases by path.
class Workspace {
public:
    /// 53 if the file does not exist, 3343 if it is not a database of this layout version.
    DatabasePtr OpenDatabase(const std::string& path) const;
};
using WorkspacePtr = std::shared_ptr<Workspace>;

/// A column of an open result.
struct ResultField {
    std::string Name;                   ///< "Field", or "Table.Field" where one select names it twice
    Kind Type = Kind::Null;             ///< Null where the statement does not tell
    std::optional<std::string> Table;   ///< base table, where the column is one
    std::optional<std::string> Column;  ///< column of that table
};

/// An open result with a current row.
///
/// Fields are found by name without regard to case; an unknown name fails with 3265, an access without a
/// current row with 3021. Single tables are updatable, joins by their base-table columns; grouped and
/// DISTINCT results are not.
class Recordset {
public:
    explicit Recordset(std::unique_ptr<detail::RecordsetState> state);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Eof() const noexcept;  ///< the current position is behind the last row
    bool Bof() const noexcept;  ///< the current position is before the first row; both = empty result

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    std::int32_t RecordCount() const noexcept;

    const std::vector<ResultField>& Fields() const noexcept;
    /// Position of a field by name; 3265 if there is none.
    std::size_t FieldIndex(std::string_view name) const;
    /// Value of the current row (of the row in edit, while there is one).
    const Value& operator[](std::string_view name) const;
    const Value& operator[](std::size_t index) const;  ///< 3265 past the last field

    void Edit();
    /// Starts a new row: its fields show Null until they are set, and what the table made of the others
    /// (defaults, counter) once `Update` has written it. 3021 on a join, whatever columns it shows.
    void AddNew();
    /// Sets a field of the row in edit; the value is converted to the column's kind at once (13, 6). Of a
    /// date, a column of days takes the day alone, a column of times the time. Each field that shows the
    /// column shows the value.
    void Collect(std::string_view name, const Value& value);
    /// Writes the row in edit (3022, 3200). After `AddNew` the former current row is current again.
    void Update();
    void CancelUpdate() noexcept;
    void Delete();  ///< removes the current row from the table; 3021 on a join
    bool Updatable() const noexcept;
    /// Values that counters took in the last `Update` after `AddNew`; Null if there was none.
    Value LastCounter() const;

    /// Goes to the first row that meets the criterion, a condition in the dialect without WHERE, such as
    /// "Kurzzeichen='K'". Where none does, `NoMatch` is true and the current row stays.
    void FindFirst(std::string_view criterion);
    bool NoMatch() const noexcept;

    void Requery();
    void Close() noexcept;

private:
    std::unique_ptr<detail::RecordsetState> state_;
};

}  // namespace FX_Algen::store
