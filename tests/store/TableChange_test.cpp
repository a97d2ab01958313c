// What a connection keeps when one of its tables is made, altered or dropped.
#include "StoreFixture.h"
#include "store/AppendRows.h"
#include "store/TableText.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::OtherProgram;

class TableChange : public test::StoreTest {
protected:
    void Make(const std::string& name, const std::vector<FieldDef>& fields) {
        auto table = db_->CreateTableDef(name);
        for (const auto& field : fields) table.Append(field);
        db_->TableDefs().Append(table);
    }
    void MakeList(const std::string& column, FieldType type = FieldType::Double) {
        Make("Häufigkeitsliste",
             {TableDef::CreateField("ID_Art", FieldType::Long), TableDef::CreateField(column, type)});
    }
    void Drop() { db_->TableDefs().Delete("Häufigkeitsliste"); }
    std::size_t FieldCount(const std::string& source) { return db_->OpenRecordset(source)->Fields().size(); }
};

TEST_F(TableChange, KeepsTheStatementsOfOtherTablesReady) {
    MakeList("A17");
    One("SELECT Count(*) FROM awaArt");
    One("SELECT Count(*) FROM awaPrStelle");
    const auto others = TheConnection().StatementCount();
    One("SELECT Count(*) FROM Häufigkeitsliste");
    db_->Execute("UPDATE [HÄUFIGKEITSLISTE] SET A17=1");
    One("SELECT Count(*) FROM awaArt INNER JOIN Häufigkeitsliste ON awaArt.ID_ART = Häufigkeitsliste.ID_Art");
    EXPECT_EQ(TheConnection().StatementCount(), others + 3);
    Drop();
    EXPECT_EQ(TheConnection().StatementCount(), others);
    MakeList("A18");
    EXPECT_EQ(TheConnection().StatementCount(), others);
    EXPECT_EQ(One("SELECT Count(*) FROM awaArt"), Value(4));
    EXPECT_EQ(TheConnection().StatementCount(), others);
}

TEST_F(TableChange, ReadsTheTableItselfAnew) {
    const std::string all = "SELECT * FROM häufigkeitsliste";
    MakeList("A17");
    db_->Execute("INSERT INTO Häufigkeitsliste (ID_Art, A17) VALUES (1, 2.5)");
    EXPECT_EQ(db_->OpenRecordset(all)->Fields()[1].Name, "A17");
    EXPECT_EQ(FailureNumber([&] { One("SELECT A18 FROM Häufigkeitsliste"); }), ErrorNumber::UnknownName);
    Drop();
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset(all); }), ErrorNumber::UnknownTable);
    MakeList("A18", FieldType::Integer);
    db_->Execute("INSERT INTO Häufigkeitsliste (ID_Art, A18) VALUES (1, 2.5)");
    const auto rows = db_->OpenRecordset(all);
    EXPECT_EQ(rows->Fields()[1].Name, "A18");
    EXPECT_EQ((*rows)["A18"], Value(std::int16_t{2}));
    EXPECT_EQ(FailureNumber([&] { One("SELECT A17 FROM Häufigkeitsliste"); }), ErrorNumber::UnknownName);
    db_->TableDefs()["Häufigkeitsliste"].Append(TableDef::CreateField("A19", FieldType::Double));
    EXPECT_EQ(FieldCount(all), 3U);
    // Its place among the tables is that of its making.
    auto tables = db_->TableDefs();
    EXPECT_EQ(tables.Name(tables.Count() - 1), "Häufigkeitsliste");
    EXPECT_EQ(FailureNumber([&] { tables.Name(tables.Count()); }), ErrorNumber::IndexOutOfRange);
}

TEST_F(TableChange, ReadsViewsOfTheTableAnew) {
    MakeList("Wert");
    OtherProgram(path_).Run(
        "CREATE VIEW Sicht AS SELECT Wert FROM HäUFIGKEITSLISTE; CREATE VIEW Weitsicht AS "
        "SELECT Wert AS Auch FROM Sicht");
    db_->Execute("INSERT INTO Häufigkeitsliste (ID_Art, Wert) VALUES (1, 2.5)");
    EXPECT_EQ(One("SELECT Wert FROM Sicht"), Value(2.5));
    EXPECT_EQ(One("SELECT Auch FROM Weitsicht"), Value(2.5));
    Drop();
    MakeList("Wert", FieldType::Integer);
    db_->Execute("INSERT INTO Häufigkeitsliste (ID_Art, Wert) VALUES (1, 3)");
    EXPECT_EQ(One("SELECT Wert FROM Sicht"), Value(std::int16_t{3}));
    EXPECT_EQ(One("SELECT Auch FROM Weitsicht"), Value(std::int16_t{3}));
}

TEST_F(TableChange, SeesWhatAnotherProgramChangedMeanwhile) {
    EXPECT_EQ(FieldCount("SELECT * FROM awaArt"), 3U);
    OtherProgram(path_).Run("ALTER TABLE awaArt ADD COLUMN Autor TEXT DEFAULT 'Kützing'");
    MakeList("A17");
    EXPECT_EQ(FieldCount("SELECT * FROM awaArt"), 4U);
    OtherProgram(path_).Run("ALTER TABLE awaArt ADD COLUMN Jahr SMALLINT");
    Drop();
    EXPECT_EQ(FieldCount("SELECT * FROM awaArt"), 5U);
    // The other one drops and makes the very table.
    MakeList("A17");
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 2U);
    OtherProgram(path_).Run("DROP TABLE Häufigkeitsliste");
    OtherProgram(path_).Run("CREATE TABLE Häufigkeitsliste(ID_Art INTEGER, A17 DOUBLE, A18 DOUBLE)");
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 3U);
}

TEST_F(TableChange, WritesToTheKindsThatAnotherProgramGaveTheColumns) {
    const std::string insert = "INSERT INTO Häufigkeitsliste (ID_Art, A17) VALUES (1, 2.5)";
    const std::string update = "UPDATE Häufigkeitsliste SET A17=3.5 WHERE ID_Art=1";
    MakeList("A17", FieldType::Integer);
    db_->Execute(insert);
    EXPECT_EQ(One("SELECT A17 FROM Häufigkeitsliste"), Value(std::int16_t{2}));  // half to even
    db_->Execute(update);
    EXPECT_EQ(One("SELECT A17 FROM Häufigkeitsliste"), Value(std::int16_t{4}));
    OtherProgram(path_).Run(
        "DROP TABLE Häufigkeitsliste; CREATE TABLE Häufigkeitsliste(ID_Art INTEGER, A17 "
        "DOUBLE)");
    db_->Execute(insert);
    EXPECT_EQ(One("SELECT A17 FROM Häufigkeitsliste"), Value(2.5));
    OtherProgram(path_).Run(
        "DROP TABLE Häufigkeitsliste; CREATE TABLE Häufigkeitsliste(ID_Art INTEGER, A17 "
        "SMALLINT); INSERT INTO Häufigkeitsliste VALUES(1,0)");
    db_->Execute(update);
    EXPECT_EQ(One("SELECT A17 FROM Häufigkeitsliste"), Value(std::int16_t{4}));
}

TEST_F(TableChange, OfATableThatAnotherProgramMadeUnderANameInOtherLetters) {
    MakeList("A17");
    auto tables = db_->TableDefs();
    auto& list = tables["Häufigkeitsliste"];
    OtherProgram(path_).Run("DROP TABLE Häufigkeitsliste; CREATE TABLE HäUFIGKEITSLISTE(ID_Art INTEGER)");
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 1U);
    list.Append(TableDef::CreateField("A18", FieldType::Double));
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 2U);
    EXPECT_EQ(FieldCount("SELECT * FROM häufigkeitsliste"), 2U);
    tables.Delete("Häufigkeitsliste");
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("HäUFIGKEITSLISTE"); }), ErrorNumber::UnknownTable);
}

TEST_F(TableChange, IsForgottenWithTheSavepointThatHeldIt) {
    MakeList("A17");
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 2U);
    {
        const Savepoint undone(db_->SharedConnection());
        Drop();
        Make("Häufigkeitsliste", {TableDef::CreateField("ID_Art", FieldType::Long)});
        EXPECT_EQ(FieldCount("Häufigkeitsliste"), 1U);
    }
    EXPECT_EQ(FieldCount("Häufigkeitsliste"), 2U);
    Drop();
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("Häufigkeitsliste"); }), ErrorNumber::UnknownTable);
}

TEST_F(TableChange, LeavesThePlannersFiguresAsTheyAre) {
    const std::string figures =
        "SELECT group_concat(stat, '|') FROM (SELECT stat FROM sqlite_stat1 ORDER BY idx)";
    const auto right = OtherProgram(path_).One(figures);
    EXPECT_NE(right, "(null)");
    MakeList("A17");
    Drop();
    EXPECT_EQ(OtherProgram(path_).One(figures), right);
    // Another program's counts go once it changed the schema, too.
    OtherProgram(path_).Run("ANALYZE; CREATE TABLE Neu(a INTEGER)");
    EXPECT_NE(OtherProgram(path_).One(figures), right);
    MakeList("A17");
    One("SELECT Count(*) FROM awaStand");
    EXPECT_EQ(OtherProgram(path_).One(figures), right);
    // A table of which there are figures takes them along.
    db_->TableDefs().Delete("awaArtPrStelle");
    Make("awaArtPrStelle", {TableDef::CreateField("ID_PS", FieldType::Long)});
    One("SELECT Count(*) FROM awaArtPrStelle");
    EXPECT_EQ(OtherProgram(path_).One(figures), right);
}

// ---- a table that is there already ---------------------------------------------------------------------

TEST_F(TableChange, KnowsATableThatIsMadeAsItIsWanted) {
    const std::string name = "Häufigkeitsliste";
    auto flag = TableDef::CreateField("Geprüft", FieldType::Boolean);
    flag.DefaultValue = "0";
    const std::vector<FieldDef> fields{TableDef::CreateField("ID_Art", FieldType::Long), flag,
                                       TableDef::CreateField("Bez", FieldType::Text, 8)};
    EXPECT_FALSE(IsMadeOf(TheConnection(), name, fields)) << "not there";
    Make(name, fields);
    EXPECT_TRUE(IsMadeOf(TheConnection(), name, fields));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        auto less = fields;
        less.erase(less.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_FALSE(IsMadeOf(TheConnection(), name, less)) << i;
        auto other = fields;
        other[i].Name += "x";
        EXPECT_FALSE(IsMadeOf(TheConnection(), name, other)) << i;
    }
    auto other = fields;
    other[1].DefaultValue = "-1";
    EXPECT_FALSE(IsMadeOf(TheConnection(), name, other));
    EXPECT_FALSE(IsMadeOf(TheConnection(), "Fundliste", fields)) << "a view";
    OtherProgram(path_).Run("CREATE INDEX Neben ON Häufigkeitsliste(Bez)");
    EXPECT_FALSE(IsMadeOf(TheConnection(), name, fields)) << "with an index";
}

TEST_F(TableChange, EmptiesATable) {
    EmptyTable(TheConnection(), "awaArtPrStelle");
    EXPECT_EQ(One("SELECT Count(*) FROM awaArtPrStelle"), Value(0));
    EXPECT_EQ(FailureNumber([&] { EmptyTable(TheConnection(), "Überzählig"); }), ErrorNumber::UnknownTable);
}

// ---- rows in one go ------------------------------------------------------------------------------------

TEST_F(TableChange, AppendsRowsInOneGo) {
    MakeList("A17");
    const auto append = [&](std::size_t rows, const std::string& table) {
        AppendRows(db_->SharedConnection(), table, {"ID_Art", "A17"}, rows,
                   [](EngineStatement& insert, std::size_t row) {
                       insert.BindInteger(0, static_cast<std::int64_t>(row) + 1);
                       insert.BindReal(1, static_cast<double>(row) * 0.5);
                   });
    };
    append(3, "Häufigkeitsliste");
    append(0, "Häufigkeitsliste");
    const auto rows = db_->OpenRecordset("Häufigkeitsliste");
    EXPECT_EQ(rows->RecordCount(), 3);
    rows->MoveLast();
    EXPECT_EQ((*rows)["ID_Art"], Value(3));
    EXPECT_EQ((*rows)["A17"], Value(1.0));
    EXPECT_FALSE(TheConnection().TheEngine().InTransaction());
    EXPECT_EQ(FailureNumber([&] { append(1, "Überzählig"); }), ErrorNumber::UnknownTable);
}

TEST_F(TableChange, AppendsNoneOfTheRowsWhereOneIsRefused) {
    const auto append = [&] {
        AppendRows(db_->SharedConnection(), "awaErgProjekt", {"ID", "KAOnly"}, 3,
                   [](EngineStatement& insert, std::size_t row) {
                       insert.BindInteger(0, 12 - static_cast<std::int64_t>(row));
                       insert.BindInteger(1, 0);
                   });
    };
    EXPECT_EQ(FailureNumber(append), ErrorNumber::DuplicateKey);  // the third one is 10
    EXPECT_EQ(One("SELECT Count(*) FROM awaErgProjekt"), Value(1));
    EXPECT_FALSE(TheConnection().TheEngine().InTransaction());
}

TEST_F(TableChange, TakesAsManyColumnsAsCanBeOpened) {
    std::vector<FieldDef> fields;
    for (std::size_t i = 0; i < MostColumns(TheConnection()); ++i)
        fields.push_back(TableDef::CreateField("Ä" + std::to_string(i), FieldType::Double));
    Make("Breit", fields);
    db_->Execute("INSERT INTO Breit (Ä0) VALUES (1.5)");
    const auto row = db_->OpenRecordset("SELECT * FROM Breit");
    EXPECT_EQ(row->Fields().size(), fields.size());
    row->Edit();
    row->Collect(fields.back().Name, 2.5);
    row->Update();
    EXPECT_EQ(One("SELECT " + fields.back().Name + " FROM Breit"), Value(2.5));
}

}  // namespace
}  // namespace FX_Algen::store
