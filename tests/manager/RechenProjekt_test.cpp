#include "manager/RechenProjekt.h"

#include "manager/Auswahldatenbank.h"

namespace FX_Algen::RechenProjekt {
namespace {

using test::Auswahldatenbank;
using test::Fehlernummer;

class RechenProjektTexte : public testing::Test {
protected:
    /// Sub-habitat and sampling site of a selection, in its order.
    std::string Stellen(std::int32_t id) const {
        return db.Zeilen("SELECT Teilraum.ID_TR, awaPrStelle.ID_PS " + RechMan_FromTeilraum(db.Handle, id) +
                         "WHERE " + RechMan_Where(db.Handle, id) + " " + RechMan_OrderBy(db.Handle, id));
    }

    Auswahldatenbank db;
};

TEST_F(RechenProjektTexte, ConditionIsTheStoredOneAndTheSelection) {
    db.Auswahl(3, "Projekt", {1}, "'UnvUStelle.USBez=''Brücke'''");
    EXPECT_EQ(RechMan_Where(db.Handle, 3), "(UnvUStelle.USBez='Brücke' AND RechenProjektListe.ID_RechMan=3)");
    EXPECT_EQ(RechMan_Having(db.Handle, 3),
              "Having ((UnvUStelle.USBez='Brücke') And (awaTeilraum.DG_Gesamt > 0)) ");
}

TEST_F(RechenProjektTexte, ConditionNarrowsTheSelection) {
    db.Auswahl(3, "Projekt", {1, 2}, "'UnvUStelle.USBez=''BRÜCKE'' AND Teilraum.RF=1'");
    // Stations of that name have the sub-habitats 1, 2, 3 in project 1 and 6 in project 2; 1 has position 2.
    EXPECT_EQ(Stellen(3), "2/2 3/3 6/6");
}

TEST_F(RechenProjektTexte, ConditionIsEmptyWhereNoneIsStored) {
    db.Auswahl(3, "Projekt", {1}, "Null");
    for (const std::int32_t id : {3, 99}) {
        EXPECT_EQ(RechMan_Where(db.Handle, id), "");
        EXPECT_EQ(RechMan_Having(db.Handle, id), "");
    }
    // Then nothing stands behind the caller's WHERE.
    EXPECT_EQ(Fehlernummer([&] { Stellen(3); }), ErrorNumber::SyntaxError);
}

TEST_F(RechenProjektTexte, EmptyConditionIsNoNull) {
    db.Auswahl(3, "Projekt", {1}, "''");
    EXPECT_EQ(RechMan_Where(db.Handle, 3), "( AND RechenProjektListe.ID_RechMan=3)");
    EXPECT_EQ(RechMan_Having(db.Handle, 3), "Having (() And (awaTeilraum.DG_Gesamt > 0)) ");
    EXPECT_EQ(Fehlernummer([&] { Stellen(3); }), ErrorNumber::SyntaxError);
}

TEST_F(RechenProjektTexte, ConditionDoesNotLookAtTheLevel) {
    db.Auswahl(3, "Kontinent", {1}, "'Teilraum.RF=1'");
    EXPECT_EQ(RechMan_Where(db.Handle, 3), "(Teilraum.RF=1 AND RechenProjektListe.ID_RechMan=3)");
    EXPECT_EQ(RechMan_Having(db.Handle, 3), "Having ((Teilraum.RF=1) And (awaTeilraum.DG_Gesamt > 0)) ");
}

TEST_F(RechenProjektTexte, OrWithoutBracketsTakesInMembersOfOtherSelections) {
    db.Auswahl(3, "Projekt", {1}, "'Teilraum.ID_TR=6 OR Teilraum.ID_TR=5'");
    db.Auswahl(4, "Projekt", {1}, "'(Teilraum.ID_TR=6 OR Teilraum.ID_TR=5)'");
    db.Auswahl(9, "Projekt", {2});
    // AND binds stronger: 6 = ... OR (5 = ... AND selection 3). Sub-habitat 6 comes by the member of
    // selection 9.
    EXPECT_EQ(Stellen(3), "5/5 6/6");
    EXPECT_EQ(Stellen(4), "5/5");
}

struct Reihenfolge {
    std::string Ebene;
    std::vector<std::int32_t> Mitglieder;
    std::string Text;
    std::string Stellen;
};

TEST_F(RechenProjektTexte, OrderIsThatOfTheMembersThenOfTheTree) {
    const Reihenfolge faelle[] = {
        // Project 2 first. In project 1 section 12 stands at position 1; in section 11 the station 112 at
        // position 1, then 111 with its visits by date and in the first of them sub-habitat 2 at position 1.
        {"Projekt",
         {2, 1},
         ", Projekt.PRJBez, Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, "
         "VerUStelle.USDatumVon, Teilraum.RF, Teilraum.TRBez ",
         "6/6 5/5 4/4 2/2 1/1 1/10 3/3"},
        // Section 11 first; below it as above.
        {"Abschnitt",
         {11, 12},
         ", Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, Teilraum.RF, "
         "Teilraum.TRBez",
         "4/4 2/2 1/1 1/10 3/3 5/5"},
        {"UnvU-Stelle",
         {121, 111, 112},
         ", UnvUStelle.USBez, VerUStelle.USDatumVon, Teilraum.RF, Teilraum.TRBez",
         "5/5 2/2 1/1 1/10 3/3 4/4"},
        {"VerU-Stelle", {1112, 1111}, ", Teilraum.RF, Teilraum.TRBez", "3/3 2/2 1/1 1/10"},
        {"Teilraum", {5, 2, 4}, "", "5/5 2/2 4/4"},
    };
    std::int32_t id = 10;
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.Ebene);
        db.Auswahl(++id, fall.Ebene, fall.Mitglieder);
        EXPECT_EQ(RechMan_OrderBy(db.Handle, id), "ORDER BY RechenProjektListe.EbenenRF " + fall.Text);
        EXPECT_EQ(Stellen(id), fall.Stellen);
    }
}

TEST_F(RechenProjektTexte, StationsAtOnePlaceStandByNameAndNotByPosition) {
    db.Auswahl(3, "UnvU-Stelle", {112, 111});
    db.Handle->Execute("UPDATE RechenProjektListe SET EbenenRF = 1 WHERE ID_RechMan=3;");
    // "Brücke" (position 2 in the tree) before "Wehr" (position 1).
    EXPECT_EQ(Stellen(3), "2/2 1/1 1/10 3/3 4/4");
}

TEST_F(RechenProjektTexte, OrderAndGroupsAreEmptyForAnUnknownLevelAndWithoutRow) {
    db.Auswahl(3, "Kontinent", {1});
    for (const std::int32_t id : {3, 99}) {
        EXPECT_EQ(RechMan_OrderBy(db.Handle, id), "");
        EXPECT_EQ(RechMan_GroupByMI(db.Handle, id), "");
    }
}

struct Gruppen {
    std::string Ebene;
    std::vector<std::int32_t> Mitglieder;
    std::string Text;
    std::string Zeilen;
};

TEST_F(RechenProjektTexte, TaxaOfMixedStandsAreGroupedByMemberAndSubHabitat) {
    // Shares of the taxa: sub-habitat 1: 902 40, 903 30; 4: 902 15; 5: 902 20, 905 10. Sub-habitat 2 has no
    // stand, 3 has the total cover 0 and is left out, 7 has no covers.
    const Gruppen faelle[] = {
        {"Projekt", {1}, "Projekt.ID_PRJ, Teilraum.ID_TR, ", "902/15 902/20 902/40 903/30 905/10"},
        {"Abschnitt", {11}, "Abschnitt.ID_AB, Teilraum.ID_TR, ", "902/15 902/40 903/30"},
        {"UnvU-Stelle", {111}, "UnvUStelle.ID_UUS, Teilraum.ID_TR, ", "902/40 903/30"},
        {"VerU-Stelle", {1111, 1121}, "VerUStelle.ID_VUS, Teilraum.ID_TR, ", "902/15 902/40 903/30"},
        // 1 and 5 have the same total cover, 50, and so one row of 902: 40 + 20.
        {"Teilraum", {1, 5}, "", "902/60 903/30 905/10"},
    };
    std::int32_t id = 10;
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.Ebene);
        db.Auswahl(++id, fall.Ebene, fall.Mitglieder, "'awaTeilraum.DG_Gesamt<=100'");
        const auto gruppen = RechMan_GroupByMI(db.Handle, id);
        EXPECT_EQ(gruppen, "GROUP BY " + fall.Text +
                               "awaArtPrStelle_MI.ID_ART, awaArtPrStelle_MI.CF, awaTeilraum.DG_Gesamt ");
        EXPECT_EQ(
            db.ZeilenSortiert("SELECT awaArtPrStelle_MI.ID_ART, Sum(awaArtPrStelle_MI.DG_MI) AS Summe " +
                              RechMan_FromTaxa(db.Handle, id, 2) + "WHERE " + RechMan_Where(db.Handle, id) +
                              " " + gruppen + RechMan_Having(db.Handle, id)),
            fall.Zeilen);
    }
}

TEST_F(RechenProjektTexte, LeaveFailuresOfTheStoreToTheCaller) {
    for (const auto routine : {RechMan_Where, RechMan_Having, RechMan_OrderBy, RechMan_GroupByMI})
        EXPECT_EQ(Fehlernummer([&] { routine(nullptr, 1); }), ErrorNumber::NotADatabase);
    db.Auswahl(3, "Projekt", {1}, "'gibtEsNicht=1'");
    EXPECT_EQ(Fehlernummer([&] { Stellen(3); }), ErrorNumber::UnknownName);
}

}  // namespace
}  // namespace FX_Algen::RechenProjekt
