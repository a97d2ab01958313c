#include "cases/CaseExpectation.h"

#include <algorithm>

namespace FX_Algen::cases {
namespace {

void AddValues(Expectation& expectation, const Source& source, const Line& headings, const Line& values) {
    const auto columns = CellsOf(headings.Text);
    const auto cells = CellsOf(values.Text);
    if (cells.size() != columns.size())
        throw CaseError(
            source.File, values.Number,
            std::to_string(cells.size()) + " values below " + std::to_string(columns.size()) + " headings");
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].empty()) throw CaseError(source.File, headings.Number, "a heading is empty");
        if (cells[i].empty())
            throw CaseError(source.File, values.Number, "no value is expected of \"" + columns[i] + "\"");
        for (const auto& other : expectation.Values) {
            if (other.Column == columns[i])
                throw CaseError(source.File, headings.Number, "\"" + columns[i] + "\" stands twice");
        }
        RequireReason(source, values.Number, cells[i]);
        expectation.Values.push_back({values.Number, columns[i], cells[i]});
    }
}

}  // namespace

void RequireReason(const Source& source, std::size_t line, std::string_view number) {
    if (!IsNumber(number)) return;
    if (number.front() == '-') number.remove_prefix(1);
    constexpr std::string_view digits = "0123456789";
    constexpr std::string_view digitsAndPoint = "0123456789.";
    const std::string_view reasons = source.Reasoning;
    for (auto begin = reasons.find_first_of(digits); begin != std::string_view::npos;) {
        const auto end = std::min(reasons.find_first_not_of(digitsAndPoint, begin), reasons.size());
        auto found = reasons.substr(begin, end - begin);
        if (found.back() == '.') found.remove_suffix(1);
        if (found == number) return;
        begin = reasons.find_first_of(digits, end);
    }
    throw CaseError(source.File, line,
                    "the reasoning does not come to " + std::string(number) + ", which is expected");
}

Expectation ReadExpectation(const std::string& file, const Section& section, std::string_view reasoning) {
    Expectation expectation;
    expectation.Line = section.Line;
    auto line = section.Lines.begin();
    if (line != section.Lines.end() && line->Text.starts_with("failure ")) {
        const auto number = line->Text.substr(8);
        if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos ||
            number.size() > 5)
            throw CaseError(file, line->Number, "\"" + number + "\" is no number of a failure");
        expectation.Failure = std::stoi(number);
        ++line;
    }
    if (line != section.Lines.end() && line->Text == "no row") {
        expectation.NoRow = true;
        ++line;
        if (line != section.Lines.end())
            throw CaseError(file, line->Number, "values are expected where no row is");
    }
    for (; line != section.Lines.end(); line += 2) {
        if (line + 1 == section.Lines.end())
            throw CaseError(file, line->Number, "headings without values below");
        AddValues(expectation, {file, reasoning}, *line, *(line + 1));
    }
    if (!expectation.NoRow && expectation.Values.empty())
        throw CaseError(file, section.Line, "nothing is expected of the run");
    return expectation;
}

}  // namespace FX_Algen::cases
