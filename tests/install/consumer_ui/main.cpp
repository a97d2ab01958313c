// A host with windows in small: writes a chart as a picture, then shows it.

#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "FX_Algen/Error.h"
#include "FX_Algen/ui/ChartWidget.h"
#include "FX_Algen/ui/Pictures.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: consumer_ui <new picture>\n";
        return EXIT_FAILURE;
    }
    const std::string path = argv[1];
    FX_Algen::charts::Chart chart;
    chart.Title = "Güteklassen";
    chart.AxisTitle = "Taxa [Anzahl]";
    chart.AllSeries = {{9, false, 0, "I"}};
    chart.Sites = {{"Mündung", {3.0}}};
    try {
        const QApplication application(argc, argv);
        const auto written = FX_Algen::ui::WritePictures({chart}, path);
        FX_Algen::ui::ChartWidget widget;
        widget.SetChart(chart);
        widget.show();
        std::cout << written.size() << " file, " << widget.PageCount() << " page\n";
        return written.size() == 1 && written[0] == path && widget.PageCount() == 1 ? EXIT_SUCCESS
                                                                                    : EXIT_FAILURE;
    } catch (const FX_Algen::Error& error) {
        std::cerr << error.Number() << ": " << error.Description() << '\n';
        return EXIT_FAILURE;
    }
}
