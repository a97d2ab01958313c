#include <functional>
#include <streambuf>

#include "FX_Algen/Assessment.h"
#include "app/ChartFixture.h"
#include "fxalgen/chart/ChartList.h"

// The frequency list behind the dominance charts: how often it is made and of which scope, why it cannot be,
// and what it does not hold.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class DominanceList : public ChartFixture {
protected:
    /// Sub-habitats of a station of their own in project 1, each with a sampling site.
    void AddSubHabitats(std::int32_t first, std::int32_t last) {
        store::Savepoint together(database_->SharedConnection());
        for (std::int32_t id = first; id <= last; ++id) {
            const std::string tr = store::NumberText(id);
            database_->Execute("INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (" + tr + ", 3, 'Öd');");
            database_->Execute("INSERT INTO awaTeilraum (ID_TR) VALUES (" + tr + ");");
            database_->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (" + tr + ", " + tr + ");");
        }
        together.Keep();
    }
};

/// A terminal that calls back at each step of a progress bar.
class Terminal : public std::streambuf {
public:
    explicit Terminal(std::function<void(int)> step) : step_(std::move(step)) {}

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    int sync() override {
        step_(++steps_);
        return 0;
    }

private:
    std::function<void(int)> step_;
    int steps_ = 0;
};

TEST_F(DominanceList, IsMadeOnceForTheSubHabitatsOfAProject) {
    // The sub-habitats are 11, 12 (without sample) and 13. What is written into the list before the third
    // step is gone where the list is made anew for 13, whose one diatom has 100 percent.
    Terminal terminal([this](int step) {
        if (step == 3) Execute({"UPDATE awaArtenlisteHaeufigkeit SET A13=7 WHERE ID_Art=11;"});
    });
    std::istringstream in;
    std::ostringstream out;
    std::ostream err(&terminal);
    std::vector<charts::Chart> drawn;
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(MakeChartCommand([&](const std::vector<charts::Chart>& all, const std::string&) {
        drawn = all;
        return std::vector<std::string>{};
    }));
    EXPECT_EQ(
        cli::Run({"chart", path_, "dominance", "--diatoms", "--scope", "Projekt:1", "-o", Path("a.svg")},
                 Streams{in, out, err, true}, std::move(commands)),
        0);
    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_THAT(Bars(drawn.front()),
                ElementsAre("Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"));
    EXPECT_THAT(Bars(drawn.back()), ElementsAre("Achnanthidium minutissimum: 7"));
}

TEST_F(DominanceList, IsThatOfTheStationWhereTheProjectHasMoreSubHabitatsThanColumnsFit) {
    Execute({
        "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (3, 1, 'Insel', 2);",
        "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (3, 3);",
    });
    AddSubHabitats(1001, 2993);  // with 11 and 13 they are 1,995: as many as the list takes
    const std::vector<std::string> bars = {"Achnanthidium minutissimum: 60", "Navicula lanceolata: 40"};
    EXPECT_EQ(Draw("dominance", {"--diatoms", "--scope", "Teilraum:11"}).Code, 0);
    EXPECT_EQ(Bars(TheChart()), bars);
    EXPECT_TRUE(HasFrequencyColumn(database_, 2993));
    AddSubHabitats(2994, 2994);
    const auto outcome = Draw("dominance", {"--diatoms", "--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(Bars(TheChart()), bars);
    EXPECT_TRUE(HasFrequencyColumn(database_, 13)) << "the list is that of the station";
    EXPECT_FALSE(HasFrequencyColumn(database_, 2994));
}

TEST_F(DominanceList, NamesTheFirstNumberThatWasNotEntered) {
    const std::string at11 =
        "Projekt:1 ends at Teilraum 11 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Strom): ";
    const std::string at13 =
        "Projekt:1 ends at Teilraum 13 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Blöcke): ";
    struct Case {
        const char* What;
        std::vector<std::string> Statements;
        std::string Told;
    };
    const Case cases[] = {
        {"total cover",
         {"UPDATE awaTeilraum SET DG_Gesamt=Null WHERE ID_TR=13;"},
         at13 + "a cover was not entered (awaTeilraum.DG_Gesamt is Null)\n"},
        {"two covers: the list goes by the number, whatever the order of the tree",
         {"UPDATE awaTeilraum SET DG_MA=Null WHERE ID_TR=11 OR ID_TR=13;",
          "UPDATE Teilraum SET RF=0 WHERE ID_TR=13;"},
         at11 + "a cover was not entered (awaTeilraum.DG_MA is Null)\n"},
        {"valves of a diatom without ratings",
         {"DELETE FROM awaModulStandard WHERE ID_ART=12;",
          "UPDATE awaArtPrStelle SET Schalen_KA=Null WHERE ID_ART=12;"},
         at11 + "the valves of Navicula lanceolata were not entered (awaArtPrStelle.Schalen_KA is Null)"},
        {"valves of the only diatom, after a sub-habitat where some were counted",
         {"UPDATE awaArtPrStelle SET Schalen_KA=Null WHERE ID_PS=3;"},
         at13 + "the valves of Achnanthidium minutissimum were not entered"},
        {"cover of a stand",
         {"INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI) VALUES (1, 11, 'Belag grün', Null);"},
         at11 + "the cover of the mixed stand 'Belag grün' was not entered (awaTeilraum_MI.DG_MI is Null)\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        const store::Savepoint undone(database_->SharedConnection());
        for (const std::string& statement : c.Statements) database_->Execute(statement);
        const auto outcome = Draw("dominance", {"--scope", "Projekt:1"});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_THAT(outcome.Err, HasSubstr("the frequency list of " + c.Told));
    }
}

TEST_F(DominanceList, TellsThatNoSubHabitatHasASamplingSite) {
    Execute({"DELETE FROM awaPrStelle WHERE ID_TR=21;"});
    const auto outcome = Draw("dominance", {"--scope", "Projekt:2"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Err,
                HasSubstr("the frequency list of Projekt:2 is empty: no sub-habitat of it has an "
                          "algae sample (awaTeilraum) with a sampling site (awaPrStelle)\n"));
}

TEST_F(DominanceList, LaysAListWithoutAGapToTheDatabase) {
    EXPECT_EQ(
        WhyNoList(*database_, {Scope::Kind::UStelle, 1}),
        "the frequency list of UStelle:1 could not be made, and nothing that it needs is missing: another "
        "program may be writing to the database, or its file cannot be written");
}

TEST_F(DominanceList, TellsWhyFindingsHaveNoAbundance) {
    Execute({
        "UPDATE awaTeilraum SET DG_Gesamt=0 WHERE ID_TR=21;",
        "UPDATE awaArtPrStelle SET Schalen_KA=0 WHERE ID_PS=3;",
    });
    const std::string none = "above 0 %, and so no chart";
    EXPECT_THAT(Draw("dominance", {"--scope", "Teilraum:21"}).Err,
                HasSubstr(none + ": algae were found and the total cover is 0 (awaTeilraum.DG_Gesamt)\n"));
    EXPECT_THAT(
        Draw("dominance", {"--diatoms", "--scope", "Teilraum:13"}).Err,
        HasSubstr(none + ": diatoms were found and no valves were counted (awaArtPrStelle.Schalen_KA)\n"));
    // Where nothing of the group was found there is nothing to tell.
    EXPECT_THAT(Draw("dominance", {"--scope", "Teilraum:13"}).Err, HasSubstr(none + "\n"));
    EXPECT_THAT(Draw("dominance", {"--diatoms", "--scope", "Teilraum:21"}).Err, HasSubstr(none + "\n"));
}

TEST_F(DominanceList, NamesMossesWhoseCoverItDoesNotCount) {
    Execute({
        "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (3, 'Moose', 132);",
        "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (3, 3);",
        "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (6, 3, 'Fontinalis', 'größte');",
        "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (1, 6, 0, 10);",
    });
    const auto outcome = Draw("dominance", {"--scope", "Teilraum:11"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(TheChart().Sites.size(), 4U);
    EXPECT_THAT(outcome.Err, HasSubstr("and so they are not shown:\n    Fontinalis größte\n"));
    const auto diatoms = Draw("dominance", {"--diatoms", "--scope", "Teilraum:11"});
    EXPECT_EQ(diatoms.Err, "");
    EXPECT_EQ(TheChart().Sites.size(), 2U);
}

}  // namespace
