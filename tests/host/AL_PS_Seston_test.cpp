#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"

namespace FX_Algen {
namespace {

using testing::StartsWith;

/// Two sub-habitats with one taxon of value 2, its abundance 3 and 4.
class AL_PS_Seston : public testing::Test {
protected:
    AL_PS_Seston() {
        for (const char* row :
             {"INSERT INTO sesArt (ID_ART, Gattung, Art, W_SI, W_B) VALUES (5, 'Bärtierchenalge', 'größer', "
              "2, 10);",
              "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (1, 17);",
              "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (2, 18);",
              "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, Abundanz) VALUES (1, 5, 3);",
              "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, Abundanz) VALUES (2, 5, 4);"}) {
            db.Handle->Execute(row);
        }
        ps.CurrentDB(db.Handle);
        ps.SprachID(10000);
    }

    std::int32_t Rows() const { return db.One("SELECT Count(ID) AS Anzahl FROM sesErgProjekt;").I4(); }
    template <class Call>
    static Error FailureOf(Call call) {
        try {
            call();
        } catch (const Error& error) {
            return error;
        }
        return Error(0, "no failure");
    }

    test::TestDatabase db;
    AL_PS ps;
};

TEST_F(AL_PS_Seston, InitEmptiesTheResultsAndSetsTheHeadingOfTheLanguage) {
    db.Handle->Execute("INSERT INTO sesErgProjekt (ID) VALUES (1);");
    db.Handle->Execute("INSERT INTO awaErgProjekt (ID) VALUES (1);");
    ps.Berechnung_InitSeston();
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(db.One("SELECT ID FROM awaErgProjekt;").I4(), 1);
    EXPECT_EQ(ps.Berechnung_Statustext(), "Seston-Berechnung der Indizes und Verteilungen");
    ps.SprachID(20000);
    ps.Berechnung_InitSeston();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Seston - calculation of the indices and distributions");
}

TEST_F(AL_PS_Seston, InitWithLanguageZeroIsGermanFromThenOn) {
    ps.SprachID(0);
    ps.Berechnung_InitSeston();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Seston-Berechnung der Indizes und Verteilungen");
    ps.ResID(1000);
    ps.Get_ResString();
    EXPECT_EQ(ps.ResString(), "Algen");
}

TEST_F(AL_PS_Seston, FailedInitLeavesTheHeading) {
    ps.CurrentDB(nullptr);
    EXPECT_EQ(FailureOf([&] { ps.Berechnung_InitSeston(); }).Number(), ErrorNumber::NotADatabase);
    EXPECT_EQ(ps.Berechnung_Statustext(), "");
}

TEST_F(AL_PS_Seston, ExecuteWritesTheRowOfTheSubHabitatInTheContext) {
    ps.Berechnung_InitSeston();
    ps.TeilraumID(18);
    ps.Berechnung_ExecuteSeston();
    ASSERT_EQ(Rows(), 1);
    EXPECT_EQ(db.One("SELECT ID FROM sesErgProjekt;").I4(), 18);
    EXPECT_EQ(db.One("SELECT SapIndex FROM sesErgProjekt;").R4(), 2.0F);
    EXPECT_EQ(db.One("SELECT Abundanzsumme FROM sesErgProjekt;").I4(), 4);
    EXPECT_EQ(db.One("SELECT KumBeta FROM sesErgProjekt;").R4(), 10.0F);
    // The heading is that of the init; the execution sets none.
    ps.TeilraumID(17);
    ps.Berechnung_ExecuteSeston();
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(ps.Berechnung_Statustext(), "Seston-Berechnung der Indizes und Verteilungen");
}

TEST_F(AL_PS_Seston, WithoutFindingsWritesZeros) {
    ps.TeilraumID(99);
    ps.Berechnung_ExecuteSeston();
    EXPECT_EQ(db.One("SELECT SapIndex FROM sesErgProjekt WHERE ID=99;").R4(), 0.0F);
    EXPECT_TRUE(db.One("SELECT Oligo FROM sesErgProjekt WHERE ID=99;").IsNull());
}

TEST_F(AL_PS_Seston, FailuresNameTheOperationAndLeaveTheKey) {
    EXPECT_THAT(FailureOf([&] { AL_PS().Berechnung_InitSeston(); }).Description(),
                StartsWith("Berechnung_InitSeston: "));
    EXPECT_THAT(FailureOf([&] { AL_PS().Berechnung_ExecuteSeston(); }).Description(),
                StartsWith("Berechnung_ExecuteSeston: "));
    db.Handle->Execute("UPDATE sesArt SET W_SI=Null WHERE ID_ART=5;");
    ps.TeilraumID(17);
    const auto error = FailureOf([&] { ps.Berechnung_ExecuteSeston(); });
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(
        error.Description(),
        "Berechnung_ExecuteSeston: Berechnung_Seston: Invalid use of Null: sesArt.W_SI is Null for taxon "
        "5 (Bärtierchenalge größer), sub-habitat 17");
    EXPECT_EQ(Rows(), 1);
    EXPECT_TRUE(db.One("SELECT SapIndex FROM sesErgProjekt;").IsNull());
    // The host goes on with the next sub-habitat.
    EXPECT_EQ(FailureOf([&] { ps.Berechnung_ExecuteSeston(); }).Number(), ErrorNumber::DuplicateKey);
}

TEST_F(AL_PS_Seston, DebugModusShowsBoxesWhateverSilentModusSays) {
    const auto port = std::make_shared<store::RecordingMessages>();
    const auto before = SetDisplay(port);
    ps.TeilraumID(17);
    ps.SilentModus(true);
    ps.DebugModus(true);
    ps.Berechnung_ExecuteSeston();
    const auto boxes = port->TakeShown();
    SetDisplay(before);
    ASSERT_EQ(boxes.size(), 7U);
    EXPECT_EQ(boxes.front().Text, "INSERT INTO sesErgProjekt (ID) VALUES(17);");
    EXPECT_EQ(boxes.back().Text, "SapSeston update: ");
}

}  // namespace
}  // namespace FX_Algen
