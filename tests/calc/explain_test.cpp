#include "FX_Algen/Explain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Gueteklasse.h"
#include "calc/Testdatenbank.h"
#include "store/OpenConnection.h"
#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int32_t TR = 17;

const ExplainedIndex& Index(const Explanation& explanation, const std::string& spalte) {
    const auto fund = std::find_if(explanation.Indices.begin(), explanation.Indices.end(),
                                   [&](const auto& index) { return index.Column == spalte; });
    if (fund == explanation.Indices.end()) throw std::runtime_error("no index " + spalte);
    return *fund;
}

const ExplainedColumn& Spalte(const Explanation& explanation, const std::string& name) {
    const auto fund = std::find_if(explanation.Columns.begin(), explanation.Columns.end(),
                                   [&](const auto& spalte) { return spalte.Column == name; });
    if (fund == explanation.Columns.end()) throw std::runtime_error("no column " + name);
    return *fund;
}

/// "block taxon" of each term or omission, with what makes it worth telling.
std::string Name(SampleBlock block, const ExplainedFinding& fund) {
    static const char* const zeichen[] = {"MA", "MI", "KA"};
    return std::string(zeichen[static_cast<int>(block)]) + " " + std::to_string(fund.ID_ART) +
           (fund.CF ? " cf." : "") + (fund.ID_TR_MI ? " in " + fund.MI_Bez : "");
}

std::vector<std::string> Posten(const ExplainedIndex& index) {
    std::vector<std::string> namen;
    for (const auto& posten : index.Terms) namen.push_back(Name(posten.Block, posten.Finding));
    return namen;
}

std::vector<std::pair<std::string, LeftOutRule>> Ausgelassen(const ExplainedIndex& index) {
    std::vector<std::pair<std::string, LeftOutRule>> namen;
    for (const auto& auslassung : index.LeftOut) {
        namen.emplace_back(Name(auslassung.Block, auslassung.Finding), auslassung.Rule);
    }
    return namen;
}

std::vector<std::string> AlleTabellen(Testdatenbank& db) {
    std::vector<std::string> abzug;
    for (const char* tabelle :
         {"Teilraum", "awaTeilraum", "awaTeilraum_MI", "awaPrStelle", "awaArtPrStelle", "awaArtPrStelle_MI",
          "awaArt", "awaModulStandard", "awaErgProjekt", "awaErgWRRL"}) {
        for (auto& zeile : db.Abzug(tabelle)) abzug.push_back(tabelle + (": " + zeile));
    }
    return abzug;
}

/// Total cover 40. Macroalgae: 1 with and without cf., 2 without ratings, 3 without Algenart, 4 with weight
/// 0, 5 without cover, 8 with value 0. Stand 5 of 20 percent with 7; stand 6 without cover. Diatom 6.
class Erklaerung : public testing::Test {
protected:
    void SetUp() override {
        db.Teilraum(TR, {40, 30, 40, 30});
        db.Stelle(1, TR);
        db.Art(1, {2, 1, 3, 1, 0, 0, "benthisch", 1});
        db.ArtOhneWerte(2);
        db.Art(3, {1, 1, 1, 1, 0, 0, "", 1});
        db.Art(4, {3.6, 0, 0, 0, 0, 0, "benthisch", 1});
        db.Art(5, {1, 1, 1, 1, 0, 0, "benthisch", 1});
        db.Art(6, {1, 2, 1, 1, 0, 0, "benthisch", 1}, 128);
        db.Art(7, {3, 2, 2, 1, 0, 0, "benthisch", 1});
        db.Art(8, {0, 1, 0, 0, 0, 0, "benthisch", 1});
        db.Fund(1, 1, {20, 0, 2, false});
        db.Fund(1, 1, {10, 0, 0, true});
        db.Fund(1, 2, {4, 0, 0, false});
        db.Fund(1, 3, {4, 0, 1, false});
        db.Fund(1, 4, {4, 0, 0, false});
        db.Fund(1, 5, {0, 0, 0, false});
        db.Fund(1, 6, {0, 8, 0, false});
        db.Fund(1, 8, {4, 0, 0, false});
        db.Bestand(5, TR, 20, 1, 20);
        db.Bestandsart(5, 7, 50);
        db.Bestand(6, TR, 0);
        db.Bestandsart(6, 7, 80);
    }
    void Rechne(bool IstWRRL = false) {
        Berechnung_Init(db.Datenbank());
        Berechnung_Execute(db.Datenbank(), TR, IstWRRL, false, false);
    }
    Testdatenbank db;
};

TEST_F(Erklaerung, TellsEveryContributionOfTheSaprobicIndex) {
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    const auto& index = Index(explanation, "SapIndex");
    EXPECT_THAT(Posten(index), ElementsAre("MA 1 cf.", "MA 1", "MA 3", "MA 4", "MA 8", "MI 7 in Belag 5",
                                           "MI 7 in Belag 6", "KA 6"));
    // 20/40*100 = 50, *1 = 50, *2 = 100; its twin with cf. (-1) comes before it in the order of the keys
    const auto& erster = index.Terms[1];
    EXPECT_EQ(erster.Finding.Taxon, "Gattung1 grün1");
    EXPECT_EQ(erster.Finding.PSBez, "Stelle 1");
    EXPECT_EQ(erster.Abundance, 20);
    EXPECT_EQ(erster.SharePercent, 50);
    EXPECT_EQ(erster.Weight, 1);
    EXPECT_EQ(erster.Value, 2);
    EXPECT_EQ(erster.WeightTerm, 50);
    EXPECT_EQ(erster.ValueTerm, 100);
    EXPECT_EQ(erster.Remark, TermRemark::None);
    EXPECT_EQ(index.Terms[3].Remark, TermRemark::WeightZero);
    EXPECT_EQ(index.Terms[4].Remark, TermRemark::ValueZero);
    // stand 5: share 50, 50 percent of it: 25, *2 = 50, *3 = 150
    EXPECT_EQ(index.Terms[5].SharePercent, 25);
    EXPECT_EQ(index.Terms[5].ValueTerm, 150);
    EXPECT_EQ(index.Terms[6].Remark, TermRemark::StandWithoutCover);
    // weights: 50 + 25 (cf.) + 10 (3) + 0 + 10 (8) + 50 + 0 + 200 (all valves, weight 2) = 345
    // values: 100 + 50 + 10 + 0 + 0 + 150 + 0 + 200 = 510
    EXPECT_EQ(index.WeightSum, 345);
    EXPECT_EQ(index.ValueSum, 510);
    EXPECT_EQ(index.Result, store::Value(510.0F / 345.0F));
    EXPECT_EQ(index.Stored, index.Result);

    EXPECT_THAT(Posten(Index(explanation, "SapIndex_KA")), ElementsAre("KA 6"));
    EXPECT_EQ(Index(explanation, "SapIndex_KA").WeightSum, 200);
}

TEST_F(Erklaerung, TellsWhatWasLeftOutAndWhy) {
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_THAT(
        Ausgelassen(Index(explanation, "SapIndex")),
        ElementsAre(std::pair("MA 2", LeftOutRule::NoRatings), std::pair("MA 5", LeftOutRule::NoAbundance)));
    EXPECT_THAT(
        Ausgelassen(Index(explanation, "TI")),
        ElementsAre(std::pair("MA 2", LeftOutRule::NoRatings), std::pair("MA 3", LeftOutRule::NoAlgenart),
                    std::pair("MA 5", LeftOutRule::NoAbundance)));
    EXPECT_TRUE(Index(explanation, "TI_KA").LeftOut.empty());
}

TEST_F(Erklaerung, TellsTheQuantityIndex) {
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    const auto& index = Index(explanation, "AMI");
    // macroalga 2 mm * 20 / 100 = 0.4, stand 1 mm * 20 / 100 = 0.2
    EXPECT_THAT(Posten(index), ElementsAre("MA 1", "MI 0 in Belag 5"));
    EXPECT_EQ(index.Terms[0].Weight, 2);
    EXPECT_DOUBLE_EQ(index.Terms[0].ValueTerm, 0.4);
    EXPECT_DOUBLE_EQ(index.ValueSum.value(), 0.6);
    EXPECT_EQ(index.Result, index.Stored);
    // 3 has a layer but no Algenart; 2 has neither; the others have no layer
    EXPECT_THAT(
        Ausgelassen(index),
        ElementsAre(std::pair("MA 1 cf.", LeftOutRule::NoLayer), std::pair("MA 2", LeftOutRule::NoLayer),
                    std::pair("MA 3", LeftOutRule::NoAlgenart), std::pair("MA 4", LeftOutRule::NoLayer),
                    std::pair("MA 8", LeftOutRule::NoLayer),
                    std::pair("MI 0 in Belag 6", LeftOutRule::NoLayer)));
}

TEST_F(Erklaerung, TellsClassesAndCounts) {
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    // macroalgae 1 (II), 1 again, 3 (I), 4 (IV), 8 (none); stands 7 twice (III); diatom 6 (I)
    std::vector<ClassRule> regeln;
    for (const auto& zeile : explanation.ClassRows) regeln.push_back(zeile.Rule);
    EXPECT_THAT(regeln,
                ElementsAre(ClassRule::Counted, ClassRule::SameTaxon, ClassRule::Counted, ClassRule::Counted,
                            ClassRule::NoClass, ClassRule::Counted, ClassRule::Counted, ClassRule::Counted));
    EXPECT_EQ(explanation.ClassRows[0].Taxon, "Gattung1 grün1");
    ASSERT_EQ(explanation.Classes.size(), 7U);
    std::vector<std::int32_t> zahlen;
    for (const auto& klasse : explanation.Classes) zahlen.push_back(klasse.Result.I4());
    EXPECT_THAT(zahlen, ElementsAre(2, 0, 1, 0, 2, 0, 1));
    EXPECT_EQ(explanation.Classes[1].Name, "I-II");
    EXPECT_EQ(explanation.Classes[1].Column, "ANZ_Gueteklasse_I_II");

    ASSERT_EQ(explanation.Counts.size(), 8U);
    const auto& taxa = explanation.Counts[0];
    EXPECT_EQ(taxa.Column, "Taxa");
    EXPECT_EQ(taxa.Result, store::Value(7.0));  // 1 to 6 and 8
    EXPECT_EQ(taxa.Taxa.size(), 7U);
    EXPECT_EQ(taxa.Taxa[0].Name, "Gattung1 grün1");
}

TEST_F(Erklaerung, TellsCoversStandsAndValves) {
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.TRBez, "Blöcke 17");
    EXPECT_TRUE(explanation.Sampled);
    EXPECT_FALSE(explanation.IstWRRL);
    EXPECT_EQ(explanation.DG_Gesamt, 40.0F);
    EXPECT_EQ(explanation.DG_Makroalgen, 30.0F);
    EXPECT_EQ(explanation.Schalen, 8);
    EXPECT_EQ(explanation.Summe_KA, 8.0F);
    ASSERT_EQ(explanation.Stands.size(), 2U);
    EXPECT_EQ(explanation.Stands[0].CoverPercent, 20);
    EXPECT_EQ(explanation.Stands[0].SharePercent, 50);
    EXPECT_EQ(explanation.Stands[1].CoverPercent, 0);
}

TEST_F(Erklaerung, ChangesNothing) {
    Rechne();
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, -1);");
    auto& anzahl = store::Thread().GueteklasseAnzahl;
    anzahl = {1, 2, 3, 4, 5, 6, 7};
    db.Datenbank();
    const auto vorher = AlleTabellen(db);
    Explain(db.Datenbank(), TR);
    EXPECT_EQ(AlleTabellen(db), vorher);
    EXPECT_EQ(anzahl, (calc::Klassenzahlen{1, 2, 3, 4, 5, 6, 7}));
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=1");
    const auto mitNull = AlleTabellen(db);
    Explain(db.Datenbank(), TR);
    EXPECT_EQ(AlleTabellen(db), mitNull);
}

// Findings that are there during the rerun alone, as those of another program may be: 12 valves beside 8.
TEST_F(Erklaerung, TellsTheFindingsThatTheRerunSaw) {
    db.Art(9, {1, 1, 1, 1, 0, 0, "benthisch", 1}, 128);
    db.Datenbank()->SharedConnection()->TheEngine().Run(
        "CREATE TRIGGER Zwischenfund AFTER INSERT ON awaErgProjekt BEGIN INSERT INTO awaArtPrStelle (ID_PS, "
        "ID_ART, Schalen_KA) VALUES (1, 9, 12); END;");
    const auto explanation = Explain(db.Datenbank(), TR);
    const auto& index = Index(explanation, "SapIndex_KA");
    EXPECT_THAT(Posten(index), ElementsAre("KA 6", "KA 9"));
    EXPECT_EQ(index.Terms[1].Finding.PSBez, "Stelle 1");
    EXPECT_EQ(explanation.Schalen, 20);
    EXPECT_EQ(explanation.Summe_KA, 20);
}

TEST_F(Erklaerung, SaysCurrentOutOfDateOrMissing) {
    EXPECT_EQ(Explain(db.Datenbank(), TR).State, StoredResult::Missing);
    EXPECT_TRUE(Index(Explain(db.Datenbank(), TR), "SapIndex").Stored.IsNull());
    Rechne();
    auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.State, StoredResult::Current);
    EXPECT_EQ(explanation.Columns.size(), 24U);  // the flag, 16 numbers, 7 classes
    for (const auto& spalte : explanation.Columns) EXPECT_FALSE(spalte.Differs) << spalte.Column;

    db.Ausfuehren("UPDATE awaModulStandard SET SI=2.5 WHERE ID_ART=1;");
    explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.State, StoredResult::OutOfDate);
    EXPECT_TRUE(Spalte(explanation, "SapIndex").Differs);
    EXPECT_TRUE(Spalte(explanation, "ANZ_Gueteklasse_II").Differs);
    EXPECT_FALSE(Spalte(explanation, "TI").Differs);
    // values: 50*2.5 + 25*2.5 instead of 50*2 + 25*2: 510 + 37.5
    EXPECT_EQ(Spalte(explanation, "SapIndex").Result, store::Value(547.5F / 345.0F));
    EXPECT_EQ(Spalte(explanation, "SapIndex").Stored, store::Value(510.0F / 345.0F));
    Rechne();
    EXPECT_EQ(Explain(db.Datenbank(), TR).State, StoredResult::Current);
}

TEST_F(Erklaerung, ComparesEveryColumnThatACalculationWrites) {
    for (const char* spalte : {"SapIndex",
                               "SapIndex_KA",
                               "TI",
                               "TI_N",
                               "TI_KA",
                               "AMI",
                               "DG_Gesamt",
                               "DG_Makroalgen",
                               "Taxa",
                               "Taxa_KA",
                               "Taxa_SI",
                               "Taxa_SI_KA",
                               "TaxaSap",
                               "TaxaTI",
                               "TaxaTI_N",
                               "TaxaTI_KA",
                               "ANZ_Gueteklasse_I",
                               "ANZ_Gueteklasse_I_II",
                               "ANZ_Gueteklasse_II",
                               "ANZ_Gueteklasse_II_III",
                               "ANZ_Gueteklasse_III",
                               "ANZ_Gueteklasse_III_IV",
                               "ANZ_Gueteklasse_IV"}) {
        Rechne();
        db.Ausfuehren(std::string("UPDATE awaErgProjekt SET ") + spalte + "=99 WHERE ID=17;");
        const auto explanation = Explain(db.Datenbank(), TR);
        EXPECT_EQ(explanation.State, StoredResult::OutOfDate) << spalte;
        EXPECT_TRUE(Spalte(explanation, spalte).Differs) << spalte;
        EXPECT_EQ(std::count_if(explanation.Columns.begin(), explanation.Columns.end(),
                                [](const auto& zeile) { return zeile.Differs; }),
                  1)
            << spalte;
    }
}

/// Leaves the rows of an assessment: it calculates both indices, and no quantity index.
void Bewerte(Testdatenbank& db, bool IstWRRL = true) {
    Berechnung_Init(db.Datenbank());
    db.Ausfuehren(std::string("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES(17, ") +
                  (IstWRRL ? "-1" : "0") + ");");
    Berechnung_Saprobie(db.Datenbank(), TR, false, IstWRRL, false, false);
    Berechnung_Trophie(db.Datenbank(), TR, IstWRRL, false, false);
    db.Ausfuehren("DELETE * FROM awaErgWRRL;");
    db.Ausfuehren("INSERT INTO awaErgWRRL (ID, Taxagruppe) VALUES(17, 'Alle');");
    db.Datenbank();
}

TEST_F(Erklaerung, OfTheRowOfAnAssessmentMissesNoQuantityIndex) {
    Bewerte(db);
    auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.State, StoredResult::Current);
    EXPECT_TRUE(explanation.IstWRRL);
    EXPECT_TRUE(Spalte(explanation, "AMI").Result.IsNull());
    EXPECT_EQ(explanation.Indices.size(), 5U);

    // a quantity index that would fail is none of its concern
    db.SetzeNull("awaArtPrStelle", "DG_MA", "ID_ART=1 AND SD_MA=2");
    Bewerte(db);
    explanation = Explain(db.Datenbank(), TR);
    EXPECT_FALSE(explanation.Failed.has_value());
    EXPECT_EQ(explanation.State, StoredResult::Current);

    db.Ausfuehren("UPDATE awaModulStandard SET SI=2.5 WHERE ID_ART=3;");
    EXPECT_EQ(Explain(db.Datenbank(), TR).State, StoredResult::OutOfDate);
}

TEST_F(Erklaerung, MissesTheQuantityIndexWhereNoAssessmentLeftTheRow) {
    // without the row in awaErgWRRL, with that of the diatoms alone, without the flag
    Bewerte(db);
    db.Ausfuehren("DELETE * FROM awaErgWRRL;");
    EXPECT_TRUE(Spalte(Explain(db.Datenbank(), TR), "AMI").Differs);
    db.Ausfuehren("INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES(17, -1, 'KA');");
    EXPECT_TRUE(Spalte(Explain(db.Datenbank(), TR), "AMI").Differs);
    Bewerte(db, false);
    EXPECT_TRUE(Spalte(Explain(db.Datenbank(), TR), "AMI").Differs);
    // a calculation made after the assessment has a quantity index, which is compared
    Bewerte(db);
    Rechne(true);
    EXPECT_EQ(Explain(db.Datenbank(), TR).State, StoredResult::Current);
    db.Ausfuehren("UPDATE awaErgProjekt SET AMI=99 WHERE ID=17;");
    EXPECT_TRUE(Spalte(Explain(db.Datenbank(), TR), "AMI").Differs);
}

TEST_F(Erklaerung, OfASubHabitatWithoutAlgaeSampleHasNothingToTell) {
    const auto explanation = Explain(db.Datenbank(), 99);
    EXPECT_FALSE(explanation.Sampled);
    EXPECT_EQ(explanation.State, StoredResult::Missing);
    EXPECT_TRUE(explanation.Indices.empty());
}

TEST_F(Erklaerung, TellsHowFarAFailedCalculationCame) {
    db.SetzeNull("awaModulStandard", "Trophiewert", "ID_ART=7");
    EXPECT_TRUE(Fehlschlag([&] { Rechne(); }).has_value());
    const auto explanation = Explain(db.Datenbank(), TR);
    ASSERT_TRUE(explanation.Failed.has_value());
    EXPECT_EQ(explanation.Failed->Number, ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(explanation.Failed->Description, HasSubstr("taxon 7"));
    EXPECT_EQ(explanation.State, StoredResult::Current);
    EXPECT_EQ(Index(explanation, "SapIndex").Result, store::Value(510.0F / 345.0F));
    const auto& ti = Index(explanation, "TI");
    EXPECT_TRUE(ti.Result.IsNull());
    EXPECT_THAT(Posten(ti), ElementsAre("MA 1 cf.", "MA 1", "MA 4", "MA 8"));
    EXPECT_THAT(Ausgelassen(ti), Contains(std::pair("MI 7 in Belag 5", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(ti), Contains(std::pair("MI 7 in Belag 6", LeftOutRule::NotCalculated)));
    EXPECT_FALSE(ti.WeightSum.has_value());
    EXPECT_FALSE(Index(explanation, "AMI").ValueSum.has_value());
    EXPECT_EQ(Index(explanation, "SapIndex").ValueSum, 510);
    EXPECT_THAT(Ausgelassen(ti), Contains(std::pair("KA 6", LeftOutRule::NotCalculated)));
}

/// How often a rule stands in an index.
std::ptrdiff_t Anzahl(const ExplainedIndex& index, LeftOutRule regel) {
    return std::count_if(index.LeftOut.begin(), index.LeftOut.end(),
                         [&](const auto& auslassung) { return auslassung.Rule == regel; });
}

TEST_F(Erklaerung, OfAFailureAtAMacroalgaNamesItAndClaimsNothingOfWhatWasNotRead) {
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=4");
    const auto explanation = Explain(db.Datenbank(), TR);
    ASSERT_TRUE(explanation.Failed.has_value());
    const auto& sap = Index(explanation, "SapIndex");
    EXPECT_THAT(Posten(sap), ElementsAre("MA 1 cf.", "MA 1", "MA 3"));
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MA 4", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MA 8", LeftOutRule::NotCalculated)));
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("KA 6", LeftOutRule::NotCalculated)));
    EXPECT_EQ(Anzahl(sap, LeftOutRule::FailedHere), 1);
    for (const char* spalte : {"SapIndex_KA", "TI", "TI_N", "TI_KA", "AMI"}) {
        EXPECT_EQ(Anzahl(Index(explanation, spalte), LeftOutRule::FailedHere), 0) << spalte;
    }
    // the calculation did not come to the valves, and yet there are 8 of them
    EXPECT_EQ(explanation.Schalen, 8);
    EXPECT_EQ(explanation.Summe_KA, 8);
    EXPECT_EQ(explanation.DG_Gesamt, 40.0F);
    ASSERT_EQ(explanation.Stands.size(), 2U);
    EXPECT_EQ(explanation.Stands[0].CoverPercent, 20);
    EXPECT_FALSE(explanation.Stands[0].SharePercent.has_value());
    for (const auto& index : explanation.Indices) {
        EXPECT_FALSE(index.WeightSum.has_value()) << index.Column;
        EXPECT_FALSE(index.ValueSum.has_value()) << index.Column;
    }
    ASSERT_EQ(explanation.Counts.size(), 8U);
    for (const auto& zahl : explanation.Counts) {
        EXPECT_TRUE(zahl.Result.IsNull()) << zahl.Column;
        EXPECT_TRUE(zahl.Taxa.empty()) << zahl.Column;
    }
}

TEST_F(Erklaerung, OfAFailureAtADiatomNamesItInEveryIndexOfTheRoutine) {
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=6");
    const auto explanation = Explain(db.Datenbank(), TR);
    for (const char* spalte : {"SapIndex", "SapIndex_KA"}) {
        EXPECT_THAT(Ausgelassen(Index(explanation, spalte)),
                    Contains(std::pair("KA 6", LeftOutRule::FailedHere)));
    }
    EXPECT_THAT(Ausgelassen(Index(explanation, "TI_KA")),
                ElementsAre(std::pair("KA 6", LeftOutRule::NotCalculated)));
    EXPECT_EQ(explanation.Summe_KA, 8.0F);
    EXPECT_EQ(explanation.Stands[0].SharePercent, 50);
}

TEST_F(Erklaerung, OfTwoFindingsOfATaxonNamesTheOneThatWasReadFirst) {
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=1");
    const auto explanation = Explain(db.Datenbank(), TR);
    // the twin with cf. comes first in the order of the keys
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MA 1 cf.", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MA 1", LeftOutRule::NotCalculated)));
}

TEST_F(Erklaerung, OfATotalCoverThatIsNullDoesNotCallItTooSmall) {
    db.SetzeNull("awaTeilraum", "DG_Gesamt", "ID_TR=17");
    const auto explanation = Explain(db.Datenbank(), TR);
    ASSERT_TRUE(explanation.Failed.has_value());
    EXPECT_FALSE(explanation.DG_Gesamt.has_value());
    EXPECT_EQ(explanation.DG_Makroalgen, 30.0F);
    const auto& sap = Index(explanation, "SapIndex");
    EXPECT_EQ(Anzahl(sap, LeftOutRule::NoTotalCover), 0);
    EXPECT_EQ(Anzahl(sap, LeftOutRule::FailedHere), 0);
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MA 1", LeftOutRule::NotCalculated)));
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MA 2", LeftOutRule::NoRatings)));
}

TEST_F(Erklaerung, OfAStandWithoutCoverNamesTheStand) {
    db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=5");
    const auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MI 0 in Belag 5", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MI 7 in Belag 5", LeftOutRule::NotCalculated)));
    EXPECT_EQ(Anzahl(Index(explanation, "SapIndex_KA"), LeftOutRule::FailedHere), 0);
    EXPECT_THAT(Ausgelassen(Index(explanation, "AMI")),
                Contains(std::pair("MI 0 in Belag 5", LeftOutRule::NotCalculated)));
    EXPECT_FALSE(explanation.Stands[0].CoverPercent.has_value());
    EXPECT_FALSE(explanation.Stands[0].SharePercent.has_value());
}

TEST_F(Erklaerung, OfAFailingQuantityIndexNamesMacroalgaOrStand) {
    db.SetzeNull("awaArtPrStelle", "DG_MA", "ID_ART=1 AND SD_MA=2");
    auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_THAT(Ausgelassen(Index(explanation, "AMI")), Contains(std::pair("MA 1", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(Index(explanation, "AMI")),
                Contains(std::pair("MI 0 in Belag 5", LeftOutRule::NotCalculated)));
    EXPECT_FALSE(Index(explanation, "AMI").ValueSum.has_value());
    EXPECT_TRUE(Index(explanation, "TI").ValueSum.has_value());

    db.Ausfuehren("UPDATE awaArtPrStelle SET DG_MA=20 WHERE ID_ART=1 AND SD_MA=2;");
    db.Datenbank();
    // the assessment variant reads the classic cover of a stand in the quantity index alone
    db.SetzeNull("awaTeilraum_MI", "DG_MI", "ID_TR_MI=5");
    EXPECT_TRUE(Fehlschlag([&] { Rechne(true); }).has_value());
    explanation = Explain(db.Datenbank(), TR);
    EXPECT_TRUE(explanation.IstWRRL);
    EXPECT_THAT(Ausgelassen(Index(explanation, "AMI")),
                Contains(std::pair("MI 0 in Belag 5", LeftOutRule::FailedHere)));
}

TEST_F(Erklaerung, OfAFailingClassCountNamesTheTaxonOfTheStand) {
    // without total cover the stands are read for the class counts alone
    db.Ausfuehren("UPDATE awaTeilraum SET DG_Gesamt=0 WHERE ID_TR=17;");
    db.Datenbank();
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=7");
    const auto explanation = Explain(db.Datenbank(), TR);
    const auto& sap = Index(explanation, "SapIndex");
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MI 7 in Belag 5", LeftOutRule::FailedHere)));
    EXPECT_THAT(Ausgelassen(sap), Contains(std::pair("MI 7 in Belag 6", LeftOutRule::NoTotalCover)));
    EXPECT_FALSE(explanation.Stands[0].SharePercent.has_value());
}

TEST_F(Erklaerung, OfTheAssessmentVariantTellsAllValvesAndThoseThatCount) {
    // 8 valves of diatom 6; further 5 of another life form and 87 without ratings
    db.Art(14, {2, 1, 1, 1, 0, 0, "benthisch", 2}, 128);
    db.ArtOhneWerte(15, 128);
    db.Fund(1, 14, {0, 5, 0, false});
    db.Fund(1, 15, {0, 87, 0, false});
    Rechne(true);
    auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.Schalen, 100);
    EXPECT_EQ(explanation.Summe_KA, 8.0F);
    Rechne(false);
    explanation = Explain(db.Datenbank(), TR);
    EXPECT_EQ(explanation.Schalen, 100);
    EXPECT_EQ(explanation.Summe_KA, 100.0F);
}

TEST_F(Erklaerung, OfTheAssessmentVariantNamesItsOwnRules) {
    db.Art(10, {2, 1, 1, 1, 0, 0, "benthisch", 2});
    db.Art(11, {2, 1, 1, 1, 0, 0, "benthisch", 1}, 132);
    db.Art(12, {2, 1, 1, 1, 0, 0, "benthisch", 1}, 128);
    db.Art(13, {2, 1, 1, 1, 0, 0, "benthisch", 1});
    db.Ausfuehren("UPDATE awaArt SET ID_UFAM=0 WHERE ID_ART=13;");
    for (std::int32_t art = 10; art <= 13; ++art) db.Fund(1, art, {1, 0, 0, false});
    db.Art(14, {2, 1, 1, 1, 0, 0, "benthisch", 2}, 128);
    db.Fund(1, 14, {0, 5, 0, false});
    Rechne(true);
    const auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_TRUE(explanation.IstWRRL);
    EXPECT_EQ(explanation.State, StoredResult::Current);
    EXPECT_THAT(
        Ausgelassen(Index(explanation, "SapIndex")),
        ElementsAre(std::pair("MA 10", LeftOutRule::OtherLebensform),
                    std::pair("MA 11", LeftOutRule::OtherMajorGroup),
                    std::pair("MA 12", LeftOutRule::OtherMajorGroup),
                    std::pair("MA 13", LeftOutRule::NoTaxonomy),
                    std::pair("KA 14", LeftOutRule::OtherLebensform),
                    std::pair("MA 2", LeftOutRule::NoRatings), std::pair("MA 5", LeftOutRule::NoAbundance)));
}

TEST_F(Erklaerung, WithoutTotalCoverSaysSoOfEveryCover) {
    db.Ausfuehren("UPDATE awaTeilraum SET DG_Gesamt=0 WHERE ID_TR=17;");
    Rechne();
    const auto explanation = Explain(db.Datenbank(), TR);
    EXPECT_THAT(Posten(Index(explanation, "SapIndex")), ElementsAre("KA 6"));
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MI 7 in Belag 5", LeftOutRule::NoTotalCover)));
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                Contains(std::pair("MA 1", LeftOutRule::NoTotalCover)));
}

TEST_F(Erklaerung, ATotalCoverThatWasNotEnteredIsNoCoverOf0) {
    db.SetzeNull("awaTeilraum", "DG_Gesamt", "ID_TR=17");
    EXPECT_TRUE(Fehlschlag([&] { Rechne(); }).has_value());
    const auto explanation = Explain(db.Datenbank(), TR);
    ASSERT_TRUE(explanation.Failed.has_value());
    EXPECT_EQ(explanation.Failed->Number, ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(explanation.DG_Gesamt, std::nullopt);
    EXPECT_EQ(explanation.DG_Makroalgen, 30);
    // Never reached by the calculation, and yet there are 8 of them.
    EXPECT_EQ(explanation.Summe_KA, 8);
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                testing::Contains(std::pair("MA 1", LeftOutRule::NotCalculated)));
    EXPECT_THAT(Ausgelassen(Index(explanation, "SapIndex")),
                testing::Not(testing::Contains(testing::Pair(testing::_, LeftOutRule::NoTotalCover))));
}

}  // namespace
}  // namespace FX_Algen
