#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc/Berechnung.h"
#include "calc/Testdatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::int32_t TR = 17;

/// The seven boxes of the class counters.
std::vector<std::string> Guetezahlen(std::initializer_list<int> anzahl) {
    std::vector<std::string> texte;
    int i = 0;
    for (const int zahl : anzahl)
        texte.push_back("Gütezahl " + std::to_string(i++) + ":" + std::to_string(zahl));
    return texte;
}

void Anfuegen(std::vector<std::string>& texte, const std::vector<std::string>& weitere) {
    texte.insert(texte.end(), weitere.begin(), weitere.end());
}

/// Macroalga 20 of 40 percent, a stand of 20 percent with two taxa, a diatom of 8 valves.
void Fuelle(Testdatenbank& db) {
    db.Teilraum(TR, {40, 20, 0, 0});
    db.Stelle(1, TR);
    db.Art(1, {2, 1, 2, 1, 1, 1, "benthisch", 1});
    db.Art(2, {3, 1, 1, 2, 0, 0, "benthisch", 1});
    db.Art(4, {0, 0, 2, 1, 2, 1, "benthisch", 1});
    db.Art(3, {1, 1, 1, 1, 2, 1, "benthisch", 1}, 128);
    db.Fund(1, 1, {20, 0, 0, false});
    db.Fund(1, 3, {0, 8, 0, false});
    db.Bestand(5, TR, 20);
    db.Bestandsart(5, 2, 50);
    db.Bestandsart(5, 4, 50);
}

// Macroalga: w = 20/40*100 = 50, *2 = 100. Stand: share 50; taxon 2: 50*1*50/100 = 25, *3 = 75; taxon 4 has
// weight 0. Diatom: 100 and 100. Classes: 2 -> II, 3 -> III, 0 -> none, 1 -> I.
std::vector<std::string> SaprobieTexte() {
    std::vector<std::string> texte{"MA: 100 / 50"};
    Anfuegen(texte, Guetezahlen({0, 0, 1, 0, 0, 0, 0}));
    texte.push_back("MI: 175 / 75");
    Anfuegen(texte, Guetezahlen({0, 0, 1, 0, 1, 0, 0}));
    texte.push_back("KA: 100 / 100");
    Anfuegen(texte, Guetezahlen({1, 0, 1, 0, 1, 0, 0}));
    Anfuegen(texte, {"BerechnungTrophie 1", "BerechnungTrophie 2", "BerechnungTrophie 3"});
    return texte;
}

// Macroalga: 50 / 100 and 50 / 50. Taxon 2: 50*2*50/100 = 50, *1 = 50; second pair 0: 100 / 150. Taxon 4: 25,
// *2 = 50; second 25, *2 = 50: 125 / 200 and 75 / 100. Diatom: 100, *1 = 100; second 100, *2 = 200: 225 / 300
// and 175 / 300.
std::vector<std::string> TrophieTexte() {
    return {"TLR=17", "sngTI=100sngTI_S=150sngTI_N=50sngTI_N_S=50", "TLR=17",
            "sngTI=125sngTI_S=200sngTI_N=75sngTI_N_S=100", "sngTI=225sngTI_S=300sngTI_N=175sngTI_N_S=300"};
}

TEST(DebugModus, ShowsTheWorkingValuesInTheirOrder) {
    Testdatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_Execute(db.Datenbank(), TR, false, false, true);
    auto erwartet = SaprobieTexte();
    Anfuegen(erwartet, TrophieTexte());
    EXPECT_THAT(fang.Texte(), ElementsAreArray(erwartet));
}

TEST(DebugModus, OffShowsNothing) {
    Testdatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    EXPECT_THAT(fang.Texte(), IsEmpty());
}

TEST(DebugModus, ChangesNoResult) {
    Testdatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    const auto ohne = db.Abzug("awaErgProjekt");
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), TR, false, false, true);
    EXPECT_EQ(db.Abzug("awaErgProjekt"), ohne);
}

TEST(DebugModus, WithKAOnlyShowsTheValvesAlone) {
    Testdatenbank db;
    Fuelle(db);
    db.Ausfuehren("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(17, 0, -1);");
    Meldungsfang fang;
    Berechnung_Saprobie(db.Datenbank(), TR, false, false, true, true);
    std::vector<std::string> erwartet{"KA: 100 / 100"};
    Anfuegen(erwartet, Guetezahlen({1, 0, 0, 0, 0, 0, 0}));
    Anfuegen(erwartet, {"BerechnungTrophie 1", "BerechnungTrophie 2", "BerechnungTrophie 3"});
    EXPECT_THAT(fang.Texte(), ElementsAreArray(erwartet));
}

TEST(DebugModus, WithoutResultRowShowsNoCountsAndNoFinalSums) {
    Testdatenbank db;
    Fuelle(db);
    Meldungsfang fang;
    Berechnung_Saprobie(db.Datenbank(), TR, false, false, true, false);
    auto saprobie = SaprobieTexte();
    saprobie.resize(saprobie.size() - 3);
    EXPECT_THAT(fang.Texte(), ElementsAreArray(saprobie));
    Berechnung_Trophie(db.Datenbank(), TR, false, true, false);
    auto trophie = TrophieTexte();
    trophie.pop_back();
    EXPECT_THAT(fang.Texte(), ElementsAreArray(trophie));
}

TEST(DebugModus, ShowsTheBoxesOfEarlierBlocksAndRowsBeforeALaterNullFails) {
    Testdatenbank db;
    Fuelle(db);
    db.SetzeNull("awaModulStandard", "SI", "ID_ART=3");
    Meldungsfang fang;
    EXPECT_TRUE(
        Fehlschlag([&] { Berechnung_Saprobie(db.Datenbank(), TR, false, false, true, false); }).has_value());
    auto saprobie = SaprobieTexte();
    saprobie.resize(16);  // "MA: " and "MI: " with seven counters each
    EXPECT_THAT(fang.Texte(), ElementsAreArray(saprobie));

    db.SetzeNull("awaModulStandard", "Trophiewert", "ID_ART=4");
    EXPECT_TRUE(Fehlschlag([&] { Berechnung_Trophie(db.Datenbank(), TR, false, true, false); }).has_value());
    auto trophie = TrophieTexte();
    trophie.resize(2);  // the first taxon of the stand
    EXPECT_THAT(fang.Texte(), ElementsAreArray(trophie));
}

}  // namespace
}  // namespace FX_Algen
