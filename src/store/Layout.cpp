#include "store/Layout.h"

#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include "FX_Algen/Error.h"
#include "store/Engine.h"
#include "store/PlannerFigures.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {
namespace {

namespace fs = std::filesystem;

std::string_view Folder(DatabaseKind kind) {
    switch (kind) {
        case DatabaseKind::Main:
            return "main/";
        case DatabaseKind::Report:
            return "report/";
        case DatabaseKind::Project:
            break;
    }
    return "project/";
}

/// A file in the making beside its later place, so that renaming it never crosses a file system. Whatever is
/// left of it goes when the object does.
class FileInTheMaking {
public:
    explicit FileInTheMaking(const fs::path& target)
        : path_(target.string() + ".new-" + std::to_string(std::random_device{}())) {}
    ~FileInTheMaking() {
        for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
            std::error_code ignored;
            fs::remove(path_.string() + suffix, ignored);
        }
    }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    std::string Path() const { return path_.string(); }

    /// Gives the file its name, unless another file took it meanwhile.
    void Finish(const fs::path& target) const {
        std::error_code error;
        fs::create_hard_link(path_, target, error);
        if (!error) return;
        // Some file systems know no hard links: there the check and the renaming are two steps.
        if (fs::exists(target))
            throw Error(ErrorNumber::NotADatabase,
                        "Creating a database: the file exists already: " + target.string());
        fs::rename(path_, target);
    }

private:
    fs::path path_;
};

}  // namespace

void CreateTables(Engine& engine, DatabaseKind kind) {
    engine.Run("BEGIN IMMEDIATE");
    try {
        for (const auto& resource : resources::schema())
            if (resource.name.starts_with(Folder(kind))) engine.Run(std::string(resource.text));
        RestorePlannerFigures(engine);
        engine.Run("PRAGMA user_version = " + std::to_string(LayoutVersion));
        engine.Run("COMMIT");
    } catch (...) {
        if (engine.InTransaction()) engine.Run("ROLLBACK");
        throw;
    }
}

void CreateDatabase(const std::string& path, DatabaseKind kind) {
    const fs::path target(path);
    if (fs::exists(target))
        throw Error(ErrorNumber::NotADatabase, "Creating a database: the file exists already: " + path);
    if (const fs::path folder = target.parent_path(); !folder.empty() && !fs::is_directory(folder))
        throw Error(ErrorNumber::FileNotFound,
                    "Creating a database: the folder does not exist: " + folder.string());

    const FileInTheMaking file(target);
    {
        const std::unique_ptr<Engine> engine = OpenEngine(file.Path(), true);
        CreateTables(*engine, kind);
    }
    file.Finish(target);
}

}  // namespace FX_Algen::store
