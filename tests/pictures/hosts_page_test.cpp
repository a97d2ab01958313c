// The example of docs/hosts.md stands here between its markers, so that it compiles and runs.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "FX_Algen/FX_Algen.h"
#include "host/TestDatabase.h"

using namespace FX_Algen;

// clang-format off
// begin of the pictures
#include "FX_Algen/ui/Pictures.h"

void Pictures(const std::string& path, const std::string& picture, std::ostream& out) {
    DistributionRequest request;
    request.Database = store::Workspace().OpenDatabase(path);
    request.DBName = path;
    request.SprachID = Language::German;
    request.Verteilungsart = 2;  // taxa per quality class
    try {
        for (const auto& file : ui::WritePictures({ReadDistributionChart(request)}, picture)) out << file << '\n';
    } catch (const Error& error) {
        out << error.Number() << ": " << error.Description() << '\n';
    }
}
// end of the pictures
// clang-format on

namespace {

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(HostsPage, shows_the_example_of_pictures_that_is_compiled_here) {
    const auto here = FileText(std::string(FX_SOURCE_DIR) + "/tests/pictures/hosts_page_test.cpp");
    const std::string first = "// begin of the pictures\n";
    const auto begin = here.find(first) + first.size();
    const auto example = here.substr(begin, here.find("// end of the pictures\n") - begin);
    ASSERT_NE(example.find("WritePictures"), std::string::npos);
    EXPECT_NE(FileText(std::string(FX_SOURCE_DIR) + "/docs/hosts.md").find("```cpp\n" + example + "```"),
              std::string::npos);
}

TEST(HostsPage, example_of_pictures_writes_the_chart_or_tells_why_not) {
    test::TestDatabase db;
    for (const auto* statement :
         {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Bäche');",
          "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 1);",
          "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (1, 1, 'Mühlbach');",
          "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #5/12/2024#);",
          "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 1, 'Ufer');",
          "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (17, 50);",
          "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Ufer');",
          "INSERT INTO awaErgProjekt (ID, KAOnly) VALUES (17, False);"})
        db.Handle->Execute(statement);
    const auto picture = (db.Folder() / "güte.svg").string();
    std::ostringstream out;
    Pictures(db.Path(), picture, out);
    EXPECT_EQ(out.str(), picture + "\n");
    EXPECT_NE(FileText(picture).find("Mühlbach"), std::string::npos);

    std::ostringstream failed;
    Pictures(db.Path(), (db.Folder() / "fehlt" / "a.svg").string(), failed);
    EXPECT_EQ(failed.str().substr(0, 4), "53: ");
}

}  // namespace
