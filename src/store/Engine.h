#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Value.h"

namespace FX_Algen::store {

/// One prepared statement of the engine. Positions of parameters and columns count from 0.
class EngineStatement {
public:
    virtual ~EngineStatement() = default;
    virtual void Bind(std::size_t index, const Value& value) = 0;
    virtual void BindNull(std::size_t index) = 0;
    virtual void BindInteger(std::size_t index, std::int64_t value) = 0;
    virtual void BindReal(std::size_t index, double value) = 0;
    /// `text` must live until the next Reset.
    virtual void BindText(std::size_t index, std::string_view text) = 0;
    /// Goes to the next row; false at the end. Failures are `Error` (3022, 3200, those of functions, …).
    virtual bool Step() = 0;
    /// Ready to be bound and stepped again; bindings are dropped.
    virtual void Reset() noexcept = 0;

    virtual std::size_t ColumnCount() const = 0;
    virtual bool IsNull(std::size_t column) const = 0;
    virtual std::int64_t Integer(std::size_t column) const = 0;
    virtual double Real(std::size_t column) const = 0;
    virtual std::string_view Text(std::size_t column) const = 0;  ///< valid until the next Step or Reset
    /// The column of the current row as a value of `kind`; Kind::Null: as the engine holds it.
    virtual Value Column(std::size_t column, Kind kind) const = 0;
    /// Appends the first columns of the current row to `out`, one a kind. Where a value does not fit its
    /// kind, those before it have been appended.
    virtual void AppendRow(std::span<const Kind> kinds, std::vector<Value>& out) const = 0;
    /// Appends row identities, which stand in `count` columns from `first` on; none for Null.
    virtual void AppendRowIds(std::size_t first, std::size_t count,
                              std::vector<std::optional<std::int64_t>>& out) const = 0;

    virtual std::string ColumnName(std::size_t column) const = 0;
    /// Type name that the schema declares for the column; empty for an expression.
    virtual std::string DeclaredType(std::size_t column) const = 0;
    /// Whether the engine had to prepare the statement anew since the last call, as it does when the schema
    /// has changed under it.
    virtual bool PreparedAnew() = 0;
};

/// The port to the embedded engine: one open database file, statements in the engine's own language.
class Engine {
public:
    virtual ~Engine() = default;
    virtual std::unique_ptr<EngineStatement> Prepare(std::string_view sql) = 0;
    /// Runs statements that give no rows and take no parameters, separated by ";".
    virtual void Run(const std::string& sql) = 0;
    /// Rows changed by the last statement, triggers and cascades not counted.
    virtual std::int64_t Changes() const = 0;
    /// Rows changed since the file was opened, triggers and cascades counted.
    virtual std::int64_t TotalChanges() const = 0;
    /// A number that is another one once another connection changed the file.
    virtual std::int64_t ForeignChanges() = 0;
    /// Row identity of the last insert.
    virtual std::int64_t LastRowId() const = 0;
    /// What the next changes must survive: a power failure (true) or a crash of the program (false).
    /// Inside a transaction the call has no effect.
    virtual void Durable(bool powerFailure) = 0;
    /// The same for a database that was attached under the name `schema`.
    virtual void DurableIn(const std::string& schema, bool powerFailure) = 0;
    virtual bool InTransaction() const = 0;
    /// Makes the file log its changes ahead, as a file that was created does; nothing where it may not be
    /// written. Opening alone leaves a file as it is, since it may turn out to be another program's.
    virtual void WriteAhead() = 0;
    /// Columns that a table can have at most so that all of them can be opened and changed.
    virtual std::size_t MostColumns() const = 0;
    /// Whether the file was opened for writing, too.
    virtual bool CanWrite() const = 0;
};

/// Opens the file at `path`. 53 if it does not exist and `create` is false, 3343 if it is no database.
std::unique_ptr<Engine> OpenEngine(const std::string& path, bool create);

}  // namespace FX_Algen::store
