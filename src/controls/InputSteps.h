#pragma once

#include <string>
#include <string_view>

#include "controls/Input.h"

namespace FX_Algen::controls {

/// What the actions of a person on a form are made of. Lives while one action runs.
class Input::Steps {
public:
    explicit Steps(Form& form) : form_(form) {}

    static Taken No(std::string reason) { return {false, std::move(reason)}; }
    /// 'TextBox "txtName"'.
    static std::string Named(const Control& control);

    // -- focus
    /// Whether a person could do something to the control now.
    Taken Reach(const Control& control) const;
    static bool TakesFocus(const Control& control) noexcept;
    /// Leaves the former control, and gives the focus to this one where its kind has it.
    Taken GoTo(Control& target);
    /// The focus goes to no control.
    Taken GoNowhere();
    /// To the next control of the tab order.
    Taken GoAlong(int step);

    // -- what a person does to a control that was gone to
    Taken Press(Control& control);
    Taken PressTwice(Control& control);
    Taken Check(CheckBox& control, bool value);
    Taken ChooseEntry(Control& list, int index);
    Taken Write(TextBox& control, std::string_view text, bool whole);
    Taken Erase(TextBox& control, bool forward);
    Taken TypeInto(Control& control, std::string_view text);
    Taken TypeIntoCell(Grid& grid, std::string_view text);
    Taken TypeCharacter(Grid& grid, std::string_view character);
    Taken SelectCell(Grid& grid, int row, int col);
    /// The same for what is then done to that very cell: not taken where a handler sent the cursor on.
    Taken StandInCell(Grid& grid, int row, int col);
    Taken ClickCell(Grid& grid, int row, int col, bool twice);
    Taken OpenCell(Grid& grid);
    Taken EndEdit(Grid& grid);
    Taken ToTab(TabControl& tabs, int index);
    Taken Scroll(Control& control, int position);

    // -- keys
    Taken Key(const KeyPress& key);

private:
    Taken LeaveFor(Control* target);
    Taken LeaveField(Control& left);
    Taken LeaveSources(const Control* target);
    Taken Stands(const Grid& grid, int row, int col) const;
    static Taken NotLocked(const Control& control);
    void Note(const Control& control);

    Taken KeyInEdit(Grid& grid, const KeyPress& key);
    Taken KeyOfKind(Control& control, const KeyPress& key);
    Taken KeyOfText(TextBox& box, const KeyPress& key);
    Taken KeyOfEntries(Control& list, const Entries& entries, int index, const KeyPress& key);
    Taken KeyOfGrid(Grid& grid, const KeyPress& key);
    Taken KeyOfOption(OptionButton& option, const KeyPress& key);
    Taken KeyOfTabs(TabControl& tabs, const KeyPress& key);
    Taken KeyOfForm(const KeyPress& key);
    Control* Focused() const;

    Form& form_;
};

}  // namespace FX_Algen::controls
