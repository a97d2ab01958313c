#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

/// A table for people: columns as wide as their widest cell on a terminal, numbers to the right.
class Table {
public:
    enum class Align : std::uint8_t { Left, Right };

    void AddColumn(std::string caption, Align align);
    /// One cell for each column.
    void AddRow(std::vector<std::string> cells);
    /// Captions, a rule, the rows; every line indented by `indent` blanks and without blanks at its end.
    void Print(std::ostream& out, std::size_t indent = 0) const;

private:
    struct Column {
        std::string Caption;
        Align Alignment;
    };
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

/// A number for people: commercially rounded to `places`, all of them shown, decimal comma in German.
std::string DisplayNumber(double value, std::int16_t places, std::int16_t SprachID);

/// A value for people: dates as 12.05.2026 in German and ISO text in English, Null as an empty text.
std::string DisplayText(const store::Value& value, std::int16_t SprachID);

}  // namespace FX_Algen::cli
