#include "app/BewertungFixture.h"

// Assessments from the command line. The classes of the sub-habitats are worked out in the fixture.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Assess : public BewertungFixture {
protected:
    /// Status of each assessment of a scope: "11 current", "11 [KA] current".
    std::vector<std::string> States(const std::vector<std::string>& more = {"--wrrl"}) {
        std::vector<std::string> states;
        for (const auto& row : Json(more)) {
            states.push_back(std::to_string(row["ID"].get<int>()) + (row["KAOnly"] == true ? " [KA] " : " ") +
                             row["Status"].get<std::string>());
        }
        return states;
    }

    cli::Outcome Project1(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments{"assess", path_, "--scope", "Projekt:1"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }
};

TEST_F(Assess, RunsEachSubHabitatTwiceAndTellsWhatCameOut) {
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "");
    EXPECT_EQ(
        outcome.Out,
        "Teilräume bewertet: 2\ndavon allein aus Kieselalgen: 1\nOhne Algenaufnahme, nicht bewertet: 1\n");
    // Sub-habitat 13 fell back to its diatoms in the first run already: the second adds nothing.
    EXPECT_THAT(Assessments(), ElementsAre("11 Alle 2", "11 KA 1 [KA]", "13 KA 1"));
    EXPECT_EQ(One("SELECT OEZK_Klasse FROM awaErgWRRL WHERE ID=11 AND KAOnly=0;").Text(), "mäßig gut");
    const auto row = database_->OpenRecordset("SELECT * FROM awaErgWRRL WHERE ID=11 AND KAOnly=0;");
    EXPECT_FLOAT_EQ((*row)["TI_EQR"].R4(), 0.83F);
    EXPECT_FLOAT_EQ((*row)["SI_EQR"].R4(), 0.82F);
    EXPECT_FLOAT_EQ((*row)["RI_EQR"].R4(), 0.75F);
    EXPECT_FALSE((*row)["BedingtBewertbar"].Bool());
    EXPECT_EQ((*row)["SQL_RefBioregion"].Text(),
              "(awaRefArt_TypB.ID_AL_Bioregion=5 AND awaRefArt_TypB.ID_AL_Hoehenstufe=3)");
    const auto diatoms = database_->OpenRecordset("SELECT * FROM awaErgWRRL WHERE ID=11 AND KAOnly=-1;");
    EXPECT_FLOAT_EQ((*diatoms)["TI_EQR"].R4(), 0.86F);
    EXPECT_FLOAT_EQ((*diatoms)["SI_EQR"].R4(), 1.0F);
    EXPECT_FLOAT_EQ((*diatoms)["RI_EQR"].R4(), 1.0F);
}

TEST_F(Assess, SpeaksEnglishWhereAsked) {
    EXPECT_EQ(
        Project1({"--lang", "en"}).Out,
        "Sub-habitats assessed: 2\nof these from diatoms alone: 1\nWithout algae sample, not assessed: 1\n");
}

TEST_F(Assess, RestrictsToItsScope) {
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
        std::vector<std::string> Assessed;
        std::vector<std::string> Shown;  ///< in the order of the tree, or of the selection
    };
    const Case cases[] = {
        {"UStelle:1",
         {"11 Alle 2", "11 KA 1 [KA]", "13 KA 1"},
         {"11 current", "11 [KA] current", "13 current"}},
        {"Rechenmanager:1", {"13 KA 1"}, {"13 current"}},
        {"Rechenmanager:2",
         {"11 Alle 2", "11 KA 1 [KA]", "21 KA -1"},
         {"21 current", "11 current", "11 [KA] current"}},
        {"Teilraum:13", {"13 KA 1"}, {"13 current"}},
        {"Teilraum:12", {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Scope);
        const cli::Outcome outcome = Call({"assess", path_, "--scope", c.Scope});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        // The run before is gone, whatever its scope was.
        EXPECT_EQ(Assessments(), c.Assessed);
        EXPECT_EQ(States({"--wrrl", "--scope", c.Scope}), c.Shown);
        EXPECT_EQ(States({"--scope", c.Scope}), c.Shown);
    }
}

TEST_F(Assess, SetsTheSiteOfEachSubHabitatAnew) {
    // In one run over both stations, the one without a site must not take over what the other one has.
    ASSERT_EQ(Call({"assess", path_}).Code, 0);
    EXPECT_EQ(One("SELECT SQL_RefBioregion FROM awaErgWRRL WHERE ID=21;").Text(), "");
    EXPECT_EQ(One("SELECT TGZK FROM awaErgWRRL WHERE ID=21;").Text(), "-");
    EXPECT_EQ(One("SELECT TGZK FROM awaErgWRRL WHERE ID=13;").Text(), "mäßig");
}

TEST_F(Assess, ListsMissingReferenceRowsWithTableAndKey) {
    Execute({"DELETE * FROM awaWRRL_TGZK;", "DELETE * FROM awaWRRL_Klasse WHERE Klassenzahl=2;"});
    const cli::Outcome outcome = Call({"assess", path_, "--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume bewertet: 1\nMit fehlenden Referenzwerten: 1\n"));
    // Expected values -1: EQR (4 - 1.5) / 5 = 0.5 from all algae, (4 - 1) / 5 = 0.6 from the diatoms.
    EXPECT_EQ(
        outcome.Err,
        "fxalgen assess: warning: Teilraum 11 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Strom): no row in\n"
        "    awaWRRL_TGZK (ID_AL_Bioregion=5, Hoehenstufe=3)\n"
        "    awaWRRL_ETI (Taxagruppe=Alle, TGZK=-)\n"
        "    awaWRRL_TIOEZK (Taxagruppe=Alle, TGZK=-, EQR=0.5)\n"
        "    awaWRRL_TIOEZK (Taxagruppe=Alle, TGZK=-, EQR=0.53)\n"
        "    awaWRRL_Klasse (Klassenzahl=2)\n"
        "    awaWRRL_ETI (Taxagruppe=KA, TGZK=-)\n"
        "    awaWRRL_TIOEZK (Taxagruppe=KA, TGZK=-, EQR=0.6)\n"
        "    awaWRRL_TIOEZK (Taxagruppe=KA, TGZK=-, EQR=0.63)\n");
    // The module without class drops out; the others decide.
    EXPECT_THAT(Assessments(), ElementsAre("11 Alle 2", "11 KA 1 [KA]"));
}

TEST_F(Assess, WarnsOnceOfAStationWithoutReferenceBioregions) {
    Execute({"UPDATE UnvUStelle SET RefBioregionen=' , ' WHERE ID_UUS=1;"});
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err,
              "fxalgen assess: warning: station 'Brücke' (Kühlenach) lists no reference bioregion "
              "(UnvUStelle.RefBioregionen, ID_UUS 1): all reference species of type B count\n");
}

TEST_F(Assess, WarnsOfAStationWithoutSite) {
    const cli::Outcome outcome = Call({"assess", path_, "--scope", "UStelle:2"});
    EXPECT_EQ(outcome.Code, 0);
    // Key 0 in the tables is what a site that was not entered asks for.
    EXPECT_THAT(
        outcome.Err,
        testing::StartsWith(
            "fxalgen assess: warning: station 'Wehr' has no bioregion (UnvUStelle.ID_AL_Bioregion, "
            "ID_UUS 2)\n"
            "fxalgen assess: warning: station 'Wehr' has no altitude step "
            "(UnvUStelle.ID_AL_Hoehenstufe, ID_UUS 2)\n"
            "fxalgen assess: warning: station 'Wehr' lists no reference bioregion "
            "(UnvUStelle.RefBioregionen, ID_UUS 2): all reference species of type B count\n"
            "fxalgen assess: warning: Teilraum 21 (Bäche / Quellen / Wehr / 2026-06-01 / Kies): no row in\n"
            "    awaWRRL_TGZK (ID_AL_Bioregion=0, Hoehenstufe=0)\n"));
    EXPECT_THAT(outcome.Err, Not(HasSubstr("=-0")));
}

TEST_F(Assess, WarnsOfReferenceBioregionsAtAStepThatDoesNotExist) {
    Execute({"UPDATE UnvUStelle SET RefBioregionen='KV3,KV8' WHERE ID_UUS=1;"});
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err,
                testing::StartsWith("fxalgen assess: warning: station 'Brücke' (Kühlenach) lists 'KV8' "
                                    "(UnvUStelle.RefBioregionen, ID_UUS 1), and AL_Hoehenstufe has no such"));
}

TEST_F(Assess, AnUnknownReferenceBioregionFailsItsStationAlone) {
    Execute({
        "UPDATE UnvUStelle SET RefBioregionen='KV3,XÖ' WHERE ID_UUS=1;",
        "UPDATE UnvUStelle SET RefBioregionen='KV' WHERE ID_UUS=2;",
    });
    const cli::Outcome outcome = Call({"assess", path_});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume bewertet: 1\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Fehlgeschlagen: 2\n"));
    EXPECT_THAT(outcome.Err,
                HasSubstr("fxalgen assess: Teilraum 11 (Flüsse / Oberlauf / Brücke / 2026-05-12 / "
                          "Strom): ReadAssessmentSite: the station 'Brücke' (Kühlenach) lists the "
                          "reference bioregion 'XÖ'"));
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 13 ("));
    EXPECT_THAT(outcome.Err, HasSubstr("(3265)"));
    EXPECT_THAT(Assessments(), ElementsAre("21 KA -1"));
}

TEST_F(Assess, AFailureHalfWayLeavesARowThatIsKnownAsIncomplete) {
    // 4 expected: division by zero in the trophic module. The group and the reference species stand by then.
    Execute({"UPDATE awaWRRL_ETI SET ErwarteterWert=4 WHERE Taxagruppe='Alle';"});
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume bewertet: 1\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("Fehlgeschlagen: 1\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 11 ("));
    EXPECT_THAT(outcome.Err, HasSubstr("(11)\n"));
    // No overall class, and no second run whose class would stand in its place.
    EXPECT_THAT(Assessments(), ElementsAre("11 Alle Null", "13 KA 1"));
    EXPECT_THAT(States(), ElementsAre("11 incomplete", "13 current"));
    EXPECT_THAT(States({}), ElementsAre("11 incomplete", "13 current"));
    const std::string table = Call({"results", path_, "--wrrl"}).Out;
    EXPECT_THAT(table, HasSubstr("\nx  unvollständig: die Bewertung ist fehlgeschlagen"));
    EXPECT_THAT(table, testing::ContainsRegex("\n   11: .* \\(11\\)\n"));
    EXPECT_EQ(Json({"--wrrl", "--scope", "Teilraum:11"}).at(0)["Fehlernummer"], 11);
}

TEST_F(Assess, AFailureOfTheSecondRunLeavesTheFirst) {
    Execute({"UPDATE awaWRRL_ETI SET ErwarteterWert=Null WHERE Taxagruppe='KA';"});
    const cli::Outcome outcome = Call({"assess", path_, "--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume bewertet: 0\nFehlgeschlagen: 1\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("(94)"));
    EXPECT_THAT(Assessments(), ElementsAre("11 Alle 2", "11 KA Null [KA]"));
    EXPECT_THAT(States(), ElementsAre("11 current", "11 [KA] incomplete"));
}

TEST_F(Assess, ANullAmongTheRatingsNamesItsTaxon) {
    Execute({"UPDATE awaModulStandard SET SI=Null WHERE ID_ART=4;"});
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("grün4"));
    EXPECT_THAT(outcome.Err, HasSubstr("(94)"));
    EXPECT_THAT(Assessments(), ElementsAre("11 Null Null", "13 KA 1"));
}

TEST_F(Assess, ADiatomWithoutCountFailsRatherThanShortenTheList) {
    Execute({"UPDATE awaArtPrStelle SET Schalen_KA=Null WHERE ID_PS=1 AND ID_ART=11;"});
    const cli::Outcome outcome = Project1();
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 11 ("));
    EXPECT_THAT(outcome.Err, HasSubstr("the valves of Gattung grün11 were not entered"));
    EXPECT_THAT(outcome.Err, HasSubstr("(94)"));
    EXPECT_THAT(Assessments(), ElementsAre("13 KA 1"));
    EXPECT_EQ(Project1({"--check"}).Code, 1);
    // Nothing counted at all: the list does not need the valves. Nor does it need those of a green alga.
    Execute({
        "UPDATE awaArtPrStelle SET Schalen_KA=0 WHERE ID_PS=1 AND ID_ART=12;",
        "UPDATE awaArtPrStelle SET Schalen_KA=Null WHERE ID_PS=1 AND ID_ART=1;",
    });
    EXPECT_EQ(Project1().Code, 0);
    // Counted again, and the diatom is one that an assessment leaves out.
    Execute({
        "UPDATE awaArtPrStelle SET Schalen_KA=40 WHERE ID_PS=1 AND ID_ART=12;",
        "UPDATE awaModulStandard SET Lebensform=2 WHERE ID_ART=11;",
    });
    EXPECT_EQ(Project1().Code, 0);
}

TEST_F(Assess, WhatHasNoPlaceInTheFrequencyListFailsAndShowsNoClass) {
    struct Case {
        const char* Change;
        const char* Cause;
    };
    const Case cases[] = {
        {"DELETE * FROM awaPrStelle WHERE ID_TR=13;", "it has no sampling site (no row in awaPrStelle)"},
        {"UPDATE Teilraum SET ID_VUS=9 WHERE ID_TR=13;", "Teilraum.ID_VUS leads to no visit"},
        {"UPDATE VerUStelle SET ID_UUS=9 WHERE ID_VUS=1;", "VerUStelle.ID_UUS leads to no station"},
        {"UPDATE UnvUStelle SET ID_AB=Null WHERE ID_UUS=1;", "UnvUStelle.ID_AB leads to no section"},
        {"DELETE * FROM Projekt WHERE ID_PRJ=1;", "Abschnitt.ID_PRJ leads to no project"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Change);
        database_->Execute(c.Change);
        const cli::Outcome outcome = Call({"assess", path_, "--scope", "Teilraum:13"});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_THAT(outcome.Out, HasSubstr("Teilräume bewertet: 0\nFehlgeschlagen: 1\n"));
        EXPECT_THAT(outcome.Err, HasSubstr("no place in the frequency list"));
        EXPECT_THAT(outcome.Err, HasSubstr(c.Cause));
        EXPECT_THAT(Assessments(), IsEmpty());
        EXPECT_EQ(One("SELECT Count(*) AS N FROM awaErgProjekt;").I4(), 0);
        const std::string shown = Call({"results", path_, "--wrrl", "--scope", "Teilraum:13"}).Out;
        EXPECT_THAT(shown, HasSubstr("Teilräume ohne Ergebnis: 1\n   13: "));
        EXPECT_THAT(shown, HasSubstr(c.Cause));
        Execute({
            "UPDATE Teilraum SET ID_VUS=1 WHERE ID_TR=13;",
            "UPDATE VerUStelle SET ID_UUS=1 WHERE ID_VUS=1;",
            "UPDATE UnvUStelle SET ID_AB=1 WHERE ID_UUS=1;",
        });
        if (One("SELECT Count(*) AS N FROM awaPrStelle WHERE ID_TR=13;").I4() == 0)
            database_->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (3, 13);");
    }
}

TEST_F(Assess, LeavesTheResultsWhereTheScopeIsWrong) {
    ASSERT_EQ(Project1().Code, 0);
    const auto before = Assessments();
    for (const std::string scope : {"Projekt:9", "UStelle:9", "Rechenmanager:9", "Teilraum:9"}) {
        const cli::Outcome outcome = Call({"assess", path_, "--scope", scope});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_THAT(outcome.Err, HasSubstr("there is no " + scope));
    }
    EXPECT_EQ(Call({"assess", path_, "--scope", "Alles"}).Code, 2);
    EXPECT_EQ(Assessments(), before);
}

TEST_F(Assess, WarnsOfFindingsWhoseTaxonomyLeadsNowhere) {
    // Sub-habitat 11 holds both taxa. The second one is not benthic, so that no assessment would count it.
    Execute({
        "UPDATE awaArt SET ID_UFAM=0, Gattung='Grünalge', Art='groß' WHERE ID_ART=1;",
        "UPDATE awaArt SET ID_UFAM=0, Gattung='Schwebealge', Art='klein' WHERE ID_ART=2;",
        "UPDATE awaModulStandard SET Lebensform=0 WHERE ID_ART=2;",
    });
    const cli::Outcome outcome = Call({"assess", path_, "--scope", "Projekt:1"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err, HasSubstr("fxalgen assess: warning: Teilraum 11 ("));
    EXPECT_THAT(outcome.Err, HasSubstr("these findings were not counted:\n    Grünalge groß\n"));
    EXPECT_THAT(outcome.Err, Not(HasSubstr("Schwebealge")));
    EXPECT_THAT(outcome.Err, Not(HasSubstr("Teilraum 13 (")));
    // A taxon without a row of its own has no name either.
    Execute({"DELETE * FROM awaArt WHERE ID_ART=1;"});
    EXPECT_THAT(Call({"assess", path_, "--scope", "Teilraum:11"}).Err,
                HasSubstr("these findings were not counted:\n    ID_ART 1\n"));
}

TEST_F(Assess, WarnsOfASelectionWithoutMembers) {
    Execute(
        {"INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (7, 'Teilraum', "
         "'Teilraum.ID_TR>0');"});
    const cli::Outcome outcome = Call({"assess", path_, "--scope", "Rechenmanager:7"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "fxalgen assess: warning: Rechenmanager:7 holds no sub-habitat\n");
}

TEST_F(Assess, GivesTheSameEachTime) {
    ASSERT_EQ(Project1().Code, 0);
    const std::string first = Call({"results", path_, "--wrrl", "--format", "json"}).Out;
    ASSERT_EQ(Project1().Code, 0);
    EXPECT_EQ(Call({"results", path_, "--wrrl", "--format", "json"}).Out, first);
}

// ---- states -------------------------------------------------------------------------------------------

TEST_F(Assess, SaysWhatIsOutOfDate) {
    const char* const changes[] = {
        // The sample.
        "UPDATE awaArtPrStelle SET DG_MA=11 WHERE ID_PS=1 AND ID_ART=1;",
        "UPDATE awaArtPrStelle SET Schalen_KA=61 WHERE ID_PS=1 AND ID_ART=11;",
        "DELETE * FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=12;",
        "UPDATE awaTeilraum SET DG_Gesamt_WRRL=41 WHERE ID_TR=11;",
        "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (5, 11, 'Belag');",
        // The catalogue.
        "UPDATE awaModulStandard SET Trophiewert=2.1 WHERE ID_ART=3;",
        "UPDATE awaModulStandard SET Lebensform=2 WHERE ID_ART=12;",
        "UPDATE awaArt SET IstArtniveau=0 WHERE ID_ART=4;",
        "UPDATE awaFamilie SET ID_GRGR=129 WHERE ID_FAM=1;",
        "UPDATE awaGrossGr SET RF_Kieselalge=0 WHERE ID_GRGR=128;",
        // The station.
        "UPDATE UnvUStelle SET ID_AL_Bioregion=6 WHERE ID_UUS=1;",
        "UPDATE UnvUStelle SET ID_AL_Hoehenstufe=4 WHERE ID_UUS=1;",
        "UPDATE AL_Hoehenstufe SET Hoehenstufe=2 WHERE ID_AL_Hoehenstufe=3;",
        "UPDATE UnvUStelle SET RefBioregionen='KV4' WHERE ID_UUS=1;",
        "UPDATE UnvUStelle SET RefBioregionen='XY' WHERE ID_UUS=1;",
        "DELETE * FROM Projekt WHERE ID_PRJ=1;",
        // The reference tables.
        "UPDATE awaWRRL_TGZK SET TGZK='ot';",
        "UPDATE awaWRRL_ESI SET ErwarteterWert=1.2 WHERE Taxagruppe='Alle';",
        "DELETE * FROM awaWRRL_RIOEZK WHERE Taxagruppe='Alle' AND OEZK=3;",
        "UPDATE awaWRRL_SIOEZK SET EQRMin=0.8 WHERE Taxagruppe='Alle' AND OEZK=1;",
        "UPDATE awaWRRL_Klasse SET Bezeichnung='gut' WHERE Klassenzahl=2;",
        "DELETE * FROM awaRefArt_TypA;",
        "UPDATE awaRefArt_TypB SET ID_AL_Hoehenstufe=4 WHERE ID_Art=11;",
    };
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    ASSERT_THAT(States(), ElementsAre("11 current", "11 [KA] current"));
    database_.reset();  // completes the file, of which each change gets a copy
    const std::string assessed = path_;
    path_ = (folder_ / "Änderung.db").string();
    for (const char* change : changes) {
        SCOPED_TRACE(change);
        std::filesystem::copy_file(assessed, path_, std::filesystem::copy_options::overwrite_existing);
        database_ = store::Workspace().OpenDatabase(path_);
        database_->Execute(change);
        EXPECT_EQ(States().at(0), "11 out of date");
        EXPECT_EQ(States({}).at(0), "11 out of date");
        database_.reset();
    }
}

TEST_F(Assess, StaysCurrentWhereOtherThingsChange) {
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    Execute({
        "UPDATE awaArtPrStelle SET Schalen_KA=1 WHERE ID_PS=3;",       // another sub-habitat
        "INSERT INTO awaModulStandard (ID_ART, SI) VALUES (900, 1);",  // a taxon not found there
        "UPDATE UnvUStelle SET USBez='Steg' WHERE ID_UUS=1;",          // a name
        "INSERT INTO awaRefArt_TypA (ID_Art) VALUES (900);",           // a reference species elsewhere
        "INSERT INTO awaWRRL_TGZK (ID_AL_Bioregion, Hoehenstufe, TGZK) VALUES (6, 3, 'ot');",
        "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('Alle', 'ot', 1);",
    });
    EXPECT_THAT(States(), ElementsAre("11 current", "11 [KA] current"));
    // What only the diatoms' assessment asks for.
    Execute({"UPDATE awaWRRL_ETI SET ErwarteterWert=0.6 WHERE Taxagruppe='KA';"});
    EXPECT_THAT(States(), ElementsAre("11 current", "11 [KA] out of date"));
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    EXPECT_THAT(States(), ElementsAre("11 current", "11 [KA] current"));
}

TEST_F(Assess, DoesNotVouchForRowsOfOthers) {
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    Execute({"UPDATE awaErgWRRL SET OEZK=1 WHERE ID=11 AND KAOnly=0;"});
    EXPECT_THAT(States(), ElementsAre("11 unknown", "11 [KA] current"));
    EXPECT_THAT(States({}), ElementsAre("11 current", "11 [KA] current"));
    Execute({"UPDATE awaErgProjekt SET TI=3 WHERE ID=11 AND KAOnly=-1;"});
    EXPECT_THAT(States({}), ElementsAre("11 current", "11 [KA] unknown"));
    // A calculation takes the place of the indices that the classes rest on.
    ASSERT_EQ(Call({"assess", path_, "--scope", "Teilraum:11"}).Code, 0);
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_THAT(States(), ElementsAre("11 unknown", "11 [KA] unknown"));
    EXPECT_THAT(States({"--scope", "Teilraum:11"}), ElementsAre("11 current"));
}

// ---- pre-check ----------------------------------------------------------------------------------------

class AssessCheck : public Assess {
protected:
    cli::Outcome Check(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments{"assess", path_, "--check"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }
};

TEST_F(AssessCheck, TellsForEachSubHabitatWhetherItsExpectedValuesAreThere) {
    const cli::Outcome outcome = Check({"--scope", "Projekt:1"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out,
              "Prüfung vor der Bewertung\n\n"
              "  ID  Stelle  Datum       Teilraum  Prüfung\n"
              "  --  ------  ----------  --------  -------------------\n"
              "  11  Brücke  12.05.2026  Strom     in Ordnung\n"
              "  12  Brücke  12.05.2026  Ufer      keine Algenaufnahme\n"
              "  13  Brücke  12.05.2026  Blöcke    in Ordnung\n\n"
              "In Ordnung: 2\nOhne Algenaufnahme, nicht bewertet: 1\n");
}

TEST_F(AssessCheck, NamesTheRowsThatAreMissing) {
    // Sub-habitat 11 rests on all algae, 13 on the diatoms: only the first one lacks its value.
    Execute({"DELETE * FROM awaWRRL_ERI WHERE Taxagruppe='Alle';"});
    const cli::Outcome one = Check({"--scope", "Projekt:1"});
    EXPECT_EQ(one.Code, 1);
    EXPECT_THAT(one.Out, HasSubstr("Strom     fehlt: awaWRRL_ERI (Taxagruppe=Alle, Bioregionstyp=Kalk)\n"));
    EXPECT_THAT(one.Out, HasSubstr("Blöcke    in Ordnung\n"));
    EXPECT_THAT(one.Out, HasSubstr("In Ordnung: 1\nOhne erwartete Werte: 1\n"));
    // Without a reference class the expected value is missing with it, the cause first.
    Execute({"DELETE * FROM awaWRRL_SGZK;"});
    const cli::Outcome both = Check({"--scope", "Teilraum:13", "--lang", "en"});
    EXPECT_EQ(both.Code, 1);
    EXPECT_THAT(both.Out, HasSubstr("missing: awaWRRL_SGZK (ID_AL_Bioregion=5, Hoehenstufe=3), awaWRRL_ESI "
                                    "(Taxagruppe=KA, Gueteklasse=-1)\n"));
    EXPECT_THAT(both.Out, HasSubstr("In order: 0\nWithout expected values: 1\n"));
}

TEST_F(AssessCheck, PassesWhereAnExpectedValueStandsForNoClass) {
    Execute({
        "DELETE * FROM awaWRRL_TGZK;",
        "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('KA', '-', 1);",
    });
    EXPECT_EQ(Check({"--scope", "Teilraum:13"}).Code, 0);
    EXPECT_EQ(Check({"--scope", "Teilraum:11"}).Code, 1);
}

TEST_F(AssessCheck, FailsAtARowWithoutReferenceClassAndNamesIt) {
    Execute({"UPDATE awaWRRL_TGZK SET TGZK=Null;"});
    const cli::Outcome outcome = Check({"--scope", "Teilraum:13"});
    EXPECT_EQ(outcome.Code, 1);
    // Counted once, as failed.
    EXPECT_THAT(outcome.Out, HasSubstr("Blöcke    fehlgeschlagen\n\nIn Ordnung: 0\nFehlgeschlagen: 1\n"));
    EXPECT_THAT(outcome.Err, HasSubstr("awaWRRL_TGZK.TGZK is Null for ID_AL_Bioregion=5 AND Hoehenstufe=3, "
                                       "sub-habitat 13 (Blöcke) (94)"));
}

TEST_F(AssessCheck, FailsWhatCannotBeListedOrHasAnUnknownReferenceBioregion) {
    Execute({"DELETE * FROM awaPrStelle WHERE ID_TR=13;"});
    const cli::Outcome site = Check({"--scope", "Projekt:1"});
    EXPECT_EQ(site.Code, 1);
    EXPECT_THAT(site.Out, HasSubstr("Blöcke    fehlgeschlagen\n"));
    EXPECT_THAT(site.Out,
                HasSubstr("In Ordnung: 1\nOhne Algenaufnahme, nicht bewertet: 1\nFehlgeschlagen: 1\n"));
    EXPECT_THAT(site.Err, HasSubstr("it has no sampling site"));
    Execute({"UPDATE UnvUStelle SET RefBioregionen='XÖ' WHERE ID_UUS=1;"});
    const cli::Outcome sign = Check({"--scope", "Teilraum:11"});
    EXPECT_EQ(sign.Code, 1);
    EXPECT_THAT(sign.Err, HasSubstr("'Brücke' (Kühlenach)"));
}

TEST_F(AssessCheck, LeavesTheResultsAsTheyAre) {
    ASSERT_EQ(Project1().Code, 0);
    const std::string classes = Call({"results", path_, "--wrrl", "--format", "json"}).Out;
    const std::string indices = Call({"results", path_, "--format", "json"}).Out;
    EXPECT_EQ(Check().Code, 1);  // station 2 has no site
    EXPECT_EQ(Call({"results", path_, "--wrrl", "--format", "json"}).Out, classes);
    EXPECT_EQ(Call({"results", path_, "--format", "json"}).Out, indices);
}

}  // namespace
