#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "store/Engine.h"

namespace FX_Algen::store {

/// A folder of a test's own that goes with it.
class TestFolder {
public:
    /// `extra` tells the folders of one test apart; `base` is where the folder lies.
    explicit TestFolder(const std::string& extra = {},
                        const std::filesystem::path& base = testing::TempDir()) {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "-" + info->name() + extra;
        for (char& c : name)
            if (c == '/') c = '-';
        path_ = base / ("fx_" + name + "-" + std::to_string(getpid()));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TestFolder() { std::filesystem::remove_all(path_); }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string File(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// A new database of a kind, with its engine open.
class TestDatabase {
public:
    explicit TestDatabase(DatabaseKind kind = DatabaseKind::Project) : path_(folder_.File("Prüfung.db")) {
        CreateDatabase(path_, kind);
        engine_ = OpenEngine(path_, false);
        engine_->Durable(false);
    }

    const std::string& Path() const { return path_; }
    const TestFolder& Folder() const { return folder_; }
    store::Engine& Engine() { return *engine_; }
    void Run(const std::string& sql) { engine_->Run(sql); }

    /// The rows as text: columns joined by "|", Null as "Null".
    std::vector<std::string> Rows(const std::string& sql) {
        auto statement = engine_->Prepare(sql);
        std::vector<std::string> out;
        while (statement->Step()) {
            std::string row;
            for (std::size_t i = 0; i < statement->ColumnCount(); ++i) {
                if (i > 0) row += '|';
                row += statement->IsNull(i) ? "Null" : std::string(statement->Text(i));
            }
            out.push_back(row);
        }
        return out;
    }
    std::string One(const std::string& sql) {
        const auto rows = Rows(sql);
        return rows.size() == 1 ? rows.front() : "not one row but " + std::to_string(rows.size());
    }

private:
    TestFolder folder_;
    std::string path_;
    std::unique_ptr<store::Engine> engine_;
};

}  // namespace FX_Algen::store
