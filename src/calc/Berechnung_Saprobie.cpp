// Saprobic index of a sub-habitat: reads each block, has it computed, shows the debug boxes, writes the row.
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Saprobie.h"
#include "calc/Schritte.h"
#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

using calc::Aufruf;
using calc::SaprobieSpur;

void MeldungSummen(std::string_view block, const calc::Summe32& werte, const calc::Summe32& gewichte) {
    calc::Meldung(std::string(block) + store::NumberText(werte.Wert()) + " / " +
                  store::NumberText(gewichte.Wert()));
    const auto& anzahl = store::Thread().GueteklasseAnzahl;
    for (std::size_t i = 0; i < anzahl.size(); ++i) {
        calc::Meldung("Gütezahl " + store::NumberText(static_cast<std::int32_t>(i)) + ":" +
                      store::NumberText(static_cast<std::int32_t>(anzahl[i])));
    }
}

void BlockMakroalgen(const Aufruf& aufruf, SaprobieSpur& lauf, SaprobieSpur* spur) {
    auto lesung = calc::LiesZeilen<calc::MakroalgeSap>(
        aufruf.Datenbank,
        calc::abfragen::Makroalgen(aufruf.ID_TR, aufruf.IstWRRL, calc::abfragen::SapWerte, false),
        [](calc::Feldleser& felder) {
            return calc::MakroalgeSap{felder.Schluessel(0), {felder.Zahl(1)}, felder.Zahl(2), felder.Zahl(3)};
        });
    calc::Makroalgen(lesung.Zeilen, lauf.Basis.DG_Gesamt, lauf.Summen, store::Thread().GueteklasseAnzahl,
                     spur);
    calc::Pruefen(aufruf, lesung, calc::Block::Makroalgen);
}

void BlockMischbestaende(const Aufruf& aufruf, SaprobieSpur& lauf, SaprobieSpur* spur) {
    calc::FuerBestaende(aufruf, lauf.Basis, [&](const calc::Bestand& bestand) {
        auto lesung = calc::LiesZeilen<calc::BestandsartSap>(
            aufruf.Datenbank,
            calc::abfragen::Bestandsarten(bestand.ID_TR_MI, aufruf.IstWRRL, calc::abfragen::SapWerte, false),
            [](calc::Feldleser& felder) {
                return calc::BestandsartSap{
                    felder.Schluessel(0), {felder.Zahl(1)}, felder.Zahl(2), felder.Zahl(3)};
            });
        calc::Mischbestand(lesung.Zeilen, bestand, lauf.Summen, spur);
        calc::Pruefen(aufruf, lesung, calc::Block::Mischbestaende, bestand.ID_TR_MI);
    });
}

void KlassenMischbestaende(const Aufruf& aufruf, SaprobieSpur* spur) {
    auto lesung = calc::LiesZeilen<calc::KlassenartSap>(
        aufruf.Datenbank, calc::abfragen::Bestandsklassen(aufruf.ID_TR), [](calc::Feldleser& felder) {
            return calc::KlassenartSap{felder.Schluessel(0), felder.Zahl(1)};
        });
    calc::MischbestandKlassen(lesung.Zeilen, store::Thread().GueteklasseAnzahl, spur);
    calc::Pruefen(aufruf, lesung, calc::Block::Mischbestaende);
}

void BlockKieselalgen(const Aufruf& aufruf, SaprobieSpur& lauf, SaprobieSpur* spur) {
    auto lesung = calc::LiesZeilen<calc::KieselalgeSap>(
        aufruf.Datenbank, calc::abfragen::Kieselalgen(aufruf.ID_TR, aufruf.IstWRRL, calc::abfragen::SapWerte),
        [](calc::Feldleser& felder) {
            return calc::KieselalgeSap{
                felder.Schluessel(0), {felder.Ganzzahl(1)}, felder.Zahl(2), felder.Zahl(3)};
        });
    calc::Kieselalgen(lesung.Zeilen, lauf.Basis.Summe_KA, lauf.Summen, store::Thread().GueteklasseAnzahl,
                      spur);
    calc::Pruefen(aufruf, lesung, calc::Block::Schalen);
}

/// The taxa counts of the row, each written as it is counted, in the order of the columns.
class Zaehlungen {
public:
    Zaehlungen(const store::DatabasePtr& database, const Aufruf& aufruf, store::Recordset& zeile,
               calc::Spur* spur)
        : database_(database), aufruf_(aufruf), zeile_(zeile), spur_(spur) {}

    void Taxa(std::string_view spalte, std::int16_t modus, bool IstWRRL) {
        Schreiben(spalte, [&](calc::Taxazaehlung* spur) {
            return Taxazahl(database_, aufruf_.ID_TR, modus, IstWRRL, {}, spur);
        });
    }
    void Sap(std::string_view spalte) {
        Schreiben(spalte, [&](calc::Taxazaehlung* spur) {
            return Taxazahl_Sap(database_, aufruf_.ID_TR, aufruf_.IstWRRL, spur);
        });
    }
    void TI(std::string_view spalte, std::int16_t modus, bool IstWRRL) {
        Schreiben(spalte, [&](calc::Taxazaehlung* spur) {
            return Taxazahl_TI(database_, aufruf_.ID_TR, modus, IstWRRL, spur);
        });
        if (aufruf_.DebugModus) {
            calc::Meldung("BerechnungTrophie " + store::NumberText(static_cast<std::int32_t>(modus)));
        }
    }

private:
    template <class Zaehle>
    void Schreiben(std::string_view spalte, Zaehle zaehle) {
        if (spur_ == nullptr) {
            zeile_.Collect(spalte, zaehle(nullptr));
            return;
        }
        calc::Taxazaehlung zaehlung{std::string(spalte), 0, {}};
        zaehlung.Anzahl = zaehle(&zaehlung);
        zeile_.Collect(spalte, zaehlung.Anzahl);
        spur_->Taxazahlen.push_back(std::move(zaehlung));
    }

    const store::DatabasePtr& database_;
    const Aufruf& aufruf_;
    store::Recordset& zeile_;
    calc::Spur* spur_;
};

void SchreibeZeile(const store::DatabasePtr& database, const Aufruf& aufruf, const SaprobieSpur& lauf,
                   calc::Spur* spur) {
    const auto zeile =
        aufruf.Datenbank.OpenRecordset(calc::abfragen::Ergebniszeile(aufruf.ID_TR, aufruf.KAOnly));
    if (!zeile->Eof()) {
        zeile->Edit();
        zeile->Collect("SapIndex", calc::Quotient(lauf.Summen.GewichtSI, lauf.Summen.Gewicht));
        zeile->Collect("SapIndex_KA", calc::Quotient(lauf.Summen.GewichtSI_KA, lauf.Summen.Gewicht_KA));
        zeile->Collect("DG_Gesamt", lauf.Basis.DG_Gesamt.Prozent);
        zeile->Collect("DG_Makroalgen", lauf.Basis.DG_Makroalgen);
        Zaehlungen zaehlungen(database, aufruf, *zeile, spur);
        zaehlungen.Taxa("Taxa", 1, aufruf.IstWRRL);
        zaehlungen.Taxa("Taxa_KA", 2, false);
        zaehlungen.Taxa("Taxa_SI", 3, aufruf.IstWRRL);
        zaehlungen.Taxa("Taxa_SI_KA", 4, false);
        zaehlungen.Sap("TaxaSap");
        zaehlungen.TI("TaxaTI", 1, aufruf.IstWRRL);
        zaehlungen.TI("TaxaTI_N", 2, aufruf.IstWRRL);
        zaehlungen.TI("TaxaTI_KA", 3, false);
        const auto& anzahl = store::Thread().GueteklasseAnzahl;
        for (std::size_t i = 0; i < anzahl.size(); ++i) zeile->Collect(calc::KlassenSpalten[i], anzahl[i]);
        zeile->Update();
    }
    zeile->Close();
}

}  // namespace

void Berechnung_Saprobie(const store::DatabasePtr& database, std::int32_t ID, bool /*ValenzGewicht*/,
                         bool IstWRRL, bool DebugModus, bool KAOnly, calc::Spur* spur) {
    constexpr std::string_view routine = "Berechnung_Saprobie";
    const Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, IstWRRL, DebugModus, KAOnly};
    // The working values and their trace are one struct; the lists of rows in it fill only where a trace is
    // asked for.
    SaprobieSpur eigen;
    SaprobieSpur& lauf = spur != nullptr ? spur->Saprobie.emplace() : eigen;
    SaprobieSpur* zeilenspur = spur != nullptr ? &lauf : nullptr;

    store::Thread().GueteklasseAnzahl.fill(0);
    calc::LiesTeilraum(aufruf, lauf.Basis);
    const bool deckung = lauf.Basis.DG_Gesamt.Prozent > 0;
    if (!KAOnly) {
        if (deckung) BlockMakroalgen(aufruf, lauf, zeilenspur);
        if (DebugModus) MeldungSummen("MA: ", lauf.Summen.GewichtSI, lauf.Summen.Gewicht);
        if (deckung) BlockMischbestaende(aufruf, lauf, zeilenspur);
        KlassenMischbestaende(aufruf, zeilenspur);
        if (DebugModus) MeldungSummen("MI: ", lauf.Summen.GewichtSI, lauf.Summen.Gewicht);
    }
    calc::LiesSchalensumme(aufruf, lauf.Basis);
    if (lauf.Basis.Summe_KA.Anzahl > 0) BlockKieselalgen(aufruf, lauf, zeilenspur);
    if (DebugModus) MeldungSummen("KA: ", lauf.Summen.GewichtSI_KA, lauf.Summen.Gewicht_KA);
    lauf.Fertig = true;
    SchreibeZeile(database, aufruf, lauf, spur);
}

}  // namespace FX_Algen
