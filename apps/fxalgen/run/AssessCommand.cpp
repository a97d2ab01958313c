#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Commands.h"
#include "fxalgen/Progress.h"
#include "fxalgen/Scope.h"
#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/record/Lauf.h"
#include "fxalgen/run/AssessmentRun.h"

namespace FX_Algen::cli {

namespace {

constexpr std::int32_t NotListedNumber = ErrorNumber::UnknownField;

/// What became of the sub-habitats of a scope, and what is to be told of them once the progress bar is gone.
struct Outcome {
    std::int32_t Done = 0;         ///< assessed, or checked and found in order
    std::int32_t DiatomsOnly = 0;  ///< of these from the diatoms alone
    std::int32_t WithoutAlgae = 0;
    std::int32_t Lacking = 0;  ///< assessed with reference rows missing, or found not in order
    std::int32_t Failed = 0;
    std::vector<std::string> Messages;

    void Warn(const std::string& text) { Messages.push_back("warning: " + text); }
    void Fail(const Teilraum& teilraum, const Error& error) {
        ++Failed;
        Messages.push_back(teilraum.Label() + ": " + error.Description() + " (" +
                           store::NumberText(error.Number()) + ")");
    }
};

/// A sub-habitat and what the pre-check says of it.
struct Verdict {
    const Teilraum* Where;
    std::string Text;
};

class AssessCommand : public Command {
public:
    std::string_view Name() const override { return "assess"; }
    std::string_view Description() const override {
        return "Assess the ecological status of sub-habitats under the Water Framework Directive.";
    }
    std::string_view Example() const override {
        return "  fxalgen assess project.db --check\n"
               "  fxalgen assess project.db --scope Projekt:1 --lang en\n"
               "  fxalgen results project.db --wrrl";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", path_, "Project database")->required();
        app.add_option("--scope", scope_,
                       "Sub-habitats to assess: Projekt:<ID_PRJ>, UStelle:<ID_UUS>, "
                       "Rechenmanager:<ID_RechMan> or Teilraum:<ID_TR>; without it all of them");
        app.add_flag("--check", check_,
                     "Only check whether the reference tables hold the expected values that each sub-habitat "
                     "needs; results stay as they are");
    }

    Exit Execute(Streams& streams) override {
        const Scope scope = scope_ ? ParseScope(*scope_) : Scope{};
        const auto workspace = std::make_shared<store::Workspace>();
        database_ = workspace->OpenDatabase(path_);
        const std::vector<Teilraum> list = ReadTeilraeume(*database_, scope);
        WarnOfEmptyScope(Name(), scope_, list, streams.Err);
        ps_.CurrentWS(workspace);
        ps_.CurrentDB(database_);
        ps_.DBName(path_);
        ps_.SprachID(SprachID());
        return check_ ? Check(list, streams) : Assess(list, streams);
    }

private:
    // ---- assessment ------------------------------------------------------------------------------------

    Exit Assess(const std::vector<Teilraum>& list, Streams& streams) {
        ps_.Berechnung_WRRLInit();
        LaufBeginnen(*database_);
        AssessmentDigests digests(database_);
        Outcome outcome;
        {
            Progress progress(streams, ps_.Berechnung_Statustext(), list.size());
            std::size_t done = 0;
            for (const Teilraum& teilraum : list) {
                progress.Show(done++);
                if (teilraum.HatAlgen) {
                    AssessOne(teilraum, digests, outcome);
                } else {
                    ++outcome.WithoutAlgae;
                }
            }
        }
        streams.Out << WithNumber(words::Assessed, SprachID(), outcome.Done) << '\n';
        Line(streams, words::FromDiatomsAlone, outcome.DiatomsOnly);
        Line(streams, words::NotAssessed, outcome.WithoutAlgae);
        Line(streams, words::WithMissingReferences, outcome.Lacking);
        Line(streams, words::Failed, outcome.Failed);
        Tell(outcome, streams);
        return outcome.Failed == 0 ? Exit::Done : Exit::Failed;
    }

    void AssessOne(const Teilraum& teilraum, AssessmentDigests& digests, Outcome& outcome) {
        bool KAOnly = false;
        try {
            const AssessmentSite site = ReadAssessmentSite(database_, teilraum.ID_TR);
            WarnOfStation(teilraum, site, outcome);
            RequireCountedDiatoms(database_, teilraum.ID_TR);
            const std::string sample = digests.OfSample(site);
            Run(site, KAOnly);
            const bool diatomsOnly = FromDiatoms(teilraum.ID_TR);
            BewertungNotieren(*database_, digests, site, KAOnly, sample);
            KAOnly = true;
            Run(site, KAOnly);
            BewertungNotieren(*database_, digests, site, KAOnly, sample);
            ++outcome.Done;
            if (diatomsOnly) ++outcome.DiatomsOnly;
            WarnOfReferences(teilraum, site, outcome);
            WarnOfTaxonomy(teilraum, outcome);
        } catch (const Error& error) {
            BewertungNotieren(*database_, teilraum.ID_TR, KAOnly, error);
            outcome.Fail(teilraum, error);
        }
    }

    /// One run. Where the list lacks the sub-habitat, all counts were 0 and what they led to is no
    /// assessment: it is taken out, so that nothing shows it as a class.
    void Run(const AssessmentSite& site, bool KAOnly) {
        SetAssessmentContext(ps_, site, KAOnly);
        ps_.Berechnung_WRRL();
        const auto why = WhyNotListed(database_, site);
        if (!why) return;
        const std::string where = " WHERE ID=" + store::NumberText(site.ID_TR) + ";";
        database_->Execute("DELETE * FROM awaErgWRRL" + where);
        database_->Execute("DELETE * FROM awaErgProjekt" + where);
        throw Error(NotListedNumber, *why);
    }

    bool FromDiatoms(std::int32_t ID_TR) {
        const store::Value answer = ps_.CheckIstKA(ID_TR);
        return !answer.IsNull() && answer.Bool();
    }

    void WarnOfReferences(const Teilraum& teilraum, const AssessmentSite& site, Outcome& outcome) const {
        const std::vector<ReferenceLookup> missing = MissingReferences(database_, site);
        if (missing.empty()) return;
        ++outcome.Lacking;
        std::string text = teilraum.Label() + ": no row in";
        for (const ReferenceLookup& lookup : missing) text += "\n    " + ReferenceText(lookup);
        outcome.Warn(text);
    }

    void WarnOfTaxonomy(const Teilraum& teilraum, Outcome& outcome) const {
        const std::vector<std::string> names = TaxaWithoutMajorGroup(*database_, teilraum.ID_TR);
        if (names.empty()) return;
        std::string text =
            teilraum.Label() +
            ": the taxonomy leads to no major group (awaUnterFam, awaFamilie, awaGrossGr), and "
            "so these findings were not counted:";
        for (const std::string& name : names) text += "\n    " + name;
        outcome.Warn(text);
    }

    // ---- pre-check -------------------------------------------------------------------------------------

    Exit Check(const std::vector<Teilraum>& list, Streams& streams) {
        Outcome outcome;
        std::vector<Verdict> verdicts;
        {
            Progress progress(streams, Text(words::PreCheck, SprachID()), list.size());
            for (const Teilraum& teilraum : list) {
                progress.Show(verdicts.size());
                verdicts.push_back({&teilraum, CheckOne(teilraum, outcome)});
            }
        }
        PrintVerdicts(verdicts, streams);
        streams.Out << WithNumber(words::ChecksPassed, SprachID(), outcome.Done) << '\n';
        Line(streams, words::ChecksNotPassed, outcome.Lacking);
        Line(streams, words::NotAssessed, outcome.WithoutAlgae);
        Line(streams, words::Failed, outcome.Failed);
        Tell(outcome, streams);
        return outcome.Failed == 0 && outcome.Lacking == 0 ? Exit::Done : Exit::Failed;
    }

    std::string CheckOne(const Teilraum& teilraum, Outcome& outcome) {
        if (!teilraum.HatAlgen) {
            ++outcome.WithoutAlgae;
            return Text(words::CheckNoSample, SprachID());
        }
        try {
            const AssessmentSite site = ReadAssessmentSite(database_, teilraum.ID_TR);
            WarnOfStation(teilraum, site, outcome);
            RequireCountedDiatoms(database_, teilraum.ID_TR);
            SetAssessmentContext(ps_, site, false);
            ps_.Berechnung_WRRLArtenlisteTLR();
            if (const auto why = WhyNotListed(database_, site)) throw Error(NotListedNumber, *why);
            ps_.Pruefung_WRRL();
            if (ps_.ExportIsOK()) {
                ++outcome.Done;
                return Text(words::CheckOk, SprachID());
            }
            std::string missing = MissingText(site);
            ++outcome.Lacking;
            return missing;
        } catch (const Error& error) {
            outcome.Fail(teilraum, error);
            return Text(words::CheckFailed, SprachID());
        }
    }

    /// The rows that are missing; the verdict itself is that of `Pruefung_WRRL`.
    std::string MissingText(const AssessmentSite& site) const {
        std::string rows;
        for (const ReferenceLookup& lookup : MissingExpectedValues(database_, site)) {
            rows.append(rows.empty() ? "" : ", ").append(ReferenceText(lookup));
        }
        return With(words::CheckMissing, SprachID(), rows);
    }

    void PrintVerdicts(const std::vector<Verdict>& verdicts, Streams& streams) const {
        if (verdicts.empty()) return;
        Table table;
        table.AddColumn("ID", Table::Align::Right);
        for (const std::int16_t caption :
             {words::Stelle, words::Datum, words::Teilraum, words::PreCheckColumn}) {
            table.AddColumn(Text(caption, SprachID()), Table::Align::Left);
        }
        for (const auto& [where, text] : verdicts) {
            table.AddRow({store::NumberText(where->ID_TR), DisplayText(where->USBez, SprachID()),
                          DisplayText(where->USDatumVon, SprachID()), DisplayText(where->TRBez, SprachID()),
                          text});
        }
        streams.Out << Text(words::PreCheck, SprachID()) << "\n\n";
        table.Print(streams.Out, 2);
        streams.Out << '\n';
    }

    // ---- both ------------------------------------------------------------------------------------------

    void WarnOfStation(const Teilraum& teilraum, const AssessmentSite& site, Outcome& outcome) {
        for (const std::string& warning : stations_.Of(teilraum, site)) outcome.Warn(warning);
    }

    void Line(Streams& streams, std::int16_t offset, std::int32_t number) const {
        if (number > 0) streams.Out << WithNumber(offset, SprachID(), number) << '\n';
    }

    static void Tell(const Outcome& outcome, Streams& streams) {
        for (const std::string& message : outcome.Messages) {
            streams.Err << "fxalgen assess: " << message << '\n';
        }
    }

    std::string path_;
    std::optional<std::string> scope_;
    bool check_ = false;
    AL_PS ps_;
    store::DatabasePtr database_;
    StationWarnings stations_;
};

}  // namespace

std::unique_ptr<Command> MakeAssessCommand() { return std::make_unique<AssessCommand>(); }

}  // namespace FX_Algen::cli
