// The worked example of docs/indices/seston.md, calculated through a database. The expected numbers are read
// from the page, where the arithmetic stands, so that page and program cannot part.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Store.h"
#include "support/Testdatei.h"

namespace FX_Algen {
namespace {

constexpr const char* Sample[] = {
    "INSERT INTO sesArt (ID_ART, Art, W_SI, W_O, W_B, W_A, W_P) VALUES (1, 'A', 1, 10, 0, 0, 0);",
    "INSERT INTO sesArt (ID_ART, Art, W_SI, W_O, W_B, W_A, W_P) VALUES (2, 'B', 2, 2, 6, 2, 0);",
    "INSERT INTO sesArt (ID_ART, Art, W_SI, W_O, W_B, W_A, W_P) VALUES (3, 'C', 3, 0, 1, 7, 2);",
    "INSERT INTO sesArt (ID_ART, Art) VALUES (4, 'D');",
    "INSERT INTO sesArt (ID_ART, Art, W_SI, W_O, W_B, W_A, W_P) VALUES (5, 'E', 2.5, 0, 5, 5, 0);",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (1, 17);",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (2, 17);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 1, 0, 2);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 2, 0, 8);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 2, -1, 1);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 5, 0, 0);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (2, 2, 0, 2);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (2, 3, 0, 1);",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (2, 4, 0, 2);",
};

/// The rows below "| Column | result |".
std::map<std::string, double> ResultsOfThePage() {
    std::ifstream page(std::string(FX_SOURCE_DIR) + "/docs/indices/seston.md");
    std::map<std::string, double> results;
    bool inTable = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "| Column | result |") inTable = true;
        const auto name = line.find('`');
        if (!inTable || name == std::string::npos) continue;
        const auto end = line.find('`', name + 1);
        results[line.substr(name + 1, end - name - 1)] = std::stod(line.substr(line.find('|', end) + 1));
    }
    return results;
}

TEST(SestonExample, OfThePageIsWhatIsCalculated) {
    Testdatei file("seston_example");
    for (const char* statement : Sample) file.Ausfuehren(statement);
    AL_PS ps;
    ps.CurrentDB(file.Datenbank());
    ps.TeilraumID(17);
    ps.Berechnung_ExecuteSeston();
    const auto row = file.Datenbank()->OpenRecordset("SELECT * FROM sesErgProjekt WHERE ID=17;");
    const auto results = ResultsOfThePage();
    // Every column but the key.
    EXPECT_EQ(results.size() + 1, row->Fields().size());
    for (const auto& [column, expected] : results) {
        // The page gives six decimals.
        EXPECT_NEAR((*row)[column].R8(), expected, 6e-7) << column;
    }
}

}  // namespace
}  // namespace FX_Algen
