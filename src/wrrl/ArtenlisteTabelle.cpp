#include "wrrl/ArtenlisteTabelle.h"

#include <algorithm>
#include <memory>

#include "FX_Algen/Error.h"
#include "store/Allgemein.h"
#include "store/AppendRows.h"
#include "store/Connection.h"
#include "store/TableText.h"

namespace FX_Algen::artenliste {
namespace {

using store::FieldType;

const std::string Name = "awaArtenlisteHaeufigkeit";

std::string Spaltenname(std::int32_t ID_TR) { return "A" + store::NumberText(ID_TR); }

/// A field as it is when it is added to a table: its default is 0.
store::FieldDef MitNull(std::string name, FieldType typ) { return {std::move(name), typ, 0, "0"}; }

std::vector<store::FieldDef> FesteSpalten() {
    return {store::TableDef::CreateField("ID_Art", FieldType::Long), MitNull("CF", FieldType::Boolean),
            MitNull("IstKA", FieldType::Boolean), MitNull("MAalsMI", FieldType::Boolean)};
}

/// Columns of the table, as many as a table can have in the database.
std::vector<store::FieldDef> Felder(store::Connection& connection,
                                    const std::vector<std::int32_t>& schluessel) {
    auto felder = FesteSpalten();
    const auto passend = std::min(schluessel.size(), store::MostColumns(connection) - felder.size());
    for (std::size_t i = 0; i < passend; ++i)
        felder.push_back(MitNull(Spaltenname(schluessel[i]), FieldType::Double));
    return felder;
}

/// The connection to the database at `pfad`; none where it does not open.
std::shared_ptr<store::Connection> Verbindung(const std::string& pfad) try {
    return store::OpenConnection(pfad);
} catch (const Error&) {
    return nullptr;
}

/// Empties the table where it is as it is wanted. False where it is not, and where that fails: dropping it
/// fails then, too, and tells so.
bool Geleert(store::Connection& connection, const std::vector<store::FieldDef>& felder) try {
    if (!store::IsMadeOf(connection, Name, felder)) return false;
    store::EmptyTable(connection, Name);
    return true;
} catch (const Error&) {
    return false;
}

}  // namespace

bool Listentabelle::NeuErstellen(const std::vector<std::int32_t>& schluessel) const {
    const auto verbindung = Verbindung(pfad_);
    const auto felder = verbindung ? Felder(*verbindung, schluessel) : FesteSpalten();
    const bool geleert = verbindung && Geleert(*verbindung, felder);
    if (!geleert &&
        !(Allgemein::Tabelle_Loeschen(pfad_, Name) && Allgemein::Tabelle_Erstellen(pfad_, Name, felder)))
        return false;
    return felder.size() == FesteSpalten().size() + schluessel.size();
}

bool Listentabelle::LiegtIn(const store::DatabasePtr& database) const {
    return store::AreOfOneFile(*store::OpenConnection(pfad_), *database->SharedConnection());
}

void Listentabelle::Schreiben(const store::DatabasePtr& database, const Liste& liste,
                              const std::vector<std::int32_t>& schluessel) {
    std::vector<std::string> spalten{"ID_Art", "CF", "IstKA", "MAalsMI"};
    for (const auto id : schluessel) spalten.push_back(Spaltenname(id));
    store::AppendRows(database->SharedConnection(), Name, spalten, liste.Zeilen().size(),
                      [&liste](store::EngineStatement& insert, std::size_t zeile) {
                          const auto flagge = [](bool wert) { return std::int64_t{wert ? -1 : 0}; };
                          const auto& kopf = liste.Zeilen()[zeile];
                          std::size_t feld = 0;
                          insert.BindInteger(feld++, kopf.ID_Art);
                          insert.BindInteger(feld++, flagge(kopf.CF));
                          insert.BindInteger(feld++, flagge(kopf.IstKA));
                          if (kopf.MAalsMI)
                              insert.BindInteger(feld++, flagge(*kopf.MAalsMI));
                          else
                              insert.BindNull(feld++);
                          for (std::size_t spalte = 0; spalte < liste.Spalten(); ++spalte)
                              insert.BindReal(feld++, liste.Zelle(zeile, spalte));
                      });
}

}  // namespace FX_Algen::artenliste
