#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Load.h"
#include "store/load/DeletedKeys.h"
#include "store/load/DumpFiles.h"
#include "store/load/DumpMark.h"
#include "store/load/Misfits.h"
#include "store/load/Tables.h"

namespace FX_Algen::store {
namespace {

namespace fs = std::filesystem;
using load::DeletedKeys;
using load::DumpFile;
using load::DumpFiles;
using load::TargetTable;

/// The empty text is written in quotes, so that it differs from Null.
void AppendText(std::string& line, std::string_view text) {
    if (!text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos) {
        line += text;
        return;
    }
    line += '"';
    for (const char c : text) {
        line += c;
        if (c == '"') line += c;
    }
    line += '"';
}

/// The shortest text that reads back the same.
template <class Float>
void AppendReal(std::string& line, Float number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    line.append(text.data(), end);
}

void AppendField(std::string& line, const EngineStatement& row, std::size_t column, Kind kind) {
    if (row.IsNull(column)) return;
    switch (kind) {
        case Kind::I2:
        case Kind::I4:
        case Kind::Bool:
            return AppendText(line, row.Text(column));
        case Kind::R4:
            return AppendReal(line, static_cast<float>(row.Real(column)));
        case Kind::R8:
            return AppendReal(line, row.Real(column));
        case Kind::Text:
        case Kind::Date:
        case Kind::Null:
            break;
    }
    AppendText(line, row.Text(column));
}

std::string SelectStatement(const TargetTable& table) {
    std::string columns;
    for (const auto& column : table.Columns)
        columns += (columns.empty() ? "" : ", ") + load::Name(column.Name);
    std::string order;
    if (table.HasKey)
        for (const std::size_t column : table.Unique.front())
            order += (order.empty() ? "" : ", ") + load::Name(table.Columns[column].Name);
    return "SELECT " + columns + " FROM " + load::Name(table.Name) + " ORDER BY " +
           (order.empty() ? "rowid" : order);
}

TableRows DumpTable(Engine& engine, const TargetTable& table, DumpFiles& files) {
    DumpFile& file = files.Add(table.Name + ".csv");
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
        if (i > 0) file.Line() += ',';
        AppendText(file.Line(), table.Columns[i].Name);
    }
    file.EndLine();
    TableRows result{table.Name, 0};
    const auto row = engine.Prepare(SelectStatement(table));
    while (row->Step()) {
        for (std::size_t i = 0; i < table.Columns.size(); ++i) {
            if (i > 0) file.Line() += ',';
            AppendField(file.Line(), *row, i, table.Columns[i].Type);
        }
        file.EndLine();
        ++result.Rows;
    }
    file.Close();
    return result;
}

/// Lines of the file that stands in the folder already, without the counters of the tables that are dumped
/// anew. A file that cannot be read must not be lost.
std::vector<DeletedKeys::Line> FormerDeletedKeys(const fs::path& path,
                                                 const std::vector<const TargetTable*>& dumped) {
    std::error_code failure;
    if (!fs::exists(path, failure)) return {};
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    const std::string content = std::move(text).str();
    std::vector<LoadProblem> problems;
    auto lines = DeletedKeys::Lines({DeletedKeys::FileName, content}, problems);
    if (!in || !problems.empty())
        throw Error(ErrorNumber::FileNotFound,
                    "Dumping: the file cannot be read and would be lost: " + path.string());
    std::erase_if(lines, [&](const DeletedKeys::Line& line) {
        return line.Counter && std::any_of(dumped.begin(), dumped.end(), [&](const TargetTable* table) {
                   return dialect::Fold(table->Name) == dialect::Fold(line.Table);
               });
    });
    return lines;
}

/// Of a dump of chosen tables the file tells beside what it told before: the other tables still need that.
void DumpDeletedKeys(Engine& engine, const std::vector<const TargetTable*>& tables, const fs::path& folder,
                     bool all, DumpFiles& files) {
    auto lines = DeletedKeys::Find(engine, tables);
    if (!all) {
        const auto former = FormerDeletedKeys(folder / DeletedKeys::FileName, tables);
        lines.insert(lines.end(), former.begin(), former.end());
        std::sort(lines.begin(), lines.end());
        lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    }
    if (lines.empty()) return files.Remove(DeletedKeys::FileName);
    DumpFile& file = files.Add(DeletedKeys::FileName);
    file.Line() += "Tabelle,Schluessel,Zaehler";
    file.EndLine();
    for (const auto& line : lines) {
        file.Line() += line.Table + ',' + std::to_string(line.Key) + (line.Counter ? ",-1" : ",0");
        file.EndLine();
    }
    file.Close();
}

void DumpTheMark(const std::vector<const TargetTable*>& tables, DumpFiles& files) {
    std::vector<std::string> names;
    for (const TargetTable* table : tables) names.push_back(table->Name);
    DumpFile& file = files.Add(load::DumpMark::FileName);
    file.Line() += load::DumpMark::TextFor(names);
    file.Close();
}

void RefuseMisfits(Engine& engine, const std::vector<const TargetTable*>& tables) {
    load::Misfits misfits;
    for (const TargetTable* table : tables) misfits.Find(engine, *table);
    if (!misfits.None())
        throw Error(
            ErrorNumber::TypeMismatch,
            "Dumping: nothing was written, since values do not fit their columns:\n" + misfits.Text());
}

std::vector<const TargetTable*> Chosen(const std::vector<TargetTable>& all,
                                       std::span<const std::string> names) {
    std::vector<const TargetTable*> chosen;
    for (const auto& name : names) {
        const TargetTable* table = load::FindTable(all, name);
        if (table == nullptr)
            throw Error(ErrorNumber::UnknownTable, "Dumping: the database has no table '" + name + "'.");
        chosen.push_back(table);
    }
    if (names.empty())
        for (const auto& table : all) chosen.push_back(&table);
    std::sort(chosen.begin(), chosen.end(), [](auto* a, auto* b) { return a->Name < b->Name; });
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    return chosen;
}

}  // namespace

std::vector<TableRows> Dump(const std::string& database, const std::string& folder,
                            std::span<const std::string> tables) {
    const auto engine = load::OpenDatabaseFile(database);
    // One transaction, so that all files tell of the same moment.
    engine->Run("BEGIN");
    DeletedKeys::Prepare(*engine);
    const auto all = load::ReadTables(*engine);
    const auto chosen = Chosen(all, tables);

    RefuseMisfits(*engine, chosen);

    load::DumpFiles files(folder);
    std::vector<TableRows> result;
    for (const TargetTable* table : chosen) result.push_back(DumpTable(*engine, *table, files));
    DumpDeletedKeys(*engine, chosen, folder, tables.empty(), files);
    if (tables.empty()) DumpTheMark(chosen, files);
    files.Finish();
    engine->Run("COMMIT");
    return result;
}

}  // namespace FX_Algen::store
