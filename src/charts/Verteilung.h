#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The distribution chart: one row a sampling site, its values by saprobic level or quality class.
namespace FX_Algen {

/// One bar of a site, as the host's chart control takes it.
struct Balken {
    std::int16_t Farbe = 0;  ///< of a palette of 16 numbers
    bool Muster = false;     ///< drawn with a pattern over the colour
    std::int16_t Musterfarbe = 0;
    std::string Legendentext;
};

/// What a host needs to draw the chart.
struct Verteilungsgrafik {
    std::string SQL;
    std::string Standardtitel;
    std::int16_t Legendenzeilen = 2;
    std::vector<Balken> AlleBalken;
};

/// Works out the chart. `Verteilungsart` 1: saprobic valences, 2: taxa per quality class; none for any other.
/// `Stellenbez` 0 or 1: a site is labelled with station, date and site, 2: with its display name; any other
/// number leaves a statement that the store rejects with 3075. The statement is not opened here.
///
/// Fails with 326 where a text is missing under `SprachID`, with 6 where their sum leaves 16 bits.
std::optional<Verteilungsgrafik> Grafik_Verteilung_Init(std::int16_t Verteilungsart, std::int16_t Stellenbez,
                                                        std::int16_t SprachID);

namespace verteilung {

/// Tables and condition of the chart's rows: sampling sites marked for display, each with the results of its
/// sub-habitat. From "FROM " to a blank at its end.
std::string VonMarkiertenStellen();

}  // namespace verteilung

}  // namespace FX_Algen
