// What the gateway costs: each statement through it, and the same one prepared once on the engine's own
// interface, in one run. "Bare" binds, steps and reads the columns as the gateway's caller does.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "FX_Algen/Store.h"
#include "store/Layout.h"

namespace {

using namespace FX_Algen::store;

constexpr int SubHabitats = 200;
constexpr int FindingsEach = 50;

class BareStatement {
public:
    BareStatement(sqlite3* db, const char* sql) {
        if (sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db));
    }
    ~BareStatement() { sqlite3_finalize(statement_); }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;
    sqlite3_stmt* Get() const { return statement_; }

private:
    sqlite3_stmt* statement_ = nullptr;
};

/// One database file for all benchmarks, opened both ways.
class Files {
public:
    Files() : folder_(std::filesystem::temp_directory_path() / ("fx_bench_" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
        const auto path = (folder_ / "bench.db").string();
        CreateDatabase(path, DatabaseKind::Project);
        if (sqlite3_open(path.c_str(), &bare_) != SQLITE_OK) throw std::runtime_error("cannot open");
        Run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-16384; BEGIN");
        Fill();
        Run("COMMIT");
        database_ = Workspace().OpenDatabase(path);
    }
    ~Files() {
        database_.reset();
        sqlite3_close(bare_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    sqlite3* Bare() const { return bare_; }
    Database& Gateway() const { return *database_; }

private:
    void Run(const std::string& sql) {
        if (sqlite3_exec(bare_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(bare_));
    }
    void Fill() {
        for (int id = 1; id <= FindingsEach; ++id)
            Run("INSERT INTO awaModulStandard(ID_ART,SI,Sap_GBer) VALUES(" + std::to_string(id) + ",1.5," +
                std::to_string(id % 5) + ")");
        for (int id = 1; id <= SubHabitats; ++id) {
            const auto key = std::to_string(id);
            Run("INSERT INTO awaPrStelle(ID_PS,ID_TR,PSBez) VALUES(" + key + "," + key + ",'Ufer " + key +
                "')");
            Run("INSERT INTO awaErgProjekt(ID,KAOnly) VALUES(" + key + ",0)");
            for (int art = 1; art <= FindingsEach; ++art)
                Run("INSERT INTO awaArtPrStelle(ID_PS,ID_ART,CF,DG_MA,Schalen_KA) VALUES(" + key + "," +
                    std::to_string(art) + ",0," + std::to_string(art) + ",12)");
        }
    }

    std::filesystem::path folder_;
    sqlite3* bare_ = nullptr;
    DatabasePtr database_;
};

Files& TheFiles() {
    static Files files;
    return files;
}

int Next(int id) { return id % SubHabitats + 1; }

void ShortSelectBare(benchmark::State& state) {
    const BareStatement statement(TheFiles().Bare(), "SELECT PSBez, ID_TR FROM awaPrStelle WHERE ID_PS=?1");
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        sqlite3_bind_int(statement.Get(), 1, id);
        while (sqlite3_step(statement.Get()) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_text(statement.Get(), 0));
            benchmark::DoNotOptimize(sqlite3_column_int(statement.Get(), 1));
        }
        sqlite3_reset(statement.Get());
    }
}
BENCHMARK(ShortSelectBare);

void ShortSelectGateway(benchmark::State& state) {
    auto& database = TheFiles().Gateway();
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        const auto rows =
            database.OpenRecordset("SELECT PSBez, ID_TR FROM awaPrStelle WHERE ID_PS=" + std::to_string(id));
        for (; !rows->Eof(); rows->MoveNext()) {
            benchmark::DoNotOptimize((*rows)["PSBez"].TextOrNull());
            benchmark::DoNotOptimize((*rows)["ID_TR"].I4());
        }
    }
}
BENCHMARK(ShortSelectGateway);

// The statement of a calculation: a join of three tables that gives 50 findings.
constexpr const char* JoinBare =
    "SELECT f.ID_ART, f.Schalen_KA, m.Sap_GBer, m.SI FROM awaPrStelle p JOIN awaArtPrStelle f ON "
    "p.ID_PS=f.ID_PS "
    "JOIN awaModulStandard m ON f.ID_ART=m.ID_ART WHERE p.ID_TR=?1 AND f.Schalen_KA>?2";

std::string JoinText(int id) {
    return "SELECT DISTINCTROW awaArtPrStelle.ID_Art, awaArtPrStelle.Schalen_KA, awaModulStandard.Sap_GBer, "
           "awaModulStandard.SI FROM (awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = "
           "awaArtPrStelle.ID_PS) INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = "
           "awaModulStandard.ID_ART "
           "WHERE ((awaPrStelle.ID_TR=" +
           std::to_string(id) + ") AND (awaArtPrStelle.Schalen_KA>0));";
}

void FindingsBare(benchmark::State& state) {
    const BareStatement statement(TheFiles().Bare(), JoinBare);
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        double sum = 0;
        sqlite3_bind_int(statement.Get(), 1, id);
        sqlite3_bind_int(statement.Get(), 2, 0);
        while (sqlite3_step(statement.Get()) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int(statement.Get(), 0));
            sum += sqlite3_column_int(statement.Get(), 1) * sqlite3_column_double(statement.Get(), 2) *
                   sqlite3_column_double(statement.Get(), 3);
        }
        sqlite3_reset(statement.Get());
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(FindingsBare);

void FindingsGateway(benchmark::State& state) {
    auto& database = TheFiles().Gateway();
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        double sum = 0;
        const auto rows = database.OpenRecordset(JoinText(id));
        for (; !rows->Eof(); rows->MoveNext()) {
            benchmark::DoNotOptimize((*rows)["ID_Art"].I4());
            sum += (*rows)["Schalen_KA"].I4() * (*rows)["Sap_GBer"].R8() * (*rows)["SI"].R8();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(FindingsGateway);

void ResultRowBare(benchmark::State& state) {
    const BareStatement read(TheFiles().Bare(),
                             "SELECT rowid, * FROM awaErgProjekt WHERE ID=?1 AND KAOnly=?2");
    const BareStatement write(TheFiles().Bare(),
                              "UPDATE awaErgProjekt SET SapIndex=?1, Taxa=?2 WHERE rowid=?3");
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        sqlite3_bind_int(read.Get(), 1, id);
        sqlite3_bind_int(read.Get(), 2, 0);
        if (sqlite3_step(read.Get()) != SQLITE_ROW) throw std::runtime_error("no row");
        const auto row = sqlite3_column_int64(read.Get(), 0);
        sqlite3_reset(read.Get());
        sqlite3_bind_double(write.Get(), 1, 1.75);
        sqlite3_bind_double(write.Get(), 2, id);
        sqlite3_bind_int64(write.Get(), 3, row);
        if (sqlite3_step(write.Get()) != SQLITE_DONE) throw std::runtime_error("not written");
        sqlite3_reset(write.Get());
    }
}
BENCHMARK(ResultRowBare);

void ResultRowGateway(benchmark::State& state) {
    auto& database = TheFiles().Gateway();
    int id = 0;
    for (auto _ : state) {
        id = Next(id);
        const auto rows = database.OpenRecordset(
            "SELECT * FROM awaErgProjekt WHERE (ID=" + std::to_string(id) + ") AND (KAOnly=0);");
        rows->Edit();
        rows->Collect("SapIndex", 1.75F);
        rows->Collect("Taxa", id);
        rows->Update();
    }
}
BENCHMARK(ResultRowGateway);

}  // namespace
