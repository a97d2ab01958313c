#include "entry/Import.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "FX_Algen/Error.h"

namespace FX_Algen::entry {
namespace {

/// A component that remembers its database's name.
class Import : public ImportComponent {
public:
    explicit Import(std::string& name) : name_(name) {}
    void DBName(const std::string& path) override { name_ = path; }
    void KatalogTitel(const std::string&) override {}
    void Versionswort(const std::string&) override {}
    void MitKatalog(bool) override {}
    void Eigner(const std::string&) override {}
    void Sprache(std::int16_t) override {}
    void ID_PS(std::int32_t) override {}
    void Benutzer(const std::string&) override {}
    void CurrentDB(const store::DatabasePtr&) override {}
    void Bereich(const std::string&) override {}
    void Spalten(const std::string&) override {}
    void Rueckgabe(ReturnField&) override {}
    void Start() override {}

private:
    std::string& name_;
};

/// No test leaves a maker behind.
class ImportMaker : public testing::Test {
protected:
    ~ImportMaker() override { SetImport(nullptr); }
    std::string name_;
    ImportFactory factory_ = [this] { return std::make_unique<Import>(name_); };
};

TEST_F(ImportMaker, IsNoneUntilAHostInstallsOne) {
    EXPECT_EQ(MakeImport(), nullptr);
    EXPECT_FALSE(SetImport(factory_));
    const auto made = MakeImport();
    ASSERT_NE(made, nullptr);
    made->DBName("Gewässer.db");
    EXPECT_EQ(name_, "Gewässer.db");
    EXPECT_NE(MakeImport(), made);  // one for each sheet
}

TEST_F(ImportMaker, IsHandedBackByTheNext) {
    SetImport(factory_);
    EXPECT_TRUE(SetImport(nullptr));
    EXPECT_EQ(MakeImport(), nullptr);
}

TEST_F(ImportMaker, MayFailInAnyWay) {
    SetImport([]() -> std::unique_ptr<ImportComponent> { throw Error(53, "fehlt"); });
    EXPECT_EQ(MakeImport(), nullptr);
    SetImport([]() -> std::unique_ptr<ImportComponent> { throw std::runtime_error("fehlt"); });
    EXPECT_EQ(MakeImport(), nullptr);
    SetImport([]() -> std::unique_ptr<ImportComponent> { throw 7; });
    EXPECT_EQ(MakeImport(), nullptr);
    SetImport([]() -> std::unique_ptr<ImportComponent> { return nullptr; });
    EXPECT_EQ(MakeImport(), nullptr);
}

TEST_F(ImportMaker, ServesItsThreadAlone) {
    SetImport(factory_);
    bool there = true;
    std::thread([&] { there = MakeImport() != nullptr; }).join();
    EXPECT_FALSE(there);
    EXPECT_NE(MakeImport(), nullptr);
}

TEST_F(ImportMaker, MayInstallAnotherWhileItMakes) {
    SetImport([this]() -> std::unique_ptr<ImportComponent> {
        SetImport(nullptr);
        return factory_();
    });
    EXPECT_NE(MakeImport(), nullptr);
    EXPECT_EQ(MakeImport(), nullptr);
}

}  // namespace
}  // namespace FX_Algen::entry
