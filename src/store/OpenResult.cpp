#include "store/OpenResult.h"

#include <algorithm>

namespace FX_Algen::store {

namespace {

bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualPlain(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return x == y || Lower(x) == Lower(y); });
}

}  // namespace

ResultShape::ResultShape(const dialect::Translation& translation)
    : Sources(translation.RowIds), Columns(translation.Columns), Translated(translation.Sql) {
    const auto source_of = [this](const dialect::ResultColumn& column) -> std::optional<std::size_t> {
        if (!column.Alias || !column.Column) return std::nullopt;
        for (std::size_t i = 0; i < Sources.size(); ++i)
            if (Sources[i].Alias == *column.Alias) return i;
        return std::nullopt;
    };
    for (const auto& column : Columns) {
        Fields.push_back({column.Name, column.Type, column.Table, column.Column});
        Kinds.push_back(column.Type);
        folded_.push_back(IsPlain(column.Name) ? std::string() : dialect::Fold(column.Name));
        const auto source = source_of(column);
        Origins.push_back(source ? std::optional(Origin{*source, *column.Column, column.Type})
                                 : std::nullopt);
    }
}

std::optional<std::size_t> ResultShape::Find(std::string_view name) const {
    for (std::size_t i = 0; i < Fields.size(); ++i)
        if (EqualPlain(Fields[i].Name, name)) return i;
    if (IsPlain(name)) return std::nullopt;
    const auto at = std::find(folded_.begin(), folded_.end(), dialect::Fold(name));
    if (at == folded_.end()) return std::nullopt;
    return static_cast<std::size_t>(at - folded_.begin());
}

}  // namespace FX_Algen::store
