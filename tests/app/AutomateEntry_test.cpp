#include <gmock/gmock.h>

#include "DemoFixture.h"
#include "DemoSample.h"
#include "FX_Algen/Texts.h"

// A person enters whole samples of the demo over the bridge, control by control; what lies in the database
// then must be what the demo holds.

namespace FX_Algen::cli {
namespace {

using rpc::Json;

struct EntryCase {
    std::int32_t ID_TR;
    std::int16_t Language;
};

void PrintTo(const EntryCase& c, std::ostream* out) { *out << c.ID_TR << " in " << c.Language; }

class EntryFixture : public DemoFixture, public testing::WithParamInterface<EntryCase> {
protected:
    void SetUp() override {
        DemoFixture::SetUp();
        database_ = Open();
    }
    void TearDown() override {
        database_.reset();
        DemoFixture::TearDown();
    }

    /// The result row that a calculation of the sub-habitat gives, all columns.
    std::vector<std::string> Calculated(const std::string& table, const std::vector<std::string>& options) {
        const auto key = store::NumberText(GetParam().ID_TR);
        std::vector<std::string> arguments{"calculate", path_, "--scope", "Teilraum:" + key};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto outcome = Call(arguments);
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        auto lines = Lines(database_, "SELECT * FROM " + table + " WHERE ID=" + key + ";");
        EXPECT_EQ(lines.size(), 1U);
        return lines;
    }

    /// What was shown may be the question for the site and the notice that covers do not add up yet.
    void ExpectNoFailureShown(Dialogue& talk) const {
        for (const auto& box : talk.Result("dialog.shown")) {
            if (box["kind"] == "question") {
                EXPECT_EQ(box["answer"], "Yes") << box;
            } else {
                EXPECT_EQ(box["text"], Text(2089, GetParam().Language)) << box;
            }
        }
    }

    store::DatabasePtr database_;
};

class AlgaeEntry : public EntryFixture {};

TEST_P(AlgaeEntry, GivesTheRowsAndTheResultsOfTheDemo) {
    const auto ID_TR = GetParam().ID_TR;
    const auto sample = ReadAlgaeSample(database_, ID_TR);
    const auto rows = AlgaeRows(database_, ID_TR);
    const auto results = Calculated("awaErgProjekt", {});
    RemoveAlgaeSample(database_, ID_TR);
    ASSERT_THAT(AlgaeRows(database_, ID_TR), testing::IsEmpty());
    {
        OwnDialogue talk;
        SampleEntry entry(talk, GetParam().Language);
        entry.OpenAlgae(path_, ID_TR, sample.PSBez);
        entry.Covers(sample.Covers);
        for (const auto& stand : sample.Stands) entry.AddStand(stand);
        for (const auto& taxon : sample.Taxa) entry.AddTaxon(taxon);
        entry.CloseSheet();
        ExpectNoFailureShown(talk);
    }
    EXPECT_EQ(AlgaeRows(database_, ID_TR), rows);
    EXPECT_EQ(Calculated("awaErgProjekt", {}), results);
}

// 1: two stands, a macroalga in one of them, diatoms, macrophytes; 3: two uncertain diatoms; 4: diatoms
// alone, no stand; 8: covers of the assessment that are others; 13: moss, no diatoms; 17: an uncertain
// finding.
INSTANTIATE_TEST_SUITE_P(German, AlgaeEntry,
                         testing::Values(EntryCase{1, Language::German}, EntryCase{3, Language::German},
                                         EntryCase{8, Language::German}, EntryCase{13, Language::German}));
INSTANTIATE_TEST_SUITE_P(English, AlgaeEntry,
                         testing::Values(EntryCase{1, Language::English}, EntryCase{4, Language::English},
                                         EntryCase{17, Language::English}));

class SestonEntry : public EntryFixture {};

TEST_P(SestonEntry, GivesTheRowsAndTheResultsOfTheDemo) {
    const auto ID_TR = GetParam().ID_TR;
    const auto sample = ReadSestonSample(database_, ID_TR);
    const auto rows = SestonRows(database_, ID_TR);
    const auto results = Calculated("sesErgProjekt", {"--seston"});
    RemoveSestonSample(database_, ID_TR);
    ASSERT_THAT(SestonRows(database_, ID_TR), testing::IsEmpty());
    {
        OwnDialogue talk;
        SampleEntry entry(talk, GetParam().Language);
        entry.OpenSeston(path_, ID_TR);
        for (const auto& finding : sample.Findings)
            entry.AddSestonTaxon(finding.Taxon, finding.Abundanz, finding.Zusatz);
        entry.CloseSheet();
        ExpectNoFailureShown(talk);
    }
    EXPECT_EQ(SestonRows(database_, ID_TR), rows);
    EXPECT_EQ(Calculated("sesErgProjekt", {"--seston"}), results);
}

// 25: an uncertain finding with a remark; 27: a finding without abundance.
INSTANTIATE_TEST_SUITE_P(German, SestonEntry, testing::Values(EntryCase{25, Language::German}));
INSTANTIATE_TEST_SUITE_P(English, SestonEntry, testing::Values(EntryCase{27, Language::English}));

}  // namespace
}  // namespace FX_Algen::cli
