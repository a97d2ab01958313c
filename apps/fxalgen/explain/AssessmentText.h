#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Assessment.h"
#include "fxalgen/Json.h"

namespace FX_Algen::cli {

/// The assessments of a sub-habitat, with the names behind the keys in their traces.
struct AssessedSite {
    std::optional<AssessmentSite> Site;
    std::vector<ExplainedAssessment> Assessments;
    std::map<std::int32_t, std::string> Taxa;    ///< by `ID_ART`
    std::map<std::int32_t, std::string> Places;  ///< labels of sampling sites by `ID_PS`
    std::map<std::int32_t, std::string> Stands;  ///< names of mixed stands by `ID_TR_MI`
    /// Why stored assessments are not explained: the site could not be read.
    std::optional<Explanation::Failure> Failed;
    /// Why the last run left nothing to explain, where it noted that.
    std::optional<Explanation::Failure> LastRun;
};

/// Explains the stored assessments of a sub-habitat. Where there are none, the site is not even read.
AssessedSite ReadAssessments(const store::DatabasePtr& database, std::int32_t ID_TR);

/// One section for each assessment: class, group, restriction, how the class follows from the modules, each
/// module, the frequency list, the terms of the indices and what differs from the stored row. Terms that
/// `calculation` shows as well are not shown twice.
void PrintAssessments(std::ostream& out, const AssessedSite& site, const Explanation& calculation,
                      std::int16_t SprachID);

/// The assessments with the names of the public structures; `NextBetter` and `NextWorse` of each ratio are
/// those of `NextBetterClass` and `NextWorseClass`.
Json AssessmentsAsJson(const AssessedSite& site);

}  // namespace FX_Algen::cli
