#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"
#include "store/load/Tables.h"

namespace FX_Algen::store::load {

/// A column whose values are keys of another table.
struct Reference {
    std::string_view Table;
    std::string_view Column;
    std::string_view Parent;
    std::string_view Key;
    bool ZeroIsNone = true;  ///< 0 refers to nothing, like Null
};

/// All references that loading checks, in the order of the referring tables.
std::span<const Reference> References();

/// The references of one table.
std::vector<Reference> ReferencesOf(std::string_view table);

/// Values of the column that no row of the parent has as its key, in ascending order; keys that were declared
/// as deleted (`DeletedKeys`) are none of them.
std::vector<std::int64_t> DanglingKeys(Engine& engine, const Reference& reference);

}  // namespace FX_Algen::store::load
