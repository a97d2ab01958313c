#include <gmock/gmock.h>

#include "controls/Grid.h"
#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

class KeyInACell : public Formtest {
protected:
    KeyInACell() {
        grid.Fixed(1, 0);
        grid.Cols(1);
        grid.Rows(2);
        grid.Editable(Editing::KeyboardAndMouse);
        grid.OnAfterEdit = [this](int, int) { Log("edited"); };
        grid.OnKey = [this](const KeyPress& key) {
            Log(key.Name);
            return true;
        };
        EXPECT_TRUE(Input(*form).SelectCell(grid, 1, 0));
    }
    Grid& grid = form->Add<Grid>("vsfgÜberblick");
};

TEST_F(KeyInACell, OnlyEndsTheEditWithEnter) {
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::ElementsAre("edited"));
}

TEST_F(KeyInACell, IsPressedOnTheGridThenWhereEnterGoesOn) {
    grid.EnterGoesOn = true;
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::ElementsAre("edited", "Enter"));
}

TEST_F(KeyInACell, GoesNowhereWithEnterWhereTheEditIsRefused) {
    grid.EnterGoesOn = true;
    grid.OnValidateEdit = [](int, int, const std::string&) { return false; };
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_FALSE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::IsEmpty());
}

TEST_F(KeyInACell, LeavesOtherKeysToTheGridWhereTheyPassTheEdit) {
    grid.KeyPassesEdit = [](const KeyPress& key) { return key.Name == "Space" || key.Name == "Delete"; };
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Space"}));
    EXPECT_TRUE(Input(*form).Key({"Delete"}));
    EXPECT_TRUE(Input(*form).Key({"ö"}));
    // They reach the grid while the cell is open, with what was typed into it.
    EXPECT_THAT(Logged(), testing::ElementsAre("Space", "Delete"));
    ASSERT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "äö");
}

TEST_F(KeyInACell, GivesEveryKeyToTheTextWhereNonePasses) {
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Space"}));
    EXPECT_TRUE(Input(*form).Key({"Delete"}));
    EXPECT_THAT(Logged(), testing::IsEmpty());
    EXPECT_EQ(grid.EditText(), "ä ");
}

}  // namespace
}  // namespace FX_Algen::controls
