#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "DemoDatabase.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::demo_test {
namespace {

/// The first statement of the corpus that begins so.
std::string Statement(std::string_view beginning) {
    std::ifstream in(std::string(FX_SOURCE_DIR) + "/tests/corpus/statements.txt");
    for (std::string line; std::getline(in, line);)
        if (line.starts_with(beginning)) return line;
    throw std::runtime_error("no such statement");
}

class DemoJoins : public testing::Test {
protected:
    DemoDatabase db;

    std::vector<std::int32_t> Column(const std::string& statement, std::string_view field) {
        const auto project = store::Workspace().OpenDatabase(db.Path());
        std::vector<std::int32_t> out;
        const auto rows = project->OpenRecordset(statement);
        for (; !rows->Eof(); rows->MoveNext()) out.push_back((*rows)[field].I4());
        return out;
    }
    std::size_t Count(const std::string& statement) {
        const auto project = store::Workspace().OpenDatabase(db.Path());
        std::size_t count = 0;
        const auto rows = project->OpenRecordset(statement);
        for (; !rows->Eof(); rows->MoveNext()) ++count;
        return count;
    }
};

TEST_F(DemoJoins, ATaxonWithoutARowOfOneOfItsTablesIsMissingFromTheOverview) {
    const std::string overview = Statement("SELECT DISTINCT awaArtAuswahl.Auswahl, awaFamilie.Familie,");
    auto expected = Column(overview, "ID_ART");
    EXPECT_EQ(expected.size(), 155U);
    std::int32_t taxon = 40;
    for (const char* table : {"awaArtAuswahl", "awaArtKatalog", "awaModulStandard"}) {
        ++taxon;
        db.Rows("DELETE FROM " + std::string(table) + " WHERE ID_ART = " + std::to_string(taxon));
        ASSERT_EQ(std::erase(expected, taxon), 1U);
        EXPECT_THAT(Column(overview, "ID_ART"), testing::UnorderedElementsAreArray(expected)) << table;
        EXPECT_EQ(db.Number("SELECT Count(*) FROM awaArt WHERE ID_ART = " + std::to_string(taxon)), 1);
    }
}

TEST_F(DemoJoins, AChainThatLacksOneLevelOrTheMajorGroupGivesNoRow) {
    const std::string chain = Statement("SELECT DISTINCTROW awaReich.Reich, awaUnterreich.Unterreich,");
    ASSERT_EQ(Count(chain), 1U);  // of the taxon 1
    for (const auto& [table, key] : {std::pair{"awaReich", "ID_REICH"},
                                     std::pair{"awaUnterreich", "ID_UREICH"},
                                     std::pair{"awaStamm", "ID_STAMM"},
                                     std::pair{"awaUnterstamm", "ID_USTAMM"},
                                     std::pair{"awaUeberklasse", "ID_UEKLASSE"},
                                     std::pair{"awaKlasse", "ID_KLASSE"},
                                     std::pair{"awaZwgrKlasse", "ID_ZGKLASSE"},
                                     std::pair{"awaUnterklasse", "ID_UKLASSE"},
                                     std::pair{"awaUeberordnung", "ID_UEORDNUNG"},
                                     std::pair{"awaOrdnung", "ID_ORDNUNG"},
                                     std::pair{"awaUnterordnung", "ID_UORDNUNG"},
                                     std::pair{"awaInfraordnung", "ID_IORDNUNG"},
                                     std::pair{"awaZwgrOrdnung", "ID_ZGORDNUNG"},
                                     std::pair{"awaFamilienreihe", "ID_FAMREIHE"},
                                     std::pair{"awaZwgrReihe1", "ID_ZGREIHE1"},
                                     std::pair{"awaZwgrReihe2", "ID_ZGREIHE2"},
                                     std::pair{"awaUeberfamilie", "ID_UEFAM"},
                                     std::pair{"awaFamilie", "ID_FAM"},
                                     std::pair{"awaUnterFam", "ID_UFAM"},
                                     std::pair{"awaGrossGr", "ID_GRGR"}}) {
        const std::string name(table);
        const std::string id =
            std::to_string(db.Number("SELECT " + name + "." + key + " FROM" + Chain() + "WHERE ID_ART = 1"));
        // Under another key the row is missing from the chain, and nothing is deleted along with it.
        db.Rows("UPDATE " + name + " SET " + key + " = 9999 WHERE " + key + " = " + id);
        EXPECT_EQ(Count(chain), 0U) << table;
        db.Rows("UPDATE " + name + " SET " + key + " = " + id + " WHERE " + key + " = 9999");
        EXPECT_EQ(Count(chain), 1U) << table;
    }
}

TEST_F(DemoJoins, TheMonocotyledonsStandInTheirClass) {
    EXPECT_EQ(db.Column("SELECT Klasse FROM" + Chain() + "WHERE Gattung = 'Potamogeton'"),
              std::vector<std::string>{"Liliopsida"});
}

}  // namespace
}  // namespace FX_Algen::demo_test
