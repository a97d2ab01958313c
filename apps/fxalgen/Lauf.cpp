#include "fxalgen/Lauf.h"

#include "fxalgen/Digest.h"

namespace FX_Algen::cli {

namespace {

/// Digest of the sub-habitat's row in `awaErgProjekt`; none where it has no row.
std::optional<std::string> DigestOfResult(store::Database& database, std::int32_t ID_TR) {
    const auto row = database.OpenRecordset(
        "SELECT * FROM awaErgProjekt WHERE (ID=" + store::NumberText(ID_TR) + ") AND (KAOnly=0);");
    if (row->Eof()) return std::nullopt;
    return DigestOfRow(*row);
}

struct Eintrag {
    store::Value Eingaben;
    store::Value Ergebnis;
    store::Value Fehlernummer;
    store::Value Fehlertext;
};

/// Through a recordset, not a composed statement: a failure's text may hold any character.
void Schreiben(store::Database& database, std::int32_t ID_TR, const Eintrag& eintrag) {
    const auto table = database.OpenRecordset("SELECT * FROM fx_Lauf WHERE (ID=" + store::NumberText(ID_TR) +
                                              ") AND (KAOnly=0);");
    if (table->Eof()) {
        table->AddNew();
        table->Collect("ID", ID_TR);
        table->Collect("KAOnly", false);
    } else {
        table->Edit();
    }
    table->Collect("Eingaben", eintrag.Eingaben);
    table->Collect("Ergebnis", eintrag.Ergebnis);
    table->Collect("Fehlernummer", eintrag.Fehlernummer);
    table->Collect("Fehlertext", eintrag.Fehlertext);
    table->Update();
}

}  // namespace

std::string_view LaufStandText(LaufStand stand) {
    switch (stand) {
        case LaufStand::Current:
            return "current";
        case LaufStand::OutOfDate:
            return "out of date";
        case LaufStand::Incomplete:
            return "incomplete";
        case LaufStand::Unknown:
            break;
    }
    return "unknown";
}

void LaufBeginnen(store::Database& database) { database.Execute("DELETE * FROM fx_Lauf;"); }

void LaufNotieren(store::Database& database, std::int32_t ID_TR) {
    const auto ergebnis = DigestOfResult(database, ID_TR);
    if (!ergebnis) return;
    Schreiben(database, ID_TR, {DigestOfInputs(database, ID_TR), *ergebnis, {}, {}});
}

void LaufNotieren(store::Database& database, std::int32_t ID_TR, const Error& error) {
    const auto ergebnis = DigestOfResult(database, ID_TR);
    Schreiben(database, ID_TR,
              {{}, ergebnis ? store::Value(*ergebnis) : store::Value(), error.Number(), error.Description()});
}

LaufBefund LaufPruefen(store::Database& database, const store::Recordset& ergebnis) {
    const std::int32_t ID_TR = ergebnis["ID"].I4();
    const auto lauf =
        database.OpenRecordset("SELECT * FROM fx_Lauf WHERE (ID=" + store::NumberText(ID_TR) +
                               ") AND (KAOnly=" + (ergebnis["KAOnly"].Bool() ? "-1" : "0") + ");");
    if (lauf->Eof()) return {};
    // A row that is not the one noted came from somewhere else: the digest of its inputs says nothing of it.
    if ((*lauf)["Ergebnis"] != store::Value(DigestOfRow(ergebnis))) return {};
    if (!(*lauf)["Fehlernummer"].IsNull()) {
        return {LaufStand::Incomplete, (*lauf)["Fehlernummer"].I4(), (*lauf)["Fehlertext"].Text()};
    }
    const bool same = (*lauf)["Eingaben"] == store::Value(DigestOfInputs(database, ID_TR));
    return {same ? LaufStand::Current : LaufStand::OutOfDate, std::nullopt, {}};
}

}  // namespace FX_Algen::cli
