#pragma once

#include <any>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "FX_Algen/Error.h"
#include "store/Connection.h"
#include "store/Engine.h"
#include "store/LruCache.h"
#include "store/OpenResult.h"
#include "store/SchemaCatalogue.h"
#include "store/dialect/Translate.h"

/// The connection behind the handles; for the gateway's own files.
namespace FX_Algen::store {

/// What tells a file from another one that took its path later.
struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Number = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// A database file where it really lies. 53 if there is none.
struct DatabaseFile {
    std::string Path;  ///< canonical
    FileIdentity Identity;

    static DatabaseFile At(const std::string& path);
};

class Connection final : public dialect::ExternalSource {
public:
    /// Statements that are kept ready.
    static constexpr std::size_t StatementLimit = 256;
    /// Bytes of the longest text that is kept ready. Longer ones hold lists of keys and do not come twice.
    static constexpr std::size_t LongestKept = 8192;
    /// Other files that are kept attached for INSERT … IN.
    static constexpr std::size_t AttachmentLimit = 4;

    /// `name` is the path as it was given.
    Connection(std::string name, DatabaseFile file);

    const std::string& Name() const noexcept { return name_; }
    const DatabaseFile& File() const noexcept { return file_; }
    Engine& TheEngine() noexcept { return *engine_; }
    const SchemaCatalogue& Tables() const noexcept { return catalogue_; }
    std::size_t StatementCount() const noexcept { return statements_.Size(); }
    std::size_t AttachmentCount() const noexcept { return attachments_.size(); }

    /// Reads the rows of a SELECT, or of a table or view by its name. A failure names the operation.
    void Read(std::string_view operation, std::string_view source, std::shared_ptr<const ResultShape>& shape,
              ResultRows& rows);

    /// Runs an action statement and tells how many rows it changed.
    std::int64_t Execute(std::string_view statement);

    /// A statement in the engine's own language, kept ready as those of `Execute` are.
    EngineStatement& OwnStatement(const std::string& sql);

    /// Forgets tables and statements; to be called when the schema was changed.
    void SchemaChanged();
    /// Forgets what concerns one table; to be called after this connection created, altered or dropped it.
    void TableChanged(std::string_view table);
    /// Forgets them where another program changed the schema since they were read; tells whether it did.
    bool RefreshSchema();
    void CheckPlannerFigures();

    dialect::External Attach(const std::string& path) override;

    /// As long as it stays the same, no row of a table that is not scratch has changed, nor has such a table,
    /// neither by this connection nor by another one. Scratch rows of other connections may change it, too.
    struct Stamp {
        std::int64_t Rows = 0;   ///< changed by this connection, those of scratch tables not counted
        std::int64_t Other = 0;  ///< changes of the schema, and savepoints that were undone
        std::int64_t Foreign = 0;
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    Stamp LastingStamp();
    /// To be called when changes were undone.
    void Undone() noexcept { ++other_changes_; }
    /// What `KeptRows` keeps.
    struct Keepsake {
        std::string Source;
        Stamp Since;
        std::any Rows;
    };
    std::optional<Keepsake>& Kept() noexcept { return kept_; }

private:
    friend class RowChange;
    struct Prepared {
        dialect::Translation Translated;
        std::unique_ptr<EngineStatement> Statement;
        std::shared_ptr<const ResultShape> Shape;  ///< of a SELECT
        std::size_t LastCount = 0;                 ///< rows it gave the last time
    };
    struct Action {
        Prepared& Statement;
        std::string Schema;  ///< of the file whose rows it changes
    };
    struct Attachment {
        DatabaseFile File;
        std::string Schema;
        std::unique_ptr<SchemaCatalogue> Tables;
    };

    Prepared* FindPrepared();
    Prepared& PreparedFor(std::string_view statement);
    Prepared& PreparedForSource(std::string_view source);
    Action PreparedAction(std::string_view statement);
    Prepared& Translate(std::string_view statement);
    void Bind(const Prepared& prepared);
    bool ReadOnce(Prepared& prepared, ResultRows& rows);
    std::int64_t ExecuteOnce(const Action& action);
    void AppendRow(const Prepared& prepared, ResultRows& rows) const;
    void Detach(std::list<Attachment>::iterator attachment);
    std::string AttachUnchecked(const std::string& path);

    std::string name_;
    DatabaseFile file_;
    std::unique_ptr<Engine> engine_;
    SchemaCatalogue catalogue_;
    std::list<Attachment> attachments_;            ///< most recently used first
    std::optional<std::int64_t> planner_version_;  ///< of the schema when the planner's figures were right
    std::int64_t scratch_changes_ = 0;             ///< rows of scratch tables that this connection changed
    std::int64_t other_changes_ = 0;
    std::optional<Keepsake> kept_;
    std::int64_t attached_count_ = 0;  ///< ever, for names that do not come again
    LruCache<Prepared> statements_{StatementLimit};
    LruCache<std::unique_ptr<EngineStatement>> own_statements_{StatementLimit};
    dialect::Shape shape_;  ///< of the statement being run; its buffers are reused
};

/// Whether the rows of `table` are scratch: results that can be computed again.
bool IsScratchTable(std::string_view table);

/// The failure of an operation on the store with operation, cause and statement in words.
Error FailureIn(std::string_view operation, const Error& cause, std::string_view statement,
                std::string_view translated = {});

/// A change of rows of a table, from before its statement to behind it: as durable as the rows need, and
/// known as one of scratch rows where it is. Rows that triggers and cascades change besides are taken for
/// lasting ones.
class RowChange {
public:
    RowChange(Connection& connection, std::string_view table);
    ~RowChange();
    RowChange(const RowChange&) = delete;
    RowChange& operator=(const RowChange&) = delete;

private:
    friend class Connection;
    /// Of a table whose file was made durable before.
    RowChange(Connection& connection, bool scratch);

    Connection& connection_;
    bool scratch_;
    std::int64_t before_;
};

/// Resets a statement when its use ends, however it ends.
class StatementUse {
public:
    explicit StatementUse(EngineStatement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.Reset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;

private:
    EngineStatement& statement_;
};

}  // namespace FX_Algen::store
