#include <algorithm>

#include "FX_Algen/Error.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "store/TextOrder.h"

/// The cursor of a grid and the edits in its cells. A handler runs as a copy: it may put another in its
/// place.
namespace FX_Algen::controls {

namespace {

/// A flag that is up while a handler runs, however that ends.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

[[noreturn]] void FailNotOpen(const Grid& grid) {
    throw Error(ErrorNumber::TypeMismatch, "Grid " + grid.Name() + " has no open cell.");
}

constexpr const char* checkedText = "-1";
constexpr const char* clearText = "0";

}  // namespace

// ---- cursor ------------------------------------------------------------------------------------

void Grid::Place(int row, int col, bool otherRow) {
    otherRow = otherRow || row != row_;
    if (!otherRow && col == col_) return;
    row_ = row;
    col_ = col;
    TellCursor();
    if (const auto entered = otherRow ? hooks_.RowEntered : nullptr) entered(row_);
    if (const auto handler = OnRowColChange) handler();
}

void Grid::Select(int row, int col) {
    const bool nowhere = row == -1 && col == -1;
    if (!nowhere) At(row, col);
    if (edit_ && (edit_->Row != row || edit_->Col != col)) CancelEdit();
    Place(row, col);
}

void Grid::TopRow(int row) {
    if (row != 0 || Rows() > 0) RowAt(row);
    if (topRow_ == row) return;
    topRow_ = row;
    TellCursor();
}

bool Grid::CanStand(int row, int col) const noexcept {
    return Has(row, col) && row >= fixedRows_ && col >= fixedCols_ &&
           !rows_[static_cast<std::size_t>(row)].Hidden && cols_[static_cast<std::size_t>(col)].Width > 1;
}

bool Grid::AskToLeave() {
    if (row_ < 0) return true;
    if (leaving_) return false;
    const Raised raised(leaving_);
    if (const auto handler = OnBeforeRowLeave; handler && !handler(row_)) return false;
    const auto source = hooks_.BeforeRowLeave;
    return row_ < 0 || !source || source(row_);
}

bool Grid::GoTo(int row, int col) {
    At(row, col);
    if (!CanStand(row, col)) return false;
    if (row == row_ && col == col_) return true;
    if (!FinishEdit()) return false;
    if (row != row_ && !AskToLeave()) return false;
    // A handler may have built the grid anew.
    if (!CanStand(row, col)) return false;
    Place(row, col);
    return true;
}

bool Grid::LeaveRow() { return FinishEdit() && AskToLeave(); }

std::optional<std::pair<int, int>> Grid::Neighbour(int step) const {
    if (Rows() == 0 || Cols() == 0 || (step != 1 && step != -1)) return std::nullopt;
    const bool somewhere = row_ >= 0;
    int row = somewhere ? row_ : (step > 0 ? 0 : Rows() - 1);
    int col = somewhere ? col_ + step : (step > 0 ? 0 : Cols() - 1);
    for (; row >= 0 && row < Rows(); row += step) {
        for (; col >= 0 && col < Cols(); col += step)
            if (CanStand(row, col)) return std::pair(row, col);
        col = step > 0 ? 0 : Cols() - 1;
    }
    return std::nullopt;
}

// ---- editing -----------------------------------------------------------------------------------

const std::string& Grid::EditText() const {
    if (!edit_) FailNotOpen(*this);
    return edit_->Text;
}

void Grid::EditText(std::string text) {
    if (!edit_) FailNotOpen(*this);
    edit_->Selected = false;
    if (edit_->Text == text) return;
    edit_->Text = std::move(text);
    TellCell(edit_->Row, edit_->Col);
}

bool Grid::MayOpen(int row, int col) const {
    if (editable_ == Editing::None || !CanStand(row, col)) return false;
    const auto handler = OnBeforeEdit;
    return !handler || handler(row, col);
}

bool Grid::StartEdit() {
    if (edit_) return true;
    const int row = row_, col = col_;
    if (!Has(row, col) || ColKind(col) == CellKind::Check || !MayOpen(row, col)) return false;
    // The handler may have moved the cursor, or opened the cell itself.
    if (edit_ || row_ != row || col_ != col || !Has(row, col)) return edit_.has_value();
    edit_ = OpenCell{row, col, Shown(row, col)};
    TellCursor();
    return true;
}

/// What the cell is to hold for what was typed; none where the column's list has no such entry.
std::optional<std::string> Grid::Held(int col, const std::string& typed) const {
    const auto& list = ColAt(col).List;
    if (list.empty()) return typed;
    const auto found = [&](auto fits) -> std::optional<std::string> {
        const auto entry = std::find_if(list.begin(), list.end(), fits);
        return entry == list.end() ? std::nullopt : std::optional(entry->Code);
    };
    if (auto code = found([&](const ListEntry& entry) { return entry.Text == typed; })) return code;
    if (auto code = found([&](const ListEntry& entry) { return entry.Code == typed; })) return code;
    return found([&](const ListEntry& entry) { return store::CompareCaseBlind(entry.Text, typed) == 0; });
}

bool Grid::Accepts(const std::string& text) {
    const auto handler = OnValidateEdit;
    if (!handler) return true;
    const Raised raised(ending_);
    return handler(edit_->Row, edit_->Col, text);
}

void Grid::Edited(int row, int col) {
    if (const auto source = hooks_.AfterEdit) source(row, col);
    if (const auto handler = OnAfterEdit) handler(row, col);
}

bool Grid::FinishEdit() {
    if (!edit_) return true;
    if (ending_) return false;
    if (edit_->Text == Shown(edit_->Row, edit_->Col)) {
        CancelEdit();
        return true;
    }
    const auto held = Held(edit_->Col, edit_->Text);
    const bool accepted = held && Accepts(*held);
    // The handler may have built the grid anew, and the cell went.
    if (!edit_) return false;
    const auto [row, col] = std::pair(edit_->Row, edit_->Col);
    CancelEdit();
    if (!accepted) return false;
    Text(row, col, *held);
    Edited(row, col);
    return true;
}

void Grid::CancelEdit() {
    if (!edit_) return;
    const auto closed = *std::exchange(edit_, std::nullopt);
    TellCell(closed.Row, closed.Col);
    TellCursor();
}

bool Grid::Toggle(int row, int col) {
    At(row, col);
    if (ColKind(col) != CellKind::Check || ending_) return false;
    if (!GoTo(row, col) || !MayOpen(row, col)) return false;
    // The handler may have moved the cursor, or built the grid anew.
    if (edit_ || row_ != row || col_ != col || !Has(row, col) || ColKind(col) != CellKind::Check)
        return false;
    const bool on = !Checked(row, col);
    edit_ = OpenCell{row, col, on ? checkedText : clearText};
    bool accepted = false;
    try {
        accepted = Accepts(edit_->Text);
    } catch (...) {
        // A check cell does not stay open: the person checks it again.
        edit_.reset();
        throw;
    }
    // The handler may have taken the cell away, or rows above it.
    if (!edit_) return false;
    row = edit_->Row;
    edit_.reset();
    if (!accepted) return false;
    Checked(row, col, on);
    Edited(row, col);
    return true;
}

}  // namespace FX_Algen::controls
