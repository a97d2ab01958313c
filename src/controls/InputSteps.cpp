#include "controls/InputSteps.h"

#include <optional>
#include <utility>

#include "controls/Utf8.h"

/// What a person does to a control that has been gone to.
namespace FX_Algen::controls {

// -- what is common

Taken Input::Steps::NotLocked(const Control& control) {
    const auto* text = dynamic_cast<const TextBox*>(&control);
    const auto* check = dynamic_cast<const CheckBox*>(&control);
    const bool locked = (text != nullptr && text->Locked()) || (check != nullptr && check->Locked());
    return locked ? No(Named(control) + " is locked.") : Taken{};
}

void Input::Steps::Note(const Control& control) {
    const auto& controls = form_.Controls();
    for (std::size_t i = 0; i < controls.size(); ++i)
        if (auto* source = dynamic_cast<DataSource*>(controls[i].get());
            source != nullptr && source->Has(control))
            source->NoteChange(control);
}

// -- clicks

Taken Input::Steps::Press(Control& control) {
    switch (control.Kind()) {
        case Kind::CheckBox:
            return Check(static_cast<CheckBox&>(control), !static_cast<CheckBox&>(control).Value());
        case Kind::OptionButton:
            return Check(static_cast<CheckBox&>(control), true);
        case Kind::ComboBox:
        case Kind::ListBox:
            return {};  // their click is the choice of an entry
        case Kind::Toolbar:
            return No(Named(control) + " has buttons, which are pressed by their position.");
        case Kind::Menu:
            if (static_cast<Menu&>(control).Separator) return No(Named(control) + " is a separator.");
            break;
        default:
            break;
    }
    control.Clicked();
    return {};
}

Taken Input::Steps::PressTwice(Control& control) {
    switch (control.Kind()) {
        case Kind::CommandButton:
        case Kind::CheckBox:
        case Kind::OptionButton:
        case Kind::Menu:
        case Kind::Toolbar:
            // A second click in quick order must not do or undo things twice.
            if (auto pressed = Press(control); !pressed) return pressed;
            break;
        default:
            break;
    }
    if (!form_.IsOpen() || !control.OnDblClick) return {};
    const auto handler = control.OnDblClick;
    handler();
    return {};
}

Taken Input::Steps::Check(CheckBox& control, bool value) {
    if (auto free = NotLocked(control); !free) return free;
    if (control.Value() == value) return {};
    if (control.Kind() == Kind::OptionButton && !value)
        return No(Named(control) + " is cleared by checking another one.");
    const auto others = value ? control.Others() : std::vector<CheckBox*>{};
    // The sources hear of it before the handlers, which may move or refresh them.
    control.value_ = value;
    control.Tell();
    Note(control);
    for (auto* other : others) {
        other->value_ = false;
        other->Tell();
        Note(*other);
    }
    for (auto* other : others) other->Changed();
    control.Changed();
    if (form_.IsOpen()) control.Clicked();
    return {};
}

Taken Input::Steps::ChooseEntry(Control& list, int index) {
    auto* combo = dynamic_cast<ComboBox*>(&list);
    auto* box = dynamic_cast<ListBox*>(&list);
    auto* view = dynamic_cast<ListView*>(&list);
    const int count = combo != nullptr  ? combo->List().Count()
                      : box != nullptr  ? box->List().Count()
                      : view != nullptr ? static_cast<int>(view->Rows().size())
                                        : 0;
    if (index < 0 || index >= count) return No(Named(list) + " has no entry " + std::to_string(index) + ".");
    if (auto free = NotLocked(list); !free) return free;
    if (combo != nullptr) {
        if (combo->PutIndex(index)) Note(list);
    } else if (box != nullptr) {
        box->PutIndex(index);
    } else {
        view->Index(index);
    }
    list.Clicked();
    return {};
}

// -- text

Taken Input::Steps::Write(TextBox& control, std::string_view text, bool whole) {
    if (auto free = NotLocked(control); !free) return free;
    if (whole) control.Select(0, CountCharacters(control.Text()));
    if (!control.Replace(text)) return {};
    Note(control);
    control.Changed();
    return {};
}

Taken Input::Steps::Erase(TextBox& control, bool forward) {
    if (control.SelLength() == 0) {
        const int start = forward ? control.SelStart() : control.SelStart() - 1;
        if (start < 0) return NotLocked(control);
        if (auto free = NotLocked(control); !free) return free;
        control.Select(start, 1);
    }
    return Write(control, {}, false);
}

Taken Input::Steps::TypeInto(Control& control, std::string_view text) {
    if (auto* grid = dynamic_cast<Grid*>(&control)) return TypeIntoCell(*grid, text);
    auto* box = dynamic_cast<TextBox*>(&control);
    if (box == nullptr) return No(Named(control) + " holds no text.");
    for (const auto character : Characters(text)) {
        // What follows from a character may switch the field, or close the form.
        if (auto reached = Reach(control); !reached) return reached;
        if (auto written = Write(*box, character, false); !written) return written;
    }
    return {};
}

// -- cells

Taken Input::Steps::Stands(const Grid& grid, int row, int col) const {
    const auto cell = "the cell (" + std::to_string(row) + ", " + std::to_string(col) + ")";
    if (row < 0 || col < 0 || row >= grid.Rows() || col >= grid.Cols())
        return No(Named(grid) + " lacks " + cell + ".");
    if (grid.RowHidden(row) || grid.ColHidden(col)) return No(Named(grid) + " hides " + cell + ".");
    return {};
}

Taken Input::Steps::SelectCell(Grid& grid, int row, int col) {
    if (auto stands = Stands(grid, row, col); !stands) return stands;
    if (row < grid.FixedRows() || col < grid.FixedCols())
        return No(Named(grid) + " lets the cursor into no fixed cell.");
    if (!grid.GoTo(row, col)) return No(Named(grid) + " keeps its cursor in its cell.");
    return Reach(grid);
}

Taken Input::Steps::StandInCell(Grid& grid, int row, int col) {
    if (auto gone = SelectCell(grid, row, col); !gone) return gone;
    if (grid.Row() == row && grid.Col() == col) return Stands(grid, row, col);
    return No(Named(grid) + " sent its cursor on to another cell.");
}

Taken Input::Steps::ClickCell(Grid& grid, int row, int col, bool twice) {
    if (auto stands = Stands(grid, row, col); !stands) return stands;
    const bool fixed = row < grid.FixedRows() || col < grid.FixedCols();
    if (fixed) {
        // A click on a head may sort or rebuild the rows.
        if (!grid.LeaveRow()) return No(Named(grid) + " keeps its row.");
    } else if (auto gone = StandInCell(grid, row, col); !gone) {
        return gone;
    }
    const bool opens = !fixed && grid.Editable() != Editing::None;
    if (opens && !twice && grid.ColKind(col) == CellKind::Check) grid.Toggle(row, col);
    if (const auto handler = twice ? grid.OnCellDblClick : grid.OnCellClick) handler(row, col);
    if (!form_.IsOpen()) return {};
    if (!twice) {
        grid.Clicked();
    } else if (opens && Reach(grid) && grid.Row() == row && grid.Col() == col && !grid.IsEditing() &&
               grid.ColKind(col) != CellKind::Check) {
        grid.StartEdit();
    }
    return {};
}

Taken Input::Steps::OpenCell(Grid& grid) {
    if (grid.Editable() == Editing::None) return No(Named(grid) + " is not to be edited.");
    if (grid.IsEditing() || grid.StartEdit()) return {};
    return No(Named(grid) + " does not open its cell.");
}

Taken Input::Steps::EndEdit(Grid& grid) {
    return grid.FinishEdit() ? Taken{} : No(Named(grid) + " refuses what was typed.");
}

Taken Input::Steps::TypeIntoCell(Grid& grid, std::string_view text) {
    for (const auto character : Characters(text)) {
        if (auto reached = Reach(grid); !reached) return reached;
        if (auto typed = TypeCharacter(grid, character); !typed) return typed;
    }
    return {};
}

Taken Input::Steps::TypeCharacter(Grid& grid, std::string_view character) {
    if (!grid.IsEditing()) {
        if (grid.Row() < 0 || grid.Col() < 0) return No(Named(grid) + " has its cursor in no cell.");
        if (grid.ColKind(grid.Col()) == CellKind::Check)
            return No(Named(grid) + " has a check mark in its cell.");
        if (auto opened = OpenCell(grid); !opened) return opened;
        // Opening may have ended in a handler already.
        if (!grid.IsEditing()) return No(Named(grid) + " does not keep its cell open.");
    }
    const auto before = grid.EditSelected() ? std::string() : grid.EditText();
    grid.EditText(before + std::string(character));
    return {};
}

// -- tabs and scrolling

Taken Input::Steps::ToTab(TabControl& tabs, int index) {
    const auto name = Named(tabs) + ", tab " + std::to_string(index);
    if (index < 0 || index >= static_cast<int>(tabs.Tabs().size())) return No(name + ", is not there.");
    if (!tabs.Tabs()[static_cast<std::size_t>(index)].Enabled) return No(name + ", is disabled.");
    tabs.Current(index);
    return {};
}

Taken Input::Steps::Scroll(Control& control, int position) {
    if (auto* bar = dynamic_cast<ScrollBar*>(&control)) {
        if (auto gone = GoTo(control); !gone) return gone;
        bar->Value(position);
        return {};
    }
    if (auto* grid = dynamic_cast<Grid*>(&control)) {
        if (position < 0 || position >= grid->Rows())
            return No(Named(control) + " has no row " + std::to_string(position) + ".");
        grid->TopRow(position);
        return {};
    }
    if (auto* list = dynamic_cast<ListBox*>(&control)) {
        if (position < 0 || position >= list->List().Count())
            return No(Named(control) + " has no entry " + std::to_string(position) + ".");
        list->TopIndex(position);
        return {};
    }
    return No(Named(control) + " does not scroll.");
}

}  // namespace FX_Algen::controls
