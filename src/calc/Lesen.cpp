#include "calc/Lesen.h"

#include <utility>

namespace FX_Algen::calc {
namespace {

/// " (name)" from the given columns of one row, joined by blanks; empty where there is none. The name only
/// makes the message readable, so a failing look-up leaves it out instead of hiding the finding.
std::string Name(store::Database& database, const std::string& abfrage) try {
    const auto zeilen = database.OpenRecordset(abfrage);
    std::string name;
    if (!zeilen->Eof()) {
        for (std::size_t feld = 0; feld < zeilen->Fields().size(); ++feld) {
            const auto& wert = (*zeilen)[feld];
            if (wert.IsNull() || wert.Text().empty()) continue;
            if (!name.empty()) name += ' ';
            name += wert.Text();
        }
    }
    zeilen->Close();
    return name.empty() ? name : " (" + name + ")";
} catch (const Error&) {
    return {};
}

std::string Nummer(std::int32_t id) { return store::NumberText(id); }

}  // namespace

NullImWert::NullImWert(std::string_view routine, const std::string& ursache, NullStelle stelle)
    : Error(ErrorNumber::InvalidUseOfNull, std::string(routine) + ": " + ursache, stelle.Anweisung),
      routine_(routine),
      stelle_(std::move(stelle)) {}

void NullFehler(const Ort& ort, const NullStelle& stelle) {
    auto& database = ort.Datenbank;
    std::string text = "Invalid use of Null: " + stelle.Tabelle + "." + stelle.Feld + " is Null";
    if (stelle.ID_Art) {
        const auto id = Nummer(*stelle.ID_Art);
        text +=
            " for taxon " + id +
            Name(database, "SELECT Gattung, Art FROM " + stelle.Artentabelle + " WHERE ID_ART=" + id + ";");
    }
    if (stelle.ID_TR_MI) {
        const auto id = Nummer(*stelle.ID_TR_MI);
        text += stelle.ID_Art ? " in mixed stand " : " for mixed stand ";
        text += id + Name(database, "SELECT MI_Bez FROM awaTeilraum_MI WHERE ID_TR_MI=" + id + ";");
    }
    if (!stelle.Schluessel.empty()) text += " for " + stelle.Schluessel;
    text += stelle.ID_Art || stelle.ID_TR_MI || !stelle.Schluessel.empty() ? ", " : " for ";
    text += TeilraumText(ort);
    throw NullImWert(ort.Routine, text, stelle);
}

std::string TeilraumText(const Ort& ort) {
    const auto id = Nummer(ort.ID_TR);
    return "sub-habitat " + id + Name(ort.Datenbank, "SELECT TRBez FROM Teilraum WHERE ID_TR=" + id + ";");
}

store::Database& Vorhanden(const store::DatabasePtr& database, std::string_view operation) {
    if (!database) {
        throw Error(ErrorNumber::NotADatabase,
                    std::string(operation) + ": the calculation was given no database");
    }
    return *database;
}

NullStelle Feldleser::Luecke() const {
    NullStelle stelle;
    if (!luecke_) return stelle;
    const auto& feld = zeilen_.Fields()[*luecke_];
    stelle.Tabelle = feld.Table.value_or("");
    stelle.Feld = feld.Column.value_or(feld.Name);
    return stelle;
}

}  // namespace FX_Algen::calc
