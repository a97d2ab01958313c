#include "wrrl/ArtenlisteTabelle.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "store/Allgemein.h"
#include "store/AppendRows.h"
#include "store/Connection.h"

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

/// How many columns a table can have in the database at `pfad`.
std::size_t Spaltengrenze(const std::string& pfad) {
    return store::MostColumns(*store::Workspace().OpenDatabase(pfad)->SharedConnection());
}

}  // namespace

bool Listentabelle::Loeschen() const { return Allgemein::Tabelle_Loeschen(pfad_, Name); }

bool Listentabelle::Erstellen(const std::vector<std::int32_t>& schluessel) const {
    auto felder = FesteSpalten();
    const auto passend = std::min(schluessel.size(), Spaltengrenze(pfad_) - felder.size());
    for (std::size_t i = 0; i < passend; ++i)
        felder.push_back(MitNull(Spaltenname(schluessel[i]), FieldType::Double));
    return Allgemein::Tabelle_Erstellen(pfad_, Name, felder) && passend == schluessel.size();
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
