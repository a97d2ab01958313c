// The assessment: `fxalgen assess` of 1,000 sub-habitats, both runs of each, against a bare program that runs
// the same statements on the engine's own interface; and one assessed sub-habitat in a project of 4,000
// against one in a project of 100.
//
// Ratios are of medians taken in one run, the two sides in turns, so that other work on the machine slows
// both.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "Replay.h"
#include "fxalgen/Command.h"

namespace {

using namespace FX_Algen;

constexpr int FindingsEach = 50;  // 10 macroalgae, 40 diatoms
constexpr int StandsEach = 2;     // with 5 taxa each
constexpr int Taxa = 400;
constexpr int Bioregion = 1;
constexpr int Hoehenstufe = 1;

template <class... Parts>
std::string Join(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

/// One project of sub-habitats of the same make, with taxa, taxonomy and reference tables, in a folder that
/// goes with it.
class Project {
public:
    explicit Project(int subHabitats) : SubHabitats(subHabitats) {
        static int number = 0;
        folder_ = std::filesystem::temp_directory_path() / Join("fx_assess_bench_", getpid(), "_", ++number);
        std::filesystem::create_directories(folder_);
        Path = (folder_ / "bench.db").string();
        store::CreateDatabase(Path, store::DatabaseKind::Project);
        const bench::Recording none;
        bench::Replay bare(Path, none);
        bare.Execute("BEGIN");
        Catalogue(bare);
        References(bare);
        Findings(bare);
        bare.Execute("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    }
    ~Project() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    const int SubHabitats;
    std::string Path;

private:
    static void Catalogue(bench::Replay& bare) {
        for (int fam = 1; fam <= 40; ++fam) {
            bare.Execute(Join("INSERT INTO awaFamilie(ID_FAM,ID_UEFAM,ID_GRGR) VALUES(", fam, ",1,",
                              fam <= 30 ? 128 : 130, ")"));
            bare.Execute(Join("INSERT INTO awaUnterFam(ID_UFAM,ID_FAM) VALUES(", fam, ",", fam, ")"));
        }
        bare.Execute("INSERT OR IGNORE INTO awaGrossGr(ID_GRGR,RF_Kieselalge) VALUES(130,0)");
        for (int art = 1; art <= Taxa; ++art) {
            // Diatoms are the first 300.
            bare.Execute(Join("INSERT INTO awaArt(ID_ART,ID_UFAM,Gattung,Art,IstArtniveau) VALUES(", art, ",",
                              art <= 300 ? art % 30 + 1 : 31 + art % 10, ",'Gattung','art',",
                              art % 7 ? -1 : 0, ")"));
            bare.Execute(
                Join("INSERT INTO awaModulStandard(ID_ART,SI,Sap_GBer,Trophiewert,Trophiegewicht,"
                     "Trophiewert_N,Trophiegewicht_N,B,A,Lebensform,Algenart) VALUES(",
                     art, ",", 1 + art % 30 * 0.1, ",", art % 5, ",", 1 + art % 25 * 0.1, ",", art % 4, ",",
                     1 + art % 20 * 0.1, ",", art % 3, ",5,5,1,'benthisch')"));
            if (art % 4 == 0) bare.Execute(Join("INSERT INTO awaRefArt_TypA(ID_Art) VALUES(", art, ")"));
            if (art % 5 == 0)
                bare.Execute(
                    Join("INSERT INTO awaRefArt_TypB(ID_Art,ID_AL_Bioregion,ID_AL_Hoehenstufe) VALUES(", art,
                         ",", Bioregion, ",", Hoehenstufe, ")"));
        }
    }

    static void References(bench::Replay& bare) {
        const std::string site = Join(Bioregion, ",", Hoehenstufe);
        bare.Execute(
            "INSERT INTO AL_Bioregion(ID_AL_Bioregion,Bezeichnung,Kurzzeichen) "
            "VALUES(1,'Kalkvoralpen','KV')");
        bare.Execute("INSERT INTO AL_Hoehenstufe(ID_AL_Hoehenstufe,Hoehenstufe) VALUES(1,1)");
        bare.Execute("INSERT INTO awaWRRL_TGZK VALUES(" + site + ",'mt')");
        bare.Execute("INSERT INTO awaWRRL_SGZK VALUES(" + site + ",2)");
        bare.Execute("INSERT INTO awaWRRL_RBioregionstyp VALUES(" + site + ",'Kalk')");
        for (const std::string group : {"'Alle'", "'KA'"}) {
            bare.Execute("INSERT INTO awaWRRL_ETI VALUES(" + group + ",'mt',1.3)");
            bare.Execute("INSERT INTO awaWRRL_ESI VALUES(" + group + ",2,1.5)");
            bare.Execute("INSERT INTO awaWRRL_ERI VALUES(" + group + ",'Kalk',0.6)");
            for (int klasse = 1; klasse <= 5; ++klasse) {
                const auto bounds = Join(",", 1 - klasse * 0.2, ",", 1.2 - klasse * 0.2, ",", klasse, ")");
                bare.Execute("INSERT INTO awaWRRL_TIOEZK VALUES(" + group + ",'mt'" + bounds);
                bare.Execute("INSERT INTO awaWRRL_SIOEZK VALUES(" + group + ",2" + bounds);
                bare.Execute("INSERT INTO awaWRRL_RIOEZK VALUES(" + group + ",'Kalk'" + bounds);
            }
        }
        for (int klasse = 1; klasse <= 5; ++klasse)
            bare.Execute(Join("INSERT INTO awaWRRL_Klasse VALUES(", klasse, ",'Klasse ", klasse, "')"));
    }

    void Findings(bench::Replay& bare) const {
        bare.Execute("INSERT INTO Projekt(ID_PRJ,PRJBez) VALUES(1,'Projekt')");
        bare.Execute("INSERT INTO Abschnitt(ID_AB,ID_PRJ,ABBez,RF) VALUES(1,1,'Oberlauf',1)");
        for (int id = 1; id <= SubHabitats; ++id) {
            bare.Execute(
                Join("INSERT INTO UnvUStelle(ID_UUS,ID_AB,USBez,RF,ID_AL_Bioregion,ID_AL_Hoehenstufe,"
                     "RefBioregionen) VALUES(",
                     id, ",1,'Stelle ", id, "',", id, ",1,1,'KV1')"));
            bare.Execute(Join("INSERT INTO VerUStelle(ID_VUS,ID_UUS,USDatumVon) VALUES(", id, ",", id,
                              ",'2026-05-12')"));
            bare.Execute(
                Join("INSERT INTO Teilraum(ID_TR,ID_VUS,TRBez,RF) VALUES(", id, ",", id, ",'Ufer',1)"));
            bare.Execute(
                Join("INSERT INTO awaTeilraum(ID_TR,DG_Gesamt,DG_MA,DG_Gesamt_WRRL,DG_MA_WRRL) VALUES(", id,
                     ",60,40,60,40)"));
            bare.Execute(Join("INSERT INTO awaPrStelle(ID_PS,ID_TR,PSBez) VALUES(", id, ",", id, ",'Ufer')"));
            for (int n = 0; n < FindingsEach; ++n) {
                const bool macroalga = n < 10;
                const int art = macroalga ? 301 + (id + n * 7) % 100 : (id * 7 + n * 7) % 300 + 1;
                bare.Execute(Join(
                    "INSERT OR IGNORE INTO awaArtPrStelle(ID_PS,ID_ART,CF,DG_MA,SD_MA,Schalen_KA) VALUES(",
                    id, ",", art, ",0,", macroalga ? "4,1.5,0" : Join("0,0,", n), ")"));
            }
            for (int n = 0; n < StandsEach; ++n) {
                const int key = id * StandsEach + n;
                bare.Execute(Join("INSERT INTO awaTeilraum_MI(ID_TR_MI,ID_TR,DG_MI,DG_MI_WRRL,SD_MI) VALUES(",
                                  key, ",", id, ",10,10,0.5)"));
                for (int art = 0; art < 5; ++art)
                    bare.Execute(
                        Join("INSERT OR IGNORE INTO awaArtPrStelle_MI(ID_TR_MI,ID_ART,CF,DG_MI) VALUES(", key,
                             ",", 301 + (id * 3 + art * 11) % 100, ",0,20)"));
            }
        }
    }

    std::filesystem::path folder_;
};

/// A host that assesses through the public class.
class Host {
public:
    explicit Host(const Project& project) : database_(store::Workspace().OpenDatabase(project.Path)) {
        ps_.CurrentDB(database_);
        ps_.DBName(project.Path);
        ps_.SprachID(10000);
        ps_.AktUebersicht("Projekt");
        ps_.ProjektID(1);
        ps_.IstWRRLBerechnung(true);
        ps_.BioregionID(Bioregion);
        ps_.Hoehenstufe(Hoehenstufe);
        ps_.RefBioregion("(awaRefArt_TypB.ID_AL_Bioregion=1 AND awaRefArt_TypB.ID_AL_Hoehenstufe=1)");
    }
    void Init() { ps_.Berechnung_WRRLInit(); }
    void Assess(int id) {
        ps_.TeilraumID(id);
        for (const bool diatoms : {false, true}) {
            ps_.KAOnly(diatoms);
            ps_.Berechnung_WRRL();
        }
    }

private:
    store::DatabasePtr database_;
    AL_PS ps_;
};

using Clock = std::chrono::steady_clock;

template <class Work>
double Microseconds(Work work) {
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

void RunProgram(const std::string& path) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    if (cli::Run({"assess", path}, cli::Streams{in, out, err}) != 0) throw std::runtime_error(err.str());
}

void AssessThousand(benchmark::State& state) {
    const Project project(1000);
    bench::Recording recording;
    {
        bench::Listener listener(recording);
        Host host(project);
        listener.Take(true);
        host.Init();
        for (int id = 1; id <= project.SubHabitats; ++id) host.Assess(id);
    }
    bench::Replay bare(project.Path, recording);
    std::vector<double> program;
    std::vector<double> statements;
    for ([[maybe_unused]] auto one : state) {
        program.push_back(Microseconds([&] { RunProgram(project.Path); }));
        statements.push_back(Microseconds([&] { bare.Run(); }));
    }
    state.counters["sub_habitats_s"] = project.SubHabitats / (Median(program) / 1e6);
    state.counters["bare_s"] = project.SubHabitats / (Median(statements) / 1e6);
    state.counters["ratio"] = Median(program) / Median(statements);
    state.counters["statements"] = static_cast<double>(recording.Calls.size()) / project.SubHabitats;
}
BENCHMARK(AssessThousand)->Unit(benchmark::kMillisecond)->Iterations(3);

void AssessInLargeAgainstSmall(benchmark::State& state) {
    const Project small(100);
    const Project large(4000);
    Host inSmall(small);
    Host inLarge(large);
    std::vector<double> smallTimes;
    std::vector<double> largeTimes;
    for ([[maybe_unused]] auto one : state) {
        inSmall.Init();
        inLarge.Init();
        // The first call of each reads the taxa of the whole scope; it is part of the cost of a project.
        double first = Microseconds([&] { inLarge.Assess(1); });
        inSmall.Assess(1);
        for (int id = 2; id <= 100; ++id) {
            smallTimes.push_back(Microseconds([&] { inSmall.Assess(id); }));
            largeTimes.push_back(Microseconds([&] { inLarge.Assess(id * 39); }));
        }
        state.counters["first_us"] = first;
    }
    state.counters["large_us"] = Median(largeTimes);
    state.counters["small_us"] = Median(smallTimes);
    state.counters["ratio"] = Median(largeTimes) / Median(smallTimes);
}
BENCHMARK(AssessInLargeAgainstSmall)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
