// How much of a sample carries indicator weights and values.
#include "FX_Algen/Coverage.h"

#include "calc/Abfragen.h"
#include "calc/Lesen.h"

namespace FX_Algen {
namespace {

/// Ratings behind taxon and abundance, as they follow in the select lists below.
constexpr std::string_view Werte =
    "awaModulStandard.Sap_GBer, awaModulStandard.SI, awaModulStandard.Trophiegewicht, "
    "awaModulStandard.Trophiewert, "
    "awaModulStandard.Trophiegewicht_N, awaModulStandard.Trophiewert_N, awaModulStandard.Algenart";
enum Felder : std::size_t {
    Abundanz = 1,
    Sap_GBer,
    SI,
    Trophiegewicht,
    Trophiewert,
    Trophiegewicht_N,
    Trophiewert_N,
    Algenart
};

/// Sums of abundance that carries weight and value.
struct Getragen {
    double Saprobic = 0;
    double Trophic = 0;
    double Trophic_N = 0;
};

double Zahl(const store::Value& wert) { return wert.IsNull() ? 0 : wert.R8(); }

bool Traegt(const store::Recordset& zeile, Felder gewicht, Felder wert) {
    return Zahl(zeile[gewicht]) > 0 && Zahl(zeile[wert]) > 0;
}

/// Adds the rows of a query, each with its abundance * `faktor`. With `nurMitAlgenart` taxa without Algenart
/// carry no trophic value, as in the blocks of the calculation that leave them out.
void Sammeln(store::Database& database, const std::string& abfrage, double faktor, bool nurMitAlgenart,
             Getragen& getragen) {
    const auto zeilen = database.OpenRecordset(abfrage);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        const double abundanz = Zahl(zeile[Abundanz]) * faktor;
        if (Traegt(zeile, Sap_GBer, SI)) getragen.Saprobic += abundanz;
        if (nurMitAlgenart && (zeile[Algenart].IsNull() || zeile[Algenart].Text().empty())) continue;
        if (Traegt(zeile, Trophiegewicht, Trophiewert)) getragen.Trophic += abundanz;
        if (Traegt(zeile, Trophiegewicht_N, Trophiewert_N)) getragen.Trophic_N += abundanz;
    }
    zeilen->Close();
}

double Gesamtdeckung(store::Database& database, std::int32_t ID_TR, bool IstWRRL) {
    const auto zeilen = database.OpenRecordset(calc::abfragen::Teilraum(ID_TR));
    const double gesamt = zeilen->Eof() ? 0 : Zahl((*zeilen)[IstWRRL ? "DG_Gesamt_WRRL" : "DG_Gesamt"]);
    zeilen->Close();
    return gesamt;
}

/// All counted valves. The sum of the assessment variant is no base: it leaves out unrated taxa, and would
/// show an index that rests on a few valves as one that rests on all of them.
double AlleSchalen(store::Database& database, std::int32_t ID_TR) {
    const auto zeilen = database.OpenRecordset(calc::abfragen::Schalensumme(ID_TR, false));
    const double summe = zeilen->Eof() ? 0 : Zahl((*zeilen)[0]);
    zeilen->Close();
    return summe;
}

Getragen Deckung(store::Database& database, std::int32_t ID_TR, bool IstWRRL) {
    Getragen getragen;
    Sammeln(database, calc::abfragen::Makroalgen(ID_TR, IstWRRL, Werte, false), 1, true, getragen);
    const auto bestaende = database.OpenRecordset(calc::abfragen::Bestaende(ID_TR));
    for (; !bestaende->Eof(); bestaende->MoveNext()) {
        const double deckung = Zahl((*bestaende)[IstWRRL ? "DG_MI_WRRL" : "DG_MI"]);
        Sammeln(database, calc::abfragen::Bestandsarten((*bestaende)["ID_TR_MI"].I4(), IstWRRL, Werte, false),
                deckung / 100, true, getragen);
    }
    bestaende->Close();
    return getragen;
}

std::optional<double> Prozent(double teil, double ganzes) {
    if (!(ganzes > 0)) return std::nullopt;
    return teil / ganzes * 100;
}

}  // namespace

Coverage CoverageOf(const store::DatabasePtr& database, std::int32_t ID_TR, bool IstWRRL) {
    auto& db = calc::Vorhanden(database, "CoverageOf");
    Getragen schalen;
    Sammeln(db, calc::abfragen::Kieselalgen(ID_TR, IstWRRL, Werte), 1, false, schalen);
    const Getragen deckung = Deckung(db, ID_TR, IstWRRL);
    const double alleSchalen = AlleSchalen(db, ID_TR);
    const double gesamt = Gesamtdeckung(db, ID_TR, IstWRRL);
    return {{Prozent(schalen.Saprobic, alleSchalen), Prozent(deckung.Saprobic, gesamt)},
            {Prozent(schalen.Trophic, alleSchalen), Prozent(deckung.Trophic, gesamt)},
            {Prozent(schalen.Trophic_N, alleSchalen), Prozent(deckung.Trophic_N, gesamt)}};
}

}  // namespace FX_Algen
