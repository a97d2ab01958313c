#include "Auswahlbogen.h"

/// Taking a taxon over from the picker: what is refused, what is written, what the sheet hears.
namespace FX_Algen::entry::test {
namespace {

using controls::Input;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

const std::string Systemfehler =
    "Durch einen Systemfehler konnte das Taxon möglicherweise nicht eingefügt werden.  \nBitte schließen Sie "
    "das Probenstellenformular, öffnen es erneut und prüfen die Eingabedaten.";
const std::string Unmoeglich = "Artauswahl: Art übernehmen nicht möglich!";

class Uebernahme : public Auswahltest {
protected:
    void Fund(std::int32_t ID_Art, bool cf, const std::string& tabelle = "awaArtPrStelle") {
        datei.Ausfuehren("INSERT INTO " + tabelle + " (ID_PS, ID_ART, CF) VALUES (5, " +
                         std::to_string(ID_Art) + ", " + (cf ? "-1" : "0") + ");");
    }
    /// Has a person choose the taxon; the lists are those of the picker.
    void Waehlen(int Gattung, int Art) {
        Input person(*picker_);
        ASSERT_TRUE(person.Choose(picker_->cboGattung, Gattung));
        ASSERT_TRUE(person.Choose(picker_->cboArt, Art));
    }
    controls::Taken Uebernehmen() { return Input(*picker_).Click(picker_->cmdArtAuswahl0); }
    bool Offen() const { return controls::OpenForms().Find<frmArtAuswahl>() != nullptr; }
};

constexpr int Navicula = 1;
constexpr int Gregaria = 0;
constexpr int Lanceolata = 1;

TEST_F(Uebernahme, EntersANewTaxonAsCertainAndTellsTheSheet) {
    Picker();
    Waehlen(Navicula, Lanceolata);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("3"));
    EXPECT_EQ(bogen_->Aufbauten, 2);  // once before the picker opened
    EXPECT_THAT(bogen_->Gewaehlt, ElementsAre(Pair(3, false)));
    EXPECT_EQ(bogen_->Focus(), &bogen_->vsfgAlgenArt);
    EXPECT_FALSE(Offen());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Uebernahme, NewRowsTakeTheDefaultsSoThatTheyCanBeCalculated) {
    Picker();
    Waehlen(Navicula, Gregaria);
    ASSERT_TRUE(Uebernehmen());
    const auto satz = datei.Datenbank()->OpenRecordset(
        "SELECT DG_MA, SD_MA, Schalen_KA FROM awaArtPrStelle WHERE ID_ART=2;");
    for (const auto* feld : {"DG_MA", "SD_MA", "Schalen_KA"}) EXPECT_EQ((*satz)[feld].R8(), 0) << feld;
}

TEST_F(Uebernahme, EnterTakesOverTheSpeciesInView) {
    auto& picker = Picker();
    ASSERT_TRUE(Input(picker).Key({"Enter"}));
    EXPECT_THAT(bogen_->Funde(), ElementsAre("1"));  // Achnanthes minutissima, the first of each list
    EXPECT_FALSE(Offen());
}

TEST_F(Uebernahme, EnterBehindATypedGenusGoesOnToTheSpecies) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboGattung, "nav"));
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_EQ(picker.Focus(), &picker.cboArt);
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    ASSERT_TRUE(person.Type(picker.cboArt, "l"));
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_THAT(bogen_->Funde(), ElementsAre("3"));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Uebernahme, EnterBehindTheGenusThatStoodThereGoesOnToTheSpeciesToo) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboGattung, "achn"));
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_EQ(picker.Focus(), &picker.cboArt);
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
}

TEST_F(Uebernahme, TakesTheSpeciesThatLeavingTheGenusForTheButtonChooses) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Choose(picker.cboGattung, Navicula));
    EXPECT_EQ(picker.cboID_Art.Text(), "");
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));  // gregaria, the first one
    EXPECT_FALSE(Offen());
}

TEST_F(Uebernahme, WithoutASpeciesAsksForOneAndGoesThere) {
    // The first genus of seston has no species that is not deleted.
    auto& picker = Picker(Auswahlmodus::Neu, Katalog::Seston);
    Uebernehmen();
    EXPECT_THAT(Boxen(), ElementsAre(BitteWaehlen));
    EXPECT_EQ(picker.Focus(), &picker.cboArt);
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    EXPECT_TRUE(Offen());
}

TEST_F(Uebernahme, TakesTheAcceptedTaxonOfASynonym) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(person.Enter(picker.cboSynArt));
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));
}

TEST_F(Uebernahme, TakesTheTaxonOfTheSynonymThatLeavingItsGenusForTheButtonChooses) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));  // of gregarium, the first synonym of Schizonema
}

TEST_F(Uebernahme, EnterBehindTheGenusOfASynonymGoesOnToTheSynonyms) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Type(picker.cboSynGattung, "sch"));
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_EQ(picker.Focus(), &picker.cboSynArt);
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    ASSERT_TRUE(person.Key({"Enter"}));
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));
}

// ---- taxa that are there -------------------------------------------------------------------------------

TEST_F(Uebernahme, RefusesATaxonThatStandsAtTheSite) {
    Fund(2, false);
    Picker();
    Waehlen(Navicula, Gregaria);
    Uebernehmen();
    EXPECT_THAT(Boxen(),
                ElementsAre("Artauswahl: Navicula / gregaria ist bereits in der Probenstelle eingetragen."));
    EXPECT_TRUE(Offen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));
    EXPECT_EQ(bogen_->Aufbauten, 1);
}

TEST_F(Uebernahme, RefusesInTheLanguageOfTheSheet) {
    Fund(2, false);
    Picker(Auswahlmodus::Neu, Katalog::Algen, 20000);
    Waehlen(Navicula, Gregaria);
    Uebernehmen();
    EXPECT_THAT(
        Boxen(),
        ElementsAre("Choice of taxon: Navicula / gregaria is already entered for the sampling site."));
}

TEST_F(Uebernahme, TakesATaxonThatStandsAtTheSiteAsCfOnly) {
    Fund(2, true);
    Picker();
    Waehlen(Navicula, Gregaria);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), UnorderedElementsAre("2", "2cf"));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Uebernahme, ATaxonOfAnotherSiteIsNoneOfThisOne) {
    datei.Ausfuehren("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (6, 2, 0);");
    Picker();
    Waehlen(Navicula, Gregaria);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));
}

// ---- another taxon for a row ---------------------------------------------------------------------------

TEST_F(Uebernahme, APlainRowCannotKeepItsOwnTaxon) {
    Fund(2, false);
    Bogen().vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Gregaria);
    Uebernehmen();
    EXPECT_THAT(Boxen(),
                ElementsAre("Artauswahl: Navicula / gregaria ist bereits in der Probenstelle eingetragen."));
    EXPECT_TRUE(Offen());
}

TEST_F(Uebernahme, TheSharesGoWithTheTaxonOfTheRowAndTheOthersStay) {
    Fund(2, false);
    Fund(2, true);
    datei.Ausfuehren("INSERT INTO awaTeilraum (ID_TR) VALUES (9);");
    datei.Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (91, 9, 'Überzug');");
    datei.Ausfuehren("INSERT INTO awaTeilraum (ID_TR) VALUES (10);");
    datei.Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (92, 10, 'anderswo');");
    for (const auto* anteil : {"91, 2, 0, 30", "91, 2, -1, 20", "92, 2, 0, 10"})
        datei.Ausfuehren(std::string("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (") +
                         anteil + ");");
    datei.Ausfuehren("UPDATE awaArtPrStelle SET DG_MA=7 WHERE ID_ART=2 AND CF=0;");

    Bogen().vsfgAlgenArt.Select(1, 2);  // the plain row stands before the cf. row
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Lanceolata);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), UnorderedElementsAre("2cf", "3"));
    EXPECT_THAT(bogen_->Gewaehlt, ElementsAre(Pair(3, false)));
    const auto anteil = [&](const std::string& wo) {
        const auto satz = datei.Datenbank()->OpenRecordset("SELECT DG_MI FROM awaArtPrStelle_MI WHERE " + wo);
        return satz->Eof() ? -1.0 : (*satz)["DG_MI"].R8();
    };
    EXPECT_EQ(anteil("ID_TR_MI=91 AND ID_ART=3 AND CF=0;"), 30);
    EXPECT_EQ(anteil("ID_TR_MI=91 AND ID_ART=2 AND CF=-1;"), 20);
    EXPECT_EQ(anteil("ID_TR_MI=92 AND ID_ART=2 AND CF=0;"), 10);
    // What was entered for the row stays with it.
    EXPECT_EQ(
        (*datei.Datenbank()->OpenRecordset("SELECT DG_MA FROM awaArtPrStelle WHERE ID_ART=3;"))["DG_MA"].R8(),
        7);
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Uebernahme, ACfRowStaysUncertain) {
    Fund(2, true);
    Bogen().vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Lanceolata);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("3cf"));
    EXPECT_THAT(bogen_->Gewaehlt, ElementsAre(Pair(3, true)));
}

TEST_F(Uebernahme, ACfRowThatWouldMeetItsTwinStaysAndTheSheetIsBuiltAllTheSame) {
    Fund(2, true);
    Fund(3, true);
    Bogen().vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Lanceolata);  // stands there as cf., so the plain test lets it pass
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Ändern: " + Systemfehler));
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2cf", "3cf"));
    EXPECT_EQ(bogen_->Aufbauten, 2);
    EXPECT_THAT(bogen_->Gewaehlt, ElementsAre(Pair(3, true)));
    EXPECT_FALSE(Offen());
}

TEST_F(Uebernahme, ARowWhoseSharesCannotFollowKeepsItsTaxon) {
    Fund(2, false);
    datei.Ausfuehren("INSERT INTO awaTeilraum (ID_TR) VALUES (9);");
    datei.Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (91, 9, 'Überzug');");
    // A share of the new taxon stands there already, so that of the row cannot become one.
    for (const auto* anteil : {"91, 2, 0, 30", "91, 3, 0, 20"})
        datei.Ausfuehren(std::string("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (") +
                         anteil + ");");
    Bogen().vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Lanceolata);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Ändern: " + Systemfehler));
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2"));
}

TEST_F(Uebernahme, ARowThatIsGoneMeanwhileIsTold) {
    Fund(2, false);
    Bogen().vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Lanceolata);
    datei.Datenbank()->Execute("DELETE * FROM awaArtPrStelle WHERE ID_ART=2;");
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Ändern: " + Systemfehler));
}

TEST_F(Uebernahme, ARowWithoutATaxonCannotBeChanged) {
    Bogen().vsfgAlgenArt.Select(0, 2);  // the head
    Picker(Auswahlmodus::Aendern);
    Waehlen(Navicula, Gregaria);
    Uebernehmen();
    EXPECT_THAT(Boxen(), ElementsAre(Unmoeglich));
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    EXPECT_TRUE(Offen());
}

// ---- seston --------------------------------------------------------------------------------------------

TEST_F(Uebernahme, SestonGoesIntoTheTaxaOfSeston) {
    Picker(Auswahlmodus::Neu, Katalog::Seston);
    Waehlen(2, 1);  // Keratella quadrata
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("14"));
    EXPECT_TRUE(datei.Datenbank()->OpenRecordset("SELECT * FROM awaArtPrStelle;")->Eof());
}

TEST_F(Uebernahme, TheDuplicateTestAppliesToSeston) {
    Fund(14, false, "sesArtPrStelle");
    Picker(Auswahlmodus::Neu, Katalog::Seston);
    Waehlen(2, 1);
    Uebernehmen();
    EXPECT_THAT(Boxen(),
                ElementsAre("Artauswahl: Keratella / quadrata ist bereits in der Probenstelle eingetragen."));
}

TEST_F(Uebernahme, ARowOfSestonChangesAloneWhateverSharesOfAlgaeHaveItsNumber) {
    Fund(12, true, "sesArtPrStelle");
    datei.Ausfuehren("INSERT INTO awaTeilraum (ID_TR) VALUES (9);");
    datei.Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (91, 9, 'Überzug');");
    datei.Ausfuehren("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (91, 12, -1, 5);");
    Bogen(Katalog::Seston).vsfgAlgenArt.Select(1, 2);
    Picker(Auswahlmodus::Aendern, Katalog::Seston);
    Waehlen(2, 1);
    ASSERT_TRUE(Uebernehmen());
    EXPECT_THAT(bogen_->Funde(), ElementsAre("14cf"));
    EXPECT_FALSE(datei.Datenbank()->OpenRecordset("SELECT * FROM awaArtPrStelle_MI WHERE ID_ART=12;")->Eof());
}

// ---- failures ------------------------------------------------------------------------------------------

TEST_F(Uebernahme, AnInsertThatTheStoreRefusesIsToldAndAnswersFalse) {
    Fund(2, false);
    auto& picker = Picker();
    bool ok = true;
    picker.AddNew_ArtPrStelle(5, 2, ok);
    EXPECT_FALSE(ok);
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Neu: " + Systemfehler));
    picker.AddNew_ArtPrStelle(5, 3, ok);
    EXPECT_TRUE(ok);
    EXPECT_THAT(bogen_->Funde(), ElementsAre("2", "3"));
}

TEST_F(Uebernahme, AnyOtherFailureLeavesTheDialogOpen) {
    Picker();
    Waehlen(Navicula, Gregaria);
    datei.Datenbank()->TableDefs().Delete("awaArtPrStelle");
    Uebernehmen();
    EXPECT_THAT(Boxen(), ElementsAre(Unmoeglich));
    EXPECT_TRUE(Offen());
}

TEST_F(Uebernahme, WaitsUntilTheSheetCouldSaveItsRow) {
    Picker();
    Waehlen(Navicula, Gregaria);
    bogen_->Gespeichert = false;
    Uebernehmen();
    EXPECT_TRUE(Offen());
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    EXPECT_EQ(bogen_->Aufbauten, 1);
}

// ---- cancel --------------------------------------------------------------------------------------------

TEST_F(Uebernahme, CancelWritesNothingAndAsksForNothing) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetText(picker.cboGattung, "Xanthidium"));
    ASSERT_TRUE(person.Click(picker.cmdArtAuswahl1));
    EXPECT_FALSE(Offen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(bogen_->Funde(), IsEmpty());
    EXPECT_EQ(bogen_->Aufbauten, 1);
}

TEST_F(Uebernahme, EscapeCancels) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetText(picker.cboArt, "Ähnliches"));
    ASSERT_TRUE(person.Key({"Escape"}));
    EXPECT_FALSE(Offen());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Uebernahme, ClosingTheSheetClosesThePicker) {
    Picker();
    EXPECT_TRUE(bogen_->Close());
    EXPECT_FALSE(Offen());
}

}  // namespace
}  // namespace FX_Algen::entry::test
