#include "controls/Lists.h"

#include <gmock/gmock.h>

#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Throws;

TEST(Entries, AreFoundByEqualityAndByBeginning) {
    Form form("frm");
    auto& list = form.Add<ListBox>("lst");
    list.Items({"Achnanthes", "Öd-Alge", "ödalge", "Navicula", "Navicula"});
    struct Case {
        std::string text;
        std::optional<int> equal, beginning;
    };
    for (const auto& [text, equal, beginning] : std::vector<Case>{
             {"Navicula", 3, 3},
             {"navicula", std::nullopt, 3},
             {"ödalge", 2, 2},
             {"Ö", std::nullopt, 1},
             {"öD", std::nullopt, 1},
             {"ÖDA", std::nullopt, 2},
             {"o", std::nullopt, std::nullopt},
             {"Naviculae", std::nullopt, std::nullopt},
             {"", std::nullopt, 0},
         }) {
        EXPECT_EQ(list.List().Find(text), equal) << text;
        EXPECT_EQ(list.List().FindBeginning(text), beginning) << text;
    }
    EXPECT_EQ(list.List().At(1), "Öd-Alge");
    EXPECT_THROW(list.List().At(5), Error);
    EXPECT_THROW(list.List().At(-1), Error);
}

class Combo : public Formtest {
protected:
    Combo() {
        combo.Items({"Cymbella", "Ördögia", "Navicula", "Navicula"});
        combo.OnClick = [this] { Log("click " + std::to_string(combo.ListIndex())); };
        combo.OnChange = [this] { Log("change " + combo.Text()); };
    }
    ComboBox& combo = form->Add<ComboBox>("cboGattung");
};

TEST_F(Combo, ChoosingAnEntrySetsTheTextAndClicks) {
    combo.ListIndex(1);
    EXPECT_EQ(combo.Text(), "Ördögia");
    EXPECT_EQ(combo.SelStart(), 7);
    combo.ListIndex(1);
    EXPECT_THAT(Logged(), ElementsAre("click 1"));
}

TEST_F(Combo, AnotherEntryWithTheSameTextIsAnotherChoice) {
    combo.ListIndex(2);
    combo.ListIndex(3);
    EXPECT_EQ(combo.ListIndex(), 3);
    EXPECT_THAT(Logged(), ElementsAre("click 2", "click 3"));
}

TEST_F(Combo, ChoosingNoneEmptiesTheTextWithoutAClick) {
    combo.ListIndex(0);
    Logged();
    combo.ListIndex(-1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(Combo, PastTheEndFails) {
    for (const int index : {4, -2}) {
        try {
            combo.ListIndex(index);
            ADD_FAILURE() << index;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 381);
            EXPECT_EQ(error.Description(),
                      "ComboBox \"cboGattung\" has no entry " + std::to_string(index) + ".");
        }
    }
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(Combo, AssigningATextSelectsTheEntryThatEqualsIt) {
    combo.Text("Ördögia");
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.Text("ördögia");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "ördögia");
    EXPECT_THAT(Logged(), ElementsAre("change Ördögia", "change ördögia"));
}

TEST_F(Combo, AssignedThroughATextBoxItSelectsTheEntryToo) {
    TextBox& box = combo;
    box.Text("Navicula");
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.ListIndex(3);
    box.Text("Navicula");
    EXPECT_EQ(combo.ListIndex(), 3);  // the entry with that text which is chosen stays
}

TEST_F(Combo, NewEntriesChooseNone) {
    combo.ListIndex(1);
    Logged();
    combo.Items({"Ördögia"});
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    combo.AddItem("Ähnliche");
    EXPECT_THAT(combo.List().All(), ElementsAre("Ördögia", "Ähnliche"));
    combo.Clear();
    EXPECT_EQ(combo.List().Count(), 0);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(Combo, CompletingSelectsWhatWasNotTyped) {
    combo.Complete(1, 2);
    EXPECT_EQ(combo.Text(), "Ördögia");
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.SelStart(), 2);
    EXPECT_EQ(combo.SelLength(), 5);  // "Ö" and "r" are typed, 7 characters in all
    EXPECT_THROW(combo.Complete(4, 0), Error);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(Combo, AHandlerThatChoosesItselfIsNotCalledAgain) {
    combo.OnClick = [this] {
        Log("click");
        combo.ListIndex(combo.ListIndex() == 0 ? 1 : 0);
    };
    combo.ListIndex(0);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_THAT(Logged(), ElementsAre("click"));
}

TEST_F(Combo, ListsThatFollowEachOtherComeToRest) {
    auto& other = form->Add<ComboBox>("cboParallel");
    other.Items({"1", "2", "3", "4"});
    combo.OnClick = [&] { other.ListIndex(combo.ListIndex()); };
    other.OnClick = [&] {
        Log("other");
        combo.ListIndex(other.ListIndex());
    };
    combo.ListIndex(2);
    EXPECT_EQ(other.Text(), "3");
    other.ListIndex(1);
    EXPECT_EQ(combo.Text(), "Ördögia");
    EXPECT_THAT(Logged(), ElementsAre("other", "other"));
}

class List : public Formtest {
protected:
    List() {
        list.Items({"Rhön", "Röhn", "Rhön"});
        list.OnClick = [this] { Log("click " + std::to_string(list.ListIndex())); };
    }
    ListBox& list = form->Add<ListBox>("lstStellen");
};

TEST_F(List, ChoosesByPositionAndByText) {
    list.ListIndex(2);
    list.ListIndex(2);
    list.Text("Röhn");
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), "Röhn");
    list.Text("Rohn");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), "");
    EXPECT_THAT(Logged(), ElementsAre("click 2", "click 1"));
    EXPECT_THROW(list.ListIndex(3), Error);
}

TEST_F(List, NewEntriesChooseNone) {
    list.ListIndex(2);
    list.TopIndex(2);
    list.Items({"Rhön"});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.TopIndex(), 0);
    list.AddItem("Eß");
    EXPECT_EQ(list.List().Count(), 2);
    list.Clear();
    EXPECT_EQ(list.List().Count(), 0);
}

TEST_F(List, OfRowsKeepsTheChosenOneOnlyWhileItIsThere) {
    auto& view = form->Add<ListView>("lvwFunde");
    view.Rows({{"a"}, {"b"}});
    view.Index(1);
    view.Rows({{"c"}, {"d"}});
    EXPECT_EQ(view.Index(), 1);
    view.Rows({{"e"}});
    EXPECT_EQ(view.Index(), -1);
    view.Index(0);
    EXPECT_THROW(view.Index(1), Error);
    EXPECT_THROW(view.Index(-2), Error);
    EXPECT_EQ(view.Index(), 0);
}

TEST_F(List, ScrollsToAnEntryThatItHas) {
    list.TopIndex(2);
    EXPECT_THROW(list.TopIndex(3), Error);
    EXPECT_THROW(list.TopIndex(-1), Error);
    EXPECT_EQ(list.TopIndex(), 2);
    list.Clear();
    list.TopIndex(0);
    EXPECT_EQ(list.TopIndex(), 0);
}

}  // namespace
}  // namespace FX_Algen::controls
