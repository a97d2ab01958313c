#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>

#include "app/CommandCall.h"
#include "fxalgen/chart/Charts.h"

// The ways that the users' pages describe, in-process and with the program itself.

using namespace FX_Algen::cli;
using testing::HasSubstr;

namespace {

class FirstSteps : public FolderFixture {
protected:
    /// Starts the program with its streams in files of the test's folder.
    Outcome Start(const std::string& arguments) const {
        const std::string command = std::string("'") + FX_ALGEN_PROGRAM + "' " + arguments + " >'" +
                                    Path("out") + "' 2>'" + Path("err") + "' </dev/null";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read(Path("out")), Read(Path("err"))};
    }

    static std::string Read(const std::string& path) {
        std::ifstream file(path);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

TEST_F(FirstSteps, TheTemplateTablesGiveTheNumbersOfTheirPage) {
    const std::string database = Path("eigene.db");
    ASSERT_EQ(Call({"create", database}).Code, 0);
    const Outcome load = Call({"load", FX_SOURCE_DIR "/docs/users/vorlage", "--into", database});
    ASSERT_EQ(load.Code, 0) << load.Err;
    ASSERT_EQ(Call({"calculate", database}).Code, 0);
    const auto row = nlohmann::json::parse(Call({"results", database, "--format", "json"}).Out).at(0);

    // Total cover 30: macroalga A (cover 20) share 66.667, stand (cover 10) share 33.333 all of taxon B;
    // valves C 300 and D 100 of 400. SI: A 66.667 * 1 = 66.667 (* 2.0), B 33.333 * 2 = 66.667 (* 1.4), C 75 *
    // 3 = 225 (* 1.8), D 25 * 1 (* 2.6): (133.333 + 93.333 + 405 + 65) / 383.333 = 696.667 / 383.333
    // = 1.817391; diatoms 470 / 250 = 1.88.
    EXPECT_NEAR(row["SapIndex"].get<double>(), 1.817391, 1e-5);
    EXPECT_NEAR(row["SapIndex_KA"].get<double>(), 1.88, 1e-5);
    // TI: A 66.667 * 2 = 133.333 (* 2.4), B 33.333 (* 1.5), C 225 (* 2.0), D 25 (* 3.0):
    // (320 + 50 + 450 + 75) / 416.667 = 895 / 416.667 = 2.148; diatoms 525 / 250 = 2.1.
    EXPECT_NEAR(row["TI"].get<double>(), 2.148, 1e-5);
    EXPECT_NEAR(row["TI_KA"].get<double>(), 2.1, 1e-5);
    EXPECT_EQ(row["TI_N"], 0.0);
    // 5 mm on 20 percent and 1 mm on 10 percent.
    EXPECT_NEAR(row["AMI"].get<double>(), 1.1, 1e-9);

    const std::string table = Call({"results", database}).Out;
    EXPECT_THAT(table, HasSubstr("1,82   1,88  2,15     -   2,10     1,100"));
    for (const char* page : {"erste-schritte.md", "first-steps.md"}) {
        const std::string text = Read(std::string(FX_SOURCE_DIR "/docs/users/") + page);
        const bool german = std::string(page) == "erste-schritte.md";
        EXPECT_THAT(text,
                    HasSubstr(german ? "SI 1,82, SI KA 1,88, TI 2,15, TI KA 2,10 und AMI 1,100"
                                     : "SI 1.82, SI of the diatoms 1.88, TI 2.15, TI of the diatoms 2.10 and "
                                       "AMI 1.100"));
    }
}

TEST_F(FirstSteps, ThePagesDescribeEveryTemplateTableAndColumn) {
    for (const char* page : {"erste-schritte.md", "first-steps.md"}) {
        const std::string text = Read(std::string(FX_SOURCE_DIR "/docs/users/") + page);
        for (const auto& file : std::filesystem::directory_iterator(FX_SOURCE_DIR "/docs/users/vorlage")) {
            SCOPED_TRACE(file.path().filename().string() + " in " + page);
            const std::size_t row = text.find("| `" + file.path().filename().string() + "` |");
            ASSERT_NE(row, std::string::npos);
            const std::string line = text.substr(row, text.find('\n', row) - row);
            std::istringstream header(Read(file.path().string()));
            std::string columns;
            std::getline(header, columns);
            std::istringstream names(columns);
            for (std::string name; std::getline(names, name, ',');) {
                EXPECT_THAT(line, HasSubstr("`" + name + "`"));
            }
        }
    }
}

TEST_F(FirstSteps, TheProgramCalculatesAndExplainsTheDemoRivers) {
    const std::string database = "'" + Path("Flüsse.db") + "'";
    EXPECT_EQ(Start("create " + database + " --demo").Code, 0);
    const Outcome calculate = Start("calculate " + database + " --lang en");
    EXPECT_EQ(calculate.Code, 0);
    EXPECT_THAT(calculate.Out, HasSubstr("Sub-habitats calculated: "));
    EXPECT_EQ(calculate.Err, "");  // no progress bar in a file
    const Outcome results = Start("results " + database + " --format json");
    EXPECT_EQ(results.Code, 0);
    const auto rows = nlohmann::json::parse(results.Out);
    EXPECT_GE(rows.size(), 12u);
    for (const auto& row : rows) EXPECT_EQ(row["Status"], "current");
    const std::string first = std::to_string(rows.at(0).at("ID").get<int>());
    EXPECT_THAT(Start("explain " + database + " Teilraum:" + first).Out, HasSubstr("SapIndex = "));
    // Afterwards the assessment, for which the example reference tables hold everything.
    EXPECT_EQ(Start("assess " + database + " --check").Code, 0);
    const Outcome assess = Start("assess " + database + " --lang en");
    EXPECT_EQ(assess.Code, 0);
    EXPECT_THAT(assess.Out, HasSubstr("Sub-habitats assessed: "));
    EXPECT_EQ(assess.Err, "");
    const auto classes = nlohmann::json::parse(Start("results " + database + " --wrrl --format json").Out);
    EXPECT_GE(classes.size(), 18u);
    for (const auto& row : classes) {
        EXPECT_EQ(row["Status"], "current");
        EXPECT_THAT(row["OEZK_Klasse"].get<std::string>(), HasSubstr("(Beispiel)"));
    }
}

TEST_F(FirstSteps, TheProgramDrawsTheDemoRivers) {
    if (!BuiltInPictures()) GTEST_SKIP() << "this build draws no pictures";
    const std::string database = "'" + Path("Flüsse.db") + "'";
    ASSERT_EQ(Start("create " + database + " --demo").Code, 0);
    ASSERT_EQ(Start("calculate " + database).Code, 0);
    struct Drawing {
        std::string Arguments;
        std::string Picture;
        std::string Begin;  ///< of the file
    };
    for (const Drawing& drawing :
         {Drawing{"quality-classes", Path("Gütestufen.svg"), "<?xml"},
          Drawing{"dominance --scope Projekt:1 --min 1", Path("Dominanz.pdf"), "%PDF-"},
          Drawing{"dominance --scope Teilraum:3 --diatoms --lang en", Path("Kieselalgen.png"), "\x89PNG"}}) {
        SCOPED_TRACE(drawing.Arguments);
        const Outcome chart =
            Start("chart " + database + " " + drawing.Arguments + " -o '" + drawing.Picture + "'");
        EXPECT_EQ(chart.Code, 0) << chart.Err;
        EXPECT_THAT(chart.Out, testing::StartsWith(drawing.Picture + "\n"));
        EXPECT_EQ(Read(drawing.Picture).substr(0, drawing.Begin.size()), drawing.Begin);
    }
}

TEST_F(FirstSteps, TheProgramCalculatesAndExplainsTheSestonOfTheDemo) {
    const std::string database = "'" + Path("Flüsse.db") + "'";
    ASSERT_EQ(Start("create " + database + " --demo").Code, 0);
    const Outcome calculate = Start("calculate " + database + " --seston");
    EXPECT_EQ(calculate.Code, 0);
    EXPECT_EQ(calculate.Out, "Teilräume berechnet: 12\nOhne Seston, Zeile mit Nullen: 18\n");
    EXPECT_EQ(calculate.Err, "");
    const auto rows = nlohmann::json::parse(Start("results " + database + " --seston --format json").Out);
    EXPECT_EQ(rows.size(), 30u);
    for (const auto& row : rows) EXPECT_EQ(row["Status"], "current");
    const Outcome explain = Start("explain " + database + " Teilraum:27");
    EXPECT_EQ(explain.Code, 0);
    EXPECT_THAT(explain.Out, HasSubstr("\nSeston\n"));
    EXPECT_THAT(explain.Out, HasSubstr("Gespeichertes Ergebnis: aktuell\n"));
}

TEST_F(FirstSteps, TheProgramSeparatesResultsMessagesAndExitCodes) {
    const Outcome version = Start("--version");
    EXPECT_EQ(version.Code, 0);
    EXPECT_THAT(version.Out, testing::StartsWith("fxalgen "));
    const Outcome failed = Start("calculate '" + Path("fehlt.db") + "'");
    EXPECT_EQ(failed.Code, 1);
    EXPECT_EQ(failed.Out, "");
    EXPECT_THAT(failed.Err, HasSubstr("(53)"));
    const Outcome usage = Start("results");
    EXPECT_EQ(usage.Code, 2);
    EXPECT_EQ(usage.Out, "");
    EXPECT_THAT(usage.Err, HasSubstr("--help"));
    EXPECT_EQ(Start("").Code, 2);
    EXPECT_EQ(Start("calculate \"$(printf 'Gr\\374n.db')\"").Code, 2);
}

}  // namespace
