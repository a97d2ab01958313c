// The cases that biologists review: each file of this folder is a sample, the reasoning and the class that
// must come out. docs/cases.md tells how to read and write one.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "cases/CaseRun.h"

namespace FX_Algen::cases {
namespace {

namespace fs = std::filesystem;

fs::path Folder() { return fs::path(FX_SOURCE_DIR) / "tests" / "cases"; }

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

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

/// A database in a folder of its own, removed with the object.
class CaseDatabase {
public:
    explicit CaseDatabase(const std::string& name)
        : folder_(fs::path(testing::TempDir()) / ("case_" + name + "_" + std::to_string(getpid()))) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        const auto path = (folder_ / "Fälle.db").string();
        store::CreateDatabase(path, store::DatabaseKind::Project);
        Handle = store::Workspace().OpenDatabase(path);
    }
    ~CaseDatabase() {
        Handle.reset();
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    CaseDatabase(const CaseDatabase&) = delete;
    CaseDatabase& operator=(const CaseDatabase&) = delete;

    store::DatabasePtr Handle;

private:
    fs::path folder_;
};

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
