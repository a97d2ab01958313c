#include "store/KeptRows.h"

#include "store/OpenConnection.h"

namespace FX_Algen::store::detail {

std::any Kept(Connection& connection, const std::string& source) {
    const auto& kept = connection.Kept();
    if (!kept || kept->Source != source || !(kept->Since == connection.LastingStamp())) return {};
    return kept->Rows;
}

// The state is noted before the rows are read: a change in between makes them read once more than needed,
// never once too few.
void BeginKeeping(Connection& connection, const std::string& source) {
    connection.Kept() = Connection::Keepsake{source, connection.LastingStamp(), {}};
}

void Keep(Connection& connection, const std::string& source, std::any rows) {
    auto& kept = connection.Kept();
    if (kept && kept->Source == source) kept->Rows = std::move(rows);
}

}  // namespace FX_Algen::store::detail
