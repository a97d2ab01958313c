#include <map>
#include <set>
#include <utility>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/ChartData.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/AssessmentRun.h"
#include "fxalgen/Charts.h"
#include "fxalgen/Progress.h"
#include "fxalgen/Words.h"

namespace FX_Algen::cli {

namespace {

/// The number with which `ReadDominanceChart` says that there is no list.
constexpr std::int32_t ListNotBuilt = ErrorNumber::NoCurrentRecord;

/// Names of taxa of the mixed stands, each once, that are no findings of the sub-habitat's sites: the list
/// goes by the findings and adds the shares of the stands to them.
std::vector<std::string> StandTaxaWithoutFinding(store::Database& database, std::int32_t ID_TR) {
    const std::string id = store::NumberText(ID_TR);
    std::set<std::pair<std::int32_t, bool>> found;
    const auto key = [](const store::Recordset& row) {
        const store::Value& CF = row["CF"];
        return std::pair(row["ID_ART"].I4(), !CF.IsNull() && CF.Bool());
    };
    const auto findings = database.OpenRecordset(
        "SELECT awaArtPrStelle.ID_ART, awaArtPrStelle.CF FROM awaPrStelle INNER JOIN awaArtPrStelle ON "
        "awaPrStelle.ID_PS = awaArtPrStelle.ID_PS WHERE awaPrStelle.ID_TR=" +
        id + ";");
    for (; !findings->Eof(); findings->MoveNext()) found.insert(key(*findings));
    const auto rows = database.OpenRecordset(
        "SELECT awaArtPrStelle_MI.ID_ART, awaArtPrStelle_MI.CF, awaArt.Gattung, awaArt.Art FROM "
        "(awaTeilraum_MI INNER JOIN awaArtPrStelle_MI ON awaTeilraum_MI.ID_TR_MI = "
        "awaArtPrStelle_MI.ID_TR_MI) LEFT JOIN awaArt ON awaArtPrStelle_MI.ID_ART = awaArt.ID_ART "
        "WHERE awaTeilraum_MI.ID_TR=" +
        id + " AND awaArtPrStelle_MI.DG_MI>0 ORDER BY awaArt.Gattung, awaArt.Art;");
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!found.insert(key(*rows)).second) continue;
        const auto part = [&](const char* field) {
            return (*rows)[field].IsNull() ? std::string() : (*rows)[field].Text();
        };
        names.push_back(part("Gattung") + (key(*rows).second ? " cf. " : " ") + part("Art") + " (ID_ART " +
                        (*rows)["ID_ART"].Text() + ")");
    }
    return names;
}

/// The charts of one call, project by project.
class DominanceRun {
public:
    DominanceRun(const ChartSource& source, const DominanceOptions& options)
        : source_(source), options_(options) {}

    void Draw(const Teilraum& teilraum) {
        if (!teilraum.HatAlgen) {
            ++withoutSample_;
            return;
        }
        if (teilraum.ID_PRJ.IsNull()) {
            Fail(teilraum, "the project tree above it is broken, so that it is in no frequency list");
            return;
        }
        const std::int32_t project = teilraum.ID_PRJ.I4();
        if (const auto known = withoutList_.find(project); known != withoutList_.end()) {
            Fail(teilraum, known->second);
            return;
        }
        try {
            charts::Chart chart = ReadDominanceChart(Request(teilraum, project));
            listed_ = project;
            WarnOfFindings(teilraum);
            Keep(teilraum, std::move(chart));
        } catch (const Error& error) {
            Note(teilraum, project, error);
        }
    }

    ChartSet Take() {
        if (withoutSample_ > 0) {
            set_.Messages.push_back("warning: " + store::NumberText(withoutSample_) +
                                    (withoutSample_ == 1 ? " sub-habitat has" : " sub-habitats have") +
                                    " no algae sample (no row in awaTeilraum) and no chart");
        }
        if (set_.Charts.empty()) {
            set_.Messages.emplace_back("there is nothing to draw, and no picture was written");
        }
        return std::move(set_);
    }

private:
    DominanceRequest Request(const Teilraum& teilraum, std::int32_t project) const {
        DominanceRequest request;
        request.Database = source_.Database;
        request.DBName = source_.DBName;
        request.SprachID = source_.SprachID;
        request.ProjektID = project;
        request.TeilraumID = teilraum.ID_TR;
        request.Algenart = options_.Diatoms ? 2 : 1;
        request.MaxDomWert = options_.MaxDomWert;
        request.Rebuild = listed_ != project;
        request.Stelle = teilraum.Label(source_.SprachID);
        return request;
    }

    void Keep(const Teilraum& teilraum, charts::Chart chart) {
        if (chart.Sites.empty()) {
            Warn(teilraum, "no " + std::string(options_.Diatoms ? "diatom" : "alga other than diatoms") +
                               " above " + store::NumberText(options_.MaxDomWert) + " %, and so no chart");
            return;
        }
        set_.Charts.push_back(std::move(chart));
    }

    /// A list that could not be made fails for each sub-habitat of the project, and is not tried again. Any
    /// other failure concerns the sub-habitat alone.
    void Note(const Teilraum& teilraum, std::int32_t project, const Error& error) {
        if (error.Number() == ListNotBuilt) {
            listed_.reset();
            withoutList_[project] = WhyNoList(project, error);
            Fail(teilraum, withoutList_[project]);
            return;
        }
        listed_ = project;
        AssessmentSite site;
        site.ID_TR = teilraum.ID_TR;
        const auto why = WhyNotListed(source_.Database, site);
        Fail(teilraum, why ? *why : error.Description() + " (" + store::NumberText(error.Number()) + ")");
    }

    /// One sub-habitat with a gap ends the list of its whole project.
    std::string WhyNoList(std::int32_t project, const Error& error) const {
        const std::string list = "the frequency list of Projekt:" + store::NumberText(project) + " ";
        for (const Teilraum& other : ReadTeilraeume(*source_.Database, {Scope::Kind::Projekt, project})) {
            if (const auto taxon = UncountedDiatom(source_.Database, other.ID_TR)) {
                return list + "ends at " + other.Label() + ": the valves of " + *taxon +
                       " were not entered (awaArtPrStelle.Schalen_KA is Null) while other diatoms were "
                       "counted";
            }
        }
        return list +
               "could not be made; a cover or a number of valves may be missing (Null), or no sub-habitat of "
               "it has a sampling site: " +
               error.Description() + " (" + store::NumberText(error.Number()) + ")";
    }

    void WarnOfFindings(const Teilraum& teilraum) {
        WarnOfNames(
            teilraum, AllTaxaWithoutMajorGroup(*source_.Database, teilraum.ID_TR),
            "the taxonomy leads to no major group (awaUnterFam, awaFamilie, awaGrossGr), and so these "
            "findings are not shown:");
        if (options_.Diatoms) return;
        WarnOfNames(
            teilraum, StandTaxaWithoutFinding(*source_.Database, teilraum.ID_TR),
            "the mixed stands hold taxa that are no findings of the sampling site (awaArtPrStelle), and "
            "so they are not shown:");
    }

    void WarnOfNames(const Teilraum& teilraum, const std::vector<std::string>& names, std::string text) {
        if (names.empty()) return;
        for (const std::string& name : names) text += "\n    " + name;
        Warn(teilraum, text);
    }

    void Warn(const Teilraum& teilraum, const std::string& text) {
        set_.Messages.push_back("warning: " + teilraum.Label() + ": " + text);
    }
    void Fail(const Teilraum& teilraum, const std::string& text) {
        set_.Messages.push_back(teilraum.Label() + ": " + text);
        set_.Failed = true;
    }

    const ChartSource& source_;
    const DominanceOptions& options_;
    ChartSet set_;
    std::int32_t withoutSample_ = 0;
    std::optional<std::int32_t> listed_;  ///< the project whose list is in the database
    std::map<std::int32_t, std::string> withoutList_;
};

}  // namespace

ChartSet DominanceCharts(const ChartSource& source, const std::vector<Teilraum>& list,
                         const DominanceOptions& options, Streams& streams) {
    DominanceRun run(source, options);
    {
        Progress progress(streams, Text(words::ChartProgress, source.SprachID), list.size());
        std::size_t done = 0;
        for (const Teilraum& teilraum : list) {
            progress.Show(done++);
            run.Draw(teilraum);
        }
    }
    return run.Take();
}

}  // namespace FX_Algen::cli
