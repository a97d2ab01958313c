#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Commands.h"
#include "fxalgen/Progress.h"
#include "fxalgen/Scope.h"
#include "fxalgen/Words.h"
#include "fxalgen/record/Lauf.h"
#include "fxalgen/record/Seston.h"

namespace FX_Algen::cli {

namespace {

struct Failure {
    const Teilraum* Where;
    std::int32_t Number;
    std::string Description;
};

/// What became of the sub-habitats of a run.
struct Outcome {
    std::int32_t Calculated = 0;
    std::int32_t WithoutSample = 0;  ///< of algae not calculated, of seston calculated to zeros
    std::vector<Failure> Failures;
};

std::int32_t OrZero(const store::Value& value) { return value.IsNull() ? 0 : value.I4(); }

class CalculateCommand : public Command {
public:
    std::string_view Name() const override { return "calculate"; }
    std::string_view Description() const override {
        return "Calculate the indices of sub-habitats into the result table, which holds the last run only.";
    }
    std::string_view Example() const override {
        return "  fxalgen calculate project.db\n"
               "  fxalgen calculate project.db --scope Projekt:1 --lang en\n"
               "  fxalgen calculate project.db --seston";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", path_, "Project database")->required();
        app.add_option("--scope", scope_,
                       "Sub-habitats to calculate: Projekt:<ID_PRJ>, UStelle:<ID_UUS>, "
                       "Rechenmanager:<ID_RechMan> or Teilraum:<ID_TR>; without it all of them");
        CLI::Option* seston =
            app.add_flag("--seston", seston_,
                         "Seston indices instead of those of the algae, into a result table of their own");
        app.add_flag("--wrrl", wrrl_,
                     "Assessment variant: covers and taxa as the Water Framework Directive asks")
            ->excludes(seston);
    }

    Exit Execute(Streams& streams) override {
        const Scope scope = scope_ ? ParseScope(*scope_) : Scope{};
        const auto workspace = std::make_shared<store::Workspace>();
        const store::DatabasePtr database = workspace->OpenDatabase(path_);
        const std::vector<Teilraum> list = ReadTeilraeume(*database, scope);
        WarnOfEmptyScope(Name(), scope_, list, streams.Err);

        AL_PS ps;
        ps.CurrentWS(workspace);
        ps.CurrentDB(database);
        ps.DBName(path_);
        ps.SprachID(SprachID());
        const Outcome outcome =
            seston_ ? RunSeston(ps, *database, list, streams) : RunAlgae(ps, *database, list, streams);
        Report(outcome, streams);
        return outcome.Failures.empty() ? Exit::Done : Exit::Failed;
    }

private:
    /// An instance never forgets, so that every member that a calculation may read is set for each
    /// sub-habitat. `RefBioregion` belongs to the assessment and stays empty.
    void SetContext(AL_PS& ps, const Teilraum& teilraum) const {
        ps.TeilraumID(teilraum.ID_TR);
        ps.AktUebersicht("Projekt");
        ps.ProjektID(OrZero(teilraum.ID_PRJ));
        ps.TaxaAuswahl("");
        ps.USTAuswahl(false);
        ps.KAOnly(false);
        ps.IstWRRLBerechnung(wrrl_);
        ps.ValenzGewicht(false);
        ps.DebugModus(false);
        ps.SilentModus(true);
        ps.BioregionID(OrZero(teilraum.ID_AL_Bioregion));
        ps.Hoehenstufe(teilraum.Hoehenstufe.IsNull() ? std::int16_t{0} : teilraum.Hoehenstufe.I2());
        ps.RefBioregion("");
    }

    Outcome RunAlgae(AL_PS& ps, store::Database& database, const std::vector<Teilraum>& list,
                     Streams& streams) const {
        ps.Berechnung_Init();
        LaufBeginnen(database);
        Outcome outcome;
        Progress progress(streams, ps.Berechnung_Statustext(), list.size());
        std::size_t done = 0;
        for (const Teilraum& teilraum : list) {
            progress.Show(done++);
            SetContext(ps, teilraum);
            try {
                ps.Berechnung_Execute();
                LaufNotieren(database, teilraum.ID_TR);
                ++(teilraum.HatAlgen ? outcome.Calculated : outcome.WithoutSample);
            } catch (const Error& error) {
                outcome.Failures.push_back({&teilraum, error.Number(), error.Description()});
                LaufNotieren(database, teilraum.ID_TR, error);
            }
        }
        return outcome;
    }

    /// Every sub-habitat of the scope gets a row: one of zeros where it has no seston.
    Outcome RunSeston(AL_PS& ps, store::Database& database, const std::vector<Teilraum>& list,
                      Streams& streams) const {
        ps.Berechnung_InitSeston();
        SestonLaufBeginnen(database);
        const std::set<std::int32_t> withSeston = TeilraeumeMitSeston(database);
        Outcome outcome;
        Progress progress(streams, ps.Berechnung_Statustext(), list.size());
        std::size_t done = 0;
        for (const Teilraum& teilraum : list) {
            progress.Show(done++);
            SetContext(ps, teilraum);
            try {
                const std::string inputs = DigestOfSeston(database, teilraum.ID_TR);
                ps.Berechnung_ExecuteSeston();
                SestonNotieren(database, teilraum.ID_TR, inputs);
                ++(withSeston.contains(teilraum.ID_TR) ? outcome.Calculated : outcome.WithoutSample);
            } catch (const Error& error) {
                outcome.Failures.push_back({&teilraum, error.Number(), error.Description()});
                SestonNotieren(database, teilraum.ID_TR, error);
            }
        }
        return outcome;
    }

    void Report(const Outcome& outcome, Streams& streams) const {
        streams.Out << WithNumber(words::Calculated, SprachID(), outcome.Calculated) << '\n';
        if (outcome.WithoutSample > 0) {
            streams.Out << WithNumber(seston_ ? words::WithoutSeston : words::WithoutAlgae, SprachID(),
                                      outcome.WithoutSample)
                        << '\n';
        }
        if (outcome.Failures.empty()) return;
        streams.Out << WithNumber(words::Failed, SprachID(),
                                  static_cast<std::int32_t>(outcome.Failures.size()))
                    << '\n';
        for (const Failure& failure : outcome.Failures) {
            streams.Err << "fxalgen calculate: " << failure.Where->Label() << ": " << failure.Description
                        << " (" << failure.Number << ")\n";
        }
    }

    std::string path_;
    std::optional<std::string> scope_;
    bool seston_ = false;
    bool wrrl_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeCalculateCommand() { return std::make_unique<CalculateCommand>(); }

}  // namespace FX_Algen::cli
