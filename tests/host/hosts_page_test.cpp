// The example of docs/hosts.md stands here between its markers, so that it compiles and runs.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "TestDatabase.h"

// clang-format off
// begin of the example
#include <iostream>
#include <memory>
#include <string>

#include "FX_Algen/FX_Algen.h"

using namespace FX_Algen;

int Calculate(const std::string& path, std::ostream& out) {
    const auto workspace = std::make_shared<store::Workspace>();
    const auto database = workspace->OpenDatabase(path);

    AL_PS ps;
    ps.CurrentDB(database);
    ps.SprachID(Language::German);
    ps.IstWRRLBerechnung(false);
    ps.ValenzGewicht(false);
    ps.DebugModus(false);
    ps.Berechnung_Init();
    out << ps.Berechnung_Statustext() << '\n';

    int failed = 0;
    const auto subhabitats = database->OpenRecordset("SELECT ID_TR FROM awaTeilraum ORDER BY ID_TR;");
    for (; !subhabitats->Eof(); subhabitats->MoveNext()) {
        ps.TeilraumID((*subhabitats)["ID_TR"].I4());
        try {
            ps.Berechnung_Execute();
        } catch (const Error& error) {
            out << error.Number() << ": " << error.Description() << '\n';
            ++failed;
        }
    }

    const auto results = database->OpenRecordset("SELECT ID, SapIndex, TI, AMI FROM awaErgProjekt ORDER BY ID;");
    for (; !results->Eof(); results->MoveNext()) {
        out << (*results)["ID"].Text();
        for (const char* index : {"SapIndex", "TI", "AMI"}) {
            const auto& value = (*results)[index];
            out << ' ' << index << '=' << (value.IsNull() ? "-" : value.Text());
        }
        out << '\n';
    }
    return failed;
}
// end of the example

// begin of the assessment
int Assess(const std::string& path, std::ostream& out) {
    const auto workspace = std::make_shared<store::Workspace>();
    const auto database = workspace->OpenDatabase(path);

    AL_PS ps;
    ps.CurrentWS(workspace);
    ps.CurrentDB(database);
    ps.DBName(path);
    ps.SprachID(Language::German);
    ps.IstWRRLBerechnung(true);
    ps.DebugModus(false);
    ps.Berechnung_WRRLInit();

    int failed = 0;
    const auto subhabitats = database->OpenRecordset("SELECT ID_TR FROM awaTeilraum ORDER BY ID_TR;");
    for (; !subhabitats->Eof(); subhabitats->MoveNext()) {
        const auto id = (*subhabitats)["ID_TR"].I4();
        try {
            const auto site = ReadAssessmentSite(database, id);
            if (const auto diatom = UncountedDiatom(database, id)) {
                out << id << ": no valves entered for " << *diatom << '\n';
                ++failed;
                continue;
            }
            SetAssessmentSite(ps, site);
            for (const bool diatomsAlone : {false, true}) {
                ps.KAOnly(diatomsAlone);
                ps.Berechnung_WRRL();
            }
            if (!HasFrequencyColumn(database, id)) {
                database->Execute("DELETE * FROM awaErgWRRL WHERE ID=" + store::NumberText(id) + ";");
                out << id << ": no sampling site, or the project tree above is broken\n";
                ++failed;
            }
            for (const auto& missing : MissingReferences(database, site)) {
                out << id << ": no row in " << missing.Table << '\n';
            }
        } catch (const Error& error) {
            out << error.Number() << ": " << error.Description() << '\n';
            ++failed;
        }
    }

    const auto results =
        database->OpenRecordset("SELECT ID, KAOnly, OEZK, OEZK_Klasse FROM awaErgWRRL ORDER BY ID, KAOnly;");
    for (; !results->Eof(); results->MoveNext()) {
        out << (*results)["ID"].Text() << ((*results)["KAOnly"].Bool() ? " diatoms" : "");
        const auto& name = (*results)["OEZK_Klasse"];
        out << ' ' << (name.IsNull() ? "failed" : name.Text()) << '\n';
    }
    return failed;
}
// end of the assessment

// begin of the charts
void Charts(const std::string& path, std::int32_t project, std::int32_t subhabitat, std::ostream& out) {
    const auto workspace = std::make_shared<store::Workspace>();
    const auto database = workspace->OpenDatabase(path);

    AL_PS_Grafik grafik;
    grafik.CurrentDB(database);
    grafik.SprachID(Language::English);
    grafik.Grafik_Verteilungsart(2);
    grafik.Grafik_Stellenbez(1);
    grafik.Grafik_Verteilung_Init();
    out << grafik.Grafik_Standardtitel() << '\n';
    const auto sites = database->OpenRecordset(grafik.Grafik_SQL());
    for (; !sites->Eof(); sites->MoveNext()) {
        out << (*sites)["Stelle"].Text() << ':';
        for (std::int16_t bar = 1; bar <= grafik.Grafik_Balkenanzahl(); ++bar) {
            const auto& value = (*sites)["Wert" + std::to_string(bar)];
            if (value.IsNull()) continue;  // no value is no bar, and not 0
            out << ' ' << grafik.Grafik_Legendentext(bar).Text() << '=' << value.Text();
        }
        out << '\n';
    }

    DominanceRequest request;
    request.Database = database;
    request.DBName = path;
    request.SprachID = Language::English;
    request.ProjektID = project;
    request.TeilraumID = subhabitat;
    request.Algenart = 2;  // diatoms
    request.MaxDomWert = 1.5F;
    const auto chart = ReadDominanceChart(request);
    out << chart.Title << '\n';
    for (const auto& taxon : chart.Sites)
        out << taxon.Label << ": " << store::NumberText(taxon.Values[0].value()) << '\n';
}
// end of the charts
// clang-format on

namespace {

std::string FileText(const std::string& name) {
    std::ifstream file(std::string(FX_SOURCE_DIR) + "/" + name, std::ios::binary);
    std::ostringstream out;
    out << file.rdbuf();
    return out.str();
}

/// What stands between two marks; empty where one of them is missing.
std::string Between(const std::string& text, const std::string& first, const std::string& last) {
    const auto begin = text.find(first);
    if (begin == std::string::npos) return {};
    const auto end = text.find(last, begin + first.size());
    if (end == std::string::npos) return {};
    return text.substr(begin + first.size(), end - begin - first.size());
}

TEST(HostsPage, ShowsTheExampleThatIsCompiledHere) {
    const auto here = Between(FileText("tests/host/hosts_page_test.cpp"), "// begin of the example\n",
                              "// end of the example\n");
    ASSERT_FALSE(here.empty());
    EXPECT_NE(FileText("docs/hosts.md").find("```cpp\n" + here + "```"), std::string::npos);
    const auto assessment = Between(FileText("tests/host/hosts_page_test.cpp"),
                                    "// begin of the assessment\n", "// end of the assessment\n");
    ASSERT_FALSE(assessment.empty());
    EXPECT_NE(FileText("docs/hosts.md").find("```cpp\n" + assessment + "```"), std::string::npos);
    const auto charts = Between(FileText("tests/host/hosts_page_test.cpp"), "// begin of the charts\n",
                                "// end of the charts\n");
    ASSERT_FALSE(charts.empty());
    EXPECT_NE(FileText("docs/hosts.md").find("```cpp\n" + charts + "```"), std::string::npos);
}

TEST(HostsPage, ExampleCalculatesAndReportsFailures) {
    test::TestDatabase db;
    for (const auto* statement :
         {"INSERT INTO awaArt (ID_ART, Gattung, Art, ID_UFAM) VALUES (900001, 'Ulothrix', 'zonata', 0);",
          "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Algenart, Lebensform, Trophiewert, "
          "Trophiegewicht, "
          "Trophiewert_N, Trophiegewicht_N) VALUES (900001, 2, 1, 1, 1, 1.5, 1, 2, 1);",
          "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (17, 50, 40);",
          "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (18, Null);",
          "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Ufer');",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (1, 900001, False, 40, 2);"})
        db.Handle->Execute(statement);
    std::ostringstream out;
    // The total cover of sub-habitat 18 is Null: its calculation fails with 94, that of 17 does not.
    EXPECT_EQ(Calculate(db.Path(), out), 1);
    // One taxon: the indices are its values. Quantity index: 2 mm * 40 % / 100.
    EXPECT_THAT(out.str(), testing::MatchesRegex("Algen-Berechnung der Indizes\n94: .*DG_Gesamt.*\n"
                                                 "17 SapIndex=2 TI=1\\.5 AMI=0\\.8\n18 .*\n"));
}

TEST(HostsPage, StatementsAnswerWhatThePageSays) {
    test::TestDatabase db;
    for (const auto* statement :
         {"INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen, Bezeichnung) VALUES (5, 'KV', 'Kühl');",
          "INSERT INTO AL_Hoehenstufe (ID_AL_Hoehenstufe, Hoehenstufe) VALUES (8, 3);",
          "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (2, 'Flüsse');",
          "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 2);",
          "INSERT INTO UnvUStelle (ID_UUS, ID_AB, ID_AL_Bioregion, ID_AL_Hoehenstufe, RefBioregionen) VALUES "
          "(1, 1, 5, 8, 'KV3');",
          "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (1, 1);",
          "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 1, 'Furt');"})
        db.Handle->Execute(statement);
    std::string page = FileText("docs/hosts.md");
    const auto next = [&] {
        const std::string statement = Between(page, "```sql\n", "```");
        page.erase(0, page.find("```sql\n") + 7);
        return db.Handle->OpenRecordset(statement);
    };
    const auto site = next();
    ASSERT_FALSE(site->Eof());
    EXPECT_EQ((*site)["ID_PRJ"].I4(), 2);
    EXPECT_EQ((*site)["ID_AL_Bioregion"].I4(), 5);
    EXPECT_EQ((*site)["Hoehenstufe"].I4(), 3);  // the step of the site, not its key
    EXPECT_EQ((*site)["RefBioregionen"].Text(), "KV3");
    const auto sign = next();
    ASSERT_FALSE(sign->Eof());
    EXPECT_EQ((*sign)["ID_AL_Bioregion"].I4(), 5);
    try {
        db.Handle->OpenRecordset("SELECT A17 FROM awaArtenlisteHaeufigkeit;");
        FAIL() << "before a run there is no column";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 3061);
    }
}

TEST(HostsPage, AssessmentExampleTellsClassesAndWhatIsMissing) {
    test::TestDatabase db;
    for (const auto* statement :
         {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Bäche');",
          "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 1);",
          "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (1, 1, 'Brücke');",
          "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (1, 1);",
          "INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (17, 1);",
          "INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (18, 1);",
          "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (1, 'Achnanthidiaceae', 128);",
          "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (1, 1);",
          "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art, IstArtniveau) VALUES (5, 1, 'Grün', 'a', -1);",
          "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Lebensform) "
          "VALUES (5, 2, 1, 2, 1, 1);",
          "INSERT INTO awaTeilraum (ID_TR) VALUES (17);", "INSERT INTO awaTeilraum (ID_TR) VALUES (18);",
          "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Ufer');",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 5, False, 100);",
          "INSERT INTO awaWRRL_SGZK (ID_AL_Bioregion, Hoehenstufe, Gueteklasse) VALUES (0, 0, 2);",
          "INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('KA', 2, 1.5);",
          "INSERT INTO awaWRRL_SIOEZK (Taxagruppe, Gueteklasse, EQRMin, EQRMax, OEZK) "
          "VALUES ('KA', 2, 0, 1, 2);",
          "INSERT INTO awaWRRL_Klasse (Klassenzahl, Bezeichnung) VALUES (2, 'mäßig gut');"})
        db.Handle->Execute(statement);
    std::ostringstream out;
    // Sub-habitat 18 has no sampling site. 17 rests on its diatoms: the saprobic module alone has its tables,
    // EQR (4 - 2) / (4 - 1.5) = 0.8, class 2.
    EXPECT_EQ(Assess(db.Path(), out), 1);
    EXPECT_THAT(out.str(), testing::MatchesRegex("(17: no row in awaWRRL_(TGZK|ETI|TIOEZK|RBioregionstyp|ERI|"
                                                 "RIOEZK)\n)+18: no sampling site[^\n]*\n17 mäßig gut\n"));
}

TEST(HostsPage, ChartsExampleTellsClassesOfSitesAndTaxaFromTheMostAbundantOn) {
    test::TestDatabase db;
    for (const auto* statement :
         {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (2, 'Bäche');",
          "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 2);",
          "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (1, 1, 'Brücke');",
          "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #5/12/2026#);",
          "INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (17, 1);",
          "INSERT INTO awaTeilraum (ID_TR) VALUES (17);",
          "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Ufer');",
          "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (1, 'Achnanthidiaceae', 128);",
          "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (1, 1);",
          "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (5, 1, 'Grün', 'ähnlich');",
          "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (6, 1, 'Öd', 'selten');",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 5, True, 47);",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 5, False, 80);",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 6, False, 1);",
          "INSERT INTO awaErgProjekt (ID, ANZ_Gueteklasse_I_II, ANZ_Gueteklasse_III) VALUES (17, 0, 4);"})
        db.Handle->Execute(statement);
    std::ostringstream out;
    Charts(db.Path(), 2, 17, out);
    // Of 128 valves 80 are 62.5 %, 47 are 36.71875 %; 1 is 0.78125 %, which is not above 1.5 %.
    EXPECT_EQ(out.str(),
              "Number of taxa per quality class\nBrücke 12.05.2026 Ufer: I-II=0 III=4\n"
              "Relative frequencies of diatoms (%)\nGrün ähnlich: 62.5\nGrün cf. ähnlich: 36.71875\n");
}

}  // namespace
