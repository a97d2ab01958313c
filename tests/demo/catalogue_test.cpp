#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "DemoDatabase.h"

namespace FX_Algen::demo_test {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsEmpty;

class DemoCatalogue : public testing::Test {
protected:
    DemoDatabase db;
};

TEST_F(DemoCatalogue, HasAboutHundredFiftyTaxaOfAllKinds) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaArt"), 155);
    std::map<std::string, int> kinds;
    for (const Row& row :
         db.Rows("SELECT CASE WHEN ID_GRGR = 128 THEN 'KA' WHEN ID_GRGR = 133 THEN 'BA' WHEN ID_GRGR = 134 "
                 "THEN 'PI'"
                 " WHEN ID_GRGR IN (132, 135, 136, 137) THEN 'HP'"
                 " WHEN Algenart = 'Makroalge' OR Algenart IS NULL THEN 'MA' ELSE 'MI' END, Count(*) FROM" +
                 Chain() + "JOIN awaModulStandard USING (ID_ART) GROUP BY 1")) {
        kinds[row[0]] = std::stoi(row[1]);
    }
    const std::map<std::string, int> expected{{"KA", 96}, {"MA", 30}, {"MI", 16},
                                              {"BA", 4},  {"PI", 1},  {"HP", 8}};
    EXPECT_EQ(kinds, expected);
}

TEST_F(DemoCatalogue, EachTaxonReachesTheTopThroughAllLevels) {
    const auto taxa = db.Number("SELECT Count(*) FROM awaArt");
    EXPECT_EQ(db.Number("SELECT Count(*) FROM" + Chain()), taxa);
    EXPECT_THAT(db.Column("SELECT Gattung || ' ' || Art FROM awaArt WHERE ID_ART NOT IN (SELECT ID_ART FROM" +
                          Chain() + ")"),
                IsEmpty());
}

TEST_F(DemoCatalogue, EachLevelRowHangsUnderItsParentAndCarriesATaxon) {
    // A row that no taxon reaches would show as an empty branch in the browser.
    EXPECT_THAT(
        db.Column("SELECT ID_UFAM FROM awaUnterFam WHERE ID_UFAM NOT IN (SELECT ID_UFAM FROM awaArt)"),
        IsEmpty());
    for (const auto& [table, key] :
         {std::pair{"awaReich", "ID_REICH"}, std::pair{"awaStamm", "ID_STAMM"},
          std::pair{"awaKlasse", "ID_KLASSE"}, std::pair{"awaOrdnung", "ID_ORDNUNG"},
          std::pair{"awaUnterordnung", "ID_UORDNUNG"}, std::pair{"awaFamilie", "ID_FAM"}}) {
        const std::string name(table);
        EXPECT_EQ(db.Number("SELECT Count(*) FROM " + name),
                  db.Number("SELECT Count(DISTINCT " + name + "." + key + ") FROM" + Chain()))
            << table;
    }
}

TEST_F(DemoCatalogue, ChainOfAWellKnownDiatomIsTheOneOfTheTextbook) {
    EXPECT_THAT(
        db.Rows("SELECT Reich, Stamm, Klasse, Unterklasse, Ordnung, Unterordnung, Familie, Grossgruppe FROM" +
                Chain() + "WHERE Gattung = 'Navicula' AND Art = 'tripunctata'"),
        ElementsAre(ElementsAre("Chromista", "Bacillariophyta", "Bacillariophyceae", "Bacillariophycidae",
                                "Naviculales", "Naviculineae", "Naviculaceae", "KIESELALGEN")));
}

TEST_F(DemoCatalogue, EachTaxonShowsInTheOverviews) {
    EXPECT_THAT(
        db.Column(
            "SELECT Gattung || ' ' || Art FROM awaArt WHERE NOT EXISTS"
            " (SELECT 1 FROM awaModulStandard m JOIN awaAL_Lebensform l ON m.Lebensform = l.ID_AL_Lebensform"
            "  JOIN awaArtKatalog k ON k.ID_ART = m.ID_ART AND k.ID_KAT = 1"
            "  JOIN awaArtAuswahl a ON a.ID_ART = m.ID_ART WHERE m.ID_ART = awaArt.ID_ART)"),
        IsEmpty());
    EXPECT_THAT(
        db.Column("SELECT Algenart FROM awaModulStandard WHERE Algenart IS NOT NULL"
                  " AND Algenart NOT IN (SELECT Algenart FROM awaAL_Algenart WHERE Algenart IS NOT NULL)"),
        IsEmpty());
}

TEST_F(DemoCatalogue, NamesStandOnce) {
    EXPECT_THAT(
        db.Column("SELECT Gattung || ' ' || Art FROM awaArt GROUP BY Gattung, Art HAVING Count(*) > 1"),
        IsEmpty());
    EXPECT_THAT(db.Column("SELECT SynGattung || ' ' || SynArt FROM awaSynArt s JOIN awaArt a"
                          " ON a.Gattung = s.SynGattung AND a.Art = s.SynArt"),
                IsEmpty());
    EXPECT_THAT(db.Number("SELECT Count(*) FROM awaSynArt JOIN awaArt ON ID_SYN = ID_ART"), Gt(15));
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaSynArt"),
              db.Number("SELECT Count(*) FROM awaSynArt JOIN awaArt ON ID_SYN = ID_ART"));
}

TEST_F(DemoCatalogue, OnlyGenusTaxaAreBelowSpeciesLevel) {
    EXPECT_THAT(db.Column("SELECT Gattung FROM awaArt WHERE (Art = 'sp.') = (IstArtniveau = -1)"), IsEmpty());
    EXPECT_THAT(db.Column("SELECT Gattung FROM awaArt WHERE Beschreiber IS NULL AND Jahreszahl IS NOT NULL"),
                IsEmpty());
}

TEST_F(DemoCatalogue, UmlautsOfAuthorsSurvive) {
    EXPECT_THAT(
        db.Rows("SELECT Beschreiber, Jahreszahl FROM awaArt WHERE Gattung = 'Nitzschia' AND Art = 'palea'"),
        ElementsAre(ElementsAre("(Kützing) W.Smith", "1856")));
}

TEST_F(DemoCatalogue, NoRatingIsNull) {
    for (const std::string column : {"X", "O", "OB", "B", "BA", "A", "AP", "P", "S", "SI", "Sap_GBer",
                                     "Sap_GMan1", "Sap_GMan2", "Trophiewert", "Trophiegewicht",
                                     "Trophiewert_N", "Trophiegewicht_N", "Lebensform", "BSBSaprobie"}) {
        EXPECT_EQ(db.Number("SELECT Count(*) FROM awaModulStandard WHERE " + column + " IS NULL"), 0)
            << column;
    }
}

TEST_F(DemoCatalogue, ValuesLieOnTheScalesOfTheirLists) {
    // Value 0 to 4 for SI and the first trophic value, 1 to 5 for the second one; a weight of 0 goes with a
    // value 0.
    EXPECT_EQ(
        db.Number(
            "SELECT Count(*) FROM awaModulStandard WHERE SI < 0 OR SI > 4 OR Sap_GBer NOT IN (0,1,2,3,4,5)"
            " OR (Sap_GBer = 0) <> (SI = 0)"),
        0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaModulStandard WHERE Trophiewert < 0 OR Trophiewert > 4"
                        " OR Trophiegewicht NOT IN (0,1,3,5) OR (Trophiegewicht = 0 AND Trophiewert <> 0)"),
              0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaModulStandard WHERE Trophiegewicht_N NOT IN (0,1,2,3)"
                        " OR (Trophiegewicht_N > 0 AND (Trophiewert_N < 1 OR Trophiewert_N > 5))"
                        " OR (Trophiegewicht_N = 0 AND Trophiewert_N <> 0)"),
              0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaModulStandard WHERE X+O+OB+B+BA+A+AP+P NOT IN (0, 10)"), 0);
}

/// A taxon whose ratings were read off the published lists by hand.
struct Rated {
    const char* genus;
    const char* species;
    double si, siWeight;       // Sládeček 1986
    double trophic, weight;    // EPI-D; macroalgae: (20 - score) / 5 and 2 * amplitude - 1
    double trophicN, weightN;  // TDI
};

class DemoRatings : public testing::TestWithParam<Rated> {};

TEST_P(DemoRatings, AreThoseOfTheLists) {
    DemoDatabase db;
    const Rated& t = GetParam();
    const auto rows = db.Rows(
        std::string("SELECT SI, Sap_GBer, Trophiewert, Trophiegewicht, Trophiewert_N, Trophiegewicht_N"
                    " FROM awaModulStandard JOIN awaArt USING (ID_ART) WHERE Gattung = '") +
        t.genus + "' AND Art = '" + t.species + "'");
    ASSERT_EQ(rows.size(), 1U);
    const double expected[] = {t.si, t.siWeight, t.trophic, t.weight, t.trophicN, t.weightN};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_DOUBLE_EQ(std::stod(rows[0][i]), expected[i]) << "field " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Taxa, DemoRatings,
                         testing::Values(Rated{"Nitzschia", "palea", 2.6, 2, 3, 1, 5, 1},
                                         Rated{"Achnanthidium", "minutissimum", 1, 1, 0.5, 3, 2, 2},
                                         Rated{"Craticula", "accomoda", 3.3, 3, 3.8, 5, 4, 1},
                                         // Rated by the TDI alone beside its saprobic value.
                                         Rated{"Epithemia", "sorex", 1.4, 1, 0, 0, 1, 2},
                                         // In none of the lists.
                                         Rated{"Meridion", "circulare", 0, 0, 0, 0, 0, 0},
                                         // Score 6, amplitude 1: (20 - 6) / 5 = 2.8, 2 * 1 - 1 = 1.
                                         Rated{"Cladophora", "glomerata", 0, 0, 2.8, 1, 0, 0},
                                         // Score 16, amplitude 2: (20 - 16) / 5 = 0.8, 2 * 2 - 1 = 3.
                                         Rated{"Hydrurus", "foetidus", 0, 0, 0.8, 3, 0, 0},
                                         // Score 1, amplitude 3: (20 - 1) / 5 = 3.8, 2 * 3 - 1 = 5.
                                         Rated{"Stigeoclonium", "tenue", 0, 0, 3.8, 5, 0, 0},
                                         Rated{"Sphaerotilus", "natans", 0, 0, 0, 0, 0, 0}));

}  // namespace
}  // namespace FX_Algen::demo_test
