#pragma once

#include <string>
#include <string_view>

#include "controls/DataSource.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"
#include "controls/Lists.h"

namespace FX_Algen::controls {

/// Whether a form took what a person did, and else why not, in English.
struct Taken {
    bool Yes = true;
    std::string Reason;
    explicit operator bool() const noexcept { return Yes; }
};

/// What a person does to a form. The toolkit, scripts and tests all come in here, so that they meet the same
/// rules:
///
/// - nothing is taken while a handler of any form still runs (a box may be open), nor by a control that is
/// hidden or
///   disabled; a locked field takes the focus and no change;
/// - going to another control leaves the former one: an open edit of a grid ends, its row is left, the
/// field's
///   validation runs once, and rows of data sources that the new control is not bound to are written. Each of
///   them may keep the focus where it is, and then the action itself is not done;
/// - going to a control with `CausesValidation` false does not validate fields;
/// - failures of the store end in the form's common handler;
/// - the form lives until the action is done, even where it closes.
class Input {
public:
    explicit Input(Form& form) : form_(form) {}

    Taken Enter(Control& control);
    /// The focus goes to no control of the form.
    Taken Leave();
    Taken Click(Control& control);
    Taken DblClick(Control& control);
    /// Character by character, in place of what is selected; into an open cell, or a text box or combo.
    Taken Type(Control& control, std::string_view text);
    Taken SetText(Control& control, std::string_view text);
    Taken SetValue(CheckBox& control, bool value);
    Taken Choose(Control& list, int index);
    Taken ClickCell(Grid& grid, int row, int col);
    Taken DblClickCell(Grid& grid, int row, int col);
    Taken SelectCell(Grid& grid, int row, int col);
    /// Goes to the cell, opens it, writes and ends the edit. Not taken where one of these was refused.
    Taken EditCell(Grid& grid, int row, int col, std::string_view text);
    Taken CheckCell(Grid& grid, int row, int col, bool value);
    Taken Key(const KeyPress& key);
    Taken ShowTab(TabControl& control, int index);
    Taken PressToolbar(Toolbar& toolbar, int position);
    Taken Scroll(Control& control, int position);
    Taken Activate();
    /// Another window comes to the front: the rows are left.
    Taken Deactivate();
    Taken Close();

    /// Whether a handler runs on the calling thread.
    static bool Busy() noexcept;

private:
    Form& form_;
};

}  // namespace FX_Algen::controls
