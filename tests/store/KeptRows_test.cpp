#include "store/KeptRows.h"

#include <functional>
#include <thread>
#include <vector>

#include "StoreFixture.h"
#include "store/AppendRows.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::MakeDatabase;
using test::Open;
using test::OtherProgram;

/// A family whose taxa go with it by a foreign key, an order whose families go with it by a trigger, and a
/// trigger on a scratch table that somebody added.
constexpr const char* Additions =
    "CREATE TABLE Ordnung(ID INTEGER PRIMARY KEY, Name TEXT);"
    "CREATE TABLE Familie(ID INTEGER PRIMARY KEY, ID_Ordnung INTEGER, Name TEXT);"
    "CREATE TABLE Gattung(ID INTEGER PRIMARY KEY, ID_Familie INTEGER REFERENCES Familie(ID) ON DELETE "
    "CASCADE,"
    " Name TEXT);"
    "CREATE TRIGGER Ordnung_Kaskade AFTER DELETE ON Ordnung BEGIN DELETE FROM Familie WHERE "
    "ID_Ordnung=OLD.ID; END;"
    "CREATE TABLE awaErgWRRL(ID INTEGER PRIMARY KEY, OEZK SMALLINT);"
    "CREATE TRIGGER Erg_Merker AFTER UPDATE ON awaErgWRRL BEGIN UPDATE Gattung SET Name='Ä' WHERE ID=1; END;"
    "CREATE TABLE sesErgProjekt(ID INTEGER PRIMARY KEY, Taxa SMALLINT);"
    "INSERT INTO Ordnung VALUES(1,'Grünalgen'),(2,'Öde');"
    "INSERT INTO Familie VALUES(1,1,'Ulotrichaceae'),(2,2,'Zygnemataceae');"
    "INSERT INTO Gattung VALUES(1,1,'Ulothrix'),(2,2,'Zygnema');"
    "INSERT INTO awaErgWRRL VALUES(10,2);"
    "INSERT INTO sesErgProjekt VALUES(10,2);";

class KeptRowsTest : public test::StoreTest {
protected:
    KeptRowsTest() {
        OtherProgram(path_).Run(Additions);
        Fresh();  // the change of the schema is seen with the first statement
    }

    using Names = std::vector<std::string>;

    /// Names of the genera, read where they are not kept.
    Names Read(const std::string& source = "SELECT Name FROM Gattung ORDER BY ID;") {
        return *KeptRows<Names>(TheConnection(), source, [&] {
            ++reads_;
            return Fresh(source);
        });
    }
    Names Fresh(const std::string& source = "SELECT Name FROM Gattung ORDER BY ID;") {
        Names names;
        const auto rows = db_->OpenRecordset(source);
        for (; !rows->Eof(); rows->MoveNext()) names.push_back((*rows)[0].Text());
        return names;
    }
    /// How often the rows were read since the last call.
    int Reads() { return std::exchange(reads_, 0); }

    RecordsetPtr Row(const std::string& select) { return db_->OpenRecordset(select); }

    struct Act {
        std::string Name;
        std::function<void()> Do;
    };

    int reads_ = 0;
};

TEST_F(KeptRowsTest, AreReadOnceWhileNothingChanges) {
    EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"}));
    EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"}));
    EXPECT_EQ(Reads(), 1);
}

TEST_F(KeptRowsTest, AreReadAnewAfterAnyChangeOfLastingRows) {
    const auto link = folder_.File("Verweis.db");
    std::filesystem::create_symlink(path_, link);
    const auto report = MakeDatabase(folder_, "Übersicht.db",
                                     "CREATE TABLE Quelle(ID INTEGER, Name TEXT);"
                                     "INSERT INTO Quelle VALUES(77,'Ödogonium')");
    const std::vector<Act> acts = {
        {"insert", [&] { db_->Execute("INSERT INTO Gattung (ID, Name) VALUES (3, 'Öd')"); }},
        {"update", [&] { db_->Execute("UPDATE Gattung SET Name='Üppig' WHERE ID=3"); }},
        {"delete", [&] { db_->Execute("DELETE * FROM Gattung WHERE ID=3"); }},
        {"update of another table", [&] { db_->Execute("UPDATE awaArt SET Algenart=3 WHERE ID_ART=1"); }},
        {"row edited",
         [&] {
             const auto row = Row("SELECT * FROM Gattung WHERE ID=1");
             row->Edit();
             row->Collect("Name", "Ätherisch");
             row->Update();
         }},
        {"row added",
         [&] {
             const auto row = Row("SELECT * FROM Gattung");
             row->AddNew();
             row->Collect("ID", 9);
             row->Collect("Name", "Neu");
             row->Update();
         }},
        {"row deleted", [&] { Row("SELECT * FROM Gattung WHERE ID=9")->Delete(); }},
        {"two tables of a join edited",
         [&] {
             const auto row = Row(
                 "SELECT Gattung.ID, Gattung.Name, sesErgProjekt.ID AS Erg, sesErgProjekt.Taxa FROM Gattung, "
                 "sesErgProjekt WHERE Gattung.ID=1");
             row->Edit();
             row->Collect("Name", "Verbund");
             row->Collect("Taxa", 5);
             row->Update();
         }},
        {"rows appended",
         [&] {
             AppendRows(db_->SharedConnection(), "Gattung", {"ID", "Name"}, 1,
                        [](EngineStatement& insert, std::size_t) {
                            insert.BindInteger(0, 30);
                            insert.BindText(1, "Angehängt");
                        });
         }},
        {"through a link",
         [&] { Open(link)->Execute("UPDATE Gattung SET Name='Über den Verweis' WHERE ID=1"); }},
        {"INSERT IN with the own path",
         [&] {
             db_->Execute("INSERT INTO Gattung (ID, Name) IN '" + path_ +
                          "' SELECT 40+ID_ART, Name FROM awaArt WHERE ID_ART=1");
         }},
        {"INSERT IN from another database",
         [&] {
             Open(report)->Execute("INSERT INTO Gattung (ID, Name) IN '" + path_ +
                                   "' SELECT ID, Name FROM Quelle");
         }},
        {"another program", [&] { OtherProgram(path_).Run("UPDATE Gattung SET Name='Fremd' WHERE ID=1"); }},
        {"another thread",
         [&] { std::thread([&] { Open(path_)->Execute("DELETE * FROM Gattung WHERE ID=30"); }).join(); }},
        {"cascade of a foreign key", [&] { db_->Execute("DELETE * FROM Familie WHERE ID=2"); }},
        {"cascade of triggers and keys", [&] { db_->Execute("DELETE * FROM Ordnung WHERE ID=1"); }},
        {"savepoint that is kept",
         [&] {
             Savepoint unit(db_->SharedConnection());
             db_->Execute("INSERT INTO Gattung (ID, Name) VALUES (50, 'Behalten')");
             unit.Keep();
         }},
        {"a column more",
         [&] {
             auto tables = db_->TableDefs();
             tables["awaArt"].Append(TableDef::CreateField("Geprüft", FieldType::Boolean));
         }},
        {"every row gone", [&] { db_->Execute("DELETE * FROM Gattung"); }},
        {"a table gone", [&] { db_->TableDefs().Delete("awaFundarchiv"); }},
    };
    Read();
    Reads();
    for (const auto& act : acts) {
        act.Do();
        EXPECT_EQ(Read(), Fresh()) << act.Name;
        EXPECT_EQ(Reads(), 1) << act.Name;
        EXPECT_EQ(Read(), Fresh()) << act.Name;
        EXPECT_EQ(Reads(), 0) << act.Name;
    }
}

TEST_F(KeptRowsTest, AreReadAnewWhereATriggerOfAScratchTableChangesLastingRows) {
    Read();
    db_->Execute("UPDATE awaErgWRRL SET OEZK=3 WHERE ID=10");
    EXPECT_EQ(Read(), (Names{"Ä", "Zygnema"}));
    OtherProgram(path_).Run("UPDATE Gattung SET Name='Ulothrix' WHERE ID=1");
    Read();
    const auto row = Row("SELECT * FROM awaErgWRRL");
    row->Edit();
    row->Collect("OEZK", 4);
    row->Update();
    EXPECT_EQ(Read(), (Names{"Ä", "Zygnema"}));
}

TEST_F(KeptRowsTest, StayWhereOnlyScratchRowsChange) {
    const auto report = MakeDatabase(folder_, "Bericht.db", "CREATE TABLE rpt_Liste(ID INTEGER, Name TEXT)");
    const auto make_list = [&] {
        auto tables = db_->TableDefs();
        auto list = db_->CreateTableDef("awaArtenlisteHaeufigkeit");
        list.Append(TableDef::CreateField("ID_Art", FieldType::Long));
        tables.Append(list);
    };
    const std::vector<Act> acts = {
        {"insert", [&] { db_->Execute("INSERT INTO sesErgProjekt (ID, Taxa) VALUES (11, 4)"); }},
        {"update", [&] { db_->Execute("UPDATE sesErgProjekt SET Taxa=5"); }},
        {"update of none", [&] { db_->Execute("UPDATE sesErgProjekt SET Taxa=5 WHERE ID=99"); }},
        {"row edited",
         [&] {
             const auto row = Row("SELECT * FROM sesErgProjekt");
             row->Edit();
             row->Collect("Taxa", 6);
             row->Update();
         }},
        {"row added and deleted",
         [&] {
             const auto row = Row("SELECT * FROM sesErgProjekt");
             row->AddNew();
             row->Collect("ID", 12);
             row->Update();
             Row("SELECT * FROM sesErgProjekt WHERE ID=12")->Delete();
         }},
        {"refused",
         [&] {
             EXPECT_EQ(FailureNumber([&] { db_->Execute("INSERT INTO sesErgProjekt (ID) VALUES (11)"); }),
                       ErrorNumber::DuplicateKey);
         }},
        {"emptied", [&] { db_->Execute("DELETE * FROM sesErgProjekt"); }},
        {"made", make_list},
        {"appended",
         [&] {
             AppendRows(db_->SharedConnection(), "awaArtenlisteHaeufigkeit", {"ID_Art"}, 3,
                        [](EngineStatement& insert, std::size_t row) {
                            insert.BindInteger(0, static_cast<std::int64_t>(row));
                        });
         }},
        {"a column more",
         [&] {
             auto tables = db_->TableDefs();
             tables["awaArtenlisteHaeufigkeit"].Append(TableDef::CreateField("A17", FieldType::Double));
         }},
        {"dropped", [&] { db_->TableDefs().Delete("awaArtenlisteHaeufigkeit"); }},
        {"made once more", make_list},
        {"rows of a report in another file",
         [&] {
             db_->Execute("INSERT INTO rpt_Liste (ID, Name) IN '" + report +
                          "' SELECT ID, Name FROM Gattung");
         }},
        {"read", [&] { Fresh(); }},
        {"savepoint that is kept without a change",
         [&] {
             Savepoint unit(db_->SharedConnection());
             unit.Keep();
         }},
    };
    Read();
    Reads();
    for (const auto& act : acts) {
        act.Do();
        EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"})) << act.Name;
        EXPECT_EQ(Reads(), 0) << act.Name;
    }
}

TEST_F(KeptRowsTest, AreReadAnewOnceASavepointWasUndone) {
    Read();
    {
        const Savepoint undone(db_->SharedConnection());
        db_->Execute("UPDATE Gattung SET Name='Vorläufig' WHERE ID=1");
        EXPECT_EQ(Read(), (Names{"Vorläufig", "Zygnema"}));
        {
            const Savepoint inner(db_->SharedConnection());
            db_->Execute("UPDATE Gattung SET Name='Noch vorläufiger' WHERE ID=1");
            EXPECT_EQ(Read(), (Names{"Noch vorläufiger", "Zygnema"}));
        }
        EXPECT_EQ(Read(), (Names{"Vorläufig", "Zygnema"}));
    }
    EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"}));
}

TEST_F(KeptRowsTest, AreThoseOfOneStatement) {
    const std::string other = "SELECT Name FROM Familie ORDER BY ID;";
    Read();
    EXPECT_EQ(Read(other), (Names{"Ulotrichaceae", "Zygnemataceae"}));
    EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"}));
    EXPECT_EQ(Reads(), 3) << "one entry a connection";
}

TEST_F(KeptRowsTest, AreNotKeptWhereReadingFailed) {
    const auto fail = [&] {
        KeptRows<Names>(TheConnection(), "SELECT Name FROM Gattung ORDER BY ID;",
                        []() -> Names { throw Error(ErrorNumber::TypeMismatch, "Übung"); });
    };
    EXPECT_EQ(FailureNumber(fail), ErrorNumber::TypeMismatch);
    EXPECT_EQ(Read(), (Names{"Ulothrix", "Zygnema"}));
    EXPECT_EQ(Reads(), 1);
}

TEST_F(KeptRowsTest, ThatChangedWhileTheyWereReadAreReadAnew) {
    const std::string source = "SELECT Name FROM Gattung ORDER BY ID;";
    KeptRows<Names>(TheConnection(), source, [&] {
        auto names = Fresh(source);
        OtherProgram(path_).Run("UPDATE Gattung SET Name='Dazwischen' WHERE ID=1");
        return names;
    });
    EXPECT_EQ(Read(), (Names{"Dazwischen", "Zygnema"}));
}

}  // namespace
}  // namespace FX_Algen::store
