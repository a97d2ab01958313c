#include "fxalgen/Table.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>

#include "FX_Algen/Runden.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Utf8.h"

namespace FX_Algen::cli {

namespace {

std::string Padded(const std::string& text, std::size_t width, Table::Align align) {
    const std::size_t taken = DisplayWidth(text);
    const std::string blanks(width > taken ? width - taken : 0, ' ');
    return align == Table::Align::Right ? blanks + text : text + blanks;
}

void PrintLine(std::ostream& out, std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

bool IsGerman(std::int16_t SprachID) { return SprachID < Language::English; }

}  // namespace

void Table::AddColumn(std::string caption, Align align) { columns_.push_back({std::move(caption), align}); }

void Table::AddRow(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.push_back(std::move(cells));
}

void Table::Print(std::ostream& out, std::size_t indent) const {
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::size_t width = DisplayWidth(columns_[i].Caption);
        for (const auto& row : rows_) width = std::max(width, DisplayWidth(row[i]));
        widths.push_back(width);
    }
    const std::string margin(indent, ' ');
    std::string captions = margin;
    std::string rule = margin;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::string gap = i == 0 ? "" : "  ";
        captions += gap + Padded(columns_[i].Caption, widths[i], columns_[i].Alignment);
        rule += gap + std::string(widths[i], '-');
    }
    PrintLine(out, captions);
    PrintLine(out, rule);
    for (const auto& row : rows_) {
        std::string line = margin;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            line += (i == 0 ? "" : "  ") + Padded(row[i], widths[i], columns_[i].Alignment);
        }
        PrintLine(out, line);
    }
}

std::string DisplayNumber(double value, std::int16_t places, std::int16_t SprachID) {
    std::string text = fmt::format("{:.{}f}", Allgemein::Runden(value, places), places);
    if (IsGerman(SprachID)) std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::string DisplayText(const store::Value& value, std::int16_t SprachID) {
    if (value.IsNull()) return {};
    const std::string text = value.Text();
    const bool isDay = value.kind() == store::Kind::Date && text.size() >= 10;
    if (!isDay || !IsGerman(SprachID)) return text;
    return text.substr(8, 2) + "." + text.substr(5, 2) + "." + text.substr(0, 4) + text.substr(10);
}

}  // namespace FX_Algen::cli
