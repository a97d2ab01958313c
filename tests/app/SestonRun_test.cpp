#include "FX_Algen/Error.h"
#include "app/SestonFixture.h"

// Calculation of seston from the command line, and what it and the results keep of the run.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class SestonRun : public SestonFixture {
protected:
    std::vector<std::int32_t> Rows() {
        std::vector<std::int32_t> ids;
        const auto rows = database_->OpenRecordset("SELECT ID FROM sesErgProjekt ORDER BY ID;");
        for (; !rows->Eof(); rows->MoveNext()) ids.push_back((*rows)["ID"].I4());
        return ids;
    }
};

TEST_F(SestonRun, CalculatesEverySubHabitatAndTellsHowManyHaveSeston) {
    const Outcome outcome = Call({"calculate", path_, "--seston"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out, "Teilräume berechnet: 2\nOhne Seston, Zeile mit Nullen: 2\n");
    EXPECT_EQ(outcome.Err, "");
    EXPECT_THAT(Rows(), ElementsAre(11, 12, 13, 21));
    EXPECT_FLOAT_EQ(One("SELECT SapIndex FROM sesErgProjekt WHERE ID=12;").R4(), 1.6F);
    EXPECT_EQ(One("SELECT Abundanzsumme FROM sesErgProjekt WHERE ID=11;").I4(), 0);
}

// Not even the insert came about: no row that could tell it.
TEST_F(SestonRun, KeepsTheFailureOfASubHabitatWithoutRow) {
    database_->TableDefs().Delete("sesArt");
    const Outcome outcome = Call({"calculate", path_, "--seston", "--scope", "Teilraum:12"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "Teilräume berechnet: 0\nFehlgeschlagen: 1\n");
    EXPECT_THAT(Rows(), testing::IsEmpty());
    EXPECT_EQ(One("SELECT Fehlernummer FROM fx_LaufSeston WHERE ID=12;").I4(), ErrorNumber::UnknownTable);
    EXPECT_THAT(Call({"results", path_, "--seston"}).Out,
                testing::ContainsRegex("ohne Ergebnis: 4\n   12: .*sesArt.* \\(3078\\)\n"));
}

TEST_F(SestonRun, SpeaksEnglishWhereAsked) {
    EXPECT_EQ(Call({"calculate", path_, "--seston", "--lang", "en"}).Out,
              "Sub-habitats calculated: 2\nWithout seston, row of zeros: 2\n");
}

TEST_F(SestonRun, RestrictsToItsScopeAndReplacesTheRunBefore) {
    CalculateSeston();
    const Outcome outcome = Call({"calculate", path_, "--seston", "--scope", "Teilraum:13"});
    EXPECT_EQ(outcome.Out, "Teilräume berechnet: 1\n");
    EXPECT_THAT(Rows(), ElementsAre(13));
    EXPECT_EQ(One("SELECT Count(*) FROM fx_LaufSeston;").I4(), 1);
}

TEST_F(SestonRun, ASamplingSiteWithoutFindingsIsNoSeston) {
    Execute({"DELETE * FROM sesArtPrStelle WHERE ID_PS=2;"});
    EXPECT_EQ(Call({"calculate", path_, "--seston"}).Out,
              "Teilräume berechnet: 1\nOhne Seston, Zeile mit Nullen: 3\n");
}

TEST_F(SestonRun, GoesOnAfterAFailureAndListsItAtTheEnd) {
    Execute({"UPDATE sesArt SET W_SI=Null WHERE ID_ART=1;"});
    const Outcome outcome = Call({"calculate", path_, "--seston"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "Teilräume berechnet: 1\nOhne Seston, Zeile mit Nullen: 2\nFehlgeschlagen: 1\n");
    EXPECT_THAT(outcome.Err, HasSubstr("Teilraum 12 (Flüsse / Oberlauf / Brücke / 2026-05-12 / Ufer)"));
    EXPECT_THAT(outcome.Err, HasSubstr("(94)"));
    // The failed row stays with its key alone.
    EXPECT_THAT(Rows(), ElementsAre(11, 12, 13, 21));
    EXPECT_TRUE(One("SELECT SapIndex FROM sesErgProjekt WHERE ID=12;").IsNull());
    EXPECT_EQ(State(12), "incomplete");
    EXPECT_EQ(State(13), "current");
    const std::string table = Call({"results", path_, "--seston"}).Out;
    EXPECT_THAT(table, HasSubstr("x  unvollständig: die Berechnung ist fehlgeschlagen\n   12: "));
    EXPECT_EQ(Json({"results", "--seston", "--scope", "Teilraum:12"}).at(0)["Fehlernummer"], 94);
}

TEST_F(SestonRun, LeavesTheNotesOfTheAlgaeAloneAndTheyLeaveIts) {
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    CalculateSeston();
    const auto algae = [&] {
        return Json({"results", "--scope", "Teilraum:13"}).at(0)["Status"].get<std::string>();
    };
    EXPECT_EQ(algae(), "current");
    EXPECT_EQ(State(13), "current");
    ASSERT_EQ(Call({"calculate", path_, "--scope", "Teilraum:21"}).Code, 0);
    EXPECT_EQ(State(13), "current");
    Call({"assess", path_});
    EXPECT_EQ(State(13), "current");
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    // What belongs to the one does not make the other out of date.
    Execute({"UPDATE awaArtPrStelle SET Schalen_KA=399 WHERE ID_PS=3;"});
    EXPECT_EQ(algae(), "out of date");
    EXPECT_EQ(State(13), "current");
    ASSERT_EQ(Call({"calculate", path_}).Code, 0);
    Execute({"UPDATE sesArt SET W_SI=1.6 WHERE ID_ART=2;"});
    EXPECT_EQ(algae(), "current");
    EXPECT_EQ(State(13), "out of date");
}

TEST_F(SestonRun, SaysWhatIsOutOfDate) {
    const char* const changes[] = {
        "UPDATE sesArtPrStelle SET Abundanz=3 WHERE ID_PS=1 AND ID_ART=1 AND CF=0;",
        "UPDATE sesArtPrStelle SET Abundanz=Null WHERE ID_PS=1 AND ID_ART=3;",
        "UPDATE sesArt SET W_SI=2.6 WHERE ID_ART=1;",
        "UPDATE sesArt SET W_O=1 WHERE ID_ART=1;",
        "UPDATE sesArt SET W_B=4 WHERE ID_ART=1;",
        "UPDATE sesArt SET W_A=4 WHERE ID_ART=1;",
        "UPDATE sesArt SET W_P=Null WHERE ID_ART=3;",
        "DELETE * FROM sesArt WHERE ID_ART=3;",
        "DELETE * FROM sesArtPrStelle WHERE ID_PS=1 AND ID_ART=2;",
        "DELETE * FROM sesArtPrStelle WHERE ID_PS=1;",
        "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 2, -1, 0);",
        "UPDATE sesPrStelle SET ID_TR=11 WHERE ID_PS=1;",
        // Another taxon with the same values: all sums stay, the number of taxa does not.
        "UPDATE sesArtPrStelle SET ID_ART=4 WHERE ID_PS=1 AND ID_ART=1 AND CF=-1;",
    };
    Execute({"INSERT INTO sesArt (ID_ART, Gattung, W_SI, W_B, W_A) VALUES (4, 'Übersehene', 2.5, 5, 5);"});
    for (const char* change : changes) {
        SCOPED_TRACE(change);
        CalculateSeston();
        ASSERT_EQ(State(12), "current");
        const auto before = Call({"dump", path_, Path("davor")});
        ASSERT_EQ(before.Code, 0) << before.Err;
        database_->Execute(change);
        EXPECT_EQ(State(12), "out of date");
        EXPECT_THAT(Call({"results", path_, "--seston", "--scope", "Teilraum:12"}).Out,
                    HasSubstr("!  veraltet: Funde oder Einstufungen des Sestons"));
        ASSERT_EQ(Call({"load", Path("davor"), "--into", path_, "--replace"}).Code, 0);
        std::filesystem::remove_all(Path("davor"));
    }
}

TEST_F(SestonRun, StaysCurrentWhereOtherThingsChange) {
    CalculateSeston();
    Execute({
        "UPDATE sesArtPrStelle SET Abundanz=1 WHERE ID_PS=2;",                      // another sub-habitat
        "UPDATE sesArtPrStelle SET Zusatz='häufig' WHERE ID_PS=1;",                 // a remark
        "UPDATE sesPrStelle SET PSBez='Wehr' WHERE ID_PS=1;",                       // a name
        "UPDATE sesArt SET Loeschstatus=-1, Beschreiber='Grunow' WHERE ID_ART=1;",  // its finding still
                                                                                    // counts
    });
    EXPECT_EQ(State(12), "current");
    EXPECT_EQ(State(13), "out of date");
    EXPECT_EQ(State(11), "current");
}

TEST_F(SestonRun, DoesNotVouchForRowsOfOthers) {
    CalculateSeston();
    database_->Execute("UPDATE sesErgProjekt SET SapIndex=1 WHERE ID=12;");
    EXPECT_EQ(State(12), "unknown");
    database_->Execute("DELETE * FROM sesErgProjekt;");
    database_->Execute("INSERT INTO sesErgProjekt (ID) VALUES (13);");
    EXPECT_EQ(State(13), "unknown");
    EXPECT_THAT(Call({"results", path_, "--seston"}).Out, HasSubstr("?  unbekannt"));
}

}  // namespace
