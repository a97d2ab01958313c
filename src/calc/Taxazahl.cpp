// Taxa statistics of a sub-habitat. The record counts rest on the exact shape of each query: what is grouped
// or DISTINCT counts taxa, any other query counts findings, or rows of the frequency list.
#include "FX_Algen/Error.h"
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Lesen.h"
#include "calc/Satzzahl.h"
#include "calc/Spur.h"

namespace FX_Algen {
namespace {

using calc::Satzzahl;
using calc::Taxazaehlung;
namespace abfragen = calc::abfragen;

constexpr std::string_view NachArt = "GROUP BY awaArtPrStelle.ID_ART;";
constexpr std::string_view WaehleArt = "SELECT DISTINCTROW awaArtPrStelle.ID_ART ";
// Diatoms (128) stay in, unlike among the macroalgae and mixed stands of the indices.
constexpr std::string_view NurBewertbar =
    " And ((awaModulStandard.Lebensform) = 1) And ((awaFamilie.ID_GRGR) < 132)) ";

std::string Nummer(std::int32_t id) { return store::NumberText(id); }

template <class... Teile>
std::string Text(const Teile&... teile) {
    std::string text;
    (text.append(teile), ...);
    return text;
}

double AlleTaxa(store::Database& database, std::int32_t ID, bool IstWRRL, Taxazaehlung* spur) {
    return Satzzahl(database,
                    IstWRRL ? Text(WaehleArt, abfragen::VonFundeMitFamilie(),
                                   "WHERE (((awaPrStelle.ID_TR) = ", Nummer(ID), ")", NurBewertbar, NachArt)
                            : Text("SELECT ID_Art ", abfragen::VonFunde(),
                                   "WHERE awaPrStelle.ID_TR= ", Nummer(ID), " GROUP BY ID_Art;"),
                    spur);
}

double TaxaMitSchalen(store::Database& database, std::int32_t ID, bool IstWRRL, Taxazaehlung* spur) {
    return Satzzahl(
        database,
        IstWRRL ? Text(WaehleArt, abfragen::VonFundeMitWerten(), "WHERE ((awaPrStelle.ID_TR=", Nummer(ID),
                       ") AND (awaArtPrStelle.Schalen_KA > 0) AND (awaModulStandard.Lebensform=1)) "
                       "GROUP BY awaArtPrStelle.ID_Art;")
                : Text("SELECT ID_Art ", abfragen::VonFunde(), "WHERE awaPrStelle.ID_TR= ", Nummer(ID),
                       " AND awaArtPrStelle.Schalen_KA > 0 GROUP BY ID_Art;"),
        spur);
}

double TaxaMitSaprobiewert(store::Database& database, std::int32_t ID, bool IstWRRL, Taxazaehlung* spur) {
    return Satzzahl(database,
                    Text(WaehleArt, IstWRRL ? abfragen::VonFundeMitFamilie() : abfragen::VonFundeMitWerten(),
                         "WHERE (((awaPrStelle.ID_TR) = ", Nummer(ID), ") And ((awaModulStandard.SI) > 0)",
                         IstWRRL ? NurBewertbar : ") ", NachArt),
                    spur);
}

double KieselalgenMitGewicht(store::Database& database, std::int32_t ID, Taxazaehlung* spur) {
    return Satzzahl(
        database,
        Text(WaehleArt, abfragen::VonFundeMitWerten(), "WHERE (((awaPrStelle.ID_TR) = ", Nummer(ID),
             ") And ((awaArtPrStelle.Schalen_KA) > 0) And ((awaModulStandard.Sap_GBer) > 0)) ", NachArt),
        spur);
}

double AusHaeufigkeit(store::Database& database, std::int32_t ID, std::string_view filter) {
    const auto zeilen = database.OpenRecordset(
        Text("SELECT Count(awaArtenlisteHaeufigkeit.ID_Art) AS [AnzahlArt] ", abfragen::VonHaeufigkeit(),
             "WHERE (((awaArtenlisteHaeufigkeit.A", Nummer(ID), filter));
    const double anzahl = zeilen->Eof() ? 0 : (*zeilen)["AnzahlArt"].R8();
    zeilen->Close();
    return anzahl;
}

/// Reference taxa of type A plus those of type B; a taxon of both counts twice. The first query is not
/// distinct: there a taxon with and without `CF` counts twice as well.
double Referenzarten(store::Database& database, std::int32_t ID, std::string_view kriterium, bool nurSchalen,
                     Taxazaehlung* spur) {
    const auto typA = Satzzahl(
        database,
        abfragen::ReferenzartenTypA(
            ID, "awaArtenlisteHaeufigkeit.ID_Art, awaArtenlisteHaeufigkeit.A" + Nummer(ID), nurSchalen),
        spur);
    const auto typB = Satzzahl(
        database, abfragen::ReferenzartenTypB(ID, "awaArtenlisteHaeufigkeit.ID_Art", kriterium, nurSchalen),
        spur);
    return typA + typB;
}

double Schalensumme(store::Database& database, std::int32_t ID, bool IstWRRL) {
    const auto zeilen = database.OpenRecordset(abfragen::Schalensumme(ID, IstWRRL));
    const double summe = zeilen->Eof() || (*zeilen)[0].IsNull() ? 0 : (*zeilen)[0].R8();
    zeilen->Close();
    return summe;
}

double Zaehlen(store::Database& database, std::int32_t ID, std::int16_t Modus, bool IstWRRL,
               std::string_view Kriterium, Taxazaehlung* spur) {
    switch (Modus) {
        case 1:
            return AlleTaxa(database, ID, IstWRRL, spur);
        case 2:
            return TaxaMitSchalen(database, ID, IstWRRL, spur);
        case 3:
            return TaxaMitSaprobiewert(database, ID, IstWRRL, spur);
        case 4:
            return KieselalgenMitGewicht(database, ID, spur);
        case 5:
            return AusHaeufigkeit(database, ID,
                                  ")>0) AND ((awaFamilie.ID_GRGR)<=132) AND (awaArt.IstArtniveau = True));");
        case 6:
            return Referenzarten(database, ID, Kriterium, false, spur);
        case 7:
            return AusHaeufigkeit(database, ID, ")>0) AND ((awaFamilie.ID_GRGR)<=132));");
        case 8:
            return AusHaeufigkeit(database, ID,
                                  ")>0) AND ((awaFamilie.ID_GRGR <= 132) And (awaFamilie.ID_GRGR <> 128) AND "
                                  "(awaArt.IstArtniveau = True)));");
        case 9:
            return AusHaeufigkeit(database, ID,
                                  ")>0) AND ((awaFamilie.ID_GRGR)=128) AND (awaArt.IstArtniveau = True));");
        case 10:
            return Referenzarten(database, ID, Kriterium, true, spur);
        case 11:
            return Schalensumme(database, ID, IstWRRL);
        default:
            return 0;
    }
}

}  // namespace

// A count that cannot be made, such as one from a frequency list that was not built, is 0. What was counted
// before the failure is no part of that answer.
double Taxazahl(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus, bool IstWRRL,
                std::string_view Kriterium, Taxazaehlung* spur) try {
    return Zaehlen(calc::Vorhanden(database, "Taxazahl"), ID, Modus, IstWRRL, Kriterium, spur);
} catch (const Error&) {
    if (spur != nullptr) spur->ID_Arten.clear();
    return 0;
}

double Taxazahl_Sap(const store::DatabasePtr& database, std::int32_t ID, bool IstWRRL, Taxazaehlung* spur) {
    auto& db = calc::Vorhanden(database, "Taxazahl_Sap");
    return Satzzahl(
        db,
        IstWRRL
            ? Text(WaehleArt, abfragen::VonFundeMitFamilie(), "WHERE (((awaPrStelle.ID_TR) = ", Nummer(ID),
                   ") And (([X] + [o] + [ob] + [b] + [ba] + [a] + [ap] + [p]) = 10)", NurBewertbar, NachArt)
            : Text(WaehleArt, abfragen::VonFundeMitWerten(), "WHERE (((awaPrStelle.ID_TR) = ", Nummer(ID),
                   ") And (([x] + [o] + [ob] + [b] + [ba] + [a] + [ap] + [p]) = 10)) ", NachArt),
        spur);
}

double Taxazahl_TI(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus, bool IstWRRL,
                   Taxazaehlung* spur) {
    constexpr std::string_view nurBewertbar =
        " AND ((awaModulStandard.Lebensform)=1) AND ((awaFamilie.ID_GRGR)<132)) ;";
    auto& db = calc::Vorhanden(database, "Taxazahl_TI");
    const auto nummer = Nummer(ID);
    switch (Modus) {
        case 1:
            return Satzzahl(
                db,
                IstWRRL ? Text("SELECT DISTINCT awaArtPrStelle.ID_ART ", abfragen::VonFundeMitFamilie(),
                               "WHERE (((awaPrStelle.ID_TR)=", nummer,
                               ") AND ((awaModulStandard.Trophiewert)>0)", nurBewertbar)
                        : Text("SELECT DISTINCT awaArtPrStelle.ID_ART ", abfragen::VonFundeMitWerten(),
                               "WHERE ((awaPrStelle.ID_TR=", nummer, ") And ([Trophiewert] > 0)) ;"),
                spur);
        case 2:
            return Satzzahl(
                db,
                IstWRRL
                    ? Text(WaehleArt, abfragen::VonFundeMitFamilie(), "WHERE (((awaPrStelle.ID_TR)=", nummer,
                           ") AND ((awaModulStandard.Trophiewert_N)>0)", nurBewertbar)
                    : Text(WaehleArt, abfragen::VonFundeMitWerten(), "WHERE ((awaPrStelle.ID_TR=", nummer,
                           ") And ([Trophiewert_N] > 0)) ;"),
                spur);
        case 3:
            return Satzzahl(
                db,
                Text(WaehleArt, abfragen::VonFundeMitFamilie(), "WHERE ((awaPrStelle.ID_TR=", nummer,
                     ") AND (awaModulStandard.Trophiewert>0) AND (awaFamilie.ID_GRGR=128)) ;"),
                spur);
        default:
            return 0;
    }
}

}  // namespace FX_Algen
