// The seston of 1,000 sub-habitats through the public class, against a bare program that runs the same
// statements on the engine's own interface, each text prepared once.
//
// The figure is a ratio of medians taken in one run, the two sides in turns, so that other work on the
// machine slows both.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "Replay.h"

namespace {

using namespace FX_Algen;

constexpr int SubHabitats = 1000;
constexpr int SitesEach = 2;
constexpr int FindingsPerSite = 20;
constexpr int Taxa = 300;

template <class... Parts>
std::string Join(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

/// A database of sub-habitats of the same make, in a folder that goes with it.
class Samples {
public:
    Samples()
        : folder_(std::filesystem::temp_directory_path() / Join("fx_seston_bench_", getpid())),
          Path((folder_ / "bench.db").string()) {
        std::filesystem::create_directories(folder_);
        store::CreateDatabase(Path, store::DatabaseKind::Project);
        const bench::Recording none;
        bench::Replay bare(Path, none);
        bare.Execute("BEGIN");
        for (int art = 1; art <= Taxa; ++art) {
            const int o = art % 4, b = art % 5, a = 10 - o - b;
            // Every tenth taxon is unrated.
            bare.Execute(Join("INSERT INTO sesArt(ID_ART,Gattung,Art,W_SI,W_O,W_B,W_A,W_P) VALUES(", art,
                              ",'Gattung','art',", art % 10 == 0 ? 0 : 1 + art % 30 * 0.1, ",", o, ",", b,
                              ",", a, ",0)"));
        }
        for (int id = 1; id <= SubHabitats; ++id) {
            for (int n = 0; n < SitesEach; ++n) {
                const int site = id * SitesEach + n;
                bare.Execute(
                    Join("INSERT INTO sesPrStelle(ID_PS,ID_TR,PSBez) VALUES(", site, ",", id, ",'Ufer')"));
                for (int finding = 0; finding < FindingsPerSite; ++finding)
                    bare.Execute(Join("INSERT INTO sesArtPrStelle(ID_PS,ID_ART,CF,Abundanz) VALUES(", site,
                                      ",", (site * 7 + finding * 11) % Taxa + 1, ",0,", finding % 8, ")"));
            }
        }
        bare.Execute("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    }
    ~Samples() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

private:
    std::filesystem::path folder_;

public:
    const std::string Path;
};

/// A host that calculates through the public class.
class Host {
public:
    explicit Host(const std::string& path) : database_(store::Workspace().OpenDatabase(path)) {
        ps_.CurrentDB(database_);
        ps_.SprachID(10000);
    }
    void CalculateAll() {
        ps_.Berechnung_InitSeston();
        for (int id = 1; id <= SubHabitats; ++id) {
            ps_.TeilraumID(id);
            ps_.Berechnung_ExecuteSeston();
        }
    }
    /// The results row by row; Null as -1, which no column holds.
    std::vector<double> Results() const {
        std::vector<double> all;
        const auto rows = database_->OpenRecordset("SELECT * FROM sesErgProjekt ORDER BY ID;");
        for (; !rows->Eof(); rows->MoveNext())
            for (std::size_t field = 0; field < rows->Fields().size(); ++field)
                all.push_back((*rows)[field].IsNull() ? -1 : (*rows)[field].R8());
        return all;
    }

private:
    store::DatabasePtr database_;
    AL_PS ps_;
};

template <class Work>
double Seconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Two sides that leave different rows do not do the same work. What was taken down has 15 digits.
void CheckSame(const std::vector<double>& one, const std::vector<double>& other) {
    const auto alike = [](double x, double y) { return std::abs(x - y) <= 1e-12 * std::abs(x); };
    if (!std::equal(one.begin(), one.end(), other.begin(), other.end(), alike))
        throw std::runtime_error("the two programs give different results");
}

void SestonThousand(benchmark::State& state) {
    const Samples samples;
    bench::Recording recording;
    {
        bench::Listener listener(recording);
        Host recorded(samples.Path);
        listener.Take(true);
        recorded.CalculateAll();
    }
    Host host(samples.Path);
    const auto results = host.Results();
    bench::Replay bare(samples.Path, recording);
    std::vector<double> operations;
    std::vector<double> statements;
    for ([[maybe_unused]] auto one : state) {
        operations.push_back(Seconds([&] { host.CalculateAll(); }));
        statements.push_back(Seconds([&] { bare.Run(); }));
        CheckSame(results, host.Results());
    }
    state.counters["sub_habitats_s"] = SubHabitats / Median(operations);
    state.counters["bare_s"] = SubHabitats / Median(statements);
    state.counters["ratio"] = Median(operations) / Median(statements);
    state.counters["statements"] = static_cast<double>(recording.Calls.size()) / SubHabitats;
}
BENCHMARK(SestonThousand)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
