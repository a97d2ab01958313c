#include "charts/Frame.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "FX_Algen/Texts.h"
#include "charts/Draw.h"
#include "charts/Legend.h"
#include "charts/Style.h"
#include "charts/Wrap.h"
#include "store/Allgemein.h"

namespace FX_Algen::charts {

namespace {

constexpr std::int16_t kPageText = 5610;
constexpr double kGapBelowTitle = 2;
constexpr double kGapAboveLegend = 8;
constexpr double kGapAboveBars = 12;
constexpr double kGapAboveFoot = 8;
constexpr double kLeast = 1;

double Sane(double length) { return std::isfinite(length) ? std::max(kLeast, length) : kLeast; }

/// Adds a text across the page and returns where the next one may begin.
double AddHeading(Page& page, const std::string& text, const Rect& content, double y, const Font& font,
                  const FontMetrics& metrics) {
    const std::vector<std::string> lines = WrapText(text, content.Width, font, metrics);
    if (lines.empty()) return y;
    AddLines(page.Elements, lines, content.X, y, Align::Left, font, kTextColour, metrics);
    return y + TextHeight(lines.size(), font, metrics) + kGapBelowTitle;
}

std::vector<std::string> FootLines(const Chart& chart, double width, const FontMetrics& metrics) {
    std::vector<std::string> all;
    for (const std::string& note : chart.Footnotes)
        for (std::string& line : WrapText(note, width, kFootFont, metrics)) all.push_back(std::move(line));
    return all;
}

}  // namespace

Frame MakeFrame(const Chart& chart, const FontMetrics& metrics, const PageSize& size, bool numbered) {
    Frame frame;
    frame.Empty.Width = Sane(size.Width);
    frame.Empty.Height = Sane(size.Height);
    const double margin = std::clamp(std::isfinite(size.Margin) ? size.Margin : 0.0, 0.0,
                                     std::min(frame.Empty.Width, frame.Empty.Height) / 4);
    frame.Content = {margin, margin, frame.Empty.Width - 2 * margin, frame.Empty.Height - 2 * margin};

    double top = AddHeading(frame.Empty, chart.Title, frame.Content, margin, kTitleFont, metrics);
    top = AddHeading(frame.Empty, chart.Subtitle, frame.Content, top, kSubtitleFont, metrics);
    if (!chart.Sites.empty()) {
        Legend legend =
            MakeLegend(chart, frame.Content.X, top + kGapAboveLegend, frame.Content.Width, metrics);
        if (legend.Height > 0) top += kGapAboveLegend + legend.Height;
        std::move(legend.Elements.begin(), legend.Elements.end(), std::back_inserter(frame.Empty.Elements));
    }
    top += kGapAboveBars;

    // The number has the last line for itself, so that notes have the whole width.
    const std::vector<std::string> notes = FootLines(chart, frame.Content.Width, metrics);
    const std::size_t footLines = notes.size() + (numbered ? 1 : 0);
    double bottom = Bottom(frame.Content);
    if (footLines > 0) {
        frame.NumberY = bottom - metrics.Descent(kFootFont);
        bottom -= TextHeight(footLines, kFootFont, metrics);
        AddLines(frame.Empty.Elements, notes, frame.Content.X, bottom, Align::Left, kFootFont,
                 kQuietTextColour, metrics);
        bottom -= kGapAboveFoot;
    }
    frame.Area = {margin, top, frame.Content.Width, std::max(kLeast, bottom - top)};
    return frame;
}

void AddPageNumber(Page& page, const Frame& frame, std::size_t number, std::size_t count,
                   std::int16_t SprachID) {
    std::string text = Text(kPageText, SprachID);
    text = Allgemein::Str_Ersetzen(text, "|", std::to_string(number + 1));
    text = Allgemein::Str_Ersetzen(text, "~", std::to_string(count));
    page.Elements.emplace_back(Label{.X = Right(frame.Content),
                                     .Y = frame.NumberY,
                                     .Text = text,
                                     .Type = kFootFont,
                                     .Pen = kQuietTextColour,
                                     .Side = Align::Right});
}

std::vector<std::size_t> SpreadOverPages(std::size_t sites, std::size_t most) {
    most = std::max<std::size_t>(1, most);
    const std::size_t pages = (sites + most - 1) / most;
    std::vector<std::size_t> firsts{0};
    for (std::size_t page = 0; page < pages; ++page)
        firsts.push_back(firsts.back() + sites / pages + (page < sites % pages ? 1 : 0));
    return firsts;
}

}  // namespace FX_Algen::charts
