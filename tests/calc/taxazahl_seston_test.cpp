#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc/BerechnungSeston.h"
#include "calc/Seston.h"
#include "calc/Sestondatenbank.h"
#include "calc/Spur.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;

constexpr std::int32_t TR = 17;

TEST(TaxazahlSeston, CountsEachTaxonOnceOverAllFindings) {
    Sestondatenbank db;
    db.Sestonart(1, {2, {0, 10, 0, 0}});
    db.Sestonart(2, {0, {0, 0, 0, 0}});
    db.Sestonstelle(1, TR);
    db.Sestonstelle(2, TR);
    db.Sestonstelle(3, TR + 1);
    db.Sestonfund(1, 1, 3);
    db.Sestonfund(1, 1, 3, true);  // uncertain
    db.Sestonfund(2, 1, 3);        // another site
    db.Sestonfund(2, 2, 0);        // without abundance
    db.Sestonfund(2, 99, 1);       // not in the catalogue
    db.Sestonfund(3, 7, 1);        // another sub-habitat
    calc::Taxazaehlung spur;
    EXPECT_EQ(Taxazahl_Seston(db.Datenbank(), TR, &spur), 3);
    EXPECT_THAT(spur.ID_Arten, ElementsAre(1, 2, 99));
    EXPECT_EQ(Taxazahl_Seston(db.Datenbank(), TR + 1), 1);
    EXPECT_EQ(Taxazahl_Seston(db.Datenbank(), 4), 0);
}

struct Fall {
    const char* Beschreibung;
    std::array<double, 4> W;
    int Erwartet;
};

const Fall Faelle[] = {
    {"all in one", {10, 0, 0, 0}, 1},    {"spread over all", {1, 2, 3, 4}, 1},
    {"halves", {2.5, 2.5, 2.5, 2.5}, 1}, {"one short", {1, 2, 3, 3}, 0},
    {"one more", {1, 2, 3, 5}, 0},       {"none", {0, 0, 0, 0}, 0},
};

TEST(TaxazahlSestonSap, CountsTaxaWhoseValencesAddUpToExactly10) {
    for (const auto& fall : Faelle) {
        Sestondatenbank db;
        db.Sestonart(1, {2, fall.W});
        db.Sestonstelle(1, TR);
        db.Sestonfund(1, 1, 0);
        db.Sestonfund(1, 1, 5, true);
        EXPECT_EQ(Taxazahl_SestonSap(db.Datenbank(), TR), fall.Erwartet) << fall.Beschreibung;
        EXPECT_EQ(Taxazahl_SestonSap(db.Datenbank(), TR + 1), 0) << fall.Beschreibung;
    }
}

TEST(TaxazahlSestonSap, LeavesOutATaxonWithANullValence) {
    Sestondatenbank db;
    db.Sestonart(1, {2, {10, 0, 0, 0}});
    db.Sestonart(2, {2, {10, 0, 0, 0}});
    db.Sestonstelle(1, TR);
    db.Sestonfund(1, 1, 1);
    db.Sestonfund(1, 2, 1);
    db.SetzeNull("sesArt", "W_P", "ID_ART=2");
    calc::Taxazaehlung spur;
    EXPECT_EQ(Taxazahl_SestonSap(db.Datenbank(), TR, &spur), 1);
    EXPECT_THAT(spur.ID_Arten, ElementsAre(1));
}

/// Rows of the working table, as "(ID_TR, Si, a, n)" behind VALUES.
struct Streuungsfall {
    const char* Beschreibung;
    std::vector<std::string> Zeilen;
    double Erwartet;
};

// The index is 2 throughout. Two rated rows of 1 and 3: Q = 3 + 3, A = 6, n = 2, so 1. All that cannot be
// computed is 0.
const Streuungsfall Streuungen[] = {
    {"no rows", {}, 0},
    {"two rated rows", {"(17, 1, 3, 1)", "(17, 3, 3, 1)"}, 1},
    {"rows of another sub-habitat", {"(17, 1, 3, 1)", "(17, 3, 3, 1)", "(18, 9, 9, 1)"}, 1},
    // Q = 3 + 3 + 2 * 4 = 14, A = 8, n = 2: sqrt(14 / 8)
    {"an unrated row", {"(17, 1, 3, 1)", "(17, 3, 3, 1)", "(17, 0, 2, 0)"}, 1.3228756555322954},
    // Q = 3 + 3 + 3 * 4 = 18, A = 9, n = 3: sqrt(18 / (2 * 9)). With equal rows taken once it were sqrt(15 /
    // 6).
    {"equal rows", {"(17, 1, 3, 1)", "(17, 1, 3, 1)", "(17, 4, 3, 1)"}, 1},
    {"one rated row", {"(17, 1, 3, 1)", "(17, 0, 3, 0)"}, 0},
    {"n is Null", {"(17, 1, 3, 1)", "(17, 3, 3, 1)", "(17, 0, 2, Null)"}, 0},
    {"a is Null", {"(17, 1, 3, 1)", "(17, 3, 3, 1)", "(17, 3, Null, 1)"}, 0},
    {"Si is Null", {"(17, 1, 3, 1)", "(17, 3, 3, 1)", "(17, Null, 2, 1)"}, 0},
    {"n leaves 16 bits", {"(17, 1, 3, 32767)", "(17, 3, 3, 1)"}, 0},
    {"no abundance at all", {"(17, 1, 0, 1)", "(17, 3, 0, 1)"}, 0},
};

TEST(SI_StreuungSeston, IsTheDispersionOrZero) {
    for (const auto& fall : Streuungen) {
        Sestondatenbank db;
        for (const auto& zeile : fall.Zeilen)
            db.Ausfuehren("INSERT INTO sesErgProjektTmp (ID_TR, Si, a, n) VALUES" + zeile + ";");
        EXPECT_DOUBLE_EQ(SI_Streuung_Seston(db.Datenbank(), TR, 2), fall.Erwartet) << fall.Beschreibung;
    }
}

TEST(SI_StreuungSeston, TellsItsSumsUnlessItFails) {
    Sestondatenbank db;
    db.Ausfuehren("INSERT INTO sesErgProjektTmp (ID_TR, Si, a, n) VALUES(17, 1, 3, 1);");
    std::optional<calc::Streuungssummen> summen;
    EXPECT_EQ(SI_Streuung_Seston(db.Datenbank(), TR, 2, &summen), 0);
    ASSERT_TRUE(summen);
    EXPECT_EQ(summen->Q, 3);
    EXPECT_EQ(summen->A, 3);
    EXPECT_EQ(summen->n, 1);
    db.SetzeNull("sesErgProjektTmp", "a", "ID_TR=17");
    EXPECT_EQ(SI_Streuung_Seston(db.Datenbank(), TR, 2, &summen), 0);
    EXPECT_FALSE(summen);
}

TEST(SI_StreuungSeston, IsZeroWithoutItsTableOrADatabase) {
    Sestondatenbank db;
    db.Datenbank()->TableDefs().Delete("sesErgProjektTmp");
    EXPECT_EQ(SI_Streuung_Seston(db.Datenbank(), TR, 2), 0);
    EXPECT_EQ(SI_Streuung_Seston(nullptr, TR, 2), 0);
}

// A finding whose n stays Null makes the dispersion 0 and nothing else.
TEST(SI_StreuungSeston, FailingLeavesTheOtherResults) {
    Sestondatenbank db;
    db.Sestonart(1, {1, {10, 0, 0, 0}});
    db.Sestonart(2, {3, {10, 0, 0, 0}});
    db.Sestonart(3, {0, {0, 0, 0, 0}});
    db.Sestonstelle(1, TR);
    for (const std::int32_t art : {1, 2, 3}) db.Sestonfund(1, art, 1);
    auto& datenbank = *db.Datenbank();
    datenbank.TableDefs().Delete("sesErgProjektTmp");
    auto tabelle = datenbank.CreateTableDef("sesErgProjektTmp");
    tabelle.Append(store::TableDef::CreateField("ID_TR", store::FieldType::Long));
    tabelle.Append(store::TableDef::CreateField("Si", store::FieldType::Double));
    tabelle.Append(store::TableDef::CreateField("a", store::FieldType::Long));
    tabelle.Append(store::TableDef::CreateField("n", store::FieldType::Integer));
    datenbank.TableDefs().Append(tabelle);
    Berechnung_ExecuteSeston(db.Datenbank(), TR, false, false);
    EXPECT_EQ(db.Sestonergebnis(TR, "SI_Streuung").R8(), 0);
    // (1 + 3 + 0) / 3
    EXPECT_EQ(db.Sestonergebnis(TR, "SapIndex").R4(), static_cast<float>(4.0 / 3));
}

}  // namespace
}  // namespace FX_Algen
