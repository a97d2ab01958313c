// The charts as they are drawn: the class is called as any host does, and its statement opened.
#include "FX_Algen/ChartData.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "FX_Algen/AL_PS_Grafik.h"
#include "FX_Algen/Error.h"
#include "calc/Lesen.h"
#include "charts/Verteilung.h"
#include "store/Allgemein.h"
#include "store/Connection.h"
#include "store/Strings.h"

namespace FX_Algen {
namespace {

constexpr std::string_view Distribution = "ReadDistributionChart";
constexpr std::string_view Dominance = "ReadDominanceChart";

/// Offsets of the texts that the module itself does not have.
enum Offset : std::int16_t {
    ValencesToTen = 5580,
    Valences,
    NumberOfTaxa,
    RelativeAbundance,
    NoResults,
    NothingAbove,
    NoName,
    OnlyAbove,
    TwoResults,
    NoValues,
};

constexpr std::int16_t English = 20000;
constexpr double WholeOfValences = 10;

std::string Trimmed(const std::string& text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

/// The name of a site or taxon. Where the parts of a name are missing, its bar is shown all the same.
std::string NameOr(const store::Value& name, std::int16_t SprachID) {
    const auto text = name.IsNull() ? std::string() : Trimmed(name.Text());
    return text.empty() ? store::Text(NoName, SprachID) : text;
}

[[noreturn]] void FailMismatch(std::string_view operation, std::string_view member, std::int16_t value) {
    throw Error(ErrorNumber::TypeMismatch, std::string(operation) + ": " + std::string(member) + " " +
                                               std::to_string(value) + " selects nothing.");
}

// ---- marks ---------------------------------------------------------------------------------------------

void MarkChunk(store::Database& database, std::span<const std::int32_t> chunk) {
    std::string list;
    for (const auto id : chunk) list.append(list.empty() ? "" : ",").append(store::NumberText(id));
    database.Execute("UPDATE awaPrStelle SET Anzeige=True WHERE ID_TR IN (" + list + ");");
}

/// Marks the sampling sites of these sub-habitats for display, and no other.
void Mark(store::Database& database, std::span<const std::int32_t> subhabitats) {
    constexpr std::size_t mostAtOnce = 200;  // a statement takes only so many constants
    database.Execute("UPDATE awaPrStelle SET Anzeige=False WHERE Anzeige=True;");
    while (!subhabitats.empty()) {
        const auto chunk = subhabitats.first(std::min(mostAtOnce, subhabitats.size()));
        MarkChunk(database, chunk);
        subhabitats = subhabitats.subspan(chunk.size());
    }
}

// ---- distribution --------------------------------------------------------------------------------------

void Check(const DistributionRequest& request) {
    if (request.Verteilungsart < 1 || request.Verteilungsart > 2)
        FailMismatch(Distribution, "Verteilungsart", request.Verteilungsart);
    if (request.Stellenbez < 0 || request.Stellenbez > 2)
        FailMismatch(Distribution, "Stellenbez", request.Stellenbez);
}

AL_PS_Grafik Prepared(const DistributionRequest& request) {
    AL_PS_Grafik grafik;
    grafik.CurrentDB(request.Database);
    grafik.SprachID(request.SprachID);
    grafik.DBName(request.DBName);
    grafik.Grafik_Verteilungsart(request.Verteilungsart);
    grafik.Grafik_Stellenbez(request.Stellenbez);
    grafik.Grafik_Verteilung_Init();
    return grafik;
}

std::vector<charts::Series> SeriesOf(const AL_PS_Grafik& grafik) {
    std::vector<charts::Series> all;
    for (std::int16_t i = 1; i <= grafik.Grafik_Balkenanzahl(); ++i) {
        charts::Series series;
        series.ColourNumber = grafik.Grafik_Balkenfarbe(i).I2();
        series.Hatched = grafik.Grafik_Balkenmuster(i).Bool();
        series.HatchColourNumber = grafik.Grafik_Balkenmusterfarbe(i).I2();
        series.Legend = grafik.Grafik_Legendentext(i).Text();
        all.push_back(std::move(series));
    }
    return all;
}

std::optional<double> NumberOf(const store::Value& value) {
    if (value.IsNull()) return std::nullopt;
    return value.R8();
}

/// The statement with one more column in front, by which the two results of a sub-habitat can be told apart:
/// its rows are the same, that of all algae before that of the diatoms.
std::string WithKAOnly(const std::string& sql) {
    const std::string select = "SELECT DISTINCTROW ";
    return select + "awaErgProjekt.KAOnly, " + sql.substr(select.size(), sql.size() - select.size() - 1) +
           ", awaErgProjekt.KAOnly;";
}

std::string LabelOf(const store::Recordset& row, std::int16_t SprachID) {
    const auto& KAOnly = row["KAOnly"];
    return NameOr(row["Stelle"], SprachID) + (!KAOnly.IsNull() && KAOnly.Bool() ? " [KA]" : "");
}

std::vector<charts::Site> SitesOf(store::Database& database, const AL_PS_Grafik& grafik,
                                  std::int16_t SprachID) {
    std::vector<charts::Site> sites;
    const auto rows = database.OpenRecordset(WithKAOnly(grafik.Grafik_SQL()));
    const auto first = rows->FieldIndex("Wert1");
    for (; !rows->Eof(); rows->MoveNext()) {
        charts::Site site{LabelOf(*rows, SprachID), {}};
        for (std::size_t i = 0; i < static_cast<std::size_t>(grafik.Grafik_Balkenanzahl()); ++i)
            site.Values.push_back(NumberOf((*rows)[first + i]));
        sites.push_back(std::move(site));
    }
    rows->Close();
    return sites;
}

/// Whether a site stands twice, since its sub-habitat has a result over all algae and one over the diatoms.
bool HasTwins(store::Database& database) {
    const auto rows = database.OpenRecordset("SELECT awaPrStelle.ID_PS, Count(*) AS Zeilen " +
                                             verteilung::VonMarkiertenStellen() +
                                             "GROUP BY awaPrStelle.ID_PS HAVING Count(*)>1;");
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

bool HasNoValue(const charts::Site& site) {
    return std::none_of(site.Values.begin(), site.Values.end(), [](const auto& v) { return v.has_value(); });
}

/// Length of the longest bar.
double Longest(const charts::Chart& chart) {
    double longest = 0;
    for (const auto& site : chart.Sites) {
        double stack = 0;
        for (const auto& value : site.Values) {
            stack = chart.Kind == charts::ChartKind::Grouped ? value.value_or(0) : stack + value.value_or(0);
            longest = std::max(longest, stack);
        }
    }
    return longest;
}

/// The valences of a site make up 10. What another program left may be of another scale, and is then shown
/// on its own.
void SetAxis(charts::Chart& chart, std::int16_t Verteilungsart) {
    constexpr double rounding = 0.05;  // of eight values with two decimals
    if (Verteilungsart == 2) {
        chart.WholeNumbers = true;
        chart.AxisTitle = store::Text(NumberOfTaxa, chart.SprachID);
        return;
    }
    const bool toTen = Longest(chart) <= WholeOfValences + rounding;
    if (toTen) chart.AxisEnd = WholeOfValences;
    chart.AxisTitle = store::Text(toTen ? ValencesToTen : Valences, chart.SprachID);
}

charts::Chart Read(store::Database& database, const DistributionRequest& request) {
    const auto grafik = Prepared(request);
    charts::Chart chart;
    chart.Kind = request.Grouped ? charts::ChartKind::Grouped : charts::ChartKind::Stacked;
    chart.SprachID = Allgemein::SprachID_Anheben(request.SprachID);
    chart.Title = Trimmed(grafik.Grafik_Standardtitel());
    chart.AllSeries = SeriesOf(grafik);
    chart.LegendLines = grafik.Grafik_Legendenzeilen();
    chart.Sites = SitesOf(database, grafik, chart.SprachID);
    chart.Empty = store::Text(NoResults, chart.SprachID);
    SetAxis(chart, request.Verteilungsart);
    if (HasTwins(database)) chart.Footnotes.push_back(store::Text(TwoResults, chart.SprachID));
    if (!chart.Sites.empty() && std::all_of(chart.Sites.begin(), chart.Sites.end(), HasNoValue))
        chart.Footnotes.push_back(store::Text(NoValues, chart.SprachID));
    return chart;
}

// ---- dominance -----------------------------------------------------------------------------------------

constexpr std::int16_t Diatoms = 2;

AL_PS_Grafik Prepared(const DominanceRequest& request) {
    AL_PS_Grafik grafik;
    grafik.CurrentDB(request.Database);
    grafik.SprachID(request.SprachID);
    grafik.DBName(request.DBName);
    grafik.AktUebersicht(request.AktUebersicht);
    grafik.ProjektID(request.ProjektID);
    grafik.TeilraumID(request.TeilraumID);
    grafik.Grafik_Algenart(request.Algenart);
    grafik.Grafik_MaxDomWert(request.MaxDomWert);
    grafik.Grafik_ArtDomBerechnen(request.Rebuild);
    grafik.IstWRRLBerechnung(request.IstWRRLBerechnung);
    grafik.Grafik_ArtenDom_Init();
    return grafik;
}

/// The taxa, the most abundant first: the statement has it last.
std::vector<charts::Site> TaxaOf(store::Database& database, const AL_PS_Grafik& grafik,
                                 std::int16_t SprachID) {
    std::vector<charts::Site> taxa;
    const auto rows = database.OpenRecordset(grafik.Grafik_SQL());
    for (; !rows->Eof(); rows->MoveNext())
        taxa.push_back({NameOr((*rows)["Taxa"], SprachID), {NumberOf((*rows)["Wert"])}});
    rows->Close();
    std::reverse(taxa.begin(), taxa.end());
    return taxa;
}

/// A number with the decimal mark of the language.
std::string Percent(float value, std::int16_t SprachID) {
    const auto text = store::NumberText(value);
    return SprachID >= English ? text : Allgemein::Str_Ersetzen(text, ".", ",");
}

std::string WithThreshold(Offset text, float value, std::int16_t SprachID) {
    return Allgemein::Str_Ersetzen(store::Text(text, SprachID), "|", Percent(value, SprachID));
}

}  // namespace

charts::Chart ReadDistributionChart(const DistributionRequest& request) {
    Check(request);
    auto& database = calc::Vorhanden(request.Database, Distribution);
    if (!request.Teilraeume) return Read(database, request);
    // Undone at the end of the block, and by the engine itself where the program does not get there.
    const store::Savepoint savepoint(database.SharedConnection());
    Mark(database, *request.Teilraeume);
    return Read(database, request);
}

charts::Chart ReadDominanceChart(const DominanceRequest& request) {
    if (request.Algenart < 1 || request.Algenart > Diatoms)
        FailMismatch(Dominance, "Algenart", request.Algenart);
    auto& database = calc::Vorhanden(request.Database, Dominance);
    const auto grafik = Prepared(request);
    if (grafik.Grafik_SQL().empty())
        throw Error(ErrorNumber::NoCurrentRecord,
                    std::string(Dominance) + ": the frequency list of " + request.AktUebersicht + " " +
                        store::NumberText(request.ProjektID) + " could not be built.");
    charts::Chart chart;
    chart.Kind = charts::ChartKind::Horizontal;
    chart.SprachID = Allgemein::SprachID_Anheben(request.SprachID);
    chart.Title = Trimmed(grafik.Grafik_Standardtitel());
    if (!request.Stelle.empty())
        chart.Subtitle = Trimmed(grafik.Grafik_Res_Stellenbez()) + " " + request.Stelle;
    chart.AxisTitle = store::Text(RelativeAbundance, chart.SprachID);
    constexpr std::int16_t green = 2;
    constexpr std::int16_t brown = 6;
    chart.AllSeries.push_back({request.Algenart == Diatoms ? brown : green, false, 0, {}});
    chart.Sites = TaxaOf(database, grafik, chart.SprachID);
    chart.Empty = WithThreshold(NothingAbove, request.MaxDomWert, chart.SprachID);
    if (request.MaxDomWert > 0 && !chart.Sites.empty())
        chart.Footnotes.push_back(WithThreshold(OnlyAbove, request.MaxDomWert, chart.SprachID));
    return chart;
}

}  // namespace FX_Algen
