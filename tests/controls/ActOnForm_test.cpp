#include "FX_Algen/Error.h"
#include "FX_Algen/Forms.h"
#include "Musterformular.h"

namespace FX_Algen::controls::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ActOnForms : public FormFixture {
protected:
    void SetUp() override {
        FormFixture::SetUp();
        form = Shown();
    }
    static ActionResult Act(FormAction action) { return ActOnForm("frmMuster", action); }
    /// The action on a control, with nothing else given.
    static ActionResult Act(const std::string& action, const std::string& control) {
        FormAction out;
        out.Control = control;
        out.Action = action;
        return Act(out);
    }
    static FormAction On(const std::string& control, const std::string& action) {
        FormAction out;
        out.Control = control;
        out.Action = action;
        return out;
    }
    static FormAction OnCell(const std::string& action, int row, int col) {
        auto out = On("vsfgAlgenArt", action);
        out.Row = row;
        out.Col = col;
        return out;
    }

    std::shared_ptr<Musterformular> form;
};

TEST_F(ActOnForms, ClickPressesAButtonWhereverItsNameIsWrittenInCapitals) {
    int pressed = 0;
    form->cmdNeu.OnClick = [&] { ++pressed; };
    EXPECT_TRUE(Act("click", "cmdPrStelle(4)").Taken);
    EXPECT_TRUE(Act("click", "CMDPRSTELLE(4)").Taken);
    EXPECT_EQ(pressed, 2);
}

TEST_F(ActOnForms, WhatCannotBeHitSaysWhy) {
    int pressed = 0;
    form->cmdZu.OnClick = [&] { ++pressed; };
    auto text = On("txtZu", "set");
    text.Text = "x";
    for (const auto& result : {Act("click", "cmdZu"), Act(text)}) {
        EXPECT_FALSE(result.Taken);
        EXPECT_THAT(result.Reason, HasSubstr("Zu"));
    }
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(form->txtZu.Text(), "");
}

TEST_F(ActOnForms, SetReplacesTextsAndFlipsBoxes) {
    form->txtName.Text("alt");
    auto text = On("txtName", "set");
    text.Text = "Größe";
    EXPECT_TRUE(Act(text).Taken);
    EXPECT_EQ(form->txtName.Text(), "Größe");
    auto box = On("chkSynonym", "set");
    box.Value = true;
    EXPECT_TRUE(Act(box).Taken);
    EXPECT_TRUE(form->chkSynonym.Value());
    auto locked = On("txtFest", "set");
    locked.Text = "neu";
    EXPECT_FALSE(Act(locked).Taken);
    EXPECT_EQ(form->txtFest.Text(), "");
}

TEST_F(ActOnForms, EntriesAreChosenByPlaceOrByText) {
    struct {
        const char* Control;
        const char* Action;
        std::optional<int> Index;
        std::optional<std::string> Entry;
        int Chosen;
    } const cases[] = {
        {"lstAlgen", "set", 1, {}, 1},        {"lstAlgen", "set", {}, "Nostoc", 2},
        {"lstAlgen", "select", 0, {}, 0},     {"lstAlgen", "click", {}, "Öocystis", 1},
        {"cboGattung", "set", {}, "Ähre", 0}, {"cboGattung", "select", 1, {}, 1},
        {"cboGattung", "click", 0, {}, 0},    {"lvwArten", "set", {}, "Nostoc", 1},
        {"lvwArten", "click", 0, {}, 0},
    };
    for (const auto& c : cases) {
        auto action = On(c.Control, c.Action);
        action.Index = c.Index;
        action.Entry = c.Entry;
        const auto result = Act(action);
        EXPECT_TRUE(result.Taken) << result.Reason;
        EXPECT_EQ(result.Reason, "");
        const auto state = ReadForm("frmMuster");
        for (const auto& control : state.Controls) {
            if (control.Name == c.Control) {
                EXPECT_EQ(control.List->Index, c.Chosen) << c.Control << c.Action;
            }
        }
    }
}

TEST_F(ActOnForms, TextOfAComboIsTypedAsItIs) {
    auto action = On("cboGattung", "set");
    action.Text = "Öd";
    EXPECT_TRUE(Act(action).Taken);
    EXPECT_EQ(form->cboGattung.Text(), "Öd");
    EXPECT_EQ(form->cboGattung.ListIndex(), -1);
}

TEST_F(ActOnForms, EntryIsLookedForInTheListAsLeavingTheFormerFieldFillsIt) {
    form->SetFocus(form->txtName);
    form->txtName.OnLeave = [this] {
        form->lstAlgen.Items({"Ähre", "Nostoc"});
        return Leaving::Go;
    };
    auto action = On("lstAlgen", "set");
    action.Entry = "Nostoc";
    EXPECT_TRUE(Act(action).Taken);
    EXPECT_EQ(form->lstAlgen.ListIndex(), 1);
}

TEST_F(ActOnForms, WhatIsNotThereTakesNothing) {
    auto entry = On("lstAlgen", "set");
    entry.Index = 3;
    auto word = On("lstAlgen", "set");
    word.Entry = "Öd";
    auto tab = On("tabSeiten", "tab");
    tab.Index = 2;
    auto button = On("tbrLeiste", "toolbar");
    button.Position = 4;
    auto zero = On("tbrLeiste", "toolbar");
    zero.Position = 0;
    auto scroll = On("vsfgAlgenArt", "scroll");
    scroll.Position = 4;
    struct {
        FormAction Action;
        const char* Words;
    } const cases[] = {
        {entry, "lstAlgen has no entry 3"},
        {word, "lstAlgen has no entry 'Öd'"},
        {tab, "tabSeiten has no tab 2"},
        {button, "tbrLeiste has no position 4"},
        {zero, "tbrLeiste has no position 0"},
        {scroll, "vsfgAlgenArt has no row 4"},
        {OnCell("select", 4, 0), "no cell (4, 0)"},
        {OnCell("click", 0, 3), "no cell (0, 3)"},
        {OnCell("select", -1, 0), "no cell (-1, 0)"},
    };
    for (const auto& c : cases) {
        const auto result = Act(c.Action);
        EXPECT_FALSE(result.Taken) << c.Words;
        EXPECT_THAT(result.Reason, HasSubstr(c.Words));
    }
    EXPECT_EQ(form->lstAlgen.ListIndex(), -1);
    EXPECT_THAT(display_->Messages().TakeShown(), IsEmpty());
}

TEST_F(ActOnForms, CellsAreGoneToWrittenAndClosed) {
    std::vector<std::string> heard;
    form->vsfg.OnAfterEdit = [&](int row, int col) {
        heard.push_back(std::to_string(row) + "," + std::to_string(col));
    };
    auto text = OnCell("cell", 2, 0);
    text.Text = "Größe 2";
    EXPECT_TRUE(Act(text).Taken);
    auto check = OnCell("cell", 2, 1);
    check.Value = true;
    EXPECT_TRUE(Act(check).Taken);
    EXPECT_EQ(form->vsfg.Text(2, 0), "Größe 2");
    EXPECT_TRUE(form->vsfg.Checked(2, 1));
    EXPECT_THAT(heard, ElementsAre("2,0", "2,1"));
    EXPECT_FALSE(form->vsfg.IsEditing());
}

TEST_F(ActOnForms, CellThatRefusesIsNotTaken) {
    form->vsfg.OnValidateEdit = [](int, int, const std::string& text) { return text != "verboten"; };
    auto text = OnCell("cell", 1, 0);
    text.Text = "verboten";
    const auto result = Act(text);
    EXPECT_FALSE(result.Taken);
    EXPECT_NE(result.Reason, "");
    EXPECT_EQ(form->vsfg.Text(1, 0), "Größe");
}

TEST_F(ActOnForms, ClickAndDoubleClickHitTheCell) {
    std::vector<std::string> heard;
    form->vsfg.OnCellClick = [&](int row, int col) {
        heard.push_back("click " + std::to_string(row) + std::to_string(col));
    };
    form->vsfg.OnCellDblClick = [&](int row, int col) {
        heard.push_back("dblclick " + std::to_string(row) + std::to_string(col));
    };
    EXPECT_TRUE(Act(OnCell("click", 2, 0)).Taken);
    EXPECT_EQ(form->vsfg.Row(), 2);
    EXPECT_TRUE(Act(OnCell("dblclick", 1, 0)).Taken);
    EXPECT_THAT(heard, testing::Contains("click 20"));
    EXPECT_THAT(heard, testing::Contains("dblclick 10"));
}

TEST_F(ActOnForms, DoubleClickOnAListChoosesTheEntryFirst) {
    int chosen = -2;
    form->lstAlgen.OnDblClick = [&] { chosen = form->lstAlgen.ListIndex(); };
    auto action = On("lstAlgen", "dblclick");
    action.Entry = "Öocystis";
    EXPECT_TRUE(Act(action).Taken);
    EXPECT_EQ(chosen, 1);
}

TEST_F(ActOnForms, SelectMovesTheCursorOnly) {
    EXPECT_TRUE(Act(OnCell("select", 2, 0)).Taken);
    EXPECT_EQ(form->vsfg.Row(), 2);
    EXPECT_FALSE(form->vsfg.IsEditing());
    form->vsfg.OnBeforeRowLeave = [](int) { return false; };
    EXPECT_FALSE(Act(OnCell("select", 1, 0)).Taken);
    EXPECT_EQ(form->vsfg.Row(), 2);
}

TEST_F(ActOnForms, FocusIsGivenAndTakenAway) {
    int left = 0;
    form->txtName.OnLeave = [&] {
        ++left;
        return Leaving::Go;
    };
    EXPECT_TRUE(Act("enter", "txtName").Taken);
    EXPECT_EQ(form->Focus(), &form->txtName);
    const auto other = Act("leave", "cboGattung");
    EXPECT_FALSE(other.Taken);
    EXPECT_THAT(other.Reason, HasSubstr("cboGattung"));
    EXPECT_EQ(left, 0);
    EXPECT_TRUE(Act("leave", "txtName").Taken);
    EXPECT_EQ(form->Focus(), nullptr);
    EXPECT_TRUE(Act("enter", "txtName").Taken);
    EXPECT_TRUE(Act("leave", "").Taken);
    EXPECT_EQ(left, 2);
}

TEST_F(ActOnForms, FieldThatKeepsTheFocusRefusesTheAction) {
    int pressed = 0;
    form->cmdNeu.OnClick = [&] { ++pressed; };
    form->txtName.OnLeave = [] { return Leaving::Stay; };
    EXPECT_TRUE(Act("enter", "txtName").Taken);
    EXPECT_FALSE(Act("click", "cmdPrStelle(4)").Taken);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(form->Focus(), &form->txtName);
}

TEST_F(ActOnForms, TypingGoesIntoFieldsAndOpenCells) {
    auto text = On("txtName", "type");
    text.Text = "Öl";
    EXPECT_TRUE(Act(text).Taken);
    EXPECT_EQ(form->txtName.Text(), "Öl");
    EXPECT_TRUE(Act(OnCell("select", 1, 0)).Taken);
    ASSERT_TRUE(form->vsfg.StartEdit());
    auto cell = On("vsfgAlgenArt", "type");
    cell.Text = "ß";
    EXPECT_TRUE(Act(cell).Taken);
    EXPECT_THAT(form->vsfg.EditText(), HasSubstr("ß"));
    form->vsfg.CancelEdit();
}

TEST_F(ActOnForms, TabsToolbarsMenusAndScrollBars) {
    int pressed = 0;
    int chosen = 0;
    form->tabSeiten.Tab(1, {"0", "Bilder", "", true});
    form->tbrLeiste.OnButton = [&](int position) { pressed = position; };
    form->mnuAnsicht.OnClick = [&] { ++chosen; };
    auto tab = On("tabSeiten", "tab");
    tab.Index = 1;
    EXPECT_TRUE(Act(tab).Taken);
    EXPECT_EQ(form->tabSeiten.Current(), 1);
    auto button = On("tbrLeiste", "toolbar");
    button.Position = 1;
    EXPECT_TRUE(Act(button).Taken);
    EXPECT_EQ(pressed, 1);
    button.Position = 2;  // the separator
    EXPECT_FALSE(Act(button).Taken);
    EXPECT_TRUE(Act("menu", "mnuAnsicht").Taken);
    EXPECT_EQ(chosen, 1);
    auto scroll = On("scrBild", "scroll");
    scroll.Position = 4;
    EXPECT_TRUE(Act(scroll).Taken);
    EXPECT_EQ(form->scrBild.Value(), 4);
    auto rows = On("vsfgAlgenArt", "scroll");
    rows.Position = 2;
    EXPECT_TRUE(Act(rows).Taken);
    EXPECT_EQ(form->vsfg.TopRow(), 2);
}

TEST_F(ActOnForms, KeysGoToTheControlNamedOrToTheFocusedOne) {
    std::vector<std::string> heard;
    const auto listen = [&](const std::string& who) {
        return [&heard, who](const KeyPress& key) {
            heard.push_back(who + " " + (key.Ctrl ? "Ctrl+" : "") + (key.Shift ? "Shift+" : "") +
                            (key.Alt ? "Alt+" : "") + key.Name);
            return true;
        };
    };
    form->txtName.OnKey = listen("txtName");
    form->vsfg.OnKey = listen("vsfg");
    auto named = On("vsfgAlgenArt", "key");
    named.Text = "Delete";
    named.Shift = true;
    EXPECT_TRUE(Act(named).Taken);
    auto focused = On("", "key");
    focused.Text = "F12";
    focused.Ctrl = true;
    focused.Alt = true;
    EXPECT_TRUE(Act(focused).Taken);
    auto character = On("txtName", "key");
    character.Text = "ä";
    EXPECT_TRUE(Act(character).Taken);
    EXPECT_THAT(heard, ElementsAre("vsfg Shift+Delete", "vsfg Ctrl+Alt+F12", "txtName ä"));
}

TEST_F(ActOnForms, WindowComesToTheFrontGoesBehindAndCloses) {
    EXPECT_TRUE(Act("activate", "").Taken);
    EXPECT_EQ(form->Gespeichert, 0);
    EXPECT_TRUE(Act("deactivate", "").Taken);
    EXPECT_EQ(form->Gespeichert, 1);
    EXPECT_TRUE(Act("close", "").Taken);
    EXPECT_FALSE(form->IsOpen());
    EXPECT_THROW(Act("close", ""), Error);
}

TEST_F(ActOnForms, FailureInAHandlerIsABoxAndNoFailureOfTheAction) {
    form->cmdNeu.OnClick = [] { throw Error(ErrorNumber::UnknownTable, "Tabelle fehlt: Öl"); };
    EXPECT_TRUE(Act("click", "cmdPrStelle(4)").Taken);
    const auto shown = display_->Messages().TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].Title, "Gewässergüte");
    EXPECT_EQ(shown[0].Text, "3078 - Tabelle fehlt: Öl");
}

TEST_F(ActOnForms, NothingIsTakenWhileAHandlerRuns) {
    std::optional<ActionResult> inside;
    form->cmdNeu.OnClick = [&] { inside = Act("click", "chkSynonym"); };
    EXPECT_TRUE(Act("click", "cmdPrStelle(4)").Taken);
    ASSERT_TRUE(inside);
    EXPECT_FALSE(inside->Taken);
    EXPECT_NE(inside->Reason, "");
    EXPECT_FALSE(form->chkSynonym.Value());
}

// ---- wrong calls -----------------------------------------------------------------------------------

struct WrongAction {
    const char* Control;
    const char* Action;
    const char* Words;
};

void PrintTo(const WrongAction& action, std::ostream* out) {
    *out << action.Action << " on " << action.Control;
}

class WrongActions : public ActOnForms, public testing::WithParamInterface<WrongAction> {};

TEST_P(WrongActions, FailWithAReason) {
    try {
        Act(GetParam().Action, GetParam().Control);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
        EXPECT_THAT(error.Description(), HasSubstr(GetParam().Words));
    }
    EXPECT_THAT(display_->Messages().TakeShown(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    NotThere, WrongActions,
    testing::Values(WrongAction{"cmdÄhre", "click", "frmMuster has no control 'cmdÄhre'."},
                    WrongAction{"CMDPrStelle", "click", "no control 'CMDPrStelle', but cmdPrStelle(4)."},
                    WrongAction{"cmdZu", "streichle", "no action 'streichle'"},
                    WrongAction{"cmdZu", "", "no action ''"},
                    WrongAction{"cmdZu", "streichle", "There are click, dblclick, set,"},
                    WrongAction{"cmdZu", "Click", "no action 'Click'"}));

INSTANTIATE_TEST_SUITE_P(
    NeedsMore, WrongActions,
    testing::Values(
        WrongAction{"", "click", "needs a control for 'click'"},
        WrongAction{"vsfgAlgenArt", "click", "vsfgAlgenArt needs a row for 'click'"},
        WrongAction{"vsfgAlgenArt", "cell", "needs a row"},
        WrongAction{"vsfgAlgenArt", "select", "needs a row"},
        WrongAction{"lstAlgen", "click", "needs an index"}, WrongAction{"lstAlgen", "set", "needs an index"},
        WrongAction{"lvwArten", "dblclick", "needs an index"}, WrongAction{"txtName", "set", "needs a text"},
        WrongAction{"txtName", "type", "needs a text"}, WrongAction{"cboGattung", "set", "needs a text"},
        WrongAction{"chkSynonym", "set", "needs a value, true or false, for 'set'"},
        WrongAction{"tabSeiten", "tab", "needs an index"},
        WrongAction{"tbrLeiste", "toolbar", "needs a position"},
        WrongAction{"scrBild", "scroll", "needs a position"}, WrongAction{"txtName", "key", "needs a text"}));

INSTANTIATE_TEST_SUITE_P(
    OtherKind, WrongActions,
    testing::Values(
        WrongAction{"cmdZu", "set", "cmdZu is a CommandButton, and 'set' is nothing to do to that"},
        WrongAction{"lblGüte", "type", "is a Label"}, WrongAction{"txtName", "cell", "is a TextBox"},
        WrongAction{"txtName", "select", "is a TextBox"}, WrongAction{"cmdZu", "tab", "CommandButton"},
        WrongAction{"cmdZu", "toolbar", "CommandButton"}, WrongAction{"cmdZu", "menu", "CommandButton"},
        WrongAction{"cmdZu", "scroll", "CommandButton"},
        WrongAction{"cmdZu", "close", "takes no 'close': that is for the form as a whole"},
        WrongAction{"txtName", "deactivate", "takes no 'deactivate'"}));

TEST_F(ActOnForms, CheckCellsNeedAValueAndOthersAText) {
    auto text = OnCell("cell", 1, 1);
    text.Text = "ja";
    auto value = OnCell("cell", 1, 0);
    value.Value = true;
    for (const auto& action : {text, value}) EXPECT_THROW(Act(action), Error) << *action.Col;
}

TEST_F(ActOnForms, BooleansMayBeNumbers) {
    struct {
        const char* Text;
        bool Checked;
    } const cases[] = {{"1", true}, {"0", false}, {"-1", true}, {"0", false}};
    for (const auto& c : cases) {
        auto box = On("chkSynonym", "set");
        box.Text = c.Text;
        EXPECT_TRUE(Act(box).Taken);
        EXPECT_EQ(form->chkSynonym.Value(), c.Checked) << c.Text;
        auto cell = OnCell("cell", 2, 1);
        cell.Text = c.Text;
        EXPECT_TRUE(Act(cell).Taken);
        EXPECT_EQ(form->vsfg.Checked(2, 1), c.Checked) << c.Text;
    }
    auto other = On("chkSynonym", "set");
    other.Text = "2";
    EXPECT_THROW(Act(other), Error);
}

TEST_F(ActOnForms, TextOfAListIsItsEntry) {
    auto set = On("lstAlgen", "set");
    set.Text = "Öocystis";
    EXPECT_TRUE(Act(set).Taken);
    EXPECT_EQ(form->lstAlgen.ListIndex(), 1);
    auto select = On("cboGattung", "select");
    select.Text = "Nitzschia";
    EXPECT_TRUE(Act(select).Taken);
    EXPECT_EQ(form->cboGattung.ListIndex(), 1);
    select.Text = "Öd";
    const auto none = Act(select);
    EXPECT_FALSE(none.Taken);
    EXPECT_THAT(none.Reason, HasSubstr("cboGattung has no entry 'Öd'"));
    EXPECT_EQ(form->cboGattung.Text(), "Nitzschia");
}

TEST_F(ActOnForms, TypingWithoutAControlGoesToTheFocusedOne) {
    FormAction type;
    type.Action = "type";
    type.Text = "Öl";
    form->SetFocus(form->txtName);
    EXPECT_TRUE(Act(type).Taken);
    EXPECT_EQ(form->txtName.Text(), "Öl");
    EXPECT_TRUE(Act("leave", "").Taken);
    EXPECT_THROW(Act(type), Error);
}

TEST_F(ActOnForms, KeysAndTypingGoToTheCellThatIsGiven) {
    auto key = OnCell("key", 2, 1);
    key.Text = "Space";
    EXPECT_TRUE(Act(key).Taken);
    EXPECT_TRUE(form->vsfg.Checked(2, 1));
    auto type = OnCell("type", 1, 0);
    type.Text = "ß";
    EXPECT_TRUE(Act(type).Taken);
    EXPECT_EQ(form->vsfg.Row(), 1);
    EXPECT_EQ(form->vsfg.EditText(), "ß");
    key = OnCell("key", 4, 1);
    key.Text = "Space";
    EXPECT_FALSE(Act(key).Taken);
    form->vsfg.CancelEdit();
}

TEST_F(ActOnForms, GridsScrollToARow) {
    auto rows = OnCell("scroll", 2, 0);
    EXPECT_TRUE(Act(rows).Taken);
    EXPECT_EQ(form->vsfg.TopRow(), 2);
}

TEST_F(ActOnForms, HeldKeysMayStandInFront) {
    std::string heard;
    form->txtName.OnKey = [&](const KeyPress& key) {
        heard = std::string(key.Ctrl ? "Ctrl " : "") + (key.Shift ? "Shift " : "") + key.Name;
        return true;
    };
    auto key = On("txtName", "key");
    key.Text = "shift+return";
    EXPECT_TRUE(Act(key).Taken);
    EXPECT_EQ(heard, "Shift Enter");
    key.Ctrl = true;
    EXPECT_TRUE(Act(key).Taken);
    EXPECT_EQ(heard, "Ctrl Shift Enter");
}

TEST_F(ActOnForms, UnknownKeysFail) {
    for (const auto* name : {"Entr", "", "F13", "ab", "äö", "Umschalt+Enter"}) {
        auto action = On("txtName", "key");
        action.Text = name;
        EXPECT_THROW(Act(action), Error) << name;
    }
    EXPECT_EQ(form->txtName.Text(), "");
}

TEST_F(ActOnForms, FormThatIsNotOpenFailsAndNamesThoseThatAre) {
    const auto said = [](const auto& what) {
        try {
            what();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
            return error.Description();
        }
        return std::string();
    };
    const auto act = [] { ActOnForm("frmÄhre", On("", "close")); };
    const auto read = [] { ReadForm("frmÄhre"); };
    EXPECT_EQ(said(act), "No form 'frmÄhre' is open; open: frmMuster.");
    EXPECT_EQ(said(read), "No form 'frmÄhre' is open; open: frmMuster.");
    form->Close();
    EXPECT_EQ(said(act), "No form 'frmÄhre' is open.");
}

}  // namespace
}  // namespace FX_Algen::controls::test
