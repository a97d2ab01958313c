#pragma once

#include <string_view>

namespace FX_Algen::store::dialect {

/// Whether two names are the same without regard to case; as `Fold(a) == Fold(b)`, without copies where
/// both are plain ASCII.
bool SameName(std::string_view a, std::string_view b);

}  // namespace FX_Algen::store::dialect
