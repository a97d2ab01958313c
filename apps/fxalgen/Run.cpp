#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <ostream>

#include "FX_Algen/Error.h"
#include "fxalgen/Commands.h"
#include "fxalgen/Utf8.h"

namespace FX_Algen::cli {

namespace {

constexpr std::string_view Program = "fxalgen";

/// The parser of a whole call together with the commands whose members it fills.
struct Parser {
    CLI::App App{"Calculates and explains indices of running waters from their algae.", std::string(Program)};
    std::vector<std::unique_ptr<Command>> Commands;
    std::map<const CLI::App*, Command*> Parsed;
    std::string Language = "de";

    explicit Parser(std::vector<std::unique_ptr<Command>> commands) : Commands(std::move(commands)) {
        App.set_version_flag("--version", std::string(Program) + " " + FX_ALGEN_VERSION, "Print the version");
        App.set_help_flag("--help", "Print this help");
        App.footer(
            "'fxalgen COMMAND --help' tells more about a command.\n"
            "Exit codes: 0 done, 1 the work failed, 2 wrong usage.");
        for (const auto& command : Commands) Declare(*command);
        App.require_subcommand(1);
    }

    void Declare(Command& command) {
        CLI::App* sub = App.add_subcommand(std::string(command.Name()), std::string(command.Description()));
        sub->set_help_flag("--help", "Print this help");
        command.Arguments(*sub);
        sub->add_option("--lang", Language, "Language of results: de or en (default de)")
            ->check(CLI::IsMember({"de", "en"}));
        sub->footer("Example:\n" + std::string(command.Example()));
        Parsed.emplace(sub, &command);
    }

    std::int16_t SprachID() const { return Language == "en" ? 20000 : 10000; }
};

int Code(Exit exit) { return static_cast<int>(exit); }

int WrongUsage(Streams& streams, const std::string& where, const std::string& what) {
    streams.Err << where << ": " << what << "\n'" << where << " --help' tells how it is used.\n";
    return Code(Exit::Usage);
}

int Failed(Streams& streams, const std::string& where, const std::string& what) {
    streams.Err << where << ": " << what << '\n';
    return Code(Exit::Failed);
}

/// Text behind the exception's message that says where in the store the failure arose.
std::string Report(const Error& error) {
    return error.Description() + " (" + std::to_string(error.Number()) + ")";
}

int Execute(Command& command, Streams& streams) {
    const std::string where = std::string(Program) + " " + std::string(command.Name());
    try {
        const Exit exit = command.Execute(streams);
        streams.Out.flush();
        if (!streams.Out) return Failed(streams, where, "the results could not be written");
        return Code(exit);
    } catch (const UsageError& error) {
        return WrongUsage(streams, where, error.what());
    } catch (const Error& error) {
        return Failed(streams, where, Report(error));
    } catch (const std::exception& error) {
        return Failed(streams, where, error.what());
    }
}

/// The first argument that has to be a command's name, where it is none.
const std::string* UnknownCommand(const Parser& parser, const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments.front().starts_with("-")) return nullptr;
    const bool known = std::any_of(parser.Commands.begin(), parser.Commands.end(),
                                   [&](const auto& command) { return command->Name() == arguments.front(); });
    return known ? nullptr : &arguments.front();
}

/// The parser's name as typed, "fxalgen calculate" where a command was named.
std::string Where(const CLI::App& app) {
    const auto subs = app.get_subcommands();
    return std::string(Program) + (subs.empty() ? "" : " " + subs.front()->get_name());
}

const CLI::App& Asked(const CLI::App& app) {
    const auto subs = app.get_subcommands();
    return subs.empty() ? app : *subs.front();
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Streams streams,
        std::vector<std::unique_ptr<Command>> commands) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (const auto bad = FirstBadByte(arguments[i])) {
            return WrongUsage(streams, std::string(Program),
                              "argument " + std::to_string(i + 1) + " is not UTF-8 (byte " +
                                  std::to_string(*bad + 1) + ")");
        }
    }
    Parser parser(std::move(commands));
    if (const std::string* unknown = UnknownCommand(parser, arguments)) {
        return WrongUsage(streams, std::string(Program), "there is no command '" + *unknown + "'");
    }
    try {
        // The parser takes its arguments from the back.
        parser.App.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp&) {
        streams.Out << Asked(parser.App).help(Where(parser.App) == Program ? "" : std::string(Program));
        return Code(Exit::Done);
    } catch (const CLI::CallForVersion& version) {
        streams.Out << version.what() << '\n';
        return Code(Exit::Done);
    } catch (const CLI::ParseError& error) {
        return WrongUsage(streams, Where(parser.App), error.what());
    }
    Command& command = *parser.Parsed.at(parser.App.get_subcommands().front());
    command.SprachID(parser.SprachID());
    return Execute(command, streams);
}

int Run(const std::vector<std::string>& arguments, Streams streams) {
    return Run(arguments, streams, MakeCommands());
}

int Run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err) {
    return Run(arguments, Streams{in, out, err});
}

std::vector<CommandDescription> Descriptions() {
    Parser parser(MakeCommands());
    std::vector<CommandDescription> descriptions;
    for (const CLI::App* sub : parser.App.get_subcommands({})) {
        CommandDescription description{sub->get_name(), {}, {}};
        for (const CLI::Option* option : sub->get_options()) {
            auto& names = option->get_positional() ? description.Positionals : description.Options;
            names.push_back(option->get_name());
        }
        descriptions.push_back(std::move(description));
    }
    return descriptions;
}

}  // namespace FX_Algen::cli
