#include "calc/Berechnung.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "FX_Algen/Coverage.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Explain.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// One macroalga over half the cover: w = 10/20*100 * 2 = 100, SI 2.
void FuelleEinfach(Testdatenbank& db, std::int32_t tr) {
    db.Teilraum(tr, {20, 10, 0, 0});
    db.Stelle(tr, tr);
    db.Fund(tr, 1, {10, 0, 3, false});
}

const Werte einfach{2, 2, 1.5, 2, 1, 1, "benthisch", 1};

TEST(BerechnungExecute, WritesOneRowWithAllIndices) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), 17, false, false, false);
    EXPECT_EQ(db.Abzug("awaErgProjekt").size(), 1U);
    EXPECT_EQ(db.Ergebnis(17, "IstWRRL"), store::Value(false));
    EXPECT_EQ(db.Ergebnis(17, "KAOnly"), store::Value(false));
    EXPECT_EQ(db.Ergebnis(17, "SapIndex"), store::Value(2.0F));
    EXPECT_EQ(db.Ergebnis(17, "TI"), store::Value(1.5F));
    EXPECT_EQ(db.Ergebnis(17, "TI_N"), store::Value(1.0F));
    EXPECT_EQ(db.Ergebnis(17, "AMI"), store::Value(0.3));  // 3 * 10 / 100
}

TEST(BerechnungExecute, LeavesASubHabitatWithoutAlgaeSampleAlone) {
    Testdatenbank db;
    Berechnung_Execute(db.Datenbank(), 99, false, false, false);
    EXPECT_TRUE(db.Abzug("awaErgProjekt").empty());
}

TEST(BerechnungExecute, CalculatesASampleWithoutSitesWithZeros) {
    Testdatenbank db;
    db.Teilraum(17, {40, 20, 0, 0});
    Berechnung_Execute(db.Datenbank(), 17, false, false, false);
    for (const char* spalte : {"SapIndex", "SapIndex_KA", "TI", "TI_N", "TI_KA"}) {
        EXPECT_EQ(db.Ergebnis(17, spalte), store::Value(0.0F)) << spalte;
    }
    for (const char* spalte :
         {"AMI", "Taxa", "Taxa_KA", "Taxa_SI", "Taxa_SI_KA", "TaxaSap", "TaxaTI", "TaxaTI_N", "TaxaTI_KA"}) {
        EXPECT_EQ(db.Ergebnis(17, spalte), store::Value(0.0)) << spalte;
    }
    EXPECT_EQ(db.Ergebnis(17, "DG_Gesamt"), store::Value(40.0F));
    EXPECT_EQ(db.Ergebnis(17, "DG_Makroalgen"), store::Value(20.0F));
    EXPECT_THAT(db.Klassen(17), ElementsAre(0, 0, 0, 0, 0, 0, 0));
}

TEST(BerechnungExecute, LeavesUnwrittenColumnsAtTheirDefault) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    Berechnung_Execute(db.Datenbank(), 17, false, false, false);
    for (const char* spalte :
         {"XENO",         "OLIGO",   "OLIGOBETA", "BETA",         "BETAALPHA",  "ALPHA",        "ALPHAPOLY",
          "POLY",         "KUMXENO", "KUMOLIGO",  "KUMOLIGOBETA", "KUMBETA",    "KUMBETAALPHA", "KUMALPHA",
          "KUMALPHAPOLY", "KUMPOLY", "TAXAMA",    "TAXAMI",       "TAXAKA",     "XENO_W",       "OLIGO_W",
          "BETA_W",       "ALPHA_W", "POLY_W",    "TAXA_SI_W",    "SapIndex_W", "SI_Streuung_W"}) {
        EXPECT_TRUE(db.Ergebnis(17, spalte).IsNull()) << spalte;
    }
}

TEST(BerechnungExecute, TwiceWithoutInitFailsByTheKeyAndKeepsTheFirstRow) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    Berechnung_Execute(db.Datenbank(), 17, false, false, false);
    const auto vorher = db.Abzug("awaErgProjekt");
    const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), 17, false, false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DuplicateKey);
    EXPECT_EQ(db.Abzug("awaErgProjekt"), vorher);
}

TEST(BerechnungExecute, GivesTheSameRowForEitherValenzGewicht) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    Berechnung_Execute(db.Datenbank(), 17, false, false, false);
    const auto ohne = db.Abzug("awaErgProjekt");
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), 17, false, true, false);
    EXPECT_EQ(db.Abzug("awaErgProjekt"), ohne);
}

TEST(BerechnungExecute, FailingKeepsWhatWasWrittenAndLeavesOthersAlone) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    FuelleEinfach(db, 18);
    db.Art(2, {1, 1, 0, 0, 0, 0, "benthisch", 1});
    db.Fund(17, 2, {10, 0, 0, false});
    db.SetzeNull("awaModulStandard", "Trophiewert", "ID_ART=2");

    const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), 17, false, false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    // saprobic: taxon 1 w = 10/20*100*2 = 100, taxon 2 w = 50: (200 + 50) / 150
    EXPECT_EQ(db.Ergebnis(17, "SapIndex"), store::Value(250.0F / 150.0F));
    EXPECT_TRUE(db.Ergebnis(17, "TI").IsNull());
    EXPECT_TRUE(db.Ergebnis(17, "AMI").IsNull());

    Berechnung_Execute(db.Datenbank(), 18, false, false, false);
    EXPECT_EQ(db.Ergebnis(18, "SapIndex"), store::Value(2.0F));
    Berechnung_Init(db.Datenbank());
    EXPECT_TRUE(db.Abzug("awaErgProjekt").empty());
}

TEST(BerechnungExecute, MarksTheRowOfTheAssessmentVariant) {
    Testdatenbank db;
    db.Teilraum(17, {0, 0, 0, 0});
    Berechnung_Execute(db.Datenbank(), 17, true, false, false);
    EXPECT_EQ(db.Ergebnis(17, "IstWRRL"), store::Value(true));
}

TEST(BerechnungLauf, OfTheAssessmentPathLeavesTheQuantityIndexAlone) {
    Testdatenbank db;
    db.Art(1, einfach);
    FuelleEinfach(db, 17);
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, -1, 0);");
    Berechnung_Saprobie(db.Datenbank(), 17, false, true, false, false);
    Berechnung_Trophie(db.Datenbank(), 17, true, false, false);
    EXPECT_TRUE(db.Ergebnis(17, "AMI").IsNull());
}

TEST(CheckIstKA, AnswersWhetherADiatomOnlyAssessmentStands) {
    Testdatenbank db;
    EXPECT_FALSE(CheckIstKA(db.Datenbank(), 17));
    db.Ausfuehren("INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES(17, 0, 'Alle');");
    EXPECT_FALSE(CheckIstKA(db.Datenbank(), 17));
    db.Ausfuehren("INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES(17, -1, 'KA');");
    EXPECT_TRUE(CheckIstKA(db.Datenbank(), 17));
    EXPECT_FALSE(CheckIstKA(db.Datenbank(), 18));
}

TEST(Berechnung, WithoutDatabaseFailsAndNamesTheOperation) {
    struct Fall {
        const char* Operation;
        std::function<void()> Aufruf;
    };
    const Fall faelle[] = {
        {"Berechnung_Init", [] { Berechnung_Init(nullptr); }},
        {"Berechnung_Execute", [] { Berechnung_Execute(nullptr, 17, false, false, false); }},
        {"Berechnung_Saprobie", [] { Berechnung_Saprobie(nullptr, 17, false, false, false, false); }},
        {"Berechnung_Trophie", [] { Berechnung_Trophie(nullptr, 17, false, false, false); }},
        {"Berechnung_AMI", [] { Berechnung_AMI(nullptr, 17); }},
        {"CheckIstKA", [] { CheckIstKA(nullptr, 17); }},
        {"Taxazahl_Sap", [] { Taxazahl_Sap(nullptr, 17, false); }},
        {"Taxazahl_TI", [] { Taxazahl_TI(nullptr, 17, 1, false); }},
        {"CoverageOf", [] { CoverageOf(nullptr, 17); }},
        {"Explain", [] { Explain(nullptr, 17); }},
    };
    for (const auto& fall : faelle) {
        const auto fehler = Fehlschlag(fall.Aufruf);
        ASSERT_TRUE(fehler.has_value()) << fall.Operation;
        EXPECT_EQ(fehler->Number(), ErrorNumber::NotADatabase) << fall.Operation;
        EXPECT_THAT(fehler->Description(), testing::StartsWith(std::string(fall.Operation) + ": "));
    }
}

}  // namespace
}  // namespace FX_Algen
