// The table of the frequency list as it is made from the rows of a project.
#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class ArtenlisteHaeufigkeit : public Listenprobe {};

TEST_F(ArtenlisteHaeufigkeit, HoldsTheRelativeAbundancesOfTheClassicCovers) {
    // Valves 30 + 10 = 40: 30 / 40 * 100 = 75, 10 / 40 * 100 = 25.
    // Taxon 1: 15 / 60 * 100 = 25; stand 12 / 60 * 100 = 20 %, of which 25 %: 5; together 30.
    // Taxon 4: 50 * 20 / 100 = 10.
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(
        Tabelle(),
        ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=30;", "ID_Art=2;CF=0;IstKA=-1;MAalsMI=0;A17=75;",
                    "ID_Art=3;CF=0;IstKA=-1;MAalsMI=0;A17=25;", "ID_Art=4;CF=0;IstKA=0;MAalsMI=0;A17=10;"));
}

TEST_F(ArtenlisteHaeufigkeit, HoldsThoseOfTheAssessmentCoversWithTheFlag) {
    // Taxon 1: 15 / 50 * 100 = 30; stand 10 / 50 * 100 = 20 %, of which 25 %: 5; together 35.
    // Taxon 4: 50 * 20 / 100 = 10. Valves as before.
    EXPECT_TRUE(Artenliste_Haeufigkeit(Bewertung()));
    EXPECT_THAT(
        Tabelle(),
        ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=35;", "ID_Art=2;CF=0;IstKA=-1;MAalsMI=0;A17=75;",
                    "ID_Art=3;CF=0;IstKA=-1;MAalsMI=0;A17=25;", "ID_Art=4;CF=0;IstKA=0;MAalsMI=0;A17=10;"));
}

TEST_F(ArtenlisteHaeufigkeit, DeclaresItsColumnsAsTheyAreToldWithDefaultsOfZero) {
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    auto tabellen = db.Datenbank()->TableDefs();
    const auto& felder = tabellen["awaArtenlisteHaeufigkeit"].Fields();
    ASSERT_EQ(felder.size(), 5U);
    const std::vector<std::pair<std::string, store::FieldType>> erwartet = {
        {"ID_Art", store::FieldType::Long},
        {"CF", store::FieldType::Boolean},
        {"IstKA", store::FieldType::Boolean},
        {"MAalsMI", store::FieldType::Boolean},
        {"A17", store::FieldType::Double}};
    for (std::size_t i = 0; i < felder.size(); ++i) {
        EXPECT_EQ(felder[i].Name, erwartet[i].first);
        EXPECT_EQ(felder[i].Type, erwartet[i].second) << felder[i].Name;
        EXPECT_EQ(felder[i].DefaultValue.value_or("Null"), i == 0 ? "Null" : "0") << felder[i].Name;
    }
}

TEST_F(ArtenlisteHaeufigkeit, IsRebuiltFromNothing) {
    db.Teilraum(18, 3, {60, 0, 50, 0});
    db.Stelle(6, 18);
    db.Fund(6, 2, {.Schalen_KA = 7});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A17", "A18"));
    db.Ausfuehren("DELETE * FROM awaPrStelle WHERE ID_PS=5;");
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Tabelle(), ElementsAre("ID_Art=2;CF=0;IstKA=-1;MAalsMI=0;A18=100;"));
}

TEST_F(ArtenlisteHaeufigkeit, WithoutASampledSubHabitatHasFourColumnsAndNoRowsAndTheAnswerIsFalse) {
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    db.Ausfuehren("DELETE * FROM awaPrStelle;");
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI"));
    EXPECT_THAT(Tabelle(), IsEmpty());
}

TEST_F(ArtenlisteHaeufigkeit, LeavesOutSubHabitatsWithoutCovers) {
    db.TeilraumOhneDeckung(18, 3);
    db.Stelle(6, 18);
    db.Fund(6, 2, {.Schalen_KA = 7});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A17"));
}

TEST_F(ArtenlisteHaeufigkeit, KeepsACellAtZeroWithoutTotalCoverAndLetsDiatomsBe) {
    db.Setze("awaTeilraum", "DG_Gesamt", "ID_TR=17", Value(0));
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(
        Tabelle(),
        ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=0;", "ID_Art=2;CF=0;IstKA=-1;MAalsMI=0;A17=75;",
                    "ID_Art=3;CF=0;IstKA=-1;MAalsMI=0;A17=25;", "ID_Art=4;CF=0;IstKA=0;MAalsMI=0;A17=0;"));
}

TEST_F(ArtenlisteHaeufigkeit, HasARowEachForTheCertainAndTheUncertainFinding) {
    // 6 / 60 * 100 = 10; the stand's share belongs to the certain finding alone.
    db.Fund(5, 1, {.DG_MA = 6, .CF = true, .MAalsMI = true});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_DOUBLE_EQ(Zelle(1, 17), 30);
    EXPECT_DOUBLE_EQ(Zelle(1, 17, true), 10);
    EXPECT_THAT(db.Abzug("SELECT CF, MAalsMI FROM awaArtenlisteHaeufigkeit WHERE ID_Art=1 ORDER BY CF;"),
                ElementsAre("CF=0;MAalsMI=0;", "CF=-1;MAalsMI=-1;"));
}

TEST_F(ArtenlisteHaeufigkeit, ListsASubHabitatOnceAlsoWithSeveralSitesAndTheLastFindingWins) {
    // Second site: taxon 1 with 3 / 60 * 100 = 5, + 5 from the stand = 10. Taxon 4 takes the stand's share
    // once for each finding: 10 + 10 = 20. Valves 30 + 10 + 40 = 80: taxon 3 by its only finding 10 / 80 *
    // 100 = 12.5, taxon 2 by its last 40 / 80 * 100 = 50.
    db.Stelle(6, 17);
    db.Fund(6, 1, {.DG_MA = 3, .MAalsMI = true});
    db.Fund(6, 2, {.Schalen_KA = 40});
    db.Fund(6, 4, {});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(
        Tabelle(),
        ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=-1;A17=10;", "ID_Art=2;CF=0;IstKA=-1;MAalsMI=0;A17=50;",
                    "ID_Art=3;CF=0;IstKA=-1;MAalsMI=0;A17=12.5;", "ID_Art=4;CF=0;IstKA=0;MAalsMI=0;A17=20;"));
}

TEST_F(ArtenlisteHaeufigkeit, GoesThroughTheSubHabitatsInTheOrderOfTheirKeys) {
    // Entered before 17's rows in the tree, and with sites before its own.
    db.Besuch(2, 3);
    db.Teilraum(9, 2, {10, 0, 10, 0});
    db.Stelle(1, 9);
    db.Teilraum(30, 3, {10, 0, 10, 0});
    db.Stelle(2, 30);
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A9", "A17", "A30"));
}

TEST_F(ArtenlisteHaeufigkeit, LetsTheSumOfValvesStayWhereNoCountWasEntered) {
    // 16 comes first and has no finding: its sum is Null, and 0 stands at the start. 17 has 40 valves. In 18
    // no count was entered: Null, and 40 stays.
    db.Teilraum(16, 3, {10, 0, 10, 0});
    db.Stelle(4, 16);
    db.Teilraum(18, 3, {10, 0, 10, 0});
    db.Stelle(6, 18);
    db.Fund(6, 1, {});
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_PS=6", Value());
    FrequencyColumn spur;
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag(), &spur));
    EXPECT_DOUBLE_EQ(Zelle(2, 16), 0);
    EXPECT_DOUBLE_EQ(spur.ValveSum, 40);
    EXPECT_TRUE(spur.ValveSumCarried);
    // A diatom without a count meets the 40 there.
    db.Fund(6, 3, {});
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_PS=6 AND ID_ART=3", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_DOUBLE_EQ(Zelle(2, 17), 75);
    EXPECT_DOUBLE_EQ(Zelle(3, 18), 0);
    // A counted 0 is a sum, and no valves leave the cells.
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_PS=6 AND ID_ART=3", Value(0));
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag(), &spur));
    EXPECT_DOUBLE_EQ(spur.ValveSum, 0);
    EXPECT_FALSE(spur.ValveSumCarried);
}

TEST_F(ArtenlisteHaeufigkeit, HasNoSumToTakeOverInTheFirstSubHabitat) {
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_ART=1", Value());
    db.Ausfuehren("DELETE * FROM awaArtPrStelle WHERE ID_ART<>1;");
    FrequencyColumn spur;
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag(), &spur));
    EXPECT_DOUBLE_EQ(spur.ValveSum, 0);
    EXPECT_FALSE(spur.ValveSumCarried);
}

TEST_F(ArtenlisteHaeufigkeit, TakesAnyPositionOtherThanZeroForADiatom) {
    // Mosses have the position 100: outside the assessment they count by their valves, of which there are
    // none.
    db.Art(6, {.ID_GRGR = 132});
    db.Fund(5, 6, {.DG_MA = 30});
    db.Grossgruppe(129, Value());
    db.Grossgruppe(130, -1);
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(
        db.Abzug("SELECT ID_Art, IstKA, A17 FROM awaArtenlisteHaeufigkeit;"),
        ElementsAre("ID_Art=1;IstKA=0;A17=30;", "ID_Art=2;IstKA=-1;A17=75;", "ID_Art=3;IstKA=-1;A17=25;",
                    "ID_Art=4;IstKA=-1;A17=0;", "ID_Art=6;IstKA=-1;A17=0;"));
}

// ---- which taxa have a row -----------------------------------------------------------------------------

TEST_F(ArtenlisteHaeufigkeit, ListsInAnAssessmentOnlyBenthicTaxaOfGroupsBelow132) {
    db.Art(6, {.ID_GRGR = 131});
    db.Art(7, {.ID_GRGR = 132});
    db.Art(8, {.ID_GRGR = 129, .Lebensform = 2});
    db.ArtOhneWerte(9, {.ID_GRGR = 129});
    for (const int art : {6, 7, 8, 9}) db.Fund(5, art, {.DG_MA = 1});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Bewertung()));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "6"));
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "6", "7", "8", "9"));
}

TEST_F(ArtenlisteHaeufigkeit, CountsValvesOfLifeFormOneAloneInAnAssessment) {
    // Taxon 8 counts 60 valves: in the classic list 30 / 100 * 100 = 30, in the assessment 30 / 40 * 100
    // = 75.
    db.Art(8, {.ID_GRGR = 128, .Lebensform = 2});
    db.Fund(5, 8, {.Schalen_KA = 60});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_DOUBLE_EQ(Zelle(2, 17), 30);
    EXPECT_TRUE(Artenliste_Haeufigkeit(Bewertung()));
    EXPECT_DOUBLE_EQ(Zelle(2, 17), 75);
}

TEST_F(ArtenlisteHaeufigkeit, LeavesOutTaxaWhoseChainDoesNotReachAMajorGroup) {
    db.Art(6, {.ID_GRGR = 131});
    db.Fund(5, 6, {.DG_MA = 6});
    db.Ausfuehren("UPDATE awaArt SET ID_UFAM=0 WHERE ID_ART=6;");
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(ArtenlisteHaeufigkeit, StandsInTheOrderOfTheTaxaCertainOnesFirst) {
    db.Fund(5, 3, {.Schalen_KA = 5, .CF = true});
    db.Fund(5, 1, {.CF = true});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(Taxa(), ElementsAre("1", "1?", "2", "3", "3?", "4"));
}

// ---- failures ------------------------------------------------------------------------------------------

TEST_F(ArtenlisteHaeufigkeit, KeepsWhatWasComputedBeforeACoverThatIsNull) {
    db.Teilraum(18, 3, {60, 0, 50, 0});
    db.Stelle(6, 18);
    db.Fund(6, 2, {.Schalen_KA = 7});
    for (const std::string feld : {"DG_Gesamt", "DG_MA"}) {
        db.Setze("awaTeilraum", feld, "ID_TR=18", Value());
        EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag())) << feld;
        EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI", "A17", "A18")) << feld;
        EXPECT_DOUBLE_EQ(Zelle(2, 17), 75) << feld;
        EXPECT_DOUBLE_EQ(Zelle(2, 18), 0) << feld;
        EXPECT_TRUE(Artenliste_Haeufigkeit(Bewertung())) << "the other covers are there";
        EXPECT_DOUBLE_EQ(Zelle(2, 18), 100) << feld;
        db.Setze("awaTeilraum", feld, "ID_TR=18", Value(0));
    }
}

TEST_F(ArtenlisteHaeufigkeit, EndsAtAValveCountThatIsNullOnceValvesCount) {
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_ART=3", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    // Taxa 1 and 2 come before it: 30 / 30 * 100 = 100; taxon 4 comes behind it.
    EXPECT_THAT(db.Abzug("SELECT ID_Art, A17 FROM awaArtenlisteHaeufigkeit;"),
                ElementsAre("ID_Art=1;A17=30;", "ID_Art=2;A17=100;", "ID_Art=3;A17=0;", "ID_Art=4;A17=0;"));
    // Without valves nobody looks at the count.
    db.Setze("awaArtPrStelle", "Schalen_KA", "ID_ART=2", Value(0));
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_DOUBLE_EQ(Zelle(4, 17), 10);
}

TEST_F(ArtenlisteHaeufigkeit, EndsAtAStandWhoseCoverIsNull) {
    db.Setze("awaTeilraum_MI", "DG_MI", "ID_TR_MI=11", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(db.Abzug("SELECT ID_Art, A17 FROM awaArtenlisteHaeufigkeit;"),
                ElementsAre("ID_Art=1;A17=0;", "ID_Art=2;A17=0;", "ID_Art=3;A17=0;", "ID_Art=4;A17=0;"));
    EXPECT_TRUE(Artenliste_Haeufigkeit(Bewertung())) << "the assessment has a cover of its own";
}

TEST_F(ArtenlisteHaeufigkeit, TakesACoverOfAFindingThatIsNullForNone) {
    db.Setze("awaArtPrStelle", "DG_MA", "ID_ART=1", Value());
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_DOUBLE_EQ(Zelle(1, 17), 5);  // the stand's share alone
}

TEST_F(ArtenlisteHaeufigkeit, CopiesAFlagThatIsNull) {
    db.Setze("awaArtPrStelle", "MAalsMI", "ID_ART=1", Value());
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(db.Abzug("SELECT MAalsMI FROM awaArtenlisteHaeufigkeit WHERE ID_Art=1;"),
                ElementsAre("MAalsMI=Null;"));
}

TEST_F(ArtenlisteHaeufigkeit, TakesAsManyColumnsAsTheStoreAndAnswersFalsePastThem) {
    // The store takes 1999 columns, four of which are no sub-habitats.
    for (std::int32_t tr = 1000; tr < 1000 + 1995; ++tr) {
        db.Teilraum(tr, 3, {60, 0, 50, 0});
        db.Stelle(tr, tr);
    }
    db.Ausfuehren("DELETE * FROM awaPrStelle WHERE ID_PS=5;");
    db.Fund(1000, 2, {.Schalen_KA = 7});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_EQ(Spalten().size(), 1999U);
    EXPECT_EQ(Spalten().back(), "A2994");
    EXPECT_DOUBLE_EQ(Zelle(2, 1000), 100);

    db.Stelle(5, 17);
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_EQ(Spalten().size(), 1999U);
    EXPECT_EQ(Spalten()[4], "A17");
    EXPECT_EQ(Spalten().back(), "A2993");
    EXPECT_THAT(Tabelle(), IsEmpty());
}

TEST_F(ArtenlisteHaeufigkeit, TellsInABoxThatTheDatabaseOfThePathDoesNotOpen) {
    Gegenueber gegenueber;
    auto auftrag = Auftrag();
    auftrag.DBName = db.Pfad() + ".fehlt";
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Texte(), ElementsAre("Fehler beim Tabellenlöschen"));
}

TEST_F(ArtenlisteHaeufigkeit, TellsInABoxThatTheTableCannotBeMade) {
    db.Datenbank()->TableDefs().Delete("awaArtenlisteHaeufigkeit");
    auto tabellen = db.Datenbank()->TableDefs();
    auto tabelle = db.Datenbank()->CreateTableDef("AWAARTENLISTEHAEUFIGKEIT");
    tabelle.Append(store::TableDef::CreateField("ID_Art", store::FieldType::Long));
    tabellen.Append(tabelle);
    Gegenueber gegenueber;
    EXPECT_FALSE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(gegenueber.Texte(), ElementsAre("Fehler beim Tabellen anlegen"));
}

TEST_F(ArtenlisteHaeufigkeit, UsesThePathOfTheDatabaseWhereNoneIsGiven) {
    auto auftrag = Auftrag();
    auftrag.DBName.clear();
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_DOUBLE_EQ(Zelle(1, 17), 30);
}

TEST_F(ArtenlisteHaeufigkeit, WithoutADatabaseAnswersFalse) {
    Gegenueber gegenueber;
    auto auftrag = Auftrag();
    auftrag.Datenbank = nullptr;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Texte(), IsEmpty());
    EXPECT_THAT(Spalten(), ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI"));
    auftrag.DBName.clear();
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Texte(), ElementsAre("Fehler beim Tabellenlöschen"));
}

}  // namespace
}  // namespace FX_Algen
