#include "store/AppendRows.h"

#include "store/OpenConnection.h"

namespace FX_Algen::store {

namespace {

std::string InsertOf(std::string_view table, const std::vector<std::string>& columns) {
    std::string names;
    std::string places;
    for (const auto& column : columns) {
        names.append(names.empty() ? "" : ", ").append(Quoted(column));
        places.append(places.empty() ? "?" : ", ?");
    }
    return "INSERT INTO " + Quoted(table) + " (" + names + ") VALUES (" + places + ")";
}

}  // namespace

void AppendRows(const std::shared_ptr<Connection>& connection, std::string_view table,
                const std::vector<std::string>& columns, std::size_t rows, const RowBinder& bind) {
    if (rows == 0) return;
    const auto sql = InsertOf(table, columns);
    try {
        Savepoint together(connection, !IsScratchTable(table));
        // Not one of the statements kept ready: its columns come once.
        const auto insert = connection->TheEngine().Prepare(sql);
        for (std::size_t row = 0; row < rows; ++row) {
            const RowChange change(*connection, table);
            const StatementUse use(*insert);
            bind(*insert, row);
            insert->Step();
        }
        together.Keep();
    } catch (const Error& error) {
        throw FailureIn("AppendRows", error, {}, sql);
    }
}

}  // namespace FX_Algen::store
