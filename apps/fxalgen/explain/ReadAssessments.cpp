#include "FX_Algen/Error.h"
#include "fxalgen/explain/AssessmentText.h"
#include "fxalgen/record/Lauf.h"

namespace FX_Algen::cli {

namespace {

bool Assessed(store::Database& database, const std::string& id) {
    return !database.OpenRecordset("SELECT ID FROM awaErgWRRL WHERE ID=" + id + ";")->Eof();
}

/// Names by key from the first two fields of a statement.
std::map<std::int32_t, std::string> Names(store::Database& database, const std::string& statement) {
    std::map<std::int32_t, std::string> names;
    const auto rows = database.OpenRecordset(statement);
    for (; !rows->Eof(); rows->MoveNext()) {
        const store::Value& name = (*rows)[std::size_t{1}];
        names.emplace((*rows)[std::size_t{0}].I4(), name.IsNull() ? std::string() : name.Text());
    }
    return names;
}

void ReadTaxa(const store::DatabasePtr& database, AssessedSite& site) {
    const auto read = [&](std::int32_t ID_ART) {
        if (!site.Taxa.contains(ID_ART)) site.Taxa.emplace(ID_ART, TaxonName(database, ID_ART));
    };
    for (const ExplainedAssessment& assessment : site.Assessments) {
        const AssessmentTrace& trace = assessment.Trace;
        if (trace.Column) {
            for (const ListedFinding& finding : trace.Column->Findings) read(finding.ID_ART);
        }
        if (trace.ReferenceSpecies) {
            for (const CountedTaxon& taxon : trace.ReferenceSpecies->Taxa) read(taxon.ID_ART);
        }
    }
}

}  // namespace

AssessedSite ReadAssessments(const store::DatabasePtr& database, std::int32_t ID_TR) {
    AssessedSite site;
    const std::string id = store::NumberText(ID_TR);
    if (!Assessed(*database, id)) {
        if (const auto noted = FehlschlagOhneZeile(*database, ID_TR)) {
            site.LastRun = Explanation::Failure{*noted->Fehlernummer, noted->Fehlertext};
        }
        return site;
    }
    try {
        site.Site = ReadAssessmentSite(database, ID_TR);
    } catch (const Error& error) {
        site.Failed = Explanation::Failure{error.Number(), error.Description()};
        return site;
    }
    site.Assessments = ExplainAssessments(database, *site.Site);
    ReadTaxa(database, site);
    site.Places = Names(*database, "SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_TR=" + id + ";");
    site.Stands = Names(*database, "SELECT ID_TR_MI, MI_Bez FROM awaTeilraum_MI WHERE ID_TR=" + id + ";");
    return site;
}

}  // namespace FX_Algen::cli
