#include <gtest/gtest.h>

#include <algorithm>

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Spur.h"
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

/// The list has a row for each taxon, with the column of sub-habitat 17:
///
///   taxon  group  level    diatom  percent  reference species
///     1     130   species            25     type A; type B in the bioregions 3 and 4
///     2     130   genus               5     type B in bioregion 4
///     4     128   species   yes     100     type A
///     5     130   species             0     type A; type B in bioregion 4
///     6     132   species             1
///     7     130   species             -     type A
///     8     133   species            10     type A
///     9     128   genus     yes       3     type B in bioregion 4
class TaxazahlenDerListe : public Taxastatistik {
protected:
    void SetUp() override {
        Taxastatistik::SetUp();
        db.ArtOhneWerte(8, 133);
        db.ArtOhneWerte(9, 128);
        // The run of the list adds a column for each sub-habitat.
        auto tabellen = db.Datenbank()->TableDefs();
        tabellen["awaArtenlisteHaeufigkeit"].Append(
            store::TableDef::CreateField("A17", store::FieldType::Double));
        for (const char* zeile :
             {"1, False, False, 25", "2, False, False, 5", "4, False, True, 100", "5, False, False, 0",
              "6, False, False, 1", "7, False, False, Null", "8, False, False, 10", "9, False, True, 3"})
            Eintrag(zeile);
        db.Ausfuehren("UPDATE awaArt SET IstArtniveau=True WHERE ID_ART In (1, 4, 5, 6, 7, 8);");
        for (const char* art : {"1", "4", "5", "7", "8"})
            db.Ausfuehren("INSERT INTO awaRefArt_TypA (ID_Art) VALUES(" + std::string(art) + ");");
        for (const char* zeile : {"1, 3, 1", "1, 4, 1", "1, 4, 2", "2, 4, 1", "5, 4, 1", "9, 4, 1"})
            db.Ausfuehren("INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES(" +
                          std::string(zeile) + ");");
    }
    void Eintrag(const std::string& werte) {
        db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF, IstKA, A17) VALUES(" + werte + ");");
    }
    double Zahl(std::int16_t modus, std::string_view kriterium = {}) {
        const double klassisch = Taxazahl(db.Datenbank(), TR, modus, false, kriterium);
        EXPECT_EQ(Taxazahl(db.Datenbank(), TR, modus, true, kriterium), klassisch)
            << "mode " << modus << " has no variant of the assessment";
        return klassisch;
    }
};

TEST_F(TaxazahlenDerListe, CountRowsAboveZeroByMode) {
    EXPECT_EQ(Zahl(5), 3);   // species of the groups up to 132: 1, 4, 6
    EXPECT_EQ(Zahl(6), 6);   // type A: 1, 4, 8; type B: 1, 2, 9; taxon 1 counts in both
    EXPECT_EQ(Zahl(7), 5);   // groups up to 132: 1, 2, 4, 6, 9
    EXPECT_EQ(Zahl(8), 2);   // of the species without diatoms: 1, 6
    EXPECT_EQ(Zahl(9), 1);   // diatom species: 4
    EXPECT_EQ(Zahl(10), 2);  // of the diatoms type A: 4; type B: 9
}

TEST_F(TaxazahlenDerListe, TakeTheColumnOfTheirOwnSubHabitat) {
    auto tabellen = db.Datenbank()->TableDefs();
    tabellen["awaArtenlisteHaeufigkeit"].Append(
        store::TableDef::CreateField("A18", store::FieldType::Double));
    db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A18=50 WHERE ID_Art=5;");
    // Taxon 5 is a species, of type A and type B, and no diatom.
    const std::pair<std::int16_t, double> zahlen[] = {{5, 1}, {6, 2}, {7, 1}, {8, 1}, {9, 0}, {10, 0}};
    for (const auto& [modus, zahl] : zahlen) {
        EXPECT_EQ(Taxazahl(db.Datenbank(), 18, modus, true), zahl) << modus;
        EXPECT_EQ(Taxazahl(db.Datenbank(), 19, modus, true), 0) << modus << ", no column";
        EXPECT_EQ(Taxazahl(db.Datenbank(), -1, modus, true), 0) << modus << ", no name of a column";
    }
}

TEST_F(TaxazahlenDerListe, CountATaxonWithAndWithoutCfOnceInTypeBAlone) {
    // With the same shares as without, so that the rows differ in `CF` alone.
    Eintrag("1, True, False, 25");
    Eintrag("4, True, True, 100");
    Eintrag("9, True, True, 3");
    EXPECT_EQ(Zahl(5), 5);   // 1, 4 twice
    EXPECT_EQ(Zahl(6), 8);   // type A: 1, 4 twice, 8; type B: 1, 2, 9
    EXPECT_EQ(Zahl(7), 8);   // 1, 4, 9 twice
    EXPECT_EQ(Zahl(8), 3);   // 1 twice
    EXPECT_EQ(Zahl(9), 2);   // 4 twice
    EXPECT_EQ(Zahl(10), 3);  // type A: 4 twice; type B: 9
}

TEST_F(TaxazahlenDerListe, AreNarrowedByAConditionOnTypeBAlone) {
    EXPECT_EQ(Zahl(6, "awaRefArt_TypB.ID_AL_Bioregion=3"), 4);   // A: 1, 4, 8; B: 1
    EXPECT_EQ(Zahl(10, "awaRefArt_TypB.ID_AL_Bioregion=3"), 1);  // A: 4
    EXPECT_EQ(Zahl(6, "awaRefArt_TypB.ID_AL_Bioregion=9"), 3);   // A: 1, 4, 8
    // It stands in brackets: an OR takes in neither taxon 5, whose share is 0, nor what is no diatom.
    const auto beide = "awaRefArt_TypB.ID_AL_Bioregion=3 OR awaRefArt_TypB.ID_AL_Bioregion=4";
    EXPECT_EQ(Zahl(6, beide), 6);
    EXPECT_EQ(Zahl(10, beide), 2);
    // The others do not read it.
    for (const std::int16_t modus : {5, 7, 8, 9})
        EXPECT_EQ(Zahl(modus, "awaRefArt_TypB.Fluß=1"), Zahl(modus)) << modus;
}

TEST_F(TaxazahlenDerListe, AreZeroWithATraceOfNothingWhereTheyFail) {
    for (const std::int16_t modus : {6, 10}) {
        calc::Taxazaehlung spur;
        EXPECT_EQ(Taxazahl(db.Datenbank(), TR, modus, true, "awaRefArt_TypB.Fluß=1", &spur), 0) << modus;
        EXPECT_TRUE(spur.ID_Arten.empty()) << "type A was counted before type B failed";
        EXPECT_EQ(Taxazahl(db.Datenbank(), TR, modus, true, "((("), 0) << modus;
    }
    db.Datenbank()->TableDefs().Delete("awaArtenlisteHaeufigkeit");
    for (std::int16_t modus = 5; modus <= 10; ++modus) EXPECT_EQ(Zahl(modus), 0) << modus;
}

TEST_F(TaxazahlenDerListe, NameTheReferenceSpeciesInTheirTrace) {
    calc::Taxazaehlung spur;
    EXPECT_EQ(Taxazahl(db.Datenbank(), TR, 6, true, {}, &spur), 6);
    std::sort(spur.ID_Arten.begin(), spur.ID_Arten.end());
    EXPECT_EQ(spur.ID_Arten, (std::vector<std::int32_t>{1, 1, 2, 4, 8, 9}));
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
