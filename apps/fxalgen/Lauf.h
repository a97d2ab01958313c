#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"

/// The programs' own record of the last classic run (table `fx_Lauf`): a digest of what each calculated
/// sub-habitat was calculated from and of what came out, or how its calculation failed.
namespace FX_Algen::cli {

/// How far a result row can be trusted.
enum class LaufStand : std::uint8_t {
    Current,     ///< findings and ratings are those it was calculated from
    OutOfDate,   ///< they changed since
    Incomplete,  ///< its calculation failed half-way
    Unknown,     ///< another program calculated it, or it was changed since
};

/// English word of a state, for results that programs read: "current", "out of date", "incomplete",
/// "unknown".
std::string_view LaufStandText(LaufStand stand);

struct LaufBefund {
    LaufStand Stand = LaufStand::Unknown;
    std::optional<std::int32_t> Fehlernummer;
    std::string Fehlertext;
};

/// Forgets the run before.
void LaufBeginnen(store::Database& database);
/// Notes a sub-habitat as calculated. Nothing is noted where it has no result row.
void LaufNotieren(store::Database& database, std::int32_t ID_TR);
/// Notes a sub-habitat as failed.
void LaufNotieren(store::Database& database, std::int32_t ID_TR, const Error& error);
/// The state of the result row `ergebnis`, the current row of "SELECT * FROM awaErgProjekt …".
LaufBefund LaufPruefen(store::Database& database, const store::Recordset& ergebnis);

}  // namespace FX_Algen::cli
