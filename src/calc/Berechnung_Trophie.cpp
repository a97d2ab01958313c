// Trophic indices of a sub-habitat: reads each block, has it computed, shows the debug boxes, writes the row.
#include <span>

#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Schritte.h"
#include "calc/Trophie.h"

namespace FX_Algen {
namespace {

using calc::Aufruf;
using calc::TrophieSpur;

/// Fields from the second on, in the order in which the sums read them.
calc::Trophiewerte LiesWerte(calc::Feldleser& felder) {
    return {felder.Zahl(2), felder.Zahl(3), felder.Zahl(4), felder.Zahl(5)};
}

void MeldungSummen(const calc::TrophieSummen& summen) {
    calc::Meldung("sngTI=" + store::NumberText(summen.TI.Wert()) + "sngTI_S=" +
                  store::NumberText(summen.TI_S.Wert()) + "sngTI_N=" + store::NumberText(summen.TI_N.Wert()) +
                  "sngTI_N_S=" + store::NumberText(summen.TI_N_S.Wert()));
}

void BlockMakroalgen(const Aufruf& aufruf, TrophieSpur& lauf, TrophieSpur* spur) {
    auto lesung = calc::LiesZeilen<calc::MakroalgeTroph>(
        aufruf.Datenbank,
        calc::abfragen::Makroalgen(aufruf.ID_TR, aufruf.IstWRRL, calc::abfragen::TrophWerte, true),
        [](calc::Feldleser& felder) {
            return calc::MakroalgeTroph{felder.Schluessel(0), {felder.Zahl(1)}, LiesWerte(felder)};
        });
    calc::Makroalgen(lesung.Zeilen, lauf.Basis.DG_Gesamt, lauf.Summen, spur);
    calc::Pruefen(aufruf, lesung, calc::Block::Makroalgen);
}

void BlockMischbestaende(const Aufruf& aufruf, TrophieSpur& lauf, TrophieSpur* spur) {
    calc::FuerBestaende(aufruf, lauf.Basis, [&](const calc::Bestand& bestand) {
        auto lesung = calc::LiesZeilen<calc::BestandsartTroph>(
            aufruf.Datenbank,
            calc::abfragen::Bestandsarten(bestand.ID_TR_MI, aufruf.IstWRRL, calc::abfragen::TrophWerte, true),
            [](calc::Feldleser& felder) {
                return calc::BestandsartTroph{felder.Schluessel(0), {felder.Zahl(1)}, LiesWerte(felder)};
            });
        // The boxes show the sums as they stand after each row.
        const std::span<const calc::BestandsartTroph> zeilen(lesung.Zeilen);
        const std::size_t schritt = aufruf.DebugModus ? 1 : zeilen.size();
        for (std::size_t von = 0; von < zeilen.size(); von += schritt) {
            calc::Mischbestand(zeilen.subspan(von, schritt), bestand, lauf.Summen, spur);
            if (aufruf.DebugModus) {
                calc::Meldung("TLR=" + store::NumberText(aufruf.ID_TR));
                MeldungSummen(lauf.Summen);
            }
        }
        calc::Pruefen(aufruf, lesung, calc::Block::Mischbestaende, bestand.ID_TR_MI);
    });
}

void BlockKieselalgen(const Aufruf& aufruf, TrophieSpur& lauf, TrophieSpur* spur) {
    auto lesung = calc::LiesZeilen<calc::KieselalgeTroph>(
        aufruf.Datenbank,
        calc::abfragen::Kieselalgen(aufruf.ID_TR, aufruf.IstWRRL, calc::abfragen::TrophWerte),
        [](calc::Feldleser& felder) {
            return calc::KieselalgeTroph{felder.Schluessel(0), {felder.Ganzzahl(1)}, LiesWerte(felder)};
        });
    calc::Kieselalgen(lesung.Zeilen, lauf.Basis.Summe_KA, lauf.Summen, spur);
    calc::Pruefen(aufruf, lesung, calc::Block::Schalen);
}

void SchreibeZeile(const Aufruf& aufruf, const calc::TrophieSummen& summen) {
    const auto zeile =
        aufruf.Datenbank.OpenRecordset(calc::abfragen::Ergebniszeile(aufruf.ID_TR, aufruf.KAOnly));
    if (!zeile->Eof()) {
        if (aufruf.DebugModus) MeldungSummen(summen);
        zeile->Edit();
        zeile->Collect("TI", calc::Quotient(summen.TI_S, summen.TI));
        zeile->Collect("TI_N", calc::Quotient(summen.TI_N_S, summen.TI_N));
        zeile->Collect("TI_KA", calc::Quotient(summen.TI_KA_S, summen.TI_KA));
        zeile->Update();
    }
    zeile->Close();
}

}  // namespace

void Berechnung_Trophie(const store::DatabasePtr& database, std::int32_t ID, bool IstWRRL, bool DebugModus,
                        bool KAOnly, calc::Spur* spur) {
    constexpr std::string_view routine = "Berechnung_Trophie";
    const Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, IstWRRL, DebugModus, KAOnly};
    TrophieSpur eigen;
    TrophieSpur& lauf = spur != nullptr ? spur->Trophie.emplace() : eigen;
    TrophieSpur* zeilenspur = spur != nullptr ? &lauf : nullptr;

    calc::LiesTeilraum(aufruf, lauf.Basis);
    if (!KAOnly && lauf.Basis.DG_Gesamt.Prozent > 0) {
        BlockMakroalgen(aufruf, lauf, zeilenspur);
        BlockMischbestaende(aufruf, lauf, zeilenspur);
    }
    calc::LiesSchalensumme(aufruf, lauf.Basis);
    if (lauf.Basis.Summe_KA.Anzahl > 0) BlockKieselalgen(aufruf, lauf, zeilenspur);
    lauf.Fertig = true;
    SchreibeZeile(aufruf, lauf.Summen);
}

}  // namespace FX_Algen
