#include <CLI/CLI.hpp>

#include "FX_Algen/Load.h"
#include "fxalgen/Commands.h"
#include "fxalgen/tables/LoadReport.h"

namespace FX_Algen::cli {

namespace {

class LoadCommand : public Command {
public:
    std::string_view Name() const override { return "load"; }
    std::string_view Description() const override {
        return "Load one <Table>.csv a table from a folder, all or nothing: every problem is told with file, "
               "line and column.";
    }
    std::string_view Example() const override {
        return "  fxalgen load samples --into project.db\n"
               "  fxalgen load reference-tables --into project.db --replace";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("DIR", folder_,
                       "Folder with the files: UTF-8, header row = column names, empty field = Null, \"\" = "
                       "empty text; \";\" and a byte order mark are accepted")
            ->required();
        app.add_option("--into", database_, "Database to load into")->required();
        app.add_flag("--replace", replace_, "Empty the tables that DIR names first, in the same transaction");
    }

    Exit Execute(Streams& streams) override {
        const auto result = LoadWithProgress(streams, [&](const auto& progress) {
            store::LoadOptions options;
            options.Replace = replace_;
            options.Progress = progress;
            return store::LoadFolder(folder_, database_, options);
        });
        if (!TellProblems(result, Name(), streams)) return Exit::Failed;
        TellRows(result.Tables, streams);
        return Exit::Done;
    }

private:
    std::string folder_;
    std::string database_;
    bool replace_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeLoadCommand() { return std::make_unique<LoadCommand>(); }

}  // namespace FX_Algen::cli
