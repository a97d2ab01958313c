#pragma once

#include <string>
#include <vector>

#include "SampleEntry.h"

namespace FX_Algen::cli {

/// An algae sample as it lies in a database, as a person would write it on a field sheet.
struct AlgaeSample {
    std::int32_t ID_TR = 0;
    std::string PSBez;
    EnteredCovers Covers;  ///< names of fields of the sheet
    std::vector<EnteredStand> Stands;
    std::vector<EnteredTaxon> Taxa;
};

/// The same for the seston.
struct SestonSample {
    struct Finding {
        EnteredTaxon Taxon;
        double Abundanz = 0;
        std::string Zusatz;
    };
    std::int32_t ID_TR = 0;
    std::vector<Finding> Findings;
};

AlgaeSample ReadAlgaeSample(const store::DatabasePtr& database, std::int32_t ID_TR);
SestonSample ReadSestonSample(const store::DatabasePtr& database, std::int32_t ID_TR);

/// Takes the sample out of the database, with its site.
void RemoveAlgaeSample(const store::DatabasePtr& database, std::int32_t ID_TR);
void RemoveSestonSample(const store::DatabasePtr& database, std::int32_t ID_TR);

/// All rows of the sample as lines, without the keys of its sites and stands, which are new where it was
/// entered again.
std::vector<std::string> AlgaeRows(const store::DatabasePtr& database, std::int32_t ID_TR);
std::vector<std::string> SestonRows(const store::DatabasePtr& database, std::int32_t ID_TR);

/// The rows of a statement as lines, fields parted by "|", Null as "-".
std::vector<std::string> Lines(const store::DatabasePtr& database, const std::string& statement);

}  // namespace FX_Algen::cli
