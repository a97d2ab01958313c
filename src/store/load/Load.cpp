#include "FX_Algen/Load.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Error.h"
#include "store/Layout.h"
#include "store/load/Loader.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {
namespace {

namespace fs = std::filesystem;

struct FileText {
    std::string Name;
    std::string Text;
};

/// The whole file; none where it cannot be read.
std::optional<std::string> ReadFile(const fs::path& path) {
    std::error_code failure;
    if (!fs::is_regular_file(path, failure)) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream text;
    if (in.peek() != std::ifstream::traits_type::eof()) text << in.rdbuf();
    if (in.bad() || text.fail()) return std::nullopt;
    return std::move(text).str();
}

bool IsCsv(const fs::path& path) { return dialect::Fold(path.extension().string()) == ".csv"; }

struct FolderTexts {
    std::vector<FileText> Files;
    std::vector<std::string> Unreadable;  ///< names of files that are there and cannot be read
};

FolderTexts ReadFolder(const std::string& folder) {
    std::error_code failure;
    if (!fs::is_directory(folder, failure))
        throw Error(ErrorNumber::FileNotFound, "Loading: there is no folder '" + folder + "'.");
    FolderTexts files;
    fs::directory_iterator entry(folder, failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with('.') || !IsCsv(entry->path())) continue;
        if (auto text = ReadFile(entry->path()))
            files.Files.push_back({name, std::move(*text)});
        else
            files.Unreadable.push_back(name);
    }
    if (failure)
        throw Error(ErrorNumber::FileNotFound,
                    "Loading: the folder '" + folder + "' cannot be read: " + failure.message() + ".");
    if (files.Files.empty() && files.Unreadable.empty())
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
    for (const auto& file : files.Files) texts.push_back({file.Name, file.Text});
    return load::Loader(database, options).Run(texts, files.Unreadable);
}

LoadResult LoadDemo(const std::string& database, const LoadProgress& progress) {
    std::vector<LoadText> texts;
    for (const auto& resource : resources::demo()) texts.push_back({resource.name, resource.text});
    LoadOptions options;
    options.Progress = progress;
    return LoadTexts(texts, database, options);
}

LoadResult CreateDemoDatabase(const std::string& path, const LoadProgress& progress) {
    LoadResult result;
    CreateDatabase(path, DatabaseKind::Project, [&](const std::string& file) {
        result = LoadDemo(file, progress);
        return result.Problems.empty();
    });
    return result;
}

}  // namespace FX_Algen::store
