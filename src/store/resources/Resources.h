#pragma once

#include <span>
#include <string_view>

/// Files of `data/` that stand inside the library, so that an installed program needs no data folder.
namespace FX_Algen::resources {

/// One embedded text file.
struct Resource {
    std::string_view name;  ///< path below the folder it came from, with "/" as separator
    std::string_view text;  ///< its bytes as they stand, UTF-8
};

std::span<const Resource> schema();   ///< data/schema, in file name order
std::span<const Resource> strings();  ///< data/strings
std::span<const Resource> demo();     ///< data/demo

}  // namespace FX_Algen::resources
