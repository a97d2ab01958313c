#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::store::test {

/// A folder of a test's own that goes away with it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        static std::atomic<int> count{0};
        path_ = std::filesystem::path(testing::TempDir()) /
                ("fx_store_" + std::to_string(getpid()) + "_" + std::to_string(++count));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string File(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& Path() const noexcept { return path_; }

private:
    std::filesystem::path path_;
};

/// Number of the failure of `call`; 0 where it does not fail.
template <class Call>
std::int32_t FailureNumber(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

/// Description of the failure of `call`; empty where it does not fail.
template <class Call>
std::string FailureWords(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Description();
    }
    return {};
}

}  // namespace FX_Algen::store::test
