#include "entry/ArtAuswahlAbfragen.h"

#include <gtest/gtest.h>

#include <string>

namespace FX_Algen::entry {
namespace {

struct Anweisung {
    std::string Name, Text, Erwartet;
};

class ArtAuswahlAbfragen : public testing::TestWithParam<Anweisung> {};

TEST_P(ArtAuswahlAbfragen, HaveTheirText) { EXPECT_EQ(GetParam().Text, GetParam().Erwartet); }

INSTANTIATE_TEST_SUITE_P(
    Catalogues, ArtAuswahlAbfragen,
    testing::Values(
        Anweisung{"GeneraOfAlgae", SQL_Gattungen(0),
                  "SELECT awaArt.Gattung FROM awaArt WHERE (Loeschstatus=False)  GROUP BY awaArt.Gattung;"},
        Anweisung{"GeneraOfSeston", SQL_Gattungen(1),
                  "SELECT sesArt.Gattung FROM sesArt  GROUP BY sesArt.Gattung;"},
        Anweisung{"GeneraOfNone", SQL_Gattungen(2), ""},
        Anweisung{"SpeciesOfAlgae", SQL_Arten(0, "Ödogonium"),
                  "SELECT awaArt.Art, awaArt.ID_ART FROM awaArt WHERE ((awaArt.Gattung = 'Ödogonium') AND "
                  "Loeschstatus=False) ORDER BY awaArt.Art;"},
        Anweisung{"SpeciesOfSeston", SQL_Arten(1, "Keratella"),
                  "SELECT sesArt.Art, sesArt.ID_ART FROM sesArt WHERE ((sesArt.Gattung = 'Keratella') AND "
                  "Loeschstatus=False) ORDER BY sesArt.Art;"},
        Anweisung{"SpeciesOfNone", SQL_Arten(-1, "Keratella"), ""},
        Anweisung{"AnApostropheStandsAsItIs", SQL_Arten(0, "O'Mearia"),
                  "SELECT awaArt.Art, awaArt.ID_ART FROM awaArt WHERE ((awaArt.Gattung = 'O'Mearia') AND "
                  "Loeschstatus=False) ORDER BY awaArt.Art;"},
        Anweisung{"GeneraOfSynonyms", SQL_SynGattungen(),
                  "SELECT DISTINCT awaSynArt.SynGattung FROM awaSynArt ORDER BY SynGattung;"},
        Anweisung{"Synonyms", SQL_SynArten("Schizonema"),
                  "SELECT DISTINCT awaSynArt.ID_Synart, awaSynArt.SynArt FROM awaSynArt WHERE "
                  "((awaSynArt.SynGattung)='Schizonema')  ORDER BY awaSynArt.SynArt;"},
        Anweisung{"TaxonOfASynonym", SQL_Synonym("21"),
                  "SELECT awaArt.Gattung, awaArt.Art, awaSynArt.ID_SYN FROM awaArt INNER JOIN awaSynArt ON "
                  "awaArt.ID_ART = awaSynArt.ID_SYN WHERE ID_SYNART = 21"},
        Anweisung{"ThereInAlgae", SQL_Eingetragen(0, "5", "2"),
                  "SELECT DISTINCTROW ID_ART FROM awaArtPrStelle WHERE ID_PS=5 AND ID_Art=2 AND CF=False;"},
        Anweisung{"ThereInSeston", SQL_Eingetragen(1, "5", "12"),
                  "SELECT DISTINCTROW ID_ART FROM sesArtPrStelle WHERE ID_PS=5 AND ID_Art=12 AND CF=False;"},
        Anweisung{"NewInAlgae", SQL_Neu(0, 5, 2),
                  "INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES (5,2,0);"},
        Anweisung{"NewInSeston", SQL_Neu(1, 5, 12),
                  "INSERT INTO sesArtPrStelle (ID_PS, ID_Art, CF) VALUES (5,12,0);"},
        Anweisung{"ChangeInAlgae", SQL_Aendern(0, 5, 2, 3, true),
                  "UPDATE awaArtPrStelle SET ID_Art=3 WHERE ID_PS=5 AND ID_Art=2 AND CF=-1 ;"},
        Anweisung{"ChangeInSeston", SQL_Aendern(1, 5, 12, 14, false),
                  "UPDATE sesArtPrStelle SET ID_Art=14 WHERE ID_PS=5 AND ID_Art=12 AND CF=0 ;"},
        Anweisung{"ChangeOfShares", SQL_AendernAnteile(9, 2, 3, false),
                  "UPDATE awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON awaArtPrStelle_MI.ID_TR_MI = "
                  "awaTeilraum_MI.ID_TR_MI SET awaArtPrStelle_MI.ID_ART =3 WHERE ID_TR=9 AND ID_Art=2 AND "
                  "CF=0 ;"}),
    [](const auto& fall) { return fall.param.Name; });

}  // namespace
}  // namespace FX_Algen::entry
