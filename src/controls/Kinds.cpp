#include "controls/Kinds.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "controls/Form.h"
#include "controls/Utf8.h"

namespace FX_Algen::controls {

namespace {

[[noreturn]] void FailPast(const Control& control, const char* what, int index) {
    throw Error(ErrorNumber::IndexOutOfRange, std::string(KindName(control.Kind())) + " \"" + control.Name() +
                                                  "\" has no " + what + " " + std::to_string(index) + ".");
}

}  // namespace

// -- check boxes and option buttons

std::vector<CheckBox*> CheckBox::Others() const {
    std::vector<CheckBox*> out;
    if (Kind() != Kind::OptionButton) return out;
    for (const auto& control : Owner().Controls()) {
        auto* other = dynamic_cast<OptionButton*>(control.get());
        if (other != nullptr && other != this && other->Value() && other->Container() == Container() &&
            other->Page() == Page())
            out.push_back(other);
    }
    return out;
}

void CheckBox::Value(bool value) {
    if (value == value_) return;
    const auto others = value ? Others() : std::vector<CheckBox*>{};
    value_ = value;
    Tell();
    for (auto* other : others) other->Value(false);
    Changed();
}

void CheckBox::Changed() {
    if (!OnChange || changing_) return;
    const Once once(changing_);
    const auto handler = OnChange;
    handler();
}

// -- text

void TextBox::Text(std::string text) {
    const int end = CountCharacters(text);
    const bool changed = Put(std::move(text), end, 0);
    TextFollowed();
    if (changed) Changed();
}

void TextBox::Select(int start, int length) { Put(text_, start, length); }

void TextBox::Insert(std::string_view text) {
    if (Replace(text)) Changed();
}

bool TextBox::Replace(std::string_view text) {
    const auto from = ByteOf(text_, selStart_);
    const auto to = ByteOf(text_, selStart_ + selLength_);
    auto whole = text_;
    whole.replace(from, to - from, text);
    const bool changed = Put(std::move(whole), selStart_ + CountCharacters(text), 0);
    TextFollowed();
    return changed;
}

bool TextBox::Put(std::string text, int start, int length) {
    const int count = CountCharacters(text);
    start = std::clamp(start, 0, count);
    length = std::clamp(length, 0, count - start);
    const bool changed = text != text_;
    if (!changed && start == selStart_ && length == selLength_) return false;
    text_ = std::move(text);
    selStart_ = start;
    selLength_ = length;
    Tell();
    return changed;
}

void TextBox::Changed() {
    if (!OnChange || changing_) return;
    const Once once(changing_);
    const auto handler = OnChange;
    handler();
}

// -- toolbar

void Toolbar::Buttons(std::vector<ToolbarButton> buttons) {
    buttons_ = std::move(buttons);
    Tell();
}

void Toolbar::ButtonEnabled(int position, bool enabled) {
    if (position < 1 || position > static_cast<int>(buttons_.size())) FailPast(*this, "position", position);
    Set(buttons_[static_cast<std::size_t>(position - 1)].Enabled, enabled);
}

// -- tabs

void TabControl::Tabs(std::vector<TabPage> tabs) {
    tabs_ = std::move(tabs);
    Tell();
    if (current_ >= static_cast<int>(tabs_.size())) Current(0);
}

void TabControl::Tab(int index, TabPage page) {
    if (index < 0 || index >= static_cast<int>(tabs_.size())) FailPast(*this, "tab", index);
    tabs_[static_cast<std::size_t>(index)] = std::move(page);
    Tell();
}

void TabControl::Current(int index) {
    if (index == current_) return;
    // A control without tabs yet stands on tab 0.
    if (index < 0 || (index > 0 && index >= static_cast<int>(tabs_.size()))) FailPast(*this, "tab", index);
    const int previous = std::exchange(current_, index);
    Tell();
    for (const auto& control : Owner().Controls()) {
        const auto* inner = control->Container();
        while (inner != nullptr && inner != this) inner = inner->Container();
        if (inner == this) control->Tell();
    }
    if (!OnTabChange || changing_) return;
    const Once once(changing_);
    const auto handler = OnTabChange;
    handler(previous);
}

// -- scroll bar

void ScrollBar::Range(std::int32_t min, std::int32_t max) {
    max = std::max(min, max);
    if (min == min_ && max == max_) return;
    min_ = min;
    max_ = max;
    Tell();
    Value(value_);
}

void ScrollBar::Value(std::int32_t value) {
    value = std::clamp(value, min_, max_);
    if (value == value_) return;
    value_ = value;
    Tell();
    if (!OnChange || changing_) return;
    const Once once(changing_);
    const auto handler = OnChange;
    handler();
}

}  // namespace FX_Algen::controls
