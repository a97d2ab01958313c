// Algae quantity index of a sub-habitat: reads both blocks, has them computed, writes the column.
#include "calc/Abfragen.h"
#include "calc/Algenmenge.h"
#include "calc/Berechnung.h"
#include "calc/Schritte.h"

namespace FX_Algen {
namespace {

calc::Lesung<calc::Menge> LiesMengen(store::Database& database, const std::string& abfrage) {
    return calc::LiesZeilen<calc::Menge>(database, abfrage, [](calc::Feldleser& felder) {
        return calc::Menge{{felder.Zahl(0)}, {felder.Zahl(1)}};
    });
}

/// Key of the first row with a missing cover; the queries of the index themselves carry no keys.
std::optional<std::int32_t> Schuldiger(store::Database& database, const std::string& abfrage) {
    const auto zeilen = database.OpenRecordset(abfrage);
    std::optional<std::int32_t> id;
    if (!zeilen->Eof()) id = (*zeilen)[0].I4();
    zeilen->Close();
    return id;
}

}  // namespace

void Berechnung_AMI(const store::DatabasePtr& database, std::int32_t ID, calc::Spur* spur) {
    const calc::Ort ort{calc::Vorhanden(database, "Berechnung_AMI"), "Berechnung_AMI", ID};
    auto& db = ort.Datenbank;
    calc::AMISpur eigen;
    calc::AMISpur& lauf = spur != nullptr ? spur->AMI.emplace() : eigen;
    calc::AMISpur* zeilenspur = spur != nullptr ? &lauf : nullptr;

    auto makroalgen = LiesMengen(db, calc::abfragen::MengeMakroalgen(ID));
    calc::Mengenindex(calc::Block::Makroalgen, makroalgen.Zeilen, lauf.AMI, zeilenspur);
    if (makroalgen.Luecke) {
        makroalgen.Luecke->ID_Art = Schuldiger(db, calc::abfragen::MengeMakroalgeOhneDeckung(ID));
        calc::Pruefen(ort, makroalgen, calc::Block::Makroalgen);
    }

    auto bestaende = LiesMengen(db, calc::abfragen::MengeBestaende(ID));
    calc::Mengenindex(calc::Block::Mischbestaende, bestaende.Zeilen, lauf.AMI, zeilenspur);
    if (bestaende.Luecke) {
        calc::Pruefen(ort, bestaende, calc::Block::Mischbestaende,
                      Schuldiger(db, calc::abfragen::MengeBestandOhneDeckung(ID)));
    }

    lauf.Fertig = true;

    // Without KAOnly in the filter: the first row of the sub-habitat is the one that is written.
    const auto zeile = db.OpenRecordset("SELECT AMI FROM awaErgProjekt WHERE ID=" + store::NumberText(ID));
    if (!zeile->Eof()) {
        zeile->Edit();
        zeile->Collect("AMI", lauf.AMI);
        zeile->Update();
    }
    zeile->Close();
}

}  // namespace FX_Algen
