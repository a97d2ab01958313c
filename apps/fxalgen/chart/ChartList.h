#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "fxalgen/Scope.h"

/// The frequency list behind the dominance charts: of which scope it is made, and why it cannot be.
namespace FX_Algen::cli {

/// Scope of a list.
struct ListScope {
    Scope::Kind Kind = Scope::Kind::Projekt;  ///< Projekt or UStelle
    std::int32_t ID = 0;                      ///< ID_PRJ or ID_UUS

    /// "Projekt", "UStelle"
    std::string Word() const;
    friend auto operator<=>(const ListScope&, const ListScope&) = default;
};

/// Chooses the scope of the list that holds a sub-habitat.
class ListScopes {
public:
    explicit ListScopes(store::DatabasePtr database) : database_(std::move(database)) {}

    /// The sub-habitat's project, or its station where the project has more sub-habitats than the list takes
    /// columns: the cells of a sub-habitat do not depend on the others. None where the tree above it is
    /// broken.
    std::optional<ListScope> Of(const Teilraum& teilraum);

private:
    bool Fits(std::int32_t ID_PRJ);

    store::DatabasePtr database_;
    std::map<std::int32_t, bool> known_;
};

/// Why the list of a scope could not be made, in words: the first sub-habitat, in the order of the list, with
/// a number that was not entered, or that there is nothing to list. Where neither is found, the database
/// could not be written.
std::string WhyNoList(store::Database& database, const ListScope& scope);

/// Why a sub-habitat with findings of a group has no relative abundance to show for it: nothing was counted,
/// or there is no total cover. None where it has or where nothing was found.
std::optional<std::string> WhyNoAbundance(store::Database& database, std::int32_t ID_TR, bool diatoms);

/// Names of the taxa found in a sub-habitat with a cover, each once, that the list takes for diatoms because
/// of their major group, such as mosses: it counts their valves and not their cover.
std::vector<std::string> CoveringTaxaTakenForDiatoms(store::Database& database, std::int32_t ID_TR);

}  // namespace FX_Algen::cli
