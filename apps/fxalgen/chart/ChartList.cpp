#include "fxalgen/chart/ChartList.h"

#include <algorithm>
#include <string_view>

namespace FX_Algen::cli {

namespace {

/// Columns that the list has room for beside its own.
constexpr std::int32_t MostColumns = 1995;

/// From the findings to the major group, as the list goes.
constexpr std::string_view FindingsWithGroup =
    "FROM ((((awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) "
    "INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART) "
    "INNER JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
    "INNER JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
    "INNER JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR WHERE awaPrStelle.ID_TR=";

constexpr std::string_view IsDiatom = " AND awaGrossGr.RF_Kieselalge<>0 ";
constexpr std::string_view IsOther = " AND (awaGrossGr.RF_Kieselalge=0 OR awaGrossGr.RF_Kieselalge Is Null) ";

std::string Text(const store::Value& value) { return value.IsNull() ? std::string() : value.Text(); }

/// "Navicula lanceolata", "ID_ART 5" for a taxon without a name.
std::string NameOf(const store::Recordset& row) {
    const bool known = !row["Gattung"].IsNull() || !row["Art"].IsNull();
    return known ? Text(row["Gattung"]) + " " + Text(row["Art"]) : "ID_ART " + row["ID_ART"].Text();
}

/// Names of the taxa found that meet a condition, each once.
std::vector<std::string> TaxaFound(store::Database& database, std::int32_t ID_TR,
                                   const std::string& condition) {
    const auto rows =
        database.OpenRecordset("SELECT DISTINCT awaArt.Gattung, awaArt.Art, awaArtPrStelle.ID_ART " +
                               std::string(FindingsWithGroup) + store::NumberText(ID_TR) + condition +
                               "ORDER BY awaArt.Gattung, awaArt.Art, awaArtPrStelle.ID_ART;");
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(NameOf(*rows));
    return names;
}

std::optional<std::string> FirstFound(store::Database& database, std::int32_t ID_TR,
                                      const std::string& condition) {
    const auto names = TaxaFound(database, ID_TR, condition);
    return names.empty() ? std::nullopt : std::optional(names.front());
}

/// The valves counted in a sub-habitat; none where no finding has a number.
std::optional<double> Valves(store::Database& database, const std::string& id) {
    const auto row = database.OpenRecordset(
        "SELECT Sum(awaArtPrStelle.Schalen_KA) AS Summe FROM awaPrStelle INNER JOIN awaArtPrStelle ON "
        "awaPrStelle.ID_PS = awaArtPrStelle.ID_PS WHERE awaPrStelle.ID_TR=" +
        id + ";");
    const store::Value& sum = (*row)["Summe"];
    return sum.IsNull() ? std::nullopt : std::optional(sum.R8());
}

/// Covers of a sub-habitat that has a sampling site; no row where it has no place in the list.
store::RecordsetPtr Covers(store::Database& database, const std::string& id) {
    return database.OpenRecordset(
        "SELECT awaTeilraum.DG_Gesamt, awaTeilraum.DG_MA FROM awaTeilraum INNER JOIN awaPrStelle ON "
        "awaTeilraum.ID_TR = awaPrStelle.ID_TR WHERE awaTeilraum.ID_TR=" +
        id + ";");
}

/// Walks over the sub-habitats as the list does, until a Null stops it.
class Walk {
public:
    explicit Walk(store::Database& database) : database_(database) {}

    std::int32_t Listed() const { return listed_; }

    /// What stops the list at a sub-habitat.
    std::optional<std::string> Gap(std::int32_t ID_TR) {
        const std::string id = store::NumberText(ID_TR);
        const auto covers = Covers(database_, id);
        if (covers->Eof()) return std::nullopt;
        ++listed_;
        valves_ = Valves(database_, id).value_or(valves_);
        for (const char* field : {"DG_Gesamt", "DG_MA"}) {
            if ((*covers)[field].IsNull())
                return "a cover was not entered (awaTeilraum." + std::string(field) + " is Null)";
        }
        if (const auto taxon = Uncounted(ID_TR)) {
            return "the valves of " + *taxon +
                   " were not entered (awaArtPrStelle.Schalen_KA is Null) while others were counted";
        }
        if ((*covers)["DG_Gesamt"].R8() > 0) return Stand(ID_TR);
        return std::nullopt;
    }

private:
    std::optional<std::string> Uncounted(std::int32_t ID_TR) const {
        if (valves_ <= 0) return std::nullopt;
        return FirstFound(database_, ID_TR, std::string(IsDiatom) + "AND awaArtPrStelle.Schalen_KA Is Null ");
    }

    std::optional<std::string> Stand(std::int32_t ID_TR) const {
        const auto stand = database_.OpenRecordset(
            "SELECT MI_Bez FROM awaTeilraum_MI WHERE DG_MI Is Null AND ID_TR=" + store::NumberText(ID_TR) +
            " ORDER BY ID_TR_MI;");
        if (stand->Eof() || !FirstFound(database_, ID_TR, std::string(IsOther))) return std::nullopt;
        return "the cover of the mixed stand '" + Text((*stand)["MI_Bez"]) +
               "' was not entered (awaTeilraum_MI.DG_MI is Null)";
    }

    store::Database& database_;
    std::int32_t listed_ = 0;
    double valves_ = 0;  ///< those of the sub-habitat before stay where none were entered
};

}  // namespace

std::string ListScope::Word() const { return Kind == Scope::Kind::UStelle ? "UStelle" : "Projekt"; }

std::optional<ListScope> ListScopes::Of(const Teilraum& teilraum) {
    if (teilraum.ID_PRJ.IsNull()) return std::nullopt;
    const std::int32_t project = teilraum.ID_PRJ.I4();
    if (Fits(project)) return ListScope{Scope::Kind::Projekt, project};
    return ListScope{Scope::Kind::UStelle, teilraum.ID_UUS.I4()};
}

bool ListScopes::Fits(std::int32_t ID_PRJ) {
    const auto known = known_.find(ID_PRJ);
    if (known != known_.end()) return known->second;
    const auto rows = database_->OpenRecordset(
        "SELECT DISTINCT Teilraum.ID_TR FROM ((((Abschnitt "
        "INNER JOIN UnvUStelle ON Abschnitt.ID_AB = UnvUStelle.ID_AB) "
        "INNER JOIN VerUStelle ON UnvUStelle.ID_UUS = VerUStelle.ID_UUS) "
        "INNER JOIN Teilraum ON VerUStelle.ID_VUS = Teilraum.ID_VUS) "
        "INNER JOIN awaTeilraum ON Teilraum.ID_TR = awaTeilraum.ID_TR) "
        "INNER JOIN awaPrStelle ON awaTeilraum.ID_TR = awaPrStelle.ID_TR WHERE Abschnitt.ID_PRJ=" +
        store::NumberText(ID_PRJ) + ";");
    if (!rows->Eof()) rows->MoveLast();
    return known_[ID_PRJ] = rows->RecordCount() <= MostColumns;
}

std::string WhyNoList(store::Database& database, const ListScope& scope) {
    const std::string list =
        "the frequency list of " + scope.Word() + ":" + store::NumberText(scope.ID) + " ";
    std::vector<Teilraum> all = ReadTeilraeume(database, {scope.Kind, scope.ID});
    std::sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.ID_TR < b.ID_TR; });
    Walk walk(database);
    for (const Teilraum& teilraum : all) {
        if (const auto gap = walk.Gap(teilraum.ID_TR))
            return list + "ends at " + teilraum.Label() + ": " + *gap;
    }
    if (walk.Listed() == 0) {
        return list +
               "is empty: no sub-habitat of it has an algae sample (awaTeilraum) with a sampling site "
               "(awaPrStelle)";
    }
    return list +
           "could not be made, and nothing that it needs is missing: another program may be writing to the "
           "database, or its file cannot be written";
}

std::optional<std::string> WhyNoAbundance(store::Database& database, std::int32_t ID_TR, bool diatoms) {
    const std::string id = store::NumberText(ID_TR);
    if (diatoms) {
        if (!FirstFound(database, ID_TR, std::string(IsDiatom) + "AND awaFamilie.ID_GRGR<132 ") ||
            Valves(database, id).value_or(0) > 0)
            return std::nullopt;
        return "diatoms were found and no valves were counted (awaArtPrStelle.Schalen_KA)";
    }
    const auto covers = Covers(database, id);
    if (covers->Eof() || (*covers)["DG_Gesamt"].R8() > 0) return std::nullopt;
    if (!FirstFound(database, ID_TR, std::string(IsOther))) return std::nullopt;
    return "algae were found and the total cover is 0 (awaTeilraum.DG_Gesamt)";
}

std::vector<std::string> CoveringTaxaTakenForDiatoms(store::Database& database, std::int32_t ID_TR) {
    return TaxaFound(database, ID_TR, std::string(IsDiatom) + "AND awaArtPrStelle.DG_MA>0 ");
}

}  // namespace FX_Algen::cli
