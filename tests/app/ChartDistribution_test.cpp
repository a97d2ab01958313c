#include "app/ChartFixture.h"

// Charts of the result table. Worked out by hand from the saprobic values of the fixture: the green algae
// have 2, class II, the diatoms 1.5, class I-II. So sub-habitat 11 has 2 taxa in I-II and 4 in II, 13 has 1
// in I-II, 21 has 1 in II.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* WithoutSample =
    "fxalgen chart: warning: 1 sub-habitat has no algae sample (no row in awaTeilraum) and no bar\n";

class DistributionChart : public ChartFixture {
protected:
    std::vector<std::string> Marks() {
        std::vector<std::string> marks;
        const auto rows = database_->OpenRecordset("SELECT ID_PS, Anzeige FROM awaPrStelle ORDER BY ID_PS;");
        for (; !rows->Eof(); rows->MoveNext()) {
            marks.push_back((*rows)["ID_PS"].Text() + " " + (*rows)["Anzeige"].Text());
        }
        return marks;
    }

    /// One row with valences, as another program may have left it.
    void FillValences() {
        Execute(
            {"INSERT INTO awaErgProjekt (ID, KAOnly, Xeno, Oligo, OligoBeta, Beta, BetaAlpha, Alpha, "
             "AlphaPoly, Poly) VALUES (11, 0, 0.5, 1.5, 0, 4.25, 0, 3, 0, 0.75);"});
    }
};

TEST_F(DistributionChart, ShowsTheResultsOfEverySubHabitatInTheOrderOfTheTree) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, Path("Bild.svg") + "\n");
    EXPECT_EQ(outcome.Err, WithoutSample);
    EXPECT_EQ(TheChart().Title, "Taxazahl je Gütestufen");
    EXPECT_EQ(TheChart().Kind, charts::ChartKind::Stacked);
    EXPECT_THAT(Bars(TheChart()),
                ElementsAre("Brücke 12.05.2026 Furt: 0 2 4 0 0 0 0", "Brücke 12.05.2026 Steg: 0 1 0 0 0 0 0",
                            "Wehr 01.06.2026 Mühle: 0 0 1 0 0 0 0"));
    EXPECT_THAT(TheChart().Footnotes, IsEmpty());
}

TEST_F(DistributionChart, SpeaksEnglishWhereAsked) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_EQ(Draw("quality-classes", {"--lang", "en"}).Code, 0);
    EXPECT_EQ(TheChart().Title, "Number of taxa per quality class");
    EXPECT_EQ(TheChart().SprachID, 20000);
}

TEST_F(DistributionChart, DoesNotAskForMarksAndLeavesThem) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"UPDATE awaPrStelle SET Anzeige=0 WHERE ID_PS=3;"});
    const auto before = Contents({});
    EXPECT_EQ(Draw("quality-classes", {"--scope", "UStelle:1"}).Code, 0);
    EXPECT_EQ(TheChart().Sites.size(), 2U);
    EXPECT_THAT(Marks(), ElementsAre("1 -1", "3 0", "4 -1"));
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Rechenmanager:7"}).Code, 1);
    EXPECT_EQ(Draw("valences").Code, 0);
    EXPECT_EQ(Contents({}), before);
}

TEST_F(DistributionChart, RestrictsToItsScope) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) "
        "VALUES (1, 'Teilraum', 'Teilraum.ID_TR > 0');",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 21, 1);",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 13, 2);",
    });
    struct Case {
        std::string Scope;
        std::vector<std::string> Sites;
    };
    const std::string furt = "Brücke 12.05.2026 Furt";
    const std::string steg = "Brücke 12.05.2026 Steg";
    const std::string muehle = "Wehr 01.06.2026 Mühle";
    for (const Case& c : {Case{"Projekt:1", {furt, steg}}, Case{"UStelle:2", {muehle}},
                          Case{"Teilraum:13", {steg}}, Case{"Rechenmanager:1", {steg, muehle}}}) {
        SCOPED_TRACE(c.Scope);
        EXPECT_EQ(Draw("quality-classes", {"--scope", c.Scope}).Code, 0);
        std::vector<std::string> sites;
        for (const charts::Site& site : TheChart().Sites) sites.push_back(site.Label);
        EXPECT_EQ(sites, c.Sites);
    }
}

TEST_F(DistributionChart, NamesSitesByStationOrByTheirDisplayName) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_EQ(Draw("quality-classes", {"--labels", "station", "--scope", "Teilraum:21"}).Code, 0);
    EXPECT_EQ(TheChart().Sites.at(0).Label, "Wehr 01.06.2026 Mühle");
    EXPECT_EQ(Draw("quality-classes", {"--labels", "display", "--scope", "UStelle:1"}).Code, 0);
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Brücke unten: 0 2 4 0 0 0 0", "Brücke oben: 0 1 0 0 0 0 0"));
}

TEST_F(DistributionChart, StandsSideBySideWhereAsked) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_EQ(Draw("quality-classes", {"--grouped"}).Code, 0);
    EXPECT_EQ(TheChart().Kind, charts::ChartKind::Grouped);
    EXPECT_EQ(TheChart().Sites.size(), 3U);
}

TEST_F(DistributionChart, FailsWithoutAnyResultAndWritesNothing) {
    const auto none = Draw("quality-classes");
    EXPECT_EQ(none.Code, 1);
    EXPECT_EQ(none.Out, "");
    EXPECT_THAT(none.Err,
                HasSubstr("there is no result to draw, and no picture was written; run: fxalgen calculate"));
    EXPECT_THAT(drawn_.Charts, IsEmpty());
    EXPECT_THAT(drawn_.Path, IsEmpty());
    ASSERT_EQ(Call({"calculate", path_, "--scope", "Projekt:2"}).Code, 0);
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Projekt:1"}).Code, 1);
    EXPECT_THAT(drawn_.Path, IsEmpty());
}

TEST_F(DistributionChart, WarnsOfAScopeWithoutSubHabitats) {
    Execute(
        {"INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (7, 'Teilraum', "
         "'Teilraum.ID_TR>0');"});
    const auto outcome = Draw("quality-classes", {"--scope", "Rechenmanager:7"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("warning: Rechenmanager:7 holds no sub-habitat\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("there is no result to draw"));
}

TEST_F(DistributionChart, TellsWhichSubHabitatsHaveNoBar) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({
        "DELETE FROM awaErgProjekt WHERE ID=13;",
        "DELETE FROM awaPrStelle WHERE ID_TR=21;",
    });
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 sub-habitat has no result and no bar; run: fxalgen calculate\n"));
    EXPECT_THAT(outcome.Err, HasSubstr(WithoutSample));
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 sub-habitat has a result and no bar, for want of a sampling "
                          "site (awaPrStelle)"));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Brücke 12.05.2026 Furt: 0 2 4 0 0 0 0"));
    // Nothing is left that could be drawn.
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Teilraum:21"}).Code, 1);
}

TEST_F(DistributionChart, TellsThatASubHabitatBelowABrokenTreeHasNoBar) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"UPDATE UnvUStelle SET ID_AB=99 WHERE ID_UUS=2;"});  // the station of 21 alone
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err, HasSubstr("warning: 1 sub-habitat has a result and no bar, for want of"));
    EXPECT_EQ(TheChart().Sites.size(), 2U);
}

TEST_F(DistributionChart, TellsBelowTheChartWhichResultsAreOutOfDate) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"UPDATE awaArtPrStelle SET Schalen_KA=99 WHERE ID_PS=3;"});
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 result is out of date; run: fxalgen calculate (or assess)\n"));
    EXPECT_THAT(TheChart().Footnotes,
                ElementsAre("Veraltet (Funde, Deckungen oder Einstufungen wurden seit der Berechnung "
                            "geändert): Brücke 12.05.2026 Blöcke"));
    EXPECT_EQ(Draw("quality-classes", {"--lang", "en"}).Code, 0);
    EXPECT_THAT(TheChart().Footnotes,
                ElementsAre("Out of date (findings, covers or ratings were changed since the calculation): "
                            "Brücke 2026-05-12 Blöcke"));
}

TEST_F(DistributionChart, TellsIncompleteAndUnknownResults) {
    Execute({"UPDATE awaModulStandard SET SI=Null WHERE ID_ART=2;"});  // of sub-habitat 11 alone
    ASSERT_EQ(Call({"calculate", path_}).Code, 1);
    Execute({"UPDATE awaErgProjekt SET ANZ_Gueteklasse_IV=3 WHERE ID=21;"});
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err, HasSubstr("warning: 1 result is incomplete, since their calculation failed"));
    EXPECT_THAT(outcome.Err, HasSubstr("warning: 1 result is of unknown state"));
    EXPECT_THAT(TheChart().Footnotes,
                ElementsAre("Unvollständig (die Berechnung ist fehlgeschlagen): Brücke 12.05.2026 Strom",
                            "Unbekannter Stand (nicht mit diesem Programm berechnet oder seither geändert): "
                            "Wehr 01.06.2026 Kies"));
}

TEST_F(DistributionChart, NamesFiveSitesOfAStateAndCountsTheRest) {
    for (int i = 31; i <= 37; ++i) {
        const std::string id = std::to_string(i);
        for (const std::string& statement :
             {"INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (" + id + ", 1, 'Rinne " + id + "', " +
                  id + ");",
              "INSERT INTO awaTeilraum (ID_TR) VALUES (" + id + ");",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (" + id + ", " + id + ");"}) {
            database_->Execute(statement);
        }
    }
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    for (int i = 31; i <= 37; ++i) {
        database_->Execute("UPDATE awaErgProjekt SET ANZ_Gueteklasse_I=1 WHERE ID=" + std::to_string(i) +
                           ";");
    }
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Projekt:1"}).Code, 0);
    const std::string lead =
        "Unbekannter Stand (nicht mit diesem Programm berechnet oder seither geändert): ";
    const std::string day = "Brücke 12.05.2026 Rinne ";
    // Seven of the nine sites of the project.
    EXPECT_THAT(TheChart().Footnotes, ElementsAre(lead + day + "31; " + day + "32; " + day + "33; " + day +
                                                  "34; " + day + "35 und 2 weitere"));
    // Of one site the name stands even where it is the only one, of several "all".
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Teilraum:31"}).Code, 0);
    EXPECT_THAT(TheChart().Footnotes, ElementsAre(lead + day + "31"));
    Execute({"UPDATE awaErgProjekt SET ANZ_Gueteklasse_I=5;"});
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Projekt:1"}).Code, 0);
    EXPECT_THAT(TheChart().Footnotes, ElementsAre(lead + "alle"));
}

TEST_F(DistributionChart, TellsThatAssessedSubHabitatsAppearTwice) {
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    const auto outcome = Draw("quality-classes", {"--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 sub-habitat appears twice: an assessment left one result from "
                          "all algae groups and one from the diatoms alone\n"));
    EXPECT_EQ(TheChart().Sites.size(), 2U);
    EXPECT_THAT(TheChart().Footnotes, Not(IsEmpty()));
}

TEST_F(DistributionChart, TellsThatSamplingSitesOfOneSubHabitatShareItsResult) {
    Execute({"INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (2, 11, 'Gänsau');"});
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const auto outcome = Draw("quality-classes", {"--scope", "Projekt:1", "--lang", "en"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err,
                HasSubstr("warning: 1 sub-habitat has several sampling sites: the bar of each of them "
                          "shows the result of the whole sub-habitat\n"));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Brücke 12.05.2026 Furt: 0 2 4 0 0 0 0",
                                              "Brücke 12.05.2026 Gänsau: 0 2 4 0 0 0 0",
                                              "Brücke 12.05.2026 Steg: 0 1 0 0 0 0 0"));
    EXPECT_THAT(TheChart().Footnotes,
                ElementsAre("Where a sub-habitat has several sampling sites, the bar of each "
                            "shows the result of the whole sub-habitat."));
    // Not of this part of the scope.
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Teilraum:13"}).Err, "");
    EXPECT_THAT(TheChart().Footnotes, IsEmpty());
}

TEST_F(DistributionChart, TellsTheRowOfTheDiatomsApartAtTheFoot) {
    ASSERT_EQ(Call({"assess", path_, "--scope", "Projekt:1"}).Code, 0);
    Execute({"UPDATE awaTeilraum SET DG_Gesamt_WRRL=41 WHERE ID_TR=11;"});
    EXPECT_EQ(Draw("quality-classes", {"--scope", "Projekt:1"}).Code, 0);
    EXPECT_THAT(TheChart().Footnotes,
                Contains("Veraltet (Funde, Deckungen oder Einstufungen wurden seit der Berechnung geändert): "
                         "Brücke 12.05.2026 Strom; Brücke 12.05.2026 Strom [KA]"));
}

TEST_F(DistributionChart, ShowsValencesAsTheResultTableHoldsThem) {
    FillValences();
    const auto outcome = Draw("valences", {"--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(TheChart().Title, "Algen - Verteilung der saprobiellen Valenzen");
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Brücke 12.05.2026 Furt: 0.5 1.5 0 4.25 0 3 0 0.75"));
    EXPECT_EQ(TheChart().AllSeries.at(1).Legend, "oligosaprob");
    // Another program left the row.
    EXPECT_THAT(outcome.Err, HasSubstr("warning: 1 result is of unknown state"));
    EXPECT_THAT(outcome.Err, Not(HasSubstr("valences")));
}

TEST_F(DistributionChart, SaysWhereTheValencesWereNeverFilled) {
    ASSERT_EQ(Call({"calculate", path_, "--scope", "Teilraum:21"}).Code, 0);
    const auto all = Draw("valences", {"--scope", "Teilraum:21"});
    EXPECT_EQ(all.Code, 0);
    EXPECT_EQ(all.Out, Path("Bild.svg") + "\n");
    EXPECT_THAT(all.Err,
                HasSubstr("warning: the chart is empty, since the columns of the valences "
                          "(awaErgProjekt.Xeno to Poly) are Null: the calculation does not fill them"));
    EXPECT_THAT(Bars(TheChart()), ElementsAre("Wehr 01.06.2026 Mühle: - - - - - - - -"));
    FillValences();
    EXPECT_THAT(Draw("valences").Err, HasSubstr("warning: 1 of its bars are empty, since"));
}

}  // namespace
