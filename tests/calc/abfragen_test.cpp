#include "calc/Abfragen.h"

#include <gtest/gtest.h>

namespace FX_Algen::calc::abfragen {
namespace {

// The statement texts are part of the contract: which rows count is written there and nowhere else.

TEST(Abfragen, OfTheClassicVariantReadAllTaxaOfTheSample) {
    EXPECT_EQ(Teilraum(17),
              "SELECT DISTINCTROW awaTeilraum.* From awaTeilraum WHERE ((awaTeilraum.ID_TR=17));");
    EXPECT_EQ(
        Makroalgen(17, false, SapWerte, false),
        "SELECT awaArtPrStelle.ID_Art, awaArtPrStelle.DG_MA, awaModulStandard.Sap_GBer, awaModulStandard.SI "
        "FROM (awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) INNER JOIN "
        "awaModulStandard ON awaArtPrStelle.ID_ART = awaModulStandard.ID_ART "
        "WHERE ((awaPrStelle.ID_TR=17) AND (awaArtPrStelle.DG_MA>0));");
    EXPECT_EQ(
        Bestaende(17),
        "SELECT DISTINCTROW awaTeilraum_MI.ID_TR_MI, awaTeilraum_MI.DG_MI, awaTeilraum_MI.DG_MI_WRRL From "
        "awaTeilraum_MI Where awaTeilraum_MI.ID_TR = 17 ORDER BY awaTeilraum_MI.ID_TR_MI;");
    EXPECT_EQ(
        Bestandsarten(5, false, SapWerte, false),
        "SELECT awaArtPrStelle_MI.ID_Art, awaArtPrStelle_MI.DG_MI, awaModulStandard.Sap_GBer, "
        "awaModulStandard.SI FROM awaArtPrStelle_MI INNER JOIN awaModulStandard ON awaArtPrStelle_MI.ID_ART "
        "= "
        "awaModulStandard.ID_ART WHERE ((awaArtPrStelle_MI.DG_MI>0) AND (awaArtPrStelle_MI.ID_TR_MI=5));");
    EXPECT_EQ(
        Bestandsklassen(17),
        "SELECT DISTINCTROW awaModulStandard.ID_ART, awaModulStandard.SI FROM (awaArtPrStelle_MI INNER JOIN "
        "awaModulStandard ON awaArtPrStelle_MI.ID_ART = awaModulStandard.ID_ART) INNER JOIN awaTeilraum_MI "
        "ON "
        "awaArtPrStelle_MI.ID_TR_MI = awaTeilraum_MI.ID_TR_MI WHERE ((awaTeilraum_MI.ID_TR=17) AND "
        "(awaArtPrStelle_MI.DG_MI>0));");
    EXPECT_EQ(
        Schalensumme(17, false),
        "SELECT DISTINCTROW Sum(awaArtPrStelle.Schalen_KA) AS [Summe_Schalen_KA] FROM awaPrStelle INNER JOIN "
        "awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS WHERE ((awaPrStelle.ID_TR=17));");
    EXPECT_EQ(Kieselalgen(17, false, SapWerte),
              "SELECT awaArtPrStelle.ID_Art, awaArtPrStelle.Schalen_KA, awaModulStandard.Sap_GBer, "
              "awaModulStandard.SI FROM (awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = "
              "awaArtPrStelle.ID_PS) INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = "
              "awaModulStandard.ID_ART "
              "WHERE ((awaPrStelle.ID_TR=17) AND (awaArtPrStelle.Schalen_KA>0));");
    EXPECT_EQ(MengeBestaende(17),
              "SELECT DISTINCTROW awaTeilraum_MI.DG_MI, awaTeilraum_MI.SD_MI From awaTeilraum_MI WHERE "
              "((awaTeilraum_MI.ID_TR=17) AND (awaTeilraum_MI.SD_MI>0));");
}

TEST(Abfragen, OfTheAssessmentVariantReadOneLifeFormAndTheGroupsOfAlgae) {
    const std::string ende =
        " AND ((awaModulStandard.Lebensform)=1) AND ((awaFamilie.ID_GRGR)<132 And "
        "(awaFamilie.ID_GRGR)<>128));";
    EXPECT_TRUE(Makroalgen(17, true, SapWerte, false)
                    .ends_with("WHERE (((awaArtPrStelle.DG_MA)>0) AND ((awaPrStelle.ID_TR)=17)" + ende));
    EXPECT_TRUE(
        Bestandsarten(5, true, SapWerte, false)
            .ends_with("WHERE (((awaArtPrStelle_MI.DG_MI)>0) AND ((awaArtPrStelle_MI.ID_TR_MI)=5)" + ende));
    EXPECT_TRUE(Kieselalgen(17, true, SapWerte)
                    .ends_with("WHERE ((awaPrStelle.ID_TR=17) AND (awaArtPrStelle.Schalen_KA>0) AND "
                               "(awaModulStandard.Lebensform=1));"));
    EXPECT_TRUE(
        Schalensumme(17, true).ends_with("WHERE (((awaPrStelle.ID_TR)=17) AND "
                                         "((awaModulStandard.Lebensform)=1));"));
}

TEST(Abfragen, OfTheTrophicIndicesAskForAnAlgenartOutsideTheValves) {
    EXPECT_TRUE(Makroalgen(17, false, TrophWerte, true)
                    .ends_with("WHERE ((awaPrStelle.ID_TR=17) AND (awaArtPrStelle.DG_MA>0) AND "
                               "(awaModulStandard.Algenart<>''));"));
    EXPECT_TRUE(Bestandsarten(5, false, TrophWerte, true)
                    .ends_with("WHERE ((awaArtPrStelle_MI.DG_MI>0) AND (awaArtPrStelle_MI.ID_TR_MI=5) AND "
                               "(awaModulStandard.Algenart<>''));"));
    EXPECT_NE(Makroalgen(17, true, TrophWerte, true)
                  .find("((awaPrStelle.ID_TR)=17) AND ((awaModulStandard.Algenart)<>'') AND "
                        "((awaModulStandard.Lebensform)=1)"),
              std::string::npos);
}

TEST(Abfragen, OfAResultRowWriteFlagsAsNumbers) {
    EXPECT_EQ(Ergebniszeile(17, false), "SELECT * FROM awaErgProjekt WHERE (ID=17) AND (KAOnly=0);");
    EXPECT_EQ(Ergebniszeile(17, true), "SELECT * FROM awaErgProjekt WHERE (ID=17) AND (KAOnly=-1);");
}

}  // namespace
}  // namespace FX_Algen::calc::abfragen
