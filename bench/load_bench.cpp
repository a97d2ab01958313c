// Rows a second of a load into an empty database, and what it is made of: reading the file alone, and writing
// the same rows with one prepared statement alone. Findings are the largest table by far, so they stand for
// all.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Load.h"
#include "store/Engine.h"
#include "store/load/TableFile.h"
#include "store/load/Tables.h"

namespace {

using namespace FX_Algen::store;

constexpr int FindingsEach = 50;
constexpr int Taxa = 500;

using Clock = std::chrono::steady_clock;
double SecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// The tables of a project with `subHabitats` sub-habitats as CSV texts.
struct Project {
    std::string Projekt = "ID_PRJ,PRJBez\n1,Flüsse\n";
    std::string Abschnitt = "ID_AB,ID_PRJ\n1,1\n";
    std::string UnvUStelle = "ID_UUS,ID_AB\n1,1\n";
    std::string VerUStelle = "ID_VUS,ID_UUS\n1,1\n";
    std::string Teilraum = "ID_TR,ID_VUS,TRBez\n";
    std::string awaTeilraum = "ID_TR,DG_Gesamt,DG_MA\n";
    std::string awaPrStelle = "ID_PS,ID_TR,PSBez\n";
    std::string awaArt = "ID_ART,Gattung,Art\n";
    std::string awaArtPrStelle = "ID_PS,ID_ART,CF,MAalsMI,DG_MA,SD_MA,Schalen_KA,DG_MP\n";
    std::int64_t Rows = 0;

    explicit Project(int subHabitats) {
        for (int taxon = 1; taxon <= Taxa; ++taxon)
            awaArt += std::to_string(taxon) + ",Gattung,art" + std::to_string(taxon) + '\n';
        for (int id = 1; id <= subHabitats; ++id) {
            const std::string key = std::to_string(id);
            Teilraum += key + ",1,Stelle " + key + '\n';
            awaTeilraum += key + ",42.5,12\n";
            awaPrStelle += key + ',' + key + ",Probe\n";
            for (int n = 0; n < FindingsEach; ++n)
                awaArtPrStelle += key + ',' + std::to_string(1 + (id * 7 + n) % Taxa) + ",0,0," +
                                  std::to_string(n % 20) + ".25,0.5," + std::to_string(n * 3) + ",0\n";
        }
        Rows = 4 + Taxa + std::int64_t{subHabitats} * (3 + FindingsEach);
    }

    std::vector<LoadText> Files() const {
        return {{"Projekt.csv", Projekt},
                {"Abschnitt.csv", Abschnitt},
                {"UnvUStelle.csv", UnvUStelle},
                {"VerUStelle.csv", VerUStelle},
                {"Teilraum.csv", Teilraum},
                {"awaTeilraum.csv", awaTeilraum},
                {"awaPrStelle.csv", awaPrStelle},
                {"awaArt.csv", awaArt},
                {"awaArtPrStelle.csv", awaArtPrStelle}};
    }
};

/// A new database in a folder that goes with it.
class NewDatabase {
public:
    NewDatabase()
        : folder_(std::filesystem::temp_directory_path() / ("fx_load_bench_" + std::to_string(getpid()))) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        CreateDatabase(Path(), DatabaseKind::Project);
    }
    ~NewDatabase() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    NewDatabase(const NewDatabase&) = delete;
    NewDatabase& operator=(const NewDatabase&) = delete;
    std::string Path() const { return (folder_ / "bench.db").string(); }

private:
    std::filesystem::path folder_;
};

void LoadProject(benchmark::State& state) {
    const Project project(static_cast<int>(state.range(0)));
    const auto files = project.Files();
    for (auto _ : state) {
        const NewDatabase database;
        const auto begin = Clock::now();
        const auto result = LoadTexts(files, database.Path());
        if (!result.Problems.empty()) throw std::runtime_error(result.Problems.front().Reason);
        state.SetIterationTime(SecondsSince(begin));
    }
    state.SetItemsProcessed(state.iterations() * project.Rows);
}
BENCHMARK(LoadProject)->Arg(4000)->Arg(20000)->Unit(benchmark::kMillisecond)->UseManualTime();

void ReadFindings(benchmark::State& state) {
    const Project project(static_cast<int>(state.range(0)));
    const NewDatabase database;
    const auto engine = load::OpenDatabaseFile(database.Path());
    const auto tables = load::ReadTables(*engine);
    std::vector<LoadProblem> problems;
    const load::TableFile file({"awaArtPrStelle.csv", project.awaArtPrStelle},
                               *load::FindTable(tables, "awaArtPrStelle"), problems);
    std::int64_t rows = 0;
    for (auto _ : state) {
        load::TableFile::Rows pass(file);
        for (load::Batch batch; pass.Next(batch, 2000);)
            rows += static_cast<std::int64_t>(batch.Lines.size());
    }
    state.SetItemsProcessed(rows);
}
BENCHMARK(ReadFindings)->Arg(4000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The engine's own share: one transaction, one statement, rows in the order of the key, the index
/// afterwards.
void WriteFindingsBare(benchmark::State& state) {
    std::int64_t rows = 0;
    for (auto _ : state) {
        const NewDatabase database;
        const auto engine = OpenEngine(database.Path(), false);
        const auto begin = Clock::now();
        engine->Run("BEGIN; DROP INDEX awaArtPrStelle_ID_ART");
        {
            const auto insert = engine->Prepare("INSERT INTO awaArtPrStelle VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
            for (int id = 1; id <= state.range(0); ++id) {
                for (int n = 0; n < FindingsEach; ++n) {
                    insert->BindInteger(0, id);
                    insert->BindInteger(1, 1 + (id * 7 + n) % Taxa);
                    insert->BindInteger(2, 0);
                    insert->BindInteger(3, 0);
                    insert->BindReal(4, n % 20 + 0.25);
                    insert->BindReal(5, 0.5);
                    insert->BindInteger(6, n * 3);
                    insert->BindReal(7, 0);
                    insert->Step();
                    insert->Reset();
                    ++rows;
                }
            }
        }
        engine->Run("CREATE INDEX awaArtPrStelle_ID_ART ON awaArtPrStelle (ID_ART); COMMIT");
        state.SetIterationTime(SecondsSince(begin));
    }
    state.SetItemsProcessed(rows);
}
BENCHMARK(WriteFindingsBare)->Arg(4000)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
