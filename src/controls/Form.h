#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Messages.h"
#include "controls/Control.h"

namespace FX_Algen::store {
class Database;
}  // namespace FX_Algen::store

namespace FX_Algen::controls {

class DataSource;
class Grid;

/// Hears what changes on a form: the toolkit's binder.
class Observer {
public:
    virtual ~Observer() = default;
    virtual void FormChanged() {}             ///< caption, visible
    virtual void ControlChanged(Control&) {}  ///< any property; of a grid also its shape
    virtual void CellChanged(Grid&, int /*row*/, int /*col*/) {}
    virtual void CursorMoved(Grid&) {}  ///< also when an edit opens or ends, and when the top row changes
    virtual void FocusMoved(Control* /*from*/, Control* /*to*/) {}
};

/// How a form ends.
enum class Ending : std::uint8_t {
    Ask,  ///< where something would be lost, a person is asked whether to go on without it; No keeps the form
    Discard,  ///< goes without saving: cancel of a dialog
};

/// A window: named controls, a place among the open forms of the thread, a focus.
///
/// A form is made by `OpenForms::Load`, shown by `Show` and ends by `Close`. A child names its parent;
/// closing the parent first saves it, then closes its children.
class Form : public std::enable_shared_from_this<Form> {
public:
    explicit Form(std::string name) : name_(std::move(name)) {}
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const noexcept { return name_; }
    const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string caption);
    /// The offset of the caption's string number as text; "0" keeps the caption.
    const std::string& Tag() const noexcept { return tag_; }
    void Tag(std::string tag) { tag_ = std::move(tag); }
    /// Language base of the texts and of the decimal mark: 10000 German, 20000 English.
    std::int16_t Sprache() const noexcept { return sprache_; }
    void Sprache(std::int16_t base) noexcept { sprache_ = base; }

    // -- controls, in the order in which they were added
    const std::vector<std::unique_ptr<Control>>& Controls() const noexcept { return controls_; }
    /// The control with the name, without regard to case; nullptr where there is none.
    Control* Find(std::string_view name) const noexcept;
    template <class T, class... A>
    T& Add(std::string name, A&&... rest) {
        auto made = std::make_unique<T>(*this, std::forward<A>(rest)..., std::move(name));
        auto& control = *made;
        controls_.push_back(std::move(made));
        return control;
    }

    // -- window
    bool Visible() const noexcept { return visible_; }
    /// Number of its window; 0 before it was shown.
    std::int32_t Window() const noexcept { return window_; }
    Form* Parent() const noexcept { return parent_.lock().get(); }
    void Parent(const std::shared_ptr<Form>& parent) { parent_ = parent; }
    /// Shows it as a child of its parent form or, without one, of the window with the number `hostWindow`.
    void Show(std::int32_t hostWindow = 0);
    /// Takes it from the screen; it stays open. Its rows are left first, as where it goes behind another
    /// window: false where one of them failed, and then it stays in sight.
    bool Hide();
    /// Saves, closes the children, and ends the form. False where it stays open. Children are asked each,
    /// also where this form discards: what was typed there is another matter.
    bool Close(Ending how = Ending::Ask);
    bool IsOpen() const noexcept { return open_; }

    // -- focus
    Control* Focus() const noexcept { return focus_; }
    /// Puts the focus there without validating; `OnGotFocus` follows where it was elsewhere. 13 for a control
    /// of another form.
    void SetFocus(Control& control);

    // -- rows
    /// The handle of the database that the form works on; none where it uses none. Before a host closes that
    /// database the form is asked to save and end.
    virtual std::shared_ptr<store::Database> WorksOn() const { return nullptr; }
    /// Leaves all rows: open edits, rows of grids, rows of data sources. False where one of them could not be
    /// left, and why was shown then. Deactivating the window, commands and operations that a host starts call
    /// this. What was changed in an edit state is kept for its own buttons and hinders nobody.
    virtual bool SaveRows();
    /// Whether the end of the form would lose something: rows that could not be saved, changes in an edit
    /// state.
    virtual bool HasChanges() const;
    /// The common handler: a box titled with the caption, or "basDrucker:" and the form's name where it has
    /// none; text = number, " - ", description.
    void Failure(const Error& error);
    /// A box with the title; without one under the form's caption.
    store::Answer Box(std::string_view text, store::Buttons buttons = store::Buttons::Ok,
                      store::Symbol symbol = store::Symbol::None) const;
    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol = store::Symbol::None) const;
    /// The text with the number, in the form's language (German where `Sprache` is below 10000).
    std::string Text(std::int16_t offset) const;

    /// For the toolkit: one observer at a time; none where the form is not drawn.
    void Observe(Observer* observer) noexcept { observer_ = observer; }
    Observer* Watching() const noexcept { return observer_; }

protected:
    /// After its window came to the front.
    virtual void OnActivate() {}
    /// Before the form ends, after it saved and its children closed.
    virtual void OnUnload() {}
    friend class Input;
    friend class OpenFormList;

private:
    /// The focus goes there, or to no control; no handler runs but `OnGotFocus`.
    void MoveFocus(Control* target);
    bool SaveOrAsk();

    std::string name_, caption_, tag_ = "0";
    std::int16_t sprache_ = 10000;
    std::vector<std::unique_ptr<Control>> controls_;
    std::weak_ptr<Form> parent_;
    Control* focus_ = nullptr;
    /// The control that a person left for one that does not validate: it is left when they go on.
    Control* unleft_ = nullptr;
    Observer* observer_ = nullptr;
    std::int32_t window_ = 0;
    bool visible_ = false;
    bool open_ = true;
    bool closing_ = false;
};

}  // namespace FX_Algen::controls
