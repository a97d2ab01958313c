// The arithmetic of the frequency list over plain rows. Expected values by hand, beside each case.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "wrrl/ArtenlisteSpalte.h"

namespace FX_Algen::artenliste {
namespace {

using testing::ElementsAre;

/// Writes down what it is told.
class Mitschrift final : public Beobachter {
public:
    void Gesucht(const Fund& fund) override { Zeilen.push_back("sucht " + std::to_string(fund.ID_Art)); }
    void NichtGelistet(const Fund& fund) override {
        Zeilen.push_back("fehlt " + std::to_string(fund.ID_Art));
    }
    void Gerechnet(const Fund& fund, const Listenzeile&, const Schritt& schritt) override {
        Zeilen.push_back((schritt.Gescheitert ? "Null " : "rechnet ") + std::to_string(fund.ID_Art));
    }
    std::vector<std::string> Zeilen;
};

Fund Makroalge(std::int32_t art, std::optional<double> deckung, bool cf = false) {
    return {.ID_PS = 1, .ID_Art = art, .CF = cf, .DG_MA = deckung, .Schalen_KA = 0};
}
Fund Kieselalge(std::int32_t art, std::optional<double> schalen) {
    return {.ID_PS = 1, .ID_Art = art, .DG_MA = 0, .Schalen_KA = schalen};
}

// ---- one finding ---------------------------------------------------------------------------------------

struct Fall {
    std::string Name;
    bool IstKA;
    double Summe_KA;
    float DG_Gesamt;
    Fund Eintrag;
    double Zelle;  ///< before
    double Danach;
    bool Zugewiesen;
};

TEST(Fundschritt, GivesTheRelativeAbundanceOfAFinding) {
    const std::vector<Fall> faelle = {
        // 30 / 400 * 100 = 7.5
        {"valves of all valves", true, 400, 60, Kieselalge(2, 30), 0, 7.5, true},
        // A diatom replaces the cell: 10 / 400 * 100 = 2.5
        {"a diatom replaces the cell", true, 400, 60, Kieselalge(2, 10), 7.5, 2.5, true},
        {"a diatom without valves among others writes 0", true, 400, 60, Kieselalge(2, 0), 7.5, 0, true},
        {"no valves at all leave the cell", true, 0, 60, Kieselalge(2, 0), 7.5, 7.5, false},
        {"a Null count is not looked at where no valves were counted", true, 0, 60,
         Kieselalge(2, std::nullopt), 3, 3, false},
        {"a cover of a diatom does not count", true, 0, 60, Makroalge(2, 15), 0, 0, false},
        // 15 / 60 * 100 = 25
        {"cover of total cover", false, 0, 60, Makroalge(1, 15), 0, 25, true},
        // 15 / 60 * 100 = 25, whatever stood there
        {"a macroalga replaces the cell", false, 0, 60, Makroalge(1, 15), 90, 25, true},
        {"valves of another alga do not count", false, 400, 60, Kieselalge(1, 30), 0, 0, false},
        {"no cover leaves the cell", false, 0, 60, Makroalge(1, 0), 4, 4, false},
        {"a Null cover is not above 0", false, 0, 60, Makroalge(1, std::nullopt), 4, 4, false},
        {"no total cover leaves the cell", false, 0, 0, Makroalge(1, 15), 0, 0, false},
        {"a negative total cover leaves the cell", false, 0, -5, Makroalge(1, 15), 0, 0, false},
        // 90 / 60 * 100 = 150: covers that overlap may exceed the total
        {"more than the total cover", false, 0, 60, Makroalge(1, 90), 0, 150, true},
    };
    for (const auto& fall : faelle) {
        Spaltendaten daten;
        daten.Summe_KA = fall.Summe_KA;
        daten.DG_Gesamt = fall.DG_Gesamt;
        const auto schritt = Fundschritt(daten, fall.Eintrag, fall.IstKA, fall.Zelle);
        EXPECT_FALSE(schritt.Gescheitert) << fall.Name;
        EXPECT_DOUBLE_EQ(schritt.Zelle, fall.Danach) << fall.Name;
        EXPECT_EQ(schritt.Zugewiesen.has_value(), fall.Zugewiesen) << fall.Name;
    }
}

TEST(Fundschritt, ComputesInTheOrderOfTheFormula) {
    // 1 / 3 * 100 in 64 bits: the quotient is rounded first, so that it is not 100 / 3.
    Spaltendaten daten;
    daten.Summe_KA = 3;
    const double drittel = 1.0 / 3.0;
    EXPECT_EQ(Fundschritt(daten, Kieselalge(2, 1), true, 0).Zelle, drittel * 100);
    // A total cover of 0.1 is the 32-bit float 0.100000001490116...: 0.05 / 0.1 * 100 is not 50 then.
    daten.DG_Gesamt = 0.1F;
    const double zelle = Fundschritt(daten, Makroalge(1, 0.05), false, 0).Zelle;
    EXPECT_NEAR(zelle, 49.9999992549419, 1e-12);
}

TEST(Fundschritt, AddsTheSharesOfTheMixedStands) {
    // Total cover 60. Stand 11 covers 12: 12 / 60 * 100 = 20 %. Stand 12 covers 30: 50 %. Taxon 1 holds 25 %
    // of stand 11: 25 * 20 / 100 = 5, and 40 % of stand 12: 40 * 50 / 100 = 20; together 25. As a macroalga
    // it has 15 / 60 * 100 = 25 before: 50.
    Spaltendaten daten;
    daten.DG_Gesamt = 60;
    daten.Bestaende = {{11, 12}, {12, 30}};
    daten.Bestandsarten = {{11, 1, false, 25}, {11, 2, false, 75}, {12, 1, false, 40}, {12, 1, true, 60}};
    const auto schritt = Fundschritt(daten, Makroalge(1, 15), false, 99);
    EXPECT_DOUBLE_EQ(*schritt.Zugewiesen, 25);
    EXPECT_DOUBLE_EQ(schritt.DG_MIGesamt, 25);
    EXPECT_DOUBLE_EQ(schritt.Zelle, 50);
    ASSERT_EQ(schritt.Anteile.size(), 2U);
    EXPECT_EQ(schritt.Anteile[0].ID_TR_MI, 11);
    EXPECT_DOUBLE_EQ(schritt.Anteile[0].SharePercent, 20);
    EXPECT_DOUBLE_EQ(schritt.Anteile[0].TaxonPercent, 25);
    EXPECT_DOUBLE_EQ(schritt.Anteile[0].Added, 5);
    EXPECT_EQ(schritt.Anteile[1].ID_TR_MI, 12);
    EXPECT_DOUBLE_EQ(schritt.Anteile[1].Added, 20);
    // The uncertain finding holds 60 % of stand 12: 60 * 50 / 100 = 30.
    EXPECT_DOUBLE_EQ(Fundschritt(daten, Makroalge(1, 0, true), false, 0).Zelle, 30);
    // Diatoms have no part in stands here.
    EXPECT_DOUBLE_EQ(Fundschritt(daten, Kieselalge(2, 0), true, 7).Zelle, 7);
    EXPECT_FALSE(Fundschritt(daten, Kieselalge(2, 0), true, 7).Mischbestaende);
}

TEST(Fundschritt, NeedsValvesAndStandCoversThatWereEntered) {
    Spaltendaten daten;
    daten.Summe_KA = 40;
    daten.DG_Gesamt = 60;
    auto schritt = Fundschritt(daten, Kieselalge(2, std::nullopt), true, 7);
    EXPECT_TRUE(schritt.Gescheitert);
    EXPECT_DOUBLE_EQ(schritt.Zelle, 7);
    // A stand without cover fails even where it does not hold the taxon; the cell stays as it was, although
    // the macroalga's value was worked out before: 15 / 60 * 100 = 25.
    daten.Bestaende = {{11, std::nullopt}};
    schritt = Fundschritt(daten, Makroalge(1, 15), false, 4);
    EXPECT_TRUE(schritt.Gescheitert);
    EXPECT_DOUBLE_EQ(*schritt.Zugewiesen, 25);
    EXPECT_DOUBLE_EQ(schritt.Zelle, 4);
    // Without a total cover nobody looks at the stand.
    daten.DG_Gesamt = 0;
    EXPECT_FALSE(Fundschritt(daten, Makroalge(1, 15), false, 4).Gescheitert);
}

// ---- one column ----------------------------------------------------------------------------------------

TEST(Spalte, LetsTheLastCoverWinAndAddsTheStandsOnceForEachFinding) {
    // Total cover 50; stand 11 covers 10: 20 %; taxon 1 holds 30 % of it: 6.
    // First site: 20 / 50 * 100 = 40, + 6 = 46. Second site: 5 / 50 * 100 = 10, + 6 = 16.
    // Taxon 3 without any cover: + 10 * 20 / 100 = 2, and at the second site 2 more: 4.
    Liste liste({{1, false, false}, {3, false, false}}, 1);
    Spaltendaten daten;
    daten.DG_Gesamt = 50;
    daten.Bestaende = {{11, 10}};
    daten.Bestandsarten = {{11, 1, false, 30}, {11, 3, false, 10}};
    daten.Funde = {Makroalge(1, 20), Makroalge(3, 0), Makroalge(1, 5), Makroalge(3, 0)};
    Mitschrift mitschrift;
    EXPECT_TRUE(SpalteFuellen(liste, 0, daten, mitschrift));
    EXPECT_DOUBLE_EQ(liste.Zelle(0, 0), 16);
    EXPECT_DOUBLE_EQ(liste.Zelle(1, 0), 4);
}

TEST(Spalte, DiatomsAndOtherAlgaeAddUpToAHundredEach) {
    // Valves 10, 30, 60 of 100: 10 + 30 + 60 = 100.
    // Total cover 80: macroalgae 24 and 16: 30 + 20; stand of 40: 50 %, its taxa 70 % and 30 %: 35 + 15.
    // 30 + 20 + 35 + 15 = 100.
    Liste liste({{1, false, false},
                 {2, false, false},
                 {3, false, false},
                 {4, false, false},
                 {5, false, true},
                 {6, false, true},
                 {7, false, true}},
                2);
    Spaltendaten daten;
    daten.Summe_KA = 100;
    daten.DG_Gesamt = 80;
    daten.Bestaende = {{11, 40}};
    daten.Bestandsarten = {{11, 3, false, 70}, {11, 4, false, 30}};
    daten.Funde = {Makroalge(1, 24),  Makroalge(2, 16),  Makroalge(3, 0),  Makroalge(4, 0),
                   Kieselalge(5, 10), Kieselalge(6, 30), Kieselalge(7, 60)};
    Mitschrift mitschrift;
    EXPECT_TRUE(SpalteFuellen(liste, 1, daten, mitschrift));
    std::vector<double> zellen;
    for (std::size_t zeile = 0; zeile < 7; ++zeile) {
        zellen.push_back(liste.Zelle(zeile, 1));
        EXPECT_EQ(liste.Zelle(zeile, 0), 0) << "the other column is not touched";
    }
    EXPECT_THAT(zellen, ElementsAre(30, 20, 35, 15, 10, 30, 60));
}

TEST(Spalte, PassesOverFindingsWithoutARowAndTellsSo) {
    Liste liste({{1, false, false}, {1, true, false}}, 1);
    Spaltendaten daten;
    daten.DG_Gesamt = 50;
    daten.Funde = {Makroalge(9, 40), Makroalge(1, 5, true), Makroalge(1, 10)};
    Mitschrift mitschrift;
    EXPECT_TRUE(SpalteFuellen(liste, 0, daten, mitschrift));
    // 10 / 50 * 100 = 20, uncertain 5 / 50 * 100 = 10
    EXPECT_DOUBLE_EQ(liste.Zelle(0, 0), 20);
    EXPECT_DOUBLE_EQ(liste.Zelle(1, 0), 10);
    EXPECT_THAT(mitschrift.Zeilen,
                ElementsAre("sucht 9", "fehlt 9", "sucht 1", "rechnet 1", "sucht 1", "rechnet 1"));
}

TEST(Spalte, StopsAtANullAndKeepsWhatCameBefore) {
    Liste liste({{1, false, false}, {2, false, true}, {3, false, false}}, 1);
    Spaltendaten daten;
    daten.Summe_KA = 5;
    daten.DG_Gesamt = 50;
    daten.Funde = {Makroalge(1, 25), Kieselalge(2, std::nullopt), Makroalge(3, 25)};
    daten.Funde[1].MAalsMI = true;
    Mitschrift mitschrift;
    EXPECT_FALSE(SpalteFuellen(liste, 0, daten, mitschrift));
    EXPECT_DOUBLE_EQ(liste.Zelle(0, 0), 50);
    EXPECT_DOUBLE_EQ(liste.Zelle(1, 0), 0);
    EXPECT_DOUBLE_EQ(liste.Zelle(2, 0), 0);
    EXPECT_EQ(liste.Zeilen()[1].MAalsMI, false);
    EXPECT_THAT(mitschrift.Zeilen, ElementsAre("sucht 1", "rechnet 1", "sucht 2", "Null 2"));
}

TEST(Spalte, CopiesTheFlagOfTheLastFindingThatTouchedTheRow) {
    Liste liste({{1, false, false}, {2, false, false}, {3, false, false}}, 2);
    Spaltendaten daten;
    daten.Funde = {Makroalge(1, 0), Makroalge(1, 0), Makroalge(2, 0)};
    daten.Funde[0].MAalsMI = true;
    daten.Funde[1].MAalsMI = false;
    daten.Funde[2].MAalsMI = std::nullopt;
    Mitschrift mitschrift;
    EXPECT_TRUE(SpalteFuellen(liste, 0, daten, mitschrift));
    EXPECT_EQ(liste.Zeilen()[0].MAalsMI, false);
    EXPECT_EQ(liste.Zeilen()[1].MAalsMI, std::nullopt);
    EXPECT_EQ(liste.Zeilen()[2].MAalsMI, false) << "a new row";
    // The next sub-habitat touches the first row again.
    daten.Funde = {Makroalge(1, 0)};
    daten.Funde[0].MAalsMI = true;
    EXPECT_TRUE(SpalteFuellen(liste, 1, daten, mitschrift));
    EXPECT_EQ(liste.Zeilen()[0].MAalsMI, true);
}

}  // namespace
}  // namespace FX_Algen::artenliste
