#include "FX_Algen/Load.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FX_Algen/Error.h"
#include "store/load/Loader.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {
namespace {

namespace fs = std::filesystem;

struct FileText {
    std::string Name;
    std::string Text;
};

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (!in.good() && !in.eof())
        throw Error(ErrorNumber::FileNotFound, "Loading: the file cannot be read: " + path.string());
    return text;
}

bool IsCsv(const fs::path& path) { return dialect::Fold(path.extension().string()) == ".csv"; }

std::vector<FileText> ReadFolder(const std::string& folder) {
    if (!fs::is_directory(folder))
        throw Error(ErrorNumber::FileNotFound, "Loading: there is no folder '" + folder + "'.");
    std::vector<FileText> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file() && IsCsv(entry.path()))
            files.push_back({entry.path().filename().string(), ReadFile(entry.path())});
    if (files.empty())
        throw Error(ErrorNumber::FileNotFound, "Loading: the folder '" + folder + "' has no .csv file.");
    return files;
}

}  // namespace

LoadResult LoadTexts(std::span<const LoadText> files, const std::string& database,
                     const LoadOptions& options) {
    return load::Loader(database, options).Run(files);
}

LoadResult LoadFolder(const std::string& folder, const std::string& database, const LoadOptions& options) {
    const auto files = ReadFolder(folder);
    std::vector<LoadText> texts;
    for (const auto& file : files) texts.push_back({file.Name, file.Text});
    return LoadTexts(texts, database, options);
}

LoadResult LoadDemo(const std::string& database, const LoadProgress& progress) {
    std::vector<LoadText> texts;
    for (const auto& resource : resources::demo()) texts.push_back({resource.name, resource.text});
    LoadOptions options;
    options.Progress = progress;
    return LoadTexts(texts, database, options);
}

}  // namespace FX_Algen::store
