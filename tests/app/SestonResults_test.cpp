#include "app/SestonFixture.h"

// The results of seston as table, csv and json.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::Not;

namespace {

class SestonResults : public SestonFixture {};

TEST_F(SestonResults, ShowFourTablesToPeople) {
    CalculateSeston();
    const Outcome outcome = Call({"results", path_, "--seston"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("Saprobie des Sestons\n\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("SI  Streuung  Abundanz mit SI [%]  Stand\n"));
    // Of the abundance 10 in 12 the two rated taxa have 8.
    EXPECT_THAT(outcome.Out, HasSubstr("Ufer         1,60     0,917                 80,0\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Stein, groß  1,50     0,000                100,0\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Verteilung der Valenzen (zusammen 10)\n\n"));
    EXPECT_THAT(outcome.Out, testing::ContainsRegex("Ufer +2,50 +5,00 +2,50 +0,00\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Kumulierte Valenzen\n\n"));
    EXPECT_THAT(outcome.Out, testing::ContainsRegex("Ufer +2,50 +7,50 +10,00 +10,00\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Taxa, Abundanz und Diversität\n\n"));
    EXPECT_THAT(outcome.Out, testing::ContainsRegex("Ufer +3 +2 +10 +1,055 +0,869 +0,960\n"));
}

TEST_F(SestonResults, SpeakEnglishWhereAsked) {
    CalculateSeston();
    const std::string out = Call({"results", path_, "--seston", "--lang", "en"}).Out;
    EXPECT_THAT(out, HasSubstr("Saprobity of the seston\n\n"));
    EXPECT_THAT(out, HasSubstr("oligosaprobic  betamesosaprobic  alphamesosaprobic  polysaprobic\n"));
    EXPECT_THAT(out, testing::ContainsRegex("Ufer +2.50 +5.00 +2.50 +0.00\n"));
    EXPECT_THAT(out, HasSubstr("Without seston, not shown: 2\n"));
}

TEST_F(SestonResults, LeaveOutWhatHasNoSestonAndSayHowMany) {
    CalculateSeston();
    const std::string table = Call({"results", path_, "--seston"}).Out;
    EXPECT_THAT(table, Not(HasSubstr("Strom")));
    EXPECT_THAT(table, HasSubstr("\nOhne Seston, nicht gezeigt: 2\n"));
    // Programs get every row.
    EXPECT_EQ(Json({"results", "--seston"}).size(), 4U);
    const std::string csv = Call({"results", path_, "--seston", "--format", "csv"}).Out;
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + 4);
}

TEST_F(SestonResults, KeepARowWhoseFindingsAreGone) {
    CalculateSeston();
    Execute({"DELETE * FROM sesArtPrStelle WHERE ID_PS=1;"});
    const std::string table = Call({"results", path_, "--seston"}).Out;
    EXPECT_THAT(table, testing::ContainsRegex("Ufer +1,60 +0,917 +!\n"));
    EXPECT_THAT(table, HasSubstr("\nOhne Seston, nicht gezeigt: 2\n"));
}

TEST_F(SestonResults, ShowFindingsWithoutAnyAbundanceAsNoIndex) {
    Execute({"UPDATE sesArtPrStelle SET Abundanz=0 WHERE ID_PS=2;"});
    CalculateSeston();
    const std::string table = Call({"results", path_, "--seston"}).Out;
    EXPECT_THAT(table, testing::ContainsRegex("Stein, groß +- +0,000\n"));
    EXPECT_THAT(table, HasSubstr("-  kein Index: keine Abundanz, oder kein Taxon mit Saprobiewert\n"));
    // The distribution was not written: nothing stands there, and in csv and json Null.
    EXPECT_THAT(table, testing::ContainsRegex("12.05.2026 +Stein, groß\n"));
    const nlohmann::json row = Json({"results", "--seston", "--scope", "Teilraum:13"}).at(0);
    EXPECT_EQ(row["SapIndex"], 0.0);
    EXPECT_EQ(row["Taxa"], 1);
    EXPECT_TRUE(row["Oligo"].is_null());
    EXPECT_TRUE(row["KumPoly"].is_null());
    EXPECT_TRUE(row["Anteil_Abundanz_SI"].is_null());
}

TEST_F(SestonResults, HaveFullValuesUnderTheirFieldNamesForPrograms) {
    CalculateSeston();
    const nlohmann::json row = Json({"results", "--seston", "--scope", "Teilraum:12"}).at(0);
    EXPECT_EQ(row["PRJBez"], "Flüsse");
    EXPECT_EQ(row["ID"], 12);
    EXPECT_EQ(row["SapIndex"].get<float>(), 1.6F);
    EXPECT_EQ(row["Poly"], 0.0);
    EXPECT_EQ(row["KumAlpha"], 10.0);
    EXPECT_EQ(row["Abundanzsumme"], 10);
    EXPECT_EQ(row["Taxa_SI"], 2);
    EXPECT_NEAR(row["MArgalef"].get<double>(), 0.868588963806503, 1e-12);
    EXPECT_EQ(row["Anteil_Abundanz_SI"], 80.0);
    EXPECT_EQ(row["Status"], "current");
    const std::string csv = Call({"results", path_, "--seston", "--format", "csv"}).Out;
    EXPECT_THAT(csv, HasSubstr(",Anteil_Abundanz_SI,Status,Fehlernummer,Fehlertext\n"));
    EXPECT_THAT(csv, HasSubstr(",80,current,,\n"));
}

// The failure belongs to the line of those without a result, not to that of those without seston.
TEST_F(SestonResults, TellWhyASubHabitatHasNoRow) {
    CalculateSeston();
    Execute(
        {"DELETE * FROM sesErgProjekt WHERE ID=12;", "DELETE * FROM fx_LaufSeston WHERE ID=12;",
         "DELETE * FROM sesErgProjekt WHERE ID=13;",
         "INSERT INTO fx_LaufSeston (ID, Fehlernummer, Fehlertext) VALUES (12, 3078, 'Tabelle gelöscht');"});
    EXPECT_THAT(Call({"results", path_, "--seston"}).Out,
                testing::EndsWith("Teilräume ohne Ergebnis: 2\n   12: Tabelle gelöscht (3078)\n"
                                  "Ohne Seston, nicht gezeigt: 2\n"));
    EXPECT_EQ(Json({"results", "--seston"}).size(), 2U);
}

TEST_F(SestonResults, AreEmptyBeforeTheFirstRun) {
    EXPECT_EQ(Call({"results", path_, "--seston"}).Out,
              "Keine Ergebnisse vorhanden.\nTeilräume ohne Ergebnis: 4\n");
}

TEST_F(SestonResults, ATaxonThatIsNotInTheCatalogueHasNoPartInTheShare) {
    Execute({"INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 99, 0, 30);"});
    CalculateSeston();
    // It has no part in the index either.
    const nlohmann::json row = Json({"results", "--seston", "--scope", "Teilraum:12"}).at(0);
    EXPECT_EQ(row["Abundanzsumme"], 10);
    EXPECT_EQ(row["Anteil_Abundanz_SI"], 80.0);
}

}  // namespace
