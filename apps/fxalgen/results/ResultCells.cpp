#include "fxalgen/results/ResultCells.h"

#include "FX_Algen/Texts.h"
#include "fxalgen/Table.h"
#include "fxalgen/Words.h"

namespace FX_Algen::cli {

namespace {

/// What an assessment writes where the reference tables have no row.
bool IsMarker(const store::Value& value) {
    const std::string* text = value.TextOrNull();
    return text != nullptr ? *text == "-" || *text == "n.v." : value.R8() == -1;
}

std::string OrNotAvailable(const store::Value& value, const std::string& text, std::int16_t SprachID) {
    return IsMarker(value) ? Text(words::NotAvailable, SprachID) : text;
}

std::string Number(const store::Value& value, std::int16_t places, std::int16_t SprachID) {
    return DisplayNumber(value.R8(), places, SprachID);
}

std::string Group(const store::Value& group, std::int16_t SprachID) {
    if (group.Text() == "Alle") return Text(words::AllAlgae, SprachID);
    if (group.Text() == "KA") return Text(words::Diatoms, SprachID);
    return group.Text();
}

/// "2 gut": the number of the class and its name, which stands in a column of its own.
std::string NamedClass(const Record& record, const ResultColumn& column, std::int16_t SprachID) {
    const store::Value& number = record[column.Field];
    if (IsMarker(number)) return Text(words::NotAvailable, SprachID);
    const store::Value& name = record[std::string(column.Field) + "_Klasse"];
    const std::string text = number.Text();
    return name.IsNull() ? text : text + " " + OrNotAvailable(name, name.Text(), SprachID);
}

/// The reference index itself is not stored: it is the mean of its two parts.
std::string ReferenceIndex(const Record& record, std::int16_t SprachID) {
    const store::Value& abundance = record["RI_Abundanz"];
    const store::Value& number = record["RI_Anzahl"];
    if (abundance.IsNull() || number.IsNull()) return {};
    return DisplayNumber((abundance.R8() + number.R8()) / 2, 2, SprachID);
}

}  // namespace

std::string ResultCell(const Record& record, const ResultColumn& column, std::int16_t SprachID) {
    if (column.As == Show::ReferenceIndex) return ReferenceIndex(record, SprachID);
    const store::Value& value = record[column.Field];
    if (value.IsNull()) return {};
    switch (column.As) {
        case Show::Text:
            return DisplayText(value, SprachID);
        case Show::Index:
            // An index of 0 is no clean water but no index at all.
            return value.R8() == 0 ? "-" : Number(value, 2, SprachID);
        case Show::Quantity:
            return Number(value, 3, SprachID);
        case Show::Share:
            return Number(value, 1, SprachID);
        case Show::Ratio:
            return Number(value, 2, SprachID);
        case Show::Expected:
            return OrNotAvailable(value, Number(value, 2, SprachID), SprachID);
        case Show::Reference:
            return OrNotAvailable(value, value.Text(), SprachID);
        case Show::NamedClass:
            return NamedClass(record, column, SprachID);
        case Show::Group:
            return Group(value, SprachID);
        case Show::Flag:
            return value.Bool() ? Text(words::Yes, SprachID) : std::string();
        case Show::Count:
        case Show::ReferenceIndex:
            break;
    }
    return Number(value, 0, SprachID);
}

}  // namespace FX_Algen::cli
