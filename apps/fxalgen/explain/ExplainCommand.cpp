#include <CLI/CLI.hpp>
#include <ostream>
#include <sstream>

#include "FX_Algen/Explain.h"
#include "fxalgen/Commands.h"
#include "fxalgen/Scope.h"
#include "fxalgen/explain/AssessmentText.h"
#include "fxalgen/explain/ExplanationText.h"
#include "fxalgen/explain/SestonText.h"

namespace FX_Algen::cli {

namespace {

class ExplainCommand : public Command {
public:
    std::string_view Name() const override { return "explain"; }
    std::string_view Description() const override {
        return "Tell finding by finding how indices and class of one sub-habitat come about.";
    }
    std::string_view Example() const override {
        return "  fxalgen explain project.db Teilraum:17\n"
               "  fxalgen explain project.db Teilraum:17 --format json --lang en";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", path_, "Project database")->required();
        app.add_option("TEILRAUM", scope_, "The sub-habitat: Teilraum:<ID_TR>")->required();
        app.add_option("--format", format_, "text for people or json (default text)")
            ->check(CLI::IsMember({"text", "json"}));
    }

    Exit Execute(Streams& streams) override {
        const Scope scope = ParseScope(scope_);
        if (scope.What != Scope::Kind::Teilraum) {
            throw UsageError("'" + scope_ + "' is no sub-habitat; write Teilraum:<ID_TR>");
        }
        const store::DatabasePtr database = store::Workspace().OpenDatabase(path_);
        const std::vector<Teilraum> list = ReadTeilraeume(*database, scope);
        const Explanation explanation = Explain(database, list.front().ID_TR);
        const AssessedSite site = ReadAssessments(database, list.front().ID_TR);
        const std::optional<SestonExplanation> seston = ReadSeston(database, list.front().ID_TR);
        if (format_ == "json") {
            Json json = ExplanationAsJson(explanation);
            json["Assessments"] = AssessmentsAsJson(site);
            json["AssessmentsFailed"] = FailureAsJson(site.Failed);
            json["LastRunFailed"] = FailureAsJson(site.LastRun);
            json["Seston"] = SestonAsJson(seston);
            streams.Out << json.dump(2) << '\n';
        } else if (seston && IsWithoutAlgae(explanation, site)) {
            PrintHead(streams.Out, list.front(), SprachID());
            PrintSeston(streams.Out, *seston, SprachID());
        } else {
            std::ostringstream assessments;
            PrintAssessments(assessments, site, explanation, SprachID());
            PrintExplanation(streams.Out, explanation, list.front(), SprachID(), assessments.str());
            if (seston) {
                streams.Out << '\n';
                PrintSeston(streams.Out, *seston, SprachID());
            }
        }
        if (!site.Failed) return Exit::Done;
        streams.Err << "fxalgen explain: the stored assessments are not explained: "
                    << site.Failed->Description << " (" << site.Failed->Number << ")\n";
        return Exit::Failed;
    }

private:
    /// Neither sampled for algae nor with anything left of a time when it was.
    static bool IsWithoutAlgae(const Explanation& explanation, const AssessedSite& site) {
        return !explanation.Sampled && explanation.State == StoredResult::Missing &&
               site.Assessments.empty() && !site.Failed && !site.LastRun;
    }

    std::string path_;
    std::string scope_;
    std::string format_ = "text";
};

}  // namespace

std::unique_ptr<Command> MakeExplainCommand() { return std::make_unique<ExplainCommand>(); }

}  // namespace FX_Algen::cli
