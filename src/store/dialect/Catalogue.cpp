#include "store/dialect/Catalogue.h"

#include <unicode/unistr.h>

#include <algorithm>

#include "store/dialect/Names.h"

namespace FX_Algen::store::dialect {

namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string Fold(std::string_view text) {
    std::string folded;
    if (IsAscii(text)) {
        folded.resize(text.size());
        std::transform(text.begin(), text.end(), folded.begin(), Lower);
        return folded;
    }
    icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
        .foldCase()
        .toUTF8String(folded);
    return folded;
}

const ColumnInfo* LoneKey(const TableInfo& table) {
    const auto isKey = [](const ColumnInfo& column) { return column.IsKey; };
    const auto key = std::find_if(table.Columns.begin(), table.Columns.end(), isKey);
    if (key == table.Columns.end() || key->Type != Kind::I4 || key->IsCounter) return nullptr;
    return std::any_of(key + 1, table.Columns.end(), isKey) ? nullptr : &*key;
}

bool SameName(std::string_view a, std::string_view b) {
    if (!IsAscii(a) || !IsAscii(b)) return Fold(a) == Fold(b);
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}

const ColumnInfo* TableInfo::Find(std::string_view name) const {
    const auto found = std::find_if(Columns.begin(), Columns.end(),
                                    [&](const ColumnInfo& column) { return SameName(column.Name, name); });
    return found == Columns.end() ? nullptr : &*found;
}

}  // namespace FX_Algen::store::dialect
