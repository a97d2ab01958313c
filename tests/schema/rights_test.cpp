#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "FX_Algen/Error.h"
#include "FX_Algen/Load.h"
#include "FX_Algen/Store.h"
#include "TestDatabase.h"

namespace FX_Algen::store {
namespace {

using testing::HasSubstr;

/// Takes the rights of the administrator away while it lives: for them no folder is read-only.
class OrdinaryUser {
public:
    OrdinaryUser() : before_(geteuid()) {
        constexpr uid_t nobody = 65534;
        if (before_ == 0) changed_ = seteuid(nobody) == 0;
    }
    ~OrdinaryUser() {
        if (changed_ && seteuid(before_) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t before_;
    bool changed_ = false;
};

/// Rights of a folder while it lives.
class FolderRights {
public:
    FolderRights(std::filesystem::path folder, std::filesystem::perms rights) : folder_(std::move(folder)) {
        std::filesystem::permissions(folder_, rights);
    }
    ~FolderRights() { std::filesystem::permissions(folder_, std::filesystem::perms::owner_all); }
    FolderRights(const FolderRights&) = delete;
    FolderRights& operator=(const FolderRights&) = delete;

private:
    std::filesystem::path folder_;
};

constexpr auto ReadOnly = std::filesystem::perms(0555);
constexpr auto Open = std::filesystem::perms(0777);

Error FailureOf(const auto& call) {
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    return {0, "no failure"};
}

/// The system's temporary folder, into which every user gets: the source tree may lie in the home of the
/// administrator, where an ordinary user finds no file at all.
std::filesystem::path ForAll() { return std::filesystem::temp_directory_path(); }

std::string NewProject(const TestFolder& folder) {
    const std::string path = folder.File("Flüsse 50% #1?.db");
    CreateDatabase(path, DatabaseKind::Project);
    OpenEngine(path, false)->Run("INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Öd')");
    return path;
}

TEST(ReadOnlyFolder, ADatabaseInItIsReadAndDumpedAndNotWritten) {
    const TestFolder folder({}, ForAll());
    const TestFolder* where = &folder;
    const std::string path = NewProject(folder);
    const std::string out = ForAll() / ("fx_aus-" + std::to_string(getpid()));
    std::filesystem::create_directory(out);
    std::filesystem::permissions(out, Open);
    {
        const FolderRights rights(where->Path(), ReadOnly);
        const OrdinaryUser user;
        const auto db = Workspace().OpenDatabase(path);
        EXPECT_EQ((*db->OpenRecordset("SELECT PRJBez FROM Projekt;"))["PRJBez"], Value("Öd"));
        const Error refused = FailureOf([&] { db->Execute("INSERT INTO Projekt (PRJBez) VALUES ('Au');"); });
        EXPECT_EQ(refused.Number(), ErrorNumber::NotADatabase);
        EXPECT_THAT(refused.Description(), HasSubstr("read-only"));
        EXPECT_EQ(Dump(path, out).size(), 78U);
        EXPECT_THAT(FailureOf([&] { LoadDemo(path); }).Description(), HasSubstr("read-only"));
    }
    std::filesystem::remove_all(out);
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path())) ++files;
    EXPECT_EQ(files, 1U);
}

TEST(ReadOnlyFolder, WhatAnotherProgramHasNotYetWrittenBackIsNotOverlooked) {
    const TestFolder folder({}, ForAll());
    const std::string path = NewProject(folder);
    const auto other = OpenEngine(path, false);
    other->Run("UPDATE Projekt SET PRJBez='Au'");  // stands in the -wal
    ASSERT_TRUE(std::filesystem::exists(path + "-wal"));
    for (const char* suffix : {"", "-wal", "-shm"})
        std::filesystem::permissions(path + suffix, std::filesystem::perms(0644));
    const FolderRights rights(folder.Path(), ReadOnly);
    const OrdinaryUser user;
    const auto engine = OpenEngine(path, false);
    const auto statement = engine->Prepare("SELECT PRJBez FROM Projekt");
    ASSERT_TRUE(statement->Step());
    EXPECT_EQ(statement->Text(0), "Au");
}

TEST(Rights, EachFailureHasItsNumber) {
    const TestFolder folder({}, ForAll());
    const std::string path = NewProject(folder);
    const std::string closed = folder.File("zu");
    std::filesystem::create_directory(closed);
    std::ofstream(closed + "/Projekt.csv") << "ID_PRJ\n2\n";
    const FolderRights rights(closed, std::filesystem::perms(0111));
    std::filesystem::permissions(folder.Path(), Open);
    const OrdinaryUser user;
    EXPECT_EQ(FailureOf([&] { LoadFolder(closed, path); }).Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureOf([&] { Dump(path, closed); }).Number(), ErrorNumber::FileNotFound);
    EXPECT_NE(FailureOf([&] { CreateDatabase(closed + "/neu.db", DatabaseKind::Main); }).Number(), 0);
}

TEST(Rights, AFolderUnderTheNameOfAFileFailsTheDump) {
    const TestFolder folder({}, ForAll());
    const std::string path = NewProject(folder);
    std::filesystem::create_directories(folder.File("aus/awaArt.csv"));
    const Error error = FailureOf([&] { Dump(path, folder.File("aus")); });
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_THAT(error.Description(), HasSubstr("a folder has its name"));
}

TEST(Rights, ADatabaseInUseIsToldAndNotLoadedInto) {
    TestDatabase db;
    db.Run("BEGIN IMMEDIATE");
    const std::vector<LoadText> files{{"Projekt.csv", "ID_PRJ\n2\n"}};
    const Error error = FailureOf([&] { LoadTexts(files, db.Path()); });
    EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
    EXPECT_THAT(error.Description(), HasSubstr("in use by another program"));
    db.Run("ROLLBACK");
}

// ---- keys that have to be given --------------------------------------------------------------------

TEST(LoneKey, AnInsertWithoutItIsRefusedInsteadOfNumbered) {
    TestDatabase project;
    const auto db = Workspace().OpenDatabase(project.Path());
    for (const char* sql : {"INSERT INTO awaTeilraum (DG_MA) VALUES (5);",
                            "INSERT INTO awaTeilraum (ID_TR, DG_MA) VALUES (Null, 5);",
                            "INSERT INTO awaTeilraum (DG_MA) SELECT ID_PRJ FROM Projekt;"}) {
        const Error error = FailureOf([&] { db->Execute(sql); });
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidUseOfNull) << sql;
        EXPECT_THAT(error.Description(), HasSubstr("awaTeilraum.ID_TR")) << sql;
    }
    const auto rows = db->OpenRecordset("awaTeilraum");
    for (const bool null : {false, true}) {
        rows->AddNew();
        rows->Collect("DG_MA", 5.0);
        if (null) rows->Collect("ID_TR", Value());
        const Error error = FailureOf([&] { rows->Update(); });
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(error.Description(), HasSubstr("awaTeilraum.ID_TR"));
        rows->CancelUpdate();
    }
    EXPECT_EQ(project.One("SELECT count(*) FROM awaTeilraum"), "0");
    db->Execute("INSERT INTO awaTeilraum (ID_TR) VALUES (7);");
    db->Execute("INSERT INTO Projekt (PRJBez) VALUES ('Öd');");  // a counter numbers its rows
    EXPECT_EQ(project.One("SELECT ID_TR, ID_PRJ FROM awaTeilraum, Projekt"), "7|1");
}

}  // namespace
}  // namespace FX_Algen::store
