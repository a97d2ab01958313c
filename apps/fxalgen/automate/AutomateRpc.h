#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

/// The envelope of JSON-RPC 2.0: reading a line, checking the request, wrapping result or failure.
namespace FX_Algen::cli::rpc {

/// Keeps the order of members, as members of an object are set in the order given.
using Json = nlohmann::ordered_json;

namespace Code {
inline constexpr int ParseError = -32700;
inline constexpr int InvalidRequest = -32600;
inline constexpr int MethodNotFound = -32601;
inline constexpr int InvalidParams = -32602;
inline constexpr int InternalError = -32603;
inline constexpr int StaysOpen = -32000;  ///< a form cannot save what was typed, so nothing was closed
}  // namespace Code

/// A failure of the protocol; failures of the module are `FX_Algen::Error`.
class Failure : public std::runtime_error {
public:
    Failure(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
    int Number() const noexcept { return code_; }

private:
    int code_;
};

/// Runs one method; `params` is an object or a list, empty where the request has none.
using Handler = std::function<Json(const std::string& method, const Json& params)>;

/// The answer to one line, without line end; none for a blank line and for notifications.
std::optional<std::string> AnswerLine(std::string_view line, const Handler& handler);

}  // namespace FX_Algen::cli::rpc
