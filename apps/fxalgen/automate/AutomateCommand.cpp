#include <csignal>

#include "fxalgen/Commands.h"
#include "fxalgen/automate/Automate.h"

namespace FX_Algen::cli {

namespace {

/// A host that ends without reading the last answer must not take with it what was typed: writing to it is a
/// failed write, after which the forms are saved and closed.
class NoEndByWriting {
public:
    NoEndByWriting() : former_(std::signal(SIGPIPE, SIG_IGN)) {}
    ~NoEndByWriting() { std::signal(SIGPIPE, former_); }
    NoEndByWriting(const NoEndByWriting&) = delete;
    NoEndByWriting& operator=(const NoEndByWriting&) = delete;

private:
    void (*former_)(int);
};

class AutomateCommand : public Command {
public:
    std::string_view Name() const override { return "automate"; }
    std::string_view Description() const override {
        return "Drive the public classes by JSON-RPC 2.0: one request a line on standard input, one answer a "
               "line on standard output";
    }
    std::string_view Example() const override {
        return "  echo "
               "'{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"object.create\",\"params\":{\"class\":\"AL_PS\"}}"
               "' "
               "| fxalgen automate";
    }
    void Arguments(CLI::App&) override {}
    Exit Execute(Streams& streams) override {
        const NoEndByWriting writing;
        return Automate(streams.In, streams.Out, streams.Err) == 0 ? Exit::Done : Exit::Failed;
    }
};

}  // namespace

std::unique_ptr<Command> MakeAutomateCommand() { return std::make_unique<AutomateCommand>(); }

}  // namespace FX_Algen::cli
