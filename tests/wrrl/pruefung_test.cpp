#include <gmock/gmock.h>

#include "wrrl/Auswertung.h"
#include "wrrl/Modulprobe.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;

class Pruefung : public Modulprobe {
protected:
    Pruefung() {
        db.TGZK(Bioregion, Stufe, "mäßig");
        db.SGZK(Bioregion, Stufe, 2);
        db.Bioregionstyp(Bioregion, Stufe, "Kalk-Ö");
        Erwartet("Alle");
    }
    void Erwartet(const std::string& gruppe) {
        db.ETI(gruppe, "mäßig", 1.6);
        db.ESI(gruppe, 2, 1.5);
        db.ERI(gruppe, "Kalk-Ö", 0.6);
    }
    bool Pruefen(std::int32_t tr = TR, bool debug = false) {
        return Pruefung_Referenzwerte(db.Datenbank(), tr, Bioregion, Stufe, debug);
    }
};

TEST_F(Pruefung, PassesWithAllThreeExpectedValues) { EXPECT_TRUE(Pruefen()); }

TEST_F(Pruefung, FailsWhereOneOfThemIsMissing) {
    for (const char* tabelle : {"awaWRRL_ETI", "awaWRRL_ESI", "awaWRRL_ERI"}) {
        const auto vorher = db.Abzug(tabelle);
        db.Ausfuehren(std::string("UPDATE ") + tabelle + " SET Taxagruppe='MA';");
        EXPECT_FALSE(Pruefen()) << tabelle;
        db.Ausfuehren(std::string("UPDATE ") + tabelle + " SET Taxagruppe='Alle';");
        ASSERT_EQ(db.Abzug(tabelle), vorher);
    }
    EXPECT_TRUE(Pruefen());
}

TEST_F(Pruefung, FailsWhereAReferenceClassIsMissing) {
    for (const char* tabelle : {"awaWRRL_TGZK", "awaWRRL_SGZK", "awaWRRL_RBioregionstyp"}) {
        db.Ausfuehren(std::string("UPDATE ") + tabelle + " SET Hoehenstufe=9;");
        EXPECT_FALSE(Pruefen()) << tabelle;
        db.Ausfuehren(std::string("UPDATE ") + tabelle + " SET Hoehenstufe=2;");
    }
}

TEST_F(Pruefung, PassesWithRowsOfTheMarkers) {
    for (const char* tabelle : {"awaWRRL_TGZK", "awaWRRL_SGZK", "awaWRRL_RBioregionstyp"})
        db.Ausfuehren(std::string("DELETE * FROM ") + tabelle + ";");
    db.ETI("Alle", "-", 1);
    db.ESI("Alle", -1, 1);
    EXPECT_FALSE(Pruefen());
    db.ERI("Alle", "-", 1);
    EXPECT_TRUE(Pruefen());
}

TEST_F(Pruefung, DoesNotLookAtClassBoundsNorAtTheValues) {
    db.Setze("awaWRRL_ETI", "ErwarteterWert", "Taxagruppe='Alle'");
    EXPECT_TRUE(Pruefen()) << "no table of bounds has a row, and one expected value is Null";
}

TEST_F(Pruefung, AsksForTheGroupOfTheFirstRun) {
    Anteil(4, 0);  // three taxa besides the diatoms
    EXPECT_FALSE(Pruefen()) << "no rows for KA";
    Erwartet("KA");
    EXPECT_TRUE(Pruefen());
    Anteil(4, 5);
    for (const char* tabelle : {"awaWRRL_ETI", "awaWRRL_ESI", "awaWRRL_ERI"})
        db.Ausfuehren(std::string("DELETE * FROM ") + tabelle + " WHERE Taxagruppe='Alle';");
    EXPECT_FALSE(Pruefen()) << "rows for KA only, and the group is Alle";
}

TEST_F(Pruefung, TakesTheGroupAtItsBounds) {
    Erwartet("KA");
    db.Ausfuehren("DELETE * FROM awaWRRL_ERI WHERE Taxagruppe='KA';");
    Anteil(1, 15);  // 15 + 20 + 10 + 5 = 50, 4 taxa
    EXPECT_TRUE(Pruefen()) << "Alle";
    Anteil(1, 14.9999999);
    EXPECT_TRUE(Pruefen()) << "49.9999999 becomes the 32-bit float 50, as in the assessment";
    Anteil(1, 14.9);
    EXPECT_FALSE(Pruefen()) << "KA";
}

TEST_F(Pruefung, WithoutColumnInTheListAnswersForTheDiatoms) {
    EXPECT_FALSE(Pruefen(18));
    Erwartet("KA");
    EXPECT_TRUE(Pruefen(18));
}

TEST_F(Pruefung, AnswersFalseOnAFailureOfTheStore) {
    db.Setze("awaWRRL_TGZK", "TGZK", "Hoehenstufe=2", "o'm");
    EXPECT_FALSE(Pruefen()) << "a quote breaks the statement";
    db.Setze("awaWRRL_TGZK", "TGZK", "Hoehenstufe=2");
    EXPECT_FALSE(Pruefen()) << "a Null is no class";
    EXPECT_FALSE(Pruefung_Referenzwerte(nullptr, TR, Bioregion, Stufe, false));
}

TEST_F(Pruefung, WritesNothing) {
    Lauf(false);
    const auto vorher = db.Abzug("awaErgWRRL");
    Pruefen();
    EXPECT_EQ(db.Abzug("awaErgWRRL"), vorher);
}

TEST_F(Pruefung, InDebugModeShowsItsValuesAndStatementsAlsoAfterAMissingRow) {
    db.Ausfuehren("DELETE * FROM awaWRRL_ETI;");
    db.Datenbank();
    Gegenueber person;
    EXPECT_FALSE(Pruefen(TR, true));
    EXPECT_THAT(
        person.Texte(),
        ElementsAre(
            "lngTaxaArtNiveauNKA: 4", "sngAbundanzArtNiveauNKA: 95", "strGruppe: Alle",
            "TGZK: SELECT TGZK From awaWRRL_TGZK WHERE ID_AL_Bioregion=3 AND Hoehenstufe=2;",
            "TI_EW: SELECT ErwarteterWert FROM awaWRRL_ETI WHERE Taxagruppe='Alle' AND TGZK='mäßig';",
            "SGZK: SELECT Gueteklasse From awaWRRL_SGZK WHERE ID_AL_Bioregion=3 AND Hoehenstufe=2;",
            "SI_EW: SELECT ErwarteterWert FROM awaWRRL_ESI WHERE Taxagruppe='Alle' AND Gueteklasse=2;",
            "Biotyp: SELECT Bioregionstyp From awaWRRL_RBioregionstyp WHERE ID_AL_Bioregion=3 AND "
            "Hoehenstufe=2;",
            "RI_EW: SELECT ErwarteterWert FROM awaWRRL_ERI WHERE Taxagruppe='Alle' AND "
            "Bioregionstyp='Kalk-Ö';"));
}

}  // namespace
}  // namespace FX_Algen
