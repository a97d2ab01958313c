// The frequency list of one sub-habitat in a project of 4,000 sub-habitats against one of 100: its rows are
// the taxa of the whole project each time, and yet the work must not grow with the project. A ratio of
// medians taken in one run, the two sides in turns, so that other work on the machine slows both.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "wrrl/Artenliste.h"

namespace {

using namespace FX_Algen;

constexpr int FindingsEach = 50;  // 10 macroalgae, 40 diatoms
constexpr int StandsEach = 2;     // with 5 taxa each
constexpr int Taxa = 400;

/// Runs statements on the engine's own interface: filling is none of what is measured.
class Filler {
public:
    explicit Filler(const std::string& path) {
        if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) throw std::runtime_error("cannot open " + path);
        Run("BEGIN");
    }
    ~Filler() { sqlite3_close(db_); }
    Filler(const Filler&) = delete;
    Filler& operator=(const Filler&) = delete;

    void Run(const std::string& sql) {
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(db_));
    }
    template <class... Numbers>
    void Row(const std::string& columns, Numbers... numbers) {
        std::string values;
        ((values += std::to_string(numbers) + ","), ...);
        values.pop_back();
        Run("INSERT INTO " + columns + " VALUES(" + values + ")");
    }

private:
    sqlite3* db_ = nullptr;
};

void FillCatalogue(Filler& fill) {
    for (int family = 1; family <= 40; ++family) {
        fill.Row("awaFamilie(ID_FAM,ID_GRGR)", family, family < 30 ? 128 : 130);
        fill.Row("awaUnterFam(ID_UFAM,ID_FAM)", family, family);
    }
    for (int art = 1; art <= Taxa; ++art) {
        fill.Row("awaArt(ID_ART,ID_UFAM,IstArtniveau)", art, art % 40 + 1, -1);
        fill.Row("awaModulStandard(ID_ART,Lebensform)", art, 1);
    }
}

void FillSubHabitat(Filler& fill, int id) {
    fill.Row("Teilraum(ID_TR,ID_VUS)", id, (id - 1) / 4 + 1);
    fill.Row("awaTeilraum(ID_TR,DG_Gesamt,DG_MA,DG_Gesamt_WRRL,DG_MA_WRRL)", id, 60, 40, 60, 40);
    fill.Row("awaPrStelle(ID_PS,ID_TR)", id, id);
    for (int n = 0; n < FindingsEach; ++n)
        fill.Row("awaArtPrStelle(ID_PS,ID_ART,CF,DG_MA,Schalen_KA)", id, (id * 7 + n * 8) % Taxa + 1, 0,
                 n < 10 ? 4 : 0, n < 10 ? 0 : n);
    for (int n = 0; n < StandsEach; ++n) {
        const int key = id * StandsEach + n;
        fill.Row("awaTeilraum_MI(ID_TR_MI,ID_TR,DG_MI,DG_MI_WRRL)", key, id, 10, 10);
        for (int art = 0; art < 5; ++art)
            fill.Row("awaArtPrStelle_MI(ID_TR_MI,ID_ART,CF,DG_MI)", key, (id * 3 + art * 11) % Taxa + 1, 0,
                     20);
    }
}

/// One project: four sub-habitats to a visit, a visit to a station, ten stations to a section.
void Fill(Filler& fill, int subHabitats) {
    FillCatalogue(fill);
    fill.Row("Projekt(ID_PRJ)", 1);
    const int visits = (subHabitats + 3) / 4;
    for (int section = 1; section <= (visits + 9) / 10; ++section)
        fill.Row("Abschnitt(ID_AB,ID_PRJ)", section, 1);
    for (int visit = 1; visit <= visits; ++visit) {
        fill.Row("UnvUStelle(ID_UUS,ID_AB)", visit, (visit - 1) / 10 + 1);
        fill.Row("VerUStelle(ID_VUS,ID_UUS)", visit, visit);
    }
    for (int id = 1; id <= subHabitats; ++id) FillSubHabitat(fill, id);
    fill.Run("COMMIT");
}

/// A generated project in a folder that goes with it.
class Project {
public:
    explicit Project(int subHabitats) : SubHabitats(subHabitats) {
        folder_ = std::filesystem::temp_directory_path() /
                  ("fx_wrrl_bench_" + std::to_string(getpid()) + "_" + std::to_string(subHabitats));
        std::filesystem::create_directories(folder_);
        const auto path = (folder_ / "bench.db").string();
        store::CreateDatabase(path, store::DatabaseKind::Project);
        Filler fill(path);
        Fill(fill, subHabitats);
        Database = store::Workspace().OpenDatabase(path);
    }
    ~Project() {
        Database.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    /// Seconds for the list of one sub-habitat.
    double List(int id) const {
        Listenauftrag task;
        task.Datenbank = Database;
        task.AktUebersicht = "Projekt";
        task.ProjektID = 1;
        task.TeilraumID = id;
        task.IstWRRLBerechnung = true;
        const auto start = std::chrono::steady_clock::now();
        if (!Artenliste_Haeufigkeit(task)) throw std::runtime_error("the list was not built");
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    /// A change that makes whatever is kept useless.
    void Touch() const { Database->Execute("UPDATE Projekt SET IstWGEV=False WHERE ID_PRJ=1;"); }

    const int SubHabitats;
    store::DatabasePtr Database;

private:
    std::filesystem::path folder_;
};

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void ListInLargeAgainstSmallProject(benchmark::State& state) {
    const Project small(100);
    const Project large(4000);
    std::vector<double> few;
    std::vector<double> many;
    double wholeLarge = 0;
    for (auto _ : state) {
        for (int id = 1; id <= large.SubHabitats; ++id) {
            few.push_back(small.List((id - 1) % small.SubHabitats + 1));
            many.push_back(large.List(id));
            wholeLarge += many.back();
        }
    }
    std::vector<double> anew;
    for (int id = 1; id <= 20; ++id) {
        large.Touch();
        anew.push_back(large.List(id));
    }
    state.counters["small_us"] = Median(few) * 1e6;
    state.counters["large_us"] = Median(many) * 1e6;
    state.counters["ratio"] = Median(many) / Median(few);
    // With what the first one of a run costs spread over all of them.
    state.counters["large_mean_us"] = wholeLarge / static_cast<double>(many.size()) * 1e6;
    state.counters["after_a_change_us"] = Median(anew) * 1e6;
}
BENCHMARK(ListInLargeAgainstSmallProject)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
