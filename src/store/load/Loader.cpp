#include "store/load/Loader.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
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

/// A column of the frequency list besides those of its sub-habitats, as the schema declares it.
struct FrequencyColumn {
    std::string_view Name;
    std::string_view Declared;
};
constexpr std::array FrequencyColumns{
    FrequencyColumn{"ID_Art", "INTEGER"}, FrequencyColumn{"CF", "BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0))"},
    FrequencyColumn{"IstKA", "BOOLEAN DEFAULT 0 CHECK (IstKA IN (-1, 0))"},
    FrequencyColumn{"MAalsMI", "BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0))"}};

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

LoadResult Loader::Run(std::span<const LoadText> files, std::span<const std::string> unreadable) {
    for (const auto& name : unreadable) {
        problems_.Add({Printable(name), 0, "", "the file cannot be read"});
        unreadable_.push_back(dialect::Fold(TableNameOf(name)));
    }
    MatchFiles(files);
    CheckMark(unreadable);
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
        // Programs leave hidden files beside those that they copy.
        if (TableNameOf(named.Name).empty() || named.Name.starts_with('.')) continue;
        std::vector<LoadProblem> found;
        if (DeletedKeys::IsFile(named.Name)) {
            DeletedKeys::Read(*engine_, named, tables_, found);
            Add(std::move(found));
        } else if (DumpMark::IsFile(named.Name)) {
            mark_ = DumpMark(named, found);
            Add(std::move(found));
        } else {
            sorted.push_back(named);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const LoadText& a, const LoadText& b) { return a.Name < b.Name; });
    for (const auto& file : sorted)
        if (dialect::Fold(TableNameOf(file.Name)) == dialect::Fold(FrequencyList)) MatchFrequencyList(file);
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
void Loader::MatchFrequencyList(const LoadText& file) {
    if (FindTable(tables_, FrequencyList) == nullptr) return;
    const std::string_view text = WithoutMark(file.Text);
    std::vector<CsvField> header;
    std::deque<std::string> buffers;
    CsvReader(text, Delimiter(text)).Next(header, buffers);
    if (options_.Replace || mark_.Names(FrequencyList))
        RebuildFrequencyList(header);
    else
        AddFrequencyColumns(header);
    tables_ = ReadTables(*engine_);
}

/// With the columns of the file and no others, in its order, as a run leaves the table.
void Loader::RebuildFrequencyList(const std::vector<CsvField>& header) {
    std::string columns;
    std::unordered_set<std::string> added;
    for (const auto& field : header) {
        const std::string name = dialect::Fold(field.Text);
        const auto base =
            std::find_if(FrequencyColumns.begin(), FrequencyColumns.end(),
                         [&](const auto& column) { return dialect::Fold(column.Name) == name; });
        const bool known = base != FrequencyColumns.end();
        // What is wrong with the header is told when the file is matched to the table.
        if (!known && !IsFrequencyColumn(field.Text)) return;
        if (!added.insert(name).second) return;
        columns += (columns.empty() ? "" : ", ") + Name(known ? base->Name : field.Text) + " " +
                   std::string(known ? base->Declared : "DOUBLE DEFAULT 0");
    }
    if (columns.empty()) return;
    engine_->Run("DROP TABLE " + Name(FrequencyList));
    engine_->Run("CREATE TABLE " + Name(FrequencyList) + " (" + columns + ")");
}

void Loader::AddFrequencyColumns(const std::vector<CsvField>& header) {
    const TargetTable* table = FindTable(tables_, FrequencyList);
    std::unordered_set<std::string> added;
    for (const auto& field : header) {
        if (!IsFrequencyColumn(field.Text) || table->Find(field.Text) < table->Columns.size()) continue;
        if (added.insert(dialect::Fold(field.Text)).second)
            engine_->Run("ALTER TABLE " + Name(FrequencyList) + " ADD COLUMN " + Name(field.Text) +
                         " DOUBLE DEFAULT 0");
    }
}

/// A dump that lost one of its files would silently give another database.
void Loader::CheckMark(std::span<const std::string> unreadable) {
    for (const auto& line : mark_.Lines()) {
        const TargetTable* table = FindTable(tables_, line.Table);
        const auto names = [&](const std::string& file) {
            return dialect::Fold(TableNameOf(file)) == dialect::Fold(line.Table);
        };
        if (table == nullptr)
            problems_.Add(
                {line.File, line.Number, "Tabelle", "the database has no table " + Quoted(line.Table)});
        else if (FileOf(table->Name) == nullptr && std::none_of(unreadable.begin(), unreadable.end(), names))
            problems_.Add({line.File, line.Number, "Tabelle",
                           "the file " + table->Name + ".csv, which belongs to the dump, is missing"});
    }
}

// ---- tables --------------------------------------------------------------------------------------

void Loader::PutAside() {
    for (const Reference& reference : References())
        if (options_.Replace && FileOf(reference.Parent) != nullptr && FileOf(reference.Table) == nullptr)
            orphans_.push_back({reference, DanglingKeys(*engine_, reference)});

    for (const TableFile& file : files_) {
        const TargetTable& table = file.Table();
        if (options_.Replace)
            EmptyTable(table);
        else if (mark_.Names(table.Name))
            firstRows_->Remove(*engine_, table.Name);
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

Loader::Writing Loader::Begin(std::size_t file) {
    const TableFile& current = files_[file];
    Writing writing;
    writing.File = file;
    if (current.Keyed()) writing.Insert = engine_->Prepare(InsertStatement(current));
    auto equal = std::make_unique<EqualRows>(*engine_, current);
    if (equal->Apply()) writing.Equal = std::move(equal);
    writing.Counter = current.CounterPosition();
    return writing;
}

void Loader::Write() {
    std::uint64_t bytes = 0;
    for (const TableFile& file : files_) bytes += file.Bytes();
    Pipeline pipeline(files_);
    std::optional<Writing> writing;
    while (auto portion = pipeline.Next()) {
        if (!writing || portion->File != writing->File) writing = Begin(portion->File);
        Add(std::move(portion->Rows.Problems));
        Progress& progress = progress_[portion->File];
        const std::size_t columns = files_[portion->File].Columns().size();
        for (std::size_t i = 0; i < portion->Rows.Lines.size(); ++i) {
            const std::int64_t line = portion->Rows.Lines[i];
            if (portion->Rows.Writable[i])
                WriteRow(*writing, portion->Rows.Row(i, columns), line);
            else
                progress.Unwritten.push_back(line);
        }
        if (options_.Progress) options_.Progress(portion->BytesDone, bytes);
    }
    writing.reset();
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (progress_[i].Unnumbered) WriteUnnumbered(i);
        if (!progress_[i].Refused.empty()) Add(ExplainDuplicates(files_[i], progress_[i].Refused));
    }
}

void Loader::WriteRow(Writing& writing, const Cell* row, std::int64_t line) {
    Progress& progress = progress_[writing.File];
    if (writing.Counter && row[*writing.Counter].Is == Cell::Tag::Null) {
        // Its number must not be one that a row further down names.
        progress.Unnumbered = true;
        return;
    }
    std::optional<std::int64_t> first;
    if (!options_.Replace && firstRows_->Concern(files_[writing.File].Table().Name))
        first = firstRows_->Take(files_[writing.File], row);
    if (writing.Equal) {
        if (auto problem = writing.Equal->Add(row, line, first.has_value())) {
            problems_.Add(std::move(*problem));
            progress.Unwritten.push_back(line);
            return;
        }
    }
    if (!first) {
        Insert(writing, row, line);
        return;
    }
    UpdateFirstRow(writing.File, *first, row);
    ++progress.Rows;
}

bool Loader::Insert(Writing& writing, const Cell* row, std::int64_t line) {
    Progress& progress = progress_[writing.File];
    const std::size_t columns = files_[writing.File].Columns().size();
    for (std::size_t i = 0; i < columns; ++i) row[i].BindTo(*writing.Insert, i);
    try {
        writing.Insert->Step();
        ++progress.Rows;
        writing.Insert->Reset();
        return true;
    } catch (const Error& error) {
        writing.Insert->Reset();
        progress.Unwritten.push_back(line);
        if (error.Number() == ErrorNumber::DuplicateKey) {
            progress.Refused.push_back(line);
            return true;
        }
        const TableFile& file = files_[writing.File];
        if (error.Number() != ErrorNumber::Overflow || file.Table().Counter().empty()) throw;
        problems_.Add({file.FileName(), line, file.Table().Counter(),
                       "the counter has given out its last number, 2147483647"});
        return false;
    }
}

/// Columns that the file lacks keep what the first row says.
void Loader::UpdateFirstRow(std::size_t file, std::int64_t id, const Cell* row) {
    const TableFile& from = files_[file];
    std::string columns;
    for (const std::size_t column : from.Columns())
        columns += (columns.empty() ? "" : ", ") + Name(from.Table().Columns[column].Name) + " = ?";
    const auto statement = engine_->Prepare("UPDATE " + Name(from.Table().Name) + " SET " + columns +
                                            " WHERE rowid = " + std::to_string(id));
    for (std::size_t i = 0; i < from.Columns().size(); ++i) row[i].BindTo(*statement, i);
    statement->Step();
}

void Loader::WriteUnnumbered(std::size_t file) {
    Writing writing = Begin(file);
    TableFile::Rows rows(files_[file]);
    for (Batch batch; rows.Next(batch, 1000);) {
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            const Cell* row = batch.Row(i, files_[file].Columns().size());
            if (!batch.Writable[i] || row[*writing.Counter].Is != Cell::Tag::Null) continue;
            // Behind the last number every further row fails as well.
            if (!Insert(writing, row, batch.Lines[i])) return;
        }
    }
}

// ---- references ----------------------------------------------------------------------------------

void Loader::CheckReferences() {
    for (Progress& progress : progress_) std::sort(progress.Unwritten.begin(), progress.Unwritten.end());
    for (const TableFile& file : files_)
        for (const Reference& reference : ReferencesOf(file.Table().Name)) CheckReference(file, reference);
    CheckMembers();
    CheckKindsOfAlgae();
    CheckOrphans();
}

const Loader::Progress& Loader::ProgressOf(const TableFile& file) const {
    return progress_[static_cast<std::size_t>(&file - files_.data())];
}

/// Where a table's rows could not be read at all, every reference to them would seem to be wrong.
bool Loader::IsKnown(std::string_view table) const {
    const TableFile* file = FileOf(table);
    if (file != nullptr) return file->Keyed();
    return std::find(unreadable_.begin(), unreadable_.end(), dialect::Fold(table)) == unreadable_.end();
}

void Loader::CheckReference(const TableFile& file, const Reference& reference) {
    const auto position = file.PositionOf(file.Table().Find(reference.Column));
    if (!position || !file.Usable() || !IsKnown(reference.Parent)) return;
    const auto dangling = DanglingKeys(*engine_, reference);
    const auto& unwritten = ProgressOf(file).Unwritten;
    if (dangling.empty() && unwritten.empty()) return;

    std::unordered_set<std::int64_t> wrong(dangling.begin(), dangling.end());
    std::unordered_set<std::int64_t> right;
    // A row that is not in the table hides no other fault of it.
    const auto isWrong = [&](std::int64_t key, std::int64_t line) {
        if (wrong.contains(key)) return true;
        if (right.contains(key) || !std::binary_search(unwritten.begin(), unwritten.end(), line))
            return false;
        const bool dangles = Dangles(*engine_, reference, key);
        (dangles ? wrong : right).insert(key);
        return dangles;
    };
    TableFile::Rows rows(file);
    for (Batch batch; rows.Next(batch, 1000);) {
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            const Cell& cell = batch.Row(i, file.Columns().size())[*position];
            if (cell.Is == Cell::Tag::Integer && isWrong(cell.Integer, batch.Lines[i]))
                problems_.Add({file.FileName(), batch.Lines[i], std::string(reference.Column),
                               std::string(reference.Parent) + " has no row with " +
                                   std::string(reference.Key) + " " + std::to_string(cell.Integer)});
        }
    }
}

/// The members of a stored selection are keys of the table of its level.
void Loader::CheckMembers() {
    const TableFile* file = FileOf("RechenProjektListe");
    if (file == nullptr || !file->Keyed() || !IsKnown("RechenProjekt")) return;
    std::map<std::pair<std::int64_t, std::int64_t>, const LevelTable*> wrong;
    for (const LevelTable& level : LevelTables())
        if (IsKnown(level.Parent))
            for (const auto& member : DanglingMembers(*engine_, level)) wrong.emplace(member, &level);
    if (wrong.empty()) return;
    const auto selection = *file->PositionOf(file->Table().Find("ID_RechMan"));
    const auto member = *file->PositionOf(file->Table().Find("ID_Ebene"));
    TableFile::Rows rows(*file);
    for (Batch batch; rows.Next(batch, 1000);) {
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            const Cell* row = batch.Row(i, file->Columns().size());
            const auto at = wrong.find({row[selection].Integer, row[member].Integer});
            if (!batch.Writable[i] || at == wrong.end()) continue;
            problems_.Add({file->FileName(), batch.Lines[i], "ID_Ebene",
                           std::string(at->second->Parent) + " has no row with " +
                               std::string(at->second->Key) + " " + std::to_string(row[member].Integer)});
        }
    }
}

/// Kinds of algae are texts. A taxon whose kind is not in the list belongs to no kind.
void Loader::CheckKindsOfAlgae() {
    const TableFile* file = FileOf("awaModulStandard");
    if (file == nullptr || !file->Usable() || !IsKnown("awaAL_Algenart")) return;
    const auto position = file->PositionOf(file->Table().Find("Algenart"));
    if (!position) return;
    std::unordered_set<std::string> kinds{""};
    const auto statement = engine_->Prepare("SELECT Algenart FROM awaAL_Algenart WHERE Algenart IS NOT NULL");
    while (statement->Step()) kinds.insert(dialect::Fold(statement->Text(0)));
    TableFile::Rows rows(*file);
    for (Batch batch; rows.Next(batch, 1000);) {
        for (std::size_t i = 0; i < batch.Lines.size(); ++i) {
            const Cell& cell = batch.Row(i, file->Columns().size())[*position];
            if (cell.Is == Cell::Tag::Text && !kinds.contains(dialect::Fold(cell.Text)))
                problems_.Add({file->FileName(), batch.Lines[i], "Algenart",
                               "awaAL_Algenart has no kind " + Quoted(cell.Text)});
        }
    }
}

void Loader::CheckOrphans() {
    for (const auto& [reference, before] : orphans_) {
        const TableFile* parent = FileOf(reference.Parent);
        if (!parent->Keyed()) continue;
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
