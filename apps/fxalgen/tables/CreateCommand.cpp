#include <CLI/CLI.hpp>
#include <filesystem>
#include <ostream>
#include <vector>

#include "FX_Algen/Create.h"
#include "FX_Algen/Load.h"
#include "fxalgen/Commands.h"
#include "fxalgen/tables/LoadReport.h"

namespace FX_Algen::cli {

namespace {

namespace fs = std::filesystem;

/// Databases made by this call. Unless they are kept they go with the object: half of what was asked for is
/// worse than nothing.
class NewDatabases {
public:
    ~NewDatabases() {
        if (kept_) return;
        for (const auto& path : paths_) {
            for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
                std::error_code ignored;
                fs::remove(path + suffix, ignored);
            }
        }
    }
    void Create(const std::string& path, store::DatabaseKind kind) {
        store::CreateDatabase(path, kind);
        Add(path);
    }
    void Add(const std::string& path) { paths_.push_back(path); }
    void Keep() { kept_ = true; }
    const std::vector<std::string>& Paths() const { return paths_; }

private:
    std::vector<std::string> paths_;
    bool kept_ = false;
};

class CreateCommand : public Command {
public:
    std::string_view Name() const override { return "create"; }
    std::string_view Description() const override {
        return "Create a project database, and on demand main and report database. An existing file is never "
               "overwritten.";
    }
    std::string_view Example() const override {
        return "  fxalgen create demo.db --demo\n"
               "  fxalgen create project.db --main main.db --report report.db";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", project_, "Project database to create")->required();
        app.add_flag("--demo", demo_, "Fill it with the demonstration project");
        app.add_option("--main", main_, "Also create the main database, which holds menu groups");
        app.add_option("--report", report_,
                       "Also create the report database; its label tables come with the reports");
    }

    Exit Execute(Streams& streams) override {
        NewDatabases made;
        if (demo_) {
            const auto result = LoadWithProgress(
                streams, [&](const auto& progress) { return store::CreateDemoDatabase(project_, progress); });
            if (!TellProblems(result, Name(), streams)) return Exit::Failed;
            made.Add(project_);
        } else {
            made.Create(project_, store::DatabaseKind::Project);
        }
        if (!main_.empty()) made.Create(main_, store::DatabaseKind::Main);
        if (!report_.empty()) made.Create(report_, store::DatabaseKind::Report);
        made.Keep();
        for (const auto& path : made.Paths()) streams.Out << path << '\n';
        return Exit::Done;
    }

private:
    std::string project_;
    std::string main_;
    std::string report_;
    bool demo_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeCreateCommand() { return std::make_unique<CreateCommand>(); }

}  // namespace FX_Algen::cli
