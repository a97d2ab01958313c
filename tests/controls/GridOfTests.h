#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/Error.h"
#include "controls/Form.h"
#include "controls/Grid.h"

namespace FX_Algen::controls {

/// A grid of 2 fixed rows and 3 further ones, 1 fixed column and 4 further ones; the cell in row r, column c
/// holds "r.c".
class GridTest : public testing::Test {
protected:
    GridTest() {
        grid.Cols(5);
        grid.Rows(5);
        grid.Fixed(2, 1);
        for (int row = 0; row < 5; ++row)
            for (int col = 0; col < 5; ++col)
                grid.Text(row, col, std::to_string(row) + "." + std::to_string(col));
        grid.Editable(Editing::KeyboardAndMouse);
    }
    std::shared_ptr<Form> form = std::make_shared<Form>("frmPrüfung");
    Grid& grid = form->Add<Grid>("vsfgAlgenArt");
};

using Words = std::vector<std::string>;

/// The number of the failure of a call; 0 where there is none.
inline std::int32_t NumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace FX_Algen::controls
