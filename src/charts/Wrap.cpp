#include "charts/Wrap.h"

#include <algorithm>

namespace FX_Algen::charts {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Whether a combining mark (U+0300 to U+036F) begins at a place.
bool IsCombiningMark(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return false;
    const auto first = static_cast<unsigned char>(text[at]);
    const auto second = static_cast<unsigned char>(text[at + 1]);
    return (first == 0xCC && second >= 0x80) || (first == 0xCD && second >= 0x80 && second <= 0xAF);
}

/// End of the letter that begins at a place, with its combining marks.
std::size_t LetterEnd(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && (IsContinuation(text[end]) || IsCombiningMark(text, end))) ++end;
    return end;
}

bool IsLetter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte >= 0x80;
}

/// What stays together on a line.
struct Piece {
    std::string_view Text;
    bool AfterBlank = false;
    bool OnNewLine = false;
};

/// Splits a word behind hyphens and slashes. Those in front of digits stay, for dates and numbers.
void SplitWord(std::string_view word, bool onNewLine, std::vector<Piece>& pieces) {
    std::size_t begin = 0;
    for (std::size_t i = 1; i + 1 < word.size(); ++i) {
        if ((word[i] != '-' && word[i] != '/') || !IsLetter(word[i + 1])) continue;
        pieces.push_back({word.substr(begin, i + 1 - begin), begin == 0, begin == 0 && onNewLine});
        begin = i + 1;
    }
    pieces.push_back({word.substr(begin), begin == 0, begin == 0 && onNewLine});
}

std::vector<Piece> Pieces(std::string_view text) {
    std::vector<Piece> pieces;
    bool newLine = false;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '\n' || IsBlank(text[i])) {
            newLine = newLine || text[i] == '\n';
            ++i;
            continue;
        }
        const std::size_t begin = i;
        while (i < text.size() && text[i] != '\n' && !IsBlank(text[i])) ++i;
        SplitWord(text.substr(begin, i - begin), newLine, pieces);
        newLine = false;
    }
    return pieces;
}

/// Collects pieces into lines.
class Lines {
public:
    Lines(double width, const Font& font, const FontMetrics& metrics)
        : width_(width), font_(font), metrics_(metrics) {}

    void Add(const Piece& piece) {
        if (piece.OnNewLine) EndLine();
        std::string longer = line_;
        if (piece.AfterBlank && !line_.empty()) longer += ' ';
        longer += piece.Text;
        if (Fits(longer)) {
            line_ = std::move(longer);
            return;
        }
        EndLine();
        line_ = Broken(piece.Text);
    }

    std::vector<std::string> Take() {
        EndLine();
        return std::move(lines_);
    }

private:
    bool Fits(std::string_view text) const { return metrics_.Width(text, font_) <= width_; }

    void EndLine() {
        if (!line_.empty()) lines_.push_back(std::move(line_));
        line_.clear();
    }

    /// Puts full lines of a word that is too wide aside and returns its rest.
    std::string Broken(std::string_view word) {
        while (!Fits(word)) {
            std::size_t end = LetterEnd(word, 0);
            for (std::size_t next = end; next < word.size();) {
                next = LetterEnd(word, next);
                if (!Fits(word.substr(0, next))) break;
                end = next;
            }
            if (end == word.size()) break;
            lines_.emplace_back(word.substr(0, end));
            word.remove_prefix(end);
        }
        return std::string(word);
    }

    double width_;
    Font font_;
    const FontMetrics& metrics_;
    std::string line_;
    std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> WrapText(std::string_view text, double width, const Font& font,
                                  const FontMetrics& metrics) {
    Lines lines(width, font, metrics);
    for (const Piece& piece : Pieces(text)) lines.Add(piece);
    return lines.Take();
}

double WidestWord(std::string_view text, const Font& font, const FontMetrics& metrics) {
    double widest = 0;
    for (const Piece& piece : Pieces(text)) widest = std::max(widest, metrics.Width(piece.Text, font));
    return widest;
}

double WidestLine(const std::vector<std::string>& lines, const Font& font, const FontMetrics& metrics) {
    double widest = 0;
    for (const std::string& line : lines) widest = std::max(widest, metrics.Width(line, font));
    return widest;
}

double LineHeight(const Font& font, const FontMetrics& metrics) {
    return metrics.Ascent(font) + metrics.Descent(font);
}

double TextHeight(std::size_t lines, const Font& font, const FontMetrics& metrics) {
    if (lines == 0) return 0;
    return static_cast<double>(lines - 1) * LineHeight(font, metrics) + metrics.Ascent(font) +
           metrics.Descent(font);
}

}  // namespace FX_Algen::charts
