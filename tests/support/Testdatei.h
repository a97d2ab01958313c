#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "store/Connection.h"

namespace FX_Algen {

/// A new project database in a temporary file that goes with the object. The rows of a test are filled in
/// together: a statement each would wait for the disk each time.
class Testdatei {
public:
    /// `vorsatz` begins the file's name.
    explicit Testdatei(const std::string& vorsatz) : pfad_(NeuerPfad(vorsatz)) {
        Entfernen();
        store::CreateDatabase(pfad_, store::DatabaseKind::Project);
        datenbank_ = store::Workspace().OpenDatabase(pfad_);
    }
    ~Testdatei() {
        fuellung_.reset();
        datenbank_.reset();
        Entfernen();
    }
    Testdatei(const Testdatei&) = delete;
    Testdatei& operator=(const Testdatei&) = delete;

    const std::string& Pfad() const noexcept { return pfad_; }
    /// The database as it stands while it is being filled.
    const store::DatabasePtr& Handle() const noexcept { return datenbank_; }
    /// The database with all that was filled in.
    const store::DatabasePtr& Datenbank() {
        if (fuellung_) {
            fuellung_->Keep();
            fuellung_.reset();
        }
        return datenbank_;
    }
    /// Runs a statement that fills in rows.
    void Ausfuehren(const std::string& anweisung) {
        if (!fuellung_) fuellung_.emplace(datenbank_->SharedConnection());
        datenbank_->Execute(anweisung);
    }

private:
    static std::string NeuerPfad(const std::string& vorsatz) {
        static int nummer = 0;
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        // With the process: two builds may run their tests at the same time.
        std::string name = vorsatz + "_" + test->test_suite_name() + "_" + test->name() + "_" +
                           std::to_string(getpid()) + "_" + std::to_string(++nummer) + ".db";
        for (auto& zeichen : name) {
            if (zeichen == '/') zeichen = '_';
        }
        return (std::filesystem::path(testing::TempDir()) / name).string();
    }
    void Entfernen() const {
        std::error_code fehler;
        for (const char* endung : {"", "-wal", "-shm", "-journal"})
            std::filesystem::remove(pfad_ + endung, fehler);
    }

    std::string pfad_;
    store::DatabasePtr datenbank_;
    std::optional<store::Savepoint> fuellung_;
};

}  // namespace FX_Algen
