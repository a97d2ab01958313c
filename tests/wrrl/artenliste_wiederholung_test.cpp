// The list reads the same after every call as if it were made from nothing, whatever is kept between calls.
#include <filesystem>
#include <functional>
#include <thread>
#include <tuple>

#include "store/Allgemein.h"
#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

/// One more database with the sample.
class ZweiteProbe : public Listenprobe {
public:
    using Listenprobe::Bewertung;
    using Listenprobe::db;
    using Listenprobe::Tabelle;

private:
    void TestBody() override {}
};

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
            EXPECT_TRUE(Allgemein::Tabelle_Loeschen(kopie, "awaArtenlisteHaeufigkeit"));
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

TEST_F(ArtenlisteWiederholung, SeesChangesByWhateverRoadTheyCome) {
    Projektdatenbank andere;
    andere.Datenbank();
    const auto verweis = db.Pfad() + ".verweis";
    std::filesystem::create_symlink(db.Pfad(), verweis);
    const auto satz = [&](const std::string& auswahl) { return db.Datenbank()->OpenRecordset(auswahl); };
    struct Weg {
        std::string Name;
        std::function<void()> Tun;
        bool Sichtbar = true;
    };
    const std::vector<Weg> wege = {
        {"AddNew",
         [&] {
             const auto fund = satz("SELECT * FROM awaArtPrStelle");
             fund->AddNew();
             fund->Collect("ID_PS", 6);
             fund->Collect("ID_ART", 1);
             fund->Collect("CF", true);
             fund->Update();
         }},
        {"Edit",
         [&] {
             const auto werte = satz("SELECT * FROM awaModulStandard WHERE ID_ART=4");
             werte->Edit();
             werte->Collect("Lebensform", 2);
             werte->Update();
         }},
        {"Delete", [&] { satz("SELECT * FROM awaArtPrStelle WHERE ID_PS=6 AND ID_ART=1")->Delete(); }},
        {"INSERT IN from another database",
         [&] {
             andere.Datenbank()->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) IN '" + db.Pfad() +
                                         "' VALUES (6, 2, True);");
         }},
        {"INSERT IN with the own path",
         [&] {
             db.Datenbank()->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) IN '" + verweis +
                                     "' VALUES (6, 3, True);");
         }},
        {"through a link",
         [&] {
             store::Workspace().OpenDatabase(verweis)->Execute(
                 "UPDATE awaModulStandard SET Lebensform=1 WHERE ID_ART=4;");
         }},
        {"another program",
         [&] { store::OpenEngine(db.Pfad(), false)->Run("DELETE FROM awaArtPrStelle WHERE ID_ART=2"); }},
        {"a trigger that another program made",
         [&] {
             store::OpenEngine(db.Pfad(), false)
                 ->Run(
                     "CREATE TRIGGER Merker AFTER INSERT ON awaErgProjekt BEGIN UPDATE awaModulStandard SET "
                     "Lebensform=2 WHERE ID_ART=3; END");
         },
         false},
        {"what it does", [&] { db.Datenbank()->Execute("INSERT INTO awaErgProjekt (ID) VALUES (17);"); }},
        {"a site whose findings go with it",
         [&] { db.Datenbank()->Execute("DELETE * FROM awaPrStelle WHERE ID_PS=6;"); }},
    };
    auto auftrag = Bewertung();
    auftrag.TeilraumID = 17;
    auto vorher = Bauen(auftrag);
    for (const auto& weg : wege) {
        weg.Tun();
        auftrag.DBName = weg.Name.size() % 2 == 0 ? db.Pfad() : verweis;
        const auto nachher = Bauen(auftrag);
        EXPECT_EQ(nachher, VonNeuem(auftrag)) << weg.Name;
        EXPECT_EQ(nachher != vorher, weg.Sichtbar) << weg.Name;
        vorher = nachher;
    }
    std::filesystem::remove(verweis);
}

TEST_F(ArtenlisteWiederholung, IsThatOfItsScopeWhateverTheScopeBeforeWas) {
    db.Zweig(8);
    db.Teilraum(80, 8, {60, 40, 50, 30});
    db.Stelle(80, 80);
    db.Fund(80, 6, {.DG_MA = 12});
    db.Fund(80, 5, {.DG_MA = 12, .CF = true});
    db.Anzeige(17, false);
    db.Auswahl(1, "Projekt", "Projekt.ID_PRJ>0", {8});
    db.Auswahl(2, "Teilraum", "Teilraum.ID_TR>0", {18});
    std::vector<Listenauftrag> umfaenge;
    for (const bool wrrl : {false, true}) {
        const auto dazu = [&](const std::string& art, std::int32_t id, bool markierte, std::int32_t tr) {
            auto auftrag = Auftrag();
            auftrag.IstWRRLBerechnung = wrrl;
            auftrag.AktUebersicht = art;
            auftrag.ProjektID = id;
            auftrag.USTAuswahl = markierte;
            auftrag.TeilraumID = tr;
            umfaenge.push_back(auftrag);
        };
        dazu("Projekt", 3, false, 18);
        dazu("Projekt", 3, true, 18);
        dazu("Projekt", 8, false, 0);
        dazu("UStelle", 8, false, 0);
        if (wrrl) continue;
        dazu("UStelle", 3, false, 0);
        dazu("Rechenmanager", 1, false, 0);
        dazu("Rechenmanager", 2, false, 0);
    }
    std::vector<std::vector<std::string>> erwartet;
    for (const auto& umfang : umfaenge) {
        Bauen(umfang);
        erwartet.push_back(VonNeuem(umfang));
    }
    for (std::size_t vorher = 0; vorher < umfaenge.size(); ++vorher)
        for (std::size_t danach = 0; danach < umfaenge.size(); ++danach) {
            EXPECT_EQ(Bauen(umfaenge[vorher]), erwartet[vorher]) << vorher;
            EXPECT_EQ(Bauen(umfaenge[danach]), erwartet[danach]) << danach << " behind " << vorher;
        }
}

TEST_F(ArtenlisteWiederholung, OfASelectionFollowsItsConditionAndItsMembers) {
    db.Auswahl(1, "Teilraum", "Teilraum.ID_TR>0", {17});
    auto auftrag = Auftrag();
    auftrag.AktUebersicht = "Rechenmanager";
    auftrag.ProjektID = 1;
    Bauen(auftrag);
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4"));
    for (const bool fremd : {false, true}) {
        Aendern("UPDATE RechenProjektListe SET ID_Ebene=18;", fremd);
        Bauen(auftrag);
        EXPECT_THAT(Taxa(), ElementsAre("5", "6", "7"));
        Aendern("UPDATE RechenProjekt SET RechManSQL='awaPrStelle.ID_PS<6';", fremd);
        EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << "no member meets the condition";
        Aendern("UPDATE RechenProjektListe SET ID_Ebene=17;", fremd);
        Bauen(auftrag);
        EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4"));
        Aendern("UPDATE RechenProjekt SET RechManSQL='Teilraum.ID_TR>0';", fremd);
    }
}

TEST_F(ArtenlisteWiederholung, FindsNoRowsOfTheCallBeforeInTheConditionOfASelection) {
    // Taxon 17 stands in the list as soon as sub-habitat 17 does.
    db.Art(17, {.ID_GRGR = 129});
    db.Fund(5, 17, {.DG_MA = 3});
    db.Auswahl(1, "Teilraum", "Teilraum.ID_TR NOT IN (SELECT ID_Art FROM awaArtenlisteHaeufigkeit)",
               {17, 18});
    auto auftrag = Auftrag();
    auftrag.AktUebersicht = "Rechenmanager";
    auftrag.ProjektID = 1;
    for (int mal = 0; mal < 3; ++mal) {
        EXPECT_EQ(Bauen(auftrag), VonNeuem(auftrag)) << mal;
        EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A17", "A18")) << mal;
        EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "5", "6", "7", "17")) << mal;
    }
}

TEST_F(ArtenlisteWiederholung, OfTwoDatabasesInTurnsIsThatOfEach) {
    ZweiteProbe zweite;
    zweite.db.Ausfuehren("DELETE * FROM awaArtPrStelle WHERE ID_ART=2;");
    const auto hier = Bauen(Bewertung());
    const auto dort = [&] {
        EXPECT_TRUE(Artenliste_Haeufigkeit(zweite.Bewertung()));
        return zweite.Tabelle();
    };
    // 10 of 10 valves; the other cells as in the assessment of the sample.
    const auto erwartet =
        ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=35;", "ID_Art=3;CF=0;IstKA=-1;MAalsMI=0;A17=100;",
                    "ID_Art=4;CF=0;IstKA=0;MAalsMI=0;A17=10;");
    EXPECT_THAT(dort(), erwartet);
    EXPECT_EQ(Bauen(Bewertung()), hier);
    db.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_ART=3;");
    EXPECT_THAT(dort(), erwartet);
    EXPECT_THAT(Bauen(Bewertung()), Not(Contains(StartsWith("ID_Art=3;"))));
    EXPECT_THAT(dort(), erwartet);
}

TEST_F(ArtenlisteWiederholung, WritesNoRowsOnTopOfOthersWhereThePathLeadsToAnotherDatabase) {
    const auto vorher = Bauen(Bewertung());
    Projektdatenbank andere;
    andere.Datenbank();
    auto auftrag = Bewertung();
    auftrag.DBName = andere.Pfad();
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_EQ(Tabelle(), vorher);
    EXPECT_TRUE(andere.Abzug("SELECT * FROM awaArtenlisteHaeufigkeit;").empty());
    EXPECT_EQ(andere.Datenbank()->OpenRecordset("awaArtenlisteHaeufigkeit")->Fields().back().Name, "A18");
    EXPECT_EQ(Bauen(Bewertung()), vorher);
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

TEST_F(ArtenlisteWiederholung, StandsAsItWasWhereItCannotBeDropped) {
    auto auftrag = Bewertung();
    Bauen(auftrag);
    // A row of another table needs one of the list.
    store::OpenEngine(db.Pfad(), false)
        ->Run(
            "CREATE UNIQUE INDEX Nebenbei ON awaArtenlisteHaeufigkeit (ID_Art);"
            "CREATE TABLE Anhängsel (ID_Art INTEGER REFERENCES awaArtenlisteHaeufigkeit (ID_Art));"
            "INSERT INTO Anhängsel VALUES (2);");
    const auto vorher = Tabelle();
    Gegenueber gegenueber;
    auftrag.DebugModus = true;
    auftrag.Balken.hWnd = 7;
    for (const std::string umfang : {"Projekt", "UStelle"}) {
        auftrag.AktUebersicht = umfang;
        EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
        EXPECT_THAT(gegenueber.Texte(), ElementsAre("Fehler beim Tabellenlöschen"));
        EXPECT_THAT(gegenueber.Balken(), ElementsAre("show 7 0 0 0 0", "draw 0", "hide 7"));
        EXPECT_EQ(Tabelle(), vorher);
    }
    db.Datenbank()->Execute("DELETE * FROM [Anhängsel];");
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
}

TEST_F(ArtenlisteWiederholung, IsMadeAnewWhereItCannotBeEmptied) {
    const auto auftrag = Bewertung();
    const auto vorher = Bauen(auftrag);
    // Rows cannot be deleted for want of the key that this refers to; the table can be dropped.
    store::OpenEngine(db.Pfad(), false)
        ->Run("CREATE TABLE Anhängsel (ID_Art INTEGER REFERENCES awaArtenlisteHaeufigkeit (ID_Art));");
    Gegenueber gegenueber;
    EXPECT_EQ(Bauen(auftrag), vorher);
    EXPECT_THAT(gegenueber.Texte(), testing::IsEmpty());
}

}  // namespace
}  // namespace FX_Algen
