#include <gmock/gmock.h>

#include "FX_Algen/Assessment.h"
#include "wrrl/Projektdatenbank.h"

// Which rows the reference tables lacked: the stored rows are written here, so that each marker can be set
// alone.

using namespace FX_Algen;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// "awaWRRL_ETI Taxagruppe=Alle TGZK=mt", what was missed with its marker at the end.
std::vector<std::string> Texte(const std::vector<ReferenceLookup>& fehlende) {
    std::vector<std::string> texte;
    for (const ReferenceLookup& frage : fehlende) {
        EXPECT_FALSE(frage.Found);
        std::string text = frage.Table;
        for (const LookupKey& key : frage.Keys) text += " " + key.Column + "=" + key.Value;
        texte.push_back(text + " -> " + frage.Result.Text());
    }
    return texte;
}

class MissingReferenceRows : public testing::Test {
protected:
    MissingReferenceRows() {
        site_.ID_TR = 17;
        site_.BioregionID = 5;
        site_.Hoehenstufe = 9;
        for (const char* gruppe : {"Alle", "KA"}) {
            db_.ETI(gruppe, "mäßig", 1.3);
            db_.ESI(gruppe, 2, 1.5);
            db_.ERI(gruppe, "Kalk", 0.6);
            db_.TIOEZK(gruppe, "mäßig", 0, 1, 2);
            db_.SIOEZK(gruppe, 2, 0, 1, 2);
            db_.RIOEZK(gruppe, "Kalk", 0, 1, 2);
        }
        db_.TGZK(5, 9, "mäßig");
        db_.SGZK(5, 9, 2);
        db_.Bioregionstyp(5, 9, "Kalk");
        db_.Klasse(2, "gut");
    }

    /// A finished row: class 2 in all modules, everything found.
    void Ergebnis(bool KAOnly, const std::string& gruppe) {
        db_.Zeile("awaErgWRRL", {{"ID", 17},
                                 {"KAOnly", KAOnly},
                                 {"Taxagruppe", gruppe},
                                 {"TGZK", "mäßig"},
                                 {"TI", 2.0},
                                 {"TI_EW", 1.3},
                                 {"TI_EQR", 0.74},
                                 {"TI_OEZK", 2},
                                 {"TI_OEZK3", 2},
                                 {"SGZK", 2},
                                 {"SI", 2.0},
                                 {"SI_EW", 1.5},
                                 {"SI_EQR", 0.8},
                                 {"SI_OEZK", 2},
                                 {"SI_OEZK3", 2},
                                 {"Bioregionstyp", "Kalk"},
                                 {"RI_EW", 0.6},
                                 {"RI_EQR", 0.5},
                                 {"RI_OEZK", 2},
                                 {"RI_OEZK3", 2},
                                 {"TI_OEZK_Klasse", "gut"},
                                 {"SI_OEZK_Klasse", "gut"},
                                 {"RI_OEZK_Klasse", "gut"},
                                 {"OEZK", 2},
                                 {"OEZK_Klasse", "gut"}});
    }

    void Setze(const std::string& feld, const store::Value& wert = {}, bool KAOnly = false) {
        db_.Setze("awaErgWRRL", feld, KAOnly ? "ID=17 AND KAOnly=-1" : "ID=17 AND KAOnly=0", wert);
    }

    void Leere(const char* tabelle) { db_.Ausfuehren(std::string("DELETE * FROM ") + tabelle + ";"); }

    std::vector<std::string> Fehlende() { return Texte(MissingReferences(db_.Datenbank(), site_)); }

    Projektdatenbank db_;
    AssessmentSite site_;
};

TEST_F(MissingReferenceRows, AreNoneWhereEverythingWasFound) {
    Ergebnis(false, "Alle");
    Ergebnis(true, "KA");
    EXPECT_THAT(Fehlende(), IsEmpty());
}

TEST_F(MissingReferenceRows, AreNoneWithoutAnAssessment) { EXPECT_THAT(Fehlende(), IsEmpty()); }

TEST_F(MissingReferenceRows, TellTheCauseBeforeWhatFollows) {
    Leere("awaWRRL_TGZK");
    Ergebnis(false, "Alle");
    Setze("TGZK", "-");
    Setze("TI_EW", -1.0);
    Setze("TI_EQR", 0.4);  // (4 - 2) / (4 + 1)
    Setze("TI_OEZK", -1);
    Setze("TI_OEZK3", -1);
    Setze("TI_OEZK_Klasse", "n.v.");
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_TGZK ID_AL_Bioregion=5 Hoehenstufe=9 -> -",
                                        "awaWRRL_ETI Taxagruppe=Alle TGZK=- -> -1",
                                        "awaWRRL_TIOEZK Taxagruppe=Alle TGZK=- EQR=0.4 -> -1",
                                        "awaWRRL_TIOEZK Taxagruppe=Alle TGZK=- EQR=0.43 -> -1"));
}

TEST_F(MissingReferenceRows, AreToldForEachModuleWithItsKey) {
    Leere("awaWRRL_SGZK");
    Leere("awaWRRL_RBioregionstyp");
    Ergebnis(false, "Alle");
    Setze("SGZK", -1);
    Setze("SI_EW", -1.0);
    Setze("SI_OEZK", -1);
    Setze("Bioregionstyp", "-");
    Setze("RI_EW", -1.0);
    Setze("RI_EQR", -0.35);
    Setze("RI_OEZK", -1);
    Setze("RI_OEZK3", -1);
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_SGZK ID_AL_Bioregion=5 Hoehenstufe=9 -> -1",
                                        "awaWRRL_ESI Taxagruppe=Alle Gueteklasse=-1 -> -1",
                                        "awaWRRL_SIOEZK Taxagruppe=Alle Gueteklasse=-1 EQR=0.8 -> -1",
                                        "awaWRRL_RBioregionstyp ID_AL_Bioregion=5 Hoehenstufe=9 -> -",
                                        "awaWRRL_ERI Taxagruppe=Alle Bioregionstyp=- -> -1",
                                        "awaWRRL_RIOEZK Taxagruppe=Alle Bioregionstyp=- EQR=-0.35 -> -1",
                                        "awaWRRL_RIOEZK Taxagruppe=Alle Bioregionstyp=- EQR=-0.32 -> -1"));
}

TEST_F(MissingReferenceRows, AreNotGuessedFromMarkersThatATableHolds) {
    Leere("awaWRRL_TGZK");
    db_.TGZK(5, 9, "-");
    db_.ETI("Alle", "-", -1);
    db_.TIOEZK("Alle", "-", 0, 1, -1);
    Ergebnis(false, "Alle");
    Setze("TGZK", "-");
    Setze("TI_EW", -1.0);
    Setze("TI_OEZK", -1);
    Setze("TI_OEZK3", -1);
    EXPECT_THAT(Fehlende(), IsEmpty());
}

TEST_F(MissingReferenceRows, LeaveOutTheRaisedClassAboveOne) {
    // Bounds up to 0.9: nothing for 0.97 and 0.98. Raised these are 1.00, which is told, and 1.01, which is
    // not.
    Leere("awaWRRL_TIOEZK");
    db_.TIOEZK("Alle", "mäßig", 0, 0.9, 2);
    Ergebnis(false, "Alle");
    Setze("TI_OEZK", -1);
    Setze("TI_OEZK3", -1);
    Setze("TI_EQR", 0.97);
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_TIOEZK Taxagruppe=Alle TGZK=mäßig EQR=0.97 -> -1",
                                        "awaWRRL_TIOEZK Taxagruppe=Alle TGZK=mäßig EQR=1 -> -1"));
    Setze("TI_EQR", 0.98);
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_TIOEZK Taxagruppe=Alle TGZK=mäßig EQR=0.98 -> -1"));
}

TEST_F(MissingReferenceRows, IncludeBoundsAsTheyBelongToTheirClass) {
    Leere("awaWRRL_TIOEZK");
    db_.TIOEZK("Alle", "mäßig", 0.74, 0.77, -1);
    Ergebnis(false, "Alle");
    Setze("TI_OEZK", -1);   // at 0.74, the lower bound
    Setze("TI_OEZK3", -1);  // at 0.77, the upper one
    EXPECT_THAT(Fehlende(), IsEmpty());
}

TEST_F(MissingReferenceRows, AreToldOnceForBothRuns) {
    Leere("awaWRRL_TGZK");
    Leere("awaWRRL_ETI");
    for (const bool KAOnly : {false, true}) {
        Ergebnis(KAOnly, KAOnly ? "KA" : "Alle");
        Setze("TGZK", "-", KAOnly);
        Setze("TI_EW", -1.0, KAOnly);
    }
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_TGZK ID_AL_Bioregion=5 Hoehenstufe=9 -> -",
                                        "awaWRRL_ETI Taxagruppe=Alle TGZK=- -> -1",
                                        "awaWRRL_ETI Taxagruppe=KA TGZK=- -> -1"));
}

TEST_F(MissingReferenceRows, IncludeClassesWithoutName) {
    Ergebnis(false, "Alle");
    Setze("TI_OEZK", 6);
    Setze("TI_OEZK_Klasse", "n.v.");
    Setze("OEZK", 6);
    Setze("OEZK_Klasse", "n.v.");
    Setze("SI_OEZK", -1);  // no class at all: its missing bounds are told, a name is not asked for
    Setze("SI_OEZK_Klasse", "n.v.");
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_Klasse Klassenzahl=6 -> n.v."));
    db_.Klasse(6, "n.v.");
    EXPECT_THAT(Fehlende(), IsEmpty());
}

TEST_F(MissingReferenceRows, PassOverWhatAFailedRunDidNotReach) {
    Leere("awaWRRL_TGZK");
    Ergebnis(false, "Alle");
    for (const char* feld : {"TGZK", "TI_EW", "TI_EQR", "TI_OEZK", "TI_OEZK3", "SGZK", "SI_EW", "SI_EQR",
                             "SI_OEZK", "SI_OEZK3", "OEZK", "OEZK_Klasse"})
        Setze(feld);
    Setze("RI_OEZK", -1);
    Leere("awaWRRL_RIOEZK");
    EXPECT_THAT(Fehlende(), ElementsAre("awaWRRL_RIOEZK Taxagruppe=Alle Bioregionstyp=Kalk EQR=0.5 -> -1"));
    Setze("Taxagruppe");
    EXPECT_THAT(Fehlende(), IsEmpty());
}

}  // namespace
