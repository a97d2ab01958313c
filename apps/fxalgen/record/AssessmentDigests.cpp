#include "fxalgen/record/AssessmentDigests.h"

#include <string_view>
#include <utility>

#include "fxalgen/record/Digest.h"

namespace FX_Algen::cli {

namespace {

/// Tables of a module, and the column by which they know the reference class of a site.
struct ModuleTables {
    std::string_view Class;
    std::string_view Column;
    std::string_view Expected;
    std::string_view Bounds;
};

constexpr ModuleTables Modules[] = {
    {"awaWRRL_TGZK", "TGZK", "awaWRRL_ETI", "awaWRRL_TIOEZK"},
    {"awaWRRL_SGZK", "Gueteklasse", "awaWRRL_ESI", "awaWRRL_SIOEZK"},
    {"awaWRRL_RBioregionstyp", "Bioregionstyp", "awaWRRL_ERI", "awaWRRL_RIOEZK"},
};

std::string Select(std::string_view table, const std::string& rest) {
    return "SELECT * FROM " + std::string(table) + " " + rest + ";";
}

/// Class as a condition: its rows are found by it as the assessment finds them, also those for sites without
/// a reference class ("-" and -1).
std::string ClassCondition(const ModuleTables& module, const store::Value& found) {
    const bool isText = module.Column != "Gueteklasse";
    std::string text = found.IsNull() ? (isText ? "-" : "-1") : found.Text();
    if (!isText) return std::string(module.Column) + "=" + text;
    for (std::size_t at = text.find('\''); at != std::string::npos; at = text.find('\'', at + 2)) {
        text.insert(at, 1, '\'');
    }
    return std::string(module.Column) + "='" + text + "'";
}

std::set<std::int32_t> ReadTaxa(store::Database& database, const std::string& statement) {
    std::set<std::int32_t> taxa;
    const auto rows = database.OpenRecordset(statement);
    for (; !rows->Eof(); rows->MoveNext()) {
        const store::Value& taxon = (*rows)[std::size_t{0}];
        if (!taxon.IsNull()) taxa.insert(taxon.I4());
    }
    return taxa;
}

}  // namespace

AssessmentDigests::AssessmentDigests(store::DatabasePtr database)
    : database_(std::move(database)), typeA_(ReadTaxa(*database_, "SELECT ID_Art FROM awaRefArt_TypA;")) {}

std::string AssessmentDigests::OfSample(const AssessmentSite& site) {
    Digest digest;
    // Without a project above it a sub-habitat is in no frequency list.
    digest.AddField(site.ID_PRJ != 0);
    digest.AddField(site.BioregionID);
    digest.AddField(site.Hoehenstufe);
    digest.AddField(site.RefBioregionen);
    digest.AddField(site.RefBioregion);
    const Taxa& typeB = ReferenceSpecies(site.RefBioregion);
    AddAssessedSample(digest, *database_, site.ID_TR, [&](std::int32_t ID_ART) {
        digest.AddField(typeA_.contains(ID_ART));
        digest.AddField(typeB.contains(ID_ART));
    });
    return digest.Text();
}

const std::string& AssessmentDigests::OfReferences(const AssessmentSite& site, const std::string& group) {
    const std::tuple key(site.BioregionID, site.Hoehenstufe, group);
    const auto known = references_.find(key);
    if (known != references_.end()) return known->second;
    return references_.emplace(key, ReadReferences(site, group)).first->second;
}

const AssessmentDigests::Taxa& AssessmentDigests::ReferenceSpecies(const std::string& condition) {
    const auto known = typeB_.find(condition);
    if (known != typeB_.end()) return known->second;
    const std::string where = condition.empty() ? "" : " WHERE " + condition;
    return typeB_.emplace(condition, ReadTaxa(*database_, "SELECT ID_Art FROM awaRefArt_TypB" + where + ";"))
        .first->second;
}

std::string AssessmentDigests::ReadReferences(const AssessmentSite& site, const std::string& group) {
    const std::string ofSite = "WHERE ID_AL_Bioregion=" + store::NumberText(site.BioregionID) +
                               " AND Hoehenstufe=" + store::NumberText(std::int32_t{site.Hoehenstufe});
    Digest digest;
    for (const ModuleTables& module : Modules) {
        store::Value found;
        AddRows(digest, *database_, Select(module.Class, ofSite),
                [&](const store::Recordset& row) { found = row[module.Column]; });
        const std::string ofClass = "WHERE Taxagruppe='" + group + "' AND " + ClassCondition(module, found);
        AddRows(digest, *database_, Select(module.Expected, ofClass));
        AddRows(digest, *database_, Select(module.Bounds, ofClass + " ORDER BY EQRMin, EQRMax, OEZK"));
    }
    AddRows(digest, *database_, Select("awaWRRL_Klasse", "ORDER BY Klassenzahl"));
    return digest.Text();
}

}  // namespace FX_Algen::cli
