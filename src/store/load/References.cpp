#include "store/load/References.h"

#include <algorithm>

#include "store/load/DeletedKeys.h"

namespace FX_Algen::store::load {
namespace {

constexpr bool ZeroIsNone = true;
/// Without the reference nothing leads to the row: no statement would ever find it.
constexpr bool Leading = true;

// The engine enforces one of these (stand to shares); the others may dangle in a living database, because a
// taxon that goes with its level leaves its findings behind. What comes in from outside must be whole.
// Result tables are not listed: the next run empties them.
constexpr Reference All[] = {
    {"Abschnitt", "ID_PRJ", "Projekt", "ID_PRJ"},
    {"UnvUStelle", "ID_AB", "Abschnitt", "ID_AB"},
    {"UnvUStelle", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion", ZeroIsNone, false},
    {"UnvUStelle", "ID_AL_Flussabschnitt", "AL_Flussabschnitt", "ID_AL_Flussabschnitt", ZeroIsNone, false},
    {"UnvUStelle", "ID_AL_Hoehenstufe", "AL_Hoehenstufe", "ID_AL_Hoehenstufe", ZeroIsNone, false},
    {"VerUStelle", "ID_UUS", "UnvUStelle", "ID_UUS"},
    {"Teilraum", "ID_VUS", "VerUStelle", "ID_VUS"},
    {"awaobWGEV07_Grid", "ID_TR", "Teilraum", "ID_TR"},
    {"obProjekt1a", "ID_UUS", "UnvUStelle", "ID_UUS"},
    {"RechenProjektListe", "ID_RechMan", "RechenProjekt", "ID_RechMan"},

    {"awaTeilraum", "ID_TR", "Teilraum", "ID_TR"},
    {"awaTeilraum_MI", "ID_TR", "awaTeilraum", "ID_TR", false, Leading},
    {"awaPrStelle", "ID_TR", "Teilraum", "ID_TR", false, Leading},
    {"awaArtPrStelle", "ID_PS", "awaPrStelle", "ID_PS"},
    {"awaArtPrStelle", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtPrStelle_MI", "ID_TR_MI", "awaTeilraum_MI", "ID_TR_MI"},
    {"awaArtPrStelle_MI", "ID_ART", "awaArt", "ID_ART"},

    {"awaArt", "ID_UFAM", "awaUnterFam", "ID_UFAM", ZeroIsNone, false},
    {"awaModulStandard", "ID_ART", "awaArt", "ID_ART"},
    {"awaModulStandard", "Lebensform", "awaAL_Lebensform", "ID_AL_Lebensform"},
    {"awaArtKatalog", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtKatalog", "ID_KAT", "awaKatalog", "ID_KAT"},
    {"awaArtAuswahl", "ID_ART", "awaArt", "ID_ART"},
    {"awaArtBild", "ID_Art", "awaArt", "ID_ART"},
    {"awaArtAutoekologie", "ID_Art", "awaArt", "ID_ART"},
    {"awaFundarchiv", "ID_Art", "awaArt", "ID_ART"},
    {"awaSynArt", "ID_SYN", "awaArt", "ID_ART", false, Leading},

    {"awaUnterreich", "ID_REICH", "awaReich", "ID_REICH", ZeroIsNone, false},
    {"awaStamm", "ID_UREICH", "awaUnterreich", "ID_UREICH", ZeroIsNone, false},
    {"awaUnterstamm", "ID_STAMM", "awaStamm", "ID_STAMM", ZeroIsNone, false},
    {"awaUeberklasse", "ID_USTAMM", "awaUnterstamm", "ID_USTAMM", ZeroIsNone, false},
    {"awaKlasse", "ID_UEKLASSE", "awaUeberklasse", "ID_UEKLASSE", ZeroIsNone, false},
    {"awaZwgrKlasse", "ID_KLASSE", "awaKlasse", "ID_KLASSE", ZeroIsNone, false},
    {"awaUnterklasse", "ID_ZGKLASSE", "awaZwgrKlasse", "ID_ZGKLASSE", ZeroIsNone, false},
    {"awaUeberordnung", "ID_UKLASSE", "awaUnterklasse", "ID_UKLASSE", ZeroIsNone, false},
    {"awaOrdnung", "ID_UEORDNUNG", "awaUeberordnung", "ID_UEORDNUNG", ZeroIsNone, false},
    {"awaUnterordnung", "ID_ORDNUNG", "awaOrdnung", "ID_ORDNUNG", ZeroIsNone, false},
    {"awaInfraordnung", "ID_UORDNUNG", "awaUnterordnung", "ID_UORDNUNG", ZeroIsNone, false},
    {"awaZwgrOrdnung", "ID_IORDNUNG", "awaInfraordnung", "ID_IORDNUNG", ZeroIsNone, false},
    {"awaFamilienreihe", "ID_ZGORDNUNG", "awaZwgrOrdnung", "ID_ZGORDNUNG", ZeroIsNone, false},
    {"awaZwgrReihe1", "ID_FAMREIHE", "awaFamilienreihe", "ID_FAMREIHE", ZeroIsNone, false},
    {"awaZwgrReihe2", "ID_ZGREIHE1", "awaZwgrReihe1", "ID_ZGREIHE1", ZeroIsNone, false},
    {"awaUeberfamilie", "ID_ZGREIHE2", "awaZwgrReihe2", "ID_ZGREIHE2", ZeroIsNone, false},
    {"awaFamilie", "ID_UEFAM", "awaUeberfamilie", "ID_UEFAM", ZeroIsNone, false},
    {"awaFamilie", "ID_GRGR", "awaGrossGr", "ID_GRGR", ZeroIsNone, false},
    {"awaUnterFam", "ID_FAM", "awaFamilie", "ID_FAM", ZeroIsNone, false},

    {"awaWRRL_TGZK", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaWRRL_SGZK", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaWRRL_RBioregionstyp", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaRefArt_TypA", "ID_Art", "awaArt", "ID_ART"},
    {"awaRefArt_TypB", "ID_Art", "awaArt", "ID_ART", false, Leading},
    {"awaRefArt_TypB", "ID_AL_Bioregion", "AL_Bioregion", "ID_AL_Bioregion"},
    {"awaRefArt_TypB", "ID_AL_Hoehenstufe", "AL_Hoehenstufe", "ID_AL_Hoehenstufe"},

    {"sesArt", "ID_Klasse", "sesKlasse", "ID_KLASSE"},
    {"sesArtAuswahl", "ID_ART", "sesArt", "ID_ART"},
    {"sesPrStelle", "ID_TR", "Teilraum", "ID_TR", false, Leading},
    {"sesTeilraum", "ID_TR", "Teilraum", "ID_TR"},
    {"sesArtPrStelle", "ID_PS", "sesPrStelle", "ID_PS"},
    {"sesArtPrStelle", "ID_ART", "sesArt", "ID_ART"},

    {"Menuegruppenzuordnung", "ID_Menuegruppe", "Menuegruppe", "ID_Menuegruppe"},
};

constexpr LevelTable Levels[] = {{"Projekt", "Projekt", "ID_PRJ"},
                                 {"Abschnitt", "Abschnitt", "ID_AB"},
                                 {"UnvU-Stelle", "UnvUStelle", "ID_UUS"},
                                 {"VerU-Stelle", "VerUStelle", "ID_VUS"},
                                 {"Teilraum", "Teilraum", "ID_TR"}};

}  // namespace

std::span<const Reference> References() { return All; }

std::vector<Reference> ReferencesOf(std::string_view table) {
    std::vector<Reference> out;
    std::copy_if(std::begin(All), std::end(All), std::back_inserter(out),
                 [&](const Reference& reference) { return reference.Table == table; });
    return out;
}

std::span<const LevelTable> LevelTables() { return Levels; }

std::vector<std::pair<std::int64_t, std::int64_t>> DanglingMembers(Engine& engine, const LevelTable& level) {
    const auto statement = engine.Prepare(
        "SELECT r, v FROM (SELECT l.ID_RechMan AS r, l.ID_Ebene AS v FROM RechenProjektListe AS l JOIN "
        "RechenProjekt AS p ON p.ID_RechMan = l.ID_RechMan WHERE p.RechManEbene = " +
        Literal(level.Level) + ") WHERE NOT EXISTS (SELECT 1 FROM " + Name(level.Parent) + " WHERE " +
        Name(level.Key) + " = v)" + DeletedKeys::ButNot(level.Parent) + " ORDER BY r, v");
    std::vector<std::pair<std::int64_t, std::int64_t>> out;
    while (statement->Step()) out.emplace_back(statement->Integer(0), statement->Integer(1));
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

bool Dangles(Engine& engine, const Reference& reference, std::int64_t key) {
    if (key == 0 && reference.ZeroIsNone) return false;
    return IntegerOf(engine, "SELECT count(*) FROM (SELECT " + std::to_string(key) +
                                 " AS v) WHERE NOT EXISTS (SELECT 1 FROM " + Name(reference.Parent) +
                                 " WHERE " + Name(reference.Key) + " = v)" +
                                 DeletedKeys::ButNot(reference.Parent)) != 0;
}

}  // namespace FX_Algen::store::load
