#include "store/load/Duplicates.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace FX_Algen::store::load {
namespace {

/// The key of a row in words, "ID_PS 1, ID_ART 7"; none where a part is Null, since such keys never collide.
std::optional<std::string> KeyOf(const TableFile& file, const Cell* row,
                                 const std::vector<std::size_t>& columns) {
    std::string key;
    for (const std::size_t column : columns) {
        const auto position = file.PositionOf(column);
        if (!position) continue;  // the default, the same for all rows
        const Cell& cell = row[*position];
        if (cell.Is == Cell::Tag::Null) return std::nullopt;
        const std::string value =
            cell.Is == Cell::Tag::Text ? "'" + std::string(cell.Text) + "'" : cell.AsText();
        key += (key.empty() ? "" : ", ") + file.Table().Columns[column].Name + " " + value;
    }
    return key;
}

/// What is known of one key of the table while its file is read once more.
struct Seen {
    std::vector<std::size_t> Columns;
    std::unordered_map<std::string, std::int64_t> FirstLine;
};

std::string Reason(const TableFile& file, const Cell* row, std::int64_t line, const std::vector<Seen>& keys) {
    for (const Seen& key : keys) {
        const auto text = KeyOf(file, row, key.Columns);
        if (!text) continue;
        const auto first = key.FirstLine.find(*text);
        if (first != key.FirstLine.end() && first->second < line)
            return "the key " + *text + " stands in line " + std::to_string(first->second) + " already";
    }
    const auto text = KeyOf(file, row, keys.front().Columns);
    return "the table holds the key " + text.value_or("") + " already";
}

template <class Visit>
void EachRow(const TableFile& file, const Visit& visit) {
    TableFile::Rows rows(file);
    for (Batch batch; rows.Next(batch, 1000);)
        for (std::size_t i = 0; i < batch.Lines.size(); ++i)
            if (batch.Writable[i]) visit(batch.Row(i, file.Columns().size()), batch.Lines[i]);
}

}  // namespace

std::vector<LoadProblem> ExplainDuplicates(const TableFile& file, const std::vector<std::int64_t>& lines) {
    const std::unordered_set<std::int64_t> refused(lines.begin(), lines.end());
    std::vector<Seen> keys;
    for (const auto& columns : file.Table().Unique) keys.push_back({columns, {}});
    std::vector<LoadProblem> out;
    EachRow(file, [&](const Cell* row, std::int64_t line) {
        if (refused.contains(line))
            out.push_back({file.FileName(), line, file.Table().Columns[keys.front().Columns.front()].Name,
                           Reason(file, row, line, keys)});
        for (Seen& key : keys)
            if (const auto text = KeyOf(file, row, key.Columns)) key.FirstLine.try_emplace(*text, line);
    });
    return out;
}

}  // namespace FX_Algen::store::load
