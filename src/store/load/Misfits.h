#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "store/Engine.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// Cells that do not hold what their column is declared for. The engine lets other programs put a text into a
/// column of numbers; a file would turn it into another value.
class Misfits {
public:
    /// Looks through a table.
    void Find(Engine& engine, const TargetTable& table);
    bool None() const noexcept { return count_ == 0; }
    /// One line a cell: table, key, column and what stands there. Beyond the first hundred they are counted.
    std::string Text() const;

private:
    std::vector<std::string> lines_;
    std::size_t count_ = 0;
};

}  // namespace FX_Algen::store::load
