#include "store/sqlite/SqliteStatement.h"

#include <cmath>
#include <limits>
#include <utility>

#include "store/sqlite/Failure.h"

namespace FX_Algen::store::sqlite {

namespace {

/// Parameters of the engine count from 1.
int Parameter(std::size_t index) { return static_cast<int>(index) + 1; }

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = static_cast<const char*>(static_cast<const void*>(sqlite3_value_text(value)));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

template <class Integer>
bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<Integer>::min() && number <= std::numeric_limits<Integer>::max();
}

[[noreturn]] void FailNotFinite() {
    throw Error(ErrorNumber::Overflow, "Overflow: a calculation went beyond what 64 bits hold.");
}

// A value is made in its place: results have many of them. `Make(v)` does so from what the engine holds.

template <class Make>
void OfInteger(std::int64_t number, Kind kind, Make make) {
    switch (kind) {
        case Kind::I2:
            if (Fits<std::int16_t>(number)) return make(static_cast<std::int16_t>(number));
            break;
        case Kind::Null:
        case Kind::I4:
            if (Fits<std::int32_t>(number)) return make(static_cast<std::int32_t>(number));
            break;
        case Kind::Bool:
            return make(number != 0);
        default:
            break;
    }
    // Beyond 2^53 the nearest 64-bit float says as much as a message needs.
    make(Value(static_cast<double>(number)).As(kind));
}

template <class Make>
void OfReal(double number, Kind kind, Make make) {
    if (!std::isfinite(number)) FailNotFinite();
    switch (kind) {
        case Kind::Null:
        case Kind::R8:
            return make(number);
        case Kind::R4:
            return make(Value(number).R4());
        default:
            return make(Value(number).As(kind));
    }
}

template <class Make>
void OfText(std::string_view text, Kind kind, Make make) {
    switch (kind) {
        case Kind::Null:
        case Kind::Text:
            return make(text);
        case Kind::Date:
            return make(Date{std::string(text)});
        default:
            return make(Value(text).As(kind));
    }
}

template <class Make>
void ColumnValue(sqlite3_stmt* statement, int column, Kind kind, Make make) {
    // One look at the column: the connection is used by one thread alone, so the value stays as it is.
    sqlite3_value* value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return make(Value());
        case SQLITE_INTEGER:
            return OfInteger(sqlite3_value_int64(value), kind, make);
        case SQLITE_FLOAT:
            return OfReal(sqlite3_value_double(value), kind, make);
        default:
            return OfText(TextOf(value), kind, make);
    }
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* db, std::string_view sql) : db_(db) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) throw FailureOf(db, sql);
    if (!statement_) throw FailureOf(SQLITE_ERROR, "The statement is empty", sql);
}

std::string_view SqliteStatement::Sql() const { return sqlite3_sql(statement_.get()); }

void SqliteStatement::Check(int code) const {
    if (code != SQLITE_OK) throw FailureOf(db_, Sql());
}

void SqliteStatement::Bind(std::size_t index, const Value& value) {
    switch (value.kind()) {
        case Kind::Null:
            return BindNull(index);
        case Kind::I2:
        case Kind::I4:
        case Kind::Bool:
            return BindInteger(index, value.I4());
        case Kind::R4:
        case Kind::R8:
            return BindReal(index, value.R8());
        case Kind::Text:
        case Kind::Date: {
            const std::string text = value.Text();
            return Check(sqlite3_bind_text64(statement_.get(), Parameter(index), text.data(), text.size(),
                                             SQLITE_TRANSIENT, SQLITE_UTF8));
        }
    }
}

void SqliteStatement::BindNull(std::size_t index) {
    Check(sqlite3_bind_null(statement_.get(), Parameter(index)));
}

void SqliteStatement::BindInteger(std::size_t index, std::int64_t value) {
    Check(sqlite3_bind_int64(statement_.get(), Parameter(index), value));
}

void SqliteStatement::BindReal(std::size_t index, double value) {
    if (!std::isfinite(value)) FailNotFinite();
    Check(sqlite3_bind_double(statement_.get(), Parameter(index), value));
}

void SqliteStatement::BindText(std::size_t index, std::string_view text) {
    // A null pointer would bind Null, not an empty text.
    const char* data = text.data() != nullptr ? text.data() : "";
    Check(sqlite3_bind_text64(statement_.get(), Parameter(index), data, text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
}

bool SqliteStatement::Step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    throw FailureOf(db_, Sql());
}

void SqliteStatement::Reset() noexcept {
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

std::size_t SqliteStatement::ColumnCount() const {
    return static_cast<std::size_t>(sqlite3_column_count(statement_.get()));
}

bool SqliteStatement::IsNull(std::size_t column) const {
    return sqlite3_column_type(statement_.get(), static_cast<int>(column)) == SQLITE_NULL;
}

std::int64_t SqliteStatement::Integer(std::size_t column) const {
    return sqlite3_column_int64(statement_.get(), static_cast<int>(column));
}

double SqliteStatement::Real(std::size_t column) const {
    return sqlite3_column_double(statement_.get(), static_cast<int>(column));
}

std::string_view SqliteStatement::Text(std::size_t column) const {
    return TextOf(sqlite3_column_value(statement_.get(), static_cast<int>(column)));
}

Value SqliteStatement::Column(std::size_t column, Kind kind) const {
    Value out;
    ColumnValue(statement_.get(), static_cast<int>(column), kind,
                [&out](auto&& value) { out = Value(std::forward<decltype(value)>(value)); });
    return out;
}

void SqliteStatement::AppendRow(std::span<const Kind> kinds, std::vector<Value>& out) const {
    int column = 0;
    for (const Kind kind : kinds)
        ColumnValue(statement_.get(), column++, kind,
                    [&out](auto&& value) { out.emplace_back(std::forward<decltype(value)>(value)); });
}

void SqliteStatement::AppendRowIds(std::size_t first, std::size_t count,
                                   std::vector<std::optional<std::int64_t>>& out) const {
    for (std::size_t i = 0; i < count; ++i) {
        sqlite3_value* value = sqlite3_column_value(statement_.get(), static_cast<int>(first + i));
        if (sqlite3_value_type(value) == SQLITE_NULL)
            out.emplace_back();
        else
            out.emplace_back(sqlite3_value_int64(value));
    }
}

std::string SqliteStatement::ColumnName(std::size_t column) const {
    const char* name = sqlite3_column_name(statement_.get(), static_cast<int>(column));
    return name != nullptr ? name : "";
}

std::string SqliteStatement::DeclaredType(std::size_t column) const {
    const char* type = sqlite3_column_decltype(statement_.get(), static_cast<int>(column));
    return type != nullptr ? type : "";
}

bool SqliteStatement::PreparedAnew() {
    const int count = sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
    const bool anew = count != prepared_anew_;
    prepared_anew_ = count;
    return anew;
}

}  // namespace FX_Algen::store::sqlite
