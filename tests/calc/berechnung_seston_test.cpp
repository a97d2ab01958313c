#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "calc/BerechnungSeston.h"
#include "calc/Sestondatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::int32_t TR = 17;

struct Art {
    std::int32_t ID;
    Sestonwerte Werte;
};

struct Fund {
    std::int32_t ID_PS;
    std::int32_t ID_ART;
    std::int32_t Abundanz;
    bool CF = false;
};

/// Taxa and findings of a sub-habitat with the sites 1 and 2, and its results. A column that is not named is
/// 0; those of the valences are Null unless `Verteilung` names the first four.
struct Fall {
    const char* Beschreibung;
    std::vector<Art> Arten;
    std::vector<Fund> Funde;
    std::map<std::string, double> Erwartet;
    std::vector<double> Verteilung = {};
};

void PrintTo(const Fall& fall, std::ostream* out) { *out << fall.Beschreibung; }

const Sestonwerte Oligosaprob{1, {10, 0, 0, 0}};
const Sestonwerte Beta{2, {0, 10, 0, 0}};
const Sestonwerte Unbewertet{};

const Fall Faelle[] = {
    {"no findings", {}, {}, {}},

    // 5*2 / 5 = 2; a share of 1 has no entropy; S - 1 = 0; fewer than two rated findings
    {"one taxon",
     {{1, Beta}},
     {{1, 1, 5}},
     {{"SapIndex", 2}, {"Abundanzsumme", 5}, {"Taxa", 1}, {"Taxa_SI", 1}},
     {0, 10, 0, 0}},

    {"one oligosaprobic taxon",
     {{1, Oligosaprob}},
     {{1, 1, 3}},
     {{"SapIndex", 1}, {"Abundanzsumme", 3}, {"Taxa", 1}, {"Taxa_SI", 1}},
     {10, 0, 0, 0}},

    // Index (3*1 + 3*3) / 6 = 2. H = ln 2, evenness 1, Margalef 1 / ln 6. Dispersion: Q = 3 + 3, A = 6, n =
    // 2:
    // 1. Valences: 30+0, 0+6, 0+18, 0+6 of 60.
    {"two taxa of equal abundance",
     {{1, Oligosaprob}, {2, {3, {0, 2, 6, 2}}}},
     {{1, 1, 3}, {1, 2, 3}},
     {{"SapIndex", 2},
      {"Abundanzsumme", 6},
      {"Taxa", 2},
      {"Taxa_SI", 2},
      {"SI_Streuung", 1},
      {"ShannonundWeaver", 0.6931471805599453},
      {"MArgalef", 0.5581106265512472},
      {"Eveness", 1}},
     {5, 1, 3, 1}},

    // Without valences the eight columns are not written; the index is. Q = 1*(1-1.75)^2 + 3*(2-1.75)^2 =
    // 0.5625 + 0.1875 = 0.75, A = 4, n = 2: sqrt(0.1875) = 0.4330127018922193. H = -(0.25 ln 0.25 + 0.75 ln
    // 0.75) = 0.34657359027997264 + 0.21576155433883565; Margalef 1 / ln 4, evenness H / ln 2.
    {"taxa with index but without valences",
     {{1, {1, {}}}, {2, {2, {}}}},
     {{1, 1, 1}, {1, 2, 3}},
     {{"SapIndex", 1.75},
      {"Abundanzsumme", 4},
      {"Taxa", 2},
      {"SI_Streuung", 0.4330127018922193},
      {"ShannonundWeaver", 0.5623351446188083},
      {"MArgalef", 0.7213475204444817},
      {"Eveness", 0.8112781244591328}}},

    // The unrated taxon pulls the index down: (2*2 + 1*4 + 1*0) / 4 = 2; it adds 1*(0-2)^2 to Q and 1 to A,
    // but not to n: Q = 0 + 4 + 4, A = 4, n = 2: sqrt 2. H: shares 1/2, 1/4, 1/4: 0.5 ln 2 + 2 * 0.25 * 2 ln
    // 2 = 1.5 ln 2. Margalef 2 / ln 4, evenness 1.5 ln 2 / ln 3. Valences 20 and 10 of 30.
    {"an unrated taxon",
     {{1, Beta}, {2, {4, {0, 0, 0, 10}}}, {3, Unbewertet}},
     {{1, 1, 2}, {1, 2, 1}, {1, 3, 1}},
     {{"SapIndex", 2},
      {"Abundanzsumme", 4},
      {"Taxa", 3},
      {"Taxa_SI", 2},
      {"SI_Streuung", 1.4142135623730951},
      {"ShannonundWeaver", 1.0397207708399179},
      {"MArgalef", 1.4426950408889634},
      {"Eveness", 0.9463946303571863}},
     {0, 20.0 / 3, 0, 10.0 / 3}},

    // Two findings with equal values stay two rows: two terms of 0.5 ln 0.5. One taxon: S - 1 = 0.
    {"a taxon with and without CF",
     {{1, Beta}},
     {{1, 1, 1}, {1, 1, 1, true}},
     {{"SapIndex", 2},
      {"Abundanzsumme", 2},
      {"Taxa", 1},
      {"Taxa_SI", 1},
      {"ShannonundWeaver", 0.6931471805599453}},
     {0, 10, 0, 0}},

    {"a taxon at two sampling sites",
     {{1, Beta}},
     {{1, 1, 4}, {2, 1, 4}},
     {{"SapIndex", 2},
      {"Abundanzsumme", 8},
      {"Taxa", 1},
      {"Taxa_SI", 1},
      {"ShannonundWeaver", 0.6931471805599453}},
     {0, 10, 0, 0}},

    // The finding with abundance 0 is one of S = 2 taxa, and its valences are complete; N is 4. Margalef
    // 1 / ln 4; H is 0, so the evenness 0 / ln 2 is.
    {"a taxon with abundance 0",
     {{1, Beta}, {2, Oligosaprob}},
     {{1, 1, 4}, {1, 2, 0}},
     {{"SapIndex", 2}, {"Abundanzsumme", 4}, {"Taxa", 2}, {"Taxa_SI", 2}, {"MArgalef", 0.7213475204444817}},
     {0, 10, 0, 0}},

    {"abundances of 0 alone",
     {{1, Beta}, {2, Unbewertet}},
     {{1, 1, 0}, {1, 2, 0}},
     {{"Taxa", 2}, {"Taxa_SI", 1}}},

    // N = 1: ln 1 = 0 is no divisor.
    {"one individual among three taxa",
     {{1, Beta}, {2, Beta}, {3, Beta}},
     {{1, 1, 1}, {1, 2, 0}, {1, 3, 0}},
     {{"SapIndex", 2}, {"Abundanzsumme", 1}, {"Taxa", 3}, {"Taxa_SI", 3}},
     {0, 10, 0, 0}},

    // Taxon 99 has no row in the catalogue: a taxon, but no abundance, so 1 / ln 5 with S = 2.
    {"a taxon that the catalogue lacks",
     {{1, Beta}},
     {{1, 1, 5}, {1, 99, 7}},
     {{"SapIndex", 2}, {"Abundanzsumme", 5}, {"Taxa", 2}, {"Taxa_SI", 1}, {"MArgalef", 0.6213349345596119}},
     {0, 10, 0, 0}},

    // Valences of 9 in all count in the distribution, but not as complete.
    {"incomplete valences",
     {{1, {2, {3, 6, 0, 0}}}},
     {{1, 1, 1}},
     {{"SapIndex", 2}, {"Abundanzsumme", 1}, {"Taxa", 1}},
     {10.0 / 3, 20.0 / 3, 0, 0}},
};

void Fuelle(Sestondatenbank& db, const Fall& fall) {
    db.Sestonteilraum(TR);
    db.Sestonstelle(1, TR);
    db.Sestonstelle(2, TR);
    for (const auto& art : fall.Arten) db.Sestonart(art.ID, art.Werte);
    for (const auto& fund : fall.Funde) db.Sestonfund(fund.ID_PS, fund.ID_ART, fund.Abundanz, fund.CF);
}

void PruefeVerteilung(const Sestondatenbank& db, const std::vector<double>& erwartet) {
    const char* spalten[] = {"Oligo", "Beta", "Alpha", "Poly"};
    const char* kumuliert[] = {"KumOligo", "KumBeta", "KumAlpha", "KumPoly"};
    double summe = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto wert = db.Sestonergebnis(TR, spalten[i]);
        const auto summiert = db.Sestonergebnis(TR, kumuliert[i]);
        if (erwartet.empty()) {
            EXPECT_TRUE(wert.IsNull()) << spalten[i];
            EXPECT_TRUE(summiert.IsNull()) << kumuliert[i];
            continue;
        }
        summe += erwartet[i];
        EXPECT_EQ(wert.R4(), static_cast<float>(erwartet[i])) << spalten[i];
        EXPECT_FLOAT_EQ(summiert.R4(), static_cast<float>(summe)) << kumuliert[i];
    }
}

class BerechnungSeston : public testing::TestWithParam<Fall> {};

TEST_P(BerechnungSeston, WritesTheRow) {
    const auto& fall = GetParam();
    Sestondatenbank db;
    Fuelle(db, fall);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    PruefeVerteilung(db, fall.Verteilung);
    for (const char* spalte : {"SapIndex", "Abundanzsumme", "Taxa", "Taxa_SI", "SI_Streuung",
                               "ShannonundWeaver", "MArgalef", "Eveness"}) {
        const auto erwartet = fall.Erwartet.find(spalte);
        const double zahl = erwartet == fall.Erwartet.end() ? 0 : erwartet->second;
        const auto wert = db.Sestonergebnis(TR, spalte);
        ASSERT_FALSE(wert.IsNull()) << spalte;
        if (wert.kind() == store::Kind::R4) {
            EXPECT_EQ(wert.R4(), static_cast<float>(zahl)) << spalte;
        } else {
            EXPECT_DOUBLE_EQ(wert.R8(), zahl) << spalte;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, BerechnungSeston, testing::ValuesIn(Faelle), [](const auto& fall) {
    std::string name(fall.param.Beschreibung);
    std::erase_if(name, [](char c) { return c == ','; });
    for (auto& c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
    }
    return name;
});

// 32-bit sums: from 2^24 on they step by 2, so 2^24 + 1 is a tie and goes back to the even 2^24, three times
// over. The index is 3 / 2^24 (the 64-bit 3 / 16777219 is another float), the integer sum counts on.
TEST(BerechnungSestonSummen, AreRoundedTo32BitsAfterEveryAddition) {
    Sestondatenbank db;
    const Sestonwerte bewertet{1, {}};
    Fuelle(db, {"",
                {{1, Unbewertet}, {2, bewertet}, {3, bewertet}, {4, bewertet}},
                {{1, 1, 16777216}, {1, 2, 1}, {1, 3, 1}, {1, 4, 1}},
                {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R8(), 3.0 / 16777216);
    EXPECT_NE(static_cast<float>(3.0 / 16777216), static_cast<float>(3.0 / 16777219));
    EXPECT_EQ(db.Sestonergebnis(TR, "Abundanzsumme").I4(), 16777219);
}

// Sums 0, 1, 2, 6 of V = 9. 10/9 * 2^23 = 9320675.6 and 20/9 * 2^22 = 9320675.6: Beta and Alpha are 9320676
// over 2^23 and 2^22, rounded up. Their sum is 3 * 9320676 / 2^23 = 13981014 / 2^22. A cumulation of the
// unrounded parts would give 10/3 = 13981013.3 / 2^22 and so 13981013 / 2^22.
TEST(BerechnungSestonKumuliert, AddsTheColumnsAsWritten) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, {2, {0, 1, 2, 6}}}}, {{1, 1, 1}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "KumAlpha").R8(), 13981014.0 / 4194304);
    EXPECT_EQ(db.Sestonergebnis(TR, "KumPoly").R8(), 10.0);
}

// The index (1*1 + 2*2) / 3 = 5/3 is rounded to 32 bits, 13981013 / 2^23, which lies d = 1 / (3 * 2^23)
// below. The dispersion takes it so: Q = 2/3 + 3 * d^2 = 2/3 + 4.737e-15, A = 3, n = 2, and sqrt(Q / 3) is
// 0.4714045207910317 * (1 + 3.553e-15) = 0.4714045207910334.
TEST(BerechnungSestonStreuung, TakesTheIndexAsItStandsInTheRow) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, {1, {}}}, {2, {2, {}}}}, {{1, 1, 1}, {1, 2, 2}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R8(), 13981013.0 / 8388608);
    EXPECT_NEAR(db.Sestonergebnis(TR, "SI_Streuung").R8(), 0.4714045207910334, 5e-16);
}

// Sums 1, 4, 2, 0 of V = 7. 10/7 * 2^23 and 40/7 * 2^21 are 11983725.7: Oligo and Beta are 11983726 over 2^23
// and 2^21. In units of 2^-21 that is 2995931.5 + 11983726 = 14979657.5, a tie, which goes to the even
// 14979658. With the unrounded Beta it would be 2995931.5 + 11983725.7 and so 14979657, as 50/7 is.
TEST(BerechnungSestonKumuliert, AddsToTheLastCumulationTheColumnAndNotTheUnroundedPart) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, {2, {1, 4, 2, 0}}}}, {{1, 1, 1}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "KumBeta").R8(), 14979658.0 / 2097152);
}

TEST(BerechnungSestonFunde, CountOnlyThoseOfTheSubHabitat) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Oligosaprob}}, {{1, 1, 3}}, {}});
    db.Sestonstelle(3, TR + 1);
    db.Sestonfund(3, 2, 9);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 2.0F);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa").I4(), 1);
    Berechnung_ExecuteSeston(db.Datenbank(), TR + 1, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR + 1, "SapIndex").R4(), 1.0F);
    EXPECT_EQ(db.Sestonergebnis(TR + 1, "Abundanzsumme").I4(), 9);
}

TEST(BerechnungSestonFunde, CountThoseOfADeletedTaxon) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}}, {{1, 1, 3}}, {}});
    db.Ausfuehren("UPDATE sesArt SET Loeschstatus=-1 WHERE ID_ART=1;");
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 2.0F);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa").I4(), 1);
}

TEST(BerechnungSestonFunde, WithoutAbundanceEnteredCountAmongTheTaxaAlone) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Oligosaprob}}, {{1, 1, 3}, {1, 2, 3}}, {}});
    db.SetzeNull("sesArtPrStelle", "Abundanz", "ID_ART=2");
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 2.0F);
    EXPECT_EQ(db.Sestonergebnis(TR, "Abundanzsumme").I4(), 3);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa").I4(), 2);
}

TEST(BerechnungSestonTmp, HoldsARowForEachFindingOfTheLastSubHabitat) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Unbewertet}}, {{1, 1, 3}, {1, 1, 2, true}, {1, 2, 4}, {2, 1, 3}}, {}});
    db.Ausfuehren("INSERT INTO sesErgProjektTmp (ID_TR, Si, a, n) VALUES(9, 1, 1, 1);");
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    // By site, taxon and CF, the uncertain finding first. n of the unrated finding is the table's default.
    EXPECT_THAT(db.Arbeitszeilen(), ElementsAre("17|2|2|1", "17|2|3|1", "17|0|4|0", "17|2|3|1"));
    Berechnung_ExecuteSeston(db.Datenbank(), TR + 1, false, false);
    EXPECT_THAT(db.Arbeitszeilen(), IsEmpty());
}

TEST(BerechnungSestonInit, EmptiesTheSestonResultsAlone) {
    Sestondatenbank db;
    db.Ausfuehren("INSERT INTO sesErgProjekt (ID) VALUES(3);");
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID) VALUES(4);");
    Berechnung_InitSeston(db.Datenbank());
    EXPECT_THAT(db.Abzug("sesErgProjekt"), IsEmpty());
    EXPECT_TRUE(db.HatErgebnis(4));
}

TEST(BerechnungSestonExecute, NeedsNoMarkerOfTheSubHabitat) {
    Sestondatenbank db;
    db.Sestonart(1, Beta);
    db.Sestonstelle(1, TR);
    db.Sestonfund(1, 1, 3);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 2.0F);
}

TEST(BerechnungSestonExecute, GivesTheSameRowWhateverValenzGewichtSays) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Oligosaprob}}, {{1, 1, 3}, {1, 2, 4}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    const auto ohne = db.Abzug("sesErgProjekt");
    Berechnung_InitSeston(db.Datenbank());
    Berechnung_ExecuteSeston(db.Datenbank(), TR, true, false);
    EXPECT_EQ(db.Abzug("sesErgProjekt"), ohne);
}

TEST(BerechnungSestonExecute, FailsTheSecondTimeByTheKeyAndLeavesTheRow) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}}, {{1, 1, 3}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    const auto vorher = db.Abzug("sesErgProjekt");
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::DuplicateKey);
    EXPECT_EQ(db.Abzug("sesErgProjekt"), vorher);
}

TEST(BerechnungSestonExecute, LeavesTheRowsOfOtherSubHabitats) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}}, {{1, 1, 3}}, {}});
    db.Ausfuehren("INSERT INTO sesErgProjekt (ID, SapIndex) VALUES(3, 1.5);");
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(3, "SapIndex").R4(), 1.5F);
    EXPECT_TRUE(db.Sestonergebnis(3, "Taxa").IsNull());
}

TEST(BerechnungSestonAllein, StoresNothingWithoutAResultRow) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}}, {{1, 1, 3}}, {}});
    Berechnung_Seston(db.Datenbank(), TR, false, false);
    EXPECT_THAT(db.Abzug("sesErgProjekt"), IsEmpty());
    EXPECT_THAT(db.Arbeitszeilen(), ElementsAre("17|2|3|1"));
}

TEST(BerechnungSestonAllein, CalculatesARowAnewAndKeepsValencesThatItDoesNotWrite) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}}, {{1, 1, 3}}, {}});
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    db.Ausfuehren("UPDATE sesArt SET W_B=0, W_SI=1 WHERE ID_ART=1;");
    Berechnung_Seston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 1.0F);
    EXPECT_EQ(db.Sestonergebnis(TR, "Beta").R4(), 10.0F);
}

TEST(BerechnungSestonFehler, WithoutADatabaseIs3343) {
    const store::DatabasePtr keine;
    EXPECT_EQ(Fehlschlag([&] { Berechnung_InitSeston(keine); })->Number(), ErrorNumber::NotADatabase);
    EXPECT_EQ(Fehlschlag([&] { Berechnung_ExecuteSeston(keine, TR, false, false); })->Number(),
              ErrorNumber::NotADatabase);
    EXPECT_EQ(Fehlschlag([&] { Berechnung_Seston(keine, TR, false, false); })->Number(),
              ErrorNumber::NotADatabase);
}

class NullSeston : public testing::TestWithParam<const char*> {};

// Findings 1 and 3 stand around the one of taxon 2, whose value is Null: the first has passed, the row of
// results keeps its key only.
TEST_P(NullSeston, FailsWith94InWordsAndLeavesTheKeyOnly) {
    const std::string feld = GetParam();
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Beta}, {3, Beta}}, {{1, 1, 3}, {1, 2, 4}, {1, 3, 5}}, {}});
    db.SetzeNull("sesArt", feld, "ID_ART=2");
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(fehler->Description(), "Berechnung_Seston: Invalid use of Null: sesArt." + feld +
                                         " is Null for taxon 2 (Gattung2 grün2), sub-habitat 17 (Blöcke 17)");
    EXPECT_THAT(fehler->Statement(), StartsWith("SELECT DISTINCTROW sesArtPrStelle.Abundanz, "));
    EXPECT_TRUE(db.NurSchluessel(TR));
    EXPECT_THAT(db.Arbeitszeilen(), ElementsAre("17|2|3|1"));
}

INSTANTIATE_TEST_SUITE_P(Fields, NullSeston, testing::Values("W_SI", "W_O", "W_B", "W_A", "W_P"));

TEST(NullSestonReihenfolge, NamesTheFirstFindingAndTheFirstFieldOfTheArithmetic) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Beta}}, {{1, 2, 4}, {2, 1, 3}}, {}});
    // Site 1 with taxon 2 comes before site 2 with taxon 1.
    for (const char* feld : {"W_P", "W_B"}) db.SetzeNull("sesArt", feld, "ID_ART=2");
    db.SetzeNull("sesArt", "W_SI", "ID_ART=1");
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false); });
    ASSERT_TRUE(fehler);
    EXPECT_THAT(fehler->Description(), HasSubstr("sesArt.W_B is Null for taxon 2 "));
}

TEST(NullSestonReihenfolge, OfATaxonWithAbundance0FailsNothing) {
    Sestondatenbank db;
    Fuelle(db, {"", {{1, Beta}, {2, Beta}}, {{1, 1, 3}, {1, 2, 0}}, {}});
    db.SetzeNull("sesArt", "W_SI", "ID_ART=2");
    db.SetzeNull("sesArt", "W_O", "ID_ART=2");
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), 2.0F);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa").I4(), 2);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa_SI").I4(), 1);
}

// (2^31 - 1) + 1 leaves 32-bit integers at the second finding.
TEST(BerechnungSestonFehler, OfTheAbundancesSumIs6AndLeavesTheKeyOnly) {
    Sestondatenbank db;
    const auto groesste = std::numeric_limits<std::int32_t>::max();
    Fuelle(db, {"", {{1, Beta}, {2, Beta}}, {{1, 1, groesste}, {1, 2, 1}}, {}});
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::Overflow);
    EXPECT_TRUE(db.NurSchluessel(TR));
    EXPECT_THAT(db.Arbeitszeilen(), ElementsAre("17|2|2147483647|1"));
}

// 32767 taxa are the most that the column holds.
TEST(BerechnungSestonFehler, OfTheTaxaCountIs6AndLeavesTheKeyOnly) {
    Sestondatenbank db;
    db.Sestonstelle(1, TR);
    for (std::int32_t art = 1; art <= 32767; ++art) db.Sestonfund(1, art, 0);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "Taxa").I4(), 32767);
    db.Sestonfund(1, 32768, 0);
    Berechnung_InitSeston(db.Datenbank());
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::Overflow);
    EXPECT_TRUE(db.NurSchluessel(TR));
}

}  // namespace
}  // namespace FX_Algen
