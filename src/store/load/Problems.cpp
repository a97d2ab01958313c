#include "store/load/Problems.h"

#include <tuple>

namespace FX_Algen::store::load {

bool Problems::Before::operator()(const LoadProblem& a, const LoadProblem& b) const {
    return std::tie(a.File, a.Line, a.Column, a.Reason) < std::tie(b.File, b.Line, b.Column, b.Reason);
}

void Problems::Add(LoadProblem problem) {
    ++count_;
    if (first_.size() >= most_) {
        if (most_ == 0 || !Before{}(problem, *first_.rbegin())) return;
        first_.erase(std::prev(first_.end()));
    }
    first_.insert(std::move(problem));
}

std::vector<LoadProblem> Problems::Take(std::size_t& more) {
    std::vector<LoadProblem> out;
    out.reserve(first_.size());
    while (!first_.empty()) out.push_back(std::move(first_.extract(first_.begin()).value()));
    more = count_ - out.size();
    count_ = 0;
    return out;
}

std::string Printable(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        // The control characters from 128 to 159 are C2 80 to C2 9F; some terminals obey them too.
        const bool pair = byte == 0xC2U && i + 1 < text.size() &&
                          static_cast<unsigned char>(text[i + 1]) >= 0x80U &&
                          static_cast<unsigned char>(text[i + 1]) <= 0x9FU;
        if (pair) ++i;
        out += byte < 0x20U || byte == 0x7FU || pair ? ' ' : text[i];
    }
    return out;
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = text.size();
    if (end > longest) {
        end = longest;
        // Never through the middle of a character: its further bytes begin with the bits 10.
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
    }
    return "'" + Printable(text.substr(0, end)) + (end < text.size() ? "…'" : "'");
}

}  // namespace FX_Algen::store::load
