// Seston of a sub-habitat: reads the findings, has the indices computed, shows the debug boxes, writes the
// row. The findings pass through a working table, which the later steps read.
#include <array>
#include <string>

#include "calc/AbfragenSeston.h"
#include "calc/BerechnungSeston.h"
#include "calc/Lesen.h"
#include "calc/Schritte.h"
#include "calc/SestonSpur.h"

namespace FX_Algen {
namespace {

namespace abfragen = calc::abfragen;
using calc::SestonFund;
using calc::SestonSpur;

struct Sestonlauf : calc::Ort {
    bool DebugModus = false;
    SestonSpur& Lauf;  ///< the working values, and where one is asked for their trace
    bool MitSpur = false;

    void Meldung(const std::string& text) const {
        if (DebugModus) calc::Meldung(text);
    }
};

/// The query of the findings carries no keys, so the finding behind a Null is looked up.
[[noreturn]] void FundOhneWert(const Sestonlauf& lauf, calc::NullStelle stelle) {
    stelle.Artentabelle = "sesArt";
    const auto zeilen = lauf.Datenbank.OpenRecordset(abfragen::SestonfundOhneWert(lauf.ID_TR, stelle.Feld));
    if (!zeilen->Eof()) {
        stelle.ID_Art = (*zeilen)[0].I4();
        stelle.ID_PS = (*zeilen)[1].I4();
        stelle.CF = (*zeilen)[2].Bool();
    }
    zeilen->Close();
    calc::NullFehler(lauf, stelle);
}

void Anfuegen(store::Recordset& tabelle, std::int32_t ID_TR, const SestonFund& fund) {
    tabelle.AddNew();
    tabelle.Collect("ID_TR", ID_TR);
    tabelle.Collect("Si", fund.W_SI);
    tabelle.Collect("a", fund.Abundanz);
    if (fund.W_SI > 0) tabelle.Collect("n", std::int16_t{1});
    tabelle.Update();
}

void Summieren(const Sestonlauf& lauf) {
    lauf.Datenbank.Execute("DELETE * FROM sesErgProjektTmp");
    const auto tabelle = lauf.Datenbank.OpenRecordset(abfragen::Sestonzeilen());
    const auto abfrage = abfragen::Sestonfunde(lauf.ID_TR);
    lauf.Meldung("SapSeston: " + abfrage);
    const auto lesung = calc::LiesZeilen<SestonFund>(lauf.Datenbank, abfrage, [](calc::Feldleser& felder) {
        return SestonFund{felder.Ganzzahl(0),
                          felder.Zahl(1),
                          {felder.Zahl(2), felder.Zahl(3), felder.Zahl(4), felder.Zahl(5)}};
    });
    for (const auto& fund : lesung.Zeilen) {
        calc::Zaehle(fund, lauf.Lauf.Summen);
        Anfuegen(*tabelle, lauf.ID_TR, fund);
        if (lauf.MitSpur) lauf.Lauf.Beitraege.push_back({fund, std::nullopt});
    }
    if (lesung.Luecke) FundOhneWert(lauf, *lesung.Luecke);
    tabelle->Close();
    lauf.Lauf.Fertig = true;
}

void Entropie(const Sestonlauf& lauf) {
    double summe = 0;
    const auto zeilen = lauf.Datenbank.OpenRecordset(abfragen::Sestonzeilen());
    const auto a = zeilen->FieldIndex("a");
    for (std::size_t i = 0; !zeilen->Eof(); zeilen->MoveNext(), ++i) {
        const double term = calc::Entropieterm((*zeilen)[a].I4(), lauf.Lauf.Summen.lngAbundanz);
        summe += term;
        if (i < lauf.Lauf.Beitraege.size()) lauf.Lauf.Beitraege[i].Entropie = term;
    }
    zeilen->Close();
    lauf.Lauf.Summe_H = summe;
}

/// Without valences the eight columns stay as they are. The cumulations add the columns as written, which are
/// 32-bit.
void SchreibeValenzen(store::Recordset& zeile, const calc::SestonSummen& summen) {
    constexpr std::array<std::string_view, 4> Spalten{"Oligo", "Beta", "Alpha", "Poly"};
    constexpr std::array<std::string_view, 4> Kumuliert{"KumOligo", "KumBeta", "KumAlpha", "KumPoly"};
    const auto verteilung = calc::Verteilung(summen);
    if (!verteilung) return;
    for (std::size_t i = 0; i < Spalten.size(); ++i) zeile.Collect(Spalten[i], (*verteilung)[i]);
    zeile.Collect(Kumuliert[0], zeile[Spalten[0]]);
    for (std::size_t i = 1; i < Spalten.size(); ++i) {
        zeile.Collect(Kumuliert[i], zeile[Kumuliert[i - 1]].R8() + zeile[Spalten[i]].R8());
    }
}

template <class Zaehlung>
void SchreibeZahl(const Sestonlauf& lauf, store::Recordset& zeile, std::string_view spalte,
                  Zaehlung zaehlung) {
    calc::Taxazaehlung spur{std::string(spalte), 0, {}};
    spur.Anzahl = zaehlung(lauf.MitSpur ? &spur : nullptr);
    zeile.Collect(spalte, spur.Anzahl);
    if (lauf.MitSpur) lauf.Lauf.Taxazahlen.push_back(std::move(spur));
}

void SchreibeZaehlungen(const store::DatabasePtr& database, const Sestonlauf& lauf, store::Recordset& zeile,
                        float SapIndex) {
    lauf.Meldung("SapSeston Taxa: ");
    SchreibeZahl(lauf, zeile, "Taxa",
                 [&](calc::Taxazaehlung* spur) { return Taxazahl_Seston(database, lauf.ID_TR, spur); });
    lauf.Meldung("SapSeston TaxaSap: ");
    SchreibeZahl(lauf, zeile, "Taxa_SI",
                 [&](calc::Taxazaehlung* spur) { return Taxazahl_SestonSap(database, lauf.ID_TR, spur); });
    lauf.Meldung("SapSeston Streuung: ");
    zeile.Collect("SI_Streuung", SI_Streuung_Seston(database, lauf.ID_TR, SapIndex, &lauf.Lauf.Streuung));
}

void SchreibeVielfalt(const Sestonlauf& lauf, store::Recordset& zeile) {
    const auto vielfalt = calc::BerechneVielfalt(lauf.Lauf.Summe_H.value_or(0), lauf.Lauf.Summen.lngAbundanz,
                                                 zeile["Taxa"].I2());
    zeile.Collect("ShannonundWeaver", vielfalt.ShannonundWeaver);
    zeile.Collect("MArgalef", vielfalt.MArgalef);
    zeile.Collect("Eveness", vielfalt.Eveness);
}

void SchreibeZeile(const store::DatabasePtr& database, const Sestonlauf& lauf) {
    const auto abfrage = abfragen::Sestonergebnis(lauf.ID_TR);
    const auto zeile = lauf.Datenbank.OpenRecordset(abfrage);
    lauf.Meldung("SapSeston speichern: " + abfrage);
    if (!zeile->Eof()) {
        const auto& summen = lauf.Lauf.Summen;
        zeile->Edit();
        const float SapIndex = calc::Quotient(summen.SI, summen.Abundanz);
        SchreibeValenzen(*zeile, summen);
        zeile->Collect("SapIndex", SapIndex);
        zeile->Collect("Abundanzsumme", summen.lngAbundanz);
        SchreibeZaehlungen(database, lauf, *zeile, SapIndex);
        SchreibeVielfalt(lauf, *zeile);
        lauf.Meldung("SapSeston update: ");
        zeile->Update();
    }
    zeile->Close();
}

}  // namespace

void Berechnung_InitSeston(const store::DatabasePtr& database) {
    calc::Vorhanden(database, "Berechnung_InitSeston").Execute("DELETE * FROM sesErgProjekt;");
}

void Berechnung_ExecuteSeston(const store::DatabasePtr& database, std::int32_t ID_TR, bool ValenzGewicht,
                              bool DebugModus, SestonSpur* spur) {
    auto& db = calc::Vorhanden(database, "Berechnung_ExecuteSeston");
    const auto anweisung = "INSERT INTO sesErgProjekt (ID) VALUES(" + store::NumberText(ID_TR) + ");";
    if (DebugModus) calc::Meldung(anweisung);
    db.Execute(anweisung);
    Berechnung_Seston(database, ID_TR, ValenzGewicht, DebugModus, spur);
}

void Berechnung_Seston(const store::DatabasePtr& database, std::int32_t ID, bool /*ValenzGewicht*/,
                       bool DebugModus, SestonSpur* spur) {
    constexpr std::string_view routine = "Berechnung_Seston";
    SestonSpur eigen;
    const Sestonlauf lauf{{calc::Vorhanden(database, routine), routine, ID},
                          DebugModus,
                          spur != nullptr ? *spur : eigen,
                          spur != nullptr};
    Summieren(lauf);
    Entropie(lauf);
    SchreibeZeile(database, lauf);
}

}  // namespace FX_Algen
