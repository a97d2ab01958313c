#include "store/load/Csv.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace FX_Algen::store::load {

bool CsvReader::AtLineEnd() const noexcept {
    if (at_ >= text_.size()) return true;
    // A carriage return at the very end is half of a line end, not a part of the text.
    return text_[at_] == '\n' || (text_[at_] == '\r' && (at_ + 1 >= text_.size() || text_[at_ + 1] == '\n'));
}

void CsvReader::PassLineEnd() noexcept {
    if (at_ >= text_.size()) return;
    at_ = std::min(at_ + (text_[at_] == '\r' ? 2 : 1), text_.size());
    ++line_;
}

CsvField CsvReader::Plain() {
    CsvField field;
    field.Line = line_;
    const std::size_t begin = at_;
    while (at_ < text_.size()) {
        const char c = text_[at_];
        if (c == delimiter_ || c == '\n' || (c == '\r' && AtLineEnd())) break;
        if (c == '"') field.Fault = "a quote stands inside a field that does not begin with one";
        ++at_;
    }
    field.Text = text_.substr(begin, at_ - begin);
    return field;
}

CsvField CsvReader::InQuotes(std::deque<std::string>& buffers) {
    CsvField field;
    field.Line = line_;
    field.Quoted = true;
    const std::size_t begin = ++at_;
    bool doubled = false;
    for (;; ++at_) {
        at_ = std::min(text_.find_first_of("\"\n", at_), text_.size());
        if (at_ >= text_.size()) {
            field.Fault = "the closing quote is missing";
            break;
        }
        if (text_[at_] == '\n') {
            ++line_;
            continue;
        }
        if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') break;
        doubled = true;
        ++at_;
    }
    field.Text = text_.substr(begin, at_ - begin);
    if (at_ < text_.size()) ++at_;
    if (doubled) {
        std::string plain;
        plain.reserve(field.Text.size());
        for (std::size_t i = 0; i < field.Text.size(); ++i) {
            plain += field.Text[i];
            if (field.Text[i] == '"') ++i;
        }
        field.Text = buffers.emplace_back(std::move(plain));
    }
    // Whatever stands between the closing quote and the next separator is passed over: one fault is enough.
    while (!AtLineEnd() && text_[at_] != delimiter_) {
        field.Fault = "text stands behind a closing quote";
        ++at_;
    }
    return field;
}

bool CsvReader::Next(std::vector<CsvField>& fields, std::deque<std::string>& buffers) {
    fields.clear();
    while (at_ < text_.size() && AtLineEnd()) PassLineEnd();
    if (at_ >= text_.size()) return false;
    for (;;) {
        fields.push_back(at_ < text_.size() && text_[at_] == '"' ? InQuotes(buffers) : Plain());
        if (AtLineEnd()) break;
        ++at_;  // the separator
    }
    PassLineEnd();
    return true;
}

std::string_view WithoutMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

char Delimiter(std::string_view text) {
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == ',' || c == ';') return c;
        if (c == '\n') break;
    }
    return ',';
}

namespace {

/// Length of the well-formed sequence at the front of `s`, 0 where there is none. Overlong forms, surrogates
/// and numbers beyond U+10FFFF are not well-formed.
std::size_t SequenceLength(std::string_view s) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
    const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < s.size() && byte(i) >= low && byte(i) <= high;
    };
    const unsigned first = byte(0);
    if (first < 0x80) return first == 0 ? 0 : 1;
    if (first >= 0xC2 && first <= 0xDF) return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = first == 0xED ? 0x9F : 0xBF;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const unsigned low = first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

/// Whether the eight bytes at `p` are all plain characters from 1 to 127.
bool EightPlain(const char* p) {
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    constexpr std::uint64_t high = 0x8080808080808080U;
    constexpr std::uint64_t ones = 0x0101010101010101U;
    return ((word | (word - ones)) & high) == 0;
}

}  // namespace

std::optional<std::size_t> FirstBadByte(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (text.size() - at >= 8 && EightPlain(text.data() + at)) {
            at += 8;
            continue;
        }
        const std::size_t length = SequenceLength(text.substr(at));
        if (length == 0) return at;
        at += length;
    }
    return std::nullopt;
}

}  // namespace FX_Algen::store::load
