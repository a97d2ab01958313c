#include "fxalgen/automate/AutomateRpc.h"

#include "FX_Algen/Error.h"
#include "fxalgen/Utf8.h"

namespace FX_Algen::cli::rpc {

namespace {

/// Requests are flat; what is nested deeper is no request and would only cost memory and stack.
constexpr int MaxDepth = 64;

Json FailureObject(int code, const std::string& message) { return {{"code", code}, {"message", message}}; }

Json ErrorObject(const Error& error) {
    auto out = FailureObject(error.Number(), error.Description());
    if (!error.Statement().empty()) out["data"]["statement"] = error.Statement();
    if (!error.Translated().empty()) out["data"]["translated"] = error.Translated();
    return out;
}

Json Answer(const Json& id, const char* member, Json content) {
    return {{"jsonrpc", "2.0"}, {member, std::move(content)}, {"id", id}};
}

Json Refusal(const Json& id, int code, const std::string& message) {
    return Answer(id, "error", FailureObject(code, message));
}

/// What is wrong with the request as such; empty where nothing is.
std::string Defect(const Json& request) {
    const auto version = request.find("jsonrpc");
    if (version == request.end() || *version != "2.0") return "'jsonrpc' must be \"2.0\"";
    const auto method = request.find("method");
    if (method == request.end() || !method->is_string()) return "'method' must be a text";
    const auto params = request.find("params");
    if (params != request.end() && !params->is_structured()) return "'params' must be an object or a list";
    return {};
}

bool IsId(const Json& id) { return id.is_null() || id.is_string() || id.is_number(); }

std::optional<Json> AnswerRequest(const Json& request, const Handler& handler) {
    if (!request.is_object()) return Refusal(nullptr, Code::InvalidRequest, "A request must be an object.");
    const auto given = request.find("id");
    const bool notification = given == request.end();
    if (!notification && !IsId(*given))
        return Refusal(nullptr, Code::InvalidRequest, "'id' must be a text, a number or null.");
    const Json id = notification ? Json(nullptr) : *given;
    if (const auto defect = Defect(request); !defect.empty())
        return Refusal(id, Code::InvalidRequest, defect + ".");

    Json answer;
    try {
        const auto params = request.find("params");
        answer = Answer(id, "result",
                        handler(request["method"].get_ref<const std::string&>(),
                                params == request.end() ? Json::object() : *params));
    } catch (const Failure& failure) {
        answer = Refusal(id, failure.Number(), failure.what());
    } catch (const Error& error) {
        answer = Answer(id, "error", ErrorObject(error));
    } catch (const std::exception& exception) {
        answer = Refusal(id, Code::InternalError, exception.what());
    }
    if (notification) return std::nullopt;
    return answer;
}

std::optional<Json> AnswerBatch(const Json& batch, const Handler& handler) {
    if (batch.empty()) return Refusal(nullptr, Code::InvalidRequest, "A list of requests must not be empty.");
    Json answers = Json::array();
    for (const auto& request : batch)
        if (auto answer = AnswerRequest(request, handler)) answers.push_back(*std::move(answer));
    if (answers.empty()) return std::nullopt;
    return answers;
}

Json Parsed(std::string_view line) {
    if (const auto bad = FirstBadByte(line))
        throw Failure(Code::ParseError, "The line is not UTF-8: byte " + std::to_string(*bad + 1) + ".");
    try {
        return Json::parse(line, [](int depth, Json::parse_event_t, Json&) {
            if (depth > MaxDepth)
                throw Failure(Code::ParseError,
                              "The request is nested deeper than " + std::to_string(MaxDepth) + " levels.");
            return true;
        });
    } catch (const Json::exception& exception) {
        // In front of the reason stands a tag of the parser's own in brackets.
        const std::string_view reason(exception.what());
        throw Failure(Code::ParseError,
                      "The line is not JSON: " + std::string(reason.substr(reason.find(']') + 2)) + ".");
    }
}

}  // namespace

std::optional<std::string> AnswerLine(std::string_view line, const Handler& handler) {
    if (line.find_first_not_of(" \t\r") == std::string_view::npos) return std::nullopt;
    std::optional<Json> answer;
    try {
        const auto request = Parsed(line);
        answer = request.is_array() ? AnswerBatch(request, handler) : AnswerRequest(request, handler);
    } catch (const Failure& failure) {
        answer = Refusal(nullptr, failure.Number(), failure.what());
    }
    if (!answer) return std::nullopt;
    // A text of a database that is not UTF-8 must not cost the host its answer.
    return answer->dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace FX_Algen::cli::rpc
