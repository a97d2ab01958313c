#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Chart.h"

/// Charts as files. Of the library `FX_Algen_ui`; no header of the toolkit is needed to use it.
namespace FX_Algen::ui {

enum class PictureFormat : std::uint8_t { Svg, Png, Pdf };

/// The format that the ending of a path names, without regard to case; none for any other ending.
std::optional<PictureFormat> PictureFormatOf(std::string_view path);

/// Writes charts, one behind the other, and returns the paths written. A PDF holds all pages; of SVG and PNG
/// the first page stands under `path` itself and each further one beside it as "<name>-2.svg",
/// "<name>-3.svg", … A file is complete or absent: it is written beside its place and then renamed.
///
/// Needs no window system. Fails with 53 where the folder is missing or cannot be written, with 13 where
/// the ending names no format.
std::vector<std::string> WritePictures(const std::vector<charts::Chart>& charts, const std::string& path,
                                       const charts::PageSize& size = {});

}  // namespace FX_Algen::ui
