#include "store/load/References.h"

#include <algorithm>

#include "store/load/DeletedKeys.h"

namespace FX_Algen::store::load {
namespace {

// The engine enforces one of these (stand to shares); the others may dangle in a living database, because a
// taxon that goes with its level leaves its findings behind. What comes in from outside must be whole.
// Result tables are not listed: the next run empties them.
constexpr Reference All[] = {
    {"Abschnitt", "ID_PRJ", "Projekt", "ID_PRJ"},
    {"UnvUStelle", "ID_AB", "Abschnitt", "ID_AB"},
    {"UnvUStelle", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"UnvUStelle", "ID_AL_Flussabschnitt", "AL_Flussabschnitt", "ID_AL_Flussabschnitt"},
    {"UnvUStelle", "ID_AL_Hoehenstufe", "AL_Hoehenstufe", "ID_AL_Hoehenstufe"},
    {"VerUStelle", "ID_UUS", "UnvUStelle", "ID_UUS"},
    {"Teilraum", "ID_VUS", "VerUStelle", "ID_VUS"},
    {"awaobWGEV07_Grid", "ID_TR", "Teilraum", "ID_TR"},
    {"obProjekt1a", "ID_UUS", "UnvUStelle", "ID_UUS"},
    {"RechenProjektListe", "ID_RechMan", "RechenProjekt", "ID_RechMan"},

    {"awaTeilraum", "ID_TR", "Teilraum", "ID_TR"},
    {"awaTeilraum_MI", "ID_TR", "awaTeilraum", "ID_TR"},
    {"awaPrStelle", "ID_TR", "Teilraum", "ID_TR"},
    {"awaArtPrStelle", "ID_PS", "awaPrStelle", "ID_PS"},
    {"awaArtPrStelle", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtPrStelle_MI", "ID_TR_MI", "awaTeilraum_MI", "ID_TR_MI"},
    {"awaArtPrStelle_MI", "ID_ART", "awaArt", "ID_ART"},

    {"awaArt", "ID_UFAM", "awaUnterFam", "ID_UFAM"},
    {"awaModulStandard", "ID_ART", "awaArt", "ID_ART"},
    {"awaModulStandard", "Lebensform", "awaAL_Lebensform", "ID_AL_Lebensform", false},
    {"awaArtKatalog", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtKatalog", "ID_KAT", "awaKatalog", "ID_KAT"},
    {"awaArtAuswahl", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtBild", "ID_Art", "awaArt", "ID_ART"},
    {"awaArtAutoekologie", "ID_Art", "awaArt", "ID_ART"},
    {"awaFundarchiv", "ID_Art", "awaArt", "ID_ART"},
    {"awaSynArt", "ID_SYN", "awaArt", "ID_ART"},

    {"awaUnterreich", "ID_REICH", "awaReich", "ID_REICH"},
    {"awaStamm", "ID_UREICH", "awaUnterreich", "ID_UREICH"},
    {"awaUnterstamm", "ID_STAMM", "awaStamm", "ID_STAMM"},
    {"awaUeberklasse", "ID_USTAMM", "awaUnterstamm", "ID_USTAMM"},
    {"awaKlasse", "ID_UEKLASSE", "awaUeberklasse", "ID_UEKLASSE"},
    {"awaZwgrKlasse", "ID_KLASSE", "awaKlasse", "ID_KLASSE"},
    {"awaUnterklasse", "ID_ZGKLASSE", "awaZwgrKlasse", "ID_ZGKLASSE"},
    {"awaUeberordnung", "ID_UKLASSE", "awaUnterklasse", "ID_UKLASSE"},
    {"awaOrdnung", "ID_UEORDNUNG", "awaUeberordnung", "ID_UEORDNUNG"},
    {"awaUnterordnung", "ID_ORDNUNG", "awaOrdnung", "ID_ORDNUNG"},
    {"awaInfraordnung", "ID_UORDNUNG", "awaUnterordnung", "ID_UORDNUNG"},
    {"awaZwgrOrdnung", "ID_IORDNUNG", "awaInfraordnung", "ID_IORDNUNG"},
    {"awaFamilienreihe", "ID_ZGORDNUNG", "awaZwgrOrdnung", "ID_ZGORDNUNG"},
    {"awaZwgrReihe1", "ID_FAMREIHE", "awaFamilienreihe", "ID_FAMREIHE"},
    {"awaZwgrReihe2", "ID_ZGREIHE1", "awaZwgrReihe1", "ID_ZGREIHE1"},
    {"awaUeberfamilie", "ID_ZGREIHE2", "awaZwgrReihe2", "ID_ZGREIHE2"},
    {"awaFamilie", "ID_UEFAM", "awaUeberfamilie", "ID_UEFAM"},
    {"awaFamilie", "ID_GRGR", "awaGrossGr", "ID_GRGR"},
    {"awaUnterFam", "ID_FAM", "awaFamilie", "ID_FAM"},

    {"awaWRRL_TGZK", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaWRRL_SGZK", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaWRRL_RBioregionstyp", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaRefArt_TypA", "ID_Art", "awaArt", "ID_ART"},
    {"awaRefArt_TypB", "ID_Art", "awaArt", "ID_ART"},
    {"awaRefArt_TypB", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaRefArt_TypB", "ID_AL_Hoehenstufe", "AL_Hoehenstufe", "ID_AL_Hoehenstufe"},

    {"sesArt", "ID_Klasse", "sesKlasse", "ID_KLASSE"},
    {"sesArtAuswahl", "ID_ART", "sesArt", "ID_ART"},
    {"sesPrStelle", "ID_TR", "Teilraum", "ID_TR"},
    {"sesTeilraum", "ID_TR", "Teilraum", "ID_TR"},
    {"sesArtPrStelle", "ID_PS", "sesPrStelle", "ID_PS"},
    {"sesArtPrStelle", "ID_ART", "sesArt", "ID_ART"},

    {"Menuegruppenzuordnung", "ID_Menuegruppe", "Menuegruppe", "ID_Menuegruppe"},
};

}  // namespace

std::span<const Reference> References() { return All; }

std::vector<Reference> ReferencesOf(std::string_view table) {
    std::vector<Reference> out;
    std::copy_if(std::begin(All), std::end(All), std::back_inserter(out),
                 [&](const Reference& reference) { return reference.Table == table; });
    return out;
}

std::vector<std::int64_t> DanglingKeys(Engine& engine, const Reference& reference) {
    // The distinct values come out of the column's index; each is looked up once.
    const auto statement = engine.Prepare(
        "SELECT v FROM (SELECT DISTINCT " + Name(reference.Column) + " AS v FROM " + Name(reference.Table) +
        ") WHERE v IS NOT NULL" + (reference.ZeroIsNone ? " AND v <> 0" : "") +
        " AND NOT EXISTS (SELECT 1 FROM " + Name(reference.Parent) + " WHERE " + Name(reference.Key) +
        " = v)" + DeletedKeys::ButNot(reference.Parent) + " ORDER BY v");
    std::vector<std::int64_t> out;
    while (statement->Step()) out.push_back(statement->Integer(0));
    return out;
}

}  // namespace FX_Algen::store::load
