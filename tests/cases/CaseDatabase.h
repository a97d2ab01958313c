#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::cases {

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A database in a folder of its own, removed with the object.
class CaseDatabase {
public:
    explicit CaseDatabase(const std::string& name)
        : folder_(std::filesystem::path(testing::TempDir()) /
                  ("case_" + name + "_" + std::to_string(getpid()))) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        const auto path = (folder_ / "Fälle.db").string();
        store::CreateDatabase(path, store::DatabaseKind::Project);
        Handle = store::Workspace().OpenDatabase(path);
    }
    ~CaseDatabase() {
        Handle.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    CaseDatabase(const CaseDatabase&) = delete;
    CaseDatabase& operator=(const CaseDatabase&) = delete;

    store::DatabasePtr Handle;

private:
    std::filesystem::path folder_;
};

}  // namespace FX_Algen::cases
