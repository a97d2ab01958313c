// What a host sets for the assessment of a sub-habitat.
#include <algorithm>
#include <optional>
#include <string_view>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Assessment.h"
#include "FX_Algen/Error.h"
#include "calc/Lesen.h"
#include "store/Allgemein.h"

namespace FX_Algen {

namespace {

constexpr std::string_view Operation = "ReadAssessmentSite";

/// From the sub-habitat upward, so that a break in the tree loses nothing below it.
std::string SiteStatement(const std::string& id) {
    return "SELECT Projekt.ID_PRJ, UnvUStelle.ID_UUS, UnvUStelle.USBez, UnvUStelle.Gewaessername, "
           "UnvUStelle.ID_AL_Bioregion, UnvUStelle.RefBioregionen, AL_Hoehenstufe.Hoehenstufe "
           "FROM ((((Teilraum LEFT JOIN VerUStelle ON Teilraum.ID_VUS = VerUStelle.ID_VUS) "
           "LEFT JOIN UnvUStelle ON VerUStelle.ID_UUS = UnvUStelle.ID_UUS) "
           "LEFT JOIN Abschnitt ON UnvUStelle.ID_AB = Abschnitt.ID_AB) "
           "LEFT JOIN Projekt ON Abschnitt.ID_PRJ = Projekt.ID_PRJ) "
           "LEFT JOIN AL_Hoehenstufe ON UnvUStelle.ID_AL_Hoehenstufe = AL_Hoehenstufe.ID_AL_Hoehenstufe "
           "WHERE Teilraum.ID_TR=" +
           id + ";";
}

std::int32_t OrZero(const store::Value& value) { return value.IsNull() ? 0 : value.I4(); }
std::string OrEmpty(const store::Value& value) { return value.IsNull() ? std::string() : value.Text(); }

std::string Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// One element of `RefBioregionen`: "KV4" is the sign KV at the altitude step 4.
struct Element {
    std::string Text;
    std::string Kurzzeichen;
    std::string Stufe;  ///< empty: all steps
};

std::vector<Element> Elements(const std::string& refBioregionen) {
    std::vector<std::string> pieces;
    Allgemein::Liste_Teilen(refBioregionen, ",", Allgemein::Vergleich::Binaer, pieces);
    std::vector<Element> elements;
    for (const std::string& piece : pieces) {
        const std::string text = Trimmed(piece);
        if (text.empty()) continue;
        const std::size_t digits = IsDigit(text.back()) ? 1 : 0;
        const std::size_t sign = text.size() - digits;
        elements.push_back({text, text.substr(0, sign), text.substr(sign)});
    }
    return elements;
}

/// Key of a bioregion. A row without a sign stands for none.
std::optional<std::int32_t> Bioregion(store::Database& database, const std::string& kurzzeichen) {
    if (kurzzeichen.empty()) return std::nullopt;
    const auto row = database.OpenRecordset("SELECT ID_AL_Bioregion FROM AL_Bioregion WHERE Kurzzeichen='" +
                                            Allgemein::Str_Ersetzen(kurzzeichen, "'", "''") +
                                            "' ORDER BY ID_AL_Bioregion;");
    if (row->Eof()) return std::nullopt;
    return (*row)[std::size_t{0}].I4();
}

[[noreturn]] void UnknownSign(const store::Recordset& site, const Element& element) {
    const std::string water = OrEmpty(site["Gewaessername"]);
    throw Error(ErrorNumber::UnknownField,
                std::string(Operation) + ": the station '" + OrEmpty(site["USBez"]) + "'" +
                    (water.empty() ? "" : " (" + water + ")") + " lists the reference bioregion '" +
                    element.Text + "', and no bioregion has the Kurzzeichen '" + element.Kurzzeichen +
                    "': correct UnvUStelle.RefBioregionen (ID_UUS " + site["ID_UUS"].Text() +
                    ") or add the bioregion to AL_Bioregion.");
}

bool IsStep(store::Database& database, const std::string& stufe) {
    return !database
                .OpenRecordset(
                    "SELECT ID_AL_Hoehenstufe FROM AL_Hoehenstufe WHERE ID_AL_Hoehenstufe=" + stufe + ";")
                ->Eof();
}

void ReadCondition(store::Database& database, const store::Recordset& row, AssessmentSite& site) {
    std::string& condition = site.RefBioregion;
    for (const Element& element : Elements(site.RefBioregionen)) {
        const auto id = Bioregion(database, element.Kurzzeichen);
        if (!id) UnknownSign(row, element);
        if (!condition.empty()) condition += " OR ";
        condition += "(awaRefArt_TypB.ID_AL_Bioregion=" + store::NumberText(*id);
        if (!element.Stufe.empty()) {
            condition += " AND awaRefArt_TypB.ID_AL_Hoehenstufe=" + element.Stufe;
            if (!IsStep(database, element.Stufe)) site.UnknownSteps.push_back(element.Text);
        }
        condition += ")";
    }
}

}  // namespace

AssessmentSite ReadAssessmentSite(const store::DatabasePtr& database, std::int32_t ID_TR) {
    auto& db = calc::Vorhanden(database, Operation);
    const auto row = db.OpenRecordset(SiteStatement(store::NumberText(ID_TR)));
    if (row->Eof()) {
        throw Error(ErrorNumber::UnknownField, std::string(Operation) + ": there is no sub-habitat " +
                                                   store::NumberText(ID_TR) + " (Teilraum.ID_TR).");
    }
    AssessmentSite site;
    site.ID_TR = ID_TR;
    site.ID_PRJ = OrZero((*row)["ID_PRJ"]);
    site.USBez = OrEmpty((*row)["USBez"]);
    site.BioregionID = OrZero((*row)["ID_AL_Bioregion"]);
    const store::Value& stufe = (*row)["Hoehenstufe"];
    site.Hoehenstufe = stufe.IsNull() ? std::int16_t{0} : stufe.I2();
    site.RefBioregionen = OrEmpty((*row)["RefBioregionen"]);
    ReadCondition(db, *row, site);
    row->Close();
    return site;
}

void SetAssessmentSite(AL_PS& ps, const AssessmentSite& site) {
    ps.TeilraumID(site.ID_TR);
    ps.AktUebersicht("Projekt");
    ps.ProjektID(site.ID_PRJ);
    ps.USTAuswahl(false);
    ps.BioregionID(site.BioregionID);
    ps.Hoehenstufe(site.Hoehenstufe);
    ps.RefBioregion(site.RefBioregion);
}

bool HasFrequencyColumn(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const std::string name = "A" + store::NumberText(ID_TR);
    auto tables = calc::Vorhanden(database, "HasFrequencyColumn").TableDefs();
    const auto& fields = tables["awaArtenlisteHaeufigkeit"].Fields();
    return std::any_of(fields.begin(), fields.end(),
                       [&](const store::FieldDef& field) { return field.Name == name; });
}

std::optional<std::string> UncountedDiatom(const store::DatabasePtr& database, std::int32_t ID_TR) {
    auto& db = calc::Vorhanden(database, "UncountedDiatom");
    const std::string findings =
        "((awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) "
        "INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = awaModulStandard.ID_ART) ";
    const std::string where =
        "WHERE awaPrStelle.ID_TR=" + store::NumberText(ID_TR) + " AND awaModulStandard.Lebensform=1";
    // The findings that the list takes for diatoms: it needs the whole way to the major group.
    const auto row = db.OpenRecordset(
        "SELECT awaArt.Gattung, awaArt.Art FROM (((" + findings +
        "INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART) "
        "INNER JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
        "INNER JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
        "INNER JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR " +
        where +
        " AND awaArtPrStelle.Schalen_KA Is Null AND awaFamilie.ID_GRGR<132 AND awaGrossGr.RF_Kieselalge<>0 "
        "ORDER BY awaArt.Gattung, awaArt.Art;");
    if (row->Eof()) return std::nullopt;
    const auto sum =
        db.OpenRecordset("SELECT Sum(awaArtPrStelle.Schalen_KA) AS Summe FROM " + findings + where + ";");
    const store::Value& valves = (*sum)["Summe"];
    if (valves.IsNull() || valves.R8() <= 0) return std::nullopt;
    return Trimmed(OrEmpty((*row)["Gattung"]) + " " + OrEmpty((*row)["Art"]));
}

}  // namespace FX_Algen
