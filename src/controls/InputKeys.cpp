#include <algorithm>
#include <optional>
#include <utility>

#include "controls/InputSteps.h"
#include "controls/Utf8.h"

/// What keys do.
namespace FX_Algen::controls {

namespace {

/// Rows that a page key goes on.
constexpr int Page = 10;

/// The character that a key types. Ctrl and Alt alone make commands of keys; both together type, as on
/// keyboards that reach their third level so.
std::optional<std::string_view> Typed(const KeyPress& key) {
    if (key.Ctrl != key.Alt) return std::nullopt;
    if (key.Name == "Space") return " ";
    if (CountCharacters(key.Name) != 1) return std::nullopt;
    const auto first = static_cast<unsigned char>(key.Name.front());
    if (first < ' ' || first == 0x7F) return std::nullopt;
    return key.Name;
}

bool IsPlain(const KeyPress& key, std::string_view name) { return key.Name == name && !key.Ctrl && !key.Alt; }

/// "Ctrl+Shift+N", in the order in which menus write it.
std::string ShortcutOf(const KeyPress& key) {
    std::string out;
    if (key.Ctrl) out += "Ctrl+";
    if (key.Alt) out += "Alt+";
    if (key.Shift) out += "Shift+";
    auto name = key.Name;
    if (name.size() == 1 && name.front() >= 'a' && name.front() <= 'z')
        name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return out + name;
}

/// Not used by the kind of the control: what stands behind it may use it.
Taken Unused() { return {false, {}}; }

/// Whether it is for others: not taken and without a reason of its own.
bool IsUnused(const Taken& taken) { return !taken && taken.Reason.empty(); }

/// The row or column from `at` on, `step` apart, that a person sees; none at the end.
template <class Hidden>
std::optional<int> Visible(int at, int step, int first, int end, Hidden hidden) {
    for (at += step; at >= first && at < end; at += step)
        if (!hidden(at)) return at;
    return std::nullopt;
}

}  // namespace

Control* Input::Steps::Focused() const {
    return form_.focus_ != nullptr && Reach(*form_.focus_) ? form_.focus_ : nullptr;
}

Taken Input::Steps::Key(const KeyPress& key) {
    if (auto* control = Focused()) {
        auto* grid = dynamic_cast<Grid*>(control);
        if (grid != nullptr && grid->IsEditing())
            if (auto taken = KeyInEdit(*grid, key); !IsUnused(taken)) return taken;
        if (control->OnKey) {
            const auto handler = control->OnKey;
            if (handler(key)) return {};
            if (!form_.IsOpen()) return {};
        }
    }
    // The handler may have moved the focus.
    if (auto* control = Focused())
        if (auto taken = KeyOfKind(*control, key); !IsUnused(taken)) return taken;
    if (auto taken = KeyOfForm(key); !IsUnused(taken)) return taken;
    return No("Nothing on \"" + form_.Name() + "\" uses the key " + key.Name + ".");
}

Taken Input::Steps::KeyOfForm(const KeyPress& key) {
    if (IsPlain(key, "Tab")) return GoAlong(key.Shift ? -1 : 1);
    const auto shortcut = ShortcutOf(key);
    for (const auto& control : form_.Controls()) {
        auto* menu = dynamic_cast<Menu*>(control.get());
        if (menu == nullptr || menu->Shortcut.empty() || menu->Shortcut != shortcut || !Reach(*menu))
            continue;
        auto gone = GoTo(*menu);
        return gone ? Press(*menu) : gone;
    }
    const bool enter = IsPlain(key, "Enter");
    if (!enter && !IsPlain(key, "Escape")) return Unused();
    for (const auto& control : form_.Controls()) {
        auto* button = dynamic_cast<CommandButton*>(control.get());
        if (button == nullptr || !(enter ? button->Default() : button->Cancel()) || !Reach(*button)) continue;
        auto gone = GoTo(*button);
        return gone ? Press(*button) : gone;
    }
    return Unused();
}

Taken Input::Steps::KeyOfKind(Control& control, const KeyPress& key) {
    switch (control.Kind()) {
        case Kind::ComboBox: {
            auto& combo = static_cast<ComboBox&>(control);
            if (auto taken = KeyOfEntries(combo, combo.List(), combo.ListIndex(), key); !IsUnused(taken))
                return taken;
            return KeyOfText(combo, key);
        }
        case Kind::TextBox:
            return KeyOfText(static_cast<TextBox&>(control), key);
        case Kind::ListBox: {
            auto& list = static_cast<ListBox&>(control);
            return KeyOfEntries(list, list.List(), list.ListIndex(), key);
        }
        case Kind::ListView: {
            auto& view = static_cast<ListView&>(control);
            if (!IsPlain(key, "Up") && !IsPlain(key, "Down")) return Unused();
            const int last = static_cast<int>(view.Rows().size()) - 1;
            return last < 0
                       ? Taken{}
                       : ChooseEntry(view, std::clamp(view.Index() + (key.Name == "Up" ? -1 : 1), 0, last));
        }
        case Kind::Grid:
            return KeyOfGrid(static_cast<Grid&>(control), key);
        case Kind::CommandButton:
            return IsPlain(key, "Space") || IsPlain(key, "Enter") ? Press(control) : Unused();
        case Kind::CheckBox:
            return IsPlain(key, "Space") ? Press(control) : Unused();
        case Kind::OptionButton:
            return KeyOfOption(static_cast<OptionButton&>(control), key);
        case Kind::TabStrip:
        case Kind::SSTab:
            return KeyOfTabs(static_cast<TabControl&>(control), key);
        case Kind::ScrollBar: {
            auto& bar = static_cast<ScrollBar&>(control);
            if (IsPlain(key, "Up") || IsPlain(key, "Left")) return Scroll(bar, bar.Value() - 1);
            if (IsPlain(key, "Down") || IsPlain(key, "Right")) return Scroll(bar, bar.Value() + 1);
            return Unused();
        }
        default:
            return Unused();
    }
}

// -- texts and lists

Taken Input::Steps::KeyOfText(TextBox& box, const KeyPress& key) {
    if (const auto character = Typed(key)) return Write(box, *character, false);
    if (key.Ctrl || key.Alt) return Unused();
    const int start = box.SelStart();
    const int end = start + box.SelLength();
    const bool selected = box.SelLength() > 0;
    if (key.Name == "Backspace") return Erase(box, false);
    if (key.Name == "Delete") return Erase(box, true);
    if (key.Name == "Enter" && box.MultiLine) return Write(box, "\n", false);
    if (key.Name == "Left") {
        box.Select(selected ? start : start - 1, 0);
    } else if (key.Name == "Right") {
        box.Select(selected ? end : end + 1, 0);
    } else if (key.Name == "Home") {
        box.Select(0, 0);
    } else if (key.Name == "End") {
        box.Select(CountCharacters(box.Text()), 0);
    } else {
        return Unused();
    }
    return {};
}

Taken Input::Steps::KeyOfEntries(Control& list, const Entries& entries, int index, const KeyPress& key) {
    if (key.Ctrl || key.Alt) return Unused();
    const int last = entries.Count() - 1;
    std::optional<int> to;
    if (key.Name == "Up") {
        to = std::max(index - 1, 0);
    } else if (key.Name == "Down") {
        to = std::min(index + 1, last);
    } else if (list.Kind() == Kind::ListBox) {
        if (key.Name == "Home") to = 0;
        if (key.Name == "End") to = last;
        if (const auto character = Typed(key)) to = entries.FindBeginning(*character);
    }
    if (!to) return Unused();
    return last < 0 ? Taken{} : ChooseEntry(list, *to);
}

Taken Input::Steps::KeyOfOption(OptionButton& option, const KeyPress& key) {
    if (IsPlain(key, "Space")) return Press(option);
    const bool back = IsPlain(key, "Up") || IsPlain(key, "Left");
    if (!back && !IsPlain(key, "Down") && !IsPlain(key, "Right")) return Unused();
    std::vector<OptionButton*> group;
    for (const auto& control : form_.Controls()) {
        auto* other = dynamic_cast<OptionButton*>(control.get());
        if (other != nullptr && other->Container() == option.Container() && other->Page() == option.Page() &&
            Reach(*other))
            group.push_back(other);
    }
    const auto count = static_cast<int>(group.size());
    const auto here = static_cast<int>(std::find(group.begin(), group.end(), &option) - group.begin());
    auto& next = *group[static_cast<std::size_t>((here + (back ? -1 : 1) + count) % count)];
    auto gone = GoTo(next);
    return gone ? Press(next) : gone;
}

Taken Input::Steps::KeyOfTabs(TabControl& tabs, const KeyPress& key) {
    const bool back = IsPlain(key, "Left");
    if (!back && !IsPlain(key, "Right")) return Unused();
    const auto disabled = [&](int index) { return !tabs.Tabs()[static_cast<std::size_t>(index)].Enabled; };
    const auto next =
        Visible(tabs.Current(), back ? -1 : 1, 0, static_cast<int>(tabs.Tabs().size()), disabled);
    return next ? ToTab(tabs, *next) : Taken{};
}

// -- grids

Taken Input::Steps::KeyInEdit(Grid& grid, const KeyPress& key) {
    if (const auto passes = grid.KeyPassesEdit; passes && passes(key)) return Unused();
    if (const auto character = Typed(key)) return TypeCharacter(grid, *character);
    if (key.Ctrl || key.Alt) return Unused();
    if (key.Name == "Enter") {
        auto ended = EndEdit(grid);
        return ended && grid.EnterGoesOn ? Unused() : ended;
    }
    if (key.Name == "Escape") {
        grid.CancelEdit();
        return {};
    }
    const bool all = grid.EditSelected();
    if (key.Name == "Backspace") {
        const auto text = grid.EditText();
        grid.EditText(all ? std::string() : text.substr(0, ByteOf(text, CountCharacters(text) - 1)));
        return {};
    }
    if (key.Name == "Delete") {
        // What is typed stands at the end: nothing is behind it.
        if (all) grid.EditText(std::string());
        return {};
    }
    return Unused();
}

Taken Input::Steps::KeyOfGrid(Grid& grid, const KeyPress& key) {
    if (key.Alt && !key.Ctrl) return Unused();
    if (grid.Rows() <= grid.FixedRows() || grid.Cols() <= grid.FixedCols()) return Unused();
    const auto hiddenRow = [&](int row) { return grid.RowHidden(row); };
    const auto hiddenCol = [&](int col) { return grid.ColHidden(col); };
    const auto row = [&](int at, int step) {
        return Visible(at, step, grid.FixedRows(), grid.Rows(), hiddenRow);
    };
    const auto col = [&](int at, int step) {
        return Visible(at, step, grid.FixedCols(), grid.Cols(), hiddenCol);
    };
    const auto go = [&](std::optional<int> toRow, std::optional<int> toCol) {
        // At an end the key is used up all the same.
        return toRow && toCol ? SelectCell(grid, *toRow, *toCol) : Taken{};
    };
    const bool here = grid.Row() >= grid.FixedRows() && grid.Col() >= grid.FixedCols();
    const auto atRow = here ? std::optional(grid.Row()) : row(grid.FixedRows() - 1, 1);
    const auto atCol = here ? std::optional(grid.Col()) : col(grid.FixedCols() - 1, 1);
    if (!atRow || !atCol) return Unused();

    if (key.Name == "Tab" && !key.Ctrl) {
        if (grid.Editable() == Editing::None || !here) return Unused();
        const auto next = grid.Neighbour(key.Shift ? -1 : 1);
        return next ? go(next->first, next->second) : Unused();
    }
    if (key.Name == "Up" || key.Name == "Down")
        return go(here ? row(*atRow, key.Name == "Up" ? -1 : 1) : atRow, atCol);
    if (key.Name == "Left" || key.Name == "Right")
        return go(atRow, here ? col(*atCol, key.Name == "Left" ? -1 : 1) : atCol);
    if (key.Name == "PageUp" || key.Name == "PageDown") {
        auto to = *atRow;
        for (int i = 0; i < Page; ++i) to = row(to, key.Name == "PageUp" ? -1 : 1).value_or(to);
        return go(to, atCol);
    }
    if (key.Name == "Home")
        return go(key.Ctrl ? row(grid.FixedRows() - 1, 1) : atRow, col(grid.FixedCols() - 1, 1));
    if (key.Name == "End") return go(key.Ctrl ? row(grid.Rows(), -1) : atRow, col(grid.Cols(), -1));
    if (!here || grid.Editable() == Editing::None) return Unused();
    if (key.Name == "F2") return grid.ColKind(grid.Col()) == CellKind::Check ? Unused() : OpenCell(grid);
    const auto character = Typed(key);
    if (!character) return Unused();
    if (grid.ColKind(grid.Col()) != CellKind::Check) return TypeCharacter(grid, *character);
    if (*character != " ") return Unused();
    return grid.Toggle(grid.Row(), grid.Col()) ? Taken{} : No(Named(grid) + " refuses the check mark.");
}

}  // namespace FX_Algen::controls
