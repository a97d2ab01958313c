#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Connection.h"
#include "store/Engine.h"

namespace FX_Algen::store {

/// Binds the values of a row to the parameters of its insert, one a column, in the kinds of the columns.
using RowBinder = std::function<void(EngineStatement& insert, std::size_t row)>;

/// Appends whole rows to a table in one go: all of them, or none where one fails. They are as durable as the
/// table's rows need.
void AppendRows(const std::shared_ptr<Connection>& connection, std::string_view table,
                const std::vector<std::string>& columns, std::size_t rows, const RowBinder& bind);

}  // namespace FX_Algen::store
