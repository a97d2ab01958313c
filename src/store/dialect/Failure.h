#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace FX_Algen::store::dialect {

/// Throws `Error` for a statement, with line, column (both from 1, in characters) and the text at `offset`.
[[noreturn]] void FailAt(std::int32_t number, std::string_view statement, std::size_t offset,
                         std::string_view why);

}  // namespace FX_Algen::store::dialect
