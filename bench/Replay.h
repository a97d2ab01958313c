#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "store/Engine.h"

/// The statements that the module ran on the engine, taken down to be run again on the engine's own
/// interface.
namespace FX_Algen::bench {

/// A value that was bound to a parameter, as a literal of the engine.
struct Bound {
    enum class Kind { Null, Integer, Real, Text } Is = Kind::Null;
    long long Integer = 0;
    double Real = 0;
    std::string Text;
};

struct Taken {
    std::size_t Statement = 0;  ///< position in `Recording::Texts`
    std::vector<Bound> Values;
};

/// All statements of a run in their order. What only the gateway asks, about the schema and its version, is
/// left out: a bare program knows its tables.
struct Recording {
    std::vector<std::string> Texts;
    std::vector<Taken> Calls;
    std::map<std::string, std::size_t> Known;
};

/// While it lives, every connection that the calling program opens is listened to. One at a time.
class Listener {
public:
    explicit Listener(Recording& recording);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    /// Whether statements are taken down now.
    void Take(bool on) noexcept;
};

/// A bare program that runs what was taken down, each text prepared once. It has the engine opened for it,
/// since some statements call functions that the module gives the engine, and then works on the engine's own
/// interface alone.
class Replay {
public:
    Replay(const std::string& path, const Recording& recording);
    ~Replay();
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;
    /// Runs all calls once; every row is read, column by column.
    void Run();
    void Execute(const std::string& sql);

private:
    const Recording& recording_;
    std::unique_ptr<store::Engine> engine_;
    sqlite3* db_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

}  // namespace FX_Algen::bench
