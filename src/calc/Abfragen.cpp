#include "calc/Abfragen.h"

#include "FX_Algen/Value.h"

namespace FX_Algen::calc::abfragen {
namespace {

std::string ID(std::int32_t id) { return store::NumberText(id); }

template <class... Teile>
std::string Text(const Teile&... teile) {
    std::string text;
    text.reserve((std::string_view(teile).size() + ...));
    (text.append(teile), ...);
    return text;
}

constexpr std::string_view VonBestandsarten =
    "FROM awaArtPrStelle_MI INNER JOIN awaModulStandard ON awaArtPrStelle_MI.ID_ART = "
    "awaModulStandard.ID_ART ";

constexpr std::string_view VonBestandsartenMitFamilie =
    "FROM (((awaFamilie INNER JOIN awaUnterFam ON awaFamilie.ID_FAM = awaUnterFam.ID_FAM) "
    "INNER JOIN awaArt ON awaUnterFam.ID_UFAM = awaArt.ID_UFAM) "
    "INNER JOIN awaArtPrStelle_MI ON awaArt.ID_ART = awaArtPrStelle_MI.ID_ART) "
    "INNER JOIN awaModulStandard ON awaArtPrStelle_MI.ID_ART = awaModulStandard.ID_ART ";

// The assessment variant leaves out the diatoms (128) and every major group from 132 upward.
constexpr std::string_view NurAlgen =
    " AND ((awaModulStandard.Lebensform)=1) AND ((awaFamilie.ID_GRGR)<132 And (awaFamilie.ID_GRGR)<>128));";

std::string_view NurSchalen(bool nurSchalen) {
    return nurSchalen ? " AND ((awaArtenlisteHaeufigkeit.IstKA)=True) " : "";
}

}  // namespace

std::string_view VonFunde() {
    return "FROM awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS ";
}

std::string_view VonFundeMitWerten() {
    return "FROM (awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS) "
           "INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = awaModulStandard.ID_ART ";
}

std::string_view VonFundeMitFamilie() {
    return "FROM ((((awaFamilie INNER JOIN awaUnterFam ON awaFamilie.ID_FAM = awaUnterFam.ID_FAM) "
           "INNER JOIN awaArt ON awaUnterFam.ID_UFAM = awaArt.ID_UFAM) "
           "INNER JOIN awaArtPrStelle ON awaArt.ID_ART = awaArtPrStelle.ID_ART) "
           "INNER JOIN awaPrStelle ON awaArtPrStelle.ID_PS = awaPrStelle.ID_PS) "
           "INNER JOIN awaModulStandard ON awaArtPrStelle.ID_ART = awaModulStandard.ID_ART ";
}

std::string_view VonHaeufigkeit() {
    return "FROM ((awaFamilie INNER JOIN awaUnterFam ON awaFamilie.ID_FAM = awaUnterFam.ID_FAM) "
           "INNER JOIN awaArt ON awaUnterFam.ID_UFAM = awaArt.ID_UFAM) "
           "INNER JOIN awaArtenlisteHaeufigkeit ON awaArt.ID_ART = awaArtenlisteHaeufigkeit.ID_Art ";
}

std::string ReferenzartenTypA(std::int32_t ID_TR, std::string_view auswahl, bool nurSchalen) {
    return Text(
        "SELECT ", auswahl,
        " FROM awaArtenlisteHaeufigkeit INNER JOIN awaRefArt_TypA ON awaArtenlisteHaeufigkeit.ID_Art = "
        "awaRefArt_TypA.ID_Art ",
        "WHERE (((awaArtenlisteHaeufigkeit.A", ID(ID_TR), ")>0)", NurSchalen(nurSchalen), ");");
}

std::string ReferenzartenTypB(std::int32_t ID_TR, std::string_view auswahl, std::string_view kriterium,
                              bool nurSchalen) {
    const std::string bereich = kriterium.empty() ? std::string() : Text(" AND (", kriterium, ") ");
    return Text(
        "SELECT DISTINCT ", auswahl,
        " FROM awaArtenlisteHaeufigkeit INNER JOIN awaRefArt_TypB ON awaArtenlisteHaeufigkeit.ID_Art = "
        "awaRefArt_TypB.ID_Art ",
        "WHERE (((awaArtenlisteHaeufigkeit.A", ID(ID_TR), ")>0)", bereich, NurSchalen(nurSchalen), ");");
}

std::string_view Flagge(bool wert) { return wert ? "-1" : "0"; }

std::string Teilraum(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaTeilraum.* From awaTeilraum ", "WHERE ((awaTeilraum.ID_TR=", ID(ID_TR),
                "));");
}

std::string Bestaende(std::int32_t ID_TR) {
    return Text(
        "SELECT DISTINCTROW awaTeilraum_MI.ID_TR_MI, awaTeilraum_MI.DG_MI, awaTeilraum_MI.DG_MI_WRRL From "
        "awaTeilraum_MI ",
        "Where awaTeilraum_MI.ID_TR = ", ID(ID_TR), " ", "ORDER BY awaTeilraum_MI.ID_TR_MI;");
}

std::string Schalensumme(std::int32_t ID_TR, bool IstWRRL) {
    constexpr std::string_view summe =
        "SELECT DISTINCTROW Sum(awaArtPrStelle.Schalen_KA) AS [Summe_Schalen_KA] ";
    return IstWRRL ? Text(summe, VonFundeMitWerten(), "WHERE (((awaPrStelle.ID_TR)=", ID(ID_TR),
                          ") AND ((awaModulStandard.Lebensform)=1));")
                   : Text(summe, VonFunde(), "WHERE ((awaPrStelle.ID_TR=", ID(ID_TR), "));");
}

std::string Makroalgen(std::int32_t ID_TR, bool IstWRRL, std::string_view werte, bool mitAlgenart) {
    constexpr std::string_view auswahl = "SELECT awaArtPrStelle.ID_Art, awaArtPrStelle.DG_MA, ";
    if (IstWRRL) {
        return Text(auswahl, werte, " ", VonFundeMitFamilie(),
                    "WHERE (((awaArtPrStelle.DG_MA)>0) AND ((awaPrStelle.ID_TR)=", ID(ID_TR), ")",
                    mitAlgenart ? " AND ((awaModulStandard.Algenart)<>'')" : "", NurAlgen);
    }
    return Text(auswahl, werte, " ", VonFundeMitWerten(), "WHERE ((awaPrStelle.ID_TR=", ID(ID_TR),
                ") AND (awaArtPrStelle.DG_MA>0)", mitAlgenart ? " AND (awaModulStandard.Algenart<>'')" : "",
                ");");
}

std::string Bestandsarten(std::int32_t ID_TR_MI, bool IstWRRL, std::string_view werte, bool mitAlgenart) {
    constexpr std::string_view auswahl = "SELECT awaArtPrStelle_MI.ID_Art, awaArtPrStelle_MI.DG_MI, ";
    if (IstWRRL) {
        return Text(auswahl, werte, " ", VonBestandsartenMitFamilie,
                    "WHERE (((awaArtPrStelle_MI.DG_MI)>0) AND ((awaArtPrStelle_MI.ID_TR_MI)=", ID(ID_TR_MI),
                    ")", mitAlgenart ? " AND ((awaModulStandard.Algenart)<>'')" : "", NurAlgen);
    }
    return Text(auswahl, werte, " ", VonBestandsarten,
                "WHERE ((awaArtPrStelle_MI.DG_MI>0) AND (awaArtPrStelle_MI.ID_TR_MI=", ID(ID_TR_MI), ")",
                mitAlgenart ? " AND (awaModulStandard.Algenart<>'')" : "", ");");
}

std::string Kieselalgen(std::int32_t ID_TR, bool IstWRRL, std::string_view werte) {
    return Text("SELECT awaArtPrStelle.ID_Art, awaArtPrStelle.Schalen_KA, ", werte, " ", VonFundeMitWerten(),
                "WHERE ((awaPrStelle.ID_TR=", ID(ID_TR), ") AND (awaArtPrStelle.Schalen_KA>0)",
                IstWRRL ? " AND (awaModulStandard.Lebensform=1)" : "", ");");
}

std::string Bestandsklassen(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaModulStandard.ID_ART, awaModulStandard.SI ",
                "FROM (awaArtPrStelle_MI INNER JOIN awaModulStandard ON awaArtPrStelle_MI.ID_ART = "
                "awaModulStandard.ID_ART) INNER JOIN awaTeilraum_MI ON awaArtPrStelle_MI.ID_TR_MI = "
                "awaTeilraum_MI.ID_TR_MI ",
                "WHERE ((awaTeilraum_MI.ID_TR=", ID(ID_TR), ") AND (awaArtPrStelle_MI.DG_MI>0));");
}

std::string MengeMakroalgen(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaArtPrStelle.DG_MA, awaArtPrStelle.SD_MA ", VonFundeMitWerten(),
                "WHERE ((awaPrStelle.ID_TR=", ID(ID_TR),
                ") AND (awaArtPrStelle.SD_MA>0) AND (awaModulStandard.Algenart<>''));");
}

std::string MengeBestaende(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaTeilraum_MI.DG_MI, awaTeilraum_MI.SD_MI ", "From awaTeilraum_MI ",
                "WHERE ((awaTeilraum_MI.ID_TR=", ID(ID_TR), ") AND (awaTeilraum_MI.SD_MI>0));");
}

std::string MengeMakroalgeOhneDeckung(std::int32_t ID_TR) {
    return Text(
        "SELECT awaArtPrStelle.ID_ART ", VonFundeMitWerten(), "WHERE ((awaPrStelle.ID_TR=", ID(ID_TR),
        ") AND (awaArtPrStelle.SD_MA>0) AND (awaModulStandard.Algenart<>'') AND (awaArtPrStelle.DG_MA Is "
        "Null));");
}

std::string MengeBestandOhneDeckung(std::int32_t ID_TR) {
    return Text("SELECT awaTeilraum_MI.ID_TR_MI From awaTeilraum_MI ",
                "WHERE ((awaTeilraum_MI.ID_TR=", ID(ID_TR),
                ") AND (awaTeilraum_MI.SD_MI>0) AND (awaTeilraum_MI.DG_MI Is Null));");
}

std::string Ergebniszeile(std::int32_t ID_TR, bool KAOnly) {
    return Text("SELECT * FROM awaErgProjekt WHERE (ID=", ID(ID_TR), ") AND (KAOnly=", Flagge(KAOnly), ");");
}

}  // namespace FX_Algen::calc::abfragen
