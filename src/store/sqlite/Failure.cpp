#include "store/sqlite/Failure.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "store/dialect/FunctionNames.h"

namespace FX_Algen::store::sqlite {

namespace {

struct Cause {
    std::int32_t Number = 0;
    std::string Words;
};

/// "FX<number>:<description>", as the functions of the dialect report their failures.
std::optional<Cause> OfFunction(std::string_view message) {
    constexpr std::string_view prefix = dialect::names::ErrorPrefix;
    if (!message.starts_with(prefix)) return std::nullopt;
    message.remove_prefix(prefix.size());
    Cause out;
    const auto [end, failure] = std::from_chars(message.data(), message.data() + message.size(), out.Number);
    if (failure != std::errc{} || end == message.data() + message.size() || *end != ':') return std::nullopt;
    out.Words = std::string(end + 1, message.data() + message.size());
    return out;
}

/// What stands behind "… constraint failed: ", such as "awaErgProjekt.ID, awaErgProjekt.KAOnly".
std::string_view Behind(std::string_view message, std::string_view mark) {
    const auto at = message.find(mark);
    return at == std::string_view::npos ? message : message.substr(at + mark.size());
}

Cause OfConstraint(int code, std::string_view message) {
    const std::string place(Behind(message, "constraint failed: "));
    switch (code) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return {ErrorNumber::DuplicateKey,
                    "Duplicate key: there is a row with the same value of " + place + " already."};
        case SQLITE_CONSTRAINT_NOTNULL:
            return {ErrorNumber::InvalidUseOfNull, "Invalid use of Null: " + place + " needs a value."};
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            return {ErrorNumber::RowIsReferredTo,
                    "Other rows refer to the row, or it refers to a row that does not exist."};
        case SQLITE_CONSTRAINT_TRIGGER:
            return {ErrorNumber::RowIsReferredTo, std::string(message)};
        default:
            if (place.ends_with("<= 2147483647"))
                return {ErrorNumber::Overflow, "Overflow: the key does not fit 32 bits (" + place +
                                                   "); the counter has given out its last number."};
            return {ErrorNumber::TypeMismatch, "A value does not meet the table's condition: " + place + "."};
    }
}

Cause OfStatement(std::string_view message) {
    // The engine has no codes of its own for these; the beginnings of its texts are stable.
    static constexpr std::pair<std::string_view, std::int32_t> known[] = {
        {"no such table", ErrorNumber::UnknownTable},
        {"no such view", ErrorNumber::UnknownTable},
        {"no such column", ErrorNumber::UnknownName},
        {"ambiguous column name", ErrorNumber::UnknownName},
        {"too many columns", ErrorNumber::Overflow},
        {"integer overflow", ErrorNumber::Overflow},
        {"duplicate column name", ErrorNumber::DuplicateKey},
    };
    for (const std::string_view beginning : {"parser stack overflow", "Expression tree is too large"})
        if (message.starts_with(beginning))
            return {ErrorNumber::SyntaxError, "The statement is nested too deeply, or has too many parts."};
    for (const auto& [beginning, number] : known)
        if (message.starts_with(beginning)) return {number, std::string(message) + "."};
    if (message.ends_with("already exists")) return {ErrorNumber::DuplicateKey, std::string(message) + "."};
    return {ErrorNumber::SyntaxError, std::string(message) + "."};
}

Cause OfFile(int code, std::string_view message) {
    std::string words;
    switch (code & 0xff) {
        case SQLITE_NOTADB:
            words = "The file is not a database";
            break;
        case SQLITE_CORRUPT:
            words = "The database is damaged";
            break;
        case SQLITE_CANTOPEN:
            words = "The file cannot be opened";
            break;
        case SQLITE_READONLY:
            words = "The database is read-only";
            break;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            words = "The database is in use by another program";
            break;
        case SQLITE_FULL:
            words = "The disk is full";
            break;
        case SQLITE_IOERR:
            words = "The disk cannot be read or written";
            break;
        case SQLITE_PERM:
        case SQLITE_AUTH:
            words = "The file may not be used";
            break;
        default:
            words = "The database cannot do this";
            break;
    }
    return {ErrorNumber::NotADatabase, words + ": " + std::string(message) + "."};
}

Cause CauseOf(int code, std::string_view message) {
    if (auto cause = OfFunction(message)) return *std::move(cause);
    switch (code & 0xff) {
        case SQLITE_CONSTRAINT:
            return OfConstraint(code, message);
        case SQLITE_MISMATCH:
            return {ErrorNumber::TypeMismatch, "Type mismatch: a key takes whole numbers only."};
        case SQLITE_TOOBIG:
            return {ErrorNumber::Overflow, "Overflow: a text or statement is too long."};
        case SQLITE_ERROR:
            return OfStatement(message);
        default:
            return OfFile(code, message);
    }
}

}  // namespace

Error FailureOf(int code, std::string_view message, std::string_view sql) {
    const Cause cause = CauseOf(code, message);
    return {cause.Number, cause.Words, {}, std::string(sql)};
}

Error FailureOf(sqlite3* db, std::string_view sql) {
    return FailureOf(sqlite3_extended_errcode(db), sqlite3_errmsg(db), sql);
}

}  // namespace FX_Algen::store::sqlite
