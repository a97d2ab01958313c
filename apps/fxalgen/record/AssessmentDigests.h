#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// Digests of all that assessments read. Reference rows are read once for each kind of site, so an object
/// serves for one command: what changes in the reference tables meanwhile is not seen.
class AssessmentDigests {
public:
    explicit AssessmentDigests(store::DatabasePtr database);

    /// Digest of the sample (findings, covers, stands, ratings, which taxa are reference species) and of the
    /// site itself.
    std::string OfSample(const AssessmentSite& site);
    /// Digest of the reference classes, expected values, class bounds and class names that the assessment of
    /// a group ("Alle" or "KA") asks for at the site.
    const std::string& OfReferences(const AssessmentSite& site, const std::string& group);

private:
    using Taxa = std::set<std::int32_t>;
    const Taxa& ReferenceSpecies(const std::string& condition);
    std::string ReadReferences(const AssessmentSite& site, const std::string& group);

    store::DatabasePtr database_;
    Taxa typeA_;
    std::map<std::string, Taxa> typeB_;  ///< by condition
    std::map<std::tuple<std::int32_t, std::int16_t, std::string>, std::string> references_;
};

}  // namespace FX_Algen::cli
