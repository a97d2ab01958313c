#include "store/sqlite/Functions.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "FX_Algen/Error.h"
#include "FX_Algen/Value.h"
#include "store/ColumnValue.h"
#include "store/Format.h"
#include "store/LikePattern.h"
#include "store/TextOrder.h"
#include "store/dialect/FunctionNames.h"
#include "store/sqlite/Failure.h"

namespace FX_Algen::store::sqlite {

namespace {

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = static_cast<const char*>(static_cast<const void*>(sqlite3_value_text(value)));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Value ValueOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER: {
            const auto number = sqlite3_value_int64(value);
            if (number >= std::numeric_limits<std::int32_t>::min() &&
                number <= std::numeric_limits<std::int32_t>::max())
                return static_cast<std::int32_t>(number);
            return static_cast<double>(number);
        }
        case SQLITE_FLOAT: {
            const double number = sqlite3_value_double(value);
            if (!std::isfinite(number))
                throw Error(ErrorNumber::Overflow, "Overflow: a calculation went beyond what 64 bits hold.");
            return number;
        }
        case SQLITE_NULL:
            return {};
        default:
            return TextOf(value);
    }
}

/// The argument that names a kind by its number.
Kind KindOf(sqlite3_value* value) {
    const int number = sqlite3_value_int(value);
    if (number < static_cast<int>(Kind::Null) || number > static_cast<int>(Kind::Date)) return Kind::Null;
    return static_cast<Kind>(number);
}

void ResultText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Result(sqlite3_context* context, const Value& value) {
    switch (value.kind()) {
        case Kind::Null:
            return sqlite3_result_null(context);
        case Kind::I2:
        case Kind::I4:
        case Kind::Bool:
            return sqlite3_result_int(context, value.I4());
        case Kind::R4:
        case Kind::R8:
            return sqlite3_result_double(context, value.R8());
        case Kind::Text:
            return ResultText(context, *value.TextOrNull());
        case Kind::Date:
            return ResultText(context, value.Text());
    }
}

/// Runs a function's body; no exception may reach the engine.
template <class Body>
void Guarded(sqlite3_context* context, Body body) noexcept {
    try {
        body();
    } catch (const Error& error) {
        const auto text =
            dialect::names::ErrorPrefix + std::to_string(error.Number()) + ":" + error.Description();
        sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

/// Pattern of this call; kept with the statement while it stays the same.
const LikePattern& PatternOf(sqlite3_context* context, sqlite3_value* argument,
                             std::unique_ptr<LikePattern>& fresh) {
    constexpr int pattern_argument = 1;
    if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, pattern_argument)))
        return *kept;
    fresh = std::make_unique<LikePattern>(TextOf(argument));
    return *fresh;
}

void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        if (sqlite3_value_type(arguments[1]) == SQLITE_NULL) return sqlite3_result_null(context);
        std::unique_ptr<LikePattern> fresh;
        const LikePattern& pattern = PatternOf(context, arguments[1], fresh);
        if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
            sqlite3_result_null(context);
        else
            sqlite3_result_int(context, pattern.Matches(TextOf(arguments[0])) ? 1 : 0);
        if (fresh)
            sqlite3_set_auxdata(context, 1, fresh.release(),
                                [](void* kept) { delete static_cast<LikePattern*>(kept); });
    });
}

void Divide(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const Value dividend = ValueOf(arguments[0]);
        const Value divisor = ValueOf(arguments[1]);
        if (dividend.IsNull() || divisor.IsNull()) return sqlite3_result_null(context);
        const double by = divisor.R8();
        if (by == 0) throw Error(ErrorNumber::DivisionByZero, "Division by zero.");
        sqlite3_result_double(context, dividend.R8() / by);
    });
}

void Finite(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        ValueOf(arguments[0]);
        sqlite3_result_value(context, arguments[0]);
    });
}

/// A value of which the statement tells that it is a date or a 32-bit float, which the engine does not hold.
Value OfKind(const Value& value, Kind kind) {
    if (kind == Kind::Date && value.kind() == Kind::Text) return value.AsDate();
    if (kind == Kind::R4 && value.kind() == Kind::R8) return value.R4();
    return value;
}

void FormatFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const Value value = OfKind(ValueOf(arguments[0]), KindOf(arguments[2]));
        ResultText(context, FormatValue(value, TextOf(arguments[1])));
    });
}

/// Text of a value of `kind` as it reads in a statement.
std::string StatementText(const Value& value, Kind kind) {
    const bool is_text = value.kind() == Kind::Text;
    if (kind == Kind::Date && is_text) return GermanDate(value.AsDate());
    if (is_text || kind == Kind::Null || kind == Kind::Text) return value.Text();
    return value.As(kind).Text();
}

void TextFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const Value value = ValueOf(arguments[0]);
        if (value.IsNull()) return sqlite3_result_null(context);
        ResultText(context, StatementText(value, KindOf(arguments[1])));
    });
}

void CStr(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const Value value = ValueOf(arguments[0]);
        if (value.IsNull()) throw Error(ErrorNumber::InvalidUseOfNull, "Invalid use of Null in CStr.");
        ResultText(context, StatementText(value, KindOf(arguments[1])));
    });
}

void To(sqlite3_context* context, int, sqlite3_value** arguments) {
    Guarded(context, [&] {
        const bool is_time = sqlite3_value_int(arguments[1]) == dialect::names::TimeColumn;
        const Kind kind = is_time ? Kind::Date : KindOf(arguments[1]);
        Result(context, ForColumn(ValueOf(arguments[0]), kind, is_time));
    });
}

using Compare = int (*)(std::string_view, std::string_view) noexcept;

template <Compare compare>
int Collate(void*, int a_size, const void* a, int b_size, const void* b) {
    return compare({static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
                   {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

struct Function {
    const char* Name;
    int Arguments;
    void (*Body)(sqlite3_context*, int, sqlite3_value**);
};

}  // namespace

void RegisterFunctions(sqlite3* db) {
    // All of them depend on their arguments alone.
    constexpr Function functions[] = {
        {dialect::names::Like, 2, Like},         {dialect::names::Divide, 2, Divide},
        {dialect::names::Finite, 2, Finite},     {dialect::names::Format, 3, FormatFunction},
        {dialect::names::Text, 2, TextFunction}, {dialect::names::To, 2, To},
        {dialect::names::CStr, 2, CStr},
    };
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const Function& function : functions)
        if (sqlite3_create_function_v2(db, function.Name, function.Arguments, flags, nullptr, function.Body,
                                       nullptr, nullptr, nullptr) != SQLITE_OK)
            throw FailureOf(db, {});
    if (sqlite3_create_collation_v2(db, dialect::names::CaseBlind, SQLITE_UTF8, nullptr,
                                    Collate<CompareCaseBlind>, nullptr) != SQLITE_OK ||
        sqlite3_create_collation_v2(db, dialect::names::German, SQLITE_UTF8, nullptr, Collate<CompareGerman>,
                                    nullptr) != SQLITE_OK)
        throw FailureOf(db, {});
}

}  // namespace FX_Algen::store::sqlite
