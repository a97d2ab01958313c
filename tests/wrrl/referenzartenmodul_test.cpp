#include <gmock/gmock.h>

#include "wrrl/Auswertung.h"
#include "wrrl/Modulprobe.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Referenzartenmodul : public Modulprobe {
protected:
    Referenzartenmodul() {
        db.Bioregionstyp(Bioregion, Stufe, "Kalk-Ö");
        db.ERI("Alle", "Kalk-Ö", 0.6);
        db.ERI("KA", "Kalk-Ö", 0.5);
        db.RIOEZK("Alle", "Kalk-Ö", 0, 0.4, 4);
        db.RIOEZK("Alle", "Kalk-Ö", 0.4, 0.66, 3);
        db.RIOEZK("Alle", "Kalk-Ö", 0.67, 0.8, 2);
        db.RIOEZK("Alle", "Kalk-Ö", 0.8, 1, 1);
        db.RIOEZK("KA", "Kalk-Ö", 0, 0.72, 3);
        db.RIOEZK("KA", "Kalk-Ö", 0.72, 1, 2);
    }

    std::string Bewerten(bool KAOnly = false, std::string_view kriterium = NurBioregion3, bool debug = false,
                         ReferenceSpeciesTrace* spur = nullptr) {
        return AuswertungWRRL_Referenzarten(db.Datenbank(), TR, Bioregion, Stufe, kriterium, debug, KAOnly,
                                            spur);
    }
    std::optional<Error> Fehler(bool KAOnly = false, ReferenceSpeciesTrace* spur = nullptr) {
        return Fehlschlag([&] { Bewerten(KAOnly, NurBioregion3, false, spur); });
    }
};

TEST_F(Referenzartenmodul, WritesCountsAndSums) {
    Lauf(false);
    Bewerten();
    const std::pair<const char*, Value> spalten[] = {
        {"TaxazahlGesamt", 8.0},       {"TaxazahlArtniveau", 6.0},
        {"TaxazahlRefart", 2.0},     // A: 1; B: 7
        {"TaxazahlGesamt_KA", 3.0},  // findings of 6, 7, 8; taxon 9 has another life form
        {"TaxazahlArtniveau_KA", 2.0}, {"TaxazahlRefart_KA", 1.0},
        {"AbundanzGesamt", 200.0},     {"AbundanzArtniveau", 185.0},
        {"AbundanzRefart", 80.0},  // 60 + 20
        {"AbundanzGesamt_KA", 100.0},  {"AbundanzArtniveau_KA", 90.0},
        {"AbundanzRefart_KA", 20.0},   {"KASchalenzahl", 200.0},  // 140 + 40 + 20
        {"TaxazahlArtniveauNKA", 4},   {"AbundanzArtniveauNKA", 95.0F},
        {"Taxagruppe", "Alle"},        {"BedingtBewertbar", false},
    };
    for (const auto& [spalte, wert] : spalten) EXPECT_EQ(Wert(spalte), wert) << spalte;
}

TEST_F(Referenzartenmodul, OverAllGroupsRatesSharesOfAllReferenceSpecies) {
    Lauf(false);
    EXPECT_EQ(Bewerten(), "Alle");
    // 80 / (200 - (200 - 185)) = 80 / 185; 2 / 6; mean 0.382883; / 0.6 = 0.638138
    EXPECT_EQ(Wert("RI_Abundanz"), Value(static_cast<float>(80.0 / 185)));
    EXPECT_EQ(Wert("RI_Anzahl"), Value(static_cast<float>(2.0 / 6)));
    EXPECT_EQ(Wert("Bioregionstyp"), Value("Kalk-Ö"));
    EXPECT_EQ(Wert("RI_EW"), Value(0.6F));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.64F));
    EXPECT_EQ(Wert("RI_OEZK").I4(), 3);
    // 0.67
    EXPECT_EQ(Wert("RI_OEZK3").I4(), 2);
}

TEST_F(Referenzartenmodul, OfTheDiatomsAloneRatesTheirShares) {
    Lauf(true);
    EXPECT_EQ(Bewerten(true), "KA");
    // 20 / (100 - (100 - 90)) = 20 / 90; 1 / 2; mean 0.361111; / 0.5 = 0.722222, a bound of 2 and 3
    EXPECT_EQ(Wert("RI_Abundanz", true), Value(static_cast<float>(20.0 / 90)));
    EXPECT_EQ(Wert("RI_Anzahl", true), Value(0.5F));
    EXPECT_EQ(Wert("RI_EW", true), Value(0.5F));
    EXPECT_EQ(Wert("RI_EQR", true), Value(0.72F));
    EXPECT_EQ(Wert("RI_OEZK", true).I4(), 2);
    EXPECT_EQ(Wert("RI_OEZK3", true).I4(), 2);
    // The others are counted and stored all the same.
    EXPECT_EQ(Wert("AbundanzArtniveauNKA", true), Value(95.0F));
    EXPECT_EQ(Wert("TaxazahlGesamt", true), Value(8.0));
    EXPECT_EQ(Wert("Taxagruppe", true), Value("KA"));
}

TEST_F(Referenzartenmodul, WithoutConditionCountsAllOfTypeB) {
    Lauf(false);
    Bewerten(false, "");
    EXPECT_EQ(Wert("TaxazahlRefart"), Value(3.0));    // 1, 2, 7
    EXPECT_EQ(Wert("AbundanzRefart"), Value(100.0));  // 60 + 20 + 20
    EXPECT_EQ(Wert("TaxazahlRefart_KA"), Value(1.0));
    EXPECT_EQ(Wert("AbundanzRefart_KA"), Value(20.0));
}

TEST_F(Referenzartenmodul, PassesTheConditionToAllFourNumbersOfReferenceSpecies) {
    Lauf(false);
    Bewerten(false, "awaRefArt_TypB.ID_AL_Bioregion=5");
    EXPECT_EQ(Wert("TaxazahlRefart"), Value(1.0));
    EXPECT_EQ(Wert("AbundanzRefart"), Value(60.0));
    EXPECT_EQ(Wert("TaxazahlRefart_KA"), Value(0.0));
    EXPECT_EQ(Wert("AbundanzRefart_KA"), Value(0.0));
}

TEST_F(Referenzartenmodul, WithAConditionThatTheStoreRejectsCountsNoReferenceSpecies) {
    Lauf(false);
    EXPECT_EQ(Bewerten(false, "awaRefArt_TypB.Fluß=3"), "Alle");
    EXPECT_EQ(Wert("TaxazahlRefart"), Value(0.0));
    EXPECT_EQ(Wert("AbundanzRefart"), Value(0.0));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.0F));
}

// ---- group and restriction -----------------------------------------------------------------------------

struct Gruppenfall {
    const char* Warum;
    double Taxon1;
    double Taxon4;
    const char* Gruppe;
    double Abundanz;
    int Taxa;
};

class ReferenzartenGruppe : public Referenzartenmodul, public testing::WithParamInterface<Gruppenfall> {};

// Taxa 2 and 3 have 30 percent in all of these.
TEST_P(ReferenzartenGruppe, FollowsTheAlgaeBesidesTheDiatoms) {
    const auto& fall = GetParam();
    Anteil(1, fall.Taxon1);
    Anteil(4, fall.Taxon4);
    Lauf(false);
    EXPECT_EQ(Bewerten(), fall.Gruppe) << fall.Warum;
    EXPECT_EQ(Wert("Taxagruppe"), Value(fall.Gruppe)) << fall.Warum;
    EXPECT_EQ(Wert("AbundanzArtniveauNKA"), Value(static_cast<float>(fall.Abundanz)));
    EXPECT_EQ(Wert("TaxazahlArtniveauNKA"), Value(fall.Taxa));
}

INSTANTIATE_TEST_SUITE_P(Bounds, ReferenzartenGruppe,
                         testing::Values(Gruppenfall{"exactly 50 percent, 4 taxa", 15, 5, "Alle", 50, 4},
                                         Gruppenfall{"49.9 percent, 4 taxa", 14.9, 5, "KA", 49.9, 4},
                                         Gruppenfall{"exactly 50 percent, 3 taxa", 20, 0, "KA", 50, 3},
                                         Gruppenfall{"90 percent, 3 taxa", 60, 0, "KA", 90, 3},
                                         // 49.9999999 becomes the 32-bit float 50.
                                         Gruppenfall{"a sum that is 50 as a 32-bit float", 14.9999999, 5,
                                                     "Alle", 50, 4}));

TEST_F(Referenzartenmodul, AFirstRunThatFallsBackToTheDiatomsRatesTheirShares) {
    Anteil(4, 0);  // three taxa besides the diatoms
    Lauf(false);
    EXPECT_EQ(Bewerten(), "KA");
    // As where the diatoms are asked for: 20 / (100 - (100 - 90)), 1 / 2 and 0.361111 / 0.5 = 0.722222.
    EXPECT_EQ(Wert("RI_Abundanz"), Value(static_cast<float>(20.0 / 90)));
    EXPECT_EQ(Wert("RI_Anzahl"), Value(0.5F));
    EXPECT_EQ(Wert("RI_EW"), Value(0.5F));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.72F));
    EXPECT_EQ(Wert("RI_OEZK").I4(), 2);
}

struct Einschraenkungsfall {
    const char* Warum;
    bool KAOnly;
    double Taxon1;
    double Taxon6;
    double Abundanz;
    bool Bedingt;
};

class ReferenzartenEinschraenkung : public Referenzartenmodul,
                                    public testing::WithParamInterface<Einschraenkungsfall> {};

// Taxa 2, 3, 4 and 7 have 55 percent in all of these, 20 of them diatoms.
TEST_P(ReferenzartenEinschraenkung, FollowsTheAbundanceAtSpeciesLevelOfAllGroups) {
    const auto& fall = GetParam();
    Anteil(1, fall.Taxon1);
    Anteil(6, fall.Taxon6);
    Lauf(fall.KAOnly);
    Bewerten(fall.KAOnly);
    EXPECT_NEAR(Wert("AbundanzArtniveau", fall.KAOnly).R8(), fall.Abundanz, 1e-9) << fall.Warum;
    EXPECT_EQ(Wert("BedingtBewertbar", fall.KAOnly), Value(fall.Bedingt)) << fall.Warum;
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, ReferenzartenEinschraenkung,
    testing::Values(Einschraenkungsfall{"Alle, exactly 167", false, 60, 52, 167, false},
                    Einschraenkungsfall{"Alle, 166.9", false, 60, 51.9, 166.9, true},
                    // As a 32-bit float this would be 167.
                    Einschraenkungsfall{"Alle, just below 167", false, 60, 51.9999999, 166.9999999, true},
                    Einschraenkungsfall{"KA, exactly 85", true, 10, 20, 85, false},
                    Einschraenkungsfall{"KA, 84.9", true, 10, 19.9, 84.9, true},
                    Einschraenkungsfall{"KA, just below 85", true, 10, 19.9999999, 84.9999999, true},
                    Einschraenkungsfall{"KA, the diatoms have 20 and the others 70", true, 35, 0, 90, false},
                    Einschraenkungsfall{"KA, complete diatoms", true, 0, 80, 135, false}));

// ---- reference values ----------------------------------------------------------------------------------

TEST_F(Referenzartenmodul, WithoutTypeMarksItAndTheRatioIsNegative) {
    db.Ausfuehren("DELETE * FROM awaWRRL_RBioregionstyp;");
    Lauf(false);
    Bewerten();
    EXPECT_EQ(Wert("Bioregionstyp"), Value("-"));
    EXPECT_EQ(Wert("RI_EW"), Value(-1.0F));
    // 0.382883 / -1
    EXPECT_EQ(Wert("RI_EQR"), Value(-0.38F));
    EXPECT_EQ(Wert("RI_OEZK").I4(), -1);
    EXPECT_EQ(Wert("RI_OEZK3").I4(), -1);

    db.ERI("Alle", "-", 0.5);
    db.RIOEZK("Alle", "-", 0, 1, 9);
    Bewerten();
    // 0.382883 / 0.5 = 0.765766
    EXPECT_EQ(Wert("RI_EQR"), Value(0.77F)) << "the marker is a key like any other";
    EXPECT_EQ(Wert("RI_OEZK").I4(), 9);
}

TEST_F(Referenzartenmodul, WithoutExpectedValueAndReferenceSpeciesTheRatioIsZero) {
    db.Ausfuehren("DELETE * FROM awaWRRL_ERI;");
    db.Ausfuehren("DELETE * FROM awaRefArt_TypA;");
    db.Ausfuehren("DELETE * FROM awaRefArt_TypB;");
    Lauf(false);
    Bewerten();
    // 0 / -1
    EXPECT_EQ(Wert("RI_EQR"), Value(0.0F));
    EXPECT_EQ(Wert("RI_OEZK").I4(), 4);
}

TEST_F(Referenzartenmodul, RatioAboveOneIsOneAndItsRaisedClassAtOneAndThreeHundredths) {
    db.Setze("awaWRRL_ERI", "ErwarteterWert", "Taxagruppe='Alle'", 0.3);
    Lauf(false);
    ReferenceSpeciesTrace spur;
    Bewerten(false, NurBioregion3, false, &spur);
    // 0.382883 / 0.3 = 1.276276
    EXPECT_EQ(spur.Ratio.BeforeCap, 1.28);
    EXPECT_EQ(Wert("RI_EQR"), Value(1.0F));
    EXPECT_EQ(Wert("RI_OEZK").I4(), 1);
    EXPECT_EQ(Wert("RI_OEZK3").I4(), -1);
    db.RIOEZK("Alle", "Kalk-Ö", 1.03, 1.03, 1);
    Bewerten();
    EXPECT_EQ(Wert("RI_OEZK3").I4(), 1);
}

TEST_F(Referenzartenmodul, WithoutSpeciesTheCountPartStaysZero) {
    for (const std::int32_t art : {1, 2, 3, 4, 6, 7}) Anteil(art, 0);
    Lauf(false);
    EXPECT_EQ(Bewerten(), "KA");
    // Diatoms: 10, all of a genus: 0 / (100 - (10 - 0)) = 0.
    EXPECT_EQ(Wert("RI_Abundanz"), Value(0.0F));
    EXPECT_EQ(Wert("RI_Anzahl"), Value(0.0F));
    EXPECT_EQ(Wert("RI_EQR"), Value(0.0F));
    EXPECT_EQ(Wert("BedingtBewertbar"), Value(true));
}

TEST_F(Referenzartenmodul, WithAnEmptyListCountsFromTheFindingsAlone) {
    db.Ausfuehren("DELETE * FROM awaArtenlisteHaeufigkeit;");
    Lauf(false);
    EXPECT_EQ(Bewerten(), "KA");
    EXPECT_EQ(Wert("TaxazahlGesamt"), Value(0.0));
    EXPECT_EQ(Wert("AbundanzGesamt"), Value(0.0));
    EXPECT_EQ(Wert("TaxazahlGesamt_KA"), Value(3.0)) << "from the findings";
    EXPECT_EQ(Wert("KASchalenzahl"), Value(200.0)) << "from the findings";
    EXPECT_EQ(Wert("RI_EQR"), Value(0.0F));
}

// ---- failures ------------------------------------------------------------------------------------------

TEST_F(Referenzartenmodul, WhereNothingOfTheWholeIsSpeciesDividesByZeroAndKeepsTheCounts) {
    // 190 of taxon 5 and 10 of taxon 8 are no species: 200 - (385 - 185) = 0.
    Anteil(5, 190);
    Lauf(false);
    const auto fehler = Fehler();
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DivisionByZero);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("AuswertungWRRL_Referenzarten: "),
                                             HasSubstr("200 - (AbundanzGesamt - AbundanzArtniveau) is 0"),
                                             HasSubstr("sub-habitat 17 (Blöcke 17)")));
    EXPECT_EQ(Wert("AbundanzGesamt"), Value(385.0));
    EXPECT_EQ(Wert("AbundanzArtniveauNKA"), Value(95.0F));
    EXPECT_EQ(Wert("Taxagruppe"), Value("Alle"));
    EXPECT_EQ(Wert("BedingtBewertbar"), Value(false));
    EXPECT_TRUE(Wert("RI_Abundanz").IsNull());
    EXPECT_TRUE(Wert("Bioregionstyp").IsNull());
}

TEST_F(Referenzartenmodul, WhereNoDiatomIsSpeciesDividesByZeroToo) {
    Anteil(6, 0);
    Anteil(7, 0);
    Anteil(8, 100);
    Lauf(true);
    const auto fehler = Fehler(true);
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DivisionByZero);
    EXPECT_THAT(fehler->Description(), HasSubstr("100 - (AbundanzGesamt_KA - AbundanzArtniveau_KA) is 0"));
    EXPECT_EQ(Wert("Taxagruppe", true), Value("KA"));
    EXPECT_EQ(Wert("KASchalenzahl", true), Value(200.0));
}

TEST_F(Referenzartenmodul, WhereZeroIsExpectedDividesByZeroAndKeepsTheShares) {
    db.Setze("awaWRRL_ERI", "ErwarteterWert", "Taxagruppe='Alle'", 0.0);
    Lauf(false);
    ReferenceSpeciesTrace spur;
    const auto fehler = Fehler(false, &spur);
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::DivisionByZero);
    EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("awaWRRL_ERI.ErwarteterWert is 0"),
                                             HasSubstr("Bioregionstyp='Kalk-Ö'"), HasSubstr("Blöcke 17")));
    EXPECT_EQ(Wert("Taxagruppe"), Value("Alle"));
    EXPECT_FALSE(Wert("RI_Abundanz").IsNull());
    EXPECT_FALSE(Wert("RI_Anzahl").IsNull());
    EXPECT_TRUE(Wert("RI_EW").IsNull());
    EXPECT_TRUE(Wert("Bioregionstyp").IsNull());
    EXPECT_EQ(spur.Counts.size(), 15U);
    EXPECT_TRUE(spur.ExpectedValue.Found);
    EXPECT_FALSE(spur.Ratio.Unrounded.has_value());
    EXPECT_FALSE(spur.Done);
}

TEST_F(Referenzartenmodul, NullAmongTheReferenceValuesFails) {
    struct NullFall {
        const char* Tabelle;
        const char* Feld;
        const char* Bedingung;
    };
    const NullFall faelle[] = {{"awaWRRL_RBioregionstyp", "Bioregionstyp", "Hoehenstufe=2"},
                               {"awaWRRL_ERI", "ErwarteterWert", "Taxagruppe='Alle'"},
                               {"awaWRRL_RIOEZK", "OEZK", "OEZK=3 AND Taxagruppe='Alle'"},
                               {"awaWRRL_RIOEZK", "OEZK", "OEZK=2 AND Taxagruppe='Alle'"}};
    for (const auto& fall : faelle) {
        db.Ausfuehren("DELETE * FROM awaErgProjekt;");
        db.Ausfuehren("DELETE * FROM awaErgWRRL;");
        Lauf(false);
        const auto vorher = db.Eins(std::string("SELECT ") + fall.Feld + " FROM " + fall.Tabelle + " WHERE " +
                                    fall.Bedingung + ";");
        db.Setze(fall.Tabelle, fall.Feld, fall.Bedingung);
        const auto fehler = Fehler();
        ASSERT_TRUE(fehler.has_value()) << fall.Tabelle << "." << fall.Feld;
        EXPECT_EQ(fehler->Number(), ErrorNumber::InvalidUseOfNull);
        EXPECT_THAT(fehler->Description(), AllOf(HasSubstr("AuswertungWRRL_Referenzarten: "),
                                                 HasSubstr(std::string(fall.Tabelle) + "." + fall.Feld)));
        EXPECT_EQ(Wert("Taxagruppe"), Value("Alle"));
        EXPECT_FALSE(Wert("RI_Anzahl").IsNull());
        for (const char* spalte : {"Bioregionstyp", "RI_EW", "RI_EQR", "RI_OEZK", "RI_OEZK3"})
            EXPECT_TRUE(Wert(spalte).IsNull()) << spalte << " comes with both classes or not at all";
        db.Setze(fall.Tabelle, fall.Feld, std::string(fall.Feld) + " Is Null", vorher);
    }
}

TEST_F(Referenzartenmodul, WithoutTheRowOfItsRunFails) {
    Lauf(true);
    const auto fehler = Fehler();
    ASSERT_TRUE(fehler.has_value());
    EXPECT_EQ(fehler->Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_THAT(fehler->Description(),
                AllOf(HasSubstr("AuswertungWRRL_Referenzarten"), HasSubstr("awaErgWRRL")));
}

// ---- debug boxes and trace -----------------------------------------------------------------------------

TEST_F(Referenzartenmodul, InDebugModeShowsStatementsAndDecisionsInTheirOrder) {
    Lauf(false);
    db.Datenbank();
    Gegenueber person;
    Bewerten(false, NurBioregion3, true);
    const std::string klasse =
        "SELECT OEZK FROM awaWRRL_RIOEZK WHERE Taxagruppe='Alle' AND Bioregionstyp='Kalk-Ö' AND ";
    EXPECT_THAT(
        person.Texte(),
        ElementsAre("SpeichernTaxa: SELECT * FROM awaErgWRRL WHERE (ID=17) AND (KAOnly=0);",
                    "strGruppe: Alle", "bolBB: 0",
                    "Biotyp: SELECT Bioregionstyp From awaWRRL_RBioregionstyp WHERE ID_AL_Bioregion=3 AND "
                    "Hoehenstufe=2;",
                    "RI_EW: SELECT ErwarteterWert FROM awaWRRL_ERI WHERE Taxagruppe='Alle' AND "
                    "Bioregionstyp='Kalk-Ö';",
                    "OEZK: " + klasse + "EQRMin <= 0.64 and EQRMax >= 0.64;",
                    "OEZK3: " + klasse + "EQRMin <= 0.67 and EQRMax >= 0.67;"));
}

TEST_F(Referenzartenmodul, InDebugModeShowsTheGroupOfTheDiatomsAndARestriction) {
    Anteil(1, 1);
    Anteil(6, 10);
    Lauf(false);
    // 1 + 20 + 10 + 5 = 36 besides the diatoms; with 10 + 20 of these 66, below 85.
    db.Datenbank();
    Gegenueber person;
    Bewerten(false, NurBioregion3, true);
    const auto boxen = person.Texte();
    ASSERT_EQ(boxen.size(), 7U);
    EXPECT_EQ(boxen[1], "strGruppe: KA");
    EXPECT_EQ(boxen[2], "bolBB: -1");
}

TEST_F(Referenzartenmodul, TraceTellsCountsInTheOrderInWhichTheyAreMade) {
    Lauf(false);
    ReferenceSpeciesTrace spur;
    Bewerten(false, NurBioregion3, false, &spur);
    std::vector<std::string> spalten;
    for (const auto& zahl : spur.Counts) spalten.push_back(zahl.Column);
    EXPECT_THAT(spalten, ElementsAre("TaxazahlGesamt", "TaxazahlArtniveau", "TaxazahlRefart",
                                     "TaxazahlGesamt_KA", "TaxazahlArtniveau_KA", "TaxazahlRefart_KA",
                                     "AbundanzGesamt", "AbundanzArtniveau", "AbundanzRefart",
                                     "AbundanzGesamt_KA", "AbundanzArtniveau_KA", "AbundanzRefart_KA",
                                     "TaxazahlArtniveauNKA", "AbundanzArtniveauNKA", "KASchalenzahl"));
    EXPECT_EQ(spur.Counts[2].Result, 2);
    EXPECT_EQ(spur.Counts[14].Result, 200);
    EXPECT_EQ(spur.Reason, GroupReason::AllGroups);
    EXPECT_EQ(spur.RestrictionAbundance, 185);
    EXPECT_EQ(spur.RestrictionBound, 167);
    EXPECT_FALSE(spur.BedingtBewertbar);
    EXPECT_EQ(spur.Type.Result, Value("Kalk-Ö"));
    EXPECT_EQ(spur.Ratio.Class.OEZK, 3);
    EXPECT_EQ(spur.Ratio.Raised.OEZK, 2);
    EXPECT_EQ(spur.Ratio.AllBounds.size(), 4U);
    EXPECT_TRUE(spur.Done);
}

TEST_F(Referenzartenmodul, TraceTellsWhereEachTaxonOfTheListCounts) {
    Eintrag(1, 60, false, true);
    Eintrag(7, 20, true, true);
    Eintrag(3, 0, false, true);
    db.ArtOhneWerte(20);
    db.Ausfuehren("UPDATE awaArt SET ID_UFAM=999 WHERE ID_ART=20;");
    Eintrag(20, 1);
    Lauf(false);
    ReferenceSpeciesTrace spur;
    Bewerten(false, NurBioregion3, false, &spur);
    ASSERT_EQ(spur.Taxa.size(), 11U) << "eight taxa, two of them with CF too, one without taxonomy";
    const auto taxon = [&](std::int32_t art, bool cf) {
        for (const auto& t : spur.Taxa)
            if (t.ID_ART == art && t.CF == cf) return t;
        ADD_FAILURE() << "taxon " << art;
        return CountedTaxon{};
    };
    EXPECT_EQ(taxon(1, false).TypA, 1);
    EXPECT_EQ(taxon(1, true).TypA, 1) << "type A is not distinct";
    EXPECT_EQ(taxon(1, false).TypB, 0);
    EXPECT_EQ(taxon(7, false).TypB + taxon(7, true).TypB, 1) << "an equal share counts once";
    EXPECT_EQ(taxon(2, false).TypB, 0) << "another bioregion";
    EXPECT_EQ(taxon(6, false).ID_GRGR, 128);
    EXPECT_TRUE(taxon(6, false).IsDiatom);
    EXPECT_TRUE(taxon(6, false).IsSpecies);
    EXPECT_EQ(taxon(6, false).Abundance, 70);
    EXPECT_FALSE(taxon(5, false).IsSpecies);
    EXPECT_FALSE(taxon(20, false).ID_GRGR.has_value());
    // The rows add up to what was stored.
    double summe = 0;
    for (const auto& t : spur.Taxa) summe += t.Abundance * (t.TypA + t.TypB);
    EXPECT_EQ(Wert("AbundanzRefart"), Value(summe));
}

TEST_F(Referenzartenmodul, TraceTellsWhyTheDiatomsAloneAreAssessed) {
    ReferenceSpeciesTrace spur;
    Lauf(true);
    Bewerten(true, NurBioregion3, false, &spur);
    EXPECT_EQ(spur.Reason, GroupReason::DiatomsAsked);
    EXPECT_EQ(spur.RestrictionBound, 85);
    Lauf(false);
    Anteil(4, 0);
    Bewerten(false, NurBioregion3, false, &spur);
    EXPECT_EQ(spur.Reason, GroupReason::TaxaNotAbove3);
    Anteil(1, 1);
    Bewerten(false, NurBioregion3, false, &spur);
    EXPECT_EQ(spur.Reason, GroupReason::AbundanceBelow50);
}

TEST_F(Referenzartenmodul, TraceNeverFailsARunAndChangesNoResult) {
    Lauf(false);
    Bewerten(false, "awaRefArt_TypB.Fluß=3");
    const auto ohne = db.Abzug("awaErgWRRL");
    ReferenceSpeciesTrace spur;
    Bewerten(false, "awaRefArt_TypB.Fluß=3", false, &spur);
    EXPECT_EQ(db.Abzug("awaErgWRRL"), ohne);
    EXPECT_EQ(spur.Taxa.size(), 8U);
    EXPECT_EQ(spur.Taxa[6].TypB, 0);
    EXPECT_TRUE(spur.Done);
}

TEST_F(Referenzartenmodul, TraceOfASubHabitatWithoutColumnHasNoTaxa) {
    db.Teilraum(18, 1, {});
    db.Zeile("awaErgWRRL", {{"ID", 18}, {"KAOnly", false}});
    ReferenceSpeciesTrace spur;
    EXPECT_EQ(AuswertungWRRL_Referenzarten(db.Datenbank(), 18, Bioregion, Stufe, "", false, false, &spur),
              "KA");
    EXPECT_TRUE(spur.Taxa.empty());
    EXPECT_TRUE(spur.Done);
}

}  // namespace
}  // namespace FX_Algen
