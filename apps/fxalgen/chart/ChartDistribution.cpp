#include <algorithm>
#include <map>

#include "FX_Algen/ChartData.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Progress.h"
#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/chart/Charts.h"
#include "fxalgen/record/Lauf.h"

namespace FX_Algen::cli {

namespace {

constexpr std::size_t NamesAtTheFoot = 5;

/// What a state means for the reader of a chart, and for the person who draws it.
struct StateWords {
    LaufStand Stand;
    std::int16_t Footnote;
    const char* Message;
};

constexpr StateWords States[] = {
    {LaufStand::OutOfDate, words::ChartOutOfDate, "out of date; run: fxalgen calculate (or assess)"},
    {LaufStand::Incomplete, words::ChartIncomplete,
     "incomplete, since their calculation failed; 'fxalgen results' tells how"},
    {LaufStand::Unknown, words::ChartUnknown,
     "of unknown state: not calculated by this program, or changed since"},
};

/// What the result table holds for the sub-habitats of a chart.
struct Results {
    std::int32_t Rows = 0;           ///< that are shown
    std::int32_t Without = 0;        ///< sub-habitats with an algae sample and no row
    std::int32_t WithoutSample = 0;  ///< sub-habitats with neither
    std::int32_t NotDrawn = 0;       ///< sub-habitats with a row that the chart cannot reach
    std::int32_t Twice = 0;          ///< sub-habitats with a second row, from their diatoms alone
    std::int32_t SeveralSites = 0;   ///< sub-habitats with more than one sampling site, each with a bar
    std::map<LaufStand, std::vector<std::string>> States;  ///< names of the rows that are shown
};

/// The sampling sites that the chart reaches, counted by sub-habitat: those with covers and a whole project
/// tree above.
std::map<std::int32_t, std::int32_t> ReachableSites(store::Database& database) {
    std::map<std::int32_t, std::int32_t> sites;
    const auto rows = database.OpenRecordset(
        "SELECT awaPrStelle.ID_TR AS TeilraumNr FROM ((((awaPrStelle "
        "INNER JOIN awaTeilraum ON awaPrStelle.ID_TR = awaTeilraum.ID_TR) "
        "INNER JOIN Teilraum ON awaTeilraum.ID_TR = Teilraum.ID_TR) "
        "INNER JOIN VerUStelle ON Teilraum.ID_VUS = VerUStelle.ID_VUS) "
        "INNER JOIN UnvUStelle ON VerUStelle.ID_UUS = UnvUStelle.ID_UUS) "
        "INNER JOIN Abschnitt ON UnvUStelle.ID_AB = Abschnitt.ID_AB;");
    for (; !rows->Eof(); rows->MoveNext()) ++sites[(*rows)["TeilraumNr"].I4()];
    return sites;
}

/// "Brücke 12.05.2026 Strom", with "[KA]" for the row from the diatoms alone.
std::string NameOf(const Teilraum& teilraum, const store::Value& KAOnly, std::int16_t SprachID) {
    std::string name;
    for (const store::Value* part : {&teilraum.USBez, &teilraum.USDatumVon, &teilraum.TRBez}) {
        if (part->IsNull()) continue;
        name.append(name.empty() ? "" : " ").append(DisplayText(*part, SprachID));
    }
    if (!KAOnly.IsNull() && KAOnly.Bool()) name += " [KA]";
    return name;
}

Results ReadResults(const ChartSource& source, const std::vector<Teilraum>& list, Streams& streams) {
    Results results;
    const std::map<std::int32_t, std::int32_t> sites = ReachableSites(*source.Database);
    Laufpruefung pruefung(source.Database);
    Progress progress(streams, Text(words::ChartProgress, source.SprachID), list.size());
    std::size_t done = 0;
    for (const Teilraum& teilraum : list) {
        progress.Show(done++);
        const auto rows = source.Database->OpenRecordset(
            "SELECT * FROM awaErgProjekt WHERE ID=" + store::NumberText(teilraum.ID_TR) +
            " ORDER BY KAOnly;");
        if (rows->Eof()) {
            ++(teilraum.HatAlgen ? results.Without : results.WithoutSample);
            continue;
        }
        const auto own = sites.find(teilraum.ID_TR);
        if (own == sites.end()) {
            ++results.NotDrawn;
            continue;
        }
        if (own->second > 1) ++results.SeveralSites;
        std::int32_t count = 0;
        for (; !rows->Eof(); rows->MoveNext(), ++count) {
            results.States[pruefung.Ergebnis(*rows).Stand].push_back(
                NameOf(teilraum, (*rows)["KAOnly"], source.SprachID));
        }
        results.Rows += count;
        if (count > 1) ++results.Twice;
    }
    return results;
}

/// "1 sub-habitat has …", "3 sub-habitats have …"
std::string Counted(std::int32_t count, const char* one, const char* many) {
    return store::NumberText(count) +
           (count == 1 ? " sub-habitat " + std::string(one) : " sub-habitats " + std::string(many));
}

std::vector<std::string> MessagesOf(const Results& results) {
    std::vector<std::string> messages;
    const auto warn = [&](std::int32_t count, const char* one, const char* many, const std::string& rest) {
        if (count > 0) messages.push_back("warning: " + Counted(count, one, many) + " " + rest);
    };
    warn(results.Without, "has", "have", "no result and no bar; run: fxalgen calculate");
    warn(results.WithoutSample, "has", "have", "no algae sample (no row in awaTeilraum) and no bar");
    warn(results.NotDrawn, "has", "have",
         "a result and no bar, for want of a sampling site (awaPrStelle), of covers (awaTeilraum) or of the "
         "project tree above");
    warn(results.Twice, "appears", "appear",
         "twice: an assessment left one result from all algae groups and one from the diatoms alone");
    warn(results.SeveralSites, "has", "have",
         "several sampling sites: the bar of each of them shows the result of the whole sub-habitat");
    for (const StateWords& state : States) {
        const auto found = results.States.find(state.Stand);
        if (found == results.States.end()) continue;
        const auto count = static_cast<std::int32_t>(found->second.size());
        messages.push_back("warning: " + store::NumberText(count) +
                           (count == 1 ? " result is " : " results are ") + state.Message);
    }
    return messages;
}

/// The first names, and how many more there are; "all" where none of several bars is left out.
std::string Names(const std::vector<std::string>& names, std::int32_t rows, std::int16_t SprachID) {
    if (rows > 1 && names.size() == static_cast<std::size_t>(rows)) return Text(words::AllShown, SprachID);
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), NamesAtTheFoot); ++i) {
        text.append(text.empty() ? "" : "; ").append(names[i]);
    }
    if (names.size() > NamesAtTheFoot) {
        text += " " + WithNumber(words::AndFurther, SprachID,
                                 static_cast<std::int32_t>(names.size() - NamesAtTheFoot));
    }
    return text;
}

void AddFootnotes(charts::Chart& chart, const Results& results, std::int16_t SprachID) {
    if (results.SeveralSites > 0) chart.Footnotes.push_back(Text(words::SeveralSites, SprachID));
    for (const StateWords& state : States) {
        const auto found = results.States.find(state.Stand);
        if (found == results.States.end()) continue;
        chart.Footnotes.push_back(
            With(state.Footnote, SprachID, Names(found->second, results.Rows, SprachID)));
    }
}

bool IsEmpty(const charts::Site& site) {
    return std::none_of(site.Values.begin(), site.Values.end(),
                        [](const std::optional<double>& value) { return value.has_value(); });
}

/// Bars of which nothing is seen, since the columns behind them are Null.
std::optional<std::string> EmptyBars(const charts::Chart& chart, std::int16_t Verteilungsart) {
    const auto empty = std::count_if(chart.Sites.begin(), chart.Sites.end(), IsEmpty);
    if (empty == 0) return std::nullopt;
    const bool all = static_cast<std::size_t>(empty) == chart.Sites.size();
    const std::string bars = all ? "the chart is empty" : std::to_string(empty) + " of its bars are empty";
    if (Verteilungsart != 1) return "warning: " + bars + ", since the class counts are Null";
    return "warning: " + bars +
           ", since the columns of the valences (awaErgProjekt.Xeno to Poly) are Null: the calculation does "
           "not fill them, they are there for databases that other programs have filled";
}

}  // namespace

ChartSet DistributionCharts(const ChartSource& source, const std::vector<Teilraum>& list,
                            const DistributionOptions& options, Streams& streams) {
    const Results results = ReadResults(source, list, streams);
    ChartSet set;
    set.Messages = MessagesOf(results);
    if (results.Rows == 0) {
        set.Messages.emplace_back(
            "there is no result to draw, and no picture was written; run: fxalgen calculate");
        return set;
    }
    DistributionRequest request;
    request.Database = source.Database;
    request.DBName = source.DBName;
    request.SprachID = source.SprachID;
    request.Verteilungsart = options.Verteilungsart;
    request.Stellenbez = options.Stellenbez;
    request.Grouped = options.Grouped;
    request.Teilraeume.emplace();
    for (const Teilraum& teilraum : list) request.Teilraeume->push_back(teilraum.ID_TR);
    charts::Chart chart = ReadDistributionChart(request);
    AddFootnotes(chart, results, source.SprachID);
    if (const auto message = EmptyBars(chart, options.Verteilungsart)) set.Messages.push_back(*message);
    set.Charts.push_back(std::move(chart));
    return set;
}

}  // namespace FX_Algen::cli
