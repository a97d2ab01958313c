#include "fxalgen/explain/SestonText.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include "app/SestonFixture.h"

// The explanation of seston: by hand where a part of it is meant, through the command where the whole is.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::Not;

namespace {

class ExplainedSeston : public SestonFixture {};

TEST_F(ExplainedSeston, TellsFindingsByShareSumsAndFormulas) {
    CalculateSeston();
    const Outcome outcome = Call({"explain", path_, "Teilraum:12"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    const std::string& out = outcome.Out;
    // No algae sample: nothing of the algae.
    EXPECT_THAT(
        out, testing::StartsWith("Teilraum 12: Flüsse / Oberlauf / Brücke / 12.05.2026 / Ufer\n\nSeston\n\n"
                                 "  Funde nach ihrem Anteil\n\n"));
    EXPECT_THAT(out, Not(HasSubstr("Algenaufnahme")));
    EXPECT_THAT(out, Not(HasSubstr("WRRL")));
    // 4 of 10, 4 * 2.5 = 10, 0.4 ln 0.4 = -0.3665.
    EXPECT_THAT(out, testing::ContainsRegex("Stephanodiscus hantzschii +Brücke, Mitte +4 +40,00 +2,5 +10,00 +"
                                            "0/5/5/0 +-0,3665\n"));
    EXPECT_THAT(out,
                testing::ContainsRegex("Planktothrix rubescens +Brücke, Mitte +2 +20,00 +0 +0,00 +"
                                       "0/0/0/0 +-0,3219 +ohne Saprobiewert: zieht den Index gegen 0\n"));
    EXPECT_LT(out.find("Asterionella formosa"), out.find("Planktothrix rubescens"));
    EXPECT_THAT(out,
                testing::ContainsRegex("Stephanodiscus hantzschii cf. +Brücke, Mitte +0 +keine Abundanz, "
                                       "oder 0: zählt nur unter den Taxa\n"));
    EXPECT_THAT(out, HasSubstr("  SapIndex = 16 / 10 = 1,6; gespeichert: 1,6\n"));
    // The rated taxa alone: 16 / 8.
    EXPECT_THAT(out,
                HasSubstr("  Ohne Saprobiewert: 2 von N = 10. Der Index zählt diese Abundanz mit dem Wert "
                          "0; die Taxa mit Saprobiewert"));
    EXPECT_THAT(out, HasSubstr("ergäben 2,00.\n"));
    EXPECT_THAT(out, HasSubstr("  SI_Streuung = √(8,4 / ((2 - 1) × 10)) = 0,9165"));
    EXPECT_THAT(out, HasSubstr("o 20, b 40, a 20, p 0, zusammen V = 80\n"));
    EXPECT_THAT(out, HasSubstr("  Oligo = 20 / 80 × 10 = 2,5; gespeichert: 2,5\n"));
    EXPECT_THAT(out, HasSubstr("  KumOligo = Oligo = 2,5; gespeichert: 2,5\n"));
    EXPECT_THAT(out, HasSubstr("  KumBeta = 2,5 + 5 = 7,5; gespeichert: 7,5\n"));
    EXPECT_THAT(out, HasSubstr("  Summe von p ln p = -1,0549, mit p = Abundanz / N\n"));
    EXPECT_THAT(out, HasSubstr("  MArgalef = (S - 1) / ln(N) = (3 - 1) / ln(10) = 0,868588"));
    EXPECT_THAT(out, HasSubstr("  Eveness = H / ln(S) = 1,05492"));
    EXPECT_THAT(out, HasSubstr("  Taxa = 3; gespeichert: 3\n"));
    EXPECT_THAT(out, HasSubstr("  Taxa_SI = 2; gespeichert: 2\n"));
    EXPECT_THAT(out, testing::EndsWith("Gespeichertes Ergebnis: aktuell\n"));
}

TEST_F(ExplainedSeston, SpeaksEnglishWhereAsked) {
    CalculateSeston();
    const std::string out = Call({"explain", path_, "Teilraum:12", "--lang", "en"}).Out;
    EXPECT_THAT(out, HasSubstr("Findings by their share"));
    EXPECT_THAT(
        out,
        testing::ContainsRegex(
            "  Taxon +Found at +Abundance +Share \\[%\\] +SI +Abundance × SI +o/b/a/p +p ln p +Remark\n"));
    EXPECT_THAT(out, HasSubstr("  SapIndex = 16 / 10 = 1.6; stored: 1.6\n"));
    EXPECT_THAT(out, HasSubstr("  Without saprobic value: 2 of N = 10."));
    EXPECT_THAT(out, testing::EndsWith("Stored result: current\n"));
}

TEST_F(ExplainedSeston, StandsBehindTheAlgaeWhereThereAreBoth) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    CalculateSeston();
    const std::string out = Call({"explain", path_, "Teilraum:13"}).Out;
    EXPECT_LT(out.find("(SapIndex)\n"), out.find("\nSeston\n\n"));
    EXPECT_THAT(out, HasSubstr("  SapIndex = 7,5 / 5 = 1,5; gespeichert: 1,5\n"));
    EXPECT_THAT(out, HasSubstr("  SI_Streuung = 0 (weniger als 2 Funde mit Saprobiewert); gespeichert: 0\n"));
    EXPECT_THAT(out, HasSubstr("  Eveness = 0 (S ist nicht über 1); gespeichert: 0\n"));
    EXPECT_THAT(out, Not(HasSubstr("Ohne Saprobiewert:")));
}

TEST_F(ExplainedSeston, KeepsNoStoredResultOfTheAlgaeFromBeingTold) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"DELETE * FROM awaTeilraum WHERE ID_TR=13;"});
    const std::string out = Call({"explain", path_, "Teilraum:13"}).Out;
    EXPECT_THAT(out, HasSubstr("Keine Algenaufnahme"));
    EXPECT_THAT(out, HasSubstr("\nSeston\n\n"));
}

TEST_F(ExplainedSeston, IsNoPartOfASubHabitatWithoutSeston) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    CalculateSeston();
    EXPECT_THAT(Call({"explain", path_, "Teilraum:11"}).Out, Not(HasSubstr("Seston")));
    EXPECT_TRUE(Json({"explain", "Teilraum:11"}).at("Seston").is_null());
}

TEST_F(ExplainedSeston, SaysThatASampleHadNoFindings) {
    Execute({"DELETE * FROM sesArtPrStelle WHERE ID_PS=1;"});
    CalculateSeston();
    const std::string out = Call({"explain", path_, "Teilraum:12"}).Out;
    EXPECT_THAT(out, HasSubstr("Ufer\n\nSeston\n\n  Keine Funde von Seston.\n"));
    EXPECT_THAT(out, HasSubstr("  SapIndex = 0 (keine Abundanz: kein Index); gespeichert: 0\n"));
    EXPECT_THAT(out, HasSubstr("  V ist nicht über 0: die Verteilung bleibt leer.\n"));
}

// A mark, or a sampling site: either tells that seston was looked for.
TEST_F(ExplainedSeston, SaysSoForAMarkOrASiteAlone) {
    Execute({"DELETE * FROM sesArtPrStelle WHERE ID_PS=1;", "DELETE * FROM sesPrStelle WHERE ID_PS=1;",
             "DELETE * FROM sesArtPrStelle WHERE ID_PS=2;", "DELETE * FROM sesTeilraum WHERE ID_TR=13;"});
    for (const char* teilraum : {"Teilraum:12", "Teilraum:13"}) {
        EXPECT_THAT(Call({"explain", path_, teilraum}).Out, HasSubstr("\n  Keine Funde von Seston.\n"))
            << teilraum;
    }
}

TEST_F(ExplainedSeston, ShowsTheMostAbundantFirst) {
    Execute({"UPDATE sesArtPrStelle SET Abundanz=9 WHERE ID_PS=1 AND ID_ART=3;"});
    const std::string out = Call({"explain", path_, "Teilraum:12"}).Out;
    EXPECT_LT(out.find("Planktothrix rubescens"), out.find("Stephanodiscus hantzschii"));
    EXPECT_LT(out.find("Stephanodiscus hantzschii"), out.find("Asterionella formosa"));
}

TEST_F(ExplainedSeston, GivesTheSameAsJson) {
    CalculateSeston();
    const nlohmann::json seston = Json({"explain", "Teilraum:12"}).at("Seston");
    // 0.4 ln 0.4 = -0.36651629.
    nlohmann::json term = seston.at("Terms").at(0);
    EXPECT_NEAR(term.at("EntropyTerm").get<double>(), -0.36651629, 1e-8);
    term.erase("EntropyTerm");
    EXPECT_EQ(term, nlohmann::json({{"ID_ART", 1},
                                    {"Taxon", "Stephanodiscus hantzschii"},
                                    {"CF", false},
                                    {"ID_PS", 1},
                                    {"PSBez", "Brücke, Mitte"},
                                    {"Abundanz", 4.0},
                                    {"W_SI", 2.5},
                                    {"Valenzen", {0.0, 5.0, 5.0, 0.0}},
                                    {"ValueTerm", 10.0}}));
    EXPECT_EQ(seston.at("LeftOut").at(0).at("Abundanz"), 0.0);
    // H of the sample is 1.054920.
    EXPECT_NEAR(seston.at("EntropySum").get<double>(), -1.054920, 1e-6);
    EXPECT_EQ(seston.at("Counts").at(1).at("Column"), "Taxa_SI");
    EXPECT_EQ(seston.at("Columns").size(), 16U);
    EXPECT_EQ(seston.at("Columns").at(8).at("Column"), "SapIndex");
    EXPECT_EQ(seston.at("Columns").at(8).at("Stored").get<float>(), 1.6F);
    EXPECT_EQ(seston.at("State"), "Current");
    EXPECT_EQ(seston.at("Terms").size(), 3U);
    EXPECT_EQ(seston.at("LeftOut").at(0).at("Rule"), "NoAbundance");
    EXPECT_EQ(seston.at("LeftOut").at(0).at("CF"), true);
    EXPECT_EQ(seston.at("AbundanceSum"), 10.0);
    EXPECT_EQ(seston.at("ValueSum"), 16.0);
    EXPECT_EQ(seston.at("ValenceSums"), nlohmann::json({20.0, 40.0, 20.0, 0.0}));
    EXPECT_EQ(seston.at("RatedRows"), 2);
    EXPECT_NEAR(seston.at("SquareSum").get<double>(), 8.4, 1e-6);
    EXPECT_EQ(seston.at("Counts").at(0).at("Taxa").size(), 3U);
    EXPECT_TRUE(seston.at("Failed").is_null());
}

TEST_F(ExplainedSeston, ComparesWithTheStoredRowAndChangesNothing) {
    CalculateSeston();
    Execute({"UPDATE sesArtPrStelle SET Abundanz=8 WHERE ID_PS=1 AND ID_ART=1 AND CF=0;"});
    const std::string out = Call({"explain", path_, "Teilraum:12"}).Out;
    // 8 * 2.5 + 4 * 1.5 = 26 of 14.
    EXPECT_THAT(out, HasSubstr("  SapIndex = 26 / 14 = 1,857143; gespeichert: 1,6\n"));
    EXPECT_THAT(out, HasSubstr("Gespeichertes Ergebnis: veraltet\n"));
    EXPECT_THAT(out, testing::ContainsRegex("\n  Abundanzsumme +14 +10\n"));
    // What is still the same is not among the differences.
    EXPECT_THAT(out, Not(testing::ContainsRegex("\n  Taxa +3 +3\n")));
    EXPECT_EQ(One("SELECT Abundanzsumme FROM sesErgProjekt WHERE ID=12;").I4(), 10);
}

/// Database file and log, byte for byte.
std::string Bytes(const std::string& path) {
    std::string all;
    for (const char* suffix : {"", "-wal"}) {
        std::ifstream file(path + suffix, std::ios::binary);
        all += std::string(std::istreambuf_iterator<char>(file), {}) + "|";
    }
    return all;
}

// Not only the rows: a file that changes looks like news to other programs and to backups.
TEST_F(ExplainedSeston, LeavesTheFileAsItWas) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    CalculateSeston();
    for (const char* teilraum : {"Teilraum:12", "Teilraum:13"}) {
        const std::string before = Bytes(path_);
        ASSERT_EQ(Call({"explain", path_, teilraum}).Code, 0);
        EXPECT_TRUE(Bytes(path_) == before) << teilraum;
    }
}

TEST_F(ExplainedSeston, TellsOfStoredNumbersWhoseSampleIsGone) {
    CalculateSeston();
    Execute({"DELETE * FROM sesArtPrStelle WHERE ID_PS=1;", "DELETE * FROM sesPrStelle WHERE ID_PS=1;",
             "DELETE * FROM sesTeilraum WHERE ID_TR=12;"});
    const std::string out = Call({"explain", path_, "Teilraum:12"}).Out;
    EXPECT_THAT(out, HasSubstr("  Keine Funde von Seston.\n"));
    EXPECT_THAT(out, HasSubstr("Gespeichertes Ergebnis: veraltet\n"));
}

TEST_F(ExplainedSeston, TellsWhyTheCalculationFails) {
    Execute({"UPDATE sesArt SET W_SI=Null WHERE ID_ART=1;"});
    const Outcome outcome = Call({"explain", path_, "Teilraum:12"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("hier abgebrochen: ein Wert fehlt (Null)"));
    // Sums that were not completed are not shown.
    EXPECT_THAT(outcome.Out,
                HasSubstr("Saprobienindex\n\n  SapIndex: nicht berechnet; nicht gespeichert\n\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("  KumPoly: nicht berechnet; nicht gespeichert\n\n"));
    EXPECT_THAT(outcome.Out, testing::ContainsRegex("Die Berechnung schlägt fehl: .* \\(94\\)\n"));
    // The row that such a calculation leaves is the same again, and yet it is no result.
    Call({"calculate", path_, "--seston"});
    EXPECT_THAT(Call({"explain", path_, "Teilraum:12"}).Out,
                testing::EndsWith("Gespeichertes Ergebnis: unvollständig\n"));
}

std::string Printed(const SestonExplanation& seston) {
    std::ostringstream out;
    PrintSeston(out, seston, 10000);
    return out.str();
}

ExplainedColumn Column(const std::string& name, store::Value result) {
    return {name, std::move(result), {}, false};
}

TEST(PrintedSeston, SaysWhereNoTaxonHasAValue) {
    SestonExplanation seston;
    SestonTerm term;
    term.ID_ART = 7;  // not in the catalogue any more: shown by its number
    term.ID_PS = 3;
    term.Abundanz = 2;
    seston.Terms = {term};
    seston.AbundanceSum = 2;
    seston.ValueSum = 0;
    seston.Columns = {Column("SapIndex", 0.0F)};
    const std::string out = Printed(seston);
    EXPECT_THAT(out, testing::ContainsRegex("ID_ART 7 +ID_PS 3 +2 +100,00 +0 "));
    EXPECT_THAT(out,
                HasSubstr("  SapIndex = 0 (kein Taxon mit Saprobiewert: kein Index); nicht gespeichert\n"));
    EXPECT_THAT(out, Not(HasSubstr("Ohne Saprobiewert: ")));
}

TEST(PrintedSeston, SaysThatTheDispersionIsZeroBecauseItFailed) {
    SestonExplanation seston;
    seston.AbundanceSum = 3;
    seston.ValueSum = 6;
    seston.Columns = {Column("SapIndex", 2.0F), Column("SI_Streuung", 0.0)};
    EXPECT_THAT(
        Printed(seston),
        HasSubstr("  SI_Streuung = 0 (war nicht zu berechnen und gilt dann als 0); nicht gespeichert\n"));
}

// A value below 0 moves the index and is no rating; there is nothing rated to divide by.
TEST(PrintedSeston, ComparesWithTheRatedTaxaOnlyWhereThereAreAny) {
    SestonExplanation seston;
    SestonTerm term;
    term.Taxon = "Öltröpfchenalge";
    term.Abundanz = 2;
    term.W_SI = -1;
    seston.Terms = {term};
    seston.AbundanceSum = 2;
    seston.ValueSum = -2;
    seston.Columns = {Column("SapIndex", -1.0F)};
    const std::string out = Printed(seston);
    EXPECT_THAT(out, HasSubstr("  SapIndex = -2 / 2 = -1; nicht gespeichert\n"));
    EXPECT_THAT(out, Not(HasSubstr("ergäben")));
}

TEST(PrintedSeston, RemarksValencesThatAreMissingOrDoNotAddUpToTen) {
    SestonExplanation seston;
    SestonTerm rated;
    rated.Taxon = "Diatoma vulgaris";
    rated.Abundanz = 1;
    rated.W_SI = 2.2;
    SestonTerm other = rated;
    other.Taxon = "Cyclotella ocellata";
    other.Valenzen[1] = 9;
    seston.Terms = {rated, other};
    seston.AbundanceSum = 2;
    const std::string out = Printed(seston);
    EXPECT_THAT(out, testing::ContainsRegex("Diatoma vulgaris .* ohne Valenzen: nicht in der Verteilung\n"));
    EXPECT_THAT(out, testing::ContainsRegex("Cyclotella ocellata .* 0/9/0/0 .* Valenzen ergeben nicht 10\n"));
}

TEST(PrintedSeston, NamesEveryReasonForLeavingOut) {
    SestonExplanation seston;
    for (const SestonRule rule : {SestonRule::NoAbundance, SestonRule::NotInCatalogue, SestonRule::FailedHere,
                                  SestonRule::NotCalculated}) {
        SestonOmission one;
        one.Taxon = "Öl" + std::to_string(seston.LeftOut.size());
        one.Rule = rule;
        seston.LeftOut.push_back(one);
    }
    const std::string out = Printed(seston);
    for (const char* line : {"Öl0 .* nicht eingetragen +keine Abundanz, oder 0", "Öl1 .* fehlt im Katalog",
                             "Öl2 .* hier abgebrochen", "Öl3 .* Berechnung vorher abgebrochen"}) {
        EXPECT_THAT(out, testing::ContainsRegex(line));
    }
}

}  // namespace
