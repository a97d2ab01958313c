#include "wrrl/Referenzartenspur.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include "calc/Abfragen.h"
#include "wrrl/Schritte.h"

namespace FX_Algen::wrrl {
namespace {

using Zeilenschluessel = std::pair<std::int32_t, bool>;  // taxon, CF

std::string Zelle(std::int32_t ID) { return "awaArtenlisteHaeufigkeit.A" + store::NumberText(ID); }

std::vector<CountedTaxon> LiesTaxa(store::Database& database, std::int32_t ID_TR) {
    enum Felder : std::size_t { ID_Art, CF, IstKA, Abundanz, ID_GRGR, IstArtniveau };
    // Left joins: a taxon with a broken chain has its share too, and counts nowhere.
    const auto zeilen = database.OpenRecordset(
        "SELECT awaArtenlisteHaeufigkeit.ID_Art, awaArtenlisteHaeufigkeit.CF, "
        "awaArtenlisteHaeufigkeit.IstKA, " +
        Zelle(ID_TR) +
        ", awaFamilie.ID_GRGR, awaArt.IstArtniveau "
        "FROM ((awaArtenlisteHaeufigkeit LEFT JOIN awaArt ON awaArtenlisteHaeufigkeit.ID_Art = "
        "awaArt.ID_ART) "
        "LEFT JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
        "LEFT JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM WHERE " +
        Zelle(ID_TR) + ">0;");
    std::vector<CountedTaxon> taxa;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        CountedTaxon taxon;
        taxon.ID_ART = (*zeilen)[ID_Art].I4();
        taxon.CF = (*zeilen)[CF].Bool();
        taxon.IsDiatom = (*zeilen)[IstKA].Bool();
        taxon.Abundance = (*zeilen)[Abundanz].R8();
        if (!(*zeilen)[ID_GRGR].IsNull()) taxon.ID_GRGR = (*zeilen)[ID_GRGR].I4();
        taxon.IsSpecies = !(*zeilen)[IstArtniveau].IsNull() && (*zeilen)[IstArtniveau].Bool();
        taxa.push_back(taxon);
    }
    zeilen->Close();
    return taxa;
}

std::set<Zeilenschluessel> LiesSchluessel(store::Database& database, const std::string& abfrage) {
    std::set<Zeilenschluessel> schluessel;
    const auto zeilen = database.OpenRecordset(abfrage);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        schluessel.emplace((*zeilen)[std::size_t{0}].I4(), (*zeilen)[std::size_t{1}].Bool());
    zeilen->Close();
    return schluessel;
}

}  // namespace

std::vector<CountedTaxon> GezaehlteTaxa(store::Database& database, std::int32_t ID_TR,
                                        std::string_view RefBioregion) {
    constexpr std::string_view auswahl = "awaArtenlisteHaeufigkeit.ID_Art, awaArtenlisteHaeufigkeit.CF";
    auto taxa = LiesTaxa(database, ID_TR);
    std::set<Zeilenschluessel> typA;
    std::set<Zeilenschluessel> typB;
    NurFuerSpur(
        [&] { typA = LiesSchluessel(database, calc::abfragen::ReferenzartenTypA(ID_TR, auswahl, false)); });
    NurFuerSpur([&] {
        typB =
            LiesSchluessel(database, calc::abfragen::ReferenzartenTypB(ID_TR, auswahl, RefBioregion, false));
    });
    // Type B is distinct over taxon and value: the same taxon with and without CF adds an equal share once.
    std::set<std::tuple<std::int32_t, double>> schon;
    for (auto& taxon : taxa) {
        const Zeilenschluessel zeile(taxon.ID_ART, taxon.CF);
        taxon.TypA = typA.contains(zeile) ? 1 : 0;
        taxon.TypB = typB.contains(zeile) && schon.emplace(taxon.ID_ART, taxon.Abundance).second ? 1 : 0;
    }
    return taxa;
}

}  // namespace FX_Algen::wrrl
