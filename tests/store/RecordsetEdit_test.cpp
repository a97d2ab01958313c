#include <limits>
#include <vector>

#include "StoreFixture.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::FailureWords;
using test::OtherProgram;

class RecordsetEdit : public test::StoreTest {
protected:
    std::string Stored(const std::string& sql) { return OtherProgram(path_).One(sql); }
};

TEST_F(RecordsetEdit, EditWritesTheFieldsThatWereSet) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaErgProjekt WHERE (ID=10) AND (KAOnly=0);");
    rows->Edit();
    rows->Collect("sapindex", 2.1);
    rows->Collect("n", Value(7.5));
    EXPECT_EQ((*rows)["SapIndex"], Value(2.1F));
    EXPECT_EQ((*rows)["n"], Value(std::int16_t{8}));  // half to even
    EXPECT_EQ(Stored("SELECT n FROM awaErgProjekt"), "1");
    rows->Update();
    EXPECT_EQ((*rows)["SapIndex"], Value(2.1F));
    EXPECT_EQ(Stored("SELECT n FROM awaErgProjekt"), "8");
    // 2.1 rounded to 32 bits is 2.0999999046325684.
    EXPECT_EQ(Stored("SELECT SapIndex=2.0999999046325684 FROM awaErgProjekt"), "1");
}

TEST_F(RecordsetEdit, ValuesAreConvertedWhenTheyAreCollected) {
    const auto rows = db_->OpenRecordset("awaPrStelle");
    rows->Edit();
    struct Case {
        const char* Field;
        Value In;
        Value Out;
    };
    const Case cases[] = {
        {"Anzeige", 5, true},
        {"Anzeige", 0.0, false},
        {"Anzeige", "-1", true},
        {"Tiefe", "0.25", 0.25F},
        {"Tiefe", Value(), Value()},
        {"Stelle", 12, "12"},
        {"Stelle", "Öhe", "Öhe"},
        {"Datum", "31.12.2025", Date{"2025-12-31"}},
        {"ID_TR", true, -1},
        {"ID_TR", 2.5, 2},
        {"Zeit", "9:05", Date{"09:05:00"}},
    };
    for (const Case& c : cases) {
        rows->Collect(c.Field, c.In);
        EXPECT_EQ((*rows)[c.Field], c.Out) << c.Field;
    }
    EXPECT_EQ(FailureNumber([&] { rows->Collect("ID_TR", "viel"); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureNumber([&] { rows->Collect("ID_TR", 3e9); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Tiefe", 1e300); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Datum", "gestern"); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Gibtsnicht", 1); }), ErrorNumber::UnknownField);
    const auto words = FailureWords([&] { rows->Collect("ID_TR", "viel"); });
    EXPECT_NE(words.find("ID_TR"), std::string::npos) << words;
    EXPECT_NE(words.find("viel"), std::string::npos) << words;
    rows->Update();
    EXPECT_EQ(Stored("SELECT ID_TR||Stelle||Anzeige||Datum||Zeit FROM awaPrStelle WHERE ID_PS=1"),
              "2Öhe-12025-12-3109:05:00");
}

TEST_F(RecordsetEdit, WithoutARowInEditNothingCanBeSet) {
    const auto rows = db_->OpenRecordset("awaArt");
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Name", "x"); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    rows->Edit();
    rows->Collect("Name", "verworfen");
    rows->CancelUpdate();
    EXPECT_EQ((*rows)["Name"], Value("Ödogonium"));
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    rows->Edit();
    rows->Collect("Name", "verworfen");
    rows->MoveNext();  // leaves the row without writing it
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(Stored("SELECT count(*) FROM awaArt WHERE Name='verworfen'"), "0");
    rows->Edit();
    rows->Update();  // nothing was set
    EXPECT_EQ((*rows)["Name"], Value("Navicula"));
}

TEST_F(RecordsetEdit, AFailedUpdateKeepsTheRowInEdit) {
    const auto rows =
        db_->OpenRecordset("SELECT * FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=2 ORDER BY CF");
    rows->Edit();
    rows->Collect("CF", true);
    rows->Collect("Schalen_KA", 55);
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ((*rows)["Schalen_KA"], Value(55));
    EXPECT_EQ((*rows)["CF"], Value(true));
    rows->Collect("ID_ART", 4);
    rows->Update();
    EXPECT_EQ(Stored("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=4 AND CF=-1"), "55");
    EXPECT_EQ(Stored("SELECT Schalen_KA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=2 AND CF=-1"), "7");
}

TEST_F(RecordsetEdit, AFailureOfUpdateTellsTableAndColumns) {
    const auto rows = db_->OpenRecordset("awaArt");
    rows->AddNew();
    rows->Collect("Algenart", 1);
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::InvalidUseOfNull);
    const auto words = FailureWords([&] { rows->Update(); });
    EXPECT_TRUE(words.starts_with("Update: ")) << words;
    EXPECT_NE(words.find("awaArt.Name"), std::string::npos) << words;
}

TEST_F(RecordsetEdit, AddNewInsertsWhatWasSetAndTheRestTakesItsDefault) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaPrStelle ORDER BY ID_PS");
    rows->MoveNext();
    rows->AddNew();
    EXPECT_EQ((*rows)["Stelle"], Value());
    rows->Collect("Stelle", "Überfall");
    EXPECT_EQ((*rows)["Stelle"], Value("Überfall"));
    rows->Update();
    EXPECT_EQ((*rows)["Stelle"], Value("Brücke"));  // the former current row is current again
    EXPECT_EQ(rows->LastCounter(), Value(4));
    EXPECT_EQ(rows->RecordCount(), 4);
    rows->MoveLast();
    EXPECT_EQ((*rows)["ID_PS"], Value(4));
    EXPECT_EQ((*rows)["Anzeige"], Value(true));  // default -1
    EXPECT_EQ((*rows)["ID_TR"], Value());
    rows->Edit();
    rows->Collect("ID_TR", 12);
    rows->Update();
    EXPECT_EQ(Stored("SELECT ID_TR FROM awaPrStelle WHERE Stelle='Überfall'"), "12");
    EXPECT_EQ(rows->LastCounter(), Value());
}

TEST_F(RecordsetEdit, AddNewIntoAnEmptyResultLeavesNoCurrentRow) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaPrStelle WHERE ID_PS=0");
    rows->AddNew();
    rows->Update();
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 1);
    rows->MoveFirst();
    EXPECT_EQ((*rows)["ID_PS"], Value(4));
}

TEST_F(RecordsetEdit, CountersNeverGiveANumberTwice) {
    db_->Execute("DELETE * FROM awaArt WHERE ID_ART=4");
    const auto rows = db_->OpenRecordset("awaArt");
    rows->AddNew();
    rows->Collect("Name", "Neu");
    rows->Update();
    EXPECT_EQ(rows->LastCounter(), Value(5));
}

TEST_F(RecordsetEdit, TablesWithoutCounterHaveNoLastCounter) {
    const auto rows = db_->OpenRecordset("awaErgProjekt");
    rows->AddNew();
    rows->Collect("ID", 11);
    rows->Collect("KAOnly", true);
    rows->Update();
    EXPECT_EQ(rows->LastCounter(), Value());
    EXPECT_EQ(Stored("SELECT KAOnly FROM awaErgProjekt WHERE ID=11"), "-1");
}

TEST_F(RecordsetEdit, DeleteRemovesTheCurrentRow) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt ORDER BY ID_ART");
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(FailureNumber([&] { (*rows)["Name"]; }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { rows->Delete(); }), ErrorNumber::NoCurrentRecord);
    rows->MoveNext();
    EXPECT_EQ((*rows)["ID_ART"], Value(3));
    rows->MovePrevious();
    EXPECT_EQ((*rows)["ID_ART"], Value(1));
    EXPECT_EQ(Stored("SELECT group_concat(ID_ART) FROM awaArt"), "1,3,4");
}

TEST_F(RecordsetEdit, ALoopCanDeleteEveryRow) {
    const auto rows = db_->OpenRecordset("awaArtPrStelle");
    int turns = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++turns) rows->Delete();
    EXPECT_EQ(turns, 4);
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_EQ(Stored("SELECT count(*) FROM awaArtPrStelle"), "0");
    EXPECT_TRUE(rows->Eof());
    EXPECT_TRUE(rows->Bof());
    EXPECT_EQ(FailureNumber([&] { rows->MoveFirst(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(RecordsetEdit, WithoutRowsItIsAtBothEndsAtOnce) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt WHERE ID_ART=4");
    EXPECT_FALSE(rows->Eof());
    rows->Delete();
    EXPECT_TRUE(rows->Eof());
    EXPECT_TRUE(rows->Bof());
    rows->AddNew();
    rows->Collect("Name", "Neu");
    rows->Update();
    EXPECT_FALSE(rows->Eof());
    rows->MoveFirst();
    EXPECT_EQ((*rows)["Name"], Value("Neu"));
}

TEST_F(RecordsetEdit, DatesAreCheckedWhenTheyAreCollected) {
    const auto rows = db_->OpenRecordset("SELECT Datum, Zeit, Stelle FROM awaPrStelle WHERE ID_PS=1");
    rows->Edit();
    struct Case {
        const char* Field;
        Value In;
        Value Out;
    };
    const Case cases[] = {
        {"Datum", Date{"2026-05-12"}, Date{"2026-05-12"}},
        {"Datum", Date{"2026-05-12 09:30:00"}, Date{"2026-05-12"}},
        {"Datum", "12.05.2026 9:30", Date{"2026-05-12"}},
        {"Zeit", "9:30", Date{"09:30:00"}},
        {"Zeit", Date{"1899-12-30 09:30:00"}, Date{"09:30:00"}},
        {"Zeit", Date{"2026-05-12 09:30:00"}, Date{"09:30:00"}},
        {"Zeit", Date{"2026-05-12"}, Date{"00:00:00"}},
        {"Stelle", Date{"2026-05-12"}, "12.05.2026"},
    };
    for (const Case& c : cases) {
        rows->Collect(c.Field, c.In);
        EXPECT_EQ((*rows)[c.Field], c.Out) << c.Field << " " << c.In.Text();
    }
    for (const char* wrong : {"unfug", "", "2026-02-30", "2026-05-12 25:00:00"})
        for (const char* field : {"Datum", "Zeit", "Stelle"})
            EXPECT_EQ(FailureNumber([&] { rows->Collect(field, Date{wrong}); }), ErrorNumber::TypeMismatch)
                << field << " " << wrong;
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Datum", Date{"09:30:00"}); }), ErrorNumber::TypeMismatch);
}

TEST_F(RecordsetEdit, WhatIsNotFiniteIsNotCollected) {
    const auto rows = db_->OpenRecordset("SELECT Tiefe, Stelle, Anzeige FROM awaPrStelle WHERE ID_PS=1");
    rows->Edit();
    for (const double value :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        for (const char* field : {"Tiefe", "Stelle", "Anzeige"})
            EXPECT_EQ(FailureNumber([&] { rows->Collect(field, value); }), ErrorNumber::Overflow)
                << field << " " << value;
}

TEST_F(RecordsetEdit, AColumnShownTwiceShowsWhatWasWrittenTwice) {
    const auto rows = db_->OpenRecordset("SELECT Name, ID_ART, Name AS Gattung FROM awaArt WHERE ID_ART=1");
    rows->Edit();
    rows->Collect("Gattung", "Oedogonium");
    EXPECT_EQ((*rows)["Name"], Value("Oedogonium"));
    rows->Update();
    EXPECT_EQ((*rows)["Name"], Value("Oedogonium"));
    EXPECT_EQ((*rows)["Gattung"], Value("Oedogonium"));
    rows->Edit();
    rows->Collect("Name", "Ulva");
    rows->Collect("Gattung", "Ulothrix");  // the last one counts
    rows->Update();
    EXPECT_EQ((*rows)["Name"], Value("Ulothrix"));
    EXPECT_EQ(Stored("SELECT Name FROM awaArt WHERE ID_ART=1"), "Ulothrix");
    rows->AddNew();
    rows->Collect("Gattung", "Zäh");
    rows->Update();
    rows->MoveLast();
    EXPECT_EQ((*rows)["Name"], Value("Zäh"));
}

TEST_F(RecordsetEdit, AJoinTakesAndLosesNoRowsWhateverItShows) {
    for (const char* shown : {"awaArt.*", "f.*", "awaArt.Name, f.DG_MA", "f.ID_PS"}) {
        for (const char* join : {"INNER JOIN", "LEFT JOIN"}) {
            const auto rows =
                db_->OpenRecordset(std::string("SELECT ") + shown + " FROM awaArt " + join +
                                   " awaArtPrStelle AS f ON awaArt.ID_ART=f.ID_ART WHERE awaArt.ID_ART=1");
            EXPECT_EQ(FailureNumber([&] { rows->AddNew(); }), ErrorNumber::NoCurrentRecord) << shown;
            EXPECT_EQ(FailureNumber([&] { rows->Delete(); }), ErrorNumber::NoCurrentRecord) << shown;
            EXPECT_NE(FailureWords([&] { rows->Delete(); }).find("join"), std::string::npos) << shown;
            EXPECT_TRUE(rows->Updatable()) << shown;
        }
    }
    EXPECT_EQ(Stored("SELECT count(*) FROM awaArtPrStelle"), "4");
    EXPECT_EQ(Stored("SELECT count(*) FROM awaArt"), "4");
    // A select behind In makes no join of it.
    const auto rows = db_->OpenRecordset(
        "SELECT * FROM awaArt WHERE ID_ART In (SELECT ID_ART FROM awaArtPrStelle WHERE ID_PS=2)");
    rows->Delete();
    EXPECT_EQ(Stored("SELECT count(*) FROM awaArt"), "3");
}

TEST_F(RecordsetEdit, ARowThatOthersReferToStays) {
    db_->Execute("INSERT INTO awaStand (ID) VALUES (1)");
    db_->Execute("INSERT INTO awaAnteil (ID, ID_Stand) VALUES (1, 1)");
    const auto rows = db_->OpenRecordset("awaStand");
    EXPECT_EQ(FailureNumber([&] { rows->Delete(); }), ErrorNumber::RowIsReferredTo);
    EXPECT_EQ((*rows)["ID"], Value(1));
    EXPECT_EQ(FailureNumber([&] { db_->Execute("INSERT INTO awaAnteil (ID, ID_Stand) VALUES (2, 9)"); }),
              ErrorNumber::RowIsReferredTo);
}

TEST_F(RecordsetEdit, ARowThatIsGoneCannotBeWritten) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt WHERE ID_ART=1");
    db_->Execute("DELETE * FROM awaArt WHERE ID_ART=1");
    rows->Edit();
    rows->Collect("Name", "zu spät");
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    rows->CancelUpdate();
    EXPECT_EQ(FailureNumber([&] { rows->Delete(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(RecordsetEdit, AnotherRowInThePlaceOfADeletedOneIsNotTouched) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaErgProjekt WHERE ID=10");
    // The engine gives the place of the only row to the next one.
    db_->Execute("DELETE * FROM awaErgProjekt");
    db_->Execute("INSERT INTO awaErgProjekt (ID, KAOnly, n) VALUES (99, 0, 5)");
    rows->Edit();
    rows->Collect("n", 6);
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(Stored("SELECT n FROM awaErgProjekt"), "5");
}

TEST_F(RecordsetEdit, ARowWhoseKeyWasSetIsFollowed) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt WHERE ID_ART=4");
    rows->Edit();
    rows->Collect("ID_ART", 40);
    rows->Update();
    rows->Edit();
    rows->Collect("Name", "Zygnema alt");
    rows->Update();
    EXPECT_EQ(Stored("SELECT Name FROM awaArt WHERE ID_ART=40"), "Zygnema alt");
}

constexpr const char* Findings =
    "SELECT awaArt.ID_ART, awaArt.Name, f.ID_PS, f.DG_MA, f.DG_MA*2 AS Doppelt "
    "FROM awaArtPrStelle AS f INNER JOIN awaArt ON f.ID_ART = awaArt.ID_ART ORDER BY f.ID_PS, f.ID_ART, f.CF "
    "DESC";

TEST_F(RecordsetEdit, AJoinWritesToTheTableOfEachColumn) {
    const auto rows = db_->OpenRecordset(Findings);
    ASSERT_TRUE(rows->Updatable());
    rows->Edit();
    rows->Collect("DG_MA", 20);
    rows->Collect("Name", "Oedogonium");
    rows->Update();
    EXPECT_EQ(Stored("SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=1"), "20.0");
    EXPECT_EQ(Stored("SELECT Name FROM awaArt WHERE ID_ART=1"), "Oedogonium");
    // The same taxon in another row of the join shows its new name, and its own cover.
    rows->MoveLast();
    EXPECT_EQ((*rows)["Name"], Value("Oedogonium"));
    EXPECT_EQ((*rows)["DG_MA"], Value(3.0F));
    EXPECT_EQ(FailureNumber([&] { rows->AddNew(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { rows->Delete(); }), ErrorNumber::NoCurrentRecord);
    rows->Edit();
    EXPECT_EQ(FailureNumber([&] { rows->Collect("Doppelt", 1); }), ErrorNumber::UnknownField);
}

TEST_F(RecordsetEdit, ATableThatAJoinRepeatsShowsTheSameValueInEachRow) {
    const auto rows = db_->OpenRecordset(
        "SELECT awaArt.Name FROM awaArt INNER JOIN awaArtPrStelle AS f ON awaArt.ID_ART=f.ID_ART "
        "WHERE awaArt.ID_ART=1");
    ASSERT_EQ(rows->RecordCount(), 2);
    rows->Edit();
    rows->Collect("Name", "Oedogonium");
    rows->Update();
    rows->MoveNext();
    EXPECT_EQ((*rows)["Name"], Value("Oedogonium"));
}

TEST_F(RecordsetEdit, AJoinIsWrittenWhollyOrNotAtAll) {
    const auto rows = db_->OpenRecordset(Findings);
    rows->Edit();
    rows->Collect("DG_MA", 20);
    rows->Collect("ID_ART", 2);  // of awaArt: the key is taken
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(Stored("SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=1"), "12.5");
    rows->CancelUpdate();
    EXPECT_EQ((*rows)["DG_MA"], Value(12.5F));
}

TEST_F(RecordsetEdit, AnOuterJoinWithoutPartnerCannotWriteToIt) {
    const auto rows = db_->OpenRecordset(
        "SELECT awaArt.Name, f.Schalen_KA FROM awaArt LEFT JOIN awaArtPrStelle AS f ON "
        "awaArt.ID_ART=f.ID_ART "
        "WHERE awaArt.ID_ART=4");
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ((*rows)["Schalen_KA"], Value());
    rows->Edit();
    rows->Collect("Schalen_KA", 1);
    EXPECT_EQ(FailureNumber([&] { rows->Update(); }), ErrorNumber::NoCurrentRecord);
    rows->CancelUpdate();
    rows->Edit();
    rows->Collect("Name", "Zygnema sp.");
    rows->Update();
    EXPECT_EQ(Stored("SELECT Name FROM awaArt WHERE ID_ART=4"), "Zygnema sp.");
}

TEST_F(RecordsetEdit, GroupedAndDistinctResultsAreNotUpdatable) {
    for (const char* text : {"SELECT ID_PS, Sum(Schalen_KA) AS S FROM awaArtPrStelle GROUP BY ID_PS",
                             "SELECT DISTINCT ID_PS FROM awaArtPrStelle", "SELECT Count(*) AS N FROM awaArt",
                             "SELECT * FROM Fundliste"}) {
        const auto rows = db_->OpenRecordset(text);
        EXPECT_FALSE(rows->Updatable()) << text;
        EXPECT_EQ(FailureNumber([&] { rows->Edit(); }), ErrorNumber::NoCurrentRecord) << text;
        EXPECT_EQ(FailureNumber([&] { rows->AddNew(); }), ErrorNumber::NoCurrentRecord) << text;
    }
}

}  // namespace
}  // namespace FX_Algen::store
