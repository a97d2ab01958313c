#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "store/Engine.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/Functions.h"
#include "store/sqlite/SqliteStatement.h"

namespace FX_Algen::store {

namespace sqlite {

namespace {

struct CloseDatabase {
    // The statements of a database may outlive it by a moment; the engine waits for the last of them.
    void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;

/// How long a statement waits while another program writes.
constexpr int BusyMilliseconds = 5000;
/// Pages kept in memory, in KiB.
constexpr const char* CacheSize = "PRAGMA cache_size=-16384";

class SqliteEngine final : public Engine {
public:
    explicit SqliteEngine(DatabaseHandle db) : db_(std::move(db)) {}

    std::unique_ptr<EngineStatement> Prepare(std::string_view sql) override {
        return std::make_unique<SqliteStatement>(db_.get(), sql);
    }

    void Run(const std::string& sql) override {
        if (sqlite3_exec(db_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw FailureOf(db_.get(), sql);
    }

    std::int64_t Changes() const override { return sqlite3_changes64(db_.get()); }
    std::int64_t TotalChanges() const override { return sqlite3_total_changes64(db_.get()); }
    std::int64_t ForeignChanges() override {
        if (!foreign_changes_) foreign_changes_ = Prepare("PRAGMA data_version");
        foreign_changes_->Step();
        const auto version = foreign_changes_->Integer(0);
        foreign_changes_->Reset();
        return version;
    }
    std::int64_t LastRowId() const override { return sqlite3_last_insert_rowid(db_.get()); }

    void Durable(bool powerFailure) override { DurableIn("main", powerFailure); }

    void DurableIn(const std::string& schema, bool powerFailure) override {
        // A database starts out fully durable.
        const auto at = durable_.try_emplace(schema, true).first;
        if (at->second == powerFailure || InTransaction()) return;
        Run("PRAGMA \"" + schema + "\".synchronous=" + (powerFailure ? "FULL" : "NORMAL"));
        at->second = powerFailure;
    }

    bool InTransaction() const override { return sqlite3_get_autocommit(db_.get()) == 0; }
    std::size_t MostColumns() const override {
        // A changeable result carries the identity of its rows besides the columns.
        return static_cast<std::size_t>(sqlite3_limit(db_.get(), SQLITE_LIMIT_COLUMN, -1)) - 1;
    }
    bool CanWrite() const override { return sqlite3_db_readonly(db_.get(), "main") == 0; }

    void WriteAhead() override {
        if (sqlite3_db_readonly(db_.get(), "main") == 0) Run("PRAGMA journal_mode=WAL");
    }

private:
    DatabaseHandle db_;
    std::map<std::string, bool, std::less<>> durable_;
    std::unique_ptr<EngineStatement> foreign_changes_;
};

bool IsWritable(const std::filesystem::path& path) {
    return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// Whether the engine could not make the files that it keeps beside a database. Where a program that may is
/// at work on it, those files are there and can be read; without them nothing changes the database under us.
bool CannotKeepFilesBeside(const std::filesystem::path& path) {
    std::error_code failure;
    // The engine keeps them beside the file that a link leads to.
    const auto real = std::filesystem::canonical(path, failure);
    return !failure && !IsWritable(real.parent_path()) &&
           !std::filesystem::exists(real.string() + "-wal", failure);
}

/// The path as part of an address, in which three characters have a meaning of their own.
std::string Address(const std::string& path) {
    std::string out = "file:";
    for (const char c : std::filesystem::absolute(path).string()) {
        if (c == '%' || c == '?' || c == '#') {
            constexpr std::string_view digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            out += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        } else {
            out += c;
        }
    }
    return out;
}

DatabaseHandle OpenFile(const std::string& path, bool create) {
    const bool readOnly = !create && CannotKeepFilesBeside(path);
    const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | (create ? SQLITE_OPEN_CREATE : 0) |
                      (readOnly ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE);
    // A leading colon would name a database in memory.
    const std::string name = readOnly                ? Address(path) + "?immutable=1"
                             : path.starts_with(':') ? "./" + path
                                                     : path;
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &raw, flags, nullptr);
    DatabaseHandle db(raw);
    if (code != SQLITE_OK) throw db ? FailureOf(db.get(), {}) : FailureOf(code, sqlite3_errstr(code), {});
    return db;
}

void Execute(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) throw FailureOf(db, sql);
}

void Configure(sqlite3* db) {
    sqlite3_busy_timeout(db, BusyMilliseconds);
    // A name in double quotes that no table has is a failure, not a text.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    RegisterFunctions(db);
    // Reads the head of the file: from here on it is known to be a database.
    Execute(db, "PRAGMA schema_version");
    Execute(db, "PRAGMA synchronous=FULL");
    Execute(db, "PRAGMA foreign_keys=ON");
    Execute(db, "PRAGMA temp_store=MEMORY");
    Execute(db, CacheSize);
}

}  // namespace

}  // namespace sqlite

std::unique_ptr<Engine> OpenEngine(const std::string& path, bool create) {
    std::error_code failure;
    const auto status = std::filesystem::status(path, failure);
    if (path.empty() || (!create && status.type() == std::filesystem::file_type::not_found))
        throw Error(ErrorNumber::FileNotFound, "File not found: '" + path + "'.");
    if (status.type() == std::filesystem::file_type::directory)
        throw Error(ErrorNumber::NotADatabase, "'" + path + "' is a folder, not a database.");
    try {
        auto db = sqlite::OpenFile(path, create);
        sqlite::Configure(db.get());
        auto engine = std::make_unique<sqlite::SqliteEngine>(std::move(db));
        if (create) engine->WriteAhead();
        return engine;
    } catch (const Error& error) {
        throw Error(error.Number(), "'" + path + "': " + error.Description(), {}, error.Translated());
    }
}

}  // namespace FX_Algen::store
