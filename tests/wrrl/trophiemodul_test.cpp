#include <gmock/gmock.h>

#include "wrrl/Auswertung.h"
#include "wrrl/Bewertungsfixture.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Trophiemodul : public Bewertungsfixture {
protected:
    Trophiemodul() {
        db.TGZK(Bioregion, Stufe, "mäßig");
        db.ETI("Alle", "mäßig", 1.6);
        db.ETI("KA", "mäßig", 1);
        // The worst class first: no class may hang on the order in which rows were put in.
        db.TIOEZK("Alle", "mäßig", 0, 0.2, 5);
        db.TIOEZK("Alle", "mäßig", 0.2, 0.4, 4);
        db.TIOEZK("Alle", "mäßig", 0.4, 0.6, 3);
        db.TIOEZK("Alle", "mäßig", 0.6, 0.8, 2);
        db.TIOEZK("Alle", "mäßig", 0.8, 1, 1);
        db.TIOEZK("KA", "mäßig", 0, 0.5, 4);
        db.TIOEZK("KA", "mäßig", 0.5, 1.1, 2);
    }

    void Bewerten(const std::string& gruppe = "Alle", bool KAOnly = false, bool debug = false,
                  IndexModuleTrace* spur = nullptr) {
        AuswertungWRRL_TI(db.Datenbank(), TR, Bioregion, Stufe, gruppe, debug, KAOnly, spur);
    }
    std::optional<Error> Fehler(const std::string& gruppe = "Alle", IndexModuleTrace* spur = nullptr) {
        return Fehlschlag([&] { Bewerten(gruppe, false, false, spur); });
    }
};

struct Fall {
    const char* Warum;
    double TI;
    float EQR;
    int OEZK;
    int OEZK3;
};

class TrophiemodulFall : public Trophiemodul, public testing::WithParamInterface<Fall> {};

TEST_P(TrophiemodulFall, StoresIndexRatioAndClasses) {
    const auto& fall = GetParam();
    Lauf(false, 0.0, 0.0, fall.TI, 3.3);
    Bewerten();
    EXPECT_EQ(Wert("TI"), Value(static_cast<float>(fall.TI)));
    EXPECT_EQ(Wert("TGZK"), Value("mäßig"));
    EXPECT_EQ(Wert("TI_EW"), Value(1.6F));
    EXPECT_EQ(Wert("TI_EQR"), Value(fall.EQR)) << fall.Warum;
    EXPECT_EQ(Wert("TI_OEZK").I4(), fall.OEZK) << fall.Warum;
    EXPECT_EQ(Wert("TI_OEZK3").I4(), fall.OEZK3) << fall.Warum;
}

INSTANTIATE_TEST_SUITE_P(
    Worked, TrophiemodulFall,
    testing::Values(
        Fall{"1.7 / 2.4 = 0.708; 0.71 and 0.74", 2.3, 0.71F, 2, 2},
        Fall{"1.92 / 2.4 = 0.8, a bound of 1 and 2: the lowest class that fits", 2.08, 0.8F, 1, 1},
        Fall{"1.85 / 2.4 = 0.7708; 0.77 raised is 0.8", 2.15, 0.77F, 2, 1},
        Fall{"1.368 / 2.4 = 0.57, raised 0.6: 0.57 as 32-bit float is a little less", 2.632, 0.57F, 3, 2},
        Fall{"1.344 / 2.4 = 0.56, raised 0.59: one hundredth short", 2.656, 0.56F, 3, 3},
        Fall{"3 / 2.4 = 1.25 is 1; the table ends at 1, so 1.03 has no class", 1, 1, 1, -1},
        Fall{"2.4 / 2.4 = 1, as expected", 1.6, 1, 1, -1},
        Fall{"0: no index; looked up all the same", 0, 0, 5, 5}, Fall{"0 / 2.4 = 0", 4, 0, 5, 5},
        Fall{"-0.5 / 2.4 = -0.208: below every bound", 4.5, -0.21F, -1, -1},
        Fall{"-0.072 / 2.4 = -0.03, raised 0", 4.072, -0.03F, -1, 5}));

TEST_F(Trophiemodul, FindsARaisedClassWhereTheTableReachesSoFar) {
    db.TIOEZK("Alle", "mäßig", 1, 1.1, 1);
    Lauf(false, 0.0, 0.0, 1.6, 0.0);
    Bewerten();
    EXPECT_EQ(Wert("TI_OEZK3").I4(), 1);
}

TEST_F(Trophiemodul, FindsTheClassOfANegativeRatioWhereTheTableReachesSoFar) {
    db.TIOEZK("Alle", "mäßig", -1, 0, 6);
    Lauf(false, 0.0, 0.0, 4.5, 0.0);
    Bewerten();
    // -0.21 and -0.18
    EXPECT_EQ(Wert("TI_OEZK").I4(), 6);
    EXPECT_EQ(Wert("TI_OEZK3").I4(), 6);
}

TEST_F(Trophiemodul, ARatioBeyondAllReasonHasNoClass) {
    // (4 - 4e20) / 2.4 = -1.67e20: a number with an exponent in the statement.
    Lauf(false, 0.0, 0.0, 4e20, 0.0);
    Bewerten();
    EXPECT_NEAR(Wert("TI_EQR").R8() / -1.6666667e20, 1, 1e-6);
    EXPECT_EQ(Wert("TI_OEZK").I4(), -1);
}

TEST_F(Trophiemodul, TakesTheIndexAndTheTablesOfTheGroup) {
    Lauf(false, 0.0, 0.0, 2.08, 2.2);
    Bewerten("KA");
    // (4 - 2.2) / (4 - 1) = 0.6
    EXPECT_EQ(Wert("TI"), Value(2.2F));
    EXPECT_EQ(Wert("TI_EW"), Value(1.0F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.6F));
    EXPECT_EQ(Wert("TI_OEZK").I4(), 2);
}

TEST_F(Trophiemodul, GivesZeroForAnyOtherGroup) {
    Lauf(false, 0.0, 0.0, Value(), Value());
    Bewerten("MA");
    EXPECT_EQ(Wert("TI"), Value(0.0F));
    EXPECT_EQ(Wert("TI_EW"), Value(-1.0F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.0F));
    EXPECT_EQ(Wert("TI_OEZK").I4(), -1);
}

TEST_F(Trophiemodul, WithoutReferenceClassMarksItAndComputesAllTheSame) {
    db.Ausfuehren("DELETE * FROM awaWRRL_TGZK;");
    Lauf(false, 0.0, 0.0, 2.0, 0.0);
    Bewerten();
    // (4 - 2) / (4 + 1) = 0.4
    EXPECT_EQ(Wert("TGZK"), Value("-"));
    EXPECT_EQ(Wert("TI_EW"), Value(-1.0F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.4F));
    EXPECT_EQ(Wert("TI_OEZK").I4(), -1);
    EXPECT_EQ(Wert("TI_OEZK3").I4(), -1);
}

TEST_F(Trophiemodul, LooksUpRowsOfTheMarkerLikeAnyOther) {
    db.Ausfuehren("DELETE * FROM awaWRRL_TGZK;");
    db.ETI("Alle", "-", 2);
    db.TIOEZK("Alle", "-", 0, 1, 7);
    Lauf(false, 0.0, 0.0, 3.0, 0.0);
    Bewerten();
    // (4 - 3) / (4 - 2) = 0.5
    EXPECT_EQ(Wert("TI_EW"), Value(2.0F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.5F));
    EXPECT_EQ(Wert("TI_OEZK").I4(), 7);
}

TEST_F(Trophiemodul, UsesTheExpectedValueAsRead) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'", 1.3456);
    Lauf(false, 0.0, 0.0, 2.0, 0.0);
    Bewerten();
    EXPECT_EQ(Wert("TI_EW"), Value(1.3456F));
    // 2 / 2.6544 = 0.75347
    EXPECT_EQ(Wert("TI_EQR"), Value(0.75F));
}

TEST_F(Trophiemodul, WithoutIndexRowTakesZero) {
    db.Zeile("awaErgWRRL", {{"ID", TR}, {"KAOnly", false}});
    Bewerten();
    EXPECT_EQ(Wert("TI"), Value(0.0F));
    EXPECT_EQ(Wert("TI_EQR"), Value(0.0F));
    EXPECT_EQ(Wert("TI_OEZK").I4(), 5);
}

TEST_F(Trophiemodul, OfTwoIndexRowsTakesThatOverAllGroups) {
    for (const bool zuerstKA : {false, true}) {
        db.Ausfuehren("DELETE * FROM awaErgProjekt;");
        db.Ausfuehren("DELETE * FROM awaErgWRRL;");
        for (const bool KAOnly : {zuerstKA, !zuerstKA})
            KAOnly ? Lauf(true, 0.0, 0.0, 3.1, 3.2) : Lauf(false, 0.0, 0.0, 2.08, 2.5);
        Bewerten("Alle", false);
        EXPECT_EQ(Wert("TI"), Value(2.08F));
        Bewerten("KA", true);
        EXPECT_EQ(Wert("TI", true), Value(2.5F));
    }
}

TEST_F(Trophiemodul, WritesTheRowOfItsRunAlone) {
    Lauf(false, 0.0, 0.0, 2.08, 2.2);
    Lauf(true, 0.0, 0.0, 2.2, 2.2);
    Bewerten("KA", true);
    EXPECT_EQ(Wert("TI_EQR", true), Value(0.6F));
    EXPECT_TRUE(Wert("TI_EQR", false).IsNull());
    EXPECT_TRUE(Wert("TGZK", false).IsNull());
}

// ---- failures ------------------------------------------------------------------------------------------

TEST_F(Trophiemodul, WhereFourIsExpectedDividesByZero) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'", 4.0);
    Lauf(false, 0.0, 0.0, 2.0, 0.0);
    const auto fehler = Fehler();
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DivisionByZero);
    EXPECT_THAT(
        fehler->Description(),
        AllOf(HasSubstr("AuswertungWRRL_TI"), HasSubstr("4 - expected value is 0"), HasSubstr("awaWRRL_ETI"),
              HasSubstr("TGZK='mäßig'"), HasSubstr("sub-habitat 17 (Blöcke 17)")));
    EXPECT_TRUE(Wert("TI").IsNull()) << "nothing of the module is stored";
}

TEST_F(Trophiemodul, WhereFourIsExpectedOfNoIndexDividesNothing) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'", 4.0);
    Lauf(false, 0.0, 0.0, 0.0, 0.0);
    Bewerten();
    EXPECT_EQ(Wert("TI_EQR"), Value(0.0F));
}

TEST_F(Trophiemodul, NullAmongTheValuesTakenFails) {
    struct NullFall {
        const char* Tabelle;
        const char* Feld;
        const char* Bedingung;
        const char* Gruppe;
        const char* Schluessel;
    };
    const NullFall faelle[] = {
        {"awaErgProjekt", "TI", "ID=17", "Alle", "ID=17"},
        {"awaErgProjekt", "TI_KA", "ID=17", "KA", "ID=17"},
        {"awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'", "Alle", "Taxagruppe='Alle' AND TGZK='mäßig'"},
        {"awaWRRL_TIOEZK", "OEZK", "OEZK=2", "Alle", "EQRMin <= 0.71 and EQRMax >= 0.71"},
        {"awaWRRL_TGZK", "TGZK", "Hoehenstufe=2", "Alle", "ID_AL_Bioregion=3 AND Hoehenstufe=2"},
    };
    Lauf(false, 0.0, 0.0, 2.3, 2.3);
    for (const auto& fall : faelle) {
        const auto vorher = db.Eins(std::string("SELECT ") + fall.Feld + " FROM " + fall.Tabelle + " WHERE " +
                                    fall.Bedingung + ";");
        db.Datenbank();
        db.Setze(fall.Tabelle, fall.Feld, fall.Bedingung);
        IndexModuleTrace spur;
        const auto fehler = Fehler(fall.Gruppe, &spur);
        ASSERT_TRUE(fehler.has_value()) << fall.Tabelle << "." << fall.Feld;
        EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(fehler->Description(),
                    AllOf(HasSubstr("AuswertungWRRL_TI: "),
                          HasSubstr(std::string(fall.Tabelle) + "." + fall.Feld + " is Null"),
                          HasSubstr(fall.Schluessel), HasSubstr("sub-habitat 17 (Blöcke 17)")));
        EXPECT_THAT(fehler->Statement(), HasSubstr(fall.Tabelle));
        EXPECT_FALSE(spur.Done);
        EXPECT_TRUE(Wert("TI").IsNull());
        db.Setze(fall.Tabelle, fall.Feld, std::string(fall.Feld) + " Is Null", vorher);
    }
    Bewerten();
    EXPECT_EQ(Wert("TI_OEZK").I4(), 2) << "nothing else stood in the way";
}

TEST_F(Trophiemodul, NullInTheIndexOfTheOtherGroupIsNotRead) {
    Lauf(false, 0.0, 0.0, 2.08, Value());
    Bewerten("Alle");
    EXPECT_EQ(Wert("TI_EQR"), Value(0.8F));
}

TEST_F(Trophiemodul, NullClassOnASharedBoundFails) {
    db.Setze("awaWRRL_TIOEZK", "OEZK", "OEZK=2");
    Lauf(false, 0.0, 0.0, 2.08, 0.0);
    const auto fehler = Fehler();
    ASSERT_TRUE(fehler.has_value()) << "a Null stands before class 1";
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
}

TEST_F(Trophiemodul, WithoutTheRowOfItsRunFails) {
    Lauf(false, 0.0, 0.0, 2.0, 2.0);
    const auto fehler = Fehlschlag([&] { Bewerten("KA", true); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("AuswertungWRRL_TI"), HasSubstr("awaErgWRRL"),
                                             HasSubstr("(ID=17) AND (KAOnly=-1)"), HasSubstr("Blöcke 17")));
}

TEST_F(Trophiemodul, AQuoteInTheReferenceClassBreaksTheStatement) {
    db.Setze("awaWRRL_TGZK", "TGZK", "Hoehenstufe=2", "o'm");
    Lauf(false, 0.0, 0.0, 2.0, 0.0);
    const auto fehler = Fehler();
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::SyntaxError);
}

TEST(TrophiemodulOhneDatenbank, Fails) {
    const auto fehler = Fehlschlag([] { AuswertungWRRL_TI(nullptr, 1, 1, 1, "Alle", false, false); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::NotADatabase);
}

// ---- debug boxes ---------------------------------------------------------------------------------------

TEST_F(Trophiemodul, InDebugModeShowsStatementsAndValuesInTheirOrder) {
    Lauf(false, 0.0, 0.0, 2.15, 0.0);
    db.Datenbank();
    Gegenueber person;
    Bewerten("Alle", false, true);
    EXPECT_THAT(
        person.Texte(),
        ElementsAre(
            "TGZK: SELECT TGZK From awaWRRL_TGZK WHERE ID_AL_Bioregion=3 AND Hoehenstufe=2;",
            "TI_EW: SELECT ErwarteterWert FROM awaWRRL_ETI WHERE Taxagruppe='Alle' AND TGZK='mäßig';",
            "EQR TI-Wert: SELECT TI, TI_KA FROM awaErgProjekt WHERE ID=17;", "EQR TI-Wert: 2.15", "EQR: 0.77",
            "OEZK: SELECT OEZK FROM awaWRRL_TIOEZK WHERE Taxagruppe='Alle' AND TGZK='mäßig' AND EQRMin <= "
            "0.77 and EQRMax >= 0.77;",
            "OEZK: 2",
            "OEZK: SELECT OEZK FROM awaWRRL_TIOEZK WHERE Taxagruppe='Alle' AND TGZK='mäßig' AND EQRMin <= "
            "0.8 and EQRMax >= 0.8;",
            "OEZK3: 1", "SpeichernTI: SELECT * FROM awaErgWRRL WHERE (ID=17) AND (KAOnly=0);"));
}

TEST_F(Trophiemodul, InDebugModeShowsTheBoxesBeforeAFailure) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'", 4.0);
    Lauf(true, 0.0, 0.0, 2.0, 0.0);
    Gegenueber person;
    EXPECT_TRUE(Fehlschlag([&] { Bewerten("Alle", true, true); }).has_value());
    EXPECT_EQ(person.Texte().size(), 4U) << "both lookups, the statement of the index and the index";
}

TEST_F(Trophiemodul, WithoutDebugModeShowsNothing) {
    Lauf(false, 0.0, 0.0, 2.15, 0.0);
    Gegenueber person;
    Bewerten();
    EXPECT_THAT(person.Texte(), IsEmpty());
}

// ---- trace ---------------------------------------------------------------------------------------------

TEST_F(Trophiemodul, TraceTellsLookupsRatiosAndBounds) {
    Lauf(false, 0.0, 0.0, 1.0, 0.0);
    IndexModuleTrace spur;
    Bewerten("Alle", false, false, &spur);
    EXPECT_TRUE(spur.Done);
    EXPECT_EQ(spur.Taxagruppe, "Alle");
    EXPECT_EQ(spur.IndexColumn, "TI");
    EXPECT_EQ(spur.ReferenceClass.Table, "awaWRRL_TGZK");
    ASSERT_EQ(spur.ReferenceClass.Keys.size(), 2U);
    EXPECT_EQ(spur.ReferenceClass.Keys[0].Column, "ID_AL_Bioregion");
    EXPECT_EQ(spur.ReferenceClass.Keys[0].Value, "3");
    EXPECT_TRUE(spur.ReferenceClass.Found);
    EXPECT_EQ(spur.ReferenceClass.Result, Value("mäßig"));
    EXPECT_EQ(spur.ExpectedValue.Table, "awaWRRL_ETI");
    EXPECT_EQ(spur.Ratio.ExpectedValue, 1.6F);
    EXPECT_EQ(spur.Ratio.Index, 1);
    // 3 / 2.4 of 32-bit floats
    ASSERT_TRUE(spur.Ratio.Unrounded.has_value());
    EXPECT_NEAR(*spur.Ratio.Unrounded, 1.25, 1e-7);
    EXPECT_EQ(spur.Ratio.BeforeCap, 1.25);
    EXPECT_EQ(spur.Ratio.EQR, 1);
    EXPECT_EQ(spur.Ratio.Class.OEZK, 1);
    ASSERT_TRUE(spur.Ratio.Class.Hit.has_value());
    EXPECT_EQ(spur.Ratio.Class.Hit->EQRMin, 0.8);
    EXPECT_EQ(spur.Ratio.Class.Hit->EQRMax, 1);
    EXPECT_THAT(spur.Ratio.Class.AlsoFitting, IsEmpty());
    EXPECT_EQ(spur.Ratio.Raised.EQR, 1.03F);
    EXPECT_FALSE(spur.Ratio.Raised.Lookup.Found);
    EXPECT_EQ(spur.Ratio.Raised.Lookup.Result, Value(std::int16_t{-1}));
    ASSERT_EQ(spur.Ratio.Raised.Lookup.Keys.size(), 3U);
    EXPECT_EQ(spur.Ratio.Raised.Lookup.Keys[2].Value, "1.03");
    EXPECT_FALSE(spur.Ratio.Raised.Hit.has_value());
    ASSERT_EQ(spur.Ratio.AllBounds.size(), 5U);
    EXPECT_EQ(spur.Ratio.AllBounds.front().OEZK, 1);
    EXPECT_EQ(spur.Ratio.AllBounds.back().OEZK, 5);
}

TEST_F(Trophiemodul, TraceTellsFurtherRowsOnASharedBound) {
    Lauf(false, 0.0, 0.0, 2.08, 0.0);
    IndexModuleTrace spur;
    Bewerten("Alle", false, false, &spur);
    ASSERT_TRUE(spur.Ratio.Class.Hit.has_value());
    EXPECT_EQ(spur.Ratio.Class.Hit->OEZK, 1);
    ASSERT_EQ(spur.Ratio.Class.AlsoFitting.size(), 1U);
    EXPECT_EQ(spur.Ratio.Class.AlsoFitting[0].OEZK, 2);
}

TEST_F(Trophiemodul, TraceOfAFailedRunTellsHowFarItCame) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'");
    Lauf(false, 0.0, 0.0, 2.0, 0.0);
    IndexModuleTrace spur;
    ASSERT_TRUE(Fehler("Alle", &spur).has_value());
    EXPECT_TRUE(spur.ReferenceClass.Found);
    EXPECT_TRUE(spur.ExpectedValue.Found);
    EXPECT_TRUE(spur.ExpectedValue.Result.IsNull());
    EXPECT_FALSE(spur.Ratio.Unrounded.has_value());
    EXPECT_FALSE(spur.Done);
}

TEST_F(Trophiemodul, TraceChangesNoResult) {
    Lauf(false, 0.0, 0.0, 2.15, 0.0);
    Bewerten();
    const auto ohne = db.Abzug("awaErgWRRL");
    IndexModuleTrace spur;
    Bewerten("Alle", false, false, &spur);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), ohne);
}

}  // namespace
}  // namespace FX_Algen
