#include "controls/Control.h"

#include "controls/Form.h"
#include "controls/Kinds.h"

namespace FX_Algen::controls {

std::string_view KindName(Kind kind) {
    switch (kind) {
        case Kind::Label:
            return "Label";
        case Kind::TextBox:
            return "TextBox";
        case Kind::CommandButton:
            return "CommandButton";
        case Kind::CheckBox:
            return "CheckBox";
        case Kind::OptionButton:
            return "OptionButton";
        case Kind::ComboBox:
            return "ComboBox";
        case Kind::ListBox:
            return "ListBox";
        case Kind::ListView:
            return "ListView";
        case Kind::Grid:
            return "Grid";
        case Kind::TabStrip:
            return "TabStrip";
        case Kind::SSTab:
            return "SSTab";
        case Kind::Toolbar:
            return "Toolbar";
        case Kind::Menu:
            return "Menu";
        case Kind::Frame:
            return "Frame";
        case Kind::PictureBox:
            return "PictureBox";
        case Kind::ScrollBar:
            return "ScrollBar";
        case Kind::Data:
            return "Data";
        case Kind::ReportView:
            return "ReportView";
    }
    return {};
}

bool Control::IsShown() const noexcept {
    for (const auto* inner = this; inner != nullptr; inner = inner->container_) {
        if (!inner->visible_) return false;
        const auto* tabs = dynamic_cast<const TabControl*>(inner->container_);
        if (tabs != nullptr && tabs->Current() != inner->page_) return false;
    }
    return true;
}

bool Control::IsEnabled() const noexcept {
    for (const auto* inner = this; inner != nullptr; inner = inner->container_)
        if (!inner->enabled_) return false;
    return true;
}

void Control::Clicked() {
    if (!OnClick || clicking_) return;
    const Once once(clicking_);
    // A copy: the handler may put another one in its place.
    const auto handler = OnClick;
    handler();
}

void Control::Tell() {
    if (auto* observer = owner_.Watching()) observer->ControlChanged(*this);
}

}  // namespace FX_Algen::controls
