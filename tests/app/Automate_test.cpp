#include "fxalgen/automate/Automate.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "AutomateDatabase.h"
#include "Conversation.h"
#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "fxalgen/automate/AutomateTable.h"

namespace FX_Algen::cli {
namespace {

using rpc::Json;
using testing::HasSubstr;

/// The answer to one request on object 1, a new instance of `className`.
Json OnObject(const std::string& className, const std::string& method, Json params) {
    Conversation talk;
    talk.Ask("object.create", {{"class", className}});
    params["object"] = 1;
    const auto asked = talk.Ask(method, params);
    return talk.Run().at(asked);
}

// ---- the run as a whole ------------------------------------------------------------------------------

TEST(AutomateRun, EndsWithDoneAtTheEndOfTheInput) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Automate(in, out, err), 0);
    EXPECT_EQ(out.str(), "");
}

TEST(AutomateRun, AnswersALastLineWithoutLineEnd) {
    std::istringstream in(R"({"jsonrpc":"2.0","id":1,"method":"dialog.shown"})");
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Automate(in, out, err), 0);
    EXPECT_EQ(out.str(), "{\"jsonrpc\":\"2.0\",\"result\":[],\"id\":1}\n");
}

TEST(AutomateRun, GoesOnAfterEachFailure) {
    std::istringstream in(
        "rubbish\n\xff\xfe\n[]\n17\n\n{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"object.get\"}\r\n"
        "{\"jsonrpc\":\"2.0\",\"id\":2,\"method\":\"dialog.shown\"}\r\n");
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Automate(in, out, err), 0);
    std::vector<std::int32_t> codes;
    std::istringstream written(out.str());
    for (std::string line; std::getline(written, line);) codes.push_back(CodeOf(Json::parse(line)));
    EXPECT_THAT(codes, testing::ElementsAre(-32700, -32700, -32600, -32600, -32602, 0));
}

TEST(AutomateRun, FailsWhereAnAnswerCannotBeWritten) {
    std::istringstream in(R"({"jsonrpc":"2.0","id":1,"method":"dialog.shown"})");
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Automate(in, out, err), 1);
}

TEST(AutomateRun, LeavesTheDisplayOfItsCaller) {
    const auto mine = std::make_shared<store::RecordingMessages>();
    const auto former = SetDisplay(mine);
    Conversation talk;
    talk.Ask("dialog.shown");
    talk.Run();
    EXPECT_EQ(SetDisplay(former), mine);
}

struct WrongRequest {
    std::string method;
    Json params;
    std::int32_t code;
    std::string words;
};

void PrintTo(const WrongRequest& request, std::ostream* out) {
    *out << request.method << request.params.dump();
}

class WrongRequests : public testing::TestWithParam<WrongRequest> {};

TEST_P(WrongRequests, AreAnsweredWithCodeAndReason) {
    Conversation talk;
    const auto asked = talk.Ask(GetParam().method, GetParam().params);
    const auto answer = talk.Run().at(asked);
    EXPECT_EQ(CodeOf(answer), GetParam().code) << answer;
    EXPECT_THAT(MessageOf(answer), HasSubstr(GetParam().words));
}

INSTANTIATE_TEST_SUITE_P(
    Methods, WrongRequests,
    testing::Values(WrongRequest{"database.drop", Json::object(), -32601, "database.drop"},
                    WrongRequest{"form.close", Json::object(), -32601, "form.close"},
                    WrongRequest{"Object.Create", Json::object(), -32601, "Object.Create"},
                    WrongRequest{"", Json::object(), -32601, "no method"}));

INSTANTIATE_TEST_SUITE_P(
    Parameters, WrongRequests,
    testing::Values(
        WrongRequest{"database.open", Json::object(), -32602, "'path' is missing"},
        WrongRequest{"database.open", {{"path", 17}}, -32602, "path: a text"},
        WrongRequest{"database.open", {{"path", "x"}, {"Pfad", "y"}}, -32602, "no parameter 'Pfad'"},
        WrongRequest{"database.open", Json::array({"x", "y"}), -32602, "1 parameters at most"},
        WrongRequest{"database.open", {{"path", "/gibt/es/nicht/Ährenfeld.db"}}, 53, "Ährenfeld.db"},
        WrongRequest{"database.close", {{"database", 1}}, -32602, "no open database 1"},
        WrongRequest{"database.close", {{"database", "1"}}, -32602, "database: a 32-bit integer"},
        WrongRequest{"database.close", {{"database", 1.5}}, -32602, "database: a 32-bit integer"},
        WrongRequest{"database.close", {{"database", 3000000000}}, 6, "3000000000"},
        WrongRequest{"database.execute", {{"database", 1}, {"sql", "x"}}, -32602, "no open database 1"},
        WrongRequest{"database.execute", {{"database", 1}}, -32602, "'sql' is missing"},
        WrongRequest{"database.query", {{"database", 7}, {"sql", "x"}}, -32602, "no open database 7"},
        WrongRequest{"object.create", {{"class", "AL_Nichts"}}, -32601, "AL_Nichts"},
        WrongRequest{"object.create", {{"class", nullptr}}, -32602, "class: a text"},
        WrongRequest{"object.set", {{"object", 1}, {"members", Json::object()}}, -32602, "no object 1"},
        WrongRequest{"object.get", {{"object", 1}, {"member", "Version"}}, -32602, "no object 1"},
        WrongRequest{"object.call", {{"object", 1}, {"operation", "Get_Version"}}, -32602, "no object 1"},
        WrongRequest{"object.release", {{"object", 0}}, -32602, "no object 0"},
        WrongRequest{"dialog.answers", {{"answers", "Yes"}}, -32602, "a list of texts"},
        WrongRequest{"dialog.answers", {{"answers", {1}}}, -32602, "answers: a text"},
        WrongRequest{"dialog.shown", {{"x", 1}}, -32602, "no parameter 'x'"}));

// ---- objects -----------------------------------------------------------------------------------------

TEST(AutomateObjects, AreCreatedNumberedAndReleased) {
    Conversation talk;
    for (const auto* name : {"AL_PS", "AL_Katalog", "AL_PS_Grafik"})
        talk.Ask("object.create", {{"class", name}});
    const auto released = talk.Ask("object.release", {{"object", 2}});
    const auto gone = talk.Ask("object.get", {{"object", 2}, {"member", "ReportName"}});
    const auto twice = talk.Ask("object.release", {{"object", 2}});
    const auto next = talk.Ask("object.create", Json::array({"AL_PS"}));
    const auto answers = talk.Run();
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(answers[i]["result"], (Json{{"object", i + 1}}));
    EXPECT_EQ(answers[released]["result"], nullptr);
    EXPECT_EQ(CodeOf(answers[gone]), -32602);
    EXPECT_EQ(CodeOf(answers[twice]), -32602);
    // A number is never given again.
    EXPECT_EQ(answers[next]["result"], (Json{{"object", 4}}));
}

TEST(AutomateObjects, KeepTheirValuesBetweenCalls) {
    Conversation talk;
    talk.Ask("object.create", {{"class", "AL_PS"}});
    const auto set =
        talk.Ask("object.set", {{"object", 1}, {"members", {{"SprachID", 10000}, {"ResID", 2006}}}});
    const auto called = talk.Ask("object.call", {{"object", 1}, {"operation", "Get_ResString"}});
    const auto german = talk.Ask("object.get", {{"object", 1}, {"member", "ResString"}});
    talk.Ask("object.set", {{"object", 1}, {"members", {{"SprachID", 20000}}}});
    talk.Ask("object.call", Json::array({1, "Get_ResString"}));
    const auto english = talk.Ask("object.get", Json::array({1, "ResString"}));
    const auto answers = talk.Run();
    EXPECT_EQ(answers[set]["result"], nullptr);
    EXPECT_EQ(answers[called]["result"], nullptr);
    EXPECT_EQ(answers[german]["result"], "Ändern");
    EXPECT_EQ(answers[english]["result"], "Change");
}

TEST(AutomateObjects, MembersAreSetInTheOrderGivenUpToTheFirstFailure) {
    Conversation talk;
    talk.Ask("object.create", {{"class", "AL_PS"}});
    // The order of this object is not alphabetical, and English comes behind the failure.
    const auto set =
        talk.Ask("object.set",
                 {{"object", 1}, {"members", {{"ResID", 1000}, {"GibtEsNicht", 1}, {"SprachID", 20000}}}});
    talk.Ask("object.call", {{"object", 1}, {"operation", "Get_ResString"}});
    const auto text = talk.Ask("object.get", {{"object", 1}, {"member", "ResString"}});
    const auto answers = talk.Run();
    EXPECT_EQ(CodeOf(answers[set]), -32601);
    EXPECT_EQ(answers[text]["result"], "Algen");
}

struct Setting {
    std::string member;
    Json value;
    std::int32_t code;
};

void PrintTo(const Setting& setting, std::ostream* out) {
    *out << setting.member << "=" << setting.value.dump();
}

class Settings : public testing::TestWithParam<Setting> {};

TEST_P(Settings, TakeTheTypeOfTheMember) {
    const auto answer =
        OnObject("AL_PS", "object.set", {{"members", {{GetParam().member, GetParam().value}}}});
    EXPECT_EQ(CodeOf(answer), GetParam().code) << answer;
    if (GetParam().code != 0) {
        // An unknown member is named apart from its class.
        EXPECT_THAT(MessageOf(answer), testing::AllOf(HasSubstr("AL_PS"), HasSubstr(GetParam().member)));
    }
}

INSTANTIATE_TEST_SUITE_P(Integers, Settings,
                         testing::Values(Setting{"SprachID", 20000, 0}, Setting{"SprachID", 32767, 0},
                                         Setting{"SprachID", -32768, 0}, Setting{"SprachID", 32768, 6},
                                         Setting{"SprachID", -32769, 6}, Setting{"SprachID", 1e300, 6},
                                         Setting{"SprachID", 2e4, 0}, Setting{"SprachID", 1.5, -32602},
                                         Setting{"SprachID", "1", -32602}, Setting{"SprachID", true, -32602},
                                         Setting{"SprachID", nullptr, -32602},
                                         Setting{"TeilraumID", 2147483647, 0},
                                         Setting{"TeilraumID", 2147483648, 6},
                                         Setting{"TeilraumID", 18446744073709551615U, 6},
                                         Setting{"TeilraumID", Json::array(), -32602}));

INSTANTIATE_TEST_SUITE_P(
    Others, Settings,
    testing::Values(Setting{"Pbar_SBLeft", 1.5, 0}, Setting{"Pbar_SBLeft", 3, 0},
                    Setting{"Pbar_SBLeft", 1e39, 6}, Setting{"Pbar_SBLeft", "1", -32602},
                    Setting{"KAOnly", true, 0}, Setting{"KAOnly", false, 0}, Setting{"KAOnly", -1, -32602},
                    Setting{"KAOnly", "true", -32602}, Setting{"DBName", "/Österreich/Größe.db", 0},
                    Setting{"DBName", 1, -32602}, Setting{"DBName", nullptr, -32602},
                    Setting{"CurrentDB", nullptr, 0}, Setting{"CurrentDB", 1, -32602},
                    Setting{"CurrentDB", {{"database", 1}}, -32602},
                    Setting{"CurrentDB", {{"datei", 1}}, -32602},
                    Setting{"CurrentDB", Json::object(), -32602}, Setting{"CurrentWS", nullptr, 0},
                    Setting{"CurrentWS", {{"workspace", 1}}, 0},
                    Setting{"CurrentWS", {{"workspace", 2}}, -32602}, Setting{"CurrentWS", 1, -32602}));

INSTANTIATE_TEST_SUITE_P(Directions, Settings,
                         testing::Values(Setting{"Version", "1.0-a", -32601},
                                         Setting{"GibtEsNicht", 1, -32601},
                                         Setting{"sprachid", 10000, -32601}));

TEST(AutomateObjects, MembersToSetCannotBeReadAndIndexesBelongToListsOnly) {
    struct {
        std::string className;
        Json params;
        std::int32_t code;
    } const cases[] = {
        {"AL_PS", {{"member", "SprachID"}}, -32601},
        {"AL_PS", {{"member", "GibtEsNicht"}}, -32601},
        {"AL_PS", {{"member", "Version"}}, 0},
        {"AL_PS", {{"member", "Version"}, {"index", 1}}, -32602},
        {"AL_PS", {{"member", 1}}, -32602},
        {"AL_PS_Grafik", {{"member", "Grafik_Balkenfarbe"}}, -32602},
        {"AL_PS_Grafik", {{"member", "Grafik_Balkenfarbe"}, {"index", "1"}}, -32602},
        {"AL_PS_Grafik", {{"member", "Grafik_Balkenfarbe"}, {"index", 1}}, 381},
        {"AL_PS_Grafik", {{"member", "Grafik_Legendentext"}, {"index", 40000}}, 6},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CodeOf(OnObject(c.className, "object.get", c.params)), c.code) << c.params;
}

TEST(AutomateObjects, FreshMembersReadAsTheirEmptyValue) {
    EXPECT_EQ(OnObject("AL_PS", "object.get", {{"member", "ReportName"}})["result"], "");
    EXPECT_EQ(OnObject("AL_PS", "object.get", {{"member", "ExportIsOK"}})["result"], false);
    EXPECT_EQ(OnObject("AL_PS", "object.get", {{"member", "WRRLErgRecordset"}})["result"], nullptr);
    EXPECT_EQ(OnObject("AL_Katalog", "object.get", {{"member", "KatUebersicht_hWnd"}})["result"], 0);
    EXPECT_EQ(OnObject("AL_PS_Grafik", "object.get", {{"member", "Grafik_Balkenanzahl"}})["result"], 0);
}

// ---- operations and their arguments ------------------------------------------------------------------

struct CallCase {
    std::string operation;
    Json arguments;
    std::int32_t code;
    std::string words;
};

void PrintTo(const CallCase& call, std::ostream* out) { *out << call.operation << call.arguments.dump(); }

class Calls : public testing::TestWithParam<CallCase> {};

TEST_P(Calls, TakeArgumentsByNameOrInOrder) {
    const auto answer = OnObject("AL_PS", "object.call",
                                 {{"operation", GetParam().operation}, {"arguments", GetParam().arguments}});
    EXPECT_EQ(CodeOf(answer), GetParam().code) << answer;
    EXPECT_THAT(MessageOf(answer), HasSubstr(GetParam().words));
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Calls,
    testing::Values(
        CallCase{"Get_Version", Json::object(), 0, ""}, CallCase{"Get_Version", Json::array(), 0, ""},
        CallCase{"Get_Version", Json::array({1}), -32602, "takes 0 arguments at most"},
        CallCase{"Get_Version", {{"x", 1}}, -32602, "no argument 'x'"},
        CallCase{"Get_Version", "x", -32602, "arguments"},
        CallCase{"GibtEsNicht", Json::array(), -32601, "GibtEsNicht"},
        CallCase{"get_version", Json::array(), -32601, "get_version"},
        // Without a database the call itself fails.
        CallCase{"CheckIstKA", {{"lngID_TLR", 17}}, 3343, ""},
        CallCase{"CheckIstKA", Json::array({17}), 3343, ""},
        CallCase{"CheckIstKA", Json::array(), -32602, "'lngID_TLR' is missing"},
        CallCase{"CheckIstKA", {{"ID", 17}}, -32602, "no argument 'ID'"},
        CallCase{"CheckIstKA", Json::array({"17"}), -32602, "AL_PS.CheckIstKA, lngID_TLR"},
        CallCase{"CheckIstKA", Json::array({3000000000}), 6, "lngID_TLR"},
        CallCase{"CheckIstKA", Json::array({1, 2}), -32602, "takes 1 arguments at most"},
        CallCase{"GesamttaxazahlTLR", Json::array({"1,2,3"}), 3343, "GesamttaxazahlTLR"},
        CallCase{"GesamttaxazahlTLR", {{"strSQL_TLR", "1,2,3"}}, 3343, "GesamttaxazahlTLR"},
        CallCase{"GesamttaxazahlTLR", Json::array({1}), -32602, "strSQL_TLR"},
        // Arguments that hand results back may be left out, and may be given.
        CallCase{"Export_TLG_Taxadaten", Json::array({1, 2, 3, false, 1, 50.5, 400}), 445,
                 "Export_TLG_Taxadaten"},
        CallCase{"Export_TLG_Taxadaten", Json::array({1, 2, 3, false, 1, 50.5, 400, 0, 0, 0}), 445, ""},
        CallCase{"Export_TLG_Taxadaten", Json::array({1, 2, 3, false, 1, 50.5}), -32602,
                 "'intSummeKA' is missing"},
        CallCase{"Export_TLG_Taxadaten", Json::array({40000, 2, 3, false, 1, 50.5, 400}), 6, "intID_Art"}));

TEST(AutomateCalls, ArgumentsMayBeLeftOutWhereThereAreNone) {
    EXPECT_EQ(OnObject("AL_PS", "object.call", {{"operation", "Get_Version"}})["result"], nullptr);
}

TEST(AutomateCalls, OperationsToComeAnswer445WithTheirName) {
    const std::map<std::string, std::vector<std::string>> built{
        {"AL_PS",
         {"Berechnung_Execute",
          "Berechnung_Init",
          "CheckIstKA",
          "Berechnung_WRRLArtenliste",
          "Berechnung_WRRLArtenlisteTLR",
          "Get_ResString",
          "Get_Version",
          "GesamttaxazahlTLR",
          "Gesamttaxazahl",
          "GesamttaxazahlSeston",
          "GetBioregion_Kurzzeichen",
          "Get_WRRLErgRecordset",
          "Berechnung_WRRL",
          "Berechnung_WRRLInit",
          "Pruefung_WRRL",
          "Berechnung_ExecuteSeston",
          "Berechnung_InitSeston",
          "Probenstelle_Show",
          "ProbenstelleSeston_Show",
          "Probenstelle_Unload"}},
        {"AL_PS_Grafik", {"Grafik_Verteilung_Init", "Grafik_ArtenDom_Init"}}};
    for (const std::string name : {"AL_PS", "AL_Katalog", "AL_PS_Grafik"}) {
        const auto object = rpc::MakeObject(name);
        std::vector<std::string> answered;
        for (const auto& operation : object->Operations()) {
            Json arguments = Json::array();
            for (const auto& argument : operation.Arguments) {
                const auto prefix = argument.Name.substr(0, 3);
                if (argument.IsResult) break;
                arguments.push_back(prefix == "bol" ? Json(false) : prefix == "str" ? Json("") : Json(0));
            }
            try {
                object->Call(operation.Name, arguments, {});
                answered.push_back(operation.Name);
            } catch (const Error& error) {
                if (error.Number() != ErrorNumber::NotBuilt) {
                    answered.push_back(operation.Name);
                    continue;
                }
                EXPECT_THAT(error.Description(), HasSubstr(name + "." + operation.Name + ":"));
            }
        }
        EXPECT_THAT(answered, testing::UnorderedElementsAreArray(
                                  built.contains(name) ? built.at(name) : std::vector<std::string>{}))
            << name;
    }
}

/// A class whose operation hands results back.
class Counter {
public:
    bool Add(std::int32_t amount, double& sum, std::string& words) {
        sum += amount;
        words = "größer";
        return true;
    }
    void Reset(std::int16_t& former) { former = 7; }
};

TEST(AutomateCalls, ResultArgumentsAreAnsweredByName) {
    rpc::ClassTable<Counter> table("Counter");
    table.Call("Add", &Counter::Add, {"amount", "sum", "words"});
    table.Call("Reset", &Counter::Reset, {"former"});
    rpc::TableObject<Counter> object(table);
    EXPECT_EQ(object.Call("Add", {{"amount", 2}, {"sum", 1.5}, {"words", ""}}, {}),
              (Json{{"result", true}, {"sum", 3.5}, {"words", "größer"}}));
    EXPECT_EQ(object.Call("Reset", Json::array(), {}), (Json{{"result", nullptr}, {"former", 7}}));
}

// ---- databases ---------------------------------------------------------------------------------------

TEST_F(AutomateDatabase, QueriesAnswerWithValuesOfTheirKind) {
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    const auto insert =
        talk.Ask("database.execute", {{"database", 1},
                                      {"sql",
                                       "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon, USZeitVon) "
                                       "VALUES (1, 2, #05/12/2026#, #09:30:00#);"}});
    talk.Ask(
        "database.execute",
        Json::array(
            {1, "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, Anzeige) VALUES (17, 1, 'Größe', False);"}));
    talk.Ask("database.execute",
             {{"database", 1}, {"sql", "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (17, 0.1);"}});
    const auto query = talk.Ask(
        "database.query",
        {{"database", 1},
         {"sql",
          "SELECT Teilraum.ID_TR, Teilraum.TRBez, Teilraum.RF, Teilraum.Anzeige, VerUStelle.USDatumVon, "
          "VerUStelle.USZeitVon, awaTeilraum.DG_Gesamt FROM (VerUStelle INNER JOIN Teilraum ON "
          "VerUStelle.ID_VUS = "
          "Teilraum.ID_VUS) INNER JOIN awaTeilraum ON Teilraum.ID_TR = awaTeilraum.ID_TR;"}});
    const auto answers = talk.Run();
    EXPECT_EQ(answers[0]["result"], (Json{{"database", 1}}));
    EXPECT_EQ(answers[insert]["result"], nullptr) << answers[insert];
    EXPECT_EQ(answers[query]["result"].dump(),
              R"({"columns":["ID_TR","TRBez","RF","Anzeige","USDatumVon","USZeitVon","DG_Gesamt"],)"
              R"("rows":[[17,"Größe",null,false,"2026-05-12","09:30:00",0.1]]})")
        << answers[query];
}

TEST_F(AutomateDatabase, RepeatedNamesAreToldApart) {
    AddSample();
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    const auto query = talk.Ask(
        "database.query",
        Json::array(
            {1,
             "SELECT awaPrStelle.ID_PS, awaArtPrStelle.ID_PS, awaArtPrStelle.CF FROM awaPrStelle INNER JOIN "
             "awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS;"}));
    const auto answers = talk.Run();
    EXPECT_EQ(answers[query]["result"]["columns"], (Json{"awaPrStelle.ID_PS", "awaArtPrStelle.ID_PS", "CF"}));
    EXPECT_EQ(answers[query]["result"]["rows"].dump(), "[[1,1,false]]");
}

TEST_F(AutomateDatabase, EmptyResultHasItsColumns) {
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    const auto query =
        talk.Ask("database.query", {{"database", 1}, {"sql", "SELECT ID, TI FROM awaErgProjekt;"}});
    EXPECT_EQ(talk.Run()[query]["result"].dump(), R"({"columns":["ID","TI"],"rows":[]})");
}

TEST_F(AutomateDatabase, FailedStatementsCarryNumberAndStatement) {
    const std::string bad = "SELECT Größe FROM GibtEsNicht;";
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    const auto unknown = talk.Ask("database.query", {{"database", 1}, {"sql", bad}});
    const auto empty = talk.Ask("database.execute", {{"database", 1}, {"sql", ""}});
    const auto answers = talk.Run();
    EXPECT_EQ(CodeOf(answers[unknown]), ErrorNumber::UnknownTable);
    EXPECT_EQ(answers[unknown]["error"]["data"]["statement"], bad) << answers[unknown];
    EXPECT_EQ(CodeOf(answers[empty]), ErrorNumber::SyntaxError);
}

TEST_F(AutomateDatabase, FileThatIsNoDatabaseIsRefused) {
    const auto path = (db.Folder() / "kein.db").string();
    std::ofstream(path) << "Das ist keine Datenbank, sondern ein längerer Text, der in keine Seite passt.";
    Conversation talk;
    const auto open = talk.Ask("database.open", {{"path", path}});
    EXPECT_EQ(CodeOf(talk.Run()[open]), ErrorNumber::NotADatabase);
}

TEST_F(AutomateDatabase, ClosedDatabaseIsGoneForRequestsAndForObjects) {
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    talk.Ask("object.create", {{"class", "AL_PS"}});
    talk.Ask("object.set", {{"object", 1}, {"members", {{"CurrentDB", {{"database", 1}}}}}});
    const auto before = talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Init"}});
    const auto close = talk.Ask("database.close", {{"database", 1}});
    const auto query =
        talk.Ask("database.query", {{"database", 1}, {"sql", "SELECT ID FROM awaErgProjekt;"}});
    const auto after = talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Init"}});
    const auto twice = talk.Ask("database.close", {{"database", 1}});
    const auto reopened = talk.Ask("database.open", {{"path", db.Path()}});
    const auto answers = talk.Run();
    EXPECT_EQ(CodeOf(answers[before]), 0) << answers[before];
    EXPECT_EQ(answers[close]["result"], nullptr);
    EXPECT_EQ(CodeOf(answers[query]), -32602);
    EXPECT_EQ(CodeOf(answers[after]), ErrorNumber::NotADatabase);
    EXPECT_EQ(CodeOf(answers[twice]), -32602);
    EXPECT_EQ(answers[reopened]["result"], (Json{{"database", 2}}));
}

TEST_F(AutomateDatabase, RecordsetsAnswerWithAllTheirRows) {
    db.Handle->Execute("INSERT INTO awaErgWRRL (ID, Taxagruppe) VALUES (1, 'KA');");
    db.Handle->Execute("INSERT INTO awaErgWRRL (ID, Taxagruppe) VALUES (2, 'Alle');");
    const auto rows = db.Handle->OpenRecordset("SELECT ID, Taxagruppe FROM awaErgWRRL ORDER BY ID;");
    rows->MoveLast();
    const std::string all = R"({"columns":["ID","Taxagruppe"],"rows":[[1,"KA"],[2,"Alle"]]})";
    EXPECT_EQ(rpc::ToJson(rows).dump(), all);
    EXPECT_EQ(rpc::ToJson(rows).dump(), all);
}

// ---- a calculation from end to end ---------------------------------------------------------------------

TEST_F(AutomateDatabase, HostCalculatesASubhabitatAndReadsItsRow) {
    AddSample();
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    talk.Ask("object.create", {{"class", "AL_PS"}});
    talk.Ask("object.set", {{"object", 1},
                            {"members",
                             {{"CurrentDB", {{"database", 1}}},
                              {"SprachID", 10000},
                              {"IstWRRLBerechnung", false},
                              {"ValenzGewicht", false},
                              {"DebugModus", false}}}});
    talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Init"}});
    const auto heading = talk.Ask("object.get", {{"object", 1}, {"member", "Berechnung_Statustext"}});
    talk.Ask("object.set", {{"object", 1}, {"members", {{"TeilraumID", 17}}}});
    const auto run = talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Execute"}});
    const auto again = talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Execute"}});
    const auto ka = talk.Ask("object.call",
                             {{"object", 1}, {"operation", "CheckIstKA"}, {"arguments", {{"lngID_TLR", 0}}}});
    const auto query =
        talk.Ask("database.query",
                 {{"database", 1}, {"sql", "SELECT ID, IstWRRL, SapIndex, AMI FROM awaErgProjekt;"}});
    const auto shown = talk.Ask("dialog.shown");
    const auto answers = talk.Run();
    EXPECT_EQ(answers[heading]["result"], "Algen-Berechnung der Indizes");
    EXPECT_EQ(answers[run]["result"], nullptr) << answers[run];
    EXPECT_EQ(CodeOf(answers[again]), ErrorNumber::DuplicateKey);
    EXPECT_EQ(answers[ka]["result"], false);
    // One taxon with SI 2 gives 2; 2 mm * 40 % / 100 gives 0.8.
    EXPECT_EQ(answers[query]["result"]["rows"].dump(), "[[17,false,2.0,0.8]]");
    EXPECT_EQ(answers[shown]["result"], Json::array());
}

TEST_F(AutomateDatabase, BoxesOfDebugModeAreListedOnce) {
    AddSample();
    Conversation talk;
    talk.Ask("database.open", {{"path", db.Path()}});
    talk.Ask("object.create", {{"class", "AL_PS"}});
    const auto answers_set = talk.Ask("dialog.answers", {{"answers", {"Yes", "Größe.xlsx"}}});
    talk.Ask("object.set",
             {{"object", 1},
              {"members", {{"CurrentDB", {{"database", 1}}}, {"DebugModus", true}, {"TeilraumID", 17}}}});
    talk.Ask("object.call", {{"object", 1}, {"operation", "Berechnung_Execute"}});
    const auto first = talk.Ask("dialog.shown");
    const auto second = talk.Ask("dialog.shown");
    const auto answers = talk.Run();
    EXPECT_EQ(answers[answers_set]["result"], nullptr);
    const auto& shown = answers[first]["result"];
    ASSERT_FALSE(shown.empty());
    std::vector<std::string> names;
    for (const auto& [name, value] : shown[0].items()) names.push_back(name);
    EXPECT_THAT(names, testing::ElementsAre("kind", "title", "text", "buttons", "symbol", "answer"));
    EXPECT_EQ(shown[0]["kind"], "message");
    EXPECT_EQ(shown[0]["title"], "FX_Algen");
    EXPECT_EQ(shown[0]["buttons"], Json::array({"OK"}));
    EXPECT_EQ(shown[0]["symbol"], "None");
    EXPECT_EQ(shown[0]["answer"], "OK");
    EXPECT_EQ(answers[second]["result"], Json::array());
}

}  // namespace
}  // namespace FX_Algen::cli
