#pragma once

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "fxalgen/Command.h"

namespace FX_Algen::cli {

/// What a call of the command line left behind.
struct Outcome {
    int Code = -1;
    std::string Out;
    std::string Err;
};

/// Calls the command line in-process.
inline Outcome Call(const std::vector<std::string>& arguments) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const int code = Run(arguments, in, out, err);
    return {code, out.str(), err.str()};
}

/// A test with a folder of its own, whose name has an umlaut.
class FolderFixture : public testing::Test {
protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::path(testing::TempDir()) / ("Gewässer_" + std::to_string(getpid()) + "_" +
                                                               test->test_suite_name() + "_" + test->name());
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    std::filesystem::path folder_;
};

}  // namespace FX_Algen::cli
