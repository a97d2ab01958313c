// Diversity of samples that other programs computed: Shannon with the natural logarithm, Pielou's evenness,
// Margalef. Put in as abundances of seston, one sub-habitat a sample.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "peers/PeerFiles.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

using peers::ReadCsv;
using peers::Row;
using peers::SqlText;

/// The other programs' names of what stands in a column.
struct Figure {
    const char* Index;
    const char* Column;
};

constexpr Figure Figures[] = {{"shannon_H_ln", "ShannonundWeaver"},
                              {"biomonitoR_Shannon", "ShannonundWeaver"},
                              {"pielou_J_H_over_lnS", "Eveness"},
                              {"biomonitoR_Margalef", "MArgalef"},
                              {"richness_S", "Taxa"},
                              {"total_N", "Abundanzsumme"}};

/// Amounts that are no whole numbers cannot be abundances; one of them takes its whole data set out.
std::set<std::string> WholeNumberSets(const std::vector<Row>& samples) {
    std::set<std::string> sets;
    for (const Row& row : samples) sets.insert(row.at("dataset"));
    for (const Row& row : samples) {
        const double amount = std::stod(row.at("amount"));
        if (amount != std::floor(amount)) sets.erase(row.at("dataset"));
    }
    return sets;
}

/// The samples as sub-habitats of one database; taxa and samples numbered as they come.
class Diversity : public testing::Test {
protected:
    Diversity() : path_(testing::TempDir() + "fx_peers_diversity_" + std::to_string(::getpid()) + ".db") {
        Remove();
        store::CreateDatabase(path_, store::DatabaseKind::Project);
        database_ = store::Workspace().OpenDatabase(path_);
    }
    void SetUp() override {
        if (!std::filesystem::exists(std::string(FX_PEERS_DIR) + "/diversity")) {
            GTEST_SKIP() << "the folder of the peers holds no diversity";
        }
        const auto samples = ReadCsv("diversity/samples.csv");
        const auto sets = WholeNumberSets(samples);
        store::Savepoint savepoint(database_->SharedConnection());
        for (const Row& row : samples)
            if (sets.contains(row.at("dataset"))) Put(row);
        savepoint.Keep();
    }
    ~Diversity() override {
        database_.reset();
        Remove();
    }

    void Remove() const {
        for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix);
    }

    static std::string Name(const Row& row) { return row.at("dataset") + "/" + row.at("sample"); }

    void Put(const Row& row) {
        const auto [sample, isNewSample] = samples_.try_emplace(Name(row), samples_.size() + 1);
        const auto [taxon, isNewTaxon] = taxa_.try_emplace(row.at("taxon"), taxa_.size() + 1);
        const std::string site = std::to_string(sample->second);
        const std::string art = std::to_string(taxon->second);
        if (isNewSample)
            database_->Execute("INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (" + site + ", " + site + ");");
        if (isNewTaxon)
            database_->Execute("INSERT INTO sesArt (ID_ART, Art) VALUES (" + art + ", " +
                               SqlText(taxon->first) + ");");
        database_->Execute("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (" + site + ", " +
                           art + ", 0, " + row.at("amount") + ");");
    }

    std::string path_;
    store::DatabasePtr database_;
    std::map<std::string, std::size_t> samples_;
    std::map<std::string, std::size_t> taxa_;
};

TEST_F(Diversity, EqualsTheStoredFigures) {
    AL_PS ps;
    ps.CurrentDB(database_);
    ps.SprachID(10000);
    ps.Berechnung_InitSeston();
    for (const auto& [name, id] : samples_) {
        ps.TeilraumID(static_cast<std::int32_t>(id));
        ps.Berechnung_ExecuteSeston();
    }
    std::map<std::string, std::size_t> compared;
    for (const Row& row : ReadCsv("diversity/expected.csv")) {
        const auto sample = samples_.find(Name(row));
        if (sample == samples_.end()) continue;
        for (const auto& [index, column] : Figures) {
            if (row.at("index") != index) continue;
            const double expected = std::stod(row.at("value"));
            const auto result = database_->OpenRecordset(
                "SELECT * FROM sesErgProjekt WHERE ID=" + std::to_string(sample->second) + ";");
            ASSERT_FALSE(result->Eof()) << sample->first;
            EXPECT_NEAR((*result)[column].R8(), expected, 1e-9 * std::abs(expected))
                << index << " of " << sample->first;
            ++compared[index];
        }
    }
    EXPECT_FALSE(samples_.empty());
    for (const auto& [index, column] : Figures) EXPECT_EQ(compared[index], samples_.size()) << index;
}

}  // namespace
}  // namespace FX_Algen
