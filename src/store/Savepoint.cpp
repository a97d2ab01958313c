#include "store/Connection.h"
#include "store/OpenConnection.h"

namespace FX_Algen::store {

Savepoint::Savepoint(std::shared_ptr<Connection> connection, bool durable)
    : connection_(std::move(connection)), outermost_(!connection_->TheEngine().InTransaction()) {
    // Savepoints may nest; the engine takes the innermost of a name, so one name would do. Names of their
    // own keep a forgotten one from taking another's place.
    static thread_local std::int64_t count = 0;
    name_ = "fx_savepoint_" + std::to_string(++count);
    auto& engine = connection_->TheEngine();
    engine.Durable(durable);  // inside it nothing of that can be changed any more
    engine.Run("SAVEPOINT " + name_);
}

Savepoint::~Savepoint() {
    if (!open_) return;
    connection_->Undone();
    try {
        // Releasing the outermost one would commit: a change of the file, though none of its rows.
        connection_->TheEngine().Run(outermost_ ? "ROLLBACK" : "ROLLBACK TO " + name_ + "; RELEASE " + name_);
        connection_->RefreshSchema();
    } catch (const Error&) {
        // Only a failing disk leads here; the engine has undone the changes itself then.
    }
}

void Savepoint::Keep() {
    if (!open_) return;
    connection_->TheEngine().Run("RELEASE " + name_);
    open_ = false;
}

}  // namespace FX_Algen::store
