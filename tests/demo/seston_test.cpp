#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DemoDatabase.h"

namespace FX_Algen::demo_test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class DemoSeston : public testing::Test {
protected:
    DemoDatabase db;
};

/// Findings with taxon and sub-habitat.
const std::string Findings =
    " sesArtPrStelle JOIN sesPrStelle USING (ID_PS) JOIN sesTeilraum USING (ID_TR) JOIN sesArt USING "
    "(ID_ART) JOIN sesKlasse ON sesArt.ID_Klasse = sesKlasse.ID_KLASSE ";

/// Amount of a taxon, date by date; 0 where it was not found.
std::string AmountsOf(const std::string& genus) {
    return "SELECT coalesce(Sum(CASE WHEN Gattung = '" + genus +
           "' THEN Abundanz END), 0) FROM sesTeilraum JOIN sesPrStelle USING (ID_TR)"
           " JOIN sesArtPrStelle USING (ID_PS) JOIN sesArt USING (ID_ART) GROUP BY ID_TR ORDER BY ID_TR";
}

TEST_F(DemoSeston, IsAYearOfASlowRiver) {
    EXPECT_THAT(
        db.Rows("SELECT Count(*), Count(DISTINCT USDatumVon), Count(DISTINCT substr(USDatumVon, 1, 4)),"
                " Min(Gewaessername), Max(Gewaessername), Min(USBez)"
                " FROM sesTeilraum JOIN Teilraum USING (ID_TR) JOIN VerUStelle USING (ID_VUS)"
                " JOIN UnvUStelle USING (ID_UUS)"),
        ElementsAre(ElementsAre("12", "12", "1", "Möhrach", "Möhrach", "Größöd, oberhalb Wehr")));
    // No algae sample there: the results of the two other rivers stay their own.
    EXPECT_THAT(db.Column("SELECT ID_TR FROM sesTeilraum WHERE ID_TR IN (SELECT ID_TR FROM awaTeilraum)"),
                IsEmpty());
}

TEST_F(DemoSeston, EachFindingHasTaxonClassAndPlace) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM sesArtPrStelle"), db.Number("SELECT Count(*) FROM" + Findings));
    EXPECT_THAT(db.Column("SELECT Gattung FROM sesArt WHERE ID_ART NOT IN (SELECT ID_ART FROM sesArtPrStelle)"
                          " OR ID_ART NOT IN (SELECT ID_ART FROM sesArtAuswahl)"),
                IsEmpty());
    EXPECT_THAT(db.Column("SELECT Abundanz BETWEEN 0 AND 7 FROM sesArtPrStelle"), Each("1"));
}

TEST_F(DemoSeston, TheYearRunsFromSpringDiatomsOverSummerAlgaeToAutumnDiatoms) {
    EXPECT_THAT(db.Column(AmountsOf("Stephanodiscus")),
                ElementsAre("2", "4", "7", "7", "5", "3", "2", "1", "1", "2", "2", "2"));
    EXPECT_THAT(db.Column(AmountsOf("Aphanizomenon")),
                ElementsAre("0", "0", "0", "0", "0", "0", "1", "2", "2", "1", "0", "0"));
    const auto others = db.Column(
        "SELECT Sum(CASE WHEN Klasse <> 'Bacillariophyceae' THEN Abundanz ELSE 0"
        " END) * 100 / Sum(Abundanz) FROM" +
        Findings + "GROUP BY ID_TR ORDER BY ID_TR");
    ASSERT_EQ(others.size(), 12U);
    for (const std::size_t summer : {6U, 7U, 8U}) {
        EXPECT_GE(std::stoi(others[summer]), 15) << summer;
        EXPECT_LE(std::stoi(others[summer]), 25) << summer;
    }
    for (const std::size_t rest : {0U, 1U, 2U, 3U, 4U, 10U, 11U})
        EXPECT_LE(std::stoi(others[rest]), 5) << rest;
}

TEST_F(DemoSeston, ValencesAddUpToTenAndToTheSaprobicValue) {
    // Rated taxa: 10 points whose mean over the levels 1 to 4 is the value, at least 1. Unrated: nothing.
    EXPECT_THAT(db.Column("SELECT Gattung FROM sesArt WHERE W_SI > 0 AND (W_O + W_B + W_A + W_P <> 10"
                          " OR abs((W_O + 2 * W_B + 3 * W_A + 4 * W_P) / 10 - max(W_SI, 1)) > 1e-9)"),
                IsEmpty());
    EXPECT_THAT(db.Column("SELECT Gattung FROM sesArt WHERE W_SI = 0 AND W_O + W_B + W_A + W_P <> 0"),
                IsEmpty());
    EXPECT_THAT(db.Column("SELECT Gattung FROM sesArt WHERE W_SI IS NULL OR W_O IS NULL OR W_B IS NULL"
                          " OR W_A IS NULL OR W_P IS NULL"),
                IsEmpty());
}

TEST_F(DemoSeston, OnlyDiatomsHaveAPublishedValueAndItIsThatOfTheOtherCatalogue) {
    EXPECT_THAT(db.Column("SELECT DISTINCT Klasse FROM sesArt JOIN sesKlasse ON sesArt.ID_Klasse = "
                          "sesKlasse.ID_KLASSE WHERE W_SI > 0"),
                ElementsAre("Bacillariophyceae"));
    EXPECT_EQ(db.Number("SELECT Count(*) FROM sesArt WHERE W_SI > 0"), 21);
    EXPECT_THAT(db.Column("SELECT Gattung || ' ' || Art FROM sesArt JOIN awaArt USING (Gattung, Art)"
                          " JOIN awaModulStandard ON awaModulStandard.ID_ART = awaArt.ID_ART"
                          " WHERE W_SI <> SI"),
                IsEmpty());
}

TEST_F(DemoSeston, ShowsADeletedTaxonATwinTwoSitesAndAFindingWithoutAbundance) {
    EXPECT_THAT(db.Rows("SELECT ID_TR, Gattung, Art, Abundanz FROM" + Findings + "WHERE Loeschstatus = -1"),
                ElementsAre(ElementsAre("23", "Melosira", "granulata", "1")));
    EXPECT_THAT(
        db.Rows("SELECT ID_TR, Gattung, Art FROM" + Findings + "GROUP BY ID_PS, ID_ART HAVING Count(*) = 2"),
        ElementsAre(ElementsAre("25", "Ulnaria", "acus")));
    EXPECT_THAT(db.Column("SELECT ID_TR FROM sesPrStelle GROUP BY ID_TR HAVING Count(*) = 2"),
                ElementsAre("26"));
    EXPECT_THAT(
        db.Rows("SELECT ID_TR, Gattung, Zusatz FROM" + Findings + "WHERE Abundanz = 0"),
        ElementsAre(ElementsAre("27", "Microcystis", "Aufrahmung am Ufer, nicht in der Schöpfprobe")));
}

}  // namespace
}  // namespace FX_Algen::demo_test
