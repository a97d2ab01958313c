#include "FX_Algen/Error.h"
#include "LoadTest.h"
#include "store/load/Tables.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;

/// A database with values of every kind, Null and empty texts, umlauts, quotes and line breaks.
void Fill(TestDatabase& db) {
    db.Run(
        "INSERT INTO Projekt (ID_PRJ, PRJBez, IstWGEV) VALUES (2, 'sagt \"Große Öde\"', -1), (1, NULL, 0), "
        "(3, '', NULL)");
    db.Run(
        "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez) VALUES (1, 1, 'zwei' || char(10) || 'Zeilen, und mehr; "
        "so')");
    db.Run("INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (1, 1)");
    db.Run(
        "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon, USZeitVon) VALUES (1, 1, '2026-05-12', "
        "'09:30:00')");
    db.Run("INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (17, 1)");
    // 0.1 as the 32-bit number that it becomes; 1/3 has 16 digits and more as a 64-bit number.
    db.Run("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (17, 0.10000000149011612, NULL)");
    db.Run("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, ' Rand ')");
    db.Run("INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (7, 0, 'Ulothrix', 'zonata')");
    db.Run("INSERT INTO awaModulStandard (ID_ART, SI, Trophiewert) VALUES (7, 0.3333333333333333, 1e-300)");
    db.Run(
        "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, SD_MA) VALUES (1, 7, 0, 16777216), (1, 7, -1, 1.5)");
    db.Run("INSERT INTO awaWRRL_TIOEZK VALUES ('KA', 'B', 0.5, 1, 2), ('KA', 'A', 0, 0.5, 3)");
    db.Run("ALTER TABLE awaArtenlisteHaeufigkeit ADD COLUMN A17 DOUBLE DEFAULT 0");
    db.Run("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, A17) VALUES (7, 12.5)");
}

TEST(Dump, WritesOneFileATableWithShortestNumbersAndNullApartFromEmptyText) {
    TestDatabase db;
    Fill(db);
    const std::string folder = db.Folder().File("Auszug");
    const auto written = Dump(db.Path(), folder);
    const auto texts = FolderTexts(folder);
    EXPECT_EQ(texts.size(), written.size() + 1);  // and the list of its tables
    EXPECT_EQ(written.size(), load::ReadTables(db.Engine()).size());
    EXPECT_EQ(texts.at("Projekt.csv"),
              "ID_PRJ,PRJBez,IstWGEV\n1,,0\n2,\"sagt \"\"Große Öde\"\"\",-1\n3,\"\",\n");
    EXPECT_EQ(texts.at("Abschnitt.csv"), "ID_AB,ID_PRJ,ABBez,RF\n1,1,\"zwei\nZeilen, und mehr; so\",\n");
    EXPECT_EQ(texts.at("VerUStelle.csv"),
              "ID_VUS,ID_UUS,USDatumVon,USDatumBis,USZeitVon,USZeitBis\n1,1,2026-05-12,,09:30:00,\n");
    EXPECT_EQ(texts.at("awaTeilraum.csv").substr(texts.at("awaTeilraum.csv").find('\n')),
              "\n17,0.1,,0,0,0,0,0,0\n");
    EXPECT_EQ(
        texts.at("awaArtPrStelle.csv"),
        "ID_PS,ID_ART,CF,MAalsMI,DG_MA,SD_MA,Schalen_KA,DG_MP\n1,7,-1,0,0,1.5,0,0\n1,7,0,0,0,16777216,0,0\n");
    // Without a key the rows come in the order in which the table holds them.
    EXPECT_EQ(texts.at("awaWRRL_TIOEZK.csv"),
              "Taxagruppe,TGZK,EQRMin,EQRMax,OEZK\nKA,B,0.5,1,2\nKA,A,0,0.5,3\n");
    EXPECT_EQ(texts.at("awaArtenlisteHaeufigkeit.csv"), "ID_Art,CF,IstKA,MAalsMI,A17\n7,0,0,0,12.5\n");
    EXPECT_EQ(texts.at("sesArt.csv").find('\n'), texts.at("sesArt.csv").size() - 1);
}

TEST(Dump, LoadingItGivesTheSameDatabaseToTheByte) {
    TestDatabase db;
    Fill(db);
    Dump(db.Path(), db.Folder().File("eins"));
    for (const bool replace : {false, true}) {
        const std::string copy = db.Folder().File(replace ? "ersetzt.db" : "kopie.db");
        CreateDatabase(copy, DatabaseKind::Project);
        LoadOptions options;
        options.Replace = replace;
        EXPECT_EQ(Told(LoadFolder(db.Folder().File("eins"), copy, options)), "");
        Dump(copy, db.Folder().File("zwei"));
        EXPECT_EQ(FolderTexts(db.Folder().File("eins")), FolderTexts(db.Folder().File("zwei")));
    }
}

TEST(Dump, KeepsDeletedKeysAndCounters) {
    TestDatabase db;
    Fill(db);
    // Taxon 7 goes by way of its subfamily and leaves its findings; taxa 8 to 40 were given out and deleted.
    db.Run("INSERT INTO awaUnterFam (ID_UFAM) VALUES (1); UPDATE awaArt SET ID_UFAM=1");
    db.Run("DELETE FROM awaUnterFam; INSERT INTO awaArt (ID_ART) VALUES (40); DELETE FROM awaArt");
    Dump(db.Path(), db.Folder().File("eins"));
    EXPECT_EQ(ReadText(db.Folder().File("eins/GeloeschteSchluessel.csv")),
              "Tabelle,Schluessel,Zaehler\nawaArt,7,0\nawaArt,40,-1\nawaUnterFam,1,-1\n");

    const std::string copy = db.Folder().File("kopie.db");
    CreateDatabase(copy, DatabaseKind::Project);
    EXPECT_EQ(Told(LoadFolder(db.Folder().File("eins"), copy)), "");
    Dump(copy, db.Folder().File("zwei"));
    EXPECT_EQ(FolderTexts(db.Folder().File("eins")), FolderTexts(db.Folder().File("zwei")));
    auto engine = OpenEngine(copy, false);
    engine->Run("INSERT INTO awaArt DEFAULT VALUES");
    EXPECT_EQ(engine->LastRowId(), 41);
}

TEST(Dump, RemovesTheListOfDeletedKeysOfAnEarlierOne) {
    TestDatabase db;
    const std::string folder = db.Folder().File("Auszug");
    std::filesystem::create_directory(folder);
    std::ofstream(folder + "/GeloeschteSchluessel.csv") << "Tabelle,Schluessel,Zaehler\nawaArt,1,0\n";
    Dump(db.Path(), folder);
    EXPECT_FALSE(std::filesystem::exists(folder + "/GeloeschteSchluessel.csv"));
}

TEST(Dump, OfChosenTablesWritesThoseOnly) {
    TestDatabase db;
    Fill(db);
    const std::vector<std::string> tables{"teilraum", "AWAART", "Teilraum"};
    const auto written = Dump(db.Path(), db.Folder().File("Auszug"), tables);
    ASSERT_EQ(written.size(), 2U);
    EXPECT_EQ(written[0].Table, "Teilraum");
    EXPECT_EQ(written[1].Table, "awaArt");
    EXPECT_EQ(written[1].Rows, 1);
    EXPECT_EQ(FolderTexts(db.Folder().File("Auszug")).size(), 2U);
}

TEST(Dump, RefusesATableThatDoesNotExistAndWritesNothing) {
    TestDatabase db;
    const std::vector<std::string> tables{"Teilraum", "Teilräume"};
    try {
        Dump(db.Path(), db.Folder().File("Auszug"), tables);
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::UnknownTable);
        EXPECT_NE(error.Description().find("Teilräume"), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(db.Folder().File("Auszug")));
}

TEST(Dump, FailsWhereTheFolderIsAFile) {
    TestDatabase db;
    std::ofstream(db.Folder().File("Auszug")) << "x";
    EXPECT_THROW(Dump(db.Path(), db.Folder().File("Auszug")), Error);
}

TEST(Dump, OfMainAndReportDatabasesWorksTheSame) {
    TestDatabase main(DatabaseKind::Main);
    main.Run("INSERT INTO Menuegruppe (Menuegruppe) VALUES ('Gäste')");
    Dump(main.Path(), main.Folder().File("m"));
    EXPECT_EQ(ReadText(main.Folder().File("m/Menuegruppe.csv")), "ID_Menuegruppe,Menuegruppe\n1,Gäste\n");
    TestDatabase report(DatabaseKind::Report);
    EXPECT_EQ(Dump(report.Path(), report.Folder().File("r")).size(), 11U);
}

TEST(Dump, OfTheDemoLoadsAgainToTheByte) {
    TestDatabase db;
    ASSERT_EQ(Told(LoadDemo(db.Path())), "");
    Dump(db.Path(), db.Folder().File("eins"));
    const std::string copy = db.Folder().File("kopie.db");
    CreateDatabase(copy, DatabaseKind::Project);
    EXPECT_EQ(Told(LoadFolder(db.Folder().File("eins"), copy)), "");
    Dump(copy, db.Folder().File("zwei"));
    EXPECT_EQ(FolderTexts(db.Folder().File("eins")), FolderTexts(db.Folder().File("zwei")));
}

}  // namespace
}  // namespace FX_Algen::store
