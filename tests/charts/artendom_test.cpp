// The dominance chart: texts of its statements, taxa, the frequency list behind them, and the progress form.
#include "charts/ArtenDom.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"
#include "charts/Grafikdatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

/// Sub-habitat 17 with covers of 100, so that a cover is a relative abundance: algae 1 with 40, 2 with 1.5, 3
/// with 20 (uncertain) and 5. Diatoms 11 with 30 valves of 100, 12 with 70. Sub-habitat 18 at another station
/// has alga 2 alone, with 60.
class ArtenDom : public testing::Test {
protected:
    ArtenDom() {
        db.Zweig(17, "Brücke", "Ufer");
        db.Zweig(18, "Mühle", "Wehr");
        db.Art(1, "Cladophora", "glomerata", 130);
        db.Art(2, "Ulothrix", "zonata", 130);
        db.Art(3, "Vaucheria", "größte", 130);
        db.Art(11, "Achnanthes", "älteste", 128);
        db.Art(12, "Navicula", "lanceolata", 128);
        db.Fund(17, 1, 40);
        db.Fund(17, 2, 1.5);
        db.Fund(17, 3, 20, 0, true);
        db.Fund(17, 3, 5);
        db.Fund(17, 11, 0, 30);
        db.Fund(17, 12, 0, 70);
        db.Fund(18, 2, 60);
    }

    Dominanzauftrag Auftrag(std::int16_t algenart) {
        Dominanzauftrag auftrag;
        auftrag.Liste.Datenbank = db.Datenbank();
        auftrag.Liste.DBName = db.Pfad();
        auftrag.Liste.AktUebersicht = "Projekt";
        auftrag.Liste.ProjektID = 3;
        auftrag.Liste.SprachID = 10000;
        auftrag.TeilraumID = 17;
        auftrag.Algenart = algenart;
        auftrag.Berechnen = true;
        return auftrag;
    }
    /// Rows of the chart.
    std::vector<std::string> Zeilen(const Dominanzauftrag& auftrag) {
        return db.Zeilen(Grafik_ArtenDom_Init(auftrag).value().SQL);
    }
    /// A cell of the list that the chart reads.
    void Zelle(const std::string& wert, std::int32_t art) {
        db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A17=" + wert +
                      " WHERE ID_Art=" + store::NumberText(art) + ";");
    }

    Grafikdatenbank db;
};

// ---- statements ----------------------------------------------------------------------------------------

TEST_F(ArtenDom, StatementNamesTaxaAndTheirAbundanceInRisingOrder) {
    const std::string anfang =
        "SELECT DISTINCTROW IIf([cf]=True,[Gattung]+\" cf. \"+[Art],[Gattung]+\" \"+[Art]) As Taxa, "
        "[A17] As Wert FROM awaArtenlisteHaeufigkeit INNER JOIN awaArt "
        "ON awaArtenlisteHaeufigkeit.ID_Art = awaArt.ID_ART ";
    auto auftrag = Auftrag(1);
    auftrag.MaxDomWert = 1.25F;
    EXPECT_EQ(Grafik_ArtenDom_Init(auftrag)->SQL,
              anfang +
                  "Where (awaArtenlisteHaeufigkeit.IstKA = 0) AND (awaArtenlisteHaeufigkeit.[A17] >1.25) "
                  "ORDER BY awaArtenlisteHaeufigkeit.[A17];");
    auftrag.Algenart = 2;
    EXPECT_EQ(Grafik_ArtenDom_Init(auftrag)->SQL,
              anfang +
                  "Where (awaArtenlisteHaeufigkeit.IstKA = -1) AND (awaArtenlisteHaeufigkeit.[A17] >1.25) "
                  "ORDER BY awaArtenlisteHaeufigkeit.[A17];");
}

TEST_F(ArtenDom, CountIsThatOfTheGroupAboveTheThreshold) {
    // The statement is seen where it fails.
    auto auftrag = Auftrag(1);
    auftrag.TeilraumID = 99;
    auftrag.MaxDomWert = 2;
    const std::pair<std::int16_t, std::string> faelle[] = {
        {1, "WHERE (awaArtenlisteHaeufigkeit.IstKA = 0) AND ([A99]) >2;"},
        {2, "WHERE (awaArtenlisteHaeufigkeit.IstKA = -1) AND ([A99]) >2;"}};
    for (const auto& [algenart, bedingung] : faelle) {
        auftrag.Algenart = algenart;
        try {
            Grafik_ArtenDom_Init(auftrag);
            ADD_FAILURE() << algenart;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::UnknownName);
            EXPECT_EQ(error.Statement(),
                      "SELECT DISTINCTROW ID_Art FROM awaArtenlisteHaeufigkeit " + bedingung);
        }
    }
}

TEST_F(ArtenDom, ThresholdIsWrittenWithAPointAndAlwaysMakesAStatement) {
    const struct {
        float Wert;
        std::string Text;
        std::int16_t Taxa;  ///< of 1.5, 5, 20 and 40
    } faelle[] = {
        {0, ">0)", 4},          {0.1F, ">0.1)", 4},      {1.5F, ">1.5)", 3},
        {19.99F, ">19.99)", 2}, {-1.5F, ">-1.5)", 4},    {33.333332F, ">33.33333)", 1},
        {1e-7F, ">1e-07)", 4},  {-1e-7F, ">-1e-07)", 4}, {39, ">39)", 1},
    };
    for (const auto& fall : faelle) {
        auto auftrag = Auftrag(1);
        auftrag.MaxDomWert = fall.Wert;
        const auto grafik = Grafik_ArtenDom_Init(auftrag);
        ASSERT_TRUE(grafik.has_value());
        EXPECT_THAT(grafik->SQL, testing::HasSubstr(fall.Text + " ORDER BY"));
        EXPECT_THAT(grafik->Artenanzahl, Optional(fall.Taxa)) << fall.Text;
        EXPECT_EQ(db.Zeilen(grafik->SQL).size(), static_cast<std::size_t>(fall.Taxa)) << fall.Text;
    }
    for (const float wert : {1e10F, 3.4e38F}) {
        auto auftrag = Auftrag(1);
        auftrag.MaxDomWert = wert;
        const auto grafik = Grafik_ArtenDom_Init(auftrag);
        EXPECT_FALSE(grafik->Artenanzahl.has_value());
        EXPECT_THAT(db.Zeilen(grafik->SQL), IsEmpty());
    }
}

// ---- taxa ----------------------------------------------------------------------------------------------

TEST_F(ArtenDom, ShowsAllButDiatomsOrDiatomsTheMostAbundantLast) {
    EXPECT_THAT(Zeilen(Auftrag(1)), ElementsAre("Ulothrix zonata|1.5", "Vaucheria größte|5",
                                                "Vaucheria cf. größte|20", "Cladophora glomerata|40"));
    EXPECT_THAT(Zeilen(Auftrag(2)), ElementsAre("Achnanthes älteste|30", "Navicula lanceolata|70"));
    EXPECT_THAT(Grafik_ArtenDom_Init(Auftrag(1))->Artenanzahl, Optional(4));
    EXPECT_THAT(Grafik_ArtenDom_Init(Auftrag(2))->Artenanzahl, Optional(2));
}

TEST_F(ArtenDom, LeavesOutATaxonAtExactlyTheThresholdAndEmptyCells) {
    auto auftrag = Auftrag(1);
    auftrag.MaxDomWert = 1.5F;
    EXPECT_THAT(Zeilen(auftrag),
                ElementsAre("Vaucheria größte|5", "Vaucheria cf. größte|20", "Cladophora glomerata|40"));
    EXPECT_THAT(Grafik_ArtenDom_Init(auftrag)->Artenanzahl, Optional(3));
    auftrag.Berechnen = false;
    auftrag.MaxDomWert = 0;
    Zelle("0", 1);
    Zelle("Null", 3);
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Ulothrix zonata|1.5"));
    EXPECT_THAT(Grafik_ArtenDom_Init(auftrag)->Artenanzahl, Optional(1));
    // A threshold below 0 takes in the taxa of other sub-habitats, but no empty cells.
    auftrag.MaxDomWert = -1;
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Cladophora glomerata|0", "Ulothrix zonata|1.5"));
    // Not the number as 32 bits hold it, but as it is told: 0.1 stays out at 0.1.
    Zelle("0.1", 2);
    auftrag.MaxDomWert = 0.1F;
    EXPECT_THAT(Zeilen(auftrag), IsEmpty());
}

TEST_F(ArtenDom, HasNoNameForATaxonThatLacksAPartOfIt) {
    db.Setze("awaArt", "Art=Null", "ID_ART=1");
    EXPECT_EQ(Zeilen(Auftrag(1)).back(), "-|40");
}

TEST_F(ArtenDom, TellsTitleAndWordOfTheSite) {
    const struct {
        std::int16_t Algenart;
        std::int16_t SprachID;
        std::string Titel;
        std::string Stellenbez;
    } faelle[] = {
        {1, 10000, "Relative Häufigkeiten Nicht-Kieselalgen (%)", "Algen-Probenstelle:"},
        {2, 10000, "Relative Häufigkeiten Kieselalgen (%) ", "Algen-Probenstelle:"},
        {1, 20000, "Relative frequencies of algae other than diatoms (%)", "Algae sampling site:"},
        {2, 20000, "Relative frequencies of diatoms (%) ", "Algae sampling site:"},
    };
    for (const auto& fall : faelle) {
        auto auftrag = Auftrag(fall.Algenart);
        auftrag.Liste.SprachID = fall.SprachID;
        const auto grafik = Grafik_ArtenDom_Init(auftrag);
        EXPECT_EQ(grafik->Standardtitel, fall.Titel);
        EXPECT_EQ(grafik->Res_Stellenbez, fall.Stellenbez);
    }
}

// ---- the frequency list --------------------------------------------------------------------------------

TEST_F(ArtenDom, RebuildsTheListOfTheWholeScope) {
    Grafik_ArtenDom_Init(Auftrag(1));
    EXPECT_THAT(db.Zeilen("SELECT A17, A18 FROM awaArtenlisteHaeufigkeit WHERE ID_Art=2;"),
                ElementsAre("1.5|60"));
    auto auftrag = Auftrag(1);
    auftrag.Liste.AktUebersicht = "UStelle";
    auftrag.Liste.ProjektID = 18;
    auftrag.TeilraumID = 18;
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Ulothrix zonata|60"));
    EXPECT_EQ(Fehlernummer([&] { db.Zeilen("SELECT A17 FROM awaArtenlisteHaeufigkeit;"); }),
              ErrorNumber::UnknownName);
    db.Ausfuehren("INSERT INTO RechenProjekt (ID_RechMan, RechManEbene) VALUES (5, 'Teilraum');");
    db.Ausfuehren("INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene) VALUES (5, 17);");
    db.Setze("RechenProjekt", "RechManSQL='RechenProjektListe.ID_RechMan=5'", "ID_RechMan=5");
    auftrag = Auftrag(2);
    auftrag.Liste.AktUebersicht = "Rechenmanager";
    auftrag.Liste.ProjektID = 5;
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Achnanthes älteste|30", "Navicula lanceolata|70"));
}

TEST_F(ArtenDom, RebuildsTheListFromTheCoversOfTheAssessmentWithTheFlag) {
    // 40 / 50 * 100 = 80; the other taxa have no ratings, which the assessment asks for.
    db.Ausfuehren("INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (1, 1);");
    db.Setze("awaTeilraum", "DG_Gesamt_WRRL=50", "ID_TR=17");
    auto auftrag = Auftrag(1);
    auftrag.Liste.IstWRRLBerechnung = true;
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Cladophora glomerata|80"));
}

TEST_F(ArtenDom, TakesTheListOfBeforeWithoutLookingAtTheScope) {
    Grafik_ArtenDom_Init(Auftrag(1));
    Zelle("41", 1);
    auto auftrag = Auftrag(1);
    auftrag.Berechnen = false;
    auftrag.Liste.AktUebersicht = "Übersicht";
    auftrag.MaxDomWert = 30;
    EXPECT_THAT(Zeilen(auftrag), ElementsAre("Cladophora glomerata|41"));
}

TEST_F(ArtenDom, FailsWithoutAListOrWithoutTheColumn) {
    auto auftrag = Auftrag(1);
    auftrag.Berechnen = false;
    for (const std::int16_t algenart : {1, 2}) {
        auftrag.Algenart = algenart;
        EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::UnknownName)
            << "the list of a new database has no sub-habitat";
    }
    db.Datenbank()->TableDefs().Delete("awaArtenlisteHaeufigkeit");
    EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::UnknownTable);
    auftrag.Liste.Datenbank = nullptr;
    EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::NotADatabase);
    auftrag = Auftrag(2);
    for (const std::int32_t tr : {0, -17, 99}) {
        auftrag.TeilraumID = tr;
        EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::UnknownName) << tr;
    }
}

TEST_F(ArtenDom, IsNoneWhereTheListCannotBeBuilt) {
    auto auftrag = Auftrag(1);
    auftrag.Liste.ProjektID = 4;  // has no sub-habitat
    EXPECT_FALSE(Grafik_ArtenDom_Init(auftrag).has_value());
    auftrag.Liste.ProjektID = 3;
    auftrag.Liste.AktUebersicht = "Übersicht";
    EXPECT_FALSE(Grafik_ArtenDom_Init(auftrag).has_value());
    auftrag.Liste.AktUebersicht = "Projekt";
    auftrag.Liste.Datenbank = nullptr;
    EXPECT_FALSE(Grafik_ArtenDom_Init(auftrag).has_value());
}

TEST_F(ArtenDom, IsNoneForAnyOtherGroupAfterTheListWasBuilt) {
    for (const std::int16_t algenart : {-1, 0, 3, 32767})
        EXPECT_FALSE(Grafik_ArtenDom_Init(Auftrag(algenart)).has_value()) << algenart;
    EXPECT_EQ(db.Zeilen("SELECT A17 FROM awaArtenlisteHaeufigkeit;").size(), 6U);
}

TEST_F(ArtenDom, FailsWhereATextIsMissingBeforeAnythingIsDone) {
    Zuschauer zuschauer;
    auto auftrag = Auftrag(1);
    auftrag.Liste.Balken.hWnd = 7;
    auftrag.Liste.SprachID = 12000;
    EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::StringNotFound);
    auftrag.Liste.SprachID = 30000;  // + 7119 is more than 16 bits hold
    EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::Overflow);
    EXPECT_THAT(zuschauer.Balken(), IsEmpty());
    EXPECT_THAT(db.Zeilen("SELECT ID_Art FROM awaArtenlisteHaeufigkeit;"), IsEmpty());
}

// ---- progress form and boxes ---------------------------------------------------------------------------

TEST_F(ArtenDom, ShowsTheProgressFormWithItsTextAroundThatOfTheList) {
    Zuschauer zuschauer;
    auto auftrag = Auftrag(1);
    auftrag.Liste.Balken = {7, 1, 2, 30.5F, 4};
    Grafik_ArtenDom_Init(auftrag);
    const std::string text = " Algen - Artenliste wird erstellt: ";
    // 1 of 2 sub-habitats is half.
    EXPECT_THAT(zuschauer.Balken(),
                ElementsAre("show 7 1 2 30.5 4", "draw 0" + text, "draw 2" + text, "show 7 1 2 30.5 4",
                            "draw 0" + text, "draw 50" + text, "draw 100" + text, "hide 7", "hide 7"));
}

TEST_F(ArtenDom, ShowsTheProgressFormAlsoWhereNoListIsBuilt) {
    Grafik_ArtenDom_Init(Auftrag(1));
    Zuschauer zuschauer;
    auto auftrag = Auftrag(1);
    auftrag.Berechnen = false;
    auftrag.Liste.SprachID = 20000;
    auftrag.Liste.Balken.hWnd = 7;
    Grafik_ArtenDom_Init(auftrag);
    const std::string text = " Algae - the list of taxa is being made: ";
    EXPECT_THAT(zuschauer.Balken(),
                ElementsAre("show 7 0 0 0 0", "draw 0" + text, "draw 2" + text, "hide 7"));
}

TEST_F(ArtenDom, ShowsNoProgressFormWithoutAWindow) {
    Zuschauer zuschauer;
    for (const std::int32_t fenster : {0, -1}) {
        auto auftrag = Auftrag(1);
        auftrag.Liste.Balken = {fenster, 1, 2, 3, 4};
        EXPECT_TRUE(Grafik_ArtenDom_Init(auftrag).has_value());
    }
    EXPECT_THAT(zuschauer.Balken(), IsEmpty());
}

TEST_F(ArtenDom, TakesTheProgressFormAwayHoweverItEnds) {
    Zuschauer zuschauer;
    auto auftrag = Auftrag(1);
    auftrag.Liste.Balken.hWnd = 7;
    auftrag.Berechnen = false;
    EXPECT_EQ(Fehlernummer([&] { Grafik_ArtenDom_Init(auftrag); }), ErrorNumber::UnknownName);
    EXPECT_EQ(zuschauer.Balken().back(), "hide 7");
    EXPECT_EQ(zuschauer.Balken().size(), 4U);
    auftrag.Berechnen = true;
    auftrag.Liste.ProjektID = 4;
    EXPECT_FALSE(Grafik_ArtenDom_Init(auftrag).has_value());
    EXPECT_EQ(zuschauer.Balken().back(), "hide 7");
    auftrag = Auftrag(3);
    auftrag.Berechnen = false;
    auftrag.Liste.Balken.hWnd = 8;
    EXPECT_FALSE(Grafik_ArtenDom_Init(auftrag).has_value());
    EXPECT_EQ(zuschauer.Balken().back(), "hide 8");
}

TEST_F(ArtenDom, ShowsTheBoxesOfTheListInDebugMode) {
    Zuschauer zuschauer;
    auto auftrag = Auftrag(1);
    Grafik_ArtenDom_Init(auftrag);
    EXPECT_THAT(zuschauer.Texte(), IsEmpty());
    auftrag.Liste.DebugModus = true;
    Grafik_ArtenDom_Init(auftrag);
    const auto texte = zuschauer.Texte();
    ASSERT_FALSE(texte.empty());
    EXPECT_EQ(texte[0], "TLR: 17 DG-Gesamt: 100 DG-MA: 100");
    auftrag.Berechnen = false;
    Grafik_ArtenDom_Init(auftrag);
    EXPECT_THAT(zuschauer.Texte(), IsEmpty()) << "the boxes are those of the list";
}

}  // namespace
}  // namespace FX_Algen
