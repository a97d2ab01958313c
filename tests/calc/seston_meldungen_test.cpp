#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc/BerechnungSeston.h"
#include "calc/Sestondatenbank.h"
#include "store/OpenConnection.h"

namespace FX_Algen {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::int32_t TR = 17;

const std::vector<std::string> Texte{
    "INSERT INTO sesErgProjekt (ID) VALUES(17);",
    "SapSeston: SELECT DISTINCTROW sesArtPrStelle.Abundanz, sesArt.W_SI, sesArt.W_O, sesArt.W_B, sesArt.W_A, "
    "sesArt.W_P FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS) "
    "INNER "
    "JOIN sesArt ON sesArtPrStelle.ID_ART = sesArt.ID_ART WHERE ((sesPrStelle.ID_TR=17) AND "
    "(sesArtPrStelle.Abundanz>0));",
    "SapSeston speichern: SELECT * FROM sesErgProjekt WHERE ID=17;",
    "SapSeston Taxa: ",
    "SapSeston TaxaSap: ",
    "SapSeston Streuung: ",
    "SapSeston update: ",
};

std::vector<std::string> Erste(std::size_t anzahl) { return {Texte.begin(), Texte.begin() + anzahl}; }

void Fuelle(Sestondatenbank& db) {
    db.Sestonteilraum(TR);
    db.Sestonart(1, {2, {0, 10, 0, 0}});
    db.Sestonstelle(1, TR);
    db.Sestonfund(1, 1, 3);
}

TEST(SestonMeldungen, TellStatementsAndStepsInTheirOrder) {
    Sestondatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true);
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Texte));
}

TEST(SestonMeldungen, AreTheSameWithoutFindings) {
    Sestondatenbank db;
    Meldungsfang fang;
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true);
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Texte));
}

TEST(SestonMeldungen, AreNoneWithoutDebugModusAndChangeNoResult) {
    Sestondatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_THAT(fang.Texte(), IsEmpty());
    const auto ohne = db.Abzug("sesErgProjekt");
    Berechnung_InitSeston(db.Datenbank());
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true);
    EXPECT_EQ(db.Abzug("sesErgProjekt"), ohne);
}

TEST(SestonMeldungen, WithoutAResultRowEndWithItsStatement) {
    Sestondatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_Seston(db.Datenbank(), TR, false, true);
    EXPECT_THAT(fang.Texte(), ElementsAreArray({Texte[1], Texte[2]}));
}

struct Abbruch {
    const char* Beschreibung;
    const char* Anweisung;  ///< what makes the calculation fail
    std::int32_t Nummer;
    std::size_t Boxen;  ///< shown before it fails
};

const Abbruch Abbrueche[] = {
    {"the row is there already", "INSERT INTO sesErgProjekt (ID) VALUES(17);", ErrorNumber::DuplicateKey, 1},
    {"a value is Null", "UPDATE sesArt SET W_P=Null WHERE ID_ART=1;", ErrorNumber::InvalidUseOfNull, 2},
};

TEST(SestonMeldungen, EndWhereTheCalculationFails) {
    for (const auto& fall : Abbrueche) {
        SCOPED_TRACE(fall.Beschreibung);
        Sestondatenbank db;
        Fuelle(db);
        db.Ausfuehren(fall.Anweisung);
        Meldungsfang fang;
        const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true); });
        ASSERT_TRUE(fehler);
        EXPECT_EQ(fehler->Number(), fall.Nummer);
        EXPECT_THAT(fang.Texte(), ElementsAreArray(Erste(fall.Boxen)));
    }
}

TEST(SestonMeldungen, EndBeforeTheFirstOneOfTheRoutineWithoutItsWorkingTable) {
    Sestondatenbank db;
    Fuelle(db);
    db.Datenbank()->TableDefs().Delete("sesErgProjektTmp");
    Meldungsfang fang;
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::UnknownTable);
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Erste(1)));
    EXPECT_TRUE(db.NurSchluessel(TR));
}

// The statement is shown before it is opened, so that one that fails was seen.
TEST(SestonMeldungen, TellTheStatementThatFails) {
    Sestondatenbank db;
    Fuelle(db);
    db.Datenbank()->TableDefs().Delete("sesArt");
    Meldungsfang fang;
    EXPECT_TRUE(Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true); }));
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Erste(2)));
}

// The last box stands before the row is written.
TEST(SestonMeldungen, TellTheUpdateThatFails) {
    Sestondatenbank db;
    Fuelle(db);
    db.Datenbank()->SharedConnection()->TheEngine().Run(
        "CREATE TRIGGER Gesperrt BEFORE UPDATE ON sesErgProjekt BEGIN SELECT RAISE(ABORT, 'gesperrt'); END;");
    Meldungsfang fang;
    EXPECT_TRUE(Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true); }));
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Texte));
    EXPECT_TRUE(db.NurSchluessel(TR));
}

// 32768 taxa do not fit the column: the box of the count stands before the count.
TEST(SestonMeldungen, StandBeforeTheCountThatFails) {
    Sestondatenbank db;
    db.Sestonstelle(1, TR);
    for (std::int32_t art = 1; art <= 32768; ++art) db.Sestonfund(1, art, 0);
    Meldungsfang fang;
    const auto fehler = Fehlschlag([&] { Berechnung_ExecuteSeston(db.Datenbank(), TR, false, true); });
    ASSERT_TRUE(fehler);
    EXPECT_EQ(fehler->Number(), ErrorNumber::Overflow);
    EXPECT_THAT(fang.Texte(), ElementsAreArray(Erste(4)));
}

}  // namespace
}  // namespace FX_Algen
