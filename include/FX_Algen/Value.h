#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace FX_Algen::store {

/// Kinds of values that a field can hold.
enum class Kind : std::uint8_t {
    Null,
    I2,    ///< signed 16-bit integer, column type SMALLINT
    I4,    ///< signed 32-bit integer, column type INTEGER
    R4,    ///< 32-bit float, column type FLOAT
    R8,    ///< 64-bit float, column type DOUBLE
    Bool,  ///< true or false, stored and written as -1 and 0, column type BOOLEAN
    Text,  ///< UTF-8 text, column type TEXT
    Date,  ///< a day, a time of day, or both: column types DATE and TIME
};

/// English name of a kind for messages, such as "a 16-bit integer".
std::string_view KindName(Kind kind);

/// A point in time as ISO text: "2026-05-12", "2026-05-12 09:30:00" or "09:30:00".
struct Date {
    std::string Iso;
    friend bool operator==(const Date&, const Date&) = default;
};

/// A field value that may be Null.
///
/// The conversions follow the store: a Null fails with 94, text that is no number and other pairs that
/// do not fit with 13, a number outside the target's range with 6. Conversion to an integer rounds half
/// to even. A boolean is -1 or 0 as a number, and any number other than 0 is true.
class Value {
public:
    Value() noexcept = default;
    Value(std::int16_t v) noexcept : data_(v) {}
    Value(std::int32_t v) noexcept : data_(v) {}
    Value(float v) noexcept : data_(v) {}
    Value(double v) noexcept : data_(v) {}
    Value(bool v) noexcept : data_(v) {}
    Value(std::string v) noexcept : data_(std::move(v)) {}
    Value(std::string_view v) : data_(std::string(v)) {}
    Value(const char* v) : data_(std::string(v)) {}
    Value(Date v) noexcept : data_(std::move(v)) {}

    Kind kind() const noexcept { return static_cast<Kind>(data_.index()); }
    bool IsNull() const noexcept { return data_.index() == 0; }

    std::int16_t I2() const;
    std::int32_t I4() const;
    float R4() const;
    double R8() const;
    bool Bool() const;
    /// Numbers as `NumberText`, booleans as "-1" and "0", dates as ISO text.
    std::string Text() const;
    /// The ISO text of a date, or of a text that is one ("2026-05-12", "12.05.2026", "09:30").
    Date AsDate() const;

    /// This value as `kind`, converted as the store does when it writes a column; Null stays Null.
    Value As(Kind kind) const;

    /// The text itself without a copy; nullptr where the value is not Text.
    const std::string* TextOrNull() const noexcept { return std::get_if<std::string>(&data_); }

    /// Same kind and same content (Null equals Null): for tests and comparison of rows.
    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, bool, std::string, Date> data_;
};

/// A number as text for statements and messages: decimal point whatever the locale, the shortest text
/// that reads back the same; 32-bit floats with at most 7 digits.
std::string NumberText(std::int32_t v);
std::string NumberText(float v);
std::string NumberText(double v);

/// The shortest decimal text that reads back the same 32-bit float, with 9 digits at most: for files and
/// interfaces that hand a value on, where the 7 digits of `NumberText` would lose its last bits.
std::string ExactText(float v);

}  // namespace FX_Algen::store
