// The cases that biologists review: each file of this folder is a sample, the reasoning and the class that
// must come out. docs/cases.md tells how to read and write one.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "cases/CaseDatabase.h"
#include "cases/CaseRun.h"

namespace FX_Algen::cases {
namespace {

namespace fs = std::filesystem;

fs::path Folder() { return fs::path(FX_SOURCE_DIR) / "tests" / "cases"; }

std::optional<std::string> Shared(const std::string& name) {
    const auto path = Folder() / "reference" / fs::path(name + ".txt");
    if (!fs::is_regular_file(path)) return std::nullopt;
    return ReadFile(path);
}

/// Names of the case files, without their ending.
std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) {
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class AssessmentCase : public testing::TestWithParam<std::string> {};

void Report(const Case& sample, const std::vector<Difference>& differences) {
    for (const auto& difference : differences)
        ADD_FAILURE_AT(sample.File.c_str(), static_cast<int>(difference.Line)) << sample.Title << "\n"
                                                                               << difference.Text;
}

TEST_P(AssessmentCase, ComesToTheClassOfItsReasoning) {
    const auto path = Folder() / (GetParam() + ".txt");
    Case sample;
    try {
        sample = ReadCase(path.string(), ReadFile(path), Shared);
    } catch (const CaseError& error) {
        FAIL() << error.what();
    }
    const CaseDatabase database(GetParam());
    Fill(database.Handle, sample);
    std::vector<Difference> list;
    const auto outcome = Assess(database.Handle, sample, list);
    Report(sample, list);
    Report(sample, Differences(database.Handle, sample.FirstRun, outcome.FirstRun, false));
    Report(sample, Differences(database.Handle, sample.SecondRun, outcome.SecondRun, true));
}

INSTANTIATE_TEST_SUITE_P(Cases, AssessmentCase, testing::ValuesIn(CaseNames()),
                         [](const auto& file) { return file.param; });

// A case that is given up on purpose lowers the number.
TEST(CaseFolder, HasLostNoCase) { EXPECT_GE(CaseNames().size(), 71U); }

}  // namespace
}  // namespace FX_Algen::cases
