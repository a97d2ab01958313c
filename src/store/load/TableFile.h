#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Load.h"
#include "store/load/Cell.h"
#include "store/load/Csv.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// Some rows of a file.
struct Batch {
    std::vector<Cell> Cells;          ///< row by row, in the order of `TableFile::Columns`
    std::vector<std::int64_t> Lines;  ///< line of each row
    std::vector<bool> Writable;       ///< whether the row has a usable key
    std::vector<LoadProblem> Problems;
    std::deque<std::string> Buffers;  ///< texts that cells point to

    /// The cells of row `i` of a file with `columns` columns.
    const Cell* Row(std::size_t i, std::size_t columns) const { return Cells.data() + i * columns; }
};

/// A file that is matched to its table: its header is read, its rows can be read any number of times.
class TableFile {
public:
    /// Reads the header; what is wrong with it goes to `problems`.
    TableFile(LoadText file, const TargetTable& table, std::vector<LoadProblem>& problems);

    const std::string& FileName() const noexcept { return file_; }
    const TargetTable& Table() const noexcept { return *table_; }
    /// Positions in the table of the columns that the file fills, in the file's order.
    const std::vector<std::size_t>& Columns() const noexcept { return columns_; }
    /// Position among `Columns` of a column of the table; none where the file does not fill it.
    std::optional<std::size_t> PositionOf(std::size_t tableColumn) const;
    /// Whether rows can be read: the header names columns of the table.
    bool Usable() const noexcept { return usable_; }
    /// Whether rows can be written: the header names all columns that it has to.
    bool Keyed() const noexcept { return usable_ && keyed_; }
    /// Position among `Columns` of the table's counter; none where there is none or the file does not fill
    /// it.
    std::optional<std::size_t> CounterPosition() const { return PositionOf(table_->CounterPosition()); }
    std::size_t Bytes() const noexcept { return text_.size(); }

    /// A pass over the rows.
    class Rows {
    public:
        explicit Rows(const TableFile& file);
        /// Up to `most` further rows; false where there are none. A field that does not fit becomes Null;
        /// each has its problem in the batch.
        bool Next(Batch& batch, std::size_t most);
        std::size_t Position() const noexcept { return reader_.Position(); }

    private:
        void Read(Batch& batch);
        /// Fills a cell; the reason where the field does not fit.
        std::string ReadCell(const CsvField& field, const TargetColumn& column, Cell& cell,
                             Batch& batch) const;
        void CheckBounds(Batch& batch, const Cell* row, std::int64_t line) const;
        void Add(Batch& batch, std::int64_t line, std::string column, std::string reason) const;

        const TableFile& file_;
        CsvReader reader_;
        std::vector<CsvField> fields_;
        bool encodingFaults_;
        std::optional<std::size_t> low_;   ///< position of the lower bound of a class, where there is one
        std::optional<std::size_t> high_;  ///< and of the upper one
    };

private:
    friend class Rows;
    void ReadHeader(std::vector<LoadProblem>& problems);
    void ReadName(const CsvField& field, std::vector<LoadProblem>& problems);

    std::string file_;
    std::string_view text_;
    const TargetTable* table_;
    char delimiter_ = ',';
    std::vector<std::size_t> columns_;
    /// For each field of the header its position in `columns_`; none for a column that is not known.
    std::vector<std::optional<std::size_t>> fields_;
    bool usable_ = true;
    bool keyed_ = true;
};

}  // namespace FX_Algen::store::load
