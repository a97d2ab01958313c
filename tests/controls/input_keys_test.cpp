#include <gmock/gmock.h>

#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class InputKeys : public Formtest {
protected:
    bool Press(const char* name) { return input.Key({name}).Yes; }
};

struct TextKey {
    std::string text;
    int start, length;
    KeyPress key;
    std::string after;
    int cursor;
};

class TextKeys : public Formtest, public testing::WithParamInterface<TextKey> {};

TEST_P(TextKeys, WorkOnCharacters) {
    const auto& at = GetParam();
    auto& box = form->Add<TextBox>("txt");
    input.Enter(box);
    box.Text(at.text);
    box.Select(at.start, at.length);
    EXPECT_TRUE(input.Key(at.key)) << at.key.Name;
    EXPECT_EQ(box.Text(), at.after) << at.key.Name;
    EXPECT_EQ(box.SelStart(), at.cursor) << at.key.Name;
    EXPECT_EQ(box.SelLength(), 0) << at.key.Name;
}

INSTANTIATE_TEST_SUITE_P(
    Keys, TextKeys,
    testing::Values(TextKey{"Öd", 1, 0, {"ß"}, "Ößd", 2}, TextKey{"Öd", 0, 2, {"Space"}, " ", 1},
                    TextKey{"Öäü", 2, 0, {"Backspace"}, "Öü", 1},
                    TextKey{"Öäü", 0, 0, {"Backspace"}, "Öäü", 0},
                    TextKey{"Öäü", 1, 2, {"Backspace"}, "Ö", 1}, TextKey{"Öäü", 1, 0, {"Delete"}, "Öü", 1},
                    TextKey{"Öäü", 3, 0, {"Delete"}, "Öäü", 3}, TextKey{"Öäü", 0, 2, {"Delete"}, "ü", 0},
                    TextKey{"Öäü", 2, 0, {"Left"}, "Öäü", 1}, TextKey{"Öäü", 0, 0, {"Left"}, "Öäü", 0},
                    TextKey{"Öäü", 1, 2, {"Left"}, "Öäü", 1}, TextKey{"Öäü", 2, 0, {"Right"}, "Öäü", 3},
                    TextKey{"Öäü", 3, 0, {"Right"}, "Öäü", 3}, TextKey{"Öäü", 0, 2, {"Right"}, "Öäü", 2},
                    TextKey{"Öäü", 2, 0, {"Home"}, "Öäü", 0}, TextKey{"Öäü", 1, 1, {"End"}, "Öäü", 3},
                    TextKey{"a", 1, 0, {"€", false, true, true}, "a€", 2}));

TEST_F(InputKeys, CommandsOfTheKeyboardTypeNothing) {
    auto& box = form->Add<TextBox>("txt");
    input.Enter(box);
    EXPECT_FALSE(input.Key({"v", false, true}));
    EXPECT_FALSE(input.Key({"v", false, false, true}));
    EXPECT_FALSE(input.Key({"Delete", false, true}));
    EXPECT_EQ(box.Text(), "");
}

TEST_F(InputKeys, ALockedTextMovesItsCursorOnly) {
    auto& box = form->Add<TextBox>("txt");
    box.Text("fest");
    box.Locked(true);
    input.Enter(box);
    for (const auto* key : {"x", "Backspace", "Delete"}) EXPECT_FALSE(Press(key)) << key;
    EXPECT_TRUE(Press("Home"));
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_FALSE(Press("Backspace"));
    EXPECT_FALSE(Press("Delete"));
    EXPECT_EQ(box.Text(), "fest");
}

TEST_F(InputKeys, EnterBreaksTheLineOfALongTextOnly) {
    auto& box = form->Add<TextBox>("txt");
    box.Text("a");
    input.Enter(box);
    EXPECT_FALSE(Press("Enter"));
    box.MultiLine = true;
    EXPECT_TRUE(Press("Enter"));
    EXPECT_EQ(box.Text(), "a\n");
}

TEST_F(InputKeys, TheControlsOwnHandlerComesFirst) {
    auto& box = form->Add<TextBox>("txt");
    box.OnKey = [](const KeyPress& key) { return key.Name == "a"; };
    input.Enter(box);
    EXPECT_TRUE(Press("a"));
    EXPECT_TRUE(Press("b"));
    EXPECT_EQ(box.Text(), "b");
}

TEST_F(InputKeys, WhatTheHandlerLetsGoGoesToTheControlThatHasTheFocusThen) {
    auto& box = form->Add<TextBox>("txt");
    auto& next = form->Add<TextBox>("txtNächstes");
    box.OnKey = [&](const KeyPress&) {
        form->SetFocus(next);
        return false;
    };
    input.Enter(box);
    EXPECT_TRUE(Press("ö"));
    EXPECT_EQ(next.Text(), "ö");
}

TEST_F(InputKeys, AHandlerThatClosesTheFormEndsTheKey) {
    auto& box = form->Add<TextBox>("txt");
    box.OnKey = [&](const KeyPress&) {
        form->Close(Ending::Discard);
        return false;
    };
    input.Enter(box);
    EXPECT_TRUE(Press("x"));
    EXPECT_EQ(box.Text(), "");
}

TEST_F(InputKeys, EnterAndEscapePressTheDefaultAndTheCancelButton) {
    auto& box = form->Add<TextBox>("txt");
    auto& ok = form->Add<CommandButton>("cmdÜbernehmen");
    auto& cancel = form->Add<CommandButton>("cmdAbbrechen");
    ok.Default(true);
    cancel.Cancel(true);
    cancel.CausesValidation = false;
    box.OnLeave = [this] {
        Log("leave");
        return Leaving::Go;
    };
    ok.OnClick = [this] { Log("ok"); };
    cancel.OnClick = [this] { Log("cancel"); };
    input.Enter(box);
    EXPECT_TRUE(Press("Escape"));
    EXPECT_THAT(Logged(), ElementsAre("cancel"));
    EXPECT_TRUE(Press("Enter"));  // on the button that has the focus
    EXPECT_THAT(Logged(), ElementsAre("cancel"));
    input.Enter(box);
    EXPECT_TRUE(Press("Enter"));
    EXPECT_THAT(Logged(), ElementsAre("leave", "ok"));
    ok.Enabled(false);
    input.Enter(box);
    EXPECT_FALSE(Press("Enter"));
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(InputKeys, SpacePressesButtonsAndFlipsBoxes) {
    auto& button = form->Add<CommandButton>("cmd");
    button.OnClick = [this] { Log("click"); };
    auto& check = form->Add<CheckBox>("chk");
    input.Enter(button);
    EXPECT_TRUE(Press("Space"));
    EXPECT_TRUE(Press("Enter"));
    EXPECT_THAT(Logged(), ElementsAre("click", "click"));
    input.Enter(check);
    EXPECT_TRUE(Press("Space"));
    EXPECT_TRUE(check.Value());
    EXPECT_FALSE(Press("x"));
}

TEST_F(InputKeys, ArrowsGoRoundTheOptionsOfAContainer) {
    auto& frame = form->Add<Frame>("fra");
    std::vector<OptionButton*> group;
    for (const auto* name : {"a", "b", "c"}) {
        group.push_back(&form->Add<OptionButton>(name));
        group.back()->Inside(frame);
    }
    auto& outside = form->Add<OptionButton>("d");
    group[1]->Enabled(false);
    input.Click(*group[0]);
    EXPECT_TRUE(Press("Down"));
    EXPECT_TRUE(group[2]->Value());
    EXPECT_TRUE(Press("Right"));
    EXPECT_TRUE(group[0]->Value());
    EXPECT_TRUE(Press("Up"));
    EXPECT_TRUE(group[2]->Value());
    EXPECT_FALSE(group[0]->Value());
    EXPECT_FALSE(outside.Value());
    EXPECT_EQ(form->Focus(), group[2]);
}

TEST_F(InputKeys, UpAndDownChooseTheEntriesOfACombo) {
    auto& combo = form->Add<ComboBox>("cbo");
    combo.Items({"Äste", "Öl", "Ufer"});
    combo.OnClick = [&] { Log(combo.Text()); };
    input.Enter(combo);
    for (const auto* key : {"Down", "Down", "Down", "Down", "Up"}) EXPECT_TRUE(Press(key));
    EXPECT_THAT(Logged(), ElementsAre("Äste", "Öl", "Ufer", "Ufer", "Öl"));
    EXPECT_TRUE(Press("e"));
    EXPECT_EQ(combo.Text(), "Öle");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Clear();
    EXPECT_TRUE(Press("Down"));
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(InputKeys, LettersAndArrowsChooseTheEntriesOfAList) {
    auto& list = form->Add<ListBox>("lst");
    list.Items({"Achnanthes", "Öd", "Ufer"});
    input.Enter(list);
    struct Step {
        const char* key;
        int index;
    };
    for (const auto& [key, index] :
         std::vector<Step>{{"ö", 1}, {"Down", 2}, {"Home", 0}, {"End", 2}, {"Up", 1}, {"a", 0}}) {
        EXPECT_TRUE(Press(key)) << key;
        EXPECT_EQ(list.ListIndex(), index) << key;
    }
    EXPECT_FALSE(Press("z"));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(InputKeys, ArrowsGoAlongRowsOfAListViewTabsAndScrollBars) {
    auto& view = form->Add<ListView>("lvw");
    view.Rows({{"ä"}, {"ö"}});
    input.Enter(view);
    Press("Down");
    Press("Down");
    Press("Down");
    EXPECT_EQ(view.Index(), 1);
    Press("Up");
    EXPECT_EQ(view.Index(), 0);
    auto& tabs = form->Add<TabControl>("tab", Kind::SSTab);
    tabs.Tabs({{}, {"0", "", "", false}, {}});
    input.Enter(tabs);
    EXPECT_TRUE(Press("Right"));
    EXPECT_EQ(tabs.Current(), 2);
    EXPECT_TRUE(Press("Right"));
    EXPECT_EQ(tabs.Current(), 2);
    EXPECT_TRUE(Press("Left"));
    EXPECT_EQ(tabs.Current(), 0);
    auto& bar = form->Add<ScrollBar>("vsb");
    input.Enter(bar);
    Press("Down");
    Press("Right");
    Press("Up");
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(InputKeys, MenusAreChosenByTheirShortcut) {
    auto& box = form->Add<TextBox>("txt");
    auto& menu = form->Add<Menu>("mnuNeu");
    menu.Shortcut = "Ctrl+Shift+N";
    menu.OnClick = [this] { Log("neu"); };
    auto& search = form->Add<Menu>("mnuSuchen");
    search.Shortcut = "F3";
    search.OnClick = [this] { Log("suchen"); };
    input.Enter(box);
    EXPECT_TRUE(input.Key({"n", true, true}));
    EXPECT_TRUE(Press("F3"));
    EXPECT_FALSE(input.Key({"n", false, true}));
    menu.Enabled(false);
    EXPECT_FALSE(input.Key({"N", true, true}));
    EXPECT_THAT(Logged(), ElementsAre("neu", "suchen"));
    EXPECT_EQ(box.Text(), "");
}

TEST_F(InputKeys, AKeyThatNothingUsesIsNotTaken) {
    const auto taken = input.Key({"F12"});
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr("F12"));
    EXPECT_FALSE(Press("Tab"));  // no control is in the tab order
}

TEST_F(InputKeys, AControlThatWasHiddenTakesNoKeys) {
    auto& box = form->Add<TextBox>("txt");
    input.Enter(box);
    box.Visible(false);
    EXPECT_FALSE(Press("x"));
    EXPECT_EQ(box.Text(), "");
}

}  // namespace
}  // namespace FX_Algen::controls
