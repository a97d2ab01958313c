#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::test {

/// A new project database in a folder of its own, removed with the object.
class TestDatabase {
public:
    explicit TestDatabase(store::DatabaseKind kind = store::DatabaseKind::Project) {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "_" + info->name() + "_" +
                           std::to_string(getpid()) + "_Prüfung";
        for (auto& c : name)
            if (c == '/') c = '_';
        folder_ = std::filesystem::path(testing::TempDir()) / std::filesystem::path(name);
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        store::CreateDatabase(Path(), kind);
        Handle = store::Workspace().OpenDatabase(Path());
    }
    ~TestDatabase() {
        Handle.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    std::string Path() const { return (folder_ / "projekt.db").string(); }
    std::filesystem::path Folder() const { return folder_; }

    /// First field of the first row, Null where there is none.
    store::Value One(const std::string& statement) const {
        const auto rows = Handle->OpenRecordset(statement);
        return rows->Eof() ? store::Value() : (*rows)[std::size_t{0}];
    }

    store::DatabasePtr Handle;

private:
    std::filesystem::path folder_;
};

}  // namespace FX_Algen::test
