#pragma once

#include <cstdint>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace FX_Algen::store::dialect::testing {

/// One line of a corpus file.
struct CorpusLine {
    std::size_t Number = 0;  ///< line of the file, from 1
    std::string Group;       ///< text of the heading above
    std::string Database;    ///< "project", "main" or "report"
    std::int32_t Fails = 0;  ///< error number; 0 = must run
    std::string Reason;      ///< behind " -- " at the end of a line that must fail, where it stands
    std::string Statement;
};

inline bool TakePrefix(std::string& text, const std::string& prefix) {
    if (text.compare(0, prefix.size(), prefix) != 0) return false;
    text.erase(0, prefix.size());
    return true;
}

inline CorpusLine ParsedCorpusLine(std::string text) {
    CorpusLine line;
    line.Database = "project";
    for (const char* database : {"main", "report"}) {
        if (TakePrefix(text, std::string(database) + ": ")) {
            line.Database = database;
        } else if (text.compare(0, std::string(database).size() + 7, std::string(database) + " fails ") ==
                   0) {
            line.Database = database;
            text.erase(0, std::string(database).size() + 1);
        }
    }
    if (TakePrefix(text, "fails ")) {
        const std::size_t colon = text.find(':');
        line.Fails = std::stoi(text.substr(0, colon));
        text.erase(0, colon + 1);
        if (!text.empty() && text.front() == ' ') text.erase(0, 1);
        const std::size_t reason = text.rfind(" -- ");
        if (reason != std::string::npos) {
            line.Reason = text.substr(reason + 4);
            text.erase(reason);
        }
    }
    line.Statement = text;
    return line;
}

inline std::vector<CorpusLine> ReadCorpus(const std::string& fileName) {
    std::ifstream file(std::string(FX_SOURCE_DIR) + "/tests/corpus/" + fileName);
    if (!file) throw std::runtime_error("corpus file missing: " + fileName);
    std::vector<CorpusLine> lines;
    std::string group;
    std::string text;
    for (std::size_t number = 1; std::getline(file, text); ++number) {
        if (TakePrefix(text, "## ")) group = text;
        if (text.empty() || text.front() == '#' || text == group) continue;
        CorpusLine line = ParsedCorpusLine(text);
        line.Number = number;
        line.Group = group;
        lines.push_back(line);
    }
    return lines;
}

}  // namespace FX_Algen::store::dialect::testing
