#include "store/Connection.h"

#include <sys/wait.h>

#include <csignal>
#include <fstream>
#include <thread>

#include "StoreFixture.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::FailureWords;
using test::MakeDatabase;
using test::Open;
using test::OtherProgram;

class ConnectionTest : public test::StoreTest {};

TEST_F(ConnectionTest, MissingFileIsFileNotFound) {
    const auto path = folder_.File("fehlt.db");
    EXPECT_EQ(FailureNumber([&] { Open(path); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureWords([&] { Open(path); }), "OpenDatabase: File not found: '" + path + "'.");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ConnectionTest, FilesThatAreNoDatabaseOfThisLayoutAreRefused) {
    const auto text = folder_.File("notiz.txt");
    std::ofstream(text) << std::string(4096, 'x');
    EXPECT_EQ(FailureNumber([&] { Open(text); }), ErrorNumber::NotADatabase);

    const auto empty = folder_.File("leer.db");
    std::ofstream(empty).flush();
    EXPECT_EQ(FailureNumber([&] { Open(empty); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(FailureNumber([&] { Open(folder_.Path().string()); }), ErrorNumber::NotADatabase);

    const auto other = folder_.File("andere.db");
    OtherProgram(other).Run("PRAGMA user_version=77; CREATE TABLE t(a)");
    EXPECT_EQ(FailureNumber([&] { Open(other); }), ErrorNumber::NotADatabase);
    const auto words = FailureWords([&] { Open(other); });
    EXPECT_NE(words.find("77"), std::string::npos) << words;
    EXPECT_NE(words.find("version " + std::to_string(LayoutVersion)), std::string::npos) << words;
}

TEST_F(ConnectionTest, AFileThatIsRefusedStaysAsItIs) {
    const auto bytes = [](const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const auto empty = folder_.File("leer.db");
    std::ofstream(empty).flush();
    const auto other = folder_.File("andere.db");
    OtherProgram(other).Run("PRAGMA user_version=77; CREATE TABLE t(a)");
    for (const auto& path : {empty, other}) {
        const auto before = bytes(path);
        EXPECT_EQ(FailureNumber([&] { Open(path); }), ErrorNumber::NotADatabase) << path;
        EXPECT_EQ(bytes(path), before) << path;
        for (const char* beside : {"-wal", "-shm", "-journal"})
            EXPECT_FALSE(std::filesystem::exists(path + beside)) << path << beside;
    }
}

TEST_F(ConnectionTest, AFileThatIsTakenWritesAhead) {
    EXPECT_EQ(OtherProgram(path_).One("PRAGMA journal_mode"), "wal");
}

TEST_F(ConnectionTest, HandlesOnOnePathShareAConnection) {
    const auto link = folder_.File("Verweis.db");
    std::filesystem::create_symlink(path_, link);
    const auto roundabout = folder_.File("./Gewässer.db");
    const auto first = Open(roundabout);
    const auto second = Open(link);
    EXPECT_EQ(first->SharedConnection(), db_->SharedConnection());
    EXPECT_EQ(second->SharedConnection(), db_->SharedConnection());
    EXPECT_EQ(first->Name(), roundabout);
    EXPECT_EQ(second->Name(), link);
}

TEST_F(ConnectionTest, EachThreadHasAConnectionOfItsOwn) {
    const Connection* other = nullptr;
    std::int32_t rows = 0;
    std::thread([&] {
        const auto db = Open(path_);
        other = db->SharedConnection().get();
        rows = db->OpenRecordset("awaArt")->RecordCount();
    }).join();
    EXPECT_NE(other, db_->SharedConnection().get());
    EXPECT_EQ(rows, 4);
}

TEST_F(ConnectionTest, AFileThatTookThePathLaterIsAnotherDatabase) {
    // Kept open, so that its place on the disk is not given to the new file.
    for (const char* rest : {"", "-wal", "-shm"})
        if (std::filesystem::exists(path_ + rest))
            std::filesystem::rename(path_ + rest, folder_.File(std::string("alt.db") + rest));
    MakeDatabase(folder_, "Gewässer.db", "CREATE TABLE neu(a INTEGER); INSERT INTO neu VALUES(5)");
    const auto db = Open(path_);
    EXPECT_NE(db->SharedConnection(), db_->SharedConnection());
    EXPECT_EQ((*db->OpenRecordset("neu"))["a"], Value(5));
}

TEST_F(ConnectionTest, ClosedHandlesFailAndOpenRecordsetsGoOn) {
    const auto rows = db_->OpenRecordset("SELECT Name FROM awaArt ORDER BY ID_ART");
    db_->Close();
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaArt"); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(FailureNumber([&] { db_->Execute("DELETE * FROM awaArt"); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(FailureNumber([&] { db_->TableDefs(); }), ErrorNumber::NotADatabase);
    EXPECT_EQ((*rows)["Name"], Value("Ödogonium"));
    rows->Requery();
    EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_F(ConnectionTest, TwoDatabasesStandSideBySide) {
    const auto other = Open(MakeDatabase(folder_, "Haupt.db",
                                         "CREATE TABLE awaArt(ID_ART INTEGER PRIMARY KEY, Gruppe TEXT);"
                                         "INSERT INTO awaArt VALUES(1,'Grünalgen')"));
    EXPECT_EQ((*other->OpenRecordset("SELECT Gruppe FROM awaArt"))[0], Value("Grünalgen"));
    EXPECT_EQ(One("SELECT Name FROM awaArt WHERE ID_ART=1"), Value("Ödogonium"));
    EXPECT_EQ(FailureNumber([&] { other->OpenRecordset("SELECT Name FROM awaArt"); }),
              ErrorNumber::UnknownName);
}

TEST_F(ConnectionTest, RepeatedStatementsShareOnePreparedStatement) {
    const auto before = TheConnection().StatementCount();
    for (int id = 1; id <= 4; ++id)
        EXPECT_EQ(One("SELECT ID_ART FROM awaArt WHERE (ID_ART=" + std::to_string(id) + ");"), Value(id));
    EXPECT_EQ(TheConnection().StatementCount(), before + 1);
}

TEST_F(ConnectionTest, TheStatementCacheIsBounded) {
    for (std::size_t i = 0; i < Connection::StatementLimit + 50; ++i)
        EXPECT_EQ(One("SELECT ID_ART AS Spalte" + std::to_string(i) + " FROM awaArt WHERE ID_ART=3"),
                  Value(3));
    EXPECT_EQ(TheConnection().StatementCount(), Connection::StatementLimit);
    EXPECT_EQ(One("SELECT ID_ART AS Spalte0 FROM awaArt WHERE ID_ART=2"), Value(2));
}

TEST_F(ConnectionTest, LongStatementsAreNotKept) {
    const auto before = TheConnection().StatementCount();
    std::string list;
    for (int i = 1; list.size() < Connection::LongestKept; ++i)
        list += (i > 1 ? "," : "") + std::to_string(i);
    for (int i = 0; i < 260; ++i) {
        list += ",1";
        db_->Execute("UPDATE awaArt SET Algenart=Algenart WHERE ID_ART IN (" + list + ")");
        EXPECT_EQ(db_->RecordsAffected(), 4);
    }
    EXPECT_EQ(TheConnection().StatementCount(), before);
    EXPECT_EQ(db_->OpenRecordset("SELECT * FROM awaArt WHERE ID_ART IN (" + list + ")")->RecordCount(), 4);
    EXPECT_EQ(TheConnection().StatementCount(), before);
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt");
    rows->FindFirst("ID_ART IN (77," + list + ")");
    EXPECT_FALSE(rows->NoMatch());
}

TEST_F(ConnectionTest, AnotherProgramThatWritesIsToldAsInUse) {
    // Without the wait of some seconds.
    TheConnection().TheEngine().Run("PRAGMA busy_timeout=0");
    OtherProgram other(path_);
    other.Run("BEGIN IMMEDIATE");
    const auto write = [&] { db_->Execute("UPDATE awaArt SET Algenart=1"); };
    EXPECT_EQ(FailureNumber(write), ErrorNumber::NotADatabase);
    EXPECT_NE(FailureWords(write).find("in use by another program"), std::string::npos)
        << FailureWords(write);
    EXPECT_EQ(One("SELECT Algenart FROM awaArt WHERE ID_ART=2"), Value(std::int16_t{2}));  // reading goes on
    other.Run("ROLLBACK");
    EXPECT_EQ(FailureNumber(write), 0);
}

TEST_F(ConnectionTest, ADatabaseThatMayNotBeWrittenIsTold) {
    TheConnection().TheEngine().Run("PRAGMA query_only=1");
    const auto write = [&] { db_->Execute("UPDATE awaArt SET Algenart=1"); };
    EXPECT_EQ(FailureNumber(write), ErrorNumber::NotADatabase);
    EXPECT_NE(FailureWords(write).find("read-only"), std::string::npos) << FailureWords(write);
}

TEST_F(ConnectionTest, LiteralsThatShapeTheTranslationAreKeptApart) {
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(One("SELECT Format(Datum,'dd.mm.yyyy') FROM awaPrStelle WHERE ID_PS=1"),
                  Value("09.05.2026"));
        EXPECT_EQ(One("SELECT Format(Datum,'yyyy') FROM awaPrStelle WHERE ID_PS=1"), Value("2026"));
        EXPECT_EQ(One("SELECT Count(*) FROM awaArt WHERE Name<>''"), Value(4));
        EXPECT_EQ(One("SELECT Count(*) FROM awaArt WHERE Name<>'navicula'"), Value(3));
    }
}

TEST_F(ConnectionTest, ChangesOfTheSchemaByAnotherProgramAreSeen) {
    EXPECT_EQ(db_->OpenRecordset("SELECT * FROM awaArt")->Fields().size(), 3U);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("SELECT Autor FROM awaArt"); }),
              ErrorNumber::UnknownName);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("SELECT * FROM Neu"); }), ErrorNumber::UnknownTable);
    {
        OtherProgram other(path_);
        other.Run("ALTER TABLE awaArt ADD COLUMN Autor TEXT DEFAULT 'Kützing'");
        other.Run("CREATE TABLE Neu(a SMALLINT)");
    }
    EXPECT_EQ(db_->OpenRecordset("SELECT * FROM awaArt")->Fields().size(), 4U);
    EXPECT_EQ(One("SELECT Autor FROM awaArt"), Value("Kützing"));
    EXPECT_TRUE(db_->OpenRecordset("Neu")->Eof());
    OtherProgram(path_).Run("DROP TABLE Neu");
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("Neu"); }), ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("SELECT * FROM Neu"); }), ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { db_->Execute("INSERT INTO Neu (a) VALUES (1)"); }),
              ErrorNumber::UnknownTable);
}

TEST_F(ConnectionTest, AColumnThatChangesItsKindIsReadAnew) {
    OtherProgram(path_).Run("CREATE TABLE Neu(a SMALLINT); INSERT INTO Neu VALUES(1)");
    EXPECT_EQ(One("SELECT a FROM Neu"), Value(std::int16_t{1}));
    OtherProgram(path_).Run("DROP TABLE Neu; CREATE TABLE Neu(a DOUBLE); INSERT INTO Neu VALUES(0.25)");
    EXPECT_EQ(One("SELECT a FROM Neu"), Value(0.25));
}

TEST_F(ConnectionTest, SavepointUndoesUnlessItIsKept) {
    {
        const Savepoint undone(db_->SharedConnection());
        db_->Execute("DELETE * FROM awaArtPrStelle");
        {
            Savepoint inner(db_->SharedConnection());
            db_->Execute("UPDATE awaErgProjekt SET n=5");
            inner.Keep();
        }
        EXPECT_EQ(One("SELECT Count(*) FROM awaArtPrStelle"), Value(0));
        EXPECT_EQ(One("SELECT n FROM awaErgProjekt"), Value(std::int16_t{5}));
    }
    EXPECT_EQ(One("SELECT Count(*) FROM awaArtPrStelle"), Value(4));
    EXPECT_EQ(One("SELECT n FROM awaErgProjekt"), Value(std::int16_t{1}));
    {
        Savepoint kept(db_->SharedConnection());
        db_->Execute("UPDATE awaErgProjekt SET n=7");
        kept.Keep();
    }
    EXPECT_EQ(OtherProgram(path_).One("SELECT n FROM awaErgProjekt"), "7");
}

// Whoever reads or copies the file meanwhile must find it as it was, counters of its changes included.
TEST_F(ConnectionTest, UndoneSavepointsChangeNothingForOthers) {
    OtherProgram other(path_);
    const auto version = other.One("PRAGMA data_version");
    {
        const Savepoint undone(db_->SharedConnection());
        db_->Execute("DELETE * FROM awaArtPrStelle");
        const Savepoint inner(db_->SharedConnection());
        db_->Execute("UPDATE awaErgProjekt SET n=5");
    }
    EXPECT_EQ(other.One("SELECT Count(*) FROM awaArtPrStelle"), "4");
    EXPECT_EQ(other.One("PRAGMA data_version"), version);
    // Nothing is left open either: the next change is seen at once.
    db_->Execute("UPDATE awaErgProjekt SET n=6");
    EXPECT_EQ(other.One("SELECT n FROM awaErgProjekt"), "6");
    EXPECT_NE(other.One("PRAGMA data_version"), version);
}

TEST_F(ConnectionTest, AnInnerSavepointUndoesItsOwnChangesAlone) {
    {
        Savepoint outer(db_->SharedConnection());
        db_->Execute("UPDATE awaErgProjekt SET n=5");
        {
            const Savepoint inner(db_->SharedConnection());
            db_->Execute("UPDATE awaErgProjekt SET n=9");
        }
        EXPECT_EQ(One("SELECT n FROM awaErgProjekt"), Value(std::int16_t{5}));
        outer.Keep();
    }
    EXPECT_EQ(OtherProgram(path_).One("SELECT n FROM awaErgProjekt"), "5");
}

TEST_F(ConnectionTest, TablesMadeInsideAnUndoneSavepointAreForgotten) {
    {
        const Savepoint undone(db_->SharedConnection());
        auto tables = db_->TableDefs();
        auto table = db_->CreateTableDef("Zwischen");
        table.Append(TableDef::CreateField("a", FieldType::Long));
        tables.Append(table);
        EXPECT_TRUE(db_->OpenRecordset("Zwischen")->Eof());
    }
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("Zwischen"); }), ErrorNumber::UnknownTable);
}

TEST_F(ConnectionTest, EnteredRowsAreSafeFromPowerFailureAndScratchRowsFromACrash) {
    const auto synchronous = [this] {
        const auto statement = TheConnection().TheEngine().Prepare("PRAGMA synchronous");
        statement->Step();
        return statement->Integer(0);
    };
    constexpr int normal = 1;
    constexpr int full = 2;
    db_->Execute("UPDATE awaErgProjekt SET n=2");
    EXPECT_EQ(synchronous(), normal);
    db_->Execute("UPDATE awaArt SET Algenart=2 WHERE ID_ART=1");
    EXPECT_EQ(synchronous(), full);
    const auto results = db_->OpenRecordset("awaErgProjekt");
    results->Edit();
    results->Collect("n", 3);
    results->Update();
    EXPECT_EQ(synchronous(), normal);
    const auto sites = db_->OpenRecordset("awaPrStelle");
    sites->AddNew();
    sites->Update();
    EXPECT_EQ(synchronous(), full);
}

TEST(ScratchTables, AreResultsFrequencyListAndReports) {
    for (const char* name :
         {"awaErgProjekt", "AWAERGWRRL", "sesErgProjekt", "sesErgProjektTmp", "awaArtenlisteHaeufigkeit",
          "fx_Lauf", "fx_LaufSeston", "rpt_awaAuswertung", "RPT_lbl_x"})
        EXPECT_TRUE(IsScratchTable(name)) << name;
    for (const char* name : {"awaArt", "awaTeilraum", "sesArtPrStelle", "awaErgProjektAlt", "report"})
        EXPECT_FALSE(IsScratchTable(name)) << name;
}

TEST_F(ConnectionTest, AKilledProcessLeavesADatabaseThatOpens) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        // A copy of an open connection must not be used across a fork: the child opens its own.
        const auto own = std::make_shared<Connection>(path_, DatabaseFile::At(path_));
        const auto db = std::make_shared<Database>(own);
        for (int i = 100;; ++i) {
            db->Execute("INSERT INTO awaArt (ID_ART, Name) VALUES (" + std::to_string(i) + ",'Grünalge')");
            db->Execute("UPDATE awaErgProjekt SET n=" + std::to_string(i % 30000));
            if (i == 120 && write(ready[1], "x", 1) != 1) _exit(1);
        }
    }
    ASSERT_GT(child, 0);
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    ASSERT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    close(ready[0]);
    close(ready[1]);

    const Connection fresh(path_, DatabaseFile::At(path_));
    const auto count = db_->OpenRecordset("SELECT Name FROM awaArt WHERE ID_ART>=100")->RecordCount();
    EXPECT_GE(count, 21);  // 100 to 120
    EXPECT_EQ(OtherProgram(path_).One("PRAGMA integrity_check"), "ok");
}

}  // namespace
}  // namespace FX_Algen::store
