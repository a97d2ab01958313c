// Scopes of the frequency list: which sub-habitats have a column, which taxa a row.
#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::ElementsAre;
using testing::IsEmpty;

/// Beside project 3 with station 3 and sub-habitat 17: station 4 of the same project with sub-habitat 20 and
/// taxon 5, and project 8 with sub-habitat 80 and taxon 6.
class ArtenlisteUmfang : public Listenprobe {
protected:
    ArtenlisteUmfang() {
        db.Station(4, 3);
        db.Besuch(4, 4);
        db.Art(5, {.ID_GRGR = 129});
        db.Teilraum(20, 4, {60, 40, 50, 30});
        db.Stelle(20, 20);
        db.Fund(20, 5, {.DG_MA = 6});  // 6 / 60 * 100 = 10
        db.Zweig(8);
        db.Art(6, {.ID_GRGR = 129});
        db.Teilraum(80, 8, {60, 40, 50, 30});
        db.Stelle(80, 80);
        db.Fund(80, 6, {.DG_MA = 12});  // 12 / 60 * 100 = 20
    }

    Listenauftrag Umfang(const std::string& art, std::int32_t id) {
        auto auftrag = Auftrag();
        auftrag.AktUebersicht = art;
        auftrag.ProjektID = id;
        return auftrag;
    }
    /// Columns of sub-habitats.
    std::vector<std::string> Teilraeume() {
        auto namen = Spalten();
        namen.erase(namen.begin(), namen.begin() + 4);
        return namen;
    }
};

TEST_F(ArtenlisteUmfang, OfAProjectIsItsSubHabitatsAndTheirTaxa) {
    EXPECT_TRUE(Artenliste_Haeufigkeit(Umfang("Projekt", 3)));
    EXPECT_THAT(Teilraeume(), ElementsAre("A17", "A20"));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "5"));
    EXPECT_DOUBLE_EQ(Zelle(5, 20), 10);
    EXPECT_DOUBLE_EQ(Zelle(5, 17), 0);
    EXPECT_TRUE(Artenliste_Haeufigkeit(Umfang("Projekt", 8)));
    EXPECT_THAT(Teilraeume(), ElementsAre("A80"));
    EXPECT_THAT(Taxa(), ElementsAre("6"));
    EXPECT_FALSE(Artenliste_Haeufigkeit(Umfang("Projekt", 9)));
    EXPECT_THAT(Teilraeume(), IsEmpty());
}

TEST_F(ArtenlisteUmfang, OfAStationIsAllOfItWhateverMarkAndSubHabitatSay) {
    db.Anzeige(17, false);
    auto auftrag = Umfang("UStelle", 3);
    auftrag.USTAuswahl = true;
    auftrag.TeilraumID = 20;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(Teilraeume(), ElementsAre("A17"));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4"));
    EXPECT_DOUBLE_EQ(Zelle(1, 17), 30);
}

TEST_F(ArtenlisteUmfang, OfOneSubHabitatHasItsColumnAndTheTaxaOfTheProject) {
    auto auftrag = Umfang("Projekt", 3);
    auftrag.TeilraumID = 20;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(db.Abzug("SELECT ID_Art, A20 FROM awaArtenlisteHaeufigkeit;"),
                ElementsAre("ID_Art=1;A20=0;", "ID_Art=2;A20=0;", "ID_Art=3;A20=0;", "ID_Art=4;A20=0;",
                            "ID_Art=5;A20=10;"));
    EXPECT_THAT(Teilraeume(), ElementsAre("A20"));
    auftrag.TeilraumID = 80;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << "it lies in another project";
    EXPECT_THAT(Teilraeume(), IsEmpty());
    auftrag.TeilraumID = -1;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag)) << "only a key above 0 narrows the scope";
    EXPECT_THAT(Teilraeume(), ElementsAre("A17", "A20"));
}

TEST_F(ArtenlisteUmfang, OfMarkedSubHabitatsHasTheirColumnsAndTheirTaxaAlone) {
    db.Anzeige(17, false);
    auto auftrag = Umfang("Projekt", 3);
    auftrag.USTAuswahl = true;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(Teilraeume(), ElementsAre("A20"));
    EXPECT_THAT(Taxa(), ElementsAre("5"));
    auftrag.TeilraumID = 17;
    EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << "not marked";
    auftrag.IstWRRLBerechnung = true;
    auftrag.TeilraumID = 20;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_DOUBLE_EQ(Zelle(5, 20), 12);  // 6 / 50 * 100
}

TEST_F(ArtenlisteUmfang, OfAStoredSelectionIsItsMembersAtEachLevel) {
    // Sections 3 and 8, stations, visits: those of the projects' numbers; 4 is the second one of project 3.
    struct Fall {
        std::string Ebene;
        std::string Bedingung;
        std::vector<std::int32_t> Mitglieder;
        std::vector<std::string> Erwartet;
    };
    const std::vector<Fall> faelle = {
        {"Projekt", "Projekt.ID_PRJ>0", {3, 8}, {"A17", "A20", "A80"}},
        {"Abschnitt", "Abschnitt.ID_AB>0", {8}, {"A80"}},
        {"UnvU-Stelle", "UnvUStelle.ID_UUS>0", {4, 8}, {"A20", "A80"}},
        {"VerU-Stelle", "VerUStelle.ID_VUS<8", {3, 4, 8}, {"A17", "A20"}},
        {"Teilraum", "Teilraum.ID_TR>0", {80, 17}, {"A17", "A80"}},
    };
    std::int32_t id = 0;
    for (const auto& fall : faelle) {
        db.Auswahl(++id, fall.Ebene, fall.Bedingung, fall.Mitglieder);
        for (const bool bewertung : {false, true}) {
            auto auftrag = Umfang("Rechenmanager", id);
            auftrag.IstWRRLBerechnung = bewertung;
            auftrag.USTAuswahl = true;
            auftrag.TeilraumID = 17;  // neither applies
            EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag)) << fall.Ebene;
            EXPECT_EQ(Teilraeume(), fall.Erwartet) << fall.Ebene;
        }
    }
    // The last one, an assessment, has the taxa of 17 and 80: 12 / 50 * 100 = 24.
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "6"));
    EXPECT_DOUBLE_EQ(Zelle(6, 80), 24);
}

TEST_F(ArtenlisteUmfang, OfAStoredSelectionListsTaxaWithoutRatingsOutsideTheAssessment) {
    db.ArtOhneWerte(7, {.ID_GRGR = 129});
    db.Fund(80, 7, {.DG_MA = 3});  // 3 / 60 * 100 = 5
    db.Auswahl(1, "Projekt", "Projekt.ID_PRJ>0", {8});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Umfang("Rechenmanager", 1)));
    EXPECT_THAT(Taxa(), ElementsAre("6", "7"));
    EXPECT_DOUBLE_EQ(Zelle(7, 80), 5);
    auto auftrag = Umfang("Rechenmanager", 1);
    auftrag.IstWRRLBerechnung = true;
    EXPECT_TRUE(Artenliste_Haeufigkeit(auftrag));
    EXPECT_THAT(Taxa(), ElementsAre("6"));
}

TEST_F(ArtenlisteUmfang, ThatCannotBeReadLeavesTheFourColumnsAndAnswersFalse) {
    db.Auswahl(1, "Projekt", Value(), {8});
    db.Auswahl(2, "Projekt", "Projekt.ID_PRJ = = 3", {8});
    db.Auswahl(3, "Gewässer", "Projekt.ID_PRJ>0", {8});
    for (const auto& auftrag :
         {Umfang("", 3), Umfang("Überblick", 3), Umfang("Rechenmanager", 1), Umfang("Rechenmanager", 2),
          Umfang("Rechenmanager", 3), Umfang("Rechenmanager", 4)}) {
        EXPECT_TRUE(Artenliste_Haeufigkeit(Umfang("Projekt", 3)));
        EXPECT_FALSE(Artenliste_Haeufigkeit(auftrag)) << auftrag.AktUebersicht << " " << auftrag.ProjektID;
        EXPECT_THAT(Teilraeume(), IsEmpty()) << auftrag.AktUebersicht << " " << auftrag.ProjektID;
        EXPECT_THAT(Tabelle(), IsEmpty());
    }
}

TEST_F(ArtenlisteUmfang, ListsTheTaxaOfSubHabitatsWithoutCoversWithoutAColumn) {
    db.TeilraumOhneDeckung(21, 4);
    db.Stelle(21, 21);
    db.Fund(21, 6, {.DG_MA = 6});
    EXPECT_TRUE(Artenliste_Haeufigkeit(Umfang("Projekt", 3)));
    EXPECT_THAT(Teilraeume(), ElementsAre("A17", "A20"));
    EXPECT_THAT(Taxa(), ElementsAre("1", "2", "3", "4", "5", "6"));
}

}  // namespace
}  // namespace FX_Algen
