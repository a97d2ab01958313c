#include "FX_Algen/Error.h"
#include "LoadTest.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The dump of `db`, of a new database that it was loaded into, and of one that it replaced.
void ExpectSameAfterLoading(TestDatabase& db) {
    const std::string first = db.Folder().File("eins");
    Dump(db.Path(), first);
    for (const bool replace : {false, true}) {
        const std::string copy = db.Folder().File(replace ? "ersetzt.db" : "neu.db");
        CreateDatabase(copy, DatabaseKind::Project);
        if (replace)
            OpenEngine(copy, false)
                ->Run(
                    "ALTER TABLE awaArtenlisteHaeufigkeit ADD COLUMN A9 DOUBLE DEFAULT 0;"
                    "INSERT INTO awaAL_Algenart VALUES (9, 'Alt'); DELETE FROM awaKatalog");
        LoadOptions options;
        options.Replace = replace;
        EXPECT_EQ(Told(LoadFolder(first, copy, options)), "");
        const std::string second = db.Folder().File(replace ? "drei" : "zwei");
        Dump(copy, second);
        EXPECT_TRUE(FolderTexts(first) == FolderTexts(second)) << "replace " << replace;
    }
}

TEST(RoundTrip, DeletedFirstRowsStayDeleted) {
    TestDatabase db;
    db.Run("DELETE FROM awaGrossGr WHERE ID_GRGR IN (120, 131); DELETE FROM awaKatalogfeldDefinition");
    ExpectSameAfterLoading(db);
}

TEST(RoundTrip, AChangedFirstRowOfATableWithoutAKeyStaysOne) {
    TestDatabase db;
    db.Run("UPDATE awaAL_Algenart SET Algenart='Großalge' WHERE RF=1");
    ExpectSameAfterLoading(db);
}

TEST(RoundTrip, TheFrequencyListHasTheColumnsOfTheDumpAndNoOthers) {
    TestDatabase db;
    db.Run("INSERT INTO awaArt (ID_ART) VALUES (7)");
    db.Run("ALTER TABLE awaArtenlisteHaeufigkeit ADD COLUMN A17 DOUBLE");
    db.Run("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, A17) VALUES (7, 12.5)");
    ExpectSameAfterLoading(db);
}

TEST(RoundTrip, TheFrequencyListMayHaveOtherBaseColumns) {
    TestDatabase db;
    db.Run("DROP TABLE awaArtenlisteHaeufigkeit");
    db.Run("CREATE TABLE awaArtenlisteHaeufigkeit (ID_Art INTEGER, MAalsMI BOOLEAN, A3 DOUBLE, CF BOOLEAN)");
    ExpectSameAfterLoading(db);
}

TEST(RoundTrip, MembersOfSelectionsWhosePartsWereDeletedComeAlong) {
    TestDatabase db;
    db.Run("INSERT INTO RechenProjekt (ID_RechMan, RechManEbene) VALUES (1, 'Projekt')");
    db.Run("INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene) VALUES (1, 44)");
    ExpectSameAfterLoading(db);
}

TEST(DumpOfChosenTables, LeavesTheDeletedKeysOfTheOthersAlone) {
    TestDatabase db;
    db.Run("INSERT INTO Projekt (ID_PRJ) VALUES (9); DELETE FROM Projekt");
    db.Run("INSERT INTO awaArt (ID_ART) VALUES (40); DELETE FROM awaArt");
    const std::string folder = db.Folder().File("aus");
    Dump(db.Path(), folder);
    const std::string keys = folder + "/GeloeschteSchluessel.csv";
    ASSERT_EQ(ReadText(keys), "Tabelle,Schluessel,Zaehler\nProjekt,9,-1\nawaArt,40,-1\n");
    const std::vector<std::string> one{"awaKatalog"};
    Dump(db.Path(), folder, one);
    EXPECT_EQ(ReadText(keys), "Tabelle,Schluessel,Zaehler\nProjekt,9,-1\nawaArt,40,-1\n");
    // The line of a table that is dumped anew is told anew.
    db.Run("INSERT INTO awaArt (ID_ART) VALUES (50); DELETE FROM awaArt");
    const std::vector<std::string> taxa{"awaArt"};
    Dump(db.Path(), folder, taxa);
    EXPECT_EQ(ReadText(keys), "Tabelle,Schluessel,Zaehler\nProjekt,9,-1\nawaArt,50,-1\n");
    EXPECT_TRUE(std::filesystem::exists(folder + "/Auszug.csv"));
}

TEST(DumpOfMisfits, FailsWithAllCellsThatDoNotFitAndWritesNothing) {
    TestDatabase db;
    db.Run("INSERT INTO awaModulStandard (ID_ART, SI, Lebensform) VALUES (7, 'zwei', 1.5), (8, 2.0, 3)");
    db.Run("INSERT INTO VerUStelle (ID_VUS, USDatumVon) VALUES (3, 20260512)");
    db.Run("INSERT INTO awaTeilraum (ID_TR, DG_MA) VALUES (2, -9e999)");
    db.Run("INSERT INTO awaAL_Abundanz VALUES (5000000000, x'FF')");
    db.Run("INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (4, CAST(x'C3' AS TEXT))");
    const std::string folder = db.Folder().File("aus");
    try {
        Dump(db.Path(), folder);
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
        for (const char* cell :
             {"\nawaModulStandard, ID_ART 7, SI: text ''zwei'' in a column of",
              "\nawaModulStandard, ID_ART 7, Lebensform: real", "\nVerUStelle, ID_VUS 3, USDatumVon: integer",
              "\nawaTeilraum, ID_TR 2, DG_MA: real", "\nawaAL_Abundanz, row 1, RF: integer",
              "\nawaAL_Abundanz, row 1, Abundanz: blob",
              "\nProjekt, ID_PRJ 4, PRJBez: the text is not UTF-8"})
            EXPECT_THAT(error.Description(), HasSubstr(cell));
        EXPECT_THAT(error.Description(), testing::Not(HasSubstr("ID_ART 8")));
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(FailingDump, LeavesAnOlderOneAsItWas) {
    TestDatabase db;
    const std::string folder = db.Folder().File("aus");
    Dump(db.Path(), folder);
    // Tables come in the order of their names: the one that fails is among the last.
    std::filesystem::remove(folder + "/sesTeilraum.csv");
    std::filesystem::create_directory(folder + "/sesTeilraum.csv");
    const auto texts = [&] {
        std::map<std::string, std::string> out;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            out[entry.path().filename().string()] = entry.is_directory() ? "folder" : ReadText(entry.path());
        return out;
    };
    const auto before = texts();
    db.Run("INSERT INTO Projekt (PRJBez) VALUES ('Öd')");
    try {
        Dump(db.Path(), folder);
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
        EXPECT_THAT(error.Description(), HasSubstr("sesTeilraum.csv"));
    }
    EXPECT_EQ(texts(), before);
}

TEST(CreateDemoDatabase, AProcessThatEndsHalfwayLeavesNothingUnderTheName) {
    const TestFolder folder;
    const std::string path = folder.File("Flüsse.db");
    const LoadProgress leave = [](std::uint64_t, std::uint64_t) { _exit(7); };
    EXPECT_EXIT(CreateDemoDatabase(path, leave), testing::ExitedWithCode(7), "");
    EXPECT_FALSE(std::filesystem::exists(path));
    // What the dead process left is in nobody's way.
    EXPECT_EQ(Told(CreateDemoDatabase(path)), "");
    EXPECT_TRUE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace FX_Algen::store
