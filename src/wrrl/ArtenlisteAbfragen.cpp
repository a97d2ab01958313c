#include "wrrl/ArtenlisteAbfragen.h"

#include <string_view>

#include "FX_Algen/Value.h"
#include "manager/Ebenen.h"
#include "manager/RechenProjekt.h"

namespace FX_Algen::artenliste::abfragen {
namespace {

using manager::Ebene;
using manager::Verbund;

enum class Umfang : std::uint8_t { Projekt, UStelle, Rechenmanager, Keiner };

std::string ID(std::int32_t id) { return store::NumberText(id); }

template <class... Teile>
std::string Text(const Teile&... teile) {
    std::string text;
    (text.append(teile), ...);
    return text;
}

Umfang UmfangVon(const Listenauftrag& auftrag) {
    if (auftrag.AktUebersicht == "Projekt") return Umfang::Projekt;
    if (auftrag.AktUebersicht == "UStelle") return Umfang::UStelle;
    if (auftrag.AktUebersicht == "Rechenmanager") return Umfang::Rechenmanager;
    return Umfang::Keiner;
}

constexpr std::string_view WaehleTeilraum =
    "SELECT DISTINCTROW Teilraum.ID_TR, awaTeilraum.DG_Gesamt, awaTeilraum.DG_MA, "
    "awaTeilraum.DG_Gesamt_WRRL, awaTeilraum.DG_MA_WRRL ";

constexpr std::string_view WaehleTaxa =
    "SELECT awaArtPrStelle.ID_ART, awaArtPrStelle.CF, awaGrossGr.RF_Kieselalge ";

constexpr std::string_view NachTaxa =
    "GROUP BY awaArtPrStelle.ID_ART, awaArtPrStelle.CF, awaGrossGr.RF_Kieselalge;";

constexpr std::string_view NurMarkierte = " AND (Teilraum.Anzeige = True) ";

constexpr std::string_view NurBewertbare =
    "  AND ((awaModulStandard.Lebensform)=1) AND ((awaFamilie.ID_GRGR)<132) ";

/// From a path that ends with `Teilraum` to the major group and, for an assessment, the ratings.
std::string VonTaxa(const Verbund& pfad, bool mitWerten) {
    const auto taxa = pfad.Mit("awaPrStelle", "Teilraum.ID_TR = awaPrStelle.ID_TR")
                          .Mit("awaArtPrStelle", "awaPrStelle.ID_PS = awaArtPrStelle.ID_PS")
                          .Mit("awaArt", "awaArtPrStelle.ID_ART = awaArt.ID_ART")
                          .Mit("awaUnterFam", "awaArt.ID_UFAM = awaUnterFam.ID_UFAM")
                          .Mit("awaFamilie", "awaUnterFam.ID_FAM = awaFamilie.ID_FAM")
                          .Mit("awaGrossGr", "awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR");
    return (mitWerten ? taxa.Mit("awaModulStandard", "awaArt.ID_ART = awaModulStandard.ID_ART") : taxa)
        .From();
}

/// From a path that ends with `Teilraum` to the covers and the sampling sites.
std::string VonTeilraum(const Verbund& pfad) {
    return pfad.Mit("awaTeilraum", "Teilraum.ID_TR = awaTeilraum.ID_TR")
        .Mit("awaPrStelle", "awaTeilraum.ID_TR = awaPrStelle.ID_TR")
        .From();
}

}  // namespace

std::string Teilraeume(const Listenauftrag& auftrag) {
    switch (UmfangVon(auftrag)) {
        case Umfang::Projekt:
            return Text(WaehleTeilraum, VonTeilraum(manager::Pfad(Ebene::Projekt)),
                        "WHERE Projekt.ID_PRJ=", ID(auftrag.ProjektID),
                        auftrag.USTAuswahl ? NurMarkierte : std::string_view(),
                        auftrag.TeilraumID > 0 ? Text(" AND (Teilraum.ID_TR = ", ID(auftrag.TeilraumID), ") ")
                                               : std::string(),
                        ";");
        case Umfang::UStelle:
            return Text(WaehleTeilraum, VonTeilraum(manager::Pfad(Ebene::UnvUStelle)),
                        "WHERE UnvUStelle.ID_UUS=", ID(auftrag.ProjektID), ";");
        case Umfang::Rechenmanager:
            return Text(WaehleTeilraum,
                        RechenProjekt::RechMan_FromTeilraum(auftrag.Datenbank, auftrag.ProjektID), " WHERE ",
                        RechenProjekt::RechMan_Where(auftrag.Datenbank, auftrag.ProjektID), ";");
        case Umfang::Keiner:
            break;
    }
    return {};
}

std::string Taxa(const Listenauftrag& auftrag) {
    const bool werte = auftrag.IstWRRLBerechnung;
    const auto bewertbare = werte ? NurBewertbare : std::string_view(" ");
    switch (UmfangVon(auftrag)) {
        case Umfang::Projekt:
            return Text(WaehleTaxa, VonTaxa(manager::Pfad(Ebene::Abschnitt), werte),
                        "Where Abschnitt.ID_PRJ = ", ID(auftrag.ProjektID),
                        auftrag.USTAuswahl ? NurMarkierte : std::string_view(), bewertbare, NachTaxa);
        case Umfang::UStelle:
            return Text(WaehleTaxa, VonTaxa(manager::Pfad(Ebene::VerUStelle), werte),
                        "Where VerUStelle.ID_UUS = ", ID(auftrag.ProjektID), bewertbare, NachTaxa);
        case Umfang::Rechenmanager: {
            constexpr std::int16_t mitEinstufung = 1;
            constexpr std::int16_t ohneEinstufung = 3;
            return Text(WaehleTaxa,
                        RechenProjekt::RechMan_FromTaxa(auftrag.Datenbank, auftrag.ProjektID,
                                                        werte ? mitEinstufung : ohneEinstufung),
                        " WHERE ", RechenProjekt::RechMan_Where(auftrag.Datenbank, auftrag.ProjektID),
                        bewertbare, NachTaxa);
        }
        case Umfang::Keiner:
            break;
    }
    return {};
}

std::string Funde(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaArtPrStelle.* ",
                "FROM awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS ",
                "WHERE awaPrStelle.ID_TR=", ID(ID_TR), ";");
}

std::string Bestandsarten(std::int32_t ID_TR) {
    return Text(
        "SELECT DISTINCTROW awaArtPrStelle_MI.ID_TR_MI, awaArtPrStelle_MI.ID_ART, "
        "awaArtPrStelle_MI.CF, awaArtPrStelle_MI.DG_MI ",
        "FROM awaTeilraum_MI INNER JOIN awaArtPrStelle_MI ON awaTeilraum_MI.ID_TR_MI = "
        "awaArtPrStelle_MI.ID_TR_MI ",
        "WHERE awaArtPrStelle_MI.DG_MI>0 AND awaTeilraum_MI.ID_TR = ", ID(ID_TR), ";");
}

std::string Listenzeile(std::int32_t ID_Art, bool CF) {
    return Text("SELECT * FROM awaArtenlisteHaeufigkeit ", "WHERE ID_Art=", ID(ID_Art),
                " AND CF=", CF ? "True" : "False");
}

std::string Grossgruppe(std::int32_t ID_Art) {
    return Text("SELECT awaGrossGr.ID_GRGR, awaGrossGr.RF_Kieselalge ",
                "FROM ((awaArt INNER JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
                "INNER JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
                "INNER JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR ",
                "WHERE awaArt.ID_ART=", ID(ID_Art), ";");
}

std::string Lebensform(std::int32_t ID_Art) {
    return Text("SELECT Lebensform FROM awaModulStandard WHERE ID_ART=", ID(ID_Art), ";");
}

}  // namespace FX_Algen::artenliste::abfragen
