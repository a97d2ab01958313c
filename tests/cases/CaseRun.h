#pragma once

#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "cases/CaseFile.h"

namespace FX_Algen::cases {

/// Key of the one sub-habitat that a case database holds.
inline constexpr std::int32_t Subhabitat = 1;

/// Puts the sample, the taxa and the reference tables of a case into a new project database.
void Fill(const store::DatabasePtr& database, const Case& sample);

/// How the two runs ended; none where a call did not fail.
struct Outcome {
    std::optional<Error> FirstRun;
    std::optional<Error> SecondRun;
};

/// A difference between a case and what came out.
struct Difference {
    std::size_t Line = 0;
    std::string Text;
};

/// Assesses the sub-habitat as a host does: the first run, then the diatoms alone, whatever the first came
/// to. The frequency list is compared between the two; its differences go to `list`.
Outcome Assess(const store::DatabasePtr& database, const Case& sample, std::vector<Difference>& list);

/// Where one run differs from what the case expects of it.
std::vector<Difference> Differences(const store::DatabasePtr& database, const Expectation& expected,
                                    const std::optional<Error>& failure, bool KAOnly);

/// The table of results, and a condition that tells the row of the sub-habitat from its others.
struct ResultRow {
    std::string Table;
    std::string Condition;
};

/// Where a result row differs from what a case expects of it.
std::vector<Difference> RowDifferences(store::Database& database, const ResultRow& where,
                                       const Expectation& expected, const std::optional<Error>& failure);

/// Where a value differs from the text that a case expects, in words; empty where it does not. Whole
/// numbers, texts and booleans ("yes", "no") must be the same. Other numbers may differ by half a unit of the
/// last digit given, but by no more than a hundred-thousandth of the value.
std::string ValueDifference(const std::string& expected, const store::Value& value);

}  // namespace FX_Algen::cases
