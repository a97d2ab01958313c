#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::cli::rpc {

/// The databases, objects and open forms of one host, and the methods on them, see `docs/hosts.md`. While it
/// lives it is the display of its thread; in the end the former one is in place again.
class Session {
public:
    Session();
    /// Ends forms that are still open, without saving.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The answer to one line, without line end; none for a blank line and for notifications.
    std::optional<std::string> Answer(std::string_view line);

private:
    class State;
    std::unique_ptr<State> state_;
};

/// Why forms of these names did not close.
std::string StaysOpen(const std::vector<std::string>& forms);

}  // namespace FX_Algen::cli::rpc
