#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Load.h"
#include "store/load/DeletedKeys.h"
#include "store/load/Tables.h"

namespace FX_Algen::store {
namespace {

namespace fs = std::filesystem;
using load::TargetColumn;
using load::TargetTable;

/// A CSV file in the making. It takes its name when it is complete.
class CsvFile {
public:
    explicit CsvFile(const fs::path& path) : path_(path), part_(path.string() + ".part") {
        out_.open(part_, std::ios::binary | std::ios::trunc);
        buffer_.reserve(Full + Full / 4);
    }
    ~CsvFile() {
        out_.close();
        std::error_code ignored;
        fs::remove(part_, ignored);
    }
    CsvFile(const CsvFile&) = delete;
    CsvFile& operator=(const CsvFile&) = delete;

    std::string& Line() { return buffer_; }
    void EndLine() {
        buffer_ += '\n';
        if (buffer_.size() >= Full) Flush();
    }
    void Finish() {
        Flush();
        out_.close();
        if (!out_)
            throw Error(ErrorNumber::FileNotFound, "Dumping: the file cannot be written: " + path_.string());
        fs::rename(part_, path_);
    }

private:
    static constexpr std::size_t Full = std::size_t{1} << 16U;
    void Flush() {
        out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        buffer_.clear();
    }
    fs::path path_;
    fs::path part_;
    std::ofstream out_;
    std::string buffer_;
};

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

TableRows DumpTable(Engine& engine, const TargetTable& table, const fs::path& folder) {
    CsvFile file(folder / (table.Name + ".csv"));
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
    file.Finish();
    return result;
}

void DumpDeletedKeys(Engine& engine, const std::vector<const TargetTable*>& tables, const fs::path& folder) {
    const fs::path path = folder / load::DeletedKeys::FileName;
    const auto lines = load::DeletedKeys::Find(engine, tables);
    if (lines.empty()) {
        // One of an earlier dump would tell of other keys.
        fs::remove(path);
        return;
    }
    CsvFile file(path);
    file.Line() += "Tabelle,Schluessel,Zaehler";
    file.EndLine();
    for (const auto& line : lines) {
        file.Line() += line.Table + ',' + std::to_string(line.Key) + (line.Counter ? ",-1" : ",0");
        file.EndLine();
    }
    file.Finish();
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
    load::DeletedKeys::Prepare(*engine);
    const auto all = load::ReadTables(*engine);
    const auto chosen = Chosen(all, tables);

    std::error_code failure;
    fs::create_directories(folder, failure);
    if (!fs::is_directory(folder))
        throw Error(ErrorNumber::FileNotFound, "Dumping: the folder cannot be made: " + folder);
    std::vector<TableRows> result;
    for (const TargetTable* table : chosen) result.push_back(DumpTable(*engine, *table, folder));
    DumpDeletedKeys(*engine, chosen, folder);
    engine->Run("COMMIT");
    return result;
}

}  // namespace FX_Algen::store
