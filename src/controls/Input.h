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
/// - nothing is taken while a handler of any form still runs (a box may be open), nor by a form that is not
///   shown, nor by a control that is hidden or disabled; a locked field takes the focus and no change;
/// - going to another control leaves the former one: an open edit of a grid ends, its row is left, the
///   field's validation runs once, and rows of data sources that the new control is not bound to are written.
///   Each of them may keep the focus where it is, and then the action itself is not done;
/// - going to a control with `CausesValidation` false leaves nothing yet: what it does is its own business
///   (cancel drops, close saves), and the former control is left when the person goes on from there;
/// - what never has the focus (labels, menus, toolbars, pictures) leaves the focused control as any other
///   does, and the focus stays;
/// - a control that was hidden or disabled meanwhile cannot keep the focus: its rows are left, it is not
///   validated;
/// - a text that is not well-formed UTF-8 is not taken;
/// - failures of the store end in the form's common handler, and the action counts as taken;
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
    /// An option button can be checked only.
    Taken SetValue(CheckBox& control, bool value);
    /// An entry of a combo, a list or a list view, the one that is chosen already too.
    Taken Choose(Control& list, int index);
    /// Goes to the cell and flips it where it is a check cell. On a fixed one the cursor stays and the row is
    /// left.
    Taken ClickCell(Grid& grid, int row, int col);
    /// As a click that flips nothing, and opens the cell in the end.
    Taken DblClickCell(Grid& grid, int row, int col);
    Taken SelectCell(Grid& grid, int row, int col);
    /// Goes to the cell, opens it, writes and ends the edit. Not taken where one of these was refused.
    Taken EditCell(Grid& grid, int row, int col, std::string_view text);
    Taken CheckCell(Grid& grid, int row, int col, bool value);
    /// A key on the control that has the focus. Its `OnKey` comes first, but for keys that an open cell needs
    /// for its text; then its kind; then Tab, menus by their shortcut, default and cancel button.
    Taken Key(const KeyPress& key);
    Taken ShowTab(TabControl& control, int index);
    Taken PressToolbar(Toolbar& toolbar, int position);
    Taken Scroll(Control& control, int position);
    /// Its window comes to the front: `Form::OnActivate`.
    Taken Activate();
    /// Another window comes to the front: the rows are left.
    Taken Deactivate();
    Taken Close();

    /// Whether a handler runs on the calling thread.
    static bool Busy() noexcept;

private:
    class Steps;
    static Taken Readable(std::string_view text);
    template <class Action>
    Taken Do(Action action);

    Form& form_;
};

}  // namespace FX_Algen::controls
