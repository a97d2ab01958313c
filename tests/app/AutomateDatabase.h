#pragma once

#include <gtest/gtest.h>

#include "host/TestDatabase.h"

namespace FX_Algen::cli {

/// A database for conversations with the bridge.
class AutomateDatabase : public testing::Test {
protected:
    /// One taxon in one sub-habitat: macroalga, cover 40 of 50 percent, layer 2 mm, SI 2, weight 1.
    void AddSample() {
        db.Handle->Execute("INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (900001, 131);");
        db.Handle->Execute("INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (900001, 900001);");
        db.Handle->Execute(
            "INSERT INTO awaArt (ID_ART, Gattung, Art, ID_UFAM) VALUES (900001, 'Ulothrix', 'größer', "
            "900001);");
        db.Handle->Execute(
            "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Algenart, Lebensform, Trophiewert, "
            "Trophiegewicht, "
            "Trophiewert_N, Trophiegewicht_N) VALUES (900001, 2, 1, 'Makroalge', 1, 2, 1, 2, 1);");
        db.Handle->Execute("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (17, 50, 40);");
        db.Handle->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Ufer');");
        db.Handle->Execute(
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (1, 900001, False, 40, 2);");
    }

    test::TestDatabase db;
};

}  // namespace FX_Algen::cli
