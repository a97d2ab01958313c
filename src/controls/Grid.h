#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace FX_Algen::controls {

/// How the cells of a column are shown and edited.
enum class CellKind : std::uint8_t {
    Text,
    Number,  ///< text that shows a number: aligned right
    Check,   ///< a check mark; `Checked` in place of the text
};

/// An entry of a coded list: the cell holds the code and shows the text. In a plain list both are the same.
struct ListEntry {
    std::string Code;
    std::string Text;
    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

/// Reads the written form of a list: "#1;erste|#2;zweite" is coded, "eins|zwei" is plain. A "|" at the end
/// begins no further entry.
std::vector<ListEntry> ReadList(std::string_view written);

/// Who may open cells for editing.
enum class Editing : std::uint8_t { None, KeyboardAndMouse };

/// A table of cells with fixed rows and columns, a cursor, and in-cell editing. Rows and columns count from
/// 0, fixed ones included; a cursor of -1 stands nowhere. A row or column past the end fails with 381.
///
/// An edit runs so: `OnBeforeEdit` may refuse to open the cell; the person types into the open cell
/// (`EditText`); `OnValidateEdit` may refuse the new text, and then the cell closes with its old one and the
/// cursor stays; else the cell takes the text and `OnAfterEdit` follows. An edit that ends with the text that
/// it began with closes without these two: going through a cell changes nothing. A check cell opens, flips
/// and closes in one go, through the same events. Before the cursor goes to another row, and when the grid is
/// left, an open edit ends and `OnBeforeRowLeave` may keep the cursor in its row.
///
/// In a column with a list the open cell holds what is shown; a text that is no entry of the list is refused.
///
/// A failure in a handler goes to the caller and loses nothing typed: while the new text is being validated
/// the cell stays open with it, after that the cell holds it. What leaves the row keeps the cursor there.
class Grid : public Control {
public:
    Grid(Form& owner, std::string name) : Control(owner, Kind::Grid, std::move(name)) {}

    // -- shape
    int Rows() const noexcept { return static_cast<int>(rows_.size()); }
    int Cols() const noexcept { return static_cast<int>(cols_.size()); }
    /// Cells that stay keep what they hold; new ones are empty. A cursor whose row goes stands in the last
    /// visible row that is left below the fixed ones, nowhere where there is none; likewise for columns. An
    /// edit whose cell goes ends without taking its text over.
    void Rows(int count);
    void Cols(int count);
    int FixedRows() const noexcept { return fixedRows_; }
    int FixedCols() const noexcept { return fixedCols_; }
    void Fixed(int rows, int cols);
    /// Adds a row at the end and answers its number.
    int AddRow();
    /// The cursor stays in its row, and where that one goes, in the one that takes its place.
    void RemoveRow(int row);
    /// Ends an edit without taking its text over. Empties all cells; columns keep their definitions, rows are
    /// neither hidden nor ruled any more.
    void ClearCells();

    // -- columns
    /// Width in twentieths of a point; 1 and less hides the column.
    int ColWidth(int col) const;
    void ColWidth(int col, int width);
    bool ColHidden(int col) const { return ColWidth(col) <= 1; }
    CellKind ColKind(int col) const;
    void ColKind(int col, CellKind kind);
    /// The entries to choose from in the cells of a column; none = free text.
    const std::vector<ListEntry>& ColList(int col) const;
    void ColList(int col, std::vector<ListEntry> entries);

    // -- rows
    bool RowHidden(int row) const;
    void RowHidden(int row, bool hidden);
    /// A rule above the row, in its colour.
    const std::optional<Colour>& RowRule(int row) const;
    void RowRule(int row, std::optional<Colour> colour);

    // -- cells
    /// What the cell holds; of a coded list the code.
    const std::string& Text(int row, int col) const;
    void Text(int row, int col, std::string text);
    /// What the cell shows: of a coded list the text of the code, the code itself where the list lacks it.
    const std::string& Shown(int row, int col) const;
    bool Checked(int row, int col) const;
    void Checked(int row, int col, bool on);
    const std::optional<Colour>& CellColor(int row, int col) const;
    void CellColor(int row, int col, std::optional<Colour> colour);
    /// The number in a cell, comma or point as decimal mark; none where it is not a number.
    std::optional<double> Number(int row, int col) const;

    // -- cursor
    int Row() const noexcept { return row_; }
    int Col() const noexcept { return col_; }
    /// Moves the cursor without asking anyone, to hidden and fixed cells too, and to -1, -1; `OnRowColChange`
    /// follows where it moved. An edit in another cell ends without taking its text over.
    void Select(int row, int col);
    int TopRow() const noexcept { return topRow_; }
    void TopRow(int row);

    // -- editing
    Editing Editable() const noexcept { return editable_; }
    void Editable(Editing editable) { Set(editable_, editable); }
    bool IsEditing() const noexcept { return edit_.has_value(); }
    const std::string& EditText() const;  ///< of the open cell; 13 where none is open
    /// Whether the text of the open cell is selected still, so that what is typed takes its place.
    bool EditSelected() const noexcept { return edit_ && edit_->Selected; }

    /// Enter in an open cell ends the edit and is then pressed on the grid itself; else it only ends the
    /// edit.
    bool EnterGoesOn = false;
    /// Which keys an open cell leaves to the grid's `OnKey`, and then to the grid, though it would use them
    /// itself: true for such a key. The cell stays open. None: no key.
    std::function<bool(const KeyPress& key)> KeyPassesEdit;

    // -- events; row and column of the cell in question. A new text is what the cell is to hold: the code of
    // a coded list, "-1" or "0" for a check cell.
    std::function<bool(int row, int col)> OnBeforeEdit;                             ///< false: does not open
    std::function<bool(int row, int col, const std::string& text)> OnValidateEdit;  ///< false: old text stays
    std::function<void(int row, int col)> OnAfterEdit;
    std::function<bool(int row)> OnBeforeRowLeave;  ///< false: cursor stays
    std::function<void()> OnRowColChange;
    std::function<void(int row, int col)> OnCellClick;
    std::function<void(int row, int col)> OnCellDblClick;

    /// What the data source that the grid is bound to needs to hear. Its `AfterEdit` runs before
    /// `OnAfterEdit`, its `BeforeRowLeave` after `OnBeforeRowLeave` let go, its `RowEntered` before
    /// `OnRowColChange`.
    struct SourceHooks {
        std::function<void(int row, int col)> AfterEdit;
        std::function<bool(int row)> BeforeRowLeave;
        std::function<void(int row)> RowEntered;
    };
    void Hooks(SourceHooks hooks) { hooks_ = std::move(hooks); }

    // -- what a person does; `Input` calls these, after it minded focus and locks. Each answers whether it
    // was done.
    /// Moves the cursor as a person does: ends an open edit, asks `OnBeforeRowLeave` where the row changes.
    /// Not done for a fixed or hidden cell.
    bool GoTo(int row, int col);
    /// Opens the cell under the cursor; its text is selected. True where it is open already; not done for a
    /// check cell.
    bool StartEdit();
    void EditText(std::string text);  ///< what the person has typed so far
    bool FinishEdit();                ///< true where none was open; not done while that edit is validated
    void CancelEdit();                ///< the old text returns
    /// Goes to the check cell and flips it, through the same events as an edit.
    bool Toggle(int row, int col);
    /// Ends an open edit and asks `OnBeforeRowLeave`: what leaving the grid, a command or the end of the
    /// window does. Not done while the row is being left already.
    bool LeaveRow();
    /// The next visible column that is not fixed, from the cursor, with `step` 1 or -1; goes on in the next
    /// row at the end of one. None at the end of the grid.
    std::optional<std::pair<int, int>> Neighbour(int step) const;

    /// While one lives, observers hear nothing of cells, shape and cursor; at the end they hear once that the
    /// grid changed as a whole.
    class Filling {
    public:
        explicit Filling(Grid& grid);
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        Grid& grid_;
    };

private:
    struct Cell {
        std::string Text;
        bool Checked = false;
        std::optional<Colour> Back;
    };
    struct RowData {
        std::vector<Cell> Cells;
        bool Hidden = false;
        std::optional<Colour> Rule;
    };
    struct ColData {
        int Width = 1000;
        CellKind Kind = CellKind::Text;
        std::vector<ListEntry> List;
    };
    struct OpenCell {
        int Row, Col;
        std::string Text;
        bool Selected = true;
    };
    Cell& At(int row, int col);
    const Cell& At(int row, int col) const;
    RowData& RowAt(int row);
    const RowData& RowAt(int row) const;
    ColData& ColAt(int col);
    const ColData& ColAt(int col) const;
    bool Has(int row, int col) const noexcept;
    /// Whether a person can bring the cursor there.
    bool CanStand(int row, int col) const noexcept;
    bool MayOpen(int row, int col) const;
    std::optional<std::string> Held(int col, const std::string& typed) const;
    bool Accepts(const std::string& text);
    void Edited(int row, int col);
    bool AskToLeave();
    void Place(int row, int col, bool otherRow = false);
    void KeepWithin(int row, bool otherRow = false);
    void TellCell(int row, int col);
    void TellCursor();
    void TellAll();

    std::vector<RowData> rows_;
    std::vector<ColData> cols_;
    int fixedRows_ = 1, fixedCols_ = 1;
    int row_ = -1, col_ = -1, topRow_ = 0;
    Editing editable_ = Editing::None;
    std::optional<OpenCell> edit_;
    SourceHooks hooks_;
    int filling_ = 0;
    bool ending_ = false;   ///< an edit is about to end: its handlers must not end it again
    bool leaving_ = false;  ///< the row is being left: its handlers must not leave it again
};

}  // namespace FX_Algen::controls
