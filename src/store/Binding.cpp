#include "store/Binding.h"

#include <optional>

#include "store/ColumnValue.h"
#include "store/LikePattern.h"

namespace FX_Algen::store {

namespace {

/// Most literals are short whole numbers, identifiers above all.
std::optional<std::int32_t> ShortNumber(const dialect::Literal& literal) {
    constexpr std::size_t longest = 9;  // fits in 32 bits whatever the digits
    if (literal.Is != dialect::Literal::Type::Number || literal.Raw.empty() || literal.Raw.size() > longest)
        return std::nullopt;
    std::int32_t number = 0;
    for (const char c : literal.Raw) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number;
}

Value Negated(const Value& value) {
    if (value.kind() == Kind::I4) return -value.I4();
    return -value.R8();
}

Value ValueFor(const dialect::Binding& binding, const dialect::Literal& literal) {
    const auto number = ShortNumber(literal);
    Value value = number ? Value(*number) : dialect::LiteralValue(literal);
    if (binding.Negate) value = Negated(value);
    if (binding.IsPattern) LikePattern(value.Text());  // checks it also where no row is compared
    return binding.ConvertTo == Kind::Null ? value : ForColumn(value, binding.ConvertTo, !binding.DayOnly);
}

}  // namespace

void BindLiterals(EngineStatement& statement, const dialect::Translation& translation,
                  const dialect::Shape& shape) {
    for (std::size_t i = 0; i < translation.Bindings.size(); ++i) {
        const auto& binding = translation.Bindings[i];
        statement.Bind(i, ValueFor(binding, shape.Literals[binding.LiteralIndex]));
    }
}

}  // namespace FX_Algen::store
