// Driver of the classic calculation.
#include "calc/Berechnung.h"

#include <string>

#include "calc/Abfragen.h"
#include "calc/Lesen.h"

namespace FX_Algen {

void Berechnung_Init(const store::DatabasePtr& database) {
    calc::Vorhanden(database, "Berechnung_Init").Execute("DELETE * FROM awaErgProjekt;");
}

void Berechnung_Execute(const store::DatabasePtr& database, std::int32_t ID_TR, bool IstWRRL,
                        bool ValenzGewicht, bool DebugModus, calc::Spur* spur) {
    auto& db = calc::Vorhanden(database, "Berechnung_Execute");
    const auto id = store::NumberText(ID_TR);
    const auto teilraum = db.OpenRecordset("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=" + id + ";");
    if (!teilraum->Eof()) {
        db.Execute("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES(" + id + ", " +
                   std::string(calc::abfragen::Flagge(IstWRRL)) + ");");
        Berechnung_Lauf(database, ID_TR, ValenzGewicht, IstWRRL, DebugModus, spur);
    }
    teilraum->Close();
}

void Berechnung_Lauf(const store::DatabasePtr& database, std::int32_t ID, bool ValenzGewicht, bool IstWRRL,
                     bool DebugModus, calc::Spur* spur) {
    Berechnung_Saprobie(database, ID, ValenzGewicht, IstWRRL, DebugModus, false, spur);
    Berechnung_Trophie(database, ID, IstWRRL, DebugModus, false, spur);
    Berechnung_AMI(database, ID, spur);
}

bool CheckIstKA(const store::DatabasePtr& database, std::int32_t TeilraumID) {
    const auto zeilen =
        calc::Vorhanden(database, "CheckIstKA")
            .OpenRecordset("SELECT ID FROM awaErgWRRL WHERE ID=" + store::NumberText(TeilraumID) +
                           " AND Taxagruppe='KA';");
    const bool gefunden = !zeilen->Eof();
    zeilen->Close();
    return gefunden;
}

}  // namespace FX_Algen
