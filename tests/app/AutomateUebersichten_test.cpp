// A host in another language reads the counts and lists behind its overviews.
#include <gmock/gmock.h>

#include "Conversation.h"
#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

namespace FX_Algen::cli {
namespace {

using rpc::Json;

/// Sub-habitat 17 of project 3 with the taxa 901 and 902, 18 with 901; seston taxon 801 in 17. Results of
/// both.
class AutomateUebersichten : public testing::Test {
protected:
    AutomateUebersichten() {
        for (const char* statement : {
                 "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez) VALUES (1, 3, 'Mündung')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (1, 1, 'Brücke')",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1, 1, #5/12/2026#)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (17, 1, 'Blöcke', 1)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (18, 1, 'Äste', 2)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR) SELECT ID_TR, ID_TR FROM Teilraum",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (17, 901, False)",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (17, 902, False)",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (18, 901, True)",
                 "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (1, 17)",
                 "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 801, False)",
                 "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Bezeichnung, Kurzzeichen) VALUES (3, 'Ödland', "
                 "'Ö')",
                 "INSERT INTO awaErgWRRL (ID, Taxagruppe) SELECT ID_TR, 'Alle' FROM Teilraum",
             })
            db.Handle->Execute(statement);
        talk.Ask("database.open", {{"path", db.Path()}});
        talk.Ask("object.create", {{"class", "AL_PS"}});
        Set({{"CurrentDB", {{"database", 1}}}, {"SprachID", 10000}});
    }

    void Set(const Json& members) { talk.Ask("object.set", {{"object", 1}, {"members", members}}); }
    std::size_t Call(const std::string& operation, const Json& arguments) {
        return talk.Ask("object.call", {{"object", 1}, {"operation", operation}, {"arguments", arguments}});
    }
    std::size_t Results() { return talk.Ask("object.get", {{"object", 1}, {"member", "WRRLErgRecordset"}}); }

    test::TestDatabase db;
    Conversation talk;
};

TEST_F(AutomateUebersichten, CountsAnswerWithNumbersHoweverArgumentsAreGiven) {
    Set({{"AktUebersicht", "Projekt"}, {"ProjektID", 3}, {"TaxaAuswahl", ""}});
    // 901 and 902 in both sub-habitats, 901 in 18, 801 in the seston.
    const std::pair<std::size_t, std::int32_t> asked[] = {
        {Call("GesamttaxazahlTLR", {{"strSQL_TLR", "17,18"}}), 2},
        {Call("GesamttaxazahlTLR", Json::array({"18"})), 1},
        {Call("Gesamttaxazahl", Json::object()), 2},
        {Call("Gesamttaxazahl", Json::array()), 2},
        {talk.Ask("object.call", {{"object", 1}, {"operation", "Gesamttaxazahl"}}), 2},
        {Call("GesamttaxazahlSeston", Json::object()), 1},
        {Call("GesamttaxazahlSeston", Json::array()), 1},
    };
    const auto answers = talk.Run();
    for (const auto& [position, taxa] : asked)
        EXPECT_EQ(answers[position]["result"], taxa) << answers[position];
}

TEST_F(AutomateUebersichten, FailedCountsCarryNumberAndStatement) {
    Set({{"AktUebersicht", "Projekt"}, {"ProjektID", 3}, {"TaxaAuswahl", "AND awaTeilraum.DG_MA>0"}});
    const auto foreign = Call("Gesamttaxazahl", Json::object());
    const auto unknown = Call("Gesamttaxazahl", {{"x", 1}});
    Set({{"AktUebersicht", "Übersicht"}});
    const auto none = Call("GesamttaxazahlSeston", Json::object());
    const auto answers = talk.Run();
    EXPECT_EQ(CodeOf(answers[foreign]), ErrorNumber::UnknownName);
    EXPECT_THAT(answers[foreign]["error"]["data"]["statement"].get<std::string>(),
                testing::HasSubstr("Where Abschnitt.ID_PRJ = 3 AND awaTeilraum.DG_MA>0 GROUP BY"));
    EXPECT_EQ(CodeOf(answers[unknown]), -32602);
    EXPECT_EQ(CodeOf(answers[none]), ErrorNumber::SyntaxError);
}

TEST_F(AutomateUebersichten, BioregionsAnswerWithText) {
    const auto byName = Call("GetBioregion_Kurzzeichen", {{"strKurzzeichen", "Ö1,X"}});
    const auto inOrder = Call("GetBioregion_Kurzzeichen", Json::array({"Ö1,X"}));
    const auto apostrophe = Call("GetBioregion_Kurzzeichen", Json::array({"d'Oc"}));
    const auto answers = talk.Run();
    EXPECT_EQ(answers[byName]["result"], "Ödland (Ö1), X") << answers[byName];
    EXPECT_EQ(answers[inOrder]["result"], "Ödland (Ö1), X");
    EXPECT_EQ(CodeOf(answers[apostrophe]), ErrorNumber::SyntaxError);
}

TEST_F(AutomateUebersichten, ResultsAreReadAsColumnsAndRowsAsOftenAsAsked) {
    const auto before = Results();
    Set({{"WRRLErgAuswahlAnzeige", 1}});
    const auto opened = Call("Get_WRRLErgRecordset", Json::array());
    const auto all = Results();
    const auto again = Results();
    Set({{"WRRLErgAuswahlAnzeige", 7}});
    const auto unknown = Call("Get_WRRLErgRecordset", Json::object());
    const auto after = Results();
    const auto answers = talk.Run();
    EXPECT_EQ(answers[before]["result"], nullptr);
    EXPECT_EQ(answers[opened]["result"], nullptr) << answers[opened];
    const auto& columns = answers[all]["result"]["columns"];
    EXPECT_EQ(columns[0], "Abschnitt.RF");
    EXPECT_EQ(columns[15], "USDatumVon");
    EXPECT_EQ(columns[18], "TRBez");
    EXPECT_EQ(columns[20], "ID");
    const auto& rows = answers[all]["result"]["rows"];
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0][15], "2026-05-12");
    EXPECT_EQ(rows[0][18], "Blöcke");
    EXPECT_EQ(rows[1][18], "Äste");
    EXPECT_EQ(rows[1][20], 18);
    EXPECT_EQ(answers[again]["result"], answers[all]["result"]);
    EXPECT_EQ(CodeOf(answers[unknown]), ErrorNumber::SyntaxError);
    EXPECT_EQ(answers[after]["result"], answers[all]["result"]);
}

}  // namespace
}  // namespace FX_Algen::cli
