#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "app/DatabaseFixture.h"
#include "store/Connection.h"

namespace FX_Algen::cli {

/// A small project with everything that an assessment reads, in a folder of its own.
///
/// Project 1 "Flüsse", station 1 "Brücke" at the Kühlenach (bioregion 5, altitude step 3, reference species
/// of KV3), visit 2026-05-12, with the sub-habitats
///   11  four green algae with 10 percent of 40 each, valves 60 of taxon 11 and 40 of taxon 12
///   12  without algae sample
///   13  valves of taxon 11 alone
/// Project 2 "Bäche", station 2 "Wehr" without bioregion, step and reference bioregions:
///   21  one green alga
///
/// Worked out by hand. Sub-habitat 11: the cells of the list are 25 for each green alga, 60 and 40 for the
/// diatoms. At least 50 percent and 4 species besides the diatoms: group "Alle".
///   Saprobic: (100 * 2 + 100 * 1.5) / 200 = 1.75, diatoms 1.5. Trophic: (100 * 2 + 100 * 1) / 200 = 1.5,
///   diatoms 1.
///   TI_EQR = (4 - 1.5) / (4 - 1) = 0.83, SI_EQR = (4 - 1.75) / (4 - 1.25) = 0.82: class 1.
///   Reference species are 1 (type A), 2 and 11 (type B at KV3), not 3 (at step 4): abundance 25 + 25 + 60 =
///   110 of 200 = 0.55, 3 of 6 taxa = 0.5, index 0.525; RI_EQR = 0.525 / 0.7 = 0.75: class 2, also at 0.78.
///   The worst is 2, "mäßig gut"; abundance at species level 200, not below 167: not restricted.
/// From its diatoms: TI_EQR = (4 - 1) / (4 - 0.5) = 0.86, SI_EQR = (4 - 1.5) / (4 - 1.5) = 1, RI: 60 of 100 =
///   0.6 and 1 of 2 = 0.5, index 0.55, RI_EQR = 0.55 / 0.55 = 1: class 1 each.
/// Sub-habitat 13: no other algae, so group "KA"; RI 100 of 100 and 1 of 1, index 1, ratio 1.82 capped to 1.
class BewertungFixture : public DatabaseFixture {
protected:
    void SetUp() override {
        DatabaseFixture::SetUp();
        // Rows are filled in together: a statement each would wait for the disk each time.
        store::Savepoint together(database_->SharedConnection());
        FillTree();
        FillTaxa();
        FillFindings();
        FillReferences();
        together.Keep();
    }

    /// "11 Alle 2", "11 KA 1 [KA]": the assessments in the table.
    std::vector<std::string> Assessments() {
        std::vector<std::string> found;
        const auto rows = database_->OpenRecordset("SELECT * FROM awaErgWRRL ORDER BY ID, KAOnly;");
        for (; !rows->Eof(); rows->MoveNext()) {
            const auto text = [&](const char* field) {
                return (*rows)[field].IsNull() ? std::string("Null") : (*rows)[field].Text();
            };
            found.push_back(text("ID") + " " + text("Taxagruppe") + " " + text("OEZK") +
                            ((*rows)["KAOnly"].Bool() ? " [KA]" : ""));
        }
        return found;
    }

    nlohmann::json Json(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments{"results", path_, "--format", "json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const cli::Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        return nlohmann::json::parse(outcome.Out);
    }

private:
    void FillTree() {
        Execute({
            "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Flüsse');",
            "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (2, 'Bäche');",
            "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (1, 1, 'Oberlauf', 1);",
            "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (2, 2, 'Quellen', 1);",
            "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, Gewaessername, RF, ID_AL_Bioregion, "
            "ID_AL_Hoehenstufe, RefBioregionen) VALUES (1, 1, 'Brücke', 'Kühlenach', 1, 5, 3, 'KV3');",
            "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (2, 2, 'Wehr', 1);",
            "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #05/12/2026#);",
            "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (2, 2, #06/01/2026#);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (11, 1, 'Strom', 1);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (12, 1, 'Ufer', 2);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (13, 1, 'Blöcke', 3);",
            "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (21, 2, 'Kies', 1);",
        });
    }

    /// 1 to 4 green algae, 11 and 12 diatoms.
    void FillTaxa() {
        Execute({
            "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (1, 'Cladophoraceae', 130);",
            "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (2, 'Achnanthidiaceae', 128);",
            "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM, Unterfamilie) VALUES (1, 1, 'Grünes');",
            "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM, Unterfamilie) VALUES (2, 2, 'Kieseliges');",
        });
        for (const char* id : {"1", "2", "3", "4", "11", "12"}) {
            const std::string taxon = id;
            const bool diatom = taxon.size() == 2;
            database_->Execute("INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art, IstArtniveau) VALUES (" +
                               taxon + ", " + (diatom ? "2" : "1") + ", 'Gattung', 'grün" + taxon +
                               "', -1);");
            database_->Execute(
                "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, "
                "Lebensform) VALUES (" +
                taxon + (diatom ? ", 1.5, 1, 1, 1, Null, 1);" : ", 2, 1, 2, 1, 'Makroalge', 1);"));
        }
    }

    void FillFindings() {
        Execute({
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) "
            "VALUES (11, 40, 40, 40, 40);",
            "INSERT INTO awaTeilraum (ID_TR) VALUES (13);",
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) "
            "VALUES (21, 20, 20, 20, 20);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (1, 11);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (3, 13);",
            "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (4, 21);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 1, 0, 10);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 2, 0, 10);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 3, 0, 10);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 4, 0, 10);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 11, 0, 60);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 12, 0, 40);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (3, 11, 0, 100);",
            "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (4, 1, 0, 20);",
        });
    }

    void FillReferences() {
        Execute({
            "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Bezeichnung, Kurzzeichen) "
            "VALUES (5, 'Kalkvoralpen', 'KV');",
            "INSERT INTO AL_Hoehenstufe (ID_AL_Hoehenstufe, Hoehenstufe) VALUES (3, 3);",
            "INSERT INTO AL_Hoehenstufe (ID_AL_Hoehenstufe, Hoehenstufe) VALUES (4, 4);",
            "INSERT INTO awaRefArt_TypA (ID_Art) VALUES (1);",
            "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (2, 5, 3);",
            "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (3, 5, 4);",
            "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (11, 5, 3);",
            "INSERT INTO awaWRRL_TGZK (ID_AL_Bioregion, Hoehenstufe, TGZK) VALUES (5, 3, 'mäßig');",
            "INSERT INTO awaWRRL_SGZK (ID_AL_Bioregion, Hoehenstufe, Gueteklasse) VALUES (5, 3, 2);",
            "INSERT INTO awaWRRL_RBioregionstyp (ID_AL_Bioregion, Hoehenstufe, Bioregionstyp) "
            "VALUES (5, 3, 'Kalk');",
            "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('Alle', 'mäßig', 1);",
            "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('KA', 'mäßig', 0.5);",
            "INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('Alle', 2, 1.25);",
            "INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('KA', 2, 1.5);",
            "INSERT INTO awaWRRL_ERI (Taxagruppe, Bioregionstyp, ErwarteterWert) VALUES ('Alle', 'Kalk', "
            "0.7);",
            "INSERT INTO awaWRRL_ERI (Taxagruppe, Bioregionstyp, ErwarteterWert) VALUES ('KA', 'Kalk', "
            "0.55);",
            "INSERT INTO awaWRRL_Klasse (Klassenzahl, Bezeichnung) VALUES (1, 'sehr gut');",
            "INSERT INTO awaWRRL_Klasse (Klassenzahl, Bezeichnung) VALUES (2, 'mäßig gut');",
            "INSERT INTO awaWRRL_Klasse (Klassenzahl, Bezeichnung) VALUES (3, 'schlecht');",
        });
        struct Bounds {
            const char* From;
            const char* To;
            const char* Class;
        };
        for (const std::string group : {"Alle", "KA"}) {
            for (const auto& [from, to, oezk] :
                 {Bounds{"0.795", "1.1", "1"}, Bounds{"0.595", "0.795", "2"}, Bounds{"0", "0.595", "3"}}) {
                const std::string rest = std::string(", ") + from + ", " + to + ", " + oezk + ");";
                const std::string columns = ", EQRMin, EQRMax, OEZK) VALUES ('" + group + "', ";
                database_->Execute("INSERT INTO awaWRRL_TIOEZK (Taxagruppe, TGZK" + columns + "'mäßig'" +
                                   rest);
                database_->Execute("INSERT INTO awaWRRL_SIOEZK (Taxagruppe, Gueteklasse" + columns + "2" +
                                   rest);
                database_->Execute("INSERT INTO awaWRRL_RIOEZK (Taxagruppe, Bioregionstyp" + columns +
                                   "'Kalk'" + rest);
            }
        }
    }
};

}  // namespace FX_Algen::cli
