#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DemoDatabase.h"

namespace FX_Algen::demo_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DemoReference : public testing::Test {
protected:
    DemoDatabase db;
};

/// One module of the assessment: table of reference classes, its value column, expected values, class bounds.
struct Module {
    const char* site;
    const char* key;
    const char* expected;
    const char* bounds;
};

const Module modules[] = {
    {"awaWRRL_TGZK", "TGZK", "awaWRRL_ETI", "awaWRRL_TIOEZK"},
    {"awaWRRL_SGZK", "Gueteklasse", "awaWRRL_ESI", "awaWRRL_SIOEZK"},
    {"awaWRRL_RBioregionstyp", "Bioregionstyp", "awaWRRL_ERI", "awaWRRL_RIOEZK"},
};

TEST_F(DemoReference, EachStationHasClassAndExpectedValueInBothGroups) {
    for (const Module& m : modules) {
        const std::string key(m.key);
        EXPECT_THAT(
            db.Rows("SELECT USBez, g.column1 FROM UnvUStelle JOIN AL_Hoehenstufe USING (ID_AL_Hoehenstufe)"
                    " CROSS JOIN (VALUES ('Alle'), ('KA')) g WHERE NOT EXISTS (SELECT 1 FROM " +
                    std::string(m.site) + " s JOIN " + m.expected + " e ON e." + key + " = s." + key +
                    " WHERE s.ID_AL_Bioregion = UnvUStelle.ID_AL_Bioregion"
                    " AND s.Hoehenstufe = AL_Hoehenstufe.Hoehenstufe AND e.Taxagruppe = g.column1)"),
            IsEmpty())
            << m.site;
    }
}

TEST_F(DemoReference, EachRatioFallsIntoExactlyOneClass) {
    for (const Module& m : modules) {
        for (const Row& row : db.Rows("SELECT Taxagruppe, " + std::string(m.key) + " FROM " + m.expected)) {
            // Ratios of two decimals from 0 to 1, and up to 1.03 for the raised one.
            for (int hundredths = 0; hundredths <= 103; ++hundredths) {
                const std::string ratio = std::to_string(hundredths) + " / 100.0";
                const auto classes =
                    db.Column("SELECT OEZK FROM " + std::string(m.bounds) + " WHERE Taxagruppe = '" + row[0] +
                              "' AND CAST(" + m.key + " AS TEXT) = '" + row[1] + "' AND EQRMin <= " + ratio +
                              " AND EQRMax >= " + ratio);
                ASSERT_THAT(classes, SizeIs(1)) << m.bounds << " " << row[0] << " " << row[1] << " " << ratio;
            }
        }
    }
}

TEST_F(DemoReference, ClassesGetWorseAsTheRatioFalls) {
    for (const Module& m : modules) {
        const std::string bounds(m.bounds);
        EXPECT_EQ(
            db.Number("SELECT Count(*) FROM " + bounds + " a JOIN " + bounds + " b USING (Taxagruppe, " +
                      m.key + ") WHERE a.EQRMin > b.EQRMin AND a.OEZK >= b.OEZK"),
            0)
            << bounds;
        EXPECT_THAT(db.Column("SELECT DISTINCT OEZK FROM " + bounds + " ORDER BY OEZK"),
                    ElementsAre("1", "2", "3", "4", "5"));
    }
}

TEST_F(DemoReference, ExpectedValuesAllowARatio) {
    // The divisor 4 - expected value must not be 0, nor the expected value of the reference species.
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaWRRL_ETI WHERE ErwarteterWert NOT BETWEEN 0 AND 3"), 0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaWRRL_ESI WHERE ErwarteterWert NOT BETWEEN 0 AND 3"), 0);
    EXPECT_EQ(db.Number("SELECT Count(*) FROM awaWRRL_ERI WHERE ErwarteterWert NOT BETWEEN 0.1 AND 1"), 0);
}

TEST_F(DemoReference, TextsSayThatTheyAreExamples) {
    for (const auto& [table, column] :
         {std::pair{"awaWRRL_TGZK", "TGZK"}, std::pair{"awaWRRL_RBioregionstyp", "Bioregionstyp"},
          std::pair{"awaWRRL_Klasse", "Bezeichnung"}, std::pair{"AL_Hoehenstufe", "Bezeichnung"}}) {
        EXPECT_THAT(db.Column("SELECT " + std::string(column) + " FROM " + table + " WHERE " + column +
                              " NOT LIKE '%Beispiel%'"),
                    IsEmpty())
            << table;
    }
    EXPECT_THAT(db.Column("SELECT Bezeichnung FROM awaWRRL_Klasse ORDER BY Klassenzahl"),
                ElementsAre("sehr gut (Beispiel)", "gut (Beispiel)", "mäßig (Beispiel)",
                            "unbefriedigend (Beispiel)", "schlecht (Beispiel)"));
}

TEST_F(DemoReference, BioregionsHaveShortSignsWithoutFinalDigit) {
    EXPECT_EQ(db.Number("SELECT Count(*) FROM AL_Bioregion"), 15 + 3);
    EXPECT_THAT(
        db.Column("SELECT Kurzzeichen FROM AL_Bioregion WHERE Kurzzeichen GLOB '*[0-9]' OR Kurzzeichen = ''"),
        IsEmpty());
    EXPECT_THAT(
        db.Rows(
            "SELECT Nummer, Kurzzeichen FROM AL_Bioregion WHERE Bezeichnung LIKE 'Österreichisches Granit%'"),
        ElementsAre(ElementsAre("12", "GG")));
}

TEST_F(DemoReference, ReferenceBioregionsOfTheStationsAreKnown) {
    for (const std::string& list : db.Column("SELECT RefBioregionen FROM UnvUStelle")) {
        std::string rest = list + ",";
        while (!rest.empty()) {
            std::string sign = rest.substr(0, rest.find(','));
            rest.erase(0, rest.find(',') + 1);
            while (!sign.empty() && sign.back() >= '0' && sign.back() <= '9') {
                sign.pop_back();
            }
            EXPECT_EQ(db.Number("SELECT Count(*) FROM AL_Bioregion WHERE Kurzzeichen = '" + sign + "'"), 1)
                << list;
        }
    }
}

TEST_F(DemoReference, ReferenceSpeciesAreTaxaOfTheCatalogueAndStandInOneTable) {
    EXPECT_THAT(
        db.Column("SELECT ID_Art FROM awaRefArt_TypA WHERE ID_Art NOT IN (SELECT ID_ART FROM awaArt)"),
        IsEmpty());
    EXPECT_THAT(db.Column("SELECT ID_Art FROM awaRefArt_TypB WHERE ID_Art NOT IN (SELECT ID_ART FROM awaArt)"
                          " OR ID_AL_Bioregion NOT IN (SELECT ID_AL_Bioregion FROM AL_Bioregion)"
                          " OR ID_AL_Hoehenstufe NOT IN (SELECT ID_AL_Hoehenstufe FROM AL_Hoehenstufe)"),
                IsEmpty());
    // A taxon in both would count twice.
    EXPECT_THAT(
        db.Column("SELECT ID_Art FROM awaRefArt_TypA WHERE ID_Art IN (SELECT ID_Art FROM awaRefArt_TypB)"),
        IsEmpty());
}

TEST_F(DemoReference, KeyOfAnAltitudeStepIsItsNumber) {
    // The digit behind a reference bioregion is compared with the key in the table of reference species.
    EXPECT_EQ(db.Number("SELECT Count(*) FROM AL_Hoehenstufe WHERE ID_AL_Hoehenstufe <> Hoehenstufe"), 0);
}

}  // namespace
}  // namespace FX_Algen::demo_test
