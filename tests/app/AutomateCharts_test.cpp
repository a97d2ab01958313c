// A host in another language prepares charts and reads what it draws.
#include <gmock/gmock.h>

#include "Conversation.h"
#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

namespace FX_Algen::cli {
namespace {

using rpc::Json;
using testing::HasSubstr;

/// Sub-habitat 17 of project 3 with the alga 901 that covers 40 of 100 percent, and a result.
class AutomateCharts : public testing::Test {
protected:
    AutomateCharts() {
        for (const char* statement : {
                 "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (3, 'Bäche')",
                 "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez) VALUES (1, 3, 'Mündung')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (1, 1, 'Brücke')",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #5/12/2026#)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 1, 'Blöcke')",
                 "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (17, 100)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 17, 'Äste')",
                 "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (1, 'Familie', 130)",
                 "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (1, 1)",
                 "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (901, 1, 'Grün', 'größte')",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 901, True, 40)",
                 "INSERT INTO awaErgProjekt (ID, ANZ_Gueteklasse_II) VALUES (17, 4)",
             })
            db.Handle->Execute(statement);
        talk.Ask("database.open", {{"path", db.Path()}});
        talk.Ask("object.create", {{"class", "AL_PS_Grafik"}});
        Set({{"CurrentDB", {{"database", 1}}}, {"SprachID", 10000}, {"DBName", db.Path()}});
    }

    void Set(const Json& members) { talk.Ask("object.set", {{"object", 1}, {"members", members}}); }
    std::size_t Call(const std::string& operation) {
        return talk.Ask("object.call", {{"object", 1}, {"operation", operation}});
    }
    std::size_t Get(const std::string& member) {
        return talk.Ask("object.get", {{"object", 1}, {"member", member}});
    }
    std::size_t Get(const std::string& member, int index) {
        return talk.Ask("object.get", {{"object", 1}, {"member", member}, {"index", index}});
    }
    /// Asks for the rows of a statement, in a conversation of its own.
    Json Rows(const Json& statement) {
        Conversation other;
        other.Ask("database.open", {{"path", db.Path()}});
        const auto rows = other.Ask("database.query", {{"database", 1}, {"sql", statement}});
        return other.Run()[rows]["result"]["rows"];
    }

    test::TestDatabase db;
    Conversation talk;
};

TEST_F(AutomateCharts, BarsAreReadByIndexFromOne) {
    Set({{"Grafik_Verteilungsart", 1}, {"Grafik_Stellenbez", 1}});
    Call("Grafik_Verteilung_Init");
    const auto eight = Get("Grafik_Legendentext", 8);
    Set({{"Grafik_Verteilungsart", 2}});
    const auto called = Call("Grafik_Verteilung_Init");
    const std::pair<std::size_t, Json> told[] = {
        {called, nullptr},
        {eight, "polysaprob"},
        {Get("Grafik_Standardtitel"), "Taxazahl je Gütestufen"},
        {Get("Grafik_Balkenanzahl"), 7},
        {Get("Grafik_Legendenzeilen"), 2},
        {Get("Grafik_Balkenfarbe", 1), 9},
        {Get("Grafik_Balkenmuster", 1), false},
        {Get("Grafik_Balkenmusterfarbe", 1), 0},
        {Get("Grafik_Legendentext", 1), "I"},
        {Get("Grafik_Balkenfarbe", 6), 12},
        {Get("Grafik_Balkenmuster", 6), true},
        {Get("Grafik_Balkenmusterfarbe", 6), 14},
        {Get("Grafik_Legendentext", 6), "III-IV"},
    };
    const std::size_t outside[] = {Get("Grafik_Balkenfarbe", 0), Get("Grafik_Legendentext", 8),
                                   Get("Grafik_Balkenmuster", 9), Get("Grafik_Balkenmusterfarbe", -1)};
    const auto sql = Get("Grafik_SQL");
    const auto answers = talk.Run();
    for (const auto& [position, value] : told)
        EXPECT_EQ(answers[position]["result"], value) << answers[position];
    for (const auto position : outside)
        EXPECT_EQ(CodeOf(answers[position]), ErrorNumber::IndexOutOfRange) << answers[position];
    EXPECT_EQ(
        Rows(answers[sql]["result"]),
        Json::parse(R"([["Brücke 12.05.2026 Äste", null, null, 4, null, null, null, null, "0", "0", "0"]])"));
}

TEST_F(AutomateCharts, DominanceIsReadFromItsStatement) {
    Set({{"AktUebersicht", "Projekt"},
         {"ProjektID", 3},
         {"TeilraumID", 17},
         {"Grafik_Algenart", 1},
         {"Grafik_MaxDomWert", 1.5},
         {"Grafik_ArtDomBerechnen", true}});
    const auto called = Call("Grafik_ArtenDom_Init");
    const std::pair<std::size_t, Json> told[] = {
        {called, nullptr},
        {Get("Grafik_Standardtitel"), "Relative Häufigkeiten Nicht-Kieselalgen (%)"},
        {Get("Grafik_Res_Stellenbez"), "Algen-Probenstelle:"},
        {Get("Grafik_Artenanzahl"), 1},
    };
    const auto sql = Get("Grafik_SQL");
    Set({{"TeilraumID", 18}});
    const auto missing = Call("Grafik_ArtenDom_Init");
    const auto after = Get("Grafik_SQL");
    const auto answers = talk.Run();
    for (const auto& [position, value] : told)
        EXPECT_EQ(answers[position]["result"], value) << answers[position];
    EXPECT_EQ(Rows(answers[sql]["result"]), Json::parse(R"([["Grün cf. größte", 40.0]])"));
    EXPECT_EQ(CodeOf(answers[missing]), ErrorNumber::UnknownName);
    EXPECT_THAT(MessageOf(answers[missing]), HasSubstr("Grafik_ArtenDom_Init"));
    EXPECT_THAT(answers[missing]["error"]["data"]["statement"].get<std::string>(), HasSubstr("[A18]"));
    EXPECT_EQ(answers[after]["result"], answers[sql]["result"]);
}

}  // namespace
}  // namespace FX_Algen::cli
