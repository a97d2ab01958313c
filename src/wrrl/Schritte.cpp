#include "wrrl/Schritte.h"

#include "calc/Abfragen.h"
#include "calc/Schritte.h"

namespace FX_Algen::wrrl {
namespace {

std::string Bedingung(const Aufruf& aufruf) {
    return "(ID=" + store::NumberText(aufruf.ID_TR) +
           ") AND (KAOnly=" + std::string(calc::abfragen::Flagge(aufruf.KAOnly)) + ")";
}

std::string Anweisung(const Aufruf& aufruf) {
    return "SELECT * FROM awaErgWRRL WHERE " + Bedingung(aufruf) + ";";
}

}  // namespace

void Kasten(const Aufruf& aufruf, std::string_view label, std::string_view text) {
    if (aufruf.DebugModus) calc::Meldung(std::string(label).append(text));
}

store::RecordsetPtr Ergebniszeile(const Aufruf& aufruf, std::string_view label) {
    const auto anweisung = Anweisung(aufruf);
    Kasten(aufruf, label, anweisung);
    auto zeile = aufruf.Datenbank.OpenRecordset(anweisung);
    if (zeile->Eof()) {
        throw Error(ErrorNumber::NoCurrentRecord,
                    std::string(aufruf.Routine) + ": No current record: awaErgWRRL has no row with " +
                        Bedingung(aufruf) + ", " + calc::TeilraumText(aufruf),
                    anweisung);
    }
    return zeile;
}

std::int16_t Klassenspalte(const Aufruf& aufruf, const store::Recordset& zeile, const std::string& spalte) {
    const auto& wert = zeile[spalte];
    if (wert.IsNull()) {
        calc::NullStelle stelle;
        stelle.Tabelle = "awaErgWRRL";
        stelle.Feld = spalte;
        stelle.Anweisung = Anweisung(aufruf);
        stelle.Schluessel = Bedingung(aufruf);
        calc::NullFehler(aufruf, stelle);
    }
    return wert.I2();
}

void DivisionDurchNull(const calc::Ort& ort, const std::string& ursache) {
    throw Error(ErrorNumber::DivisionByZero,
                std::string(ort.Routine) + ": Division by zero: " + ursache + ", " + calc::TeilraumText(ort));
}

}  // namespace FX_Algen::wrrl
