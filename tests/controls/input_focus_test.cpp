#include <gmock/gmock.h>

#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class InputFocus : public Formtest {
protected:
    /// Writes down what runs for the control, in the order in which it runs.
    void Watch(Control& control, Leaving answer = Leaving::Go) {
        control.OnLeave = [this, &control, answer] {
            Log("leave " + control.Name());
            return answer;
        };
        control.OnGotFocus = [this, &control] { Log("enter " + control.Name()); };
        control.OnClick = [this, &control] { Log("click " + control.Name()); };
    }

    TextBox& first = form->Add<TextBox>("txtFläche");
    TextBox& second = form->Add<TextBox>("txtName");
    CommandButton& button = form->Add<CommandButton>("cmdPrStelle(4)");
    Label& label = form->Add<Label>("lblTaxazahl");
    Menu& menu = form->Add<Menu>("mnuFileWindowClose");
};

TEST_F(InputFocus, EnteringAnotherFieldValidatesTheFormerOneOnce) {
    Watch(first);
    Watch(second);
    EXPECT_TRUE(input.Enter(first));
    EXPECT_TRUE(input.Enter(second));
    EXPECT_THAT(Logged(), ElementsAre("enter txtFläche", "leave txtFläche", "enter txtName"));
    EXPECT_EQ(form->Focus(), &second);
}

TEST_F(InputFocus, EnteringTheSameFieldAgainDoesNothing) {
    Watch(first);
    input.Enter(first);
    EXPECT_TRUE(input.Enter(first));
    EXPECT_THAT(Logged(), ElementsAre("enter txtFläche"));
}

TEST_F(InputFocus, AValidationThatStaysKeepsTheFocusAndStopsTheAction) {
    Watch(first, Leaving::Stay);
    Watch(button);
    input.Enter(first);
    Logged();
    const auto taken = input.Click(button);
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr("txtFläche"));
    EXPECT_THAT(Logged(), ElementsAre("leave txtFläche"));
    EXPECT_EQ(form->Focus(), &first);
}

TEST_F(InputFocus, AValidationIsAskedAgainAtTheNextTry) {
    Watch(first, Leaving::Stay);
    input.Enter(first);
    Logged();
    input.Enter(second);
    input.Enter(second);
    EXPECT_THAT(Logged(), ElementsAre("leave txtFläche", "leave txtFläche"));
}

TEST_F(InputFocus, CancelNeverValidates) {
    Watch(first, Leaving::Stay);
    Watch(button);
    button.CausesValidation = false;
    input.Enter(first);
    Logged();
    EXPECT_TRUE(input.Click(button));
    EXPECT_THAT(Logged(), ElementsAre("enter cmdPrStelle(4)", "click cmdPrStelle(4)"));
}

TEST_F(InputFocus, WhatCancelPassedOverIsLeftWhenThePersonGoesOn) {
    Watch(first);
    button.CausesValidation = false;
    input.Enter(first);
    input.Enter(button);
    Logged();
    EXPECT_TRUE(input.Enter(second));
    EXPECT_THAT(Logged(), ElementsAre("leave txtFläche"));
    EXPECT_TRUE(input.Enter(button));
    EXPECT_TRUE(input.Enter(second));
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(InputFocus, AFieldPassedOverThatStaysGetsTheFocusBack) {
    Watch(first, Leaving::Stay);
    button.CausesValidation = false;
    input.Enter(first);
    input.Enter(button);
    EXPECT_FALSE(input.Enter(second));
    EXPECT_EQ(form->Focus(), &first);
}

TEST_F(InputFocus, GoingBackToAFieldPassedOverDoesNotValidateIt) {
    Watch(first);
    button.CausesValidation = false;
    input.Enter(first);
    input.Enter(button);
    Logged();
    EXPECT_TRUE(input.Enter(first));
    EXPECT_THAT(Logged(), ElementsAre("enter txtFläche"));
}

TEST_F(InputFocus, LabelsAndMenusNeverHaveTheFocusButLeaveTheField) {
    Watch(first);
    Watch(label);
    Watch(menu);
    input.Enter(first);
    Logged();
    EXPECT_TRUE(input.Click(label));
    EXPECT_TRUE(input.Click(menu));
    EXPECT_THAT(Logged(), ElementsAre("leave txtFläche", "click lblTaxazahl", "leave txtFläche",
                                      "click mnuFileWindowClose"));
    EXPECT_EQ(form->Focus(), &first);
    EXPECT_FALSE(input.Enter(label));
}

TEST_F(InputFocus, LeavingGivesTheFocusToNoControl) {
    Watch(first);
    input.Enter(first);
    Logged();
    EXPECT_TRUE(input.Leave());
    EXPECT_THAT(Logged(), ElementsAre("leave txtFläche"));
    EXPECT_EQ(form->Focus(), nullptr);
}

TEST_F(InputFocus, AFieldThatWasDisabledMeanwhileCannotKeepTheFocus) {
    Watch(first, Leaving::Stay);
    input.Enter(first);
    Logged();
    first.Enabled(false);
    EXPECT_TRUE(input.Enter(second));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(form->Focus(), &second);
}

TEST_F(InputFocus, AValidationThatDisablesTheTargetStopsTheAction) {
    Watch(button);
    first.OnLeave = [this] {
        button.Enabled(false);
        return Leaving::Go;
    };
    input.Enter(first);
    EXPECT_FALSE(input.Click(button));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(form->Focus(), &first);
}

TEST_F(InputFocus, AValidationThatFailsIsShownAndKeepsTheFocus) {
    form->Caption("Gewässer");
    first.OnLeave = []() -> Leaving { throw Error(3061, "Unbekannter Name Größe"); };
    input.Enter(first);
    EXPECT_FALSE(input.Enter(second));
    EXPECT_EQ(form->Focus(), &first);
    EXPECT_THAT(Shown(), ElementsAre("Gewässer|3061 - Unbekannter Name Größe"));
}

TEST_F(InputFocus, CodeMovesTheFocusWithoutValidating) {
    Watch(first, Leaving::Stay);
    Watch(second);
    input.Enter(first);
    Logged();
    form->SetFocus(second);
    EXPECT_THAT(Logged(), ElementsAre("enter txtName"));
    form->SetFocus(second);
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_TRUE(input.Leave());
    EXPECT_THAT(Logged(), ElementsAre("leave txtName"));
}

TEST_F(InputFocus, ControlsOfAnotherFormAreRefused) {
    Form other("frmAndere");
    auto& foreign = other.Add<TextBox>("txtFremd");
    EXPECT_FALSE(input.Enter(foreign));
    EXPECT_THROW(form->SetFocus(foreign), Error);
    EXPECT_EQ(form->Focus(), nullptr);
}

struct RefusedCase {
    std::string name;
    std::function<void(Form&, Control&)> prepare;
    std::string reason;
};

class RefusedControls : public Formtest, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedControls, TakeNothing) {
    auto& frame = form->Add<Frame>("fraMitte");
    auto& button = form->Add<CommandButton>("cmdÄndern");
    button.Inside(frame);
    button.OnClick = [this] { Log("click"); };
    GetParam().prepare(*form, button);
    const auto taken = input.Click(button);
    EXPECT_FALSE(taken);
    EXPECT_THAT(taken.Reason, HasSubstr(GetParam().reason));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(form->Focus(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, RefusedControls,
    testing::Values(RefusedCase{"disabled", [](Form&, Control& c) { c.Enabled(false); },
                                "CommandButton \"cmdÄndern\" is disabled"},
                    RefusedCase{"hidden", [](Form&, Control& c) { c.Visible(false); }, "is hidden"},
                    RefusedCase{"in a disabled frame",
                                [](Form&, Control& c) { c.Container()->Enabled(false); }, "is disabled"},
                    RefusedCase{"in a hidden frame", [](Form&, Control& c) { c.Container()->Visible(false); },
                                "is hidden"},
                    RefusedCase{"form hidden", [](Form& f, Control&) { f.Hide(); }, "is not shown"},
                    RefusedCase{"form closed", [](Form& f, Control&) { f.Close(); }, "is closed"}));

// -- Tab order

class TabOrder : public Formtest {
protected:
    TextBox& third = form->Add<TextBox>("c");
    TextBox& first = form->Add<TextBox>("a");
    CommandButton& second = form->Add<CommandButton>("b");
    TextBox& outside = form->Add<TextBox>("ohne");
    TabOrder() {
        first.TabIndex(1);
        second.TabIndex(5);
        third.TabIndex(9);
    }
    std::string Press(bool shift = false) {
        input.Key({"Tab", shift});
        return form->Focus() == nullptr ? "" : form->Focus()->Name();
    }
};

TEST_F(TabOrder, GoesByTabIndexAndRound) {
    EXPECT_EQ(Press(), "a");
    EXPECT_EQ(Press(), "b");
    EXPECT_EQ(Press(), "c");
    EXPECT_EQ(Press(), "a");
    EXPECT_EQ(Press(true), "c");
    EXPECT_EQ(Press(true), "b");
}

TEST_F(TabOrder, PassesOverWhatCannotBeReached) {
    second.Enabled(false);
    EXPECT_EQ(Press(), "a");
    EXPECT_EQ(Press(), "c");
    first.Visible(false);
    EXPECT_EQ(Press(), "c");
}

TEST_F(TabOrder, BeginsAnewFromAControlOutsideOfIt) {
    input.Enter(outside);
    EXPECT_EQ(Press(), "a");
    input.Enter(outside);
    EXPECT_EQ(Press(true), "c");
}

TEST_F(TabOrder, AValidationHoldsTheFocus) {
    first.OnLeave = [] { return Leaving::Stay; };
    EXPECT_EQ(Press(), "a");
    EXPECT_EQ(Press(), "a");
}

}  // namespace
}  // namespace FX_Algen::controls
