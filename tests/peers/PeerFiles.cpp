#include "peers/PeerFiles.h"

#include <fstream>
#include <stdexcept>

namespace FX_Algen::peers {
namespace {

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            cells.emplace_back();
        else if (c != '\r')
            cells.back() += c;
    }
    return cells;
}

}  // namespace

std::vector<Row> ReadCsv(const std::string& name) {
    std::ifstream file(std::string(FX_PEERS_DIR) + "/" + name);
    if (!file) throw std::runtime_error("cannot read " + name);
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> head = Cells(line);
    std::vector<Row> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = Cells(line);
        if (cells.size() != head.size()) throw std::runtime_error(name + ": " + line);
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < head.size(); ++i) row[head[i]] = cells[i];
    }
    return rows;
}

std::string SqlText(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace FX_Algen::peers
