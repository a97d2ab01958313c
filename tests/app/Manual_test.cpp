#include <algorithm>
#include <fstream>
#include <sstream>

#include "app/CommandCall.h"

using namespace FX_Algen::cli;
using testing::HasSubstr;

namespace {

/// The page as plain text: without font changes, and with the dashes that it escapes.
std::string ManualPage() {
    std::ifstream file(FX_SOURCE_DIR "/man/fxalgen.1");
    EXPECT_TRUE(file) << "the manual page is missing";
    std::ostringstream text;
    for (std::string line; std::getline(file, line);) {
        line.erase(std::remove(line.begin(), line.end(), '\\'), line.end());
        text << line << '\n';
    }
    return text.str();
}

/// What the page tells below the heading of a command.
std::string Section(const std::string& page, const std::string& command) {
    const std::string heading = "\n.SS " + command + "\n";
    const std::size_t from = page.find(heading);
    if (from == std::string::npos) return {};
    const std::size_t to = page.find("\n.S", from + heading.size());
    return page.substr(from, to - from);
}

std::string HelpOf(const std::vector<std::string>& arguments) {
    const Outcome outcome = Call(arguments);
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    return outcome.Out;
}

TEST(Manual, TellsEveryCommandWithEveryOption) {
    const std::string page = ManualPage();
    for (const CommandDescription& command : Descriptions()) {
        SCOPED_TRACE(command.Name);
        const std::string section = Section(page, command.Name);
        EXPECT_FALSE(section.empty());
        for (const std::string& option : command.Options) {
            const bool everywhere = option == "--help" || option == "--lang";
            EXPECT_THAT(everywhere ? page : section, HasSubstr(option));
        }
    }
}

TEST(Manual, HelpTellsEveryCommandWithEveryOptionAndAnExample) {
    const std::string program = HelpOf({"--help"});
    for (const CommandDescription& command : Descriptions()) {
        SCOPED_TRACE(command.Name);
        EXPECT_THAT(program, HasSubstr("\n  " + command.Name));
        const std::string help = HelpOf({command.Name, "--help"});
        for (const std::string& option : command.Options) EXPECT_THAT(help, HasSubstr(option));
        for (const std::string& argument : command.Positionals) EXPECT_THAT(help, HasSubstr(argument));
        ASSERT_THAT(help, HasSubstr("Example:\n"));
        EXPECT_THAT(help.substr(help.find("Example:\n")), HasSubstr("fxalgen " + command.Name));
    }
}

TEST(Manual, TellsNoCommandThatIsNotThere) {
    const std::string page = ManualPage();
    std::vector<std::string> known;
    for (const CommandDescription& command : Descriptions()) known.push_back(command.Name);
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(".SS ")) {
            EXPECT_THAT(known, testing::Contains(line.substr(4)));
        }
    }
}

}  // namespace
