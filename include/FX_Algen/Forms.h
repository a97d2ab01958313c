#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Store.h"

/// Forms without a toolkit, as a host, a script or a test sees them: what is open, what it shows, and what a
/// person could do to it. Everything works on the forms of the calling thread.
namespace FX_Algen {

/// An open form.
struct OpenForm {
    std::string Name;     ///< such as "frmProbenstelle"
    std::string Caption;  ///< title of the window
    bool Visible = false;
    std::optional<std::string>
        Parent;               ///< the form whose child it is; none where it stands in the host's window
    std::int32_t Window = 0;  ///< number of its window as the display port issued it; 0 = not shown yet
};

/// A cell of a grid.
struct CellState {
    std::string Text;                     ///< empty for a check cell
    std::optional<bool> Checked;          ///< check cells only
    std::optional<std::uint32_t> Colour;  ///< background as 0xRRGGBB; none = the grid's own
};

/// What a grid shows. Rows and columns count from 0, fixed ones included.
struct GridState {
    int Rows = 0, Cols = 0, FixedRows = 0, FixedCols = 0;
    int Row = 0, Col = 0;  ///< the cursor; -1 = none
    int TopRow = 0;        ///< the first row in view below the fixed ones
    bool Editable = false;
    std::optional<std::string> EditText;  ///< what stands in the open cell at the cursor; none = none is open
    int FirstRow = 0;                     ///< row of `Cells[0]`
    std::vector<std::vector<CellState>> Cells;  ///< the rows asked for, all columns
    std::vector<int> HiddenRows, HiddenCols;
    std::vector<int> RuledRows;  ///< rows with a rule above them
};

/// What a list shows.
struct ListState {
    std::vector<std::string> Entries;
    int Index = -1;  ///< -1 = nothing chosen
};

/// A tab, a button of a toolbar or a head of a list view.
struct PartState {
    std::string Caption;
    std::string ToolTipText;
    bool Enabled = true;
};

/// What a control shows.
struct ControlState {
    std::string Name;  ///< a member of an array as "cmdPrStelle(4)"
    std::string Kind;  ///< "TextBox", "CommandButton", "Grid", ...
    std::string Caption;
    std::string ToolTipText;
    bool Enabled = true, Visible = true;  ///< visible: itself and all that it stands in
    bool Locked = false;                  ///< shown, not to be changed; not the same as disabled
    std::optional<std::string> Text;      ///< text boxes and combos
    std::optional<bool> Value;            ///< check boxes, option buttons and menus: checked or not
    std::optional<GridState> Grid;
    std::optional<ListState> List;       ///< combos and lists; of a list view its cells, joined by tabs
    std::vector<PartState> Parts;        ///< tabs, toolbar positions (from 1; separators count), heads
    std::optional<int> Tab;              ///< tab controls: the tab in front, from 0
    std::optional<std::int32_t> Scroll;  ///< scroll bars: the position
};

/// What a form shows.
struct FormState {
    OpenForm Form;
    std::optional<std::string> Focus;  ///< the control that has it
    std::vector<ControlState> Controls;
};

/// What a person does to a form. Which of the values an action needs stands with `ActOnForm`.
struct FormAction {
    std::string Control;  ///< name; empty for an action on the form as a whole
    std::string Action;
    std::optional<std::string> Text;
    std::optional<std::string> Entry;  ///< of a list, in place of its `Index`: the first entry that reads so
    std::optional<bool> Value;
    std::optional<int> Row, Col, Index, Position;
    bool Shift = false, Ctrl = false, Alt = false;
};

/// Whether the form took what a person did. A disabled button, a locked field, a hidden control take nothing,
/// and so does any control while a handler or an operation of the host still runs; that is no failure.
struct ActionResult {
    bool Taken = true;
    std::string Reason;  ///< English, why not; empty where it was taken
};

/// The open forms, in the order in which they were loaded.
std::vector<OpenForm> OpenForms();

/// What the form shows, of grids only the rows from `rows->first` to `rows->second`, both included, where
/// given. 13 where no form of that name is open or the rows are no range.
FormState ReadForm(const std::string& form, std::optional<std::pair<int, int>> rows = std::nullopt);

/// Does to a form what a person would do, with all that follows from it. The actions, what they are done to,
/// and which values they need:
///
/// - `click` on any control; grids need `Row` and `Col`, list boxes and list views `Index` or `Entry`. Leaves
///   the field that has the focus first. A menu is chosen by it, a check box flips.
/// - `dblclick`, the same twice.
/// - `set` on text boxes: the whole text is replaced by `Text`. On check boxes and option buttons: `Value`,
/// or
///   the `Text` "1", "-1" or "0". On lists: the entry with the `Index`, or `Entry`, which may stand in `Text`
///   too. On combos `Index` or `Entry`, or `Text` as typed.
/// - `type` on text boxes, combos and the open cell of a grid, on none for the focused one: `Text` character
/// by
///   character, in place of what is selected. Of a grid with `Row` and `Col`: in that cell.
/// - `cell` on grids: goes to `Row` and `Col`, opens the cell, writes `Text`, of a check cell `Value` as of a
///   check box, and ends the edit.
/// - `select` on grids: the cursor goes to `Row` and `Col`. On lists and combos the entry with the `Index`,
/// or
///   `Entry`, which may stand in `Text` too.
/// - `enter` on any control: gives it the focus, which leaves the former one.
/// - `leave` on the control that has the focus, or on none: takes the focus away, as going to another place
///   does.
/// - `tab` on tab controls: brings the one with the `Index` to the front.
/// - `toolbar` on toolbars: presses the button at `Position`, from 1.
/// - `menu` on menus: chooses the entry.
/// - `key` on any control, on none for the focused one: presses the key in `Text`, with `Shift`, `Ctrl` and
///   `Alt`: "Enter", "Escape", "Tab", "Space", "Delete", "Insert", "Backspace", "Up", "Down", "Left",
///   "Right", "Home", "End", "PageUp", "PageDown", "F1" to "F12", or a character. Names go by any case and by
///   "Return", "Esc", "Del", "Ins", "PgUp", "PgDn", "ArrowUp" and so on; what is held may stand in front, as
///   in "Ctrl+Shift+Home". Of a grid with `Row` and `Col`: in that cell.
/// - `scroll` on scroll bars and grids: scrolls to `Position`, a value or a row; of grids also `Row`.
/// - `activate`, `deactivate`, `close` on the form as a whole: it comes to the front; goes behind another
///   window, which leaves the row; is closed as by its own button.
///
/// Cells, entries, tabs and buttons that are not there take nothing, as there is nothing that a person could
/// hit. Failures of the store inside the form show as a box, as they do for a person. 13 with a text that
/// says what is wrong where form or control are not there, the action is none for the control, or a value
/// that it needs is missing.
ActionResult ActOnForm(const std::string& form, const FormAction& action);

/// Has the open forms save and close: those that work on the database, with their children; all of them where
/// none is given. Where a row cannot be saved, its form asks whether to end without it. Answers the names of
/// those that stay open.
std::vector<std::string> CloseForms(const store::DatabasePtr& database = nullptr);

/// Ends all open forms. What was not saved before is lost.
void DiscardForms();

}  // namespace FX_Algen
