#include "DemoDatabase.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "FX_Algen/Create.h"
#include "store/resources/Resources.h"

namespace FX_Algen::demo_test {

namespace {

using Field = std::optional<std::string>;

/// Reads the rows of a file: fields separated by commas, in quotes where they hold one; an empty field is
/// Null.
class CsvReader {
public:
    explicit CsvReader(std::string_view text) : text_(text) {}

    bool AtEnd() const noexcept { return at_ >= text_.size(); }

    std::vector<Field> Next() {
        std::vector<Field> fields(1);
        while (!AtEnd()) {
            const char c = text_[at_++];
            if (c == '\n') {
                break;
            }
            if (c == ',') {
                fields.emplace_back();
            } else if (c == '"') {
                fields.back() = Quoted();
            } else {
                fields.back() = fields.back().value_or("") + c;
            }
        }
        return fields;
    }

private:
    std::string Quoted() {
        std::string field;
        while (!AtEnd()) {
            const char c = text_[at_++];
            if (c != '"') {
                field += c;
            } else if (!AtEnd() && text_[at_] == '"') {
                field += text_[at_++];
            } else {
                break;
            }
        }
        return field;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

void LoadTable(store::Engine& engine, std::string_view fileName, std::string_view text) {
    const std::string table(fileName.substr(0, fileName.rfind('.')));
    CsvReader reader(text);
    const std::vector<Field> columns = reader.Next();
    std::string names;
    std::string marks;
    for (const Field& column : columns) {
        names += (names.empty() ? "" : ", ") + column.value();
        marks += marks.empty() ? "?" : ", ?";
    }
    const auto statement = engine.Prepare("INSERT INTO " + table + " (" + names + ") VALUES (" + marks + ")");
    while (!reader.AtEnd()) {
        const std::vector<Field> row = reader.Next();
        if (row.size() != columns.size()) {
            throw std::runtime_error(table + ": row with " + std::to_string(row.size()) + " fields");
        }
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i]) {
                statement->BindText(i, *row[i]);
            } else {
                statement->BindNull(i);
            }
        }
        statement->Step();
        statement->Reset();
    }
}

}  // namespace

struct DemoDatabase::Folder {
    Folder() {
        static std::atomic<int> count{0};
        path = std::filesystem::path(testing::TempDir()) /
               ("fx_demo_" + std::to_string(getpid()) + "_" + std::to_string(++count));
        std::filesystem::create_directories(path);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
};

DemoDatabase::DemoDatabase() : folder_(std::make_unique<Folder>()) {
    store::CreateDatabase(Path(), store::DatabaseKind::Project);
    engine_ = store::OpenEngine(Path(), false);
    // The files come in the order of their names, the parents of a row perhaps after it.
    engine_->Run("PRAGMA foreign_keys = OFF; BEGIN");
    for (const resources::Resource& file : resources::demo()) {
        LoadTable(*engine_, file.name, file.text);
    }
    engine_->Run("COMMIT");
}

DemoDatabase::~DemoDatabase() = default;

std::string DemoDatabase::Path() const { return (folder_->path / "Fließgewässer.db").string(); }

std::vector<Row> DemoDatabase::Rows(std::string_view sql) {
    const auto statement = engine_->Prepare(sql);
    std::vector<Row> rows;
    while (statement->Step()) {
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < statement->ColumnCount(); ++i) {
            row.emplace_back(statement->IsNull(i) ? "NULL" : std::string(statement->Text(i)));
        }
    }
    return rows;
}

std::vector<std::string> DemoDatabase::Column(std::string_view sql) {
    std::vector<std::string> column;
    for (Row& row : Rows(sql)) {
        column.push_back(std::move(row.at(0)));
    }
    return column;
}

std::int64_t DemoDatabase::Number(std::string_view sql) {
    const auto rows = Rows(sql);
    if (rows.size() != 1) {
        throw std::runtime_error("one row expected: " + std::string(sql));
    }
    return std::stoll(rows[0].at(0));
}

std::string Chain() {
    return " awaArt JOIN awaUnterFam USING (ID_UFAM) JOIN awaFamilie USING (ID_FAM)"
           " JOIN awaUeberfamilie USING (ID_UEFAM) JOIN awaZwgrReihe2 USING (ID_ZGREIHE2)"
           " JOIN awaZwgrReihe1 USING (ID_ZGREIHE1) JOIN awaFamilienreihe USING (ID_FAMREIHE)"
           " JOIN awaZwgrOrdnung USING (ID_ZGORDNUNG) JOIN awaInfraordnung USING (ID_IORDNUNG)"
           " JOIN awaUnterordnung USING (ID_UORDNUNG) JOIN awaOrdnung USING (ID_ORDNUNG)"
           " JOIN awaUeberordnung USING (ID_UEORDNUNG) JOIN awaUnterklasse USING (ID_UKLASSE)"
           " JOIN awaZwgrKlasse USING (ID_ZGKLASSE) JOIN awaKlasse USING (ID_KLASSE)"
           " JOIN awaUeberklasse USING (ID_UEKLASSE) JOIN awaUnterstamm USING (ID_USTAMM)"
           " JOIN awaStamm USING (ID_STAMM) JOIN awaUnterreich USING (ID_UREICH) JOIN awaReich USING "
           "(ID_REICH)"
           " JOIN awaGrossGr USING (ID_GRGR) ";
}

}  // namespace FX_Algen::demo_test
