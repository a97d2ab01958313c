#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "store/Engine.h"
#include "store/load/Csv.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// A field of a file as its column takes it. Text points into the file or into a buffer that outlives it.
struct Cell {
    enum class Tag : std::uint8_t { Null, Integer, Real, Text };

    Tag Is = Tag::Null;
    std::int64_t Integer = 0;
    double Real = 0;
    std::string_view Text;

    void BindTo(EngineStatement& statement, std::size_t index) const;
    /// For messages and comparison: numbers as text, Null as "Null".
    std::string AsText() const;
};

/// Turns fields into cells.
struct Conversion {
    bool DecimalComma = false;  ///< a number may have a comma instead of the point

    /// Sets `cell`; texts that differ from the field go into `buffers`. The result is the reason why the
    /// field does not fit the column; empty where it does. A field that does not fit leaves Null.
    std::string Convert(const CsvField& field, const TargetColumn& column, Cell& cell,
                        std::deque<std::string>& buffers) const;
};

}  // namespace FX_Algen::store::load
