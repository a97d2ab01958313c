#include "entry/SestonAbfragen.h"

#include <gtest/gtest.h>

#include <string>

namespace FX_Algen::entry::seston {
namespace {

struct Anweisung {
    std::string Name, Text, Erwartet;
};

class SestonAbfragen : public testing::TestWithParam<Anweisung> {};

TEST_P(SestonAbfragen, HaveTheirText) { EXPECT_EQ(GetParam().Text, GetParam().Erwartet); }

INSTANTIATE_TEST_SUITE_P(
    Seston, SestonAbfragen,
    testing::Values(
        Anweisung{"Site", TeilraumMitStelle(9),
                  "SELECT DISTINCTROW Teilraum.*, sesPrStelle.ID_PS, sesPrStelle.PSBez FROM Teilraum INNER "
                  "JOIN sesPrStelle ON Teilraum.ID_TR=sesPrStelle.ID_TR WHERE Teilraum.ID_TR=9"},
        Anweisung{"BoundSubHabitat", Teilraum(9), "SELECT * FROM Teilraum WHERE Teilraum.ID_TR=9"},
        Anweisung{"BoundSite", Stellen(9), "SELECT ID_PS, PSBez FROM sesPrStelle WHERE ID_TR=9"},
        Anweisung{"NewSite", StelleAnlegen(9), "INSERT INTO sesPrStelle (ID_TR, PSBez) VALUES (9,'<NEU>');"},
        Anweisung{"Taxa", Taxa(5),
                  "SELECT sesArtPrStelle.CF, sesArtPrStelle.Abundanz, sesArtPrStelle.Zusatz, sesArt.ID_Art, "
                  "sesArt.Gattung, sesArt.Art FROM sesArt INNER JOIN sesArtPrStelle ON sesArt.ID_ART = "
                  "sesArtPrStelle.ID_ART WHERE ID_PS=5 ORDER BY sesArt.Gattung, sesArt.Art, "
                  "sesArtPrStelle.CF"},
        Anweisung{"NumberOfFindings", Fundezahl(5), "SELECT Count(*) AS N FROM sesArtPrStelle WHERE ID_PS=5"},
        Anweisung{"Row", TaxonSchreiben(5, 12, false, {true, 7, "häufig"}),
                  "UPDATE sesArtPrStelle SET CF=-1, Abundanz= 7, Zusatz='häufig' WHERE ID_PS=5 AND ID_Art=12 "
                  "AND CF=0;"},
        Anweisung{"RowWithAnApostrophe", TaxonSchreiben(5, 12, true, {false, 0, "Müller's"}),
                  "UPDATE sesArtPrStelle SET CF=0, Abundanz= 0, Zusatz='Müller''s' WHERE ID_PS=5 AND "
                  "ID_Art=12 AND CF=-1;"},
        Anweisung{"DeletedCf", TaxonLoeschen(5, 12, true),
                  "DELETE * FROM sesArtPrStelle WHERE ID_Art = 12 AND  ID_PS = 5 AND CF=True;"},
        Anweisung{"DeletedPlain", TaxonLoeschen(5, 12, false),
                  "DELETE * FROM sesArtPrStelle WHERE ID_Art = 12 AND  ID_PS = 5 AND CF=False;"}),
    [](const auto& fall) { return fall.param.Name; });

}  // namespace
}  // namespace FX_Algen::entry::seston
