#include "fxalgen/automate/AutomateForms.h"

#include <gmock/gmock.h>

#include "Conversation.h"
#include "Dialogue.h"

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
        WrongFormRequest{"form.act", {{"form", "x"}, {"action", "set"}, {"text", 4}}, "text: a text"},
        WrongFormRequest{
            "form.act", {{"form", "x"}, {"action", "set"}, {"value", nullptr}}, "value: a text, a number"},
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

}  // namespace
}  // namespace FX_Algen::cli
