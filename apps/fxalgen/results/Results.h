#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "FX_Algen/Store.h"

/// What the command `results` shows: the rows of a result table with the names of their sub-habitats.
namespace FX_Algen::cli {

/// Raw names of the fields of an output, in its order; shared by all its rows.
using FieldNames = std::shared_ptr<const std::vector<std::string>>;

/// One row of an output.
class Record {
public:
    explicit Record(FieldNames names) : names_(std::move(names)) { values_.reserve(names_->size()); }

    /// The value of the next field.
    void Add(store::Value value) { values_.push_back(std::move(value)); }
    const std::vector<std::string>& Names() const noexcept { return *names_; }
    const std::vector<store::Value>& Values() const noexcept { return values_; }
    /// The value of a field; Null where there is none of that name.
    const store::Value& operator[](std::string_view name) const;

private:
    FieldNames names_;
    std::vector<store::Value> values_;
};

/// How a column of the table for people shows its values.
enum class Show : std::uint8_t {
    Text,      ///< as it stands
    Index,     ///< two places; 0 means that no taxon had a weight and shows as "-"
    Quantity,  ///< three places
    Share,     ///< percent with one place
    Count,     ///< whole number

    // Of an assessment; the markers -1, "-" and "n.v." show as "n.v." in the language of the table.
    Ratio,           ///< two places, 0 as well
    Expected,        ///< two places
    Reference,       ///< reference class, or a class or its name
    NamedClass,      ///< number of a class, and the name from the column "<Field>_Klasse"
    Group,           ///< group of algae in words
    Flag,            ///< "ja" or nothing
    ReferenceIndex,  ///< mean of RI_Abundanz and RI_Anzahl, whatever the field
};

struct ResultColumn {
    std::string_view Field;
    std::int16_t Caption;  ///< offset in the string table; 0 = the field's own name
    Show As;
};

struct ResultBlock {
    std::int16_t Title;
    std::vector<ResultColumn> Columns;
};

/// Texts below the tables, by their offsets in the string table.
struct StateTexts {
    std::int16_t OutOfDate;
    std::int16_t Incomplete;
    std::int16_t Unknown;
    std::int16_t NoIndex;
};

/// A result table and what is shown of it.
struct ResultKind {
    std::string_view Table;
    bool HasKAOnly;                   ///< a sub-habitat may have a second row, from its diatoms alone
    bool HasCoverage;                 ///< rows carry coverage
    bool IsSeston;                    ///< rows of seston, which carry what their index rests on
    std::optional<StateTexts> State;  ///< of rows that carry their state
    std::vector<ResultBlock> Blocks;  ///< the first one is shown with all names
};

const ResultKind& ClassicResults();
const ResultKind& WrrlResults();
const ResultKind& SestonResults();

/// Fields of `Record` with the share, in percent, of the valves and of the cover that carries a value and a
/// weight: by the saprobic pair, the trophic pair and the second trophic pair.
inline constexpr std::string_view CoverageFields[] = {
    "Anteil_Schalen_SI", "Anteil_Schalen_TI", "Anteil_Schalen_TI_N",
    "Anteil_Deckung_SI", "Anteil_Deckung_TI", "Anteil_Deckung_TI_N",
};

/// Field of `Record` with the share, in percent, of the seston's abundance that carries a saprobic value.
inline constexpr std::string_view RatedShareField = "Anteil_Abundanz_SI";

/// Fields of `Record` with the state of a row (`LaufStandText`), and how its calculation failed.
inline constexpr std::string_view StateFields[] = {"Status", "Fehlernummer", "Fehlertext"};
inline constexpr std::string_view StatusField = StateFields[0];
inline constexpr std::string_view FailureNumberField = StateFields[1];
inline constexpr std::string_view FailureTextField = StateFields[2];

/// A sub-habitat that failed before it had a row.
struct FailedTeilraum {
    std::int32_t ID_TR = 0;
    std::int32_t Fehlernummer = 0;
    std::string Fehlertext;
};

struct ResultSet {
    FieldNames Names;  ///< also where there are no records
    std::vector<Record> Records;
    std::int32_t WithoutResult = 0;            ///< sub-habitats of the scope that have no row
    std::int32_t WithoutSeston = 0;            ///< rows of zeros that the table for people leaves out
    std::vector<FailedTeilraum> WithoutRow{};  ///< those of them of which it is known why
};

void PrintTable(std::ostream& out, const ResultKind& kind, const ResultSet& results, std::int16_t SprachID);
/// RFC 4180 with commas and LF: Null as an empty field, an empty text as "".
void PrintCsv(std::ostream& out, const ResultSet& results);
/// An array with one object a row, raw names, Null as null.
void PrintJson(std::ostream& out, const ResultSet& results);

}  // namespace FX_Algen::cli
