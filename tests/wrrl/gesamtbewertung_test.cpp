#include <gmock/gmock.h>

#include <array>

#include "wrrl/Auswertung.h"
#include "wrrl/Bewertungsfixture.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Gesamtbewertung : public Bewertungsfixture {
protected:
    Gesamtbewertung() {
        db.Klasse(1, "sehr gut");
        db.Klasse(2, "gut");
        db.Klasse(3, "mäßig");
        db.Klasse(4, "unbefriedigend");
    }

    void Klassen(const std::array<Value, 3>& klassen, const std::array<Value, 3>& angehoben,
                 bool KAOnly = false) {
        db.Ausfuehren("DELETE * FROM awaErgWRRL;");
        db.Zeile("awaErgWRRL", {{"ID", TR},
                                {"KAOnly", KAOnly},
                                {"TI_OEZK", klassen[0]},
                                {"SI_OEZK", klassen[1]},
                                {"RI_OEZK", klassen[2]},
                                {"TI_OEZK3", angehoben[0]},
                                {"SI_OEZK3", angehoben[1]},
                                {"RI_OEZK3", angehoben[2]}});
    }
    void Bewerten(bool KAOnly = false, bool debug = false, OverallTrace* spur = nullptr) {
        AuswertungWRRL_Gesamtbewertung(db.Datenbank(), TR, debug, KAOnly, spur);
    }
};

struct Fall {
    const char* Warum;
    std::array<int, 3> Klassen;
    std::array<int, 3> Angehoben;
    int OEZK;
    const char* Name;
};

class GesamtbewertungFall : public Gesamtbewertung, public testing::WithParamInterface<Fall> {};

TEST_P(GesamtbewertungFall, IsTheWorstSoftenedByAtMostOneClass) {
    const auto& fall = GetParam();
    Klassen({fall.Klassen[0], fall.Klassen[1], fall.Klassen[2]},
            {fall.Angehoben[0], fall.Angehoben[1], fall.Angehoben[2]});
    OverallTrace spur;
    Bewerten(false, false, &spur);
    EXPECT_EQ(Wert("OEZK").I4(), fall.OEZK) << fall.Warum;
    EXPECT_EQ(Wert("OEZK_Klasse"), Value(fall.Name)) << fall.Warum;
    EXPECT_EQ(spur.OEZK, fall.OEZK);
    EXPECT_EQ(spur.Softened, fall.OEZK != spur.WorstCase);
    EXPECT_TRUE(spur.Done);
}

INSTANTIATE_TEST_SUITE_P(
    Worked, GesamtbewertungFall,
    testing::Values(
        Fall{"two share the worst: no softening", {2, 3, 3}, {2, 2, 2}, 3, "mäßig"},
        Fall{"one class better with 0.03 more", {2, 2, 4}, {2, 2, 3}, 3, "mäßig"},
        Fall{"the raised class lies two away", {2, 2, 4}, {2, 2, 2}, 4, "unbefriedigend"},
        Fall{"no raised class", {2, 2, 4}, {2, 2, -1}, 4, "unbefriedigend"},
        Fall{"the raised ratio has the same class", {2, 2, 4}, {2, 2, 4}, 4, "unbefriedigend"},
        Fall{"the raised class of that module counts, no other", {2, 4, 2}, {1, 4, 3}, 4, "unbefriedigend"},
        Fall{"trophic module alone worst", {3, 2, 2}, {2, 2, 2}, 2, "gut"},
        Fall{"saprobic module alone worst", {1, 3, 2}, {1, 2, 2}, 2, "gut"},
        Fall{"a missing class is no obstacle", {-1, 2, 3}, {-1, 2, 2}, 2, "gut"},
        Fall{"one class alone, raised to one better", {-1, -1, 2}, {-1, -1, 1}, 1, "sehr gut"},
        Fall{"softened below the second worst", {1, 1, 2}, {1, 1, 1}, 1, "sehr gut"},
        Fall{"nothing classified", {-1, -1, -1}, {-1, -1, -1}, -1, "n.v."},
        Fall{"a class without name", {1, 2, 5}, {1, 2, 5}, 5, "n.v."}));

TEST_F(Gesamtbewertung, KeepsTheNamesOfTheModulesAsTheyWere) {
    Klassen({2, -1, 4}, {2, -1, 3});
    Bewerten();
    EXPECT_EQ(Wert("OEZK_Klasse"), Value("mäßig"));
    EXPECT_EQ(Wert("TI_OEZK_Klasse"), Value("gut"));
    EXPECT_EQ(Wert("SI_OEZK_Klasse"), Value("n.v."));
    EXPECT_EQ(Wert("RI_OEZK_Klasse"), Value("unbefriedigend"));
}

TEST_F(Gesamtbewertung, NamesTheMarkerWhereTheTableDoes) {
    db.Klasse(-1, "nicht bewertbar");
    Klassen({-1, -1, -1}, {-1, -1, -1});
    Bewerten();
    EXPECT_EQ(Wert("OEZK_Klasse"), Value("nicht bewertbar"));
    EXPECT_EQ(Wert("RI_OEZK_Klasse"), Value("nicht bewertbar"));
}

TEST_F(Gesamtbewertung, ReadsAndWritesTheRowOfItsRun) {
    Klassen({2, 2, 2}, {2, 2, 2}, true);
    db.Zeile("awaErgWRRL", {{"ID", TR}, {"KAOnly", false}});
    Bewerten(true);
    EXPECT_EQ(Wert("OEZK", true).I4(), 2);
    EXPECT_TRUE(Wert("OEZK", false).IsNull());
}

TEST_F(Gesamtbewertung, NullClassFailsAndLeavesTheRow) {
    for (const char* spalte : {"TI_OEZK", "SI_OEZK", "RI_OEZK"}) {
        Klassen({2, 2, 2}, {2, 2, 2});
        db.Datenbank();
        db.Setze("awaErgWRRL", spalte, "ID=17");
        const auto fehler = Fehlschlag([&] { Bewerten(); });
        ASSERT_TRUE(fehler.has_value()) << spalte;
        EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(fehler->Description(),
                    AllOf(HasSubstr("AuswertungWRRL_Gesamtbewertung: "),
                          HasSubstr(std::string("awaErgWRRL.") + spalte + " is Null"),
                          HasSubstr("(ID=17) AND (KAOnly=0)"), HasSubstr("sub-habitat 17 (Blöcke 17)")));
        EXPECT_TRUE(Wert("OEZK").IsNull());
    }
}

TEST_F(Gesamtbewertung, NullRaisedClassFailsOnlyWhereItIsRead) {
    Klassen({2, 2, 4}, {Value(), Value(), Value()});
    const auto fehler = Fehlschlag([&] { Bewerten(); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(), HasSubstr("RI_OEZK3"));

    Klassen({2, 4, 4}, {Value(), Value(), Value()});
    Bewerten();
    EXPECT_EQ(Wert("OEZK").I4(), 4);
}

TEST_F(Gesamtbewertung, NullNameFails) {
    db.Setze("awaWRRL_Klasse", "Bezeichnung", "Klassenzahl=2");
    Klassen({2, 2, 2}, {2, 2, 2});
    const auto fehler = Fehlschlag([&] { Bewerten(); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("awaWRRL_Klasse.Bezeichnung"),
                                             HasSubstr("Klassenzahl=2"), HasSubstr("Blöcke 17")));
}

TEST_F(Gesamtbewertung, WithoutTheRowOfItsRunFails) {
    const auto fehler = Fehlschlag([&] { Bewerten(); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::NoCurrentRecord);
}

TEST_F(Gesamtbewertung, InDebugModeShowsTheRoadToTheClass) {
    Klassen({2, 2, 4}, {2, 2, 3});
    db.Datenbank();
    Gegenueber person;
    Bewerten(false, true);
    EXPECT_THAT(person.Texte(),
                ElementsAre("SpeichernTaxa: SELECT * FROM awaErgWRRL WHERE (ID=17) AND (KAOnly=0);",
                            "AuswertungWRRL_Gesamtbewertung: 17, worstcase: 4",
                            "AuswertungWRRL_Gesamtbewertung: 17, Anzahl worstcase: 1 / RI_OEZK",
                            "AuswertungWRRL_Gesamtbewertung: 3"));
}

TEST_F(Gesamtbewertung, InDebugModeNamesTheLastOfTheWorst) {
    Klassen({3, 3, 2}, {3, 3, 2});
    db.Datenbank();
    Gegenueber person;
    Bewerten(false, true);
    EXPECT_EQ(person.Texte()[2], "AuswertungWRRL_Gesamtbewertung: 17, Anzahl worstcase: 2 / SI_OEZK");
}

TEST_F(Gesamtbewertung, TraceTellsWhatDecided) {
    Klassen({2, 4, 1}, {2, 3, 1});
    OverallTrace spur;
    Bewerten(false, false, &spur);
    EXPECT_THAT(spur.Classes, ElementsAre(2, 4, 1));
    EXPECT_THAT(spur.ClassNames, ElementsAre("gut", "unbefriedigend", "sehr gut"));
    EXPECT_EQ(spur.WorstCase, 4);
    EXPECT_EQ(spur.Count, 1);
    EXPECT_EQ(spur.Deciding, AssessmentModule::Saprobic);
    EXPECT_EQ(spur.Raised, 3);
    EXPECT_TRUE(spur.Softened);
    EXPECT_EQ(spur.OEZK, 3);
    EXPECT_EQ(spur.OEZK_Klasse, "mäßig");
}

TEST_F(Gesamtbewertung, TraceHasNoRaisedClassWhereSeveralAreWorst) {
    Klassen({4, 4, 1}, {3, 3, 1});
    OverallTrace spur;
    Bewerten(false, false, &spur);
    EXPECT_EQ(spur.Count, 2);
    EXPECT_FALSE(spur.Raised.has_value());
    EXPECT_FALSE(spur.Softened);
}

TEST_F(Gesamtbewertung, KlassennameIsThatOfTheTableOrNotAvailable) {
    EXPECT_EQ(WRRL_Klassenname(db.Datenbank(), 3), "mäßig");
    EXPECT_EQ(WRRL_Klassenname(db.Datenbank(), 5), "n.v.");
    EXPECT_EQ(WRRL_Klassenname(db.Datenbank(), -1), "n.v.");
    db.Setze("awaWRRL_Klasse", "Bezeichnung", "Klassenzahl=3");
    const auto fehler = Fehlschlag([&] { WRRL_Klassenname(db.Datenbank(), 3); });
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("WRRL_Klassenname: "), HasSubstr("Klassenzahl=3")));
}

}  // namespace
}  // namespace FX_Algen
