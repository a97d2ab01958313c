#include "wrrl/Projektdatenbank.h"

#include <gmock/gmock.h>

namespace FX_Algen {
namespace {

using testing::ElementsAre;

// The helper's rows meet each other in the joins that the assessment makes.
TEST(Projektdatenbank, JoinsAFindingWithItsProjectAndItsMajorGroup) {
    Projektdatenbank db;
    db.Zweig(3, {2, 1, "KÖ2"});
    db.Teilraum(17, 3, {60, 40, 50, 30});
    db.Stelle(5, 17);
    db.Art(7, {.ID_GRGR = 128});
    db.Fund(5, 7, {.Schalen_KA = 40, .CF = true});
    EXPECT_THAT(
        db.Abzug("SELECT Abschnitt.ID_PRJ, UnvUStelle.RefBioregionen, awaTeilraum.DG_MA_WRRL, "
                 "awaArtPrStelle.Schalen_KA, awaArtPrStelle.CF, awaGrossGr.RF_Kieselalge, "
                 "awaModulStandard.Lebensform "
                 "FROM (((((((((Abschnitt INNER JOIN UnvUStelle ON Abschnitt.ID_AB = UnvUStelle.ID_AB) "
                 "INNER JOIN VerUStelle ON UnvUStelle.ID_UUS = VerUStelle.ID_UUS) "
                 "INNER JOIN Teilraum ON VerUStelle.ID_VUS = Teilraum.ID_VUS) "
                 "INNER JOIN awaTeilraum ON Teilraum.ID_TR = awaTeilraum.ID_TR) "
                 "INNER JOIN awaPrStelle ON Teilraum.ID_TR = awaPrStelle.ID_TR) "
                 "INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) "
                 "INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART) "
                 "INNER JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
                 "INNER JOIN (awaFamilie INNER JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR) "
                 "ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
                 "INNER JOIN awaModulStandard ON awaArt.ID_ART = awaModulStandard.ID_ART;"),
        ElementsAre("ID_PRJ=3;RefBioregionen=KÖ2;DG_MA_WRRL=30;Schalen_KA=40;CF=-1;RF_Kieselalge=1;"
                    "Lebensform=1;"));
}

}  // namespace
}  // namespace FX_Algen
