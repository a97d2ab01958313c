#include <nlohmann/json.hpp>

#include "app/ProjektFixture.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::Not;

namespace {

class Results : public ProjektFixture {
protected:
    void Calculate() { ASSERT_EQ(Call({"calculate", path_}).Code, 0); }

    nlohmann::json Json(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments{"results", path_, "--format", "json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        return nlohmann::json::parse(outcome.Out);
    }

    /// State of sub-habitat 11 as the results tell it.
    std::string Status() { return Json({"--scope", "Teilraum:11"}).at(0).at("Status"); }
};

TEST_F(Results, ShowsIndicesForPeopleInGerman) {
    Calculate();
    const Outcome outcome = Call({"results", path_, "--scope", "Projekt:1"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    // Sub-habitat 11: SI 830 / 480 = 1.729, diatoms 1.5; TI (macroalga 40 * 1 / 50 * 100 = 80, valves 200)
    // (80 * 2.5 + 200 * 1.2) / 280 = 1.571, diatoms 1.2, no second trophic value;
    // AMI 3 * 40 / 100 + 1 * 10 / 100 = 1.3.
    EXPECT_THAT(
        outcome.Out,
        HasSubstr("Indizes\n\n"
                  "  ID  Projekt  Abschnitt  Stelle  Datum       Teilraum       SI  SI KA    TI  TI N  TI "
                  "KA  AMI [mm]  Stand\n"
                  "  --  -------  ---------  ------  ----------  -----------  ----  -----  ----  ----  "
                  "-----  --------  -----\n"
                  "  11  Flüsse   Oberlauf   Brücke  12.05.2026  Strom        1,73   1,50  1,57     -  "
                  " 1,20     1,300\n"
                  "  13  Flüsse   Oberlauf   Brücke  12.05.2026  Stein, groß  1,50   1,50  1,20     -  "
                  " 1,20     0,000\n"));
    EXPECT_THAT(outcome.Out, HasSubstr("kein Index: kein Taxon mit Gewicht"));
    EXPECT_THAT(outcome.Out, HasSubstr("Teilräume ohne Ergebnis: 1\n"));
    EXPECT_THAT(outcome.Out, Not(HasSubstr("veraltet")));
}

TEST_F(Results, ShowsCountsOfTaxaAndClasses) {
    Calculate();
    const std::string out = Call({"results", path_, "--scope", "Teilraum:11", "--lang", "en"}).Out;
    // Taxa of the site are the macroalga and the diatom; the taxon of the stand is in no taxa count, but it
    // counts in class III (SI 3); the others are in II (SI 2) and I-II (SI 1.5).
    EXPECT_THAT(out, HasSubstr("Numbers of taxa\n"));
    EXPECT_THAT(
        out, HasSubstr("\n  ID  Station  Date        Sub-habitat  I  I-II  II  II-III  III  III-IV  IV\n"));
    EXPECT_THAT(
        out, HasSubstr("\n  11  Brücke   2026-05-12  Strom        0     1   1       0    1       0   0\n"));
}

TEST_F(Results, ShowTheShareOfTheSampleThatAnIndexRestsOn) {
    Calculate();
    // Sub-habitat 11: all 100 valves are rated, none by the second trophic pair. Of 50 percent cover the
    // macroalga (40) carries both values, the stand (10) the saprobic one: 100 and 40 / 50 = 80 percent.
    EXPECT_THAT(
        Call({"results", path_, "--scope", "Teilraum:11"}).Out,
        HasSubstr("Datum       Teilraum  Schalen SI  Schalen TI  Schalen TI N  Deckung SI  Deckung TI  "
                  "Deckung TI N\n"
                  "  --  ------  ----------  --------  ----------  ----------  ------------  ----------  "
                  "----------  ------------\n"
                  "  11  Brücke  12.05.2026  Strom          100,0       100,0           0,0       100,0  "
                  "      80,0           0,0\n"));
    const nlohmann::json row = Json({"--scope", "Teilraum:11"}).at(0);
    EXPECT_EQ(row["Anteil_Schalen_SI"], 100.0);
    EXPECT_EQ(row["Anteil_Deckung_TI"], 80.0);
    // Sub-habitat 13 has no cover, to which a share could relate.
    EXPECT_TRUE(Json({"--scope", "Teilraum:13"}).at(0)["Anteil_Deckung_SI"].is_null());
}

TEST_F(Results, WritesFullValuesAndRawNamesAsCsv) {
    Calculate();
    const std::string out = Call({"results", path_, "--format", "csv", "--scope", "Projekt:1"}).Out;
    const std::string header = out.substr(0, out.find('\n'));
    EXPECT_THAT(header,
                testing::StartsWith("PRJBez,ABBez,USBez,Gewaessername,USDatumVon,TRBez,ID,IstWRRL,KAOnly,"
                                    "SapIndex,SapIndex_KA,TI,TI_N,TI_KA,AMI,"));
    EXPECT_THAT(header, testing::EndsWith(",Status,Fehlernummer,Fehlertext"));
    // 830 / 480 = 1.729166..., in 32 bits 1.72916662693, which 1.7291666 tells from its neighbours;
    // 440 / 280 = 1.571428..., in 32 bits 1.57142853737.
    EXPECT_THAT(
        out,
        HasSubstr("\nFlüsse,Oberlauf,Brücke,,2026-05-12,Strom,11,0,0,1.7291666,1.5,1.5714285,0,1.2,1.3,"));
    EXPECT_THAT(out, HasSubstr("\nFlüsse,Oberlauf,Brücke,,2026-05-12,\"Stein, groß\",13,"));
    EXPECT_THAT(out, HasSubstr(",current,,\n"));
}

TEST_F(Results, WritesTypedValuesAsJson) {
    Calculate();
    const nlohmann::json rows = Json({"--scope", "Teilraum:11"});
    ASSERT_EQ(rows.size(), 1u);
    const nlohmann::json& row = rows[0];
    EXPECT_EQ(row["PRJBez"], "Flüsse");
    EXPECT_TRUE(row["Gewaessername"].is_null());
    EXPECT_EQ(row["USDatumVon"], "2026-05-12");
    EXPECT_EQ(row["ID"], 11);
    EXPECT_EQ(row["IstWRRL"], false);
    // As a 32-bit number again it is the one that the column holds: 830 / 480.
    EXPECT_EQ(row["SapIndex"].get<float>(), 830.0F / 480.0F);
    EXPECT_TRUE(row["XENO"].is_null());
    EXPECT_EQ(row["Status"], "current");
}

TEST_F(Results, SaysWhatIsOutOfDate) {
    const char* const changes[] = {
        "UPDATE awaArtPrStelle SET DG_MA=41 WHERE ID_PS=1 AND ID_ART=1;",
        "UPDATE awaArtPrStelle SET Schalen_KA=101 WHERE ID_PS=1 AND ID_ART=2;",
        "UPDATE awaTeilraum SET DG_Gesamt=51 WHERE ID_TR=11;",
        "UPDATE awaTeilraum_MI SET SD_MI=2 WHERE ID_TR_MI=1;",
        "UPDATE awaArtPrStelle_MI SET DG_MI=99 WHERE ID_TR_MI=1;",
        "UPDATE awaModulStandard SET SI=2.1 WHERE ID_ART=3;",
        "UPDATE awaModulStandard SET Trophiewert_N=Null WHERE ID_ART=2;",
        "DELETE * FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=2;",
        "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 1, -1);",
    };
    Calculate();
    ASSERT_EQ(Status(), "current");
    database_.reset();  // completes the file, of which each change gets a copy
    const std::string calculated = path_;
    path_ = (folder_ / "Änderung.db").string();
    for (const char* change : changes) {
        SCOPED_TRACE(change);
        std::filesystem::copy_file(calculated, path_, std::filesystem::copy_options::overwrite_existing);
        database_ = store::Workspace().OpenDatabase(path_);
        database_->Execute(change);
        EXPECT_EQ(Status(), "out of date");
        const std::string table = Call({"results", path_}).Out;
        EXPECT_THAT(table, HasSubstr("  !\n"));
        EXPECT_THAT(table, HasSubstr("veraltet"));
        database_.reset();
    }
}

TEST_F(Results, StaysCurrentWhereOtherThingsChange) {
    Calculate();
    Execute({
        "UPDATE awaArtPrStelle SET Schalen_KA=1 WHERE ID_PS=3;",    // another sub-habitat
        "UPDATE Teilraum SET TRBez='Stromstrich' WHERE ID_TR=11;",  // a name
        "UPDATE awaModulStandard SET SI=1 WHERE ID_ART=4;",         // a taxon not found there
        "UPDATE awaArt SET Beschreiber='L.' WHERE ID_ART=1;",
    });
    EXPECT_EQ(Status(), "current");
    database_->Execute("UPDATE awaModulStandard SET SI=2.2 WHERE ID_ART=1;");
    ASSERT_EQ(Status(), "out of date");
    Calculate();
    EXPECT_EQ(Status(), "current");
}

TEST_F(Results, DoesNotVouchForRowsOfOthers) {
    Calculate();
    database_->Execute("UPDATE awaErgProjekt SET SapIndex=1 WHERE ID=11;");
    EXPECT_EQ(Status(), "unknown");
    database_->Execute("DELETE * FROM awaErgProjekt;");
    database_->Execute("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES (11, 0);");
    EXPECT_EQ(Status(), "unknown");
    EXPECT_THAT(Call({"results", path_}).Out, HasSubstr("unbekannt"));
}

TEST_F(Results, MarksAFailedCalculationAsIncomplete) {
    Execute({"UPDATE awaModulStandard SET SI=Null WHERE ID_ART=1;"});
    ASSERT_EQ(Call({"calculate", path_}).Code, 1);
    EXPECT_EQ(Status(), "incomplete");
    const std::string table = Call({"results", path_}).Out;
    EXPECT_THAT(table, HasSubstr("  x\n"));
    EXPECT_THAT(table, HasSubstr("unvollständig"));
    EXPECT_THAT(table, testing::ContainsRegex("   11: .*Cladophora.* \\(94\\)\n"));
    const nlohmann::json row = Json({"--scope", "Teilraum:11"}).at(0);
    EXPECT_EQ(row["Fehlernummer"], 94);
    EXPECT_THAT(row["Fehlertext"].get<std::string>(), HasSubstr("Cladophora"));
    EXPECT_TRUE(Json({"--scope", "Teilraum:13"}).at(0)["Fehlertext"].is_null());
}

TEST_F(Results, WarnOfRowsThatBelongToNoSubHabitat) {
    Calculate();
    database_->Execute("DELETE * FROM Teilraum WHERE ID_TR=21;");
    const Outcome outcome = Call({"results", path_, "--format", "csv"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err,
              "fxalgen results: 1 row of awaErgProjekt belongs to no sub-habitat and is not shown\n");
    EXPECT_EQ(Call({"results", path_, "--scope", "Projekt:1"}).Err, "");
}

TEST_F(Results, ComeInTheOrderOfTheProjectTree) {
    Calculate();
    // Projects by name, ä with a: "Bäche" before "Flüsse".
    const nlohmann::json rows = Json();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0]["ID"], 21);
    EXPECT_EQ(rows[1]["ID"], 11);
    EXPECT_EQ(rows[2]["ID"], 13);
}

TEST_F(Results, AreEmptyBeforeTheFirstRun) {
    EXPECT_EQ(Json().size(), 0u);
    const Outcome table = Call({"results", path_});
    EXPECT_EQ(table.Code, 0);
    EXPECT_EQ(table.Out, "Keine Ergebnisse vorhanden.\nTeilräume ohne Ergebnis: 4\n");
    const std::string csv = Call({"results", path_, "--format", "csv"}).Out;
    EXPECT_THAT(csv, HasSubstr("SapIndex"));
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1);
}

TEST_F(Results, ShowRowsOfTheOtherResultTables) {
    Execute({
        "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe, TI_EQR, OEZK, OEZK_Klasse) VALUES (11, 0, 'Alle', "
        "0.75, 2, 'gut');",
        "INSERT INTO sesErgProjekt (ID, SapIndex) VALUES (13, 2.25);",
    });
    const nlohmann::json wrrl = Json({"--wrrl"});
    ASSERT_EQ(wrrl.size(), 1u);
    EXPECT_EQ(wrrl[0]["TRBez"], "Strom");
    EXPECT_EQ(wrrl[0]["OEZK_Klasse"], "gut");
    EXPECT_EQ(wrrl[0]["Status"], "unknown");
    EXPECT_THAT(Call({"results", path_, "--wrrl"}).Out, HasSubstr("2 gut"));
    const nlohmann::json seston = Json({"--seston"});
    ASSERT_EQ(seston.size(), 1u);
    EXPECT_EQ(seston[0]["ID"], 13);
    EXPECT_THAT(Call({"results", path_, "--seston"}).Out, HasSubstr("2,25"));
    EXPECT_EQ(Call({"results", path_, "--seston", "--wrrl"}).Code, 2);
}

TEST_F(Results, RefusesUnknownFormatsAndScopes) {
    EXPECT_EQ(Call({"results", path_, "--format", "xml"}).Code, 2);
    EXPECT_EQ(Call({"results", path_, "--scope", "Alles:1"}).Code, 2);
    EXPECT_EQ(Call({"results", path_, "--scope", "Projekt:77"}).Code, 1);
    EXPECT_EQ(Call({"results"}).Code, 2);
}

}  // namespace
