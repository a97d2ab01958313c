#include <algorithm>
#include <ostream>

#include "FX_Algen/Texts.h"
#include "fxalgen/Json.h"
#include "fxalgen/Table.h"
#include "fxalgen/Words.h"
#include "fxalgen/record/Lauf.h"
#include "fxalgen/results/ResultCells.h"
#include "fxalgen/results/Results.h"

namespace FX_Algen::cli {

namespace {

/// Columns that tell which sub-habitat a row is: all names in the first block, fewer in those below it.
struct NameColumn {
    std::string_view Field;
    std::int16_t Caption;
    bool FirstBlockOnly;
};

constexpr NameColumn NameColumns[] = {
    {"PRJBez", words::Projekt, true},    {"ABBez", words::Abschnitt, true}, {"USBez", words::Stelle, false},
    {"USDatumVon", words::Datum, false}, {"TRBez", words::Teilraum, false},
};

std::string Mark(const store::Value& status) {
    if (status.IsNull()) return {};
    if (status.Text() == LaufStandText(LaufStand::OutOfDate)) return "!";
    if (status.Text() == LaufStandText(LaufStand::Incomplete)) return "x";
    if (status.Text() == LaufStandText(LaufStand::Unknown)) return "?";
    return {};
}

bool IsNotAvailable(const Record& record, const ResultColumn& column) {
    return ResultCell(record, column, Language::German) == Text(words::NotAvailable, Language::German);
}

bool IsNoIndex(const Record& record, const ResultColumn& column) {
    return column.As == Show::Index && ResultCell(record, column, Language::German) == "-";
}

/// Whether a module of an assessment lacks its index, its expected value or its class. The overall class is
/// made all the same: with the class at a ratio of 0, with one from -1 in place of the expected value, or
/// without the module.
bool LacksGround(const ResultKind& kind, const Record& record) {
    if (kind.Table != WrrlResults().Table) return false;
    if (record[StatusField] == store::Value(LaufStandText(LaufStand::Incomplete))) return false;
    for (const ResultBlock& block : kind.Blocks) {
        for (const ResultColumn& column : block.Columns) {
            const bool decides = column.As == Show::Expected || column.Field.ends_with("_OEZK");
            if (IsNoIndex(record, column) || (decides && IsNotAvailable(record, column))) return true;
        }
    }
    return false;
}

bool IsText(const store::Value& value, Show as) {
    return as == Show::Text || as == Show::NamedClass || as == Show::Group || as == Show::Flag ||
           (as == Show::Reference && (value.IsNull() || value.TextOrNull() != nullptr));
}

/// Texts to the left, numbers to the right; a reference class may be either.
Table::Align AlignmentOf(const ResultSet& results, const ResultColumn& column) {
    for (const Record& record : results.Records) {
        if (!record[column.Field].IsNull()) {
            return IsText(record[column.Field], column.As) ? Table::Align::Left : Table::Align::Right;
        }
    }
    return Table::Align::Left;
}

/// Name of the sub-habitat's row: a second one from the diatoms alone is marked.
std::string NameCell(const Record& record, const NameColumn& column, std::int16_t SprachID) {
    std::string text = DisplayText(record[column.Field], SprachID);
    const store::Value& onlyKA = record["KAOnly"];
    if (column.Field == "TRBez" && !onlyKA.IsNull() && onlyKA.Bool()) text += " [KA]";
    return text;
}

void PrintBlock(std::ostream& out, const ResultKind& kind, const ResultBlock& block, const ResultSet& results,
                std::int16_t SprachID) {
    const bool first = &block == &kind.Blocks.front();
    const bool withState = kind.State && first;
    Table table;
    table.AddColumn("ID", Table::Align::Right);
    for (const NameColumn& column : NameColumns) {
        if (first || !column.FirstBlockOnly)
            table.AddColumn(Text(column.Caption, SprachID), Table::Align::Left);
    }
    for (const ResultColumn& column : block.Columns) {
        table.AddColumn(column.Caption == 0 ? std::string(column.Field) : Text(column.Caption, SprachID),
                        AlignmentOf(results, column));
    }
    if (withState) table.AddColumn(Text(words::Stand, SprachID), Table::Align::Left);

    for (const Record& record : results.Records) {
        std::vector<std::string> cells{DisplayText(record["ID"], SprachID)};
        for (const NameColumn& column : NameColumns) {
            if (first || !column.FirstBlockOnly) cells.push_back(NameCell(record, column, SprachID));
        }
        for (const ResultColumn& column : block.Columns) {
            cells.push_back(ResultCell(record, column, SprachID));
        }
        if (withState) {
            cells.push_back(Mark(record[StatusField]) + (LacksGround(kind, record) ? "*" : ""));
        }
        table.AddRow(std::move(cells));
    }
    out << Text(block.Title, SprachID) << "\n\n";
    table.Print(out, 2);
    out << '\n';
}

template <typename Predicate>
bool AnyRecord(const ResultSet& results, Predicate predicate) {
    return std::any_of(results.Records.begin(), results.Records.end(), predicate);
}

template <typename Predicate>
bool AnyCell(const ResultKind& kind, const ResultSet& results, Predicate predicate) {
    return AnyRecord(results, [&](const Record& record) {
        for (const ResultBlock& block : kind.Blocks) {
            for (const ResultColumn& column : block.Columns) {
                if (predicate(record, column)) return true;
            }
        }
        return false;
    });
}

bool ShowsNoIndex(const ResultKind& kind, const ResultSet& results) {
    return AnyCell(kind, results, IsNoIndex);
}

bool ShowsNotAvailable(const ResultKind& kind, const ResultSet& results) {
    return AnyCell(kind, results, IsNotAvailable);
}

bool ShowsFlag(const ResultKind& kind, const ResultSet& results) {
    return AnyCell(kind, results, [](const Record& record, const ResultColumn& column) {
        return column.As == Show::Flag && !ResultCell(record, column, Language::German).empty();
    });
}

void PrintFailures(std::ostream& out, const ResultSet& results) {
    for (const Record& record : results.Records) {
        if (record[FailureNumberField].IsNull()) continue;
        out << "   " << record["ID"].Text() << ": " << record[FailureTextField].Text() << " ("
            << record[FailureNumberField].Text() << ")\n";
    }
}

/// What the marks mean, only those that occur, and what the table does not show.
void PrintLegend(std::ostream& out, const ResultKind& kind, const ResultSet& results, std::int16_t SprachID) {
    const auto occurs = [&](LaufStand stand) {
        return AnyRecord(results, [&](const Record& record) {
            return record[StatusField] == store::Value(LaufStandText(stand));
        });
    };
    const auto line = [&](std::int16_t offset) { out << Text(offset, SprachID) << '\n'; };
    if (AnyRecord(results, [](const Record& r) { return !r["IstWRRL"].IsNull() && r["IstWRRL"].Bool(); })) {
        line(words::Variant);
    }
    if (ShowsNoIndex(kind, results)) line(kind.State ? kind.State->NoIndex : words::NoIndex);
    if (ShowsNotAvailable(kind, results)) line(words::NotAvailableLegend);
    if (AnyRecord(results, [&](const Record& record) { return LacksGround(kind, record); })) {
        line(words::WrrlLacking);
    }
    if (ShowsFlag(kind, results)) line(words::BedingtLegend);
    if (kind.State && occurs(LaufStand::OutOfDate)) line(kind.State->OutOfDate);
    if (kind.State && occurs(LaufStand::Incomplete)) {
        line(kind.State->Incomplete);
        PrintFailures(out, results);
    }
    if (kind.State && occurs(LaufStand::Unknown)) line(kind.State->Unknown);
    if (results.WithoutResult > 0) {
        out << WithNumber(words::WithoutResult, SprachID, results.WithoutResult) << '\n';
    }
    for (const FailedTeilraum& failed : results.WithoutRow) {
        out << "   " << failed.ID_TR << ": " << failed.Fehlertext << " (" << failed.Fehlernummer << ")\n";
    }
    if (results.WithoutSeston > 0) {
        out << WithNumber(words::WithoutSestonHidden, SprachID, results.WithoutSeston) << '\n';
    }
}

/// Quoted where the text holds a comma, a quote or a line break, and where it is empty: an empty field
/// without quotes is Null.
std::string CsvField(const store::Value& value) {
    if (value.IsNull()) return {};
    std::string text = value.kind() == store::Kind::R4 ? store::ExactText(value.R4()) : value.Text();
    if (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

void PrintTable(std::ostream& out, const ResultKind& kind, const ResultSet& results, std::int16_t SprachID) {
    if (results.Records.empty()) {
        out << Text(words::NoResults, SprachID) << '\n';
    } else {
        for (const ResultBlock& block : kind.Blocks) PrintBlock(out, kind, block, results, SprachID);
    }
    PrintLegend(out, kind, results, SprachID);
}

void PrintCsv(std::ostream& out, const ResultSet& results) {
    const auto line = [&](const auto& cells, auto text) {
        bool first = true;
        for (const auto& cell : cells) {
            if (!first) out << ',';
            out << text(cell);
            first = false;
        }
        out << '\n';
    };
    line(*results.Names, [](const std::string& name) { return name; });
    for (const Record& record : results.Records) {
        line(record.Values(), CsvField);
    }
}

void PrintJson(std::ostream& out, const ResultSet& results) {
    out << '[';
    bool first = true;
    for (const Record& record : results.Records) {
        Json object = Json::object();
        for (std::size_t i = 0; i < record.Values().size(); ++i) {
            object[record.Names()[i]] = ToJson(record.Values()[i], record.Names()[i]);
        }
        out << (first ? "\n" : ",\n") << object.dump();
        first = false;
    }
    out << (first ? "]\n" : "\n]\n");
}

}  // namespace FX_Algen::cli
