#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "store/Engine.h"
#include "store/dialect/Catalogue.h"

namespace FX_Algen::store {

/// One open database file with its catalogue and its statement cache; all handles on one path share it.
/// The class itself is known to the gateway's own files only; what other parts of the library need of it
/// stands here.
class Connection;

/// The connection for `path` that the thread has open already, or a new one. Checks the layout version.
std::shared_ptr<Connection> OpenConnection(const std::string& path);
Engine& EngineOf(Connection& connection);
const dialect::Catalogue& CatalogueOf(Connection& connection);
const std::string& PathOf(const Connection& connection);
/// Whether both have the same file open, by whatever paths and in whatever threads.
bool AreOfOneFile(const Connection& one, const Connection& other);
/// Columns that a table can have at most so that all of them can be opened and changed.
std::size_t MostColumns(Connection& connection);
/// To be called after tables were created, altered or dropped behind the gateway's back.
void SchemaChanged(Connection& connection);

/// A nested unit of changes that is undone when it goes out of scope, unless `Keep` was called. The module's
/// own routines show none to the outside; explanations and loading do. One that stands in no other leaves the
/// file as it was when it is undone: other connections see no change at all.
class Savepoint {
public:
    /// `durable`: whether the changes must survive a power failure, as what a person entered must.
    explicit Savepoint(std::shared_ptr<Connection> connection, bool durable = true);
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    void Keep();

private:
    std::shared_ptr<Connection> connection_;
    std::string name_;
    bool outermost_;
    bool open_ = true;
};

}  // namespace FX_Algen::store
