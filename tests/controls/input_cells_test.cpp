#include <gmock/gmock.h>

#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A grid with a head, a fixed column, and in three rows: a hidden column, a text, a check mark, a number.
class InputCells : public Formtest {
protected:
    static constexpr int hidden = 1, name = 2, cf = 3, cover = 4;
    InputCells() {
        grid.Cols(5);
        grid.Rows(4);
        grid.Fixed(1, 1);
        grid.ColWidth(hidden, 1);
        grid.ColKind(cf, CellKind::Check);
        grid.ColKind(cover, CellKind::Number);
        grid.Text(1, name, "Öd");
        grid.Text(1, cover, "12");
        grid.Text(2, cover, "3");
        grid.Editable(Editing::KeyboardAndMouse);
        grid.Select(1, name);
        grid.OnBeforeRowLeave = [this](int row) {
            Log("row " + std::to_string(row));
            return rowLets;
        };
        grid.OnAfterEdit = [this](int row, int col) {
            Log("edited " + std::to_string(row) + "," + std::to_string(col) + " " +
                (col == cf ? (grid.Checked(row, col) ? "x" : "-") : grid.Text(row, col)));
        };
    }
    std::pair<int, int> Cursor() const { return {grid.Row(), grid.Col()}; }

    bool rowLets = true;
    Grid& grid = form->Add<Grid>("vsfgAlgenArt");
    TextBox& text = form->Add<TextBox>("txtFrei");
};

using Cell = std::pair<int, int>;

TEST_F(InputCells, EditingGoesToTheCellWritesAndEndsTheEdit) {
    EXPECT_TRUE(input.EditCell(grid, 2, cover, "37,5"));
    EXPECT_EQ(grid.Text(2, cover), "37,5");
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(Cursor(), Cell(2, cover));
    EXPECT_EQ(form->Focus(), &grid);
    EXPECT_THAT(Logged(), ElementsAre("row 1", "edited 2,4 37,5"));
}

struct RefusedEdit {
    std::string why;
    std::function<void(Grid&, TextBox&)> prepare;
    int row, col;
    std::string reason;
};

class RefusedEdits : public InputCells, public testing::WithParamInterface<RefusedEdit> {};

TEST_P(RefusedEdits, AreNotTakenAndSayWhy) {
    GetParam().prepare(grid, text);
    if (text.OnLeave) input.Enter(text);
    const auto taken = input.EditCell(grid, GetParam().row, GetParam().col, "99");
    EXPECT_FALSE(taken) << GetParam().why;
    EXPECT_THAT(taken.Reason, HasSubstr(GetParam().reason));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Text(1, 4), "12");
    EXPECT_EQ(grid.Text(2, 4), "3");
}

INSTANTIATE_TEST_SUITE_P(
    Steps, RefusedEdits,
    testing::Values(
        RefusedEdit{"no such row", [](Grid&, TextBox&) {}, 4, 4, "lacks the cell (4, 4)"},
        RefusedEdit{"no such column", [](Grid&, TextBox&) {}, 2, 5, "lacks the cell (2, 5)"},
        RefusedEdit{"before the first", [](Grid&, TextBox&) {}, -1, 4, "lacks"},
        RefusedEdit{"head", [](Grid&, TextBox&) {}, 0, 4, "fixed"},
        RefusedEdit{"hidden column", [](Grid&, TextBox&) {}, 2, 1, "hides the cell (2, 1)"},
        RefusedEdit{"hidden row", [](Grid& g, TextBox&) { g.RowHidden(2, true); }, 2, 4, "hides"},
        RefusedEdit{"check mark", [](Grid&, TextBox&) {}, 2, 3, "check mark"},
        RefusedEdit{"not editable", [](Grid& g, TextBox&) { g.Editable(Editing::None); }, 2, 4, "edited"},
        RefusedEdit{"disabled", [](Grid& g, TextBox&) { g.Enabled(false); }, 2, 4, "disabled"},
        RefusedEdit{"row stays", [](Grid& g, TextBox&) { g.OnBeforeRowLeave = [](int) { return false; }; }, 2,
                    4, "keeps its cursor"},
        RefusedEdit{"does not open",
                    [](Grid& g, TextBox&) { g.OnBeforeEdit = [](int, int) { return false; }; }, 2, 4,
                    "does not open"},
        RefusedEdit{
            "text refused",
            [](Grid& g, TextBox&) { g.OnValidateEdit = [](int, int, const std::string&) { return false; }; },
            2, 4, "refuses what was typed"},
        RefusedEdit{"field stays",
                    [](Grid&, TextBox& field) { field.OnLeave = [] { return Leaving::Stay; }; }, 2, 4,
                    "txtFrei"}));

TEST_F(InputCells, CheckCellsFlipOnlyWhereTheyDiffer) {
    EXPECT_TRUE(input.CheckCell(grid, 1, cf, true));
    EXPECT_TRUE(input.CheckCell(grid, 1, cf, true));
    EXPECT_TRUE(grid.Checked(1, cf));
    EXPECT_THAT(Logged(), ElementsAre("edited 1,3 x"));
    EXPECT_FALSE(input.CheckCell(grid, 1, name, true));
    grid.OnBeforeEdit = [](int, int) { return false; };
    EXPECT_FALSE(input.CheckCell(grid, 1, cf, false));
    grid.OnBeforeEdit = nullptr;
    grid.Editable(Editing::None);
    EXPECT_FALSE(input.CheckCell(grid, 1, cf, false));
    EXPECT_TRUE(grid.Checked(1, cf));
}

TEST_F(InputCells, AClickFlipsACheckCellAndThenTells) {
    grid.OnCellClick = [&](int row, int col) {
        Log("cell " + std::to_string(row) + "," + std::to_string(col));
    };
    grid.OnClick = [&] { Log("click"); };
    EXPECT_TRUE(input.ClickCell(grid, 1, cf));
    EXPECT_THAT(Logged(), ElementsAre("edited 1,3 x", "cell 1,3", "click"));
    EXPECT_TRUE(input.ClickCell(grid, 1, name));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_THAT(Logged(), ElementsAre("cell 1,2", "click"));
    grid.Editable(Editing::None);
    EXPECT_TRUE(input.ClickCell(grid, 1, cf));
    EXPECT_TRUE(grid.Checked(1, cf));
}

TEST_F(InputCells, AClickOnAHeadLeavesTheRowAndTheCursorWhereItIs) {
    grid.OnCellClick = [&](int row, int col) {
        Log("cell " + std::to_string(row) + "," + std::to_string(col));
    };
    input.Key({"F2"});
    EXPECT_TRUE(input.ClickCell(grid, 0, name));
    EXPECT_THAT(Logged(), ElementsAre("row 1", "cell 0,2"));
    EXPECT_EQ(Cursor(), Cell(1, name));
    rowLets = false;
    EXPECT_FALSE(input.ClickCell(grid, 0, name));
    EXPECT_THAT(Logged(), ElementsAre("row 1"));
}

TEST_F(InputCells, ADoubleClickOpensTheCellAfterItsHandler) {
    grid.OnCellDblClick = [&](int row, int) {
        Log((grid.IsEditing() ? "open " : "dbl ") + std::to_string(row));
    };
    EXPECT_TRUE(input.DblClickCell(grid, 1, cover));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_TRUE(grid.EditSelected());
    EXPECT_THAT(Logged(), ElementsAre("dbl 1"));
    EXPECT_TRUE(input.DblClickCell(grid, 1, cf));
    EXPECT_FALSE(grid.Checked(1, cf));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(InputCells, ADoubleClickWhoseHandlerClosesTheFormOpensNothing) {
    grid.OnCellDblClick = [&](int, int) { form->Close(Ending::Discard); };
    EXPECT_TRUE(input.DblClickCell(grid, 1, cover));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(InputCells, TypingOpensTheCellAndGoesOnBehindWhatWasTyped) {
    grid.Select(1, cover);
    EXPECT_TRUE(input.Type(grid, "1ä"));
    EXPECT_EQ(grid.EditText(), "1ä");
    EXPECT_TRUE(input.Type(grid, "2"));
    EXPECT_EQ(grid.EditText(), "1ä2");
    EXPECT_EQ(grid.Text(1, cover), "12");
}

TEST_F(InputCells, WhatIsTypedIntoAFreshlyOpenedCellTakesThePlaceOfItsText) {
    grid.Select(2, cover);
    input.Enter(grid);
    input.Key({"F2"});
    EXPECT_EQ(grid.EditText(), "3");
    // The same text again is typed, and no longer selected.
    EXPECT_TRUE(input.Type(grid, "3"));
    EXPECT_TRUE(input.Type(grid, "2"));
    EXPECT_EQ(grid.EditText(), "32");
}

TEST_F(InputCells, NothingIsTypedIntoACheckMarkOrWithoutACursor) {
    grid.Select(1, cf);
    EXPECT_FALSE(input.Type(grid, "x"));
    grid.Select(-1, -1);
    EXPECT_FALSE(input.Type(grid, "x"));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(InputCells, LeavingTheGridEndsTheEditLeavesTheRowThenValidates) {
    grid.OnLeave = [this] {
        Log("leave grid");
        return Leaving::Go;
    };
    text.OnGotFocus = [this] { Log("enter text"); };
    input.Enter(grid);
    input.Type(grid, "Ölalge");
    EXPECT_TRUE(input.Enter(text));
    EXPECT_THAT(Logged(), ElementsAre("edited 1,2 Ölalge", "row 1", "leave grid", "enter text"));
}

TEST_F(InputCells, ARowThatStaysKeepsTheFocusInTheGrid) {
    input.Enter(grid);
    rowLets = false;
    const auto taken = input.Enter(text);
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr("vsfgAlgenArt"));
    EXPECT_EQ(form->Focus(), &grid);
}

TEST_F(InputCells, ARefusedTextKeepsTheFocusInTheGridOnce) {
    grid.OnValidateEdit = [this](int, int, const std::string& typed) {
        Log("validate " + typed);
        return false;
    };
    input.Enter(grid);
    input.Type(grid, "x");
    EXPECT_FALSE(input.Enter(text));
    EXPECT_EQ(form->Focus(), &grid);
    EXPECT_EQ(grid.Text(1, name), "Öd");
    EXPECT_TRUE(input.Enter(text));
    EXPECT_THAT(Logged(), ElementsAre("validate x", "row 1"));
}

TEST_F(InputCells, CancelLeavesAnOpenCellToItsOwnHandler) {
    auto& cancel = form->Add<CommandButton>("cmdAbbrechen");
    cancel.CausesValidation = false;
    cancel.OnClick = [&] {
        Log(grid.IsEditing() ? "open" : "ended");
        grid.CancelEdit();
    };
    input.Enter(grid);
    input.Type(grid, "weg");
    EXPECT_TRUE(input.Click(cancel));
    EXPECT_THAT(Logged(), ElementsAre("open"));
    EXPECT_EQ(grid.Text(1, name), "Öd");
    EXPECT_TRUE(input.Enter(text));  // now the row of the grid is left
    EXPECT_THAT(Logged(), ElementsAre("row 1"));
}

TEST_F(InputCells, WhenCodeMovesTheFocusTheRowIsLeftAtThePersonsNextStep) {
    auto& second = form->Add<TextBox>("txtZweites");
    grid.OnLeave = [this] {
        Log("leave grid");
        return Leaving::Go;
    };
    input.Enter(grid);
    form->SetFocus(text);
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_TRUE(input.Enter(second));
    EXPECT_THAT(Logged(), ElementsAre("row 1", "leave grid"));
}

TEST_F(InputCells, ScrollingLeavesTheCursorAndTheFocus) {
    EXPECT_TRUE(input.Scroll(grid, 3));
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_EQ(Cursor(), Cell(1, name));
    EXPECT_EQ(form->Focus(), nullptr);
    EXPECT_FALSE(input.Scroll(grid, 4));
}

// -- keys

struct MoveCase {
    Cell from;
    KeyPress key;
    Cell to;
};

class MoveKeys : public InputCells, public testing::WithParamInterface<MoveCase> {};

TEST_P(MoveKeys, GoToTheNextCellThatIsSeen) {
    grid.RowHidden(2, true);
    grid.Select(GetParam().from.first, GetParam().from.second);
    input.Enter(grid);
    EXPECT_TRUE(input.Key(GetParam().key)) << GetParam().key.Name;
    EXPECT_EQ(Cursor(), GetParam().to) << GetParam().key.Name;
    EXPECT_EQ(form->Focus(), &grid);
}

// Rows 1 and 3 and the columns 2 to 4 are seen.
INSTANTIATE_TEST_SUITE_P(
    Keys, MoveKeys,
    testing::Values(MoveCase{{1, 2}, {"Right"}, {1, 3}}, MoveCase{{1, 4}, {"Right"}, {1, 4}},
                    MoveCase{{1, 3}, {"Left"}, {1, 2}}, MoveCase{{1, 2}, {"Left"}, {1, 2}},
                    MoveCase{{1, 2}, {"Down"}, {3, 2}}, MoveCase{{3, 2}, {"Down"}, {3, 2}},
                    MoveCase{{3, 2}, {"Up"}, {1, 2}}, MoveCase{{1, 2}, {"Up"}, {1, 2}},
                    MoveCase{{1, 3}, {"Home"}, {1, 2}}, MoveCase{{1, 2}, {"End"}, {1, 4}},
                    MoveCase{{3, 4}, {"Home", false, true}, {1, 2}},
                    MoveCase{{1, 2}, {"End", false, true}, {3, 4}}, MoveCase{{1, 2}, {"PageDown"}, {3, 2}},
                    MoveCase{{3, 3}, {"PageUp"}, {1, 3}}, MoveCase{{1, 4}, {"Tab"}, {3, 2}},
                    MoveCase{{3, 2}, {"Tab", true}, {1, 4}}, MoveCase{{-1, -1}, {"Down"}, {1, 2}},
                    MoveCase{{-1, -1}, {"End"}, {1, 4}}));

TEST_F(InputCells, TabLeavesTheGridAtItsEndAndWhereItIsNotEdited) {
    grid.TabIndex(1);
    text.TabIndex(2);
    grid.Select(3, cover);
    input.Enter(grid);
    EXPECT_TRUE(input.Key({"Tab"}));
    EXPECT_EQ(form->Focus(), &text);
    grid.Editable(Editing::None);
    grid.Select(1, name);
    EXPECT_TRUE(input.Key({"Tab", true}));
    EXPECT_EQ(form->Focus(), &grid);
    EXPECT_TRUE(input.Key({"Tab"}));
    EXPECT_EQ(form->Focus(), &text);
}

TEST_F(InputCells, KeysOfAnOpenCellGoToItsText) {
    input.Enter(grid);
    grid.OnKey = [this](const KeyPress& key) {
        Log("key " + key.Name);
        return key.Name == "Up";
    };
    for (const auto* key : {"Ä", "Space", "b", "Backspace", "Delete"}) input.Key({key});
    EXPECT_EQ(grid.EditText(), "Ä ");
    EXPECT_THAT(Logged(), ElementsAre("key Ä"));  // which opened the cell
    input.Key({"Up"});
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_THAT(Logged(), ElementsAre("key Up"));
    EXPECT_TRUE(input.Key({"Enter"}));
    EXPECT_EQ(grid.Text(1, name), "Ä ");
    EXPECT_THAT(Logged(), ElementsAre("edited 1,2 Ä "));
    EXPECT_TRUE(input.Key({"F2"}));
    EXPECT_TRUE(input.Key({"Backspace"}));  // all of it is selected
    EXPECT_EQ(grid.EditText(), "");
    EXPECT_TRUE(input.Key({"Escape"}));
    EXPECT_EQ(grid.Text(1, name), "Ä ");
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(InputCells, EnterThatEndsAnEditPressesNoButton) {
    auto& ok = form->Add<CommandButton>("cmdOK");
    ok.Default(true);
    ok.OnClick = [this] { Log("ok"); };
    input.Enter(grid);
    input.Key({"F2"});
    EXPECT_TRUE(input.Key({"Enter"}));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_TRUE(input.Key({"Enter"}));
    EXPECT_THAT(Logged(), ElementsAre("row 1", "ok"));
}

TEST_F(InputCells, EnterOnARefusedTextIsNotTaken) {
    grid.OnValidateEdit = [](int, int, const std::string&) { return false; };
    grid.OnKey = [this](const KeyPress& key) {
        Log("key " + key.Name);
        return false;
    };
    input.Enter(grid);
    input.Key({"x"});
    EXPECT_FALSE(input.Key({"Enter"}));
    EXPECT_EQ(grid.Text(1, name), "Öd");
    EXPECT_THAT(Logged(), ElementsAre("key x"));
}

TEST_F(InputCells, ArrowsEndAnOpenEditAndGoOn) {
    input.Enter(grid);
    input.Key({"x"});
    EXPECT_TRUE(input.Key({"Down"}));
    EXPECT_EQ(grid.Text(1, name), "x");
    EXPECT_EQ(Cursor(), Cell(2, name));
    EXPECT_THAT(Logged(), ElementsAre("edited 1,2 x", "row 1"));
}

TEST_F(InputCells, SpaceFlipsACheckMarkAndTypesIntoAText) {
    grid.Select(1, cf);
    input.Enter(grid);
    EXPECT_TRUE(input.Key({"Space"}));
    EXPECT_TRUE(grid.Checked(1, cf));
    EXPECT_FALSE(input.Key({"x"}));
    EXPECT_FALSE(input.Key({"F2"}));
    grid.OnBeforeEdit = [](int, int col) { return col != cf; };
    EXPECT_FALSE(input.Key({"Space"}));
    grid.Select(1, name);
    EXPECT_TRUE(input.Key({"Space"}));
    EXPECT_EQ(grid.EditText(), " ");
}

TEST_F(InputCells, CommandsOfTheKeyboardTypeNothing) {
    input.Enter(grid);
    EXPECT_FALSE(input.Key({"c", false, true}));
    EXPECT_FALSE(input.Key({"x", false, false, true}));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(input.Key({"@", false, true, true}));  // third level of the keyboard
    EXPECT_EQ(grid.EditText(), "@");
}

}  // namespace
}  // namespace FX_Algen::controls
