#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace FX_Algen::cli {

/// Position of the first byte that is not part of well-formed UTF-8; none where all of it is.
std::optional<std::size_t> FirstBadByte(std::string_view text);

/// Columns that a UTF-8 text takes on a terminal: combining marks take none, wide letters two.
std::size_t DisplayWidth(std::string_view text);

}  // namespace FX_Algen::cli
