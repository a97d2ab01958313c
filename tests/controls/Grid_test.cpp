#include "controls/Grid.h"

#include <gtest/gtest.h>

#include "controls/GridOfTests.h"

namespace FX_Algen::controls {
namespace {

/// What an observer heard, one word each.
class Listener : public Observer {
public:
    void ControlChanged(Control& control) override { Heard.push_back("all " + control.Name()); }
    void CellChanged(Grid&, int row, int col) override {
        Heard.push_back("cell " + std::to_string(row) + "," + std::to_string(col));
    }
    void CursorMoved(Grid& grid) override {
        Heard.push_back("cursor " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col()) +
                        (grid.IsEditing() ? " open" : ""));
    }
    std::vector<std::string> Heard;
};

TEST_F(GridTest, KeepsTheCellsThatStayAndEmptiesNewOnes) {
    grid.Rows(3);
    grid.Rows(4);
    grid.Cols(2);
    grid.Cols(3);
    EXPECT_EQ(grid.Text(2, 1), "2.1");
    EXPECT_EQ(grid.Text(3, 1), "");
    EXPECT_EQ(grid.Text(2, 2), "");
    EXPECT_EQ(grid.AddRow(), 4);
    EXPECT_EQ(grid.Rows(), 5);
    EXPECT_EQ(grid.Text(4, 2), "");
}

TEST_F(GridTest, FailsPastItsEndWithItsNameAndThePlace) {
    const std::vector<std::pair<int, int>> outside{{5, 0}, {0, 5}, {-1, 0}, {0, -1}, {-1, -1}};
    for (const auto& [row, col] : outside) {
        EXPECT_EQ(NumberOf([&] { grid.Text(row, col); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Text(row, col, "ä"); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Shown(row, col); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Checked(row, col); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Checked(row, col, true); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.CellColor(row, col, Colour{}); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Number(row, col); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.GoTo(row, col); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.Toggle(row, col); }), 381);
    }
    EXPECT_EQ(NumberOf([&] { grid.Select(5, 1); }), 381);
    EXPECT_EQ(NumberOf([&] { grid.Select(-1, 1); }), 381);
    for (const int number : {-1, 5}) {
        EXPECT_EQ(NumberOf([&] { grid.ColWidth(number); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.ColKind(number, CellKind::Check); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.ColList(number); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.RowHidden(number, true); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.RowRule(number); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.RemoveRow(number); }), 381);
        EXPECT_EQ(NumberOf([&] { grid.TopRow(number); }), 381);
    }
    EXPECT_EQ(NumberOf([&] { grid.Rows(-1); }), 381);
    EXPECT_EQ(NumberOf([&] { grid.Cols(-1); }), 381);
    try {
        grid.Text(7, 3);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(),
                  "Grid vsfgAlgenArt has no cell in row 7, column 3: it has 5 rows and 5 columns.");
    }
}

TEST_F(GridTest, ClearsCellsAndKeepsColumns) {
    grid.ColWidth(3, 1);
    grid.ColKind(2, CellKind::Check);
    grid.Checked(2, 2, true);
    grid.CellColor(2, 3, Colour{0xE0E0E0});
    grid.RowHidden(2, true);
    grid.RowRule(3, Colour{0x007D7D});
    grid.ClearCells();
    EXPECT_EQ(grid.Rows(), 5);
    EXPECT_EQ(grid.Text(0, 0), "");
    EXPECT_EQ(grid.Text(4, 4), "");
    EXPECT_FALSE(grid.Checked(2, 2));
    EXPECT_EQ(grid.CellColor(2, 3), std::nullopt);
    EXPECT_FALSE(grid.RowHidden(2));
    EXPECT_EQ(grid.RowRule(3), std::nullopt);
    EXPECT_TRUE(grid.ColHidden(3));
    EXPECT_EQ(grid.ColKind(2), CellKind::Check);
}

TEST_F(GridTest, HidesColumnsOfWidthOneAndLess) {
    for (const auto& [width, hidden] : std::vector<std::pair<int, bool>>{{2, false}, {1, true}, {0, true}}) {
        grid.ColWidth(2, width);
        EXPECT_EQ(grid.ColHidden(2), hidden) << width;
    }
}

TEST(ReadList, TakesCodedAndPlainLists) {
    using List = std::vector<ListEntry>;
    EXPECT_EQ(ReadList("#1;erste|#2;zweite"), (List{{"1", "erste"}, {"2", "zweite"}}));
    EXPECT_EQ(ReadList("eins|zwölf"), (List{{"eins", "eins"}, {"zwölf", "zwölf"}}));
    EXPECT_EQ(ReadList("eins|zwei|"), (List{{"eins", "eins"}, {"zwei", "zwei"}}));
    EXPECT_EQ(ReadList("|Grün"), (List{{"", ""}, {"Grün", "Grün"}}));  // an empty describer is one of them
    EXPECT_EQ(ReadList("#7;a;b"), (List{{"7", "a;b"}}));
    EXPECT_EQ(ReadList("#7;"), (List{{"7", ""}}));
    EXPECT_EQ(ReadList("#7"), (List{{"7", "7"}}));
    EXPECT_EQ(ReadList(""), List{});
}

TEST_F(GridTest, ShowsTheTextOfACode) {
    grid.ColList(2, ReadList("#1;Grünalgen|#2;Blaualgen"));
    grid.Text(2, 2, "1");
    grid.Text(3, 2, "9");
    grid.Text(0, 2, "2");
    EXPECT_EQ(grid.Shown(2, 2), "Grünalgen");
    EXPECT_EQ(grid.Text(2, 2), "1");
    EXPECT_EQ(grid.Shown(3, 2), "9");  // the list lacks it
    EXPECT_EQ(grid.Shown(0, 2), "2");  // a head is a text of its own
}

TEST_F(GridTest, ReadsNumbersInCells) {
    grid.Text(2, 2, "12,5");
    grid.Text(2, 3, "zwölf");
    EXPECT_EQ(grid.Number(2, 2), 12.5);
    EXPECT_EQ(grid.Number(2, 3), std::nullopt);
}

// ---- cursor ------------------------------------------------------------------------------------

TEST_F(GridTest, StandsNowhereAtFirst) {
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.Col(), -1);
    EXPECT_FALSE(grid.StartEdit());
    EXPECT_TRUE(grid.LeaveRow());
}

TEST_F(GridTest, SelectAsksNobody) {
    Words heard;
    grid.Select(2, 1);
    grid.OnBeforeRowLeave = [&](int) {
        heard.push_back("leave");
        return false;
    };
    grid.OnRowColChange = [&] { heard.push_back("moved"); };
    grid.Hooks({nullptr, nullptr, [&](int row) { heard.push_back("entered " + std::to_string(row)); }});
    grid.Select(3, 1);
    grid.Select(3, 1);
    grid.Select(3, 2);
    EXPECT_EQ(heard, (Words{"entered 3", "moved", "moved"}));
    grid.Select(-1, -1);
    EXPECT_EQ(grid.Row(), -1);
}

TEST_F(GridTest, GoesOnlyWhereAPersonCanSeeIt) {
    grid.ColWidth(2, 1);
    grid.RowHidden(3, true);
    EXPECT_FALSE(grid.GoTo(1, 1));
    EXPECT_FALSE(grid.GoTo(2, 0));
    EXPECT_FALSE(grid.GoTo(2, 2));
    EXPECT_FALSE(grid.GoTo(3, 1));
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_TRUE(grid.GoTo(4, 3));
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Col(), 3);
}

TEST_F(GridTest, StaysWhereTheRowMayNotBeLeft) {
    grid.Select(2, 1);
    bool may = false;
    Words heard;
    grid.OnBeforeRowLeave = [&](int row) {
        heard.push_back("leave " + std::to_string(row));
        return may;
    };
    EXPECT_FALSE(grid.GoTo(3, 1));
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_TRUE(grid.GoTo(2, 3));  // in the same row
    EXPECT_EQ(heard, (Words{"leave 2"}));
    EXPECT_FALSE(grid.LeaveRow());
    may = true;
    EXPECT_TRUE(grid.LeaveRow());
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_TRUE(grid.GoTo(3, 3));
    EXPECT_EQ(heard, (Words{"leave 2", "leave 2", "leave 2", "leave 2"}));
}

TEST_F(GridTest, AsksTheFormBeforeTheSource) {
    Words heard;
    bool form_lets = true, source_lets = true;
    grid.OnBeforeRowLeave = [&](int row) {
        heard.push_back("form " + std::to_string(row));
        return form_lets;
    };
    grid.Hooks({nullptr,
                [&](int row) {
                    heard.push_back("source " + std::to_string(row));
                    return source_lets;
                },
                [&](int row) { heard.push_back("entered " + std::to_string(row)); }});
    grid.OnRowColChange = [&] { heard.push_back("moved"); };
    grid.Select(2, 1);
    heard.clear();
    EXPECT_TRUE(grid.GoTo(3, 1));
    EXPECT_EQ(heard, (Words{"form 2", "source 2", "entered 3", "moved"}));
    heard.clear();
    source_lets = false;
    EXPECT_FALSE(grid.GoTo(4, 1));
    EXPECT_EQ(heard, (Words{"form 3", "source 3"}));
    heard.clear();
    form_lets = false;
    EXPECT_FALSE(grid.GoTo(4, 1));
    EXPECT_EQ(heard, (Words{"form 3"}));
    EXPECT_EQ(grid.Row(), 3);
}

TEST_F(GridTest, LeavesARowOnceAtATime) {
    grid.Select(2, 1);
    bool nested = true;
    grid.OnBeforeRowLeave = [&](int) {
        nested = grid.LeaveRow();
        return true;
    };
    EXPECT_TRUE(grid.LeaveRow());
    EXPECT_FALSE(nested);
}

TEST_F(GridTest, KeepsTheRowWhereLeavingItFails) {
    grid.Select(2, 1);
    grid.OnBeforeRowLeave = [](int) -> bool { throw Error(3022, "Schlüssel"); };
    EXPECT_EQ(NumberOf([&] { grid.GoTo(3, 1); }), 3022);
    EXPECT_EQ(grid.Row(), 2);
    grid.OnBeforeRowLeave = nullptr;
    EXPECT_TRUE(grid.GoTo(3, 1));  // it can be tried again
}

TEST_F(GridTest, DoesNotGoWhereLeavingTookTheCellAway) {
    grid.Select(2, 1);
    grid.OnBeforeRowLeave = [&](int) {
        grid.Rows(3);
        return true;
    };
    EXPECT_FALSE(grid.GoTo(4, 1));
    EXPECT_EQ(grid.Row(), 2);
}

TEST_F(GridTest, KeepsTheCursorWithin) {
    grid.Select(4, 4);
    grid.Rows(4);
    EXPECT_EQ(grid.Row(), 3);
    grid.RowHidden(2, true);
    grid.Rows(3);  // the only row left below the heads is hidden
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.Col(), -1);

    grid.Rows(5);
    grid.Select(4, 4);
    grid.ColWidth(3, 0);
    grid.Cols(4);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Col(), 2);
    grid.Rows(0);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.TopRow(), 0);
}

TEST_F(GridTest, RemovesRowsAroundTheCursor) {
    struct Case {
        int Cursor, Removed, After;
        std::string Text;
        Words Heard;
    };
    const std::vector<Case> cases{
        {3, 2, 2, "3.1", {"entered 2", "moved 2"}},  // moves up with its own row
        {3, 4, 3, "3.1", {}},                        // the row below goes
        {3, 3, 3, "4.1", {"entered 3", "moved 3"}},  // its own row goes, the next takes its place
        {4, 4, 3, "3.1", {"entered 3", "moved 3"}},  // the last one goes
    };
    for (const auto& [cursor, removed, after, text, expected] : cases) {
        auto other = std::make_shared<Form>("frm");
        auto& list = other->Add<Grid>("vsfg");
        list.Cols(2);
        list.Rows(5);
        for (int row = 0; row < 5; ++row) list.Text(row, 1, std::to_string(row) + ".1");
        list.Select(cursor, 1);
        Words heard;
        list.Hooks({nullptr, nullptr, [&](int row) { heard.push_back("entered " + std::to_string(row)); }});
        list.OnRowColChange = [&] { heard.push_back("moved " + std::to_string(list.Row())); };
        list.RemoveRow(removed);
        EXPECT_EQ(list.Row(), after);
        EXPECT_EQ(list.Text(list.Row(), 1), text);
        EXPECT_EQ(heard, expected);
    }
}

TEST_F(GridTest, KeepsTheRowOnTopWithin) {
    grid.TopRow(4);
    grid.Rows(3);
    EXPECT_EQ(grid.TopRow(), 2);
}

TEST_F(GridTest, FindsTheNextCellThatCanBeReached) {
    using Place = std::optional<std::pair<int, int>>;
    const auto at = [](int row, int col) { return Place(std::pair(row, col)); };
    grid.ColWidth(2, 1);
    grid.RowHidden(3, true);
    EXPECT_EQ(grid.Neighbour(1), at(2, 1));   // from nowhere the first
    EXPECT_EQ(grid.Neighbour(-1), at(4, 4));  // and the last
    struct Case {
        int Row, Col, Step;
        Place Next;
    };
    const std::vector<Case> cases{
        {2, 1, 1, at(2, 3)},                        // column 2 is hidden
        {2, 3, -1, at(2, 1)}, {2, 4, 1, at(4, 1)},  // row 3 is hidden
        {4, 1, -1, at(2, 4)}, {4, 4, 1, std::nullopt}, {2, 1, -1, std::nullopt}, {2, 1, 0, std::nullopt},
    };
    for (const auto& [row, col, step, next] : cases) {
        grid.Select(row, col);
        EXPECT_EQ(grid.Neighbour(step), next) << row << "," << col << " " << step;
    }
    grid.Rows(2);
    EXPECT_EQ(grid.Neighbour(1), std::nullopt);
    grid.Rows(0);
    EXPECT_EQ(grid.Neighbour(-1), std::nullopt);
}

// ---- observers ---------------------------------------------------------------------------------

TEST_F(GridTest, TellsWhatChanged) {
    Listener listener;
    form->Observe(&listener);
    const auto heard = [&] { return std::exchange(listener.Heard, {}); };

    grid.Text(2, 3, "Ä");
    grid.Text(2, 3, "Ä");
    grid.Checked(2, 3, true);
    grid.CellColor(2, 3, Colour{0xFFC0C0});
    EXPECT_EQ(heard(), (Words{"cell 2,3", "cell 2,3", "cell 2,3"}));
    grid.Rows(6);
    grid.ColWidth(2, 1);
    grid.RowRule(3, Colour{0x007D7D});
    EXPECT_EQ(heard(), (Words{"all vsfgAlgenArt", "all vsfgAlgenArt", "all vsfgAlgenArt"}));
    grid.Select(3, 3);
    grid.StartEdit();
    grid.EditText("8");
    grid.FinishEdit();
    EXPECT_EQ(heard(),
              (Words{"cursor 3,3", "cursor 3,3 open", "cell 3,3", "cell 3,3", "cursor 3,3", "cell 3,3"}));
    grid.TopRow(3);
    EXPECT_EQ(heard(), (Words{"cursor 3,3"}));
    form->Observe(nullptr);
}

TEST_F(GridTest, TellsOnceWhereItIsFilled) {
    Listener listener;
    form->Observe(&listener);
    int moved = 0;
    grid.OnRowColChange = [&] { ++moved; };
    {
        const Grid::Filling outer(grid);
        {
            const Grid::Filling inner(grid);
            grid.Rows(300);
            for (int row = 2; row < 300; ++row) grid.Text(row, 1, std::to_string(row));
        }
        grid.RowHidden(2, true);
        grid.Select(3, 1);
        EXPECT_EQ(listener.Heard, Words{});
    }
    EXPECT_EQ(listener.Heard, (Words{"all vsfgAlgenArt"}));
    EXPECT_EQ(moved, 1);  // the form's own events are not held back
    grid.Text(4, 1, "Ö");
    EXPECT_EQ(listener.Heard.back(), "cell 4,1");
    form->Observe(nullptr);
}

}  // namespace
}  // namespace FX_Algen::controls
