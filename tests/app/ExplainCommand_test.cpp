#include <nlohmann/json.hpp>

#include "FX_Algen/Assessment.h"
#include "app/ProjektFixture.h"
#include "wrrl/Auswertung.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;

namespace {

class Explain : public ProjektFixture {
protected:
    nlohmann::json Json(const std::string& teilraum) {
        const Outcome outcome = Call({"explain", path_, teilraum, "--format", "json"});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        return nlohmann::json::parse(outcome.Out);
    }

    static nlohmann::json Index(const nlohmann::json& explanation, const std::string& column) {
        for (const auto& index : explanation.at("Indices")) {
            if (index.at("Column") == column) return index;
        }
        ADD_FAILURE() << "no index " << column;
        return {};
    }
};

TEST_F(Explain, TellsTheSumsOfTheStoredIndex) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const Outcome outcome = Call({"explain", path_, "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Err, "");
    // Macroalga 160 and 320, stand 20 and 60, valves 300 and 450; 830 / 480 = 1.729167.
    EXPECT_THAT(outcome.Out, HasSubstr("SapIndex = 830,0000 / 480,0000 = 1,729167; gespeichert: 1,729167\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Cladophora glomerata"));
    EXPECT_THAT(outcome.Out, HasSubstr("Belag"));
    EXPECT_THAT(outcome.Out, HasSubstr("Gespeichertes Ergebnis: aktuell\n"));
}

TEST_F(Explain, GivesTheSameAsJson) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const nlohmann::json explanation = Json("Teilraum:11");
    EXPECT_EQ(explanation.at("State"), "Current");
    const nlohmann::json index = Index(explanation, "SapIndex");
    EXPECT_EQ(index.at("Terms").size(), 3u);
    EXPECT_EQ(index.at("WeightSum"), 480.0);
    EXPECT_EQ(index.at("ValueSum"), 830.0);
    EXPECT_EQ(index.at("Result").get<float>(), 830.0F / 480.0F);
}

TEST_F(Explain, SaysThatAResultIsOutOfDateAndChangesNothing) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    database_->Execute("UPDATE awaArtPrStelle SET Schalen_KA=0 WHERE ID_PS=1 AND ID_ART=2;");
    const Outcome outcome = Call({"explain", path_, "Teilraum:11", "--lang", "en"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("Stored result: out of date\n"));
    // Without the valves 380 / 180 = 2.111111.
    EXPECT_THAT(outcome.Out, HasSubstr("SapIndex = 380.0000 / 180.0000 = 2.111111; stored: 1.729167\n"));
    EXPECT_FLOAT_EQ(One("SELECT SapIndex FROM awaErgProjekt WHERE ID=11;").R4(), 830.0F / 480.0F);
}

TEST_F(Explain, ExplainsWhatWasNeverCalculatedOrSampled) {
    EXPECT_EQ(Json("Teilraum:11").at("State"), "Missing");
    EXPECT_TRUE(Calculated().empty());
    EXPECT_THAT(Call({"explain", path_, "Teilraum:12"}).Out, HasSubstr("Keine Algenaufnahme"));
}

TEST_F(Explain, TellsHowFarAFailingCalculationComes) {
    // The macroalga is read before the ratings of the stand, whose taxon fails.
    Execute({"UPDATE awaModulStandard SET SI=Null WHERE ID_ART=3;"});
    const Outcome outcome = Call({"explain", path_, "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("Cladophora glomerata"));
    EXPECT_THAT(outcome.Out, HasSubstr("SapIndex: nicht berechnet"));
    EXPECT_THAT(outcome.Out,
                testing::ContainsRegex("Die Berechnung schlägt fehl: .*Oscillatoria.* \\(94\\)\n"));
}

/// Leaves the assessment of a sub-habitat, over all groups.
void Assess(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const AssessmentSite site = ReadAssessmentSite(database, ID_TR);
    Bewertungsauftrag order;
    order.Liste.Datenbank = database;
    order.Liste.Workspace = std::make_shared<store::Workspace>();
    order.Liste.AktUebersicht = "Projekt";
    order.Liste.ProjektID = site.ID_PRJ;
    order.Liste.TeilraumID = ID_TR;
    order.Liste.IstWRRLBerechnung = true;
    std::string group;
    Berechnung_WRRLInit(database);
    Berechnung_WRRL(order, group);
}

TEST_F(Explain, SaysThatNothingIsAssessed) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_THAT(Call({"explain", path_, "Teilraum:11"}).Out,
                HasSubstr("Strom\n\nBewertung nach WRRL: keine gespeichert.\n\nGrundlagen\n"));
    EXPECT_TRUE(Json("Teilraum:11").at("Assessments").empty());
    EXPECT_TRUE(Json("Teilraum:11").at("AssessmentsFailed").is_null());
}

TEST_F(Explain, TellsTheClassBeforeTheIndices) {
    // Neither taxonomy nor reference tables: the diatoms alone, and no class.
    Assess(database_, 11);
    const Outcome outcome = Call({"explain", path_, "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("Strom\n"
                                       "\n"
                                       "Bewertung nach WRRL\n"
                                       "\n"
                                       "  Ökologischer Zustand: keine Klasse gefunden (n.v.)\n"
                                       "  Gespeicherte Bewertung: aktuell\n"));
    EXPECT_THAT(outcome.Out,
                HasSubstr("    Referenzklasse: fehlt, keine Zeile in awaWRRL_TGZK (ID_AL_Bioregion = "
                          "0, Hoehenstufe = 0); es gilt -\n"));
    // all 100 valves are of the one diatom with 1.2: (4 - 1.2) / (4 + 1) = 0.56
    EXPECT_THAT(outcome.Out, HasSubstr("    EQR = (4 - 1,2) / (4 - (-1)) = 0,560000, gerundet 0,56\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("  Beiträge zu TI_KA: siehe unten.\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Cladophora glomerata        ID_PS 1  Systematik führt zu keiner"));
    EXPECT_THAT(outcome.Out, testing::ContainsRegex("Trophieindex der Kieselalgen \\(TI_KA\\)\n"));
    // The assessment made no quantity index, and nothing is out of date for that.
    EXPECT_THAT(outcome.Out, HasSubstr("Gespeichertes Ergebnis: aktuell\n"));

    const nlohmann::json assessment = Json("Teilraum:11").at("Assessments").at(0);
    EXPECT_EQ(assessment.at("State"), "Current");
    EXPECT_EQ(assessment.at("Trace").at("ReferenceSpecies").at("Reason"), "AbundanceBelow50");
    EXPECT_EQ(assessment.at("Trace").at("Trophic").at("Ratio").at("EQR"), 0.56);
    EXPECT_EQ(assessment.at("Trace").at("Trophic").at("ReferenceClass").at("Found"), false);
    EXPECT_EQ(assessment.at("Trace").at("Column").at("Findings").at(0).at("LeftOut"), "NoTaxonomy");
}

TEST_F(Explain, TellsWhyTheLastRunLeftNoAssessment) {
    Execute({"UPDATE UnvUStelle SET RefBioregionen='GÖ1' WHERE ID_UUS=1;"});
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 1);
    const Outcome outcome = Call({"explain", path_, "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_THAT(outcome.Out, HasSubstr("Bewertung nach WRRL: keine gespeichert.\n"
                                       "  Der letzte Lauf ist fehlgeschlagen: "));
    EXPECT_THAT(outcome.Out, HasSubstr("GÖ1"));
    EXPECT_EQ(Json("Teilraum:11").at("LastRunFailed").at("Number"), 3265);
    // Nothing is known of a sub-habitat that was in no run.
    EXPECT_TRUE(Json("Teilraum:12").at("LastRunFailed").is_null());
}

TEST_F(Explain, OfAStationWithAnUnknownSignStillExplainsTheIndices) {
    Assess(database_, 11);
    Execute({"UPDATE UnvUStelle SET RefBioregionen='GÖ1' WHERE ID_UUS=1;"});
    const Outcome outcome = Call({"explain", path_, "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("fxalgen explain: the stored assessments are not explained: "));
    EXPECT_THAT(outcome.Err, HasSubstr("GÖ1"));
    EXPECT_THAT(outcome.Out, HasSubstr("Bewertung nach WRRL: gespeichert, aber nicht erklärbar: "));
    EXPECT_THAT(outcome.Out, HasSubstr("Brücke"));
    EXPECT_THAT(outcome.Out, HasSubstr("Trophieindex der Kieselalgen (TI_KA)\n"));
    const Outcome json = Call({"explain", path_, "Teilraum:11", "--format", "json"});
    EXPECT_EQ(json.Code, 1);
    EXPECT_EQ(nlohmann::json::parse(json.Out).at("AssessmentsFailed").at("Number"), 3265);
    // Without a stored assessment the site is none of its concern.
    Execute({"DELETE * FROM awaErgWRRL;"});
    EXPECT_EQ(Call({"explain", path_, "Teilraum:11"}).Code, 0);
}

TEST_F(Explain, RefusesWhatIsNoSubHabitat) {
    EXPECT_EQ(Call({"explain", path_}).Code, 2);
    EXPECT_EQ(Call({"explain", path_, "Projekt:1"}).Code, 2);
    EXPECT_EQ(Call({"explain", path_, "11"}).Code, 2);
    const Outcome missing = Call({"explain", path_, "Teilraum:99"});
    EXPECT_EQ(missing.Code, 1);
    EXPECT_THAT(missing.Err, HasSubstr("there is no Teilraum:99"));
}

}  // namespace
