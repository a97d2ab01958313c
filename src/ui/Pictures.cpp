#include "FX_Algen/ui/Pictures.h"

#include <algorithm>
#include <filesystem>

#include "FX_Algen/Error.h"
#include "ui/Application.h"
#include "ui/Fonts.h"
#include "ui/PageFiles.h"

namespace FX_Algen::ui {

std::optional<PictureFormat> PictureFormatOf(std::string_view path) {
    auto ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    if (ending == ".svg") return PictureFormat::Svg;
    if (ending == ".png") return PictureFormat::Png;
    if (ending == ".pdf") return PictureFormat::Pdf;
    return std::nullopt;
}

std::vector<std::string> WritePictures(const std::vector<charts::Chart>& charts, const std::string& path,
                                       const charts::PageSize& size) {
    const auto format = PictureFormatOf(path);
    if (!format)
        throw Error(ErrorNumber::TypeMismatch,
                    "Pictures: the ending of '" + path + "' names no format. Use .svg, .png or .pdf.");
    NeedApplication();
    CheckPlace(path);
    const PageFontMetrics metrics;
    std::vector<TitledPage> pages;
    for (const auto& chart : charts) {
        for (auto& page : charts::Layout(chart, metrics, size))
            pages.push_back({chart.Title, std::move(page)});
    }
    return WritePages(pages, *format, path);
}

}  // namespace FX_Algen::ui
