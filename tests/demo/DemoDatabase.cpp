#include "DemoDatabase.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <stdexcept>

#include "FX_Algen/Create.h"
#include "FX_Algen/Load.h"

namespace FX_Algen::demo_test {

struct DemoDatabase::Folder {
    Folder() {
        static std::atomic<int> count{0};
        path = std::filesystem::path(testing::TempDir()) /
               ("fx_demo_" + std::to_string(getpid()) + "_" + std::to_string(++count));
        std::filesystem::create_directories(path);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
};

DemoDatabase::DemoDatabase() : folder_(std::make_unique<Folder>()) {
    store::CreateDatabase(Path(), store::DatabaseKind::Project);
    const store::LoadResult result = store::LoadDemo(Path());
    if (!result.Problems.empty()) {
        const store::LoadProblem& first = result.Problems.front();
        throw std::runtime_error(first.File + ":" + std::to_string(first.Line) + ": " + first.Column + ": " +
                                 first.Reason);
    }
    engine_ = store::OpenEngine(Path(), false);
}

DemoDatabase::~DemoDatabase() = default;

std::string DemoDatabase::Path() const { return (folder_->path / "Fließgewässer.db").string(); }

std::vector<Row> DemoDatabase::Rows(std::string_view sql) {
    const auto statement = engine_->Prepare(sql);
    std::vector<Row> rows;
    while (statement->Step()) {
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < statement->ColumnCount(); ++i) {
            row.emplace_back(statement->IsNull(i) ? "NULL" : std::string(statement->Text(i)));
        }
    }
    return rows;
}

std::vector<std::string> DemoDatabase::Column(std::string_view sql) {
    std::vector<std::string> column;
    for (Row& row : Rows(sql)) {
        column.push_back(std::move(row.at(0)));
    }
    return column;
}

std::int64_t DemoDatabase::Number(std::string_view sql) {
    const auto rows = Rows(sql);
    if (rows.size() != 1) {
        throw std::runtime_error("one row expected: " + std::string(sql));
    }
    return std::stoll(rows[0].at(0));
}

std::string Chain() {
    return " awaArt JOIN awaUnterFam USING (ID_UFAM) JOIN awaFamilie USING (ID_FAM)"
           " JOIN awaUeberfamilie USING (ID_UEFAM) JOIN awaZwgrReihe2 USING (ID_ZGREIHE2)"
           " JOIN awaZwgrReihe1 USING (ID_ZGREIHE1) JOIN awaFamilienreihe USING (ID_FAMREIHE)"
           " JOIN awaZwgrOrdnung USING (ID_ZGORDNUNG) JOIN awaInfraordnung USING (ID_IORDNUNG)"
           " JOIN awaUnterordnung USING (ID_UORDNUNG) JOIN awaOrdnung USING (ID_ORDNUNG)"
           " JOIN awaUeberordnung USING (ID_UEORDNUNG) JOIN awaUnterklasse USING (ID_UKLASSE)"
           " JOIN awaZwgrKlasse USING (ID_ZGKLASSE) JOIN awaKlasse USING (ID_KLASSE)"
           " JOIN awaUeberklasse USING (ID_UEKLASSE) JOIN awaUnterstamm USING (ID_USTAMM)"
           " JOIN awaStamm USING (ID_STAMM) JOIN awaUnterreich USING (ID_UREICH) JOIN awaReich USING "
           "(ID_REICH)"
           " JOIN awaGrossGr USING (ID_GRGR) ";
}

}  // namespace FX_Algen::demo_test
