#include "fxalgen/automate/AutomateRpc.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"

namespace FX_Algen::cli::rpc {
namespace {

/// Answers "echo" with its parameters and fails in each way that a method can.
Json TestHandler(const std::string& method, const Json& params) {
    if (method == "echo") return params;
    if (method == "null") return nullptr;
    if (method == "failure") throw Failure(Code::InvalidParams, "wrong");
    if (method == "error") throw Error(3061, "Unbekannter Name 'Größe'", "SELECT Größe", "select \"Größe\"");
    if (method == "plain error") throw Error(6, "Overflow");
    if (method == "exception") throw std::runtime_error("unexpected");
    if (method == "bad bytes") return std::string("a\xff");
    throw Failure(Code::MethodNotFound, "no such method");
}

struct Exchange {
    std::string name;
    std::string line;
    std::string answer;  ///< empty = none
};

void PrintTo(const Exchange& exchange, std::ostream* out) { *out << exchange.line; }

class Envelope : public testing::TestWithParam<Exchange> {};

TEST_P(Envelope, IsAnsweredAsTheProtocolSays) {
    EXPECT_EQ(AnswerLine(GetParam().line, TestHandler).value_or(""), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(
    Requests, Envelope,
    testing::Values(Exchange{"Result", R"({"jsonrpc":"2.0","id":1,"method":"echo","params":{"b":1,"a":"ä"}})",
                             R"({"jsonrpc":"2.0","result":{"b":1,"a":"ä"},"id":1})"},
                    Exchange{"ListOfParams",
                             R"({"jsonrpc":"2.0","id":"x","method":"echo","params":[1,null]})",
                             R"({"jsonrpc":"2.0","result":[1,null],"id":"x"})"},
                    Exchange{"NoParams", R"({"jsonrpc":"2.0","id":1,"method":"echo"})",
                             R"({"jsonrpc":"2.0","result":{},"id":1})"},
                    Exchange{"NullResult", R"({"jsonrpc":"2.0","id":1,"method":"null"})",
                             R"({"jsonrpc":"2.0","result":null,"id":1})"},
                    Exchange{"NullId", R"({"jsonrpc":"2.0","id":null,"method":"null"})",
                             R"({"jsonrpc":"2.0","result":null,"id":null})"},
                    Exchange{"Notification", R"({"jsonrpc":"2.0","method":"echo","params":[1]})", ""},
                    Exchange{"FailingNotification", R"({"jsonrpc":"2.0","method":"failure"})", ""},
                    Exchange{"Blank", " \t", ""}, Exchange{"Empty", "", ""},
                    Exchange{"CarriageReturn", "\r", ""}));

INSTANTIATE_TEST_SUITE_P(
    Failures, Envelope,
    testing::Values(
        Exchange{"UnknownMethod", R"({"jsonrpc":"2.0","id":1,"method":"form.list"})",
                 R"({"jsonrpc":"2.0","error":{"code":-32601,"message":"no such method"},"id":1})"},
        Exchange{"WrongParams", R"({"jsonrpc":"2.0","id":1,"method":"failure"})",
                 R"({"jsonrpc":"2.0","error":{"code":-32602,"message":"wrong"},"id":1})"},
        // A failed call carries number and description, and the statements where there are any.
        Exchange{"FailedCall", R"({"jsonrpc":"2.0","id":1,"method":"error"})",
                 R"({"jsonrpc":"2.0","error":{"code":3061,"message":"Unbekannter Name 'Größe'",)"
                 R"("data":{"statement":"SELECT Größe","translated":"select \"Größe\""}},"id":1})"},
        Exchange{"FailedCallWithoutStatement", R"({"jsonrpc":"2.0","id":1,"method":"plain error"})",
                 R"({"jsonrpc":"2.0","error":{"code":6,"message":"Overflow"},"id":1})"},
        Exchange{"UnexpectedException", R"({"jsonrpc":"2.0","id":1,"method":"exception"})",
                 R"({"jsonrpc":"2.0","error":{"code":-32603,"message":"unexpected"},"id":1})"},
        Exchange{"ResultThatIsNotUtf8", R"({"jsonrpc":"2.0","id":1,"method":"bad bytes"})",
                 "{\"jsonrpc\":\"2.0\",\"result\":\"a\xEF\xBF\xBD\",\"id\":1}"}));

INSTANTIATE_TEST_SUITE_P(
    InvalidRequests, Envelope,
    testing::Values(
        Exchange{
            "NoObject", "17",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"A request must be an object."},"id":null})"},
        Exchange{
            "NoVersion", R"({"id":1,"method":"echo"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'jsonrpc' must be \"2.0\"."},"id":1})"},
        Exchange{
            "OtherVersion", R"({"jsonrpc":"1.0","id":1,"method":"echo"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'jsonrpc' must be \"2.0\"."},"id":1})"},
        Exchange{
            "VersionAsNumber", R"({"jsonrpc":2.0,"id":1,"method":"echo"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'jsonrpc' must be \"2.0\"."},"id":1})"},
        Exchange{"NoMethod", R"({"jsonrpc":"2.0","id":1})",
                 R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'method' must be a text."},"id":1})"},
        Exchange{"MethodAsNumber", R"({"jsonrpc":"2.0","id":1,"method":1})",
                 R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'method' must be a text."},"id":1})"},
        Exchange{
            "ParamsAsText", R"({"jsonrpc":"2.0","id":1,"method":"echo","params":"x"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'params' must be an object or a list."},"id":1})"},
        Exchange{
            "IdAsList", R"({"jsonrpc":"2.0","id":[1],"method":"echo"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'id' must be a text, a number or null."},"id":null})"},
        // Without an id it cannot be told from a notification, but what is no request is always answered.
        Exchange{
            "InvalidWithoutId", R"({"jsonrpc":"2.0"})",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"'method' must be a text."},"id":null})"}));

INSTANTIATE_TEST_SUITE_P(
    Batches, Envelope,
    testing::Values(
        Exchange{"TwoRequestsAndANotification",
                 R"([{"jsonrpc":"2.0","id":1,"method":"null"},{"jsonrpc":"2.0","method":"null"},)"
                 R"({"jsonrpc":"2.0","id":2,"method":"echo","params":[3]}])",
                 R"([{"jsonrpc":"2.0","result":null,"id":1},{"jsonrpc":"2.0","result":[3],"id":2}])"},
        Exchange{"NotificationsAlone", R"([{"jsonrpc":"2.0","method":"null"}])", ""},
        Exchange{
            "EmptyList", "[]",
            R"({"jsonrpc":"2.0","error":{"code":-32600,"message":"A list of requests must not be empty."},"id":null})"},
        Exchange{
            "ListOfNumbers", "[1]",
            R"([{"jsonrpc":"2.0","error":{"code":-32600,"message":"A request must be an object."},"id":null}])"}));

struct Unreadable {
    std::string line;
    std::string reason;
};

void PrintTo(const Unreadable& unreadable, std::ostream* out) { *out << unreadable.reason; }

class UnreadableLines : public testing::TestWithParam<Unreadable> {};

TEST_P(UnreadableLines, AreParseErrorsWithTheReason) {
    const auto answer = AnswerLine(GetParam().line, TestHandler);
    ASSERT_TRUE(answer);
    const auto json = Json::parse(*answer);
    EXPECT_EQ(json["error"]["code"], Code::ParseError) << *answer;
    EXPECT_TRUE(json["id"].is_null());
    EXPECT_THAT(json["error"]["message"].get<std::string>(), testing::HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, UnreadableLines,
    testing::Values(
        Unreadable{R"({"jsonrpc":"2.0")", "parse error"}, Unreadable{"{} {}", "parse error"},
        Unreadable{"hello", "parse error"}, Unreadable{R"({"jsonrpc":"2.0","id":1e999})", "number overflow"},
        // "id":"ü" in Latin-1: byte 8.
        Unreadable{"{\"id\":\"\xfc\"}", "not UTF-8: byte 8"}, Unreadable{"\xff\xfe", "not UTF-8: byte 1"},
        Unreadable{std::string("{\0}", 3), "parse error"},
        Unreadable{std::string(100000, '['), "nested deeper"},
        Unreadable{"{\"a\":" + std::string(70, '[') + std::string(70, ']') + "}", "nested deeper"}));

TEST(Notifications, AreRun) {
    int calls = 0;
    const auto handler = [&calls](const std::string&, const Json&) -> Json { return ++calls; };
    EXPECT_EQ(AnswerLine(R"({"jsonrpc":"2.0","method":"x"})", handler), std::nullopt);
    EXPECT_EQ(calls, 1);
}

TEST(RepeatedMembers, TakeTheLastValue) {
    EXPECT_EQ(
        AnswerLine(R"({"jsonrpc":"2.0","id":1,"method":"echo","params":{"a":1,"b":2,"a":3}})", TestHandler),
        R"({"jsonrpc":"2.0","result":{"a":3,"b":2},"id":1})");
}

}  // namespace
}  // namespace FX_Algen::cli::rpc
