#include <gmock/gmock.h>

#include <tuple>

#include "DemoFixture.h"
#include "DemoSample.h"
#include "FX_Algen/Texts.h"
#include "Program.h"

// The program itself is killed while a person enters, and the database is looked at afterwards.

namespace FX_Algen::cli {
namespace {

using rpc::Json;

constexpr std::int32_t Subhabitat = 1;
constexpr int ColumnArt = 1;
constexpr int ColumnCF = 4;
constexpr int FirstStand = 10;
constexpr int Columns = 17;       // n + 15, with n = 2 stands
constexpr int ColumnValves = 12;  // 10 + n

class KilledProgram : public DemoFixture {
protected:
    void TearDown() override {
        if (!HasFailure()) {
            // Every table can still be read, to its last row.
            EXPECT_EQ(Call({"dump", path_, Path("dump")}).Code, 0);
        }
        DemoFixture::TearDown();
    }

    static std::vector<std::string> RowsOf(const store::DatabasePtr& database) {
        return AlgaeRows(database, Subhabitat);
    }

    /// The row of the list with the taxon.
    static int RowOf(const Json& taxa, const std::string& ID_ART) {
        for (int row = taxa["fixedRows"].get<int>(); row < taxa["rows"].get<int>(); ++row)
            if (taxa["cells"][static_cast<std::size_t>(row)][ColumnArt] == ID_ART) return row;
        ADD_FAILURE() << "no taxon " << ID_ART;
        return -1;
    }

    static Json Cell(int row, int col, const char* kind, const Json& value) {
        return {{"row", row}, {"col", col}, {kind, value}};
    }

    /// A request that does something to the list of taxa, as a line.
    static std::string LineOf(int id, const Json& cell) {
        Json params{{"form", "frmProbenstelle"}, {"control", "vsfgAlgenArt"}, {"action", "cell"}};
        params.update(cell);
        return Json{{"jsonrpc", "2.0"}, {"id", id}, {"method", "form.act"}, {"params", params}}.dump();
    }
};

/// The rows with the valves of taxon 30, a diatom of the sub-habitat, put to another number.
std::vector<std::string> WithValves(std::vector<std::string> rows, const std::string& valves) {
    for (auto& row : rows) {
        // ID_ART, CF, MAalsMI, DG_MA, SD_MA, Schalen_KA, DG_MP
        if (row.starts_with("30|0|0|0|0|")) row = "30|0|0|0|0|" + valves + "|0";
    }
    return rows;
}

TEST_F(KilledProgram, HasStoredARowThatWasLeft) {
    const auto before = RowsOf(Open());
    const auto wanted = WithValves(before, "4711");
    ASSERT_NE(before, wanted);
    {
        Program program;
        SampleEntry entry(program, Language::German);
        entry.OpenAlgae(path_, Subhabitat, "");
        const auto taxa = entry.Taxa();
        ASSERT_EQ(taxa["cols"], Columns);
        const int row = RowOf(taxa, "30");
        entry.Act("vsfgAlgenArt", "cell", Cell(row, ColumnValves, "text", "4711"));
        entry.Act("vsfgAlgenArt", "select", {{"row", row == 3 ? 4 : 3}, {"col", ColumnValves}});
        program.Kill();
    }
    EXPECT_EQ(RowsOf(Open()), wanted);
}

TEST_F(KilledProgram, HasStoredACoverThatWasLeft) {
    const auto before = RowsOf(Open());
    {
        Program program;
        SampleEntry entry(program, Language::German);
        entry.OpenAlgae(path_, Subhabitat, "");
        entry.Act("txtMitBewuchsdichte", "set", {{"text", "1,25"}});
        // The list of taxa does not belong to the row of the covers.
        entry.Act("vsfgAlgenArt", "enter");
        program.Kill();
    }
    auto after = RowsOf(Open());
    // DG_Gesamt, DG_MA, DG_Algengesamt, MitBewuchsdichte, and the same of the assessment
    EXPECT_EQ(before[0], "38|18|60|0.8|38|18|60|0.8|Furt");
    EXPECT_EQ(after[0], "38|18|60|1.25|38|18|60|0.8|Furt");
    after[0] = before[0];
    EXPECT_EQ(after, before);
}

/// What a person does last, and what the database must hold although the program ends there.
struct LastDeed {
    const char* Name;
    /// Control, action and what it needs.
    std::vector<std::tuple<std::string, std::string, Json>> Deeds;
    std::string Sql;
    std::string Stored;
};

void PrintTo(const LastDeed& deed, std::ostream* out) { *out << deed.Name; }

class KilledAfter : public KilledProgram, public testing::WithParamInterface<LastDeed> {};

TEST_P(KilledAfter, HasStoredIt) {
    ASSERT_THAT(Lines(Open(), GetParam().Sql), testing::Not(testing::ElementsAre(GetParam().Stored)));
    {
        Program program;
        SampleEntry entry(program, Language::German);
        entry.OpenAlgae(path_, Subhabitat, "");
        for (const auto& [control, action, more] : GetParam().Deeds) entry.Act(control, action, more);
        program.Kill();
    }
    EXPECT_THAT(Lines(Open(), GetParam().Sql), testing::ElementsAre(GetParam().Stored));
}

// Row 1 of the stands is "Krustige Blaualgen", ID_TR_MI 1; row 3 of the taxa Hildenbrandia rivularis, ID_ART
// 18, a macroalga.
INSTANTIATE_TEST_SUITE_P(
    Algae, KilledAfter,
    testing::Values(LastDeed{"NameOfTheSite",
                             {{"txtPSBez", "set", {{"text", "Größe"}}},
                              {"txtDG_Makro", "enter", Json::object()}},
                             "SELECT PSBez FROM awaPrStelle WHERE ID_TR=1;",
                             "Größe"},
                    LastDeed{"StandLeftForAnotherOne",
                             {{"vsfgAlgenTL_MI", "cell", {{"row", 1}, {"col", 3}, {"text", "Ölfilm"}}},
                              {"vsfgAlgenTL_MI", "select", {{"row", 2}, {"col", 3}}}},
                             "SELECT MI_Bez FROM awaTeilraum_MI WHERE ID_TR_MI=1;",
                             "Ölfilm"},
                    LastDeed{"StandLeftForAnotherControl",
                             {{"vsfgAlgenTL_MI", "cell", {{"row", 1}, {"col", 6}, {"text", "0,75"}}},
                              {"txtPSBez", "enter", Json::object()}},
                             "SELECT SD_MI FROM awaTeilraum_MI WHERE ID_TR_MI=1;",
                             "0.75"},
                    LastDeed{"NewStand",
                             {{"cmdAlgenMI_Hinzufuegen", "click", Json::object()}},
                             "SELECT COUNT(*) AS N FROM awaTeilraum_MI WHERE ID_TR=1;",
                             "3"},
                    LastDeed{"RowLeftForAField",
                             {{"vsfgAlgenArt", "cell", {{"row", 3}, {"col", 9}, {"text", "0,75"}}},
                              {"txtPSBez", "enter", Json::object()}},
                             "SELECT SD_MA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=18;",
                             "0.75"},
                    LastDeed{"RowLeftByAKey",
                             {{"vsfgAlgenArt", "cell", {{"row", 3}, {"col", 9}, {"text", "0,75"}}},
                              {"vsfgAlgenArt", "key", {{"key", "Shift+Enter"}}}},
                             "SELECT SD_MA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=18;",
                             "0.75"},
                    LastDeed{"RowLeftForTheFocusOfNothing",
                             {{"vsfgAlgenArt", "cell", {{"row", 3}, {"col", 4}, {"value", true}}},
                              {"vsfgAlgenArt", "leave", Json::object()}},
                             "SELECT CF FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=18;",
                             "-1"},
                    LastDeed{"RowLeftForANewTaxon",
                             {{"vsfgAlgenArt", "cell", {{"row", 3}, {"col", 8}, {"text", "4,5"}}},
                              {"cmdArtNeu", "click", Json::object()}},
                             "SELECT DG_MA FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=18;",
                             "4.5"}));

TEST_F(KilledProgram, LosesNoMoreThanTheRowInWhichItWas) {
    const auto before = RowsOf(Open());
    for (const bool closed : {false, true}) {
        Program program;
        SampleEntry entry(program, Language::German);
        entry.OpenAlgae(path_, Subhabitat, "");
        const int row = RowOf(entry.Taxa(), "30");
        if (closed) {
            entry.Act("vsfgAlgenArt", "cell", Cell(row, ColumnValves, "text", "4711"));
        } else {
            entry.Act("vsfgAlgenArt", "select", {{"row", row}, {"col", ColumnValves}});
            entry.Act("vsfgAlgenArt", "type", {{"text", "47"}});
        }
        program.Kill();
        const auto after = RowsOf(Open());
        EXPECT_TRUE(after == before || (closed && after == WithValves(before, "4711"))) << closed;
    }
}

TEST_F(KilledProgram, EndOfTheInputSavesTheRowInWhichItWas) {
    const auto before = RowsOf(Open());
    Program program;
    SampleEntry entry(program, Language::German);
    entry.OpenAlgae(path_, Subhabitat, "");
    entry.Act("vsfgAlgenArt", "cell", Cell(RowOf(entry.Taxa(), "30"), ColumnValves, "text", "4711"));
    EXPECT_EQ(program.Finish(), 0);
    EXPECT_EQ(RowsOf(Open()), WithValves(before, "4711"));
}

TEST_F(KilledProgram, HostThatEndsWithoutReadingLosesNothing) {
    const auto before = RowsOf(Open());
    Program program;
    SampleEntry entry(program, Language::German);
    entry.OpenAlgae(path_, Subhabitat, "");
    const auto line = LineOf(1, Cell(RowOf(entry.Taxa(), "30"), ColumnValves, "text", "4711"));
    program.StopReading();
    program.Send(line);
    EXPECT_EQ(program.Finish(), 1);
    EXPECT_EQ(RowsOf(Open()), WithValves(before, "4711"));
}

/// The number of answers after which the program is killed, the next request being under way.
class KilledInABurst : public KilledProgram, public testing::WithParamInterface<int> {};

TEST_P(KilledInABurst, LeavesEachRowWithTheSharesThatBelongToIt) {
    constexpr int Rounds = 6;
    // Taxa 2 and 3 have shares in the first stand, "Krustige Blaualgen"; each round changes CF and share
    // together.
    const std::vector<std::string> taxa{"2", "3"};
    const auto cf = [](int round) { return round % 2 == 1; };
    const auto share = [](int round) { return std::to_string(50 + round); };
    int sent = 0;
    {
        Program program;
        SampleEntry entry(program, Language::German);
        entry.OpenAlgae(path_, Subhabitat, "");
        const auto list = entry.Taxa();
        for (int round = 1; round <= Rounds; ++round) {
            for (const auto& taxon : taxa) {
                const int row = RowOf(list, taxon);
                program.Send(LineOf(++sent, Cell(row, ColumnCF, "value", cf(round))));
                program.Send(LineOf(++sent, Cell(row, FirstStand, "text", share(round))));
            }
        }
        for (int i = 0; i < GetParam(); ++i) {
            const auto answer = Json::parse(program.Read());
            EXPECT_EQ(answer["result"], (Json{{"taken", true}})) << answer;
        }
        program.Kill();
    }
    ASSERT_LE(GetParam(), sent);
    const auto database = Open();
    for (std::size_t place = 0; place < taxa.size(); ++place) {
        // Of each taxon one row, and its share under the CF of the row.
        const auto rows =
            Lines(database, "SELECT CF FROM awaArtPrStelle WHERE ID_PS=1 AND ID_ART=" + taxa[place] + ";");
        const auto shares =
            Lines(database,
                  "SELECT CF, DG_MI FROM awaArtPrStelle_MI WHERE ID_TR_MI=1 AND ID_ART=" + taxa[place] + ";");
        ASSERT_EQ(rows.size(), 1U) << taxa[place];
        ASSERT_EQ(shares.size(), 1U) << taxa[place];
        // A row is left by the first request on the other one: that of round r by request 4r - 1 for the
        // first taxon and by request 4r + 1 for the second. What was answered must be there.
        const int confirmed = (GetParam() + (place == 0 ? 1 : -1)) / 4;
        bool found = false;
        for (int round = confirmed; round <= Rounds; ++round) {
            // Round 0 is the demo: 40 and 35 percent, certain.
            const std::string percent = round > 0 ? share(round) : place == 0 ? "40" : "35";
            const std::string sign = cf(round) ? "-1" : "0";
            found = found || (rows[0] == sign && shares[0] == sign + "|" + percent);
        }
        EXPECT_TRUE(found) << taxa[place] << ": " << rows[0] << " with " << shares[0] << ", confirmed round "
                           << confirmed;
    }
    // The sheet opens without having to repair anything.
    OwnDialogue talk;
    SampleEntry entry(talk, Language::German);
    entry.OpenAlgae(path_, Subhabitat, "");
    EXPECT_EQ(talk.Result("dialog.shown"), Json::array());
}

INSTANTIATE_TEST_SUITE_P(Answers, KilledInABurst,
                         testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 9, 11, 14, 17, 20, 23, 24));

}  // namespace
}  // namespace FX_Algen::cli
