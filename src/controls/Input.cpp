#include "controls/Input.h"

#include "controls/InputSteps.h"
#include "controls/Running.h"
#include "controls/Utf8.h"

namespace FX_Algen::controls {

bool Input::Busy() noexcept { return HandlerRuns(); }

/// Broken text would stand in the store for good, and no one could read it there.
Taken Input::Readable(std::string_view text) {
    return IsUtf8(text) ? Taken{} : Steps::No("The text is not well-formed UTF-8.");
}

template <class Action>
Taken Input::Do(Action action) {
    if (Busy()) return Steps::No("A handler of a form still runs, or a box is open.");
    if (!form_.IsOpen()) return Steps::No("The form \"" + form_.Name() + "\" is closed.");
    if (!form_.Visible()) return Steps::No("The form \"" + form_.Name() + "\" is not shown.");
    // What the person does may close the form.
    const auto alive = form_.weak_from_this().lock();
    const HandlerTurn turn;
    Steps steps(form_);
    try {
        return action(steps);
    } catch (const Error& error) {
        form_.Failure(error);
        return {};
    }
}

Taken Input::Enter(Control& control) {
    return Do([&](Steps& steps) {
        if (!Steps::TakesFocus(control)) return Steps::No(Steps::Named(control) + " never has the focus.");
        return steps.GoTo(control);
    });
}

Taken Input::Leave() {
    return Do([](Steps& steps) { return steps.GoNowhere(); });
}

Taken Input::Click(Control& control) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(control);
        return gone ? steps.Press(control) : gone;
    });
}

Taken Input::DblClick(Control& control) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(control);
        return gone ? steps.PressTwice(control) : gone;
    });
}

Taken Input::Type(Control& control, std::string_view text) {
    return Do([&](Steps& steps) {
        if (auto no = Readable(text); !no) return no;
        const auto gone = steps.GoTo(control);
        return gone ? steps.TypeInto(control, text) : gone;
    });
}

Taken Input::SetText(Control& control, std::string_view text) {
    return Do([&](Steps& steps) {
        auto* box = dynamic_cast<TextBox*>(&control);
        if (box == nullptr) return Steps::No(Steps::Named(control) + " holds no text.");
        if (auto no = Readable(text); !no) return no;
        const auto gone = steps.GoTo(control);
        return gone ? steps.Write(*box, text, true) : gone;
    });
}

Taken Input::SetValue(CheckBox& control, bool value) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(control);
        return gone ? steps.Check(control, value) : gone;
    });
}

Taken Input::Choose(Control& list, int index) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(list);
        return gone ? steps.ChooseEntry(list, index) : gone;
    });
}

Taken Input::ClickCell(Grid& grid, int row, int col) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(grid);
        return gone ? steps.ClickCell(grid, row, col, false) : gone;
    });
}

Taken Input::DblClickCell(Grid& grid, int row, int col) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(grid);
        return gone ? steps.ClickCell(grid, row, col, true) : gone;
    });
}

Taken Input::SelectCell(Grid& grid, int row, int col) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(grid);
        return gone ? steps.SelectCell(grid, row, col) : gone;
    });
}

Taken Input::EditCell(Grid& grid, int row, int col, std::string_view text) {
    return Do([&](Steps& steps) {
        if (auto no = Readable(text); !no) return no;
        auto done = steps.GoTo(grid);
        if (done) done = steps.StandInCell(grid, row, col);
        if (!done) return done;
        if (grid.ColKind(col) == CellKind::Check)
            return Steps::No(Steps::Named(grid) + " has a check mark in column " + std::to_string(col) + ".");
        done = steps.OpenCell(grid);
        if (!done) return done;
        grid.EditText(std::string(text));
        return steps.EndEdit(grid);
    });
}

Taken Input::CheckCell(Grid& grid, int row, int col, bool value) {
    return Do([&](Steps& steps) {
        auto done = steps.GoTo(grid);
        if (done) done = steps.StandInCell(grid, row, col);
        if (!done) return done;
        if (grid.ColKind(col) != CellKind::Check)
            return Steps::No(Steps::Named(grid) + " has no check mark in column " + std::to_string(col) +
                             ".");
        if (grid.Checked(row, col) == value) return Taken{};
        if (grid.Editable() == Editing::None || !grid.Toggle(row, col))
            return Steps::No(Steps::Named(grid) + " refuses the check mark.");
        return Taken{};
    });
}

Taken Input::Key(const KeyPress& key) {
    return Do([&](Steps& steps) {
        auto readable = Readable(key.Name);
        return readable ? steps.Key(key) : readable;
    });
}

Taken Input::ShowTab(TabControl& control, int index) {
    return Do([&](Steps& steps) {
        const auto gone = steps.GoTo(control);
        return gone ? steps.ToTab(control, index) : gone;
    });
}

Taken Input::PressToolbar(Toolbar& toolbar, int position) {
    return Do([&](Steps& steps) {
        const auto button = [&]() -> const ToolbarButton* {
            const auto& buttons = toolbar.Buttons();
            if (position < 1 || position > static_cast<int>(buttons.size())) return nullptr;
            const auto& found = buttons[static_cast<std::size_t>(position - 1)];
            return found.Separator ? nullptr : &found;
        };
        const auto refused = [&]() -> Taken {
            const auto* found = button();
            const auto name = Steps::Named(toolbar) + ", position " + std::to_string(position);
            if (found == nullptr) return Steps::No(name + ", is no button.");
            return found->Enabled ? Taken{} : Steps::No(name + ", is disabled.");
        };
        if (auto no = refused(); !no) return no;
        if (auto gone = steps.GoTo(toolbar); !gone) return gone;
        // Leaving the row may have switched it.
        if (auto no = refused(); !no) return no;
        if (const auto handler = toolbar.OnButton) handler(position);
        return Taken{};
    });
}

Taken Input::Scroll(Control& control, int position) {
    return Do([&](Steps& steps) {
        if (const auto reached = steps.Reach(control); !reached) return reached;
        return steps.Scroll(control, position);
    });
}

Taken Input::Activate() {
    return Do([this](Steps&) {
        form_.OnActivate();
        return Taken{};
    });
}

Taken Input::Deactivate() {
    return Do([this](Steps&) {
        return form_.SaveRows() ? Taken{}
                                : Steps::No("A row of \"" + form_.Name() + "\" could not be saved.");
    });
}

Taken Input::Close() {
    return Do([this](Steps&) {
        return form_.Close() ? Taken{} : Steps::No("The form \"" + form_.Name() + "\" stays open.");
    });
}

}  // namespace FX_Algen::controls
