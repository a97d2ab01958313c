#include "app/BewertungFixture.h"

// How assessments are shown. The rows are written here, so that each marker can stand where it is wanted.

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::HasSubstr;
using testing::Not;

namespace {

class WrrlResults : public BewertungFixture {
protected:
    /// Sub-habitat 11 from all algae, restricted, softened from 3 to 2, and from its diatoms.
    void FillRows() {
        Execute({
            "INSERT INTO awaErgWRRL (ID, KAOnly, SQL_RefBioregion, Taxagruppe, BedingtBewertbar, "
            "KASchalenzahl, "
            "Bioregionstyp, TGZK, TI, TI_EW, TI_EQR, TI_OEZK, TI_OEZK3, SGZK, SI, SI_EW, SI_EQR, SI_OEZK, "
            "SI_OEZK3, RI_Anzahl, RI_Abundanz, RI_EW, RI_EQR, RI_OEZK, RI_OEZK3, TI_OEZK_Klasse, "
            "SI_OEZK_Klasse, RI_OEZK_Klasse, OEZK, OEZK_Klasse) VALUES (11, -1, '', 'KA', 0, 100, '-', '-', "
            "0, "
            "-1, 0, -1, -1, -1, 1.5, -1, 0.5, -1, -1, 0.5, 0.6, -1, -0.55, -1, -1, 'n.v.', 'n.v.', 'n.v.', "
            "-1, "
            "'n.v.');",
            "INSERT INTO awaErgWRRL (ID, KAOnly, SQL_RefBioregion, Taxagruppe, BedingtBewertbar, "
            "KASchalenzahl, "
            "Bioregionstyp, TGZK, TI, TI_EW, TI_EQR, TI_OEZK, TI_OEZK3, SGZK, SI, SI_EW, SI_EQR, SI_OEZK, "
            "SI_OEZK3, RI_Anzahl, RI_Abundanz, RI_EW, RI_EQR, RI_OEZK, RI_OEZK3, TI_OEZK_Klasse, "
            "SI_OEZK_Klasse, RI_OEZK_Klasse, OEZK, OEZK_Klasse) VALUES (11, 0, '', 'Alle', -1, 100, 'Kalk', "
            "'mäßig', 1.5, 1, 0.83, 1, 1, 2, 1.75, 1.25, 0.82, 1, 1, 0.5, 0.55, 0.7, 0.57, 3, 2, 'sehr gut', "
            "'sehr gut', 'schlecht', 2, 'mäßig gut');",
        });
    }
};

TEST_F(WrrlResults, TellFirstWhatTheAssessmentSays) {
    FillRows();
    const cli::Outcome outcome = Call({"results", path_, "--wrrl", "--scope", "Projekt:1"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    // The row from all algae stands before that from the diatoms alone.
    EXPECT_THAT(
        outcome.Out,
        HasSubstr(
            "Bewertung\n\n"
            "  ID  Projekt  Abschnitt  Stelle  Datum       Teilraum    Gruppe       Zustand      bedingt  "
            "Trophie  Saprobie  Referenzarten  Stand\n"));
    EXPECT_THAT(
        outcome.Out,
        HasSubstr(
            "  11  Flüsse   Oberlauf   Brücke  12.05.2026  Strom       alle Algen   2 mäßig gut  ja      "
            "       1         1              3  ?\n"
            "  11  Flüsse   Oberlauf   Brücke  12.05.2026  Strom [KA]  Kieselalgen  n.v.                 "
            "    n.v.      n.v.           n.v.  ?*\n"));
}

TEST_F(WrrlResults, TellEachModuleFromItsReferenceClassToItsClass) {
    FillRows();
    const std::string out = Call({"results", path_, "--wrrl", "--scope", "Projekt:1"}).Out;
    EXPECT_THAT(out, HasSubstr("Trophie\n\n"
                               "  ID  Stelle  Datum       Teilraum    Referenzklasse  Index  erwartet   EQR  "
                               "Klasse  Bezeichnung  Klasse bei EQR+0,03\n"));
    EXPECT_THAT(out, HasSubstr("Strom       mäßig            1,50      1,00  0,83       1  sehr gut     "));
    EXPECT_THAT(out, HasSubstr("Saprobie\n\n"));
    EXPECT_THAT(out, HasSubstr("Strom                    2   1,75      1,25  0,82       1  sehr gut     "));
    // The reference index is the mean of its parts, (0.5 + 0.55) / 2 = 0.525.
    EXPECT_THAT(out, HasSubstr("Anteil Taxa  Anteil Abundanz  Index  erwartet    EQR  Klasse"));
    EXPECT_THAT(out,
                HasSubstr("Kalk                   0,50             0,55   0,53      0,70   0,57       3  "
                          "schlecht     "));
}

TEST_F(WrrlResults, ShowMarkersInWordsAndTellWhatTheyMean) {
    FillRows();
    const std::string out = Call({"results", path_, "--wrrl", "--scope", "Projekt:1"}).Out;
    // The diatoms have no trophic index; the ratio of 0 is shown as it stands.
    EXPECT_THAT(out, HasSubstr("Strom [KA]  n.v.                -      n.v.  0,00    n.v.  n.v.     "));
    EXPECT_THAT(out, HasSubstr("\nn.v.  nicht vorhanden"));
    EXPECT_THAT(out, HasSubstr("\nbedingt: "));
    EXPECT_THAT(out, HasSubstr("\n-  kein Index: kein Taxon mit Gewicht; der EQR ist dann 0"));
    EXPECT_THAT(out, HasSubstr("\n?  unbekannt: nicht mit diesem Programm bewertet"));
    EXPECT_THAT(out, HasSubstr("\nTeilräume ohne Ergebnis: 2\n"));
    EXPECT_THAT(out, Not(HasSubstr("-1")));
}

TEST_F(WrrlResults, MarkAClassThatRestsOnNoIndexOrOnAMissingReferenceValue) {
    struct Case {
        const char* What;
        const char* Change;
        bool Marked;
    };
    const Case cases[] = {
        {"nothing missing", "ID=11", false},
        {"expected value, yet a class", "TI_EW=-1", true},
        {"expected value of the reference species", "RI_EW=-1", true},
        {"class of a module", "SI_OEZK=-1", true},
        {"index, so that the ratio is 0 and the class the worst", "SI=0, SI_EQR=0, SI_OEZK=5", true},
        // Neither the name of a class nor the class that 0.03 more would give makes the class another one.
        {"name of a class", "SI_OEZK_Klasse='n.v.'", false},
        {"raised class", "TI_OEZK3=-1", false},
    };
    const std::string legend = "\n*  eine Klasse dieser Zeile fehlt oder ruht auf keinem Index";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        Execute({"DELETE * FROM awaErgWRRL;"});
        FillRows();
        Execute({"DELETE * FROM awaErgWRRL WHERE KAOnly=True;"});
        database_->Execute("UPDATE awaErgWRRL SET " + std::string(c.Change) + " WHERE ID=11;");
        const std::string out = Call({"results", path_, "--wrrl", "--scope", "Teilraum:11"}).Out;
        EXPECT_EQ(out.find("  ?*\n") != std::string::npos, c.Marked) << out;
        EXPECT_EQ(out.find("  ?\n") != std::string::npos, !c.Marked) << out;
        EXPECT_EQ(out.find(legend) != std::string::npos, c.Marked) << out;
    }
}

TEST_F(WrrlResults, SpeakEnglishWhereAsked) {
    FillRows();
    const std::string out = Call({"results", path_, "--wrrl", "--lang", "en"}).Out;
    EXPECT_THAT(out, HasSubstr("Group      Status       restricted  Trophic module  Saprobic module"));
    EXPECT_THAT(out, HasSubstr("all algae  2 mäßig gut  yes"));
    EXPECT_THAT(out, HasSubstr("diatoms    n/a"));
    EXPECT_THAT(out, HasSubstr("0.83"));
    EXPECT_THAT(out, Not(HasSubstr("n.v.")));
    EXPECT_THAT(out, HasSubstr("Sub-habitats without result: 3\n"));
}

TEST_F(WrrlResults, HaveAllColumnsWithFullValuesForPrograms) {
    FillRows();
    const nlohmann::json rows = Json({"--wrrl"});
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0]["KAOnly"], false);
    EXPECT_EQ(rows[1]["KAOnly"], true);
    EXPECT_EQ(rows[0]["TI_EQR"], 0.83);
    EXPECT_EQ(rows[1]["TGZK"], "-");
    EXPECT_EQ(rows[1]["OEZK"], -1);
    EXPECT_EQ(rows[1]["OEZK_Klasse"], "n.v.");
    EXPECT_TRUE(rows[0]["TaxazahlGesamt"].is_null());
    const std::string csv = Call({"results", path_, "--wrrl", "--format", "csv"}).Out;
    const std::string header = csv.substr(0, csv.find('\n'));
    const auto table = database_->OpenRecordset("SELECT * FROM awaErgWRRL;");
    EXPECT_EQ(table->Fields().size(), 44u);
    for (const store::ResultField& field : table->Fields()) {
        EXPECT_THAT("," + header + ",", HasSubstr("," + field.Name + ","));
        EXPECT_TRUE(rows[0].contains(field.Name)) << field.Name;
    }
    EXPECT_THAT(header, testing::EndsWith(",OEZK,OEZK_Klasse,Status,Fehlernummer,Fehlertext"));
    EXPECT_THAT(csv, HasSubstr(",mäßig gut,unknown,,\n"));
}

TEST_F(WrrlResults, AreEmptyBeforeTheFirstAssessment) {
    const cli::Outcome outcome = Call({"results", path_, "--wrrl"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "Keine Ergebnisse vorhanden.\nTeilräume ohne Ergebnis: 4\n");
}

TEST_F(WrrlResults, LeaveOutWhatAHalfFilledRowDoesNotHold) {
    Execute({"INSERT INTO awaErgWRRL (ID, KAOnly) VALUES (13, 0);"});
    const std::string out = Call({"results", path_, "--wrrl", "--scope", "Teilraum:13"}).Out;
    EXPECT_THAT(out, HasSubstr("Blöcke"));
    EXPECT_THAT(out, Not(HasSubstr("n.v.")));
    EXPECT_THAT(out, Not(HasSubstr("0,00")));
}

}  // namespace
