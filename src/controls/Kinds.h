#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

/// The kinds of controls that need little more than the common properties. Lists, grids and data sources have
/// files of their own.
namespace FX_Algen::controls {

class Label : public Control {
public:
    Label(Form& owner, std::string name) : Control(owner, Kind::Label, std::move(name)) {}
};

class Frame : public Control {
public:
    Frame(Form& owner, std::string name) : Control(owner, Kind::Frame, std::move(name)) {}
};

class CommandButton : public Control {
public:
    CommandButton(Form& owner, std::string name) : Control(owner, Kind::CommandButton, std::move(name)) {}
    /// Enter anywhere on the form that nothing else uses up presses the default button, Escape the cancel
    /// button.
    bool Default() const noexcept { return default_; }
    void Default(bool on) { Set(default_, on); }
    bool Cancel() const noexcept { return cancel_; }
    void Cancel(bool on) { Set(cancel_, on); }

private:
    bool default_ = false, cancel_ = false;
};

/// Check boxes and option buttons. `OnClick` follows every change that a person makes.
class CheckBox : public Control {
public:
    CheckBox(Form& owner, std::string name) : Control(owner, Kind::CheckBox, std::move(name)) {}
    bool Value() const noexcept { return value_; }
    void Value(bool value);
    bool Locked() const noexcept { return locked_; }
    void Locked(bool locked) { Set(locked_, locked); }
    std::function<void()> OnChange;  ///< whoever changed it

protected:
    CheckBox(Form& owner, enum Kind kind, std::string name) : Control(owner, kind, std::move(name)) {}

private:
    friend class Input;
    /// The option buttons that are checked beside this one.
    std::vector<CheckBox*> Others() const;
    void Changed();

    bool value_ = false, locked_ = false, changing_ = false;
};

/// One of those that share a container: checking it clears the others.
class OptionButton : public CheckBox {
public:
    OptionButton(Form& owner, std::string name) : CheckBox(owner, Kind::OptionButton, std::move(name)) {}
};

/// A field of text. Positions and lengths count characters, not bytes.
///
/// What a handler of `OnChange` itself writes into the field does not call it again.
class TextBox : public Control {
public:
    TextBox(Form& owner, std::string name) : Control(owner, Kind::TextBox, std::move(name)) {}

    const std::string& Text() const noexcept { return text_; }
    /// Replaces the text, puts the cursor at its end, and calls `OnChange` where it differs.
    void Text(std::string text);
    bool Locked() const noexcept { return locked_; }
    void Locked(bool locked) { Set(locked_, locked); }
    int SelStart() const noexcept { return selStart_; }
    int SelLength() const noexcept { return selLength_; }
    /// Kept within the text.
    void Select(int start, int length);
    /// Puts `text` in place of what is selected.
    void Insert(std::string_view text);
    std::function<void()> OnChange;  ///< whoever changed the text

    bool MultiLine = false;
    bool HostsWrite = false;  ///< hidden, but open to a host: what works for the sheet outside answers here
    bool Numeric = false;  ///< shows numbers: aligned right

protected:
    TextBox(Form& owner, enum Kind kind, std::string name) : Control(owner, kind, std::move(name)) {}
    /// Text and selection, without calling a handler. True where the text is another one now.
    bool Put(std::string text, int start, int length);
    /// The text with `text` in place of what is selected, without calling a handler. True where it differs.
    bool Replace(std::string_view text);
    /// Calls `OnChange`.
    void Changed();
    /// After the text was assigned or typed: what else follows from it.
    virtual void TextFollowed() {}

private:
    friend class Input;
    std::string text_;
    bool locked_ = false, changing_ = false;
    int selStart_ = 0, selLength_ = 0;
};

/// An entry of a menu. One without entries of its own is chosen by `OnClick`.
class Menu : public Control {
public:
    Menu(Form& owner, std::string name) : Control(owner, Kind::Menu, std::move(name)) {}
    bool Checked() const noexcept { return checked_; }
    void Checked(bool on) { Set(checked_, on); }
    /// Lists the open windows below it.
    bool WindowList() const noexcept { return windowList_; }
    void WindowList(bool on) { Set(windowList_, on); }
    bool Separator = false;
    std::string Shortcut;  ///< such as "Ctrl+N"

private:
    bool checked_ = false, windowList_ = false;
};

/// A button of a toolbar; separators count as positions.
struct ToolbarButton {
    std::string Key;
    std::string ToolTipText;
    bool Separator = false;
    bool Enabled = true;
};

class Toolbar : public Control {
public:
    Toolbar(Form& owner, std::string name) : Control(owner, Kind::Toolbar, std::move(name)) {}
    /// Positions count from 1.
    const std::vector<ToolbarButton>& Buttons() const noexcept { return buttons_; }
    void Buttons(std::vector<ToolbarButton> buttons);
    void ButtonEnabled(int position, bool enabled);  ///< 381 past the last one
    std::function<void(int position)> OnButton;

private:
    std::vector<ToolbarButton> buttons_;
};

/// A tab of a tab control.
struct TabPage {
    std::string Tag = "0";  ///< string number, in a `TabStrip`
    std::string Caption;    ///< in an `SSTab` it holds the string number until a language is applied
    std::string ToolTipText;
    bool Enabled = true;
    TextNumber CaptionNumber = {}, ToolTipNumber = {};  ///< kept for another language
};

/// `TabStrip` and `SSTab`: tabs from 0, each with an enabled state of its own.
class TabControl : public Control {
public:
    TabControl(Form& owner, enum Kind kind, std::string name) : Control(owner, kind, std::move(name)) {}
    const std::vector<TabPage>& Tabs() const noexcept { return tabs_; }
    void Tabs(std::vector<TabPage> tabs);
    void Tab(int index, TabPage page);  ///< 381 past the last one
    int Current() const noexcept { return current_; }
    void Current(int index);                        ///< 381 past the last one
    std::function<void(int previous)> OnTabChange;  ///< whoever changed it

private:
    std::vector<TabPage> tabs_;
    int current_ = 0;
    bool changing_ = false;
};

class PictureBox : public Control {
public:
    PictureBox(Form& owner, std::string name) : Control(owner, Kind::PictureBox, std::move(name)) {}
    /// Path of the picture shown; empty = none.
    const std::string& Picture() const noexcept { return picture_; }
    void Picture(std::string path) { Set(picture_, std::move(path)); }

private:
    std::string picture_;
};

class ScrollBar : public Control {
public:
    ScrollBar(Form& owner, std::string name) : Control(owner, Kind::ScrollBar, std::move(name)) {}
    std::int32_t Value() const noexcept { return value_; }
    void Value(std::int32_t value);  ///< kept between `Min` and `Max`
    std::int32_t Min() const noexcept { return min_; }
    std::int32_t Max() const noexcept { return max_; }
    /// From 0 to 100 at first. The value follows into the new range; a maximum below the minimum is the
    /// minimum.
    void Range(std::int32_t min, std::int32_t max);
    std::function<void()> OnChange;  ///< whoever changed the value

private:
    std::int32_t value_ = 0, min_ = 0, max_ = 100;
    bool changing_ = false;
};

/// The view of a report. What it shows is the report's own; the control only stands for the place.
class ReportView : public Control {
public:
    ReportView(Form& owner, std::string name) : Control(owner, Kind::ReportView, std::move(name)) {}
};

}  // namespace FX_Algen::controls
