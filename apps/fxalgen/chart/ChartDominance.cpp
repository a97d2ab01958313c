#include <map>
#include <set>
#include <utility>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/ChartData.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Progress.h"
#include "fxalgen/Words.h"
#include "fxalgen/chart/ChartList.h"
#include "fxalgen/chart/Charts.h"
#include "fxalgen/run/AssessmentRun.h"

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

/// The charts of one call, list by list.
class DominanceRun {
public:
    DominanceRun(const ChartSource& source, const DominanceOptions& options)
        : source_(source), options_(options), scopes_(source.Database) {}

    void Draw(const Teilraum& teilraum) {
        if (!teilraum.HatAlgen) {
            ++withoutSample_;
            return;
        }
        const auto scope = scopes_.Of(teilraum);
        if (!scope) {
            Fail(teilraum, "the project tree above it is broken, so that it is in no frequency list");
            return;
        }
        if (const auto known = withoutList_.find(*scope); known != withoutList_.end()) {
            Fail(teilraum, known->second);
            return;
        }
        try {
            charts::Chart chart = ReadDominanceChart(Request(teilraum, *scope));
            listed_ = scope;
            WarnOfFindings(teilraum);
            Keep(teilraum, std::move(chart));
        } catch (const Error& error) {
            Note(teilraum, *scope, error);
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
    DominanceRequest Request(const Teilraum& teilraum, const ListScope& scope) const {
        DominanceRequest request;
        request.Database = source_.Database;
        request.DBName = source_.DBName;
        request.SprachID = source_.SprachID;
        request.AktUebersicht = scope.Word();
        request.ProjektID = scope.ID;
        request.TeilraumID = teilraum.ID_TR;
        request.Algenart = options_.Diatoms ? 2 : 1;
        request.MaxDomWert = options_.MaxDomWert;
        request.Rebuild = listed_ != scope;
        request.Stelle = teilraum.Label(source_.SprachID);
        return request;
    }

    void Keep(const Teilraum& teilraum, charts::Chart chart) {
        if (chart.Sites.empty()) {
            const auto why = WhyNoAbundance(*source_.Database, teilraum.ID_TR, options_.Diatoms);
            Warn(teilraum, "no " + std::string(options_.Diatoms ? "diatom" : "alga other than diatoms") +
                               " above " + store::NumberText(options_.MaxDomWert) + " %, and so no chart" +
                               (why ? ": " + *why : ""));
            return;
        }
        set_.Charts.push_back(std::move(chart));
    }

    /// A list that could not be made fails for each sub-habitat of its scope, and is not tried again. Any
    /// other failure concerns the sub-habitat alone.
    void Note(const Teilraum& teilraum, const ListScope& scope, const Error& error) {
        if (error.Number() == ListNotBuilt) {
            listed_.reset();
            withoutList_[scope] = WhyNoList(*source_.Database, scope);
            Fail(teilraum, withoutList_[scope]);
            return;
        }
        listed_ = scope;
        AssessmentSite site;
        site.ID_TR = teilraum.ID_TR;
        const auto why = WhyNotListed(source_.Database, site);
        Fail(teilraum, why ? *why : error.Description() + " (" + store::NumberText(error.Number()) + ")");
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
        WarnOfNames(teilraum, CoveringTaxaTakenForDiatoms(*source_.Database, teilraum.ID_TR),
                    "the frequency list counts the valves of these taxa and not their cover, by their major "
                    "group (awaGrossGr.RF_Kieselalge is not 0), and so they are not shown:");
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
    ListScopes scopes_;
    std::optional<ListScope> listed_;  ///< the scope whose list is in the database
    std::map<ListScope, std::string> withoutList_;
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
