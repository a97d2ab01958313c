// Explanation of the seston of a sub-habitat: a rerun of the routines themselves inside a savepoint that is
// undone.
#include "FX_Algen/ExplainSeston.h"

#include "calc/AbfragenSeston.h"
#include "calc/BerechnungSeston.h"
#include "calc/ErklaerungSeston.h"
#include "calc/Nachrechnung.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

/// Columns that a calculation writes, in the order of the table.
const std::vector<std::string> Spalten{
    "Oligo",    "Beta",     "Alpha",         "Poly", "KumOligo", "KumBeta",     "KumAlpha",
    "KumPoly",  "SapIndex", "Abundanzsumme", "Taxa", "Taxa_SI",  "SI_Streuung", "ShannonundWeaver",
    "MArgalef", "Eveness"};

struct Rerun {
    calc::SestonSpur Spur;
    std::vector<calc::Sestonzeile> Probe;
    calc::Ergebnis Neu;
    calc::Ausgang Ausgang;
};

Rerun Nachrechnen(const store::DatabasePtr& database, std::int32_t ID_TR) {
    Rerun rerun;
    const store::Savepoint savepoint(database->SharedConnection());
    database->Execute("DELETE * FROM sesErgProjekt WHERE ID=" + store::NumberText(ID_TR) + ";");
    rerun.Ausgang =
        calc::Versuche([&] { Berechnung_ExecuteSeston(database, ID_TR, false, false, &rerun.Spur); });
    rerun.Neu = calc::LiesErgebnis(*database, calc::abfragen::Sestonergebnis(ID_TR), Spalten);
    // Inside the savepoint, so that what another program enters meanwhile does not shift the findings against
    // the terms.
    rerun.Probe = calc::LiesSestonprobe(*database, ID_TR);
    return rerun;
}

}  // namespace

SestonExplanation ExplainSeston(const store::DatabasePtr& database, std::int32_t ID_TR) {
    auto& db = calc::Vorhanden(database, "ExplainSeston");
    SestonExplanation explanation;
    explanation.ID_TR = ID_TR;
    const auto alt = calc::LiesErgebnis(db, calc::abfragen::Sestonergebnis(ID_TR), Spalten);
    const auto rerun = Nachrechnen(database, ID_TR);
    explanation.Failed = rerun.Ausgang.Failed;
    auto vergleich = calc::Vergleiche(Spalten, rerun.Neu, alt);
    explanation.Stored = vergleich.State;
    explanation.Columns = std::move(vergleich.Columns);
    calc::ErklaereSeston(rerun.Spur, rerun.Probe, rerun.Ausgang.Abbruch ? &*rerun.Ausgang.Abbruch : nullptr,
                         explanation);
    calc::TrageEin(explanation.Counts, rerun.Neu, alt);
    return explanation;
}

}  // namespace FX_Algen
