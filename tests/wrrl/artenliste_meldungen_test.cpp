// What a person sees of the frequency list while it is made: debug boxes and the progress form; and what
// those who explain it are told.
#include <stdexcept>

#include "FX_Algen/Error.h"
#include "store/ThreadValues.h"
#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::ElementsAre;
using testing::IsEmpty;

class ArtenlisteMeldungen : public Listenprobe {
protected:
    static std::string Listenzeile(const std::string& art, const std::string& cf = "False") {
        return "strSQL: SELECT * FROM awaArtenlisteHaeufigkeit WHERE ID_Art=" + art + " AND CF=" + cf;
    }
    Listenauftrag MitDebug() {
        auto auftrag = Auftrag();
        auftrag.DebugModus = true;
        return auftrag;
    }

    Gegenueber gegenueber;
};

TEST_F(ArtenlisteMeldungen, ShowTheRoadOfEachFindingInDebugMode) {
    // Taxon 1: 15 / 60 * 100 = 25, with 25 % of a stand of 12 / 60 * 100 = 20 %: 5 more. Taxon 4: 50 % of it.
    EXPECT_TRUE(Artenliste_Haeufigkeit(MitDebug()));
    EXPECT_THAT(gegenueber.Texte(),
                ElementsAre("TLR: 17 DG-Gesamt: 60 DG-MA: 40", Listenzeile("1"), "Makro: 25",
                            "Mikro: 30 DG-MIGesamt5", Listenzeile("2"), Listenzeile("3"), Listenzeile("4"),
                            "Mikro: 10 DG-MIGesamt10"));
}

TEST_F(ArtenlisteMeldungen, ShowTheCoversOfTheAssessmentWithTheFlag) {
    auto auftrag = MitDebug();
    auftrag.IstWRRLBerechnung = true;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_EQ(gegenueber.Texte().front(), "TLR: 17 DG-Gesamt: 50 DG-MA: 30");
}

TEST_F(ArtenlisteMeldungen, ShowNoCellWithoutTotalCoverAndTheStatementAlsoOfTaxaThatAreNotListed) {
    db.Setze("awaTeilraum", "DG_Gesamt", "ID_TR=17", Value(0));
    db.Ausfuehren("DELETE * FROM awaArtPrStelle WHERE ID_ART<>1;");
    db.Fund(5, 1, {.CF = true});
    db.Ausfuehren("UPDATE awaArt SET ID_UFAM=0 WHERE ID_ART=1;");
    EXPECT_TRUE(Artenliste_Haeufigkeit(MitDebug()));
    // By the key of the finding: the uncertain one (-1) stands before the certain one.
    EXPECT_THAT(gegenueber.Texte(),
                ElementsAre("TLR: 17 DG-Gesamt: 0 DG-MA: 40", Listenzeile("1", "True"), Listenzeile("1")));
}

TEST_F(ArtenlisteMeldungen, EndWhereANullStopsTheList) {
    db.Setze("awaTeilraum_MI", "DG_MI", "ID_TR_MI=11", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(MitDebug()));
    EXPECT_THAT(gegenueber.Texte(),
                ElementsAre("TLR: 17 DG-Gesamt: 60 DG-MA: 40", Listenzeile("1"), "Makro: 25"));
    db.Setze("awaTeilraum", "DG_MA", "ID_TR=17", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(MitDebug()));
    EXPECT_THAT(gegenueber.Texte(), IsEmpty());
}

TEST_F(ArtenlisteMeldungen, DoNotComeWithoutDebugMode) {
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    EXPECT_THAT(gegenueber.Texte(), IsEmpty());
    EXPECT_THAT(gegenueber.Balken(), IsEmpty());
}

// ---- progress ------------------------------------------------------------------------------------------

TEST_F(ArtenlisteMeldungen, ShowTheProgressBySubHabitats) {
    // 1 of 3 = 33.3…, 2 of 3 = 66.6…, 3 of 3 = 100 percent, as whole numbers.
    for (const int tr : {18, 19}) {
        db.Teilraum(tr, 3, {});
        db.Stelle(tr, tr);
    }
    auto auftrag = Auftrag();
    auftrag.Balken = {7, 1, 2, 30.5F, 4};
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Balken(),
                ElementsAre("show 7 1 2 30.5 4", "draw 0", "draw 33", "draw 67", "draw 100", "hide 7"));
}

TEST_F(ArtenlisteMeldungen, TakeTheProgressFormAwayOnAnyFailure) {
    auto auftrag = Auftrag();
    auftrag.Balken.hWnd = 7;
    auftrag.ProjektID = 9;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Balken(), ElementsAre("show 7 0 0 0 0", "draw 0", "hide 7"));
    auftrag.ProjektID = 3;
    db.Setze("awaTeilraum", "DG_MA", "ID_TR=17", Value());
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Balken(), ElementsAre("show 7 0 0 0 0", "draw 0", "hide 7"));
    auftrag.DBName += ".fehlt";
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Balken(), ElementsAre("show 7 0 0 0 0", "draw 0", "hide 7"));
    EXPECT_THAT(gegenueber.Texte(), ElementsAre("Fehler beim Tabellenlöschen"));
    auftrag.Balken.hWnd = -1;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(gegenueber.Balken(), IsEmpty());
}

/// A display that fails at one of its calls, and notes those of the progress form.
class KaputteAnzeige : public store::RecordingMessages {
public:
    explicit KaputteAnzeige(std::string stelle, bool alsFehler)
        : stelle_(std::move(stelle)), alsFehler_(alsFehler) {}

    store::Answer Box(std::string_view titel, std::string_view text, store::Buttons knoepfe,
                      store::Symbol symbol) override {
        Rufen(std::string(text).substr(0, 5));
        return RecordingMessages::Box(titel, text, knoepfe, symbol);
    }
    void ProgressShow(std::int32_t, float, float, float, float) override { Rufen("show"); }
    void ProgressDraw(std::int16_t prozent, std::string_view) override { Rufen(std::to_string(prozent)); }
    void ProgressHide(std::int32_t) override { Rufen("hide"); }

    std::vector<std::string> Rufe;

private:
    void Rufen(const std::string& ruf) {
        Rufe.push_back(ruf);
        if (ruf != stelle_) return;
        if (alsFehler_) throw Error(ErrorNumber::TypeMismatch, "Öde Anzeige");
        throw std::runtime_error("Öde Anzeige");
    }

    std::string stelle_;
    bool alsFehler_;
};

TEST_F(ArtenlisteMeldungen, OfADisplayThatFailsLeaveWhatWasComputedAndTakeTheFormAway) {
    // In 18 taxon 1 covers 3 of 10 percent.
    db.Teilraum(18, 3, {10, 0, 10, 0});
    db.Stelle(6, 18);
    db.Fund(6, 1, {.DG_MA = 3});
    struct Fall {
        std::string Stelle;
        std::vector<std::string> Rufe;
        std::string Taxon1;  ///< its cells afterwards; none where the list of before stands
    };
    const std::string vorher = "ID_Art=1;A17=99;";
    const std::vector<Fall> faelle = {
        {"show", {"show"}, vorher},
        {"0", {"show", "0", "hide"}, vorher},
        {"50", {"show", "0", "50", "hide"}, "ID_Art=1;A17=30;A18=0;"},
        {"100", {"show", "0", "50", "100", "hide"}, "ID_Art=1;A17=30;A18=30;"},
    };
    for (const auto& fall : faelle)
        for (const bool alsFehler : {false, true}) {
            auto auftrag = Auftrag();
            auftrag.TeilraumID = 17;
            ASSERT_TRUE(Artenliste_Haeufigkeit(auftrag));
            db.Datenbank()->Execute("UPDATE awaArtenlisteHaeufigkeit SET A17=99;");
            auftrag.TeilraumID = 0;
            auftrag.Balken.hWnd = 7;
            const auto anzeige = std::make_shared<KaputteAnzeige>(fall.Stelle, alsFehler);
            const auto ganz = std::exchange(store::Thread().Port, anzeige);
            if (alsFehler) {
                EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << fall.Stelle;
            } else {
                EXPECT_THROW(Artenliste_Haeufigkeit(auftrag), std::runtime_error) << fall.Stelle;
            }
            store::Thread().Port = ganz;
            EXPECT_EQ(anzeige->Rufe, fall.Rufe) << fall.Stelle;
            const std::string felder = fall.Taxon1 == vorher ? "ID_Art, A17" : "ID_Art, A17, A18";
            EXPECT_THAT(db.Abzug("SELECT " + felder + " FROM awaArtenlisteHaeufigkeit WHERE ID_Art=1;"),
                        ElementsAre(fall.Taxon1))
                << fall.Stelle;
        }
}

TEST_F(ArtenlisteMeldungen, ThatCannotBeTakenAwayDoNotEndTheList) {
    for (const bool alsFehler : {false, true}) {
        auto auftrag = Auftrag();
        auftrag.Balken.hWnd = 7;
        const auto ganz =
            std::exchange(store::Thread().Port, std::make_shared<KaputteAnzeige>("hide", alsFehler));
        EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
        store::Thread().Port = ganz;
        EXPECT_DOUBLE_EQ(Zelle(1, 17), 30);
    }
}

TEST_F(ArtenlisteMeldungen, OfABoxThatFailsTakeTheFormAway) {
    auto auftrag = MitDebug();
    auftrag.Balken.hWnd = 7;
    const auto anzeige = std::make_shared<KaputteAnzeige>("Mikro", false);
    const auto ganz = std::exchange(store::Thread().Port, anzeige);
    EXPECT_THROW(Artenliste_Haeufigkeit(auftrag), std::runtime_error);
    store::Thread().Port = ganz;
    EXPECT_THAT(anzeige->Rufe, ElementsAre("show", "0", "TLR: ", "strSQ", "Makro", "Mikro", "hide"));
    EXPECT_DOUBLE_EQ(Zelle(1, 17), 0) << "its row was not updated yet";
}

// ---- trace ---------------------------------------------------------------------------------------------

TEST_F(ArtenlisteMeldungen, TellTheRoadOfEachFindingOfTheLastSubHabitat) {
    db.Teilraum(16, 3, {10, 0, 10, 0});  // comes before
    db.Stelle(4, 16);
    db.Fund(4, 1, {.DG_MA = 1});
    FrequencyColumn spur;
    EXPECT_TRUE(Artenliste_Haeufigkeit(Auftrag(), &spur));
    EXPECT_DOUBLE_EQ(spur.ValveSum, 40);
    EXPECT_FALSE(spur.ValveSumCarried);
    EXPECT_FLOAT_EQ(spur.DG_Gesamt, 60);
    EXPECT_FLOAT_EQ(spur.DG_MA, 40);
    ASSERT_EQ(spur.Findings.size(), 4U);
    const auto& alge = spur.Findings[0];
    EXPECT_EQ(alge.ID_PS, 5);
    EXPECT_EQ(alge.ID_ART, 1);
    EXPECT_FALSE(alge.CF);
    EXPECT_FALSE(alge.LeftOut.has_value());
    EXPECT_FALSE(alge.IsDiatom);
    EXPECT_EQ(alge.Abundance, 15.0);
    EXPECT_EQ(alge.Assigned, 25.0);
    ASSERT_EQ(alge.FromStands.size(), 1U);
    EXPECT_EQ(alge.FromStands[0].ID_TR_MI, 11);
    EXPECT_DOUBLE_EQ(alge.FromStands[0].Added, 5);
    EXPECT_DOUBLE_EQ(alge.Cell, 30);
    const auto& kieselalge = spur.Findings[1];
    EXPECT_EQ(kieselalge.ID_ART, 2);
    EXPECT_TRUE(kieselalge.IsDiatom);
    EXPECT_EQ(kieselalge.Abundance, 30.0);
    EXPECT_EQ(kieselalge.Assigned, 75.0);
    EXPECT_THAT(kieselalge.FromStands, IsEmpty());
    EXPECT_DOUBLE_EQ(kieselalge.Cell, 75);
    EXPECT_FALSE(spur.Findings[3].Assigned.has_value());
    EXPECT_DOUBLE_EQ(spur.Findings[3].Cell, 10);
}

TEST_F(ArtenlisteMeldungen, TellWhyAFindingIsNotListed) {
    db.Art(6, {.ID_GRGR = 129});
    db.Ausfuehren("UPDATE awaArt SET ID_UFAM=0 WHERE ID_ART=6;");
    db.ArtOhneWerte(7, {.ID_GRGR = 128});
    db.Art(8, {.ID_GRGR = 129, .Lebensform = 2});
    db.Art(9, {.ID_GRGR = 132});
    db.ArtOhneWerte(10, {.ID_GRGR = 129});
    db.Zeile("awaModulStandard", {{"ID_ART", 10}, {"Lebensform", Value()}});
    db.Ausfuehren("DELETE * FROM awaArtPrStelle;");
    for (const int art : {6, 7, 8, 9, 10}) db.Fund(5, art, {.DG_MA = 3, .Schalen_KA = 4});
    auto auftrag = Auftrag();
    auftrag.IstWRRLBerechnung = true;
    FrequencyColumn spur;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag, &spur));
    std::vector<NotListed> gruende;
    for (const auto& fund : spur.Findings) {
        ASSERT_TRUE(fund.LeftOut.has_value()) << fund.ID_ART;
        gruende.push_back(*fund.LeftOut);
        EXPECT_FALSE(fund.Assigned.has_value());
        EXPECT_EQ(fund.Cell, 0);
    }
    EXPECT_THAT(gruende, ElementsAre(NotListed::NoTaxonomy, NotListed::NoRatings, NotListed::OtherLebensform,
                                     NotListed::OtherMajorGroup, NotListed::OtherLebensform));
    EXPECT_TRUE(spur.Findings[1].IsDiatom);
    EXPECT_EQ(spur.Findings[1].Abundance, 4.0) << "valves of a diatom";
    EXPECT_EQ(spur.Findings[2].Abundance, 3.0) << "cover of another alga";

    // Outside the assessment only the chain to the major group counts.
    auftrag.IstWRRLBerechnung = false;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag, &spur));
    ASSERT_EQ(spur.Findings.size(), 5U);
    EXPECT_EQ(spur.Findings[0].LeftOut, NotListed::NoTaxonomy);
    for (std::size_t i = 1; i < 5; ++i) EXPECT_FALSE(spur.Findings[i].LeftOut.has_value());
}

TEST_F(ArtenlisteMeldungen, TellThatATaxonLiesOutsideTheConditionOfASelection) {
    // The condition of the selection looks at findings with valves, so that taxon 1 and 4 have no row.
    db.Auswahl(1, "Projekt", "awaArtPrStelle.Schalen_KA>0", {3});
    auto auftrag = Auftrag();
    auftrag.AktUebersicht = "Rechenmanager";
    auftrag.ProjektID = 1;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << "the sub-habitats are read without findings";
    db.Ausfuehren("DELETE * FROM RechenProjekt;");

    // A condition on the sampling sites leaves the sub-habitat in, and the taxa of one of its sites out.
    db.Auswahl(2, "Teilraum", "awaPrStelle.ID_PS<>6", {17});
    db.Stelle(6, 17);
    db.Art(8, {.ID_GRGR = 129});
    db.Fund(6, 8, {.DG_MA = 3});
    auftrag.ProjektID = 2;
    FrequencyColumn spur;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag, &spur));
    ASSERT_EQ(spur.Findings.size(), 5U);
    EXPECT_EQ(spur.Findings[4].ID_ART, 8);
    EXPECT_EQ(spur.Findings[4].LeftOut, NotListed::OutOfScope);
}

}  // namespace
}  // namespace FX_Algen
