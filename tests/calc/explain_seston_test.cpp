#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "FX_Algen/ExplainSeston.h"
#include "calc/BerechnungSeston.h"
#include "calc/Sestondatenbank.h"
#include "store/OpenConnection.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t TR = 17;

/// Site 1: taxon 1 certain and uncertain, taxon 2 without abundance; site 2: taxon 1, taxon 99 that the
/// catalogue lacks, unrated taxon 3.
void Fuelle(Sestondatenbank& db) {
    db.Sestonteilraum(TR);
    db.Sestonart(1, {2, {0, 10, 0, 0}});
    db.Sestonart(2, {1, {10, 0, 0, 0}});
    db.Sestonart(3, {0, {0, 0, 0, 0}});
    db.Sestonstelle(1, TR);
    db.Sestonstelle(2, TR);
    db.Sestonfund(1, 1, 2);
    db.Sestonfund(1, 1, 1, true);
    db.Sestonfund(1, 2, 0);
    db.Sestonfund(2, 1, 4);
    db.Sestonfund(2, 99, 5);
    db.Sestonfund(2, 3, 1);
}

std::string Kurz(const SestonTerm& posten) {
    return std::to_string(posten.ID_PS) + " " + posten.PSBez + " " + posten.Taxon + (posten.CF ? " cf" : "") +
           " " + store::NumberText(posten.Abundanz) + "*" + store::NumberText(posten.W_SI) + "=" +
           store::NumberText(posten.ValueTerm);
}

std::string Kurz(const SestonOmission& auslassung) {
    const char* regeln[] = {"no abundance", "not in catalogue", "failed here", "not calculated"};
    return std::to_string(auslassung.ID_PS) + " " + std::to_string(auslassung.ID_ART) +
           (auslassung.CF ? " cf" : "") + " " +
           (auslassung.Abundanz ? store::NumberText(*auslassung.Abundanz) : "-") + " " +
           regeln[static_cast<std::size_t>(auslassung.Rule)];
}

template <class Teil>
std::vector<std::string> Kurz(const std::vector<Teil>& teile) {
    std::vector<std::string> texte;
    for (const auto& teil : teile) texte.push_back(Kurz(teil));
    return texte;
}

const ExplainedColumn& Spalte(const SestonExplanation& erklaerung, std::string_view name) {
    const auto fund = std::find_if(erklaerung.Columns.begin(), erklaerung.Columns.end(),
                                   [&](const ExplainedColumn& spalte) { return spalte.Column == name; });
    EXPECT_NE(fund, erklaerung.Columns.end()) << name;
    return *fund;
}

TEST(ExplainSeston, TellsEachFindingThatCountedInTheOrderOfTheCalculation) {
    Sestondatenbank db;
    Fuelle(db);
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_EQ(erklaerung.ID_TR, TR);
    EXPECT_FALSE(erklaerung.Failed);
    EXPECT_THAT(Kurz(erklaerung.Terms),
                ElementsAre("1 Brücke 1 Gattung1 grün1 cf 1*2=2", "1 Brücke 1 Gattung1 grün1 2*2=4",
                            "2 Brücke 2 Gattung1 grün1 4*2=8", "2 Brücke 2 Gattung3 grün3 1*0=0"));
    EXPECT_THAT(erklaerung.Terms[0].Valenzen, ElementsAre(0, 10, 0, 0));
    EXPECT_EQ(erklaerung.Terms[3].ID_ART, 3);
    // Shares 1/8, 1/4, 1/2 and 1/8: p ln p = -3/8 ln 2, -2/4 ln 2, -1/2 ln 2, -3/8 ln 2.
    constexpr double Ln2 = 0.6931471805599453;
    EXPECT_DOUBLE_EQ(*erklaerung.Terms[0].EntropyTerm, -0.375 * Ln2);
    EXPECT_DOUBLE_EQ(*erklaerung.Terms[1].EntropyTerm, -0.5 * Ln2);
    EXPECT_DOUBLE_EQ(*erklaerung.Terms[2].EntropyTerm, -0.5 * Ln2);
    EXPECT_DOUBLE_EQ(*erklaerung.Terms[3].EntropyTerm, -0.375 * Ln2);
}

TEST(ExplainSeston, TellsWhyAFindingDidNotCount) {
    Sestondatenbank db;
    Fuelle(db);
    db.Sestonfund(2, 2, 3);
    db.SetzeNull("sesArtPrStelle", "Abundanz", "ID_ART=2 AND ID_PS=2");
    EXPECT_THAT(Kurz(ExplainSeston(db.Datenbank(), TR).LeftOut),
                ElementsAre("1 2 0 no abundance", "2 2 - no abundance", "2 99 5 not in catalogue"));
}

// 1 + 2 + 4 + 1 = 8; 14 over 8 is 1.75. H = 1.75 ln 2. Q = 7*(2 - 1.75)^2 + 1*1.75^2 = 0.4375 + 3.0625 = 3.5,
// n = 3 rated rows: sqrt(3.5 / (2 * 8)).
TEST(ExplainSeston, TellsTheSums) {
    Sestondatenbank db;
    Fuelle(db);
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_EQ(erklaerung.AbundanceSum, 8);
    EXPECT_EQ(erklaerung.ValueSum, 14);
    EXPECT_EQ(erklaerung.ValenceSums[0], 0);
    EXPECT_EQ(erklaerung.ValenceSums[1], 70);
    EXPECT_EQ(erklaerung.ValenceSums[2], 0);
    EXPECT_EQ(erklaerung.ValenceSums[3], 0);
    EXPECT_DOUBLE_EQ(*erklaerung.EntropySum, -1.75 * 0.6931471805599453);
    EXPECT_DOUBLE_EQ(*erklaerung.SquareSum, 3.5);
    EXPECT_EQ(erklaerung.RatedRows, 3);
    EXPECT_DOUBLE_EQ(Spalte(erklaerung, "SI_Streuung").Result.R8(), 0.46770717334674267);
}

TEST(ExplainSeston, NamesTheTaxaOfEachCount) {
    Sestondatenbank db;
    Fuelle(db);
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    ASSERT_EQ(erklaerung.Counts.size(), 2U);
    const auto& taxa = erklaerung.Counts[0];
    EXPECT_EQ(taxa.Column, "Taxa");
    EXPECT_EQ(taxa.Result.I4(), 4);
    EXPECT_TRUE(taxa.Stored.IsNull());
    ASSERT_EQ(taxa.Taxa.size(), 4U);
    EXPECT_EQ(taxa.Taxa[1].Name, "Gattung2 grün2");
    EXPECT_EQ(taxa.Taxa[3].ID_ART, 99);
    EXPECT_EQ(taxa.Taxa[3].Name, "");
    const auto& bewertet = erklaerung.Counts[1];
    EXPECT_EQ(bewertet.Column, "Taxa_SI");
    EXPECT_EQ(bewertet.Result.I4(), 2);
    EXPECT_EQ(bewertet.Taxa.size(), 2U);
}

TEST(ExplainSeston, ComparesEveryColumnWithTheStoredRow) {
    Sestondatenbank db;
    Fuelle(db);
    EXPECT_EQ(ExplainSeston(db.Datenbank(), TR).Stored, StoredResult::Missing);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_EQ(erklaerung.Stored, StoredResult::Current);
    std::vector<std::string> spalten;
    for (const auto& spalte : erklaerung.Columns) {
        spalten.push_back(spalte.Column);
        EXPECT_EQ(spalte.Result, spalte.Stored) << spalte.Column;
        EXPECT_FALSE(spalte.Differs) << spalte.Column;
    }
    EXPECT_EQ(spalten, Sestonspalten());

    // Taxon 2 gets an abundance of 2: the index is now (14 + 2*1) / 10 = 1.6.
    db.Ausfuehren("UPDATE sesArtPrStelle SET Abundanz=2 WHERE ID_ART=2;");
    erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_EQ(erklaerung.Stored, StoredResult::OutOfDate);
    EXPECT_TRUE(Spalte(erklaerung, "SapIndex").Differs);
    EXPECT_EQ(Spalte(erklaerung, "SapIndex").Result.R4(), 1.6F);
    EXPECT_EQ(Spalte(erklaerung, "SapIndex").Stored.R4(), 1.75F);
    EXPECT_FALSE(Spalte(erklaerung, "Taxa").Differs);
}

TEST(ExplainSeston, ChangesNothing) {
    Sestondatenbank db;
    Fuelle(db);
    db.Ausfuehren("INSERT INTO sesErgProjekt (ID, SapIndex) VALUES(17, 3.5);");
    db.Ausfuehren("INSERT INTO sesErgProjektTmp (ID_TR, Si, a, n) VALUES(9, 1, 1, 1);");
    db.Datenbank();
    const auto ergebnis = db.Abzug("sesErgProjekt");
    const auto arbeit = db.Abzug("sesErgProjektTmp");
    ExplainSeston(db.Datenbank(), TR);
    EXPECT_EQ(db.Abzug("sesErgProjekt"), ergebnis);
    EXPECT_EQ(db.Abzug("sesErgProjektTmp"), arbeit);
}

// A finding that is there during the rerun alone, as one of another program may be: site 1 gets taxon 3 with
// the abundance 7, in front of the findings of site 2.
TEST(ExplainSeston, TellsTheFindingsThatTheRerunSaw) {
    Sestondatenbank db;
    Fuelle(db);
    db.Datenbank()->SharedConnection()->TheEngine().Run(
        "CREATE TRIGGER Zwischenfund AFTER INSERT ON sesErgProjekt BEGIN INSERT INTO sesArtPrStelle (ID_PS, "
        "ID_ART, Abundanz) VALUES (1, 3, 7); END;");
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_THAT(Kurz(erklaerung.Terms),
                ElementsAre("1 Brücke 1 Gattung1 grün1 cf 1*2=2", "1 Brücke 1 Gattung1 grün1 2*2=4",
                            "1 Brücke 1 Gattung3 grün3 7*0=0", "2 Brücke 2 Gattung1 grün1 4*2=8",
                            "2 Brücke 2 Gattung3 grün3 1*0=0"));
    EXPECT_THAT(Kurz(erklaerung.LeftOut), ElementsAre("1 2 0 no abundance", "2 99 5 not in catalogue"));
}

TEST(ExplainSeston, ShowsNoBoxes) {
    Sestondatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    ExplainSeston(db.Datenbank(), TR);
    EXPECT_THAT(fang.Texte(), IsEmpty());
}

TEST(ExplainSeston, OfASubHabitatWithoutFindingsHasNoTermsAndZeros) {
    Sestondatenbank db;
    db.Sestonteilraum(TR);
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    EXPECT_THAT(erklaerung.Terms, IsEmpty());
    EXPECT_THAT(erklaerung.LeftOut, IsEmpty());
    EXPECT_EQ(erklaerung.AbundanceSum, 0);
    EXPECT_EQ(Spalte(erklaerung, "SapIndex").Result.R4(), 0.0F);
    EXPECT_TRUE(Spalte(erklaerung, "Oligo").Result.IsNull());
    EXPECT_FALSE(erklaerung.Failed);
}

TEST(ExplainSeston, TellsHowFarAFailedCalculationCame) {
    Sestondatenbank db;
    Fuelle(db);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    // Taxon 4 stands at site 2 as cf and certain; the calculation meets the uncertain one first.
    db.Sestonart(4, {1, {}});
    db.Sestonfund(2, 4, 6);
    db.Sestonfund(2, 4, 6, true);
    db.SetzeNull("sesArt", "W_A", "ID_ART=4");
    const auto erklaerung = ExplainSeston(db.Datenbank(), TR);
    ASSERT_TRUE(erklaerung.Failed);
    EXPECT_EQ(erklaerung.Failed->Number, ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(erklaerung.Failed->Description, testing::HasSubstr("sesArt.W_A is Null for taxon 4 "));
    EXPECT_EQ(erklaerung.Terms.size(), 4U);
    EXPECT_FALSE(erklaerung.Terms[0].EntropyTerm);
    EXPECT_THAT(Kurz(erklaerung.LeftOut), ElementsAre("1 2 0 no abundance", "2 4 cf 6 failed here",
                                                      "2 4 6 not calculated", "2 99 5 not in catalogue"));
    EXPECT_FALSE(erklaerung.AbundanceSum);
    EXPECT_FALSE(erklaerung.ValueSum);
    EXPECT_FALSE(erklaerung.ValenceSums[0]);
    EXPECT_FALSE(erklaerung.EntropySum);
    EXPECT_FALSE(erklaerung.SquareSum);
    EXPECT_FALSE(erklaerung.RatedRows);
    ASSERT_EQ(erklaerung.Counts.size(), 2U);
    EXPECT_THAT(erklaerung.Counts[0].Taxa, IsEmpty());
    EXPECT_EQ(erklaerung.Stored, StoredResult::OutOfDate);
    EXPECT_TRUE(Spalte(erklaerung, "SapIndex").Result.IsNull());
    EXPECT_EQ(Spalte(erklaerung, "SapIndex").Stored.R4(), 1.75F);
}

TEST(ExplainSeston, TellsTheFailureAtTheFirstOfTwoSitesAlone) {
    Sestondatenbank db;
    Fuelle(db);
    db.SetzeNull("sesArt", "W_SI", "ID_ART=1");
    EXPECT_THAT(Kurz(ExplainSeston(db.Datenbank(), TR).LeftOut),
                ElementsAre("1 1 cf 1 failed here", "1 1 2 not calculated", "1 2 0 no abundance",
                            "2 1 4 not calculated", "2 3 1 not calculated", "2 99 5 not in catalogue"));
    // Without the uncertain twin the same taxon fails at site 1, not at site 2.
    db.Ausfuehren("DELETE * FROM sesArtPrStelle WHERE CF=-1;");
    EXPECT_THAT(Kurz(ExplainSeston(db.Datenbank(), TR).LeftOut),
                ElementsAre("1 1 2 failed here", "1 2 0 no abundance", "2 1 4 not calculated",
                            "2 3 1 not calculated", "2 99 5 not in catalogue"));
}

TEST(ExplainSeston, WithoutADatabaseFailsWith3343) {
    EXPECT_EQ(Fehlschlag([] { ExplainSeston(nullptr, TR); })->Number(), ErrorNumber::NotADatabase);
}

}  // namespace
}  // namespace FX_Algen
