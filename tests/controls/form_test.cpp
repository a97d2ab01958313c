#include "controls/Form.h"

#include <gmock/gmock.h>

#include "controls/Testform.h"
#include "store/Strings.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// A form whose saving is told by the test.
class Bogen : public Form {
public:
    Bogen(std::string name, std::vector<std::string>& log) : Form(std::move(name)), log_(log) {}
    bool SaveRows() override {
        log_.push_back("save " + Name());
        return saves;
    }
    bool saves = true;
    std::function<void()> onUnload;

protected:
    void OnUnload() override {
        log_.push_back("unload " + Name());
        if (onUnload) onUnload();
    }

private:
    std::vector<std::string>& log_;
};
class Auswahl : public Bogen {
    using Bogen::Bogen;
};
class Suche : public Bogen {
    using Bogen::Bogen;
};

class FormTest : public Formtest {
protected:
    std::vector<std::string> log;
    std::shared_ptr<Bogen> sheet = OpenForms().Load<Bogen>("frmProbenstelle", log);
    std::shared_ptr<Auswahl> child = OpenForms().Load<Auswahl>("frmArtAuswahl", log);
    FormTest() {
        sheet->Caption("Algen - Probenstelle");
        child->Parent(sheet);
        sheet->Show(7);
        child->Show();
    }
    ~FormTest() override {
        child->saves = sheet->saves = true;
        sheet->Close(Ending::Discard);
    }
    std::vector<std::string> Done() { return std::exchange(log, {}); }
    static std::string AskText() { return store::Text(5650, 10000); }
};

TEST_F(FormTest, ClosingSavesThenClosesTheChildrenThenEnds) {
    EXPECT_TRUE(sheet->Close());
    EXPECT_THAT(Done(), ElementsAre("save frmProbenstelle", "save frmArtAuswahl", "unload frmArtAuswahl",
                                    "unload frmProbenstelle"));
    EXPECT_FALSE(sheet->IsOpen());
    EXPECT_FALSE(child->IsOpen());
    EXPECT_FALSE(sheet->Visible());
    EXPECT_EQ(sheet->Window(), 0);
    EXPECT_EQ(OpenForms().Find("frmProbenstelle"), nullptr);
    EXPECT_EQ(OpenForms().Find("frmArtAuswahl"), nullptr);
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(FormTest, ClosingTwiceEndsOnce) {
    EXPECT_TRUE(sheet->Close());
    Done();
    EXPECT_TRUE(sheet->Close());
    EXPECT_THAT(Done(), IsEmpty());
}

TEST_F(FormTest, ARowThatCannotBeSavedKeepsTheFormOpenUnlessThePersonGoesOnWithoutIt) {
    sheet->saves = false;
    EXPECT_FALSE(sheet->Close());  // the safest answer is No
    EXPECT_TRUE(sheet->IsOpen());
    EXPECT_TRUE(child->IsOpen());
    EXPECT_THAT(Done(), ElementsAre("save frmProbenstelle"));
    EXPECT_THAT(Shown(), ElementsAre("Algen - Probenstelle|" + AskText()));
    display->Messages().SetAnswers({store::Answer::Yes});
    EXPECT_TRUE(sheet->Close());
    EXPECT_FALSE(sheet->IsOpen());
}

TEST_F(FormTest, TheQuestionComesInTheLanguageOfTheForm) {
    sheet->saves = false;
    sheet->Sprache(20000);
    sheet->Close();
    EXPECT_THAT(Shown(), ElementsAre("Algen - Probenstelle|" + store::Text(5650, 20000)));
    EXPECT_THAT(store::Text(5650, 20000), StartsWith("What was entered could not be saved."));
}

TEST_F(FormTest, AChildThatStaysOpenKeepsItsParentOpen) {
    child->saves = false;
    EXPECT_FALSE(sheet->Close());
    EXPECT_TRUE(sheet->IsOpen());
    EXPECT_TRUE(child->IsOpen());
    EXPECT_THAT(Done(), ElementsAre("save frmProbenstelle", "save frmArtAuswahl"));
}

TEST_F(FormTest, DiscardingSavesNothingButTheChildren) {
    EXPECT_TRUE(sheet->Close(Ending::Discard));
    EXPECT_THAT(Done(), ElementsAre("save frmArtAuswahl", "unload frmArtAuswahl", "unload frmProbenstelle"));
}

TEST_F(FormTest, ClosingAgainWhileItClosesIsRefused) {
    bool again = true;
    sheet->onUnload = [&] { again = sheet->Close(); };
    EXPECT_TRUE(sheet->Close());
    EXPECT_FALSE(again);
    EXPECT_FALSE(sheet->IsOpen());
}

TEST_F(FormTest, AFailureAtTheEndIsShownAndTheFormEnds) {
    sheet->onUnload = [] { throw Error(3078, "Die Tabelle »Größen« fehlt."); };
    EXPECT_TRUE(sheet->Close());
    EXPECT_THAT(Shown(), ElementsAre("Algen - Probenstelle|3078 - Die Tabelle »Größen« fehlt."));
    EXPECT_EQ(OpenForms().Find("frmProbenstelle"), nullptr);
}

TEST_F(FormTest, AFormThatWasClosedIsNotShownAgain) {
    sheet->Close();
    EXPECT_THROW(sheet->Show(), Error);
    EXPECT_FALSE(sheet->Visible());
}

TEST_F(FormTest, ChildrenStandInTheWindowOfTheirParent) {
    struct Windows : RecordingDisplay {
        std::vector<std::string> Log;
        std::int32_t ShowForm(Form& shown, std::int32_t parent) override {
            const auto number = RecordingDisplay::ShowForm(shown, parent);
            Log.push_back("show " + shown.Name() + " in " + std::to_string(parent));
            return number;
        }
        void CloseForm(Form& closed) override { Log.push_back("close " + closed.Name()); }
    };
    const auto windows = std::make_shared<Windows>();
    const auto former = SetDisplay(windows);
    auto parent = OpenForms().Load<Suche>("dlgSuchen", log);
    auto inner = std::make_shared<Form>("dlgInnen");
    inner->Parent(parent);
    parent->Show(4711);
    inner->Show(4711);
    EXPECT_EQ(parent->Window(), 1);
    EXPECT_EQ(inner->Window(), 2);
    parent->Show(4711);
    EXPECT_EQ(parent->Window(), 1);
    inner->Close();
    parent->Close();
    EXPECT_THAT(windows->Log, ElementsAre("show dlgSuchen in 4711", "show dlgInnen in 1",
                                          "show dlgSuchen in 4711", "close dlgInnen", "close dlgSuchen"));
    SetDisplay(former);
}

TEST_F(FormTest, FailuresNameTheFormWhereItHasNoCaption) {
    form->Failure(Error(13, "Feld DG_MA: „zwölf“ ist keine Zahl."));
    form->Caption("Gewässer");
    form->Failure(Error(6, "zu groß"));
    EXPECT_THAT(Shown(), ElementsAre("basDrucker:frmÜbung|13 - Feld DG_MA: „zwölf“ ist keine Zahl.",
                                     "Gewässer|6 - zu groß"));
}

TEST_F(FormTest, TextsComeInItsLanguageAndInGermanBelowTheLowestBase) {
    sheet->Sprache(20000);
    EXPECT_EQ(sheet->Text(2006), store::Text(2006, 20000));
    sheet->Sprache(0);
    EXPECT_EQ(sheet->Text(2006), store::Text(2006, 10000));
}

TEST_F(FormTest, ControlsAreFoundWithoutRegardToCase) {
    auto& flaeche = form->Add<TextBox>("txtFläche");
    EXPECT_EQ(form->Find("TXTFLÄCHE"), &flaeche);
    EXPECT_EQ(form->Find("txtFlache"), nullptr);
}

// -- rows

class SaveRows : public Formtest {
protected:
    /// A grid with one row and one column to type into.
    Grid& AddGrid(std::string name) {
        auto& grid = form->Add<Grid>(std::move(name));
        grid.Fixed(1, 0);
        grid.Cols(1);
        grid.Rows(3);
        grid.Editable(Editing::KeyboardAndMouse);
        grid.Select(1, 0);
        grid.OnBeforeRowLeave = [this, &grid](int row) {
            Log(grid.Name() + " leaves " + std::to_string(row));
            return true;
        };
        return grid;
    }
};

TEST_F(SaveRows, EndsOpenEditsAndLeavesTheRowsOfAllGrids) {
    auto& taxa = AddGrid("vsfgAlgenArt");
    AddGrid("vsfgStand");
    taxa.StartEdit();
    taxa.EditText("37");
    EXPECT_TRUE(form->SaveRows());
    EXPECT_FALSE(taxa.IsEditing());
    EXPECT_EQ(taxa.Text(1, 0), "37");
    EXPECT_THAT(Logged(), ElementsAre("vsfgAlgenArt leaves 1", "vsfgStand leaves 1"));
}

TEST_F(SaveRows, GoesOnAfterAGridThatRefuses) {
    AddGrid("a").OnBeforeRowLeave = [](int) { return false; };
    AddGrid("b");
    EXPECT_FALSE(form->SaveRows());
    EXPECT_THAT(Logged(), ElementsAre("b leaves 1"));
}

TEST_F(SaveRows, ShowsFailuresAndGoesOn) {
    form->Caption("Seston - Probenstelle");
    AddGrid("a").OnBeforeRowLeave = [](int) -> bool { throw Error(3343, "Platte voll"); };
    AddGrid("b");
    EXPECT_FALSE(form->SaveRows());
    EXPECT_THAT(Shown(), ElementsAre("Seston - Probenstelle|3343 - Platte voll"));
    EXPECT_THAT(Logged(), ElementsAre("b leaves 1"));
}

TEST_F(SaveRows, OfAllOpenFormsIsTrueOnlyWhereEachSaved) {
    std::vector<std::string> log;
    auto first = OpenForms().Load<Bogen>("eins", log);
    auto second = OpenForms().Load<Auswahl>("zwei", log);
    EXPECT_TRUE(OpenForms().SaveRows());
    EXPECT_THAT(std::exchange(log, {}), ElementsAre("save eins", "save zwei"));
    first->saves = false;
    EXPECT_FALSE(OpenForms().SaveRows());
    EXPECT_THAT(log, ElementsAre("save eins", "save zwei"));
    first->saves = true;
    first->Close();
    second->Close();
}

TEST_F(SaveRows, HappensWhenAnotherWindowComesToTheFront) {
    auto& grid = AddGrid("vsfgAlgenArt");
    EXPECT_TRUE(input.Deactivate());
    EXPECT_THAT(Logged(), ElementsAre("vsfgAlgenArt leaves 1"));
    grid.OnBeforeRowLeave = [](int) { return false; };
    EXPECT_FALSE(input.Deactivate());
    EXPECT_TRUE(form->Visible());
}

TEST_F(SaveRows, HappensBeforeTheFormIsHidden) {
    auto& grid = AddGrid("vsfgAlgenArt");
    EXPECT_TRUE(form->Hide());
    EXPECT_FALSE(form->Visible());
    EXPECT_TRUE(form->IsOpen());
    EXPECT_THAT(Logged(), ElementsAre("vsfgAlgenArt leaves 1"));
    EXPECT_TRUE(form->Hide());
    EXPECT_THAT(Logged(), IsEmpty());
    // What could not be saved stays in sight.
    form->Show();
    grid.OnBeforeRowLeave = [](int) -> bool { throw Error(3343, "Platte voll"); };
    EXPECT_FALSE(form->Hide());
    EXPECT_TRUE(form->Visible());
    EXPECT_THAT(Shown(), ElementsAre("basDrucker:frmÜbung|3343 - Platte voll"));
}

// -- open forms

TEST(OpenForms, HoldEachTypeOnceInTheOrderOfLoading) {
    std::vector<std::string> log;
    auto first = OpenForms().Load<Auswahl>("frmArtAuswahl", log);
    auto second = OpenForms().Load<Suche>("dlgSuchen", log);
    EXPECT_EQ(OpenForms().Load<Auswahl>("anders", log), first);
    EXPECT_THAT(OpenForms().All(), ElementsAre(first, second));
    EXPECT_EQ(OpenForms().Find("FRMARTAUSWAHL"), first);
    EXPECT_EQ(OpenForms().Find<Suche>(), second);
    second->Parent(first);
    EXPECT_THAT(OpenForms().ChildrenOf(*first), ElementsAre(second));
    first->Close();
    EXPECT_THAT(OpenForms().All(), IsEmpty());
    EXPECT_EQ(OpenForms().Find<Suche>(), nullptr);
}

}  // namespace
}  // namespace FX_Algen::controls
