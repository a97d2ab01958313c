#include "controls/DataSource.h"

#include <memory>

#include "Datenprobe.h"
#include "controls/Lists.h"

namespace FX_Algen::controls {
namespace {

using store::Value;

/// The site row of a sub-habitat in fields.
class Stelle : public Form {
public:
    Stelle() : Form("frmStelle") {
        dat.Bind(txtGesamt, "DG_Gesamt");
        dat.Bind(txtMakro, "DG_MA");
        dat.Bind(txtDichte, "MitBewuchsdichte");
    }
    TextBox& txtGesamt = Add<TextBox>("txtGesamt");
    TextBox& txtMakro = Add<TextBox>("txtMakro");
    TextBox& txtDichte = Add<TextBox>("txtDichte");
    DataSource& dat = Add<DataSource>("datTeilraum");
};

constexpr const char* ersterTeilraum = "SELECT * FROM awaTeilraum WHERE ID_TR=1";
constexpr const char* gesamt = "SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=1";
constexpr const char* makro = "SELECT DG_MA FROM awaTeilraum WHERE ID_TR=1";
constexpr const char* dichte = "SELECT MitBewuchsdichte FROM awaTeilraum WHERE ID_TR=1";

class DataSourceFields : public testing::Test {
protected:
    void Open() { form_.dat.Open(probe_.Handle(), ersterTeilraum); }
    Datenprobe probe_;
    Stelle form_;
};

TEST_F(DataSourceFields, ShowTheFirstRowInTheLanguageOfTheForm) {
    Open();
    EXPECT_EQ(form_.txtGesamt.Text(), "12,5");
    EXPECT_EQ(form_.txtMakro.Text(), "0,1");
    EXPECT_EQ(form_.txtDichte.Text(), "");
    EXPECT_FALSE(form_.dat.Changed());
    form_.Sprache(20000);
    form_.dat.Refresh();
    EXPECT_EQ(form_.txtGesamt.Text(), "12.5");
}

TEST_F(DataSourceFields, ShowTextsAndBooleans) {
    TextBox& name = form_.Add<TextBox>("txtPSBez");
    CheckBox& shown = form_.Add<CheckBox>("chkAnzeige");
    DataSource& sites = form_.Add<DataSource>("datPS");
    sites.Bind(name, "PSBez");
    sites.Bind(shown, "Anzeige");
    sites.Open(probe_.Handle(), "SELECT PSBez, Anzeige FROM awaPrStelle WHERE ID_TR=1");
    EXPECT_EQ(name.Text(), "Brücke über die Ötz");
    EXPECT_TRUE(shown.Value());
    sites.Open(probe_.Handle(), "SELECT PSBez, Anzeige FROM awaPrStelle WHERE ID_TR=2");
    EXPECT_EQ(name.Text(), "Furt");
    EXPECT_FALSE(shown.Value());
    // Null shows as not checked, and stays Null where that is not changed.
    name.Text("Fürt's \"Steg\"");
    sites.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT PSBez FROM awaPrStelle WHERE ID_TR=2"), Value("Fürt's \"Steg\""));
    EXPECT_TRUE(probe_.Wert("SELECT Anzeige FROM awaPrStelle WHERE ID_TR=2").IsNull());
    shown.Value(true);
    sites.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT Anzeige FROM awaPrStelle WHERE ID_TR=2"), Value(true));
}

TEST_F(DataSourceFields, AreWrittenToTheFileWhenTheRowIsLeft) {
    Open();
    form_.txtGesamt.Text("33,25");
    EXPECT_TRUE(form_.dat.Changed());
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
    form_.dat.LeaveRow();
    EXPECT_FALSE(form_.dat.Changed());
    EXPECT_EQ(probe_.WertInDerDatei(gesamt), Value(33.25F));
}

TEST_F(DataSourceFields, AreWrittenOnlyWhereTheyWereChanged) {
    Open();
    probe_.Handle()->Execute("UPDATE awaTeilraum SET DG_MA=99 WHERE ID_TR=1");
    form_.txtGesamt.Text("33");
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(33.0F));
    EXPECT_EQ(probe_.Wert(makro), Value(99.0F));
}

TEST_F(DataSourceFields, ThatWereChangedBackAreNotWritten) {
    Open();
    probe_.Handle()->Execute("UPDATE awaTeilraum SET DG_Gesamt=99 WHERE ID_TR=1");
    form_.txtGesamt.Text("33");
    form_.txtGesamt.Text("12,5");
    EXPECT_FALSE(form_.dat.Changed());
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(99.0F));
}

TEST_F(DataSourceFields, WrittenAnotherWayAreNoChangeAndReadAsShownAgain) {
    Open();
    probe_.NurLesen(true);  // a write would fail
    form_.txtGesamt.Text(" 12.50");
    EXPECT_FALSE(form_.dat.Changed());
    form_.dat.LeaveRow();
    EXPECT_EQ(form_.txtGesamt.Text(), "12,5");
}

TEST_F(DataSourceFields, ThatWereEmptiedAreNullWhereTheyAreNoTexts) {
    Open();
    form_.txtGesamt.Text("");
    form_.txtMakro.Text("  ");
    form_.dat.LeaveRow();
    EXPECT_TRUE(probe_.Wert(gesamt).IsNull());
    EXPECT_TRUE(probe_.Wert(makro).IsNull());
    EXPECT_EQ(form_.txtMakro.Text(), "");

    TextBox& name = form_.Add<TextBox>("txtPSBez");
    DataSource& sites = form_.Add<DataSource>("datPS");
    sites.Bind(name, "PSBez");
    sites.Open(probe_.Handle(), "SELECT PSBez FROM awaPrStelle WHERE ID_TR=1");
    name.Text("");
    sites.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT PSBez FROM awaPrStelle WHERE ID_TR=1"), Value(""));
}

TEST_F(DataSourceFields, ShowWhatTheStoreHoldsAfterTheWrite) {
    TextBox& order = form_.Add<TextBox>("txtRF");
    DataSource& stands = form_.Add<DataSource>("datMI");
    stands.Bind(order, "RF_MI");
    stands.Open(probe_.Handle(), "SELECT RF_MI FROM awaTeilraum_MI WHERE ID_TR=1 ORDER BY RF_MI");
    order.Text("7,5");  // an integer column: halves go to the even neighbour, 8
    stands.LeaveRow();
    EXPECT_EQ(order.Text(), "8");

    Open();
    form_.txtGesamt.Text("12.3456789");  // the nearest float is 12.3456793, and 12.345679 reads back as that
    form_.dat.LeaveRow();
    EXPECT_EQ(form_.txtGesamt.Text(), "12,345679");
    // What is shown so is no change.
    EXPECT_FALSE(form_.dat.Changed());
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.3456789F));
}

TEST_F(DataSourceFields, ThatCannotBeTakenAreToldOfAndNothingOfTheRowIsWritten) {
    struct Case {
        std::string Typed;
        std::int32_t Number;
    };
    const std::vector<Case> cases{
        {"viel", ErrorNumber::TypeMismatch},
        {"zwölf", ErrorNumber::TypeMismatch},
        {"1,2,3", ErrorNumber::TypeMismatch},
        {"1" + std::string(39, '0'), ErrorNumber::Overflow},
    };
    Open();
    for (const auto& [typed, number] : cases) {
        form_.txtGesamt.Text("50");
        form_.txtMakro.Text(typed);
        const auto failure = Failing([&] { form_.dat.LeaveRow(); });
        ASSERT_TRUE(failure) << typed;
        EXPECT_EQ(failure->Number(), number) << typed;
        EXPECT_NE(failure->Description().find("'" + typed + "'"), std::string::npos);
        EXPECT_NE(failure->Description().find("'DG_MA'"), std::string::npos);
        EXPECT_TRUE(form_.dat.Changed());
        EXPECT_EQ(form_.txtGesamt.Text(), "50");
        EXPECT_EQ(form_.txtMakro.Text(), typed);
        EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
        EXPECT_EQ(probe_.Wert(makro), Value(0.1F));
    }
    form_.txtMakro.Text("5");
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(probe_.Wert(makro), Value(5.0F));
}

TEST_F(DataSourceFields, OfIntegersAndDatesNameWhatTheyCannotTake) {
    probe_.Ausfuehren(
        "INSERT INTO awaFundarchiv (ID_Art, Datum, Häufigkeit) VALUES (5, #5/9/2026#, 'häufig')");
    probe_.Datenbank();
    TextBox& art = form_.Add<TextBox>("txtID_Art");
    TextBox& day = form_.Add<TextBox>("txtDatum");
    TextBox& often = form_.Add<TextBox>("txtHaeufigkeit");
    DataSource& finds = form_.Add<DataSource>("datFundarchiv");
    finds.Bind(art, "ID_Art");
    finds.Bind(day, "Datum");
    finds.Bind(often, "Häufigkeit");
    finds.Open(probe_.Handle(), "SELECT * FROM awaFundarchiv");
    EXPECT_EQ(day.Text(), "09.05.2026");

    const auto expect = [&](TextBox& field, const std::string& typed, std::int32_t number,
                            const std::string& name) {
        const auto before = field.Text();
        field.Text(typed);
        const auto failure = Failing([&] { finds.LeaveRow(); });
        ASSERT_TRUE(failure) << typed;
        EXPECT_EQ(failure->Number(), number) << typed;
        EXPECT_NE(failure->Description().find("'" + typed + "'"), std::string::npos)
            << failure->Description();
        EXPECT_NE(failure->Description().find("'" + name + "'"), std::string::npos) << failure->Description();
        EXPECT_EQ(field.Text(), typed);
        field.Text(before);
    };
    expect(art, "99999999999", ErrorNumber::Overflow, "ID_Art");
    expect(day, "31.02.2026", ErrorNumber::TypeMismatch, "Datum");
    expect(day, "früh", ErrorNumber::TypeMismatch, "Datum");
    // A time of day is a date to the language, and no day to the column.
    expect(day, "09:30", ErrorNumber::TypeMismatch, "Datum");

    art.Text("6");
    day.Text("1.6.2026");
    often.Text("sehr häufig");
    finds.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT ID_Art FROM awaFundarchiv"), Value(6));
    EXPECT_EQ(probe_.Wert("SELECT Datum FROM awaFundarchiv"), Value(store::Date{"2026-06-01"}));
    EXPECT_EQ(probe_.Wert("SELECT Häufigkeit FROM awaFundarchiv"), Value("sehr häufig"));
    EXPECT_EQ(day.Text(), "01.06.2026");
}

TEST_F(DataSourceFields, StayAsTypedWhereTheStoreRefuses) {
    Open();
    form_.txtGesamt.Text("50");
    probe_.NurLesen(true);
    for (int turn = 0; turn < 2; ++turn) {
        const auto failure = Failing([&] { form_.dat.LeaveRow(); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->Number(), ErrorNumber::NotADatabase);
        EXPECT_TRUE(form_.dat.Changed());
        EXPECT_EQ(form_.txtGesamt.Text(), "50");
        EXPECT_EQ(form_.dat.Rows()["DG_Gesamt"], Value(12.5F));  // what the table holds
    }
    probe_.NurLesen(false);
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(DataSourceFields, StayAsTypedWhereTheTableIsGone) {
    Open();
    form_.txtGesamt.Text("50");
    probe_.Handle()->TableDefs().Delete("awaTeilraum");
    const auto failure = Failing([&] { form_.dat.LeaveRow(); });
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->Description().find("awaTeilraum"), std::string::npos) << failure->Description();
    EXPECT_TRUE(form_.dat.Changed());
    EXPECT_EQ(form_.txtGesamt.Text(), "50");
}

TEST_F(DataSourceFields, StayAsTypedWhereAKeyIsTaken) {
    TextBox& key = form_.Add<TextBox>("txtID_TR");
    form_.dat.Bind(key, "ID_TR");
    Open();
    key.Text("2");
    const auto failure = Failing([&] { form_.dat.LeaveRow(); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), ErrorNumber::DuplicateKey);
    EXPECT_EQ(key.Text(), "2");
    key.Text("3");
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=3"), Value(12.5F));
}

TEST_F(DataSourceFields, OfARowThatIsGoneStayAsTypedUntilTheyAreCancelled) {
    Open();
    form_.txtGesamt.Text("50");
    probe_.Handle()->Execute("DELETE FROM awaTeilraum WHERE ID_TR=1");
    const auto failure = Failing([&] { form_.dat.LeaveRow(); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_NE(failure->Description().find("no longer in 'awaTeilraum'"), std::string::npos);
    EXPECT_EQ(form_.txtGesamt.Text(), "50");
    form_.dat.CancelUpdate();
    form_.dat.LeaveRow();
    EXPECT_EQ(form_.txtGesamt.Text(), "12,5");
    form_.dat.Refresh();
    EXPECT_EQ(form_.txtGesamt.Text(), "");
}

TEST_F(DataSourceFields, ThatCodeAssignedAreWrittenToo) {
    Open();
    form_.txtDichte.Text("2");
    form_.dat.Update();
    EXPECT_EQ(probe_.Wert(dichte), Value(2.0F));
}

TEST_F(DataSourceFields, WithoutAColumnAreShownAndNeverWritten) {
    probe_.Ausfuehren("INSERT INTO awaArt (ID_ART, Gattung, Erstellt) VALUES (5, 'Ödogonium', #5/9/2026#)");
    probe_.Datenbank();
    TextBox& genus = form_.Add<TextBox>("txtGattung");
    TextBox& made = form_.Add<TextBox>("txtErstellt");
    DataSource& taxon = form_.Add<DataSource>("datArt");
    taxon.Bind(genus, "Gattung");
    taxon.Bind(made, "ErstelltDate");
    taxon.Open(probe_.Handle(),
               "SELECT Gattung, Format([Erstellt],'dd.mm.yyyy') AS ErstelltDate FROM awaArt WHERE ID_ART=5");
    EXPECT_EQ(made.Text(), "09.05.2026");
    made.Text("01.01.1900");
    EXPECT_FALSE(taxon.Changed());
    taxon.LeaveRow();
    EXPECT_EQ(made.Text(), "09.05.2026");

    made.Text("01.01.1900");
    genus.Text("Oedogonium");
    taxon.LeaveRow();
    EXPECT_EQ(made.Text(), "09.05.2026");
    EXPECT_EQ(probe_.Wert("SELECT Gattung FROM awaArt WHERE ID_ART=5"), Value("Oedogonium"));
    EXPECT_EQ(probe_.Wert("SELECT Erstellt FROM awaArt WHERE ID_ART=5"), Value(store::Date{"2026-05-09"}));
}

TEST_F(DataSourceFields, OfAJoinAreWrittenToTheirTables) {
    TextBox& name = form_.Add<TextBox>("txtPSBez");
    form_.dat.Bind(name, "PSBez");
    form_.dat.Open(probe_.Handle(),
                   "SELECT DISTINCTROW awaTeilraum.*, awaPrStelle.PSBez FROM awaTeilraum INNER JOIN "
                   "awaPrStelle ON awaTeilraum.ID_TR=awaPrStelle.ID_TR WHERE awaTeilraum.ID_TR=1");
    name.Text("Wöhr");
    form_.txtMakro.Text("4");
    form_.dat.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT PSBez FROM awaPrStelle WHERE ID_TR=1"), Value("Wöhr"));
    EXPECT_EQ(probe_.Wert(makro), Value(4.0F));
}

TEST_F(DataSourceFields, OfAComboChooseItsEntry) {
    ComboBox& name = form_.Add<ComboBox>("cboPSBez");
    name.Items({"Furt", "Brücke über die Ötz"});
    DataSource& sites = form_.Add<DataSource>("datPS");
    sites.Bind(name, "PSBez");
    sites.Open(probe_.Handle(), "SELECT PSBez FROM awaPrStelle WHERE ID_TR=1");
    EXPECT_EQ(name.ListIndex(), 1);
    name.ListIndex(0);
    sites.LeaveRow();
    EXPECT_EQ(probe_.Wert("SELECT PSBez FROM awaPrStelle WHERE ID_TR=1"), Value("Furt"));
}

TEST_F(DataSourceFields, BoundToAnOpenSourceShowAtOnce) {
    Open();
    TextBox& later = form_.Add<TextBox>("txtSpaeter");
    form_.dat.Bind(later, "DG_Gesamt");
    EXPECT_EQ(later.Text(), "12,5");
    EXPECT_TRUE(form_.dat.Has(later));
    const auto failure = Failing([&] { form_.dat.Bind(form_.Add<TextBox>("txtFalsch"), "DG_Falsch"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), ErrorNumber::UnknownField);
    // Nothing was bound: the source works on.
    form_.dat.Refresh();
}

}  // namespace
}  // namespace FX_Algen::controls
