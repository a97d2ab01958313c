#include "controls/Input.h"

#include <gmock/gmock.h>

#include "controls/Datenprobe.h"
#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class InputTest : public Formtest {
protected:
    TextBox& text = form->Add<TextBox>("txtÄnderung");
    CommandButton& button = form->Add<CommandButton>("cmdArtNeu");
};

// -- one thing at a time

TEST_F(InputTest, IsDroppedWhileAHandlerRuns) {
    EXPECT_FALSE(Input::Busy());
    button.OnClick = [&] {
        EXPECT_TRUE(Input::Busy());
        const auto taken = input.Type(text, "verloren");
        EXPECT_FALSE(taken);
        EXPECT_THAT(taken.Reason, HasSubstr("still runs"));
        // Nor does another form take anything.
        auto other = OpenForms().Load<Form>("x");
        EXPECT_FALSE(Input(*other).Close());
        Log("clicked");
    };
    EXPECT_TRUE(input.Click(button));
    EXPECT_FALSE(Input::Busy());
    EXPECT_EQ(text.Text(), "");
    EXPECT_THAT(Logged(), ElementsAre("clicked"));
    EXPECT_TRUE(input.Type(text, "Ö"));
}

/// Lets a person press on while a box is open.
struct Pressing : RecordingDisplay {
    std::function<void()> Press;
    store::Answer Box(std::string_view title, std::string_view shown, store::Buttons buttons,
                      store::Symbol symbol) override {
        Press();
        return RecordingDisplay::Box(title, shown, buttons, symbol);
    }
};

TEST_F(InputTest, IsDroppedWhileABoxOfTheFormIsOpenAlsoOutsideOfAHandler) {
    const auto pressing = std::make_shared<Pressing>();
    const auto former = SetDisplay(pressing);
    pressing->Press = [&] { Log(input.Click(button) ? "taken" : "dropped"); };
    button.OnClick = [&] { form->Box("Löschen?", store::Buttons::YesNo); };
    EXPECT_TRUE(input.Click(button));
    form->Box("Fertig");
    EXPECT_THAT(Logged(), ElementsAre("dropped", "dropped"));
    EXPECT_FALSE(Input::Busy());
    SetDisplay(former);
}

TEST_F(InputTest, GoesOnAfterAHandlerThatFailed) {
    form->Caption("Algen");
    button.OnClick = [] { throw Error(3022, "Schlüssel 7 gibt es schon"); };
    EXPECT_TRUE(input.Click(button));
    EXPECT_THAT(Shown(), ElementsAre("Algen|3022 - Schlüssel 7 gibt es schon"));
    button.OnClick = [] { throw std::logic_error("broken"); };
    EXPECT_THROW(input.Click(button), std::logic_error);
    EXPECT_FALSE(Input::Busy());
}

TEST_F(InputTest, TheFormLivesUntilTheHandlerThatClosesItIsDone) {
    std::weak_ptr<Form> watched = form;
    auto& raw = *form;
    button.OnClick = [&] {
        EXPECT_TRUE(raw.Close());
        EXPECT_FALSE(watched.expired());
        EXPECT_EQ(raw.Name(), "frmÜbung");
        Log(raw.Controls().front()->Name());
    };
    form.reset();  // the list of open forms holds it alone
    EXPECT_TRUE(input.Click(button));
    EXPECT_THAT(Logged(), ElementsAre("txtÄnderung"));
    EXPECT_TRUE(watched.expired());
}

TEST_F(InputTest, AHandlerMayCloseTheFormsAroundItsOwn) {
    struct Kind : Form {
        Kind() : Form("frmKind") {}
    };
    auto child = OpenForms().Load<Kind>();
    child->Parent(form);
    child->Show();
    auto& other = child->Add<CommandButton>("cmdAlles");
    other.OnClick = [&] {
        EXPECT_TRUE(form->Close());
        Log("closed");
    };
    const std::weak_ptr<Form> watched = child;
    Input inChild(*child);
    child.reset();
    EXPECT_TRUE(inChild.Click(other));
    EXPECT_THAT(Logged(), ElementsAre("closed"));
    EXPECT_TRUE(watched.expired());
    EXPECT_THAT(OpenForms().All(), IsEmpty());
}

TEST_F(InputTest, AHandlerMayTakeTheRowsOfTheGridThatIsEdited) {
    auto& grid = form->Add<Grid>("vsfg");
    grid.Fixed(1, 0);
    grid.Cols(2);
    grid.ColKind(1, CellKind::Check);
    grid.Editable(Editing::KeyboardAndMouse);
    const auto take = [&] { grid.Rows(1); };
    const std::vector<std::function<void()>> ways{
        [&] {
            grid.OnBeforeEdit = [&](int, int) {
                take();
                return true;
            };
        },
        [&] {
            grid.OnValidateEdit = [&](int, int, const std::string&) {
                take();
                return true;
            };
        },
        [&] { grid.OnAfterEdit = [&](int, int) { take(); }; },
        [&] {
            grid.OnBeforeRowLeave = [&](int) {
                take();
                return true;
            };
        },
        [&] { grid.OnRowColChange = take; },
        [&] { grid.OnCellClick = [&](int, int) { take(); }; },
        [&] { grid.OnCellDblClick = [&](int, int) { take(); }; },
    };
    const std::vector<std::function<void()>> deeds{
        [&] { input.EditCell(grid, 3, 0, "Größe"); },
        [&] { input.CheckCell(grid, 3, 1, true); },
        [&] { input.ClickCell(grid, 3, 1); },
        [&] { input.DblClickCell(grid, 3, 0); },
        [&] { input.Type(grid, "Öl"); },
        [&] { input.Enter(text); },
        [&] { input.Key({"Enter"}); },
        [&] { input.Deactivate(); },
    };
    for (const auto& way : ways)
        for (const auto& deed : deeds) {
            grid.OnBeforeEdit = nullptr;
            grid.OnValidateEdit = nullptr;
            grid.OnAfterEdit = grid.OnCellClick = grid.OnCellDblClick = nullptr;
            grid.OnBeforeRowLeave = nullptr;
            grid.OnRowColChange = nullptr;
            grid.Rows(1);
            grid.Rows(5);
            input.Enter(grid);
            grid.Select(2, 0);
            grid.StartEdit();
            grid.EditText("getippt");
            way();
            deed();
            EXPECT_TRUE(grid.Row() < grid.Rows());
            EXPECT_FALSE(Input::Busy());
            grid.CancelEdit();
        }
    EXPECT_THAT(Shown(), IsEmpty());  // none of it fails
}

TEST_F(InputTest, WritesIntoNoOtherCellWhereAHandlerSendsTheCursorOn) {
    auto& grid = form->Add<Grid>("vsfg");
    grid.Fixed(1, 0);
    grid.Cols(2);
    grid.Rows(5);
    grid.ColKind(1, CellKind::Check);
    grid.Editable(Editing::KeyboardAndMouse);
    grid.OnRowColChange = [&] {
        if (grid.Row() == 3) grid.Select(4, grid.Col());
    };
    EXPECT_FALSE(input.EditCell(grid, 3, 0, "Größe"));
    EXPECT_FALSE(input.CheckCell(grid, 3, 1, true));
    EXPECT_FALSE(input.ClickCell(grid, 3, 1));
    for (int row = 1; row < 5; ++row) {
        EXPECT_EQ(grid.Text(row, 0), "") << row;
        EXPECT_FALSE(grid.Checked(row, 1)) << row;
    }
    EXPECT_TRUE(input.SelectCell(grid, 3, 0));  // going there is all that was asked for
    EXPECT_EQ(grid.Row(), 4);
}

TEST_F(InputTest, TakesNoTextThatIsNoUtf8) {
    auto& grid = form->Add<Grid>("vsfg");
    grid.Fixed(0, 0);
    grid.Cols(1);
    grid.Rows(1);
    grid.Editable(Editing::KeyboardAndMouse);
    // "Öl" in Latin-1; a character cut short; its rest alone; one written too long; half a surrogate.
    for (const std::string broken : {"\xD6l", "\xC3", "\x96", "\xC0\xAF", "\xED\xA0\x80"}) {
        for (const auto& taken :
             {input.SetText(text, broken), input.Type(text, broken), input.Type(grid, broken),
              input.EditCell(grid, 0, 0, broken), input.Key({broken})}) {
            EXPECT_FALSE(taken);
            EXPECT_THAT(taken.Reason, HasSubstr("UTF-8"));
        }
    }
    EXPECT_EQ(text.Text(), "");
    EXPECT_EQ(grid.Text(0, 0), "");
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(input.SetText(text, "Öl \xF0\x9F\x8C\x8A"));  // a wave
}

TEST_F(InputTest, TakesLongTexts) {
    std::string much;
    for (int i = 0; i < 100000; ++i) much += "ä";
    EXPECT_TRUE(input.SetText(text, much));
    EXPECT_EQ(text.Text(), much);
    EXPECT_EQ(text.SelStart(), 100000);
    EXPECT_TRUE(input.Key({"Backspace"}));
    EXPECT_EQ(text.Text().size(), much.size() - 2);
}

TEST_F(InputTest, TellsTheFormThatItsWindowCameToTheFront) {
    struct Suche : Form {
        Suche() : Form("dlgSuche") {}
        int Times = 0;

    protected:
        void OnActivate() override { ++Times; }
    };
    const auto dialog = OpenForms().Load<Suche>();
    EXPECT_FALSE(Input(*dialog).Activate());  // it is not shown yet
    dialog->Show();
    EXPECT_TRUE(Input(*dialog).Activate());
    EXPECT_EQ(dialog->Times, 1);
    dialog->Close();
}

TEST_F(InputTest, ClosingAsksTheForm) {
    auto& grid = form->Add<Grid>("vsfg");
    grid.Cols(1);
    grid.Rows(2);
    grid.Fixed(1, 0);
    grid.Select(1, 0);
    grid.OnBeforeRowLeave = [](int) { return false; };
    const auto taken = input.Close();
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr("stays open"));
    EXPECT_TRUE(form->IsOpen());
    display->Messages().SetAnswers({store::Answer::Yes});
    EXPECT_TRUE(input.Close());
    EXPECT_FALSE(form->IsOpen());
    EXPECT_FALSE(input.Activate());
}

TEST_F(InputTest, ClosingDoesNotValidate) {
    text.OnLeave = [this] {
        Log("leave");
        return Leaving::Stay;
    };
    input.Enter(text);
    EXPECT_TRUE(input.Close());
    EXPECT_THAT(Logged(), IsEmpty());
}

// -- buttons and boxes

TEST_F(InputTest, CheckBoxesFlipAndClick) {
    auto& check = form->Add<CheckBox>("chkSynonym");
    check.OnClick = [&] { Log(check.Value() ? "click 1" : "click 0"); };
    check.OnChange = [&] { Log("change"); };
    EXPECT_TRUE(input.Click(check));
    EXPECT_TRUE(input.SetValue(check, true));
    EXPECT_TRUE(input.SetValue(check, false));
    EXPECT_THAT(Logged(), ElementsAre("change", "click 1", "change", "click 0"));
    check.Locked(true);
    const auto taken = input.Click(check);
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr("locked"));
    EXPECT_FALSE(check.Value());
    EXPECT_EQ(form->Focus(), &check);
}

TEST_F(InputTest, ABoxWhoseChangeClosesTheFormIsNotClickedAnyMore) {
    auto& check = form->Add<CheckBox>("chkZuÄndern");
    check.OnChange = [&] { form->Close(Ending::Discard); };
    check.OnClick = [&] { Log("click"); };
    EXPECT_TRUE(input.Click(check));
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(InputTest, OptionButtonsAreCheckedButNotCleared) {
    auto& first = form->Add<OptionButton>("optEins");
    auto& second = form->Add<OptionButton>("optZwei");
    for (auto* option : {&first, &second})
        option->OnClick = [this, option] { Log("click " + option->Name()); };
    input.Click(first);
    input.Click(first);
    input.Click(second);
    EXPECT_FALSE(first.Value());
    EXPECT_FALSE(input.SetValue(second, false));
    EXPECT_TRUE(second.Value());
    EXPECT_THAT(Logged(), ElementsAre("click optEins", "click optZwei"));
}

TEST_F(InputTest, ADoubleClickOnAButtonPressesItOnce) {
    button.OnClick = [&] { Log("click"); };
    button.OnDblClick = [&] { Log("dblclick"); };
    EXPECT_TRUE(input.DblClick(button));
    EXPECT_THAT(Logged(), ElementsAre("click", "dblclick"));
}

TEST_F(InputTest, SeparatorsOfAMenuTakeNothing) {
    auto& menu = form->Add<Menu>("mnuStrich");
    menu.Separator = true;
    menu.OnClick = [&] { Log("click"); };
    EXPECT_FALSE(input.Click(menu));
    EXPECT_THAT(Logged(), IsEmpty());
}

struct ToolbarCase {
    int position;
    bool taken;
    std::string reason;
};
class InputToolbar : public Formtest, public testing::WithParamInterface<ToolbarCase> {};

TEST_P(InputToolbar, PressesWhatIsAnEnabledButton) {
    auto& bar = form->Add<Toolbar>("tbKatalog");
    bar.Buttons({{"", "", true, true}, {"Kat_Neu", "", false, true}, {"Kat_Del", "", false, false}});
    bar.OnButton = [&](int position) { Log(std::to_string(position)); };
    const auto taken = input.PressToolbar(bar, GetParam().position);
    EXPECT_EQ(taken.Yes, GetParam().taken);
    EXPECT_THAT(taken.Reason, HasSubstr(GetParam().reason));
    EXPECT_EQ(Logged().size(), GetParam().taken ? 1U : 0U);
    EXPECT_FALSE(input.Click(bar));
}

INSTANTIATE_TEST_SUITE_P(Positions, InputToolbar,
                         testing::Values(ToolbarCase{1, false, "no button"}, ToolbarCase{2, true, ""},
                                         ToolbarCase{3, false, "disabled"},
                                         ToolbarCase{0, false, "no button"},
                                         ToolbarCase{4, false, "no button"}));

TEST_F(InputTest, AToolbarLeavesTheFieldAndAButtonThatThisDisablesIsNotPressed) {
    auto& bar = form->Add<Toolbar>("tb");
    bar.Buttons({{"Kat_Neu", "", false, true}});
    bar.OnButton = [&](int) { Log("pressed"); };
    text.OnLeave = [&] {
        Log("leave");
        bar.ButtonEnabled(1, false);
        return Leaving::Go;
    };
    input.Enter(text);
    EXPECT_FALSE(input.PressToolbar(bar, 1));
    EXPECT_THAT(Logged(), ElementsAre("leave"));
}

TEST_F(InputTest, APersonCannotGoToADisabledTab) {
    auto& tabs = form->Add<TabControl>("tabArt", Kind::SSTab);
    tabs.Tabs({{}, {"0", "", "", false}, {}});
    EXPECT_FALSE(input.ShowTab(tabs, 1));
    EXPECT_FALSE(input.ShowTab(tabs, 3));
    EXPECT_FALSE(input.ShowTab(tabs, -1));
    EXPECT_EQ(tabs.Current(), 0);
    EXPECT_TRUE(input.ShowTab(tabs, 2));
    EXPECT_EQ(tabs.Current(), 2);
    tabs.Current(1);  // code may
    EXPECT_EQ(tabs.Current(), 1);
}

TEST_F(InputTest, AValidationKeepsTheTabInFront) {
    auto& tabs = form->Add<TabControl>("tabArt", Kind::SSTab);
    tabs.Tabs({{}, {}});
    text.Inside(tabs, 0);
    text.OnLeave = [] { return Leaving::Stay; };
    input.Enter(text);
    EXPECT_FALSE(input.ShowTab(tabs, 1));
    EXPECT_EQ(tabs.Current(), 0);
}

TEST_F(InputTest, Scrolls) {
    auto& bar = form->Add<ScrollBar>("vsb");
    auto& list = form->Add<ListBox>("lst");
    list.Items({"ä", "ö", "ü"});
    EXPECT_TRUE(input.Scroll(bar, 500));
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_TRUE(input.Scroll(list, 2));
    EXPECT_EQ(list.TopIndex(), 2);
    EXPECT_FALSE(input.Scroll(list, 3));
    EXPECT_FALSE(input.Scroll(text, 1));
    EXPECT_EQ(form->Focus(), &bar);
}

// -- text

TEST_F(InputTest, TypesCharacterByCharacterInPlaceOfWhatIsSelected) {
    text.Text("Größe");
    text.Select(2, 2);  // "öß"
    text.OnChange = [&] { Log(text.Text()); };
    EXPECT_TRUE(input.Type(text, "äü"));
    EXPECT_THAT(Logged(), ElementsAre("Gräe", "Gräüe"));
}

TEST_F(InputTest, TypingEndsWhereTheFieldIsSwitched) {
    text.OnChange = [&] {
        if (text.Text() == "Ab") text.Locked(true);
    };
    EXPECT_FALSE(input.Type(text, "Abc"));
    EXPECT_EQ(text.Text(), "Ab");
    text.Locked(false);
    text.OnChange = [&] { form->Close(); };
    EXPECT_FALSE(input.Type(text, "xy"));
    EXPECT_EQ(text.Text(), "Abx");
}

TEST_F(InputTest, SetsTheWholeText) {
    text.Text("alt");
    text.OnChange = [&] { Log(text.Text()); };
    EXPECT_TRUE(input.SetText(text, "Übel"));
    EXPECT_TRUE(input.SetText(text, "Übel"));
    EXPECT_THAT(Logged(), ElementsAre("Übel"));
    EXPECT_FALSE(input.SetText(button, "x"));
    EXPECT_FALSE(input.Type(button, "x"));
}

TEST_F(InputTest, ALockedFieldTakesTheFocusAndNoText) {
    text.Text("fest");
    text.Locked(true);
    EXPECT_TRUE(input.Enter(text));
    EXPECT_FALSE(input.Type(text, "x"));
    EXPECT_FALSE(input.SetText(text, "x"));
    EXPECT_EQ(text.Text(), "fest");
    EXPECT_EQ(form->Focus(), &text);
}

// -- lists

TEST_F(InputTest, ChoosesEntriesOfCombosAndListsAndClicksEachTime) {
    auto& combo = form->Add<ComboBox>("cbo");
    combo.Items({"Öl", "Äste"});
    auto& list = form->Add<ListBox>("lst");
    list.Items({"Öl", "Äste"});
    auto& view = form->Add<ListView>("lvw");
    view.Rows({{"Öl"}, {"Äste"}});
    for (Control* control :
         {static_cast<Control*>(&combo), static_cast<Control*>(&list), static_cast<Control*>(&view)}) {
        control->OnClick = [this, control] { Log(control->Name()); };
        EXPECT_TRUE(input.Choose(*control, 1));
        EXPECT_TRUE(input.Choose(*control, 1));
        EXPECT_FALSE(input.Choose(*control, 2));
        EXPECT_FALSE(input.Choose(*control, -1));
    }
    EXPECT_EQ(combo.Text(), "Äste");
    EXPECT_EQ(list.Text(), "Äste");
    EXPECT_EQ(view.Index(), 1);
    EXPECT_THAT(Logged(), ElementsAre("cbo", "cbo", "lst", "lst", "lvw", "lvw"));
    combo.Locked(true);
    EXPECT_FALSE(input.Choose(combo, 0));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_FALSE(input.Choose(text, 0));
}

TEST_F(InputTest, TypingInAComboSelectsTheEntryThatEqualsWhatStandsThere) {
    auto& combo = form->Add<ComboBox>("cbo");
    combo.Items({"Öl", "Ölalge"});
    combo.OnClick = [&] { Log("click"); };
    combo.OnChange = [&] { Log(combo.Text() + " " + std::to_string(combo.ListIndex())); };
    EXPECT_TRUE(input.Type(combo, "Ölx"));
    EXPECT_THAT(Logged(), ElementsAre("Ö -1", "Öl 0", "Ölx -1"));
    EXPECT_TRUE(input.Click(combo));
    EXPECT_THAT(Logged(), IsEmpty());
}

// -- data sources

class InputSources : public InputTest {
protected:
    std::string Stored() const { return probe.Wert("SELECT PSBez FROM awaPrStelle WHERE ID_PS=1").Text(); }
    Datenprobe probe;
    DataSource& source = form->Add<DataSource>("datPrStelle");
};

TEST_F(InputSources, HearOfAChangeBeforeItsHandlerMovesThem) {
    source.Bind(text, "PSBez");
    source.Open(probe.Handle(), "SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_PS=1");
    // Refreshing leaves the row first: what was not noted yet would go.
    text.OnChange = [&] { source.Refresh(); };
    EXPECT_TRUE(input.SetText(text, "Wehr bei Öd"));
    EXPECT_EQ(Stored(), "Wehr bei Öd");
    EXPECT_EQ(text.Text(), "Wehr bei Öd");
}

TEST_F(InputSources, HearOfAChoiceBeforeItsHandlerMovesThem) {
    auto& combo = form->Add<ComboBox>("cboPSBez");
    combo.Items({"Furt", "Brücke über die Ötz"});
    source.Bind(combo, "PSBez");
    source.Open(probe.Handle(), "SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_PS=1");
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.OnClick = [&] { source.Refresh(); };
    EXPECT_TRUE(input.Choose(combo, 0));
    EXPECT_EQ(Stored(), "Furt");
    EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(InputSources, HearOfACheckBeforeItsHandlerMovesThem) {
    auto& check = form->Add<CheckBox>("chkAnzeige");
    source.Bind(check, "Anzeige");
    source.Open(probe.Handle(), "SELECT ID_PS, Anzeige FROM awaPrStelle WHERE ID_PS=1");
    EXPECT_TRUE(check.Value());
    check.OnClick = [&] { source.Refresh(); };
    EXPECT_TRUE(input.Click(check));
    EXPECT_EQ(probe.Wert("SELECT Anzeige FROM awaPrStelle WHERE ID_PS=1"), store::Value(false));
    EXPECT_FALSE(check.Value());
}

}  // namespace
}  // namespace FX_Algen::controls
