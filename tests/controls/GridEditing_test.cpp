#include <gtest/gtest.h>

#include "controls/Grid.h"
#include "controls/GridOfTests.h"

namespace FX_Algen::controls {
namespace {

/// Notes the events of an edit, with what cell and edit hold at that time.
void Note(Grid& grid, Words& heard) {
    const auto place = [](int row, int col) { return std::to_string(row) + "," + std::to_string(col); };
    grid.OnBeforeEdit = [&heard, place](int row, int col) {
        heard.push_back("before " + place(row, col));
        return true;
    };
    grid.OnValidateEdit = [&grid, &heard, place](int row, int col, const std::string& text) {
        heard.push_back("validate " + place(row, col) + " '" + text + "' for '" + grid.Text(row, col) + "'");
        return true;
    };
    grid.OnAfterEdit = [&grid, &heard, place](int row, int col) {
        heard.push_back("after " + place(row, col) + " '" + grid.Text(row, col) + "'" +
                        (grid.IsEditing() ? " open" : ""));
    };
    grid.Hooks({[&grid, &heard, place](int row, int col) {
                    heard.push_back("source " + place(row, col) + " '" + grid.Text(row, col) + "'");
                },
                nullptr, nullptr});
}

TEST_F(GridTest, RunsThroughTheEventsOfAnEdit) {
    Words heard;
    Note(grid, heard);
    grid.Select(3, 2);
    EXPECT_TRUE(grid.StartEdit());
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "3.2");
    EXPECT_TRUE(grid.StartEdit());  // it is open already
    grid.EditText("Grünalge");
    EXPECT_EQ(grid.Text(3, 2), "3.2");
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(heard, (Words{"before 3,2", "validate 3,2 'Grünalge' for '3.2'", "source 3,2 'Grünalge'",
                            "after 3,2 'Grünalge'"}));
    EXPECT_TRUE(grid.FinishEdit());  // none is open
}

TEST_F(GridTest, ChangesNothingWhereNothingWasTyped) {
    Words heard;
    Note(grid, heard);
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("7");
    grid.EditText("3.2");
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_EQ(heard, (Words{"before 3,2"}));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(GridTest, OpensOnlyWhatMayBeEdited) {
    grid.Select(2, 1);
    grid.Editable(Editing::None);
    EXPECT_FALSE(grid.StartEdit());
    grid.Editable(Editing::KeyboardAndMouse);
    grid.OnBeforeEdit = [](int row, int) { return row != 2; };
    EXPECT_FALSE(grid.StartEdit());
    EXPECT_FALSE(grid.IsEditing());
    grid.Select(3, 1);
    EXPECT_TRUE(grid.StartEdit());
    grid.Select(1, 1);  // a head; the edit in the other cell is gone
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Text(3, 1), "3.1");
    EXPECT_FALSE(grid.StartEdit());
    grid.Select(3, 0);
    EXPECT_FALSE(grid.StartEdit());
    grid.ColWidth(4, 1);
    grid.Select(3, 4);
    EXPECT_FALSE(grid.StartEdit());
    grid.ColKind(3, CellKind::Check);
    grid.Select(3, 3);
    EXPECT_FALSE(grid.StartEdit());
}

TEST_F(GridTest, KeepsTheOldTextWhereTheNewOneIsRefused) {
    grid.OnValidateEdit = [](int, int, const std::string&) { return false; };
    bool after = false;
    grid.OnAfterEdit = [&](int, int) { after = true; };
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("5");
    EXPECT_FALSE(grid.GoTo(4, 2));
    EXPECT_EQ(grid.Text(3, 2), "3.2");
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_FALSE(after);
    EXPECT_TRUE(grid.GoTo(4, 2));  // nothing holds it any more
}

TEST_F(GridTest, EndsAnEditBeforeTheCursorGoes) {
    Words heard;
    Note(grid, heard);
    grid.OnBeforeRowLeave = [&](int row) {
        heard.push_back("leave " + std::to_string(row));
        return true;
    };
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("8");
    EXPECT_TRUE(grid.GoTo(3, 2));  // it stands there
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_TRUE(grid.GoTo(4, 1));
    EXPECT_EQ(heard, (Words{"before 3,2", "validate 3,2 '8' for '3.2'", "source 3,2 '8'", "after 3,2 '8'",
                            "leave 3"}));
    grid.StartEdit();
    grid.EditText("9");
    EXPECT_TRUE(grid.LeaveRow());
    EXPECT_EQ(grid.Text(4, 1), "9");
    EXPECT_EQ(heard.back(), "leave 4");
}

TEST_F(GridTest, TakesBackWhatWasTyped) {
    Words heard;
    Note(grid, heard);
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("8");
    grid.CancelEdit();
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Text(3, 2), "3.2");
    EXPECT_EQ(heard, (Words{"before 3,2"}));
    EXPECT_EQ(NumberOf([&] { grid.EditText(); }), 13);
    EXPECT_EQ(NumberOf([&] { grid.EditText("9"); }), 13);
    grid.CancelEdit();
}

TEST_F(GridTest, KeepsTheCellOpenWhereValidatingFails) {
    grid.OnValidateEdit = [](int, int, const std::string&) -> bool { throw Error(3078, "Tabelle fehlt"); };
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("Zwölf");
    EXPECT_EQ(NumberOf([&] { grid.FinishEdit(); }), 3078);
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "Zwölf");
    EXPECT_EQ(grid.Text(3, 2), "3.2");
    grid.OnValidateEdit = nullptr;
    EXPECT_TRUE(grid.FinishEdit());  // it can be tried again
    EXPECT_EQ(grid.Text(3, 2), "Zwölf");
}

TEST_F(GridTest, HoldsTheNewTextWhereWhatFollowsFails) {
    for (const bool source : {true, false}) {
        const auto fail = [](int, int) { throw Error(3343, "Datenträger voll"); };
        grid.Hooks({source ? fail : std::function<void(int, int)>(), nullptr, nullptr});
        grid.OnAfterEdit = source ? std::function<void(int, int)>() : fail;
        grid.Select(3, 2);
        ASSERT_TRUE(grid.StartEdit());
        grid.EditText(source ? "Öl" : "Über");
        EXPECT_EQ(NumberOf([&] { grid.FinishEdit(); }), 3343);
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(grid.Text(3, 2), source ? "Öl" : "Über");
    }
}

TEST_F(GridTest, DoesNotEndAnEditThatIsBeingValidated) {
    grid.Select(3, 2);
    bool finished = true, left = true, went = true;
    grid.OnValidateEdit = [&](int, int, const std::string&) {
        finished = grid.FinishEdit();
        left = grid.LeaveRow();
        went = grid.GoTo(4, 2);
        return true;
    };
    grid.StartEdit();
    grid.EditText("8");
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_FALSE(finished);
    EXPECT_FALSE(left);
    EXPECT_FALSE(went);
    EXPECT_EQ(grid.Text(3, 2), "8");
    EXPECT_EQ(grid.Row(), 3);
}

TEST_F(GridTest, OpensTheNextCellFromAHandlerOfTheLast) {
    grid.OnAfterEdit = [&](int row, int col) {
        if (col == 2 && grid.GoTo(row, col + 1)) grid.StartEdit();
    };
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("8");
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_EQ(grid.Col(), 3);
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "3.3");
}

TEST_F(GridTest, LetsAHandlerPutAnotherInItsPlace) {
    int first = 0, second = 0;
    const std::string long_text = "ein Text, der länger ist als was ein Handler bei sich trägt";
    grid.OnAfterEdit = [&first, &second, long_text, this](int, int) {
        grid.OnAfterEdit = [&second](int, int) { ++second; };
        if (!long_text.empty()) ++first;
    };
    for (const auto* text : {"8", "9"}) {
        grid.Select(3, 2);
        grid.StartEdit();
        grid.EditText(text);
        EXPECT_TRUE(grid.FinishEdit());
    }
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST_F(GridTest, DropsAnEditWhoseCellGoes) {
    const std::vector<std::function<void()>> ways{[&] { grid.Rows(3); }, [&] { grid.Cols(2); },
                                                  [&] { grid.RemoveRow(3); }, [&] { grid.ClearCells(); }};
    for (const auto& way : ways) {
        grid.Cols(5);
        grid.Rows(5);
        grid.Select(3, 2);
        ASSERT_TRUE(grid.StartEdit());
        grid.EditText("8");
        way();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_TRUE(grid.FinishEdit());
    }
    // Likewise where a handler takes it away.
    grid.Cols(5);
    grid.Rows(5);
    grid.Select(3, 2);
    grid.StartEdit();
    grid.EditText("8");
    grid.OnValidateEdit = [&](int, int, const std::string&) {
        grid.Rows(2);
        return true;
    };
    EXPECT_FALSE(grid.FinishEdit());
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(GridTest, MovesAnOpenEditWithItsRow) {
    grid.Select(4, 2);
    grid.StartEdit();
    grid.EditText("8");
    grid.RemoveRow(2);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_EQ(grid.Text(3, 2), "8");
    EXPECT_EQ(grid.Text(3, 1), "4.1");
}

TEST_F(GridTest, TakesEntriesOfAListAlone) {
    grid.ColList(2, ReadList("#1;Grünalgen|#2;Blaualgen"));
    grid.Text(3, 2, "2");
    grid.Select(3, 2);
    struct Case {
        std::string Typed;
        bool Taken;
        std::string Code;
    };
    const std::vector<Case> cases{
        {"Grünalgen", true, "1"}, {"BLAUALGEN", true, "2"}, {"grünalgen", true, "1"},
        {"2", true, "2"},         {"Rotalgen", false, "2"}, {"", false, "2"},
    };
    for (const auto& [typed, taken, code] : cases) {
        ASSERT_TRUE(grid.StartEdit());
        grid.EditText(typed);
        EXPECT_EQ(grid.FinishEdit(), taken) << typed;
        EXPECT_EQ(grid.Text(3, 2), code) << typed;
        EXPECT_FALSE(grid.IsEditing());
    }
}

TEST_F(GridTest, ValidatesTheCodeOfAListAndOpensItsText) {
    grid.ColList(2, ReadList("#1;Grünalgen|#2;Blaualgen"));
    grid.Text(3, 2, "2");
    std::string validated;
    grid.OnValidateEdit = [&](int, int, const std::string& text) {
        validated = text;
        return true;
    };
    grid.Select(3, 2);
    grid.StartEdit();
    EXPECT_EQ(grid.EditText(), "Blaualgen");
    grid.EditText("Grünalgen");
    grid.FinishEdit();
    EXPECT_EQ(validated, "1");
}

// ---- check cells -------------------------------------------------------------------------------

TEST_F(GridTest, FlipsACheckCellThroughTheEventsOfAnEdit) {
    grid.ColKind(4, CellKind::Check);
    Words heard;
    Note(grid, heard);
    grid.OnAfterEdit = [&](int row, int col) {
        heard.push_back(std::string("after ") + (grid.Checked(row, col) ? "checked" : "clear"));
    };
    grid.OnValidateEdit = [&](int row, int col, const std::string& text) {
        heard.push_back("validate " + text + (grid.Checked(row, col) ? " checked" : " clear"));
        return true;
    };
    EXPECT_TRUE(grid.Toggle(3, 4));
    EXPECT_TRUE(grid.Checked(3, 4));
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(grid.Toggle(3, 4));
    EXPECT_FALSE(grid.Checked(3, 4));
    EXPECT_EQ(heard, (Words{"before 3,4", "validate -1 clear", "source 3,4 '3.4'", "after checked",
                            "before 3,4", "validate 0 checked", "source 3,4 '3.4'", "after clear"}));
}

TEST_F(GridTest, FlipsTheRowThatWasMeantWhereAHandlerRemovesOneAboveIt) {
    grid.ColKind(4, CellKind::Check);
    grid.OnValidateEdit = [&](int, int, const std::string&) {
        grid.RemoveRow(2);
        return true;
    };
    std::vector<int> after;
    grid.OnAfterEdit = [&](int row, int) { after.push_back(row); };
    EXPECT_TRUE(grid.Toggle(3, 4));
    EXPECT_EQ(grid.Text(2, 1), "3.1");
    EXPECT_TRUE(grid.Checked(2, 4));
    EXPECT_FALSE(grid.Checked(3, 4));
    EXPECT_EQ(after, std::vector{2});
}

TEST_F(GridTest, FlipsNothingWhereAHandlerTakesTheCellAwayBefore) {
    grid.ColKind(4, CellKind::Check);
    const std::vector<std::function<void()>> ways{[&] { grid.RemoveRow(2); }, [&] { grid.Select(2, 4); },
                                                  [&] { grid.ColKind(4, CellKind::Text); }};
    for (const auto& way : ways) {
        grid.Rows(5);
        grid.ColKind(4, CellKind::Check);
        grid.OnBeforeEdit = [&](int, int) {
            way();
            return true;
        };
        EXPECT_FALSE(grid.Toggle(3, 4));
        for (int row = 0; row < grid.Rows(); ++row) EXPECT_FALSE(grid.Checked(row, 4)) << row;
    }
}

TEST_F(GridTest, FlipsOnlyWhatMayBeFlipped) {
    grid.ColKind(4, CellKind::Check);
    EXPECT_FALSE(grid.Toggle(3, 3));  // no check cell
    EXPECT_FALSE(grid.Toggle(1, 4));  // a head
    grid.Editable(Editing::None);
    EXPECT_FALSE(grid.Toggle(3, 4));
    grid.Editable(Editing::KeyboardAndMouse);
    grid.OnBeforeEdit = [](int, int) { return false; };
    EXPECT_FALSE(grid.Toggle(3, 4));
    grid.OnBeforeEdit = nullptr;
    grid.OnValidateEdit = [](int, int, const std::string&) { return false; };
    EXPECT_FALSE(grid.Toggle(3, 4));
    grid.OnValidateEdit = [](int, int, const std::string&) -> bool { throw Error(13, "ungültig"); };
    EXPECT_EQ(NumberOf([&] { grid.Toggle(3, 4); }), 13);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_FALSE(grid.Checked(3, 4));
    grid.OnValidateEdit = nullptr;
    grid.OnBeforeRowLeave = [](int) { return false; };
    EXPECT_FALSE(grid.Toggle(2, 4));  // another row, and this one may not be left
    EXPECT_TRUE(grid.Toggle(3, 4));
}

}  // namespace
}  // namespace FX_Algen::controls
