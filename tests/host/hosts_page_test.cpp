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

}  // namespace
