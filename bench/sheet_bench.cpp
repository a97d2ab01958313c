// The algae sheet with 300 taxa and 8 mixed stands: filling it, and one edit with its sums, each against a
// bare program that runs the same statements on the engine's own interface, each text prepared once.
//
// What counts besides the times, which have goals, is the ratio of medians taken in one run, the two sides in
// turns, so that other work on the machine slows both.
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

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "Replay.h"
#include "controls/Input.h"
#include "entry/frmProbenstelle.h"

namespace {

using namespace FX_Algen;
using entry::frmProbenstelle;

constexpr int Teilraum = 1;
constexpr int Taxa = 300;
constexpr int Stands = 8;
/// Of the taxa, the first are macroalgae, then microalgae with a share in each stand, then diatoms.
constexpr int Macroalgae = 60;
constexpr int Microalgae = 200;
constexpr double Share = 100.0 / Microalgae;
constexpr int MacroalgaeGroup = 130;
constexpr int DiatomsGroup = 128;
constexpr std::int16_t German = 10000;

template <class... Parts>
std::string Join(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

/// A database with one large sample, in a folder that goes with it.
class Sample {
public:
    Sample()
        : folder_(std::filesystem::temp_directory_path() / Join("fx_sheet_bench_", getpid())),
          Path((folder_ / "bench.db").string()) {
        std::filesystem::create_directories(folder_);
        store::CreateDatabase(Path, store::DatabaseKind::Project);
        const bench::Recording none;
        bench::Replay bare(Path, none);
        bare.Execute("BEGIN");
        for (const int group : {MacroalgaeGroup, DiatomsGroup}) {
            bare.Execute(
                Join("INSERT OR IGNORE INTO awaGrossGr(ID_GRGR,Grossgruppe) VALUES(", group, ",'')"));
            bare.Execute(
                Join("INSERT INTO awaFamilie(ID_FAM,ID_UEFAM,ID_GRGR) VALUES(", group, ",1,", group, ")"));
            bare.Execute(Join("INSERT INTO awaUnterFam(ID_UFAM,ID_FAM) VALUES(", group, ",", group, ")"));
        }
        bare.Execute(Join("INSERT INTO awaTeilraum(ID_TR,DG_Gesamt,DG_MA) VALUES(", Teilraum, ",90,60)"));
        bare.Execute(Join("INSERT INTO awaPrStelle(ID_PS,ID_TR,PSBez) VALUES(1,", Teilraum, ",'Ufer')"));
        for (int stand = 1; stand <= Stands; ++stand)
            bare.Execute(Join("INSERT INTO awaTeilraum_MI(ID_TR_MI,ID_TR,MI_Bez,DG_MI,RF_MI) VALUES(", stand,
                              ",", Teilraum, ",'Bestand ", stand, "',3.75,", stand, ")"));
        for (int art = 1; art <= Taxa; ++art) Finding(bare, art);
        bare.Execute("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    }
    ~Sample() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Sample(const Sample&) = delete;
    Sample& operator=(const Sample&) = delete;

private:
    static void Finding(bench::Replay& bare, int art) {
        const bool macro = art <= Macroalgae;
        const bool micro = !macro && art <= Macroalgae + Microalgae;
        bare.Execute(Join("INSERT INTO awaArt(ID_ART,ID_UFAM,Gattung,Art) VALUES(", art, ",",
                          macro || micro ? MacroalgaeGroup : DiatomsGroup, ",'Gattung ", art % 97, "','art ",
                          art, "')"));
        bare.Execute(Join("INSERT INTO awaModulStandard(ID_ART,Algenart,Lebensform) VALUES(", art, ",'",
                          macro ? "Makroalge" : "Mikroalge", "',", art % 10 == 0 ? 2 : 1, ")"));
        bare.Execute(Join("INSERT INTO awaArtPrStelle(ID_PS,ID_ART,CF,DG_MA,SD_MA,Schalen_KA) VALUES(1,", art,
                          ",0,", macro ? 1 : 0, ",", macro ? 1.5 : 0, ",", macro || micro ? 0 : art % 50 + 1,
                          ")"));
        for (int stand = 1; micro && stand <= Stands; ++stand)
            bare.Execute(Join("INSERT INTO awaArtPrStelle_MI(ID_TR_MI,ID_ART,CF,DG_MI) VALUES(", stand, ",",
                              art, ",0,", Share, ")"));
    }

    std::filesystem::path folder_;

public:
    const std::string Path;
};

/// The sheet as a host opens it, with both sum rows.
class Sheet {
public:
    explicit Sheet(const std::string& path) : database_(store::Workspace().OpenDatabase(path)) {
        sheet_->CurrentDB(database_);
        sheet_->Sprache(German);
        sheet_->TeilraumID(Teilraum);
        sheet_->CanEdit(true);
        sheet_->AnzeigeVersion40(true);
        Open();
        sheet_->EditMode(true);
        sheet_->Show();
    }
    ~Sheet() { sheet_->Close(controls::Ending::Discard); }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    void Open() {
        if (!sheet_->DataObject_Init()) throw std::runtime_error("the sheet has no site");
    }
    void FillTaxa() { sheet_->GridAlgenArt_Init(); }
    void CheckFilled() const {
        constexpr int headsAndSums = frmProbenstelle::ErsteTaxazeile + 2;
        const auto& taxa = sheet_->vsfgAlgenArt;
        if (taxa.Rows() != Taxa + headsAndSums || Sum(frmProbenstelle::SpalteDG_MA) != Macroalgae ||
            Sum(frmProbenstelle::intStartColMi) != 100)
            throw std::runtime_error("the sheet shows something else");
    }
    /// Writes a share into the first stand of a microalga and leaves its row, which saves it and computes the
    /// sums.
    void Edit(double share) {
        auto& taxa = sheet_->vsfgAlgenArt;
        constexpr int row = frmProbenstelle::ErsteTaxazeile + Macroalgae + Microalgae / 2;
        constexpr int col = frmProbenstelle::intStartColMi;
        controls::Input person(*sheet_);
        if (!person.EditCell(taxa, row, col, Join(share)) || !person.SelectCell(taxa, row + 1, col))
            throw std::runtime_error("the sheet did not take the edit");
    }
    void CheckEdited(double share) const {
        if (std::abs(Sum(frmProbenstelle::intStartColMi) - (100 - Share + share)) > 0.005)
            throw std::runtime_error("the sums are something else");
        const auto rows = database_->OpenRecordset(
            Join("SELECT Sum(DG_MI) AS Summe FROM awaArtPrStelle_MI WHERE ID_TR_MI=1;"));
        if (std::abs((*rows)["Summe"].R8() - (100 - Share + share)) > 0.005)
            throw std::runtime_error("the store holds something else");
    }

private:
    /// The lower sum row, of all taxa.
    double Sum(int col) const {
        const auto& taxa = sheet_->vsfgAlgenArt;
        return taxa.Number(taxa.Rows() - 1, col).value_or(-1);
    }

    store::DatabasePtr database_;
    std::shared_ptr<frmProbenstelle> sheet_ = std::make_shared<frmProbenstelle>();
};

template <class Work>
double Milliseconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The statements that `work` has the sheet run.
template <class Work>
bench::Recording Recorded(const std::string& path, Work work) {
    bench::Recording recording;
    bench::Listener listener(recording);
    Sheet sheet(path);
    listener.Take(true);
    work(sheet);
    listener.Take(false);
    return recording;
}

void Tell(benchmark::State& state, const std::vector<double>& sheet, const std::vector<double>& bare,
          std::size_t statements) {
    state.counters["sheet_ms"] = Median(sheet);
    state.counters["bare_ms"] = Median(bare);
    state.counters["ratio"] = Median(sheet) / Median(bare);
    state.counters["statements"] = static_cast<double>(statements);
}

template <class Work>
void Filling(benchmark::State& state, Work work) {
    const Sample sample;
    const auto recording = Recorded(sample.Path, work);
    Sheet sheet(sample.Path);
    bench::Replay bare(sample.Path, recording);
    std::vector<double> sheets;
    std::vector<double> statements;
    for ([[maybe_unused]] auto one : state) {
        sheets.push_back(Milliseconds([&] { work(sheet); }));
        statements.push_back(Milliseconds([&] { bare.Run(); }));
        sheet.CheckFilled();
    }
    Tell(state, sheets, statements, recording.Calls.size());
}

void SheetOpened(benchmark::State& state) {
    Filling(state, [](Sheet& sheet) { sheet.Open(); });
}
BENCHMARK(SheetOpened)->Unit(benchmark::kMillisecond)->Iterations(50);

void SheetTaxaFilled(benchmark::State& state) {
    Filling(state, [](Sheet& sheet) { sheet.FillTaxa(); });
}
BENCHMARK(SheetTaxaFilled)->Unit(benchmark::kMillisecond)->Iterations(50);

void SheetEdited(benchmark::State& state) {
    const Sample sample;
    const auto recording = Recorded(sample.Path, [](Sheet& sheet) { sheet.Edit(2); });
    Sheet sheet(sample.Path);
    bench::Replay bare(sample.Path, recording);
    // What a person entered waits for the disk: so must the other side.
    bare.Execute("PRAGMA synchronous=FULL");
    std::vector<double> sheets;
    std::vector<double> statements;
    double share = 3;
    for ([[maybe_unused]] auto one : state) {
        share = share == 3 ? 4 : 3;
        statements.push_back(Milliseconds([&] { bare.Run(); }));
        sheets.push_back(Milliseconds([&] { sheet.Edit(share); }));
        sheet.CheckEdited(share);
    }
    Tell(state, sheets, statements, recording.Calls.size());
}
BENCHMARK(SheetEdited)->Unit(benchmark::kMillisecond)->Iterations(200);

}  // namespace
