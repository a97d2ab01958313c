#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "fxalgen/Command.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class LoadCommands : public testing::Test {
protected:
    void SetUp() override {
        folder_ = fs::path(testing::TempDir()) /
                  ("fx_cli_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string File(const std::string& name) const { return (folder_ / name).string(); }
    void Write(const std::string& name, const std::string& text) const {
        fs::create_directories((folder_ / name).parent_path());
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }
    int Call(const std::vector<std::string>& arguments) {
        std::istringstream in;
        std::ostringstream out;
        std::ostringstream err;
        const int code = cli::Run(arguments, in, out, err);
        out_ = out.str();
        err_ = err.str();
        return code;
    }
    std::int32_t Count(const std::string& database, const std::string& table) const {
        const auto db = store::Workspace().OpenDatabase(File(database));
        return (*db->OpenRecordset("SELECT Count(*) AS n FROM " + table + ";"))["n"].I4();
    }

    fs::path folder_;
    std::string out_;
    std::string err_;
};

TEST_F(LoadCommands, CreateMakesTheDatabasesThatWereAskedForAndNamesThem) {
    EXPECT_EQ(Call({"create", File("Flüsse.db"), "--main", File("m.db"), "--report", File("r.db")}), 0);
    EXPECT_EQ(out_, File("Flüsse.db") + "\n" + File("m.db") + "\n" + File("r.db") + "\n");
    EXPECT_EQ(err_, "");
    EXPECT_EQ(Count("Flüsse.db", "awaArt"), 0);
    EXPECT_EQ(Count("m.db", "Menuegruppe"), 0);
    EXPECT_EQ(Count("r.db", "rpt_awaAuswertung"), 0);
}

TEST_F(LoadCommands, CreateWithDemoFillsTheProject) {
    EXPECT_EQ(Call({"create", File("demo.db"), "--demo"}), 0) << err_;
    EXPECT_GT(Count("demo.db", "awaArt"), 100);
    EXPECT_GE(Count("demo.db", "awaTeilraum"), 12);
}

TEST_F(LoadCommands, CreateNeverOverwritesAndLeavesNothingBehindOnFailure) {
    Write("m.db", "mine");
    EXPECT_EQ(Call({"create", File("p.db"), "--main", File("m.db")}), 1);
    EXPECT_THAT(err_, HasSubstr("the file exists already: " + File("m.db")));
    EXPECT_EQ(out_, "");
    EXPECT_EQ(Read("m.db"), "mine");
    EXPECT_FALSE(fs::exists(File("p.db")));
}

TEST_F(LoadCommands, LoadTellsTheRowsOfEachTable) {
    ASSERT_EQ(Call({"create", File("p.db")}), 0);
    Write("in/Projekt.csv", "ID_PRJ,PRJBez\n1,Öd\n2,Au\n");
    Write("in/Abschnitt.csv", "ID_AB,ID_PRJ\n1,2\n");
    EXPECT_EQ(Call({"load", File("in"), "--into", File("p.db")}), 0) << err_;
    EXPECT_EQ(out_, "Abschnitt  1\nProjekt    2\n2 tables, 3 rows\n");
    EXPECT_EQ(err_, "");
}

TEST_F(LoadCommands, LoadTellsEveryProblemAndExitsWithOne) {
    ASSERT_EQ(Call({"create", File("p.db")}), 0);
    Write("in/Projekt.csv", "ID_PRJ,PRJBez\nx,Öd\n");
    Write("in/Nichts.csv", "a\n");
    Write("in/Abschnitt.csv", "ID_AB,ID_PRJ\n1\n");
    EXPECT_EQ(Call({"load", File("in"), "--into", File("p.db")}), 1);
    EXPECT_EQ(out_, "");
    EXPECT_EQ(err_,
              "Abschnitt.csv:2: the line has 1 field, the header 2\n"
              "Nichts.csv: the database has no table 'Nichts'\n"
              "Projekt.csv:2:ID_PRJ: 'x' is not a whole number\n"
              "fxalgen load: 3 problems, nothing was written\n");
    EXPECT_EQ(Count("p.db", "Projekt"), 0);
}

TEST_F(LoadCommands, LoadReplacesWhereAsked) {
    ASSERT_EQ(Call({"create", File("p.db")}), 0);
    Write("in/awaWRRL_Klasse.csv", "Klassenzahl,Bezeichnung\n1,gut\n");
    ASSERT_EQ(Call({"load", File("in"), "--into", File("p.db")}), 0);
    EXPECT_EQ(Call({"load", File("in"), "--into", File("p.db")}), 1);
    EXPECT_THAT(
        err_, StartsWith("awaWRRL_Klasse.csv:2:Klassenzahl: the table holds the key Klassenzahl 1 already"));
    EXPECT_EQ(Call({"load", File("in"), "--into", File("p.db"), "--replace"}), 0);
    EXPECT_EQ(Count("p.db", "awaWRRL_Klasse"), 1);
}

TEST_F(LoadCommands, DumpWritesFilesThatLoadAgain) {
    ASSERT_EQ(Call({"create", File("p.db"), "--demo"}), 0);
    ASSERT_EQ(Call({"dump", File("p.db"), File("eins")}), 0) << err_;
    EXPECT_THAT(out_, HasSubstr("awaArt "));
    ASSERT_EQ(Call({"create", File("q.db")}), 0);
    ASSERT_EQ(Call({"load", File("eins"), "--into", File("q.db")}), 0) << err_;
    ASSERT_EQ(Call({"dump", File("q.db"), File("zwei")}), 0) << err_;
    for (const auto& entry : fs::directory_iterator(File("eins"))) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(Read("eins/" + name), Read("zwei/" + name)) << name;
    }
}

TEST_F(LoadCommands, DumpOfChosenTables) {
    ASSERT_EQ(Call({"create", File("p.db")}), 0);
    EXPECT_EQ(Call({"dump", File("p.db"), File("d"), "--table", "awaKatalog", "awaAL_Lebensform"}), 0);
    EXPECT_EQ(out_, "awaAL_Lebensform  2\nawaKatalog        1\n2 tables, 3 rows\n");
    EXPECT_EQ(Read("d/awaKatalog.csv"), "ID_KAT,KATBez\n1,Taxaliste\n");
    EXPECT_EQ(Call({"dump", File("p.db"), File("d"), "--table", "awaArten"}), 1);
    EXPECT_THAT(err_, HasSubstr("the database has no table 'awaArten'. (3078)"));
}

TEST_F(LoadCommands, MissingFilesAndFoldersAreToldWithTheirNumber) {
    ASSERT_EQ(Call({"create", File("p.db")}), 0);
    EXPECT_EQ(Call({"load", File("keiner"), "--into", File("p.db")}), 1);
    EXPECT_THAT(err_, HasSubstr("(53)"));
    Write("in/Projekt.csv", "ID_PRJ\n1\n");
    EXPECT_EQ(Call({"load", File("in"), "--into", File("keine.db")}), 1);
    EXPECT_THAT(err_, HasSubstr("(53)"));
    EXPECT_EQ(Call({"dump", File("keine.db"), File("d")}), 1);
    EXPECT_FALSE(fs::exists(File("d")));
}

TEST_F(LoadCommands, WrongUsageExitsWithTwo) {
    EXPECT_EQ(Call({"create"}), 2);
    EXPECT_EQ(Call({"load", File("in")}), 2);
    EXPECT_EQ(Call({"dump", File("p.db")}), 2);
}

}  // namespace
