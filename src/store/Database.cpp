#include <algorithm>
#include <limits>

#include "FX_Algen/Store.h"
#include "store/OpenConnection.h"

namespace FX_Algen::store {

namespace {

std::int32_t Clamped(std::int64_t count) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(count, most));
}

}  // namespace

DatabasePtr Workspace::OpenDatabase(const std::string& path) const {
    try {
        return std::make_shared<Database>(OpenConnection(path), path);
    } catch (const Error& error) {
        throw FailureIn("OpenDatabase", error, {});
    }
}

const std::shared_ptr<Connection>& Database::SharedConnection() const {
    if (!connection_)
        throw Error(ErrorNumber::NotADatabase, "The handle on the database '" + name_ + "' is closed.");
    return connection_;
}

const std::string& Database::Name() const { return name_.empty() ? PathOf(*SharedConnection()) : name_; }

RecordsetPtr Database::OpenRecordset(std::string_view source) {
    auto state = std::make_unique<detail::RecordsetState>();
    state->Store = SharedConnection();
    state->Source = source;
    state->Store->Read("OpenRecordset", source, state->Shape, state->Rows);
    return std::make_shared<Recordset>(std::move(state));
}

void Database::Execute(std::string_view statement) {
    affected_ = 0;
    affected_ = Clamped(SharedConnection()->Execute(statement));
}

class TableDefs Database::TableDefs() {
    return store::TableDefs(SharedConnection());
}

TableDef Database::CreateTableDef(std::string name) const { return TableDef(std::move(name)); }

}  // namespace FX_Algen::store
