#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "FX_Algen/Load.h"

namespace FX_Algen::store::load {

/// The problems of all files: sorted, and bounded to the first ones, however many there are.
class Problems {
public:
    explicit Problems(std::size_t most) : most_(most) {}

    void Add(LoadProblem problem);
    bool None() const noexcept { return count_ == 0; }
    /// Hands the problems over; `more` is the number of those that are not among them.
    std::vector<LoadProblem> Take(std::size_t& more);

private:
    struct Before {
        bool operator()(const LoadProblem& a, const LoadProblem& b) const;
    };
    std::size_t most_;
    std::size_t count_ = 0;
    std::multiset<LoadProblem, Before> first_;
};

/// A text that a terminal can show: control characters are blanks.
std::string Printable(std::string_view text);

/// A text as messages show it: printable, in quotes, cut where it is long.
std::string Quoted(std::string_view text);

}  // namespace FX_Algen::store::load
