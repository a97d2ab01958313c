#include "fxalgen/automate/AutomateForms.h"

#include <gmock/gmock.h>

#include "Conversation.h"
#include "DemoFixture.h"
#include "FX_Algen/Texts.h"
#include "SampleEntry.h"

namespace FX_Algen::cli {
namespace {

using rpc::Json;
using testing::HasSubstr;

// ---- how a form is told --------------------------------------------------------------------------------

FormState Empty() {
    FormState state;
    state.Form.Name = "frmGewässer";
    state.Form.Caption = "Algen - Probenstelle";
    state.Form.Visible = true;
    return state;
}

/// The control as it is answered.
Json Told(const ControlState& control) {
    auto state = Empty();
    state.Controls.push_back(control);
    return rpc::ToJson(state)["controls"].at(0);
}

ControlState Named(const std::string& name, const std::string& kind) {
    ControlState control;
    control.Name = name;
    control.Kind = kind;
    return control;
}

TEST(AutomateFormState, WindowWithoutParentAndFocus) {
    EXPECT_EQ(rpc::ToJson(Empty()).dump(),
              R"({"form":"frmGewässer","caption":"Algen - Probenstelle","visible":true,)"
              R"("parent":null,"focus":null,"controls":[]})");
}

TEST(AutomateFormState, ChildWithAFocusedControl) {
    auto state = Empty();
    state.Form.Parent = "frmProbenstelle";
    state.Focus = "cmdPrStelle(4)";
    const auto told = rpc::ToJson(state);
    EXPECT_EQ(told["parent"], "frmProbenstelle");
    EXPECT_EQ(told["focus"], "cmdPrStelle(4)");
}

TEST(AutomateFormState, ControlHasTheMembersOfItsKindOnly) {
    auto button = Named("cmdArtNeu", "CommandButton");
    button.Caption = "Einfügen";
    button.ToolTipText = "Größe";
    EXPECT_EQ(Told(button).dump(),
              R"({"name":"cmdArtNeu","kind":"CommandButton","caption":"Einfügen","tooltip":"Größe",)"
              R"("enabled":true,"locked":false,"visible":true})");
    auto text = Named("txtPSBez", "TextBox");
    text.Text = "Ufer";
    text.Locked = true;
    text.Visible = false;
    EXPECT_EQ(Told(text).dump(),
              R"({"name":"txtPSBez","kind":"TextBox","caption":"","tooltip":"","text":"Ufer",)"
              R"("enabled":true,"locked":true,"visible":false})");
    auto check = Named("chkSynonym", "CheckBox");
    check.Value = false;
    EXPECT_EQ(Told(check)["value"], false);
    EXPECT_FALSE(Told(check).contains("text"));
}

TEST(AutomateFormState, ListTabsToolbarAndScrollBar) {
    auto combo = Named("cboArt", "ComboBox");
    combo.Text = "größer";
    combo.List = ListState{{"größer", "zonata"}, 0};
    EXPECT_EQ(Told(combo)["entries"], (Json{"größer", "zonata"}));
    EXPECT_EQ(Told(combo)["index"], 0);
    EXPECT_FALSE(Told(combo).contains("buttons"));

    auto tabs = Named("tabSeiten", "TabStrip");
    tabs.Tab = 1;
    tabs.Parts = {{"Güte", "Klasse", true}, {"Bilder", "", false}};
    EXPECT_EQ(Told(tabs)["tab"], 1);
    EXPECT_EQ(Told(tabs)["tabs"].dump(), R"([{"caption":"Güte","tooltip":"Klasse","enabled":true},)"
                                         R"({"caption":"Bilder","tooltip":"","enabled":false}])");

    auto toolbar = Named("tbr", "Toolbar");
    toolbar.Parts = {{"neu", "Neu", true}};
    EXPECT_EQ(Told(toolbar)["buttons"].size(), 1U);
    EXPECT_FALSE(Told(toolbar).contains("tabs"));

    auto view = Named("lvw", "ListView");
    view.List = ListState{{"Ulothrix\tzonata"}, -1};
    view.Parts = {{"Gattung", "", true}, {"Art", "", true}};
    EXPECT_EQ(Told(view)["heads"].size(), 2U);
    EXPECT_EQ(Told(view)["entries"], Json::array({"Ulothrix\tzonata"}));

    auto bar = Named("scr", "ScrollBar");
    bar.Scroll = 40;
    EXPECT_EQ(Told(bar)["scroll"], 40);
    EXPECT_EQ(Told(bar)["value"], 40);
}

TEST(AutomateFormState, GridTellsCellsColoursAndWhatIsHidden) {
    auto control = Named("vsfgAlgenArt", "Grid");
    GridState grid;
    grid.Rows = 7;
    grid.Cols = 2;
    grid.FixedRows = 3;
    grid.FixedCols = 1;
    grid.Row = 4;
    grid.Col = 1;
    grid.TopRow = 3;
    grid.Editable = true;
    grid.FirstRow = 4;
    grid.Cells = {{{"Größe", {}, 0xFFC0C0U}, {"", true, {}}}, {{"", {}, {}}, {"", false, 0x00000AU}}};
    grid.HiddenRows = {2};
    grid.HiddenCols = {1};
    grid.RuledRows = {5};
    control.Grid = grid;
    const std::string common =
        R"({"name":"vsfgAlgenArt","kind":"Grid","caption":"","tooltip":"","enabled":true,"locked":false,)"
        R"("visible":true,"rows":7,"cols":2,"fixedRows":3,"fixedCols":1,)"
        R"("cells":[["Größe",true],["",false]],"firstRow":4,"row":4,"col":1,"topRow":3,"editable":true,)";
    const std::string end = R"("hiddenRows":[2],"hiddenCols":[1],)"
                            // Rows of colours count like those of the grid, not like those of the answer.
                            R"("colours":[[4,0,"#FFC0C0"],[5,1,"#00000A"]],"rules":[5]})";
    EXPECT_EQ(Told(control).dump(), common + end);
    control.Grid->EditText = "12,";
    EXPECT_EQ(Told(control).dump(), common + R"("editText":"12,",)" + end);
}

// ---- requests ------------------------------------------------------------------------------------------

TEST(AutomateForms, NothingIsOpenAtTheBeginning) {
    OwnDialogue talk;
    EXPECT_EQ(talk.Result("form.list"), Json::array());
}

struct WrongFormRequest {
    std::string method;
    Json params;
    std::string words;
};

void PrintTo(const WrongFormRequest& request, std::ostream* out) {
    *out << request.method << request.params.dump();
}

class WrongFormRequests : public testing::TestWithParam<WrongFormRequest> {};

TEST_P(WrongFormRequests, AreWrongParametersWithAReason) {
    OwnDialogue talk;
    const auto answer = talk.Ask(GetParam().method, GetParam().params);
    EXPECT_EQ(CodeOf(answer), -32602) << answer;
    EXPECT_THAT(MessageOf(answer), HasSubstr(GetParam().words));
}

INSTANTIATE_TEST_SUITE_P(
    State, WrongFormRequests,
    testing::Values(WrongFormRequest{"form.list", {{"form", "x"}}, "no parameter 'form'"},
                    WrongFormRequest{"form.state", Json::object(), "'form' is missing"},
                    WrongFormRequest{"form.state", {{"form", 1}}, "form: a text"},
                    WrongFormRequest{"form.state", {{"form", "frmÄhre"}}, "No form 'frmÄhre' is open"},
                    WrongFormRequest{
                        "form.state", {{"form", "x"}, {"rows", 3}}, "rows: a list of the first and the last"},
                    WrongFormRequest{"form.state", {{"form", "x"}, {"rows", {1}}}, "rows: a list"},
                    WrongFormRequest{
                        "form.state", {{"form", "x"}, {"rows", {1, "2"}}}, "rows: a 32-bit integer"}));

INSTANTIATE_TEST_SUITE_P(
    Act, WrongFormRequests,
    testing::Values(
        WrongFormRequest{"form.act", {{"form", "x"}}, "'action' is missing"},
        WrongFormRequest{"form.act", {{"action", "close"}}, "'form' is missing"},
        WrongFormRequest{"form.act", {{"form", "frmÄhre"}, {"action", "close"}}, "No form 'frmÄhre' is open"},
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", 1}}, "action: a text"},
        WrongFormRequest{
            "form.act", {{"form", "x"}, {"action", "set"}, {"größe", 1}}, "no parameter 'größe'"},
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", "set"}, {"control", 4}}, "control: a text"},
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", "set"}, {"text", true}}, "text: a text"},
        WrongFormRequest{"form.act",
                         {{"form", "x"}, {"action", "set"}, {"value", Json::array()}},
                         "value: a text, a number"},
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", "set"}, {"entry", true}}, "entry: a 32-bit"},
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", "cell"}, {"row", "3"}}, "row: a 32-bit"},
        WrongFormRequest{
            "form.act", {{"form", "x"}, {"action", "key"}, {"shift", 1}}, "shift: true or false"},
        WrongFormRequest{"form.act",
                         {{"form", "x"}, {"action", "set"}, {"text", "a"}, {"value", 1}},
                         "'text' and 'value' exclude each other"},
        WrongFormRequest{"form.act",
                         {{"form", "x"}, {"action", "set"}, {"index", 1}, {"entry", 1}},
                         "'entry' and 'index' exclude each other"},
        WrongFormRequest{"form.act",
                         {{"form", "x"}, {"action", "key"}, {"key", "F1"}, {"text", "F2"}},
                         "'text' and 'key' exclude each other"}));

TEST(AutomateForms, IntegerBeyondItsRangeIsAnOverflow) {
    OwnDialogue talk;
    const auto answer =
        talk.Ask("form.act", {{"form", "x"}, {"action", "cell"}, {"row", 3000000000}, {"col", 1}});
    EXPECT_EQ(CodeOf(answer), 6) << answer;
}

// ---- on the sheets -------------------------------------------------------------------------------------

constexpr const char* Sheet = "frmProbenstelle";

/// Sub-habitat 2 of the demo: four taxa, no mixed stand; the first is in row 3, below two heads and a hidden
/// row. Its columns are 8 and 9 for cover and thickness of macroalgae and 10 for valves.
class AutomateSheets : public DemoFixture {
protected:
    void SetUp() override {
        DemoFixture::SetUp();
        entry_.OpenAlgae(path_, 2, "");
    }

    /// The first request of the session opened the database, so it has number 1.
    std::string Stored(const std::string& sql) {
        return talk_.Result("database.query", {{"database", 1}, {"sql", sql}})["rows"].dump();
    }
    Json Cell(int row, int col, const char* kind, const Json& value) const {
        return {{"row", row}, {"col", col}, {kind, value}};
    }
    std::string Covers() {
        return Stored("SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=2 AND ID_ART=" + FirstTaxon() + ";");
    }
    std::string FirstTaxon() { return entry_.Taxa()["cells"][3][1].get<std::string>(); }

    OwnDialogue talk_;
    SampleEntry entry_{talk_, Language::German};
};

TEST_F(AutomateSheets, ShownSheetIsListed) {
    EXPECT_EQ(
        talk_.Result("form.list").dump(),
        R"([{"form":"frmProbenstelle","caption":"Algen - Probenstelle","visible":true,"parent":null}])");
}

TEST_F(AutomateSheets, PickerIsAChildOfItsSheet) {
    entry_.Act("cmdArtNeu", "click");
    const auto open = talk_.Result("form.list");
    ASSERT_EQ(open.size(), 2U) << open;
    EXPECT_EQ(open[1]["form"], "frmArtAuswahl");
    EXPECT_EQ(open[1]["parent"], Sheet);
    // Closing the sheet takes the picker with it.
    entry_.CloseSheet();
}

TEST_F(AutomateSheets, StateTellsTheRowsAskedFor) {
    const auto state = talk_.Result("form.state", {{"form", Sheet}, {"rows", {3, 4}}});
    for (const auto& control : state["controls"]) {
        if (control["name"] != "vsfgAlgenArt") continue;
        EXPECT_EQ(control["firstRow"], 3);
        EXPECT_EQ(control["cells"].size(), 2U);
        EXPECT_EQ(control["cells"][0][4], false);
        EXPECT_EQ(control["hiddenRows"], Json::array({2}));
        return;
    }
    FAIL() << state;
}

TEST_F(AutomateSheets, FieldsTakeTextsAndNumbers) {
    struct {
        const char* Kind;
        Json Value;
        const char* Stored;
    } const cases[] = {
        {"text", "66,5", "[[66.5]]"},  {"text", "66.25", "[[66.25]]"}, {"value", 67, "[[67.0]]"},
        {"text", 66, "[[66.0]]"},      {"text", 66.5, "[[66.5]]"},     {"value", 12.5, "[[12.5]]"},
        {"value", "13,5", "[[13.5]]"}, {"value", 5e1, "[[50.0]]"},     {"value", 1e-5, "[[1e-05]]"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(talk_.Act(Sheet, "txtAlgenGesamt", "set", {{c.Kind, c.Value}}));
        EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "enter"));
        EXPECT_EQ(Stored("SELECT DG_Algengesamt FROM awaTeilraum WHERE ID_TR=2;"), c.Stored) << c.Value;
    }
}

TEST_F(AutomateSheets, ReturningFieldTakesTheAnswerOfAnImportByAHost) {
    const auto taxa = entry_.Taxa()["rows"].get<int>();
    talk_.Result("database.execute", {{"database", 1},
                                      {"sql", "INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES (2," +
                                                  FirstTaxon() + ",-1);"}});
    EXPECT_TRUE(talk_.Act(Sheet, "txtReturn", "set", {{"text", "0"}}));
    EXPECT_EQ(entry_.Taxa()["rows"], taxa);
    EXPECT_TRUE(talk_.Act(Sheet, "txtReturn", "set", {{"text", "1"}}));
    EXPECT_EQ(entry_.Taxa()["rows"], taxa + 1);
    // Other hidden fields are nobody's to write.
    EXPECT_FALSE(talk_.Act(Sheet, "txtID_PS", "set", {{"text", "1"}}));
}

TEST_F(AutomateSheets, FieldThatKeepsTheFocusSaysSoWithABox) {
    EXPECT_TRUE(talk_.Act(Sheet, "txtDG_Gesamt", "set", {{"text", "viel"}}));
    EXPECT_FALSE(talk_.Act(Sheet, "cmdArtNeu", "click"));
    EXPECT_NE(talk_.Reason(), "");
    EXPECT_EQ(talk_.Result("form.state", {{"form", Sheet}})["focus"], "txtDG_Gesamt");
    const auto shown = talk_.Result("dialog.shown");
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.back()["text"], "Bitte geben Sie einen Zahlenwert ein!");
    EXPECT_EQ(talk_.Result("form.list").size(), 1U);
    EXPECT_TRUE(talk_.Act(Sheet, "txtDG_Gesamt", "set", {{"text", "67"}}));
}

TEST_F(AutomateSheets, CellThatIsRefusedIsNotTaken) {
    // Row 3 is a macroalga, which has no valves.
    EXPECT_FALSE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 10, "value", 7)));
    EXPECT_NE(talk_.Reason(), "");
    const auto shown = talk_.Result("dialog.shown");
    ASSERT_EQ(shown.size(), 1U) << shown;
    EXPECT_EQ(shown[0]["text"], Text(2093, Language::German));
    EXPECT_EQ(entry_.Taxa()["cells"][3][10], "");
}

TEST_F(AutomateSheets, CheckMarksTakeNumbersAsBooleans) {
    const auto marked = [this] { return entry_.Taxa()["cells"][3][4]; };
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 4, "value", 1)));
    EXPECT_EQ(marked(), true);
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 4, "value", 0)));
    EXPECT_EQ(marked(), false);
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 4, "value", -1)));
    EXPECT_EQ(marked(), true);
}

TEST_F(AutomateSheets, ListOfTaxaScrollsToARow) {
    for (const auto* kind : {"position", "row", "value"}) {
        EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "scroll", {{"position", 3}}));
        EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "scroll", {{kind, 5}}));
        EXPECT_EQ(entry_.Taxa()["topRow"], 5) << kind;
    }
}

TEST_F(AutomateSheets, AnswersGoByAnyCase) {
    talk_.Result("dialog.answers", {{"answers", {"yes"}}});
    const auto taxa = entry_.Taxa()["rows"].get<int>();
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "key", {{"key", "delete"}, {"row", 4}, {"col", 10}}));
    EXPECT_EQ(entry_.Taxa()["rows"], taxa - 1);
}

TEST_F(AutomateSheets, KeysMoveTheCursorAndSaveTheRow) {
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 8, "value", 3.5)));
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "key", {{"key", "Down"}}));
    EXPECT_EQ(entry_.Row(), 4);
    EXPECT_EQ(Covers(), "[[3.5]]");
    EXPECT_EQ(
        CodeOf(talk_.Ask(
            "form.act", {{"form", Sheet}, {"control", "vsfgAlgenArt"}, {"action", "key"}, {"key", "Hinab"}})),
        -32602);
}

TEST_F(AutomateSheets, HeldKeysAreHeld) {
    // End stays in its row, Ctrl+End goes to the last one.
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "key", Cell(3, 8, "key", "End")));
    EXPECT_EQ(entry_.Row(), 3);
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "key", {{"key", "End"}, {"ctrl", true}}));
    EXPECT_EQ(entry_.Row(), entry_.Taxa()["rows"].get<int>() - 1);
    // Alt with an arrow is no move.
    EXPECT_FALSE(talk_.Act(Sheet, "vsfgAlgenArt", "key", {{"key", "Up"}, {"alt", true}}));
    // Enter alone would open the picker.
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 8, "value", 3.5)));
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "key", {{"key", "Enter"}, {"shift", true}}));
    EXPECT_EQ(Covers(), "[[3.5]]");
    EXPECT_EQ(talk_.Result("form.list").size(), 1U);
}

TEST_F(AutomateSheets, EntriesAreChosenByTextOrPlace) {
    entry_.Act("cmdArtNeu", "click");
    const auto entries = talk_.Control("frmArtAuswahl", "cboGattung")["entries"];
    ASSERT_GT(entries.size(), 5U);
    struct {
        const char* Action;
        Json More;
        int Chosen;
    } const cases[] = {
        {"set", {{"entry", 3}}, 3},
        {"set", {{"index", 1}}, 1},
        {"set", {{"entry", entries[4]}}, 4},
        {"select", {{"text", entries[2]}}, 2},
        {"select", {{"value", entries[5]}}, 5},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(talk_.Act("frmArtAuswahl", "cboGattung", c.Action, c.More)) << talk_.Reason();
        EXPECT_EQ(talk_.Control("frmArtAuswahl", "cboGattung")["index"], c.Chosen) << c.More;
    }
}

TEST_F(AutomateSheets, ClosingTheDatabaseClosesTheFormsThatCanSave) {
    talk_.Result("object.set", {{"object", 1}, {"members", {{"TeilraumID", 25}}}});
    talk_.Result("object.call", {{"object", 1}, {"operation", "ProbenstelleSeston_Show"}});
    ASSERT_EQ(talk_.Result("form.list").size(), 2U);
    EXPECT_TRUE(talk_.Act("frmProbenstelleSeston", "vsfgAlgenArt", "cell", Cell(1, 6, "text", "Blüte")));
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 8, "value", 3.5)));
    talk_.Result("database.execute",
                 {{"database", 1}, {"sql", "DELETE * FROM awaArtPrStelle WHERE ID_PS=2;"}});
    const auto refused = talk_.Ask("database.close", {{"database", 1}});
    EXPECT_EQ(CodeOf(refused), -32000) << refused;
    EXPECT_THAT(MessageOf(refused), HasSubstr("in frmProbenstelle could"));
    const auto open = talk_.Result("form.list");
    ASSERT_EQ(open.size(), 1U) << open;
    EXPECT_EQ(open[0]["form"], Sheet);
    EXPECT_EQ(Stored("SELECT Zusatz FROM sesArtPrStelle WHERE Zusatz='Blüte';"), R"([["Blüte"]])");
}

TEST_F(AutomateSheets, KeyboardAloneEntersAFinding) {
    const auto key = [this](const char* form, const char* name) {
        EXPECT_TRUE(talk_.Act(form, "", "key", {{"key", name}})) << form << " " << name << talk_.Reason();
    };
    const auto type = [this](const char* form, const char* control, const char* text) {
        EXPECT_TRUE(talk_.Act(form, control, "type", {{"text", text}})) << text << talk_.Reason();
    };
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "enter"));
    key(Sheet, "Enter");
    EXPECT_TRUE(talk_.Act("frmArtAuswahl", "cboGattung", "enter"));
    type("frmArtAuswahl", "cboGattung", "nitz");
    EXPECT_EQ(talk_.Control("frmArtAuswahl", "cboGattung")["text"], "Nitzschia");
    key("frmArtAuswahl", "Tab");
    type("frmArtAuswahl", "cboArt", "pal");
    EXPECT_EQ(talk_.Control("frmArtAuswahl", "cboArt")["text"], "palea");
    key("frmArtAuswahl", "Enter");
    EXPECT_EQ(talk_.Result("form.list").size(), 1U);
    // A diatom: the cursor waits in the column of the valves.
    const auto taxa = entry_.Taxa();
    EXPECT_EQ(taxa["col"], 10);
    const auto& row = taxa["cells"][taxa["row"].get<std::size_t>()];
    EXPECT_EQ(row[2], "Nitzschia");
    EXPECT_EQ(row[3], "palea");
    type(Sheet, "vsfgAlgenArt", "12");
    key(Sheet, "Up");
    EXPECT_EQ(Stored("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_PS=2 AND ID_ART=" +
                     row[1].get<std::string>() + ";"),
              "[[12]]");
    EXPECT_EQ(talk_.Result("dialog.shown"), Json::array());
}

TEST_F(AutomateSheets, WrongNamesAreWrongParameters) {
    const auto control =
        talk_.Ask("form.act", {{"form", Sheet}, {"control", "cmdÄhre"}, {"action", "click"}});
    EXPECT_EQ(CodeOf(control), -32602);
    EXPECT_THAT(MessageOf(control), HasSubstr("cmdÄhre"));
    EXPECT_EQ(CodeOf(talk_.Ask("form.act", {{"form", Sheet}, {"control", "cmdArtNeu"}, {"action", "klick"}})),
              -32602);
    EXPECT_EQ(CodeOf(talk_.Ask("form.state", {{"form", Sheet}, {"rows", {4, 3}}})), -32602);
}

TEST_F(AutomateSheets, ParametersMayBeAListInOrder) {
    EXPECT_EQ(talk_.Result("form.act", Json::array({Sheet, "txtAlgenGesamt", "set", "66"})),
              (Json{{"taken", true}}));
    EXPECT_EQ(talk_.Control(Sheet, "txtAlgenGesamt")["text"], "66");
}

TEST_F(AutomateSheets, WhatIsNullWasLeftOut) {
    // form, control, action, text, value, entry, row, col
    EXPECT_EQ(
        talk_.Result("form.act", Json::array({Sheet, "vsfgAlgenArt", "cell", nullptr, 3.5, nullptr, 3, 8})),
        (Json{{"taken", true}}));
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "leave"));
    EXPECT_EQ(Covers(), "[[3.5]]");
    const auto state = talk_.Result("form.state", {{"form", Sheet}, {"rows", nullptr}});
    EXPECT_FALSE(state["controls"].empty());
    // What a method needs cannot be left out.
    EXPECT_EQ(CodeOf(talk_.Ask("form.state", {{"form", nullptr}})), -32602);
}

TEST_F(AutomateSheets, ClosingTheDatabaseSavesAndClosesItsSheet) {
    const auto taxon = FirstTaxon();
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 8, "value", 3.5)));
    talk_.Result("database.close", {{"database", 1}});
    EXPECT_EQ(talk_.Result("form.list"), Json::array());
    const auto rows =
        Open()->OpenRecordset("SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=2 AND ID_ART=" + taxon + ";");
    EXPECT_EQ((*rows)["DG_MA"].Text(), "3.5");
}

TEST_F(AutomateSheets, ClosingAnotherDatabaseLeavesTheSheetOpen) {
    const auto other = talk_.Result("database.open", {{"path", path_}})["database"];
    talk_.Result("database.close", {{"database", other}});
    EXPECT_EQ(talk_.Result("form.list").size(), 1U);
}

TEST_F(AutomateSheets, DatabaseStaysOpenWhereItsSheetCannotSave) {
    EXPECT_TRUE(talk_.Act(Sheet, "vsfgAlgenArt", "cell", Cell(3, 8, "value", 3.5)));
    // Somebody else takes the findings away.
    talk_.Result("database.execute",
                 {{"database", 1}, {"sql", "DELETE * FROM awaArtPrStelle WHERE ID_PS=2;"}});
    const auto refused = talk_.Ask("database.close", {{"database", 1}});
    EXPECT_EQ(CodeOf(refused), -32000) << refused;
    EXPECT_THAT(MessageOf(refused), HasSubstr("frmProbenstelle"));
    EXPECT_EQ(talk_.Result("form.list").size(), 1U);
    EXPECT_EQ(Stored("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=2;"), "[[2]]");
    const auto shown = talk_.Result("dialog.shown");
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.back()["kind"], "question");
    EXPECT_EQ(shown.back()["answer"], "No");
    // Who says so closes it without.
    talk_.Result("dialog.answers", {{"answers", {"Yes"}}});
    talk_.Result("database.close", {{"database", 1}});
    EXPECT_EQ(talk_.Result("form.list"), Json::array());
}

TEST_F(AutomateSheets, NoSheetOutlivesItsSession) {
    {
        OwnDialogue other;
        EXPECT_EQ(other.Result("form.list").size(), 1U) << "forms belong to the thread";
    }
    EXPECT_EQ(talk_.Result("form.list"), Json::array());
}

/// A whole run of the bridge, its requests as lines.
class AutomateEnds : public DemoFixture {
protected:
    Outcome RunWith(const std::vector<std::pair<std::string, Json>>& more) const {
        std::vector<std::pair<std::string, Json>> requests{
            {"database.open", {{"path", path_}}},
            {"object.create", {{"class", "AL_PS"}}},
            {"object.set",
             {{"object", 1},
              {"members",
               {{"CurrentDB", {{"database", 1}}}, {"DBName", path_}, {"TeilraumID", 2}, {"CanEdit", true}}}}},
            {"object.call", {{"object", 1}, {"operation", "Probenstelle_Show"}}},
            {"form.act",
             {{"form", Sheet},
              {"control", "vsfgAlgenArt"},
              {"action", "cell"},
              {"row", 3},
              {"col", 8},
              {"value", 3.5}}}};
        requests.insert(requests.end(), more.begin(), more.end());
        std::string lines;
        for (const auto& [method, params] : requests)
            lines +=
                Json{{"jsonrpc", "2.0"}, {"id", 1}, {"method", method}, {"params", params}}.dump() + "\n";
        std::istringstream in(lines);
        std::ostringstream out;
        std::ostringstream err;
        const int code = Automate(in, out, err);
        EXPECT_THAT(out.str(), HasSubstr("{\"taken\":true}"));
        return {code, out.str(), err.str()};
    }
};

TEST_F(AutomateEnds, SavesWhatWasTypedLast) {
    const auto outcome = RunWith({});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "");
    const auto rows = Open()->OpenRecordset("SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=2 AND DG_MA=3.5;");
    EXPECT_EQ(rows->RecordCount(), 1);
    EXPECT_TRUE(OpenForms().empty());
}

TEST_F(AutomateEnds, FailsWhereWhatWasTypedLastCannotBeSaved) {
    const auto outcome = RunWith(
        {{"database.execute", {{"database", 1}, {"sql", "DELETE * FROM awaArtPrStelle WHERE ID_PS=2;"}}}});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "fxalgen automate: what was typed last in frmProbenstelle could not be saved.\n");
    EXPECT_TRUE(OpenForms().empty());
}

}  // namespace
}  // namespace FX_Algen::cli
