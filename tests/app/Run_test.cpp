#include <gmock/gmock.h>

#include <CLI/CLI.hpp>
#include <sstream>

#include "FX_Algen/Error.h"
#include "app/CommandCall.h"
#include "fxalgen/Progress.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;

namespace {

/// A command that answers, fails or complains as its argument says.
class Probe : public Command {
public:
    std::string_view Name() const override { return "probe"; }
    std::string_view Description() const override { return "Does what its argument says."; }
    std::string_view Example() const override { return "  fxalgen probe answer"; }
    void Arguments(CLI::App& app) override {
        app.add_option("WHAT", what_, "What to do")->required();
        app.add_option("--number", number_, "A number");
    }
    Exit Execute(Streams& streams) override {
        if (what_ == "fail") throw Error(ErrorNumber::InvalidUseOfNull, "awaTeilraum.DG_Gesamt is Null");
        if (what_ == "complain") throw UsageError("that goes together with nothing");
        if (what_ == "exit1") return Exit::Failed;
        streams.Out << what_ << ' ' << number_ << ' ' << SprachID() << '\n';
        return Exit::Done;
    }

private:
    std::string what_;
    int number_ = 0;
};

Outcome RunProbe(const std::vector<std::string>& arguments) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<Probe>());
    const int code = Run(arguments, Streams{in, out, err}, std::move(commands));
    return {code, out.str(), err.str()};
}

TEST(Run, CallsTheNamedCommandWithItsArguments) {
    const Outcome outcome = RunProbe({"probe", "Grünalge", "--number", "7"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "Grünalge 7 10000\n");
    EXPECT_EQ(outcome.Err, "");
}

TEST(Run, TakesTheLanguageOfResults) {
    EXPECT_EQ(RunProbe({"probe", "x", "--lang", "en"}).Out, "x 0 20000\n");
    EXPECT_EQ(RunProbe({"probe", "--lang", "de", "x"}).Out, "x 0 10000\n");
    EXPECT_EQ(RunProbe({"probe", "x", "--lang", "fr"}).Code, 2);
}

TEST(Run, HelpGoesToStandardOutputAndShowsTheExample) {
    const Outcome program = RunProbe({"--help"});
    EXPECT_EQ(program.Code, 0);
    EXPECT_THAT(program.Out, HasSubstr("probe"));
    EXPECT_THAT(program.Out, HasSubstr("Exit codes"));
    const Outcome command = RunProbe({"probe", "--help"});
    EXPECT_EQ(command.Code, 0);
    EXPECT_THAT(command.Out, HasSubstr("fxalgen probe answer"));
    EXPECT_THAT(command.Out, HasSubstr("--lang"));
    EXPECT_THAT(command.Out, HasSubstr("fxalgen probe"));
    EXPECT_EQ(command.Err, "");
}

TEST(Run, PrintsTheVersion) {
    const Outcome outcome = RunProbe({"--version"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Out, testing::MatchesRegex("fxalgen [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Run, AnswersWrongUsageWithTwoAndOneMessage) {
    struct Case {
        std::vector<std::string> Arguments;
        std::string Message;
    };
    const Case cases[] = {
        {{}, "fxalgen: "},
        {{"nonsense"}, "there is no command 'nonsense'"},
        {{"probe"}, "WHAT"},
        {{"probe", "x", "--unknown"}, "--unknown"},
        {{"probe", "x", "--number", "many"}, "many"},
        {{"probe", "complain"}, "that goes together with nothing"},
        {{"--nonsense"}, "fxalgen: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Arguments));
        const Outcome outcome = RunProbe(c.Arguments);
        EXPECT_EQ(outcome.Code, 2);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_THAT(outcome.Err, HasSubstr(c.Message));
        EXPECT_THAT(outcome.Err, HasSubstr("--help"));
    }
}

TEST(Run, ReportsFailedWorkWithItsNumberAndOne) {
    const Outcome outcome = RunProbe({"probe", "fail"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "fxalgen probe: awaTeilraum.DG_Gesamt is Null (94)\n");
    EXPECT_EQ(RunProbe({"probe", "exit1"}).Code, 1);
}

TEST(Run, RefusesArgumentsThatAreNotUtf8) {
    // 0xFC is ü in an old 8-bit code and starts nothing in UTF-8.
    const Outcome outcome = RunProbe({"probe", "Gr\xFCnalge"});
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_THAT(outcome.Err, HasSubstr("argument 2 is not UTF-8 (byte 3)"));
}

TEST(Run, FailsWhereResultsCannotBeWritten) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<Probe>());
    EXPECT_EQ(cli::Run({"probe", "x"}, Streams{in, out, err}, std::move(commands)), 1);
    EXPECT_THAT(err.str(), HasSubstr("could not be written"));
}

TEST(Progress, DrawsOnATerminalOnlyAndWipesItsLine) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    Streams pipe{in, out, err};
    { Progress(pipe, "Läuft", 4).Show(2); }
    EXPECT_EQ(err.str(), "");

    Streams terminal{in, out, err, true};
    { Progress(terminal, "Läuft", 4).Show(2); }
    // 2 of 4 = 50 %: 15 of 30 marks; "Läuft" is 5 columns, the rest of the line 38.
    const std::string line = "\rLäuft [" + std::string(15, '#') + std::string(15, ' ') + "] 50 %";
    EXPECT_EQ(err.str(), line + "\r" + std::string(43, ' ') + "\r");
}

}  // namespace
