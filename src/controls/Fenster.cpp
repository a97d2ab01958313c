#include "controls/Fenster.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <optional>

#include "FX_Algen/Error.h"
#include "controls/Form.h"
#include "controls/Kinds.h"
#include "controls/OpenForms.h"
#include "controls/Port.h"
#include "controls/Utf8.h"
#include "store/Allgemein.h"
#include "store/Strings.h"
#include "store/TextOrder.h"

namespace FX_Algen::Allgemein {

using controls::Control;
using controls::Form;
using controls::Kind;

namespace {

// ---- menu groups -------------------------------------------------------------------------------

controls::Menu& AsMenu(Control& control, std::string_view property) {
    if (auto* menu = dynamic_cast<controls::Menu*>(&control)) return *menu;
    throw Error(ErrorNumber::TypeMismatch, std::string(controls::KindName(control.Kind())) + " " +
                                               control.Name() + " has no property " + std::string(property) +
                                               ".");
}

void SetVisible(Control& control, bool on) { control.Visible(on); }
void SetEnabled(Control& control, bool on) { control.Enabled(on); }
void SetChecked(Control& control, bool on) { AsMenu(control, "Checked").Checked(on); }
void SetWindowList(Control& control, bool on) { AsMenu(control, "WindowList").WindowList(on); }

struct Durchgang {
    std::string_view Spalte;
    std::string_view Ausser;  ///< name of the control that is left alone
    void (*Setzen)(Control& control, bool on);
};
constexpr std::array durchgaenge{
    Durchgang{"StatusVisible", "mnuFile", SetVisible},
    Durchgang{"StatusEnabled", "", SetEnabled},
    Durchgang{"StatusChecked", "", SetChecked},
    Durchgang{"StatusWindowlist", "", SetWindowList},
};

/// One pass; false where it failed.
bool SetMenuegruppe_Status(Form& form, const std::string& Menuegruppe, const store::DatabasePtr& MainDB,
                           const Durchgang& durchgang) try {
    if (!MainDB) return false;
    const auto zeilen = MainDB->OpenRecordset(
        "SELECT DISTINCTROW Menuegruppe.Menuegruppe, Menuegruppenzuordnung.* "
        "FROM Menuegruppe INNER JOIN Menuegruppenzuordnung ON Menuegruppe.ID_Menuegruppe = "
        "Menuegruppenzuordnung.ID_Menuegruppe "
        "WHERE Menuegruppe.Menuegruppe='" +
        Menuegruppe + "';");
    if (zeilen->Eof() && zeilen->Bof()) return true;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto name = (*zeilen)["Funktionsname"].Text();
        if (!durchgang.Ausser.empty() && store::CompareCaseBlind(name, durchgang.Ausser) == 0) continue;
        auto* control = form.Find(name);
        if (!control) return false;
        durchgang.Setzen(*control, (*zeilen)[durchgang.Spalte].Bool());
    }
    return true;
} catch (const std::exception&) {
    return false;
}

// ---- captions ----------------------------------------------------------------------------------

/// The text of a number that is held as text; none where it holds no number or the number has no text.
std::optional<std::string> TextOf(const std::string& number, std::int16_t Sprache) {
    int offset = 0;
    const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), offset);
    if (failure != std::errc{} || end != number.data() + number.size() || offset <= 0) return std::nullopt;
    constexpr int most = 32767;
    if (offset > most) return std::nullopt;
    const auto text = store::Strings().Find(offset + SprachID_Anheben(Sprache));
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

template <class Setting>
void PassOver(const Setting& setting) {
    try {
        setting();
    } catch (const std::exception&) {
        // What could not be set keeps what it shows.
    }
}

/// The same for a place that holds its number until the text stands there; the number is kept beside it.
std::optional<std::string> TextOf(const std::string& place, controls::TextNumber& kept,
                                  std::int16_t Sprache) {
    const bool stands = !kept.Number.empty() && kept.Shown == place;
    auto number = stands ? kept.Number : place;
    auto text = TextOf(number, Sprache);
    if (text) kept = {std::move(number), *text};
    return text;
}

void SetTexts(Control& control, bool caption, bool toolTip, std::int16_t Sprache) {
    PassOver([&] {
        if (auto text = caption ? TextOf(control.Tag(), Sprache) : std::nullopt)
            control.Caption(*std::move(text));
    });
    PassOver([&] {
        if (auto text =
                toolTip ? TextOf(control.ToolTipText(), control.ToolTipNumber, Sprache) : std::nullopt)
            control.ToolTipText(*std::move(text));
    });
}

void SetTabs(controls::TabControl& tabs, std::int16_t Sprache) {
    auto pages = tabs.Tabs();
    for (auto& page : pages) {
        const bool strip = tabs.Kind() == Kind::TabStrip;
        if (auto text = strip ? TextOf(page.Tag, Sprache) : TextOf(page.Caption, page.CaptionNumber, Sprache))
            page.Caption = *std::move(text);
        if (!strip) continue;
        if (auto text = TextOf(page.ToolTipText, page.ToolTipNumber, Sprache))
            page.ToolTipText = *std::move(text);
    }
    for (std::size_t i = 0; i < pages.size(); ++i) tabs.Tab(static_cast<int>(i), std::move(pages[i]));
}

void SetHeads(controls::ListView& list, std::int16_t Sprache) {
    auto heads = list.ColumnHeaders();
    for (auto& head : heads)
        if (auto text = TextOf(head.Tag, Sprache)) head.Text = *std::move(text);
    list.ColumnHeaders(std::move(heads));
}

void SetCaptions(Control& control, std::int16_t Sprache) {
    switch (control.Kind()) {
        case Kind::CommandButton:
        case Kind::Label:
        case Kind::Frame:
        case Kind::OptionButton:
        case Kind::CheckBox:
            return SetTexts(control, true, true, Sprache);
        case Kind::TextBox:
            return SetTexts(control, false, true, Sprache);
        case Kind::Menu:
            return SetTexts(control, true, false, Sprache);
        case Kind::TabStrip:
        case Kind::SSTab:
            return SetTabs(dynamic_cast<controls::TabControl&>(control), Sprache);
        case Kind::ListView:
            return SetHeads(dynamic_cast<controls::ListView&>(control), Sprache);
        case Kind::Toolbar:
        case Kind::ComboBox:
        case Kind::ListBox:
        case Kind::Grid:
        case Kind::PictureBox:
        case Kind::ScrollBar:
        case Kind::Data:
        case Kind::ReportView:
            return;
    }
}

// ---- type-ahead --------------------------------------------------------------------------------

/// The text with its first letter in upper or lower case.
std::string WithFirstLetter(const std::string& text, bool gross) {
    const auto length = static_cast<std::int32_t>(text.size());
    std::int32_t next = 0;
    UChar32 letter = 0;
    U8_NEXT(text.data(), next, length, letter);
    if (letter < 0) return text;
    const auto forced = gross ? u_toupper(letter) : u_tolower(letter);
    if (forced == letter) return text;
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::int32_t count = 0;
    U8_APPEND_UNSAFE(bytes.data(), count, forced);
    return std::string(bytes.data(), static_cast<std::size_t>(count)) +
           text.substr(static_cast<std::size_t>(next));
}

}  // namespace

bool SetMenuegruppe(Form& form, const std::string& Menuegruppe, const store::DatabasePtr& MainDB) {
    const controls::Hourglass hourglass;
    bool done = true;
    for (const auto& durchgang : durchgaenge)
        if (!SetMenuegruppe_Status(form, Menuegruppe, MainDB, durchgang)) done = false;
    return done;
}

void SetControlCaptions(Form& form, std::int16_t Sprache) {
    // A text that cannot be shown in one place must not keep the others from theirs.
    PassOver([&] {
        if (auto title = TextOf(form.Tag(), Sprache)) form.Caption(*std::move(title));
    });
    for (const auto& control : form.Controls())
        if (control->Tag() != "0") PassOver([&] { SetCaptions(*control, Sprache); });
}

void Text_Markieren(Control& control) {
    if (control.Kind() != Kind::TextBox && control.Kind() != Kind::ComboBox) return;
    auto& field = dynamic_cast<controls::TextBox&>(control);
    // No text has more characters than bytes, and the field keeps the selection within.
    field.Select(0, static_cast<int>(field.Text().size()));
}

bool Form_Geladen(std::string_view name, std::string_view caption) {
    const auto& forms = controls::OpenForms().All();
    return std::any_of(forms.begin(), forms.end(), [&](const auto& form) {
        return store::CompareCaseBlind(form->Name(), name) == 0 &&
               (caption.empty() || form->Caption() == caption);
    });
}

void Combo_Vervollstaendigen(controls::ComboBox& combo, int start, std::string& text, bool gross) {
    if (combo.Text() == text) return;
    const auto typed = WithFirstLetter(combo.Text(), gross);
    // First of all: what is put into the field is a change of it too, and must find itself seen.
    text = typed;
    if (typed != combo.Text()) {
        const int cursor = combo.SelStart();
        combo.Text(typed);
        combo.Select(cursor, 0);
    }
    if (typed.empty()) return;
    const auto entry = combo.List().FindBeginning(typed);
    if (!entry) return;
    combo.Complete(*entry, std::max(start, 0));
    // As the field spells it: the entry's letters stand in place of those typed.
    text = combo.Text().substr(0, controls::ByteOf(combo.Text(), start));
}

}  // namespace FX_Algen::Allgemein
