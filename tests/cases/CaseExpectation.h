#pragma once

#include <string>
#include <string_view>

#include "cases/CaseFile.h"
#include "cases/CaseSections.h"

namespace FX_Algen::cases {

/// Where a number comes from that a case expects.
struct Source {
    const std::string& File;
    std::string_view Reasoning;
};

/// A number that is expected must be one that the reasoning comes to; its sign apart, since a dash may stand
/// before a number in a sentence. Fails with `CaseError`.
void RequireReason(const Source& source, std::size_t line, std::string_view number);

/// Reads what a run must leave: "failure <number>" or nothing, then "no row" or pairs of lines with columns
/// and their values. Every number must be one that the reasoning comes to.
Expectation ReadExpectation(const std::string& file, const Section& section, std::string_view reasoning);

}  // namespace FX_Algen::cases
