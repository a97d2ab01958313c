#include "FX_Algen/Error.h"
#include "LoadTest.h"
#include "store/load/FirstRows.h"
#include "store/load/References.h"
#include "store/load/Tables.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Project = "ID_PRJ,PRJBez\n1,Erlenbach\n";

TEST(Load, WritesTheRowsOfAllFilesAndTellsTheirNumber) {
    TestDatabase db;
    const auto result =
        Load({{"Projekt.csv", "PRJBez,ID_PRJ\nErlenbach,1\n\"Große Ödenau, oben\",2\n"},
              {"Abschnitt.csv", "ID_AB,ID_PRJ,ABBez,RF\n10,1,Quelle,1\n11,2,,\n12,2,\"\",3\n"}},
             db);
    EXPECT_EQ(Told(result), "");
    ASSERT_EQ(result.Tables.size(), 2U);
    EXPECT_EQ(result.Tables[0].Table, "Abschnitt");
    EXPECT_EQ(result.Tables[0].Rows, 3);
    EXPECT_THAT(db.Rows("SELECT ID_PRJ, PRJBez FROM Projekt"),
                ElementsAre("1|Erlenbach", "2|Große Ödenau, oben"));
    // An empty field is Null, two quotes are the empty text.
    EXPECT_THAT(db.Rows("SELECT ID_AB, ABBez, RF FROM Abschnitt"),
                ElementsAre("10|Quelle|1", "11|Null|Null", "12||3"));
}

TEST(Load, ColumnsThatTheHeaderDoesNotNameTakeTheirDefaults) {
    TestDatabase db;
    db.Run("INSERT INTO VerUStelle (ID_VUS) VALUES (5)");
    EXPECT_EQ(
        Told(Load({{"Teilraum.csv", "ID_TR,ID_VUS\n1,5\n"}, {"awaTeilraum.csv", "ID_TR,DG_MA\n1,\n"}}, db)),
        "");
    EXPECT_EQ(db.One("SELECT Anzeige FROM Teilraum"), "-1");
    EXPECT_EQ(db.One("SELECT DG_Gesamt, DG_MA FROM awaTeilraum"), "0.0|Null");
}

TEST(Load, NamesOfFilesAndColumnsAreReadWithoutRegardToCase) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"ordner/AWAART.CSV", "id_art,GATTUNG\n3,Ulothrix\n"},
                         {"awafundarchiv.csv", "ID_ART,HÄUFIGKEIT\n3,selten\n"},
                         {"LIESMICH.md", "no table"}},
                        db)),
              "");
    EXPECT_EQ(db.One("SELECT ID_ART, Gattung FROM awaArt"), "3|Ulothrix");
    EXPECT_EQ(db.One("SELECT ID_Art, Häufigkeit FROM awaFundarchiv"), "3|selten");
}

TEST(Load, ACounterFillsAnEmptyKey) {
    TestDatabase db;
    // The row without a key stands before the one whose number it would take.
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ,PRJBez\n,Acht\n1,Eins\n7,Sieben\n,Neun\n"}}, db)), "");
    EXPECT_THAT(db.Rows("SELECT ID_PRJ, PRJBez FROM Projekt"),
                ElementsAre("1|Eins", "7|Sieben", "8|Acht", "9|Neun"));
}

TEST(Load, AcceptsAByteOrderMarkSemicolonsDecimalCommasAndCarriageReturns) {
    TestDatabase db;
    db.Run("INSERT INTO VerUStelle (ID_VUS) VALUES (5)");
    EXPECT_EQ(Told(Load({{"Teilraum.csv",
                          "\xEF\xBB\xBFID_TR;ID_VUS;TRBez;Anzeige\r\n1;5;\"Links; Ufer\r\nunten\";1\r\n"},
                         {"awaTeilraum.csv", "ID_TR;DG_Gesamt;MitBewuchsdichte\r\n1;12,5;0.5\r\n"}},
                        db)),
              "");
    EXPECT_EQ(db.One("SELECT TRBez, Anzeige FROM Teilraum"), "Links; Ufer\r\nunten|-1");
    EXPECT_EQ(db.One("SELECT DG_Gesamt, MitBewuchsdichte FROM awaTeilraum"), "12.5|0.5");
}

TEST(Load, DatesAndTimesAreHeldAsIsoText) {
    TestDatabase db;
    db.Run("INSERT INTO UnvUStelle (ID_UUS) VALUES (5)");
    EXPECT_EQ(Told(Load({{"VerUStelle.csv",
                          "ID_VUS,ID_UUS,USDatumVon,USDatumBis,USZeitVon\n1,5,12.05.2026,2026-05-13,9:30\n"}},
                        db)),
              "");
    EXPECT_EQ(db.One("SELECT USDatumVon, USDatumBis, USZeitVon, USZeitBis FROM VerUStelle"),
              "2026-05-12|2026-05-13|09:30:00|Null");
}

// ---- bad input -----------------------------------------------------------------------------------

struct BadCase {
    const char* Name;
    Files Given;
    const char* Problem;  ///< file:line:column: reason
};

class BadInput : public testing::TestWithParam<BadCase> {};

TEST_P(BadInput, IsToldWithItsPlaceAndNothingIsWritten) {
    TestDatabase db;
    db.Run("INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (99, 'vorher')");
    Files files = GetParam().Given;
    files.push_back({"AL_Flussabschnitt.csv", "ID_AL_Flussabschnitt,Bezeichnung\n1,Oberlauf\n"});
    for (const bool replace : {false, true}) {
        const auto result = Load(files, db, replace);
        EXPECT_EQ(Told(result), std::string(GetParam().Problem) + "\n");
        EXPECT_THAT(result.Tables, IsEmpty());
        EXPECT_EQ(db.One("SELECT count(*) FROM AL_Flussabschnitt"), "0");
        EXPECT_EQ(db.One("SELECT ID_PRJ, PRJBez FROM Projekt"), "99|vorher");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Load, BadInput,
    testing::Values(
        BadCase{"NoTable",
                {{"awaArten.csv", "ID_ART\n1\n"}},
                "awaArten.csv:0:: the database has no table 'awaArten'"},
        BadCase{"AView", {{"Reich.csv", "ID_REICH\n1\n"}}, "Reich.csv:0:: the database has no table 'Reich'"},
        BadCase{"TwoFilesForOneTable",
                {{"Projekt.csv", "ID_PRJ\n1\n"}, {"projekt.CSV", "ID_PRJ\n2\n"}},
                "projekt.CSV:0:: the table Projekt is in Projekt.csv already"},
        BadCase{"EmptyFile", {{"Projekt.csv", ""}}, "Projekt.csv:0:: the file has no header line"},
        BadCase{"UnknownColumn",
                {{"Projekt.csv", "ID_PRJ,PRJName\n1,x\n"}},
                "Projekt.csv:1:PRJName: table Projekt has no such column"},
        BadCase{"ColumnTwice",
                {{"Projekt.csv", "ID_PRJ,prjbez,PRJBez\n1,x,y\n"}},
                "Projekt.csv:1:PRJBez: the header names the column twice"},
        BadCase{"ColumnWithoutName",
                {{"Projekt.csv", "ID_PRJ,\n1,x\n"}},
                "Projekt.csv:1:: column 2 of the header has no name"},
        BadCase{"KeyNotInHeader",
                {{"awaTeilraum.csv", "DG_MA\n1\n"}},
                "awaTeilraum.csv:1:ID_TR: the header lacks this column of the key"},
        BadCase{"TooFewFields",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1\n"}},
                "Projekt.csv:2:: the line has 1 field, the header 2"},
        BadCase{"TooManyFields",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1,a,b\n"}},
                "Projekt.csv:2:: the line has 3 fields, the header 2"},
        BadCase{"NoNumber",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1,a\nzwei,b\n"}},
                "Projekt.csv:3:ID_PRJ: 'zwei' is not a whole number"},
        BadCase{"SixteenBits",
                {{"AL_Hoehenstufe.csv", "ID_AL_Hoehenstufe,Hoehenstufe\n1,40000\n"}},
                "AL_Hoehenstufe.csv:2:Hoehenstufe: '40000' does not fit a 16-bit integer (-32768 to 32767)"},
        BadCase{
            "ThirtyTwoBits",
            {{"Projekt.csv", "ID_PRJ\n3000000000\n"}},
            "Projekt.csv:2:ID_PRJ: '3000000000' does not fit a 32-bit integer (-2147483648 to 2147483647)"},
        BadCase{"NoBoolean",
                {{"Projekt.csv", "ID_PRJ,IstWGEV\n1,vielleicht\n"}},
                "Projekt.csv:2:IstWGEV: 'vielleicht' is not a boolean (-1, 0, 1, true or false)"},
        BadCase{"NoDay",
                {{"awaArt.csv", "ID_ART,Erstellt\n1,30.02.2026\n"}},
                "awaArt.csv:2:Erstellt: '30.02.2026' is not a day (2026-05-12 or 12.05.2026)"},
        BadCase{"DecimalCommaWithCommas",
                {{"sesArt.csv", "ID_ART,W_SI\n1,\"2,5\"\n"}},
                "sesArt.csv:2:W_SI: '2,5' is not a number"},
        BadCase{"EmptyKey",
                {{"awaWRRL_Klasse.csv", "Klassenzahl,Bezeichnung\n,gut\n"}},
                "awaWRRL_Klasse.csv:2:Klassenzahl: the key may not be empty"},
        BadCase{"KeyTwiceInFile",
                {{"awaWRRL_ETI.csv", "Taxagruppe,TGZK,ErwarteterWert\nKA,A,1\nAlle,A,1\nKA,A,2\n"}},
                "awaWRRL_ETI.csv:4:Taxagruppe: the key Taxagruppe 'KA', TGZK 'A' stands in line 2 already"},
        BadCase{"UniqueTwiceInFile",
                {{"awaArt.csv", "ID_ART\n1\n"},
                 {"AL_Bioregion.csv", "ID_AL_Bioregion\n1\n"},
                 {"AL_Hoehenstufe.csv", "ID_AL_Hoehenstufe\n2\n"},
                 {"awaRefArt_TypB.csv", "ID_Art,ID_AL_Bioregion,ID_AL_Hoehenstufe\n1,1,\n1,1,2\n1,1,2\n"}},
                "awaRefArt_TypB.csv:4:: the same row stands in line 3 already"},
        BadCase{"NotUtf8",
                {{"Projekt.csv",
                  "ID_PRJ,PRJBez\n1,B\xE4"
                  "che\n"}},
                "Projekt.csv:2:PRJBez: byte E4 at position 2 of the field is not UTF-8"},
        BadCase{"NotUtf8InHeader",
                {{"awaFundarchiv.csv",
                  "Datum,H\xE4"
                  "ufigkeit\n,\n"}},
                "awaFundarchiv.csv:1:: byte E4 at position 2 of the field is not UTF-8"},
        BadCase{"Utf16", {{"Projekt.csv", "\xFF\xFEI"}}, "Projekt.csv:0:: the file is UTF-16, not UTF-8"},
        BadCase{"QuoteInside",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1,a\"b\n"}},
                "Projekt.csv:2:PRJBez: a quote stands inside a field that does not begin with one"},
        BadCase{"QuoteNotClosed",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1,\"offen\n2,b\n"}},
                "Projekt.csv:2:PRJBez: the closing quote is missing"},
        BadCase{"TextBehindQuote",
                {{"Projekt.csv", "ID_PRJ,PRJBez\n1,\"a\"b\n"}},
                "Projekt.csv:2:PRJBez: text stands behind a closing quote"},
        BadCase{"NoSuchParent",
                {{"UnvUStelle.csv", "ID_UUS,ID_AB\n1,4711\n"}},
                "UnvUStelle.csv:2:ID_AB: Abschnitt has no row with ID_AB 4711"},
        BadCase{"NoSuchLifeForm",
                {{"awaArt.csv", "ID_ART\n1\n"}, {"awaModulStandard.csv", "ID_ART,Lebensform\n1,7\n"}},
                "awaModulStandard.csv:2:Lebensform: awaAL_Lebensform has no row with ID_AL_Lebensform 7"},
        BadCase{"DeletedKeysOfNoTable",
                {{"GeloeschteSchluessel.csv", "Tabelle,Schluessel,Zaehler\nawaArten,5,0\n"}},
                "GeloeschteSchluessel.csv:2:Tabelle: the database has no table 'awaArten'"}),
    [](const auto& badCase) { return std::string(badCase.param.Name); });

TEST(BadInputs, AKeyThatTheTableHoldsIsTold) {
    TestDatabase db;
    db.Run("INSERT INTO Projekt (ID_PRJ) VALUES (5)");
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ\n4\n5\n4\n"}}, db)),
              "Projekt.csv:3:ID_PRJ: the table holds the key ID_PRJ 5 already\n"
              "Projekt.csv:4:ID_PRJ: the key ID_PRJ 4 stands in line 2 already\n");
    EXPECT_EQ(db.One("SELECT count(*) FROM Projekt"), "1");
}

TEST(BadInputs, AllProblemsOfAllFilesAreToldInOneGoAndSorted) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"awaArtPrStelle.csv", "ID_PS,ID_ART,DG_MA,Schalen_KA\n1,1,x,y\n1,2,1,1\n9,1,1,1\n"},
                         {"awaPrStelle.csv", "ID_PS,ID_TR\n1,1\n"},
                         {"VerUStelle.csv", "ID_VUS,ID_UUS\n5,5\n"},
                         {"Teilraum.csv", "ID_TR,ID_VUS,Anzeige\n1,5,2\n"},
                         {"awaArt.csv", "ID_ART,ID_UFAM\n1,0\n1,0\n"}},
                        db)),
              "Teilraum.csv:2:Anzeige: '2' is not a boolean (-1, 0, 1, true or false)\n"
              "VerUStelle.csv:2:ID_UUS: UnvUStelle has no row with ID_UUS 5\n"
              "awaArt.csv:3:ID_ART: the key ID_ART 1 stands in line 2 already\n"
              "awaArtPrStelle.csv:2:DG_MA: 'x' is not a number\n"
              "awaArtPrStelle.csv:2:Schalen_KA: 'y' is not a whole number\n"
              "awaArtPrStelle.csv:3:ID_ART: awaArt has no row with ID_ART 2\n"
              "awaArtPrStelle.csv:4:ID_PS: awaPrStelle has no row with ID_PS 9\n");
}

TEST(BadInputs, LinesAreThoseOfTheFileAlsoBehindLineBreaksInFields) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ,PRJBez\n1,\"drei\nganze\nZeilen\"\n\nx,y\n"}}, db)),
              "Projekt.csv:6:ID_PRJ: 'x' is not a whole number\n");
}

TEST(BadInputs, OnlyTheFirstProblemsAreKeptAndTheRestIsCounted) {
    TestDatabase db;
    std::string text = "ID_PRJ\n";
    for (int i = 0; i < 5000; ++i) text += "x\n";
    const std::vector<LoadText> files{{"Projekt.csv", text}};
    LoadOptions options;
    options.MaxProblems = 3;
    const auto result = LoadTexts(files, db.Path(), options);
    EXPECT_EQ(Told(result),
              "Projekt.csv:2:ID_PRJ: 'x' is not a whole number\n"
              "Projekt.csv:3:ID_PRJ: 'x' is not a whole number\n"
              "Projekt.csv:4:ID_PRJ: 'x' is not a whole number\n");
    EXPECT_EQ(result.MoreProblems, 4997U);
}

TEST(BadInputs, ALongTextIsCutInTheMessageBetweenCharacters) {
    TestDatabase db;
    std::string umlauts;
    for (int i = 0; i < 30; ++i) umlauts += "ä";
    const std::string text = "ID_PRJ\na" + umlauts + "\n";
    // 40 bytes would end inside an umlaut: one letter and 19 umlauts of two bytes are 39.
    std::string shown = "a";
    for (int i = 0; i < 19; ++i) shown += "ä";
    EXPECT_EQ(Told(Load({{"Projekt.csv", text}}, db)),
              "Projekt.csv:2:ID_PRJ: '" + shown + "…' is not a whole number\n");
}

TEST(BadInputs, ADatabaseThatIsMissingOrOfAnotherLayoutIsRefused) {
    TestDatabase db;
    const std::vector<LoadText> files{{"Projekt.csv", Project}};
    const auto number = [&](const std::string& path) {
        try {
            LoadTexts(files, path);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(number(db.Folder().File("keine.db")), ErrorNumber::FileNotFound);
    std::ofstream(db.Folder().File("text.db")) << "This is a text and by no means a database file.";
    EXPECT_EQ(number(db.Folder().File("text.db")), ErrorNumber::NotADatabase);
    db.Run("PRAGMA user_version = 77");
    EXPECT_EQ(number(db.Path()), ErrorNumber::NotADatabase);
}

TEST(BadInputs, AFolderThatIsMissingOrHasNoFileIsRefused) {
    TestDatabase db;
    std::filesystem::create_directory(db.Folder().File("leer"));
    EXPECT_THROW(LoadFolder(db.Folder().File("leer"), db.Path()), Error);
    EXPECT_THROW(LoadFolder(db.Folder().File("keiner"), db.Path()), Error);
}

// ---- replacing -----------------------------------------------------------------------------------

TEST(Replace, TheTablesOfTheFilesAreEmptiedAndNoOthers) {
    TestDatabase db;
    db.Run("INSERT INTO awaWRRL_Klasse VALUES (1, 'Beispiel'), (2, 'Beispiel')");
    db.Run("INSERT INTO awaWRRL_ETI VALUES ('KA', 'A', 1.5)");
    EXPECT_EQ(Told(Load({{"awaWRRL_Klasse.csv", "Klassenzahl,Bezeichnung\n1,sehr gut\n"}}, db, true)), "");
    EXPECT_THAT(db.Rows("SELECT Klassenzahl, Bezeichnung FROM awaWRRL_Klasse"), ElementsAre("1|sehr gut"));
    EXPECT_EQ(db.One("SELECT count(*) FROM awaWRRL_ETI"), "1");
}

TEST(Replace, AReplacedLevelDoesNotTakeTheTaxaAlong) {
    TestDatabase db;
    db.Run("INSERT INTO awaUnterFam (ID_UFAM, Unterfamilie) VALUES (3, 'alt')");
    db.Run("INSERT INTO awaArt (ID_ART, ID_UFAM) VALUES (1, 3)");
    EXPECT_EQ(Told(Load({{"awaUnterFam.csv", "ID_UFAM,Unterfamilie\n3,neu\n"}}, db, true)), "");
    EXPECT_EQ(db.One("SELECT ID_ART FROM awaArt"), "1");
    // The cascade is there again.
    db.Run("DELETE FROM awaUnterFam WHERE ID_UFAM=3");
    EXPECT_EQ(db.One("SELECT count(*) FROM awaArt"), "0");
}

TEST(Replace, AReplacedStandKeepsTheTaxaInIt) {
    TestDatabase db;
    db.Run("INSERT INTO Teilraum (ID_TR) VALUES (1); INSERT INTO awaTeilraum (ID_TR) VALUES (1)");
    db.Run("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR) VALUES (4, 1)");
    db.Run("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART) VALUES (4, 7)");
    EXPECT_EQ(Told(Load({{"awaTeilraum_MI.csv", "ID_TR_MI,ID_TR,MI_Bez\n4,1,neu\n"}}, db, true)), "");
    EXPECT_EQ(db.One("SELECT ID_ART FROM awaArtPrStelle_MI"), "7");
}

TEST(Replace, RowsThatWouldLoseTheirParentAreTold) {
    TestDatabase db;
    db.Run(
        "INSERT INTO Projekt (ID_PRJ) VALUES (1), (2); INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 1), "
        "(2, 2)");
    // A reference that dangled before is nobody's fault now.
    db.Run("INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (3, 77)");
    EXPECT_EQ(Told(Load({{"Projekt.csv", "ID_PRJ\n2\n"}}, db, true)),
              "Projekt.csv:0:ID_PRJ: the file lacks 1 key that Abschnitt refers to, such as 1\n");
    EXPECT_EQ(db.One("SELECT count(*) FROM Projekt"), "2");
}

TEST(Replace, CountersGoOnBehindTheOldRows) {
    TestDatabase db;
    db.Run("INSERT INTO awaArt (ID_ART) VALUES (50)");
    EXPECT_EQ(Told(Load({{"awaArt.csv", "ID_ART\n3\n"}}, db, true)), "");
    db.Run("INSERT INTO awaArt DEFAULT VALUES");
    EXPECT_THAT(db.Rows("SELECT ID_ART FROM awaArt"), ElementsAre("3", "51"));
}

TEST(Load, LeavesAllIndexesAndTriggersInPlace) {
    TestDatabase db;
    const char* objects = "SELECT type, name, sql FROM sqlite_master ORDER BY type, name";
    const auto before = db.Rows(objects);
    const Files files{{"awaArt.csv", "ID_ART\n1\n"}, {"awaReich.csv", "ID_REICH,Reich\n1,Protista\n"}};
    for (const bool replace : {false, true}) {
        if (!replace) {
            ASSERT_EQ(Told(Load(files, db)), "");
        } else {
            ASSERT_EQ(Told(Load(files, db, true)), "");
        }
        EXPECT_EQ(db.Rows(objects), before);
    }
}

// ---- first rows ----------------------------------------------------------------------------------

TEST(FirstRowsGiveWay, AnUnchangedFirstRowGivesWayToTheRowOfAFile) {
    TestDatabase db;
    EXPECT_EQ(
        Told(Load({{"awaGrossGr.csv", "ID_GRGR,Grossgruppe,RF_Kieselalge\n129,CHLOROPHYTA,0\n200,NEUE,0\n"},
                   {"awaAL_Algenart.csv", "RF,Algenart\n0,\n1,Makroalge\n3,Fadenalge\n"}},
                  db)),
        "");
    EXPECT_EQ(db.One("SELECT Grossgruppe FROM awaGrossGr WHERE ID_GRGR=129"), "CHLOROPHYTA");
    EXPECT_EQ(db.One("SELECT count(*) FROM awaGrossGr"), "19");  // 18 first rows and one more
    EXPECT_THAT(db.Rows("SELECT RF, Algenart FROM awaAL_Algenart ORDER BY RF"),
                ElementsAre("0|Null", "1|Makroalge", "2|Mikroalge", "3|Fadenalge"));
}

TEST(FirstRowsGiveWay, AFirstRowThatSomebodyChangedStays) {
    TestDatabase db;
    db.Run("UPDATE awaKatalog SET KATBez='Unser Katalog' WHERE ID_KAT=1");
    EXPECT_EQ(Told(Load({{"awaKatalog.csv", "ID_KAT,KATBez\n1,Anderer\n"}}, db)),
              "awaKatalog.csv:2:ID_KAT: the table holds the key ID_KAT 1 already\n");
    EXPECT_EQ(db.One("SELECT KATBez FROM awaKatalog"), "Unser Katalog");
}

TEST(FirstRowsGiveWay, TheSameKeyTwiceInAFileIsStillRefused) {
    TestDatabase db;
    EXPECT_EQ(Told(Load({{"awaKatalog.csv", "ID_KAT,KATBez\n1,a\n1,b\n"}}, db)),
              "awaKatalog.csv:3:ID_KAT: the key ID_KAT 1 stands in line 2 already\n");
}

TEST(FirstRowsGiveWay, TheListOfTheirTablesIsComplete) {
    TestDatabase db;
    std::set<std::string> filled;
    for (const auto& table : load::ReadTables(db.Engine()))
        if (db.One("SELECT count(*) FROM \"" + table.Name + "\"") != "0") filled.insert(table.Name);
    const auto names = load::FirstRows::Tables();
    EXPECT_EQ(filled, std::set<std::string>(names.begin(), names.end()));
}

// ---- references ----------------------------------------------------------------------------------

TEST(References, NameTablesAndColumnsOfTheSchema) {
    TestDatabase project;
    TestDatabase* dbs[] = {&project};
    for (const auto& reference : load::References()) {
        if (reference.Table == "Menuegruppenzuordnung") continue;  // of the main database
        const auto tables = load::ReadTables(dbs[0]->Engine());
        for (const auto& [table, column] :
             {std::pair{reference.Table, reference.Column}, std::pair{reference.Parent, reference.Key}}) {
            const auto* found = load::FindTable(tables, table);
            ASSERT_NE(found, nullptr) << table;
            ASSERT_LT(found->Find(column), found->Columns.size()) << table << "." << column;
            // Letter by letter: messages show them.
            EXPECT_EQ(found->Columns[found->Find(column)].Name, column);
        }
    }
}

TEST(References, OfTheMainDatabaseAreCheckedToo) {
    TestDatabase db(DatabaseKind::Main);
    EXPECT_EQ(Told(Load({{"Menuegruppenzuordnung.csv", "ID_Menuegruppe,Funktionsname\n1,mnuFile\n"}}, db)),
              "Menuegruppenzuordnung.csv:2:ID_Menuegruppe: Menuegruppe has no row with ID_Menuegruppe 1\n");
    EXPECT_EQ(Told(Load({{"Menuegruppe.csv", "ID_Menuegruppe,Menuegruppe\n1,Gäste\n"},
                         {"Menuegruppenzuordnung.csv", "ID_Menuegruppe,Funktionsname\n1,mnuFile\n"}},
                        db)),
              "");
}

TEST(Load, TheDemoLoadsIntoANewDatabase) {
    TestDatabase db;
    EXPECT_EQ(Told(LoadDemo(db.Path())), "");
    EXPECT_NE(db.One("SELECT count(*) FROM awaArt"), "0");
}

TEST(Load, ProgressEndsAtTheWhole) {
    TestDatabase db;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> steps;
    std::string text = "ID_PRJ\n";
    for (int i = 1; i <= 5000; ++i) text += std::to_string(i) + "\n";
    const std::vector<LoadText> files{{"Projekt.csv", text}};
    LoadOptions options;
    options.Progress = [&](std::uint64_t done, std::uint64_t all) { steps.emplace_back(done, all); };
    EXPECT_EQ(Told(LoadTexts(files, db.Path(), options)), "");
    ASSERT_GE(steps.size(), 2U);
    EXPECT_EQ(steps.back(), std::pair(text.size(), text.size()));
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
}

}  // namespace
}  // namespace FX_Algen::store
