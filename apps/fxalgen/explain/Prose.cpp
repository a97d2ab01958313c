#include "fxalgen/explain/Prose.h"

#include <algorithm>
#include <ostream>

#include "FX_Algen/Texts.h"
#include "fxalgen/Table.h"
#include "fxalgen/Utf8.h"

namespace FX_Algen::cli {

namespace {

constexpr std::size_t FoldIndent = 4;

}  // namespace

std::string Prose::Word(std::int16_t offset, std::initializer_list<std::string> values) const {
    std::string text = Text(offset, SprachID_);
    std::size_t at = 0;
    for (const std::string& value : values) {
        at = text.find('|', at);
        if (at == std::string::npos) break;
        text.replace(at, 1, value);
        at += value.size();
    }
    return text;
}

std::string Prose::Exact(const store::Value& value) const {
    std::string text = DisplayText(value, SprachID_);
    const bool isFloat = value.kind() == store::Kind::R4 || value.kind() == store::Kind::R8;
    if (isFloat && SprachID_ < Language::English) std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::string Prose::Number(double value, std::int16_t places) const {
    return DisplayNumber(value, places, SprachID_);
}

std::string Prose::Short(double value, std::int16_t places) const {
    std::string text = Number(value, places);
    if (text.find_first_of(".,") == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.' || text.back() == ',') text.pop_back();
    return text;
}

void Prose::Title(const std::string& text) const { out_ << text << "\n\n"; }

void Prose::Line(std::size_t indent, const std::string& text) const {
    std::string line(indent, ' ');
    bool empty = true;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t blank = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, blank - at);
        at = blank + 1;
        if (!empty && DisplayWidth(line) + 1 + DisplayWidth(word) > LineWidth) {
            out_ << line << '\n';
            line.assign(indent + FoldIndent, ' ');
            empty = true;
        }
        line += (empty ? "" : " ") + word;
        empty = false;
    }
    out_ << line << '\n';
}

void Prose::Blank() const { out_ << '\n'; }

}  // namespace FX_Algen::cli
