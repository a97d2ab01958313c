#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "controls/InputSteps.h"

/// Where the focus goes, and what is left for it.
namespace FX_Algen::controls {

std::string Input::Steps::Named(const Control& control) {
    return std::string(KindName(control.Kind())) + " \"" + control.Name() + "\"";
}

Taken Input::Steps::Reach(const Control& control) const {
    if (&control.Owner() != &form_) return No(Named(control) + " stands on another form.");
    if (!form_.IsOpen()) return No("The form \"" + form_.Name() + "\" is closed.");
    if (!control.IsShown()) return No(Named(control) + " is hidden.");
    if (!control.IsEnabled()) return No(Named(control) + " is disabled.");
    return {};
}

bool Input::Steps::TakesFocus(const Control& control) noexcept {
    switch (control.Kind()) {
        case Kind::TextBox:
        case Kind::CommandButton:
        case Kind::CheckBox:
        case Kind::OptionButton:
        case Kind::ComboBox:
        case Kind::ListBox:
        case Kind::ListView:
        case Kind::Grid:
        case Kind::TabStrip:
        case Kind::SSTab:
        case Kind::ScrollBar:
            return true;
        case Kind::Label:
        case Kind::Toolbar:
        case Kind::Menu:
        case Kind::Frame:
        case Kind::PictureBox:
        case Kind::Data:
        case Kind::ReportView:
            break;
    }
    return false;
}

Taken Input::Steps::GoTo(Control& target) {
    if (auto reached = Reach(target); !reached) return reached;
    if (form_.focus_ == &target) {
        if (form_.unleft_ == &target) form_.unleft_ = nullptr;
        return {};
    }
    if (auto left = LeaveFor(&target); !left) return left;
    // What ran meanwhile may have switched it.
    if (auto reached = Reach(target); !reached) return reached;
    if (TakesFocus(target) && form_.focus_ != &target) form_.MoveFocus(&target);
    return form_.IsOpen() ? Taken{} : No("The form \"" + form_.Name() + "\" is closed.");
}

Taken Input::Steps::GoNowhere() {
    if (auto left = LeaveFor(nullptr); !left) return left;
    if (form_.focus_ != nullptr) form_.MoveFocus(nullptr);
    return {};
}

Taken Input::Steps::LeaveFor(Control* target) {
    if (target != nullptr && !target->CausesValidation) {
        if (form_.unleft_ == nullptr) form_.unleft_ = form_.focus_;
        return {};
    }
    auto* const deferred = std::exchange(form_.unleft_, nullptr);
    auto* const focused = form_.focus_;
    for (auto* left : std::array{deferred, focused == deferred ? nullptr : focused}) {
        if (left == nullptr || left == target) continue;
        auto gone = LeaveField(*left);
        if (!form_.IsOpen()) return No("The form \"" + form_.Name() + "\" is closed.");
        if (gone) continue;
        // The one that was not left yet gets the focus back.
        if (form_.focus_ != left && form_.focus_ == focused && Reach(*left)) form_.MoveFocus(left);
        return gone;
    }
    return LeaveSources(target);
}

Taken Input::Steps::LeaveField(Control& left) {
    try {
        auto* grid = dynamic_cast<Grid*>(&left);
        if (grid != nullptr && !grid->LeaveRow()) return No(Named(left) + " keeps its row.");
        if (!left.OnLeave || !Reach(left)) return {};
        const auto handler = left.OnLeave;
        if (handler() == Leaving::Stay) return No(Named(left) + " keeps the focus.");
    } catch (const Error& error) {
        form_.Failure(error);
        return No(Named(left) + " keeps the focus: " + error.Description());
    }
    return {};
}

Taken Input::Steps::LeaveSources(const Control* target) {
    const auto& controls = form_.Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        auto* source = dynamic_cast<DataSource*>(controls[i].get());
        if (source == nullptr || (target != nullptr && source->Has(*target))) continue;
        try {
            source->LeaveRow();
        } catch (const Error& error) {
            form_.Failure(error);
            return No("The row of \"" + source->Name() + "\" could not be saved: " + error.Description());
        }
    }
    return {};
}

Taken Input::Steps::GoAlong(int step) {
    std::vector<Control*> order;
    for (const auto& control : form_.Controls())
        if (control->TabIndex() && TakesFocus(*control) && Reach(*control)) order.push_back(control.get());
    if (order.empty()) return No("No control of \"" + form_.Name() + "\" is in the tab order.");
    std::stable_sort(order.begin(), order.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    const auto here = std::find(order.begin(), order.end(), form_.focus_);
    if (here == order.end()) return GoTo(step > 0 ? *order.front() : *order.back());
    const auto count = static_cast<int>(order.size());
    const auto next = (static_cast<int>(here - order.begin()) + step + count) % count;
    return GoTo(*order[static_cast<std::size_t>(next)]);
}

}  // namespace FX_Algen::controls
