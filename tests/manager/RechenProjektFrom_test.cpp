#include <functional>

#include "manager/Auswahldatenbank.h"
#include "manager/RechenProjekt.h"

namespace FX_Algen::RechenProjekt {
namespace {

using test::Auswahldatenbank;
using test::Ersetzt;
using test::Fehlernummer;

/// Selections 1 to 5, one a level: with the sub-habitats 1 2 3 4 5 7; 1 2 3 4 7; 1 2 3; 1 2; 2 5.
/// Selection 9 lists project 2, of which no other one may show a row.
class RechenProjektFrom : public testing::Test {
protected:
    RechenProjektFrom() {
        db.Auswahl(1, "Projekt", {1});
        db.Auswahl(2, "Abschnitt", {11});
        db.Auswahl(3, "UnvU-Stelle", {111});
        db.Auswahl(4, "VerU-Stelle", {1111});
        db.Auswahl(5, "Teilraum", {5, 2});
        db.Auswahl(9, "Projekt", {2});
    }

    /// The clause in a statement as callers put it together.
    std::string Anweisung(const std::string& werte, const std::string& from, std::int32_t id) const {
        return "SELECT Teilraum.ID_TR, " + werte + " " + from + "WHERE " + RechMan_Where(db.Handle, id) +
               " " + RechMan_OrderBy(db.Handle, id);
    }

    Auswahldatenbank db;
};

using Routine = std::function<std::string(const store::DatabasePtr&, std::int32_t)>;

Routine Taxa(std::int16_t modus) {
    return [modus](const store::DatabasePtr& database, std::int32_t id) {
        return RechMan_FromTaxa(database, id, modus);
    };
}

struct Fall {
    std::string Name;
    Routine From;
    std::string Werte;  ///< a value to tell rows by, then a column of each table that must be there
    std::string Zeilen[5];
};

constexpr std::int32_t Ebenen = 5;

const std::string Taxonomie =
    "awaArtPrStelle.ID_ART, awaTeilraum.DG_Gesamt, awaPrStelle.PSBez, awaArt.Gattung, "
    "awaUnterFam.Unterfamilie, awaFamilie.Familie, awaGrossGr.RF_Kieselalge";

// What each sub-habitat has to show, by which the rows follow from the sub-habitats of a selection:
//   ratings (modes 1, 4)    1: 901, 902   2: 901   3: 903        4: 901 twice, with CF   5: 903        7: -
//   taxonomy (mode 3)       as above, and 5: 904, which has no ratings
//   findings                as above, and 3: 906, which is not in the catalogue
//   mixed stands (mode 2)   1: 902, 903            3: 902, 903   4: 902                  5: 902, 905   7: -
//   sites with covers       1: 1, 10      2: 2     3: 3          4: 4                    5: 5          7: -
//   seston                  1: 801, 802            3: 801                                5: 803        7: 801
//   results                 each its sites, 7 too, as no covers are asked for
//   results of the seston   those of 1, 3, 5, 7
//   assessments             1: Alle, KA   2: -     3: Alle       4: -                    5: -
// Without covers 7 has no row in the others, though it has findings and a mixed stand.
const std::vector<Fall> Faelle = {
    {"RechMan_FromTaxa, mode 1",
     Taxa(1),
     Taxonomie + ", awaModulStandard.SI",
     {"1/901 1/902 2/901 3/903 4/901 4/901 5/903", "1/901 1/902 2/901 3/903 4/901 4/901",
      "1/901 1/902 2/901 3/903", "1/901 1/902 2/901", "2/901 5/903"}},
    {"RechMan_FromTaxa, mode 2",
     Taxa(2),
     "awaArtPrStelle_MI.ID_ART, awaTeilraum.DG_Gesamt, awaTeilraum_MI.MI_Bez, Abschnitt.ABBez",
     {"1/902 1/903 3/902 3/903 4/902 5/902 5/905", "1/902 1/903 3/902 3/903 4/902", "1/902 1/903 3/902 3/903",
      "1/902 1/903", "5/902 5/905"}},
    {"RechMan_FromTaxa, mode 3",
     Taxa(3),
     Taxonomie,
     {"1/901 1/902 2/901 3/903 4/901 4/901 5/903 5/904", "1/901 1/902 2/901 3/903 4/901 4/901",
      "1/901 1/902 2/901 3/903", "1/901 1/902 2/901", "2/901 5/903 5/904"}},
    {"RechMan_FromTaxa, mode 4",
     Taxa(4),
     Taxonomie + ", awaModulStandard.SI",
     {"1/901 1/902 2/901 3/903 4/901 4/901 5/903", "1/901 1/902 2/901 3/903 4/901 4/901",
      "1/901 1/902 2/901 3/903", "1/901 1/902 2/901", "2/901 5/903"}},
    {"RechMan_FromTeilraum",
     RechMan_FromTeilraum,
     "awaPrStelle.ID_PS, awaTeilraum.DG_Gesamt",
     {"1/1 1/10 2/2 3/3 4/4 5/5", "1/1 1/10 2/2 3/3 4/4", "1/1 1/10 2/2 3/3", "1/1 1/10 2/2", "2/2 5/5"}},
    {"RechMan_FromFunde",
     RechMan_FromFunde,
     "awaArtPrStelle.ID_ART, awaTeilraum.DG_Gesamt, awaPrStelle.PSBez",
     {"1/901 1/902 2/901 3/903 3/906 4/901 4/901 5/903 5/904", "1/901 1/902 2/901 3/903 3/906 4/901 4/901",
      "1/901 1/902 2/901 3/903 3/906", "1/901 1/902 2/901", "2/901 5/903 5/904"}},
    {"RechMan_FromFundeSeston",
     RechMan_FromFundeSeston,
     "sesArtPrStelle.ID_ART, sesPrStelle.PSBez",
     {"1/801 1/802 3/801 5/803 7/801", "1/801 1/802 3/801 7/801", "1/801 1/802 3/801", "fails", "5/803"}},
    {"RechMan_FromErg",
     RechMan_FromErg,
     "awaPrStelle.ID_PS, awaErgProjekt.ID",
     {"1/1 1/10 2/2 3/3 4/4 5/5 7/7", "fails", "1/1 1/10 2/2 3/3", "1/1 1/10 2/2", "2/2 5/5"}},
    {"RechMan_FromErgSeston",
     RechMan_FromErgSeston,
     "awaPrStelle.ID_PS, sesErgProjekt.ID",
     {"1/1 1/10 3/3 5/5 7/7", "fails", "1/1 1/10 3/3", "1/1 1/10", "5/5"}},
    {"RechMan_FromErgWRRL",
     RechMan_FromErgWRRL,
     "awaErgWRRL.Taxagruppe, awaTeilraum.DG_Gesamt",
     {"1/Alle 1/KA 2/- 3/Alle 4/- 5/-", "1/Alle 1/KA 2/- 3/Alle 4/-", "1/Alle 1/KA 2/- 3/Alle",
      "1/Alle 1/KA 2/-", "2/- 5/-"}},
};

TEST_F(RechenProjektFrom, GivesTheRowsOfTheSelectionAtEachLevel) {
    for (const auto& fall : Faelle)
        for (std::int32_t id = 1; id <= Ebenen; ++id) {
            SCOPED_TRACE(fall.Name + " of selection " + std::to_string(id));
            const auto& erwartet = fall.Zeilen[id - 1];
            if (erwartet == "fails") continue;
            EXPECT_EQ(db.ZeilenSortiert(Anweisung(fall.Werte, fall.From(db.Handle, id), id)), erwartet);
        }
}

TEST_F(RechenProjektFrom, NamesTheTablesOfTheTreeFromTheLevelDownward) {
    // Conditions and order may name each table of the path; a name above the level is unknown to the clause.
    const std::string felder[] = {"Projekt.PRJBez", "Abschnitt.ABBez", "UnvUStelle.USBez",
                                  "VerUStelle.USDatumVon", "Teilraum.TRBez"};
    for (const auto& fall : Faelle) {
        const bool ab_Abschnitt = fall.Name == "RechMan_FromTaxa, mode 2";
        for (std::int32_t id = 1; id <= Ebenen; ++id) {
            if (fall.Zeilen[id - 1] == "fails") continue;
            for (std::int32_t ebene = 1; ebene <= Ebenen; ++ebene) {
                SCOPED_TRACE(fall.Name + " of selection " + std::to_string(id) + ", " + felder[ebene - 1]);
                const bool bekannt = ebene >= id || (ab_Abschnitt && ebene >= 2);
                const auto anweisung = Anweisung(felder[ebene - 1], fall.From(db.Handle, id), id);
                EXPECT_EQ(Fehlernummer([&] { db.Handle->OpenRecordset(anweisung); }),
                          bekannt ? 0 : ErrorNumber::UnknownName);
            }
        }
    }
}

TEST_F(RechenProjektFrom, BeginsWithTheJoinOfTheLevel) {
    const std::pair<std::int32_t, std::string> joins[] = {
        {1, "Projekt INNER JOIN RechenProjektListe ON Projekt.ID_PRJ = RechenProjektListe.ID_Ebene"},
        {2, "Abschnitt INNER JOIN RechenProjektListe ON Abschnitt.ID_AB = RechenProjektListe.ID_Ebene"},
        {3, "UnvUStelle INNER JOIN RechenProjektListe ON UnvUStelle.ID_UUS = RechenProjektListe.ID_Ebene"},
        {4, "VerUStelle INNER JOIN RechenProjektListe ON VerUStelle.ID_VUS = RechenProjektListe.ID_Ebene"},
    };
    for (const auto& fall : Faelle)
        for (const auto& [id, join] : joins) {
            SCOPED_TRACE(fall.Name + " of selection " + std::to_string(id));
            const auto from = fall.From(db.Handle, id);
            EXPECT_TRUE(from.starts_with("FROM (")) << from;
            EXPECT_TRUE(from.ends_with(" ")) << from;
            // The refused clause of sections begins at the project.
            if (fall.Zeilen[id - 1] == "fails" && id == 2) continue;
            EXPECT_NE(from.find("(" + join + ")"), std::string::npos) << from;
        }
}

TEST_F(RechenProjektFrom, OfSubHabitatsStandsAroundTheirTables) {
    for (const auto& fall : Faelle) {
        const auto from = fall.From(db.Handle, 5);
        EXPECT_TRUE(from.starts_with("FROM RechenProjektListe INNER JOIN (")) << from;
        EXPECT_TRUE(from.ends_with("ON RechenProjektListe.ID_Ebene = Teilraum.ID_TR ")) << from;
    }
}

TEST_F(RechenProjektFrom, JoinsCoversBeforeSitesInModeFourAlone) {
    for (std::int32_t id = 1; id <= Ebenen; ++id) {
        for (const std::int16_t modus : {1, 3, 4}) {
            const auto from = RechMan_FromTaxa(db.Handle, id, modus);
            EXPECT_EQ(from.find("JOIN awaTeilraum ") < from.find("JOIN awaPrStelle "), modus == 4) << from;
        }
    }
}

TEST_F(RechenProjektFrom, OfResultsOfSectionsIsRefusedForItsMissingInnerAlone) {
    const std::pair<Routine, std::string> faelle[] = {
        // The sub-habitats of section 11 with their sites; 2 and 4 have no result of the seston.
        {RechMan_FromErg, "1/1 1/10 2/2 3/3 4/4 7/7"},
        {RechMan_FromErgSeston, "1/1 1/10 3/3 7/7"},
    };
    for (const auto& [routine, zeilen] : faelle) {
        const auto from = routine(db.Handle, 2);
        EXPECT_TRUE(from.starts_with("FROM (((((Projekt JOIN Abschnitt ON ")) << from;
        const auto anweisung = Anweisung("awaPrStelle.ID_PS", from, 2);
        EXPECT_EQ(Fehlernummer([&] { db.Handle->OpenRecordset(anweisung); }), ErrorNumber::SyntaxError);
        EXPECT_EQ(db.ZeilenSortiert(Ersetzt(anweisung, "Projekt JOIN ", "Projekt INNER JOIN ")), zeilen);
    }
}

TEST_F(RechenProjektFrom, OfSestonOfVisitsIsRefusedForItsTableAlone) {
    const auto from = RechMan_FromFundeSeston(db.Handle, 4);
    EXPECT_NE(from.find("sesTeilraum.ID_TR = sesPrStelle.ID_TR"), std::string::npos) << from;
    const auto anweisung = Anweisung("sesArtPrStelle.ID_ART", from, 4);
    EXPECT_EQ(Fehlernummer([&] { db.Handle->OpenRecordset(anweisung); }), ErrorNumber::UnknownName);
    // The sub-habitats of the visit are 1 and 2; 2 has no seston.
    EXPECT_EQ(db.ZeilenSortiert(Ersetzt(anweisung, "sesTeilraum.ID_TR", "Teilraum.ID_TR")), "1/801 1/802");
}

TEST_F(RechenProjektFrom, IsEmptyForAnUnknownLevelAndWithoutRow) {
    db.Auswahl(6, "Kontinent", {1});
    db.Auswahl(7, "", {1});
    db.Auswahl(8, "Projekt ", {1});  // a blank more is another text
    db.Handle->Execute(
        "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (10, Null, Null);");
    for (const auto& fall : Faelle)
        for (const std::int32_t id : {0, -1, 6, 7, 8, 10, 99, 2147483647})
            EXPECT_EQ(fall.From(db.Handle, id), "") << fall.Name << " of selection " << id;
}

TEST_F(RechenProjektFrom, TakesTheLevelWithoutRegardToCase) {
    db.Auswahl(6, "PROJEKT", {1});
    db.Auswahl(7, "unvu-stelle", {111});
    EXPECT_EQ(RechMan_FromFunde(db.Handle, 6), RechMan_FromFunde(db.Handle, 1));
    EXPECT_EQ(RechMan_FromFunde(db.Handle, 7), RechMan_FromFunde(db.Handle, 3));
}

TEST_F(RechenProjektFrom, OfTaxaIsEmptyInOtherModes) {
    for (const std::int16_t modus : {-32768, -1, 0, 5, 32767})
        for (std::int32_t id = 1; id <= Ebenen; ++id)
            EXPECT_EQ(RechMan_FromTaxa(db.Handle, id, modus), "") << modus;
}

TEST_F(RechenProjektFrom, LeavesFailuresOfTheStoreToTheCaller) {
    const auto ohne = std::make_shared<store::Database>(nullptr);
    for (const auto& fall : Faelle) {
        EXPECT_EQ(Fehlernummer([&] { fall.From(nullptr, 1); }), ErrorNumber::NotADatabase) << fall.Name;
        EXPECT_EQ(Fehlernummer([&] { fall.From(ohne, 1); }), ErrorNumber::NotADatabase) << fall.Name;
    }
}

}  // namespace
}  // namespace FX_Algen::RechenProjekt
