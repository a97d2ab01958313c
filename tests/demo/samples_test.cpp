#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DemoDatabase.h"

namespace FX_Algen::demo_test {
namespace {

using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;

class DemoSamples : public testing::Test {
protected:
    DemoDatabase db;
};

/// Sub-habitat of each finding.
const std::string Findings =
    " awaArtPrStelle JOIN awaPrStelle USING (ID_PS) JOIN awaModulStandard USING (ID_ART) ";

TEST_F(DemoSamples, ThreeRiversWithStationsAndVisitsAndSubHabitats) {
    EXPECT_EQ(db.Number("SELECT Count(DISTINCT Gewaessername) FROM UnvUStelle"), 3);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM Projekt"), 3);
    EXPECT_THAT(db.Number("SELECT Count(DISTINCT USDatumVon) FROM VerUStelle"), Ge(6));
    EXPECT_THAT(db.Number("SELECT Count(*) FROM Teilraum"), Ge(14));
    EXPECT_EQ(
        db.Number("SELECT Count(*) FROM Teilraum"),
        db.Number(
            "SELECT Count(*) FROM Teilraum JOIN VerUStelle USING (ID_VUS) JOIN UnvUStelle USING (ID_UUS)"
            " JOIN Abschnitt USING (ID_AB) JOIN Projekt USING (ID_PRJ)"
            " JOIN AL_Bioregion USING (ID_AL_Bioregion) JOIN AL_Hoehenstufe USING (ID_AL_Hoehenstufe)"
            " JOIN AL_Flussabschnitt USING (ID_AL_Flussabschnitt)"));
    EXPECT_EQ(
        db.Number("SELECT Count(*) FROM VerUStelle WHERE USDatumVon IS NULL OR USDatumBis < USDatumVon"), 0);
}

TEST_F(DemoSamples, EachFindingHasItsTaxonRatingsAndPlace) {
    EXPECT_EQ(
        db.Number("SELECT Count(*) FROM awaArtPrStelle"),
        db.Number("SELECT Count(*) FROM" + Findings +
                  "JOIN awaArt USING (ID_ART) JOIN awaTeilraum USING (ID_TR) JOIN Teilraum USING (ID_TR)"));
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaArtPrStelle_MI"),
              db.Number("SELECT Count(*) FROM awaArtPrStelle_MI JOIN awaTeilraum_MI USING (ID_TR_MI)"
                        " JOIN awaTeilraum USING (ID_TR) JOIN awaArt USING (ID_ART)"
                        " JOIN awaModulStandard USING (ID_ART)"));
}

TEST_F(DemoSamples, TaxaOfAStandAreListedAtASamplingSite) {
    EXPECT_THAT(db.Rows("SELECT ID_TR, ID_ART FROM awaArtPrStelle_MI m JOIN awaTeilraum_MI USING (ID_TR_MI)"
                        " WHERE NOT EXISTS (SELECT 1 FROM awaArtPrStelle f JOIN awaPrStelle p USING (ID_PS)"
                        "  WHERE p.ID_TR = awaTeilraum_MI.ID_TR AND f.ID_ART = m.ID_ART AND f.CF = m.CF)"),
                IsEmpty());
}

TEST_F(DemoSamples, MacroalgaeAndStandsAddUpToTheCover) {
    // All covers are multiples of a half, which a float holds exactly.
    EXPECT_THAT(
        db.Rows("SELECT ID_TR, DG_MA, DG_Gesamt FROM awaTeilraum t WHERE DG_MA <>"
                " (SELECT coalesce(Sum(f.DG_MA), 0) FROM awaArtPrStelle f JOIN awaPrStelle p USING (ID_PS)"
                "  WHERE p.ID_TR = t.ID_TR)"
                " OR DG_Gesamt <> DG_MA + (SELECT coalesce(Sum(DG_MI), 0) FROM awaTeilraum_MI m"
                "  WHERE m.ID_TR = t.ID_TR)"),
        IsEmpty());
    EXPECT_THAT(
        db.Rows(
            "SELECT ID_TR, DG_MA_WRRL, DG_Gesamt_WRRL FROM awaTeilraum t WHERE DG_MA_WRRL <>"
            " (SELECT coalesce(Sum(f.DG_MA), 0) FROM awaArtPrStelle f JOIN awaPrStelle p USING (ID_PS)"
            "  JOIN awaArt USING (ID_ART) JOIN awaUnterFam USING (ID_UFAM) JOIN awaFamilie USING (ID_FAM)"
            "  JOIN awaModulStandard USING (ID_ART)"
            "  WHERE p.ID_TR = t.ID_TR AND ID_GRGR NOT BETWEEN 132 AND 137 AND Lebensform = 1)"
            " OR DG_Gesamt_WRRL <> DG_MA_WRRL + (SELECT coalesce(Sum(DG_MI_WRRL), 0) FROM awaTeilraum_MI m"
            "  WHERE m.ID_TR = t.ID_TR)"),
        IsEmpty());
    EXPECT_THAT(
        db.Rows("SELECT ID_TR FROM awaTeilraum WHERE DG_Algengesamt < DG_Gesamt OR DG_Algengesamt > 100"
                " OR DG_Algengesamt_WRRL < DG_Gesamt_WRRL OR DG_Algengesamt_WRRL > DG_Algengesamt"),
        IsEmpty());
}

TEST_F(DemoSamples, TaxaOfAStandAddUpToHundredPercent) {
    EXPECT_THAT(
        db.Rows(
            "SELECT ID_TR_MI, Sum(DG_MI) FROM awaArtPrStelle_MI GROUP BY ID_TR_MI HAVING Sum(DG_MI) <> 100"),
        IsEmpty());
}

TEST_F(DemoSamples, NumbersStandOnlyWhereTheirKindBelongs) {
    const std::string kinds =
        " FROM awaArtPrStelle f JOIN awaArt USING (ID_ART) JOIN awaUnterFam USING (ID_UFAM)"
        " JOIN awaFamilie USING (ID_FAM) WHERE ";
    // Diatoms are counted, nothing else is; plants have a macrophyte cover, nothing else has.
    EXPECT_EQ(db.Number("SELECT Count(*)" + kinds + "(ID_GRGR = 128) <> (Schalen_KA > 0)"), 0);
    EXPECT_EQ(db.Number("SELECT Count(*)" + kinds + "(ID_GRGR IN (132, 135, 136, 137)) <> (DG_MP > 0)"), 0);
    EXPECT_EQ(db.Number("SELECT Count(*)" + kinds + "ID_GRGR IN (128, 132, 135, 136, 137) AND DG_MA <> 0"),
              0);
}

TEST_F(DemoSamples, DiatomCountsAreTrueToLife) {
    const auto counts = db.Rows("SELECT ID_TR, Sum(Schalen_KA), Count(DISTINCT ID_ART) FROM" + Findings +
                                "WHERE Schalen_KA > 0 GROUP BY ID_TR");
    EXPECT_THAT(counts.size(), Ge(10U));
    for (const Row& row : counts) {
        EXPECT_TRUE(std::stoi(row[1]) >= 400 && std::stoi(row[1]) <= 500)
            << row[0] << ": " << row[1] << " valves";
        EXPECT_TRUE(std::stoi(row[2]) >= 20 && std::stoi(row[2]) <= 40)
            << row[0] << ": " << row[2] << " taxa";
    }
}

TEST_F(DemoSamples, OneIsNotCountedAndOneIsEmpty) {
    EXPECT_THAT(db.Column("SELECT ID_TR FROM Teilraum WHERE ID_TR NOT IN (SELECT ID_TR FROM awaTeilraum)"
                          " AND ID_TR NOT IN (SELECT ID_TR FROM sesTeilraum)"),
                ElementsAre("7"));
    EXPECT_THAT(
        db.Column("SELECT ID_TR FROM awaTeilraum WHERE ID_TR IN (SELECT ID_TR FROM awaPrStelle) AND"
                  " ID_TR NOT IN (SELECT ID_TR FROM awaPrStelle JOIN awaArtPrStelle USING (ID_PS)) AND"
                  " ID_TR NOT IN (SELECT ID_TR FROM awaTeilraum_MI)"),
        ElementsAre("11"));
}

/// Parts of a sample, as the text of the letters M (macroalgae), S (stands), K (valves) that are there.
TEST_F(DemoSamples, ShowMacroalgaeAloneDiatomsAloneAndMixtures) {
    const std::string parts =
        "SELECT ID_TR, CASE WHEN Sum(DG_MA) > 0 THEN 'M' ELSE '' END ||"
        " CASE WHEN ID_TR IN (SELECT ID_TR FROM awaTeilraum_MI) THEN 'S' ELSE '' END ||"
        " CASE WHEN Sum(Schalen_KA) > 0 THEN 'K' ELSE '' END AS Teile FROM" +
        Findings + "GROUP BY ID_TR";
    const auto with = [&](const std::string& wanted) {
        return db.Column("SELECT ID_TR FROM (" + parts + ") WHERE Teile = '" + wanted + "' ORDER BY ID_TR");
    };
    EXPECT_THAT(with("M"), ElementsAre("2"));
    EXPECT_THAT(with("K"), ElementsAre("4", "12", "16"));
    EXPECT_THAT(with("S"), ElementsAre("13"));
    EXPECT_THAT(with("MS"), ElementsAre("18"));
    EXPECT_THAT(with("MSK"), ElementsAre("1", "3", "5", "6", "8", "9", "10", "14", "15", "17"));
}

TEST_F(DemoSamples, UncertainTwinsStandBesideTheCertainTaxon) {
    EXPECT_THAT(
        db.Rows("SELECT ID_TR, Gattung, Art FROM" + Findings +
                "JOIN awaArt USING (ID_ART) GROUP BY ID_PS, ID_ART HAVING Count(*) = 2 ORDER BY 1, 2"),
        ElementsAre(ElementsAre("3", "Gomphonema", "pumilum"), ElementsAre("3", "Phormidium", "retzii"),
                    ElementsAre("16", "Nitzschia", "capitellata")));
}

TEST_F(DemoSamples, SameTaxonStandsAtTwoSamplingSitesOfASubHabitat) {
    EXPECT_THAT(
        db.Rows("SELECT ID_TR, Gattung, Art FROM" + Findings +
                "JOIN awaArt USING (ID_ART) WHERE DG_MA > 0 GROUP BY ID_TR, ID_ART, CF HAVING Count(*) > 1"),
        ElementsAre(ElementsAre("5", "Cladophora", "glomerata")));
}

TEST_F(DemoSamples, SewageGrowthMakesAssessmentCoversDiffer) {
    EXPECT_THAT(db.Column("SELECT ID_TR FROM awaTeilraum WHERE DG_Gesamt <> DG_Gesamt_WRRL ORDER BY ID_TR"),
                ElementsAre("8", "9", "10", "17"));
    // 8: Sphaerotilus 25, Leptomitus 5, Stigeoclonium 10, Cladophora 5 = 45, stands 14 and 6 = 65;
    // without bacteria and fungi 15, without the stand of bacteria 14 = 29.
    EXPECT_THAT(db.Rows("SELECT DG_MA + 0, DG_Gesamt + 0, DG_MA_WRRL + 0, DG_Gesamt_WRRL + 0 FROM awaTeilraum"
                        " WHERE ID_TR = 8 AND DG_MA = 45 AND DG_Gesamt = 65 AND DG_MA_WRRL = 15"
                        " AND DG_Gesamt_WRRL = 29")
                    .size(),
                1U);
}

TEST_F(DemoSamples, ThicknessIsThereForTheQuantityIndex) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaArtPrStelle WHERE DG_MA > 0 AND NOT SD_MA > 0"), 0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaTeilraum_MI WHERE NOT SD_MI > 0"), 0);
}

TEST_F(DemoSamples, PlanktonIsOutsideTheLifeFormOfTheAssessment) {
    EXPECT_THAT(db.Column("SELECT DISTINCT ID_TR FROM" + Findings + "WHERE Lebensform <> 1 ORDER BY ID_TR"),
                ElementsAre("15", "17"));
}

TEST_F(DemoSamples, SelectionsListMembersThatExist) {
    const std::string members =
        "SELECT Count(*) FROM RechenProjektListe JOIN RechenProjekt USING (ID_RechMan)";
    EXPECT_EQ(db.Number(members + " WHERE RechManEbene NOT IN ('Projekt', 'UnvU-Stelle', 'Teilraum')"), 0);
    EXPECT_EQ(db.Number(members + " JOIN Projekt ON ID_PRJ = ID_Ebene WHERE RechManEbene = 'Projekt'"), 2);
    EXPECT_EQ(db.Number(members + " JOIN UnvUStelle ON ID_UUS = ID_Ebene WHERE RechManEbene = 'UnvU-Stelle'"),
              3);
    EXPECT_EQ(db.Number(members + " JOIN Teilraum ON ID_TR = ID_Ebene WHERE RechManEbene = 'Teilraum'"), 4);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM RechenProjektListe"), 2 + 3 + 4);
}

}  // namespace
}  // namespace FX_Algen::demo_test
