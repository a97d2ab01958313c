// The worked examples of docs/indices, calculated through a database. The expected numbers are read from the
// pages, where the arithmetic stands, so that a page and the program cannot part.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "calc/Berechnung.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

struct Expected {
    double Classic = 0;
    double Assessment = 0;
};

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '|');) {
        const std::size_t first = cell.find_first_not_of(" `");
        const std::size_t last = cell.find_last_not_of(" `");
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

/// The table "Column | classic | assessment" of a page.
std::map<std::string, Expected> ResultsOf(const std::string& page) {
    std::ifstream file(std::string(FX_SOURCE_DIR) + "/docs/indices/" + page);
    std::map<std::string, Expected> results;
    bool inTable = false;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = Cells(line);
        if (cells == std::vector<std::string>{"", "Column", "classic", "assessment"})
            inTable = true;
        else if (cells.size() != 4)
            inTable = false;
        else if (inTable && cells[1].find("---") == std::string::npos)
            results[cells[1]] = {std::stod(cells[2]), std::stod(cells[3])};
    }
    return results;
}

constexpr std::int32_t Subhabitat = 17;

/// The sample of docs/indices/README.md. A to G are the taxa 1 to 7.
constexpr const char* Sample[] = {
    "INSERT INTO Teilraum (ID_TR, TRBez) VALUES (17, 'Mitte');",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) VALUES (17, 80, 50, 50, "
    "40);",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, DG_MI, DG_MI_WRRL, SD_MI) VALUES (1, 17, 20, 20, 1);",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, DG_MI, DG_MI_WRRL, SD_MI) VALUES (2, 17, 10, 10, 0.5);",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (1, 17);",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (2, 17);",
    // Findings: macroalgae, valves, shares.
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (1, 1, 0, 40, 5);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (1, 2, 0, 10, 20);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 5, 0, 200);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 6, 0, 100);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 7, 0, 100);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (2, 5, 0, 100);",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 3, 0, 60);",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 4, 0, 40);",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (2, 3, 0, 100);",
    // Families in the major groups 12 (A, B, C), 133 (D) and 128 (the diatoms).
    "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (1, 12);",
    "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (2, 133);",
    "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (3, 128);",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (1, 1);",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (2, 2);",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (3, 3);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (1, 1, 'A');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (2, 1, 'B');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (3, 1, 'C');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (4, 2, 'D');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (5, 3, 'E');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (6, 3, 'F');",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (7, 3, 'G');",
};

struct Rating {
    int Id;
    const char*
        Values;  ///< SI, Sap_GBer, OB, B, Trophiewert, Trophiegewicht, Trophiewert_N, Trophiegewicht_N
    int Lebensform;
};

constexpr Rating Ratings[] = {
    {1, "2.0, 2, 4, 6, 3.0, 2, 2.5, 1", 1}, {2, "1.5, 4, 5, 5, 2.0, 3, 0, 0", 0},
    {3, "2.5, 1, 0, 0, 2.5, 1, 3.0, 2", 1}, {4, "1.0, 3, 0, 0, 1.0, 2, 1.5, 3", 1},
    {5, "1.8, 2, 3, 7, 2.0, 3, 4.0, 1", 1}, {6, "3.0, 3, 4, 5, 3.5, 2, 0, 0", 1},
    {7, "0, 0, 0, 0, 0, 0, 3.0, 2", 1},
};

class WorkedExample : public testing::TestWithParam<const char*> {
protected:
    WorkedExample() : path_(testing::TempDir() + "fx_example_" + std::to_string(::getpid()) + ".db") {
        Remove();
        store::CreateDatabase(path_, store::DatabaseKind::Project);
        database_ = store::Workspace().OpenDatabase(path_);
        store::Savepoint savepoint(database_->SharedConnection());
        for (const char* statement : Sample) database_->Execute(statement);
        for (const Rating& rating : Ratings)
            database_->Execute(
                "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, OB, B, Trophiewert, Trophiegewicht, "
                "Trophiewert_N, Trophiegewicht_N, Algenart, Lebensform) VALUES (" +
                std::to_string(rating.Id) + ", " + rating.Values + ", 'Alge', " +
                std::to_string(rating.Lebensform) + ");");
        savepoint.Keep();
    }
    ~WorkedExample() override {
        database_.reset();
        Remove();
    }

    void Remove() const {
        for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix);
    }

    store::RecordsetPtr Calculate(bool assessment) const {
        Berechnung_Init(database_);
        Berechnung_Execute(database_, Subhabitat, assessment, false, false);
        return database_->OpenRecordset("SELECT * FROM awaErgProjekt WHERE ID=17;");
    }

    std::string path_;
    store::DatabasePtr database_;
};

TEST_P(WorkedExample, OfThePageIsWhatIsCalculated) {
    const std::map<std::string, Expected> results = ResultsOf(GetParam());
    ASSERT_FALSE(results.empty()) << "no results table in " << GetParam();
    const store::RecordsetPtr classic = Calculate(false);
    const store::RecordsetPtr assessment = Calculate(true);
    for (const auto& [column, expected] : results) {
        // The pages give six decimals.
        EXPECT_NEAR((*classic)[column].R8(), expected.Classic, 6e-7) << column << ", classic";
        EXPECT_NEAR((*assessment)[column].R8(), expected.Assessment, 6e-7) << column << ", assessment";
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, WorkedExample,
                         testing::Values("saprobic-index.md", "trophic-index.md", "algae-quantity-index.md",
                                         "taxa-counts.md", "class-counts.md"),
                         [](const auto& test) {
                             std::string name = test.param;
                             name.resize(name.size() - 3);
                             for (char& c : name)
                                 if (c == '-') c = '_';
                             return name;
                         });

}  // namespace
}  // namespace FX_Algen
