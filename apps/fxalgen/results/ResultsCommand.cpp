#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "FX_Algen/Coverage.h"
#include "fxalgen/Commands.h"
#include "fxalgen/Scope.h"
#include "fxalgen/record/Lauf.h"
#include "fxalgen/record/Seston.h"
#include "fxalgen/results/Results.h"

namespace FX_Algen::cli {

namespace {

constexpr std::string_view NameFields[] = {"PRJBez",        "ABBez",      "USBez",
                                           "Gewaessername", "USDatumVon", "TRBez"};

void AddNames(Record& record, const Teilraum& teilraum) {
    const store::Value* values[] = {&teilraum.PRJBez,        &teilraum.ABBez,      &teilraum.USBez,
                                    &teilraum.Gewaessername, &teilraum.USDatumVon, &teilraum.TRBez};
    static_assert(std::size(NameFields) == std::size(values));
    for (const store::Value* value : values) record.Add(*value);
}

void AddCoverage(Record& record, const Coverage& coverage) {
    const std::optional<double> values[] = {
        coverage.Saprobic.ValvesPercent, coverage.Trophic.ValvesPercent, coverage.Trophic_N.ValvesPercent,
        coverage.Saprobic.CoverPercent,  coverage.Trophic.CoverPercent,  coverage.Trophic_N.CoverPercent};
    static_assert(std::size(CoverageFields) == std::size(values));
    for (const std::optional<double>& value : values) {
        record.Add(value ? store::Value(*value) : store::Value());
    }
}

void AddState(Record& record, const LaufBefund& befund) {
    record.Add(LaufStandText(befund.Stand));
    record.Add(befund.Fehlernummer ? store::Value(*befund.Fehlernummer) : store::Value());
    record.Add(befund.Fehlernummer ? store::Value(befund.Fehlertext) : store::Value());
}

void AddRatedShare(Record& record, store::Database& database, std::int32_t ID_TR) {
    const auto share = AnteilMitSaprobiewert(database, ID_TR);
    record.Add(share ? store::Value(*share) : store::Value());
}

/// A row of zeros, as a calculation leaves it where there is no seston. A failed one has no numbers at all.
bool IsRowOfZeros(const store::Recordset& row) {
    const auto isZero = [&](const char* field) { return !row[field].IsNull() && row[field].R8() == 0; };
    return isZero("Taxa") && isZero("Abundanzsumme");
}

bool IsSet(const store::Value& flag) { return !flag.IsNull() && flag.Bool(); }

std::string SelectRows(const ResultKind& kind, const std::string& condition) {
    return "SELECT * FROM " + std::string(kind.Table) + " WHERE " + condition +
           (kind.HasKAOnly ? " ORDER BY ID, KAOnly;" : " ORDER BY ID;");
}

class ResultsCommand : public Command {
public:
    std::string_view Name() const override { return "results"; }
    std::string_view Description() const override {
        return "Show the results of the last calculation or assessment.";
    }
    std::string_view Example() const override {
        return "  fxalgen results project.db\n"
               "  fxalgen results project.db --wrrl --scope Projekt:1\n"
               "  fxalgen results project.db --seston\n"
               "  fxalgen results project.db --scope UStelle:3 --format csv > results.csv";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", path_, "Project database")->required();
        app.add_option(
               "--format", format_,
               "table for people (rounded), csv or json with full values and field names (default table)")
            ->check(CLI::IsMember({"table", "csv", "json"}));
        app.add_option("--scope", scope_,
                       "Sub-habitats to show: Projekt:<ID_PRJ>, UStelle:<ID_UUS>, Rechenmanager:<ID_RechMan> "
                       "or Teilraum:<ID_TR>; without it all of them");
        CLI::Option* seston = app.add_flag("--seston", seston_, "Seston results");
        app.add_flag("--wrrl", wrrl_, "Results of the assessment")->excludes(seston);
    }

    Exit Execute(Streams& streams) override {
        const Scope scope = scope_ ? ParseScope(*scope_) : Scope{};
        const store::DatabasePtr database = store::Workspace().OpenDatabase(path_);
        const ResultKind& kind = seston_ ? SestonResults() : wrrl_ ? WrrlResults() : ClassicResults();
        const ResultSet results = Read(database, kind, scope, format_ == "table");
        if (scope.What == Scope::Kind::All) WarnOfStrayRows(*database, kind, streams);
        if (format_ == "csv") {
            PrintCsv(streams.Out, results);
        } else if (format_ == "json") {
            PrintJson(streams.Out, results);
        } else {
            PrintTable(streams.Out, kind, results, SprachID());
        }
        return Exit::Done;
    }

private:
    /// `forPeople` leaves out the rows of sub-habitats that have no seston, and counts them.
    static ResultSet Read(const store::DatabasePtr& database, const ResultKind& kind, const Scope& scope,
                          bool forPeople) {
        ResultSet results;
        results.Names = ReadNames(*database, kind);
        Laufpruefung pruefung(database);
        const std::set<std::int32_t> withSeston =
            kind.IsSeston ? TeilraeumeMitSeston(*database) : std::set<std::int32_t>();
        for (const Teilraum& teilraum : ReadTeilraeume(*database, scope)) {
            const auto rows =
                database->OpenRecordset(SelectRows(kind, "ID=" + store::NumberText(teilraum.ID_TR)));
            if (rows->Eof()) NoteWithout(results, *database, kind, teilraum.ID_TR);
            for (; !rows->Eof(); rows->MoveNext()) {
                if (kind.IsSeston && forPeople && !withSeston.contains(teilraum.ID_TR) &&
                    IsRowOfZeros(*rows)) {
                    ++results.WithoutSeston;
                    continue;
                }
                Record record(results.Names);
                Fill(record, database, kind, teilraum, pruefung, *rows);
                results.Records.push_back(std::move(record));
            }
        }
        return results;
    }

    static FieldNames ReadNames(store::Database& database, const ResultKind& kind) {
        std::vector<std::string> names(std::begin(NameFields), std::end(NameFields));
        const auto shape = database.OpenRecordset(SelectRows(kind, "ID=0"));
        for (const store::ResultField& field : shape->Fields()) names.push_back(field.Name);
        if (kind.HasCoverage) {
            names.insert(names.end(), std::begin(CoverageFields), std::end(CoverageFields));
        }
        if (kind.IsSeston) names.emplace_back(RatedShareField);
        if (kind.State) names.insert(names.end(), std::begin(StateFields), std::end(StateFields));
        return std::make_shared<const std::vector<std::string>>(std::move(names));
    }

    static void Fill(Record& record, const store::DatabasePtr& database, const ResultKind& kind,
                     const Teilraum& teilraum, Laufpruefung& pruefung, const store::Recordset& row) {
        AddNames(record, teilraum);
        for (std::size_t i = 0; i < row.Fields().size(); ++i) record.Add(row[i]);
        if (kind.HasCoverage) {
            AddCoverage(record, CoverageOf(database, teilraum.ID_TR, IsSet(row["IstWRRL"])));
        }
        if (kind.IsSeston) {
            AddRatedShare(record, *database, teilraum.ID_TR);
            AddState(record, SestonBefund(*database, row));
            return;
        }
        if (!kind.State) return;
        const bool isAssessment = kind.Table == WrrlResults().Table;
        AddState(record, isAssessment ? pruefung.Bewertung(row) : pruefung.Ergebnis(row));
    }

    static void NoteWithout(ResultSet& results, store::Database& database, const ResultKind& kind,
                            std::int32_t ID_TR) {
        ++results.WithoutResult;
        if (!kind.State) return;
        const auto befund =
            kind.IsSeston ? SestonFehlschlagOhneZeile(database, ID_TR) : FehlschlagOhneZeile(database, ID_TR);
        if (befund) {
            results.WithoutRow.push_back({ID_TR, *befund->Fehlernummer, befund->Fehlertext});
        }
    }

    /// Rows that no sub-habitat leads to are shown nowhere: that must not go unsaid.
    static void WarnOfStrayRows(store::Database& database, const ResultKind& kind, Streams& streams) {
        const std::string table(kind.Table);
        const auto stray =
            database.OpenRecordset("SELECT " + table + ".ID FROM " + table + " LEFT JOIN Teilraum ON " +
                                   table + ".ID = Teilraum.ID_TR WHERE Teilraum.ID_TR Is Null;");
        if (stray->Eof()) return;
        stray->MoveLast();
        const auto count = stray->RecordCount();
        streams.Err << "fxalgen results: " << count << (count == 1 ? " row of " : " rows of ") << table
                    << (count == 1 ? " belongs to no sub-habitat and is"
                                   : " belong to no sub-habitat and are")
                    << " not shown\n";
    }

    std::string path_;
    std::optional<std::string> scope_;
    std::string format_ = "table";
    bool seston_ = false;
    bool wrrl_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeResultsCommand() { return std::make_unique<ResultsCommand>(); }

}  // namespace FX_Algen::cli
