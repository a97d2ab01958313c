#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "FX_Algen/Error.h"
#include "TestDatabase.h"
#include "store/Layout.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;

std::int32_t NumberOf(const auto& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

std::vector<std::string> FilesOf(const TestFolder& folder) {
    std::vector<std::string> out;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        out.push_back(entry.path().filename().string());
    return out;
}

TEST(CreateDatabase, KeepsTheLayoutVersionInEachKind) {
    for (const auto kind : {DatabaseKind::Project, DatabaseKind::Main, DatabaseKind::Report}) {
        const TestFolder folder;
        CreateDatabase(folder.File("neu.db"), kind);
        auto engine = OpenEngine(folder.File("neu.db"), false);
        auto statement = engine->Prepare("PRAGMA user_version");
        ASSERT_TRUE(statement->Step());
        EXPECT_EQ(statement->Integer(0), LayoutVersion);
    }
}

TEST(CreateDatabase, GivesEachKindItsTables) {
    const auto has = [](DatabaseKind kind, const std::string& table) {
        TestDatabase db(kind);
        return db.One("SELECT count(*) FROM sqlite_master WHERE type='table' AND name='" + table + "'") ==
               "1";
    };
    EXPECT_TRUE(has(DatabaseKind::Project, "awaArtPrStelle"));
    EXPECT_FALSE(has(DatabaseKind::Project, "Menuegruppe"));
    EXPECT_TRUE(has(DatabaseKind::Main, "Menuegruppe"));
    EXPECT_FALSE(has(DatabaseKind::Main, "awaArt"));
    EXPECT_TRUE(has(DatabaseKind::Report, "rpt_awaAuswertung"));
    EXPECT_FALSE(has(DatabaseKind::Report, "awaArt"));
}

TEST(CreateDatabase, LeavesOneFileOnly) {
    const TestFolder folder;
    CreateDatabase(folder.File("Flüsse.db"), DatabaseKind::Project);
    EXPECT_THAT(FilesOf(folder), ElementsAre("Flüsse.db"));
}

TEST(CreateDatabase, RefusesAFileThatExistsAndLeavesItAsItIs) {
    const TestFolder folder;
    const std::string path = folder.File("alt.db");
    std::ofstream(path) << "not mine";
    EXPECT_EQ(NumberOf([&] { CreateDatabase(path, DatabaseKind::Project); }), ErrorNumber::NotADatabase);
    std::ifstream in(path);
    std::ostringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(), "not mine");
    EXPECT_THAT(FilesOf(folder), ElementsAre("alt.db"));
}

TEST(CreateDatabase, FailsWhereTheFolderDoesNotExistAndMakesNone) {
    const TestFolder folder;
    const std::string path = folder.File("nirgends/neu.db");
    EXPECT_EQ(NumberOf([&] { CreateDatabase(path, DatabaseKind::Main); }), ErrorNumber::FileNotFound);
    EXPECT_TRUE(FilesOf(folder).empty());
}

TEST(CreateDatabase, RefusesWhatADatabaseOfThisNameLeftBehind) {
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        const TestFolder folder;
        const std::string path = folder.File("Flüsse.db");
        std::ofstream(path + suffix) << "old";
        try {
            CreateDatabase(path, DatabaseKind::Project);
            FAIL() << "no failure";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
            EXPECT_THAT(error.Description(), testing::HasSubstr(path + suffix));
        }
        EXPECT_THAT(FilesOf(folder), ElementsAre(std::string("Flüsse.db") + suffix));
    }
}

TEST(CreateDatabase, RefusesAnEmptyName) {
    EXPECT_EQ(NumberOf([] { CreateDatabase("", DatabaseKind::Project); }), ErrorNumber::FileNotFound);
}

TEST(CreateTables, AFailureHalfwayLeavesTheDatabaseEmpty) {
    const TestFolder folder;
    auto engine = OpenEngine(folder.File("voll.db"), true);
    // The last table of the first file is there already, so that the work fails after some tables.
    engine->Run("CREATE TABLE obProjekt1a (ID_UUS INTEGER)");
    EXPECT_NE(NumberOf([&] { CreateTables(*engine, DatabaseKind::Project); }), 0);
    auto statement = engine->Prepare("SELECT count(*) FROM sqlite_master");
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->Integer(0), 1);
    EXPECT_FALSE(engine->InTransaction());
}

TEST(Resources, HoldTheSchemaFilesByteForByte) {
    ASSERT_FALSE(resources::schema().empty());
    for (const auto& resource : resources::schema()) {
        std::ifstream in(std::string(FX_SOURCE_DIR) + "/data/schema/" + std::string(resource.name),
                         std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        EXPECT_EQ(text.str(), resource.text) << resource.name;
    }
}

}  // namespace
}  // namespace FX_Algen::store
