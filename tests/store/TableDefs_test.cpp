#include "StoreFixture.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::FailureWords;
using test::OtherProgram;

class TableDefsTest : public test::StoreTest {
protected:
    void Make(const std::string& name, const std::vector<FieldDef>& fields) {
        auto table = db_->CreateTableDef(name);
        for (const auto& field : fields) table.Append(field);
        db_->TableDefs().Append(table);
    }
    static FieldDef WithDefault(FieldDef field, std::string value) {
        field.DefaultValue = std::move(value);
        return field;
    }
};

TEST_F(TableDefsTest, ListsTheTablesWithoutTheViews) {
    auto tables = db_->TableDefs();
    ASSERT_EQ(tables.Count(), 7U);
    EXPECT_EQ(tables[0].Name(), "awaPrStelle");
    EXPECT_EQ(tables[6].Name(), "awaAnteil");
    EXPECT_EQ(tables["AWAART"].Name(), "awaArt");
    const auto& fields = tables["awaPrStelle"].Fields();
    ASSERT_EQ(fields.size(), 7U);
    EXPECT_EQ(fields[3].Name, "Anzeige");
    EXPECT_EQ(fields[3].Type, FieldType::Boolean);
    EXPECT_EQ(fields[4].Type, FieldType::Single);
    EXPECT_EQ(FailureNumber([&] { tables[7]; }), ErrorNumber::IndexOutOfRange);
    EXPECT_EQ(FailureNumber([&] { tables["Fundliste"]; }), ErrorNumber::UnknownField);
}

TEST_F(TableDefsTest, ATableIsMadeFilledAndDropped) {
    Make("awaArtenlisteHaeufigkeit", {TableDef::CreateField("ID_Art", FieldType::Long)});
    auto tables = db_->TableDefs();
    EXPECT_EQ(tables.Count(), 8U);
    auto& table = tables["awaArtenlisteHaeufigkeit"];
    table.Append(WithDefault(TableDef::CreateField("CF", FieldType::Boolean), "0"));
    table.Append(WithDefault(TableDef::CreateField("A17", FieldType::Double), "0"));
    EXPECT_EQ(table.Fields().size(), 3U);
    db_->Execute("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art) VALUES (5)");
    const auto rows = db_->OpenRecordset("SELECT * FROM awaArtenlistehaeufigkeit");
    EXPECT_EQ((*rows)["CF"], Value(false));
    EXPECT_EQ((*rows)["A17"], Value(0.0));

    tables.Delete("AWAARTENLISTEHAEUFIGKEIT");
    EXPECT_EQ(tables.Count(), 7U);
    EXPECT_EQ(db_->TableDefs().Count(), 7U);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("awaArtenlisteHaeufigkeit"); }),
              ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { tables.Delete("awaArtenlisteHaeufigkeit"); }), ErrorNumber::UnknownField);
}

TEST_F(TableDefsTest, OpenStatementsFollowANewColumn) {
    const std::string all = "SELECT * FROM awaArt WHERE ID_ART=1";
    EXPECT_EQ(db_->OpenRecordset(all)->Fields().size(), 3U);
    db_->TableDefs()["awaArt"].Append(
        WithDefault(TableDef::CreateField("Geprüft", FieldType::Boolean), "-1"));
    const auto rows = db_->OpenRecordset(all);
    EXPECT_EQ(rows->Fields().size(), 4U);
    EXPECT_EQ((*rows)["GEPRÜFT"], Value(true));
}

TEST_F(TableDefsTest, EveryTypeKeepsItsKind) {
    Make("Alles",
         {TableDef::CreateField("b", FieldType::Boolean), TableDef::CreateField("i", FieldType::Integer),
          TableDef::CreateField("l", FieldType::Long), TableDef::CreateField("s", FieldType::Single),
          TableDef::CreateField("d", FieldType::Double), TableDef::CreateField("t", FieldType::Date),
          TableDef::CreateField("x", FieldType::Text, 4), TableDef::CreateField("m", FieldType::Memo)});
    const auto rows = db_->OpenRecordset("Alles");
    const Kind kinds[] = {Kind::Bool, Kind::I2,   Kind::I4,   Kind::R4,
                          Kind::R8,   Kind::Date, Kind::Text, Kind::Text};
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(rows->Fields()[i].Type, kinds[i]) << rows->Fields()[i].Name;
    db_->Execute(
        "INSERT INTO Alles (x, m) VALUES ('Öhre', 'lang und länger')");  // four characters, five bytes
    EXPECT_EQ(FailureNumber([&] { db_->Execute("INSERT INTO Alles (x) VALUES ('Öhren')"); }),
              ErrorNumber::TypeMismatch);
}

TEST_F(TableDefsTest, FieldsOfATableTellWhatIsDeclared) {
    OtherProgram(path_).Run(
        "CREATE TABLE Felder(a TEXT(50) DEFAULT 'Grün''alge', b BOOLEAN DEFAULT -1, c DOUBLE, d TEXT DEFAULT "
        "NULL,"
        " e TIME, f SMALLINT DEFAULT 0)");
    Make("Gemacht",
         {TableDef::CreateField("m", FieldType::Memo), TableDef::CreateField("t", FieldType::Text, 7),
          WithDefault(TableDef::CreateField("l", FieldType::Long), "12"),
          WithDefault(TableDef::CreateField("x", FieldType::Text), "it's")});
    struct Case {
        const char* Table;
        std::size_t Field;
        FieldType Type;
        std::int32_t Size;
        std::optional<std::string> Default;
    };
    const Case cases[] = {
        {"Felder", 0, FieldType::Text, 50, "Grün'alge"},   {"Felder", 1, FieldType::Boolean, 0, "-1"},
        {"Felder", 2, FieldType::Double, 0, std::nullopt}, {"Felder", 3, FieldType::Text, 0, std::nullopt},
        {"Felder", 4, FieldType::Date, 0, std::nullopt},   {"Felder", 5, FieldType::Integer, 0, "0"},
        {"Gemacht", 0, FieldType::Memo, 0, std::nullopt},  {"Gemacht", 1, FieldType::Text, 7, std::nullopt},
        {"Gemacht", 2, FieldType::Long, 0, "12"},          {"Gemacht", 3, FieldType::Text, 0, "it's"},
    };
    auto tables = db_->TableDefs();
    for (const Case& c : cases) {
        const FieldDef& field = tables[c.Table].Fields().at(c.Field);
        EXPECT_EQ(field.Type, c.Type) << c.Table << "." << field.Name;
        EXPECT_EQ(field.Size, c.Size) << c.Table << "." << field.Name;
        EXPECT_EQ(field.DefaultValue, c.Default) << c.Table << "." << field.Name;
    }
    // A long text keeps what looks like a number.
    db_->Execute("INSERT INTO Gemacht (m) VALUES ('007')");
    EXPECT_EQ(One("SELECT m FROM Gemacht"), Value("007"));
}

TEST_F(TableDefsTest, DefaultsStandInTheKindOfTheField) {
    Make("Vorgaben", {TableDef::CreateField("ID", FieldType::Long),
                      WithDefault(TableDef::CreateField("t", FieldType::Text), "Grün'alge"),
                      WithDefault(TableDef::CreateField("d", FieldType::Double), "0.5"),
                      WithDefault(TableDef::CreateField("b", FieldType::Boolean), "True")});
    db_->Execute("INSERT INTO Vorgaben (ID) VALUES (1)");
    const auto rows = db_->OpenRecordset("Vorgaben");
    EXPECT_EQ((*rows)["t"], Value("Grün'alge"));
    EXPECT_EQ((*rows)["d"], Value(0.5));
    EXPECT_EQ((*rows)["b"], Value(true));
    auto table = db_->CreateTableDef("Falsch");
    EXPECT_EQ(
        FailureNumber([&] { table.Append(WithDefault(TableDef::CreateField("a", FieldType::Long), "x")); }),
        ErrorNumber::TypeMismatch);
}

TEST_F(TableDefsTest, NamesThatAreTakenOrImpossibleAreRefused) {
    EXPECT_EQ(FailureNumber([&] { Make("AWAART", {TableDef::CreateField("a", FieldType::Long)}); }),
              ErrorNumber::DuplicateKey);
    EXPECT_EQ(FailureNumber([&] { Make("fundliste", {TableDef::CreateField("a", FieldType::Long)}); }),
              ErrorNumber::DuplicateKey);
    EXPECT_EQ(FailureNumber([&] { Make("", {TableDef::CreateField("a", FieldType::Long)}); }),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { Make("sqlite_x", {TableDef::CreateField("a", FieldType::Long)}); }),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureNumber([&] { Make("Leer", {}); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureNumber([&] {
                  Make("Doppelt", {TableDef::CreateField("ä", FieldType::Long),
                                   TableDef::CreateField("Ä", FieldType::Long)});
              }),
              ErrorNumber::DuplicateKey);
    auto tables = db_->TableDefs();
    EXPECT_EQ(FailureNumber([&] { tables["awaArt"].Append(TableDef::CreateField("NAME", FieldType::Text)); }),
              ErrorNumber::DuplicateKey);
    EXPECT_EQ(db_->TableDefs().Count(), 7U);
}

TEST_F(TableDefsTest, NamesAreTakenAsTheyAre) {
    const std::string name = "Liste \"A\"; DROP TABLE awaArt";
    Make(name, {TableDef::CreateField("x y", FieldType::Long)});
    EXPECT_EQ(OtherProgram(path_).One("SELECT count(*) FROM awaArt"), "4");
    EXPECT_EQ(db_->TableDefs()[name].Fields()[0].Name, "x y");
    db_->TableDefs().Delete(name);
}

TEST_F(TableDefsTest, PastTheColumnLimitTheTableIsFull) {
    std::string columns = "c0 INTEGER";
    for (int i = 1; i < 2000; ++i) columns += ", c" + std::to_string(i) + " INTEGER";
    OtherProgram(path_).Run("CREATE TABLE Voll(" + columns + ")");
    auto tables = db_->TableDefs();
    const auto append = [&] { tables["Voll"].Append(TableDef::CreateField("eine_mehr", FieldType::Long)); };
    EXPECT_EQ(FailureNumber(append), ErrorNumber::Overflow);
    EXPECT_NE(FailureWords(append).find("Voll"), std::string::npos) << FailureWords(append);
    EXPECT_EQ(tables["Voll"].Fields().size(), 2000U);
}

}  // namespace
}  // namespace FX_Algen::store
