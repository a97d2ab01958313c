#include "app/ChartFixture.h"

// Charts of the frequency list. Its cells, worked out by hand: in sub-habitat 11 each of the four green algae
// has a cover of 10 in 40, 25 percent, and the diatoms have 60 and 40 of 100 valves; 13 has one diatom, 100
// percent; 21 one green alga with a cover of 20 in 20, 100 percent.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

class DominanceChart : public ChartFixture {
protected:
    std::vector<std::string> Subtitles() const {
        std::vector<std::string> subtitles;
        for (const charts::Chart& chart : drawn_.Charts) subtitles.push_back(chart.Subtitle);
        return subtitles;
    }
};

TEST_F(DominanceChart, HasAPageForEachSubHabitatWithItsTaxa) {
    const auto outcome = Draw("dominance");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, Path("Bild.svg") + "\n");
    // In the order of the project tree: "Bäche" stands before "Flüsse".
    ASSERT_EQ(drawn_.Charts.size(), 2U);
    EXPECT_THAT(Bars(drawn_.Charts.front()), ElementsAre("Cladophora glomerata: 100"));
    const charts::Chart& second = drawn_.Charts.back();
    EXPECT_EQ(second.Kind, charts::ChartKind::Horizontal);
    EXPECT_EQ(second.Title, "Relative Häufigkeiten Nicht-Kieselalgen (%)");
    EXPECT_THAT(Bars(second), UnorderedElementsAre("Cladophora glomerata: 25", "Ulothrix zonata: 25",
                                                   "Mougeotia grün: 25", "Spirogyra weiß: 25"));
    EXPECT_THAT(
        Subtitles(),
        ElementsAre("Algen-Probenstelle: Teilraum 21 (Bäche / Quellen / Wehr / 01.06.2026 / Kies)",
                    "Algen-Probenstelle: Teilraum 11 (Flüsse / Oberlauf / Brücke / 12.05.2026 / Strom)"));
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 sub-habitat has no algae sample (no row in awaTeilraum) and "
                          "no chart\n"));
    EXPECT_THAT(outcome.Err,
                HasSubstr("Teilraum 13 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Blöcke): no alga "
                          "other than diatoms above 0 %, and so no chart\n"));
}

TEST_F(DominanceChart, ShowsTheDiatomsWhereAskedTheMostAbundantFirst) {
    EXPECT_EQ(Draw("dominance", {"--diatoms", "--lang", "en"}).Code, 0);
    ASSERT_EQ(drawn_.Charts.size(), 2U);
    EXPECT_EQ(drawn_.Charts.front().Title, "Relative frequencies of diatoms (%)");
    EXPECT_THAT(Bars(drawn_.Charts.front()),
                ElementsAre("Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"));
    EXPECT_THAT(Bars(drawn_.Charts.back()), ElementsAre("Achnanthidium minutissimum: 100"));
    EXPECT_THAT(Subtitles(), ElementsAre("Algae sampling site: Sub-habitat 11 (Flüsse / Oberlauf / Brücke / "
                                         "2026-05-12 / Strom)",
                                         "Algae sampling site: Sub-habitat 13 (Flüsse / Oberlauf / Brücke / "
                                         "2026-05-12 / Blöcke)"));
}

TEST_F(DominanceChart, TakesTheThresholdWithCommaOrPoint) {
    struct Case {
        std::string Min;
        std::vector<std::string> Bars;
    };
    for (const Case& c : {Case{"39.5", {"Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"}},
                          Case{"39,5", {"Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"}},
                          Case{"40", {"Achnanthidium minutissimum: 60"}},  // above, not at it
                          Case{".5", {"Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"}},
                          Case{"59.9", {"Achnanthidium minutissimum: 60"}}}) {
        SCOPED_TRACE(c.Min);
        EXPECT_EQ(Draw("dominance", {"--diatoms", "--scope", "Teilraum:11", "--min", c.Min}).Code, 0);
        EXPECT_EQ(Bars(TheChart()), c.Bars);
    }
}

TEST_F(DominanceChart, TellsUncertainFindingsApart) {
    Execute({
        "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 12, -1, 100);",
    });
    // 60, 40 and 100 of 200 valves.
    EXPECT_EQ(Draw("dominance", {"--diatoms", "--scope", "Teilraum:11"}).Code, 0);
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Navicula cf. lanceolata: 50", "Achnanthidium minutissimum: 30",
                                              "Navicula lanceolata: 20"));
}

TEST_F(DominanceChart, MakesTheListOfEachSubHabitatsOwnProject) {
    Execute({
        "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (3, 1, 0, 10);",
        "UPDATE awaTeilraum SET DG_Gesamt=10, DG_MA=10 WHERE ID_TR=13;",
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) "
        "VALUES (1, 'Teilraum', 'Teilraum.ID_TR > 0');",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 13, 1);",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 21, 2);",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 11, 3);",
    });
    // The project changes with each sub-habitat, and no column of the list before serves the next.
    const auto outcome = Draw("dominance", {"--scope", "Rechenmanager:1", "--lang", "en"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    ASSERT_EQ(drawn_.Charts.size(), 3U);
    EXPECT_THAT(Bars(drawn_.Charts.at(0)), ElementsAre("Cladophora glomerata: 100"));
    EXPECT_THAT(Subtitles().at(0), HasSubstr("Sub-habitat 13 "));
    EXPECT_THAT(Subtitles().at(1), HasSubstr("Sub-habitat 21 "));
    EXPECT_EQ(drawn_.Charts.at(2).Sites.size(), 4U);
}

TEST_F(DominanceChart, ReportsASubHabitatWithoutSamplingSiteAndGoesOn) {
    Execute({"DELETE FROM awaArtPrStelle WHERE ID_PS=3;", "DELETE FROM awaPrStelle WHERE ID_PS=3;"});
    const auto outcome = Draw("dominance", {"--diatoms", "--scope", "Projekt:1"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, Path("Bild.svg") + "\n");
    EXPECT_THAT(outcome.Err,
                HasSubstr("Teilraum 13 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Blöcke): it has "
                          "no place in the frequency list, so that nothing of it was counted: it "
                          "has no sampling site (no row in awaPrStelle)\n"));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"));
}

TEST_F(DominanceChart, ReportsASubHabitatWithoutProject) {
    Execute({"UPDATE Teilraum SET ID_VUS=99 WHERE ID_TR=11;"});
    const auto outcome = Draw("dominance");
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 11 (Strom): the project tree above it is broken"));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Cladophora glomerata: 100"));
}

TEST_F(DominanceChart, ReportsAListThatCannotBeMadeForItsProjectAlone) {
    // Of two diatoms one was counted: the list of the project ends there, for all of its sub-habitats.
    Execute({"UPDATE awaArtPrStelle SET Schalen_KA=Null WHERE ID_PS=1 AND ID_ART=12;"});
    const auto outcome = Draw("dominance");
    EXPECT_EQ(outcome.Code, 1);
    const std::string why =
        ": the frequency list of Projekt:1 ends at Teilraum 11 (Flüsse / Oberlauf / Brücke / 2026-05-12 / "
        "Strom): the valves of Navicula lanceolata were not entered";
    EXPECT_THAT(outcome.Err, HasSubstr("/ 2026-05-12 / Strom)" + why));
    EXPECT_THAT(outcome.Err, HasSubstr("/ 2026-05-12 / Blöcke)" + why));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Cladophora glomerata: 100"));
    // Alone, nothing is left to draw.
    const auto alone = Draw("dominance", {"--scope", "Projekt:1"});
    EXPECT_EQ(alone.Code, 1);
    EXPECT_EQ(alone.Out, "");
    EXPECT_THAT(drawn_.Path, IsEmpty());
}

TEST_F(DominanceChart, FailsWhereNoTaxonLiesAboveTheThresholdAndWritesNothing) {
    const auto outcome = Draw("dominance", {"--scope", "Teilraum:11", "--min", "25"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_THAT(outcome.Err, HasSubstr("no alga other than diatoms above 25 %, and so no chart\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("there is nothing to draw, and no picture was written\n"));
    EXPECT_THAT(drawn_.Path, IsEmpty());
}

TEST_F(DominanceChart, NamesFindingsThatTheListDoesNotHold) {
    Execute({
        "UPDATE awaArt SET ID_UFAM=0 WHERE ID_ART=4;",
        "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI) VALUES (1, 11, 'Belag', 10);",
        "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (5, 1, 'Phormidium', 'öde');",
        "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 5, 0, 60);",
        "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI) VALUES (2, 11, 'Überzug', 10);",
        "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (2, 5, 0, 100);",
        "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 1, -1, 40);",
    });
    const auto outcome = Draw("dominance", {"--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(TheChart().Sites.size(), 3U);
    EXPECT_THAT(outcome.Err, HasSubstr("and so these findings are not shown:\n    Spirogyra weiß\n"));
    EXPECT_THAT(outcome.Err,
                HasSubstr("are no findings of the sampling site (awaArtPrStelle), and so they are "
                          "not shown:\n    Cladophora cf. glomerata (ID_ART 1)\n    Phormidium öde "
                          "(ID_ART 5)\n"));
    EXPECT_THAT(outcome.Err, Not(HasSubstr("(ID_ART 5)\n    Phormidium"))) << "it is in two stands";
}

TEST_F(DominanceChart, LeavesTheDatabaseAsItWasButForTheList) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"UPDATE awaPrStelle SET Anzeige=0 WHERE ID_PS=3;"});
    const auto before = Contents({"awaArtenlisteHaeufigkeit"});
    EXPECT_EQ(Draw("dominance").Code, 0);
    EXPECT_EQ(Draw("dominance", {"--diatoms"}).Code, 0);
    EXPECT_EQ(Contents({"awaArtenlisteHaeufigkeit"}), before);
    EXPECT_FALSE(before.empty());
}

}  // namespace
