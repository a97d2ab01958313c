#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "FX_Algen/Error.h"
#include "FX_Algen/Forms.h"
#include "controls/Input.h"
#include "controls/KeyNames.h"
#include "controls/OpenForms.h"
#include "store/TextOrder.h"

namespace FX_Algen {

namespace {

using controls::Control;
using controls::Input;
using controls::Taken;

/// One action on its way: who is meant, and what it needs.
class Deed {
public:
    Deed(controls::Form& form, Control* control, const FormAction& action)
        : form_(form), control_(control), action_(action) {}

    Input Person() const { return Input(form_); }
    const FormAction& Action() const { return action_; }
    Control* Focused() const { return form_.Focus(); }
    Control* Given() const { return control_; }
    Control& On() const { return *control_; }

    /// The control as one of the type, none where it is of another.
    template <class T>
    T* As() const {
        return dynamic_cast<T*>(control_);
    }
    /// The same; 13 where it is of another type.
    template <class T>
    T& Needed() const {
        if (auto* found = As<T>()) return *found;
        Refuse("is a " + std::string(KindName(control_->Kind())) + ", and '" + action_.Action +
               "' is nothing to do to that");
    }

    const std::string& Text() const { return Value(action_.Text, "a text"); }
    /// A check mark, also as the number of a boolean.
    bool Value() const {
        if (!action_.Value && action_.Text == "0") return false;
        if (!action_.Value && (action_.Text == "1" || action_.Text == "-1")) return true;
        return Value(action_.Value, "a value, true or false,");
    }
    int Row() const { return Value(action_.Row, "a row"); }
    int Col() const { return Value(action_.Col, "a column"); }
    int Index() const { return Value(action_.Index, "an index"); }
    int Position() const { return Value(action_.Position, "a position"); }

    [[noreturn]] void Refuse(const std::string& what) const {
        throw Error(ErrorNumber::TypeMismatch, Who() + " " + what + ".");
    }
    Taken NotThere(const std::string& what) const { return {false, Who() + " has no " + what + "."}; }

private:
    std::string Who() const { return control_ ? form_.Name() + "." + control_->Name() : form_.Name(); }

    template <class T>
    const T& Value(const std::optional<T>& given, std::string_view what) const {
        if (given) return *given;
        Refuse("needs " + std::string(what) + " for '" + action_.Action + "'");
    }

    controls::Form& form_;
    Control* control_;
    const FormAction& action_;
};

std::string Numbers(int first, int second) {
    return "(" + std::to_string(first) + ", " + std::to_string(second) + ")";
}

bool Within(int index, int count) { return index >= 0 && index < count; }

/// What a person reads in a list; of a list view its first column. None where the control is no list.
std::optional<std::vector<std::string>> EntriesOf(const Deed& deed) {
    if (const auto* combo = deed.As<controls::ComboBox>()) return combo->List().All();
    if (const auto* list = deed.As<controls::ListBox>()) return list->List().All();
    const auto* view = deed.As<controls::ListView>();
    if (!view) return std::nullopt;
    std::vector<std::string> out;
    for (const auto& row : view->Rows()) out.push_back(row.empty() ? std::string() : row.front());
    return out;
}

bool IsList(const Deed& deed) { return EntriesOf(deed).has_value(); }

/// Whether an entry is meant rather than a text to type or the field as such.
bool MeansEntry(const Deed& deed) {
    if (!IsList(deed)) return false;
    return !deed.As<controls::ComboBox>() || deed.Action().Index || deed.Action().Entry;
}

/// How the entry reads, where it is given so and not by its place.
const std::optional<std::string>& EntryText(const Deed& deed) {
    return deed.Action().Entry || deed.Action().Index ? deed.Action().Entry : deed.Action().Text;
}

/// The entry is looked for only once the control has the focus: leaving another field may fill the list anew.
Taken ChooseEntry(const Deed& deed) {
    const auto& text = EntryText(deed);
    if (!text) deed.Index();
    if (auto entered = deed.Person().Enter(deed.On()); !entered) return entered;
    const auto entries = *EntriesOf(deed);
    if (text) {
        const auto found = std::find(entries.begin(), entries.end(), *text);
        if (found == entries.end()) return deed.NotThere("entry '" + *text + "'");
        return deed.Person().Choose(deed.On(), static_cast<int>(found - entries.begin()));
    }
    if (!Within(deed.Index(), static_cast<int>(entries.size())))
        return deed.NotThere("entry " + std::to_string(deed.Index()));
    return deed.Person().Choose(deed.On(), deed.Index());
}

/// Runs a member of `Input` on a cell that the grid has once it has the focus.
template <class Do>
Taken OnCell(const Deed& deed, Do what) {
    auto& grid = deed.Needed<controls::Grid>();
    const int row = deed.Row();
    const int col = deed.Col();
    if (auto entered = deed.Person().Enter(grid); !entered) return entered;
    if (!Within(row, grid.Rows()) || !Within(col, grid.Cols()))
        return deed.NotThere("cell " + Numbers(row, col));
    return what(grid, row, col);
}

Taken Click(const Deed& deed) {
    if (deed.As<controls::Grid>())
        return OnCell(deed,
                      [&](auto& grid, int row, int col) { return deed.Person().ClickCell(grid, row, col); });
    if (MeansEntry(deed)) return ChooseEntry(deed);
    return deed.Person().Click(deed.On());
}

Taken DblClick(const Deed& deed) {
    if (deed.As<controls::Grid>())
        return OnCell(
            deed, [&](auto& grid, int row, int col) { return deed.Person().DblClickCell(grid, row, col); });
    if (MeansEntry(deed))
        if (const auto chosen = ChooseEntry(deed); !chosen) return chosen;
    return deed.Person().DblClick(deed.On());
}

/// A host's answer to a form comes without a person: no focus is moved for it, nothing is left.
Taken Answer(controls::TextBox& field, const std::string& text) {
    if (controls::Input::Busy()) return {false, "A handler of a form still runs, or a box is open."};
    field.Text(text);
    return {};
}

Taken Set(const Deed& deed) {
    if (auto* box = deed.As<controls::CheckBox>()) return deed.Person().SetValue(*box, deed.Value());
    if (MeansEntry(deed)) return ChooseEntry(deed);
    auto& field = deed.Needed<controls::TextBox>();
    if (field.HostsWrite) return Answer(field, deed.Text());
    return deed.Person().SetText(field, deed.Text());
}

/// To the cell that is given, before something is done at the cursor of a grid.
Taken GoToCell(const Deed& deed) {
    if (!deed.Action().Row && !deed.Action().Col) return {};
    return OnCell(deed,
                  [&](auto& grid, int row, int col) { return deed.Person().SelectCell(grid, row, col); });
}

Taken Type(const Deed& deed) {
    if (!deed.As<controls::Grid>()) deed.Needed<controls::TextBox>();
    const auto& text = deed.Text();
    if (const auto gone = GoToCell(deed); !gone) return gone;
    return deed.Person().Type(deed.On(), text);
}

Taken Cell(const Deed& deed) {
    return OnCell(deed, [&](auto& grid, int row, int col) {
        if (grid.ColKind(col) == controls::CellKind::Check)
            return deed.Person().CheckCell(grid, row, col, deed.Value());
        return deed.Person().EditCell(grid, row, col, deed.Text());
    });
}

Taken Select(const Deed& deed) {
    if (IsList(deed)) return ChooseEntry(deed);
    return OnCell(deed,
                  [&](auto& grid, int row, int col) { return deed.Person().SelectCell(grid, row, col); });
}

Taken Enter(const Deed& deed) { return deed.Person().Enter(deed.On()); }

Taken Leave(const Deed& deed) {
    if (deed.Given() && deed.Given() != deed.Focused())
        return {false, deed.On().Name() + " has not the focus."};
    return deed.Person().Leave();
}

Taken Tab(const Deed& deed) {
    auto& tabs = deed.Needed<controls::TabControl>();
    if (!Within(deed.Index(), static_cast<int>(tabs.Tabs().size())))
        return deed.NotThere("tab " + std::to_string(deed.Index()));
    return deed.Person().ShowTab(tabs, deed.Index());
}

Taken PressToolbar(const Deed& deed) {
    auto& toolbar = deed.Needed<controls::Toolbar>();
    // Positions count from 1.
    if (!Within(deed.Position() - 1, static_cast<int>(toolbar.Buttons().size())))
        return deed.NotThere("position " + std::to_string(deed.Position()));
    return deed.Person().PressToolbar(toolbar, deed.Position());
}

Taken ChooseMenu(const Deed& deed) { return deed.Person().Click(deed.Needed<controls::Menu>()); }

Taken Key(const Deed& deed) {
    auto key = controls::ReadKey(deed.Text());
    if (!key) deed.Refuse("knows no key '" + deed.Text() + "'");
    const auto& action = deed.Action();
    key->Shift = key->Shift || action.Shift;
    key->Ctrl = key->Ctrl || action.Ctrl;
    key->Alt = key->Alt || action.Alt;
    if (deed.Given() && deed.Given() != deed.Focused())
        if (const auto entered = Enter(deed); !entered) return entered;
    if (const auto gone = GoToCell(deed); !gone) return gone;
    return deed.Person().Key(*key);
}

Taken Scroll(const Deed& deed) {
    const auto* grid = deed.As<controls::Grid>();
    if (!grid) deed.Needed<controls::ScrollBar>();
    const int position = grid && deed.Action().Row ? deed.Row() : deed.Position();
    if (grid && !Within(position, grid->Rows())) return deed.NotThere("row " + std::to_string(position));
    return deed.Person().Scroll(deed.On(), position);
}

Taken Activate(const Deed& deed) { return deed.Person().Activate(); }
Taken Deactivate(const Deed& deed) { return deed.Person().Deactivate(); }
Taken Close(const Deed& deed) { return deed.Person().Close(); }

/// Whether an action is done to a control, to the one given or else the focused one, to the form as a whole,
/// or to either.
enum class Scope : std::uint8_t { Control, Focused, Form, Either };

struct Entry {
    std::string_view Name;
    Scope On;
    Taken (*Do)(const Deed&);
};

constexpr std::array Entries{
    Entry{"click", Scope::Control, Click},
    Entry{"dblclick", Scope::Control, DblClick},
    Entry{"set", Scope::Control, Set},
    Entry{"type", Scope::Focused, Type},
    Entry{"cell", Scope::Control, Cell},
    Entry{"select", Scope::Control, Select},
    Entry{"enter", Scope::Control, Enter},
    Entry{"leave", Scope::Either, Leave},
    Entry{"tab", Scope::Control, Tab},
    Entry{"toolbar", Scope::Control, PressToolbar},
    Entry{"menu", Scope::Control, ChooseMenu},
    Entry{"key", Scope::Either, Key},
    Entry{"scroll", Scope::Control, Scroll},
    Entry{"activate", Scope::Form, Activate},
    Entry{"deactivate", Scope::Form, Deactivate},
    Entry{"close", Scope::Form, Close},
};

const Entry& EntryOf(const std::string& action) {
    for (const auto& entry : Entries)
        if (entry.Name == action) return entry;
    std::string known;
    for (const auto& entry : Entries) known += (known.empty() ? "" : ", ") + std::string(entry.Name);
    throw Error(ErrorNumber::TypeMismatch,
                "There is no action '" + action + "' on forms. There are " + known + ".");
}

/// Names of controls that may have been meant: the members of an array whose name was given without a number.
std::string Meant(const controls::Form& form, const std::string& name) {
    std::string out;
    for (const auto& control : form.Controls()) {
        const auto end = control->Name().find('(');
        if (end == std::string::npos) continue;
        if (store::CompareCaseBlind(control->Name().substr(0, end), name) != 0) continue;
        out += (out.empty() ? ", but " : ", ") + control->Name();
    }
    return out;
}

}  // namespace

ActionResult ActOnForm(const std::string& form, const FormAction& action) {
    const auto found = controls::OpenForms().Needed(form);
    const auto& entry = EntryOf(action.Action);
    Control* control = nullptr;
    if (!action.Control.empty()) {
        control = found->Find(action.Control);
        if (!control)
            throw Error(ErrorNumber::TypeMismatch, found->Name() + " has no control '" + action.Control +
                                                       "'" + Meant(*found, action.Control) + ".");
    }
    if (entry.On == Scope::Focused && !control) control = found->Focus();
    const Deed deed(*found, control, action);
    const bool onControl = entry.On == Scope::Control || entry.On == Scope::Focused;
    if (onControl && !control) deed.Refuse("needs a control for '" + action.Action + "'");
    if (entry.On == Scope::Form && control)
        deed.Refuse("takes no '" + action.Action + "': that is for the form as a whole");
    auto taken = entry.Do(deed);
    return {taken.Yes, taken.Yes ? std::string() : std::move(taken.Reason)};
}

}  // namespace FX_Algen
