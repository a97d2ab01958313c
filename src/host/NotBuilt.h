#pragma once

#include <string_view>

namespace FX_Algen::host {

/// Fails with 445 and names the operation: a host that calls it must not take silence for a result.
[[noreturn]] void NotBuilt(std::string_view className, std::string_view operation);

}  // namespace FX_Algen::host
