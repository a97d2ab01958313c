#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "TestDatabase.h"

namespace FX_Algen::store {
namespace {

/// Columns by table as docs/data-model.md lists them: "#### table" and below it "| `column` | kind | …".
std::map<std::string, std::map<std::string, std::string>> Documented() {
    std::ifstream in(std::string(FX_SOURCE_DIR) + "/docs/data-model.md");
    std::map<std::string, std::map<std::string, std::string>> out;
    std::string table;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("#")) table = line.starts_with("#### ") ? line.substr(5) : "";
        if (table.empty() || !line.starts_with("| `")) continue;
        const auto end = line.find('`', 3);
        const auto kind = line.find("| ", end) + 2;
        out[table][line.substr(3, end - 3)] = line.substr(kind, line.find(" |", kind) - kind);
    }
    return out;
}

TEST(DataModelPage, NamesEveryTableAndColumnWithItsKindAndNoOthers) {
    const std::map<std::string, std::string> words{{"SMALLINT", "16-bit integer"},
                                                   {"INTEGER", "32-bit integer"},
                                                   {"FLOAT", "32-bit float"},
                                                   {"DOUBLE", "64-bit float"},
                                                   {"BOOLEAN", "boolean"},
                                                   {"TEXT", "text"},
                                                   {"DATE", "date"},
                                                   {"TIME", "time of day"}};
    std::map<std::string, std::map<std::string, std::string>> declared;
    for (const auto kind : {DatabaseKind::Project, DatabaseKind::Main, DatabaseKind::Report}) {
        TestDatabase db(kind);
        for (const auto& row : db.Rows("SELECT m.name, c.name, c.type FROM sqlite_master m, "
                                       "pragma_table_info(m.name) c WHERE m.type='table' "
                                       "AND m.name NOT LIKE 'sqlite_%'")) {
            std::istringstream parts(row);
            std::string table, column, type;
            std::getline(parts, table, '|');
            std::getline(parts, column, '|');
            std::getline(parts, type, '|');
            declared[table][column] = words.at(type);
        }
    }
    EXPECT_EQ(Documented(), declared);
}

}  // namespace
}  // namespace FX_Algen::store
