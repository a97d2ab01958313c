#include "entry/frmArtAuswahl.h"

#include "Auswahlbogen.h"

/// What the taxon picker offers: its lists, what is typed into them, the search by synonym.
namespace FX_Algen::entry::test {
namespace {

using controls::Input;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// ---- lists ---------------------------------------------------------------------------------------------

TEST_F(Auswahltest, OffersGeneraAndTheSpeciesOfTheFirstOne) {
    auto& picker = Picker();
    // Radiosa and Surirella are deleted; ö is sorted with o.
    EXPECT_THAT(picker.cboGattung.List().All(),
                ElementsAre("Achnanthes", "Navicula", "Nitzschia", "Ödogonium"));
    EXPECT_EQ(picker.cboGattung.Text(), "Achnanthes");
    EXPECT_THAT(picker.cboArt.List().All(), ElementsAre("minutissima"));
    EXPECT_EQ(picker.cboArt.Text(), "minutissima");
    EXPECT_EQ(picker.cboID_Art.Text(), "1");
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, OffersTheSpeciesOfAGenusOnceItIsLeft) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Choose(picker.cboGattung, 1));
    EXPECT_THAT(picker.cboArt.List().All(), IsEmpty());
    EXPECT_EQ(picker.cboID_Art.Text(), "");

    ASSERT_TRUE(person.Enter(picker.cboArt));
    EXPECT_THAT(picker.cboArt.List().All(), ElementsAre("gregaria", "lanceolata"));
    EXPECT_THAT(picker.cboID_Art.List().All(), ElementsAre("2", "3"));
    EXPECT_EQ(picker.cboArt.Text(), "gregaria");
    EXPECT_EQ(picker.cboID_Art.Text(), "2");

    ASSERT_TRUE(person.Choose(picker.cboArt, 1));
    EXPECT_EQ(picker.cboID_Art.Text(), "3");
}

TEST_F(Auswahltest, KeepsTheSpeciesWhereTheGenusIsLeftAsItWas) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Choose(picker.cboGattung, 1));
    ASSERT_TRUE(person.Choose(picker.cboArt, 1));
    ASSERT_TRUE(person.Choose(picker.cboGattung, 1));
    EXPECT_EQ(picker.cboID_Art.Text(), "3");
    ASSERT_TRUE(person.Enter(picker.cboArt));
    EXPECT_EQ(picker.cboArt.Text(), "lanceolata");
    EXPECT_EQ(picker.cboID_Art.Text(), "3");
}

TEST_F(Auswahltest, KeepsAGenusOfSestonWhoseTaxaAreAllDeletedWithoutSpecies) {
    auto& picker = Picker(Auswahlmodus::Neu, Katalog::Seston);
    EXPECT_THAT(picker.cboGattung.List().All(), ElementsAre("Asplanchna", "Brachionus", "Keratella"));
    EXPECT_EQ(picker.cboGattung.Text(), "Asplanchna");
    EXPECT_THAT(picker.cboArt.List().All(), IsEmpty());
    EXPECT_EQ(picker.cboID_Art.Text(), "");

    Input person(picker);
    ASSERT_TRUE(person.Choose(picker.cboGattung, 2));
    ASSERT_TRUE(person.Enter(picker.cboArt));
    EXPECT_THAT(picker.cboArt.List().All(), ElementsAre("cochlearis", "quadrata"));
    EXPECT_THAT(picker.cboID_Art.List().All(), ElementsAre("12", "14"));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, FillsNothingForAnotherCatalogue) {
    auto& picker = Picker();
    picker.Katalog(2);
    picker.AL_Init();
    EXPECT_EQ(picker.cboKatalog.List().Count(), 0);
    EXPECT_EQ(picker.cboGattung.List().Count(), 0);
    EXPECT_EQ(picker.cboArt.List().Count(), 0);
    EXPECT_EQ(picker.cboID_Art.List().Count(), 0);
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, TellsTheCatalogueOfTheSheet) {
    EXPECT_EQ(Picker().cboKatalog.Text(), "Algen");
    EXPECT_EQ(picker_->cboID_Kat.Text(), "0");
    bogen_->Close(controls::Ending::Discard);
    bogen_.reset();
    EXPECT_EQ(Picker(Auswahlmodus::Neu, Katalog::Seston).cboKatalog.Text(), "Seston");
    EXPECT_EQ(picker_->cboID_Kat.Text(), "1");
}

TEST_F(Auswahltest, ShowsTheBusyPointerWhileListsFill) {
    Picker();
    EXPECT_GT(display->Sanduhren, 0);
    EXPECT_FALSE(display->Messages().IsBusy());
}

TEST_F(Auswahltest, HidesWhatRunsBesideItsLists) {
    auto& picker = Picker();
    for (const auto* name : {"cboID_Kat", "cboID_Art", "cboID_Synart", "txtAuswahlstatus"}) {
        ASSERT_NE(picker.Find(name), nullptr) << name;
        EXPECT_FALSE(picker.Find(name)->IsShown()) << name;
    }
}

// ---- typing --------------------------------------------------------------------------------------------

struct Getippt {
    std::string Text, Gattung;
    int Markiert;  ///< characters completed behind what was typed
};

class Tippen : public Auswahltest, public testing::WithParamInterface<Getippt> {};

TEST_P(Tippen, CompletesTheGenus) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboGattung, GetParam().Text));
    EXPECT_EQ(picker.cboGattung.Text(), GetParam().Gattung);
    EXPECT_EQ(picker.cboGattung.SelLength(), GetParam().Markiert);
    EXPECT_EQ(picker.cboArt.List().Count(), 0);
}

// The focus marks the whole text, so that what is typed takes its place. "Navicula" has 8 characters,
// "Nitzschia" and "Ödogonium" 9.
INSTANTIATE_TEST_SUITE_P(Worked, Tippen,
                         testing::Values(Getippt{"n", "Navicula", 7}, Getippt{"N", "Navicula", 7},
                                         Getippt{"nit", "Nitzschia", 6}, Getippt{"ö", "Ödogonium", 8},
                                         Getippt{"Ödog", "Ödogonium", 5}, Getippt{"navicula", "Navicula", 0},
                                         Getippt{"x", "X", 0}));

TEST_F(Auswahltest, CompletesTheSpeciesInSmallLetters) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboGattung, "ö"));
    ASSERT_TRUE(person.Enter(picker.cboArt));
    ASSERT_TRUE(person.Type(picker.cboArt, "GRÖ"));
    EXPECT_EQ(picker.cboArt.Text(), "größeri");
    EXPECT_EQ(picker.cboID_Art.Text(), "6");
}

TEST_F(Auswahltest, LosesTheIdentifierWithTheSpecies) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboArt, "xyz"));
    EXPECT_EQ(picker.cboID_Art.Text(), "");
}

TEST_F(Auswahltest, MarksTheWholeTextOfAListThatGetsTheFocus) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Enter(picker.cboArt));
    EXPECT_EQ(picker.cboArt.SelStart(), 0);
    EXPECT_EQ(picker.cboArt.SelLength(), 11);  // minutissima
    ASSERT_TRUE(person.Enter(picker.cboGattung));
    EXPECT_EQ(picker.cboGattung.SelLength(), 10);  // Achnanthes
}

TEST_F(Auswahltest, KeepsTheFocusOnAGenusThatIsNotInTheList) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetText(picker.cboGattung, "Xanthidium"));
    EXPECT_FALSE(person.Enter(picker.cboArt));
    EXPECT_EQ(picker.Focus(), &picker.cboGattung);
    EXPECT_EQ(picker.cboGattung.Text(), "Xanthidium");
    EXPECT_THAT(Boxen(), ElementsAre(BitteWaehlen));
}

TEST_F(Auswahltest, KeepsTheFocusOnASpeciesThatIsNotInTheList) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetText(picker.cboArt, "übelriechend"));
    EXPECT_FALSE(person.Enter(picker.chkSynonym));
    EXPECT_EQ(picker.Focus(), &picker.cboArt);
    EXPECT_THAT(Boxen(), ElementsAre(BitteWaehlen));
}

TEST_F(Auswahltest, AGenusWithAnApostropheFailsInTheCommonHandlerAndNothingElseChanges) {
    datei.Ausfuehren("INSERT INTO awaArt (ID_ART, Gattung, Art) VALUES (8, 'O''Mearia', 'testis');");
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetText(picker.cboGattung, "O'Mearia"));
    person.Enter(picker.cboArt);
    // The genus ends the text of the statement early.
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith("Artauswahl - Neu: 3075 - "));
    EXPECT_TRUE(picker.IsOpen());
    EXPECT_EQ(picker.cboGattung.Text(), "O'Mearia");
    EXPECT_EQ(picker.cboArt.List().Count(), 0);
}

TEST_F(Auswahltest, AGenusWithoutSpeciesKeepsTheFocusOnItsEmptyListUntilCancel) {
    // Asplanchna, the first genus: its only taxon is deleted.
    auto& picker = Picker(Auswahlmodus::Neu, Katalog::Seston);
    Input person(picker);
    ASSERT_TRUE(person.Enter(picker.cboArt));
    EXPECT_FALSE(person.Enter(picker.cboGattung));
    EXPECT_EQ(picker.Focus(), &picker.cboArt);
    EXPECT_THAT(Boxen(), ElementsAre(BitteWaehlen));
    ASSERT_TRUE(person.Click(picker.cmdArtAuswahl1));
    EXPECT_FALSE(picker.IsOpen());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, TypingIntoTheGenusTakesItsSpeciesAwayEvenWhereItStaysTheSame) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.Type(picker.cboGattung, "a"));
    EXPECT_EQ(picker.cboGattung.Text(), "Achnanthes");
    EXPECT_EQ(picker.cboArt.List().Count(), 0);
    EXPECT_EQ(picker.cboArt.Text(), "");
    EXPECT_EQ(picker.cboID_Art.Text(), "");
    EXPECT_EQ(picker.cboID_Art.List().Count(), 0);
}

// ---- synonyms ------------------------------------------------------------------------------------------

TEST_F(Auswahltest, TheSearchBySynonymTakesThePlaceOfTheLists) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    EXPECT_FALSE(picker.cboSynGattung.IsShown());
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    EXPECT_FALSE(picker.cboGattung.IsEnabled());
    EXPECT_FALSE(picker.cboArt.IsEnabled());
    EXPECT_TRUE(picker.fraSynonym.IsShown());
    EXPECT_THAT(picker.cboSynGattung.List().All(), ElementsAre("Schizonema", "Zygoceros"));
    EXPECT_EQ(picker.cboSynGattung.Text(), "Schizonema");

    ASSERT_TRUE(person.SetValue(picker.chkSynonym, false));
    EXPECT_TRUE(picker.cboGattung.IsEnabled());
    EXPECT_TRUE(picker.cboArt.IsEnabled());
    EXPECT_FALSE(picker.fraSynonym.IsShown());
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, WithoutSynonymsTheSearchSaysThatThereAreNoTaxa) {
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Neu: Keine Taxa verfügbar"));
    EXPECT_TRUE(picker.fraSynonym.IsShown());

    // The list has no entries, so leaving it asks for none.
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(person.Enter(picker.chkSynonym));
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Neu: Keine Taxa verfügbar"));
}

TEST_F(Auswahltest, TheWordsForNoTaxaAreTheSameInEveryLanguage) {
    auto& picker = Picker(Auswahlmodus::Neu, Katalog::Algen, 20000);
    ASSERT_TRUE(Input(picker).SetValue(picker.chkSynonym, true));
    EXPECT_THAT(Boxen(), ElementsAre("Choice of taxon - New: Keine Taxa verfügbar"));
}

TEST_F(Auswahltest, ASynonymChoosesItsAcceptedTaxon) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(person.Enter(picker.cboSynArt));
    EXPECT_THAT(picker.cboSynArt.List().All(), ElementsAre("gregarium", "radiosum"));
    EXPECT_EQ(picker.cboID_Synart.Text(), "21");
    EXPECT_EQ(picker.cboGattung.Text(), "Navicula");
    EXPECT_EQ(picker.cboArt.Text(), "gregaria");
    EXPECT_EQ(picker.cboID_Art.Text(), "2");
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Auswahltest, ASynonymOfADeletedTaxonLeavesTheFirstSpeciesOfTheGenusChosen) {
    Synonyme();
    datei.Ausfuehren("UPDATE awaSynArt SET ID_SYN=3 WHERE ID_SYNART=21;");
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(person.Enter(picker.cboSynArt));
    EXPECT_EQ(picker.cboArt.Text(), "lanceolata");
    ASSERT_TRUE(person.Choose(picker.cboSynArt, 1));  // radiosum: Navicula radiosa is deleted
    EXPECT_EQ(picker.cboID_Synart.Text(), "22");
    EXPECT_EQ(picker.cboGattung.Text(), "Navicula");
    EXPECT_EQ(picker.cboArt.Text(), "gregaria");
    EXPECT_EQ(picker.cboID_Art.Text(), "2");
}

TEST_F(Auswahltest, ASynonymWithoutItsGenusInTheListLeavesNothingChosen) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Choose(picker.cboSynGattung, 1));
    ASSERT_TRUE(person.Enter(picker.cboSynArt));  // brebissonii: no Surirella is left
    EXPECT_EQ(picker.cboID_Synart.Text(), "23");
    EXPECT_EQ(picker.cboGattung.ListIndex(), -1);
    EXPECT_EQ(picker.cboID_Art.Text(), "");
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Neu: Keine Taxa verfügbar"));

    ASSERT_TRUE(person.Choose(picker.cboSynArt, 1));  // verschollen: its taxon is gone
    EXPECT_EQ(picker.cboID_Synart.Text(), "24");
    EXPECT_EQ(picker.cboID_Art.Text(), "");
    EXPECT_THAT(Boxen(), ElementsAre("Artauswahl - Neu: Keine Taxa verfügbar"));
}

TEST_F(Auswahltest, OfTaxaOfOneNameASynonymChoosesItsOwn) {
    Synonyme();
    datei.Ausfuehren("INSERT INTO awaArt (ID_ART, Gattung, Art) VALUES (30, 'Navicula', 'gregaria');");
    datei.Ausfuehren("UPDATE awaSynArt SET ID_SYN=30 WHERE ID_SYNART=21;");
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.Enter(picker.cboSynGattung));
    ASSERT_TRUE(person.Enter(picker.cboSynArt));
    EXPECT_EQ(picker.cboID_Art.Text(), "30");
}

TEST_F(Auswahltest, KeepsTheFocusOnTheGenusOfASynonymThatIsNotInTheList) {
    Synonyme();
    auto& picker = Picker();
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    ASSERT_TRUE(person.SetText(picker.cboSynGattung, "Yggdrasil"));
    EXPECT_FALSE(person.Enter(picker.cboSynArt));
    EXPECT_EQ(picker.Focus(), &picker.cboSynGattung);
    EXPECT_THAT(Boxen(), ElementsAre(BitteWaehlen));
}

TEST_F(Auswahltest, AFailureOfTheStoreInTheSynonymsGoesToTheCommonHandler) {
    auto& picker = Picker();
    datei.Datenbank()->TableDefs().Delete("awaSynArt");
    Input person(picker);
    ASSERT_TRUE(person.SetValue(picker.chkSynonym, true));
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), StartsWith("Artauswahl - Neu: 3078 - "));
}

// ---- opening -------------------------------------------------------------------------------------------

TEST_F(Auswahltest, StandsInItsSheetUnderTheCaptionOfTheMode) {
    auto& picker = Picker();
    EXPECT_EQ(picker.Caption(), "Artauswahl - Neu");
    EXPECT_EQ(picker.txtAuswahlstatus.Text(), "Neu");
    EXPECT_EQ(picker.Parent(), bogen_.get());
    EXPECT_TRUE(picker.Visible());
    EXPECT_EQ(picker.Focus(), &picker.cboGattung);
    EXPECT_EQ(picker.lblGattung.Caption(), "Gattung");
    EXPECT_EQ(picker.cmdArtAuswahl0.Caption(), "Übernehmen");
}

TEST_F(Auswahltest, SpeaksTheLanguageOfTheSheet) {
    auto& picker = Picker(Auswahlmodus::Aendern, Katalog::Algen, 20000);
    EXPECT_EQ(picker.Caption(), "Choice of taxon - Change");
    EXPECT_EQ(picker.txtAuswahlstatus.Text(), "Aendern");
    EXPECT_EQ(picker.cmdArtAuswahl1.Caption(), "Cancel");
}

TEST_F(Auswahltest, ASecondCallTakesTheOpenPickerOver) {
    Synonyme();
    auto& erster = Picker();
    Input person(erster);
    ASSERT_TRUE(person.Choose(erster.cboGattung, 2));
    ASSERT_TRUE(person.SetValue(erster.chkSynonym, true));
    auto& zweiter = Picker(Auswahlmodus::Aendern);
    EXPECT_EQ(&zweiter, &erster);
    EXPECT_EQ(zweiter.Caption(), "Artauswahl - Ändern");
    EXPECT_EQ(zweiter.cboGattung.Text(), "Achnanthes");
    EXPECT_EQ(zweiter.cboID_Art.Text(), "1");
    EXPECT_FALSE(zweiter.chkSynonym.Value());
    EXPECT_TRUE(zweiter.cboGattung.IsEnabled());
    EXPECT_FALSE(zweiter.fraSynonym.IsShown());
}

TEST_F(Auswahltest, ALostCatalogueIsToldAndThePickerStaysInView) {
    Bogen();
    datei.Datenbank()->TableDefs().Delete("awaArt");
    auto& picker = Picker();
    const auto boxen = Boxen();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_THAT(boxen.front(), testing::HasSubstr("3078 - "));
    EXPECT_TRUE(picker.Visible());
}

}  // namespace
}  // namespace FX_Algen::entry::test
