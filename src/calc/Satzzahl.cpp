#include "calc/Satzzahl.h"

namespace FX_Algen::calc {

double Satzzahl(store::Database& database, const std::string& abfrage, Taxazaehlung* spur) {
    const auto zeilen = database.OpenRecordset(abfrage);
    double anzahl = 0;
    if (!(zeilen->Eof() && zeilen->Bof())) {
        zeilen->MoveLast();
        anzahl = zeilen->RecordCount();
        if (spur != nullptr) {
            for (zeilen->MoveFirst(); !zeilen->Eof(); zeilen->MoveNext()) {
                spur->ID_Arten.push_back((*zeilen)[0].I4());
            }
        }
    }
    zeilen->Close();
    return anzahl;
}

}  // namespace FX_Algen::calc
