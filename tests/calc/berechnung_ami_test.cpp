#include <gtest/gtest.h>

#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

constexpr std::int32_t TR = 17;

class BerechnungAMI : public testing::Test {
protected:
    void SetUp() override {
        db.Teilraum(TR, {80, 50, 0, 0});
        db.Stelle(1, TR);
        db.Art(1, {});
        db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES(17, 0);");
    }
    double AMI() {
        Berechnung_AMI(db.Datenbank(), TR);
        return db.Ergebnis(TR, "AMI").R8();
    }
    Testdatenbank db;
};

TEST_F(BerechnungAMI, IsWrittenAsZeroWithoutAnyThickness) {
    db.Fund(1, 1, {50, 0, 0, false});
    db.Bestand(5, TR, 30);
    EXPECT_EQ(AMI(), 0.0);
    EXPECT_FALSE(db.Ergebnis(TR, "AMI").IsNull());
}

TEST_F(BerechnungAMI, OfCover50AndThickness3Is1Point5) {
    db.Fund(1, 1, {50, 0, 3, false});
    EXPECT_EQ(AMI(), 1.5);
}

TEST_F(BerechnungAMI, LeavesDiatomsOut) {
    db.Fund(1, 1, {0, 400, 0, false});
    EXPECT_EQ(AMI(), 0.0);
}

TEST_F(BerechnungAMI, CountsAStandAsAWholeWhateverItsTaxa) {
    db.Bestand(5, TR, 25, 2);
    EXPECT_EQ(AMI(), 0.5);  // 2 * 25 / 100
    db.Bestandsart(5, 1, 100);
    EXPECT_EQ(AMI(), 0.5);
}

TEST_F(BerechnungAMI, LeavesOutTaxaWithoutAlgenartAndWithoutRatings) {
    Werte ohne;
    ohne.Algenart = "";
    db.Art(2, ohne);
    db.Art(3, {});
    db.SetzeNull("awaModulStandard", "Algenart", "ID_ART=3");
    db.ArtOhneWerte(4);
    for (std::int32_t art = 1; art <= 4; ++art) db.Fund(1, art, {50, 0, 3, false});
    EXPECT_EQ(AMI(), 1.5);
}

TEST_F(BerechnungAMI, UsesTheClassicCoversInEitherVariant) {
    db.Bestand(5, TR, 25, 2, 75);
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), TR, true, false, false);
    EXPECT_EQ(db.Ergebnis(TR, "AMI").R8(), 0.5);
}

TEST_F(BerechnungAMI, WithoutResultRowStoresNothing) {
    Berechnung_Init(db.Datenbank());
    Berechnung_AMI(db.Datenbank(), TR);
    EXPECT_FALSE(db.HatErgebnis(TR));
}

}  // namespace
}  // namespace FX_Algen
