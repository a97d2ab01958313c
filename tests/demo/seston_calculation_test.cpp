#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "DemoDatabase.h"
#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::demo_test {
namespace {

/// The demo database after a seston calculation of all its sub-habitats.
class DemoSestonCalculation : public testing::Test {
protected:
    DemoSestonCalculation() {
        AL_PS ps;
        ps.CurrentDB(store::Workspace().OpenDatabase(db.Path()));
        ps.SprachID(10000);
        ps.Berechnung_InitSeston();
        for (const std::string& id : db.Column("SELECT ID_TR FROM Teilraum ORDER BY ID_TR")) {
            ps.TeilraumID(std::stoi(id));
            ps.Berechnung_ExecuteSeston();
        }
    }

    double Result(int id, const std::string& column) {
        const auto rows =
            db.Column("SELECT " + column + " FROM sesErgProjekt WHERE ID = " + std::to_string(id));
        return rows.size() == 1 && rows[0] != "NULL" ? std::stod(rows[0]) : -1;
    }

    DemoDatabase db;
};

TEST_F(DemoSestonCalculation, MakesARowForEachSubHabitatOfZerosWithoutSeston) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM sesErgProjekt"), 30);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM sesErgProjekt WHERE Taxa = 0"), 18);
    EXPECT_EQ(
        db.Number("SELECT Count(*) FROM sesErgProjekt WHERE Taxa = 0 AND SapIndex = 0 AND Oligo IS NULL"),
        18);
}

TEST_F(DemoSestonCalculation, JanuaryIsTheOneWorkedOutByHand) {
    // Abundance * value: Asterionella 2 * 1.4 = 2.8, Cocconeis 1, Cyclostephanos 2.2, Cyclotella 2.6,
    // Cymatopleura 2.3, Diatoma 2 * 2.2 = 4.4, Melosira 3 * 1.7 = 5.1, Navicula 2 * 2.5 = 5, Nitzschia
    // acicularis 2.7, N. palea 2.6, Planothidium 0.9, Rhoicosphenia 1.8, Stephanodiscus 2 * 2.7 = 5.4,
    // Ulnaria ulna 2 * 1.9 = 3.8, Cryptomonas 1 * 0; together 42.6 of 22.
    EXPECT_NEAR(Result(19, "SapIndex"), 42.6 / 22, 1e-6);
    EXPECT_EQ(Result(19, "Abundanzsumme"), 22);
    EXPECT_EQ(Result(19, "Taxa"), 15);
    EXPECT_EQ(Result(19, "Taxa_SI"), 14);
    // Oligosaprobic: Asterionella 2 * 6, Cocconeis 10, Melosira 3 * 3, Planothidium 10, Rhoicosphenia 2,
    // Ulnaria 2 * 1 = 45. Alphamesosaprobic: Cyclostephanos 2, Cyclotella 6, Cymatopleura 3, Diatoma 2 * 2,
    // Navicula 2 * 5, N. acicularis 7, N. palea 6, Stephanodiscus 2 * 7 = 52. All: 10 * (22 - 1) = 210.
    EXPECT_NEAR(Result(19, "Oligo"), 45.0 / 210 * 10, 1e-5);
    EXPECT_NEAR(Result(19, "Alpha"), 52.0 / 210 * 10, 1e-5);
    EXPECT_NEAR(Result(19, "Beta"), (210.0 - 45 - 52) / 210 * 10, 1e-5);
    EXPECT_EQ(Result(19, "Poly"), 0);
    EXPECT_NEAR(Result(19, "KumPoly"), 10, 1e-5);
    // One taxon with 3, five with 2, nine with 1 of 22.
    const double H =
        -(3 / 22.0 * std::log(3 / 22.0) + 5 * 2 / 22.0 * std::log(2 / 22.0) + 9 / 22.0 * std::log(1 / 22.0));
    EXPECT_NEAR(Result(19, "ShannonundWeaver"), H, 1e-12);
    EXPECT_NEAR(Result(19, "MArgalef"), 14 / std::log(22.0), 1e-12);
    EXPECT_NEAR(Result(19, "Eveness"), H / std::log(15.0), 1e-12);
}

TEST_F(DemoSestonCalculation, IndicesAreTheMeansWeightedByAbundance) {
    // The same means on another road: one statement of the engine over all findings of a sub-habitat.
    const auto means = db.Rows(
        "SELECT ID_TR, Sum(Abundanz * W_SI) / Sum(Abundanz), Sum(Abundanz), Count(DISTINCT ID_ART)"
        " FROM sesArtPrStelle JOIN sesPrStelle USING (ID_PS) JOIN sesArt USING (ID_ART)"
        " GROUP BY ID_TR");
    ASSERT_EQ(means.size(), 12U);
    for (const Row& row : means) {
        const int id = std::stoi(row[0]);
        EXPECT_NEAR(Result(id, "SapIndex"), std::stod(row[1]), 1e-5) << id;
        EXPECT_EQ(Result(id, "Abundanzsumme"), std::stod(row[2])) << id;
        EXPECT_EQ(Result(id, "Taxa"), std::stod(row[3])) << id;
    }
}

TEST_F(DemoSestonCalculation, UnratedAlgaeOfSummerPullTheIndexDown) {
    for (const int spring : {20, 21, 22, 23}) EXPECT_NEAR(Result(spring, "SapIndex"), 2.0, 0.05) << spring;
    EXPECT_NEAR(Result(27, "SapIndex"), 1.6, 0.05);
    // The valences rest on the rated taxa alone and hardly move.
    EXPECT_NEAR(Result(27, "Oligo"), Result(22, "Oligo"), 0.05);
}

TEST_F(DemoSestonCalculation, TermsOfTwoSamplingSitesMakeTheEvennessExceedOne) {
    EXPECT_GT(Result(26, "Eveness"), 1);
    for (const int id : {19, 20, 21, 22, 23, 24, 27, 28, 29, 30}) EXPECT_LT(Result(id, "Eveness"), 1) << id;
}

}  // namespace
}  // namespace FX_Algen::demo_test
