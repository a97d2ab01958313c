#include "controls/Grid.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "controls/Form.h"
#include "controls/Numbers.h"

namespace FX_Algen::controls {

namespace {

[[noreturn]] void FailIndex(const Grid& grid, const std::string& what) {
    throw Error(ErrorNumber::IndexOutOfRange, "Grid " + grid.Name() + " has no " + what + ": it has " +
                                                  std::to_string(grid.Rows()) + " rows and " +
                                                  std::to_string(grid.Cols()) + " columns.");
}

[[noreturn]] void FailCell(const Grid& grid, int row, int col) {
    FailIndex(grid, "cell in row " + std::to_string(row) + ", column " + std::to_string(col));
}

std::size_t Index(int number) { return static_cast<std::size_t>(number); }

}  // namespace

std::vector<ListEntry> ReadList(std::string_view written) {
    std::vector<ListEntry> entries;
    while (!written.empty()) {
        const auto end = std::min(written.find('|'), written.size());
        const auto piece = written.substr(0, end);
        written.remove_prefix(std::min(end + 1, written.size()));
        if (!piece.starts_with('#')) {
            entries.push_back({std::string(piece), std::string(piece)});
            continue;
        }
        // A name may hold a further ";": only the first one ends the code.
        const auto mark = piece.find(';');
        const auto code = piece.substr(1, mark == std::string_view::npos ? mark : mark - 1);
        const auto text = mark == std::string_view::npos ? code : piece.substr(mark + 1);
        entries.push_back({std::string(code), std::string(text)});
    }
    return entries;
}

// ---- places ------------------------------------------------------------------------------------

bool Grid::Has(int row, int col) const noexcept {
    return row >= 0 && row < Rows() && col >= 0 && col < Cols();
}

const Grid::Cell& Grid::At(int row, int col) const {
    if (!Has(row, col)) FailCell(*this, row, col);
    return rows_[Index(row)].Cells[Index(col)];
}

Grid::Cell& Grid::At(int row, int col) {
    if (!Has(row, col)) FailCell(*this, row, col);
    return rows_[Index(row)].Cells[Index(col)];
}

const Grid::RowData& Grid::RowAt(int row) const {
    if (row < 0 || row >= Rows()) FailIndex(*this, "row " + std::to_string(row));
    return rows_[Index(row)];
}

Grid::RowData& Grid::RowAt(int row) {
    if (row < 0 || row >= Rows()) FailIndex(*this, "row " + std::to_string(row));
    return rows_[Index(row)];
}

const Grid::ColData& Grid::ColAt(int col) const {
    if (col < 0 || col >= Cols()) FailIndex(*this, "column " + std::to_string(col));
    return cols_[Index(col)];
}

Grid::ColData& Grid::ColAt(int col) {
    if (col < 0 || col >= Cols()) FailIndex(*this, "column " + std::to_string(col));
    return cols_[Index(col)];
}

// ---- notices -----------------------------------------------------------------------------------

void Grid::TellCell(int row, int col) {
    if (filling_ > 0) return;
    if (auto* observer = Owner().Watching()) observer->CellChanged(*this, row, col);
}

void Grid::TellCursor() {
    if (filling_ > 0) return;
    if (auto* observer = Owner().Watching()) observer->CursorMoved(*this);
}

void Grid::TellAll() {
    if (filling_ == 0) Tell();
}

Grid::Filling::Filling(Grid& grid) : grid_(grid) { ++grid_.filling_; }

Grid::Filling::~Filling() {
    --grid_.filling_;
    try {
        grid_.TellAll();
    } catch (...) {
        // What is shown follows with the next change; nothing may leave here while another failure does.
    }
}

// ---- shape -------------------------------------------------------------------------------------

void Grid::Rows(int count) {
    if (count < 0) FailIndex(*this, "number of rows " + std::to_string(count));
    if (count == Rows()) return;
    const auto before = rows_.size();
    rows_.resize(Index(count));
    for (auto row = before; row < rows_.size(); ++row) rows_[row].Cells.resize(cols_.size());
    KeepWithin(row_);
    TellAll();
}

void Grid::Cols(int count) {
    if (count < 0) FailIndex(*this, "number of columns " + std::to_string(count));
    if (count == Cols()) return;
    cols_.resize(Index(count));
    for (auto& row : rows_) row.Cells.resize(cols_.size());
    KeepWithin(row_);
    TellAll();
}

void Grid::Fixed(int rows, int cols) {
    if (rows < 0 || cols < 0)
        FailIndex(*this,
                  "fixed part of " + std::to_string(rows) + " rows and " + std::to_string(cols) + " columns");
    if (rows == fixedRows_ && cols == fixedCols_) return;
    fixedRows_ = rows;
    fixedCols_ = cols;
    TellAll();
}

int Grid::AddRow() {
    Rows(Rows() + 1);
    return Rows() - 1;
}

void Grid::RemoveRow(int row) {
    RowAt(row);
    rows_.erase(rows_.begin() + row);
    if (edit_ && edit_->Row == row) edit_.reset();
    if (edit_ && edit_->Row > row) --edit_->Row;
    // The rows below move up, and the cursor with its own.
    KeepWithin(row_ > row ? row_ - 1 : row_, row_ == row);
    TellAll();
}

void Grid::ClearCells() {
    edit_.reset();
    for (auto& row : rows_) {
        row.Hidden = false;
        row.Rule.reset();
        std::fill(row.Cells.begin(), row.Cells.end(), Cell{});
    }
    TellAll();
}

void Grid::KeepWithin(int row, bool otherRow) {
    if (edit_ && !Has(edit_->Row, edit_->Col)) edit_.reset();
    topRow_ = std::clamp(topRow_, 0, std::max(0, Rows() - 1));
    int col = col_;
    if (row >= Rows()) {
        row = Rows() - 1;
        while (row >= fixedRows_ && rows_[Index(row)].Hidden) --row;
        if (row < fixedRows_) row = -1;
    }
    if (col >= Cols()) {
        col = Cols() - 1;
        while (col >= fixedCols_ && ColHidden(col)) --col;
        if (col < fixedCols_) col = -1;
    }
    if (row < 0 || col < 0) row = col = -1;
    Place(row, col, otherRow);
}

// ---- columns and rows --------------------------------------------------------------------------

int Grid::ColWidth(int col) const { return ColAt(col).Width; }

void Grid::ColWidth(int col, int width) {
    auto& column = ColAt(col);
    if (column.Width == width) return;
    column.Width = width;
    TellAll();
}

CellKind Grid::ColKind(int col) const { return ColAt(col).Kind; }

void Grid::ColKind(int col, CellKind kind) {
    auto& column = ColAt(col);
    if (column.Kind == kind) return;
    column.Kind = kind;
    if (edit_ && edit_->Col == col) edit_.reset();
    TellAll();
}

const std::vector<ListEntry>& Grid::ColList(int col) const { return ColAt(col).List; }

void Grid::ColList(int col, std::vector<ListEntry> entries) {
    auto& column = ColAt(col);
    if (column.List == entries) return;
    column.List = std::move(entries);
    TellAll();
}

bool Grid::RowHidden(int row) const { return RowAt(row).Hidden; }

void Grid::RowHidden(int row, bool hidden) {
    auto& data = RowAt(row);
    if (data.Hidden == hidden) return;
    data.Hidden = hidden;
    TellAll();
}

const std::optional<Colour>& Grid::RowRule(int row) const { return RowAt(row).Rule; }

void Grid::RowRule(int row, std::optional<Colour> colour) {
    auto& data = RowAt(row);
    if (data.Rule == colour) return;
    data.Rule = colour;
    TellAll();
}

// ---- cells -------------------------------------------------------------------------------------

const std::string& Grid::Text(int row, int col) const { return At(row, col).Text; }

void Grid::Text(int row, int col, std::string text) {
    auto& cell = At(row, col);
    if (cell.Text == text) return;
    cell.Text = std::move(text);
    TellCell(row, col);
}

const std::string& Grid::Shown(int row, int col) const {
    const auto& text = At(row, col).Text;
    // Heads are texts of their own.
    if (row < fixedRows_) return text;
    const auto& list = cols_[Index(col)].List;
    const auto entry =
        std::find_if(list.begin(), list.end(), [&](const ListEntry& e) { return e.Code == text; });
    return entry == list.end() ? text : entry->Text;
}

bool Grid::Checked(int row, int col) const { return At(row, col).Checked; }

void Grid::Checked(int row, int col, bool on) {
    auto& cell = At(row, col);
    if (cell.Checked == on) return;
    cell.Checked = on;
    TellCell(row, col);
}

const std::optional<Colour>& Grid::CellColor(int row, int col) const { return At(row, col).Back; }

void Grid::CellColor(int row, int col, std::optional<Colour> colour) {
    auto& cell = At(row, col);
    if (cell.Back == colour) return;
    cell.Back = colour;
    TellCell(row, col);
}

std::optional<double> Grid::Number(int row, int col) const { return ReadNumber(At(row, col).Text); }

}  // namespace FX_Algen::controls
