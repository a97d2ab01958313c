#include <charconv>
#include <cmath>

#include "FX_Algen/Error.h"
#include "store/Allgemein.h"
#include "store/Strings.h"
#include "store/ThreadValues.h"

/// The routines of `Allgemein` that read and change tables.
namespace FX_Algen::Allgemein {

namespace {

constexpr std::string_view ModuleTitle = "FX_Algen";

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The number at the front of a text, 0 where there is none.
double LeadingNumber(std::string_view text) {
    text = Trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc{} && std::isfinite(number) ? number : 0;
}

bool IsLabelField(std::string_view name) {
    return name.size() >= 3 && (name[0] | 0x20) == 'l' && (name[1] | 0x20) == 'b' && (name[2] | 0x20) == 'l';
}

void FillLabels(const store::DatabasePtr& database, const std::string& lblTabelle,
                const std::string& resTabelle, std::int16_t Sprache, bool DebugModus,
                const store::StringTable& texte) {
    const auto base = SprachID_Anheben(Sprache);
    const std::string source = "SELECT * FROM " + resTabelle + ";";
    const auto numbers = database->OpenRecordset(source);
    if (DebugModus) {
        store::Port().Box(ModuleTitle, source);
        store::Port().Box(ModuleTitle, std::to_string(numbers->Fields().size()));
    }
    bool first = true;
    for (std::size_t i = 0; i < numbers->Fields().size(); ++i) {
        if (!IsLabelField(numbers->Fields()[i].Name)) continue;
        const std::string name(Trimmed(numbers->Fields()[i].Name));
        const auto& value = (*numbers)[i];
        const double number = value.IsNull() ? 0 : LeadingNumber(value.Text());
        if (number <= 0) continue;
        const auto& text = texte.At(store::Value(number + base).I2());
        const auto statement = first
                                   ? "INSERT INTO " + lblTabelle + " (" + name + ") VALUES ('" + text + "');"
                                   : "UPDATE " + lblTabelle + " SET " + name + "='" + text + "';";
        if (DebugModus) store::Port().Box(ModuleTitle, statement);
        database->Execute(statement);
        first = false;
    }
}

}  // namespace

bool SetReportLblData(const store::DatabasePtr& database, const std::string& lblTabelle,
                      const std::string& resTabelle, std::int16_t Sprache, bool DebugModus,
                      const store::StringTable& texte) {
    try {
        FillLabels(database, lblTabelle, resTabelle, Sprache, DebugModus, texte);
        return true;
    } catch (const Error& error) {
        store::Port().Box("basDrucker:SetReportLblData",
                          std::to_string(error.Number()) + " - " + error.Description());
        return false;
    }
}

bool Tabelle_Loeschen(const std::string& dbPfad, const std::string& tabelle) {
    try {
        const auto database = store::Workspace().OpenDatabase(dbPfad);
        auto tables = database->TableDefs();
        tables.Refresh();
        for (std::size_t i = 0; i < tables.Count(); ++i) {
            if (tables.Name(i) != tabelle) continue;
            tables.Delete(tabelle);
            break;
        }
        tables.Refresh();
        return true;
    } catch (const Error&) {
        store::Port().Box(ModuleTitle, "Fehler beim Tabellenlöschen");
        return false;
    }
}

bool Tabelle_Erstellen(const std::string& dbPfad, const std::string& tabelle, const std::string& feld,
                       store::FieldType typ, std::int32_t laenge) {
    return Tabelle_Erstellen(dbPfad, tabelle, {store::TableDef::CreateField(feld, typ, laenge)});
}

bool Tabelle_Erstellen(const std::string& dbPfad, const std::string& tabelle,
                       const std::vector<store::FieldDef>& felder) {
    try {
        const auto database = store::Workspace().OpenDatabase(dbPfad);
        auto tables = database->TableDefs();
        auto table = database->CreateTableDef(tabelle);
        for (const auto& field : felder) table.Append(field);
        tables.Append(table);
        tables.Refresh();
        return true;
    } catch (const Error&) {
        store::Port().Box(ModuleTitle, "Fehler beim Tabellen anlegen");
        return false;
    }
}

bool Feld_Hinzufuegen(const std::string& dbPfad, const std::string& tabelle, const std::string& feld,
                      store::FieldType typ, std::int32_t laenge) {
    try {
        const auto database = store::Workspace().OpenDatabase(dbPfad);
        auto field = store::TableDef::CreateField(feld, typ, laenge);
        // There is no day that 0 could stand for.
        if (typ != store::FieldType::Date) field.DefaultValue = "0";
        auto tables = database->TableDefs();
        tables[tabelle].Append(field);
        return true;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace FX_Algen::Allgemein
