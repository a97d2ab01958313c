#include "app/ProjektFixture.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Calculate : public ProjektFixture {};

TEST_F(Calculate, CalculatesAllSubHabitatsWithAnAlgaeSample) {
    const Outcome outcome = Call({"calculate", path_});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out, "Teilräume berechnet: 3\nOhne Algenaufnahme, nicht berechnet: 1\n");
    EXPECT_EQ(outcome.Err, "");
    EXPECT_THAT(Calculated(), ElementsAre(11, 13, 21));
    // Macroalga 40 * 2 / 50 * 100 = 160, stand 100 * 1 * 20 / 100 = 20, valves 100 * 3 / 100 * 100 = 300:
    // (160 * 2 + 20 * 3 + 300 * 1.5) / 480 = 830 / 480.
    EXPECT_FLOAT_EQ(One("SELECT SapIndex FROM awaErgProjekt WHERE ID=11;").R4(), 830.0F / 480.0F);
}

TEST_F(Calculate, SpeaksEnglishWhereAsked) {
    EXPECT_EQ(Call({"calculate", path_, "--lang", "en"}).Out,
              "Sub-habitats calculated: 3\nWithout algae sample, not calculated: 1\n");
}

TEST_F(Calculate, RestrictsToItsScope) {
    Execute({
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) "
        "VALUES (1, 'UnvU-Stelle', 'Teilraum.ID_TR > 11');",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (1, 1, 1);",
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) "
        "VALUES (2, 'Teilraum', 'Teilraum.ID_TR > 0');",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (2, 21, 1);",
        "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (2, 11, 2);",
    });
    struct Case {
        std::string Scope;
        std::vector<std::int32_t> Calculated;
    };
    const Case cases[] = {
        {"Projekt:1", {11, 13}},   {"Projekt:2", {21}},           {"UStelle:1", {11, 13}},
        {"ustelle:2", {21}},       {"Teilraum:13", {13}},         {"Teilraum:12", {}},
        {"Rechenmanager:1", {13}}, {"Rechenmanager:2", {11, 21}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Scope);
        const Outcome outcome = Call({"calculate", path_, "--scope", c.Scope});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        EXPECT_EQ(Calculated(), c.Calculated);
    }
}

TEST_F(Calculate, TellsWhichScopeDoesNotExistAndLeavesTheResults) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    for (const std::string scope : {"Projekt:9", "UStelle:9", "Rechenmanager:9", "Teilraum:9"}) {
        const Outcome outcome = Call({"calculate", path_, "--scope", scope});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_THAT(outcome.Err, HasSubstr("there is no " + scope));
    }
    EXPECT_THAT(Calculated(), ElementsAre(11, 13, 21));
}

TEST_F(Calculate, RefusesScopesOfAnotherForm) {
    for (const std::string scope : {"", "Projekt", "Projekt:", "Projekt:x", "Projekt:1x", "Gebiet:1", ":1"}) {
        const Outcome outcome = Call({"calculate", path_, "--scope", scope});
        EXPECT_EQ(outcome.Code, 2) << scope;
        EXPECT_THAT(outcome.Err, HasSubstr("Projekt:<ID_PRJ>"));
    }
}

TEST_F(Calculate, RefusesASelectionWithoutConditionOrWithUnknownLevel) {
    Execute({
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene) VALUES (1, 'Projekt');",
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (2, 'Gebiet', "
        "'Teilraum.ID_TR>0');",
    });
    const Outcome without = Call({"calculate", path_, "--scope", "Rechenmanager:1"});
    EXPECT_EQ(without.Code, 1);
    EXPECT_THAT(without.Err, HasSubstr("Rechenmanager:1 has no condition"));
    const Outcome level = Call({"calculate", path_, "--scope", "Rechenmanager:2"});
    EXPECT_EQ(level.Code, 1);
    EXPECT_THAT(level.Err, HasSubstr("unknown level 'Gebiet'"));
}

TEST_F(Calculate, WarnsOfASelectionWithoutMembers) {
    Execute(
        {"INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (7, 'Teilraum', "
         "'Teilraum.ID_TR>0');"});
    const Outcome outcome = Call({"calculate", path_, "--scope", "Rechenmanager:7"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "fxalgen calculate: warning: Rechenmanager:7 holds no sub-habitat\n");
}

TEST_F(Calculate, GoesOnAfterAFailureAndListsItAtTheEnd) {
    Execute({"UPDATE awaModulStandard SET SI=Null WHERE ID_ART=1;"});
    const Outcome outcome = Call({"calculate", path_});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume berechnet: 2\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Fehlgeschlagen: 1\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 11 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Strom)"));
    EXPECT_THAT(outcome.Err, HasSubstr("(94)"));
    EXPECT_THAT(outcome.Err, HasSubstr("awaModulStandard"));
    EXPECT_THAT(outcome.Err, HasSubstr("Cladophora"));
    // The failed row stays as far as it was filled.
    EXPECT_THAT(Calculated(), ElementsAre(11, 13, 21));
    EXPECT_TRUE(One("SELECT SapIndex FROM awaErgProjekt WHERE ID=11;").IsNull());
    EXPECT_FLOAT_EQ(One("SELECT SapIndex FROM awaErgProjekt WHERE ID=13;").R4(), 1.5F);
}

TEST_F(Calculate, ReplacesTheRunBefore) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    ASSERT_EQ(Call({"calculate", path_, "--scope", "Teilraum:21"}).Code, 0);
    EXPECT_THAT(Calculated(), ElementsAre(21));
}

TEST_F(Calculate, UsesTheAssessmentCoversWithWrrl) {
    const Outcome outcome = Call({"calculate", path_, "--wrrl", "--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_TRUE(One("SELECT IstWRRL FROM awaErgProjekt WHERE ID=11;").Bool());
    EXPECT_FLOAT_EQ(One("SELECT DG_Gesamt FROM awaErgProjekt WHERE ID=11;").R4(), 80.0F);
}

TEST_F(Calculate, RefusesSestonTogetherWithTheAssessmentVariant) {
    EXPECT_EQ(Call({"calculate", path_, "--seston", "--wrrl"}).Code, 2);
}

TEST_F(Calculate, TellsWhyADatabaseDoesNotOpen) {
    const Outcome missing = Call({"calculate", (folder_ / "fehlt.db").string()});
    EXPECT_EQ(missing.Code, 1);
    EXPECT_THAT(missing.Err, HasSubstr("(53)"));
    EXPECT_THAT(missing.Err, HasSubstr("fehlt.db"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "fehlt.db"));
}

}  // namespace
