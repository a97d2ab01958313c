#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "FX_Algen/Load.h"
#include "schema/TestDatabase.h"

namespace FX_Algen::store {

using Files = std::vector<LoadText>;

inline LoadResult Load(const Files& files, TestDatabase& db, bool replace = false) {
    LoadOptions options;
    options.Replace = replace;
    return LoadTexts(files, db.Path(), options);
}

/// The problems as "file:line:column: reason", one a line.
inline std::string Told(const LoadResult& result) {
    std::string out;
    for (const auto& p : result.Problems)
        out += p.File + ":" + std::to_string(p.Line) + ":" + p.Column + ": " + p.Reason + "\n";
    return out;
}

inline std::string ReadText(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

/// All files of a folder with their texts.
inline std::map<std::string, std::string> FolderTexts(const std::string& folder) {
    std::map<std::string, std::string> out;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        out[entry.path().filename().string()] = ReadText(entry.path());
    return out;
}

}  // namespace FX_Algen::store
