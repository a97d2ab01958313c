#include <memory>

#include "Datenprobe.h"
#include "FX_Algen/Messages.h"
#include "controls/DataSource.h"
#include "controls/Form.h"

namespace FX_Algen::controls {
namespace {

using store::Value;

constexpr const char* staende =
    "SELECT ID_TR_MI, ID_TR, MI_Bez, DG_MI, RF_MI FROM awaTeilraum_MI WHERE ID_TR=1 ORDER BY RF_MI, MI_Bez;";

/// Row of the grid of the stand with the position 0, 1 or 2: below one row of heads.
constexpr int fels = 1, kies = 2, sand = 3;
constexpr int colId = 0, colBez = 1, colDeckung = 2, colRF = 3;

class DataSourceGrid : public testing::Test {
protected:
    DataSourceGrid() : former_(SetDisplay(boxes_)) {
        form_.Caption("Algen - Probenstelle");
        grid_.Fixed(1, 0);
        grid_.Cols(4);
        grid_.Rows(1);
        grid_.ColWidth(colId, 1);
        grid_.Text(0, colBez, "Bezeichnung");
        grid_.Editable(Editing::KeyboardAndMouse);
        dat_.Bind(grid_,
                  {{"ID_TR_MI", colId, true}, {"MI_Bez", colBez}, {"DG_MI", colDeckung}, {"RF_MI", colRF}});
        dat_.Bind(txtBez_, "MI_Bez");
    }
    ~DataSourceGrid() override { SetDisplay(former_); }

    void Open(const std::string& statement = staende) { dat_.Open(probe_.Handle(), statement); }
    /// As a person does it: goes there, opens the cell, types, ends the edit.
    bool Type(int row, int col, const std::string& text) {
        if (!grid_.GoTo(row, col) || !grid_.StartEdit()) return false;
        grid_.EditText(text);
        return grid_.FinishEdit();
    }
    Value Deckung(const std::string& stand) const {
        return probe_.Wert("SELECT DG_MI FROM awaTeilraum_MI WHERE MI_Bez='" + stand + "'");
    }
    std::vector<std::string> Column(int col) const {
        std::vector<std::string> texts;
        for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) texts.push_back(grid_.Text(row, col));
        return texts;
    }

    Datenprobe probe_;
    std::shared_ptr<store::RecordingMessages> boxes_ = std::make_shared<store::RecordingMessages>();
    std::shared_ptr<store::Messages> former_;
    Form form_{"frmProbe"};
    Grid& grid_ = form_.Add<Grid>("vsfgStand");
    TextBox& txtBez_ = form_.Add<TextBox>("txtBez");
    DataSource& dat_ = form_.Add<DataSource>("datMI");
};

using Texts = std::vector<std::string>;

TEST_F(DataSourceGrid, ShowsARowForEachRowBelowItsFixedOnes) {
    Open();
    EXPECT_EQ(grid_.Rows(), 4);
    EXPECT_EQ(grid_.Text(0, colBez), "Bezeichnung");
    EXPECT_EQ(Column(colBez), (Texts{"Fels", "Kies", "Sand"}));
    EXPECT_EQ(Column(colDeckung), (Texts{"10", "20", ""}));
    // The first column that can be seen.
    EXPECT_EQ(grid_.Row(), fels);
    EXPECT_EQ(grid_.Col(), colBez);
    EXPECT_TRUE(dat_.Has(grid_));
}

TEST_F(DataSourceGrid, KeepsATableOfHeadsWhereThereIsNoRow) {
    Open();
    Open("SELECT * FROM awaTeilraum_MI WHERE ID_TR=77");
    EXPECT_EQ(grid_.Rows(), 1);
    EXPECT_EQ(grid_.Row(), -1);
    EXPECT_EQ(txtBez_.Text(), "");
    Open();
    EXPECT_EQ(grid_.Row(), fels);
}

TEST_F(DataSourceGrid, KeepsAnEditUntilItsRowIsLeft) {
    Open();
    EXPECT_TRUE(Type(fels, colDeckung, "33,5"));
    EXPECT_TRUE(dat_.Changed());
    EXPECT_TRUE(Type(fels, colBez, "Fels & Öl"));
    EXPECT_EQ(Deckung("Fels"), Value(10.0F));
    EXPECT_TRUE(grid_.GoTo(kies, colBez));
    EXPECT_FALSE(dat_.Changed());
    EXPECT_EQ(probe_.WertInDerDatei("SELECT DG_MI FROM awaTeilraum_MI WHERE MI_Bez='Fels & Öl'"),
              Value(33.5F));
    EXPECT_EQ(Deckung("Kies"), Value(20.0F));
}

TEST_F(DataSourceGrid, WritesWhereItIsLeft) {
    Open();
    Type(sand, colDeckung, "5.25");
    EXPECT_TRUE(grid_.LeaveRow());
    EXPECT_EQ(Deckung("Sand"), Value(5.25F));
    EXPECT_EQ(grid_.Text(sand, colDeckung), "5,25");
}

TEST_F(DataSourceGrid, WritesOnlyCellsThatDifferInTheEnd) {
    Open();
    probe_.Handle()->Execute("UPDATE awaTeilraum_MI SET DG_MI=99, RF_MI=9 WHERE MI_Bez='Fels'");
    Type(fels, colDeckung, "5");
    Type(fels, colDeckung, "10,0");  // as it was
    EXPECT_FALSE(dat_.Changed());
    Type(fels, colBez, "Felsen");
    EXPECT_TRUE(grid_.LeaveRow());
    EXPECT_EQ(Deckung("Felsen"), Value(99.0F));
    EXPECT_EQ(probe_.Wert("SELECT RF_MI FROM awaTeilraum_MI WHERE MI_Bez='Felsen'"), Value(9));
}

TEST_F(DataSourceGrid, KeepsTheCursorInARowThatCannotBeWritten) {
    struct Case {
        int Col;
        std::string Typed, Number, Field;
    };
    const std::vector<Case> cases{
        {colDeckung, "viel", "13", "DG_MI"},
        {colDeckung, "zwölf", "13", "DG_MI"},
        {colDeckung, "1" + std::string(39, '0'), "6", "DG_MI"},
        {colRF, "99999999999", "6", "RF_MI"},
    };
    Open();
    for (const auto& [col, typed, number, field] : cases) {
        ASSERT_TRUE(Type(fels, col, typed));
        EXPECT_FALSE(grid_.GoTo(kies, colBez)) << typed;
        EXPECT_FALSE(grid_.LeaveRow()) << typed;
        EXPECT_EQ(grid_.Row(), fels);
        EXPECT_EQ(grid_.Text(fels, col), typed);
        EXPECT_TRUE(dat_.Changed());
        const auto shown = boxes_->TakeShown();
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_EQ(shown.front().Title, "Algen - Probenstelle");
        EXPECT_TRUE(shown.front().Text.starts_with(number + " - ")) << shown.front().Text;
        EXPECT_NE(shown.front().Text.find("'" + typed + "'"), std::string::npos) << shown.front().Text;
        EXPECT_NE(shown.front().Text.find("'" + field + "'"), std::string::npos) << shown.front().Text;
        dat_.CancelUpdate();
    }
    EXPECT_EQ(Column(colDeckung), (Texts{"10", "20", ""}));
    EXPECT_EQ(Deckung("Fels"), Value(10.0F));
    EXPECT_TRUE(grid_.GoTo(kies, colBez));
    EXPECT_TRUE(boxes_->TakeShown().empty());
}

TEST_F(DataSourceGrid, KeepsWhatWasTypedWhereTheStoreRefuses) {
    Open();
    Type(fels, colDeckung, "50");
    probe_.NurLesen(true);
    EXPECT_FALSE(grid_.GoTo(sand, colBez));
    EXPECT_EQ(grid_.Text(fels, colDeckung), "50");
    probe_.NurLesen(false);
    EXPECT_TRUE(grid_.GoTo(sand, colBez));
    EXPECT_EQ(Deckung("Fels"), Value(50.0F));
}

TEST_F(DataSourceGrid, TellsThatARowIsGone) {
    Open();
    Type(kies, colDeckung, "50");
    probe_.Handle()->Execute("DELETE FROM awaTeilraum_MI WHERE MI_Bez='Kies'");
    EXPECT_FALSE(grid_.LeaveRow());
    const auto shown = boxes_->TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown.front().Text.find("no longer in 'awaTeilraum_MI'"), std::string::npos);
    EXPECT_EQ(grid_.Text(kies, colDeckung), "50");
    dat_.CancelUpdate();
    dat_.Refresh();
    EXPECT_EQ(Column(colBez), (Texts{"Fels", "Sand"}));
    EXPECT_EQ(grid_.Row(), kies);  // the same position, which is now that of "Sand"
    EXPECT_EQ(txtBez_.Text(), "Sand");
}

TEST_F(DataSourceGrid, ShowsTheRowOfItsCursorInTheFields) {
    Open();
    EXPECT_EQ(txtBez_.Text(), "Fels");
    int repositions = 0;
    dat_.OnReposition = [&] { ++repositions; };
    EXPECT_TRUE(grid_.GoTo(kies, colBez));
    EXPECT_EQ(txtBez_.Text(), "Kies");
    grid_.Select(sand, colBez);
    EXPECT_EQ(txtBez_.Text(), "Sand");
    grid_.Select(sand, colRF);
    EXPECT_EQ(repositions, 2);
    // Fields and grid of the row go into one write, and both show it.
    txtBez_.Text("Sandbänke");
    Type(sand, colDeckung, "7");
    EXPECT_TRUE(grid_.GoTo(fels, colBez));
    EXPECT_EQ(Deckung("Sandbänke"), Value(7.0F));
    EXPECT_EQ(grid_.Text(sand, colBez), "Sandbänke");
}

TEST_F(DataSourceGrid, WritesTheRowThatCodeLeavesOrStaysInIt) {
    Open();
    Type(fels, colDeckung, "50");
    grid_.Select(kies, colBez);
    EXPECT_EQ(Deckung("Fels"), Value(50.0F));
    Type(kies, colDeckung, "viel");
    EXPECT_EQ(Failing([&] { grid_.Select(sand, colBez); })->Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(grid_.Row(), kies);
    EXPECT_EQ(grid_.Text(kies, colDeckung), "viel");
    EXPECT_TRUE(dat_.Changed());
}

TEST_F(DataSourceGrid, ChecksBooleanFields) {
    probe_.Ausfuehren("INSERT INTO awaPrStelle (ID_TR, PSBez, Anzeige) VALUES (3, 'Wöhr', False)");
    probe_.Datenbank();
    Grid& sites = form_.Add<Grid>("vsfgStelle");
    sites.Fixed(2, 0);
    sites.Rows(2);
    sites.Cols(2);
    sites.Editable(Editing::KeyboardAndMouse);
    DataSource& dat = form_.Add<DataSource>("datPS");
    dat.Bind(sites, {{"PSBez", 0}, {"Anzeige", 1}});
    dat.Open(probe_.Handle(), "SELECT PSBez, Anzeige FROM awaPrStelle ORDER BY ID_PS");
    ASSERT_EQ(sites.Rows(), 5);
    EXPECT_EQ(sites.ColKind(1), CellKind::Check);
    EXPECT_TRUE(sites.Checked(2, 1));
    EXPECT_FALSE(sites.Checked(3, 1));  // Null
    EXPECT_FALSE(sites.Checked(4, 1));

    const auto anzeige = [&](int tr) {
        return probe_.Wert("SELECT Anzeige FROM awaPrStelle WHERE ID_TR=" + std::to_string(tr));
    };
    EXPECT_TRUE(sites.Toggle(2, 1));
    EXPECT_EQ(anzeige(1), Value(true));
    EXPECT_TRUE(sites.Toggle(3, 1));
    EXPECT_EQ(anzeige(1), Value(false));
    EXPECT_TRUE(sites.Toggle(3, 1));  // back again: Null stays
    EXPECT_FALSE(dat.Changed());
    EXPECT_TRUE(sites.Toggle(4, 1));
    EXPECT_TRUE(anzeige(2).IsNull());
    EXPECT_TRUE(sites.LeaveRow());
    EXPECT_EQ(anzeige(3), Value(true));
}

TEST_F(DataSourceGrid, NeverWritesKeysAndComputedFields) {
    grid_.Cols(5);
    grid_.ColWidth(colId, 500);
    dat_.Bind(grid_, {{"ID_TR_MI", colId, true}, {"MI_Bez", colBez}, {"DG_MI", colDeckung}, {"Doppelt", 4}});
    Open("SELECT ID_TR_MI, MI_Bez, DG_MI, DG_MI*2 AS Doppelt FROM awaTeilraum_MI ORDER BY RF_MI");
    EXPECT_EQ(Column(4), (Texts{"20", "40", ""}));
    EXPECT_TRUE(Type(kies, 4, "7"));
    EXPECT_TRUE(Type(kies, colId, "77"));
    EXPECT_FALSE(dat_.Changed());
    EXPECT_EQ(grid_.Text(kies, 4), "40");
    EXPECT_EQ(grid_.Text(kies, colId), "2");
}

TEST_F(DataSourceGrid, HoldsTheCodesOfAList) {
    grid_.ColList(colRF, ReadList("#1;erste|#2;zweite|#3;dritte"));
    Open();
    EXPECT_EQ(grid_.Shown(kies, colRF), "zweite");
    EXPECT_TRUE(Type(kies, colRF, "dritte"));
    EXPECT_TRUE(grid_.LeaveRow());
    EXPECT_EQ(probe_.Wert("SELECT RF_MI FROM awaTeilraum_MI WHERE MI_Bez='Kies'"), Value(3));
}

TEST_F(DataSourceGrid, TakesAnOpenCellBeforeItIsReadAnew) {
    Open();
    grid_.GoTo(fels, colDeckung);
    grid_.StartEdit();
    grid_.EditText("50");
    dat_.Refresh();
    EXPECT_FALSE(grid_.IsEditing());
    EXPECT_EQ(Deckung("Fels"), Value(50.0F));
    grid_.StartEdit();
    grid_.EditText("60");
    dat_.LeaveRow();
    EXPECT_EQ(Deckung("Fels"), Value(60.0F));
}

TEST_F(DataSourceGrid, KeepsThePositionWhereItIsReadAnew) {
    Open();
    grid_.GoTo(kies, colRF);
    dat_.Refresh();
    EXPECT_EQ(grid_.Row(), kies);
    EXPECT_EQ(grid_.Col(), colRF);
    grid_.GoTo(sand, colRF);
    probe_.Handle()->Execute("DELETE FROM awaTeilraum_MI WHERE MI_Bez='Sand'");
    dat_.Refresh();
    EXPECT_EQ(grid_.Rows(), 3);
    EXPECT_EQ(grid_.Row(), kies);
    EXPECT_EQ(txtBez_.Text(), "Kies");
}

TEST_F(DataSourceGrid, BeginsAtTheFirstRowOfAnotherStatement) {
    Open();
    grid_.GoTo(sand, colRF);
    int repositions = 0;
    dat_.OnReposition = [&] { ++repositions; };
    // Fewer rows: the cursor's own goes.
    Open("SELECT * FROM awaTeilraum_MI WHERE RF_MI<3 ORDER BY RF_MI");
    EXPECT_EQ(grid_.Row(), fels);
    EXPECT_EQ(grid_.Col(), colRF);
    EXPECT_EQ(txtBez_.Text(), "Fels");
    EXPECT_EQ(repositions, 1);
}

TEST_F(DataSourceGrid, GoesOnWhereTheFormReadsItAnewAfterAWrite) {
    Open();
    dat_.OnWritten = [this] { dat_.Refresh(); };
    Type(fels, colRF, "8");  // the last one from now on
    EXPECT_TRUE(grid_.GoTo(sand, colBez));
    EXPECT_EQ(Column(colBez), (Texts{"Kies", "Sand", "Fels"}));
    EXPECT_EQ(grid_.Row(), sand);
    EXPECT_EQ(txtBez_.Text(), "Fels");
    // The same where code moves the cursor.
    Type(sand, colRF, "0");
    grid_.Select(kies, colBez);
    EXPECT_EQ(Column(colBez), (Texts{"Fels", "Kies", "Sand"}));
    EXPECT_EQ(grid_.Row(), kies);
    EXPECT_EQ(txtBez_.Text(), "Kies");
    Type(kies, colDeckung, "21");
    EXPECT_TRUE(grid_.LeaveRow());
    EXPECT_EQ(Deckung("Kies"), Value(21.0F));
}

TEST_F(DataSourceGrid, ShowsAWrittenValueInEachRowOfAJoinThatRepeatsIt) {
    dat_.Close();
    Grid& joined = form_.Add<Grid>("vsfgVerbund");
    joined.Fixed(1, 0);
    joined.Cols(2);
    joined.Editable(Editing::KeyboardAndMouse);
    DataSource& dat = form_.Add<DataSource>("datVerbund");
    dat.Bind(joined, {{"MI_Bez", 0}, {"DG_Gesamt", 1}});
    dat.Open(probe_.Handle(),
             "SELECT MI_Bez, DG_Gesamt FROM awaTeilraum_MI INNER JOIN awaTeilraum ON "
             "awaTeilraum_MI.ID_TR=awaTeilraum.ID_TR ORDER BY RF_MI");
    EXPECT_EQ(joined.Text(3, 1), "12,5");
    joined.GoTo(1, 1);
    joined.StartEdit();
    joined.EditText("44");
    EXPECT_TRUE(joined.LeaveRow());
    EXPECT_EQ(joined.Text(3, 1), "44");
    EXPECT_EQ(probe_.Wert("SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=1"), Value(44.0F));
}

TEST_F(DataSourceGrid, BoundToAnOpenSourceShowsItsRowsAtOnce) {
    Open();
    Grid& later = form_.Add<Grid>("vsfgSpaeter");
    later.Fixed(1, 0);
    later.Cols(1);
    dat_.Bind(later, {{"MI_Bez", 0}});
    ASSERT_EQ(later.Rows(), 4);
    EXPECT_EQ(later.Text(kies, 0), "Kies");
    // Both cursors are the current row.
    grid_.GoTo(sand, colBez);
    EXPECT_EQ(later.Row(), sand);
}

}  // namespace
}  // namespace FX_Algen::controls
