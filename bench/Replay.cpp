#include "Replay.h"

#include <benchmark/benchmark.h>

#include <cctype>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace FX_Algen::bench {
namespace {

Recording* active = nullptr;
bool taking = false;

bool IsWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// Length of a quoted text or name that begins at `from`.
std::size_t QuotedLength(std::string_view sql, std::size_t from) {
    const char end = sql[from] == '[' ? ']' : sql[from];
    std::size_t at = from + 1;
    while (at < sql.size()) {
        if (sql[at] != end) {
            ++at;
        } else if (at + 1 < sql.size() && sql[at + 1] == end && end != ']') {
            at += 2;
        } else {
            return at + 1 - from;
        }
    }
    return sql.size() - from;
}

/// The text between the parameters, and the number of each parameter.
struct Skeleton {
    std::vector<std::string> Between;
    std::vector<std::size_t> Numbers;
};

Skeleton SkeletonOf(std::string_view sql) {
    Skeleton skeleton;
    std::string piece;
    std::size_t count = 0;
    for (std::size_t at = 0; at < sql.size();) {
        if (sql[at] == '\'' || sql[at] == '"' || sql[at] == '`' || sql[at] == '[') {
            const auto length = QuotedLength(sql, at);
            piece.append(sql.substr(at, length));
            at += length;
        } else if (sql[at] == '?') {
            std::size_t end = at + 1;
            while (end < sql.size() && std::isdigit(static_cast<unsigned char>(sql[end])) != 0) ++end;
            ++count;
            skeleton.Numbers.push_back(
                end > at + 1 ? std::stoul(std::string(sql.substr(at + 1, end - at - 1))) : count);
            skeleton.Between.push_back(std::move(piece));
            piece.clear();
            at = end;
        } else {
            piece += sql[at++];
        }
    }
    skeleton.Between.push_back(std::move(piece));
    return skeleton;
}

Bound BoundOf(std::string_view literal) {
    Bound bound;
    const std::string text(literal);
    if (text == "NULL") return bound;
    if (text.front() == '\'') {
        bound.Is = Bound::Kind::Text;
        for (std::size_t i = 1; i + 1 < text.size(); ++i) {
            bound.Text += text[i];
            if (text[i] == '\'') ++i;
        }
    } else if (text.find_first_of(".eEnN") != std::string::npos) {
        bound.Is = Bound::Kind::Real;
        bound.Real = std::strtod(text.c_str(), nullptr);
    } else {
        bound.Is = Bound::Kind::Integer;
        bound.Integer = std::strtoll(text.c_str(), nullptr, 10);
    }
    return bound;
}

/// The values of a statement: what stands in the expanded text where the parameters were.
std::vector<Bound> ValuesOf(std::string_view sql, std::string_view expanded) {
    const auto skeleton = SkeletonOf(sql);
    std::vector<Bound> values;
    std::size_t at = skeleton.Between.front().size();
    for (std::size_t i = 0; i < skeleton.Numbers.size(); ++i) {
        std::size_t end = at;
        if (expanded[at] == '\'') {
            end += QuotedLength(expanded, at);
        } else {
            while (end < expanded.size() && (IsWord(expanded[end]) || expanded[end] == '.' ||
                                             expanded[end] == '-' || expanded[end] == '+'))
                ++end;
        }
        if (values.size() < skeleton.Numbers[i]) values.resize(skeleton.Numbers[i]);
        values[skeleton.Numbers[i] - 1] = BoundOf(expanded.substr(at, end - at));
        at = end + skeleton.Between[i + 1].size();
    }
    return values;
}

bool IsOfTheGateway(std::string_view sql) {
    return sql.starts_with("PRAGMA") || sql.starts_with("--") ||
           sql.find("sqlite_") != std::string_view::npos || sql.find("pragma_") != std::string_view::npos;
}

int Note(unsigned, void*, void* statement, void* text) {
    if (!taking || active == nullptr) return 0;
    auto* prepared = static_cast<sqlite3_stmt*>(statement);
    const std::string_view shown = static_cast<const char*>(text);
    const char* sql = sqlite3_sql(prepared);
    if (sql == nullptr || IsOfTheGateway(shown) || IsOfTheGateway(sql)) return 0;
    char* expanded = sqlite3_expanded_sql(prepared);
    const auto [known, added] = active->Known.emplace(sql, active->Texts.size());
    if (added) active->Texts.emplace_back(sql);
    active->Calls.push_back({known->second, ValuesOf(sql, expanded)});
    sqlite3_free(expanded);
    return 0;
}

int ListenTo(sqlite3* db, const char**, const void*) {
    return sqlite3_trace_v2(db, SQLITE_TRACE_STMT, Note, nullptr);
}

sqlite3* opened = nullptr;

int Remember(sqlite3* db, const char**, const void*) {
    opened = db;
    return SQLITE_OK;
}

using Extension = int (*)(sqlite3*, const char**, const void*);
using Entry = void (*)();
/// Extensions of the engine take other arguments than the type of their entry point says.
Entry EntryPoint(Extension extension) { return reinterpret_cast<Entry>(extension); }

void Read(sqlite3_stmt* row, int column) {
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_INTEGER:
            benchmark::DoNotOptimize(sqlite3_column_int64(row, column));
            break;
        case SQLITE_FLOAT:
            benchmark::DoNotOptimize(sqlite3_column_double(row, column));
            break;
        case SQLITE_TEXT:
            benchmark::DoNotOptimize(sqlite3_column_text(row, column));
            break;
        default:
            break;
    }
}

void Bind(sqlite3_stmt* statement, int index, const Bound& value) {
    switch (value.Is) {
        case Bound::Kind::Null:
            sqlite3_bind_null(statement, index);
            break;
        case Bound::Kind::Integer:
            sqlite3_bind_int64(statement, index, value.Integer);
            break;
        case Bound::Kind::Real:
            sqlite3_bind_double(statement, index, value.Real);
            break;
        case Bound::Kind::Text:
            sqlite3_bind_text(statement, index, value.Text.data(), static_cast<int>(value.Text.size()),
                              SQLITE_STATIC);
            break;
    }
}

}  // namespace

Listener::Listener(Recording& recording) {
    active = &recording;
    taking = false;
    sqlite3_auto_extension(EntryPoint(&ListenTo));
}

Listener::~Listener() {
    sqlite3_cancel_auto_extension(EntryPoint(&ListenTo));
    active = nullptr;
    taking = false;
}

void Listener::Take(bool on) noexcept { taking = on; }

Replay::Replay(const std::string& path, const Recording& recording)
    : recording_(recording), statements_(recording.Texts.size()) {
    sqlite3_auto_extension(EntryPoint(&Remember));
    engine_ = store::OpenEngine(path, false);
    sqlite3_cancel_auto_extension(EntryPoint(&Remember));
    db_ = opened;
    Execute("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-16384;");
}

Replay::~Replay() {
    for (auto* statement : statements_) sqlite3_finalize(statement);
}

void Replay::Execute(const std::string& sql) {
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(db_));
}

void Replay::Run() {
    for (const auto& call : recording_.Calls) {
        auto*& statement = statements_[call.Statement];
        const auto& text = recording_.Texts[call.Statement];
        // A text over a table that is made later can be prepared only now.
        if (statement == nullptr && sqlite3_prepare_v3(db_, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                                                       &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(text + ": " + sqlite3_errmsg(db_));
        for (std::size_t i = 0; i < call.Values.size(); ++i)
            Bind(statement, static_cast<int>(i) + 1, call.Values[i]);
        int state = sqlite3_step(statement);
        for (; state == SQLITE_ROW; state = sqlite3_step(statement)) {
            const int columns = sqlite3_column_count(statement);
            for (int column = 0; column < columns; ++column) Read(statement, column);
        }
        if (state != SQLITE_DONE) throw std::runtime_error(text + ": " + sqlite3_errmsg(db_));
        sqlite3_reset(statement);
    }
}

}  // namespace FX_Algen::bench
