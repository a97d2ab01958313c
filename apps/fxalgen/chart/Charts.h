#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/Chart.h"
#include "FX_Algen/Store.h"
#include "fxalgen/Command.h"
#include "fxalgen/Scope.h"

/// What the command `chart` draws, and with what it draws.
namespace FX_Algen::cli {

/// The charts of a call, and what is to be told of them on standard error once the progress bar is gone.
struct ChartSet {
    std::vector<charts::Chart> Charts;  ///< none: there is nothing to draw, and a message says why
    std::vector<std::string> Messages;
    bool Failed = false;  ///< a sub-habitat lacks its chart because its work failed
};

/// The database of a call, and the language of its charts.
struct ChartSource {
    store::DatabasePtr Database;
    std::string DBName;
    std::int16_t SprachID = 10000;
};

/// Which distribution chart.
struct DistributionOptions {
    std::int16_t Verteilungsart = 1;  ///< 1 saprobic valences, 2 taxa per quality class
    std::int16_t Stellenbez = 1;      ///< 1 station, date and site; 2 display name of the site
    bool Grouped = false;
};

/// The distribution chart of sub-habitats, as the result table holds them: what is missing, out of date or
/// empty in it is told in messages, and at the foot of the chart where a reader of the picture must know.
ChartSet DistributionCharts(const ChartSource& source, const std::vector<Teilraum>& list,
                            const DistributionOptions& options, Streams& streams);

/// Which dominance charts.
struct DominanceOptions {
    float MaxDomWert = 0;  ///< only taxa above this relative abundance, in percent
    bool Diatoms = false;  ///< the diatoms instead of all others
};

/// One dominance chart a sub-habitat that has a taxon to show, in the order of the list. The frequency list
/// is that of the sub-habitat's own project; it is made once while the project stays the same.
ChartSet DominanceCharts(const ChartSource& source, const std::vector<Teilraum>& list,
                         const DominanceOptions& options, Streams& streams);

/// Writes charts to a path, whose ending names the format, and returns the paths written. Empty: there is
/// nothing to draw with.
using PictureWriter = std::function<std::vector<std::string>(const std::vector<charts::Chart>& charts,
                                                             const std::string& path)>;

/// `ui::WritePictures`; empty in a build without it.
PictureWriter BuiltInPictures();

/// The command with another writer than that of the build.
std::unique_ptr<Command> MakeChartCommand(PictureWriter pictures);

}  // namespace FX_Algen::cli
