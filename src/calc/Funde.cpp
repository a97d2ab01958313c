#include "calc/Funde.h"

#include <string_view>

namespace FX_Algen::calc {
namespace {

/// Catalogue fields behind each finding; left joins, so that findings without them are seen too.
constexpr std::string_view Katalogfelder =
    "awaArt.Gattung, awaArt.Art, awaModulStandard.ID_ART AS WerteVorhanden, awaModulStandard.Algenart, "
    "awaModulStandard.Lebensform, awaFamilie.ID_GRGR";
enum Felder : std::size_t {
    ID_Stelle,
    Bezeichnung,
    ID_ART,
    CF,
    DG,
    Gattung,
    Art,
    HatWerte,
    Algenart,
    Lebensform,
    ID_GRGR,
    SD_MA,
    Schalen_KA
};

std::string Katalog(std::string_view fundtabelle) {
    const std::string funde(fundtabelle);
    return "LEFT JOIN awaModulStandard ON " + funde +
           ".ID_ART = awaModulStandard.ID_ART) LEFT JOIN awaArt ON " + funde +
           ".ID_ART = awaArt.ID_ART) LEFT JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) LEFT "
           "JOIN "
           "awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM ";
}

std::optional<double> Zahl(const store::Value& wert) {
    if (wert.IsNull()) return std::nullopt;
    return wert.R8();
}

std::optional<std::int32_t> Schluessel(const store::Value& wert) {
    if (wert.IsNull()) return std::nullopt;
    return wert.I4();
}

std::string Text(const store::Value& wert) { return wert.IsNull() ? std::string() : wert.Text(); }

Fund LiesFund(const store::Recordset& zeile) {
    Fund fund;
    fund.Wer.ID_ART = zeile[ID_ART].I4();
    fund.Wer.Taxon = Artname(zeile[Gattung], zeile[Art]);
    fund.Wer.CF = !zeile[CF].IsNull() && zeile[CF].Bool();
    fund.DG = Zahl(zeile[DG]);
    fund.HatWerte = !zeile[HatWerte].IsNull();
    fund.HatAlgenart = !Text(zeile[Algenart]).empty();
    fund.Lebensform = Schluessel(zeile[Lebensform]);
    fund.ID_GRGR = Schluessel(zeile[ID_GRGR]);
    return fund;
}

void LiesStellenfunde(store::Database& database, const std::string& id, std::vector<Fund>& funde) {
    const auto zeilen = database.OpenRecordset(
        "SELECT awaArtPrStelle.ID_PS, awaPrStelle.PSBez, awaArtPrStelle.ID_ART, awaArtPrStelle.CF, "
        "awaArtPrStelle.DG_MA, " +
        std::string(Katalogfelder) +
        ", awaArtPrStelle.SD_MA, awaArtPrStelle.Schalen_KA FROM ((((awaPrStelle INNER JOIN awaArtPrStelle ON "
        "awaPrStelle.ID_PS = "
        "awaArtPrStelle.ID_PS) " +
        Katalog("awaArtPrStelle") + "WHERE awaPrStelle.ID_TR=" + id +
        " ORDER BY awaArtPrStelle.ID_PS, awaArt.Gattung, awaArt.Art, awaArtPrStelle.ID_ART;");
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        Fund fund = LiesFund(zeile);
        fund.Wer.ID_PS = zeile[ID_Stelle].I4();
        fund.Wer.PSBez = Text(zeile[Bezeichnung]);
        fund.SD_MA = Zahl(zeile[SD_MA]);
        fund.Schalen_KA = Zahl(zeile[Schalen_KA]);
        funde.push_back(std::move(fund));
    }
    zeilen->Close();
}

void LiesBestandsfunde(store::Database& database, const std::string& id, std::vector<Fund>& funde) {
    const auto zeilen = database.OpenRecordset(
        "SELECT awaTeilraum_MI.ID_TR_MI, awaTeilraum_MI.MI_Bez, awaArtPrStelle_MI.ID_ART, "
        "awaArtPrStelle_MI.CF, "
        "awaArtPrStelle_MI.DG_MI, " +
        std::string(Katalogfelder) +
        " FROM ((((awaTeilraum_MI INNER JOIN awaArtPrStelle_MI ON awaTeilraum_MI.ID_TR_MI = "
        "awaArtPrStelle_MI.ID_TR_MI) " +
        Katalog("awaArtPrStelle_MI") + "WHERE awaTeilraum_MI.ID_TR=" + id +
        " ORDER BY awaTeilraum_MI.ID_TR_MI, awaArt.Gattung, awaArt.Art, awaArtPrStelle_MI.ID_ART;");
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        Fund fund = LiesFund(zeile);
        fund.Wer.ID_TR_MI = zeile[ID_Stelle].I4();
        fund.Wer.MI_Bez = Text(zeile[Bezeichnung]);
        funde.push_back(std::move(fund));
    }
    zeilen->Close();
}

void LiesBestaende(store::Database& database, const std::string& id, std::vector<Bestandszeile>& bestaende) {
    const auto zeilen = database.OpenRecordset(
        "SELECT ID_TR_MI, MI_Bez, DG_MI, DG_MI_WRRL, SD_MI FROM awaTeilraum_MI WHERE ID_TR=" + id +
        " ORDER BY ID_TR_MI;");
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        bestaende.push_back({zeile[0].I4(), Text(zeile[1]), Zahl(zeile[2]), Zahl(zeile[3]), Zahl(zeile[4])});
    }
    zeilen->Close();
}

bool Ueber0(const std::optional<double>& zahl) { return zahl && *zahl > 0; }

}  // namespace

std::string Artname(const store::Value& gattung, const store::Value& art) {
    std::string name = Text(gattung);
    const std::string rest = Text(art);
    if (!name.empty() && !rest.empty()) name += ' ';
    return name + rest;
}

Probe LiesProbe(store::Database& database, std::int32_t ID_TR) {
    const auto id = store::NumberText(ID_TR);
    Probe probe;
    LiesStellenfunde(database, id, probe.Funde);
    LiesBestandsfunde(database, id, probe.Funde);
    LiesBestaende(database, id, probe.Bestaende);
    return probe;
}

std::optional<LeftOutRule> Auslassregel(const Fund& fund, const Bedingungen& bedingungen) {
    const bool schalen = bedingungen.Block == SampleBlock::Valves;
    if (!Ueber0(schalen ? fund.Schalen_KA : fund.DG)) return LeftOutRule::NoAbundance;
    if (bedingungen.KAOnly && !schalen) return LeftOutRule::DiatomsOnly;
    // A Null total cover keeps nothing out: it ends the calculation.
    if (!schalen && bedingungen.DG_Gesamt && !(bedingungen.DG_Gesamt->Prozent > 0)) {
        return LeftOutRule::NoTotalCover;
    }
    if (!fund.HatWerte) return LeftOutRule::NoRatings;
    if (bedingungen.MitAlgenart && !schalen && !fund.HatAlgenart) return LeftOutRule::NoAlgenart;
    if (!bedingungen.IstWRRL) return std::nullopt;
    if (fund.Lebensform != 1) return LeftOutRule::OtherLebensform;
    if (schalen) return std::nullopt;
    if (!fund.ID_GRGR) return LeftOutRule::NoTaxonomy;
    if (*fund.ID_GRGR >= 132 || *fund.ID_GRGR == 128) return LeftOutRule::OtherMajorGroup;
    return std::nullopt;
}

std::optional<LeftOutRule> AuslassregelMenge(const Fund& fund) {
    if (!Ueber0(fund.SD_MA)) return LeftOutRule::NoLayer;
    if (!fund.HatWerte) return LeftOutRule::NoRatings;
    if (!fund.HatAlgenart) return LeftOutRule::NoAlgenart;
    return std::nullopt;
}

}  // namespace FX_Algen::calc
