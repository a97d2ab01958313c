#include <gtest/gtest.h>

#include "entry/AbfragenProbenstelle.h"

namespace FX_Algen::entry::probenstelle {
namespace {

struct Fall {
    std::string_view name;
    std::string abfrage;
    std::string_view text;
};

class StatementsOfTheAlgaeSheet : public testing::TestWithParam<Fall> {};

TEST_P(StatementsOfTheAlgaeSheet, AreComposedToTheLetter) { EXPECT_EQ(GetParam().abfrage, GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Cases, StatementsOfTheAlgaeSheet,
    testing::Values(
        Fall{"open", TeilraumMitStelle(17),
             "SELECT DISTINCTROW awaTeilraum.*, awaPrStelle.ID_PS, awaPrStelle.PSBez FROM awaTeilraum INNER "
             "JOIN "
             "awaPrStelle ON awaTeilraum.ID_TR=awaPrStelle.ID_TR WHERE awaTeilraum.ID_TR=17;"},
        Fall{"sub-habitat", Teilraum(17), "SELECT * FROM awaTeilraum WHERE awaTeilraum.ID_TR=17;"},
        Fall{"sites", Stellen(17), "SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_TR=17;"},
        Fall{"new sub-habitat", TeilraumAnlegen(17), "INSERT INTO awaTeilraum (ID_TR) VALUES (17)"},
        Fall{"new site", StelleAnlegen(17, "Böschung"),
             "INSERT INTO awaPrStelle (ID_TR, PSBez) VALUES (17,'Böschung');"},
        Fall{"new site without name", StelleAnlegen(17, ""),
             "INSERT INTO awaPrStelle (ID_TR, PSBez) VALUES (17,'<NEU>');"},
        Fall{"new site with apostrophes", StelleAnlegen(17, "d'Arc' ö"),
             "INSERT INTO awaPrStelle (ID_TR, PSBez) VALUES (17,'d''Arc'' ö');"},
        Fall{"stands", Bestaende(17),
             "SELECT ID_TR_MI, ID_TR, MI_Bez, DG_MI_WRRL, DG_MI, SD_MI, RF_MI FROM awaTeilraum_MI WHERE "
             "ID_TR=17 ORDER BY RF_MI, MI_Bez;"},
        Fall{"stands of the taxa", BestaendeDerTaxaliste(17),
             "SELECT * FROM awaTeilraum_MI WHERE ID_TR=17 ORDER BY RF_MI, MI_Bez;"},
        Fall{"new stand", BestandAnlegen(17, 12.5, 0),
             "INSERT INTO awaTeilraum_MI (ID_TR, MI_Bez, DG_MI, DG_MI_WRRL) VALUES (17,'<NEU>',12.5,0);"},
        Fall{"stand away", BestandLoeschen(31), "DELETE * FROM awaTeilraum_MI WHERE ID_TR_MI=31;"},
        Fall{"shares", Anteile(17),
             "SELECT DISTINCTROW awaArtPrStelle_MI.* FROM awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON "
             "awaArtPrStelle_MI.ID_TR_MI = awaTeilraum_MI.ID_TR_MI WHERE awaTeilraum_MI.ID_TR=17 ORDER BY "
             "awaArtPrStelle_MI.ID_TR_MI, awaArtPrStelle_MI.ID_Art, awaArtPrStelle_MI.CF DESC;"},
        Fall{"kind of alga", Algenart(3), "SELECT Algenart FROM awaModulStandard WHERE ID_Art=3;"},
        Fall{"repair", TaxonNachtragen(5, 3, true, false),
             "INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF, MAalsMI) VALUES (5,3,-1,0);"},
        Fall{
            "row", TaxonSchreiben(5, 3, false, {true, 2.5, 0.25, 40, 0, true}),
            "UPDATE awaArtPrStelle SET CF=-1, DG_MA= 2.5, SD_MA= 0.25, Schalen_KA= 40, DG_MP= 0, MAalsMI= -1 "
            "WHERE ID_PS=5 AND ID_Art=3 AND CF=0;"},
        Fall{"share away", AnteilLoeschen(31, 3, true),
             "DELETE * FROM awaArtPrStelle_MI WHERE ID_TR_MI=31 AND ID_Art=3 AND CF=-1;"},
        Fall{"share", AnteilSchreiben(31, 3, false, 33.5),
             "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_Art, CF, DG_MI) VALUES (31,3,0,33.5);"},
        Fall{"shares of a taxon away", AnteileDesTaxonsLoeschen(17, 3, true),
             "DELETE DISTINCTROW awaArtPrStelle_MI.* FROM awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON "
             "awaArtPrStelle_MI.ID_TR_MI = awaTeilraum_MI.ID_TR_MI WHERE ((awaTeilraum_MI.ID_TR=17) AND "
             "(awaArtPrStelle_MI.ID_ART=3) AND (awaArtPrStelle_MI.CF=True));"},
        Fall{"taxon away", TaxonLoeschen(5, 3, false),
             "DELETE * FROM awaArtPrStelle WHERE ID_Art = 3 AND  ID_PS = 5 AND CF=False;"}),
    [](const auto& fall) {
        std::string name(fall.param.name);
        for (auto& zeichen : name)
            if (zeichen == ' ' || zeichen == '-') zeichen = '_';
        return name;
    });

TEST(TaxaOfASite, AreReadInTheOrderOfTheSheet) {
    const auto abfrage = Taxa(5);
    EXPECT_TRUE(abfrage.starts_with(
        "SELECT awaArt.ID_ART, awaArt.Gattung, awaArt.Art, awaArtPrStelle.CF, awaArtPrStelle.MAalsMI, "
        "awaArtPrStelle.DG_MA, awaArtPrStelle.SD_MA, awaArtPrStelle.Schalen_KA, awaArtPrStelle.DG_MP, "
        "awaGrossGr.ID_Grgr, awaGrossGr.Grossgruppe, awaModulStandard.Algenart, "
        "awaModulStandard.Lebensform "))
        << abfrage;
    EXPECT_TRUE(abfrage.ends_with(
        "WHERE ID_PS=5 ORDER BY awaGrossGr.RF_Kieselalge, awaModulStandard.Algenart, awaArt.Gattung, "
        "awaArt.Art, awaArtPrStelle.CF DESC;"))
        << abfrage;
}

}  // namespace
}  // namespace FX_Algen::entry::probenstelle
