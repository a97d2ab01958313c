#include "store/load/Loader.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/PlannerFigures.h"
#include "store/load/DeletedKeys.h"
#include "store/load/Duplicates.h"
#include "store/load/Pipeline.h"

namespace FX_Algen::store::load {
namespace {

constexpr std::string_view FrequencyList = "awaArtenlisteHaeufigkeit";

std::string_view FileNameOf(std::string_view path) {
    const auto slash = path.find_last_of("/\\");
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

/// The name of the table that a file is for; empty where it is no CSV file.
std::string_view TableNameOf(std::string_view file) {
    constexpr std::string_view extension = ".csv";
    if (file.size() <= extension.size()) return {};
    const auto dot = file.size() - extension.size();
    return dialect::Fold(file.substr(dot)) == extension ? file.substr(0, dot) : std::string_view();
}

bool IsFrequencyColumn(std::string_view name) {
    return name.size() > 1 && (name[0] == 'A' || name[0] == 'a') &&
           std::all_of(name.begin() + 1, name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string InsertStatement(const TableFile& file) {
    std::string columns;
    std::string values;
    for (const std::size_t column : file.Columns()) {
        columns += (columns.empty() ? "" : ", ") + Name(file.Table().Columns[column].Name);
        values += values.empty() ? "?" : ", ?";
    }
    return "INSERT INTO " + Name(file.Table().Name) + " (" + columns + ") VALUES (" + values + ")";
}

bool IsEmpty(Engine& engine, const TargetTable& table) {
    return IntegerOf(engine, "SELECT EXISTS (SELECT 1 FROM " + Name(table.Name) + ")") == 0;
}

}  // namespace

Loader::Loader(const std::string& database, const LoadOptions& options)
    : options_(options), engine_(OpenDatabaseFile(database)), problems_(options.MaxProblems) {
    // A replaced stand must not take the taxa of stands along that come again; references are checked at the
    // end.
    engine_->Run("PRAGMA foreign_keys=OFF");
    engine_->Run("PRAGMA cache_size=-65536");
    engine_->Run("BEGIN IMMEDIATE");
    DeletedKeys::Prepare(*engine_);
    tables_ = ReadTables(*engine_);
    firstRows_ = std::make_unique<FirstRows>(*engine_, tables_);
}

Loader::~Loader() {
    if (!engine_->InTransaction()) return;
    try {
        engine_->Run("ROLLBACK");
    } catch (const Error&) {
        // Closing the file undoes the transaction as well.
    }
}

LoadResult Loader::Run(std::span<const LoadText> files) {
    MatchFiles(files);
    PutAside();
    Write();
    PutBack();
    CheckReferences();

    LoadResult result;
    if (!problems_.None()) {
        result.Problems = problems_.Take(result.MoreProblems);
        return result;
    }
    DeletedKeys::RaiseCounters(*engine_, tables_);
    // Those of an index go with it, and it does not bring them back.
    RestorePlannerFigures(*engine_);
    engine_->Run("COMMIT");
    for (std::size_t i = 0; i < files_.size(); ++i)
        result.Tables.push_back({files_[i].Table().Name, progress_[i].Rows});
    return result;
}

void Loader::Add(std::vector<LoadProblem> problems) {
    for (auto& problem : problems) problems_.Add(std::move(problem));
}

const TableFile* Loader::FileOf(std::string_view table) const {
    const auto at = std::find_if(files_.begin(), files_.end(),
                                 [&](const TableFile& file) { return file.Table().Name == table; });
    return at == files_.end() ? nullptr : &*at;
}

// ---- files ---------------------------------------------------------------------------------------

void Loader::MatchFiles(std::span<const LoadText> files) {
    std::vector<LoadText> sorted;
    for (const auto& file : files) {
        const LoadText named{FileNameOf(file.Name), file.Text};
        if (TableNameOf(named.Name).empty()) continue;
        if (DeletedKeys::IsFile(named.Name)) {
            std::vector<LoadProblem> found;
            DeletedKeys::Read(*engine_, named, tables_, found);
            Add(std::move(found));
        } else {
            sorted.push_back(named);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const LoadText& a, const LoadText& b) { return a.Name < b.Name; });
    for (const auto& file : sorted)
        if (dialect::Fold(TableNameOf(file.Name)) == dialect::Fold(FrequencyList)) AddFrequencyColumns(file);
    files_.reserve(sorted.size());
    for (const auto& file : sorted) MatchFile(file);
    progress_.resize(files_.size());
}

void Loader::MatchFile(const LoadText& file) {
    const TargetTable* table = FindTable(tables_, TableNameOf(file.Name));
    if (table == nullptr)
        return problems_.Add(
            {std::string(file.Name), 0, "", "the database has no table " + Quoted(TableNameOf(file.Name))});
    if (const TableFile* other = FileOf(table->Name))
        return problems_.Add({std::string(file.Name), 0, "",
                              "the table " + table->Name + " is in " + other->FileName() + " already"});
    std::vector<LoadProblem> found;
    files_.emplace_back(file, *table, found);
    Add(std::move(found));
}

/// The frequency list has a column for each sub-habitat of its last run; a new database has none of them yet.
void Loader::AddFrequencyColumns(const LoadText& file) {
    const TargetTable* table = FindTable(tables_, FrequencyList);
    if (table == nullptr) return;
    const std::string_view text = WithoutMark(file.Text);
    std::vector<CsvField> header;
    std::deque<std::string> buffers;
    CsvReader(text, Delimiter(text)).Next(header, buffers);
    std::unordered_set<std::string> added;
    for (const auto& field : header) {
        if (!IsFrequencyColumn(field.Text) || table->Find(field.Text) < table->Columns.size()) continue;
        if (added.insert(dialect::Fold(field.Text)).second)
            engine_->Run("ALTER TABLE " + Name(FrequencyList) + " ADD COLUMN " + Name(field.Text) +
                         " DOUBLE DEFAULT 0");
    }
    if (!added.empty()) tables_ = ReadTables(*engine_);
}

// ---- tables --------------------------------------------------------------------------------------

void Loader::PutAside() {
    for (const Reference& reference : References())
        if (options_.Replace && FileOf(reference.Parent) != nullptr && FileOf(reference.Table) == nullptr)
            orphans_.push_back({reference, DanglingKeys(*engine_, reference)});

    for (const TableFile& file : files_) {
        const TargetTable& table = file.Table();
        if (options_.Replace) EmptyTable(table);
        if (!IsEmpty(*engine_, table)) continue;
        // Into an empty table rows go quickest without its indexes; unique ones have to stay and refuse.
        std::vector<std::string> indexes;
        const auto statement = engine_->Prepare(
            "SELECT name, sql FROM sqlite_master WHERE type = 'index' AND tbl_name = " + Literal(table.Name) +
            " AND sql NOT LIKE 'CREATE UNIQUE%'");
        while (statement->Step()) {
            indexes.emplace_back(statement->Text(0));
            putAside_.emplace_back(statement->Text(1));
        }
        statement->Reset();
        for (const auto& index : indexes) engine_->Run("DROP INDEX " + Name(index));
    }
}

/// Without the cascade of the taxonomy: what hangs below a replaced level has not lost its parent yet.
void Loader::EmptyTable(const TargetTable& table) {
    std::vector<std::pair<std::string, std::string>> triggers;
    const auto statement = engine_->Prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = 'trigger' AND tbl_name = " + Literal(table.Name));
    while (statement->Step()) triggers.emplace_back(statement->Text(0), statement->Text(1));
    statement->Reset();
    for (const auto& [name, sql] : triggers) engine_->Run("DROP TRIGGER " + Name(name));
    engine_->Run("DELETE FROM " + Name(table.Name));
    for (const auto& [name, sql] : triggers) engine_->Run(sql);
}

void Loader::PutBack() {
    for (const auto& statement : putAside_) engine_->Run(statement);
}

// ---- rows ----------------------------------------------------------------------------------------

void Loader::Write() {
    std::uint64_t bytes = 0;
    for (const TableFile& file : files_) bytes += file.Bytes();
    Pipeline pipeline(files_);
    std::unique_ptr<EngineStatement> insert;
    std::size_t current = files_.size();
    while (auto portion = pipeline.Next()) {
        if (portion->File != current) {
            current = portion->File;
            insert = engine_->Prepare(InsertStatement(files_[current]));
        }
        Add(std::move(portion->Rows.Problems));
        const std::size_t columns = files_[current].Columns().size();
        for (std::size_t i = 0; i < portion->Rows.Lines.size(); ++i)
            WriteRow(*insert, current, portion->Rows.Row(i, columns), portion->Rows.Lines[i]);
        if (options_.Progress) options_.Progress(portion->BytesDone, bytes);
    }
    insert.reset();
    for (std::size_t i = 0; i < files_.size(); ++i)
        if (!progress_[i].Refused.empty()) Add(ExplainDuplicates(files_[i], progress_[i].Refused));
}

void Loader::WriteRow(EngineStatement& insert, std::size_t file, const Cell* row, std::int64_t line) {
    if (!options_.Replace && firstRows_->Concern(files_[file].Table().Name))
        firstRows_->GiveWay(*engine_, files_[file], row);
    const std::size_t columns = files_[file].Columns().size();
    for (std::size_t i = 0; i < columns; ++i) row[i].BindTo(insert, i);
    try {
        insert.Step();
        ++progress_[file].Rows;
    } catch (const Error& error) {
        if (error.Number() != ErrorNumber::DuplicateKey) throw;
        progress_[file].Refused.push_back(line);
    }
    insert.Reset();
}

// ---- references ----------------------------------------------------------------------------------

void Loader::CheckReferences() {
    for (const TableFile& file : files_)
        for (const Reference& reference : ReferencesOf(file.Table().Name)) CheckReference(file, reference);
    CheckOrphans();
}

void Loader::CheckReference(const TableFile& file, const Reference& reference) {
    const auto position = file.PositionOf(file.Table().Find(reference.Column));
    if (!position || !file.Usable()) return;
    // Where the parent's rows could not be read at all, every reference would seem to be wrong.
    const TableFile* parent = FileOf(reference.Parent);
    if (parent != nullptr && !parent->Usable()) return;
    const auto dangling = DanglingKeys(*engine_, reference);
    if (dangling.empty()) return;

    const std::unordered_set<std::int64_t> wrong(dangling.begin(), dangling.end());
    TableFile::Rows rows(file);
    for (Batch batch; rows.Next(batch, 1000);) {
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            const Cell& cell = batch.Row(i, file.Columns().size())[*position];
            if (cell.Is == Cell::Tag::Integer && wrong.contains(cell.Integer))
                problems_.Add({file.FileName(), batch.Lines[i], std::string(reference.Column),
                               std::string(reference.Parent) + " has no row with " +
                                   std::string(reference.Key) + " " + std::to_string(cell.Integer)});
        }
    }
}

void Loader::CheckOrphans() {
    for (const auto& [reference, before] : orphans_) {
        const TableFile* parent = FileOf(reference.Parent);
        if (!parent->Usable()) continue;
        const auto after = DanglingKeys(*engine_, reference);
        std::vector<std::int64_t> lost;
        std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                            std::back_inserter(lost));
        if (lost.empty()) continue;
        problems_.Add({parent->FileName(), 0, std::string(reference.Key),
                       "the file lacks " + std::to_string(lost.size()) +
                           (lost.size() == 1 ? " key" : " keys") + " that " + std::string(reference.Table) +
                           " refers to, such as " + std::to_string(lost.front())});
    }
}

}  // namespace FX_Algen::store::load
