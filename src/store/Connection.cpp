#include "store/Connection.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "store/Binding.h"
#include "store/Layout.h"
#include "store/OpenConnection.h"
#include "store/PlannerFigures.h"
#include "store/ThreadValues.h"

namespace FX_Algen::store {

namespace {

void CheckLayout(Engine& engine, const std::string& schema, const std::string& path) {
    const auto statement = engine.Prepare("PRAGMA " + Quoted(schema) + ".user_version");
    statement->Step();
    const auto found = statement->Integer(0);
    if (found != LayoutVersion)
        throw Error(ErrorNumber::NotADatabase, "'" + path + "' has layout version " + std::to_string(found) +
                                                   "; version " + std::to_string(LayoutVersion) +
                                                   " is needed.");
}

/// A text that can only be meant as the name of a table: one word, or a name in brackets.
bool IsBareName(std::string_view source) {
    constexpr std::string_view around = " \t\r\n;";
    const auto first = source.find_first_not_of(around);
    if (first == std::string_view::npos) return false;
    const auto name = source.substr(first, source.find_last_not_of(around) - first + 1);
    if (name.front() == '[') return name.find(']') == name.size() - 1;
    return name.find_first_of(" \t\r\n.,;'\"()*#[]") == std::string_view::npos;
}

[[noreturn]] void FailWrongVerb(std::string_view words) {
    throw Error(ErrorNumber::SyntaxError, std::string(words));
}

}  // namespace

Error FailureIn(std::string_view operation, const Error& cause, std::string_view statement,
                std::string_view translated) {
    std::string description(operation);
    description.append(": ").append(cause.Description());
    if (!statement.empty()) description.append(" In: ").append(statement);
    return {cause.Number(), description, std::string(statement),
            translated.empty() ? cause.Translated() : std::string(translated)};
}

bool IsScratchTable(std::string_view table) {
    static constexpr std::array<std::string_view, 7> names{
        "awaergprojekt", "awaergwrrl",   "sesergprojekt", "sesergprojekttmp", "awaartenlistehaeufigkeit",
        "fx_lauf",       "fx_laufseston"};
    const auto name = dialect::Fold(table);
    return name.starts_with("rpt_") || std::find(names.begin(), names.end(), name) != names.end();
}

DatabaseFile DatabaseFile::At(const std::string& path) {
    std::error_code failure;
    const auto canonical = std::filesystem::canonical(path, failure);
    struct stat status {};
    if (failure || stat(canonical.c_str(), &status) != 0)
        throw Error(ErrorNumber::FileNotFound, "File not found: '" + path + "'.");
    return {canonical.string(), {status.st_dev, status.st_ino}};
}

Connection::Connection(std::string name, DatabaseFile file)
    : name_(std::move(name)),
      file_(std::move(file)),
      engine_(OpenEngine(file_.Path, false)),
      catalogue_(*engine_, "main") {
    CheckLayout(*engine_, "main", name_);
    engine_->WriteAhead();
    CheckPlannerFigures();
}

/// Plans must not differ from database to database. Figures that another program changed are read with the
/// schema; so they are looked at whenever that has another version.
void Connection::CheckPlannerFigures() {
    if (planner_version_ == catalogue_.Version()) return;
    RestorePlannerFigures(*engine_);
    planner_version_ = catalogue_.Version();
}

void Connection::SchemaChanged() {
    ++other_changes_;
    statements_.Clear();
    own_statements_.Clear();
    catalogue_.Forget();
    for (auto& attachment : attachments_) attachment.Tables->Forget();
}

void Connection::TableChanged(std::string_view table) {
    if (!IsScratchTable(table)) ++other_changes_;
    const auto known = catalogue_.Known();
    if (!catalogue_.TableChanged(table)) return SchemaChanged();
    // Every translated statement writes the names of its tables as the schema has them.
    const auto name = Quoted(table);
    statements_.EraseIf([&name](std::string_view, const Prepared& prepared) {
        return prepared.Translated.Sql.find(name) != std::string::npos;
    });
    own_statements_.EraseIf(
        [&name](std::string_view sql, const auto&) { return sql.find(name) != std::string_view::npos; });
    if (planner_version_ == known && !HasPlannerFigures(table)) planner_version_ = catalogue_.Known();
}

bool Connection::RefreshSchema() {
    CheckPlannerFigures();
    bool changed = catalogue_.Refresh();
    for (auto& attachment : attachments_) changed = attachment.Tables->Refresh() || changed;
    if (changed) SchemaChanged();
    return changed;
}

EngineStatement& Connection::OwnStatement(const std::string& sql) {
    if (sql.size() > LongestKept) return *own_statements_.Pass(engine_->Prepare(sql));
    if (auto* kept = own_statements_.Find(sql)) return **kept;
    return *own_statements_.Add(sql, engine_->Prepare(sql));
}

Connection::Stamp Connection::LastingStamp() {
    return {engine_->TotalChanges() - scratch_changes_, other_changes_, engine_->ForeignChanges()};
}

RowChange::RowChange(Connection& connection, bool scratch)
    : connection_(connection), scratch_(scratch), before_(connection.engine_->TotalChanges()) {}

RowChange::RowChange(Connection& connection, std::string_view table)
    : RowChange(connection, IsScratchTable(table)) {
    connection.engine_->Durable(!scratch_);
}

RowChange::~RowChange() {
    if (!scratch_) return;
    const auto& engine = *connection_.engine_;
    connection_.scratch_changes_ += std::min(engine.TotalChanges() - before_, engine.Changes());
}

// ---- statements --------------------------------------------------------------------------------

Connection::Prepared* Connection::FindPrepared() {
    return statements_.Find(shape_.Key, [this](const Prepared& prepared) {
        const auto& pins = prepared.Translated.Pins;
        return std::all_of(pins.begin(), pins.end(), [this](const dialect::Pinned& pin) {
            return shape_.Literals[pin.LiteralIndex].Raw == pin.Raw;
        });
    });
}

Connection::Prepared& Connection::Translate(std::string_view statement) {
    Prepared prepared;
    prepared.Translated = dialect::Translate(statement, shape_, catalogue_, this);
    prepared.Statement = engine_->Prepare(prepared.Translated.Sql);
    if (prepared.Translated.Is == dialect::Translation::Verb::Select)
        prepared.Shape = std::make_shared<const ResultShape>(prepared.Translated, catalogue_);
    if (statement.size() > LongestKept) return statements_.Pass(std::move(prepared));
    return statements_.Add(shape_.Key, std::move(prepared));
}

Connection::Prepared& Connection::PreparedFor(std::string_view statement) {
    dialect::ScanShape(statement, shape_);
    if (auto* kept = FindPrepared()) return *kept;
    RefreshSchema();
    return Translate(statement);
}

Connection::Prepared& Connection::PreparedForSource(std::string_view source) {
    dialect::ScanShape(source, shape_);
    if (auto* kept = FindPrepared()) return *kept;
    RefreshSchema();
    if (const auto select = dialect::TableSource(source, catalogue_)) {
        // The text of a table's SELECT holds no literals, so nothing points into it later.
        dialect::ScanShape(*select, shape_);
        if (auto* kept = FindPrepared()) return *kept;
        return Translate(*select);
    }
    if (IsBareName(source) && !dialect::StartsWithWord(source))
        throw Error(ErrorNumber::UnknownTable, "There is no table or view '" + std::string(source) + "'.");
    return Translate(source);
}

void Connection::Bind(const Prepared& prepared) {
    BindLiterals(*prepared.Statement, prepared.Translated, shape_);
}

void Connection::AppendRow(const Prepared& prepared, ResultRows& rows) const {
    const auto& shape = *prepared.Shape;
    const auto first = rows.Values.size();
    try {
        prepared.Statement->AppendRow(shape.Kinds, rows.Values);
    } catch (const Error& error) {
        const auto& field = shape.Fields[rows.Values.size() - first];
        throw Error(error.Number(), "Field '" + (field.Table ? *field.Table + "." : std::string()) +
                                        field.Name + "': " + error.Description());
    }
    prepared.Statement->AppendRowIds(shape.Kinds.size(), shape.Sources.size(), rows.RowIds);
    ++rows.Count;
}

/// False where the schema turned out to have changed, so that the statement means something else now.
bool Connection::ReadOnce(Prepared& prepared, ResultRows& rows) {
    rows = {};
    rows.Values.reserve(prepared.LastCount * prepared.Shape->Kinds.size());
    rows.RowIds.reserve(prepared.LastCount * prepared.Shape->Sources.size());
    const StatementUse use(*prepared.Statement);
    Bind(prepared);
    bool more = prepared.Statement->Step();
    if (prepared.Statement->PreparedAnew() && catalogue_.IsStale()) return false;
    for (; more; more = prepared.Statement->Step()) AppendRow(prepared, rows);
    // Room is made for as many rows as came the last time, within reason.
    constexpr std::size_t most = 4096;
    prepared.LastCount = std::min(rows.Count, most);
    return true;
}

void Connection::Read(std::string_view operation, std::string_view source,
                      std::shared_ptr<const ResultShape>& shape, ResultRows& rows) {
    std::string translated;
    try {
        for (bool done = false; !done;) {
            Prepared& prepared = PreparedForSource(source);
            if (prepared.Translated.Is != dialect::Translation::Verb::Select)
                FailWrongVerb("An action statement gives no rows; it is for Execute.");
            try {
                done = ReadOnce(prepared, rows);
                if (done)
                    shape = prepared.Shape;
                else
                    RefreshSchema();
            } catch (const Error&) {
                translated = prepared.Translated.Sql;
                // A table that is there no longer shows when the statement is run.
                if (!RefreshSchema()) throw;
            }
        }
    } catch (const Error& error) {
        throw FailureIn(operation, error, source, translated);
    }
}

std::int64_t Connection::ExecuteOnce(const Action& action) {
    const bool durable = !IsScratchTable(action.Statement.Translated.Target);
    engine_->DurableIn(action.Schema, durable);
    const RowChange change(*this, !durable);
    const StatementUse use(*action.Statement.Statement);
    Bind(action.Statement);
    while (action.Statement.Statement->Step()) {
    }
    return engine_->Changes();
}

/// The prepared statement, whose other file (INSERT … IN) is attached as its text says.
Connection::Action Connection::PreparedAction(std::string_view statement) {
    // That the engine had to prepare a statement anew shows once it ran, and by then an action has changed
    // its rows: to the kinds that the columns had before.
    if (catalogue_.IsStale()) RefreshSchema();
    for (;;) {
        Prepared& prepared = PreparedFor(statement);
        if (prepared.Translated.Is == dialect::Translation::Verb::Select)
            FailWrongVerb("A SELECT changes nothing; it is for OpenRecordset.");
        if (!prepared.Translated.ExternalPath) return {prepared, "main"};
        const std::string path = *prepared.Translated.ExternalPath;
        const auto count = attached_count_;
        const auto schema = Attach(path).SchemaName;
        if (schema != "main" && attachments_.front().Tables->IsStale()) {
            RefreshSchema();
            continue;
        }
        if (attached_count_ == count &&
            prepared.Translated.Sql.starts_with("INSERT INTO " + Quoted(schema) + "."))
            return {prepared, schema};
        // The file was detached since, another one lies there now, or the path leads to another one.
        statements_.Clear();
    }
}

std::int64_t Connection::Execute(std::string_view statement) {
    std::string translated;
    try {
        for (;;) {
            const Action action = PreparedAction(statement);
            try {
                return ExecuteOnce(action);
            } catch (const Error&) {
                translated = action.Statement.Translated.Sql;
                if (!RefreshSchema()) throw;
            }
        }
    } catch (const Error& error) {
        throw FailureIn("Execute", error, statement, translated);
    }
}

// ---- other files -------------------------------------------------------------------------------

void Connection::Detach(std::list<Attachment>::iterator attachment) {
    // Statements that name the schema would keep it in use.
    statements_.Clear();
    own_statements_.Clear();
    const auto schema = attachment->Schema;
    attachments_.erase(attachment);
    engine_->Run("DETACH DATABASE " + Quoted(schema));
}

std::string Connection::AttachUnchecked(const std::string& path) {
    auto schema = "fx" + std::to_string(++attached_count_);
    const auto statement = engine_->Prepare("ATTACH DATABASE ?1 AS " + Quoted(schema));
    statement->Bind(0, Value(path));
    statement->Step();
    return schema;
}

dialect::External Connection::Attach(const std::string& path) {
    auto file = DatabaseFile::At(path);
    if (file.Identity == file_.Identity) return {&catalogue_, "main"};
    const auto known = std::find_if(attachments_.begin(), attachments_.end(),
                                    [&file](const Attachment& one) { return one.File.Path == file.Path; });
    if (known != attachments_.end()) {
        if (known->File.Identity == file.Identity) {
            attachments_.splice(attachments_.begin(), attachments_, known);
            return {known->Tables.get(), known->Schema};
        }
        Detach(known);
    }
    if (attachments_.size() >= AttachmentLimit) Detach(std::prev(attachments_.end()));
    const auto schema = AttachUnchecked(file.Path);
    try {
        CheckLayout(*engine_, schema, path);
    } catch (const Error&) {
        engine_->Run("DETACH DATABASE " + Quoted(schema));
        throw;
    }
    attachments_.push_front({std::move(file), schema, std::make_unique<SchemaCatalogue>(*engine_, schema)});
    return {attachments_.front().Tables.get(), schema};
}

// ---- what other parts of the library see --------------------------------------------------------

std::shared_ptr<Connection> OpenConnection(const std::string& path) {
    auto file = DatabaseFile::At(path);
    auto& connections = Thread().Connections;
    std::erase_if(connections, [](const auto& one) { return one.second.expired(); });
    auto& known = connections[file.Path];
    if (auto open = known.lock(); open && open->File().Identity == file.Identity) return open;
    auto connection = std::make_shared<Connection>(path, std::move(file));
    known = connection;
    return connection;
}

Engine& EngineOf(Connection& connection) { return connection.TheEngine(); }

std::size_t MostColumns(Connection& connection) { return connection.TheEngine().MostColumns(); }

const dialect::Catalogue& CatalogueOf(Connection& connection) {
    connection.RefreshSchema();
    return connection.Tables();
}

const std::string& PathOf(const Connection& connection) { return connection.Name(); }

bool AreOfOneFile(const Connection& one, const Connection& other) {
    return one.File().Identity == other.File().Identity;
}

void SchemaChanged(Connection& connection) { connection.SchemaChanged(); }

}  // namespace FX_Algen::store
