#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "store/Layout.h"

// What statements give on real rows.
namespace FX_Algen::store::dialect::testing {
namespace {

class Rows : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        folder_ = ::testing::TempDir() + "fx_rows_" + test->name();
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        CreateDatabase(Path("project"), DatabaseKind::Project);
        CreateDatabase(Path("report"), DatabaseKind::Report);
        db_ = Workspace().OpenDatabase(Path("project"));
        FillTaxa();
        FillFindings();
    }
    void TearDown() override {
        db_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string Path(const std::string& name) const { return folder_ + "/" + name + ".db"; }
    void Do(const std::string& statement) { db_->Execute(statement); }

    /// All rows as text: columns joined by "|", Null as "Null", booleans as "-1" and "0".
    std::vector<std::string> Of(const std::string& statement) { return Of(*db_, statement); }
    static std::vector<std::string> Of(Database& database, const std::string& statement) {
        std::vector<std::string> rows;
        const RecordsetPtr set = database.OpenRecordset(statement);
        for (; !set->Eof(); set->MoveNext()) {
            std::string row;
            for (std::size_t i = 0; i < set->Fields().size(); ++i) {
                const Value& value = (*set)[i];
                row += (i > 0 ? "|" : "") + (value.IsNull() ? std::string("Null") : value.Text());
            }
            rows.push_back(row);
        }
        return rows;
    }
    std::int32_t FailureOf(const std::string& statement) {
        try {
            Of(statement);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    std::int32_t FailureOfDo(const std::string& statement) {
        try {
            Do(statement);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }
    std::string WordsOf(const std::string& statement) {
        try {
            Of(statement);
        } catch (const Error& error) {
            return error.Description();
        }
        return {};
    }

private:
    void FillTaxa() {
        Do("INSERT INTO awaArt (ID_ART, Gattung, Art, RF, Erstellt) VALUES (1, 'Ulothrix', 'zonata', 30, "
           "#05/12/2026#)");
        Do("INSERT INTO awaArt (ID_ART, Gattung, Art, RF) VALUES (2, 'Äthalium', 'a_b', 20)");
        Do("INSERT INTO awaArt (ID_ART, Gattung, Art, RF) VALUES (3, 'ÄTHALIUM', 'x#1', 10)");
        Do("INSERT INTO awaArt (ID_ART, Gattung, Art) VALUES (4, 'Azolla', Null)");
        Do("INSERT INTO awaArt (ID_ART, Gattung, Art) VALUES (5, 'Bangia', '')");
        Do("INSERT INTO awaModulStandard (ID_ART, SI, Algenart) VALUES (1, 1.5, 'Makroalge')");
        Do("INSERT INTO awaModulStandard (ID_ART, SI, Algenart) VALUES (2, 2.5, '')");
    }
    void FillFindings() {
        Do("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (10, 7, 'links')");
        Do("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (11, 7, 'rechts')");
        for (const char* row : {"10,1,0,4", "11,1,0,4", "10,1,-1,6", "11,2,0,0"}) {
            Do(std::string("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF, Schalen_KA) VALUES(") + row +
               ");");
        }
    }

    std::string folder_;
    DatabasePtr db_;

protected:
    Database& Db() { return *db_; }
};

using Expected = std::vector<std::string>;

TEST_F(Rows, DistinctrowKeepsEqualFindingsOfDifferentRows) {
    // Taxon 1 stands at both sites with 4 valves: two rows with equal values.
    const std::string rest =
        " ID_ART, Schalen_KA FROM awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = "
        "awaArtPrStelle.ID_PS WHERE ID_TR=7 AND CF=0 ORDER BY ID_ART";
    EXPECT_EQ(Of("SELECT DISTINCTROW" + rest), (Expected{"1|4", "1|4", "2|0"}));
    EXPECT_EQ(Of("SELECT DISTINCT" + rest), (Expected{"1|4", "2|0"}));
}

TEST_F(Rows, GroupsAndDistinctCompareTextsWithoutCase) {
    EXPECT_EQ(Of("SELECT Count(*) FROM awaArt GROUP BY Gattung"), (Expected{"2", "1", "1", "1"}));
    EXPECT_EQ(Of("SELECT DISTINCT Gattung FROM awaArt").size(), 4U);
}

TEST_F(Rows, GroupsComeInTheirGermanOrder) {
    // ä with a: Äthalium (a-t) before Azolla (a-z), before Bangia and Ulothrix.
    EXPECT_EQ(Of("SELECT Min(ID_ART) AS Erste FROM awaArt GROUP BY Gattung"), (Expected{"2", "4", "5", "1"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt ORDER BY Gattung DESC, ID_ART"),
              (Expected{"1", "5", "4", "2", "3"}));
}

TEST_F(Rows, TextsAreComparedWithoutCase) {
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung='äthalium' ORDER BY ID_ART"), (Expected{"2", "3"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung IN('AZOLLA','bangia') ORDER BY ID_ART"),
              (Expected{"4", "5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung BETWEEN 'azolla' AND 'BANGIA' ORDER BY ID_ART"),
              (Expected{"4", "5"}));
    // An In over Null values: the row with Null meets neither In nor Not In.
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art NOT IN('ZONATA','a_b') ORDER BY ID_ART"),
              (Expected{"3", "5"}));
}

TEST_F(Rows, TheEmptyTextIsNotNull) {
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art=''"), (Expected{"5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art Is Null"), (Expected{"4"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaModulStandard WHERE (Algenart<>'')"), (Expected{"1"}));
}

TEST_F(Rows, LikeKnowsItsWildcardsAlone) {
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung LIKE '*THAL*' ORDER BY ID_ART"),
              (Expected{"2", "3"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art LIKE '?_?'"), (Expected{"2"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art LIKE 'x[#]#'"), (Expected{"3"}));
    // A range goes by German order: Ä lies between A and B.
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung LIKE '[A-B]*' ORDER BY ID_ART"),
              (Expected{"2", "3", "4", "5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung LIKE '[BU]*' ORDER BY ID_ART"),
              (Expected{"1", "5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung NOT LIKE '[!U]*'"), (Expected{"1"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Gattung LIKE '%'"), (Expected{}));
    EXPECT_EQ(FailureOf("SELECT ID_ART FROM awaArt WHERE Gattung LIKE 'A[b'"), ErrorNumber::SyntaxError);
}

TEST_F(Rows, PlusWithNullIsNullAmpersandIsNot) {
    EXPECT_EQ(Of("SELECT [Gattung]+\" cf. \"+[Art], [Gattung] & ' ' & [Art] FROM awaArt WHERE ID_ART IN "
                 "(1,4) ORDER BY ID_ART"),
              (Expected{"Ulothrix cf. zonata|Ulothrix zonata", "Null|Azolla "}));
}

TEST_F(Rows, ArithmeticWithNullIsNull) {
    // RF of taxon 4 is Null: the row fails the filter and gives Null in the list.
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE RF+0>=0 ORDER BY ID_ART"), (Expected{"1", "2", "3"}));
    EXPECT_EQ(Of("SELECT RF/4 FROM awaArt WHERE ID_ART IN (1,4) ORDER BY ID_ART"), (Expected{"7.5", "Null"}));
    EXPECT_EQ(FailureOf("SELECT RF/0 FROM awaArt WHERE ID_ART=1"), ErrorNumber::DivisionByZero);
}

TEST_F(Rows, DatesAreJoinedInGermanAndComparedAsDays) {
    EXPECT_EQ(Of("SELECT Gattung & ' ' & Erstellt FROM awaArt WHERE Erstellt=#5/12/2026#"),
              (Expected{"Ulothrix 12.05.2026"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Erstellt<#5/12/2026#"), (Expected{}));
    EXPECT_EQ(Of("SELECT Format([Erstellt],'dd.mm.yyyy') FROM awaArt WHERE ID_ART IN (1,2) ORDER BY ID_ART"),
              (Expected{"12.05.2026", ""}));
}

TEST_F(Rows, ConditionsAreMinusOneAndZero) {
    EXPECT_EQ(Of("SELECT ID_ART, RF>15, Not RF>15, IsNull(RF), RF>15=True FROM awaArt WHERE ID_ART IN "
                 "(1,3,4) ORDER BY ID_ART"),
              (Expected{"1|-1|0|0|-1", "3|0|-1|0|0", "4|Null|Null|-1|Null"}));
    EXPECT_EQ(Of("SELECT IIf(RF>15,'hoch',IIf(IsNull(RF),'ohne','tief')) FROM awaArt WHERE ID_ART IN (1,3,4) "
                 "ORDER BY ID_ART"),
              (Expected{"hoch", "tief", "ohne"}));
}

TEST_F(Rows, TestsOfTextsAndListsAreValuesToo) {
    EXPECT_EQ(Of("SELECT Gattung Like 'U*', ID_ART In (1,2), RF Between 5 And 15, Not Gattung Like 'U*' FROM "
                 "awaArt "
                 "WHERE ID_ART IN (1,3) ORDER BY ID_ART"),
              (Expected{"-1|-1|0|0", "0|0|-1|-1"}));
}

TEST_F(Rows, DescendingPutsTrueFirst) {
    // Taxon 1 at site 10 once plain and once with CF: the cf. row comes first when CF descends.
    EXPECT_EQ(Of("SELECT CF, Schalen_KA FROM awaArtPrStelle WHERE ID_PS=10 ORDER BY CF DESC"),
              (Expected{"-1|6", "0|4"}));
    EXPECT_EQ(Of("SELECT CF, Schalen_KA FROM awaArtPrStelle WHERE ID_PS=10 ORDER BY CF"),
              (Expected{"0|4", "-1|6"}));
}

TEST_F(Rows, AggregatesOverNoRows) {
    EXPECT_EQ(Of("SELECT Sum(Schalen_KA), Count(*), Count(Schalen_KA) FROM awaArtPrStelle WHERE ID_PS=99"),
              (Expected{"Null|0|0"}));
    // 4 + 4 + 6 + 0 valves
    EXPECT_EQ(Of("SELECT Sum(Schalen_KA) FROM awaArtPrStelle"), (Expected{"14"}));
    EXPECT_EQ(Of("SELECT Count(RF), Avg(RF), Max(Art) FROM awaArt"), (Expected{"3|20|zonata"}));
}

TEST_F(Rows, OuterJoinsFillWithNull) {
    EXPECT_EQ(Of("SELECT awaArt.ID_ART, SI FROM awaArt LEFT JOIN awaModulStandard ON awaArt.ID_ART = "
                 "awaModulStandard.ID_ART "
                 "WHERE awaArt.ID_ART<4 ORDER BY awaArt.ID_ART"),
              (Expected{"1|1.5", "2|2.5", "3|Null"}));
    EXPECT_EQ(Of("SELECT awaArt.ID_ART, SI FROM awaModulStandard RIGHT JOIN awaArt ON awaArt.ID_ART = "
                 "awaModulStandard.ID_ART "
                 "WHERE IsNull(SI) ORDER BY awaArt.ID_ART"),
              (Expected{"3|Null", "4|Null", "5|Null"}));
    // A join on the far side goes as a whole: taxon 3 has no finding, taxon 2 one, taxon 1 three.
    EXPECT_EQ(Of("SELECT a.ID_ART, s.PSBez FROM awaArt a LEFT JOIN (awaArtPrStelle f INNER JOIN awaPrStelle "
                 "s ON f.ID_PS = "
                 "s.ID_PS) ON a.ID_ART = f.ID_ART WHERE a.ID_ART IN (2,3) ORDER BY a.ID_ART"),
              (Expected{"2|rechts", "3|Null"}));
    // An inner join whose condition needs the outer side keeps only the rows that have it.
    EXPECT_EQ(Of("SELECT a.ID_ART FROM awaPrStelle s INNER JOIN (awaArt a LEFT JOIN awaArtPrStelle f ON "
                 "a.ID_ART = f.ID_ART) ON "
                 "s.ID_PS = f.ID_PS WHERE s.ID_PS=11 ORDER BY a.ID_ART"),
              (Expected{"1", "2"}));
}

TEST_F(Rows, InSelectFindsItsRows) {
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE ID_ART NOT IN (SELECT ID_ART FROM awaArtPrStelle) ORDER BY "
                 "ID_ART"),
              (Expected{"3", "4", "5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE ID_ART IN (SELECT f.ID_ART FROM awaArtPrStelle f WHERE "
                 "f.Schalen_KA > "
                 "awaArt.RF - 25) ORDER BY ID_ART"),
              (Expected{"1", "2"}));  // 6 > 30-25; 0 > 20-25
}

TEST_F(Rows, WrittenValuesTakeTheKindOfTheirColumn) {
    Do("UPDATE awaArt SET Loeschstatus=5 WHERE ID_ART=1");
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Loeschstatus=True"), (Expected{"1"}));
    // Half to even: 2.5 gives 2, 3.5 gives 4.
    Do("UPDATE awaArt SET RF=2.5 WHERE ID_ART=1");
    Do("UPDATE awaArt SET RF=7/2 WHERE ID_ART=2");
    EXPECT_EQ(Of("SELECT RF FROM awaArt WHERE ID_ART IN (1,2) ORDER BY ID_ART"), (Expected{"2", "4"}));
    // A 32-bit column rounds at the write: 0.1 is not held exactly.
    Do("UPDATE awaArtPrStelle SET DG_MA=0.1");
    EXPECT_EQ(Of("SELECT Count(*) FROM awaArtPrStelle WHERE DG_MA=0.1"), (Expected{"0"}));
    EXPECT_EQ(Of("SELECT DISTINCT DG_MA FROM awaArtPrStelle"), (Expected{"0.1"}));
}

TEST_F(Rows, UpdateAndDeleteTakeAnAlias) {
    Do("UPDATE awaArt AS a SET a.RF=a.RF+a.ID_ART WHERE a.ID_ART<3");
    EXPECT_EQ(Of("SELECT RF FROM awaArt WHERE ID_ART<4 ORDER BY ID_ART"), (Expected{"31", "22", "10"}));
    Do("DELETE * FROM awaArt a WHERE a.RF IS NULL");
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt ORDER BY ID_ART"), (Expected{"1", "2", "3"}));
}

TEST_F(Rows, HavingWithoutGroupsLooksAtTheWhole) {
    EXPECT_EQ(Of("SELECT Sum(Schalen_KA) FROM awaArtPrStelle HAVING Count(*)>3"), (Expected{"14"}));
    EXPECT_EQ(Of("SELECT Sum(Schalen_KA) FROM awaArtPrStelle HAVING Count(*)>4"), (Expected{}));
}

TEST_F(Rows, UpdateAndDeleteOverAJoinTouchTheirTableAlone) {
    Do("UPDATE awaArtPrStelle INNER JOIN awaPrStelle ON awaArtPrStelle.ID_PS = awaPrStelle.ID_PS SET "
       "awaArtPrStelle.Schalen_KA = 100 WHERE PSBez='RECHTS' AND ID_Art=1");
    EXPECT_EQ(Db().RecordsAffected(), 1);
    EXPECT_EQ(Of("SELECT ID_PS, Schalen_KA FROM awaArtPrStelle WHERE ID_ART=1 AND CF=0 ORDER BY ID_PS"),
              (Expected{"10|4", "11|100"}));
    // The value comes from the other table: the site's number plus the taxon's place.
    Do("UPDATE awaArtPrStelle INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART SET "
       "awaArtPrStelle.Schalen_KA = "
       "awaArt.RF + awaArtPrStelle.ID_PS WHERE awaArtPrStelle.CF=0");
    EXPECT_EQ(Of("SELECT ID_PS, ID_ART, Schalen_KA FROM awaArtPrStelle WHERE CF=0 ORDER BY ID_PS, ID_ART"),
              (Expected{"10|1|40", "11|1|41", "11|2|31"}));
    Do("DELETE DISTINCTROW awaArtPrStelle.* FROM awaArtPrStelle INNER JOIN awaPrStelle ON "
       "awaArtPrStelle.ID_PS = "
       "awaPrStelle.ID_PS WHERE ((awaPrStelle.ID_TR=7) AND (awaArtPrStelle.ID_ART=1) AND "
       "(awaArtPrStelle.CF=False));");
    EXPECT_EQ(Of("SELECT ID_ART, CF FROM awaArtPrStelle ORDER BY ID_ART"), (Expected{"1|-1", "2|0"}));
    EXPECT_EQ(Of("SELECT Count(*) FROM awaPrStelle"), (Expected{"2"}));
}

TEST_F(Rows, AValueOfAnUpdateMayAskForOtherRows) {
    // True where taxon and site minus 9 are the same taxon with standard values: 10 with 1, 11 with 2.
    Do("UPDATE awaArtPrStelle INNER JOIN awaPrStelle ON awaArtPrStelle.ID_PS = awaPrStelle.ID_PS SET "
       "awaArtPrStelle.Schalen_KA = awaArtPrStelle.ID_ART In (SELECT m.ID_ART FROM awaModulStandard m WHERE "
       "m.ID_ART = awaPrStelle.ID_PS - 9)");
    EXPECT_EQ(Of("SELECT ID_PS, ID_ART, Schalen_KA FROM awaArtPrStelle WHERE CF=0 ORDER BY ID_PS, ID_ART"),
              (Expected{"10|1|-1", "11|1|0", "11|2|-1"}));
}

TEST_F(Rows, ADayHasNoTime) {
    const char* day = "2026-05-12";
    for (const char* value : {"#5/12/2026 9:30#", "#5/12/2026 0:00#", "IIf(True,#5/12/2026 9:30#,Null)",
                              "'12.05.2026 9:30'", "'2026-05-12T09:30' & ''"}) {
        Do("UPDATE awaArt SET Erstellt=Null");
        Do(std::string("UPDATE awaArt SET Erstellt=") + value + " WHERE ID_ART=2");
        EXPECT_EQ(Of("SELECT Erstellt FROM awaArt WHERE Erstellt=#5/12/2026#"), (Expected{day})) << value;
    }
    for (const char* insert :
         {"INSERT INTO awaArt (ID_ART, Gattung, Erstellt) SELECT 8, 'Zäh', #5/12/2026 9:30# FROM awaArt "
          "WHERE ID_ART=1",
          "INSERT INTO awaArt (ID_ART, Gattung, Erstellt) SELECT DISTINCT 8, 'Zäh', #5/12/2026 9:30# FROM "
          "awaArt",
          "INSERT INTO awaArt (ID_ART, Gattung, Erstellt) VALUES (8, 'Zäh', '12.05.2026 9:30')"}) {
        Do(insert);
        EXPECT_EQ(Of("SELECT Erstellt FROM awaArt WHERE ID_ART=8"), (Expected{day})) << insert;
        Do("DELETE * FROM awaArt WHERE ID_ART=8");
    }
    for (const char* time : {"#9:30#", "'9:30'", "IIf(True,#9:30#,Null)", "#12/30/1899 9:30#"})
        EXPECT_EQ(FailureOfDo(std::string("UPDATE awaArt SET Erstellt=") + time), ErrorNumber::TypeMismatch)
            << time;
}

TEST_F(Rows, ATimeHasNoDay) {
    Do("INSERT INTO VerUStelle (ID_VUS) VALUES (1)");
    for (const char* value :
         {"#9:30#", "'9:30'", "#12/30/1899 9:30#", "#5/12/2026 9:30#", "IIf(True,#5/12/2026 9:30#,Null)"}) {
        Do(std::string("UPDATE VerUStelle SET USZeitVon=") + value);
        EXPECT_EQ(
            Of("SELECT USZeitVon FROM VerUStelle WHERE USZeitVon=#9:30# AND USZeitVon=#12/30/1899 9:30#"),
            (Expected{"09:30:00"}))
            << value;
    }
    // Between columns as well: the day of a time is asked for in vain, the time of a day is its midnight.
    EXPECT_EQ(FailureOfDo("UPDATE VerUStelle SET USDatumVon=USZeitVon"), ErrorNumber::TypeMismatch);
    Do("UPDATE VerUStelle SET USDatumVon=#5/12/2026#");
    Do("UPDATE VerUStelle SET USZeitVon=USDatumVon");
    EXPECT_EQ(Of("SELECT USZeitVon FROM VerUStelle"), (Expected{"00:00:00"}));
}

TEST_F(Rows, MidnightIsTheDayItself) {
    EXPECT_EQ(
        Of("SELECT #5/12/2026 0:00#=#5/12/2026#, #5/12/2026 9:00#>#5/12/2026# FROM awaArt WHERE ID_ART=1"),
        (Expected{"-1|-1"}));
}

TEST_F(Rows, WhatIsNotFiniteFails) {
    // 1E308 * 10 is beyond 64 bits.
    for (const char* value : {"1E308*10", "-1E308*10", "1E308*10-1E308*10", "(1E308*10)*0", "1E308/1E-10",
                              "0-(1E308+1E308)+(1E308+1E308)"}) {
        EXPECT_EQ(FailureOf(std::string("SELECT ") + value + " FROM awaArt WHERE ID_ART=1"),
                  ErrorNumber::Overflow)
            << value;
        EXPECT_EQ(FailureOfDo(std::string("UPDATE awaModulStandard SET SI=") + value), ErrorNumber::Overflow)
            << value;
    }
    EXPECT_EQ(FailureOf("SELECT Sum(ID_ART*1E308) FROM awaArt"), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf("SELECT Sum(IIf(ID_ART=1,1E308*10,-1E308*10)) FROM awaArt WHERE ID_ART=1"),
              ErrorNumber::Overflow);
    EXPECT_EQ(FailureOfDo("UPDATE awaArtPrStelle SET DG_MA=1E39"), ErrorNumber::Overflow);
    EXPECT_EQ(Of("SELECT SI FROM awaModulStandard ORDER BY SI"), (Expected{"1.5", "2.5"}));
}

TEST_F(Rows, ATextBesideAnotherKindMakesATextOfIt) {
    EXPECT_EQ(Of("SELECT 'abc' & IIf(1=1,#1/2/2026#,'x'), IIf(1=1,True,'x'), IIf(1=2,'x',7.5), "
                 "IIf(1=1,Null,'x') FROM "
                 "awaArt WHERE ID_ART=1"),
              (Expected{"abc02.01.2026|-1|7.5|Null"}));
    EXPECT_EQ(Of("SELECT IIf(1=1,'x',5)=IIf(1=1,'X',5), IIf(1=1,IIf(1=1,#1/2/2026#,5),'x') FROM awaArt WHERE "
                 "ID_ART=1")
                  .front()
                  .substr(0, 3),
              "-1|");
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE IIf(ID_ART=1,'a',5)='A'"), (Expected{"1"}));
}

TEST_F(Rows, ATextColumnTakesValuesAsTheyReadInAText) {
    Do("UPDATE awaArt SET Gattung=#5/12/2026# WHERE ID_ART=1");
    Do("UPDATE awaArt SET Gattung=IIf(True,#5/12/2026#,Null) WHERE ID_ART=2");
    Do("UPDATE awaArt SET Erstellt=#5/12/2026# WHERE ID_ART=3");
    Do("UPDATE awaArt SET Gattung=Erstellt WHERE ID_ART=3");
    Do("INSERT INTO awaArt (ID_ART, Gattung) SELECT DISTINCT 9, #5/12/2026# FROM awaArt");
    EXPECT_EQ(Of("SELECT DISTINCT Gattung FROM awaArt WHERE ID_ART IN (1,2,3,9)"), (Expected{"12.05.2026"}));
    // 0.1 in a 32-bit column reads 0.1, not 0.100000001490116.
    Do("UPDATE awaArtPrStelle SET DG_MA=0.1");
    Do("UPDATE awaArt INNER JOIN awaArtPrStelle ON awaArt.ID_ART=awaArtPrStelle.ID_ART SET awaArt.Gattung="
       "awaArtPrStelle.DG_MA WHERE awaArt.ID_ART=1");
    EXPECT_EQ(Of("SELECT Gattung FROM awaArt WHERE ID_ART=1"), (Expected{"0.1"}));
}

TEST_F(Rows, FormatShowsTheDigitsOf32Bits) {
    // As 64 bits the column holds 2.6749999523162842, which would round down.
    Do("UPDATE awaArtPrStelle SET DG_MA=2.675");
    EXPECT_EQ(Of("SELECT DISTINCT Format(DG_MA,'0.00'), Format(DG_MA,'0.#########') FROM awaArtPrStelle"),
              (Expected{"2.68|2.675"}));
    EXPECT_EQ(FailureOf("SELECT Format(Erstellt,'0') FROM awaArt WHERE ID_ART=1"), ErrorNumber::TypeMismatch);
}

/// `count` pieces with a word between them; # stands for the number of the piece.
std::string Chain(int count, const std::string& piece, const std::string& between) {
    std::string text;
    for (int i = 1; i <= count; ++i) {
        std::string one = piece;
        for (auto at = one.find('#'); at != std::string::npos; at = one.find('#'))
            one.replace(at, 1, std::to_string(i));
        text += (i > 1 ? between : "") + one;
    }
    return text;
}

TEST_F(Rows, ChainsMayBeLong) {
    for (const int count : {100, 400, 800}) {
        const auto n = std::to_string(count);
        EXPECT_EQ(
            Of("SELECT ID_ART FROM awaArt WHERE " + Chain(count, "ID_ART<>#+1", " AND ") + " ORDER BY 1"),
            (Expected{"1"}))
            << n;
        EXPECT_EQ(
            Of("SELECT ID_ART FROM awaArt WHERE " + Chain(count, "ID_ART=#", " OR ") + " ORDER BY ID_ART"),
            (Expected{"1", "2", "3", "4", "5"}))
            << n;
        // Taxon 1: each piece is 1, so the sum is the count.
        EXPECT_EQ(Of("SELECT " + Chain(count, "ID_ART", "+") + " FROM awaArt WHERE ID_ART=1"), (Expected{n}));
        EXPECT_EQ(Of("SELECT " + Chain(count, "Gattung", " & ") + " AS g FROM awaArt WHERE ID_ART=4")
                      .front()
                      .size(),
                  static_cast<std::size_t>(6 * count));
        EXPECT_EQ(
            Of("SELECT " + Chain(count, "Gattung", "+") + " AS g FROM awaArt WHERE ID_ART=4").front().size(),
            static_cast<std::size_t>(6 * count));
    }
    for (const int count : {100, 400, 800}) {
        EXPECT_EQ(
            Of("SELECT ID_ART FROM awaArt WHERE ID_ART In (SELECT f.ID_ART FROM awaArtPrStelle f WHERE " +
               Chain(count, "(f.ID_PS=10 AND f.ID_ART=#)", " OR ") + ")"),
            (Expected{"1"}))
            << count;
    }
    Do("UPDATE awaArt SET RF=99 WHERE " + Chain(500, "ID_ART=#", " OR "));
    EXPECT_EQ(Of("SELECT Count(*) FROM awaArt WHERE RF=99"), (Expected{"5"}));
}

TEST_F(Rows, NestingMayBeDeepAndFailsInWordsBeyond) {
    const auto repeated = [](int count, const std::string& text) { return Chain(count, text, ""); };
    for (const int count : {20, 100, 190}) {
        EXPECT_EQ(Of("SELECT " + repeated(count, "IIf(RF>1,") + "1" + repeated(count, ",0)") +
                     " FROM awaArt WHERE ID_ART<5 ORDER BY ID_ART"),
                  (Expected{"1", "1", "1", "0"}))
            << count;
        EXPECT_EQ(Of("SELECT " + repeated(count, "IIf(ID_ART=#,'#',") + "'ohne'" + repeated(count, ")") +
                     " FROM awaArt WHERE ID_ART<3 ORDER BY ID_ART"),
                  (Expected{"1", "2"}))
            << count;
    }
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE " + repeated(190, "Not ") + "ID_ART=1"), (Expected{"1"}));
    EXPECT_EQ(Of("SELECT " + repeated(100, "- ") + "ID_ART, " + repeated(101, "-") +
                 "(ID_ART) FROM awaArt WHERE ID_ART=3"),
              (Expected{"3|-3"}));
    for (const auto& statement :
         {"SELECT ID_ART FROM awaArt WHERE " + Chain(1000, "ID_ART=#", " OR "),
          "SELECT " + repeated(300, "IIf(RF>1,") + "1" + repeated(300, ",0)") + " FROM awaArt",
          "SELECT ID_ART FROM awaArt WHERE " + repeated(300, "Not ") + "ID_ART=1",
          "SELECT " + repeated(150, "(1+RF)*(2-") + "1" + repeated(150, ")") + " FROM awaArt"}) {
        EXPECT_EQ(FailureOf(statement), ErrorNumber::SyntaxError) << statement.substr(0, 60);
        const auto words = WordsOf(statement);
        EXPECT_TRUE(words.find("too many parts") != std::string::npos ||
                    words.find("nested too deeply") != std::string::npos)
            << words.substr(0, 200);
    }
}

TEST_F(Rows, InsertReachesAnotherDatabase) {
    Do("INSERT INTO rpt_awaTaxaliste ( ID_Art, Gattung, CF ) IN '" + Path("report") +
       "' SELECT ID_ART, Gattung, IsNull(Art) FROM awaArt WHERE ID_ART>3");
    const DatabasePtr report = Workspace().OpenDatabase(Path("report"));
    EXPECT_EQ(Of(*report, "SELECT ID_Art, Gattung, CF FROM rpt_awaTaxaliste ORDER BY ID_Art"),
              (Expected{"4|Azolla|-1", "5|Bangia|0"}));
}

TEST_F(Rows, DistinctRowsOfAnInsertAreToldApartBeforeTheyAreConverted) {
    // Of the rows 1|4, 1|4, 1|6 the equal two are one.
    Do("INSERT INTO sesErgProjektTmp (ID_TR, n) SELECT DISTINCT ID_ART, Schalen_KA/20 FROM awaArtPrStelle "
       "WHERE ID_ART=1");
    // 4/20 and 6/20, so 0.2 and 0.3, both round to 0 in the column and are two rows all the same.
    EXPECT_EQ(Of("SELECT ID_TR, n FROM sesErgProjektTmp"), (Expected{"1|0", "1|0"}));
}

TEST_F(Rows, TheSameShapeTakesOtherConstants) {
    // The second statement of a shape is not translated anew; what stands in the text must not be carried
    // over.
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art='zonata'"), (Expected{"1"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art=''"), (Expected{"5"}));
    EXPECT_EQ(Of("SELECT ID_ART FROM awaArt WHERE Art='A_B'"), (Expected{"2"}));
    EXPECT_EQ(Of("SELECT Format(Erstellt,'yyyy') FROM awaArt WHERE ID_ART=1"), (Expected{"2026"}));
    EXPECT_EQ(Of("SELECT Format(Erstellt,'dd') FROM awaArt WHERE ID_ART=1"), (Expected{"12"}));
    EXPECT_EQ(Of("SELECT RF, ID_ART FROM awaArt WHERE RF>0 ORDER BY 1"), (Expected{"10|3", "20|2", "30|1"}));
    EXPECT_EQ(Of("SELECT RF, ID_ART FROM awaArt WHERE RF>0 ORDER BY 2"), (Expected{"30|1", "20|2", "10|3"}));
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
