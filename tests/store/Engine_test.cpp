#include "store/Engine.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <csignal>
#include <fstream>
#include <vector>

#include "TemporaryFolder.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::FailureWords;

class EngineTest : public testing::Test {
protected:
    std::unique_ptr<Engine> New(const std::string& sql = {}) {
        auto engine = OpenEngine(folder_.File("a.db"), true);
        if (!sql.empty()) engine->Run(sql);
        return engine;
    }
    static Value One(Engine& engine, const std::string& sql, Kind kind = Kind::Null) {
        const auto statement = engine.Prepare(sql);
        EXPECT_TRUE(statement->Step()) << sql;
        return statement->Column(0, kind);
    }

    test::TemporaryFolder folder_;
};

TEST_F(EngineTest, MissingFileIsFileNotFound) {
    EXPECT_EQ(FailureNumber([&] { OpenEngine(folder_.File("fehlt.db"), false); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureNumber([&] { OpenEngine("", false); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureNumber([&] { OpenEngine("", true); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureNumber([&] { OpenEngine(":memory:", false); }), ErrorNumber::FileNotFound);
}

TEST_F(EngineTest, FileOfAnotherKindIsNotADatabase) {
    const auto path = folder_.File("Häufigkeit.txt");
    std::ofstream(path) << std::string(2000, 'x');
    EXPECT_EQ(FailureNumber([&] { OpenEngine(path, false); }), ErrorNumber::NotADatabase);
    EXPECT_NE(FailureWords([&] { OpenEngine(path, false); }).find(path), std::string::npos);
    EXPECT_EQ(FailureNumber([&] { OpenEngine(folder_.Path().string(), false); }), ErrorNumber::NotADatabase);
}

TEST_F(EngineTest, NewDatabaseWritesAheadAndWatchesReferences) {
    auto engine = New();
    EXPECT_EQ(One(*engine, "PRAGMA journal_mode"), Value("wal"));
    EXPECT_EQ(One(*engine, "PRAGMA foreign_keys"), Value(1));
    EXPECT_EQ(One(*engine, "PRAGMA synchronous"), Value(2));
}

TEST_F(EngineTest, DurabilityChangesOutsideATransactionOnly) {
    auto engine = New();
    engine->Durable(false);
    EXPECT_EQ(One(*engine, "PRAGMA synchronous"), Value(1));
    engine->Run("SAVEPOINT s");
    EXPECT_TRUE(engine->InTransaction());
    engine->Durable(true);
    engine->Run("RELEASE s");
    EXPECT_EQ(One(*engine, "PRAGMA synchronous"), Value(1));
    engine->Durable(true);
    EXPECT_EQ(One(*engine, "PRAGMA synchronous"), Value(2));
}

TEST_F(EngineTest, ConstraintsHaveTheNumbersOfTheStore) {
    auto engine =
        New("CREATE TABLE eltern(id INTEGER PRIMARY KEY, name TEXT NOT NULL);"
            "CREATE TABLE kind(id INTEGER, flag BOOLEAN CHECK(flag IN (-1,0)), "
            "  e INTEGER REFERENCES eltern(id), PRIMARY KEY(id, flag));"
            "CREATE UNIQUE INDEX einmal ON eltern(name);"
            "CREATE TRIGGER bleibt BEFORE DELETE ON eltern WHEN old.id=9 BEGIN SELECT RAISE(ABORT,'Zeile 9 "
            "bleibt'); END;"
            "INSERT INTO eltern VALUES(1,'a'),(9,'z'); INSERT INTO kind VALUES(1,0,1);");
    struct Case {
        const char* Sql;
        std::int32_t Number;
        const char* Words;
    };
    const Case cases[] = {
        {"INSERT INTO eltern VALUES(1,'b')", 3022, "eltern.id"},
        {"INSERT INTO eltern VALUES(2,'a')", 3022, "eltern.name"},
        {"INSERT INTO kind VALUES(1,0,1)", 3022, "kind.id, kind.flag"},
        {"INSERT INTO eltern VALUES(2,NULL)", 94, "eltern.name"},
        {"INSERT INTO kind VALUES(2,0,77)", 3200, "does not exist"},
        {"DELETE FROM eltern WHERE id=1", 3200, "refer"},
        {"DELETE FROM eltern WHERE id=9", 3200, "Zeile 9 bleibt"},
        {"INSERT INTO kind VALUES(3,1,1)", 13, "flag"},
        {"INSERT INTO eltern VALUES('x','y')", 13, "whole numbers"},
        {"SELECT fx_div(1,0)", 11, "Division by zero"},
        {"SELECT sum(9223372036854775807) FROM (SELECT 1 UNION ALL SELECT 2)", 6, "overflow"},
    };
    for (const Case& c : cases) {
        const auto run = [&] { engine->Prepare(c.Sql)->Step(); };
        EXPECT_EQ(FailureNumber(run), c.Number) << c.Sql;
        EXPECT_NE(FailureWords(run).find(c.Words), std::string::npos) << c.Sql << ": " << FailureWords(run);
    }
}

TEST_F(EngineTest, StatementsThatCannotBePreparedSayWhy) {
    auto engine = New("CREATE TABLE t(a INTEGER)");
    EXPECT_EQ(FailureNumber([&] { engine->Prepare("SELEKT 1"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { engine->Prepare(""); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { engine->Prepare("SELECT * FROM u"); }), ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { engine->Prepare("SELECT b FROM t"); }), ErrorNumber::UnknownName);
    // A name in double quotes is never taken for a text.
    EXPECT_EQ(FailureNumber([&] { engine->Prepare("SELECT \"b\" FROM t"); }), ErrorNumber::UnknownName);
    EXPECT_EQ(FailureNumber([&] { engine->Run("CREATE TABLE T(x)"); }), ErrorNumber::DuplicateKey);
}

TEST_F(EngineTest, ColumnsComeInTheKindAskedFor) {
    auto engine = New();
    struct Case {
        const char* Sql;
        Kind As;
        Value Expected;
    };
    const Case cases[] = {
        {"SELECT 7", Kind::I2, std::int16_t{7}},
        {"SELECT 7", Kind::I4, 7},
        {"SELECT 7", Kind::Null, 7},
        {"SELECT 3000000000", Kind::Null, 3000000000.0},
        {"SELECT 0.1", Kind::R4, 0.1F},
        {"SELECT 0.1", Kind::R8, 0.1},
        {"SELECT 2", Kind::R8, 2.0},
        {"SELECT 1", Kind::Bool, true},
        {"SELECT 0", Kind::Bool, false},
        {"SELECT 'Grünalge'", Kind::Text, "Grünalge"},
        {"SELECT 'Grünalge'", Kind::Null, "Grünalge"},
        {"SELECT ''", Kind::Text, ""},
        {"SELECT '2026-05-12'", Kind::Date, Date{"2026-05-12"}},
        {"SELECT 12", Kind::Text, "12"},
        {"SELECT NULL", Kind::I4, Value()},
    };
    for (const Case& c : cases) EXPECT_EQ(One(*engine, c.Sql, c.As), c.Expected) << c.Sql;
    EXPECT_EQ(FailureNumber([&] { One(*engine, "SELECT 40000", Kind::I2); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { One(*engine, "SELECT 3000000000", Kind::I4); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { One(*engine, "SELECT 'x'", Kind::I4); }), ErrorNumber::TypeMismatch);
}

TEST_F(EngineTest, BindingsReachTheStatementAndAreDroppedByReset) {
    auto engine = New();
    const auto statement = engine->Prepare("SELECT ?1, ?2, ?3, ?4, ?5, ?6");
    statement->Bind(0, Value(true));
    statement->Bind(1, Value("Öl"));
    statement->Bind(2, Value(0.1F));
    statement->Bind(3, Value(Date{"2026-01-02"}));
    statement->BindText(4, std::string_view());
    statement->BindInteger(5, 5);
    ASSERT_TRUE(statement->Step());
    std::vector<Value> row;
    const std::vector<Kind> kinds(6, Kind::Null);
    statement->AppendRow(kinds, row);
    EXPECT_EQ(row, (std::vector<Value>{-1, "Öl", double{0.1F}, "2026-01-02", "", 5}));
    EXPECT_FALSE(statement->Step());
    statement->Reset();
    ASSERT_TRUE(statement->Step());
    for (std::size_t i = 0; i < 6; ++i) EXPECT_TRUE(statement->IsNull(i));
}

TEST_F(EngineTest, FunctionsOfTheDialectFollowTheStore) {
    auto engine = New();
    struct Case {
        const char* Expression;
        Value Expected;
    };
    const Case cases[] = {
        {"fx_like('Ödogonium','öd*')", 1},
        {"fx_like('Ödogonium','od*')", 0},
        {"fx_like(NULL,'a')", Value()},
        {"fx_like('a',NULL)", Value()},
        {"fx_like(12,'1#')", 1},
        {"fx_div(1,4)", 0.25},
        {"fx_div(NULL,0)", Value()},
        {"fx_format('2026-05-09','dd.mm.yyyy',7)", "09.05.2026"},
        {"fx_format(NULL,'dd',0)", ""},
        {"fx_text(-1,5)", "-1"},
        {"fx_text(1,5)", "-1"},
        {"fx_text('2026-05-09',7)", "09.05.2026"},
        {"fx_text('2026-05-09',0)", "2026-05-09"},
        {"fx_text(0.1,0)", "0.1"},
        {"fx_text(0.100000001490116,3)", "0.1"},
        {"fx_text(NULL,0)", Value()},
        {"fx_cstr(12,0)", "12"},
        {"fx_to('12',2)", 12},
        {"fx_to(2.5,1)", 2},  // half to even
        {"fx_to(3.5,1)", 4},
        {"fx_to(5,5)", -1},
        {"fx_to(12,6)", "12"},
        {"fx_to('9.5.2026',7)", "2026-05-09"},
        {"fx_to('9.5.2026 9:30',7)", "2026-05-09"},  // a column of days
        {"fx_to('9.5.2026 9:30',8)", "09:30:00"},    // a column of times
        {"fx_to('9:30',8)", "09:30:00"},
        {"fx_finite(NULL,0)", Value()},
        {"fx_finite(7,0)", 7},
        {"fx_format(2.6749999523162842,'0.00',3)", "2.68"},  // 2.675 as a 32-bit float
        {"fx_to(NULL,1)", Value()},
        {"'HÄUFIG'='häufig' COLLATE FX_CI", 1},
        {"'ä'<'b' COLLATE FX_DE", 1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(One(*engine, std::string("SELECT ") + c.Expression), c.Expected) << c.Expression;
    const auto number = [&](const std::string& expression) {
        return FailureNumber([&] { One(*engine, "SELECT " + expression); });
    };
    EXPECT_EQ(number("fx_to(40000,1)"), ErrorNumber::Overflow);
    EXPECT_EQ(number("fx_to('x',2)"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(number("fx_to('9:30',7)"), ErrorNumber::TypeMismatch);
    for (const char* call : {"fx_to(1e999,4)", "fx_to(1e999,3)", "fx_to(1e999,5)", "fx_text(1e999,0)",
                             "fx_finite(-1e999,0)", "fx_div(1e308,1e-10)", "1e999"})
        EXPECT_EQ(number(call), ErrorNumber::Overflow) << call;
    EXPECT_EQ(number("fx_cstr(NULL,0)"), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(number("fx_like('a','[')"), ErrorNumber::SyntaxError);
    EXPECT_EQ(number("fx_format('2026-05-09','qq',7)"), ErrorNumber::SyntaxError);
}

TEST_F(EngineTest, PatternOfEachRowIsItsOwn) {
    auto engine =
        New("CREATE TABLE t(w TEXT, m TEXT); INSERT INTO t VALUES('abc','a*'),('abc','b*'),('xbc','?bc')");
    EXPECT_EQ(One(*engine, "SELECT count(*) FROM t WHERE fx_like(w,m)"), Value(2));
    EXPECT_EQ(One(*engine, "SELECT count(*) FROM t WHERE fx_like(w,'a*')"), Value(2));
}

TEST_F(EngineTest, AStatementTellsThatTheSchemaChangedUnderIt) {
    auto engine = New("CREATE TABLE t(a INTEGER); INSERT INTO t VALUES(1)");
    const auto statement = engine->Prepare("SELECT a FROM t");
    statement->Step();
    statement->Reset();
    EXPECT_FALSE(statement->PreparedAnew());
    engine->Run("ALTER TABLE t ADD COLUMN b DOUBLE");
    statement->Step();
    EXPECT_TRUE(statement->PreparedAnew());
    EXPECT_FALSE(statement->PreparedAnew());
    EXPECT_EQ(statement->DeclaredType(0), "INTEGER");
    EXPECT_EQ(statement->ColumnName(0), "a");
}

TEST_F(EngineTest, AKilledProcessLeavesADatabaseThatOpens) {
    const auto path = folder_.File("a.db");
    New("CREATE TABLE t(a INTEGER PRIMARY KEY)").reset();
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        // Writes until it is killed; each statement is final at once.
        const auto engine = OpenEngine(path, false);
        for (int i = 1;; ++i) {
            engine->Run("INSERT INTO t VALUES(" + std::to_string(i) + ")");
            if (i == 50 && write(ready[1], "x", 1) != 1) _exit(1);
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

    const auto engine = OpenEngine(path, false);
    EXPECT_EQ(One(*engine, "PRAGMA integrity_check"), Value("ok"));
    const auto rows = One(*engine, "SELECT count(*) FROM t").I4();
    EXPECT_GE(rows, 50);
    EXPECT_EQ(One(*engine, "SELECT max(a) FROM t").I4(), rows);
}

}  // namespace
}  // namespace FX_Algen::store
