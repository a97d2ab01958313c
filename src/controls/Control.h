#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// Forms without a toolkit: named controls with properties and events. All behaviour of a window lives in
/// these objects; a toolkit, a script or a test only tells them what a person did and shows what they hold.
///
/// Two ways lead into a control. Properties are for the form's own code: they set and tell, and neither
/// validate nor ask whether a person could do that. What a person does comes through `Input`, which minds
/// focus, validation, locks and disabled controls. A property is `void X(value)` and `T X() const`; setting
/// one tells the form's observers.
namespace FX_Algen::controls {

class Form;

enum class Kind : std::uint8_t {
    Label,
    TextBox,
    CommandButton,
    CheckBox,
    OptionButton,
    ComboBox,
    ListBox,
    ListView,
    Grid,
    TabStrip,
    SSTab,
    Toolbar,
    Menu,
    Frame,
    PictureBox,
    ScrollBar,
    Data,
    ReportView,
};

/// The word for a kind, as it stands above.
std::string_view KindName(Kind kind);

/// A colour as 0xRRGGBB.
struct Colour {
    std::uint32_t Rgb = 0xFFFFFF;
    friend bool operator==(const Colour&, const Colour&) = default;
};

/// What leaving a field came to: its validation lets go, or keeps the focus there.
enum class Leaving : std::uint8_t { Go, Stay };

/// The string number that a text stands for, in a place that holds the number until a language is applied.
/// It counts as long as the place shows `Shown`: a text that came there since is the form's own.
struct TextNumber {
    std::string Number;
    std::string Shown;
};

/// A key as a person pressed it.
struct KeyPress {
    std::string Name;  ///< "Enter", "Escape", "Tab", "Space", "Delete", ... or a character
    bool Shift = false, Ctrl = false, Alt = false;
};

/// What all controls share.
class Control {
public:
    Control(Form& owner, Kind kind, std::string name) : owner_(owner), kind_(kind), name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// A member of an array is "cmdPrStelle(4)".
    const std::string& Name() const noexcept { return name_; }
    enum Kind Kind() const noexcept { return kind_; }
    Form& Owner() const noexcept { return owner_; }

    /// The offset of its string number as text; "0" keeps the caption that it has.
    const std::string& Tag() const noexcept { return tag_; }
    void Tag(std::string tag) { Set(tag_, std::move(tag)); }
    const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string caption) { Set(caption_, std::move(caption)); }
    /// Holds a string number until a language is applied, then the text.
    const std::string& ToolTipText() const noexcept { return toolTipText_; }
    void ToolTipText(std::string text) { Set(toolTipText_, std::move(text)); }
    TextNumber ToolTipNumber;  ///< kept for another language
    bool Visible() const noexcept { return visible_; }
    void Visible(bool visible) { Set(visible_, visible); }
    bool Enabled() const noexcept { return enabled_; }
    void Enabled(bool enabled) { Set(enabled_, enabled); }
    /// A background of its own; none = that of its kind.
    const std::optional<Colour>& BackColor() const noexcept { return backColor_; }
    void BackColor(std::optional<Colour> colour) { Set(backColor_, colour); }
    /// Place in the tab order; controls without one are not reached by Tab.
    std::optional<int> TabIndex() const noexcept { return tabIndex_; }
    void TabIndex(std::optional<int> index) { Set(tabIndex_, index); }

    /// The frame, picture or tab control that it stands in, and on which tab of that; none = the form itself.
    Control* Container() const noexcept { return container_; }
    int Page() const noexcept { return page_; }
    void Inside(Control& container, int page = 0) {
        container_ = &container;
        page_ = page;
    }
    /// Visible, and so is all that it stands in (a tab that is not in front hides what stands on it).
    bool IsShown() const noexcept;
    /// Enabled, and so is all that it stands in.
    bool IsEnabled() const noexcept;

    /// Whether going to this control validates the field that is left; false for cancel and close.
    bool CausesValidation = true;
    /// Asked once when a person leaves the control. Without it every leaving goes.
    std::function<Leaving()> OnLeave;
    std::function<void()> OnGotFocus;
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;
    /// True where the handler used the key up; else the control does with it what its kind does.
    std::function<bool(const KeyPress&)> OnKey;

protected:
    template <class T, class U>
    void Set(T& member, U&& value) {
        if (member == value) return;
        member = std::forward<U>(value);
        Tell();
    }
    /// Tells the form's observers that this control shows something else.
    void Tell();
    /// Calls `OnClick`. What the handler itself chooses in this control does not call it again.
    void Clicked();
    /// Marks that a handler runs, so that what it changes does not call it again.
    class Once {
    public:
        explicit Once(bool& running) noexcept : running_(running) { running_ = true; }
        ~Once() { running_ = false; }
        Once(const Once&) = delete;
        Once& operator=(const Once&) = delete;

    private:
        bool& running_;
    };

private:
    friend class Input;
    friend class TabControl;  // hides what stands on its other tabs
    Form& owner_;
    enum Kind kind_;
    std::string name_;
    std::string tag_ = "0";
    std::string caption_;
    std::string toolTipText_;
    bool visible_ = true;
    bool enabled_ = true;
    std::optional<Colour> backColor_;
    std::optional<int> tabIndex_;
    Control* container_ = nullptr;
    int page_ = 0;
    bool clicking_ = false;
};

}  // namespace FX_Algen::controls
