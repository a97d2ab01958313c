#include "FX_Algen/Error.h"
#include "FX_Algen/Forms.h"
#include "Musterformular.h"

namespace FX_Algen::controls::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReadForms : public FormFixture {
protected:
    static ControlState Of(const FormState& state, const std::string& name) {
        for (const auto& control : state.Controls)
            if (control.Name == name) return control;
        ADD_FAILURE() << name;
        return {};
    }
    static ControlState Of(const std::string& name) { return Of(ReadForm("frmMuster"), name); }
};

TEST_F(ReadForms, ListsFormsInTheOrderOfLoadingWithTheirParents) {
    EXPECT_THAT(FX_Algen::OpenForms(), IsEmpty());
    const auto parent = Shown();
    struct Kind : Form {
        Kind() : Form("frmKind") {}
    };
    const auto child = controls::OpenForms().Load<Kind>();
    child->Caption("Öffnen");
    child->Parent(parent);
    const auto forms = FX_Algen::OpenForms();
    ASSERT_EQ(forms.size(), 2U);
    EXPECT_EQ(forms[0].Name, "frmMuster");
    EXPECT_EQ(forms[0].Caption, "Gewässergüte");
    EXPECT_TRUE(forms[0].Visible);
    EXPECT_EQ(forms[0].Parent, std::nullopt);
    EXPECT_GT(forms[0].Window, 0);
    EXPECT_EQ(forms[1].Name, "frmKind");
    EXPECT_EQ(forms[1].Caption, "Öffnen");
    EXPECT_FALSE(forms[1].Visible);
    EXPECT_EQ(forms[1].Parent, "frmMuster");
    EXPECT_EQ(forms[1].Window, 0);
}

TEST_F(ReadForms, FormIsFoundWithoutRegardToCase) {
    Shown();
    EXPECT_EQ(ReadForm("FRMMUSTER").Form.Name, "frmMuster");
}

TEST_F(ReadForms, FormThatIsNotOpenFailsWithItsName) {
    try {
        ReadForm("frmÄhre");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
        EXPECT_THAT(error.Description(), HasSubstr("frmÄhre"));
    }
}

TEST_F(ReadForms, ControlsStandInTheirOrderWithTheirKinds) {
    Shown();
    std::vector<std::string> told;
    for (const auto& control : ReadForm("frmMuster").Controls)
        told.push_back(control.Name + " " + control.Kind);
    EXPECT_THAT(told,
                ElementsAre("lblGüte Label", "txtName TextBox", "txtFest TextBox", "cboGattung ComboBox",
                            "lstAlgen ListBox", "lvwArten ListView", "chkSynonym CheckBox",
                            "cmdPrStelle(4) CommandButton", "cmdZu CommandButton", "vsfgAlgenArt Grid",
                            "tabSeiten TabStrip", "tbrLeiste Toolbar", "mnuAnsicht Menu", "scrBild ScrollBar",
                            "grpZu Frame", "txtZu TextBox"));
}

TEST_F(ReadForms, CommonPropertiesAreTold) {
    const auto form = Shown();
    form->lblGuete.Caption("Güte");
    form->lblGuete.ToolTipText("nach WRRL");
    form->txtName.Text("Schöpfprobe");
    form->SetFocus(form->txtName);
    const auto state = ReadForm("frmMuster");
    EXPECT_EQ(state.Focus, "txtName");
    const auto label = Of(state, "lblGüte");
    EXPECT_EQ(label.Caption, "Güte");
    EXPECT_EQ(label.ToolTipText, "nach WRRL");
    EXPECT_TRUE(label.Enabled && label.Visible && !label.Locked);
    EXPECT_EQ(label.Text, std::nullopt);
    EXPECT_EQ(Of(state, "txtName").Text, "Schöpfprobe");
    EXPECT_FALSE(Of(state, "cmdZu").Enabled);
    EXPECT_TRUE(Of(state, "txtFest").Locked);
    EXPECT_TRUE(Of(state, "txtFest").Enabled);
    // It stands in a frame that is not shown.
    EXPECT_FALSE(Of(state, "txtZu").Visible);
}

TEST_F(ReadForms, NothingHasTheFocusBeforeAnyoneGaveIt) {
    Shown();
    EXPECT_EQ(ReadForm("frmMuster").Focus, std::nullopt);
}

TEST_F(ReadForms, ValuesAreThoseOfCheckBoxesAndMenus) {
    const auto form = Shown();
    form->chkSynonym.Value(true);
    form->mnuAnsicht.Checked(true);
    EXPECT_EQ(Of("chkSynonym").Value, true);
    EXPECT_EQ(Of("mnuAnsicht").Value, true);
    EXPECT_EQ(Of("cmdZu").Value, std::nullopt);
}

TEST_F(ReadForms, ListsTellEntriesAndTheOneChosen) {
    const auto form = Shown();
    form->cboGattung.ListIndex(1);
    const auto state = ReadForm("frmMuster");
    EXPECT_THAT(Of(state, "cboGattung").List->Entries, ElementsAre("Ähre", "Nitzschia"));
    EXPECT_EQ(Of(state, "cboGattung").List->Index, 1);
    EXPECT_EQ(Of(state, "cboGattung").Text, "Nitzschia");
    EXPECT_THAT(Of(state, "lstAlgen").List->Entries, ElementsAre("Ulothrix", "Öocystis", "Nostoc"));
    EXPECT_EQ(Of(state, "lstAlgen").List->Index, -1);
    EXPECT_THAT(Of(state, "lvwArten").List->Entries, ElementsAre("Ulothrix\tzonata", "Nostoc\tgrößer"));
    EXPECT_EQ(Of(state, "lvwArten").Parts.at(0).Caption, "Gattung");
    EXPECT_FALSE(Of(state, "txtName").List);
}

TEST_F(ReadForms, TabsToolbarsAndScrollBarsTellTheirParts) {
    const auto form = Shown();
    form->scrBild.Value(5);
    const auto state = ReadForm("frmMuster");
    const auto tabs = Of(state, "tabSeiten");
    ASSERT_EQ(tabs.Parts.size(), 2U);
    EXPECT_EQ(tabs.Parts[0].Caption, "Güte");
    EXPECT_EQ(tabs.Parts[0].ToolTipText, "Saprobie und Trophie");
    EXPECT_TRUE(tabs.Parts[0].Enabled);
    EXPECT_FALSE(tabs.Parts[1].Enabled);
    EXPECT_EQ(tabs.Tab, 0);
    const auto bar = Of(state, "tbrLeiste");
    // The separator counts as a position.
    ASSERT_EQ(bar.Parts.size(), 3U);
    EXPECT_EQ(bar.Parts[0].Caption, "neu");
    EXPECT_EQ(bar.Parts[2].ToolTipText, "Löschen");
    EXPECT_TRUE(bar.Parts[0].Enabled);
    EXPECT_FALSE(bar.Parts[1].Enabled);
    EXPECT_FALSE(bar.Parts[2].Enabled);
    EXPECT_EQ(bar.Tab, std::nullopt);
    EXPECT_EQ(Of(state, "scrBild").Scroll, 5);
}

TEST_F(ReadForms, GridsTellShapeCursorAndCells) {
    Shown();
    const auto grid = Of("vsfgAlgenArt").Grid;
    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->Rows, 4);
    EXPECT_EQ(grid->Cols, 3);
    EXPECT_EQ(grid->FixedRows, 1);
    EXPECT_EQ(grid->FixedCols, 0);
    EXPECT_EQ(grid->Row, 1);
    EXPECT_EQ(grid->Col, 0);
    EXPECT_TRUE(grid->Editable);
    EXPECT_EQ(grid->EditText, std::nullopt);
    EXPECT_EQ(grid->FirstRow, 0);
    ASSERT_EQ(grid->Cells.size(), 4U);
    ASSERT_EQ(grid->Cells[0].size(), 3U);
    // The head of the check column is a text.
    EXPECT_EQ(grid->Cells[0][1].Text, "cf.");
    EXPECT_EQ(grid->Cells[0][1].Checked, std::nullopt);
    EXPECT_EQ(grid->Cells[1][0].Text, "Größe");
    EXPECT_EQ(grid->Cells[1][1].Checked, true);
    EXPECT_EQ(grid->Cells[2][1].Checked, false);
    EXPECT_EQ(grid->Cells[2][0].Colour, 0xFFC0C0U);
    EXPECT_EQ(grid->Cells[1][0].Colour, std::nullopt);
    EXPECT_THAT(grid->HiddenRows, ElementsAre(3));
    EXPECT_THAT(grid->HiddenCols, ElementsAre(2));
    EXPECT_THAT(grid->RuledRows, ElementsAre(2));
}

TEST_F(ReadForms, OpenCellTellsWhatWasTypedSoFar) {
    const auto form = Shown();
    ASSERT_TRUE(form->vsfg.StartEdit());
    form->vsfg.EditText("grö");
    const auto grid = Of("vsfgAlgenArt").Grid;
    EXPECT_EQ(grid->EditText, "grö");
    EXPECT_EQ(grid->Cells[1][0].Text, "Größe");
    form->vsfg.CancelEdit();
}

TEST_F(ReadForms, CodedListsTellWhatTheyShow) {
    const auto form = Shown();
    form->vsfg.ColList(0, ReadList("#1;erste|#2;größte"));
    form->vsfg.Text(1, 0, "2");
    EXPECT_EQ(Of("vsfgAlgenArt").Grid->Cells[1][0].Text, "größte");
}

TEST_F(ReadForms, RowsAreThoseAskedFor) {
    Shown();
    struct {
        int First, Last;
        std::size_t Count;
    } const cases[] = {{1, 2, 2}, {0, 0, 1}, {2, 99, 2}, {4, 5, 0}};
    for (const auto& c : cases) {
        const auto state = ReadForm("frmMuster", std::pair(c.First, c.Last));
        const auto grid = Of(state, "vsfgAlgenArt").Grid;
        EXPECT_EQ(grid->FirstRow, c.First);
        EXPECT_EQ(grid->Cells.size(), c.Count) << c.First << " to " << c.Last;
        EXPECT_EQ(grid->Rows, 4);
    }
    EXPECT_EQ(Of(ReadForm("frmMuster", std::pair(1, 2)), "vsfgAlgenArt").Grid->Cells[0][0].Text, "Größe");
}

TEST_F(ReadForms, RowsThatAreNoRangeFail) {
    Shown();
    for (const auto& [first, last] : {std::pair(-1, 2), std::pair(2, 1)}) {
        try {
            ReadForm("frmMuster", std::pair(first, last));
            ADD_FAILURE() << first;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
        }
    }
}

// ---- closing what is open ------------------------------------------------------------------------------

TEST_F(ReadForms, ClosingSavesAndEndsThem) {
    const auto form = Shown();
    EXPECT_THAT(CloseForms(), IsEmpty());
    EXPECT_FALSE(form->IsOpen());
    EXPECT_GE(form->Gespeichert, 1);
    EXPECT_THAT(FX_Algen::OpenForms(), IsEmpty());
}

TEST_F(ReadForms, ClosingNamesWhatCannotBeSaved) {
    const auto form = Shown();
    form->Speicherbar = false;
    // Without an answer given beforehand the form stays.
    EXPECT_THAT(CloseForms(), ElementsAre("frmMuster"));
    EXPECT_TRUE(form->IsOpen());
    display_->Messages().SetAnswers({store::Answer::Yes});
    EXPECT_THAT(CloseForms(), IsEmpty());
    EXPECT_FALSE(form->IsOpen());
}

TEST_F(ReadForms, ClosingForADatabaseLeavesTheOthersOpen) {
    const auto form = Shown();
    const auto mine = std::make_shared<store::Database>(nullptr, "Gewässer.db");
    const auto other = std::make_shared<store::Database>(nullptr, "anderes.db");
    form->Datenbank = mine;
    EXPECT_THAT(CloseForms(other), IsEmpty());
    EXPECT_TRUE(form->IsOpen());
    EXPECT_EQ(form->Gespeichert, 0);
    EXPECT_THAT(CloseForms(mine), IsEmpty());
    EXPECT_FALSE(form->IsOpen());
}

TEST_F(ReadForms, DiscardingEndsThemUnsavedWithTheirChildren) {
    const auto form = Shown();
    struct Kind : Form {
        Kind() : Form("frmKind") {}
    };
    const auto child = controls::OpenForms().Load<Kind>();
    child->Parent(form);
    form->Speicherbar = false;
    DiscardForms();
    EXPECT_FALSE(form->IsOpen());
    EXPECT_FALSE(child->IsOpen());
    EXPECT_EQ(form->Gespeichert, 0);
    EXPECT_THAT(display_->Messages().TakeShown(), IsEmpty());
}

TEST_F(ReadForms, DiscardingSavesNoChildWhicheverWasOpenFirst) {
    struct Eltern : Form {
        Eltern() : Form("frmEltern") {}
    };
    for (const bool parentFirst : {true, false}) {
        auto parent = parentFirst ? controls::OpenForms().Load<Eltern>() : nullptr;
        const auto child = Shown();
        if (!parent) parent = controls::OpenForms().Load<Eltern>();
        child->Parent(parent);
        child->Speicherbar = false;
        DiscardForms();
        EXPECT_FALSE(child->IsOpen());
        EXPECT_FALSE(parent->IsOpen());
        EXPECT_EQ(child->Gespeichert, 0);
    }
}

}  // namespace
}  // namespace FX_Algen::controls::test
