#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FX_Algen/Chart.h"
#include "metrics.h"

/// What holds for every page of every chart.
namespace FX_Algen::charts::test {

inline std::vector<Page> LayOut(const Chart& chart, const PageSize& size = {}) {
    const PlainMetrics metrics;
    return Layout(chart, metrics, size);
}

/// Nothing leaves the margin and no two texts overlap. Half a line's width beside the margin is no harm.
inline void ExpectPagesAreClean(const std::vector<Page>& pages, const PageSize& size,
                                const std::string& what) {
    const PlainMetrics metrics;
    const Rect content{size.Margin, size.Margin, size.Width - 2 * size.Margin, size.Height - 2 * size.Margin};
    for (std::size_t number = 0; number < pages.size(); ++number) {
        const Page& page = pages[number];
        ASSERT_EQ(page.Width, size.Width) << what;
        ASSERT_EQ(page.Height, size.Height) << what;
        for (const Element& element : page.Elements) {
            const Rect box = BoxOf(element, metrics);
            ASSERT_TRUE(Inside(box, content, 0.6))
                << what << ", page " << number << ", element " << element.index() << ": " << box.X << " "
                << box.Y << " " << box.Width << " " << box.Height;
        }
        const std::vector<Label> labels = All<Label>(page);
        for (std::size_t i = 0; i < labels.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                ASSERT_FALSE(Overlap(BoxOf(labels[i], metrics), BoxOf(labels[j], metrics), 0.05))
                    << what << ", page " << number << ": \"" << labels[i].Text << "\" and \""
                    << labels[j].Text << "\"";
    }
}

/// Every site stands on one page, in order, and pages differ by one site at most.
inline void ExpectSitesAreSpread(const std::vector<Page>& pages, std::size_t sites, const std::string& what) {
    std::size_t next = 0;
    std::size_t most = 0;
    std::size_t least = sites;
    for (const Page& page : pages) {
        std::vector<std::size_t> seen;
        for (const DrawnBar& bar : page.Bars)
            if (seen.empty() || seen.back() != bar.Site) seen.push_back(bar.Site);
        for (const std::size_t site : seen) ASSERT_EQ(site, next++) << what;
        most = std::max(most, seen.size());
        least = std::min(least, seen.size());
    }
    ASSERT_EQ(next, sites) << what;
    ASSERT_LE(most - least, 1U) << what;
}

/// The letters of all labels stand on the pages.
inline void ExpectNoLabelIsLost(const Chart& chart, const std::vector<Page>& pages, const std::string& what) {
    const std::string all = Joined(pages);
    for (const Site& site : chart.Sites)
        ASSERT_NE(all.find(WithoutBlanks(site.Label)), std::string::npos) << what << ": " << site.Label;
}

/// Valences of a site, different for each; they add up to 10.
inline Site ValenceSite(std::size_t number, const std::string& label) {
    const double shift = static_cast<double>(number % 5) * 0.25;
    return {label, {0.25, 1.0 + shift, 0.5, 4.0 - shift, 0.75, 2.0, 0.5, 1.0}};
}

/// A chart without sites.
inline Chart NewChart(ChartKind kind, const std::string& title, const std::string& axisTitle,
                      std::vector<Series> allSeries) {
    Chart chart;
    chart.Kind = kind;
    chart.Title = title;
    chart.AxisTitle = axisTitle;
    chart.AllSeries = std::move(allSeries);
    return chart;
}

inline Chart ValenceChart(std::size_t sites, const std::string& label = "Salzach Mündung") {
    Chart chart = NewChart(ChartKind::Stacked, "Algen - Verteilung der saprobiellen Valenzen",
                           "Valenzen (Summe 10)", Valences());
    chart.AxisEnd = 10;
    for (std::size_t i = 0; i < sites; ++i)
        chart.Sites.push_back(ValenceSite(i, label + " " + std::to_string(i)));
    return chart;
}

inline Chart ClassChart(std::size_t sites, ChartKind kind) {
    Chart chart = NewChart(kind, "Taxazahl je Gütestufen", "Anzahl Taxa", QualityClasses());
    chart.WholeNumbers = true;
    for (std::size_t i = 0; i < sites; ++i)
        chart.Sites.push_back({"PS " + std::to_string(i), {1.0, 4.0, 12.0, 9.0, 3.0, std::nullopt, 0.0}});
    return chart;
}

inline Chart DominanceChart(std::size_t taxa) {
    Chart chart = NewChart(ChartKind::Horizontal, "Relative Häufigkeiten Kieselalgen (%)",
                           "relative Häufigkeit (%)", {{9, false, 0, ""}});
    chart.Subtitle = "Algen-Probenstelle: Zell am See";
    for (std::size_t i = 0; i < taxa; ++i)
        chart.Sites.push_back(
            {"Achnanthidium cf. minutissimum " + std::to_string(i), {40.0 / static_cast<double>(i + 1)}});
    return chart;
}

}  // namespace FX_Algen::charts::test
