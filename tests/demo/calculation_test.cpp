#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DemoDatabase.h"
#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::demo_test {
namespace {

/// The demo database after a classic calculation of all its sub-habitats.
class DemoCalculation : public testing::Test {
protected:
    DemoCalculation() {
        AL_PS ps;
        ps.CurrentDB(store::Workspace().OpenDatabase(db.Path()));
        ps.SprachID(10000);
        ps.Berechnung_Init();
        for (const std::string& id : db.Column("SELECT ID_TR FROM Teilraum ORDER BY ID_TR")) {
            ps.TeilraumID(std::stoi(id));
            ps.Berechnung_Execute();
        }
    }

    double Result(int id, const std::string& column) {
        const auto rows = db.Column("SELECT " + column +
                                    " FROM awaErgProjekt WHERE KAOnly = 0 AND ID = " + std::to_string(id));
        return rows.size() == 1 && rows[0] != "NULL" ? std::stod(rows[0]) : -1;
    }

    DemoDatabase db;
};

TEST_F(DemoCalculation, MakesARowForEachSubHabitatThatWasSampled) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaErgProjekt"), 17);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaErgProjekt WHERE ID = 7"), 0);
}

TEST_F(DemoCalculation, MacroalgaeAloneGiveTheMeanWorkedOutByHand) {
    // Cover 67. Hydrurus 45, t 0.8, g 3; Ulothrix 15, 2, 1; Phormidium 5, 1.4, 3; Hildenbrandia 2, 1, 3.
    // Weights 135 + 15 + 15 + 6 = 171, values 108 + 30 + 21 + 6 = 165, both / 67 * 100.
    EXPECT_NEAR(Result(2, "TI"), 165.0 / 171.0, 1e-5);
    // 8 * 0.45 + 4 * 0.15 + 1 * 0.05 + 0.1 * 0.02 = 3.6 + 0.6 + 0.05 + 0.002
    EXPECT_NEAR(Result(2, "AMI"), 4.252, 1e-5);
    EXPECT_EQ(Result(2, "TI_KA"), 0);
    EXPECT_EQ(Result(2, "TI_N"), 0);
    EXPECT_EQ(Result(2, "SapIndex"), 0);  // no saprobic values but those of diatoms
    EXPECT_EQ(Result(2, "Taxa"), 4);
    EXPECT_EQ(Result(2, "TaxaTI"), 4);
    EXPECT_EQ(Result(2, "TaxaSap"), 0);
}

TEST_F(DemoCalculation, MacroalgaeAndAStandShareOneScale) {
    // Cover 57.5. Cladophora 28, t 2.8, g 1: 28 and 78.4. Phormidium favosum 9, 1.4, 3: 27 and 37.8.
    // Rhizoclonium 5, 3.2, 3: 15 and 48. Chara 0.5, 1.4, 1: 0.5 and 0.7. Stand of 15 with 40 percent of
    // Phormidium autumnale, 1.4, 3: 6 * 3 = 18 and 25.2; the others of the stand have no value.
    // Weights 88.5, values 190.1, both / 57.5 * 100.
    EXPECT_NEAR(Result(18, "TI"), 190.1 / 88.5, 1e-5);
    // 18 * 0.28 + 2 * 0.09 + 12 * 0.05 + 40 * 0.005 + 0.6 * 0.15 = 5.04 + 0.18 + 0.6 + 0.2 + 0.09
    EXPECT_NEAR(Result(18, "AMI"), 6.11, 1e-5);
    EXPECT_NEAR(Result(18, "DG_Gesamt"), 57.5, 1e-5);
    EXPECT_NEAR(Result(18, "DG_Makroalgen"), 42.5, 1e-5);
}

TEST_F(DemoCalculation, BacteriaAndFungiHaveNoPartInTheQuantityIndex) {
    // Stigeoclonium 5 * 0.10 + Cladophora 12 * 0.05 + stands 1.5 * 0.14 + 2 * 0.06 = 0.5 + 0.6 + 0.21 + 0.12
    EXPECT_NEAR(Result(8, "AMI"), 1.43, 1e-5);
}

TEST_F(DemoCalculation, ASampleWithoutFindingsGivesZeros) {
    for (const std::string column : {"SapIndex", "SapIndex_KA", "TI", "TI_N", "TI_KA", "AMI", "Taxa"}) {
        EXPECT_EQ(Result(11, column), 0) << column;
    }
}

TEST_F(DemoCalculation, DiatomsAloneGiveOneIndexTwice) {
    for (const int id : {4, 12, 16}) {
        EXPECT_GT(Result(id, "SapIndex_KA"), 0) << id;
        EXPECT_EQ(Result(id, "SapIndex"), Result(id, "SapIndex_KA")) << id;
        EXPECT_EQ(Result(id, "TI"), Result(id, "TI_KA")) << id;
    }
}

TEST_F(DemoCalculation, DiatomIndicesAreTheMeansWeightedByValves) {
    // The same means on another road: one statement of the engine over all findings of a sub-habitat.
    const auto means = db.Rows(
        "SELECT ID_TR, Sum(1.0 * Schalen_KA * Sap_GBer * SI) / Sum(Schalen_KA * Sap_GBer),"
        " Sum(1.0 * Schalen_KA * Trophiegewicht * Trophiewert) / Sum(Schalen_KA * Trophiegewicht)"
        " FROM awaArtPrStelle JOIN awaPrStelle USING (ID_PS) JOIN awaModulStandard USING (ID_ART)"
        " WHERE Schalen_KA > 0 GROUP BY ID_TR");
    ASSERT_EQ(means.size(), 13U);
    for (const Row& row : means) {
        EXPECT_NEAR(Result(std::stoi(row[0]), "SapIndex_KA"), std::stod(row[1]), 1e-5) << row[0];
        EXPECT_NEAR(Result(std::stoi(row[0]), "TI_KA"), std::stod(row[2]), 1e-5) << row[0];
    }
}

TEST_F(DemoCalculation, IndicesRiseFromTheCleanToThePollutedSites) {
    // Springs of both rivers, above the treatment plant, below it a year apart.
    for (const std::string column : {"SapIndex", "TI", "TI_N"}) {
        EXPECT_LT(Result(1, column), Result(6, column)) << column;
        EXPECT_LT(Result(10, column), Result(6, column)) << column;
        EXPECT_LT(Result(6, column), Result(9, column)) << column;
        EXPECT_LT(Result(9, column), Result(8, column)) << column;
    }
    EXPECT_LT(Result(10, "SapIndex"), 1.4);  // class I
    EXPECT_GT(Result(8, "SapIndex"), 2.5);
}

}  // namespace
}  // namespace FX_Algen::demo_test
