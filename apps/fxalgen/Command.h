#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

/// The command line `fxalgen`: one object a command.
///
/// A new command is a class derived from `Command` in a file of its own, `<Name>Command.cpp`, with a
/// factory `std::unique_ptr<Command> Make<Name>Command()`. The factory is declared in Commands.h and
/// listed in Commands.cpp; help, usage errors, `--lang` and the check of the man page follow from that.
namespace FX_Algen::cli {

/// What a command reads and writes. Tests swap the streams.
struct Streams {
    std::istream& In;
    std::ostream& Out;           ///< results
    std::ostream& Err;           ///< messages
    bool ErrIsTerminal = false;  ///< a progress bar is drawn only there
};

/// Exit codes of every command.
enum class Exit : int { Done = 0, Failed = 1, Usage = 2 };

/// Arguments that are wrong in a way that the declarations in `Command::Arguments` cannot tell: `Run`
/// reports it like any other wrong usage and answers with 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One command. An object serves for one call: `Arguments` binds its members, `Execute` uses them.
class Command {
public:
    virtual ~Command() = default;

    virtual std::string_view Name() const = 0;         ///< as typed: "calculate"
    virtual std::string_view Description() const = 0;  ///< one sentence for the help
    virtual std::string_view Example() const = 0;      ///< lines shown at the end of the help

    /// Declares arguments and options on the command's own parser, with `app.add_option("--scope", …)` and
    /// so on. `--help` and `--lang` are there already.
    virtual void Arguments(CLI::App& app) = 0;

    /// Does the work. A thrown `Error` (or any other exception) is reported on `streams.Err` and ends with
    /// `Exit::Failed`, a `UsageError` with `Exit::Usage`.
    virtual Exit Execute(Streams& streams) = 0;

    /// Language base for results, 10000 German or 20000 English, from `--lang`.
    std::int16_t SprachID() const noexcept { return sprachID_; }
    void SprachID(std::int16_t base) noexcept { sprachID_ = base; }

private:
    std::int16_t sprachID_ = 10000;
};

/// Runs one call of the program: `arguments` as typed behind the program's name, in UTF-8. The result is
/// the exit code: 0 done, 1 the work failed, 2 wrong usage.
int Run(const std::vector<std::string>& arguments, Streams streams);
int Run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err);
/// The same with other commands than the program's own.
int Run(const std::vector<std::string>& arguments, Streams streams,
        std::vector<std::unique_ptr<Command>> commands);

/// A command as its help tells it.
struct CommandDescription {
    std::string Name;
    std::vector<std::string> Options;      ///< with their dashes: "--scope", "--lang", "--help"
    std::vector<std::string> Positionals;  ///< names of the arguments: "PROJECT"
};

/// All commands with their arguments, in the order of the help.
std::vector<CommandDescription> Descriptions();

}  // namespace FX_Algen::cli
