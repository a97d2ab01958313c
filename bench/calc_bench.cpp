// The classic calculation of a sub-habitat: through the gateway against a bare program that does the same
// statements, prepared once, on the engine's own interface; and in a large database against a small one.
//
// Both figures are ratios of medians taken in one run, the two sides in turns, so that other work on the
// machine slows both.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "calc/Berechnung.h"
#include "calc/Gueteklasse.h"

namespace {

using namespace FX_Algen;

constexpr int FindingsEach = 50;  // 10 macroalgae, 40 diatoms
constexpr int StandsEach = 2;     // with 5 taxa each
constexpr int Taxa = 400;

/// The engine's own interface, as a program without any gateway uses it.
class Bare {
public:
    explicit Bare(const std::string& path) {
        if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) throw std::runtime_error("cannot open " + path);
        Run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-16384;");
    }
    ~Bare() {
        for (auto* statement : statements_) sqlite3_finalize(statement);
        sqlite3_close(db_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    void Run(const std::string& sql) {
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(db_));
    }
    sqlite3_stmt* Prepare(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(db_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(db_));
        statements_.push_back(statement);
        return statement;
    }

private:
    sqlite3* db_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

template <class Row>
void Each(sqlite3_stmt* statement, int id, Row row) {
    sqlite3_bind_int(statement, 1, id);
    while (sqlite3_step(statement) == SQLITE_ROW) row(statement);
    sqlite3_reset(statement);
}

double Real(sqlite3_stmt* row, int column) { return sqlite3_column_double(row, column); }

/// Fills a database with sub-habitats of the same make.
void Fill(Bare& bare, int subHabitats) {
    const auto text = [](auto... parts) {
        std::string joined;
        ((joined += std::to_string(parts) + ","), ...);
        joined.pop_back();
        return joined;
    };
    bare.Run("BEGIN");
    for (int art = 1; art <= Taxa; ++art) {
        bare.Run("INSERT INTO awaArt(ID_ART,ID_UFAM,Gattung,Art) VALUES(" + text(art, art % 40 + 1) +
                 ",'Gattung','art')");
        bare.Run(
            "INSERT INTO awaModulStandard(ID_ART,SI,Sap_GBer,Trophiewert,Trophiegewicht,Trophiewert_N,"
            "Trophiegewicht_N,B,A,Lebensform,Algenart) VALUES(" +
            text(art, 1 + art % 30 * 0.1, art % 5, 1 + art % 25 * 0.1, art % 4, 1 + art % 20 * 0.1, art % 3,
                 5, 5, 1) +
            ",'benthisch')");
    }
    for (int fam = 1; fam <= 40; ++fam) {
        bare.Run("INSERT INTO awaFamilie(ID_FAM,ID_UEFAM,ID_GRGR) VALUES(" +
                 text(fam, 1, fam < 30 ? 128 : 130) + ")");
        bare.Run("INSERT INTO awaUnterFam(ID_UFAM,ID_FAM) VALUES(" + text(fam, fam) + ")");
    }
    auto* covers = bare.Prepare("INSERT INTO awaTeilraum(ID_TR,DG_Gesamt,DG_MA) VALUES(?1,60,40)");
    auto* site = bare.Prepare("INSERT INTO awaPrStelle(ID_PS,ID_TR,PSBez) VALUES(?1,?1,'Ufer')");
    auto* finding = bare.Prepare(
        "INSERT INTO awaArtPrStelle(ID_PS,ID_ART,CF,DG_MA,SD_MA,Schalen_KA) "
        "VALUES(?1,?2,0,?3,?4,?5)");
    auto* stand = bare.Prepare("INSERT INTO awaTeilraum_MI(ID_TR_MI,ID_TR,DG_MI,SD_MI) VALUES(?2,?1,10,0.5)");
    auto* taxon = bare.Prepare("INSERT INTO awaArtPrStelle_MI(ID_TR_MI,ID_ART,CF,DG_MI) VALUES(?1,?2,0,20)");
    const auto none = [](sqlite3_stmt*) {};
    for (int id = 1; id <= subHabitats; ++id) {
        Each(covers, id, none);
        Each(site, id, none);
        for (int n = 0; n < FindingsEach; ++n) {
            const bool macroalga = n < 10;
            sqlite3_bind_int(finding, 2, (id * 7 + n * 8) % Taxa + 1);
            sqlite3_bind_double(finding, 3, macroalga ? 4 : 0);
            sqlite3_bind_double(finding, 4, macroalga ? 1.5 : 0);
            sqlite3_bind_int(finding, 5, macroalga ? 0 : n);
            Each(finding, id, none);
        }
        for (int n = 0; n < StandsEach; ++n) {
            const int key = id * StandsEach + n;
            sqlite3_bind_int(stand, 2, key);
            Each(stand, id, none);
            for (int art = 0; art < 5; ++art) {
                sqlite3_bind_int(taxon, 2, (id * 3 + art * 11) % Taxa + 1);
                Each(taxon, key, none);
            }
        }
    }
    bare.Run("COMMIT");
    bare.Run("PRAGMA wal_checkpoint(TRUNCATE)");
}

/// A generated database in a folder that goes with it.
class File {
public:
    explicit File(int subHabitats) : SubHabitats(subHabitats) {
        static int number = 0;
        folder_ = std::filesystem::temp_directory_path() /
                  ("fx_calc_bench_" + std::to_string(getpid()) + "_" + std::to_string(++number));
        std::filesystem::create_directories(folder_);
        Path = (folder_ / "bench.db").string();
        store::CreateDatabase(Path, store::DatabaseKind::Project);
        Bare bare(Path);
        Fill(bare, subHabitats);
    }
    ~File() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const int SubHabitats;
    std::string Path;

private:
    std::filesystem::path folder_;
};

File& Small() {
    static File file(200);
    return file;
}

File& Large() {
    static File file(20000);
    return file;
}

/// The bare program: every statement of the calculation, prepared once, and the arithmetic around them.
class BareCalculation {
public:
    explicit BareCalculation(const std::string& path) : bare_(path) {}

    void Init() { bare_.Run("DELETE FROM awaErgProjekt"); }

    void Execute(int id) {
        bool sampled = false;
        Each(sampled_, id, [&](sqlite3_stmt*) { sampled = true; });
        if (!sampled) return;
        Each(insert_, id, [](sqlite3_stmt*) {});
        Saprobie(id);
        Trophie(id);
        AMI(id);
    }

private:
    struct Sums {
        float Weight = 0;
        float Value = 0;
        void Add(double weight, double value) {
            Weight = static_cast<float>(Weight + weight);
            Value = static_cast<float>(Value + value);
        }
        double Index() const { return Weight > 0 ? static_cast<double>(Value / Weight) : 0; }
    };

    double Count(sqlite3_stmt* statement, int id) {
        double count = 0;
        Each(statement, id, [&](sqlite3_stmt* row) {
            benchmark::DoNotOptimize(sqlite3_column_int(row, 0));
            ++count;
        });
        return count;
    }

    void Covers(int id, double& total, double& macroalgae) {
        Each(covers_, id, [&](sqlite3_stmt* row) {
            total = Real(row, 1);
            macroalgae = Real(row, 2);
        });
    }

    void Saprobie(int id) {
        Sums all;
        Sums diatoms;
        calc::Klassenzahlen classes{};
        double total = 0;
        double macroalgae = 0;
        Covers(id, total, macroalgae);
        int last = 0;
        const auto count = [&](int art, double si) {
            if (art == last) return;
            last = art;
            calc::Gueteklasse_Zaehlen(si, classes);
        };
        Each(macroalgaeSap_, id, [&](sqlite3_stmt* row) {
            const double dg = Real(row, 1), g = Real(row, 2), si = Real(row, 3);
            all.Add(dg * g / total * 100, dg * g * si / total * 100);
            count(sqlite3_column_int(row, 0), si);
        });
        Each(stands_, id, [&](sqlite3_stmt* standRow) {
            const double share = Real(standRow, 1) / total * 100;
            Each(standSap_, sqlite3_column_int(standRow, 0), [&](sqlite3_stmt* row) {
                const double dg = Real(row, 1), g = Real(row, 2), si = Real(row, 3);
                all.Add(dg * g * share / 100, dg * g * si * share / 100);
            });
        });
        Each(standClasses_, id, [&](sqlite3_stmt* row) { calc::Gueteklasse_Zaehlen(Real(row, 1), classes); });
        double valves = 0;
        Each(valves_, id, [&](sqlite3_stmt* row) { valves = Real(row, 0); });
        last = 0;
        Each(diatomsSap_, id, [&](sqlite3_stmt* row) {
            const double n = Real(row, 1), g = Real(row, 2), si = Real(row, 3);
            all.Add(n * g / valves * 100, n * g * si / valves * 100);
            diatoms.Add(n * g / valves * 100, n * g * si / valves * 100);
            count(sqlite3_column_int(row, 0), si);
        });
        Each(result_, id, [](sqlite3_stmt*) {});
        int parameter = 2;
        for (const double value : {all.Index(), diatoms.Index(), total, macroalgae})
            sqlite3_bind_double(updateSap_, parameter++, value);
        for (auto* statement : counts_) sqlite3_bind_double(updateSap_, parameter++, Count(statement, id));
        for (const auto number : classes) sqlite3_bind_int(updateSap_, parameter++, number);
        Each(updateSap_, id, [](sqlite3_stmt*) {});
    }

    void Trophie(int id) {
        Sums first;
        Sums second;
        Sums diatoms;
        double total = 0;
        double macroalgae = 0;
        Covers(id, total, macroalgae);
        const auto add = [&](sqlite3_stmt* row, double factor) {
            const double n = Real(row, 1);
            first.Add(n * Real(row, 2) * factor, n * Real(row, 2) * Real(row, 3) * factor);
            second.Add(n * Real(row, 4) * factor, n * Real(row, 4) * Real(row, 5) * factor);
        };
        Each(macroalgaeTroph_, id, [&](sqlite3_stmt* row) { add(row, 100 / total); });
        Each(stands_, id, [&](sqlite3_stmt* standRow) {
            const double share = Real(standRow, 1) / total * 100;
            Each(standTroph_, sqlite3_column_int(standRow, 0),
                 [&](sqlite3_stmt* row) { add(row, share / 100); });
        });
        double valves = 0;
        Each(valves_, id, [&](sqlite3_stmt* row) { valves = Real(row, 0); });
        Each(diatomsTroph_, id, [&](sqlite3_stmt* row) {
            add(row, 100 / valves);
            const double n = Real(row, 1);
            diatoms.Add(n * Real(row, 2) / valves * 100, n * Real(row, 2) * Real(row, 3) / valves * 100);
        });
        Each(result_, id, [](sqlite3_stmt*) {});
        int parameter = 2;
        for (const double value : {first.Index(), second.Index(), diatoms.Index()})
            sqlite3_bind_double(updateTroph_, parameter++, value);
        Each(updateTroph_, id, [](sqlite3_stmt*) {});
    }

    void AMI(int id) {
        double sum = 0;
        for (auto* statement : {macroalgaeAmi_, standsAmi_})
            Each(statement, id, [&](sqlite3_stmt* row) { sum += Real(row, 1) * Real(row, 0) / 100; });
        Each(resultAmi_, id, [](sqlite3_stmt*) {});
        sqlite3_bind_double(updateAmi_, 2, sum);
        Each(updateAmi_, id, [](sqlite3_stmt*) {});
    }

    static std::string Findings(const std::string& columns, const std::string& condition) {
        return "SELECT " + columns +
               " FROM awaPrStelle p JOIN awaArtPrStelle f ON p.ID_PS=f.ID_PS JOIN awaModulStandard m ON "
               "f.ID_ART=m.ID_ART WHERE p.ID_TR=?1 " +
               condition;
    }
    static std::string Stand(const std::string& columns, const std::string& condition) {
        return "SELECT f.ID_ART,f.DG_MI," + columns +
               " FROM awaArtPrStelle_MI f JOIN awaModulStandard m ON f.ID_ART=m.ID_ART WHERE f.DG_MI>0 AND "
               "f.ID_TR_MI=?1 " +
               condition;
    }
    static constexpr const char* Sap = "m.Sap_GBer,m.SI";
    static constexpr const char* Troph = "m.Trophiegewicht,m.Trophiewert,m.Trophiegewicht_N,m.Trophiewert_N";

    Bare bare_;
    sqlite3_stmt* sampled_ = bare_.Prepare("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=?1");
    sqlite3_stmt* insert_ = bare_.Prepare("INSERT INTO awaErgProjekt(ID,IstWRRL) VALUES(?1,0)");
    sqlite3_stmt* covers_ = bare_.Prepare("SELECT * FROM awaTeilraum WHERE ID_TR=?1");
    sqlite3_stmt* stands_ = bare_.Prepare(
        "SELECT ID_TR_MI,DG_MI,DG_MI_WRRL FROM awaTeilraum_MI WHERE ID_TR=?1 ORDER BY ID_TR_MI");
    sqlite3_stmt* valves_ = bare_.Prepare(
        "SELECT sum(f.Schalen_KA) FROM awaPrStelle p JOIN awaArtPrStelle f ON p.ID_PS=f.ID_PS WHERE "
        "p.ID_TR=?1");
    sqlite3_stmt* macroalgaeSap_ =
        bare_.Prepare(Findings(std::string("f.ID_ART,f.DG_MA,") + Sap, "AND f.DG_MA>0"));
    sqlite3_stmt* macroalgaeTroph_ =
        bare_.Prepare(Findings(std::string("f.ID_ART,f.DG_MA,") + Troph, "AND f.DG_MA>0 AND m.Algenart<>''"));
    sqlite3_stmt* macroalgaeAmi_ =
        bare_.Prepare(Findings("f.DG_MA,f.SD_MA", "AND f.SD_MA>0 AND m.Algenart<>''"));
    sqlite3_stmt* diatomsSap_ =
        bare_.Prepare(Findings(std::string("f.ID_ART,f.Schalen_KA,") + Sap, "AND f.Schalen_KA>0"));
    sqlite3_stmt* diatomsTroph_ =
        bare_.Prepare(Findings(std::string("f.ID_ART,f.Schalen_KA,") + Troph, "AND f.Schalen_KA>0"));
    sqlite3_stmt* standSap_ = bare_.Prepare(Stand(Sap, ""));
    sqlite3_stmt* standTroph_ = bare_.Prepare(Stand(Troph, "AND m.Algenart<>''"));
    sqlite3_stmt* standsAmi_ =
        bare_.Prepare("SELECT DG_MI,SD_MI FROM awaTeilraum_MI WHERE ID_TR=?1 AND SD_MI>0");
    sqlite3_stmt* standClasses_ = bare_.Prepare(
        "SELECT m.ID_ART,m.SI FROM awaArtPrStelle_MI f JOIN awaModulStandard m ON f.ID_ART=m.ID_ART JOIN "
        "awaTeilraum_MI t ON f.ID_TR_MI=t.ID_TR_MI WHERE t.ID_TR=?1 AND f.DG_MI>0");
    sqlite3_stmt* result_ = bare_.Prepare("SELECT * FROM awaErgProjekt WHERE ID=?1 AND KAOnly=0");
    sqlite3_stmt* resultAmi_ = bare_.Prepare("SELECT AMI FROM awaErgProjekt WHERE ID=?1");
    std::vector<sqlite3_stmt*> counts_{
        bare_.Prepare(
            "SELECT f.ID_ART FROM awaPrStelle p JOIN awaArtPrStelle f ON p.ID_PS=f.ID_PS WHERE p.ID_TR=?1 "
            "GROUP BY f.ID_ART"),
        bare_.Prepare(
            "SELECT f.ID_ART FROM awaPrStelle p JOIN awaArtPrStelle f ON p.ID_PS=f.ID_PS WHERE p.ID_TR=?1 "
            "AND f.Schalen_KA>0 GROUP BY f.ID_ART"),
        bare_.Prepare(Findings("f.ID_ART", "AND m.SI>0 GROUP BY f.ID_ART")),
        bare_.Prepare(Findings("f.ID_ART", "AND f.Schalen_KA>0 AND m.Sap_GBer>0 GROUP BY f.ID_ART")),
        bare_.Prepare(Findings("f.ID_ART", "AND (X+O+OB+B+BA+A+AP+P)=10 GROUP BY f.ID_ART")),
        bare_.Prepare(Findings("DISTINCT f.ID_ART", "AND m.Trophiewert>0")),
        bare_.Prepare(Findings("f.ID_ART", "AND m.Trophiewert_N>0")),
        bare_.Prepare(
            "SELECT f.ID_ART FROM awaPrStelle p JOIN awaArtPrStelle f ON p.ID_PS=f.ID_PS JOIN "
            "awaModulStandard m ON f.ID_ART=m.ID_ART JOIN awaArt a ON f.ID_ART=a.ID_ART JOIN awaUnterFam u "
            "ON a.ID_UFAM=u.ID_UFAM JOIN awaFamilie g ON u.ID_FAM=g.ID_FAM WHERE p.ID_TR=?1 AND "
            "m.Trophiewert>0 AND g.ID_GRGR=128")};
    sqlite3_stmt* updateSap_ = bare_.Prepare(
        "UPDATE awaErgProjekt SET "
        "SapIndex=?2,SapIndex_KA=?3,DG_Gesamt=?4,DG_Makroalgen=?5,Taxa=?6,Taxa_KA=?7,"
        "Taxa_SI=?8,Taxa_SI_KA=?9,TaxaSap=?10,TaxaTI=?11,TaxaTI_N=?12,TaxaTI_KA=?13,ANZ_Gueteklasse_I=?14,"
        "ANZ_Gueteklasse_I_II=?15,ANZ_Gueteklasse_II=?16,ANZ_Gueteklasse_II_III=?17,ANZ_Gueteklasse_III=?18,"
        "ANZ_Gueteklasse_III_IV=?19,ANZ_Gueteklasse_IV=?20 WHERE ID=?1 AND KAOnly=0");
    sqlite3_stmt* updateTroph_ =
        bare_.Prepare("UPDATE awaErgProjekt SET TI=?2,TI_N=?3,TI_KA=?4 WHERE ID=?1 AND KAOnly=0");
    sqlite3_stmt* updateAmi_ = bare_.Prepare("UPDATE awaErgProjekt SET AMI=?2 WHERE ID=?1");
};

/// Seconds for each sub-habitat of a range.
template <class Execute>
double Timed(int from, int to, Execute execute) {
    const auto start = std::chrono::steady_clock::now();
    for (int id = from; id <= to; ++id) execute(id);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / (to - from + 1);
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<float> Indices(const store::DatabasePtr& database) {
    std::vector<float> indices;
    const auto rows = database->OpenRecordset(
        "SELECT SapIndex, SapIndex_KA, TI, TI_N, TI_KA, AMI, TaxaSap, TaxaTI_KA, ANZ_Gueteklasse_II FROM "
        "awaErgProjekt ORDER BY ID;");
    for (; !rows->Eof(); rows->MoveNext())
        for (std::size_t field = 0; field < rows->Fields().size(); ++field)
            indices.push_back((*rows)[field].R4());
    return indices;
}

/// Two sides that give different numbers do not do the same work.
void CheckSame(const std::vector<float>& one, const std::vector<float>& other) {
    if (one.empty() || one.size() != other.size())
        throw std::runtime_error("the two programs give no like results");
    for (std::size_t i = 0; i < one.size(); ++i)
        if (std::abs(one[i] - other[i]) > 1e-4F * std::abs(one[i]) + 1e-6F)
            throw std::runtime_error("the two programs give different results");
}

void ExecuteAgainstBare(benchmark::State& state) {
    const auto& file = Small();
    static File twin(file.SubHabitats);
    const auto database = store::Workspace().OpenDatabase(file.Path);
    const auto plainResults = store::Workspace().OpenDatabase(twin.Path);
    BareCalculation bare(twin.Path);
    std::vector<double> gateway;
    std::vector<double> plain;
    for (auto _ : state) {
        Berechnung_Init(database);
        bare.Init();
        for (int id = 1; id <= file.SubHabitats; ++id) {
            gateway.push_back(
                Timed(id, id, [&](int tr) { Berechnung_Execute(database, tr, false, false, false); }));
            plain.push_back(Timed(id, id, [&](int tr) { bare.Execute(tr); }));
        }
        CheckSame(Indices(database), Indices(plainResults));
    }
    state.counters["gateway_us"] = Median(gateway) * 1e6;
    state.counters["bare_us"] = Median(plain) * 1e6;
    state.counters["ratio"] = Median(gateway) / Median(plain);
}
BENCHMARK(ExecuteAgainstBare)->Unit(benchmark::kMillisecond)->Iterations(20);

/// Greatest memory of the process so far, in MB; 0 where the system does not tell.
double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024;
    return 0;
}

void ExecuteInLargeAgainstSmall(benchmark::State& state) {
    const auto small = store::Workspace().OpenDatabase(Small().Path);
    const auto large = store::Workspace().OpenDatabase(Large().Path);
    std::vector<double> few;
    std::vector<double> many;
    for (auto _ : state) {
        Berechnung_Init(large);
        for (int id = 1; id <= Large().SubHabitats; ++id) {
            const int inSmall = (id - 1) % Small().SubHabitats + 1;
            if (inSmall == 1) Berechnung_Init(small);
            few.push_back(
                Timed(inSmall, inSmall, [&](int tr) { Berechnung_Execute(small, tr, false, false, false); }));
            many.push_back(
                Timed(id, id, [&](int tr) { Berechnung_Execute(large, tr, false, false, false); }));
        }
    }
    state.counters["small_us"] = Median(few) * 1e6;
    state.counters["large_us"] = Median(many) * 1e6;
    state.counters["ratio"] = Median(many) / Median(few);
    state.counters["peak_MB"] = PeakMegabytes();
}
BENCHMARK(ExecuteInLargeAgainstSmall)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
