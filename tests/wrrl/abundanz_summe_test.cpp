#include <gmock/gmock.h>

#include "calc/Berechnung.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Modulprobe.h"

namespace FX_Algen {
namespace {

class AbundanzSumme : public Modulprobe {
protected:
    double Summe(std::int16_t modus, std::string_view kriterium = {}) {
        return Abundanz_Summe(db.Datenbank(), TR, modus, kriterium);
    }
};

TEST_F(AbundanzSumme, AddsTheColumnOfTheSubHabitatByMode) {
    EXPECT_EQ(Summe(1), 185);  // 60 + 20 + 10 + 5 + 70 + 20
    EXPECT_EQ(Summe(2), 100);  // A: 60; B: 20 + 20
    EXPECT_EQ(Summe(3), 200);
    EXPECT_EQ(Summe(4), 95);  // 60 + 20 + 10 + 5
    EXPECT_EQ(Summe(5), 90);  // 70 + 20
    EXPECT_EQ(Summe(6), 20);  // taxon 7
    EXPECT_EQ(Summe(7), 100);
}

TEST_F(AbundanzSumme, OfAnyOtherModeIsZero) {
    for (const std::int16_t modus : {-1, 0, 8, 11}) EXPECT_EQ(Summe(modus), 0) << modus;
}

TEST_F(AbundanzSumme, ConditionNarrowsReferenceSpeciesOfTypeBAlone) {
    EXPECT_EQ(Summe(2, NurBioregion3), 80);  // A: 60; B: 20 of taxon 7, listed for two altitude steps
    EXPECT_EQ(Summe(6, NurBioregion3), 20);
    EXPECT_EQ(Summe(6, "awaRefArt_TypB.ID_AL_Bioregion=4"), 0);
    EXPECT_EQ(Summe(2, "awaRefArt_TypB.ID_AL_Bioregion=5"), 60);
    EXPECT_EQ(Summe(1, NurBioregion3), 185);
}

TEST_F(AbundanzSumme, OfATaxonInBothTablesIsAddedTwice) {
    db.RefArtTypA(7);
    EXPECT_EQ(Summe(2), 120);  // A: 60 + 20; B: 20 + 20
    EXPECT_EQ(Summe(6), 40);
}

TEST_F(AbundanzSumme, OfATaxonWithAndWithoutCFFollowsTheStatements) {
    Eintrag(1, 60, false, true);
    EXPECT_EQ(Summe(2), 160) << "type A is not distinct: 60 + 60, B: 20 + 20";
    Eintrag(7, 20, true, true);
    EXPECT_EQ(Summe(6), 20) << "type B is distinct over taxon and value";
    db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A17=3 WHERE ID_Art=7 AND CF=True;");
    EXPECT_EQ(Summe(6), 23) << "another value is another row";
    // The counts are distinct over the taxon alone.
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 10, true), 1);
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 6, true), 4);  // A: 1 twice; B: 2 and 7
}

TEST_F(AbundanzSumme, CountsMajorGroup132AndNothingAbove) {
    for (const std::int32_t gruppe : {132, 133}) {
        Taxon taxon;
        taxon.ID_GRGR = gruppe;
        db.Art(gruppe, taxon);
        Eintrag(gruppe, 4);
    }
    EXPECT_EQ(Summe(1), 189);
    EXPECT_EQ(Summe(3), 204);
    EXPECT_EQ(Summe(4), 99);
}

TEST_F(AbundanzSumme, ReferenceSpeciesNeedNoSpeciesLevelAndNoGroup) {
    db.RefArtTypA(8);
    EXPECT_EQ(Summe(6), 30);  // A: 10 of the genus; B: 20
}

TEST_F(AbundanzSumme, DiatomsAreThoseOfTheMajorGroupButReferenceSpeciesThoseThatTheListMarks) {
    db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET IstKA=True WHERE ID_Art=1;");
    EXPECT_EQ(Summe(4), 95);
    EXPECT_EQ(Summe(5), 90);
    EXPECT_EQ(Summe(6), 80);  // A: 60 of taxon 1; B: 20 of taxon 7
    EXPECT_EQ(Summe(7), 100);
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 8, true), 4);
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 9, true), 2);
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 10, true), 2);
}

TEST_F(AbundanzSumme, OverNoRowsIsZero) {
    db.Ausfuehren("DELETE * FROM awaArtenlisteHaeufigkeit;");
    for (const std::int16_t modus : {1, 2, 3, 4, 5, 6, 7}) EXPECT_EQ(Summe(modus), 0) << modus;
}

TEST_F(AbundanzSumme, LeavesEmptyCellsOut) {
    db.Setze("awaArtenlisteHaeufigkeit", "A17", "ID_Art=1");
    EXPECT_EQ(Summe(1), 125);
    EXPECT_EQ(Summe(2), 40);
}

TEST_F(AbundanzSumme, WithoutColumnOfTheSubHabitatIsZero) {
    for (const std::int16_t modus : {1, 2, 3, 4, 5, 6, 7})
        EXPECT_EQ(Abundanz_Summe(db.Datenbank(), 18, modus), 0) << modus;
}

TEST_F(AbundanzSumme, WithAConditionThatTheStoreRejectsIsZero) {
    EXPECT_EQ(Summe(2, "awaRefArt_TypB.Fluß=3"), 0);
    EXPECT_EQ(Summe(6, "((("), 0);
}

TEST(AbundanzSummeOhneDatenbank, IsZero) { EXPECT_EQ(Abundanz_Summe(nullptr, 17, 1), 0); }

}  // namespace
}  // namespace FX_Algen
