// The worked example of docs/indices/assessment.md, assessed through a database. The expected numbers are
// read from the page, where the arithmetic stands, so that page and program cannot part.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Store.h"
#include "store/Connection.h"
#include "wrrl/Auswertung.h"

namespace FX_Algen {
namespace {

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '|');) {
        const std::size_t first = cell.find_first_not_of(" `");
        const std::size_t last = cell.find_last_not_of(" `");
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

/// The table "Column | first run | second run" of the page.
std::map<std::string, std::pair<std::string, std::string>> Results() {
    std::ifstream file(std::string(FX_SOURCE_DIR) + "/docs/indices/assessment.md");
    std::map<std::string, std::pair<std::string, std::string>> results;
    bool inTable = false;
    for (std::string line; std::getline(file, line);) {
        const auto cells = Cells(line);
        if (cells == std::vector<std::string>{"", "Column", "first run", "second run"})
            inTable = true;
        else if (cells.size() != 4)
            inTable = false;
        else if (inTable && cells[1].find("---") == std::string::npos)
            results[cells[1]] = {cells[2], cells[3]};
    }
    return results;
}

/// The sample of the page. H to N are the taxa 1 to 7.
constexpr const char* Sample[] = {
    "INSERT INTO Projekt (ID_PRJ) VALUES (1);",
    "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (1, 1);",
    "INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (1, 1);",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (1, 1);",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 1, 'Mitte');",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt_WRRL, DG_MA_WRRL) VALUES (17, 50, 40);",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, DG_MI_WRRL) VALUES (1, 17, 10);",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (1, 17);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 1, 0, 20);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 2, 0, 10);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 3, 0, 10);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 4, 0);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 5, 0, 120);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 6, 0, 60);",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 7, 0, 20);",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 4, 0, 100);",
    "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (1, 129);",
    "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (2, 128);",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (1, 1);",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (2, 2);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (1, 1, 'H', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (2, 1, 'I', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (3, 1, 'J', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (4, 1, 'K', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (5, 2, 'L', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (6, 2, 'M', True);",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Art, IstArtniveau) VALUES (7, 2, 'N', False);",
    "INSERT INTO awaRefArt_TypA (ID_Art) VALUES (1);",
    "INSERT INTO awaRefArt_TypA (ID_Art) VALUES (5);",
    "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion) VALUES (6, 3);",
    "INSERT INTO awaWRRL_TGZK (ID_AL_Bioregion, Hoehenstufe, TGZK) VALUES (3, 2, 'om');",
    "INSERT INTO awaWRRL_SGZK (ID_AL_Bioregion, Hoehenstufe, Gueteklasse) VALUES (3, 2, 2);",
    "INSERT INTO awaWRRL_RBioregionstyp (ID_AL_Bioregion, Hoehenstufe, Bioregionstyp) VALUES (3, 2, 'Kalk');",
    "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('Alle', 'om', 1.2);",
    "INSERT INTO awaWRRL_ETI (Taxagruppe, TGZK, ErwarteterWert) VALUES ('KA', 'om', 1);",
    "INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('Alle', 2, 1.4);",
    "INSERT INTO awaWRRL_ESI (Taxagruppe, Gueteklasse, ErwarteterWert) VALUES ('KA', 2, 1.3);",
    "INSERT INTO awaWRRL_ERI (Taxagruppe, Bioregionstyp, ErwarteterWert) VALUES ('Alle', 'Kalk', 0.8);",
    "INSERT INTO awaWRRL_ERI (Taxagruppe, Bioregionstyp, ErwarteterWert) VALUES ('KA', 'Kalk', 0.9);",
};

/// SI, Sap_GBer, Trophiewert, Trophiegewicht of the taxa 1 to 7.
constexpr const char* Ratings[] = {"1.5, 2, 1, 2",   "2, 1, 2, 1", "2.5, 2, 2.5, 1", "2, 1, 1.5, 2",
                                   "1.5, 2, 1.5, 1", "2, 1, 1, 2", "0, 0, 0, 0"};

class AssessmentExample : public testing::Test {
protected:
    AssessmentExample() : path_(testing::TempDir() + "fx_assessment_" + std::to_string(::getpid()) + ".db") {
        Remove();
        store::CreateDatabase(path_, store::DatabaseKind::Project);
        database_ = store::Workspace().OpenDatabase(path_);
        store::Savepoint savepoint(database_->SharedConnection());
        for (const char* statement : Sample) database_->Execute(statement);
        int taxon = 0;
        for (const char* rating : Ratings)
            database_->Execute(
                "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, "
                "Lebensform) VALUES (" +
                std::to_string(++taxon) + ", " + rating + ", 'Alge', 1);");
        for (const std::string group : {"Alle", "KA"}) {
            int number = 0;
            for (const char* bounds : {"0.85, 1.1", "0.75, 0.85", "0.55, 0.75", "0.3, 0.55", "0, 0.3"}) {
                const std::string values = std::string(bounds) + ", " + std::to_string(++number) + ");";
                database_->Execute(
                    "INSERT INTO awaWRRL_TIOEZK (Taxagruppe, TGZK, EQRMin, EQRMax, OEZK) VALUES ('" + group +
                    "', 'om', " + values);
                database_->Execute(
                    "INSERT INTO awaWRRL_SIOEZK (Taxagruppe, Gueteklasse, EQRMin, EQRMax, OEZK) VALUES ('" +
                    group + "', 2, " + values);
                database_->Execute(
                    "INSERT INTO awaWRRL_RIOEZK (Taxagruppe, Bioregionstyp, EQRMin, EQRMax, OEZK) VALUES ('" +
                    group + "', 'Kalk', " + values);
            }
        }
        savepoint.Keep();
    }
    ~AssessmentExample() override {
        database_.reset();
        Remove();
    }
    void Remove() const {
        for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix);
    }

    store::RecordsetPtr Assess(bool KAOnly) {
        Bewertungsauftrag order;
        order.Liste.Datenbank = database_;
        order.Liste.AktUebersicht = "Projekt";
        order.Liste.ProjektID = 1;
        order.Liste.TeilraumID = 17;
        order.Liste.IstWRRLBerechnung = true;
        order.KAOnly = KAOnly;
        order.BioregionID = 3;
        order.Hoehenstufe = 2;
        order.RefBioregion = "(awaRefArt_TypB.ID_AL_Bioregion=3)";
        std::string group;
        Berechnung_WRRL(order, group);
        return database_->OpenRecordset(std::string("SELECT * FROM awaErgWRRL WHERE ID=17 AND KAOnly=") +
                                        (KAOnly ? "-1" : "0") + ";");
    }

    std::string path_;
    store::DatabasePtr database_;
};

void Expect(const store::Value& value, const std::string& expected, const std::string& where) {
    ASSERT_FALSE(value.IsNull()) << where;
    if (value.kind() == store::Kind::Text)
        EXPECT_EQ(value.Text(), expected) << where;
    else
        EXPECT_NEAR(value.R8(), std::stod(expected), 6e-7) << where;  // six decimals
}

TEST_F(AssessmentExample, OfThePageIsWhatIsAssessed) {
    const auto results = Results();
    ASSERT_EQ(results.size(), 34U) << "the results table of the page";
    const auto first = Assess(false);
    const auto second = Assess(true);
    ASSERT_FALSE(first->Eof());
    ASSERT_FALSE(second->Eof());
    for (const auto& [column, expected] : results) {
        Expect((*first)[column], expected.first, column + ", first run");
        Expect((*second)[column], expected.second, column + ", second run");
    }
}

}  // namespace
}  // namespace FX_Algen
