#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::int32_t TR = 17;

/// Taxon 1 as macroalga, 2 in stand 5, 3 as diatom, all rated.
void Fuelle(Testdatenbank& db) {
    const Werte werte{2, 1, 2, 1, 2, 1, "benthisch", 1};
    db.Teilraum(TR, {40, 20, 40, 20});
    db.Stelle(1, TR);
    db.Art(1, werte);
    db.Art(2, werte);
    db.Art(3, werte, 128);
    db.Fund(1, 1, {20, 0, 2, false});
    db.Fund(1, 3, {0, 8, 0, false});
    db.Bestand(5, TR, 20, 1, 20);
    db.Bestandsart(5, 2, 100);
}

/// Routines in their order; each writes its columns at its end.
enum class Stufe { Nichts, Saprobie, Trophie };

struct Fall {
    const char* Beschreibung;
    const char* Tabelle;
    const char* Feld;
    const char* Bedingung;
    bool IstWRRL;
    const char* Taxon;      ///< part of the description
    Stufe Geschrieben;      ///< how far the row was filled before the failure, and so the failing routine
    const char* Anweisung;  ///< end of the statement that delivered the Null
};

class NullImWert : public testing::TestWithParam<Fall> {};

TEST_P(NullImWert, FailsWith94AndNamesItsPlace) {
    const auto& fall = GetParam();
    Testdatenbank db;
    Fuelle(db);
    db.SetzeNull(fall.Tabelle, fall.Feld, fall.Bedingung);
    const auto fehler =
        Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), TR, fall.IstWRRL, false, false); });
    ASSERT_TRUE(fehler.has_value()) << fall.Beschreibung;
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull) << fall.Beschreibung;
    EXPECT_THAT(fehler->Description(), HasSubstr(std::string(fall.Tabelle) + "." + fall.Feld));
    EXPECT_THAT(fehler->Description(), HasSubstr(fall.Taxon));
    EXPECT_THAT(fehler->Description(), HasSubstr("sub-habitat 17 (Blöcke 17)"));
    // Whose failure it is, and the statement that delivered the Null: it still does.
    const char* const routinen[] = {"Berechnung_Saprobie: ", "Berechnung_Trophie: ", "Berechnung_AMI: "};
    EXPECT_THAT(fehler->Description(), StartsWith(routinen[static_cast<int>(fall.Geschrieben)]));
    EXPECT_THAT(fehler->Statement(), StartsWith("SELECT "));
    EXPECT_THAT(fehler->Statement(), EndsWith(fall.Anweisung)) << fall.Beschreibung;
    EXPECT_FALSE(db.Datenbank()->OpenRecordset(fehler->Statement())->Eof()) << fall.Beschreibung;
    // The row stays as far as it was filled.
    ASSERT_TRUE(db.HatErgebnis(TR));
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex").IsNull(), fall.Geschrieben < Stufe::Saprobie) << fall.Beschreibung;
    EXPECT_EQ(db.Ergebnis(TR, "TI").IsNull(), fall.Geschrieben < Stufe::Trophie) << fall.Beschreibung;
    EXPECT_TRUE(db.Ergebnis(TR, "AMI").IsNull()) << fall.Beschreibung;
}

const Fall faelle[] = {
    {"total cover", "awaTeilraum", "DG_Gesamt", "ID_TR=17", false, "", Stufe::Nichts,
     "WHERE ((awaTeilraum.ID_TR=17));"},
    {"macroalgae cover", "awaTeilraum", "DG_MA", "ID_TR=17", false, "", Stufe::Nichts,
     "WHERE ((awaTeilraum.ID_TR=17));"},
    {"total cover of the assessment", "awaTeilraum", "DG_Gesamt_WRRL", "ID_TR=17", true, "", Stufe::Nichts,
     "WHERE ((awaTeilraum.ID_TR=17));"},
    {"weight of a macroalga", "awaModulStandard", "Sap_GBer", "ID_ART=1", false, "taxon 1 (Gattung1 grün1)",
     Stufe::Nichts, "(awaArtPrStelle.DG_MA>0));"},
    {"value of a macroalga", "awaModulStandard", "SI", "ID_ART=1", false, "taxon 1 (Gattung1 grün1)",
     Stufe::Nichts, "(awaArtPrStelle.DG_MA>0));"},
    {"value in a stand", "awaModulStandard", "SI", "ID_ART=2", false,
     "taxon 2 (Gattung2 grün2) in mixed stand 5 (Belag 5)", Stufe::Nichts,
     "(awaArtPrStelle_MI.ID_TR_MI=5));"},
    {"value of a diatom", "awaModulStandard", "SI", "ID_ART=3", false, "taxon 3 (Gattung3 grün3)",
     Stufe::Nichts, "(awaArtPrStelle.Schalen_KA>0));"},
    {"cover of a stand", "awaTeilraum_MI", "DG_MI", "ID_TR_MI=5", false, "mixed stand 5 (Belag 5)",
     Stufe::Nichts, "Where awaTeilraum_MI.ID_TR = 17 ORDER BY awaTeilraum_MI.ID_TR_MI;"},
    {"cover of a stand of the assessment", "awaTeilraum_MI", "DG_MI_WRRL", "ID_TR_MI=5", true,
     "mixed stand 5 (Belag 5)", Stufe::Nichts,
     "Where awaTeilraum_MI.ID_TR = 17 ORDER BY awaTeilraum_MI.ID_TR_MI;"},
    {"trophic weight of a macroalga", "awaModulStandard", "Trophiegewicht", "ID_ART=1", false,
     "taxon 1 (Gattung1 grün1)", Stufe::Saprobie,
     "(awaArtPrStelle.DG_MA>0) AND (awaModulStandard.Algenart<>''));"},
    {"trophic value in a stand", "awaModulStandard", "Trophiewert", "ID_ART=2", false,
     "taxon 2 (Gattung2 grün2) in mixed stand 5", Stufe::Saprobie,
     "(awaArtPrStelle_MI.ID_TR_MI=5) AND (awaModulStandard.Algenart<>''));"},
    {"second trophic value of a diatom", "awaModulStandard", "Trophiewert_N", "ID_ART=3", false, "taxon 3",
     Stufe::Saprobie, "(awaArtPrStelle.Schalen_KA>0));"},
    {"second trophic weight of a diatom", "awaModulStandard", "Trophiegewicht_N", "ID_ART=3", false,
     "taxon 3", Stufe::Saprobie, "(awaArtPrStelle.Schalen_KA>0));"},
    // without cover the macroalga is in no block but that of the quantity index
    {"cover of a macroalga with a layer", "awaArtPrStelle", "DG_MA", "ID_ART=1", false,
     "taxon 1 (Gattung1 grün1)", Stufe::Trophie,
     "(awaArtPrStelle.SD_MA>0) AND (awaModulStandard.Algenart<>''));"},
};
INSTANTIATE_TEST_SUITE_P(Fields, NullImWert, testing::ValuesIn(faelle));

TEST(NullImBestand, FailsTheQuantityIndexOnItsOwn) {
    // In the assessment variant the classic cover of a stand is read by the quantity index alone.
    Testdatenbank db;
    Fuelle(db);
    db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=5");
    const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), TR, true, false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(), HasSubstr("awaTeilraum_MI.DG_MI is Null for mixed stand 5 (Belag 5)"));
    EXPECT_FALSE(db.Ergebnis(TR, "TI").IsNull());
    EXPECT_TRUE(db.Ergebnis(TR, "AMI").IsNull());
}

TEST(NullImBestand, WithoutTotalCoverFailsTheQuantityIndexAlone) {
    for (const bool mitSchicht : {true, false}) {
        Testdatenbank db;
        Fuelle(db);
        db.Ausfuehren("UPDATE awaTeilraum SET DG_Gesamt=0 WHERE ID_TR=17;");
        if (!mitSchicht) db.Ausfuehren("UPDATE awaTeilraum_MI SET SD_MI=0 WHERE ID_TR_MI=5;");
        db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=5");
        const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), TR, false, false, false); });
        ASSERT_EQ(fehler.has_value(), mitSchicht);
        if (fehler) {
            EXPECT_THAT(fehler->Description(), StartsWith("Berechnung_AMI: "));
        }
        // the diatom alone: 100 * 2 / 100
        EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
        EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(2.0F));
    }
}

TEST(NullImBestand, FailsEvenWhereTheStandHasNoTaxa) {
    Testdatenbank db;
    Fuelle(db);
    db.Bestand(6, TR, 10);
    db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=6");
    const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), TR, false, false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_THAT(fehler->Description(), HasSubstr("mixed stand 6"));
}

TEST(NullOhneWirkung, InFindingsThatNoQueryDelivers) {
    Testdatenbank db;
    Fuelle(db);
    // taxon 4 is found nowhere; the cover and valves of 1 and 3 that are Null are not above 0
    db.Art(4, {});
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=4");
    db.SetzeNull("awaArtPrStelle", "Schalen_KA", "ID_ART=1");
    db.SetzeNull("awaArtPrStelle", "DG_MA", "ID_ART=3");
    db.SetzeNull("awaTeilraum", "DG_Gesamt_WRRL", "ID_TR=17");
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    EXPECT_EQ(db.Ergebnis(TR, "SapIndex"), store::Value(2.0F));
}

TEST(NullOhneWirkung, InTrophicValuesOfTaxaWithoutAlgenartUnlessTheyHaveValves) {
    Testdatenbank db;
    Fuelle(db);
    db.SetzeNull("awaModulStandard", "Algenart", "ID_ART=1");
    db.SetzeNull("awaModulStandard", "Trophiewert", "ID_ART=1");
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    EXPECT_EQ(db.Ergebnis(TR, "TI"), store::Value(2.0F));
    db.SetzeNull("awaModulStandard", "Algenart", "ID_ART=3");
    db.SetzeNull("awaModulStandard", "Trophiewert", "ID_ART=3");
    Berechnung_Init(db.Datenbank());
    const auto fehler = Fehlschlag([&] { Berechnung_Execute(db.Datenbank(), TR, false, false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_THAT(fehler->Description(), HasSubstr("awaModulStandard.Trophiewert is Null for taxon 3"));
}

}  // namespace
}  // namespace FX_Algen
