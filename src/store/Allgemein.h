#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Runden.h"
#include "FX_Algen/Store.h"
#include "FX_Algen/Value.h"
#include "store/Strings.h"

/// Common routines that need no window.
namespace FX_Algen::Allgemein {

/// The clamp rule: a language base below 10000 is German, 10000. Who holds the base stores the result.
std::int16_t SprachID_Anheben(std::int16_t SprachID) noexcept;

/// Fills the label table of a report: for each field of `resTabelle` whose name begins with "lbl" and
/// whose number is above 0, the text with number + `Sprache` goes into the field of the same name of
/// `lblTabelle`, which must be empty before and ends with one row. `Sprache` below 10000 counts as 10000.
///
/// A field that is Null or holds no number is passed over. With `DebugModus` the statements are shown in
/// boxes. Any failure, among them an apostrophe in a text, is shown in a box with number and description
/// and answered with false; what was written until then stays.
bool SetReportLblData(const store::DatabasePtr& database, const std::string& lblTabelle,
                      const std::string& resTabelle, std::int16_t Sprache, bool DebugModus,
                      const store::StringTable& texte = store::Strings());

/// Replaces `alt` by `neu` in `text`, at the first place only where `nurErstes` is set. The search goes on
/// behind the inserted text, so `neu` may contain `alt`. An empty `alt` stands nowhere.
std::string Str_Ersetzen(std::string_view text, std::string_view alt, std::string_view neu,
                         bool nurErstes = false);

/// A date as month/day/year for a date constant of a statement, without the "#" signs: "05/12/2026",
/// with slashes whatever the locale. A time without a day belongs to the store's day zero, "12/30/1899".
/// Fails with 94 on Null and 13 on what is no date.
std::string Datum_US(const store::Value& datum);

/// The value as text with its first ";" replaced by ".". A comma stays as it is. Fails with 94 on Null.
std::string Punkt_Setzen(const store::Value& wert);

/// Deletes a table of the database at `dbPfad`; the name is compared exactly, and a table that does not
/// exist is no failure. On a failure a box is shown and the result is false.
bool Tabelle_Loeschen(const std::string& dbPfad, const std::string& tabelle);

/// Creates a table with one first field. `laenge` is the number of characters of a text field, 0 = no
/// limit. On a failure a box is shown and the result is false.
bool Tabelle_Erstellen(const std::string& dbPfad, const std::string& tabelle, const std::string& feld,
                       store::FieldType typ, std::int32_t laenge = 0);
/// The same with all of its fields, and their defaults, in one go.
bool Tabelle_Erstellen(const std::string& dbPfad, const std::string& tabelle,
                       const std::vector<store::FieldDef>& felder);

/// Adds a field with default 0 (a date field with default Null) to an existing table. On a failure the result
/// is false, with no message.
bool Feld_Hinzufuegen(const std::string& dbPfad, const std::string& tabelle, const std::string& feld,
                      store::FieldType typ, std::int32_t laenge = 0);

/// How `Liste_Teilen` looks for its separator.
enum class Vergleich : std::uint8_t {
    Binaer,  ///< byte by byte
    Text,    ///< without regard to upper and lower case, umlauts included
};

/// Splits `text` at each `trenner` into `liste`, whose former content is dropped; the first piece is its
/// first element. Returns the number of pieces, at least 1: a text without separator, even an empty one,
/// is one piece, and so is any text where `trenner` is empty. Fails with 6 beyond 32767 pieces.
std::int16_t Liste_Teilen(std::string_view text, std::string_view trenner, Vergleich vergleich,
                          std::vector<std::string>& liste);

/// Numeric text of a boolean for statements: "-1" or "0".
std::string_view Bool_Text(bool wert) noexcept;

/// A date constant for statements: "#05/12/2026#".
std::string Datum_Konstante(const store::Value& datum);

}  // namespace FX_Algen::Allgemein
