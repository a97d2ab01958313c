#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace FX_Algen {

/// Numbers of failed calls. A host branches on them, so they never change.
namespace ErrorNumber {
inline constexpr std::int32_t Overflow = 6;  ///< a value does not fit the integer or column it is put into
inline constexpr std::int32_t DivisionByZero = 11;  ///< division by zero, in a statement or in an assessment
inline constexpr std::int32_t TypeMismatch = 13;    ///< a value of one kind where another is needed
inline constexpr std::int32_t FileNotFound = 53;    ///< a database path that does not exist
inline constexpr std::int32_t InvalidUseOfNull = 94;   ///< a Null where a number or text is needed
inline constexpr std::int32_t StringNotFound = 326;    ///< a string number without text
inline constexpr std::int32_t IndexOutOfRange = 381;   ///< an index past a list's end
inline constexpr std::int32_t NotBuilt = 445;          ///< an operation that this version does not offer
inline constexpr std::int32_t NoCurrentRecord = 3021;  ///< no current row, or no row in edit
inline constexpr std::int32_t DuplicateKey = 3022;     ///< a key or unique index holds the value already
inline constexpr std::int32_t UnknownName = 3061;      ///< a name in a statement that no table in it has
inline constexpr std::int32_t SyntaxError = 3075;      ///< a statement that cannot be read
inline constexpr std::int32_t UnknownTable = 3078;     ///< a table or view that the database does not have
inline constexpr std::int32_t RowIsReferredTo =
    3200;                                           ///< a row that others refer to, or a reference to no row
inline constexpr std::int32_t UnknownField = 3265;  ///< a field, table or other item not in a collection
/// not a database, one of another layout version, or one that cannot be used: locked by another program,
/// read-only, disk full, failure of the disk
inline constexpr std::int32_t NotADatabase = 3343;
}  // namespace ErrorNumber

/// A failed call: what the host sees of any failure inside the module.
///
/// `Number()` is one of `ErrorNumber`, `Description()` says operation, statement and cause in words.
/// Where a statement was involved, `Statement()` is its text as composed and `Translated()` the text
/// that was handed to the engine; both are empty otherwise.
class Error : public std::runtime_error {
public:
    Error(std::int32_t number, const std::string& description, std::string statement = {},
          std::string translated = {})
        : std::runtime_error(description),
          number_(number),
          statement_(std::move(statement)),
          translated_(std::move(translated)) {}

    std::int32_t Number() const noexcept { return number_; }
    std::string Description() const { return what(); }
    const std::string& Statement() const noexcept { return statement_; }
    const std::string& Translated() const noexcept { return translated_; }

private:
    std::int32_t number_;
    std::string statement_;
    std::string translated_;
};

}  // namespace FX_Algen
