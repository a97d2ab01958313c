#include <memory>

#include "Datenprobe.h"
#include "controls/DataSource.h"

namespace FX_Algen::controls {
namespace {

using store::Value;

constexpr const char* ersterTeilraum = "SELECT * FROM awaTeilraum WHERE ID_TR=1";
constexpr const char* zweiterTeilraum = "SELECT * FROM awaTeilraum WHERE ID_TR=2";
constexpr const char* keinTeilraum = "SELECT * FROM awaTeilraum WHERE ID_TR=77";
constexpr const char* gesamt = "SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=1";

class DataSourceRows : public testing::Test {
protected:
    DataSourceRows() {
        dat_.Bind(txtGesamt_, "DG_Gesamt");
        dat_.OnReposition = [this] { ++repositions_; };
        dat_.OnWritten = [this] { ++writes_; };
    }
    void Open(const char* statement = ersterTeilraum) { dat_.Open(probe_.Handle(), statement); }
    /// As `Input` does it.
    void Type(const std::string& text) {
        txtGesamt_.Text(text);
        dat_.NoteChange(txtGesamt_);
    }

    Datenprobe probe_;
    Form form_{"frmStelle"};
    TextBox& txtGesamt_ = form_.Add<TextBox>("txtGesamt");
    DataSource& dat_ = form_.Add<DataSource>("datTeilraum");
    int repositions_ = 0, writes_ = 0;
};

TEST_F(DataSourceRows, OfAClosedSourceAreToldAsMissing) {
    for (const auto& call : std::vector<std::function<void()>>{[&] { dat_.Rows(); }, [&] { dat_.Refresh(); },
                                                               [&] { dat_.Edit(); }}) {
        const auto failure = Failing(call);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->Number(), ErrorNumber::NoCurrentRecord);
        EXPECT_NE(failure->Description().find("'datTeilraum'"), std::string::npos);
    }
    EXPECT_FALSE(dat_.IsOpen());
    EXPECT_FALSE(dat_.Changed());
    dat_.LeaveRow();  // nothing to write
    dat_.CancelUpdate();
}

TEST_F(DataSourceRows, AreThoseOfTheStatement) {
    Open();
    EXPECT_TRUE(dat_.IsOpen());
    EXPECT_EQ(dat_.Statement(), ersterTeilraum);
    EXPECT_EQ(dat_.Rows()["ID_TR"], Value(1));
}

TEST_F(DataSourceRows, TellWhenTheyBecomeCurrentAndWhenTheyWereWritten) {
    Open();
    EXPECT_EQ(repositions_, 1);
    dat_.Refresh();
    EXPECT_EQ(repositions_, 2);
    dat_.LeaveRow();
    EXPECT_EQ(writes_, 0);
    Type("50");
    dat_.LeaveRow();
    EXPECT_EQ(writes_, 1);
    EXPECT_EQ(repositions_, 2);
    Open(keinTeilraum);
    EXPECT_EQ(repositions_, 2);
}

TEST_F(DataSourceRows, AreLeftBeforeOthersAreOpened) {
    Open();
    Type("50");
    Open(zweiterTeilraum);
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(txtGesamt_.Text(), "20");

    Type("viel");
    EXPECT_TRUE(Failing([&] { Open(); }));
    EXPECT_EQ(dat_.Statement(), zweiterTeilraum);
    EXPECT_EQ(txtGesamt_.Text(), "viel");
}

TEST_F(DataSourceRows, StayWhereOthersCannotBeOpened) {
    Open();
    EXPECT_EQ(Failing([&] { Open("SELECT * FROM awaUnbekannt"); })->Number(), ErrorNumber::UnknownTable);
    // Rows without the bound field.
    EXPECT_EQ(Failing([&] { Open("SELECT * FROM awaPrStelle"); })->Number(), ErrorNumber::UnknownField);
    // Rows with one of two bound fields, in another place.
    dat_.Bind(form_.Add<TextBox>("txtMakro"), "DG_MA");
    EXPECT_EQ(Failing([&] { Open("SELECT DG_Gesamt, ID_TR FROM awaTeilraum"); })->Number(),
              ErrorNumber::UnknownField);
    EXPECT_EQ(Failing([&] { dat_.Open(nullptr, ersterTeilraum); })->Number(), ErrorNumber::NotADatabase);
    EXPECT_EQ(dat_.Statement(), ersterTeilraum);
    Type("50");
    dat_.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(txtGesamt_.Text(), "50");
}

TEST_F(DataSourceRows, AreLeftBeforeTheyAreReadAnew) {
    Open();
    Type("50");
    dat_.Refresh();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(txtGesamt_.Text(), "50");

    probe_.Handle()->Execute("UPDATE awaTeilraum SET DG_Gesamt=60 WHERE ID_TR=1");
    Type("viel");
    EXPECT_EQ(Failing([&] { dat_.Refresh(); })->Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(txtGesamt_.Text(), "viel");
    dat_.CancelUpdate();
    dat_.Refresh();
    EXPECT_EQ(txtGesamt_.Text(), "60");
}

TEST_F(DataSourceRows, ThatCouldNotBeReadAnewStay) {
    Open();
    probe_.Handle()->TableDefs().Delete("awaTeilraum");
    EXPECT_EQ(Failing([&] { dat_.Refresh(); })->Number(), ErrorNumber::UnknownTable);
    EXPECT_EQ(txtGesamt_.Text(), "12,5");
    EXPECT_EQ(dat_.Rows()["ID_TR"], Value(1));
}

TEST_F(DataSourceRows, MayBeNoneAndWhatIsTypedThenIsTold) {
    txtGesamt_.Text("von früher");
    Open(keinTeilraum);
    EXPECT_EQ(txtGesamt_.Text(), "");
    // What the form's own code puts there is no finding of a person.
    txtGesamt_.Text("Hinweis");
    EXPECT_FALSE(dat_.Changed());
    Type("50");
    EXPECT_TRUE(dat_.Changed());
    EXPECT_EQ(Failing([&] { dat_.LeaveRow(); })->Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(txtGesamt_.Text(), "50");
    Type("");
    EXPECT_FALSE(dat_.Changed());
    dat_.LeaveRow();
}

TEST_F(DataSourceRows, OfAClosedSourceKeepWhatTheyShow) {
    Open();
    Type("50");
    dat_.Close();
    EXPECT_FALSE(dat_.IsOpen());
    EXPECT_FALSE(dat_.Changed());
    EXPECT_EQ(dat_.Statement(), "");
    EXPECT_EQ(txtGesamt_.Text(), "50");
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
}

TEST_F(DataSourceRows, AreWrittenWhereverTheFormReadIn) {
    Open("SELECT * FROM awaTeilraum ORDER BY ID_TR");
    auto& rows = dat_.Rows();
    rows.MoveLast();
    EXPECT_EQ(rows["ID_TR"], Value(2));
    Type("50");
    dat_.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(probe_.Wert("SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=2"), Value(20.0F));
}

TEST_F(DataSourceRows, InEditAreWrittenByUpdateAlone) {
    Open();
    dat_.Edit();
    EXPECT_TRUE(dat_.IsEditing());
    Type("50");
    dat_.LeaveRow();  // such as on the way to a button that cancels
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
    EXPECT_EQ(txtGesamt_.Text(), "50");
    EXPECT_TRUE(dat_.Changed());
    dat_.Update();
    EXPECT_FALSE(dat_.IsEditing());
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(DataSourceRows, InEditComeBackWhenThatIsCancelled) {
    Open();
    dat_.Edit();
    Type("viel");
    dat_.CancelUpdate();
    EXPECT_FALSE(dat_.IsEditing());
    EXPECT_FALSE(dat_.Changed());
    EXPECT_EQ(txtGesamt_.Text(), "12,5");
    Type("50");
    dat_.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(DataSourceRows, InEditStaySoWhereTheWriteFails) {
    Open();
    dat_.Edit();
    Type("viel");
    EXPECT_TRUE(Failing([&] { dat_.Update(); }));
    EXPECT_TRUE(dat_.IsEditing());
    EXPECT_EQ(txtGesamt_.Text(), "viel");
    Type("50");
    dat_.Update();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(DataSourceRows, InEditAreWrittenBeforeTheSourceMovesOn) {
    Open();
    dat_.Edit();
    Type("50");
    Open(zweiterTeilraum);
    EXPECT_FALSE(dat_.IsEditing());
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(DataSourceRows, ThatAreNoRowsOfATableCannotBeEdited) {
    Open("SELECT Sum(DG_Gesamt) AS DG_Gesamt FROM awaTeilraum");
    EXPECT_EQ(txtGesamt_.Text(), "32,5");  // 12.5 + 20
    EXPECT_EQ(Failing([&] { dat_.Edit(); })->Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_FALSE(dat_.IsEditing());
    Open(keinTeilraum);
    EXPECT_EQ(Failing([&] { dat_.Edit(); })->Number(), ErrorNumber::NoCurrentRecord);
}

}  // namespace
}  // namespace FX_Algen::controls
