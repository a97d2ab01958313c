#include <gmock/gmock.h>

#include "controls/Grid.h"
#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

class EnterInACell : public Formtest {
protected:
    EnterInACell() {
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

TEST_F(EnterInACell, OnlyEndsTheEdit) {
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::ElementsAre("edited"));
}

TEST_F(EnterInACell, IsPressedOnTheGridThenWhereThatGoesOn) {
    grid.EnterGoesOn = true;
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_TRUE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::ElementsAre("edited", "Enter"));
}

TEST_F(EnterInACell, GoesNowhereWhereTheEditIsRefused) {
    grid.EnterGoesOn = true;
    grid.OnValidateEdit = [](int, int, const std::string&) { return false; };
    ASSERT_TRUE(Input(*form).Type(grid, "ä"));
    EXPECT_FALSE(Input(*form).Key({"Enter"}));
    EXPECT_THAT(Logged(), testing::IsEmpty());
}

}  // namespace
}  // namespace FX_Algen::controls
