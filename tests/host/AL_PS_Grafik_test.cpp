#include "FX_Algen/AL_PS_Grafik.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"
#include "charts/Grafikdatenbank.h"

namespace FX_Algen {
namespace {

TEST(AL_PS_Grafik, IsEmptyBeforeAnyChartWasPrepared) {
    const AL_PS_Grafik grafik;
    EXPECT_EQ(grafik.Grafik_SQL(), "");
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "");
    EXPECT_EQ(grafik.Grafik_Res_Stellenbez(), "");
    EXPECT_EQ(grafik.Grafik_Balkenanzahl(), 0);
    EXPECT_EQ(grafik.Grafik_Legendenzeilen(), 0);
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 0);
}

TEST(AL_PS_Grafik, IndexOutsideTheListFailsWith381AndNamesTheMember) {
    using Member = store::Value (AL_PS_Grafik::*)(std::int16_t) const;
    const std::pair<const char*, Member> members[] = {
        {"Grafik_Balkenfarbe", &AL_PS_Grafik::Grafik_Balkenfarbe},
        {"Grafik_Legendentext", &AL_PS_Grafik::Grafik_Legendentext},
        {"Grafik_Balkenmuster", &AL_PS_Grafik::Grafik_Balkenmuster},
        {"Grafik_Balkenmusterfarbe", &AL_PS_Grafik::Grafik_Balkenmusterfarbe},
    };
    const AL_PS_Grafik grafik;
    for (const auto& [name, member] : members)
        for (const std::int16_t index : {-32768, 0, 1, 32767}) {
            try {
                (grafik.*member)(index);
                ADD_FAILURE() << name << " " << index;
            } catch (const Error& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
                EXPECT_THAT(error.Description(), testing::HasSubstr(std::string("AL_PS_Grafik.") + name));
            }
        }
}

// ---- charts --------------------------------------------------------------------------------------------

/// What a host reads of the bars: "colour|pattern|pattern colour|legend".
std::vector<std::string> Bars(const AL_PS_Grafik& grafik) {
    std::vector<std::string> bars;
    for (std::int16_t i = 1; i <= grafik.Grafik_Balkenanzahl(); ++i)
        bars.push_back(grafik.Grafik_Balkenfarbe(i).Text() + "|" + grafik.Grafik_Balkenmuster(i).Text() +
                       "|" + grafik.Grafik_Balkenmusterfarbe(i).Text() + "|" +
                       grafik.Grafik_Legendentext(i).Text());
    return bars;
}

/// All outputs in one.
std::vector<std::string> Outputs(const AL_PS_Grafik& grafik) {
    auto all = Bars(grafik);
    for (const auto& text :
         {grafik.Grafik_SQL(), grafik.Grafik_Standardtitel(), grafik.Grafik_Res_Stellenbez(),
          std::to_string(grafik.Grafik_Legendenzeilen()), std::to_string(grafik.Grafik_Artenanzahl())})
        all.push_back(text);
    return all;
}

TEST(AL_PS_Grafik, PreparesTheValenceDistribution) {
    AL_PS_Grafik grafik;
    grafik.Grafik_Verteilungsart(1);
    grafik.Grafik_Stellenbez(2);
    grafik.Grafik_Verteilung_Init();
    EXPECT_THAT(grafik.Grafik_SQL(), testing::StartsWith("SELECT DISTINCTROW awaPrStelle.PSBez_Anzeige AS "
                                                         "Stelle, awaErgProjekt.Xeno AS Wert1, "));
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "Algen - Verteilung der saprobiellen Valenzen");
    EXPECT_EQ(grafik.Grafik_Balkenanzahl(), 8);
    EXPECT_EQ(grafik.Grafik_Legendenzeilen(), 2);
    EXPECT_THAT(Bars(grafik),
                testing::ElementsAre("15|0|0|xenosaprob", "9|0|0|oligosaprob", "10|-1|9|oligo-beta",
                                     "10|0|0|beta-mesosaprob", "10|-1|14|beta-alpha",
                                     "14|0|0|alpha-mesosaprob", "12|-1|14|alpha-poly", "12|0|0|polysaprob"));
    EXPECT_EQ(grafik.Grafik_Balkenfarbe(1), store::Value(std::int16_t{15}));
    EXPECT_EQ(grafik.Grafik_Balkenmuster(3), store::Value(true));
    EXPECT_EQ(grafik.Grafik_Balkenmusterfarbe(3), store::Value(std::int16_t{9}));
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 0);
    EXPECT_EQ(grafik.Grafik_Res_Stellenbez(), "");
}

TEST(AL_PS_Grafik, ListsOfBarsShrinkFromEightToSevenAndHaveNoIndexBeyond) {
    AL_PS_Grafik grafik;
    grafik.SprachID(20000);
    const auto fails = [&](std::int16_t index) {
        int failed = 0;
        for (const auto member :
             {&AL_PS_Grafik::Grafik_Balkenfarbe, &AL_PS_Grafik::Grafik_Legendentext,
              &AL_PS_Grafik::Grafik_Balkenmuster, &AL_PS_Grafik::Grafik_Balkenmusterfarbe}) {
            try {
                (grafik.*member)(index);
            } catch (const Error& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
                ++failed;
            }
        }
        return failed;
    };
    grafik.Grafik_Verteilungsart(1);
    grafik.Grafik_Verteilung_Init();
    EXPECT_EQ(grafik.Grafik_Legendentext(8), store::Value("polysaprobic"));
    EXPECT_EQ(fails(0), 4);
    EXPECT_EQ(fails(1), 0);
    EXPECT_EQ(fails(8), 0);
    EXPECT_EQ(fails(9), 4);
    grafik.Grafik_Verteilungsart(2);
    grafik.Grafik_Verteilung_Init();
    EXPECT_EQ(grafik.Grafik_Balkenanzahl(), 7);
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "Number of taxa per quality class");
    EXPECT_EQ(grafik.Grafik_Legendentext(7), store::Value("IV"));
    EXPECT_EQ(grafik.Grafik_Balkenfarbe(1), store::Value(std::int16_t{9}));
    EXPECT_EQ(fails(7), 0);
    EXPECT_EQ(fails(8), 4);
    EXPECT_EQ(fails(0), 4);
}

TEST(AL_PS_Grafik, AnyOtherDistributionLeavesAllOutputsAsTheyWere) {
    AL_PS_Grafik grafik;
    grafik.Grafik_Verteilungsart(3);
    grafik.Grafik_Verteilung_Init();
    EXPECT_EQ(Outputs(grafik), Outputs(AL_PS_Grafik()));
    grafik.Grafik_Verteilungsart(1);
    grafik.Grafik_Verteilung_Init();
    const auto before = Outputs(grafik);
    for (const std::int16_t art : {-1, 0, 3}) {
        grafik.Grafik_Verteilungsart(art);
        grafik.Grafik_Stellenbez(2);
        grafik.SprachID(20000);
        grafik.Grafik_Verteilung_Init();
        EXPECT_EQ(Outputs(grafik), before) << art;
    }
}

TEST(AL_PS_Grafik, DistributionSpeaksGermanWithoutABase) {
    for (const std::int16_t base : {-32768, 0, 1, 9999, 10000}) {
        AL_PS_Grafik grafik;
        grafik.SprachID(base);
        grafik.Grafik_Verteilungsart(2);
        grafik.Grafik_Verteilung_Init();
        EXPECT_EQ(grafik.Grafik_Standardtitel(), "Taxazahl je Gütestufen") << base;
    }
}

TEST(AL_PS_Grafik, FailedDistributionNamesItselfAndLeavesTheOutputsOfTheOneBefore) {
    AL_PS_Grafik grafik;
    grafik.Grafik_Verteilungsart(1);
    grafik.Grafik_Verteilung_Init();
    const auto before = Outputs(grafik);
    grafik.Grafik_Verteilungsart(2);
    const std::pair<std::int16_t, std::int32_t> bases[] = {{12000, ErrorNumber::StringNotFound},
                                                           {30000, ErrorNumber::Overflow}};
    for (const auto& [base, number] : bases) {
        grafik.SprachID(base);
        try {
            grafik.Grafik_Verteilung_Init();
            ADD_FAILURE() << base;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), number);
            EXPECT_THAT(error.Description(), testing::StartsWith("Grafik_Verteilung_Init"));
        }
        EXPECT_EQ(Outputs(grafik), before);
    }
}

/// Sub-habitat 17 of project 3: alga 1 with 40 percent of 100, diatom 11 with all valves.
class AL_PS_GrafikArtenDom : public testing::Test {
protected:
    AL_PS_GrafikArtenDom() {
        db.Zweig(17, "Brücke", "Ufer");
        db.Art(1, "Cladophora", "größte", 130);
        db.Art(11, "Achnanthes", "älteste", 128);
        db.Fund(17, 1, 40);
        db.Fund(17, 11, 0, 30);
        grafik.CurrentDB(db.Datenbank());
        grafik.DBName(db.Pfad());
        grafik.AktUebersicht("Projekt");
        grafik.ProjektID(3);
        grafik.TeilraumID(17);
        grafik.Grafik_Algenart(1);
        grafik.Grafik_ArtDomBerechnen(true);
    }

    Grafikdatenbank db;
    AL_PS_Grafik grafik;
};

TEST_F(AL_PS_GrafikArtenDom, PreparesTheChartAndLeavesTheBarsOfADistribution) {
    grafik.Grafik_Verteilungsart(2);
    grafik.Grafik_Verteilung_Init();
    const auto bars = Bars(grafik);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "Relative Häufigkeiten Nicht-Kieselalgen (%)");
    EXPECT_EQ(grafik.Grafik_Res_Stellenbez(), "Algen-Probenstelle:");
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 1);
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::ElementsAre("Cladophora größte|40"));
    EXPECT_EQ(Bars(grafik), bars);
    EXPECT_EQ(grafik.Grafik_Legendenzeilen(), 2);
    grafik.Grafik_Algenart(2);
    grafik.SprachID(20000);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "Relative frequencies of diatoms (%) ");
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::ElementsAre("Achnanthes älteste|100"));
}

TEST_F(AL_PS_GrafikArtenDom, KeepsTheNumberOfTaxaWhereThereIsNone) {
    grafik.Grafik_ArtenDom_Init();
    grafik.Grafik_MaxDomWert(40);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 1);
    EXPECT_THAT(grafik.Grafik_SQL(), testing::HasSubstr(">40)")) << "the statement is the new one";
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::IsEmpty());
}

TEST_F(AL_PS_GrafikArtenDom, LeavesAllOutputsWhereTheListCannotBeBuiltOrTheGroupIsUnknown) {
    grafik.Grafik_ArtenDom_Init();
    const auto before = Outputs(grafik);
    grafik.SprachID(20000);
    grafik.ProjektID(4);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(Outputs(grafik), before);
    grafik.ProjektID(3);
    for (const std::int16_t group : {-1, 0, 3}) {
        grafik.Grafik_Algenart(group);
        grafik.Grafik_ArtenDom_Init();
        EXPECT_EQ(Outputs(grafik), before) << group;
    }
}

TEST_F(AL_PS_GrafikArtenDom, FailureNamesTheOperationAndLeavesAllOutputs) {
    grafik.Grafik_ArtenDom_Init();
    const auto before = Outputs(grafik);
    grafik.TeilraumID(18);
    grafik.Grafik_Algenart(2);
    try {
        grafik.Grafik_ArtenDom_Init();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::UnknownName);
        EXPECT_THAT(error.Description(), testing::HasSubstr("Grafik_ArtenDom_Init"));
        EXPECT_THAT(error.Statement(), testing::HasSubstr("[A18]"));
    }
    EXPECT_EQ(Outputs(grafik), before);
    grafik.CurrentDB(nullptr);
    grafik.Grafik_ArtDomBerechnen(false);
    try {
        grafik.Grafik_ArtenDom_Init();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
        EXPECT_THAT(error.Description(), testing::HasSubstr("Grafik_ArtenDom_Init"));
    }
    EXPECT_EQ(Outputs(grafik), before);
}

TEST_F(AL_PS_GrafikArtenDom, HandsPlaceModesAndFlagToTheList) {
    Zuschauer zuschauer;
    grafik.SprachID(1);
    grafik.Pbar_SBFormhWnd(7);
    grafik.Pbar_SBLeft(1);
    grafik.Pbar_SBTop(2);
    grafik.Pbar_SBWidth(30.5F);
    grafik.Pbar_SBHeight(4);
    grafik.SilentModus(true);
    grafik.Grafik_ArtenDom_Init();
    ASSERT_FALSE(zuschauer.Balken().empty());
    EXPECT_EQ(zuschauer.Balken().front(), "show 7 1 2 30.5 4");
    EXPECT_EQ(zuschauer.Balken().back(), "hide 7");
    EXPECT_THAT(zuschauer.Texte(), testing::IsEmpty());
    // A silent run shows the boxes of debug mode all the same.
    grafik.DebugModus(true);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_THAT(zuschauer.Texte(), testing::Contains("TLR: 17 DG-Gesamt: 100 DG-MA: 100"));
    // In the assessment cover 40 of 80 is 50 percent; only taxa of life form 1 count.
    db.Ausfuehren("INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (1, 1);");
    db.Setze("awaTeilraum", "DG_Gesamt_WRRL=80", "ID_TR=17");
    db.Datenbank();
    grafik.IstWRRLBerechnung(true);
    grafik.Grafik_ArtenDom_Init();
    EXPECT_THAT(zuschauer.Texte(), testing::Contains("TLR: 17 DG-Gesamt: 80 DG-MA: 100"));
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::ElementsAre("Cladophora größte|50"));
}

TEST_F(AL_PS_GrafikArtenDom, HasTheListMadeOfTheScopeSet) {
    // Station 17 and the selection 5 hold sub-habitat 17, station 18 another one; there is no project 17
    // or 5.
    db.Zweig(18, "Mühle", "Wehr");
    db.Ausfuehren(
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (5, 'Teilraum', "
        "'RechenProjektListe.ID_RechMan=5');");
    db.Ausfuehren("INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene) VALUES (5, 17);");
    for (const auto& [scope, id] : {std::pair{"UStelle", 17}, std::pair{"Rechenmanager", 5}}) {
        AL_PS_Grafik other = grafik;
        other.AktUebersicht(scope);
        other.ProjektID(id);
        other.Grafik_ArtenDom_Init();
        EXPECT_EQ(other.Grafik_Artenanzahl(), 1) << scope;
        EXPECT_THAT(db.Zeilen(other.Grafik_SQL()), testing::ElementsAre("Cladophora größte|40"));
        EXPECT_EQ(Fehlernummer([&] { db.Zeilen("SELECT A18 FROM awaArtenlisteHaeufigkeit;"); }),
                  ErrorNumber::UnknownName)
            << scope;
    }
}

TEST_F(AL_PS_GrafikArtenDom, PassesNoSelectionOnToTheList) {
    // A list of the sites for display would be without the sub-habitat.
    db.Setze("Teilraum", "Anzeige=False", "ID_TR=17");
    grafik.Grafik_ArtenDom_Init();
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::ElementsAre("Cladophora größte|40"));
}

TEST_F(AL_PS_GrafikArtenDom, HasTheListMadeAtThePathSet) {
    // Made in another database the list is none of this one: the call prepares nothing.
    const Grafikdatenbank other;
    grafik.DBName(other.Pfad());
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(Outputs(grafik), Outputs(AL_PS_Grafik()));
    grafik.DBName("");
    grafik.Grafik_ArtenDom_Init();
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 1);
}

TEST_F(AL_PS_GrafikArtenDom, TakesTheListOfTheCalculationWithoutRebuilding) {
    grafik.Grafik_ArtenDom_Init();
    db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A17=7 WHERE ID_Art=1;");
    grafik.Grafik_ArtDomBerechnen(false);
    db.Datenbank();
    grafik.Grafik_ArtenDom_Init();
    EXPECT_THAT(db.Zeilen(grafik.Grafik_SQL()), testing::ElementsAre("Cladophora größte|7"));
}

}  // namespace
}  // namespace FX_Algen
