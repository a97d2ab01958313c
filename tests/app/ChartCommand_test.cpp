#include "app/ChartFixture.h"

// What the command takes, where it writes, and what it does when it cannot.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Chart : public ChartFixture {};

/// The command with the writer of the build.
class ChartPicture : public ChartFixture {
protected:
    void SetUp() override {
        ChartFixture::SetUp();
        if (!BuiltInPictures()) GTEST_SKIP() << "this build draws no pictures";
        ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    }
};

TEST_F(Chart, RefusesWrongOptionsAndTellsWhatIsAllowed) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    struct Case {
        std::vector<std::string> Arguments;
        std::string Told;
    };
    const std::string svg = Path("Bild.svg");
    const Case cases[] = {
        {{"taxa", "-o", svg}, "valences,quality-classes,dominance"},
        {{"valences"}, "-o is required"},
        {{"valences", "-o", svg, "--diatoms"}, "--diatoms goes with dominance alone, not with valences"},
        {{"quality-classes", "-o", svg, "--diatoms"}, "--diatoms goes with dominance alone"},
        {{"valences", "-o", svg, "--min", "1"}, "--min goes with dominance alone"},
        {{"valences", "-o", svg, "--grouped"}, "--grouped goes with quality-classes alone"},
        {{"dominance", "-o", svg, "--grouped"}, "--grouped goes with quality-classes alone"},
        {{"dominance", "-o", svg, "--labels", "display"},
         "--labels goes with valences and quality-classes alone"},
        {{"valences", "-o", svg, "--labels", "lang"}, "station,display"},
        {{"valences", "-o", svg, "--lang", "fr"}, "--lang"},
        {{"valences", "-o", svg, "--scope", "Fluss:1"}, "Projekt:<ID_PRJ>"},
        {{"valences", "-o", Path("Bild.bmp")}, "must end in .svg, .png or .pdf"},
        {{"valences", "-o", Path("Bild")}, "must end in .svg, .png or .pdf"},
        {{"valences", "-o", Path(".svg")}, "must end in .svg, .png or .pdf"},
        {{"dominance", "-o", svg, "--min", ""}, "--min"},
        {{"dominance", "-o", svg, "--min", "viel"}, "--min 'viel' is no percentage"},
        {{"dominance", "-o", svg, "--min", "1.5.2"}, "such as 1.5 or 1,5"},
        {{"dominance", "-o", svg, "--min", "1,5 %"}, "such as 1.5 or 1,5"},
        {{"dominance", "-o", svg, "--min", "1e1"}, "such as 1.5 or 1,5"},
        {{"dominance", "-o", svg, "--min", "nan"}, "such as 1.5 or 1,5"},
        {{"dominance", "-o", svg, "--min=-1"}, "from 0 to below 100"},
        {{"dominance", "-o", svg, "--min=-0"}, "from 0 to below 100"},
        {{"dominance", "-o", svg, "--min", "100"}, "from 0 to below 100"},
        {{"dominance", "-o", svg, "--min", "99.99999999"}, "from 0 to below 100"},  // 100 as a 32-bit float
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments{"chart", path_};
        arguments.insert(arguments.end(), c.Arguments.begin(), c.Arguments.end());
        SCOPED_TRACE(testing::PrintToString(c.Arguments));
        const cli::Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Code, 2);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_THAT(outcome.Err, HasSubstr(c.Told));
        EXPECT_THAT(outcome.Err, HasSubstr("'fxalgen chart --help'"));
    }
    EXPECT_FALSE(std::filesystem::exists(svg));
}

TEST_F(Chart, TakesEndingsWithoutRegardToCase) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    for (const char* name : {"Bäche.SVG", "Bäche.Png", "Bäche.pdf"}) {
        std::string given;
        const auto outcome = CallWith({"chart", path_, "quality-classes", "-o", Path(name)},
                                      [&](const std::vector<charts::Chart>&, const std::string& path) {
                                          given = path;
                                          return std::vector<std::string>{path};
                                      });
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        EXPECT_EQ(given, Path(name));
    }
}

TEST_F(Chart, PrintsEachPathThatWasWritten) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const auto outcome =
        CallWith({"chart", path_, "quality-classes", "-o", Path("Bäche.svg"), "--scope", "Projekt:2"},
                 [](const std::vector<charts::Chart>&, const std::string&) {
                     return std::vector<std::string>{"Bäche.svg", "Bäche-2.svg"};
                 });
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "Bäche.svg\nBäche-2.svg\n");
    EXPECT_EQ(outcome.Err, "");
}

TEST_F(Chart, ShowsAProgressBarOnATerminalAndWipesItBeforeMessages) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const auto keep = [](const std::vector<charts::Chart>&, const std::string& path) {
        return std::vector<std::string>{path};
    };
    for (const std::string name : {"quality-classes", "dominance"}) {
        SCOPED_TRACE(name);
        const std::vector<std::string> arguments{"chart", path_, name, "-o", Path("Bild.svg")};
        // Two of four sub-habitats are done.
        EXPECT_THAT(CallWith(arguments, keep, true).Err,
                    HasSubstr("\rDiagramm wird erstellt [###############               ] 50 %"));
        EXPECT_THAT(CallWith(arguments, keep, true).Err, HasSubstr(" \rfxalgen chart: warning: "));
        EXPECT_THAT(CallWith(arguments, keep).Err, testing::Not(HasSubstr("Diagramm")));
    }
}

TEST_F(Chart, WarnsOfAPageThatAFormerPictureLeft) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    std::ofstream(Path("Bild-2.svg")) << "from before";
    const auto outcome = Draw("quality-classes");
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_THAT(outcome.Err, HasSubstr("warning: " + Path("Bild-2.svg") +
                                       " was there before and is no page of this chart"));
    EXPECT_EQ(FileText(Path("Bild-2.svg")), "from before");
}

TEST_F(Chart, FailsInABuildWithoutPicturesAndSaysSo) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    const auto outcome = CallWith({"chart", path_, "quality-classes", "-o", Path("Bild.svg")}, {});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_THAT(outcome.Err, StartsWith("fxalgen chart: this build draws no pictures: "));
    // Wrong usage is told all the same.
    EXPECT_EQ(CallWith({"chart", path_, "quality-classes", "-o", Path("Bild.gif")}, {}).Code, 2);
}

TEST_F(Chart, NeverTakesTheDatabaseForAPicture) {
    const std::string named = Path("Gewässer.svg");
    std::filesystem::copy_file(path_, named);
    bool drawn = false;
    const auto outcome = CallWith({"chart", named, "valences", "-o", Path("./Gewässer.svg")},
                                  [&](const std::vector<charts::Chart>&, const std::string&) {
                                      drawn = true;
                                      return std::vector<std::string>{};
                                  });
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_THAT(outcome.Err, HasSubstr("-o names the project database itself"));
    EXPECT_FALSE(drawn);
}

TEST_F(Chart, TellsWhatIsNotThere) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    EXPECT_THAT(Draw("valences", {"--scope", "Projekt:9"}).Err, HasSubstr("there is no Projekt:9"));
    EXPECT_THAT(CallWith({"chart", Path("fehlt.db"), "valences", "-o", Path("Bild.svg")},
                         [](const auto&, const auto& path) { return std::vector<std::string>{path}; })
                    .Err,
                HasSubstr("(53)"));
}

TEST_F(ChartPicture, DrawsWithTheToolkitIntoEachFormat) {
    struct Format {
        const char* Ending;
        std::string First;  ///< bytes of a file of the format
    };
    for (const Format& format :
         {Format{".svg", "<?xml"}, Format{".png", "\x89PNG"}, Format{".pdf", "%PDF-"}}) {
        SCOPED_TRACE(format.Ending);
        const std::string picture = Path("Gütestufen" + std::string(format.Ending));
        std::ofstream(picture) << "from before";
        const auto outcome = Call({"chart", path_, "quality-classes", "-o", picture});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        EXPECT_EQ(outcome.Out, picture + "\n");
        EXPECT_EQ(FileText(picture).substr(0, format.First.size()), format.First);
    }
}

TEST_F(ChartPicture, HasItsTextsInBothLanguages) {
    const std::string picture = Path("Bild.svg");
    // Whether a file holds a text: the file itself is too long for the message of a failure.
    const auto has = [](const std::string& path, const std::string& text) {
        return FileText(path).find(text) != std::string::npos;
    };
    ASSERT_EQ(Call({"chart", path_, "quality-classes", "-o", picture}).Code, 0);
    EXPECT_TRUE(has(picture, "Taxazahl je Gütestufen"));
    EXPECT_TRUE(has(picture, "Brücke"));
    ASSERT_EQ(Call({"chart", path_, "quality-classes", "-o", picture, "--lang", "en"}).Code, 0);
    EXPECT_TRUE(has(picture, "Number of taxa per quality class"));
    EXPECT_FALSE(has(picture, "Taxazahl"));
    // Two sub-habitats have other algae than diatoms, each on a page of its own.
    const auto dominance = Call({"chart", path_, "dominance", "-o", picture});
    EXPECT_EQ(dominance.Code, 0) << dominance.Err;
    EXPECT_EQ(dominance.Out, picture + "\n" + Path("Bild-2.svg") + "\n");
    EXPECT_TRUE(has(picture, "Relative Häufigkeiten Nicht-Kieselalgen"));
    EXPECT_TRUE(has(picture, "Cladophora glomerata"));
    EXPECT_FALSE(has(picture, "Spirogyra"));
    EXPECT_TRUE(has(Path("Bild-2.svg"), "Spirogyra weiß"));
}

TEST_F(ChartPicture, FailsWhereTheFolderIsMissing) {
    const auto outcome = Call({"chart", path_, "quality-classes", "-o", Path("fehlt/Bild.svg")});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_THAT(outcome.Err, HasSubstr("(53)"));
    EXPECT_FALSE(std::filesystem::exists(Path("fehlt")));
}

}  // namespace
