#pragma once

#include <string>
#include <vector>

#include "FX_Algen/Chart.h"
#include "FX_Algen/ui/Pictures.h"

namespace FX_Algen::ui {

/// A page with the title that its file tells.
struct TitledPage {
    std::string Title;
    charts::Page Page;
};

/// Paths of the files that `pages` pages take: one for a PDF, else "<name>.svg", "<name>-2.svg", …
std::vector<std::string> PagePaths(const std::string& path, PictureFormat format, std::size_t pages);

/// Fails with 53 where no file can be made under `path`, naming it, the reason and what to do.
void CheckPlace(const std::string& path);

/// Writes the pages to `PagePaths` and returns these. Each file is complete or absent. Fails with 53 where a
/// file cannot be written and with 6 where a page is too large for a picture of dots.
std::vector<std::string> WritePages(const std::vector<TitledPage>& pages, PictureFormat format,
                                    const std::string& path);

}  // namespace FX_Algen::ui
