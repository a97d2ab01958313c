// The operations of `AL_PS` that assess and check.
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

/// Project 3 with sub-habitat 17: four green algae of 10 percent cover each, 25 percent of the total in the
/// assessment (40), all with saprobic and trophic value 2 and weight 1; no diatoms.
class BewertungOperationen : public testing::Test {
protected:
    BewertungOperationen()
        : anzeige(std::make_shared<store::RecordingMessages>()), vorher_(SetDisplay(anzeige)) {
        for (const char* anweisung :
             {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (3, 'Mürz');",
              "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (3, 3);",
              "INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (3, 3);",
              "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (3, 3);",
              "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 3, 'Blöcke');",
              "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) "
              "VALUES (17, 50, 40, 40, 40);",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (5, 17);",
              "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (129, 129);",
              "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (129, 129);",
              "INSERT INTO awaWRRL_TGZK (ID_AL_Bioregion, Hoehenstufe, TGZK) VALUES (4, 2, 'mäßig');",
              "INSERT INTO awaWRRL_SGZK (ID_AL_Bioregion, Hoehenstufe, Gueteklasse) VALUES (4, 2, 1);",
              "INSERT INTO awaWRRL_RBioregionstyp (ID_AL_Bioregion, Hoehenstufe, Bioregionstyp) "
              "VALUES (4, 2, 'Kalk-Ö');"})
            db.Handle->Execute(anweisung);
        for (const char* art : {"1", "2", "3", "4"}) {
            const std::string id(art);
            db.Handle->Execute("INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art, IstArtniveau) VALUES (" +
                               id + ", 129, 'Ulothrix', 'grün', True);");
            db.Handle->Execute(
                "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, "
                "Lebensform) VALUES (" +
                id + ", 2, 1, 2, 1, 'benthisch', 1);");
            db.Handle->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (5, " + id +
                               ", False, 10);");
        }
        db.Handle->Execute("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion) VALUES (1, 4);");
        db.Handle->Execute("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion) VALUES (2, 5);");
        for (const char* gruppe : {"Alle", "KA"}) {
            const std::string g(gruppe);
            db.Handle->Execute("INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('" + g +
                               "', 'mäßig', 1);");
            db.Handle->Execute("INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('" +
                               g + "', 1, 1.5);");
            db.Handle->Execute(
                "INSERT INTO awaWRRL_ERI (Taxagruppe, Bioregionstyp, ErwarteterWert) VALUES ('" + g +
                "', 'Kalk-Ö', 0.5);");
        }
        ps.CurrentDB(db.Handle);
        ps.AktUebersicht("Projekt");
        ps.ProjektID(3);
        ps.TeilraumID(17);
        ps.IstWRRLBerechnung(true);
        ps.BioregionID(4);
        ps.Hoehenstufe(2);
        ps.RefBioregion("awaRefArt_TypB.ID_AL_Bioregion=4");
    }
    ~BewertungOperationen() override { SetDisplay(vorher_); }

    Value Wert(const std::string& spalte, const char* KAOnly = "0") {
        return db.One("SELECT " + spalte + " FROM awaErgWRRL WHERE ID=17 AND KAOnly=" + KAOnly + ";");
    }
    std::vector<std::vector<Value>> Zeilen(const std::string& tabelle) {
        std::vector<std::vector<Value>> zeilen;
        const auto result = db.Handle->OpenRecordset("SELECT * FROM " + tabelle + ";");
        for (; !result->Eof(); result->MoveNext()) {
            zeilen.emplace_back();
            for (std::size_t i = 0; i < result->Fields().size(); ++i) zeilen.back().push_back((*result)[i]);
        }
        return zeilen;
    }

    test::TestDatabase db;
    std::shared_ptr<store::RecordingMessages> anzeige;
    AL_PS ps;

private:
    std::shared_ptr<store::Messages> vorher_;
};

TEST_F(BewertungOperationen, InitEmptiesBothTablesAndSetsTheHeading) {
    db.Handle->Execute("INSERT INTO awaErgProjekt (ID) VALUES (1);");
    db.Handle->Execute("INSERT INTO awaErgWRRL (ID) VALUES (1);");
    ps.Berechnung_WRRLInit();
    EXPECT_TRUE(Zeilen("awaErgProjekt").empty());
    EXPECT_TRUE(Zeilen("awaErgWRRL").empty());
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algen-Berechnung der Indizes") << "German without a language";
    ps.SprachID(20000);
    ps.Berechnung_WRRLInit();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algae - calculation of the indices");
}

TEST_F(BewertungOperationen, AssessmentTakesTheContextOfTheHost) {
    ps.Berechnung_WRRLInit();
    ps.Berechnung_WRRL();
    EXPECT_TRUE(db.One("SELECT IstWRRL FROM awaErgProjekt;").Bool());
    EXPECT_EQ(Wert("SQL_RefBioregion"), Value("awaRefArt_TypB.ID_AL_Bioregion=4"));
    EXPECT_EQ(Wert("Taxagruppe"), Value("Alle"));
    EXPECT_EQ(Wert("AbundanzArtniveauNKA"), Value(100.0F));  // 4 * 10 / 40 * 100
    EXPECT_EQ(Wert("TaxazahlRefart"), Value(1.0));
    EXPECT_EQ(Wert("TGZK"), Value("mäßig"));
    EXPECT_EQ(Wert("SGZK").I4(), 1);
    EXPECT_EQ(Wert("Bioregionstyp"), Value("Kalk-Ö"));
    // (4 - 2) / (4 - 1) and (4 - 2) / (4 - 1.5)
    EXPECT_EQ(Wert("TI_EQR"), Value(0.67F));
    EXPECT_EQ(Wert("SI_EQR"), Value(0.8F));
    // 25 / 200 and 1 / 4: mean 0.1875, / 0.5
    EXPECT_EQ(Wert("RI_EQR"), Value(0.38F));
    EXPECT_EQ(Wert("OEZK_Klasse"), Value("n.v.")) << "no bounds";

    ps.KAOnly(true);
    ps.Berechnung_WRRL();
    EXPECT_EQ(Wert("Taxagruppe", "-1"), Value("KA"));
    EXPECT_EQ(db.One("SELECT Count(*) AS N FROM awaErgProjekt;").I4(), 2);
    EXPECT_TRUE(ps.CheckIstKA(0).Bool());
}

TEST_F(BewertungOperationen, IstWGEV07AndValenzGewichtPlayNoPart) {
    ps.Berechnung_WRRL();
    const auto wrrl = Zeilen("awaErgWRRL");
    const auto projekt = Zeilen("awaErgProjekt");
    ps.IstWGEV07(true);
    ps.ValenzGewicht(true);
    ps.SilentModus(true);
    ps.TaxaAuswahl("AND this is not read");
    ps.Berechnung_WRRLInit();
    ps.Berechnung_WRRL();
    EXPECT_EQ(Zeilen("awaErgWRRL"), wrrl);
    EXPECT_EQ(Zeilen("awaErgProjekt"), projekt);
}

TEST_F(BewertungOperationen, ASecondRunWithoutInitFailsByTheKey) {
    ps.Berechnung_WRRL();
    try {
        ps.Berechnung_WRRL();
        FAIL() << "the rows are there already";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DuplicateKey);
        EXPECT_THAT(error.Description(), StartsWith("Berechnung_WRRL: "));
        EXPECT_THAT(error.Statement(), StartsWith("INSERT INTO awaErgProjekt"));
    }
}

TEST_F(BewertungOperationen, AFailureTellsOperationRoutineAndSubHabitat) {
    db.Handle->Execute("UPDATE awaWRRL_ETI SET ErwarteterWert=4;");
    try {
        ps.Berechnung_WRRL();
        FAIL() << "4 is expected";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DivisionByZero);
        EXPECT_THAT(error.Description(), AllOf(StartsWith("Berechnung_WRRL: AuswertungWRRL_TI: "),
                                               HasSubstr("sub-habitat 17 (Blöcke)")));
    }
    EXPECT_EQ(Wert("RI_EQR"), Value(0.38F)) << "what was written stays";
}

TEST_F(BewertungOperationen, DebugModeShowsBoxesWhateverTheSilentModeSays) {
    ps.SilentModus(true);
    ps.Berechnung_WRRL();
    EXPECT_TRUE(anzeige->TakeShown().empty());
    ps.Berechnung_WRRLInit();
    ps.DebugModus(true);
    ps.Berechnung_WRRL();
    const auto boxen = anzeige->TakeShown();
    ASSERT_FALSE(boxen.empty());
    EXPECT_EQ(boxen.front().Text, "mbolWRRL: -1");
    EXPECT_EQ(boxen.back().Text, "AuswertungWRRL_Gesamtbewertung: -1");
}

TEST_F(BewertungOperationen, CheckLeavesItsVerdictAndWritesNoResult) {
    ps.Berechnung_WRRLArtenlisteTLR();
    ps.Pruefung_WRRL();
    EXPECT_TRUE(ps.ExportIsOK());
    EXPECT_TRUE(Zeilen("awaErgWRRL").empty());

    ps.Hoehenstufe(3);
    ps.Pruefung_WRRL();
    EXPECT_FALSE(ps.ExportIsOK()) << "no reference class there";
    ps.Hoehenstufe(2);
    ps.Pruefung_WRRL();
    EXPECT_TRUE(ps.ExportIsOK());

    db.Handle->Execute("DELETE * FROM awaWRRL_ERI WHERE Taxagruppe='Alle';");
    ps.KAOnly(true);  // not read here
    ps.Pruefung_WRRL();
    EXPECT_FALSE(ps.ExportIsOK());
}

TEST_F(BewertungOperationen, CheckAnswersFalseWhereItFails) {
    ps.Berechnung_WRRLArtenlisteTLR();
    ps.Pruefung_WRRL();
    ASSERT_TRUE(ps.ExportIsOK());
    ps.CurrentDB(nullptr);
    EXPECT_NO_THROW(ps.Pruefung_WRRL());
    EXPECT_FALSE(ps.ExportIsOK());
}

}  // namespace
}  // namespace FX_Algen
