#include "cases/CaseTable.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace FX_Algen::cases {
namespace {

bool Contains(const std::vector<std::string_view>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

std::string Trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const auto first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(Blanks) - first + 1));
}

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells;
    for (;;) {
        const auto bar = line.find('|');
        cells.push_back(Trimmed(line.substr(0, bar)));
        if (bar == std::string_view::npos) return cells;
        line.remove_prefix(bar + 1);
    }
}

std::vector<Line> LinesOf(std::string_view text) {
    std::vector<Line> lines;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const auto end = text.find('\n');
        auto line = Trimmed(text.substr(0, end));
        if (!line.empty() && line.front() != '#') lines.push_back({number, std::move(line)});
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

bool IsNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    const auto point = text.find('.');
    const auto whole = text.substr(0, point);
    const auto isDigits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    return isDigits(whole) && (point == std::string_view::npos || isDigits(text.substr(point + 1)));
}

std::string Row::Cell(std::string_view column) const {
    const auto found = std::find(columns_->begin(), columns_->end(), column);
    return found == columns_->end() ? std::string()
                                    : cells_[static_cast<std::size_t>(found - columns_->begin())];
}

std::string Row::Text(std::string_view column) const {
    auto text = Cell(column);
    if (text.empty()) Fail("nothing stands under \"" + std::string(column) + "\"");
    return text;
}

std::string Row::Number(std::string_view column) const {
    auto text = Cell(column);
    if (text == "-" ||
        (text.empty() && std::find(columns_->begin(), columns_->end(), column) == columns_->end()))
        return "0";
    if (text != "Null" && !IsNumber(text))
        Fail("\"" + text + "\" under \"" + std::string(column) + "\" is no number");
    return text;
}

std::int32_t Row::Whole(std::string_view column) const {
    const auto text = Text(column);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        Fail("\"" + text + "\" under \"" + std::string(column) + "\" is no whole number");
    return number;
}

bool Row::Flag(std::string_view column) const {
    const auto text = Text(column);
    if (text != "yes" && text != "no")
        Fail("\"" + text + "\" under \"" + std::string(column) + "\" is neither yes nor no");
    return text == "yes";
}

bool Row::Cf() const {
    const auto text = Text("cf.");
    if (text != "cf." && text != "-") Fail("\"" + text + "\" under \"cf.\" is neither cf. nor -");
    return text == "cf.";
}

void Row::Fail(const std::string& reason) const { throw CaseError(*file_, line_, reason); }

Table::Table(std::string file, std::size_t sectionLine, const std::vector<Line>& lines,
             const std::vector<std::string_view>& required, const std::vector<std::string_view>& optional)
    : file_(std::move(file)) {
    if (lines.empty()) throw CaseError(file_, sectionLine, "the section has no line of headings");
    columns_ = CellsOf(lines.front().Text);
    const auto headings = lines.front().Number;
    for (const auto& column : columns_) {
        if (!Contains(required, column) && !Contains(optional, column))
            throw CaseError(file_, headings, "unknown column \"" + column + "\"");
        if (std::count(columns_.begin(), columns_.end(), column) > 1)
            throw CaseError(file_, headings, "column \"" + column + "\" stands twice");
    }
    for (const auto column : required) {
        if (std::find(columns_.begin(), columns_.end(), column) == columns_.end())
            throw CaseError(file_, headings, "column \"" + std::string(column) + "\" is missing");
    }
    lines_.assign(lines.begin() + 1, lines.end());
    for (const auto& line : lines_) {
        const auto cells = CellsOf(line.Text).size();
        if (cells != columns_.size())
            throw CaseError(
                file_, line.Number,
                std::to_string(cells) + " cells below " + std::to_string(columns_.size()) + " headings");
    }
}

std::vector<Row> Table::Rows() const {
    std::vector<Row> rows;
    for (const auto& line : lines_) rows.emplace_back(file_, line.Number, columns_, CellsOf(line.Text));
    return rows;
}

}  // namespace FX_Algen::cases
