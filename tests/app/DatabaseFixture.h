#pragma once

#include <initializer_list>
#include <string>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "app/CommandCall.h"

namespace FX_Algen::cli {

/// A new project database in a folder of its own; the fixtures that derive from it fill it.
class DatabaseFixture : public FolderFixture {
protected:
    void SetUp() override {
        FolderFixture::SetUp();
        path_ = Path("Gewässer.db");
        store::CreateDatabase(path_, store::DatabaseKind::Project);
        database_ = store::Workspace().OpenDatabase(path_);
    }

    void TearDown() override {
        database_.reset();
        FolderFixture::TearDown();
    }

    void Execute(std::initializer_list<const char*> statements) {
        for (const char* statement : statements) database_->Execute(statement);
    }

    /// One field of the one row that a statement gives.
    store::Value One(const std::string& statement) {
        const auto rows = database_->OpenRecordset(statement);
        EXPECT_FALSE(rows->Eof()) << statement;
        return rows->Eof() ? store::Value() : (*rows)[std::size_t{0}];
    }

    std::string path_;
    store::DatabasePtr database_;
};

}  // namespace FX_Algen::cli
