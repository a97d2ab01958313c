#pragma once

#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "app/DatabaseFixture.h"

namespace FX_Algen::cli {

/// A small project in a folder of its own, and calls of the command line on it.
///
/// Project 1 "Flüsse": station 1 with the visit 2026-05-12 and its sub-habitats 11 (macroalga, mixed stand
/// and valves), 12 (no algae sample) and 13 (valves alone); project 2 "Bäche": station 2 with sub-habitat 21
/// (a macroalga without weight).
class ProjektFixture : public DatabaseFixture {
protected:
    void SetUp() override {
        DatabaseFixture::SetUp();
        FillTree();
        FillTaxa();
        FillFindings();
    }

    std::vector<std::int32_t> Calculated() {
        std::vector<std::int32_t> ids;
        const auto rows = database_->OpenRecordset("SELECT ID FROM awaErgProjekt ORDER BY ID;");
        for (; !rows->Eof(); rows->MoveNext()) ids.push_back((*rows)["ID"].I4());
        return ids;
    }

private:
    void FillTree() {
        Execute({
            "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Flüsse');",
            "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (2, 'Bäche');",
            "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (1, 1, 'Oberlauf', 1);",
            "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (2, 2, 'Quellen', 1);",
            "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (1, 1, 'Brücke', 1);",
            "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (2, 2, 'Wehr', 1);",
            "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #05/12/2026#);",
            "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (2, 2, #06/01/2026#);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (11, 1, 'Strom', 1);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (12, 1, 'Ufer', 2);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (13, 1, 'Stein, groß', 3);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (21, 2, 'Kies', 1);",
        });
    }

    /// 1 a macroalga, 2 a diatom, 3 a taxon of mixed stands, 4 a macroalga without indicator weight.
    void FillTaxa() {
        Execute({
            "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (1, 0, 'Cladophora', 'glomerata');",
            "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (2, 0, 'Achnanthidium', "
            "'minutissimum');",
            "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (3, 0, 'Oscillatoria', 'limosa');",
            "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (4, 0, 'Vaucheria', 'sp.');",
            "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, "
            "Lebensform) "
            "VALUES (1, 2, 2, 2.5, 1, 'Makroalge', 1);",
            "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, "
            "Lebensform) "
            "VALUES (2, 1.5, 3, 1.2, 2, Null, 1);",
            "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Algenart, Lebensform) "
            "VALUES (3, 3, 1, 'Mikroalge', 1);",
            "INSERT INTO awaModulStandard (ID_ART, Algenart, Lebensform) VALUES (4, 'Makroalge', 1);",
        });
    }

    void FillFindings() {
        Execute({
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) "
            "VALUES (11, 50, 40, 80, 40);",
            "INSERT INTO awaTeilraum (ID_TR) VALUES (13);",
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (21, 20, 20);",
            "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL, SD_MI) "
            "VALUES (1, 11, 'Belag', 10, 10, 1);",
            "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 3, 0, 100);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (1, 11);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (3, 13);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (4, 21);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (1, 1, 0, 40, 3);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 2, 0, 100);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (3, 2, 0, 400);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (4, 4, 0, 20);",
        });
    }
};

}  // namespace FX_Algen::cli
