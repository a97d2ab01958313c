#pragma once

#include "CommandCall.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// The demo project in a folder of its own.
class DemoFixture : public FolderFixture {
protected:
    void SetUp() override {
        FolderFixture::SetUp();
        path_ = Path("Fließgewässer.db");
        ASSERT_EQ(Call({"create", path_, "--demo"}).Code, 0);
    }

    store::DatabasePtr Open() const { return store::Workspace().OpenDatabase(path_); }

    std::string path_;
};

}  // namespace FX_Algen::cli
