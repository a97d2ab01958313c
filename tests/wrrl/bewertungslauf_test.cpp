#include <gmock/gmock.h>

#include <algorithm>

#include "calc/Berechnung.h"
#include "calc/Spur.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Bewertungsfixture.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Sub-habitat 17 of project 1, total cover 50 percent, with
///
///   taxon            found as                 percent  SI (weight)  trophic value (weight)
///   1  type A        macroalga 20 %             40      1.5 (2)      1.0 (2)
///   2                macroalga 10 %             20      2.0 (1)      2.0 (1)
///   3                macroalga 10 %             20      2.5 (2)      2.5 (1)
///   4                all of a stand of 10 %     20      2.0 (1)      1.5 (2)
///   5  type A        120 of 200 valves          60      1.5 (2)      1.5 (1)
///   6  type B        60 valves                  30      2.0 (1)      1.0 (2)
///   7  genus         20 valves                  10      0 (0)        0 (0)
///
/// and reference tables whose classes reach to 1.1.
class Bewertungslauf : public testing::Test {
protected:
    static constexpr std::int32_t TR = 17;

    Bewertungslauf() {
        db.Zweig(1);
        db.Teilraum(TR, 1, {60, 45, 50, 40});
        db.Stelle(1, TR);
        Art(1, 130, 1.5, 2, 1, 2);
        Art(2, 130, 2, 1, 2, 1);
        Art(3, 130, 2.5, 2, 2.5, 1);
        Art(4, 129, 2, 1, 1.5, 2);
        Art(5, 128, 1.5, 2, 1.5, 1);
        Art(6, 128, 2, 1, 1, 2);
        Art(7, 128, 0, 0, 0, 0, false);
        db.Fund(1, 1, {20});
        db.Fund(1, 2, {10});
        db.Fund(1, 3, {10});
        db.Fund(1, 4, {0});
        db.Bestand(1, TR, 12, 10);
        db.Bestandsart(1, 4, 100);
        db.Fund(1, 5, {0, 120});
        db.Fund(1, 6, {0, 60});
        db.Fund(1, 7, {0, 20});
        db.RefArtTypA(1);
        db.RefArtTypA(5);
        db.RefArtTypB(6, 3, 1);
        db.RefArtTypB(2, 4, 1);

        db.TGZK(3, 2, "om");
        db.SGZK(3, 2, 2);
        db.Bioregionstyp(3, 2, "Kalk-Ö");
        Gruppe("Alle", 1.2, 1.4, 0.8);
        Gruppe("KA", 1, 1.3, 0.9);
        db.Klasse(1, "sehr gut");
        db.Klasse(2, "gut");
        db.Klasse(3, "mäßig");
    }

    void Art(std::int32_t id, std::int32_t grossgruppe, double si, double siGewicht, double ti,
             double tiGewicht, bool artniveau = true) {
        Taxon taxon;
        taxon.ID_GRGR = grossgruppe;
        taxon.IstArtniveau = artniveau;
        taxon.SI = si;
        taxon.Sap_GBer = siGewicht;
        taxon.Trophiewert = ti;
        taxon.Trophiegewicht = tiGewicht;
        db.Art(id, taxon);
    }
    void Gruppe(const std::string& taxagruppe, double eti, double esi, double eri) {
        db.ETI(taxagruppe, "om", eti);
        db.ESI(taxagruppe, 2, esi);
        db.ERI(taxagruppe, "Kalk-Ö", eri);
        const struct {
            double Von;
            double Bis;
            std::int16_t Klasse;
        } grenzen[] = {{0.85, 1.1, 1}, {0.75, 0.85, 2}, {0.55, 0.75, 3}, {0.3, 0.55, 4}, {0, 0.3, 5}};
        for (const auto& g : grenzen) {
            db.TIOEZK(taxagruppe, "om", g.Von, g.Bis, g.Klasse);
            db.SIOEZK(taxagruppe, 2, g.Von, g.Bis, g.Klasse);
            db.RIOEZK(taxagruppe, "Kalk-Ö", g.Von, g.Bis, g.Klasse);
        }
    }

    Bewertungsauftrag Auftrag(bool KAOnly = false) {
        Bewertungsauftrag auftrag;
        auftrag.Liste.Datenbank = db.Datenbank();
        auftrag.Liste.AktUebersicht = "Projekt";
        auftrag.Liste.ProjektID = 1;
        auftrag.Liste.TeilraumID = TR;
        auftrag.Liste.IstWRRLBerechnung = true;
        auftrag.KAOnly = KAOnly;
        auftrag.BioregionID = 3;
        auftrag.Hoehenstufe = 2;
        auftrag.RefBioregion = "(awaRefArt_TypB.ID_AL_Bioregion=3)";
        return auftrag;
    }
    std::string Laufen(const Bewertungsauftrag& auftrag) {
        Berechnung_WRRL(auftrag, gruppe, &spur, nullptr);
        return gruppe;
    }
    Value Wert(const std::string& spalte, bool KAOnly = false, const std::string& tabelle = "awaErgWRRL") {
        return db.Eins("SELECT " + spalte + " FROM " + tabelle +
                       " WHERE ID=17 AND KAOnly=" + (KAOnly ? "-1" : "0") + ";");
    }
    /// All but taxon 5 to 7 below 50 percent: the assessment falls back to the diatoms.
    void NurKieselalgen() { db.Ausfuehren("UPDATE awaArtPrStelle SET DG_MA=0;"); }

    Projektdatenbank db;
    std::string gruppe = "vorher";
    AssessmentTrace spur;
};

TEST_F(Bewertungslauf, OverAllGroupsFillsBothRows) {
    EXPECT_EQ(Laufen(Auftrag()), "Alle");
    // Weights: 80 + 20 + 40 + 20 + 120 + 30 = 310; with SI 120 + 40 + 100 + 40 + 180 + 60 = 540.
    EXPECT_NEAR(Wert("SapIndex", false, "awaErgProjekt").R8(), 540.0 / 310, 1e-6);
    // Weights: 80 + 20 + 20 + 40 + 60 + 60 = 280; with values 80 + 40 + 50 + 60 + 90 + 60 = 380.
    EXPECT_NEAR(Wert("TI", false, "awaErgProjekt").R8(), 380.0 / 280, 1e-6);
    EXPECT_EQ(Wert("IstWRRL", false, "awaErgProjekt"), Value(true));
    EXPECT_TRUE(Wert("AMI", false, "awaErgProjekt").IsNull()) << "the quantity index is not part of it";

    EXPECT_EQ(Wert("SQL_RefBioregion"), Value("(awaRefArt_TypB.ID_AL_Bioregion=3)"));
    EXPECT_EQ(Wert("AbundanzArtniveauNKA"), Value(100.0F));
    EXPECT_EQ(Wert("TaxazahlArtniveauNKA"), Value(4));
    EXPECT_EQ(Wert("AbundanzArtniveau"), Value(190.0));  // 100 + 60 + 30
    EXPECT_EQ(Wert("BedingtBewertbar"), Value(false));
    // 130 / (200 - (200 - 190)) and 3 / 6: mean 0.592105, / 0.8 = 0.740132
    EXPECT_EQ(Wert("RI_EQR"), Value(0.74F));
    // (4 - 1.357143) / 2.8 = 0.943878
    EXPECT_EQ(Wert("TI_EQR"), Value(0.94F));
    // (4 - 1.741935) / 2.6 = 0.868486
    EXPECT_EQ(Wert("SI_EQR"), Value(0.87F));
    EXPECT_EQ(Wert("TI_OEZK_Klasse"), Value("sehr gut"));
    EXPECT_EQ(Wert("SI_OEZK_Klasse"), Value("sehr gut"));
    EXPECT_EQ(Wert("RI_OEZK_Klasse"), Value("mäßig"));
    // 0.77 would be class 2, and the reference species are the worst alone.
    EXPECT_EQ(Wert("OEZK").I4(), 2);
    EXPECT_EQ(Wert("OEZK_Klasse"), Value("gut"));
}

TEST_F(Bewertungslauf, OfTheDiatomsAloneAddsASecondPairOfRows) {
    Laufen(Auftrag());
    const auto erste = db.Abzug("SELECT * FROM awaErgWRRL WHERE KAOnly=0;");
    EXPECT_EQ(Laufen(Auftrag(true)), "KA");
    EXPECT_EQ(db.Abzug("SELECT * FROM awaErgWRRL WHERE KAOnly=0;"), erste);
    // 240 / 150 and 150 / 120
    EXPECT_NEAR(Wert("SapIndex", true, "awaErgProjekt").R8(), 1.6, 1e-6);
    EXPECT_NEAR(Wert("TI", true, "awaErgProjekt").R8(), 1.25, 1e-6);
    EXPECT_EQ(Wert("Taxagruppe", true), Value("KA"));
    // 2.75 / 3 = 0.916667; 2.4 / 2.7 = 0.888889; (90 / 90 + 2 / 2) / 2 / 0.9 = 1.11
    EXPECT_EQ(Wert("TI_EQR", true), Value(0.92F));
    EXPECT_EQ(Wert("SI_EQR", true), Value(0.89F));
    EXPECT_EQ(Wert("RI_EQR", true), Value(1.0F));
    EXPECT_EQ(Wert("OEZK", true).I4(), 1);
    EXPECT_EQ(db.Eins("SELECT Count(*) AS N FROM awaErgProjekt;").I4(), 2);
}

TEST_F(Bewertungslauf, OfTheDiatomsAloneAddsNothingWhereTheFirstFellBackToThem) {
    NurKieselalgen();
    EXPECT_EQ(Laufen(Auftrag()), "KA");
    const auto projekt = db.Abzug("awaErgProjekt");
    const auto wrrl = db.Abzug("awaErgWRRL");
    gruppe = "vorher";
    Gegenueber person;
    auto zweiter = Auftrag(true);
    zweiter.Liste.DebugModus = true;
    Laufen(zweiter);
    EXPECT_EQ(db.Abzug("awaErgProjekt"), projekt);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), wrrl);
    EXPECT_EQ(gruppe, "vorher") << "that of the last run";
    EXPECT_EQ(spur.Skipped, NotAssessed::DiatomsAlready);
    EXPECT_TRUE(spur.KAOnly);
    EXPECT_THAT(person.Texte(), IsEmpty());
}

TEST_F(Bewertungslauf, OfTheDiatomsAloneBeforeTheFirstLeavesThatItsOwnRow) {
    EXPECT_EQ(Laufen(Auftrag(true)), "KA");
    EXPECT_EQ(Laufen(Auftrag()), "Alle");
    EXPECT_EQ(db.Eins("SELECT Count(*) AS N FROM awaErgWRRL;").I4(), 2);
    // The indices are those over all groups although the row of the diatoms is the older one.
    EXPECT_EQ(Wert("TI_EQR"), Value(0.94F));
    EXPECT_EQ(Wert("SI_EQR"), Value(0.87F));
    EXPECT_EQ(Wert("TI_EQR", true), Value(0.92F));
}

TEST_F(Bewertungslauf, WithoutSampleDoesNothing) {
    db.TeilraumOhneDeckung(18, 1);
    for (const std::int32_t tr : {18, 19}) {
        for (const bool KAOnly : {false, true}) {
            Gegenueber person;
            auto auftrag = Auftrag(KAOnly);
            auftrag.Liste.TeilraumID = tr;
            auftrag.Liste.DebugModus = true;
            Laufen(auftrag);
            EXPECT_THAT(person.Texte(), IsEmpty());
            EXPECT_EQ(spur.Skipped, NotAssessed::NoSample);
        }
    }
    EXPECT_EQ(gruppe, "vorher");
    EXPECT_THAT(db.Abzug("awaErgProjekt"), IsEmpty());
    EXPECT_THAT(db.Abzug("awaErgWRRL"), IsEmpty());
}

TEST_F(Bewertungslauf, MadeTwiceFailsWithADuplicateKeyAndKeepsTheFirst) {
    Laufen(Auftrag());
    const auto wrrl = db.Abzug("awaErgWRRL");
    const auto projekt = db.Abzug("awaErgProjekt");
    const auto fehler = Fehlschlag([&] { Laufen(Auftrag()); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DuplicateKey);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), wrrl);
    EXPECT_EQ(db.Abzug("awaErgProjekt"), projekt);
    Berechnung_WRRLInit(db.Datenbank());
    Laufen(Auftrag());
    EXPECT_EQ(db.Abzug("awaErgWRRL"), wrrl) << "after the init the same again";
}

TEST_F(Bewertungslauf, InitEmptiesBothTablesAlsoOfTheClassicCalculation) {
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    Laufen(Auftrag(true));
    Berechnung_WRRLInit(db.Datenbank());
    EXPECT_THAT(db.Abzug("awaErgProjekt"), IsEmpty());
    EXPECT_THAT(db.Abzug("awaErgWRRL"), IsEmpty());
}

TEST_F(Bewertungslauf, WithoutConditionStoresAnEmptyTextAndCountsAllOfTypeB) {
    auto auftrag = Auftrag();
    auftrag.RefBioregion.clear();
    Laufen(auftrag);
    EXPECT_EQ(Wert("SQL_RefBioregion"), Value(""));
    EXPECT_EQ(Wert("TaxazahlRefart"), Value(4.0));    // 1, 5; 6, 2
    EXPECT_EQ(Wert("AbundanzRefart"), Value(150.0));  // 40 + 60 + 30 + 20
}

TEST_F(Bewertungslauf, AQuoteInTheConditionBreaksTheStatementAndLeavesTheFirstRow) {
    auto auftrag = Auftrag();
    auftrag.RefBioregion = "awaRefArt_TypB.ID_AL_Bioregion='3'";
    const auto fehler = Fehlschlag([&] { Laufen(auftrag); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::SyntaxError);
    EXPECT_THAT(fehler->Statement(), HasSubstr("INSERT INTO awaErgWRRL"));
    EXPECT_EQ(db.Eins("SELECT Count(*) AS N FROM awaErgProjekt;").I4(), 1);
    EXPECT_THAT(db.Abzug("awaErgWRRL"), IsEmpty());
    EXPECT_FALSE(spur.ReferenceSpecies.has_value());
}

TEST_F(Bewertungslauf, StoresTheVariantAndTakesItsCovers) {
    auto auftrag = Auftrag();
    auftrag.Liste.IstWRRLBerechnung = false;
    Laufen(auftrag);
    EXPECT_EQ(Wert("IstWRRL", false, "awaErgProjekt"), Value(false));
    // 20 / 60, 10 / 60, 10 / 60 and the stand's 12 / 60 percent: 52 / 60 * 100
    EXPECT_NEAR(Wert("AbundanzArtniveauNKA").R8(), 52.0 / 60 * 100, 1e-4);
    EXPECT_EQ(Wert("DG_Gesamt", false, "awaErgProjekt"), Value(60.0F));
    // Weights: (40 + 10 + 20) / 60 * 100 + 20 + 150 = 286.667; with SI (60 + 20 + 50) / 60 * 100 + 40 + 240.
    EXPECT_NEAR(Wert("SapIndex", false, "awaErgProjekt").R8(), 496.66667 / 286.66667, 1e-6);
    // Weights: (40 + 10 + 10) / 60 * 100 + 40 + 120 = 260; with values (40 + 20 + 25) / 60 * 100 + 60 + 150.
    EXPECT_NEAR(Wert("TI", false, "awaErgProjekt").R8(), 351.66667 / 260, 1e-6);
}

TEST_F(Bewertungslauf, ValenzGewichtChangesNothing) {
    Laufen(Auftrag());
    const auto ohne = db.Abzug("awaErgWRRL");
    Berechnung_WRRLInit(db.Datenbank());
    auto auftrag = Auftrag();
    auftrag.ValenzGewicht = true;
    Laufen(auftrag);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), ohne);
}

TEST_F(Bewertungslauf, WithAnotherScopeCountsNothingAndGoesOn) {
    auto auftrag = Auftrag();
    auftrag.Liste.AktUebersicht = "Fluß";
    EXPECT_EQ(Laufen(auftrag), "KA");
    EXPECT_FALSE(spur.ListBuilt);
    EXPECT_FALSE(spur.Column.has_value());
    EXPECT_EQ(Wert("TaxazahlGesamt"), Value(0.0));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.0F));
    EXPECT_EQ(Wert("BedingtBewertbar"), Value(true));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.92F)) << "the indices need no list";
}

TEST_F(Bewertungslauf, WithTheScopeOfAStationAssessesTheSame) {
    Laufen(Auftrag());
    const auto projekt = db.Abzug("awaErgWRRL");
    Berechnung_WRRLInit(db.Datenbank());
    auto auftrag = Auftrag();
    auftrag.Liste.AktUebersicht = "UStelle";
    Laufen(auftrag);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), projekt);
    EXPECT_FALSE(spur.Column.has_value()) << "the last column of such a scope may be another's";
}

TEST_F(Bewertungslauf, WithoutReferenceTablesStoresMarkersAndNoName) {
    for (const char* tabelle :
         {"TGZK", "SGZK", "RBioregionstyp", "ETI", "ESI", "ERI", "TIOEZK", "SIOEZK", "RIOEZK", "Klasse"})
        db.Ausfuehren(std::string("DELETE * FROM awaWRRL_") + tabelle + ";");
    Laufen(Auftrag());
    EXPECT_EQ(Wert("TGZK"), Value("-"));
    EXPECT_EQ(Wert("SGZK").I4(), -1);
    EXPECT_EQ(Wert("Bioregionstyp"), Value("-"));
    EXPECT_EQ(Wert("OEZK").I4(), -1);
    EXPECT_EQ(Wert("OEZK_Klasse"), Value("n.v."));
}

// ---- failures ------------------------------------------------------------------------------------------

TEST_F(Bewertungslauf, WhatAModuleCannotReadEndsTheRunAndKeepsWhatStands) {
    db.Setze("awaWRRL_ESI", "ErwarteterWert", "Taxagruppe='Alle'");
    const auto fehler = Fehlschlag([&] { Laufen(Auftrag()); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(),
                AllOf(StartsWith("AuswertungWRRL_SI: "), HasSubstr("sub-habitat 17 (Blöcke 17)")));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.74F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.94F));
    EXPECT_TRUE(Wert("SI_EQR").IsNull());
    EXPECT_TRUE(Wert("OEZK").IsNull());
    EXPECT_EQ(gruppe, "Alle");
    // The trace tells the same.
    ASSERT_TRUE(spur.Trophic && spur.Saprobic && spur.ReferenceSpecies);
    EXPECT_TRUE(spur.Trophic->Done);
    EXPECT_FALSE(spur.Saprobic->Done);
    EXPECT_FALSE(spur.Overall.has_value());
}

TEST_F(Bewertungslauf, ANullRatingEndsTheRunBeforeTheModules) {
    db.Setze("awaModulStandard", "SI", "ID_ART=1");
    const auto fehler = Fehlschlag([&] { Laufen(Auftrag()); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(), StartsWith("Berechnung_Saprobie: "));
    EXPECT_TRUE(spur.ListBuilt);
    EXPECT_FALSE(spur.ReferenceSpecies.has_value());
    EXPECT_EQ(Wert("SQL_RefBioregion"), Value("(awaRefArt_TypB.ID_AL_Bioregion=3)"));
    EXPECT_TRUE(Wert("Taxagruppe").IsNull());
    EXPECT_TRUE(Wert("SapIndex", false, "awaErgProjekt").IsNull());
    EXPECT_EQ(gruppe, "vorher") << "the group is told by the reference species module alone";
    // The list stands: taxon 1 has 20 of 50 percent.
    EXPECT_EQ(db.Eins("SELECT A17 FROM awaArtenlisteHaeufigkeit WHERE ID_Art=1;"), Value(40.0));
}

struct Abbruch {
    const char* Routine;  ///< in which the run ends
    const char* Tabelle;  ///< where a Null stands in its way
    const char* Feld;
    const char* Bedingung;
    std::vector<std::string> Indizes;  ///< columns of `awaErgProjekt` that stay
    std::vector<std::string> Klassen;  ///< columns of `awaErgWRRL` that stay
    const char* Gruppe;
};

// One column stands for those of its routine.
TEST_F(Bewertungslauf, EndedByAFailureKeepsWhatTheRoutinesBeforeWrote) {
    const Abbruch abbrueche[] = {
        {"Berechnung_Saprobie", "awaModulStandard", "SI", "ID_ART=1", {}, {}, "vorher"},
        {"Berechnung_Trophie", "awaModulStandard", "Trophiewert", "ID_ART=1", {"SapIndex"}, {}, "vorher"},
        {"AuswertungWRRL_Referenzarten",
         "awaWRRL_ERI",
         "ErwarteterWert",
         "Taxagruppe='Alle'",
         {"SapIndex", "TI"},
         {"Taxagruppe", "RI_Anzahl"},
         "vorher"},
        {"AuswertungWRRL_TI",
         "awaWRRL_ETI",
         "ErwarteterWert",
         "Taxagruppe='Alle'",
         {"SapIndex", "TI"},
         {"Taxagruppe", "RI_Anzahl", "RI_OEZK3"},
         "Alle"},
        {"AuswertungWRRL_SI",
         "awaWRRL_ESI",
         "ErwarteterWert",
         "Taxagruppe='Alle'",
         {"SapIndex", "TI"},
         {"Taxagruppe", "RI_Anzahl", "RI_OEZK3", "TI_OEZK3"},
         "Alle"},
        // The reference species are class 3, whose name is read last.
        {"AuswertungWRRL_Gesamtbewertung",
         "awaWRRL_Klasse",
         "Bezeichnung",
         "Klassenzahl=3",
         {"SapIndex", "TI"},
         {"Taxagruppe", "RI_Anzahl", "RI_OEZK3", "TI_OEZK3", "SI_OEZK3"},
         "Alle"},
    };
    for (const auto& fall : abbrueche) {
        SCOPED_TRACE(fall.Routine);
        Berechnung_WRRLInit(db.Datenbank());
        gruppe = "vorher";
        const auto wert = db.Eins(std::string("SELECT ") + fall.Feld + " FROM " + fall.Tabelle + " WHERE " +
                                  fall.Bedingung + ";");
        db.Setze(fall.Tabelle, fall.Feld, fall.Bedingung);
        const auto fehler = Fehlschlag([&] { Laufen(Auftrag()); });
        ASSERT_TRUE(fehler.has_value());
        EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(fehler->Description(), StartsWith(std::string(fall.Routine) + ": "));
        EXPECT_EQ(gruppe, fall.Gruppe);
        const auto bleibt = [](const std::vector<std::string>& spalten, const std::string& spalte) {
            return std::find(spalten.begin(), spalten.end(), spalte) != spalten.end();
        };
        for (const std::string spalte : {"SapIndex", "TI"})
            EXPECT_EQ(!Wert(spalte, false, "awaErgProjekt").IsNull(), bleibt(fall.Indizes, spalte)) << spalte;
        for (const std::string spalte : {"Taxagruppe", "RI_Anzahl", "RI_OEZK3", "TI_OEZK3", "SI_OEZK3",
                                         "OEZK", "OEZK_Klasse", "TI_OEZK_Klasse"})
            EXPECT_EQ(!Wert(spalte).IsNull(), bleibt(fall.Klassen, spalte)) << spalte;
        db.Setze(fall.Tabelle, fall.Feld, std::string(fall.Feld) + " Is Null", wert);
    }
}

TEST_F(Bewertungslauf, AfterTheInitOfTheCalculationAloneFailsAtTheSecondRow) {
    Laufen(Auftrag());
    const auto wrrl = db.Abzug("awaErgWRRL");
    Berechnung_Init(db.Datenbank());
    const auto fehler = Fehlschlag([&] { Laufen(Auftrag()); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DuplicateKey);
    EXPECT_THAT(fehler->Statement(), StartsWith("INSERT INTO awaErgWRRL"));
    EXPECT_EQ(db.Abzug("awaErgWRRL"), wrrl);
    EXPECT_EQ(Wert("IstWRRL", false, "awaErgProjekt"), Value(true)) << "the row made before stays";
    EXPECT_TRUE(Wert("SapIndex", false, "awaErgProjekt").IsNull());
}

TEST(BewertungslaufOhneDatenbank, Fails) {
    std::string gruppe;
    EXPECT_EQ(Fehlschlag([&] { Berechnung_WRRL({}, gruppe); })->Number(), ErrorNumber::NotADatabase);
    EXPECT_EQ(Fehlschlag([] { Berechnung_WRRLInit(nullptr); })->Number(), ErrorNumber::NotADatabase);
}

// ---- debug boxes and trace -----------------------------------------------------------------------------

TEST_F(Bewertungslauf, InDebugModeShowsItsBoxesAmongThoseOfItsRoutines) {
    auto auftrag = Auftrag();
    auftrag.Liste.DebugModus = true;
    Gegenueber person;
    Laufen(auftrag);
    const auto gezeigt = person.Texte();

    // The routines one by one, on the rows of the run; what each of them shows is tested with it.
    std::vector<std::string> erwartet;
    const auto boxen = [&] {
        for (auto& text : person.Texte()) erwartet.push_back(std::move(text));
    };
    const auto& datenbank = db.Datenbank();
    erwartet.push_back("mbolWRRL: -1");
    Artenliste_Haeufigkeit(auftrag.Liste);
    boxen();
    Berechnung_Saprobie(datenbank, TR, false, true, true, false);
    Berechnung_Trophie(datenbank, TR, true, true, false);
    boxen();
    erwartet.push_back("mstrRefBioregion: (awaRefArt_TypB.ID_AL_Bioregion=3)");
    AuswertungWRRL_Referenzarten(datenbank, TR, 3, 2, auftrag.RefBioregion, true, false);
    boxen();
    erwartet.push_back("mstrAlgengruppe: Alle");
    AuswertungWRRL_TI(datenbank, TR, 3, 2, "Alle", true, false);
    AuswertungWRRL_SI(datenbank, TR, 3, 2, "Alle", true, false);
    AuswertungWRRL_Gesamtbewertung(datenbank, TR, true, false);
    boxen();
    EXPECT_GT(erwartet.size(), 40U);
    EXPECT_THAT(gezeigt, ElementsAreArray(erwartet));
}

TEST_F(Bewertungslauf, WithoutDebugModeShowsNothingAndChangesNoResult) {
    auto auftrag = Auftrag();
    auftrag.Liste.DebugModus = true;
    {
        Gegenueber person;
        Laufen(auftrag);
    }
    const auto mit = db.Abzug("awaErgWRRL");
    Berechnung_WRRLInit(db.Datenbank());
    Gegenueber person;
    Laufen(Auftrag());
    EXPECT_THAT(person.Texte(), IsEmpty());
    EXPECT_EQ(db.Abzug("awaErgWRRL"), mit);
}

TEST_F(Bewertungslauf, TraceTellsTheWholeRunAndChangesNoResult) {
    std::string andere;
    Berechnung_WRRL(Auftrag(), andere);
    const auto ohne = db.Abzug("awaErgWRRL");
    Berechnung_WRRLInit(db.Datenbank());
    calc::Spur indices;
    Berechnung_WRRL(Auftrag(), gruppe, &spur, &indices);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), ohne);
    EXPECT_FALSE(spur.KAOnly);
    EXPECT_FALSE(spur.Skipped.has_value());
    EXPECT_TRUE(spur.ListBuilt);
    ASSERT_TRUE(spur.Column.has_value());
    EXPECT_EQ(spur.Column->Findings.size(), 7U);
    ASSERT_TRUE(spur.ReferenceSpecies && spur.Trophic && spur.Saprobic && spur.Overall);
    EXPECT_EQ(spur.ReferenceSpecies->Taxa.size(), 7U);
    EXPECT_EQ(spur.ReferenceSpecies->Reason, GroupReason::AllGroups);
    EXPECT_EQ(spur.Trophic->Taxagruppe, "Alle");
    EXPECT_EQ(spur.Overall->Deciding, AssessmentModule::ReferenceSpecies);
    EXPECT_TRUE(spur.Overall->Softened);
    ASSERT_TRUE(indices.Saprobie && indices.Trophie);
    EXPECT_TRUE(indices.Saprobie->Fertig);
    EXPECT_FALSE(indices.AMI.has_value());
}

}  // namespace
}  // namespace FX_Algen
