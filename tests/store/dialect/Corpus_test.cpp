#include "Corpus.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "store/Layout.h"

namespace FX_Algen::store::dialect::testing {
namespace {

/// New databases of each kind in a folder of their own, taken away at the end.
class CorpusDatabases {
public:
    explicit CorpusDatabases(const std::string& name) : folder_(::testing::TempDir() + "fx_corpus_" + name) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        Create("project", DatabaseKind::Project);
        Create("main", DatabaseKind::Main);
        Create("report", DatabaseKind::Report);
        auto tables = databases_.at("project")->TableDefs();
        tables["awaArtenlisteHaeufigkeit"].Append(TableDef::CreateField("A17", FieldType::Double));
        // Label tables follow the templates of the reports; these stand for them.
        for (const char* triple : {"awaAuswertung", "awaAuswertungWRRL", "sesAuswertung_Indices",
                                   "awaTaxalisteTLR", "Kat_Systematik"}) {
            CreateLabels(std::string("rpt_lbl_") + triple, FieldType::Text);
            CreateLabels(std::string("rpt_res_") + triple, FieldType::Integer);
        }
    }
    ~CorpusDatabases() {
        databases_.clear();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    CorpusDatabases(const CorpusDatabases&) = delete;
    CorpusDatabases& operator=(const CorpusDatabases&) = delete;

    Database& operator[](const std::string& kind) { return *databases_.at(kind); }
    std::string Path(const std::string& kind) const { return folder_ + "/" + kind + ".db"; }

private:
    void Create(const std::string& name, DatabaseKind kind) {
        CreateDatabase(Path(name), kind);
        databases_[name] = Workspace().OpenDatabase(Path(name));
    }

    void CreateLabels(const std::string& name, FieldType type) {
        Database& report = *databases_.at("report");
        auto tables = report.TableDefs();
        for (std::size_t i = 0; i < tables.Count(); ++i) {
            if (tables[i].Name() == name) return;
        }
        TableDef table = report.CreateTableDef(name);
        for (const char* label : {"lblIndex", "lblSapIndex", "lblProjekt", "lblAbschnitt"}) {
            table.Append(TableDef::CreateField(label, type));
        }
        tables.Append(table);
    }

    std::string folder_;
    std::map<std::string, DatabasePtr> databases_;
};

bool Changes(const std::string& statement) {
    for (const char* verb : {"INSERT", "UPDATE", "DELETE"}) {
        if (statement.compare(0, 6, verb) == 0) return true;
    }
    return false;
}

std::string WithPaths(std::string statement, const CorpusDatabases& databases) {
    const std::string mark = "{report}";
    const std::size_t at = statement.find(mark);
    if (at != std::string::npos) statement.replace(at, mark.size(), databases.Path("report"));
    return statement;
}

void Run(Database& database, const std::string& statement) {
    if (Changes(statement)) {
        database.Execute(statement);
    } else {
        database.OpenRecordset(statement)->Close();
    }
}

void ExpectOutcome(const CorpusLine& line, CorpusDatabases& databases) {
    const std::string statement = WithPaths(line.Statement, databases);
    std::int32_t failure = 0;
    std::string description;
    try {
        Run(databases[line.Database], statement);
    } catch (const Error& error) {
        failure = error.Number();
        description = error.Description() + "\n" + error.Translated();
    }
    EXPECT_EQ(failure, line.Fails) << "line " << line.Number << ", " << line.Group << ": " << statement
                                   << "\n"
                                   << line.Reason << "\n"
                                   << description;
}

TEST(Corpus, EachStatementOfTheSystemRunsOnItsDatabase) {
    CorpusDatabases databases("statements");
    const auto lines = ReadCorpus("statements.txt");
    ASSERT_GT(lines.size(), 400U);
    for (const CorpusLine& line : lines) ExpectOutcome(line, databases);
}

TEST(Corpus, EachWrongStatementFailsWithItsNumber) {
    CorpusDatabases databases("must_fail");
    const auto lines = ReadCorpus("must_fail.txt");
    ASSERT_GT(lines.size(), 60U);
    for (const CorpusLine& line : lines) {
        ASSERT_NE(line.Fails, 0) << line.Number;
        EXPECT_FALSE(line.Reason.empty()) << "line " << line.Number << " gives no reason";
        ExpectOutcome(line, databases);
    }
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
