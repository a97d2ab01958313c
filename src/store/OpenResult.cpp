#include "store/OpenResult.h"

#include <algorithm>

#include "store/SchemaCatalogue.h"

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

std::optional<ResultShape::Origin> OriginOf(const dialect::ResultColumn& column,
                                            const std::vector<dialect::RowIdColumn>& sources,
                                            const dialect::Catalogue& catalogue) {
    if (!column.Alias || !column.Column) return std::nullopt;
    const auto source = std::find_if(sources.begin(), sources.end(),
                                     [&column](const auto& one) { return one.Alias == *column.Alias; });
    if (source == sources.end()) return std::nullopt;
    ResultShape::Origin origin;
    origin.Source = static_cast<std::size_t>(source - sources.begin());
    origin.Column = Quoted(*column.Column);
    origin.Type = column.Type;
    const auto* table = catalogue.FindTable(source->Table);
    const auto* declared = table != nullptr ? table->Find(*column.Column) : nullptr;
    if (declared != nullptr) {
        const auto keys = std::count_if(table->Columns.begin(), table->Columns.end(),
                                        [](const auto& one) { return one.IsKey; });
        origin.IsTime = declared->HasTime;
        origin.IsKey = declared->IsKey;
        origin.IsIdentity = declared->IsKey && keys == 1 && declared->Type == Kind::I4;
    }
    return origin;
}

}  // namespace

ResultShape::ResultShape(const dialect::Translation& translation, const dialect::Catalogue& catalogue)
    : Sources(translation.RowIds),
      Columns(translation.Columns),
      Translated(translation.Sql),
      IsJoin(translation.IsJoin) {
    for (const auto& column : Columns) {
        Fields.push_back({column.Name, column.Type, column.Table, column.Column});
        Kinds.push_back(column.Type);
        folded_.push_back(IsPlain(column.Name) ? std::string() : dialect::Fold(column.Name));
        Origins.push_back(OriginOf(column, Sources, catalogue));
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
