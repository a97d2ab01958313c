// The list reads the same after every call as if it were made from nothing, whatever is kept between calls.
#include <filesystem>
#include <thread>
#include <tuple>

#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

class ArtenlisteWiederholung : public Listenprobe {
protected:
    ArtenlisteWiederholung() {
        db.Art(5, {.ID_GRGR = 131});
        db.Art(6, {.ID_GRGR = 133});
        db.Teilraum(18, 3, {40, 20, 40, 20});
        db.Stelle(6, 18);
        db.Fund(6, 5, {.DG_MA = 10});
        db.Fund(6, 6, {.DG_MA = 10});
        // Findings that differ in what the changes below touch.
        db.ArtOhneWerte(7, {.ID_GRGR = 130});
        db.Fund(6, 7, {.DG_MA = 4});
    }

    /// The statement by this connection, or by one of another thread.
    void Aendern(const std::string& anweisung, bool fremd) {
        if (!fremd) return db.Datenbank()->Execute(anweisung);
        const auto pfad = db.Pfad();
        db.Datenbank();
        std::thread([&] { store::Workspace().OpenDatabase(pfad)->Execute(anweisung); }).join();
    }

    /// The list of the task as it stands in the database after the call.
    std::vector<std::string> Bauen(const Listenauftrag& auftrag) {
        EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
        return Tabelle();
    }

    /// The list of the task, made by a connection that never made one, on a copy of the database.
    std::vector<std::string> VonNeuem(Listenauftrag auftrag) {
        db.Datenbank();
        const auto kopie = db.Pfad() + ".kopie";
        for (const char* endung : {"", "-wal"})
            std::filesystem::copy_file(db.Pfad() + endung, kopie + endung,
                                       std::filesystem::copy_options::overwrite_existing);
        std::vector<std::string> tabelle;
        {
            auftrag.Datenbank = store::Workspace().OpenDatabase(kopie);
            auftrag.DBName = kopie;
            EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
            const auto zeilen = auftrag.Datenbank->OpenRecordset("SELECT * FROM awaArtenlisteHaeufigkeit;");
            for (; !zeilen->Eof(); zeilen->MoveNext()) {
                std::string text;
                for (std::size_t feld = 0; feld < zeilen->Fields().size(); ++feld)
                    text += zeilen->Fields()[feld].Name + "=" + (*zeilen)[feld].Text() + ";";
                tabelle.push_back(std::move(text));
            }
            auftrag.Datenbank.reset();
        }
        for (const char* endung : {"", "-wal", "-shm"}) {
            std::error_code fehler;
            std::filesystem::remove(kopie + endung, fehler);
        }
        return tabelle;
    }
};

TEST_F(ArtenlisteWiederholung, GivesTheSameListForAnyOrderOfSubHabitatsAndVariants) {
    for (const bool wrrl : {true, false, true})
        for (const std::int32_t tr : {17, 18, 17, 0}) {
            auto auftrag = wrrl ? Bewertung() : Auftrag();
            auftrag.TeilraumID = tr;
            EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << wrrl << " " << tr;
            EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << "once more";
        }
}

/// Whether the changes are those of another connection, and whether only marked sub-habitats count.
class ArtenlisteAenderung : public ArtenlisteWiederholung,
                            public testing::WithParamInterface<std::tuple<bool, bool>> {};

TEST_P(ArtenlisteAenderung, IsSeenByTheNextCall) {
    struct Aenderung {
        std::string Name;
        std::string Anweisung;
    };
    const std::vector<Aenderung> aenderungen = {
        {"a finding more", "INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF, DG_MA) VALUES (6, 1, True, 2);"},
        {"a finding less", "DELETE * FROM awaArtPrStelle WHERE ID_PS=6 AND ID_Art=1;"},
        {"a taxon of another life form", "UPDATE awaModulStandard SET Lebensform=2 WHERE ID_ART=4;"},
        {"and back", "UPDATE awaModulStandard SET Lebensform=1 WHERE ID_ART=4;"},
        {"a family in another major group", "UPDATE awaFamilie SET ID_GRGR=120 WHERE ID_FAM=133;"},
        {"and beyond the groups that count", "UPDATE awaFamilie SET ID_GRGR=133 WHERE ID_FAM=133;"},
        {"a family without a major group", "UPDATE awaFamilie SET ID_GRGR=Null WHERE ID_FAM=131;"},
        {"and with one", "UPDATE awaFamilie SET ID_GRGR=131 WHERE ID_FAM=131;"},
        {"a major group that is one of diatoms", "UPDATE awaGrossGr SET RF_Kieselalge=1 WHERE ID_GRGR=129;"},
        {"and none", "UPDATE awaGrossGr SET RF_Kieselalge=0 WHERE ID_GRGR=129;"},
        {"ratings of a taxon that had none",
         "INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (7, 1);"},
        {"and none again", "DELETE * FROM awaModulStandard WHERE ID_ART=7;"},
        {"a mark taken away", "UPDATE Teilraum SET Anzeige=False WHERE ID_TR=18;"},
        {"and set", "UPDATE Teilraum SET Anzeige=True WHERE ID_TR=18;"},
        {"a station of another section", "UPDATE Teilraum SET ID_VUS=99 WHERE ID_TR=18;"},
        {"and back", "UPDATE Teilraum SET ID_VUS=3 WHERE ID_TR=18;"},
        {"a subfamily that goes", "DELETE * FROM awaUnterFam WHERE ID_UFAM=131;"},
        {"a family whose taxa go with it", "DELETE * FROM awaFamilie WHERE ID_FAM=130;"},
    };
    const auto [fremd, markierte] = GetParam();
    auto auftrag = Bewertung();
    auftrag.TeilraumID = 17;
    auftrag.USTAuswahl = markierte;
    Bauen(auftrag);
    for (const auto& aenderung : aenderungen) {
        Aendern(aenderung.Anweisung, fremd);
        EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << aenderung.Name;
        EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << aenderung.Name << ", once more";
    }
}

INSTANTIATE_TEST_SUITE_P(OwnOrForeignAllOrMarked, ArtenlisteAenderung,
                         testing::Combine(testing::Bool(), testing::Bool()));

TEST_F(ArtenlisteWiederholung, SeesTheChangesOfASecondConnectionBetweenTwoCalls) {
    auto auftrag = Bewertung();
    auftrag.TeilraumID = 17;
    auftrag.USTAuswahl = true;
    Bauen(auftrag);
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "5"));
    const auto danach = [&](const std::string& anweisung) {
        Aendern(anweisung, true);
        EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << anweisung;
        return Taxa();
    };
    EXPECT_THAT(danach("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES (6, 1, True);"),
                ElementsAre("1", "1?", "2", "3", "4", "5"));
    EXPECT_THAT(danach("UPDATE awaModulStandard SET Lebensform=2 WHERE ID_ART=4;"),
                ElementsAre("1", "1?", "2", "3", "5"));
    EXPECT_THAT(danach("UPDATE awaFamilie SET ID_GRGR=122 WHERE ID_FAM=133;"),
                ElementsAre("1", "1?", "2", "3", "5", "6"));
    EXPECT_THAT(danach("INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (7, 1);"),
                ElementsAre("1", "1?", "2", "3", "5", "6", "7"));
    EXPECT_THAT(danach("UPDATE Teilraum SET Anzeige=False WHERE ID_TR=18;"), ElementsAre("1", "2", "3"));
}

TEST_F(ArtenlisteWiederholung, LooksAtTheConditionOfASelectionEachTime) {
    // The condition looks at results, which no one takes for a change of the samples.
    db.Auswahl(1, "Teilraum", "Teilraum.ID_TR IN (SELECT ID FROM awaErgProjekt)", {17, 18});
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID) VALUES (17);");
    auto auftrag = Auftrag();
    auftrag.AktUebersicht = "Rechenmanager";
    auftrag.ProjektID = 1;
    Bauen(auftrag);
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4"));
    db.Datenbank()->Execute("UPDATE awaErgProjekt SET ID=18;");
    Bauen(auftrag);
    EXPECT_THAT(Taxa(), ElementsAre("5", "6", "7"));
}

TEST_F(ArtenlisteWiederholung, ForgetsWhatASavepointHeldThatWasUndone) {
    auto auftrag = Bewertung();
    const auto vorher = Bauen(auftrag);
    {
        const store::Savepoint rueckgaengig(db.Datenbank()->SharedConnection());
        db.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_Art=4;");
        EXPECT_THAT(Bauen(auftrag), Not(Contains(StartsWith("ID_Art=4;"))));
    }
    EXPECT_EQ(Tabelle(), vorher) << "the table itself is back";
    EXPECT_EQ(Bauen(auftrag), vorher);
}

TEST_F(ArtenlisteWiederholung, LeavesNothingOpenBehind) {
    Bauen(Auftrag());
    EXPECT_FALSE(store::EngineOf(*db.Datenbank()->SharedConnection()).InTransaction());
    // Another connection can write at once.
    Aendern("UPDATE Projekt SET PRJBez='Mürz bis Öblarn' WHERE ID_PRJ=3;", true);
    EXPECT_EQ(db.Eins("SELECT PRJBez FROM Projekt WHERE ID_PRJ=3;"), store::Value("Mürz bis Öblarn"));
}

// ---- a table that is there already ---------------------------------------------------------------------

TEST_F(ArtenlisteWiederholung, LeavesTheSchemaAloneWhereTheTableHasItsColumnsAlready) {
    auto& engine = store::EngineOf(*db.Datenbank()->SharedConnection());
    const auto stand = [&] {
        const auto zeile = engine.Prepare("PRAGMA schema_version");
        zeile->Step();
        return zeile->Integer(0);
    };
    auto auftrag = Bewertung();
    auftrag.TeilraumID = 17;
    Bauen(auftrag);
    const auto nachher = stand();
    db.Datenbank()->Execute("UPDATE awaArtenlisteHaeufigkeit SET A17=99, MAalsMI=True;");
    db.Datenbank()->Execute("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art) VALUES (77);");
    EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag));
    EXPECT_EQ(stand(), nachher);
    auftrag.TeilraumID = 18;
    EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag));
    EXPECT_NE(stand(), nachher);
}

TEST_F(ArtenlisteWiederholung, MakesTheTableAnewWhereItIsNotQuiteTheSame) {
    auto& engine = store::EngineOf(*db.Datenbank()->SharedConnection());
    const auto zahl = [&](const std::string& anweisung) {
        const auto zeile = engine.Prepare(anweisung);
        zeile->Step();
        return zeile->Integer(0);
    };
    const auto teile = [&] {
        return zahl("SELECT count(*) FROM sqlite_schema WHERE tbl_name='awaArtenlisteHaeufigkeit'");
    };
    auto auftrag = Bewertung();
    auftrag.TeilraumID = 17;
    Bauen(auftrag);
    ASSERT_EQ(teile(), 1);
    for (const std::string zusatz :
         {"CREATE INDEX Nebenbei ON awaArtenlisteHaeufigkeit (ID_Art)",
          "CREATE TRIGGER Nebenbei AFTER INSERT ON awaArtenlisteHaeufigkeit BEGIN DELETE FROM "
          "awaArtenlisteHaeufigkeit; END",
          "ALTER TABLE awaArtenlisteHaeufigkeit ADD COLUMN Ä1 DOUBLE",
          "DROP TABLE awaArtenlisteHaeufigkeit; CREATE TABLE awaArtenlisteHaeufigkeit (ID_Art INTEGER, CF "
          "BOOLEAN, IstKA BOOLEAN, MAalsMI BOOLEAN, A17 DOUBLE)",
          "DROP TABLE awaArtenlisteHaeufigkeit"}) {
        store::OpenEngine(db.Pfad(), false)->Run(zusatz);
        EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << zusatz;
        EXPECT_EQ(teile(), 1) << zusatz;
        EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A17")) << zusatz;
    }
}

}  // namespace
}  // namespace FX_Algen
