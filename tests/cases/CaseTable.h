#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::cases {

/// A slip in a case file; the text begins with file and line.
class CaseError : public std::runtime_error {
public:
    CaseError(const std::string& file, std::size_t line, const std::string& reason)
        : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason) {}
};

/// A line of a file without the blanks at its ends; comments and empty lines are left out.
struct Line {
    std::size_t Number = 0;
    std::string Text;
};

/// `text` without the blanks at its ends.
std::string Trimmed(std::string_view text);

/// The cells of a line, split at "|", each without the blanks at its ends.
std::vector<std::string> CellsOf(std::string_view line);

/// The lines of a text that say something: those that are neither empty nor begin with "#".
std::vector<Line> LinesOf(std::string_view text);

/// Whether a text is a number as case files write it: digits with an optional sign and decimal point.
bool IsNumber(std::string_view text);

/// A row of a table in a case file, whose cells are asked for by the heading of their column.
class Row {
public:
    Row(const std::string& file, std::size_t line, const std::vector<std::string>& columns,
        std::vector<std::string> cells)
        : file_(&file), line_(line), columns_(&columns), cells_(std::move(cells)) {}

    std::size_t Line() const noexcept { return line_; }
    /// The cell as it stands; empty where the table has no such column.
    std::string Cell(std::string_view column) const;
    /// A cell that must say something.
    std::string Text(std::string_view column) const;
    /// A number as it stands, "Null", or "0" where the cell holds "-" or the column is not there.
    std::string Number(std::string_view column) const;
    /// A whole number.
    std::int32_t Whole(std::string_view column) const;
    /// "yes" or "no".
    bool Flag(std::string_view column) const;
    /// "cf." or "-": whether the determination is uncertain.
    bool Cf() const;
    [[noreturn]] void Fail(const std::string& reason) const;

private:
    const std::string* file_;
    std::size_t line_;
    const std::vector<std::string>* columns_;
    std::vector<std::string> cells_;
};

/// A table of a case file: a line of headings, then rows with as many cells.
class Table {
public:
    /// Reads a section. Refuses headings other than `required` and `optional`, a required heading that is
    /// missing, a heading that stands twice and rows of another length.
    Table(std::string file, std::size_t sectionLine, const std::vector<Line>& lines,
          const std::vector<std::string_view>& required, const std::vector<std::string_view>& optional = {});

    /// In the order of the file; they are good while the table lives.
    std::vector<Row> Rows() const;

private:
    std::string file_;
    std::vector<std::string> columns_;
    std::vector<Line> lines_;
};

}  // namespace FX_Algen::cases
