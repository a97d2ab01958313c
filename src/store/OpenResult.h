#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Store.h"
#include "store/dialect/Translate.h"

/// What stands behind an open recordset.
namespace FX_Algen::store {

/// The columns of a result: the same for every run of a statement, so its runs share it.
class ResultShape {
public:
    ResultShape(const dialect::Translation& translation, const dialect::Catalogue& catalogue);

    /// Where the values of a field are written to.
    struct Origin {
        std::size_t Source = 0;  ///< position in `Sources`
        std::string Column;      ///< name in quotes, as the engine reads it
        Kind Type = Kind::Null;
        bool IsTime = false;      ///< of a date: declared TIME
        bool IsKey = false;       ///< part of the table's primary key
        bool IsIdentity = false;  ///< a lone integer key: the identity of the row itself
    };

    std::vector<ResultField> Fields;
    std::vector<Kind> Kinds;                     ///< of the fields
    std::vector<std::optional<Origin>> Origins;  ///< of the fields; none for those that cannot be written
    std::vector<dialect::RowIdColumn> Sources;   ///< base tables; none where the result is not updatable
    std::vector<dialect::ResultColumn> Columns;  ///< as the dialect tells them
    std::string Translated;
    bool IsJoin = false;  ///< several tables stand in FROM, whether or not the result shows columns of them

    /// Position of a field by its name, without regard to case.
    std::optional<std::size_t> Find(std::string_view name) const;

private:
    std::vector<std::string> folded_;  ///< names of the fields; empty for those of plain letters
};

using RowId = std::optional<std::int64_t>;

/// Rows as they were read, one behind the other.
struct ResultRows {
    std::vector<Value> Values;
    std::vector<RowId> RowIds;  ///< one a source; none where an outer join found no row
    std::size_t Count = 0;
};

namespace detail {

struct RecordsetState {
    enum class Mode : std::uint8_t { Browse, Edit, AddNew };

    std::shared_ptr<Connection> Store;  ///< empty once the recordset is closed
    std::string Source;                 ///< statement as composed
    std::shared_ptr<const ResultShape> Shape;
    ResultRows Rows;

    std::ptrdiff_t Position = 0;  ///< -1 before the first row, Rows.Count behind the last
    std::vector<bool> Gone;       ///< deleted rows; empty while there is none
    std::size_t GoneCount = 0;

    Mode EditMode = Mode::Browse;
    std::vector<Value> Edited;   ///< one a field
    std::vector<bool> IsEdited;  ///< which of them were set
    Value Counter;
    bool NoMatch = false;
    std::size_t NextField = 0;  ///< the field behind the one asked for last

    std::size_t Width() const noexcept { return Shape->Kinds.size(); }
    bool IsGone(std::size_t row) const noexcept { return !Gone.empty() && Gone[row]; }
    const Value& At(std::size_t row, std::size_t field) const { return Rows.Values[row * Width() + field]; }
    Value& At(std::size_t row, std::size_t field) { return Rows.Values[row * Width() + field]; }
    RowId& IdAt(std::size_t row, std::size_t source) {
        return Rows.RowIds[row * Shape->Sources.size() + source];
    }
};

}  // namespace detail

}  // namespace FX_Algen::store
