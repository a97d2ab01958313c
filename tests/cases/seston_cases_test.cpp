// The cases of the seston: each file of the folder "seston" is a sample, the reasoning and the result row
// that must come out. docs/cases.md tells how to read and write one.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "cases/CaseDatabase.h"
#include "cases/CaseRun.h"
#include "cases/SestonCase.h"

namespace FX_Algen::cases {
namespace {

namespace fs = std::filesystem;

fs::path Folder() { return fs::path(FX_SOURCE_DIR) / "tests" / "cases" / "seston"; }

/// Names of the case files, without their ending.
std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class SestonCases : public testing::TestWithParam<std::string> {};

TEST_P(SestonCases, ComeToTheRowOfTheirReasoning) {
    const auto path = Folder() / (GetParam() + ".txt");
    SestonCase sample;
    try {
        sample = ReadSestonCase(path.string(), ReadFile(path));
    } catch (const CaseError& error) {
        FAIL() << error.what();
    }
    const CaseDatabase database(GetParam());
    Fill(database.Handle, sample);
    const auto failure = Calculate(database.Handle);
    for (const auto& difference :
         RowDifferences(*database.Handle, {"sesErgProjekt", "ID>0"}, sample.Expected, failure))
        ADD_FAILURE_AT(sample.File.c_str(), static_cast<int>(difference.Line)) << sample.Title << "\n"
                                                                               << difference.Text;
}

INSTANTIATE_TEST_SUITE_P(Cases, SestonCases, testing::ValuesIn(CaseNames()),
                         [](const auto& file) { return file.param; });

// A case that is given up on purpose lowers the number.
TEST(SestonCaseFolder, HasLostNoCase) { EXPECT_GE(CaseNames().size(), 9U); }

struct Slip {
    const char* Text;
    const char* Reason;
};

constexpr const char* Head = "Case: Ein Fall\n[reasoning]\nThe index is 2.\n";

TEST(SestonCaseFile, RefusesWhatItDoesNotUnderstand) {
    const Slip slips[] = {
        {"[expected]\nSapIndex\n3\n", "does not come to 3"},
        {"[expected]\n", "nothing is expected"},
        {"[taxa]\ntaxon | W_SI | W_O | W_B | W_A | W_P\nGrünalge | 2 | 0 | 0 | 0 | "
         "0\n[expected]\nSapIndex\n2\n",
         "genus and species"},
        {"[taxa]\ntaxon | W_SI | W_O | W_B | W_A | W_P\nMüllerella alba | 2 | 0 | 0 | 0 | 0\n"
         "[expected]\nSapIndex\n2\n",
         "is not found"},
        {"[findings]\nsampling site | taxon | cf. | Abundanz\nUfer | Müllerella alba | - | 2\n"
         "[expected]\nSapIndex\n2\n",
         "does not stand among the taxa"},
        {"[covers]\nno row\n[expected]\nSapIndex\n2\n", "covers"},
    };
    for (const auto& slip : slips) {
        try {
            ReadSestonCase("Fall.txt", std::string(Head) + slip.Text);
            ADD_FAILURE() << slip.Reason;
        } catch (const CaseError& error) {
            EXPECT_NE(std::string(error.what()).find(slip.Reason), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace FX_Algen::cases
