// Diatom indices that other programs computed as plain weighted means, on the same samples with the same
// value pairs: sum(a*g*t) / sum(a*g) over the taxa that have both, a the count. Put in as valves with the
// pair as saprobic and as trophic values, the saprobic and the trophic indices are that mean.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <string>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "calc/Berechnung.h"
#include "peers/PeerFiles.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

using peers::ReadCsv;
using peers::Row;
using peers::SqlText;

/// One index: the name of the value list, that of the results, and whether the weights are all taken as 1.
struct Index {
    const char* List;
    const char* Result;
    bool WithoutWeight;
};

void PrintTo(const Index& index, std::ostream* out) { *out << index.Result; }

/// The samples as sub-habitats of one database, the taxa numbered in the order of their names.
class WeightedMeans : public testing::TestWithParam<Index> {
protected:
    WeightedMeans()
        : path_(testing::TempDir() + "fx_peers_" + GetParam().Result + "_" + std::to_string(::getpid()) +
                ".db") {
        Remove();
        store::CreateDatabase(path_, store::DatabaseKind::Project);
        database_ = store::Workspace().OpenDatabase(path_);
        store::Savepoint savepoint(database_->SharedConnection());
        PutSamples();
        PutRatings();
        savepoint.Keep();
    }
    ~WeightedMeans() override {
        database_.reset();
        Remove();
    }

    void Remove() const {
        for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix);
    }

    void PutSamples() {
        for (const Row& row : ReadCsv("weighted_means/samples.csv")) {
            const auto [sample, isNew] = samples_.try_emplace(row.at("sample"), samples_.size() + 1);
            const std::string id = std::to_string(sample->second);
            if (isNew) {
                database_->Execute("INSERT INTO Teilraum (ID_TR, TRBez) VALUES (" + id + ", " +
                                   SqlText(sample->first) + ");");
                database_->Execute("INSERT INTO awaTeilraum (ID_TR) VALUES (" + id + ");");
                database_->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (" + id + ", " + id + ");");
            }
            database_->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (" + id +
                               ", " + TaxonId(row.at("taxon")) + ", 0, " + row.at("count") + ");");
        }
    }

    std::string TaxonId(const std::string& name) {
        const auto [taxon, isNew] = taxa_.try_emplace(name, taxa_.size() + 1);
        const std::string id = std::to_string(taxon->second);
        if (isNew)
            database_->Execute("INSERT INTO awaArt (ID_ART, ID_UFAM, Art) VALUES (" + id + ", 1, " +
                               SqlText(name) + ");");
        return id;
    }

    /// Every taxon gets a row: one without a pair has value 0 and weight 0.
    void PutRatings() {
        std::map<std::string, Row> pairs;
        for (const Row& row : ReadCsv("weighted_means/indicators.csv"))
            if (row.at("index") == GetParam().List) pairs[row.at("taxon")] = row;
        ASSERT_FALSE(pairs.empty());
        for (const auto& [name, id] : taxa_) {
            const auto found = pairs.find(name);
            const std::string value = found == pairs.end() ? "0" : found->second.at("t");
            const std::string weight =
                found == pairs.end() ? "0" : (GetParam().WithoutWeight ? "1" : found->second.at("g"));
            const std::string pair = value + ", " + weight;
            database_->Execute(
                "INSERT INTO awaModulStandard (ID_ART, Lebensform, SI, Sap_GBer, Trophiewert, "
                "Trophiegewicht, "
                "Trophiewert_N, Trophiegewicht_N) VALUES (" +
                std::to_string(id) + ", 1, " + pair + ", " + pair + ", " + pair + ");");
        }
    }

    std::string path_;
    store::DatabasePtr database_;
    std::map<std::string, std::size_t> samples_;
    std::map<std::string, std::size_t> taxa_;
};

TEST_P(WeightedMeans, EqualTheStoredIndices) {
    for (const bool assessment : {false, true}) {
        Berechnung_Init(database_);
        for (const auto& [sample, id] : samples_)
            Berechnung_Execute(database_, static_cast<std::int32_t>(id), assessment, false, false);

        std::size_t compared = 0;
        for (const Row& row : ReadCsv("weighted_means/expected.csv")) {
            if (row.at("index") != GetParam().Result) continue;
            const double expected = std::stod(row.at("value"));
            const store::RecordsetPtr result = database_->OpenRecordset(
                "SELECT * FROM awaErgProjekt WHERE ID=" + std::to_string(samples_.at(row.at("sample"))) +
                ";");
            ASSERT_FALSE(result->Eof()) << row.at("sample");
            for (const char* column : {"SapIndex", "SapIndex_KA", "TI", "TI_N", "TI_KA"})
                EXPECT_NEAR((*result)[column].R8(), expected, 1e-5 * std::abs(expected))
                    << column << " of " << row.at("sample") << (assessment ? ", assessment" : ", classic");
            ++compared;
        }
        EXPECT_EQ(compared, samples_.size());
    }
}

INSTANTIATE_TEST_SUITE_P(Peers, WeightedMeans,
                         testing::Values(Index{"DES", "DES", false}, Index{"EPID", "EPID", false},
                                         Index{"IDAP", "IDAP", false}, Index{"IDCH", "IDCH", false},
                                         Index{"ILM", "ILM", false}, Index{"IPS", "IPS", false},
                                         Index{"LOBO", "LOBO", false}, Index{"SLA", "SLA", false},
                                         Index{"EDI", "EDI", false}, Index{"IDP", "IDP", true},
                                         Index{"TDI", "TDI_raw_back_calculated", false}),
                         [](const auto& test) { return std::string(test.param.Result); });

}  // namespace
}  // namespace FX_Algen
