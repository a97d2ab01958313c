#include "controls/Kinds.h"

#include <gmock/gmock.h>

#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what observers hear.
class Ohr : public Observer {
public:
    void FormChanged() override { Log.emplace_back("form"); }
    void ControlChanged(Control& control) override { Log.push_back(control.Name()); }
    void FocusMoved(Control* from, Control* to) override {
        Log.push_back((from != nullptr ? from->Name() : "-") + ">" + (to != nullptr ? to->Name() : "-"));
    }
    std::vector<std::string> Log;
    std::vector<std::string> Heard() { return std::exchange(Log, {}); }
};

class Kinds : public Formtest {
protected:
    Kinds() { form->Observe(&ear); }
    ~Kinds() override { form->Observe(nullptr); }
    Ohr ear;
};

TEST_F(Kinds, ObserversHearOfAPropertyThatChangesAndOfNoOther) {
    auto& label = form->Add<Label>("lblFläche");
    label.Caption("Fläche");
    label.Caption("Fläche");
    label.Visible(true);
    label.Enabled(false);
    label.BackColor(Colour{0xC0FFC0});
    EXPECT_THAT(ear.Heard(), ElementsAre("lblFläche", "lblFläche", "lblFläche"));
    form->Caption("Gewässer");
    form->Caption("Gewässer");
    form->Hide();
    form->Hide();
    form->Show();
    EXPECT_THAT(ear.Heard(), ElementsAre("form", "form", "form"));
}

TEST_F(Kinds, ObserversHearOfTheFocus) {
    auto& first = form->Add<TextBox>("a");
    auto& second = form->Add<TextBox>("b");
    form->SetFocus(first);
    input.Enter(second);
    input.Leave();
    EXPECT_THAT(ear.Heard(), ElementsAre("->a", "a>b", "b>-"));
}

// -- text

struct InsertCase {
    std::string before;
    int start, length;
    std::string inserted;
    std::string after;
    int cursor;
};

class TextInsert : public Formtest, public testing::WithParamInterface<InsertCase> {};

TEST_P(TextInsert, CountsCharacters) {
    const auto& at = GetParam();
    auto& box = form->Add<TextBox>("txt");
    box.Text(at.before);
    box.Select(at.start, at.length);
    box.Insert(at.inserted);
    EXPECT_EQ(box.Text(), at.after);
    EXPECT_EQ(box.SelStart(), at.cursor);
    EXPECT_EQ(box.SelLength(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TextInsert,
    testing::Values(InsertCase{"", 0, 0, "Ä", "Ä", 1}, InsertCase{"Ährig", 1, 0, "ß", "Äßhrig", 2},
                    InsertCase{"Öäü", 1, 1, "e", "Öeü", 2}, InsertCase{"Öäü", 0, 3, "", "", 0},
                    InsertCase{"Öäü", 3, 0, "€µ", "Öäü€µ", 5},
                    // Kept within the text: from the start, to the end.
                    InsertCase{"Öäü", -4, 1, "x", "xäü", 1}, InsertCase{"Öäü", 2, 9, "x", "Öäx", 3},
                    InsertCase{"Öäü", 9, 9, "x", "Öäüx", 4}));

TEST_F(Kinds, AssigningATextTellsOnlyWhereItDiffers) {
    auto& box = form->Add<TextBox>("txt");
    box.OnChange = [&] { Log("change " + box.Text()); };
    box.Text("Grün");
    EXPECT_EQ(box.SelStart(), 4);
    box.Select(0, 2);
    box.Text("Grün");
    EXPECT_EQ(box.SelStart(), 4);
    EXPECT_EQ(box.SelLength(), 0);
    EXPECT_THAT(Logged(), ElementsAre("change Grün"));
}

TEST_F(Kinds, WhatAHandlerWritesIntoItsFieldDoesNotCallItAgain) {
    auto& box = form->Add<TextBox>("txt");
    box.OnChange = [&] {
        Log("change");
        box.Text(box.Text() + "!");
    };
    box.Text("Ä");
    EXPECT_EQ(box.Text(), "Ä!");
    EXPECT_THAT(Logged(), ElementsAre("change"));
    box.Text("Ö");
    EXPECT_EQ(box.Text(), "Ö!");
}

TEST_F(Kinds, AHandlerMayPutAnotherOneInItsPlace) {
    auto& box = form->Add<TextBox>("txt");
    box.OnChange = [&] {
        const std::string kept = "still here";
        box.OnChange = nullptr;
        Log(kept);
    };
    box.Text("a");
    box.Text("b");
    EXPECT_THAT(Logged(), ElementsAre("still here"));
}

// -- option buttons

TEST_F(Kinds, CheckingAnOptionClearsThoseInItsContainer) {
    auto& frame = form->Add<Frame>("fra");
    auto& inside = form->Add<OptionButton>("optInnen");
    auto& beside = form->Add<OptionButton>("optDaneben");
    auto& outside = form->Add<OptionButton>("optAußen");
    inside.Inside(frame);
    beside.Inside(frame);
    for (auto* option : {&inside, &beside, &outside})
        option->OnChange = [this, option] { Log(option->Name() + (option->Value() ? " 1" : " 0")); };
    outside.Value(true);
    inside.Value(true);
    beside.Value(true);
    EXPECT_FALSE(inside.Value());
    EXPECT_TRUE(outside.Value());
    EXPECT_THAT(Logged(), ElementsAre("optAußen 1", "optInnen 1", "optInnen 0", "optDaneben 1"));
    beside.Value(false);
    EXPECT_FALSE(inside.Value());
}

TEST_F(Kinds, ContainersOnTwoTabsAreTwo) {
    auto& tabs = form->Add<TabControl>("tab", Kind::SSTab);
    tabs.Tabs({{}, {}});
    auto& front = form->Add<OptionButton>("a");
    auto& back = form->Add<OptionButton>("b");
    front.Inside(tabs, 0);
    back.Inside(tabs, 1);
    front.Value(true);
    back.Value(true);
    EXPECT_TRUE(front.Value());
}

// -- tabs

TEST_F(Kinds, ATabHidesWhatStandsOnTheOthers) {
    auto& tabs = form->Add<TabControl>("tabArt", Kind::SSTab);
    tabs.Tabs({{}, {}, {}});
    auto& frame = form->Add<Frame>("fraBild");
    frame.Inside(tabs, 2);
    auto& deep = form->Add<TextBox>("txtBild");
    deep.Inside(frame);
    auto& front = form->Add<TextBox>("txtArt");
    front.Inside(tabs, 0);
    auto& outside = form->Add<TextBox>("txtFrei");
    EXPECT_FALSE(deep.IsShown());
    EXPECT_TRUE(front.IsShown());
    ear.Heard();
    tabs.OnTabChange = [&](int previous) {
        Log(std::to_string(previous) + ">" + std::to_string(tabs.Current()));
    };
    tabs.Current(2);
    EXPECT_TRUE(deep.IsShown());
    EXPECT_FALSE(front.IsShown());
    EXPECT_TRUE(outside.IsShown());
    EXPECT_THAT(ear.Heard(), ElementsAre("tabArt", "fraBild", "txtBild", "txtArt"));
    tabs.Current(2);
    EXPECT_THAT(Logged(), ElementsAre("0>2"));
}

TEST_F(Kinds, TabsAndToolbarPositionsPastTheEndFail) {
    auto& tabs = form->Add<TabControl>("tab", Kind::TabStrip);
    tabs.Tabs({{"0", "Übersicht", "", true}, {"0", "Bilder", "", true}});
    auto& bar = form->Add<Toolbar>("tbKatalog");
    bar.Buttons({{"", "", true, true}, {"Kat_Neu", "Neu", false, true}});
    for (const auto& act : std::vector<std::function<void()>>{
             [&] { tabs.Current(2); }, [&] { tabs.Current(-1); }, [&] { tabs.Tab(2, {}); },
             [&] { tabs.Tab(-1, {}); }, [&] { bar.ButtonEnabled(0, true); },
             [&] { bar.ButtonEnabled(3, true); }})
        EXPECT_THROW(act(), Error);
    bar.ButtonEnabled(2, false);
    EXPECT_FALSE(bar.Buttons()[1].Enabled);
    tabs.Tab(1, {"0", "Größen", "", true});
    EXPECT_EQ(tabs.Tabs()[1].Caption, "Größen");
}

TEST_F(Kinds, FewerTabsBringTheFirstToTheFront) {
    auto& tabs = form->Add<TabControl>("tab", Kind::TabStrip);
    tabs.Tabs({{}, {}, {}});
    tabs.Current(2);
    tabs.Tabs({{}, {}});
    EXPECT_EQ(tabs.Current(), 0);
}

TEST_F(Kinds, AScrollBarKeepsWithinItsEnds) {
    auto& bar = form->Add<ScrollBar>("vsb");
    bar.Range(10, 20);
    bar.OnChange = [&] { Log(std::to_string(bar.Value())); };
    bar.Value(15);
    bar.Value(25);
    bar.Value(99);
    bar.Value(3);
    EXPECT_THAT(Logged(), ElementsAre("15", "20", "10"));
}

TEST_F(Kinds, AScrollBarFollowsIntoANewRangeAndTellsOfIt) {
    auto& bar = form->Add<ScrollBar>("vsb");
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
    bar.Value(50);
    ear.Heard();
    bar.Range(0, 90);
    EXPECT_THAT(ear.Heard(), ElementsAre("vsb"));
    bar.Range(0, 90);
    EXPECT_THAT(ear.Heard(), testing::IsEmpty());
    EXPECT_EQ(bar.Value(), 50);
    bar.Range(0, 30);
    EXPECT_EQ(bar.Value(), 30);
    bar.Range(60, 40);
    EXPECT_EQ(bar.Max(), 60);
    EXPECT_EQ(bar.Value(), 60);
}

TEST_F(Kinds, WhatAHandlerOfTabsOrScrollBarsChangesInThemDoesNotCallItAgain) {
    auto& tabs = form->Add<TabControl>("tab", Kind::SSTab);
    tabs.Tabs({{}, {}, {}});
    tabs.OnTabChange = [&](int previous) {
        Log("tab " + std::to_string(previous));
        tabs.Current(previous);
    };
    tabs.Current(2);
    EXPECT_EQ(tabs.Current(), 0);
    auto& bar = form->Add<ScrollBar>("vsb");
    bar.OnChange = [&] {
        Log("bar " + std::to_string(bar.Value()));
        bar.Value(bar.Value() + 1);
    };
    bar.Value(7);
    EXPECT_EQ(bar.Value(), 8);
    tabs.Current(1);
    EXPECT_THAT(Logged(), ElementsAre("tab 0", "bar 7", "tab 0"));
}

TEST(Kind, EachHasItsWord) {
    EXPECT_EQ(KindName(Kind::Label), "Label");
    EXPECT_EQ(KindName(Kind::SSTab), "SSTab");
    EXPECT_EQ(KindName(Kind::ReportView), "ReportView");
}

}  // namespace
}  // namespace FX_Algen::controls
