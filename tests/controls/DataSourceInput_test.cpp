#include <memory>

#include "Datenprobe.h"
#include "FX_Algen/Messages.h"
#include "controls/DataSource.h"
#include "controls/Form.h"
#include "controls/Input.h"
#include "controls/OpenForms.h"

/// What a person does to fields and grids that are bound.
namespace FX_Algen::controls {
namespace {

using store::Value;

constexpr const char* gesamt = "SELECT DG_Gesamt FROM awaTeilraum WHERE ID_TR=1";
constexpr const char* makro = "SELECT DG_MA FROM awaTeilraum WHERE ID_TR=1";

class Bogen : public Form {
public:
    Bogen() : Form("frmBogen") {
        Caption("Algen - Probenstelle");
        datTeilraum.Bind(txtGesamt, "DG_Gesamt");
        datTeilraum.Bind(txtMakro, "DG_MA");
        vsfgStand.Fixed(1, 0);
        vsfgStand.Cols(2);
        vsfgStand.Editable(Editing::KeyboardAndMouse);
        datStand.Bind(vsfgStand, {{"MI_Bez", 0}, {"DG_MI", 1}});
        cmdAbbrechen.CausesValidation = false;
    }
    TextBox& txtGesamt = Add<TextBox>("txtGesamt");
    TextBox& txtMakro = Add<TextBox>("txtMakro");
    TextBox& txtFrei = Add<TextBox>("txtFrei");
    Grid& vsfgStand = Add<Grid>("vsfgStand");
    CommandButton& cmdTun = Add<CommandButton>("cmdTun");
    CommandButton& cmdAbbrechen = Add<CommandButton>("cmdAbbrechen");
    DataSource& datTeilraum = Add<DataSource>("datTeilraum");
    DataSource& datStand = Add<DataSource>("datStand");
};

class BoundForm : public testing::Test {
protected:
    BoundForm() : former_(SetDisplay(boxes_)), form_(OpenForms().Load<Bogen>()), person_(*form_) {
        form_->datTeilraum.Open(probe_.Handle(), "SELECT * FROM awaTeilraum WHERE ID_TR=1");
        form_->datStand.Open(probe_.Handle(), "SELECT * FROM awaTeilraum_MI WHERE ID_TR=1 ORDER BY RF_MI");
        form_->Show();
    }
    ~BoundForm() override {
        form_->Close(Ending::Discard);
        SetDisplay(former_);
    }
    Value Deckung(const std::string& stand) const {
        return probe_.Wert("SELECT DG_MI FROM awaTeilraum_MI WHERE MI_Bez='" + stand + "'");
    }

    Datenprobe probe_;
    std::shared_ptr<store::RecordingMessages> boxes_ = std::make_shared<store::RecordingMessages>();
    std::shared_ptr<store::Messages> former_;
    std::shared_ptr<Bogen> form_;
    Input person_;
};

TEST_F(BoundForm, WritesTheRowWhenAFieldOfAnotherIsGoneTo) {
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "50"));
    EXPECT_TRUE(person_.SetText(form_->txtMakro, "7,5"));
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));  // still the same row
    EXPECT_TRUE(person_.Enter(form_->txtFrei));
    EXPECT_EQ(probe_.WertInDerDatei(gesamt), Value(50.0F));
    EXPECT_EQ(probe_.WertInDerDatei(makro), Value(7.5F));
}

TEST_F(BoundForm, ShowsANumberAsItIsWrittenWhenTheRowIsLeft) {
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "12.50"));
    EXPECT_TRUE(person_.Enter(form_->txtFrei));
    EXPECT_EQ(form_->txtGesamt.Text(), "12,5");
}

TEST_F(BoundForm, KeepsTheFocusWhereTheRowCannotBeWritten) {
    EXPECT_TRUE(person_.SetText(form_->txtMakro, "fünf"));
    EXPECT_FALSE(person_.Enter(form_->txtFrei));
    EXPECT_EQ(form_->Focus(), &form_->txtMakro);
    EXPECT_EQ(form_->txtMakro.Text(), "fünf");
    const auto shown = boxes_->TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown.front().Title, "Algen - Probenstelle");
    EXPECT_TRUE(shown.front().Text.starts_with("13 - ")) << shown.front().Text;
    EXPECT_TRUE(person_.SetText(form_->txtMakro, "5"));
    EXPECT_TRUE(person_.Enter(form_->txtFrei));
    EXPECT_EQ(probe_.Wert(makro), Value(5.0F));
}

TEST_F(BoundForm, WritesWhenItsWindowIsDeactivated) {
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "50"));
    EXPECT_TRUE(person_.EditCell(form_->vsfgStand, 2, 1, "21,5"));
    EXPECT_TRUE(person_.Deactivate());
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
    EXPECT_EQ(Deckung("Kies"), Value(21.5F));
}

TEST_F(BoundForm, WritesACellWhenTheGridIsLeft) {
    EXPECT_TRUE(person_.EditCell(form_->vsfgStand, 3, 1, "5"));
    EXPECT_TRUE(Deckung("Sand").IsNull());
    EXPECT_TRUE(person_.Click(form_->cmdTun));
    EXPECT_EQ(Deckung("Sand"), Value(5.0F));
}

TEST_F(BoundForm, DoesNoCommandWhereACellCannotBeWritten) {
    bool done = false;
    form_->cmdTun.OnClick = [&] { done = true; };
    EXPECT_TRUE(person_.EditCell(form_->vsfgStand, 3, 1, "wenig"));
    EXPECT_FALSE(person_.Click(form_->cmdTun));
    EXPECT_FALSE(done);
    EXPECT_EQ(form_->Focus(), &form_->vsfgStand);
    EXPECT_EQ(form_->vsfgStand.Text(3, 1), "wenig");
    EXPECT_EQ(boxes_->TakeShown().size(), 1U);
}

TEST_F(BoundForm, AsksOnceBeforeItClosesWithoutACellThatCannotBeWritten) {
    EXPECT_TRUE(person_.EditCell(form_->vsfgStand, 1, 1, "wenig"));
    boxes_->TakeShown();
    boxes_->SetAnswers({store::Answer::No});
    person_.Close();
    EXPECT_TRUE(form_->IsOpen());
    EXPECT_EQ(form_->vsfgStand.Text(1, 1), "wenig");
    const auto shown = boxes_->TakeShown();
    ASSERT_EQ(shown.size(), 2U);  // why, and whether to go on without it
    EXPECT_TRUE(shown[0].Text.starts_with("13 - ")) << shown[0].Text;
    EXPECT_EQ(shown[1].ButtonsShown, store::Buttons::YesNo);
    boxes_->SetAnswers({store::Answer::Yes});
    person_.Close();
    EXPECT_FALSE(form_->IsOpen());
    EXPECT_EQ(Deckung("Fels"), Value(10.0F));
}

TEST_F(BoundForm, AsksBeforeItClosesInTheEditState) {
    form_->datTeilraum.Edit();
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "50"));
    EXPECT_TRUE(person_.Click(form_->cmdTun));
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
    boxes_->SetAnswers({store::Answer::No});
    person_.Close();
    EXPECT_TRUE(form_->IsOpen());
    EXPECT_EQ(form_->txtGesamt.Text(), "50");
    form_->datTeilraum.Update();
    person_.Close();
    EXPECT_FALSE(form_->IsOpen());
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(BoundForm, IsHinderedByNothingInTheEditState) {
    form_->datTeilraum.Edit();
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "50"));
    EXPECT_TRUE(form_->HasChanges());
    EXPECT_TRUE(person_.Deactivate());
    EXPECT_TRUE(form_->SaveRows());
    EXPECT_TRUE(OpenForms().SaveRows());
    EXPECT_EQ(form_->txtGesamt.Text(), "50");
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
    EXPECT_TRUE(boxes_->TakeShown().empty());
    form_->datTeilraum.Update();
    EXPECT_FALSE(form_->HasChanges());
    EXPECT_EQ(probe_.Wert(gesamt), Value(50.0F));
}

TEST_F(BoundForm, ClosesInTheEditStateWithoutAskingWhereNothingWasChanged) {
    form_->datTeilraum.Edit();
    EXPECT_TRUE(person_.Close());
    EXPECT_FALSE(form_->IsOpen());
    EXPECT_TRUE(boxes_->TakeShown().empty());
}

TEST_F(BoundForm, CancelsWithoutWriting) {
    form_->cmdAbbrechen.OnClick = [&] { form_->datTeilraum.CancelUpdate(); };
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "viel"));
    EXPECT_TRUE(person_.Click(form_->cmdAbbrechen));
    EXPECT_EQ(form_->txtGesamt.Text(), "12,5");
    EXPECT_TRUE(boxes_->TakeShown().empty());
    EXPECT_TRUE(person_.Enter(form_->txtFrei));
    EXPECT_EQ(probe_.Wert(gesamt), Value(12.5F));
}

TEST_F(BoundForm, TellsWhatWasTypedWhereThereIsNoRow) {
    form_->datTeilraum.Open(probe_.Handle(), "SELECT * FROM awaTeilraum WHERE ID_TR=77");
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, "50"));
    EXPECT_FALSE(person_.Enter(form_->txtFrei));
    const auto shown = boxes_->TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_TRUE(shown.front().Text.starts_with("3021 - ")) << shown.front().Text;
    EXPECT_TRUE(person_.SetText(form_->txtGesamt, ""));
    EXPECT_TRUE(person_.Enter(form_->txtFrei));
}

}  // namespace
}  // namespace FX_Algen::controls
