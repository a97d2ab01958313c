#include "controls/Form.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "controls/DataSource.h"
#include "controls/Grid.h"
#include "controls/OpenForms.h"
#include "controls/Port.h"
#include "controls/Running.h"
#include "store/Strings.h"
#include "store/TextOrder.h"

namespace FX_Algen::controls {

namespace {

/// "could not be saved, close without it?"
constexpr std::int16_t AskCloseUnsaved = 5650;

/// Has a row left; failures of the store end in the form's common handler.
template <class Leave>
bool Left(Form& form, Leave leave) {
    try {
        return leave();
    } catch (const Error& error) {
        form.Failure(error);
        return false;
    }
}

}  // namespace

void Form::Caption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    if (observer_ != nullptr) observer_->FormChanged();
}

Control* Form::Find(std::string_view name) const noexcept {
    for (const auto& control : controls_)
        if (store::CompareCaseBlind(control->Name(), name) == 0) return control.get();
    return nullptr;
}

// -- window

void Form::Show(std::int32_t hostWindow) {
    if (!open_) throw Error(ErrorNumber::TypeMismatch, "The form \"" + name_ + "\" was closed.");
    const auto parent = parent_.lock();
    window_ = DisplayPort().ShowForm(*this, parent ? parent->Window() : hostWindow);
    if (std::exchange(visible_, true)) return;
    if (observer_ != nullptr) observer_->FormChanged();
}

bool Form::Hide() {
    if (!visible_) return true;
    if (!SaveRows()) return false;
    if (std::exchange(visible_, false) && observer_ != nullptr) observer_->FormChanged();
    return true;
}

bool Form::Close(Ending how) {
    if (!open_) return true;
    // A handler that runs while the form closes may ask for the same again.
    if (closing_) return false;
    struct Closing {
        explicit Closing(bool& running) : running_(running) { running_ = true; }
        ~Closing() { running_ = false; }
        Closing(const Closing&) = delete;
        Closing& operator=(const Closing&) = delete;
        bool& running_;
    };
    // The list of open forms may hold the last reference.
    const auto alive = weak_from_this().lock();
    const Closing closing(closing_);

    if (how == Ending::Ask && !SaveOrAsk()) return false;
    for (const auto& child : OpenForms().ChildrenOf(*this))
        if (!child->Close(Ending::Ask)) return false;
    Left(*this, [this] {
        OnUnload();
        return true;
    });
    if (window_ != 0) DisplayPort().CloseForm(*this);
    open_ = visible_ = false;
    window_ = 0;
    focus_ = unleft_ = nullptr;
    observer_ = nullptr;
    OpenForms().Remove(*this);
    return true;
}

bool Form::SaveOrAsk() {
    const bool saved = SaveRows();
    return (saved && !HasChanges()) || Box(Text(AskCloseUnsaved), store::Buttons::YesNo,
                                           store::Symbol::Exclamation) == store::Answer::Yes;
}

// -- focus

void Form::SetFocus(Control& control) {
    if (&control.Owner() != this)
        throw Error(ErrorNumber::TypeMismatch,
                    "\"" + control.Name() + "\" stands on another form than \"" + name_ + "\".");
    if (focus_ == &control) return;
    // Nothing is validated, but the row of a grid must not stay behind unsaved: it is left when the person
    // goes on.
    if (dynamic_cast<Grid*>(focus_) != nullptr) unleft_ = focus_;
    if (dynamic_cast<Grid*>(unleft_) == nullptr || unleft_ == &control) unleft_ = nullptr;
    MoveFocus(&control);
}

void Form::MoveFocus(Control* target) {
    auto* from = std::exchange(focus_, target);
    if (observer_ != nullptr) observer_->FocusMoved(from, target);
    if (target == nullptr || !target->OnGotFocus) return;
    const auto handler = target->OnGotFocus;
    handler();
}

// -- rows

bool Form::SaveRows() {
    bool saved = true;
    std::vector<const Grid*> kept;
    // By number: a handler may add controls. Grids first, since they hand their edits to the sources.
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        auto* grid = dynamic_cast<Grid*>(controls_[i].get());
        if (grid == nullptr || Left(*this, [grid] { return grid->LeaveRow(); })) continue;
        kept.push_back(grid);
        saved = false;
    }
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        auto* source = dynamic_cast<DataSource*>(controls_[i].get());
        if (source == nullptr) continue;
        // A grid that kept its row has told why.
        if (std::any_of(kept.begin(), kept.end(), [&](const Grid* grid) { return source->Has(*grid); }))
            continue;
        saved = Left(*this,
                     [source] {
                         source->LeaveRow();
                         return true;
                     }) &&
                saved;
    }
    return saved;
}

bool Form::HasChanges() const {
    return std::any_of(controls_.begin(), controls_.end(), [](const auto& control) {
        const auto* source = dynamic_cast<const DataSource*>(control.get());
        return source != nullptr && source->Changed();
    });
}

void Form::Failure(const Error& error) {
    const auto title = caption_.empty() ? "basDrucker:" + name_ : caption_;
    Box(title, std::to_string(error.Number()) + " - " + error.Description(), store::Buttons::Ok,
        store::Symbol::Exclamation);
}

store::Answer Form::Box(std::string_view text, store::Buttons buttons, store::Symbol symbol) const {
    return Box(caption_, text, buttons, symbol);
}

store::Answer Form::Box(std::string_view title, std::string_view text, store::Buttons buttons,
                        store::Symbol symbol) const {
    // While it waits for the answer, a display may let a person reach the forms behind it.
    const HandlerTurn turn;
    return DisplayPort().Box(title, text, buttons, symbol);
}

std::string Form::Text(std::int16_t offset) const {
    constexpr std::int16_t german = 10000;
    return store::Text(offset, std::max(sprache_, german));
}

}  // namespace FX_Algen::controls
