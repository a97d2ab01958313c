#include "fxalgen/run/AssessmentRun.h"

#include <algorithm>
#include <string_view>

#include "FX_Algen/Error.h"

namespace FX_Algen::cli {

namespace {

/// A link of the project tree upward: the field that names the row above, and what that row is.
struct Link {
    std::string_view Field;
    std::string_view Above;
    std::string_view Found;  ///< field of the statement below that is Null where the row above is missing
};

constexpr Link Links[] = {
    {"Teilraum.ID_VUS", "visit", "Besuch"},
    {"VerUStelle.ID_UUS", "station", "Stelle"},
    {"UnvUStelle.ID_AB", "section", "Strecke"},
    {"Abschnitt.ID_PRJ", "project", "Vorhaben"},
};

bool HasSamplingSite(store::Database& database, const std::string& id) {
    return !database.OpenRecordset("SELECT ID_PS FROM awaPrStelle WHERE ID_TR=" + id + ";")->Eof();
}

/// The first link of the tree above the sub-habitat that leads nowhere.
std::string BrokenLink(store::Database& database, const std::string& id) {
    const auto row = database.OpenRecordset(
        "SELECT VerUStelle.ID_VUS AS Besuch, UnvUStelle.ID_UUS AS Stelle, Abschnitt.ID_AB AS Strecke, "
        "Projekt.ID_PRJ AS Vorhaben "
        "FROM (((Teilraum LEFT JOIN VerUStelle ON Teilraum.ID_VUS = VerUStelle.ID_VUS) "
        "LEFT JOIN UnvUStelle ON VerUStelle.ID_UUS = UnvUStelle.ID_UUS) "
        "LEFT JOIN Abschnitt ON UnvUStelle.ID_AB = Abschnitt.ID_AB) "
        "LEFT JOIN Projekt ON Abschnitt.ID_PRJ = Projekt.ID_PRJ WHERE Teilraum.ID_TR=" +
        id + ";");
    for (const Link& link : Links) {
        if (row->Eof() || (*row)[link.Found].IsNull()) {
            return "the project tree above it is broken: " + std::string(link.Field) + " leads to no " +
                   std::string(link.Above);
        }
    }
    return "the list could not be built";
}

constexpr std::string_view Findings =
    "(awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) ";

/// `findings` are the joined tables of the findings to look at, `condition` is what a finding must meet
/// besides.
std::vector<std::string> NamesWithoutMajorGroup(store::Database& database, std::int32_t ID_TR,
                                                const std::string& findings, const std::string& condition) {
    const auto rows = database.OpenRecordset(
        "SELECT DISTINCT awaArt.Gattung, awaArt.Art, awaArtPrStelle.ID_ART FROM (((" + findings +
        "LEFT JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART) "
        "LEFT JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
        "LEFT JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
        "LEFT JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR "
        "WHERE awaPrStelle.ID_TR=" +
        store::NumberText(ID_TR) + condition +
        " AND awaGrossGr.ID_GRGR Is Null "
        "ORDER BY awaArt.Gattung, awaArt.Art, awaArtPrStelle.ID_ART;");
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto part = [&](const char* field) {
            return (*rows)[field].IsNull() ? std::string() : (*rows)[field].Text();
        };
        const bool known = !(*rows)["Gattung"].IsNull() || !(*rows)["Art"].IsNull();
        names.push_back(known ? part("Gattung") + " " + part("Art") : "ID_ART " + (*rows)["ID_ART"].Text());
    }
    return names;
}

}  // namespace

void SetAssessmentContext(AL_PS& ps, const AssessmentSite& site, bool KAOnly) {
    SetAssessmentSite(ps, site);
    ps.TaxaAuswahl("");
    ps.RechPrjName("");
    ps.IstWRRLBerechnung(true);
    ps.KAOnly(KAOnly);
    ps.IstWGEV07(false);
    ps.ValenzGewicht(false);
    ps.DebugModus(false);
    ps.SilentModus(true);
    ps.Pbar_SBFormhWnd(0);
}

void RequireCountedDiatoms(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const auto taxon = UncountedDiatom(database, ID_TR);
    if (!taxon) return;
    throw Error(
        ErrorNumber::InvalidUseOfNull,
        "the valves of " + *taxon +
            " were not entered (awaArtPrStelle.Schalen_KA is Null) while other diatoms were counted: the "
            "frequency list would end there");
}

std::optional<std::string> WhyNotListed(const store::DatabasePtr& database, const AssessmentSite& site) {
    if (HasFrequencyColumn(database, site.ID_TR)) return std::nullopt;
    const std::string id = store::NumberText(site.ID_TR);
    return "it has no place in the frequency list, so that nothing of it was counted: " +
           (HasSamplingSite(*database, id) ? BrokenLink(*database, id)
                                           : "it has no sampling site (no row in awaPrStelle)");
}

std::vector<std::string> TaxaWithoutMajorGroup(store::Database& database, std::int32_t ID_TR) {
    return NamesWithoutMajorGroup(
        database, ID_TR,
        "(" + std::string(Findings) +
            "INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = awaModulStandard.ID_ART) ",
        " AND awaModulStandard.Lebensform=1");
}

std::vector<std::string> AllTaxaWithoutMajorGroup(store::Database& database, std::int32_t ID_TR) {
    return NamesWithoutMajorGroup(database, ID_TR, std::string(Findings), "");
}

std::string ReferenceText(const ReferenceLookup& lookup) {
    std::string keys;
    for (const LookupKey& key : lookup.Keys) {
        keys.append(keys.empty() ? "" : ", ").append(key.Column).append("=").append(key.Value);
    }
    return lookup.Table + " (" + keys + ")";
}

std::vector<std::string> StationWarnings::Of(const Teilraum& teilraum, const AssessmentSite& site) {
    if (teilraum.ID_UUS.IsNull()) return {};
    const std::int32_t id = teilraum.ID_UUS.I4();
    if (std::find(seen_.begin(), seen_.end(), id) != seen_.end()) return {};
    seen_.push_back(id);
    const std::string water =
        teilraum.Gewaessername.IsNull() ? "" : " (" + teilraum.Gewaessername.Text() + ")";
    const std::string station = "station '" + site.USBez + "'" + water;
    const auto field = [&](const char* name) {
        return " (UnvUStelle." + std::string(name) + ", ID_UUS " + store::NumberText(id) + ")";
    };
    std::vector<std::string> warnings;
    if (teilraum.ID_AL_Bioregion.IsNull()) {
        warnings.push_back(station + " has no bioregion" + field("ID_AL_Bioregion"));
    }
    if (teilraum.Hoehenstufe.IsNull()) {
        warnings.push_back(station + " has no altitude step" + field("ID_AL_Hoehenstufe"));
    }
    if (site.RefBioregion.empty()) {
        warnings.push_back(station + " lists no reference bioregion" + field("RefBioregionen") +
                           ": all reference species of type B count");
    }
    for (const std::string& element : site.UnknownSteps) {
        warnings.push_back(station + " lists '" + element + "'" + field("RefBioregionen") +
                           ", and AL_Hoehenstufe has no such altitude step: no reference species of type B "
                           "may count by it");
    }
    return warnings;
}

}  // namespace FX_Algen::cli
