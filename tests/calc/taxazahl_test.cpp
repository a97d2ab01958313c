#include <gtest/gtest.h>

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

constexpr std::int32_t TR = 17;

Werte MitWerten(double SI, double Sap_GBer, double t, double tN, std::int32_t lebensform = 1) {
    return {SI, Sap_GBer, t, 1, tN, 1, "benthisch", lebensform};
}

/// Two sites. Taxa: 1 (rated, at both sites), 2 (unrated in all but its row), 3 (no row of ratings), 4 (a
/// diatom with valves), 5 (other life form), 6 (group 132), and 7 in a mixed stand only.
class Taxastatistik : public testing::Test {
protected:
    void SetUp() override {
        db.Teilraum(TR, {40, 40, 40, 40});
        db.Stelle(1, TR);
        db.Stelle(2, TR);
        db.Art(1, MitWerten(2, 1, 2, 2));
        db.Art(2, MitWerten(0, 0, 0, 0));
        db.ArtOhneWerte(3);
        db.Art(4, MitWerten(1, 2, 1, 1), 128);
        db.Art(5, MitWerten(2, 1, 2, 2, 2));
        db.Art(6, MitWerten(2, 1, 2, 2), 132);
        db.Art(7, MitWerten(2, 1, 2, 2));
        db.Fund(1, 1, {10, 0, 0, false});
        db.Fund(2, 1, {10, 0, 0, false});
        db.Fund(1, 2, {10, 0, 0, false});
        db.Fund(1, 3, {10, 5, 0, false});
        db.Fund(1, 4, {0, 20, 0, false});
        db.Fund(1, 5, {10, 0, 0, false});
        db.Fund(1, 6, {10, 0, 0, false});
        db.Bestand(5, TR, 20);
        db.Bestandsart(5, 7, 100);
    }
    double Zahl(std::int16_t modus, bool IstWRRL) { return Taxazahl(db.Datenbank(), TR, modus, IstWRRL); }
    Testdatenbank db;
};

TEST_F(Taxastatistik, CountsByMode) {
    struct Fall {
        std::int16_t Modus;
        double Klassisch;
        double Bewertung;
    };
    const Fall faelle[] = {
        {1, 6, 3},     // 1 to 6 once each; with ratings, life form 1 and group below 132: 1, 2, 4
        {2, 2, 1},     // 3 and 4; with ratings and life form 1: 4
        {3, 4, 2},     // SI above 0: 1, 4, 5, 6; of those in the assessment 1 and 4
        {4, 1, 1},     // valves and a weight: 4
        {11, 25, 20},  // 5 + 20 valves; with ratings 20
        {0, 0, 0},    {12, 0, 0}, {-1, 0, 0},
    };
    for (const auto& fall : faelle) {
        EXPECT_EQ(Zahl(fall.Modus, false), fall.Klassisch) << "mode " << fall.Modus;
        EXPECT_EQ(Zahl(fall.Modus, true), fall.Bewertung) << "mode " << fall.Modus << ", assessment";
    }
}

TEST_F(Taxastatistik, CountsATaxonOfTwoSitesOnceInTaxaAndTaxaTIButTwiceInTaxaTIN) {
    // Trophiewert above 0: 1, 4, 5, 6. Trophiewert_N: the same taxa in five findings, taxon 1 with two.
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 1, false), 4);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 2, false), 5);
    // assessment: 1 and 4
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 1, true), 2);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 2, true), 3);
}

TEST_F(Taxastatistik, CountsDiatomsWithTrophiewertByFindings) {
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 3, false), 1);
    db.Fund(2, 4, {0, 1, 0, false});
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 3, false), 2);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 3, true), 2);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 4, true), 0);
}

TEST_F(Taxastatistik, CountsATaxonWithAndWithoutCfOnce) {
    db.Fund(1, 1, {10, 0, 0, true});
    EXPECT_EQ(Zahl(1, false), 6);
    EXPECT_EQ(Zahl(3, false), 4);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), TR, 2, false), 6);  // a further finding
}

TEST_F(Taxastatistik, CountsCompleteValencesOnly) {
    EXPECT_EQ(Taxazahl_Sap(db.Datenbank(), TR, false), 0);
    db.Ausfuehren("UPDATE awaModulStandard SET B=5, A=5 WHERE ID_ART=1;");  // 10, at two sites
    db.Ausfuehren("UPDATE awaModulStandard SET B=5, A=4 WHERE ID_ART=2;");  // 9
    db.Ausfuehren("UPDATE awaModulStandard SET X=10 WHERE ID_ART=5;");      // 10, other life form
    EXPECT_EQ(Taxazahl_Sap(db.Datenbank(), TR, false), 2);
    EXPECT_EQ(Taxazahl_Sap(db.Datenbank(), TR, true), 1);
    db.SetzeNull("awaModulStandard", "AP", "ID_ART=5");  // a Null makes the sum Null
    EXPECT_EQ(Taxazahl_Sap(db.Datenbank(), TR, false), 1);
}

TEST_F(Taxastatistik, OfASubHabitatWithoutFindingsIsZero) {
    for (std::int16_t modus = 1; modus <= 11; ++modus) {
        EXPECT_EQ(Taxazahl(db.Datenbank(), 99, modus, false), 0) << modus;
    }
    EXPECT_EQ(Taxazahl_Sap(db.Datenbank(), 99, false), 0);
    EXPECT_EQ(Taxazahl_TI(db.Datenbank(), 99, 1, false), 0);
}

TEST_F(Taxastatistik, FromTheFrequencyListIsZeroUntilTheListHasTheSubHabitat) {
    for (std::int16_t modus = 5; modus <= 10; ++modus) EXPECT_EQ(Zahl(modus, false), 0) << modus;
}

TEST_F(Taxastatistik, SwallowsFailuresInTaxazahlAlone) {
    EXPECT_EQ(Taxazahl(nullptr, TR, 1, false), 0);
    const auto sap = Fehlschlag([] { Taxazahl_Sap(nullptr, TR, false); });
    ASSERT_TRUE(sap.has_value());
    EXPECT_EQ(sap->Number(), ErrorNumber::NotADatabase);
    EXPECT_TRUE(Fehlschlag([] { Taxazahl_TI(nullptr, TR, 1, false); }).has_value());
}

TEST_F(Taxastatistik, FromTheFrequencyListCountsTheColumnOfTheSubHabitat) {
    // The run of the list adds a column for each sub-habitat.
    auto tabellen = db.Datenbank()->TableDefs();
    tabellen["awaArtenlisteHaeufigkeit"].Append(
        store::TableDef::CreateField("A17", store::FieldType::Double));
    // taxon 1 and 2 with abundance, 4 a diatom with abundance, 5 without, 6 of group 132
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(1, 0, 0, 25);");
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(2, 0, 0, 5);");
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(4, 0, -1, 100);");
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(5, 0, 0, 0);");
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(6, 0, 0, 1);");
    db.Ausfuehren("UPDATE awaArt SET IstArtniveau=True WHERE ID_ART In (1, 4, 6);");
    db.Ausfuehren("INSERT INTO awaRefArt_TypA (ID_Art) VALUES(1);");
    db.Ausfuehren("INSERT INTO awaRefArt_TypA (ID_Art) VALUES(4);");
    db.Ausfuehren("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES(1, 3, 1);");
    db.Ausfuehren("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES(1, 4, 1);");
    db.Ausfuehren("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES(2, 4, 1);");

    EXPECT_EQ(Zahl(5, false), 3);   // species level: 1, 4, 6
    EXPECT_EQ(Zahl(7, false), 4);   // all above 0: 1, 2, 4, 6
    EXPECT_EQ(Zahl(8, false), 2);   // species but no diatom: 1, 6
    EXPECT_EQ(Zahl(9, false), 1);   // diatom species: 4
    EXPECT_EQ(Zahl(6, false), 4);   // type A: 1, 4; type B: 1, 2; taxon 1 counts in both
    EXPECT_EQ(Zahl(10, false), 1);  // of the diatoms: type A 4
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 6, false, "awaRefArt_TypB.ID_AL_Bioregion=3"),
              3);                                          // A: 1, 4; B: 1
    EXPECT_EQ(Taxazahl(db.Datenbank(), 18, 7, false), 0);  // no column for this sub-habitat
}

/// Every taxon is rated in full but 4. Taxa: 1 counts everywhere; 2 has another life form, 3 is of group 132,
/// 7 of group 133; 4 is a diatom without ratings, 5 a diatom of another life form, 6 a diatom that counts.
class TaxazahlenDerZeile : public testing::Test {
protected:
    void SetUp() override {
        db.Teilraum(TR, {40, 40, 40, 40});
        db.Stelle(1, TR);
        db.Art(1, MitWerten(2, 1, 2, 2));
        db.Art(2, MitWerten(2, 1, 2, 2, 2));
        db.Art(3, MitWerten(2, 1, 2, 2), 132);
        db.ArtOhneWerte(4, 128);
        db.Art(5, MitWerten(2, 1, 2, 2, 2), 128);
        db.Art(6, MitWerten(2, 1, 2, 2), 128);
        db.Art(7, MitWerten(2, 1, 2, 2), 133);
        db.Ausfuehren("UPDATE awaModulStandard SET X=10;");
        for (const std::int32_t art : {1, 2, 3, 7}) db.Fund(1, art, {10, 0, 0, false});
        for (const std::int32_t art : {4, 5, 6}) db.Fund(1, art, {0, 5, 0, false});
    }
    Testdatenbank db;
};

TEST_F(TaxazahlenDerZeile, TakeTheVariantOrNotAsEachColumnSays) {
    struct Fall {
        const char* Spalte;
        double Klassisch;
        double Bewertung;
    };
    const Fall faelle[] = {
        {"Taxa", 7, 2},        // 1 to 7; in the assessment 1 and 6
        {"Taxa_KA", 3, 3},     // 4, 5 and 6 in both: the filters of the assessment would leave 6
        {"Taxa_SI", 6, 2},     // all but 4; 1 and 6
        {"Taxa_SI_KA", 2, 2},  // 5 and 6 in both
        {"TaxaSap", 6, 2},     // as Taxa_SI
        {"TaxaTI", 6, 2},      // as Taxa_SI
        {"TaxaTI_N", 6, 2},    // as Taxa_SI
        {"TaxaTI_KA", 2, 2},   // 5 and 6 in both
    };
    for (const bool IstWRRL : {false, true}) {
        Berechnung_Init(db.Datenbank());
        Berechnung_Execute(db.Datenbank(), TR, IstWRRL, false, false);
        for (const auto& fall : faelle) {
            EXPECT_EQ(db.Ergebnis(TR, fall.Spalte), store::Value(IstWRRL ? fall.Bewertung : fall.Klassisch))
                << fall.Spalte << (IstWRRL ? ", assessment" : "");
        }
    }
}

}  // namespace
}  // namespace FX_Algen
