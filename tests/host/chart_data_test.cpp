// Charts as they are drawn, read from a database.
#include <gmock/gmock.h>

#include "FX_Algen/ChartData.h"
#include "FX_Algen/Error.h"
#include "charts/Grafikdatenbank.h"

namespace FX_Algen {
namespace {

using charts::ChartKind;
using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

using Values = std::vector<std::optional<double>>;

std::vector<std::string> Labels(const charts::Chart& chart) {
    std::vector<std::string> labels;
    for (const auto& site : chart.Sites) labels.push_back(site.Label);
    return labels;
}

// ---- distribution --------------------------------------------------------------------------------------

class DistributionChart : public testing::Test {
protected:
    DistributionChart() {
        db.Zweig(17, "Brücke", "Ufer");
        db.Zweig(18, "Mühle", "Wehr");
        db.Ergebnis(17);
        db.Ergebnis(18);
    }

    DistributionRequest Request(std::int16_t art) {
        DistributionRequest request;
        request.Database = db.Datenbank();
        request.DBName = db.Pfad();
        request.Verteilungsart = art;
        return request;
    }
    std::vector<std::string> Marks() {
        return db.Zeilen("SELECT ID_PS, Anzeige FROM awaPrStelle ORDER BY ID_PS;");
    }

    Grafikdatenbank db;
};

TEST_F(DistributionChart, OfQualityClassesCountsTaxa) {
    db.Setze("awaErgProjekt",
             "ANZ_Gueteklasse_I=1, ANZ_Gueteklasse_I_II=0, ANZ_Gueteklasse_II=12, ANZ_Gueteklasse_II_III=4, "
             "ANZ_Gueteklasse_III=5, ANZ_Gueteklasse_III_IV=6, ANZ_Gueteklasse_IV=7",
             "ID=17");
    db.Setze("awaErgProjekt", "ANZ_Gueteklasse_II=3", "ID=18");
    const auto chart = ReadDistributionChart(Request(2));
    EXPECT_EQ(chart.Kind, ChartKind::Stacked);
    EXPECT_EQ(chart.Title, "Taxazahl je Gütestufen");
    EXPECT_EQ(chart.Subtitle, "");
    EXPECT_EQ(chart.AxisTitle, "Anzahl Taxa");
    EXPECT_FALSE(chart.AxisEnd.has_value());
    EXPECT_TRUE(chart.WholeNumbers);
    EXPECT_EQ(chart.LegendLines, 2);
    EXPECT_EQ(chart.SprachID, 10000);
    EXPECT_THAT(chart.Footnotes, IsEmpty());
    ASSERT_EQ(chart.AllSeries.size(), 7U);
    EXPECT_EQ(chart.AllSeries[0].Legend, "I");
    EXPECT_EQ(chart.AllSeries[0].ColourNumber, 9);
    EXPECT_FALSE(chart.AllSeries[0].Hatched);
    EXPECT_EQ(chart.AllSeries[5].Legend, "III-IV");
    EXPECT_EQ(chart.AllSeries[5].ColourNumber, 12);
    EXPECT_TRUE(chart.AllSeries[5].Hatched);
    EXPECT_EQ(chart.AllSeries[5].HatchColourNumber, 14);
    EXPECT_THAT(Labels(chart), ElementsAre("Brücke 12.05.2026 Ufer", "Mühle 12.05.2026 Wehr"));
    EXPECT_EQ(chart.Sites[0].Values, (Values{1, 0, 12, 4, 5, 6, 7}));
    // What the table does not hold is absent, not 0.
    EXPECT_EQ(chart.Sites[1].Values, (Values{{}, {}, 3, {}, {}, {}, {}}));
}

TEST_F(DistributionChart, OfValencesShowsWhatAnotherProgramLeft) {
    // 0.5 + 1.25 + 0 + 4 + 0.25 + 2 + 1 + 1 = 10
    db.Setze("awaErgProjekt",
             "XENO=0.5, OLIGO=1.25, OLIGOBETA=0, BETA=4, BETAALPHA=0.25, ALPHA=2, ALPHAPOLY=1, POLY=1",
             "ID=17");
    auto request = Request(1);
    request.Stellenbez = 2;
    const auto chart = ReadDistributionChart(request);
    EXPECT_EQ(chart.Title, "Algen - Verteilung der saprobiellen Valenzen");
    EXPECT_EQ(chart.AxisTitle, "Valenzen (Summe 10)");
    EXPECT_THAT(chart.AxisEnd, Optional(10.0));
    EXPECT_FALSE(chart.WholeNumbers);
    EXPECT_EQ(chart.AllSeries.size(), 8U);
    EXPECT_THAT(Labels(chart), ElementsAre("Anzeige Ufer", "Anzeige Wehr"));
    EXPECT_EQ(chart.Sites[0].Values, (Values{0.5, 1.25, 0, 4, 0.25, 2, 1, 1}));
    EXPECT_EQ(chart.Sites[1].Values, Values(8)) << "the site stays, without a bar";
    EXPECT_THAT(chart.Footnotes, IsEmpty()) << "one site has values";
}

TEST_F(DistributionChart, OfValencesSaysThatTheTableHoldsNone) {
    const auto chart = ReadDistributionChart(Request(1));
    EXPECT_EQ(chart.Sites.size(), 2U);
    EXPECT_THAT(chart.AxisEnd, Optional(10.0));
    EXPECT_THAT(chart.Footnotes, ElementsAre("Die Ergebnistabelle enthält dafür keine Werte."));
}

TEST_F(DistributionChart, OfValencesOfAnotherScaleHasAnAxisOfItsOwn) {
    const struct {
        double Xeno;
        double Poly;
        bool Grouped;
        bool ToTen;
    } cases[] = {
        {5, 5, false, true},    {5, 5.04, false, true},  // rounded values
        {5, 5.1, false, false}, {60, 40, false, false},  // percent
        {6, 7, true, true},     {1, 10.1, true, false},  // side by side each bar stands alone
    };
    for (const auto& c : cases) {
        db.Setze("awaErgProjekt", "XENO=" + store::NumberText(c.Xeno) + ", POLY=" + store::NumberText(c.Poly),
                 "ID=18");
        auto request = Request(1);
        request.Grouped = c.Grouped;
        const auto chart = ReadDistributionChart(request);
        EXPECT_EQ(chart.Kind, c.Grouped ? ChartKind::Grouped : ChartKind::Stacked);
        EXPECT_EQ(chart.AxisEnd.has_value(), c.ToTen) << c.Xeno << " " << c.Poly;
        EXPECT_EQ(chart.AxisTitle, c.ToTen ? "Valenzen (Summe 10)" : "Valenzen") << c.Xeno << " " << c.Poly;
    }
}

TEST_F(DistributionChart, SpeaksEnglishAndTakesASmallBaseForGerman) {
    auto request = Request(1);
    request.SprachID = 20000;
    auto chart = ReadDistributionChart(request);
    EXPECT_EQ(chart.SprachID, 20000);
    EXPECT_EQ(chart.Title, "Algae - distribution of the saprobic valences");
    EXPECT_EQ(chart.AxisTitle, "Valences (total 10)");
    EXPECT_EQ(chart.Empty, "There are no results for these sampling sites.");
    EXPECT_THAT(chart.Footnotes, ElementsAre("The result table holds no values for this."));
    request.Verteilungsart = 2;
    EXPECT_EQ(ReadDistributionChart(request).AxisTitle, "Number of taxa");
    db.Setze("awaErgProjekt", "XENO=11", "ID=17");
    request.Verteilungsart = 1;
    EXPECT_EQ(ReadDistributionChart(request).AxisTitle, "Valences");
    request.SprachID = 0;
    chart = ReadDistributionChart(request);
    EXPECT_EQ(chart.SprachID, 10000);
    EXPECT_EQ(chart.Empty, "Für diese Probenstellen gibt es keine Ergebnisse.");
}

TEST_F(DistributionChart, NamesSitesWithoutAName) {
    db.Setze("awaPrStelle", "PSBez=Null, PSBez_Anzeige=Null", "ID_PS=17");
    auto request = Request(2);
    EXPECT_THAT(Labels(ReadDistributionChart(request)),
                ElementsAre("Brücke 12.05.2026", "Mühle 12.05.2026 Wehr"));
    request.Stellenbez = 2;
    EXPECT_THAT(Labels(ReadDistributionChart(request)), ElementsAre("(ohne Namen)", "Anzeige Wehr"));
    request.SprachID = 20000;
    EXPECT_THAT(Labels(ReadDistributionChart(request)), ElementsAre("(no name)", "Anzeige Wehr"));
}

TEST_F(DistributionChart, TellsOfSubHabitatsWithTwoResults) {
    db.Ergebnis(17, true);
    const std::string note =
        "Teilräume mit zwei Ergebnissen stehen zweimal: aus allen Algen und, mit [KA], nur aus den "
        "Kieselalgen.";
    db.Setze("awaErgProjekt", "ANZ_Gueteklasse_I=1", "ID=17 AND KAOnly=False");
    db.Setze("awaErgProjekt", "ANZ_Gueteklasse_I=2", "ID=17 AND KAOnly=True");
    auto chart = ReadDistributionChart(Request(2));
    EXPECT_THAT(Labels(chart), ElementsAre("Brücke 12.05.2026 Ufer", "Brücke 12.05.2026 Ufer [KA]",
                                           "Mühle 12.05.2026 Wehr"));
    EXPECT_THAT(chart.Sites[0].Values[0], Optional(1.0));
    EXPECT_THAT(chart.Sites[1].Values[0], Optional(2.0));
    EXPECT_THAT(chart.Footnotes, ElementsAre(note));
    // Two sites of a sub-habitat with one result are none.
    db.Stelle(20, 18, "Äste");
    auto request = Request(2);
    request.Teilraeume = {18};
    EXPECT_THAT(ReadDistributionChart(request).Footnotes,
                ElementsAre("Die Ergebnistabelle enthält dafür keine Werte."));
    request.Teilraeume = {17};
    EXPECT_THAT(ReadDistributionChart(request).Footnotes, ElementsAre(note));
}

TEST_F(DistributionChart, HasTheResultOfAllAlgaeFirstWhicheverWasWrittenFirst) {
    db.Ausfuehren("DELETE * FROM awaErgProjekt;");
    for (const std::int32_t tr : {18, 17}) {
        db.Ergebnis(tr, true);
        db.Ergebnis(tr, false);
    }
    db.Stelle(20, 17, "Äste");
    auto request = Request(1);
    request.Stellenbez = 2;
    EXPECT_THAT(Labels(ReadDistributionChart(request)),
                ElementsAre("Anzeige Äste", "Anzeige Äste [KA]", "Anzeige Ufer", "Anzeige Ufer [KA]",
                            "Anzeige Wehr", "Anzeige Wehr [KA]"));
}

TEST_F(DistributionChart, WithoutSitesSaysSo) {
    db.Ausfuehren("DELETE * FROM awaErgProjekt;");
    const auto chart = ReadDistributionChart(Request(2));
    EXPECT_THAT(chart.Sites, IsEmpty());
    EXPECT_THAT(chart.Footnotes, IsEmpty());
    EXPECT_EQ(chart.Empty, "Für diese Probenstellen gibt es keine Ergebnisse.");
    EXPECT_EQ(chart.AllSeries.size(), 7U);
}

TEST_F(DistributionChart, OfSubHabitatsShowsTheirSitesWhateverTheMarks) {
    db.Stelle(20, 17, "Äste");
    db.Stelle(21, 17, "Öde");
    db.Setze("awaPrStelle", "Anzeige=False", "ID_PS=17");
    db.Setze("awaPrStelle", "Anzeige=Null", "ID_PS=20");
    const auto before = Marks();
    ASSERT_THAT(before, ElementsAre("17|0", "18|-1", "20|-", "21|-1"));
    auto request = Request(2);
    request.Stellenbez = 2;
    EXPECT_THAT(Labels(ReadDistributionChart(request)), ElementsAre("Anzeige Öde", "Anzeige Wehr"));
    const struct {
        std::vector<std::int32_t> Teilraeume;
        std::vector<std::string> Stellen;
    } cases[] = {
        {{17}, {"Anzeige Äste", "Anzeige Öde", "Anzeige Ufer"}},
        {{18}, {"Anzeige Wehr"}},
        {{18, 17, 18, 99}, {"Anzeige Äste", "Anzeige Öde", "Anzeige Ufer", "Anzeige Wehr"}},
        {{99}, {}},
        {{}, {}},
    };
    for (const auto& c : cases) {
        request.Teilraeume = c.Teilraeume;
        EXPECT_EQ(Labels(ReadDistributionChart(request)), c.Stellen);
        EXPECT_EQ(Marks(), before);
    }
}

TEST_F(DistributionChart, TakesAnyNumberOfSubHabitats) {
    // 401 sub-habitats need three statements of 200 constants; that of the last one is met, too.
    auto request = Request(2);
    request.Teilraeume.emplace();
    for (std::int32_t tr = 1000; tr < 1400; ++tr) request.Teilraeume->push_back(tr);
    request.Teilraeume->push_back(18);
    EXPECT_THAT(Labels(ReadDistributionChart(request)), ElementsAre("Mühle 12.05.2026 Wehr"));
    request.Teilraeume->insert(request.Teilraeume->begin(), 17);
    EXPECT_EQ(ReadDistributionChart(request).Sites.size(), 2U);
}

TEST_F(DistributionChart, LeavesTheMarksAsTheyWereWhenItFails) {
    db.Setze("awaPrStelle", "Anzeige=False", "ID_PS=17");
    auto request = Request(2);
    request.Teilraeume = {17};
    request.SprachID = 12000;  // no text
    EXPECT_EQ(Fehlernummer([&] { ReadDistributionChart(request); }), ErrorNumber::StringNotFound);
    EXPECT_THAT(Marks(), ElementsAre("17|0", "18|-1"));
}

TEST_F(DistributionChart, FailsForWhatSelectsNothing) {
    for (const std::int16_t art : {-1, 0, 3}) {
        const auto request = Request(art);
        EXPECT_EQ(Fehlernummer([&] { ReadDistributionChart(request); }), ErrorNumber::TypeMismatch) << art;
    }
    for (const std::int16_t stellenbez : {-1, 3, 7}) {
        auto request = Request(2);
        request.Stellenbez = stellenbez;
        EXPECT_EQ(Fehlernummer([&] { ReadDistributionChart(request); }), ErrorNumber::TypeMismatch);
    }
    EXPECT_EQ(Fehlernummer([] { ReadDistributionChart({}); }), ErrorNumber::NotADatabase);
}

// ---- dominance -----------------------------------------------------------------------------------------

/// Sub-habitat 17 with covers of 100, so that a cover is a relative abundance; valves 30, 10 and 20 + 40 of
/// a diatom with and without cf.: 100 in all.
class DominanceChart : public testing::Test {
protected:
    DominanceChart() {
        db.Zweig(17, "Brücke", "Ufer");
        db.Art(1, "Cladophora", "glomerata", 130);
        db.Art(2, "Ulothrix", "zonata", 130);
        db.Art(3, "Vaucheria", "größte", 130);
        db.Art(11, "Achnanthes", "älteste", 128);
        db.Art(12, "Navicula", "lanceolata", 128);
        db.Art(13, "Nitzschia", "palea", 128);
        db.Fund(17, 1, 40);
        db.Fund(17, 2, 1.5);
        db.Fund(17, 3, 20, 0, true);
        db.Fund(17, 11, 0, 30);
        db.Fund(17, 12, 0, 10);
        db.Fund(17, 13, 0, 20, true);
        db.Fund(17, 13, 0, 40);
    }

    DominanceRequest Request(std::int16_t algenart) {
        DominanceRequest request;
        request.Database = db.Datenbank();
        request.DBName = db.Pfad();
        request.ProjektID = 3;
        request.TeilraumID = 17;
        request.Algenart = algenart;
        return request;
    }

    Grafikdatenbank db;
};

TEST_F(DominanceChart, HasTheMostAbundantTaxonOnTop) {
    auto request = Request(1);
    request.Stelle = "Brücke, Ufer";
    const auto chart = ReadDominanceChart(request);
    EXPECT_EQ(chart.Kind, ChartKind::Horizontal);
    EXPECT_EQ(chart.Title, "Relative Häufigkeiten Nicht-Kieselalgen (%)");
    EXPECT_EQ(chart.Subtitle, "Algen-Probenstelle: Brücke, Ufer");
    EXPECT_EQ(chart.AxisTitle, "Relative Häufigkeit [%]");
    EXPECT_FALSE(chart.AxisEnd.has_value());
    EXPECT_FALSE(chart.WholeNumbers);
    ASSERT_EQ(chart.AllSeries.size(), 1U);
    EXPECT_EQ(chart.AllSeries[0].Legend, "");
    EXPECT_THAT(chart.Footnotes, IsEmpty());
    EXPECT_THAT(Labels(chart),
                ElementsAre("Cladophora glomerata", "Vaucheria cf. größte", "Ulothrix zonata"));
    EXPECT_THAT(chart.Sites[0].Values, ElementsAre(Optional(DoubleEq(40))));
    EXPECT_THAT(chart.Sites[1].Values, ElementsAre(Optional(DoubleEq(20))));
    EXPECT_THAT(chart.Sites[2].Values, ElementsAre(Optional(DoubleEq(1.5))));
}

TEST_F(DominanceChart, OfDiatomsShowsATaxonWithAndWithoutCfTwice) {
    const auto chart = ReadDominanceChart(Request(2));
    EXPECT_EQ(chart.Title, "Relative Häufigkeiten Kieselalgen (%)");
    EXPECT_EQ(chart.Subtitle, "") << "no name of a site was given";
    EXPECT_THAT(Labels(chart), ElementsAre("Nitzschia palea", "Achnanthes älteste", "Nitzschia cf. palea",
                                           "Navicula lanceolata"));
    EXPECT_NE(chart.AllSeries[0].ColourNumber, ReadDominanceChart(Request(1)).AllSeries[0].ColourNumber);
}

TEST_F(DominanceChart, LeavesOutTheThresholdItselfAndTellsIt) {
    auto request = Request(1);
    request.MaxDomWert = 1.5F;
    auto chart = ReadDominanceChart(request);
    EXPECT_THAT(Labels(chart), ElementsAre("Cladophora glomerata", "Vaucheria cf. größte"));
    EXPECT_THAT(chart.Footnotes, ElementsAre("Dargestellt sind die Taxa mit mehr als 1,5 %."));
    request.SprachID = 20000;
    request.Stelle = "Ufer";
    chart = ReadDominanceChart(request);
    EXPECT_EQ(chart.Title, "Relative frequencies of algae other than diatoms (%)");
    EXPECT_EQ(chart.Subtitle, "Algae sampling site: Ufer");
    EXPECT_EQ(chart.AxisTitle, "Relative frequency [%]");
    EXPECT_THAT(chart.Footnotes, ElementsAre("Taxa with more than 1.5 % are shown."));
}

TEST_F(DominanceChart, WithoutTaxaSaysSo) {
    auto request = Request(1);
    request.MaxDomWert = 40.25F;
    auto chart = ReadDominanceChart(request);
    EXPECT_THAT(chart.Sites, IsEmpty());
    EXPECT_THAT(chart.Footnotes, IsEmpty());
    EXPECT_EQ(chart.Empty, "Kein Taxon liegt über dem Schwellenwert von 40,25 %.");
    request.SprachID = 20000;
    EXPECT_EQ(ReadDominanceChart(request).Empty, "No taxon lies above the threshold of 40.25 %.");
}

TEST_F(DominanceChart, NamesTaxaWithoutAName) {
    db.Setze("awaArt", "Art=Null", "ID_ART=1");
    auto request = Request(1);
    EXPECT_EQ(Labels(ReadDominanceChart(request)).front(), "(ohne Namen)");
    request.SprachID = 20000;
    EXPECT_EQ(Labels(ReadDominanceChart(request)).front(), "(no name)");
    db.Setze("awaArt", "Art=''", "ID_ART=1");
    EXPECT_EQ(Labels(ReadDominanceChart(request)).front(), "Cladophora");
}

TEST_F(DominanceChart, TakesTheListOfBeforeUnlessItIsToBeMadeAnew) {
    ReadDominanceChart(Request(1));
    db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A17=7 WHERE ID_Art=2;");
    auto request = Request(1);
    request.Rebuild = false;
    EXPECT_THAT(ReadDominanceChart(request).Sites.back().Values, ElementsAre(Optional(DoubleEq(7))));
    request.Rebuild = true;
    EXPECT_THAT(ReadDominanceChart(request).Sites.back().Values, ElementsAre(Optional(DoubleEq(1.5))));
}

TEST_F(DominanceChart, OfTheAssessmentTakesItsCovers) {
    // Total cover 50 in the assessment, whose life form (1) taxon 1 has: 40 / 50 * 100 = 80.
    db.Ausfuehren("INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (1, 1);");
    db.Setze("awaTeilraum", "DG_Gesamt_WRRL=50", "ID_TR=17");
    auto request = Request(1);
    request.IstWRRLBerechnung = true;
    const auto chart = ReadDominanceChart(request);
    EXPECT_THAT(Labels(chart), ElementsAre("Cladophora glomerata"));
    EXPECT_THAT(chart.Sites[0].Values, ElementsAre(Optional(DoubleEq(80))));
}

TEST_F(DominanceChart, HasTheListMadeOfTheScopeAndAtThePathAskedFor) {
    auto request = Request(1);
    request.AktUebersicht = "UStelle";
    request.ProjektID = 17;  // no project
    EXPECT_EQ(ReadDominanceChart(request).Sites.size(), 3U);
    request.AktUebersicht = "Übersicht";
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::NoCurrentRecord);
    const Grafikdatenbank other;
    request = Request(1);
    request.DBName = other.Pfad();
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(DominanceChart, FailsWhereItCannotBeMade) {
    auto request = Request(3);
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::TypeMismatch);
    request = Request(1);
    request.Rebuild = false;
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::UnknownName)
        << "the list of a new database has no sub-habitat";
    db.Datenbank()->TableDefs().Delete("awaArtenlisteHaeufigkeit");
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::UnknownTable);
    request.Rebuild = true;
    request.ProjektID = 4;  // has no sub-habitat
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::NoCurrentRecord);
    request.ProjektID = 3;
    request.TeilraumID = 18;  // not in the list
    EXPECT_EQ(Fehlernummer([&] { ReadDominanceChart(request); }), ErrorNumber::UnknownName);
    EXPECT_EQ(Fehlernummer([] { ReadDominanceChart({}); }), ErrorNumber::NotADatabase);
}

TEST_F(DominanceChart, SeesWhatChangedBesideAChartThatMarkedSites) {
    ReadDominanceChart(Request(1));
    DistributionRequest request;
    request.Database = db.Datenbank();
    request.Verteilungsart = 2;
    request.Teilraeume = {17};
    ReadDistributionChart(request);
    EXPECT_EQ(ReadDominanceChart(Request(1)).Sites.size(), 3U);
    db.Fund(17, 1, 45, 0, true);
    ReadDistributionChart(request);
    EXPECT_THAT(Labels(ReadDominanceChart(Request(1))),
                ElementsAre("Cladophora cf. glomerata", "Cladophora glomerata", "Vaucheria cf. größte",
                            "Ulothrix zonata"));
}

}  // namespace
}  // namespace FX_Algen
