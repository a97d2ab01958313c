#include "FX_Algen/Error.h"
#include "LoadTest.h"
#include "store/load/Ranges.h"
#include "store/load/References.h"
#include "store/load/Tables.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A taxon, a sub-habitat with its site and a stand, and the rows that references need.
void Prepare(TestDatabase& db) {
    db.Run(
        "INSERT INTO Projekt (ID_PRJ) VALUES (5); INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (5, 5);"
        "INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (5, 5);"
        "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (5, 5);"
        "INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (5, 5), (6, 5); INSERT INTO awaTeilraum (ID_TR) VALUES "
        "(5);"
        "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (5, 5);"
        "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR) VALUES (5, 5);"
        "INSERT INTO awaArt (ID_ART) VALUES (5); INSERT INTO sesArt (ID_ART) VALUES (5);"
        "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (5, 5);"
        "INSERT INTO AL_Bioregion (ID_AL_Bioregion) VALUES (5);"
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene) VALUES (5, 'UnvU-Stelle')");
}

struct Case {
    const char* Name;
    Files Given;
    const char* Problems;  ///< empty: the files load
};

class Rule : public testing::TestWithParam<Case> {};

TEST_P(Rule, HoldsForLoading) {
    TestDatabase db;
    Prepare(db);
    EXPECT_EQ(Told(Load(GetParam().Given, db)), GetParam().Problems);
}

INSTANTIATE_TEST_SUITE_P(
    Zero, Rule,
    testing::Values(
        Case{"IsNoTaxonOfAFinding",
             {{"awaArtPrStelle.csv", "ID_PS,ID_ART\n5,0\n0,5\n"}},
             "awaArtPrStelle.csv:2:ID_ART: awaArt has no row with ID_ART 0\n"
             "awaArtPrStelle.csv:3:ID_PS: awaPrStelle has no row with ID_PS 0\n"},
        Case{"IsNoStand",
             {{"awaArtPrStelle_MI.csv", "ID_TR_MI,ID_ART\n0,5\n"}},
             "awaArtPrStelle_MI.csv:2:ID_TR_MI: awaTeilraum_MI has no row with ID_TR_MI 0\n"},
        Case{"IsNoVisit",
             {{"Teilraum.csv", "ID_TR,ID_VUS\n9,0\n"}},
             "Teilraum.csv:2:ID_VUS: VerUStelle has no row with ID_VUS 0\n"},
        Case{"IsNoTaxonOfARating",
             {{"awaModulStandard.csv", "ID_ART\n0\n"}},
             "awaModulStandard.csv:2:ID_ART: awaArt has no row with ID_ART 0\n"},
        Case{"IsNoTaxonOfASynonym",
             {{"awaSynArt.csv", "ID_SYNART,ID_SYN\n1,0\n"}},
             "awaSynArt.csv:2:ID_SYN: awaArt has no row with ID_ART 0\n"},
        Case{
            "StandsForNoneInTheChain",
            {{"awaArt.csv", "ID_ART,ID_UFAM\n9,0\n"}, {"awaFamilie.csv", "ID_FAM,ID_UEFAM,ID_GRGR\n1,0,0\n"}},
            ""},
        Case{"StandsForNoneAmongTheLookUpsOfAStation",
             {{"UnvUStelle.csv",
               "ID_UUS,ID_AB,ID_AL_Bioregion,ID_AL_Hoehenstufe,ID_AL_Flussabschnitt\n9,5,0,0,0\n"}},
             ""}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Empty, Rule,
    testing::Values(
        Case{"PlaceInTheProjectTreeIsPermitted",
             {{"Teilraum.csv", "ID_TR\n9\n"},
              {"VerUStelle.csv", "ID_VUS,ID_UUS\n9,\n"},
              {"UnvUStelle.csv", "ID_UUS,ID_AB\n9,\n"},
              {"Abschnitt.csv", "ID_AB,ID_PRJ\n9,\n"}},
             ""},
        Case{"SubHabitatInTheHeaderIsRefused",
             {{"awaPrStelle.csv", "ID_PS\n9\n"}},
             "awaPrStelle.csv:1:ID_TR: the header lacks this column: nothing would lead to the rows\n"},
        Case{"SubHabitatsAreRefused",
             {{"awaPrStelle.csv", "ID_PS,ID_TR\n9,\n"}, {"awaTeilraum_MI.csv", "ID_TR_MI,ID_TR\n9,\n"}},
             "awaPrStelle.csv:2:ID_TR: the reference may not be empty: nothing would lead to the row\n"
             "awaTeilraum_MI.csv:2:ID_TR: the reference may not be empty: nothing would lead to the row\n"},
        // A taxon whose chain leads nowhere would silently be left out of an assessment.
        Case{"ChainIsPermittedButNoWrongKeyInIt",
             {{"awaArt.csv", "ID_ART,ID_UFAM\n9,77\n10,0\n11,\n"},
              {"awaFamilie.csv", "ID_FAM,ID_GRGR\n77,99\n78,\n"}},
             "awaArt.csv:2:ID_UFAM: awaUnterFam has no row with ID_UFAM 77\n"
             "awaFamilie.csv:2:ID_GRGR: awaGrossGr has no row with ID_GRGR 99\n"},
        Case{"TaxonOfAReferenceSpeciesIsRefused",
             {{"awaRefArt_TypB.csv", "ID_Art,ID_AL_Bioregion,ID_AL_Hoehenstufe\n,,\n"}},
             "awaRefArt_TypB.csv:2:ID_Art: the reference may not be empty: nothing would lead to the row\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    EqualRows, Rule,
    testing::Values(
        Case{"OfReferenceSpeciesAreRefusedWithNullAsWell",
             {{"awaRefArt_TypB.csv", "ID_Art,ID_AL_Bioregion,ID_AL_Hoehenstufe\n5,5,\n5,,\n5,5,\n"}},
             "awaRefArt_TypB.csv:4:: the same row stands in line 2 already\n"},
        Case{"OfClassBoundsAreRefused",
             {{"awaWRRL_TIOEZK.csv", "Taxagruppe,TGZK,EQRMin,EQRMax,OEZK\nKA,A,0.5,1,1\nKA,A,0.50,1,1\n"}},
             "awaWRRL_TIOEZK.csv:3:: the same row stands in line 2 already\n"},
        Case{"OfLookUpsAreRefused",
             {{"awaAL_Abundanz.csv", "RF,Abundanz\n1,häufig\n1,häufig\n2,häufig\n"}},
             "awaAL_Abundanz.csv:3:: the same row stands in line 2 already\n"},
        Case{"OfFindsMayRepeat",
             {{"awaFundarchiv.csv", "ID_Art,Gattung\n5,Ulva\n5,Ulva\n"},
              {"awaobWGEV07_Grid.csv", "ID_TR,Zeilencode\n5,300\n5,300\n"}},
             ""},
        Case{"ByACaseOfLettersAreRefused",
             {{"awaWRRL_ETI.csv", "Taxagruppe,TGZK,ErwarteterWert\nKA,Öde,1\nka,öde,2\n"}},
             "awaWRRL_ETI.csv:3:Taxagruppe: the key Taxagruppe 'ka', TGZK 'öde' stands in line 2 already\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Numbers, Rule,
    testing::Values(
        Case{"OfFindingsHaveRanges",
             {{"awaArtPrStelle.csv",
               "ID_PS,ID_ART,CF,DG_MA,SD_MA,Schalen_KA,DG_MP\n5,5,0,100,0,0,0\n5,5,-1,100.5,-0.5,-1,-2\n"}},
             "awaArtPrStelle.csv:3:DG_MA: 100.5 is above 100, the most that is possible\n"
             "awaArtPrStelle.csv:3:DG_MP: -2 is below 0, the least that is possible\n"
             "awaArtPrStelle.csv:3:SD_MA: -0.5 is below 0, the least that is possible\n"
             "awaArtPrStelle.csv:3:Schalen_KA: -1 is below 0, the least that is possible\n"},
        Case{"OfStandsHaveRanges",
             {{"awaArtPrStelle_MI.csv", "ID_TR_MI,ID_ART,CF,DG_MI\n5,5,0,100\n5,5,-1,101\n"},
              {"awaTeilraum_MI.csv", "ID_TR_MI,ID_TR,DG_MI,SD_MI\n9,5,-1,-1\n"}},
             "awaArtPrStelle_MI.csv:3:DG_MI: 101 is above 100, the most that is possible\n"
             "awaTeilraum_MI.csv:2:DG_MI: -1 is below 0, the least that is possible\n"
             "awaTeilraum_MI.csv:2:SD_MI: -1 is below 0, the least that is possible\n"},
        Case{"OfSubHabitatsMayPassHundredInLayers",
             {{"awaTeilraum.csv", "ID_TR,DG_Algengesamt\n6,130\n"}},
             ""},
        Case{"OfRatingsHaveRanges",
             {{"awaModulStandard.csv", "ID_ART,X,P,Sap_GBer,Trophiegewicht_N\n5,10.5,-1,-1,-2\n"}},
             "awaModulStandard.csv:2:P: -1 is below 0, the least that is possible\n"
             "awaModulStandard.csv:2:Sap_GBer: -1 is below 0, the least that is possible\n"
             "awaModulStandard.csv:2:Trophiegewicht_N: -2 is below 0, the least that is possible\n"
             "awaModulStandard.csv:2:X: 10.5 is above 10, the most that is possible\n"},
        Case{
            "OfSestonHaveRanges",
            {{"sesArtPrStelle.csv", "ID_PS,ID_ART,Abundanz\n5,5,-1\n"}, {"sesArt.csv", "ID_ART,W_O\n9,11\n"}},
            "sesArt.csv:2:W_O: 11 is above 10, the most that is possible\n"
            "sesArtPrStelle.csv:2:Abundanz: -1 is below 0, the least that is possible\n"},
        Case{"AreFinite",
             {{"awaModulStandard.csv", "ID_ART,SI,Trophiewert\n5,inf,-inf\n"}},
             "awaModulStandard.csv:2:SI: 'inf' is not a number\n"
             "awaModulStandard.csv:2:Trophiewert: '-inf' is not a number\n"},
        Case{"OfClassBoundsAreInOrder",
             {{"awaWRRL_SIOEZK.csv",
               "Taxagruppe,Gueteklasse,EQRMin,EQRMax,OEZK\nKA,1,0.9,0.8,1\nKA,1,0.8,0.8,2\n"}},
             "awaWRRL_SIOEZK.csv:2:EQRMin: the lower bound 0.9 is above the upper bound 0.8\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Texts, Rule,
    testing::Values(Case{"OfKindsOfAlgaeAreThoseOfTheList",
                         {{"awaArt.csv", "ID_ART\n7\n8\n9\n"},
                          {"awaModulStandard.csv",
                           "ID_ART,Algenart\n5,Makroalgen\n7,makroalge\n8,\n9,Fädige\n"},
                          {"awaAL_Algenart.csv", "RF,Algenart\n3,Fädige\n"}},
                         "awaModulStandard.csv:2:Algenart: awaAL_Algenart has no kind 'Makroalgen'\n"},
                    Case{"OfGroupsAreTwo",
                         {{"awaWRRL_ERI.csv", "Taxagruppe,Bioregionstyp\nAlle,A\nka,A\nMA,A\n"}},
                         "awaWRRL_ERI.csv:4:Taxagruppe: 'MA' is none of Alle or KA\n"},
                    Case{"OfLevelsAreFive",
                         {{"RechenProjekt.csv", "ID_RechMan,RechManEbene\n7,UnvU-Stelle\n8,Fluß\n"}},
                         "RechenProjekt.csv:3:RechManEbene: 'Fluß' is none of Projekt, Abschnitt, "
                         "UnvU-Stelle, VerU-Stelle "
                         "or Teilraum\n"},
                    Case{"OfALevelSayWhatItsMembersAre",
                         {{"RechenProjektListe.csv", "ID_RechMan,ID_Ebene\n5,5\n5,6\n"}},
                         // 6 is a sub-habitat, but no station.
                         "RechenProjektListe.csv:3:ID_Ebene: UnvUStelle has no row with ID_UUS 6\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    AllInOneGo, Rule,
    testing::Values(Case{"ADuplicateDoesNotHideItsWrongReference",
                         {{"Abschnitt.csv", "ID_AB,ID_PRJ\n9,5\n9,77\n"}},
                         "Abschnitt.csv:3:ID_AB: the key ID_AB 9 stands in line 2 already\n"
                         "Abschnitt.csv:3:ID_PRJ: Projekt has no row with ID_PRJ 77\n"},
                    Case{"AHeaderWithoutItsKeyDoesNotHideTheRows",
                         {{"awaArtPrStelle.csv", "ID_PS,DG_MA\n5,x\n77,1\n"}},
                         "awaArtPrStelle.csv:1:ID_ART: the header lacks this column of the key\n"
                         "awaArtPrStelle.csv:2:DG_MA: 'x' is not a number\n"
                         "awaArtPrStelle.csv:3:ID_PS: awaPrStelle has no row with ID_PS 77\n"},
                    Case{"AMistypedKeyTakesNoNumber",
                         {{"Projekt.csv", "ID_PRJ,PRJBez\n1o,a\n6,b\n"}},
                         "Projekt.csv:2:ID_PRJ: '1o' is not a whole number\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Files, Rule,
    testing::Values(
        Case{"MayEndWithACarriageReturn", {{"Projekt.csv", "ID_PRJ,PRJBez\r\n9,Öd\r"}}, ""},
        Case{"NeedLineFeeds",
             {{"Projekt.csv", "ID_PRJ,PRJBez\r9,Öd\r"}},
             "Projekt.csv:0:: the lines end with CR alone; LF or CR LF is needed\n"},
        Case{"MayBeHidden", {{"._Projekt.csv", std::string_view("\0\5\26\7", 4)}, {"x/.a.csv", "a"}}, ""},
        Case{"ShowNoControlCharacters",
             {{"Projekt.csv", "ID_PRJ,\033[2Jx\xC2\x9By\n9,1\n"}},
             "Projekt.csv:1: [2Jx y: table Projekt has no such column\n"}),
    [](const auto& given) { return std::string(given.param.Name); });

TEST(Load, ATimeOfDayHasNoDay) {
    TestDatabase db;
    Prepare(db);
    EXPECT_EQ(Told(Load({{"VerUStelle.csv", "ID_VUS,ID_UUS,USZeitVon\n9,5,2026-05-12\n"}}, db)),
              "VerUStelle.csv:2:USZeitVon: '2026-05-12' is not a time of day (09:30 or 09:30:00)\n");
}

TEST(Load, ACarriageReturnAtTheEndIsNoText) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ,PRJBez\n9,Öd\r"}}, db)), "");
    EXPECT_EQ(db.One("SELECT PRJBez FROM Projekt"), "Öd");
}

TEST(Load, TheRowsOfAReferenceTableAreNotAddedASecondTime) {
    TestDatabase db;
    Prepare(db);
    const Files files{{"awaWRRL_RIOEZK.csv", "Taxagruppe,Bioregionstyp,EQRMin,EQRMax,OEZK\nKA,A,,1,1\n"},
                      {"awaAL_Frequenz.csv", "RF,Frequenz\n1,häufig\n"}};
    EXPECT_EQ(Told(Load(files, db)), "");
    EXPECT_EQ(Told(Load(files, db)),
              "awaAL_Frequenz.csv:2:: the table holds the same row already\n"
              "awaWRRL_RIOEZK.csv:2:: the table holds the same row already\n");
    EXPECT_EQ(Told(Load(files, db, true)), "");
    EXPECT_EQ(db.One("SELECT count(*) FROM awaWRRL_RIOEZK"), "1");
}

TEST(Load, ACounterDoesNotRunPast32Bits) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ,PRJBez\n,a\n2147483647,b\n"}}, db)),
              "Projekt.csv:2:ID_PRJ: the counter has given out its last number, 2147483647\n");
    db.Run("INSERT INTO Projekt (ID_PRJ) VALUES (2147483647)");
    try {
        db.Run("INSERT INTO Projekt (PRJBez) VALUES ('zu viel')");
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        EXPECT_THAT(error.Description(), HasSubstr("ID_PRJ"));
    }
    EXPECT_EQ(db.One("SELECT count(*) FROM Projekt"), "1");
}

TEST(Load, ColumnsThatAFileLacksKeepWhatAFirstRowSays) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"awaGrossGr.csv", "ID_GRGR,Grossgruppe\n128,DIATOMEEN\n"}}, db)), "");
    EXPECT_EQ(db.One("SELECT Grossgruppe, Bezeichnung, Reihenfolge, RF_Kieselalge FROM awaGrossGr WHERE "
                     "ID_GRGR=128"),
              "DIATOMEEN|Bacillariophyceae|9|1");
}

TEST(Load, AnUnreadableFileDoesNotHideTheOthersAndItsTableIsNotMissed) {
    TestDatabase db;
    const std::string folder = db.Folder().File("ein");
    std::filesystem::create_directories(folder + "/Projekt.csv");  // a folder, so that nobody can read it
    std::ofstream(folder + "/Abschnitt.csv") << "ID_AB,ID_PRJ,RF\n1,1,x\n";
    EXPECT_EQ(Told(LoadFolder(folder, db.Path())),
              "Abschnitt.csv:2:RF: 'x' is not a whole number\n"
              "Projekt.csv:0:: the file cannot be read\n");
}

TEST(Load, IsUndoneWhereTheProcessEndsHalfway) {
    TestDatabase db;
    std::string text = "ID_PRJ\n";
    for (int i = 1; i <= 9000; ++i) text += std::to_string(i) + "\n";
    const std::vector<LoadText> files{{"Projekt.csv", text}};
    LoadOptions options;
    options.Progress = [](std::uint64_t, std::uint64_t) { _exit(7); };
    EXPECT_EXIT(LoadTexts(files, db.Path(), options), testing::ExitedWithCode(7), "");
    EXPECT_EQ(db.One("SELECT count(*) FROM Projekt"), "0");
    options.Progress = nullptr;
    EXPECT_EQ(Told(LoadTexts(files, db.Path(), options)), "");
}

TEST(Ranges, NameTablesAndColumnsOfTheSchema) {
    TestDatabase db;
    const auto tables = load::ReadTables(db.Engine());
    const auto exists = [&](std::string_view table, std::string_view column) {
        const auto* found = load::FindTable(tables, table);
        return found != nullptr && found->Find(column) < found->Columns.size();
    };
    for (const auto& range : load::Ranges()) EXPECT_TRUE(exists(range.Table, range.Column)) << range.Column;
    for (const auto& choice : load::TextChoices())
        EXPECT_TRUE(exists(choice.Table, choice.Column)) << choice.Column;
}

TEST(Ranges, StandOnThePageOfTheDataModel) {
    std::ifstream in(std::string(FX_SOURCE_DIR) + "/docs/data-model.md");
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    for (const auto& range : load::Ranges()) {
        std::string column(range.Column);
        const bool twin = range.Table == "awaTeilraum" && column.ends_with("_WRRL");
        if (twin) column.resize(column.size() - 5);
        const std::string words = range.Most == 100  ? "| 0 to 100 |"
                                  : range.Most == 10 ? "| 0 to 10 |"
                                                     : "| 0 and above |";
        const auto tells = [&](const std::string& line) {
            return line.starts_with("| `" + std::string(range.Table) + "`: ") && line.ends_with(words) &&
                   line.find("`" + column + "`") != line.npos &&
                   (!twin || line.find("their `_WRRL` twins") != line.npos);
        };
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(), tells), 1) << range.Table << "." << range.Column;
    }
}

TEST(Dump, ThatLostAFileIsToldAndNotLoaded) {
    TestDatabase db;
    Dump(db.Path(), db.Folder().File("aus"));
    std::filesystem::remove(db.Folder().File("aus/awaKatalog.csv"));
    EXPECT_THAT(Told(LoadFolder(db.Folder().File("aus"), db.Path())),
                HasSubstr(":Tabelle: the file awaKatalog.csv, which belongs to the dump, is missing\n"));
}

}  // namespace
}  // namespace FX_Algen::store
