#include <gmock/gmock.h>

#include "wrrl/Auswertung.h"
#include "wrrl/Bewertungsfixture.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Saprobiemodul : public Bewertungsfixture {
protected:
    Saprobiemodul() {
        db.SGZK(Bioregion, Stufe, 2);
        db.ESI("Alle", 2, 1.5);
        db.ESI("KA", 2, 1.6);
        db.SIOEZK("Alle", 2, 0, 0.4, 5);
        db.SIOEZK("Alle", 2, 0.4, 0.6, 3);
        db.SIOEZK("Alle", 2, 0.6, 0.8, 2);
        db.SIOEZK("Alle", 2, 0.8, 1, 1);
        db.SIOEZK("KA", 2, 0, 1.1, 4);
    }

    void Bewerten(const std::string& gruppe = "Alle", bool KAOnly = false, bool debug = false,
                  IndexModuleTrace* spur = nullptr) {
        AuswertungWRRL_SI(db.Datenbank(), TR, Bioregion, Stufe, gruppe, debug, KAOnly, spur);
    }
};

struct Fall {
    const char* Warum;
    double SI;
    float EQR;
    int OEZK;
    int OEZK3;
};

class SaprobiemodulFall : public Saprobiemodul, public testing::WithParamInterface<Fall> {};

TEST_P(SaprobiemodulFall, StoresIndexRatioAndClasses) {
    const auto& fall = GetParam();
    Lauf(false, fall.SI, 3.3);
    Bewerten();
    EXPECT_EQ(Wert("SI"), Value(static_cast<float>(fall.SI)));
    EXPECT_EQ(Wert("SGZK"), Value(std::int16_t{2}));
    EXPECT_EQ(Wert("SI_EW"), Value(1.5F));
    EXPECT_EQ(Wert("SI_EQR"), Value(fall.EQR)) << fall.Warum;
    EXPECT_EQ(Wert("SI_OEZK").I4(), fall.OEZK) << fall.Warum;
    EXPECT_EQ(Wert("SI_OEZK3").I4(), fall.OEZK3) << fall.Warum;
}

INSTANTIATE_TEST_SUITE_P(Worked, SaprobiemodulFall,
                         testing::Values(Fall{"2 / 2.5 = 0.8, a bound of 1 and 2", 2, 0.8F, 1, 1},
                                         Fall{"1.925 / 2.5 = 0.77, raised 0.8", 2.075, 0.77F, 2, 1},
                                         Fall{"2.9 / 2.5 = 1.16 is 1; 1.03 has no class", 1.1, 1, 1, -1},
                                         Fall{"no index", 0, 0, 5, 5},
                                         Fall{"-0.25 / 2.5 = -0.1", 4.25, -0.1F, -1, -1}));

TEST_F(Saprobiemodul, RoundsTheExpectedValueToTwoPlacesBeforeUse) {
    db.Setze("awaWRRL_ESI", "ErwarteterWert", "Taxagruppe='Alle'", 2.345);
    Lauf(false, 3.1);
    Bewerten();
    EXPECT_EQ(Wert("SI_EW"), Value(2.35F));
    // 0.9 / 1.65 = 0.5454; with 2.345 it would be 0.9 / 1.655 = 0.5438
    EXPECT_EQ(Wert("SI_EQR"), Value(0.55F));
}

TEST_F(Saprobiemodul, TakesTheIndexAndTheTablesOfTheGroup) {
    Lauf(true, 2.0, 2.2);
    Bewerten("KA", true);
    // 1.8 / 2.4 = 0.75
    EXPECT_EQ(Wert("SI", true), Value(2.2F));
    EXPECT_EQ(Wert("SI_EW", true), Value(1.6F));
    EXPECT_EQ(Wert("SI_EQR", true), Value(0.75F));
    EXPECT_EQ(Wert("SI_OEZK", true).I4(), 4);
}

TEST_F(Saprobiemodul, GivesZeroForAnyOtherGroup) {
    Lauf(false, Value(), Value());
    Bewerten("");
    EXPECT_EQ(Wert("SI"), Value(0.0F));
    EXPECT_EQ(Wert("SI_EQR"), Value(0.0F));
}

TEST_F(Saprobiemodul, WithoutReferenceClassMarksItWithMinusOneAndComputesAllTheSame) {
    db.Ausfuehren("DELETE * FROM awaWRRL_SGZK;");
    Lauf(false, 2.0);
    Bewerten();
    // (4 - 2) / (4 + 1) = 0.4
    EXPECT_EQ(Wert("SGZK"), Value(std::int16_t{-1}));
    EXPECT_EQ(Wert("SI_EW"), Value(-1.0F));
    EXPECT_EQ(Wert("SI_EQR"), Value(0.4F));
    EXPECT_EQ(Wert("SI_OEZK").I4(), -1);

    db.ESI("Alle", -1, 2);
    db.SIOEZK("Alle", -1, 0, 1, 6);
    Bewerten();
    EXPECT_EQ(Wert("SI_EW"), Value(2.0F)) << "the marker is a key like any other";
    EXPECT_EQ(Wert("SI_EQR"), Value(1.0F));
    EXPECT_EQ(Wert("SI_OEZK").I4(), 6);
}

TEST_F(Saprobiemodul, OfTwoIndexRowsTakesThatOverAllGroups) {
    Lauf(true, 3.0, 3.1);
    Lauf(false, 2.0, 2.2);
    Bewerten();
    EXPECT_EQ(Wert("SI"), Value(2.0F));
}

TEST_F(Saprobiemodul, WhereFourIsExpectedOnceRoundedDividesByZero) {
    db.Setze("awaWRRL_ESI", "ErwarteterWert", "Taxagruppe='Alle'", 3.999);
    Lauf(false, 2.0);
    const auto fehler = Fehlschlag([&] { Bewerten(); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DivisionByZero);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("AuswertungWRRL_SI"), HasSubstr("awaWRRL_ESI"),
                                             HasSubstr("Gueteklasse=2"), HasSubstr("Blöcke 17")));
}

TEST_F(Saprobiemodul, NullAmongTheValuesTakenFails) {
    struct NullFall {
        const char* Tabelle;
        const char* Feld;
        const char* Bedingung;
        const char* Gruppe;
    };
    const NullFall faelle[] = {
        {"awaWRRL_SGZK", "Gueteklasse", "Hoehenstufe=2", "Alle"},
        {"awaWRRL_ESI", "ErwarteterWert", "Taxagruppe='Alle'", "Alle"},
        {"awaErgProjekt", "SapIndex", "ID=17", "Alle"},
        {"awaErgProjekt", "SapIndex_KA", "ID=17", "KA"},
        {"awaWRRL_SIOEZK", "OEZK", "OEZK=1", "Alle"},
    };
    Lauf(false, 1.5, 2.0);
    for (const auto& fall : faelle) {
        const auto vorher = db.Eins(std::string("SELECT ") + fall.Feld + " FROM " + fall.Tabelle + " WHERE " +
                                    fall.Bedingung + ";");
        db.Setze(fall.Tabelle, fall.Feld, fall.Bedingung);
        const auto fehler = Fehlschlag([&] { Bewerten(fall.Gruppe); });
        ASSERT_TRUE(fehler.has_value()) << fall.Tabelle << "." << fall.Feld;
        EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("AuswertungWRRL_SI: "),
                                                 HasSubstr(std::string(fall.Tabelle) + "." + fall.Feld)));
        db.Setze(fall.Tabelle, fall.Feld, std::string(fall.Feld) + " Is Null", vorher);
    }
    Bewerten();
    EXPECT_EQ(Wert("SI_OEZK").I4(), 1);
}

TEST_F(Saprobiemodul, WithoutTheRowOfItsRunFails) {
    Lauf(true, 2.0, 2.0);
    const auto fehler = Fehlschlag([&] { Bewerten(); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::NoCurrentRecord);
}

TEST_F(Saprobiemodul, InDebugModeShowsStatementsAndValuesInTheirOrder) {
    Lauf(true, 2.0, 2.2);
    db.Datenbank();
    Gegenueber person;
    Bewerten("KA", true, true);
    const std::string klasse =
        "OEZK: SELECT OEZK FROM awaWRRL_SIOEZK WHERE Taxagruppe='KA' AND Gueteklasse=2 AND ";
    EXPECT_THAT(
        person.Texte(),
        ElementsAre("SGZK: SELECT Gueteklasse From awaWRRL_SGZK WHERE ID_AL_Bioregion=3 AND Hoehenstufe=2;",
                    "SI_EW: SELECT ErwarteterWert FROM awaWRRL_ESI WHERE Taxagruppe='KA' AND Gueteklasse=2;",
                    "EQR SI-Wert: SELECT SapIndex, SapIndex_KA FROM awaErgProjekt WHERE ID=17;",
                    "EQR sI-Wert: 2.2", "EQR: 0.75", klasse + "EQRMin <= 0.75 and EQRMax >= 0.75;", "OEZK: 4",
                    klasse + "EQRMin <= 0.78 and EQRMax >= 0.78;", "OEZK3: 4",
                    "SpeichernSI: SELECT * FROM awaErgWRRL WHERE (ID=17) AND (KAOnly=-1);"));
}

TEST_F(Saprobiemodul, TraceTellsKeysAsTheyStandInTheStatements) {
    Lauf(false, 2.075);
    IndexModuleTrace spur;
    Bewerten("Alle", false, false, &spur);
    EXPECT_TRUE(spur.Done);
    EXPECT_EQ(spur.IndexColumn, "SapIndex");
    EXPECT_EQ(spur.ReferenceClass.Table, "awaWRRL_SGZK");
    EXPECT_EQ(spur.ReferenceClass.Result, Value(std::int16_t{2}));
    ASSERT_EQ(spur.Ratio.Class.Lookup.Keys.size(), 3U);
    EXPECT_EQ(spur.Ratio.Class.Lookup.Keys[1].Column, "Gueteklasse");
    EXPECT_EQ(spur.Ratio.Class.Lookup.Keys[1].Value, "2");
    EXPECT_EQ(spur.Ratio.Class.Lookup.Keys[2].Value, "0.77");
    EXPECT_EQ(spur.Ratio.Class.OEZK, 2);
    EXPECT_EQ(spur.Ratio.Raised.OEZK, 1);
    ASSERT_TRUE(spur.Ratio.Raised.Hit.has_value());
    EXPECT_EQ(spur.Ratio.Raised.Hit->OEZK, 1);
    EXPECT_EQ(spur.Ratio.Raised.AlsoFitting.size(), 1U);
}

}  // namespace
}  // namespace FX_Algen
