#include "StoreFixture.h"

namespace FX_Algen::store {
namespace {

using test::FailureNumber;
using test::MakeDatabase;
using test::Open;
using test::OtherProgram;

/// INSERT … IN 'path': the target lies in another file.
class OtherFile : public test::StoreTest {
protected:
    static constexpr const char* ReportSchema =
        "CREATE TABLE rpt_Liste(ID INTEGER, Bezeichnung TEXT, Anzeige BOOLEAN);";

    std::string Report(const std::string& name) { return MakeDatabase(folder_, name, ReportSchema); }
    std::string InsertInto(const std::string& path) {
        return "INSERT INTO rpt_Liste ( ID, Bezeichnung ) IN '" + path +
               "' SELECT ID_ART, Name FROM awaArt WHERE ID_ART<3;";
    }
    static std::string Count(const std::string& path) {
        return OtherProgram(path).One("SELECT count(*) FROM rpt_Liste");
    }
};

TEST_F(OtherFile, RowsLandInTheOtherFile) {
    const auto report = Report("Bericht für Übersicht.db");
    db_->Execute(InsertInto(report));
    EXPECT_EQ(db_->RecordsAffected(), 2);
    db_->Execute(InsertInto(report));
    EXPECT_EQ(Count(report), "4");
    const auto rows = Open(report)->OpenRecordset("SELECT Bezeichnung FROM rpt_Liste ORDER BY Bezeichnung");
    EXPECT_EQ((*rows)[0], Value("Navicula"));
    db_->Execute("INSERT INTO rpt_Liste (ID, Anzeige) IN '" + report + "' VALUES (7, True)");
    EXPECT_EQ(OtherProgram(report).One("SELECT Anzeige FROM rpt_Liste WHERE ID=7"), "-1");
}

TEST_F(OtherFile, TheOwnPathIsTheDatabaseItself) {
    db_->Execute("INSERT INTO awaStand ( ID ) IN '" + path_ + "' SELECT ID_ART FROM awaArt;");
    EXPECT_EQ(One("SELECT Count(*) FROM awaStand"), Value(4));
    EXPECT_EQ(TheConnection().AttachmentCount(), 0U);
}

TEST_F(OtherFile, MissingFileAndFilesOfAnotherKindFail) {
    EXPECT_EQ(FailureNumber([&] { db_->Execute(InsertInto(folder_.File("fehlt.db"))); }),
              ErrorNumber::FileNotFound);
    const auto other = folder_.File("andere.db");
    OtherProgram(other).Run("PRAGMA user_version=77; CREATE TABLE rpt_Liste(ID INTEGER, Bezeichnung TEXT)");
    EXPECT_EQ(FailureNumber([&] { db_->Execute(InsertInto(other)); }), ErrorNumber::NotADatabase);
    const auto without = MakeDatabase(folder_, "ohne.db", "CREATE TABLE anderes(a INTEGER)");
    EXPECT_EQ(FailureNumber([&] { db_->Execute(InsertInto(without)); }), ErrorNumber::UnknownTable);
    // Nothing of this stands in the way of the next one.
    const auto report = Report("Bericht.db");
    db_->Execute(InsertInto(report));
    EXPECT_EQ(Count(report), "2");
}

TEST_F(OtherFile, OnlySomeFilesStayAttached) {
    for (int turn = 0; turn < 2; ++turn)
        for (std::size_t i = 0; i < Connection::AttachmentLimit + 3; ++i) {
            const auto name = "Bericht" + std::to_string(i) + ".db";
            const auto report = turn == 0 ? Report(name) : folder_.File(name);
            db_->Execute(InsertInto(report));
            EXPECT_EQ(Count(report), turn == 0 ? "2" : "4");
            EXPECT_LE(TheConnection().AttachmentCount(), Connection::AttachmentLimit);
        }
}

TEST_F(OtherFile, ReportRowsDoNotWaitForTheDisk) {
    const auto synchronous = [this](const std::string& schema) {
        const auto statement = TheConnection().TheEngine().Prepare("PRAGMA " + schema + ".synchronous");
        statement->Step();
        return statement->Integer(0);
    };
    constexpr int normal = 1;
    constexpr int full = 2;
    db_->Execute(InsertInto(Report("Bericht.db")));
    EXPECT_EQ(synchronous("fx1"), normal);
    EXPECT_EQ(synchronous("main"), full);
}

TEST_F(OtherFile, AFileThatTookThePathLaterIsWrittenTo) {
    const auto report = Report("Bericht.db");
    db_->Execute(InsertInto(report));
    const auto old = folder_.File("Bericht alt.db");
    std::filesystem::rename(report, old);
    for (const char* rest : {"-wal", "-shm"})
        if (std::filesystem::exists(report + rest)) std::filesystem::rename(report + rest, old + rest);
    Report("Bericht.db");
    db_->Execute(InsertInto(report));
    db_->Execute(InsertInto(report));
    EXPECT_EQ(Count(report), "4");
    EXPECT_EQ(Count(old), "2");
}

TEST_F(OtherFile, TheFileThatThePathLeadsToNowIsWrittenTo) {
    const auto first = Report("Bericht Mürz.db");
    const auto second = Report("Bericht Öblarn.db");
    const auto link = folder_.File("Bericht.db");
    const auto lead = [&link](const std::string& to) {
        std::filesystem::remove(link);
        std::filesystem::create_symlink(to, link);
    };
    lead(first);
    db_->Execute(InsertInto(link));
    lead(second);
    db_->Execute(InsertInto(link));
    EXPECT_EQ(Count(first), "2");
    EXPECT_EQ(Count(second), "2");
    lead(first);
    db_->Execute(InsertInto(link));
    EXPECT_EQ(Count(first), "4");
    EXPECT_EQ(Count(second), "2");
    lead(path_);
    EXPECT_EQ(FailureNumber([&] { db_->Execute(InsertInto(link)); }), ErrorNumber::UnknownTable);
}

TEST_F(OtherFile, AColumnThatAnotherProgramMadeOfAnotherKindTakesItsValues) {
    const auto report = Report("Bericht.db");
    const std::string insert = "INSERT INTO rpt_Liste (ID) IN '" + report + "' VALUES (2.5)";
    db_->Execute(insert);
    EXPECT_EQ(OtherProgram(report).One("SELECT ID FROM rpt_Liste"), "2");  // half to even
    OtherProgram(report).Run("DROP TABLE rpt_Liste; CREATE TABLE rpt_Liste(ID DOUBLE, Bezeichnung TEXT)");
    db_->Execute(insert);
    EXPECT_EQ(OtherProgram(report).One("SELECT ID FROM rpt_Liste"), "2.5");
}

TEST_F(OtherFile, ATableOfTheSameNameThereIsNotTakenForOneThatIsGoneHere) {
    const auto report = Report("Bericht.db");
    OtherProgram(path_).Run("CREATE TABLE rpt_Liste(ID INTEGER, Bezeichnung TEXT, Anzeige BOOLEAN)");
    const std::string empty = "DELETE * FROM rpt_Liste;";
    db_->Execute(empty);
    db_->Execute(InsertInto(report));
    OtherProgram(path_).Run("DROP TABLE rpt_Liste");
    EXPECT_EQ(FailureNumber([&] { db_->Execute(empty); }), ErrorNumber::UnknownTable);
    EXPECT_EQ(FailureNumber([&] { db_->OpenRecordset("SELECT * FROM rpt_Liste"); }),
              ErrorNumber::UnknownTable);
    EXPECT_EQ(Count(report), "2");
}

}  // namespace
}  // namespace FX_Algen::store
