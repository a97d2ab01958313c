#include <nlohmann/json.hpp>

#include "app/ProjektFixture.h"

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

TEST_F(Explain, RefusesWhatIsNoSubHabitat) {
    EXPECT_EQ(Call({"explain", path_}).Code, 2);
    EXPECT_EQ(Call({"explain", path_, "Projekt:1"}).Code, 2);
    EXPECT_EQ(Call({"explain", path_, "11"}).Code, 2);
    const Outcome missing = Call({"explain", path_, "Teilraum:99"});
    EXPECT_EQ(missing.Code, 1);
    EXPECT_THAT(missing.Err, HasSubstr("there is no Teilraum:99"));
}

}  // namespace
