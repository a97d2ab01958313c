#include <gmock/gmock.h>

#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"
#include "store/Allgemein.h"

namespace FX_Algen::Allgemein {
namespace {

using store::FieldType;
using testing::ElementsAre;
using testing::HasSubstr;

/// A database whose tables the test makes itself, with a display that records.
class AllgemeinTabellen : public testing::Test {
protected:
    AllgemeinTabellen() : former(SetDisplay(messages)) {}
    ~AllgemeinTabellen() override { SetDisplay(former); }

    bool Has(const std::string& table) {
        auto tables = store::Workspace().OpenDatabase(db.Path())->TableDefs();
        for (std::size_t i = 0; i < tables.Count(); ++i)
            if (tables[i].Name() == table) return true;
        return false;
    }

    /// Tables of a report's labels: numbers in `res`, texts in `lbl`.
    void MakeReport(const std::vector<std::pair<std::string, FieldType>>& fields) {
        for (const std::string table : {"res", "lbl"}) {
            bool first = true;
            for (const auto& [name, type] : fields) {
                const auto kind = table == "lbl" ? FieldType::Text : type;
                if (first)
                    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), table, name, kind));
                else
                    Append(table, name, kind);
                first = false;
            }
        }
    }

    /// Adds a field without default, which `Feld_Hinzufuegen` would give it.
    void Append(const std::string& table, const std::string& name, FieldType type) {
        auto tables = db.Handle->TableDefs();
        tables[table].Append(store::TableDef::CreateField(name, type));
    }

    bool Fill(std::int16_t Sprache = 10000, bool DebugModus = false) {
        return SetReportLblData(db.Handle, "lbl", "res", Sprache, DebugModus);
    }

    std::vector<std::string> ShownTexts() {
        std::vector<std::string> out;
        for (const auto& box : messages->TakeShown()) out.push_back(box.Text);
        return out;
    }

    std::shared_ptr<store::RecordingMessages> messages = std::make_shared<store::RecordingMessages>();
    std::shared_ptr<store::Messages> former;
    test::TestDatabase db{store::DatabaseKind::Report};
};

// ---- table maintenance -------------------------------------------------------------------------------

TEST_F(AllgemeinTabellen, TableIsCreatedAndDeleted) {
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Häufigkeit", "ID_Art", FieldType::Long));
    EXPECT_TRUE(Has("Häufigkeit"));
    ASSERT_TRUE(Tabelle_Loeschen(db.Path(), "Häufigkeit"));
    EXPECT_FALSE(Has("Häufigkeit"));
    EXPECT_TRUE(messages->TakeShown().empty());
}

TEST_F(AllgemeinTabellen, DeletingATableThatDoesNotExistIsNoFailure) {
    EXPECT_TRUE(Tabelle_Loeschen(db.Path(), "GibtEsNicht"));
    EXPECT_TRUE(messages->TakeShown().empty());
}

TEST_F(AllgemeinTabellen, NamesAreComparedExactlyWhenDeleting) {
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    EXPECT_TRUE(Tabelle_Loeschen(db.Path(), "LISTE"));
    EXPECT_TRUE(Has("Liste"));
}

TEST_F(AllgemeinTabellen, FailuresOfCreatingAndDeletingShowTheirBox) {
    const auto missing = (db.Folder() / "fehlt.db").string();
    EXPECT_FALSE(Tabelle_Loeschen(missing, "Liste"));
    EXPECT_FALSE(Tabelle_Erstellen(missing, "Liste", "ID", FieldType::Long));
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    EXPECT_FALSE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    EXPECT_THAT(ShownTexts(), ElementsAre("Fehler beim Tabellenlöschen", "Fehler beim Tabellen anlegen",
                                          "Fehler beim Tabellen anlegen"));
}

TEST_F(AllgemeinTabellen, AddedFieldHasDefaultZero) {
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    ASSERT_TRUE(Feld_Hinzufuegen(db.Path(), "Liste", "A17", FieldType::Double));
    db.Handle->Execute("INSERT INTO Liste (ID) VALUES (1);");
    const auto row = db.Handle->OpenRecordset("SELECT A17 FROM Liste;");
    ASSERT_FALSE(row->Eof());
    EXPECT_FALSE((*row)["A17"].IsNull());
    EXPECT_EQ((*row)["A17"].R8(), 0.0);
}

TEST_F(AllgemeinTabellen, AFieldOfEachTypeIsAddedAndADateIsNull) {
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    for (const auto type : {FieldType::Boolean, FieldType::Integer, FieldType::Long, FieldType::Single,
                            FieldType::Double, FieldType::Date, FieldType::Text, FieldType::Memo}) {
        const auto name = "F" + std::to_string(static_cast<int>(type));
        EXPECT_TRUE(Feld_Hinzufuegen(db.Path(), "Liste", name, type, 5)) << name;
    }
    db.Handle->Execute("INSERT INTO Liste (ID) VALUES (1);");
    const auto row = db.Handle->OpenRecordset("SELECT F8, F1, F10 FROM Liste;");  // date, boolean, text
    EXPECT_TRUE((*row)["F8"].IsNull());
    EXPECT_FALSE((*row)["F1"].Bool());
    EXPECT_EQ((*row)["F10"].Text(), "0");
}

TEST_F(AllgemeinTabellen, FailureOfAddingAFieldShowsNothing) {
    EXPECT_FALSE(Feld_Hinzufuegen(db.Path(), "GibtEsNicht", "A17", FieldType::Double));
    EXPECT_FALSE(Feld_Hinzufuegen((db.Folder() / "fehlt.db").string(), "Liste", "A17", FieldType::Double));
    ASSERT_TRUE(Tabelle_Erstellen(db.Path(), "Liste", "ID", FieldType::Long));
    EXPECT_FALSE(Feld_Hinzufuegen(db.Path(), "Liste", "id", FieldType::Double));
    EXPECT_TRUE(messages->TakeShown().empty());
}

// ---- labels of reports -------------------------------------------------------------------------------

TEST_F(AllgemeinTabellen, LabelsAreTranslatedIntoOneRow) {
    MakeReport({{"lblTitel", FieldType::Integer},
                {"intSeite", FieldType::Integer},
                {"lblIndex", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel, intSeite, lblIndex) VALUES (8000, 8009, 8009);");
    EXPECT_TRUE(Fill());
    const auto row = db.Handle->OpenRecordset("SELECT * FROM lbl;");
    ASSERT_EQ(row->RecordCount(), 1);
    EXPECT_EQ((*row)["lblTitel"].Text(), "Teilraumauswertung Algen - Gesamt");
    EXPECT_EQ((*row)["lblIndex"].Text(), "Indices");
    EXPECT_TRUE((*row)["intSeite"].IsNull());
}

TEST_F(AllgemeinTabellen, LabelsFollowTheLanguageAndZeroIsGerman) {
    MakeReport({{"lblTitel", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel) VALUES (1000);");
    EXPECT_TRUE(Fill(20000));
    EXPECT_EQ(db.One("SELECT lblTitel FROM lbl;").Text(), "Algae");
    db.Handle->Execute("DELETE * FROM lbl;");
    EXPECT_TRUE(Fill(0));
    EXPECT_EQ(db.One("SELECT lblTitel FROM lbl;").Text(), "Algen");
}

TEST_F(AllgemeinTabellen, FieldsWithoutANumberAboveZeroAreSkipped) {
    MakeReport({{"lblNull", FieldType::Integer},
                {"lblZero", FieldType::Integer},
                {"lblText", FieldType::Text},
                {"lblNegativ", FieldType::Integer},
                {"lblZahlText", FieldType::Text},
                {"lblLetztes", FieldType::Integer}});
    db.Handle->Execute(
        "INSERT INTO res (lblZero, lblText, lblNegativ, lblZahlText, lblLetztes) VALUES (0, 'Übersicht', -5, "
        "' 8009 x', "
        "1000);");
    EXPECT_TRUE(Fill());
    const auto row = db.Handle->OpenRecordset("SELECT * FROM lbl;");
    ASSERT_EQ(row->RecordCount(), 1);
    for (const auto* name : {"lblNull", "lblZero", "lblText", "lblNegativ"})
        EXPECT_TRUE((*row)[name].IsNull()) << name;
    EXPECT_EQ((*row)["lblZahlText"].Text(), "Indices");
    EXPECT_EQ((*row)["lblLetztes"].Text(), "Algen");
}

TEST_F(AllgemeinTabellen, WithoutAnyNumberNoRowIsWritten) {
    MakeReport({{"lblTitel", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel) VALUES (0);");
    EXPECT_TRUE(Fill());
    EXPECT_TRUE(db.Handle->OpenRecordset("SELECT * FROM lbl;")->Eof());
}

TEST_F(AllgemeinTabellen, SecondCallLeavesTwoRows) {
    MakeReport({{"lblTitel", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel) VALUES (1000);");
    EXPECT_TRUE(Fill());
    EXPECT_TRUE(Fill());
    EXPECT_EQ(db.One("SELECT Count(*) AS N FROM lbl;").I4(), 2);
}

TEST_F(AllgemeinTabellen, DebugModeShowsTheStatements) {
    MakeReport({{"lblTitel", FieldType::Integer}, {"lblIndex", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel, lblIndex) VALUES (1000, 8009);");
    EXPECT_TRUE(Fill(10000, true));
    EXPECT_THAT(ShownTexts(),
                ElementsAre("SELECT * FROM res;", "2", "INSERT INTO lbl (lblTitel) VALUES ('Algen');",
                            "UPDATE lbl SET lblIndex='Indices';"));
}

TEST_F(AllgemeinTabellen, FailureIsShownWithNumberAndDescription) {
    EXPECT_FALSE(SetReportLblData(db.Handle, "lbl", "GibtEsNicht", 10000, false));
    const auto shown = messages->TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].Title, "basDrucker:SetReportLblData");
    EXPECT_THAT(shown[0].Text, testing::StartsWith("3078 - "));
    EXPECT_THAT(shown[0].Text, HasSubstr("GibtEsNicht"));
}

TEST_F(AllgemeinTabellen, MissingTextIsAFailureThatKeepsWhatWasWritten) {
    MakeReport({{"lblTitel", FieldType::Integer}, {"lblIndex", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel, lblIndex) VALUES (1000, 1001);");
    EXPECT_FALSE(Fill());
    EXPECT_THAT(ShownTexts(), ElementsAre(testing::StartsWith("326 - ")));
    EXPECT_EQ(db.One("SELECT lblTitel FROM lbl;").Text(), "Algen");
}

TEST_F(AllgemeinTabellen, ApostropheInATextIsAFailureShownInABox) {
    store::StringTable texts;
    texts.Read("xx.tsv", "11000\tAlgen's Übersicht\n");
    MakeReport({{"lblTitel", FieldType::Integer}});
    db.Handle->Execute("INSERT INTO res (lblTitel) VALUES (1000);");
    EXPECT_FALSE(SetReportLblData(db.Handle, "lbl", "res", 10000, false, texts));
    const auto shown = messages->TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].Title, "basDrucker:SetReportLblData");
    EXPECT_THAT(shown[0].Text, testing::StartsWith("3075 - "));
    EXPECT_TRUE(db.Handle->OpenRecordset("SELECT * FROM lbl;")->Eof());
}

TEST_F(AllgemeinTabellen, NumberBeyond16BitsIsAFailure) {
    MakeReport({{"lblTitel", FieldType::Long}});
    db.Handle->Execute("INSERT INTO res (lblTitel) VALUES (30000);");
    EXPECT_FALSE(Fill());
    EXPECT_THAT(ShownTexts(), ElementsAre(testing::StartsWith("6 - ")));
}

TEST_F(AllgemeinTabellen, EmptyNumberTableIsAFailure) {
    MakeReport({{"lblTitel", FieldType::Integer}});
    EXPECT_FALSE(Fill());
    EXPECT_THAT(ShownTexts(), ElementsAre(testing::StartsWith("3021 - ")));
}

}  // namespace
}  // namespace FX_Algen::Allgemein
