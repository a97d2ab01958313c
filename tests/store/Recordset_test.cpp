#include <vector>

#include "StoreFixture.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::FailureWords;
using test::OtherProgram;

class RecordsetTest : public test::StoreTest {
protected:
    static std::vector<std::string> Texts(Recordset& rows, const std::string& field) {
        std::vector<std::string> out;
        for (; !rows.Eof(); rows.MoveNext()) out.push_back(rows[field].Text());
        return out;
    }
    std::vector<std::string> Texts(const std::string& select) {
        return Texts(*db_->OpenRecordset(select), "Name");
    }
};

TEST_F(RecordsetTest, ValuesComeInTheKindOfTheirColumn) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaPrStelle WHERE ID_PS=1");
    auto& r = *rows;
    EXPECT_EQ(r["ID_PS"], Value(1));
    EXPECT_EQ(r["Stelle"], Value("Furt"));
    EXPECT_EQ(r["Anzeige"], Value(true));
    EXPECT_EQ(r["Tiefe"], Value(0.5F));
    EXPECT_EQ(r["Datum"], Value(Date{"2026-05-09"}));
    EXPECT_EQ(r["Zeit"], Value(Date{"09:30:00"}));
    EXPECT_EQ((*db_->OpenRecordset("SELECT Algenart FROM awaArt WHERE ID_ART=2"))[0], Value(std::int16_t{2}));
    EXPECT_EQ((*db_->OpenRecordset("SELECT Algenart FROM awaArt WHERE ID_ART=3"))[0], Value());
    EXPECT_EQ((*db_->OpenRecordset("SELECT Sum(Schalen_KA) AS S FROM awaArtPrStelle"))["S"], Value(47.0));
    EXPECT_EQ((*db_->OpenRecordset("SELECT Count(*) AS N FROM awaArtPrStelle"))["N"], Value(4));
    EXPECT_EQ((*db_->OpenRecordset("SELECT Sum(Schalen_KA) AS S FROM awaArtPrStelle WHERE ID_PS=99"))["S"],
              Value());
}

TEST_F(RecordsetTest, ColumnsOfAViewHaveTheKindOfTheirOrigin) {
    const auto rows = db_->OpenRecordset("SELECT * FROM Fundliste WHERE Name='Navicula' AND CF=True");
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ((*rows)["DG_MA"], Value(0.0F));
    EXPECT_EQ((*rows)["CF"], Value(true));
    EXPECT_EQ((*rows)["Doppelt"], Value(0.0));
    EXPECT_FALSE(rows->Updatable());
    EXPECT_EQ(db_->OpenRecordset("Fundliste")->RecordCount(), 4);
}

TEST_F(RecordsetTest, FieldsAreFoundWithoutRegardToCase) {
    db_->Execute("INSERT INTO awaFundarchiv (ID, Häufigkeit, Wert) VALUES (1, 5, 0.25)");
    const auto rows = db_->OpenRecordset("SELECT * FROM AWAFUNDARCHIV");
    EXPECT_EQ((*rows)["häufigkeit"], Value(std::int16_t{5}));
    EXPECT_EQ((*rows)["HÄUFIGKEIT"], Value(std::int16_t{5}));
    EXPECT_EQ((*rows)["wERT"], Value(0.25));
    EXPECT_EQ(rows->FieldIndex("WERT"), 2U);
    EXPECT_EQ(rows->Fields()[1].Name, "Häufigkeit");
    EXPECT_EQ(FailureNumber([&] { (*rows)["Haeufigkeit"]; }), ErrorNumber::UnknownField);
    EXPECT_EQ(FailureNumber([&] { (*rows)[3]; }), ErrorNumber::UnknownField);
}

TEST_F(RecordsetTest, MovesOverTheRows) {
    const auto rows = db_->OpenRecordset("SELECT ID_ART FROM awaArt ORDER BY ID_ART");
    auto& r = *rows;
    EXPECT_FALSE(r.Eof());
    EXPECT_FALSE(r.Bof());
    EXPECT_EQ(r[0], Value(1));
    r.MoveLast();
    EXPECT_EQ(r[0], Value(4));
    EXPECT_EQ(r.RecordCount(), 4);
    r.MoveNext();
    EXPECT_TRUE(r.Eof());
    EXPECT_FALSE(r.Bof());
    EXPECT_EQ(FailureNumber([&] { r[0]; }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { r.MoveNext(); }), ErrorNumber::NoCurrentRecord);
    r.MovePrevious();
    EXPECT_EQ(r[0], Value(4));
    r.MoveFirst();
    EXPECT_EQ(r[0], Value(1));
    r.MovePrevious();
    EXPECT_TRUE(r.Bof());
    EXPECT_FALSE(r.Eof());
    EXPECT_EQ(FailureNumber([&] { r.MovePrevious(); }), ErrorNumber::NoCurrentRecord);
    r.MoveNext();
    EXPECT_EQ(r[0], Value(1));
}

TEST_F(RecordsetTest, AnEmptyResultIsAtBothEnds) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt WHERE ID_ART=99");
    EXPECT_TRUE(rows->Eof());
    EXPECT_TRUE(rows->Bof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_EQ(rows->Fields().size(), 3U);
    for (const auto& move : {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext,
                             &Recordset::MovePrevious, &Recordset::Edit, &Recordset::Delete})
        EXPECT_EQ(FailureNumber([&] { ((*rows).*move)(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { (*rows)["Name"]; }), ErrorNumber::NoCurrentRecord);
}

TEST_F(RecordsetTest, TextIsOrderedAsInAGermanDictionary) {
    // ä counts as a, ö as o: Ätherastrum, Navicula, Ödogonium, Zygnema.
    EXPECT_EQ(Texts("SELECT Name FROM awaArt ORDER BY Name"),
              (std::vector<std::string>{"Ätherastrum", "Navicula", "Ödogonium", "Zygnema"}));
    EXPECT_EQ(Texts("SELECT Name FROM awaArt WHERE Name='ÖDOGONIUM'"),
              (std::vector<std::string>{"Ödogonium"}));
    EXPECT_EQ(Texts("SELECT Name FROM awaArt WHERE Name Like 'ä*'"),
              (std::vector<std::string>{"Ätherastrum"}));
}

TEST_F(RecordsetTest, RowsAreReadWhenItIsOpened) {
    const auto rows = db_->OpenRecordset("SELECT Name FROM awaArt ORDER BY ID_ART");
    const auto same = db_->OpenRecordset("SELECT Name FROM awaArt ORDER BY ID_ART");
    rows->MoveNext();
    db_->Execute("DELETE * FROM awaArt WHERE ID_ART>2");
    const auto later = db_->OpenRecordset("SELECT Name FROM awaArt ORDER BY ID_ART");
    EXPECT_EQ(Texts(*rows, "Name"), (std::vector<std::string>{"Navicula", "Ätherastrum", "Zygnema"}));
    EXPECT_EQ(same->RecordCount(), 4);
    EXPECT_EQ((*same)["Name"], Value("Ödogonium"));
    EXPECT_EQ(later->RecordCount(), 2);
}

TEST_F(RecordsetTest, AStatementOpenedInsideALoopOverItself) {
    const std::string text = "SELECT ID_ART FROM awaArt WHERE ID_ART<4 ORDER BY ID_ART";
    std::vector<std::string> seen;
    for (const auto outer = db_->OpenRecordset(text); !outer->Eof(); outer->MoveNext())
        for (const auto inner = db_->OpenRecordset(text); !inner->Eof(); inner->MoveNext())
            seen.push_back((*outer)[0].Text() + (*inner)[0].Text());
    EXPECT_EQ(seen, (std::vector<std::string>{"11", "12", "13", "21", "22", "23", "31", "32", "33"}));
}

TEST_F(RecordsetTest, ATableOpensByItsName) {
    EXPECT_EQ(db_->OpenRecordset("awaArt")->RecordCount(), 4);
    EXPECT_EQ(db_->OpenRecordset("[AWAART]")->RecordCount(), 4);
    EXPECT_TRUE(db_->OpenRecordset("awaArt")->Updatable());
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaFehlt"); }), ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("[awa Fehlt]"); }), ErrorNumber::UnknownTable);
    // A word of the language is no name of a table, unless it stands in brackets.
    for (const char* word : {"SELECT", " from ;", "Where"})
        EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset(word); }), ErrorNumber::SyntaxError) << word;
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("[Select]"); }), ErrorNumber::UnknownTable);
}

TEST_F(RecordsetTest, TheVerbHasToFitTheOperation) {
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("DELETE * FROM awaArt"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { db_->Execute("SELECT * FROM awaArt"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(One("SELECT Count(*) FROM awaArt"), Value(4));
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset(""); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { db_->Execute(" "); }), ErrorNumber::SyntaxError);
}

TEST_F(RecordsetTest, FailuresNameOperationStatementAndCause) {
    const std::string text = "SELECT Xyz FROM awaArt WHERE ID_ART=1";
    const auto words = FailureWords([&] { db_->OpenRecordset(text); });
    EXPECT_TRUE(words.starts_with("OpenRecordset: ")) << words;
    EXPECT_NE(words.find("Xyz"), std::string::npos) << words;
    EXPECT_NE(words.find(text), std::string::npos) << words;

    try {
        db_->Execute("INSERT INTO awaErgProjekt (ID, KAOnly) VALUES (10, 0)");
        FAIL() << "the key is there already";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DuplicateKey);
        EXPECT_EQ(error.Statement(), "INSERT INTO awaErgProjekt (ID, KAOnly) VALUES (10, 0)");
        EXPECT_TRUE(error.Translated().find("INSERT INTO \"awaErgProjekt\"") != std::string::npos)
            << error.Translated();
        EXPECT_NE(error.Description().find("awaErgProjekt.KAOnly"), std::string::npos) << error.Description();
    }
}

TEST_F(RecordsetTest, LiteralsAreConvertedToTheirColumn) {
    db_->Execute(
        "INSERT INTO awaPrStelle (ID_PS, ID_TR, Stelle, Anzeige, Tiefe, Datum) "
        "VALUES (9, -5, 'Mühle ''alt''', 1, 0.1, #12/31/2025#)");
    const auto rows = db_->OpenRecordset("SELECT * FROM awaPrStelle WHERE ID_PS=9");
    EXPECT_EQ((*rows)["ID_TR"], Value(-5));
    EXPECT_EQ((*rows)["Stelle"], Value("Mühle 'alt'"));
    EXPECT_EQ((*rows)["Anzeige"], Value(true));
    EXPECT_EQ((*rows)["Tiefe"], Value(0.1F));
    EXPECT_EQ((*rows)["Datum"], Value(Date{"2025-12-31"}));
    // What the column holds is the 32-bit number: 0.1F as 64 bits is 0.10000000149011612.
    EXPECT_EQ(test::OtherProgram(path_).One(
                  "SELECT Anzeige||'/'||(Tiefe=0.10000000149011612) FROM awaPrStelle WHERE ID_PS=9"),
              "-1/1");
    EXPECT_EQ(FailureNumber([&] { db_->Execute("UPDATE awaArt SET Algenart=40000"); }),
              ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { db_->Execute("UPDATE awaArt SET Algenart='x'"); }),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureNumber([&] { db_->Execute("INSERT INTO awaArt (ID_ART) VALUES (3000000000)"); }),
              ErrorNumber::Overflow);
}

TEST_F(RecordsetTest, WhatIsNotFiniteIsNotRead) {
    // 1E39 is beyond 32 bits, where the greatest number is some 3.4E38; 9e999 is infinite.
    OtherProgram(path_).Run(
        "UPDATE awaArtPrStelle SET DG_MA=1e39; INSERT INTO awaFundarchiv(ID, Wert) VALUES(1,9e999)");
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaArtPrStelle"); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaFundarchiv"); }), ErrorNumber::Overflow);
}

TEST_F(RecordsetTest, AKeyBeyond32BitsOverflowsWhenItIsRead) {
    test::OtherProgram(path_).Run("INSERT INTO awaArt VALUES(3000000000,'Riese',1)");
    const auto words = FailureWords([&] { db_->OpenRecordset("awaArt"); });
    EXPECT_NE(words.find("ID_ART"), std::string::npos) << words;
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaArt"); }), ErrorNumber::Overflow);
}

TEST_F(RecordsetTest, AnOpenBracketInAPatternFailsAlsoWithoutRows) {
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("SELECT * FROM awaArt WHERE Name Like 'Nav[*'"); }),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] {
                  db_->OpenRecordset(
                      "SELECT * FROM awaStand INNER JOIN awaArt ON "
                      "awaStand.ID=awaArt.ID_ART WHERE Name Like '*[*'");
              }),
              ErrorNumber::SyntaxError);
}

TEST_F(RecordsetTest, ExecuteTellsHowManyRowsChanged) {
    db_->Execute("UPDATE awaArtPrStelle SET DG_MA=1 WHERE ID_PS=1");
    EXPECT_EQ(db_->RecordsAffected(), 3);
    db_->Execute("DELETE * FROM awaArtPrStelle WHERE ID_PS=77");
    EXPECT_EQ(db_->RecordsAffected(), 0);
}

TEST_F(RecordsetTest, FindFirstGoesToTheFirstRowThatFits) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt ORDER BY ID_ART");
    rows->FindFirst("Name='NAVICULA'");
    EXPECT_FALSE(rows->NoMatch());
    EXPECT_EQ((*rows)["ID_ART"], Value(2));
    rows->FindFirst("[ID_ART]>2 AND Algenart=1");
    EXPECT_EQ((*rows)["ID_ART"], Value(4));
    rows->FindFirst("Name='fehlt'");
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_EQ((*rows)["ID_ART"], Value(4));
    rows->FindFirst("Name Like 'öd*'");
    EXPECT_FALSE(rows->NoMatch());
    EXPECT_EQ((*rows)["ID_ART"], Value(1));
    EXPECT_EQ(FailureNumber([&] { rows->FindFirst("Gibtsnicht=1"); }), ErrorNumber::UnknownName);
    EXPECT_EQ(FailureNumber([&] { rows->FindFirst(""); }), ErrorNumber::SyntaxError);
}

TEST_F(RecordsetTest, FindFirstRefusesAnOpenBracketAlsoWithoutRows) {
    for (const char* text : {"SELECT * FROM awaArt", "SELECT * FROM awaArt WHERE ID_ART=99"}) {
        const auto rows = db_->OpenRecordset(text);
        EXPECT_EQ(FailureNumber([&] { rows->FindFirst("Name Like 'x' OR ID_ART=0 AND Name Like '[*'"); }),
                  ErrorNumber::SyntaxError)
            << text;
    }
}

TEST_F(RecordsetTest, RequeryReadsTheRowsAnew) {
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArt ORDER BY ID_ART");
    rows->MoveLast();
    db_->Execute("INSERT INTO awaArt (Name) VALUES ('Batrachospermum')");
    rows->Requery();
    EXPECT_EQ(rows->RecordCount(), 5);
    EXPECT_EQ((*rows)["ID_ART"], Value(1));
}

TEST_F(RecordsetTest, AfterCloseThereIsNoRow) {
    const auto rows = db_->OpenRecordset("awaArt");
    rows->Close();
    EXPECT_TRUE(rows->Eof());
    EXPECT_TRUE(rows->Bof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_FALSE(rows->Updatable());
    EXPECT_EQ(FailureNumber([&] { rows->Requery(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumber([&] { (*rows)["Name"]; }), ErrorNumber::NoCurrentRecord);
    rows->Close();
}

}  // namespace
}  // namespace FX_Algen::store
