#include <gmock/gmock.h>

#include "FX_Algen/Load.h"
#include "TestDatabase.h"
#include "store/PlannerFigures.h"

namespace FX_Algen::store {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The figures in the file as they are.
std::vector<std::string> Figures(TestDatabase& db) {
    return db.Rows("SELECT tbl, idx, stat FROM sqlite_stat1 ORDER BY tbl, idx");
}

std::vector<std::string> Rightful(TestDatabase& db) {
    std::vector<std::string> rows;
    for (const auto& figure : PlannerFiguresFor(db.Engine()))
        rows.push_back(figure.Table + "|" + figure.Index.value() + "|" + figure.Figures.value());
    return rows;
}

/// How the engine goes about an assessment's query of one sub-habitat.
constexpr const char* Query =
    "SELECT awaArtPrStelle.ID_ART FROM awaPrStelle JOIN awaArtPrStelle USING (ID_PS) "
    "JOIN awaModulStandard USING (ID_ART) WHERE awaPrStelle.ID_TR = 5 AND awaModulStandard.Lebensform = 1";
std::vector<std::string> Plan(TestDatabase& db, const std::string& query = Query) {
    // A plan alone is told from what the engine has read of the schema; a query has it look for changes.
    db.Rows(query);
    return db.Rows("EXPLAIN QUERY PLAN " + query);
}

TEST(PlannerFigures, OfANewProjectDatabaseAreTheRightfulOnes) {
    TestDatabase db;
    EXPECT_THAT(Rightful(db), Not(IsEmpty()));
    EXPECT_EQ(Figures(db), Rightful(db));
    EXPECT_FALSE(RestorePlannerFigures(db.Engine()));
}

TEST(PlannerFigures, NameIndexesOfTheirTablesAlone) {
    TestDatabase db;
    EXPECT_THAT(db.Rows("SELECT tbl, idx FROM sqlite_stat1 s WHERE NOT EXISTS (SELECT 1 FROM sqlite_schema m "
                        "WHERE m.type = 'index' AND m.name = s.idx AND m.tbl_name = s.tbl)"),
                IsEmpty());
}

TEST(PlannerFigures, AreNotPutIntoOtherDatabases) {
    for (const auto kind : {DatabaseKind::Main, DatabaseKind::Report}) {
        TestDatabase db(kind);
        EXPECT_FALSE(RestorePlannerFigures(db.Engine()));
        EXPECT_THAT(db.Rows("SELECT name FROM sqlite_schema WHERE name LIKE 'sqlite_stat%'"), IsEmpty());
    }
}

struct Loss {
    const char* Description;
    const char* Statements;
};
class PlannerFiguresLost : public testing::TestWithParam<Loss> {};

TEST_P(PlannerFiguresLost, ComeBackOnceAndForAll) {
    TestDatabase db;
    db.Run("INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (1, 1), (2, 1), (3, 0)");
    const auto before = Figures(db);
    db.Run(GetParam().Statements);
    EXPECT_TRUE(RestorePlannerFigures(db.Engine()));
    EXPECT_EQ(Figures(db), before);
    EXPECT_FALSE(RestorePlannerFigures(db.Engine()));
    EXPECT_FALSE(db.Engine().InTransaction());
    EXPECT_THAT(Plan(db).front(), HasSubstr("SEARCH awaPrStelle"));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PlannerFiguresLost,
    testing::Values(
        Loss{"an index was made anew",
             "DROP INDEX awaModulStandard_Lebensform; "
             "CREATE INDEX awaModulStandard_Lebensform ON awaModulStandard (Lebensform)"},
        Loss{"the tables were analysed", "ANALYZE"},
        Loss{"the table of figures was dropped", "DROP TABLE sqlite_stat1"},
        Loss{"a figure is gone", "DELETE FROM sqlite_stat1 WHERE idx = 'awaModulStandard_Lebensform'"},
        Loss{"a figure is another", "UPDATE sqlite_stat1 SET stat = '9 3' WHERE tbl = 'awaModulStandard'"},
        Loss{"a figure is Null", "UPDATE sqlite_stat1 SET stat = NULL WHERE tbl = 'awaModulStandard'"},
        Loss{"there is one more", "INSERT INTO sqlite_stat1 VALUES ('awaUnterFam', NULL, '5')"},
        Loss{"one stands there twice",
             "INSERT INTO sqlite_stat1 SELECT * FROM sqlite_stat1 WHERE tbl = 'awaFamilie'"}),
    [](const auto& way) { return "Way" + std::to_string(way.index); });

TEST(PlannerFigures, SamplesOfAnotherBuildOfTheEngineGo) {
    TestDatabase db;
    // The engine makes this table itself where it is built to take samples; here a table takes its name.
    db.Run(
        "CREATE TABLE samples (tbl, idx, neq, nlt, ndlt, sample);"
        "PRAGMA writable_schema = ON;"
        "UPDATE sqlite_schema SET name = 'sqlite_stat4', tbl_name = 'sqlite_stat4', "
        "sql = 'CREATE TABLE sqlite_stat4(tbl,idx,neq,nlt,ndlt,sample)' WHERE name = 'samples';"
        "PRAGMA writable_schema = RESET");
    EXPECT_FALSE(RestorePlannerFigures(db.Engine()));
    db.Run(
        "INSERT INTO sqlite_stat4 VALUES ('awaFamilie', 'awaFamilie_ID_GRGR', '1 1', '0 0', '0 0', x'00')");
    EXPECT_TRUE(RestorePlannerFigures(db.Engine()));
    EXPECT_EQ(db.One("SELECT count(*) FROM sqlite_stat4"), "0");
    EXPECT_FALSE(RestorePlannerFigures(db.Engine()));
}

// A connection keeps what it read of the sizes of tables until it reads the schema anew.
TEST(PlannerFigures, PutBackGuideOtherConnectionsAndTablesWithoutFigures) {
    TestDatabase db;
    db.Run(
        "CREATE TABLE a (i INTEGER PRIMARY KEY, f); CREATE INDEX af ON a (f);"
        "CREATE TABLE b (i, x, PRIMARY KEY (i, x)); CREATE INDEX bx ON b (x);"
        "CREATE TABLE t (i INTEGER PRIMARY KEY, u); CREATE INDEX tu ON t (u);"
        "WITH n(v) AS (VALUES (1) UNION ALL SELECT v + 1 FROM n WHERE v < 20) INSERT INTO a SELECT v, v FROM "
        "n;"
        "INSERT INTO b SELECT i % 3, i FROM a; INSERT INTO t SELECT i, i FROM a");
    const std::string query =
        "SELECT * FROM t JOIN b ON t.u = b.i JOIN a ON b.x = a.i WHERE a.f = 1 AND t.i > 5 AND b.i BETWEEN 1 "
        "AND 3";
    const auto before = Plan(db, query);
    db.Run("ANALYZE");
    ASSERT_NE(Plan(db, query), before) << "the query does not show what the engine believes";

    const auto other = OpenEngine(db.Path(), false);
    EXPECT_TRUE(RestorePlannerFigures(*other));
    EXPECT_EQ(Plan(db, query), before);
}

TEST(PlannerFigures, PutBackWithinATransactionGoWithIt) {
    TestDatabase db;
    db.Run("DELETE FROM sqlite_stat1");
    db.Run("BEGIN");
    EXPECT_TRUE(RestorePlannerFigures(db.Engine()));
    EXPECT_TRUE(db.Engine().InTransaction());
    db.Run("ROLLBACK");
    EXPECT_THAT(Figures(db), IsEmpty());
    EXPECT_TRUE(RestorePlannerFigures(db.Engine()));
    EXPECT_EQ(Figures(db), Rightful(db));
}

TEST(PlannerFigures, StandInALoadedDatabaseWithTheIndexesInTheirOrder) {
    // Between indexes that cost the same the engine goes by their order.
    const char* indexes =
        "SELECT tbl_name, name FROM sqlite_schema WHERE type = 'index' ORDER BY tbl_name, rowid";
    std::vector<std::string> figures, order, plan;
    {
        TestDatabase fresh;
        figures = Figures(fresh);
        order = fresh.Rows(indexes);
        plan = Plan(fresh);
    }
    TestDatabase demo;
    ASSERT_THAT(LoadDemo(demo.Path()).Problems, IsEmpty());
    EXPECT_EQ(Figures(demo), figures);
    EXPECT_EQ(demo.Rows(indexes), order);
    EXPECT_EQ(Plan(demo), plan);
}

}  // namespace
}  // namespace FX_Algen::store
