#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// Which sub-habitats a command works on.
struct Scope {
    enum class Kind : std::uint8_t { All, Projekt, UStelle, Rechenmanager, Teilraum };

    Kind What = Kind::All;
    std::int32_t ID = 0;  ///< ID_PRJ, ID_UUS, ID_RechMan or ID_TR; 0 for All
};

/// Reads "Projekt:3", "UStelle:3", "Rechenmanager:3" or "Teilraum:3", the words without regard to case.
/// Fails with a `UsageError` that shows the forms allowed.
Scope ParseScope(std::string_view text);

/// A sub-habitat with the names that lead to it and what a host knows of its site. The upper rows may be
/// missing; their fields are Null then.
struct Teilraum {
    std::int32_t ID_TR = 0;
    store::Value ID_PRJ;
    store::Value ID_UUS;
    store::Value PRJBez;
    store::Value ABBez;
    store::Value USBez;
    store::Value Gewaessername;
    store::Value USDatumVon;
    store::Value TRBez;
    store::Value ID_AL_Bioregion;
    store::Value Hoehenstufe;
    bool HatAlgen = false;  ///< has its row in awaTeilraum, without which it is not calculated

    /// "Teilraum 17 (Steinach / Oberlauf / Steinach bei Grün / 2026-05-12 / Stromstrich)" for messages.
    std::string Label() const;
    /// The same for people who read results: word and day as the language writes them.
    std::string Label(std::int16_t SprachID) const;
};

/// The sub-habitats of a scope, each once, in the order of the project tree (of the stored selection for a
/// calculation manager scope). Fails with 3265 where the scope's own row does not exist, and with 3075 where
/// a stored selection has no condition or an unknown level.
std::vector<Teilraum> ReadTeilraeume(store::Database& database, const Scope& scope);

/// A warning where a scope that was asked for holds no sub-habitat, such as a stored selection without
/// members: the run succeeds, and leaves no results.
void WarnOfEmptyScope(std::string_view command, const std::optional<std::string>& scope,
                      const std::vector<Teilraum>& list, std::ostream& err);

}  // namespace FX_Algen::cli
