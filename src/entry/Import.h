#pragma once

#include <memory>

#include "FX_Algen/Import.h"

namespace FX_Algen::entry {

/// The import component that the host's maker gives for the calling thread; none where no maker is
/// installed, and where it fails in whatever way: a sheet without import is no failure.
std::unique_ptr<ImportComponent> MakeImport() noexcept;

}  // namespace FX_Algen::entry
