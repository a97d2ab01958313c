#include "controls/Fenster.h"

#include <gmock/gmock.h>

#include "controls/Testform.h"
#include "controls/Utf8.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;

constexpr std::int16_t german = 10000;
constexpr std::int16_t english = 20000;

// ---- captions ----------------------------------------------------------------------------------

class Captions : public Formtest {
protected:
    /// A control with a caption, a tooltip and a tag that are all string numbers: 2005 "Neu", 2006 "Ändern".
    template <class T>
    T& Numbered(const std::string& name) {
        auto& control = form->Add<T>(name);
        control.Tag("2005");
        control.Caption("vorher");
        control.ToolTipText("2006");
        return control;
    }
};

TEST_F(Captions, SetTheTitleOfTheWindow) {
    form->Tag("2006");
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(form->Caption(), "Ändern");
    Allgemein::SetControlCaptions(*form, english);
    EXPECT_EQ(form->Caption(), "Change");
    form->Tag("0");
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(form->Caption(), "Change");
}

TEST_F(Captions, SetWhatEachKindHas) {
    const std::vector<Control*> both{&Numbered<CommandButton>("cmd"), &Numbered<Label>("lbl"),
                                     &Numbered<Frame>("fra"), &Numbered<OptionButton>("opt"),
                                     &Numbered<CheckBox>("chk")};
    const std::vector<Control*> toolTipAlone{&Numbered<TextBox>("txt")};
    const std::vector<Control*> captionAlone{&Numbered<Menu>("mnu")};
    const std::vector<Control*> neither{&Numbered<ComboBox>("cbo"),   &Numbered<ListBox>("lst"),
                                        &Numbered<Grid>("vsfg"),      &Numbered<Toolbar>("tbr"),
                                        &Numbered<PictureBox>("pic"), &Numbered<ScrollBar>("vsb")};
    Allgemein::SetControlCaptions(*form, german);
    const auto expect = [](const std::vector<Control*>& controls, const char* caption, const char* toolTip) {
        for (const auto* control : controls) {
            EXPECT_EQ(control->Caption(), caption) << control->Name();
            EXPECT_EQ(control->ToolTipText(), toolTip) << control->Name();
        }
    };
    expect(both, "Neu", "Ändern");
    expect(toolTipAlone, "vorher", "Ändern");
    expect(captionAlone, "Neu", "2006");
    expect(neither, "vorher", "2006");
}

TEST_F(Captions, PassOverControlsWithTheTagZero) {
    auto& button = Numbered<CommandButton>("cmdSchließen");
    button.Tag("0");
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(button.Caption(), "vorher");
    EXPECT_EQ(button.ToolTipText(), "2006");
}

TEST_F(Captions, KeepWhatHasNoNumberOrNoText) {
    // 2013 and 4065 have no English text; 32000 + 20000 is past all numbers, as is the last one.
    for (const auto* tag :
         {"", "abc", "2005a", " 2005", "-5", "9999", "2013", "4065", "32000", "99999999999"}) {
        auto& button = Numbered<CommandButton>("cmd");
        button.Tag(tag);
        Allgemein::SetControlCaptions(*form, english);
        EXPECT_EQ(button.Caption(), "vorher") << tag;
        EXPECT_EQ(button.ToolTipText(), "Change") << tag;  // each is set on its own
    }
    auto& button = Numbered<CommandButton>("cmd");
    button.ToolTipText("Öffnen");
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(button.Caption(), "Neu");
    EXPECT_EQ(button.ToolTipText(), "Öffnen");
}

TEST_F(Captions, ChangeTheLanguageOfAllThatHasANumber) {
    auto& button = Numbered<CommandButton>("cmd");
    auto& strip = form->Add<TabControl>("tab", Kind::TabStrip);
    auto& sheet = form->Add<TabControl>("SSTab", Kind::SSTab);
    for (auto* tabs : {&strip, &sheet}) {
        tabs->Tag("1");
        tabs->Tabs({{"2005", "2006", "2006"}});
    }
    auto& list = form->Add<ListView>("lvw");
    list.Tag("1");
    list.ColumnHeaders({{"2005", "a"}});
    const auto expect = [&](const char* neu, const char* aendern) {
        EXPECT_EQ(button.Caption(), neu);
        EXPECT_EQ(button.ToolTipText(), aendern);
        EXPECT_EQ(strip.Tabs()[0].Caption, neu);
        EXPECT_EQ(strip.Tabs()[0].ToolTipText, aendern);
        EXPECT_EQ(sheet.Tabs()[0].Caption, aendern);
        EXPECT_EQ(list.ColumnHeaders()[0].Text, neu);
    };
    Allgemein::SetControlCaptions(*form, german);
    expect("Neu", "Ändern");
    Allgemein::SetControlCaptions(*form, english);
    expect("New", "Change");
    Allgemein::SetControlCaptions(*form, german);
    expect("Neu", "Ändern");
}

TEST_F(Captions, LeaveATextOfTheFormsOwnInPlaceOfANumberAlone) {
    auto& button = Numbered<CommandButton>("cmd");
    auto& sheet = form->Add<TabControl>("SSTab", Kind::SSTab);
    sheet.Tag("1");
    sheet.Tabs({{"0", "2006", ""}});
    Allgemein::SetControlCaptions(*form, german);
    button.ToolTipText("Öffnen");
    auto page = sheet.Tabs()[0];
    page.Caption = "Übersicht";
    sheet.Tab(0, page);
    Allgemein::SetControlCaptions(*form, english);
    EXPECT_EQ(button.ToolTipText(), "Öffnen");
    EXPECT_EQ(sheet.Tabs()[0].Caption, "Übersicht");
    button.ToolTipText("2005");
    Allgemein::SetControlCaptions(*form, english);
    EXPECT_EQ(button.ToolTipText(), "New");
}

TEST_F(Captions, KeepANumberThatHasNoTextInOneOfTheLanguages) {
    auto& button = Numbered<CommandButton>("cmd");
    button.ToolTipText("2013");  // "Excel-Import", in German alone
    Allgemein::SetControlCaptions(*form, german);
    Allgemein::SetControlCaptions(*form, english);
    EXPECT_EQ(button.ToolTipText(), "Excel-Import");
    EXPECT_EQ(button.ToolTipNumber.Number, "2013");
}

TEST_F(Captions, TakeABaseThatIsTooLowForGerman) {
    auto& button = Numbered<CommandButton>("cmd");
    for (const std::int16_t base : {0, 1, -3, 9999}) {
        button.Caption("vorher");
        Allgemein::SetControlCaptions(*form, base);
        EXPECT_EQ(button.Caption(), "Neu") << base;
    }
}

TEST_F(Captions, SetTabsByTagsInATabStripAndByCaptionsInAnSSTab) {
    auto& strip = form->Add<TabControl>("tab", Kind::TabStrip);
    auto& sheet = form->Add<TabControl>("SSTab", Kind::SSTab);
    for (auto* tabs : {&strip, &sheet}) {
        tabs->Tag("1");
        tabs->Tabs({{"2005", "2006", "2006", false}, {"0", "Öl", "Öl", true}});
        tabs->Current(1);
    }
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(strip.Tabs()[0].Caption, "Neu");
    EXPECT_EQ(strip.Tabs()[0].ToolTipText, "Ändern");
    EXPECT_EQ(sheet.Tabs()[0].Caption, "Ändern");
    EXPECT_EQ(sheet.Tabs()[0].ToolTipText, "2006");
    for (const auto* tabs : {&strip, &sheet}) {
        EXPECT_EQ(tabs->Tabs()[1].Caption, "Öl");
        EXPECT_FALSE(tabs->Tabs()[0].Enabled);
        EXPECT_EQ(tabs->Current(), 1);
    }
}

TEST_F(Captions, SetTheHeadsOfAListView) {
    auto& list = form->Add<ListView>("lvw");
    list.ColumnHeaders({{"2005", "a"}, {"0", "Größe"}, {"2006", "c"}});
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(list.ColumnHeaders()[0].Text, "a");  // the tag of the list itself is "0"
    list.Tag("1");
    Allgemein::SetControlCaptions(*form, german);
    EXPECT_EQ(list.ColumnHeaders()[0].Text, "Neu");
    EXPECT_EQ(list.ColumnHeaders()[1].Text, "Größe");
    EXPECT_EQ(list.ColumnHeaders()[2].Text, "Ändern");
}

TEST_F(Captions, GoOnAfterAControlThatCannotShowItsText) {
    class Failing : public Observer {
    public:
        void ControlChanged(Control& control) override {
            if (control.Name() == "cmdErste") throw Error(13, "kein Bild");
        }
    } failing;
    Numbered<CommandButton>("cmdErste");
    auto& second = Numbered<CommandButton>("cmdZweite");
    form->Observe(&failing);
    Allgemein::SetControlCaptions(*form, german);
    form->Observe(nullptr);
    EXPECT_EQ(second.Caption(), "Neu");
}

// ---- selection ---------------------------------------------------------------------------------

TEST_F(Formtest, TextMarkierenSelectsTheTextOfFieldsAndCombos) {
    auto& field = form->Add<TextBox>("txt");
    auto& combo = form->Add<ComboBox>("cbo");
    for (auto* control : {&field, static_cast<TextBox*>(&combo)}) {
        control->Text("Öläther");  // 7 characters
        Allgemein::Text_Markieren(*control);
        EXPECT_EQ(control->SelStart(), 0);
        EXPECT_EQ(control->SelLength(), 7);
        control->Text("");
        Allgemein::Text_Markieren(*control);
        EXPECT_EQ(control->SelLength(), 0);
    }
    auto& label = form->Add<Label>("lbl");
    label.Caption("Öl");
    Allgemein::Text_Markieren(label);
    EXPECT_EQ(label.Caption(), "Öl");
}

// ---- open forms --------------------------------------------------------------------------------

TEST_F(Formtest, FormGeladenFindsOpenFormsByNameAndCaption) {
    form->Caption("Algen - Übung");
    struct Case {
        std::string Name, Caption;
        bool Open;
    };
    const std::vector<Case> cases{
        {"frmÜbung", "", true},
        {"FRMübung", "", true},
        {"frmÜbung", "Algen - Übung", true},
        {"frmÜbung", "Algen", false},
        {"frmÜbung", "algen - übung", false},
        {"frmÜb", "", false},
        {"", "", false},
    };
    for (const auto& [name, caption, open] : cases)
        EXPECT_EQ(Allgemein::Form_Geladen(name, caption), open) << name << "|" << caption;
    form->Hide();
    EXPECT_TRUE(Allgemein::Form_Geladen("frmÜbung"));
    form->Close();
    EXPECT_FALSE(Allgemein::Form_Geladen("frmÜbung"));
}

// ---- type-ahead --------------------------------------------------------------------------------

/// A list field that is completed while a person types, as in the taxon picker.
class TypeAhead : public Formtest {
protected:
    void Fill(std::vector<std::string> entries, bool capital) {
        combo.Items(std::move(entries));
        combo.OnChange = [this, capital] {
            Allgemein::Combo_Vervollstaendigen(combo, combo.SelStart(), seen, capital);
        };
    }
    void Type(const std::string& text) { ASSERT_TRUE(input.Type(combo, text)); }
    void Press(const std::string& key) { ASSERT_TRUE(input.Key({key})); }
    /// The field as "before the cursor[selected]behind".
    std::string Field() const {
        const auto& text = combo.Text();
        const auto from = ByteOf(text, combo.SelStart());
        const auto to = ByteOf(text, combo.SelStart() + combo.SelLength());
        return text.substr(0, from) + "[" + text.substr(from, to - from) + "]" + text.substr(to);
    }
    ComboBox& combo = form->Add<ComboBox>("cboGattung");
    std::string seen;
};

TEST_F(TypeAhead, CompletesTheFirstEntryThatBeginsSo) {
    Fill({"Navicula", "Nitzschia", "Nostoc", "Öllampe"}, true);
    Type("n");
    EXPECT_EQ(Field(), "N[avicula]");
    EXPECT_EQ(seen, "N");
    Type("o");
    EXPECT_EQ(Field(), "No[stoc]");
    Type("S");
    EXPECT_EQ(Field(), "Nos[toc]");  // without regard to case, and spelled as the entry is
    EXPECT_EQ(seen, "Nos");
    EXPECT_EQ(combo.ListIndex(), 2);
    Type("toc");
    EXPECT_EQ(Field(), "Nostoc[]");
}

TEST_F(TypeAhead, CompletesUmlauts) {
    Fill({"Navicula", "Öllampe", "Übersee"}, true);
    Type("ö");
    EXPECT_EQ(Field(), "Ö[llampe]");
    EXPECT_EQ(seen, "Ö");
    ASSERT_TRUE(input.SetText(combo, ""));
    Type("üB");
    EXPECT_EQ(Field(), "Üb[ersee]");
}

TEST_F(TypeAhead, ForcesTheFirstLetterAlone) {
    struct Case {
        bool Capital;
        std::string Typed, Field;
    };
    const std::vector<Case> cases{
        {true, "xAb", "XAb[]"}, {false, "XaB", "xaB[]"}, {true, "äx", "Äx[]"},
        {false, "ÄX", "äX[]"},  {true, "ßx", "ßx[]"},  // has no capital of its own
        {true, "1x", "1x[]"},   {true, " x", " x[]"},
    };
    for (const auto& [capital, typed, field] : cases) {
        combo.OnChange = nullptr;
        combo.Text("");
        seen.clear();
        Fill({"Navicula"}, capital);
        Type(typed);
        EXPECT_EQ(Field(), field) << typed;
    }
}

TEST_F(TypeAhead, LeavesTheCursorAtTheEndWithoutSuchAnEntry) {
    Fill({"Navicula"}, true);
    Type("nax");
    EXPECT_EQ(Field(), "Nax[]");
    EXPECT_EQ(seen, "Nax");
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(TypeAhead, LetsWhatItCompletedBeDeleted) {
    Fill({"Navicula"}, true);
    Type("nav");
    EXPECT_EQ(Field(), "Nav[icula]");
    Press("Backspace");
    EXPECT_EQ(Field(), "Nav[]");  // the text last seen: nothing happens
    Press("Backspace");
    EXPECT_EQ(Field(), "Na[vicula]");
    Press("Backspace");
    Press("Backspace");
    EXPECT_EQ(Field(), "N[avicula]");
    Press("Backspace");
    Press("Backspace");
    EXPECT_EQ(Field(), "[]");
    EXPECT_EQ(seen, "");
}

TEST_F(TypeAhead, LetsWhatItCompletedBeDeletedWhereTheEntryIsSpelledOtherwise) {
    Fill({"NAVICULA"}, true);
    Type("nav");
    EXPECT_EQ(Field(), "NAV[ICULA]");
    Press("Backspace");
    EXPECT_EQ(Field(), "NAV[]");
}

TEST_F(TypeAhead, DoesNotCompleteAnEmptyField) {
    Fill({"Navicula"}, true);
    Type("n");
    ASSERT_TRUE(input.SetText(combo, ""));
    EXPECT_EQ(Field(), "[]");
    EXPECT_EQ(seen, "");
}

TEST_F(TypeAhead, DoesNothingWhereTheTextWasSeen) {
    combo.Items({"Navicula"});
    combo.Text("na");
    combo.Select(1, 0);
    seen = "na";
    Allgemein::Combo_Vervollstaendigen(combo, 2, seen, true);
    EXPECT_EQ(Field(), "n[]a");
}

TEST_F(TypeAhead, SelectsBehindTheCursor) {
    combo.Items({"acus", "acuta"});
    combo.Text("Acu");
    Allgemein::Combo_Vervollstaendigen(combo, 1, seen, false);
    EXPECT_EQ(Field(), "a[cus]");
    EXPECT_EQ(seen, "a");
}

}  // namespace
}  // namespace FX_Algen::controls
