#include "store/load/EqualRows.h"

#include <algorithm>

namespace FX_Algen::store::load {
namespace {

/// The finds of the archive and the lines of a field protocol may repeat; these may not: a reference species
/// or a class bound that stands twice counts twice.
bool IsReferenceTable(std::string_view name) {
    return name.starts_with("awaWRRL_") || name.starts_with("awaRefArt_") || name.starts_with("awaAL_");
}

bool IsText(const TargetColumn& column) { return column.Type == Kind::Text; }

std::string Part(std::string_view text) { return "T" + dialect::Fold(text) + '\n'; }
std::string Part(double number) { return "N" + NumberText(number) + '\n'; }
constexpr const char* NullPart = "-\n";

}  // namespace

EqualRows::EqualRows(Engine& engine, const TableFile& file) : file_(&file) {
    const TargetTable& table = file.Table();
    if (!file.Keyed()) return;
    if (table.HasKey) {
        const auto& key = table.Unique.front();
        const bool texts = std::any_of(key.begin(), key.end(),
                                       [&](std::size_t column) { return IsText(table.Columns[column]); });
        const bool given = std::all_of(
            key.begin(), key.end(), [&](std::size_t column) { return file.PositionOf(column).has_value(); });
        if (texts && given) columns_ = key;
    } else if (IsReferenceTable(table.Name)) {
        whole_ = true;
        for (std::size_t i = 0; i < table.Columns.size(); ++i) columns_.push_back(i);
    }
    if (columns_.empty()) return;

    std::string names;
    for (const std::size_t column : columns_)
        names += (names.empty() ? "" : ", ") + Name(table.Columns[column].Name);
    const auto statement = engine.Prepare("SELECT " + names + " FROM " + Name(table.Name));
    while (statement->Step()) {
        std::string key;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const bool text = IsText(table.Columns[columns_[i]]);
            key += statement->IsNull(i) ? NullPart
                   : text               ? Part(statement->Text(i))
                                        : Part(statement->Real(i));
        }
        lines_.emplace(std::move(key), 0);
    }
}

std::string EqualRows::KeyOf(const Cell* row) const {
    std::string key;
    for (const std::size_t column : columns_) {
        const auto position = file_->PositionOf(column);
        const Cell* cell = position ? row + *position : nullptr;
        if (cell == nullptr || cell->Is == Cell::Tag::Null)
            key += NullPart;
        else if (cell->Is == Cell::Tag::Text)
            key += Part(cell->Text);
        else
            key += Part(cell->Is == Cell::Tag::Integer ? static_cast<double>(cell->Integer) : cell->Real);
    }
    return key;
}

std::string EqualRows::InWords(const Cell* row) const {
    if (whole_) return "the same row";
    std::string words;
    for (const std::size_t column : columns_)
        words += (words.empty() ? "the key " : ", ") + file_->Table().Columns[column].Name + " " +
                 row[*file_->PositionOf(column)].AsText();
    return words;
}

std::optional<LoadProblem> EqualRows::Add(const Cell* row, std::int64_t line, bool again) {
    const auto [at, fresh] = lines_.try_emplace(KeyOf(row), line);
    if (fresh) return std::nullopt;
    if (again && at->second == 0) {
        at->second = line;
        return std::nullopt;
    }
    const std::string column = whole_ ? "" : file_->Table().Columns[columns_.front()].Name;
    const std::string reason =
        at->second == 0 ? (whole_ ? "the table holds the same row already"
                                  : "the table holds " + InWords(row) + " already")
                        : InWords(row) + " stands in line " + std::to_string(at->second) + " already";
    return LoadProblem{file_->FileName(), line, column, reason};
}

}  // namespace FX_Algen::store::load
