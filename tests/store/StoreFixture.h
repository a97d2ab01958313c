#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "TemporaryFolder.h"
#include "store/Layout.h"
#include "store/OpenConnection.h"

namespace FX_Algen::store::test {

/// Another program that has the same file open: the engine's own interface, no gateway.
class OtherProgram {
public:
    explicit OtherProgram(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &db_), SQLITE_OK);
        sqlite3_busy_timeout(db_, 1000);
    }
    ~OtherProgram() { sqlite3_close(db_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void Run(const std::string& sql) {
        EXPECT_EQ(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(db_);
    }
    /// First column of the first row as text; "(null)" for Null, "(none)" without a row.
    std::string One(const std::string& sql) {
        std::string out = "(none)";
        sqlite3_exec(
            db_, sql.c_str(),
            [](void* to, int, char** columns, char**) {
                *static_cast<std::string*>(to) = columns[0] != nullptr ? columns[0] : "(null)";
                return 1;
            },
            &out, nullptr);
        return out;
    }

private:
    sqlite3* db_ = nullptr;
};

inline std::string LayoutPragma() { return "PRAGMA user_version=" + std::to_string(LayoutVersion) + ";"; }

/// Makes a database file by the engine's own interface.
inline std::string MakeDatabase(const TemporaryFolder& folder, const std::string& name,
                                const std::string& sql) {
    const auto path = folder.File(name);
    // In one go and without waiting for the disk: a test has many of these.
    OtherProgram(path).Run("PRAGMA synchronous=OFF; BEGIN;" + LayoutPragma() + sql + "; COMMIT");
    return path;
}

inline DatabasePtr Open(const std::string& path) { return Workspace().OpenDatabase(path); }

/// A small database of the field: sampling sites, their findings, taxa.
class StoreTest : public testing::Test {
protected:
    static constexpr const char* Schema =
        "CREATE TABLE awaPrStelle(ID_PS INTEGER PRIMARY KEY AUTOINCREMENT, ID_TR INTEGER, Stelle TEXT, "
        "  Anzeige BOOLEAN DEFAULT -1 CHECK(Anzeige IN (-1,0)), Tiefe FLOAT, Datum DATE, Zeit TIME);"
        "CREATE TABLE awaArt(ID_ART INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT NOT NULL, Algenart "
        "SMALLINT);"
        "CREATE TABLE awaArtPrStelle(ID_PS INTEGER NOT NULL, ID_ART INTEGER NOT NULL, "
        "  CF BOOLEAN NOT NULL DEFAULT 0, DG_MA FLOAT DEFAULT 0, Schalen_KA INTEGER DEFAULT 0, "
        "  PRIMARY KEY(ID_PS, ID_ART, CF));"
        "CREATE TABLE awaErgProjekt(ID INTEGER NOT NULL, KAOnly BOOLEAN NOT NULL, SapIndex FLOAT, n "
        "SMALLINT, "
        "  PRIMARY KEY(ID, KAOnly));"
        "CREATE TABLE awaFundarchiv(ID INTEGER PRIMARY KEY, Häufigkeit SMALLINT, Wert DOUBLE);"
        "CREATE TABLE awaStand(ID INTEGER PRIMARY KEY);"
        "CREATE TABLE awaAnteil(ID INTEGER PRIMARY KEY, ID_Stand INTEGER REFERENCES awaStand(ID));"
        "CREATE VIEW Fundliste AS SELECT a.Name, f.DG_MA, f.CF, f.DG_MA*2 AS Doppelt FROM awaArt a JOIN "
        "awaArtPrStelle f "
        "ON a.ID_ART=f.ID_ART;"
        "INSERT INTO awaPrStelle(ID_PS,ID_TR,Stelle,Tiefe,Datum,Zeit) VALUES"
        " (1,10,'Furt',0.5,'2026-05-09','09:30:00'),(2,10,'Brücke',1.25,NULL,NULL),(3,11,'Wehr',NULL,NULL,"
        "NULL);"
        "INSERT INTO awaArt VALUES(1,'Ödogonium',1),(2,'Navicula',2),(3,'Ätherastrum',NULL),(4,'Zygnema',1);"
        "INSERT INTO awaArtPrStelle VALUES(1,1,0,12.5,0),(1,2,0,0,40),(1,2,-1,0,7),(2,1,0,3,0);"
        "INSERT INTO awaErgProjekt VALUES(10,0,1.5,1);";

    StoreTest() : path_(MakeDatabase(folder_, "Gewässer.db", Schema)), db_(Open(path_)) {}

    Value One(const std::string& select) {
        const auto rows = db_->OpenRecordset(select);
        return (*rows)[0];
    }
    Connection& TheConnection() { return *db_->SharedConnection(); }

    TemporaryFolder folder_;
    std::string path_;
    DatabasePtr db_;
};

}  // namespace FX_Algen::store::test
