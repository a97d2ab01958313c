#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Chart.h"
#include "FX_Algen/Store.h"

/// The charts of the module, ready to be drawn: what `AL_PS_Grafik` prepares, with the rows of its statement.
namespace FX_Algen {

/// Which chart of the result table.
struct DistributionRequest {
    store::DatabasePtr Database;
    std::string DBName;
    std::int16_t SprachID = 10000;
    std::int16_t Verteilungsart = 1;  ///< 1 saprobic valences, 2 taxa per quality class
    std::int16_t Stellenbez = 1;      ///< label: 0 or 1 station, date and site; 2 display name of the site
    bool Grouped = false;             ///< bars side by side instead of on top of each other
    /// The sub-habitats (`ID_TR`) whose sampling sites are shown, whatever their marks; absent: the sites
    /// marked for display. The marks (`awaPrStelle.Anzeige`) are the same afterwards, also where the program
    /// is killed meanwhile.
    std::optional<std::vector<std::int32_t>> Teilraeume;
};

/// The distribution chart of `Grafik_Verteilung_Init`: one bar for each sampling site with a result row, as
/// the result table holds it; Null is absent. Footnotes tell of sub-habitats with two results, whose sites
/// have two bars, that of the diatoms alone with "[KA]" behind its name, and of a table that holds no value
/// at all. The axis of valences ends at 10, unless another program left values of another scale. Fails as
/// that operation and its statement do; with 13 where `Verteilungsart` or `Stellenbez` is none of theirs,
/// with 3343 where `Teilraeume` is given and the file is read-only or locked.
charts::Chart ReadDistributionChart(const DistributionRequest& request);

/// Which dominance charts.
struct DominanceRequest {
    store::DatabasePtr Database;
    std::string DBName;
    std::int16_t SprachID = 10000;
    std::string AktUebersicht = "Projekt";  ///< scope of the frequency list
    std::int32_t ProjektID = 0;             ///< `ID_PRJ`, `ID_UUS` or `ID_RechMan`
    std::int32_t TeilraumID = 0;            ///< the sub-habitat
    std::int16_t Algenart = 1;              ///< 1 all but diatoms, 2 diatoms
    float MaxDomWert = 0;                   ///< only taxa above this relative abundance, in percent
    bool Rebuild = true;                    ///< whether the frequency list is made anew first
    bool IstWRRLBerechnung = false;         ///< covers and taxa of the assessment
    std::string Stelle;                     ///< name of the site, shown below the title
};

/// The dominance chart of `Grafik_ArtenDom_Init` for one sub-habitat, most abundant taxon on top. Fails as
/// that operation and its statement do; with 13 where `Algenart` is none of its groups, with 3021 where the
/// list could not be built.
charts::Chart ReadDominanceChart(const DominanceRequest& request);

}  // namespace FX_Algen
