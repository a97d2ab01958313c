#include "store/Layout.h"

#include <array>
#include <filesystem>
#include <functional>
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

constexpr std::array Companions{"-wal", "-journal", "-shm"};

/// Fails where the name is taken, or where a database of this name left files behind: the engine would take
/// them for those of the new one and write the old content over it.
void RefuseTaken(const fs::path& target) {
    const auto exists = [](const fs::path& path) {
        std::error_code failure;
        return fs::exists(fs::symlink_status(path, failure));
    };
    if (exists(target))
        throw Error(ErrorNumber::NotADatabase,
                    "Creating a database: the file exists already: " + target.string());
    for (const char* suffix : Companions)
        if (exists(target.string() + suffix))
            throw Error(ErrorNumber::NotADatabase,
                        "Creating a database: " + target.string() + suffix +
                            " is left over from another database of this name; move it away first");
}

/// A file in the making beside its later place, so that renaming it never crosses a file system. Whatever is
/// left of it goes when the object does.
class FileInTheMaking {
public:
    explicit FileInTheMaking(const fs::path& target)
        : path_(target.string() + ".new-" + std::to_string(std::random_device{}())) {}
    ~FileInTheMaking() {
        std::error_code ignored;
        fs::remove(path_, ignored);
        for (const char* suffix : Companions) fs::remove(path_.string() + suffix, ignored);
    }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    std::string Path() const { return path_.string(); }

    /// Gives the file its name, unless another file took it meanwhile.
    void Finish(const fs::path& target) const {
        RefuseTaken(target);
        std::error_code error;
        fs::create_hard_link(path_, target, error);
        if (!error) return;
        // Some file systems know no hard links: there the check and the renaming are two steps.
        RefuseTaken(target);
        fs::rename(path_, target, error);
        if (error)
            throw Error(ErrorNumber::FileNotFound, "Creating a database: " + target.string() +
                                                       " cannot be written: " + error.message() + ".");
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
    CreateDatabase(path, kind, [](const std::string&) { return true; });
}

void CreateDatabase(const std::string& path, DatabaseKind kind,
                    const std::function<bool(const std::string&)>& fill) {
    if (path.empty())
        throw Error(ErrorNumber::FileNotFound, "Creating a database: the name of the file is empty");
    const fs::path target(path);
    std::error_code failure;
    if (const fs::path folder = target.parent_path(); !folder.empty() && !fs::is_directory(folder, failure))
        throw Error(ErrorNumber::FileNotFound,
                    "Creating a database: the folder does not exist: " + folder.string());
    RefuseTaken(target);

    const FileInTheMaking file(target);
    {
        const std::unique_ptr<Engine> engine = OpenEngine(file.Path(), true);
        CreateTables(*engine, kind);
    }
    if (fill(file.Path())) file.Finish(target);
}

}  // namespace FX_Algen::store
