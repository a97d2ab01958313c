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
/// Files of an earlier call that had more pages stay; no charts, no files.
///
/// Needs no window system. Where the process has no application of the toolkit, one without display is made
/// and stays until the process ends: a host with windows makes its own first. Fails with 53 where a folder is
/// missing or a file cannot be written, with 13 where the ending names no format, with 6 where a page is too
/// large for PNG (over 32767 dots a side), with 445 in a process whose application has no fonts.
std::vector<std::string> WritePictures(const std::vector<charts::Chart>& charts, const std::string& path,
                                       const charts::PageSize& size = {});

}  // namespace FX_Algen::ui
